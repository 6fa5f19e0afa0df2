#include "COpBasketsTree.h"
#include "COpBasketsTreeWidget.h"

#include "BasketHelpers.h"
#include "CBaseWidget.h"
#include "CBasketSetting.h"
#include "CUiResource.h"
#include "CUserConfig.h"
#include "LuaModuleCtrl.h"
#include "SubstituteReset.h"

#include <gtest/gtest.h>

#include <QColor>
#include <QStringList>
#include <QTreeWidget>
#include <QTreeWidgetItem>
#include <QTreeWidgetItemIterator>

#include <memory>
#include <ostream>
#include <string>
#include <type_traits>
#include <vector>

namespace {

using ttservice::EOperationType;
using ttservice::EVQBrokerType;

// The editor's place in the chain: records what the tree delivers, as "event,id,value,text"
// with ",data" when data comes along, and takes it.
class RecordingParent : public WK::CBaseWidget
{
public:
    RecordingParent()
        : WK::CBaseWidget(QStringLiteral("recordingParent"), false, nullptr)
    {
    }

    bool handleEvent(int event, int id, int value, QString text, void *data) override
    {
        received << QStringLiteral("%1,%2,%3,%4").arg(event).arg(id).arg(value).arg(text)
                + (data ? QStringLiteral(",data") : QString());
        return true;
    }

    QStringList received;
};

// A tree under a shown parent, as the pickers hold it; the tree itself stays closed until open().
template <typename Tree>
struct Host {
    Host()
        : parent(std::make_unique<RecordingParent>())
        , tree(new Tree(parent.get()))
    {
        tree->hide();
        parent->show();
    }
    ~Host() { parent->hide(); }

    void open() { tree->show(); }

    std::unique_ptr<RecordingParent> parent;
    Tree *tree;
};

QString batchName(int flag)
{
    return TC::batchFlagName(TC::ETempBatchOrderFlags(TC::ETempBatchOrderFlag(flag)));
}

TC::ETempBatchOrderFlags flags(int word)
{
    return TC::ETempBatchOrderFlags(TC::ETempBatchOrderFlag(word));
}

void storeBasket(const QString &name, int kind, EVQBrokerType broker, const QString &key = QString())
{
    TC::CBasketSetting setting;
    setting.m_name = name;
    setting.m_basketKind = kind;
    setting.m_brokerType = broker;
    TC::getUserConfig()->baskets().insert(key.isEmpty() ? name : key, setting);
}

// Stored out of key order on purpose: the map orders the stock ones Beta, Zeta, alpha50.
void storeSampleBaskets()
{
    const struct {
        const char *name;
        int kind;
        EVQBrokerType broker;
    } samples[] = {
        {"Zeta", 0, ttservice::BROKER_TYPE_STOCK},     {"alpha50", 0, ttservice::BROKER_TYPE_STOCK},
        {"Beta", 0, ttservice::BROKER_TYPE_STOCK},     {"Fut1", 0, ttservice::BROKER_TYPE_FUTURE},
        {"FutIndex", 1, ttservice::BROKER_TYPE_FUTURE}, {"HK1", 0, ttservice::BROKER_TYPE_HGT},
        {"Index300", 1, ttservice::BROKER_TYPE_STOCK}, {"Index500", 2, ttservice::BROKER_TYPE_STOCK},
        {"Etf50", 3, ttservice::BROKER_TYPE_STOCK},    {"EtfBond", 4, ttservice::BROKER_TYPE_STOCK},
        {"Kind5", 5, ttservice::BROKER_TYPE_STOCK},
    };
    for (const auto &sample : samples)
        storeBasket(QString::fromUtf8(sample.name), sample.kind, sample.broker);
    storeBasket(QString(), 0, ttservice::BROKER_TYPE_STOCK, QStringLiteral("Nameless"));
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

QString group(const QString &path)
{
    return path + QStringLiteral(":0");
}

QString basket(const QString &groupPath, const QString &name)
{
    return groupPath + QLatin1Char('/') + name + QStringLiteral(":1");
}

QString batch(int flag)
{
    return kAll + QLatin1Char('/') + batchName(flag) + QStringLiteral(":2");
}

template <typename Case>
std::string caseName(const ::testing::TestParamInfo<Case> &info)
{
    return info.param.name;
}

class BasketsTreeTest : public ::testing::Test
{
protected:
    void SetUp() override { TC::resetAllSubstitutes(); }
    void TearDown() override { TC::resetAllSubstitutes(); }
};

// --- what the tree offers -------------------------------------------------------------------

struct ContentCase {
    const char *name;
    int flags;
    EOperationType operation;
    EVQBrokerType broker;
    bool baskets;
    bool systemModule;
    std::vector<QString> expected;
};

void PrintTo(const ContentCase &c, std::ostream *os) { *os << c.name; }

class BasketsTreeContent : public BasketsTreeTest, public ::testing::WithParamInterface<ContentCase>
{
protected:
    template <typename Tree>
    QStringList openedOutline()
    {
        const ContentCase &c = GetParam();
        Host<Tree> host;
        host.tree->reSetFlag(flags(c.flags));
        host.tree->setOperationType(c.operation);
        host.tree->setBrokerType(c.broker);
        host.open();
        return outline(host.tree->treeWidget());
    }
};

TEST_P(BasketsTreeContent, bothTreesOfferWhatFitsFlagsOperationAndBrokerType)
{
    const ContentCase &c = GetParam();
    if (c.baskets)
        storeSampleBaskets();
    switchSystemBaskets(c.systemModule);
    const QStringList expected(c.expected.begin(), c.expected.end());

    EXPECT_EQ(openedOutline<TC::COpBasketsTree>(), expected);
    EXPECT_EQ(openedOutline<TC::COpBasketsTreeWidget>(), expected);
}

const ContentCase kContentCases[] = {
    {"noBasketsNoFlagsOnBuy", 64, ttservice::OT_BUY, ttservice::BROKER_TYPE_STOCK, false, true, {group(kAll)}},
    {"sellOnStockAlwaysOffersPositionsEvenWithoutFlags", 0, ttservice::OT_SELL, ttservice::BROKER_TYPE_STOCK, false,
     false, {group(kAll), batch(4)}},
    {"sellOnCreditHasNoPositionEntry", 1 | 2, ttservice::OT_SELL, ttservice::BROKER_TYPE_CREDIT, false, false,
     {group(kAll), batch(2)}},
    {"creditOperationOffersNeitherBuyNorSellList", 1 | 2, ttservice::OT_MARGIN_BUY, ttservice::BROKER_TYPE_CREDIT,
     false, false, {group(kAll)}},
    {"buyOffersBuyListClipboardAndCustomNeverRebalance", 1 | 2 | 8 | 16 | 32, ttservice::OT_BUY,
     ttservice::BROKER_TYPE_STOCK, false, false, {group(kAll), batch(1), batch(8), batch(32)}},
    {"sellOffersItsEntriesInOrder", 1 | 2 | 8 | 16 | 32, ttservice::OT_SELL, ttservice::BROKER_TYPE_STOCK, false,
     false, {group(kAll), batch(4), batch(2), batch(8), batch(32)}},
    {"ownBasketsOfTheBrokerTypeInKeyOrder", 0, ttservice::OT_BUY, ttservice::BROKER_TYPE_STOCK, true, true,
     {group(kAll), group(kMine), basket(kMine, QStringLiteral("Beta")), basket(kMine, QStringLiteral("Zeta")),
      basket(kMine, QStringLiteral("alpha50"))}},
    {"systemBasketsWithFlagAndModule", 64 | 8, ttservice::OT_BUY, ttservice::BROKER_TYPE_STOCK, true, true,
     {group(kAll), batch(8), group(kMine), basket(kMine, QStringLiteral("Beta")),
      basket(kMine, QStringLiteral("Zeta")), basket(kMine, QStringLiteral("alpha50")), group(kSystem),
      group(kIndex), basket(kIndex, QStringLiteral("Index300")), basket(kIndex, QStringLiteral("Index500")),
      group(kEtf), basket(kEtf, QStringLiteral("Etf50")), basket(kEtf, QStringLiteral("EtfBond"))}},
    {"noSystemBasketsWithoutModule", 64, ttservice::OT_BUY, ttservice::BROKER_TYPE_STOCK, true, false,
     {group(kAll), group(kMine), basket(kMine, QStringLiteral("Beta")), basket(kMine, QStringLiteral("Zeta")),
      basket(kMine, QStringLiteral("alpha50"))}},
    {"futuresBasketsOnFuturesBrokerType", 64, ttservice::OT_SELL, ttservice::BROKER_TYPE_FUTURE, true, true,
     {group(kAll), group(kMine), basket(kMine, QStringLiteral("Fut1")), group(kSystem), group(kIndex),
      basket(kIndex, QStringLiteral("FutIndex")), group(kEtf)}},
};

INSTANTIATE_TEST_SUITE_P(Trees, BasketsTreeContent, ::testing::ValuesIn(kContentCases),
                         caseName<ContentCase>);

TEST_F(BasketsTreeTest, startsWithSystemFlagOnBuyForStocksAndOpensEveryGroup)
{
    storeSampleBaskets();
    switchSystemBaskets(true);
    Host<TC::COpBasketsTree> host;
    EXPECT_EQ(int(host.tree->windowFlags()), 2361355);
    EXPECT_EQ(int(host.tree->getAllFlag()), 64);
    EXPECT_EQ(host.tree->getBrokerType(), ttservice::BROKER_TYPE_STOCK);
    host.open();

    QTreeWidget *tree = host.tree->treeWidget();
    EXPECT_EQ(tree->columnCount(), 1);
    EXPECT_TRUE(tree->isHeaderHidden());
    // Buy: no position entry; flag 64: the system groups.
    EXPECT_EQ(findItem(tree, batchName(4)), nullptr);
    EXPECT_NE(findItem(tree, QStringLiteral("Etf50")), nullptr);
    for (QTreeWidgetItemIterator it(tree, QTreeWidgetItemIterator::HasChildren); *it; ++it) {
        EXPECT_TRUE((*it)->isExpanded()) << itemPath(*it).toStdString();
    }

    host.tree->addBatchFlag(flags(8));
    EXPECT_EQ(int(host.tree->getAllFlag()), 64 | 8);
    host.tree->reSetFlag(flags(2));
    EXPECT_EQ(int(host.tree->getAllFlag()), 2);
}

TEST_F(BasketsTreeTest, eachOpeningSeesTheBasketsAsTheyAreThen)
{
    Host<TC::COpBasketsTree> host;
    host.open();
    EXPECT_EQ(outline(host.tree->treeWidget()), QStringList({group(kAll)}));

    storeBasket(QStringLiteral("Late"), 0, ttservice::BROKER_TYPE_STOCK);
    host.tree->hide();
    host.open();
    EXPECT_EQ(outline(host.tree->treeWidget()),
              QStringList({group(kAll), group(kMine), basket(kMine, QStringLiteral("Late"))}));

    TC::getUserConfig()->baskets().clear();
    host.tree->hide();
    host.open();
    EXPECT_EQ(outline(host.tree->treeWidget()), QStringList({group(kAll)}));
}

TEST_F(BasketsTreeTest, followsTheThemesScrollBarColours)
{
    Host<TC::COpBasketsTreeWidget> host;
    WK::CUiResource::instance()->setColor(QStringLiteral("clr_scrollbar_slider"), QColor(0x12, 0x34, 0x56));
    WK::CUiResource::instance()->notifyThemeChanged();
    const QString sheet = host.tree->treeWidget()->styleSheet();
    WK::CUiResource::instance()->resetToDefaults();

    EXPECT_TRUE(sheet.contains(QStringLiteral("#123456"))) << sheet.toStdString();
}

// --- filtering -----------------------------------------------------------------------------

struct FilterCase {
    const char *name;
    const char *text;
    std::vector<QString> shownLeaves;
};

void PrintTo(const FilterCase &c, std::ostream *os) { *os << c.name; }

class BasketsTreeFilter : public BasketsTreeTest, public ::testing::WithParamInterface<FilterCase>
{
};

TEST_P(BasketsTreeFilter, hidesLeavesThatDontHoldTheTextAndKeepsEveryGroup)
{
    storeSampleBaskets();
    switchSystemBaskets(true);
    Host<TC::COpBasketsTreeWidget> host;
    host.tree->addBatchFlag(flags(8));
    host.tree->setOperationType(ttservice::OT_SELL);
    host.open();
    host.tree->setFilterText(QStringLiteral("Zeta")); // a stale filter the next one must undo

    host.tree->setFilterText(QString::fromUtf8(GetParam().text));

    QStringList shownLeaves;
    for (QTreeWidgetItemIterator it(host.tree->treeWidget()); *it; ++it) {
        if ((*it)->type() == TC::COpBasketsTreeLogic::ITEM_GROUP) {
            EXPECT_FALSE((*it)->isHidden()) << itemPath(*it).toStdString();
        } else if (!(*it)->isHidden()) {
            shownLeaves << (*it)->text(0);
        }
    }
    EXPECT_EQ(shownLeaves, QStringList(GetParam().shownLeaves.begin(), GetParam().shownLeaves.end()));
}

const FilterCase kFilterCases[] = {
    {"digitsKeepOnlyLeavesHoldingThem", "50", {"alpha50", "Index500", "Etf50"}},
    {"upperCaseMatchesMixedCase", "ETF", {"Etf50", "EtfBond"}},
    {"batchEntriesAreFilteredToo", "剪贴板", {"剪贴板组合"}},
    {"nothingMatchesEmptiesEveryGroup", "zzz", {}},
    {"emptyTextShowsAll",
     "",
     {"持仓卖出组合", "剪贴板组合", "Beta", "Zeta", "alpha50", "Index300", "Index500", "Etf50", "EtfBond"}},
};

INSTANTIATE_TEST_SUITE_P(Trees, BasketsTreeFilter, ::testing::ValuesIn(kFilterCases),
                         caseName<FilterCase>);

// --- canCustom -----------------------------------------------------------------------------

struct CustomCase {
    const char *name;
    int flags;
    const char *current; // empty: no current item
    bool expected;
};

void PrintTo(const CustomCase &c, std::ostream *os) { *os << c.name; }

class BasketsTreeCanCustom : public BasketsTreeTest, public ::testing::WithParamInterface<CustomCase>
{
};

TEST_P(BasketsTreeCanCustom, dependsOnTheCurrentItemAndTheFlags)
{
    const CustomCase &c = GetParam();
    storeSampleBaskets();
    Host<TC::COpBasketsTree> host;
    host.tree->reSetFlag(flags(c.flags));
    host.tree->setOperationType(ttservice::OT_BUY);
    host.open();
    const QString current = QString::fromUtf8(c.current);
    if (!current.isEmpty()) {
        QTreeWidgetItem *item = findItem(host.tree->treeWidget(), current);
        ASSERT_NE(item, nullptr);
        host.tree->treeWidget()->setCurrentItem(item);
    }

    EXPECT_EQ(host.tree->canCustom(), c.expected);
}

const CustomCase kCustomCases[] = {
    {"noCurrentItem", 8, "", false},
    {"storedBasket", 0, "Beta", true},
    {"group", 8, "我的组合", false},
    {"clipboardEntry", 8, "剪贴板组合", true},
    {"buyListWithoutEditableFlags", 1, "批量买入组合", false},
    {"buyListBesideCustomFlag", 1 | 32, "批量买入组合", true},
    {"buyListBesideRebalanceFlag", 1 | 16, "批量买入组合", true},
};

INSTANTIATE_TEST_SUITE_P(Trees, BasketsTreeCanCustom, ::testing::ValuesIn(kCustomCases),
                         caseName<CustomCase>);

// --- choosing ------------------------------------------------------------------------------

template <typename Tree>
class BasketsTreeChoice : public BasketsTreeTest
{
};

struct TreeNames {
    template <typename T>
    static std::string GetName(int)
    {
        return std::is_same<T, TC::COpBasketsTree>::value ? "comboTree" : "lineEditTree";
    }
};

using TreeTypes = ::testing::Types<TC::COpBasketsTree, TC::COpBasketsTreeWidget>;
TYPED_TEST_SUITE(BasketsTreeChoice, TreeTypes, TreeNames);

QString chosen(int flag, const QString &name)
{
    return QStringLiteral("1139,0,%1,%2").arg(flag).arg(name);
}

TYPED_TEST(BasketsTreeChoice, clickOnStoredBasketDeliversItTwiceAndHides)
{
    storeSampleBaskets();
    Host<TypeParam> host;
    host.open();
    QTreeWidgetItem *item = findItem(host.tree->treeWidget(), QStringLiteral("Zeta"));
    ASSERT_NE(item, nullptr);
    host.tree->treeWidget()->setCurrentItem(item); // as the mouse press does

    Q_EMIT host.tree->treeWidget()->itemClicked(item, 0);

    EXPECT_FALSE(host.tree->isVisible());
    const QString zeta = chosen(0, QStringLiteral("Zeta"));
    EXPECT_EQ(host.parent->received, QStringList({zeta, zeta}));
}

TYPED_TEST(BasketsTreeChoice, clickOnBatchEntryDeliversItsFlag)
{
    Host<TypeParam> host;
    host.tree->reSetFlag(flags(1 | 2 | 8 | 32));
    host.tree->setOperationType(ttservice::OT_SELL);
    host.open();

    for (int flag : {4, 2, 8, 32}) {
        host.parent->received.clear();
        QTreeWidgetItem *item = findItem(host.tree->treeWidget(), batchName(flag));
        ASSERT_NE(item, nullptr) << flag;
        host.tree->treeWidget()->setCurrentItem(item);

        host.tree->slotItemClicked(item, 0);

        const QString expected = chosen(flag, batchName(flag));
        EXPECT_EQ(host.parent->received, QStringList({expected, expected}));
        host.open();
    }
}

TYPED_TEST(BasketsTreeChoice, leavingWithACurrentItemChoosesIt)
{
    storeSampleBaskets();
    Host<TypeParam> host;
    host.open();
    host.tree->treeWidget()->setCurrentItem(findItem(host.tree->treeWidget(), QStringLiteral("alpha50")));

    host.tree->hide();

    EXPECT_EQ(host.parent->received, QStringList({chosen(0, QStringLiteral("alpha50"))}));
}

TYPED_TEST(BasketsTreeChoice, groupsNoItemAndBatchEntriesOfNoOfferedFlagChooseNothing)
{
    Host<TypeParam> host;
    host.open();
    host.tree->hide(); // without a current item
    host.open();
    QTreeWidgetItem *all = host.tree->treeWidget()->topLevelItem(0);
    ASSERT_NE(all, nullptr);
    // The rebalance list is set by code only and never chosen from the tree.
    auto *rebalance = new QTreeWidgetItem(all, TC::COpBasketsTreeLogic::ITEM_BATCH);
    rebalance->setText(0, batchName(16));
    auto *unknown = new QTreeWidgetItem(all, TC::COpBasketsTreeLogic::ITEM_BATCH);
    unknown->setText(0, QStringLiteral("不存在的组合"));
    // A stored basket that bears a batch's name still goes as a stored basket.
    auto *storedNamedLikeBatch = new QTreeWidgetItem(all, TC::COpBasketsTreeLogic::ITEM_BASKET);
    storedNamedLikeBatch->setText(0, batchName(8));
    host.tree->treeWidget()->setCurrentItem(all);

    host.tree->slotItemClicked(all, 0);
    host.tree->hideTree(nullptr);
    host.tree->hideTree(rebalance);
    host.tree->hideTree(unknown);
    host.tree->hideTree(storedNamedLikeBatch);

    EXPECT_FALSE(host.tree->isVisible());
    EXPECT_EQ(host.parent->received, QStringList({chosen(0, batchName(8))}));
}

} // namespace
