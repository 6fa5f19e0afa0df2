#include "COpBasketsTree.h"
#include "COpBasketsTreeWidget.h"

#include "BasketHelpers.h"
#include "CBasketSetting.h"
#include "CUserConfig.h"
#include "ConfirmTestSupport.h"
#include "LuaModuleCtrl.h"
#include "SubstituteReset.h"

#include <gtest/gtest.h>

#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

#include <memory>
#include <vector>

namespace {

using ttservice::EOperationType;
using ttservice::EVQBrokerType;
constexpr EVQBrokerType kStock = ttservice::BROKER_TYPE_STOCK;
constexpr EVQBrokerType kFuture = ttservice::BROKER_TYPE_FUTURE;

// A tree under a shown owner that records what it delivers; the tree stays closed until open().
template <typename Tree>
struct Host {
    Host()
    {
        tree->hide();
        parent->show();
    }
    ~Host() { parent->hide(); }
    void open() { tree->show(); }
    std::unique_ptr<confirmtest::Recorder> parent = std::make_unique<confirmtest::Recorder>();
    Tree *tree = new Tree(parent.get());
};

QString batchName(int flag) { return TC::batchFlagName(TC::ETempBatchOrderFlags(TC::ETempBatchOrderFlag(flag))); }
TC::ETempBatchOrderFlags flags(int word) { return TC::ETempBatchOrderFlags(TC::ETempBatchOrderFlag(word)); }

// Stored out of key order on purpose: the map orders the stock ones Beta, Zeta, alpha50.
void storeSampleBaskets()
{
    const struct { const char *name; int kind; EVQBrokerType broker; } samples[] = {
        {"Zeta", 0, kStock},     {"alpha50", 0, kStock},  {"Beta", 0, kStock},
        {"Fut1", 0, kFuture},    {"FutIndex", 1, kFuture}, {"HK1", 0, ttservice::BROKER_TYPE_HGT},
        {"Index300", 1, kStock}, {"Index500", 2, kStock}, {"Etf50", 3, kStock},
        {"EtfBond", 4, kStock},  {"Kind5", 5, kStock},
    };
    for (const auto &basket : samples)
        sample::storeBasket(QString::fromUtf8(basket.name), {}, basket.broker, basket.kind);
    TC::getUserConfig()->baskets().insert(QStringLiteral("Nameless"), TC::CBasketSetting());
}

void switchSystemBaskets(bool on)
{
    luawrapper::LuaModuleCtrl::instance()->setModules({"mdl_auth", "mdl_auth_etf_management"}, on);
}

QString itemPath(const QTreeWidgetItem *item)
{
    QString path = item->text(0);
    for (const QTreeWidgetItem *p = item->parent(); p; p = p->parent())
        path = p->text(0) + QLatin1Char('/') + path;
    return path;
}

// Every item in display order as "path:type".
QStringList outline(QTreeWidget *tree)
{
    QStringList lines;
    for (QTreeWidgetItemIterator it(tree); *it; ++it)
        lines << itemPath(*it) + QLatin1Char(':') + QString::number((*it)->type());
    return lines;
}

QTreeWidgetItem *findItem(const QTreeWidget *tree, const QString &text)
{
    const QList<QTreeWidgetItem *> found = tree->findItems(text, Qt::MatchExactly | Qt::MatchRecursive);
    return found.isEmpty() ? nullptr : found.first();
}

const QString kAll = QStringLiteral("所有组合");
const QString kMine = QStringLiteral("所有组合/我的组合");
const QString kSystem = QStringLiteral("所有组合/系统组合");
const QString kIndex = QStringLiteral("所有组合/系统组合/指数组合");
const QString kEtf = QStringLiteral("所有组合/系统组合/ETF组合");

QString group(const QString &path) { return path + QStringLiteral(":0"); }
QString basket(const QString &groupPath, const char *name) { return groupPath + QLatin1Char('/') + name + QStringLiteral(":1"); }
QString batch(int flag) { return kAll + QLatin1Char('/') + batchName(flag) + QStringLiteral(":2"); }
QString chosen(int flag, const QString &name) { return QStringLiteral("1139,0,%1,%2").arg(flag).arg(name); }

class BasketsTreeTest : public ::testing::Test
{
protected:
    void SetUp() override { TC::resetAllSubstitutes(); }
    void TearDown() override { TC::resetAllSubstitutes(); }
};

TEST_F(BasketsTreeTest, bothTreesOfferWhatFitsFlagsOperationAndBrokerType)
{
    const QStringList mine = {group(kMine), basket(kMine, "Beta"), basket(kMine, "Zeta"), basket(kMine, "alpha50")};
    const struct { const char *name; int flags; EOperationType operation; EVQBrokerType broker; bool baskets, systemModule;
                   QStringList expected; } rows[] = {
        {"noBasketsNoFlagsOnBuy", 64, ttservice::OT_BUY, kStock, false, true, {group(kAll)}},
        {"sellOnStockAlwaysOffersPositionsEvenWithoutFlags", 0, ttservice::OT_SELL, kStock, false, false, {group(kAll), batch(4)}},
        {"sellOnCreditHasNoPositionEntry", 1 | 2, ttservice::OT_SELL, ttservice::BROKER_TYPE_CREDIT, false, false,
         {group(kAll), batch(2)}},
        {"creditOperationOffersNeitherBuyNorSellList", 1 | 2, ttservice::OT_MARGIN_BUY, ttservice::BROKER_TYPE_CREDIT, false,
         false, {group(kAll)}},
        {"buyOffersBuyListClipboardAndCustomNeverRebalance", 1 | 2 | 8 | 16 | 32, ttservice::OT_BUY, kStock, false, false,
         {group(kAll), batch(1), batch(8), batch(32)}},
        {"sellOffersItsEntriesInOrder", 1 | 2 | 8 | 16 | 32, ttservice::OT_SELL, kStock, false, false,
         {group(kAll), batch(4), batch(2), batch(8), batch(32)}},
        {"ownBasketsOfTheBrokerTypeInKeyOrder", 0, ttservice::OT_BUY, kStock, true, true, QStringList{group(kAll)} + mine},
        {"systemBasketsWithFlagAndModule", 64 | 8, ttservice::OT_BUY, kStock, true, true,
         QStringList{group(kAll), batch(8)} + mine
             + QStringList{group(kSystem), group(kIndex), basket(kIndex, "Index300"), basket(kIndex, "Index500"), group(kEtf),
                           basket(kEtf, "Etf50"), basket(kEtf, "EtfBond")}},
        {"noSystemBasketsWithoutModule", 64, ttservice::OT_BUY, kStock, true, false, QStringList{group(kAll)} + mine},
        {"futuresBasketsOnFuturesBrokerType", 64, ttservice::OT_SELL, kFuture, true, true,
         {group(kAll), group(kMine), basket(kMine, "Fut1"), group(kSystem), group(kIndex), basket(kIndex, "FutIndex"),
          group(kEtf)}},
    };
    // The two trees share the filling; each is checked on its own rows so that both setters'
    // paths are walked without walking every row twice.
    for (size_t i = 0; i < std::size(rows); ++i) {
        const auto &row = rows[i];
        SCOPED_TRACE(row.name);
        TC::resetAllSubstitutes();
        if (row.baskets)
            storeSampleBaskets();
        switchSystemBaskets(row.systemModule);
        const auto check = [&row](auto &host) {
            host.tree->reSetFlag(flags(row.flags));
            host.tree->setOperationType(row.operation);
            host.tree->setBrokerType(row.broker);
            host.open();
            EXPECT_EQ(outline(host.tree->treeWidget()), row.expected);
        };
        if (i % 2) {
            Host<TC::COpBasketsTree> host;
            check(host);
        } else {
            Host<TC::COpBasketsTreeWidget> host;
            check(host);
        }
    }
}

// The tree starts with the system flag, adds flags to it, and is refilled at every opening.
TEST_F(BasketsTreeTest, seesTheBasketsAsTheyAreAtEachOpening)
{
    Host<TC::COpBasketsTree> host;
    host.tree->addBatchFlag(flags(8));
    EXPECT_EQ(int(host.tree->getAllFlag()), 64 | 8);
    host.open();
    EXPECT_EQ(outline(host.tree->treeWidget()), QStringList({group(kAll), batch(8)}));
    storeSampleBaskets();
    host.tree->hide();
    host.open();
    EXPECT_NE(findItem(host.tree->treeWidget(), QStringLiteral("Beta")), nullptr);
    TC::getUserConfig()->baskets().clear();
    host.tree->hide();
    host.open();
    EXPECT_EQ(outline(host.tree->treeWidget()), QStringList({group(kAll), batch(8)}));
}

TEST_F(BasketsTreeTest, filterHidesLeavesThatDontHoldTheTextAndKeepsEveryGroup)
{
    const struct { const char *text; QStringList shownLeaves; } rows[] = {
        {"50", {"alpha50", "Index500", "Etf50"}},
        {"ETF", {"Etf50", "EtfBond"}}, // upper case matches mixed case
        {"剪贴板", {"剪贴板组合"}},
        {"zzz", {}},
        {"", {"持仓卖出组合", "剪贴板组合", "Beta", "Zeta", "alpha50", "Index300", "Index500", "Etf50", "EtfBond"}},
    };
    storeSampleBaskets();
    switchSystemBaskets(true);
    Host<TC::COpBasketsTreeWidget> host;
    host.tree->addBatchFlag(flags(8));
    host.tree->setOperationType(ttservice::OT_SELL);
    host.open();
    for (const auto &row : rows) {
        SCOPED_TRACE(row.text);
        host.tree->setFilterText(QStringLiteral("Zeta")); // a stale filter the next one must undo
        host.tree->setFilterText(QString::fromUtf8(row.text));
        QStringList shownLeaves;
        for (QTreeWidgetItemIterator it(host.tree->treeWidget()); *it; ++it) {
            if ((*it)->type() == TC::COpBasketsTreeLogic::ITEM_GROUP) {
                EXPECT_FALSE((*it)->isHidden()) << itemPath(*it).toStdString();
            } else if (!(*it)->isHidden()) {
                shownLeaves << (*it)->text(0);
            }
        }
        EXPECT_EQ(shownLeaves, row.shownLeaves);
    }
}

TEST_F(BasketsTreeTest, canCustomDependsOnTheCurrentItemAndTheFlags)
{
    const struct {
        int flags;
        const char *current; // empty: no current item
        bool expected;
    } rows[] = {{8, "", false},           {0, "Beta", true},           {8, "我的组合", false},      {8, "剪贴板组合", true},
                {1, "批量买入组合", false}, {1 | 32, "批量买入组合", true}, {1 | 16, "批量买入组合", true}};
    storeSampleBaskets();
    for (const auto &row : rows) {
        SCOPED_TRACE(std::string(row.current) + " " + std::to_string(row.flags));
        Host<TC::COpBasketsTree> host;
        host.tree->reSetFlag(flags(row.flags));
        host.tree->setOperationType(ttservice::OT_BUY);
        host.open();
        if (*row.current) {
            QTreeWidgetItem *item = findItem(host.tree->treeWidget(), QString::fromUtf8(row.current));
            ASSERT_NE(item, nullptr);
            host.tree->treeWidget()->setCurrentItem(item);
        }
        EXPECT_EQ(host.tree->canCustom(), row.expected);
    }
}

// The pickers' tests walk both trees' click and close; here every entry's choice is checked once.
TEST_F(BasketsTreeTest, aClickOnABatchEntryDeliversItsFlagAndGroupsOrUnofferedEntriesChooseNothing)
{
    Host<TC::COpBasketsTree> host;
    host.tree->reSetFlag(flags(1 | 2 | 8 | 32));
    host.tree->setOperationType(ttservice::OT_SELL);
    host.open();
    for (int flag : {4, 2, 8, 32}) {
        host.parent->received.clear();
        QTreeWidgetItem *item = findItem(host.tree->treeWidget(), batchName(flag));
        ASSERT_NE(item, nullptr) << flag;
        host.tree->treeWidget()->setCurrentItem(item);
        host.tree->slotItemClicked(item, 0);
        EXPECT_EQ(host.parent->received, QStringList({chosen(flag, batchName(flag)), chosen(flag, batchName(flag))}));
        host.open();
    }

    host.tree->treeWidget()->setCurrentItem(nullptr);
    host.tree->hide(); // without a current item
    host.parent->received.clear();
    host.open();
    QTreeWidgetItem *all = host.tree->treeWidget()->topLevelItem(0);
    ASSERT_NE(all, nullptr);
    // The rebalance list is set by code only and never chosen from the tree; a stored basket
    // that bears a batch's name still goes as a stored basket.
    const std::pair<int, QString> added[] = {{TC::COpBasketsTreeLogic::ITEM_BATCH, batchName(16)},
                                             {TC::COpBasketsTreeLogic::ITEM_BATCH, QStringLiteral("不存在的组合")},
                                             {TC::COpBasketsTreeLogic::ITEM_BASKET, batchName(8)}};
    host.tree->treeWidget()->setCurrentItem(all);
    host.tree->slotItemClicked(all, 0);
    host.tree->hideTree(nullptr);
    for (const auto &[type, text] : added) {
        auto *item = new QTreeWidgetItem(all, type);
        item->setText(0, text);
        host.tree->hideTree(item);
    }
    EXPECT_FALSE(host.tree->isVisible());
    EXPECT_EQ(host.parent->received, QStringList({chosen(0, batchName(8))}));
}

} // namespace
