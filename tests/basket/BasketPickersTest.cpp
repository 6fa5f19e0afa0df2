#include "COpBasketsComboBox.h"
#include "COpBasketsLineEdit.h"
#include "COpBasketsTree.h"
#include "COpBasketsTreeWidget.h"

#include "BasketHelpers.h"
#include "CBasketSetting.h"
#include "CUserConfig.h"
#include "ConfirmTestSupport.h"
#include "SubstituteFixture.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFocusEvent>
#include <QRegularExpression>
#include <QTest>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

#include <memory>
#include <utility>

namespace {

using TC::COpBasketsComboBox;
using TC::COpBasketsLineEdit;
using ttservice::EVQBrokerType;
constexpr EVQBrokerType kStock = ttservice::BROKER_TYPE_STOCK;
constexpr EVQBrokerType kFuture = ttservice::BROKER_TYPE_FUTURE;

const QString kNoBasket = QStringLiteral("请选择篮子");

int idOf(const COpBasketsComboBox *) { return 36; }
int idOf(const COpBasketsLineEdit *) { return 64; }
TC::COpBasketsTree *treeOf(COpBasketsComboBox *p) { return p->findChild<TC::COpBasketsTree *>(); }
TC::COpBasketsTreeWidget *treeOf(COpBasketsLineEdit *p) { return p->findChild<TC::COpBasketsTreeWidget *>(); }

// A picker under a shown owner that records what reaches it.
template <typename Picker>
struct Host {
    Host() { parent->show(); }
    ~Host() { parent->hide(); }
    QString chosen(int flag, const QString &name) const
    {
        return QStringLiteral("1139,%1,%2,%3").arg(idOf(picker)).arg(flag).arg(name);
    }
    // The reported choices only: typing also sends the line edit's own edit events.
    QStringList choices() const { return parent->received.filter(QRegularExpression(QStringLiteral("^1139,"))); }

    std::unique_ptr<confirmtest::Recorder> parent = std::make_unique<confirmtest::Recorder>();
    Picker *picker = new Picker(idOf(static_cast<Picker *>(nullptr)), parent.get());
};

// What a picker shows of its choice: edit text, item 0's text (the line edit's text again),
// batch flag, tool tip.
template <typename Picker>
QStringList stateOf(const Picker *p)
{
    return {p->currentText(), p->itemText(0), QString::number(int(p->batchOp())), p->toolTip()};
}

QStringList chosenState(const QString &name, int flag, const QString &toolTip)
{
    return {name, name, QString::number(flag), toolTip};
}

QString batchName(int flag) { return TC::batchFlagName(TC::ETempBatchOrderFlags(TC::ETempBatchOrderFlag(flag))); }

// "Alpha", "Beta" for stocks, "FutA" for futures, and a futures basket bearing the custom list's name.
void storeSampleBaskets()
{
    const std::pair<const char *, EVQBrokerType> baskets[] = {
        {"Alpha", kStock}, {"Beta", kStock}, {"FutA", kFuture}, {"自定义组合", kFuture}};
    for (const auto &[name, broker] : baskets) {
        TC::CBasketSetting setting;
        setting.m_name = QString::fromUtf8(name);
        setting.m_brokerType = broker;
        TC::getUserConfig()->baskets().insert(setting.m_name, setting);
    }
}

// Runs a check on a fresh combo and a fresh line edit, each on freshly stored sample baskets.
template <typename Check>
void forBothPickers(Check check)
{
    {
        SCOPED_TRACE("combo");
        TC::resetAllSubstitutes();
        storeSampleBaskets();
        Host<COpBasketsComboBox> host;
        check(host, true);
    }
    {
        SCOPED_TRACE("line edit");
        TC::resetAllSubstitutes();
        storeSampleBaskets();
        Host<COpBasketsLineEdit> host;
        check(host, false);
    }
}

QTreeWidgetItem *findItem(const QTreeWidget *tree, const QString &text)
{
    const auto found = tree->findItems(text, Qt::MatchExactly | Qt::MatchRecursive);
    return found.isEmpty() ? nullptr : found.first();
}

QStringList shownLeaves(QTreeWidget *tree)
{
    QStringList leaves;
    for (QTreeWidgetItemIterator it(tree); *it; ++it) {
        if ((*it)->type() != TC::COpBasketsTreeLogic::ITEM_GROUP && !(*it)->isHidden())
            leaves << (*it)->text(0);
    }
    return leaves;
}

using BasketPickersTest = SubstituteTest;

TEST_F(BasketPickersTest, startWithoutChoiceAndOnlyTheComboFollowsABrokerTypeChange)
{
    forBothPickers([](auto &host, bool combo) {
        const QStringList none = chosenState(combo ? kNoBasket : QString(), 0, QString());
        EXPECT_EQ(stateOf(host.picker), none);
        host.picker->setBasket(QStringLiteral("Alpha"), false);
        host.parent->received.clear();
        host.picker->setBrokerType(kFuture);
        EXPECT_EQ(host.picker->getBrokerType(), kFuture);
        EXPECT_EQ(stateOf(host.picker), combo ? none : chosenState(QStringLiteral("Alpha"), 0, QString()));
        EXPECT_EQ(host.parent->received, combo ? QStringList{host.chosen(0, QString())} : QStringList());
    });
}

TEST_F(BasketPickersTest, updateBasketSettingKeepsWhatIsStillAChoiceAndReportsAnyDrop)
{
    // name, chosen: delivered by the tree with flag; typed: typed over the choice, or null
    const struct { const char *name, *chosen; int flag; const char *typed; EVQBrokerType treeBroker;
                   bool comboKeeps, lineEditKeeps; } rows[] = {
        {"storedBasketOfTheTreesBrokerType", "Alpha", 0, nullptr, kStock, true, true},
        {"storedBasketOfAnotherBrokerType", "FutA", 0, nullptr, kStock, false, true},
        {"basketRemovedMeanwhile", "Gone", 0, nullptr, kStock, false, false},
        {"clipboardInNoMapSurvives", "剪贴板组合", 8, nullptr, kStock, true, true},
        {"rebalanceSurvives", "调仓组合", 16, nullptr, kStock, true, true},
        // The custom group stays the choice whatever the tree's type, as the form's group of any tab is.
        {"customNameStoredWithAnotherType", "自定义组合", 32, nullptr, kStock, true, true},
        {"customNameShadowedByFittingBasket", "自定义组合", 32, nullptr, kFuture, true, true},
        {"otherBatchNamesAreDropped", "批量买入组合", 1, nullptr, kStock, false, false},
        {"unnamedSystemFlagIsDropped", "", 64, nullptr, kStock, false, false},
        {"typedFilterIsDropped", "Alpha", 0, "zz", kStock, false, false},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.name);
        forBothPickers([&row](auto &host, bool combo) {
            host.picker->handleEvent(1139, 0, row.flag, QString::fromUtf8(row.chosen), nullptr);
            if (row.typed)
                QTest::keyClicks(host.picker, QString::fromUtf8(row.typed));
            treeOf(host.picker)->setBrokerType(row.treeBroker);
            QStringList kept = stateOf(host.picker);
            kept[3] = kept[0]; // the tool tip names the choice
            host.parent->received.clear();

            host.picker->updateBasketSetting();

            const bool keeps = combo ? row.comboKeeps : row.lineEditKeeps;
            EXPECT_EQ(stateOf(host.picker), keeps ? kept : chosenState(combo ? kNoBasket : QString(), 0, QString()));
            EXPECT_EQ(host.choices(), keeps ? QStringList() : QStringList({host.chosen(0, QString())}));
        });
    }
}

TEST_F(BasketPickersTest, setBasketChoosesBatchesAndStoredBasketsAndRefusesTheRest)
{
    // flag: and tool tip, of the choice when made
    const struct { const char *name, *basket; bool force; EVQBrokerType treeBroker; int flag; const char *toolTip;
                   bool comboChooses, lineEditChooses; } rows[] = {
        {"batchByItsName", "剪贴板组合", false, kStock, 8, "剪贴板组合", true, true},
        {"batchNameOnAnyBrokerType", "持仓卖出组合", false, kFuture, 4, "持仓卖出组合", true, true},
        {"storedBasketOfTheTreesBrokerType", "Alpha", false, kStock, 0, "", true, true},
        {"storedBasketOfAnotherBrokerType", "FutA", false, kStock, 0, "", false, true},
        {"unknownName", "Nope", false, kStock, 0, "", false, false},
        // The combo enters a forced name as an empty basket, which has the stock broker type.
        {"unknownNameForcedOnStocks", "Nope", true, kStock, 0, "", true, true},
        {"unknownNameForcedOnFutures", "Nope", true, kFuture, 0, "", false, true},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.name);
        forBothPickers([&row](auto &host, bool combo) {
            host.picker->setBrokerType(row.treeBroker);
            host.picker->setBatchOp(32, false); // so that a refusal shows as this choice kept
            const QStringList before = stateOf(host.picker);
            host.parent->received.clear();
            const QString name = QString::fromUtf8(row.basket);

            host.picker->setBasket(name, row.force);

            const bool chooses = combo ? row.comboChooses : row.lineEditChooses;
            EXPECT_EQ(stateOf(host.picker), chooses ? chosenState(name, row.flag, QString::fromUtf8(row.toolTip)) : before);
            EXPECT_EQ(host.parent->received, chooses ? QStringList({host.chosen(row.flag, name)}) : QStringList());
        });
    }
}

TEST_F(BasketPickersTest, setBatchOpChoosesTheFlagsNameAndAddsTheFlagToTheTree)
{
    const struct {
        int flags;
        bool notify, canCustom;
    } rows[] = {{0, false, true}, {1, true, false}, {2, true, false}, {4, false, false}, {8, true, true}, {16, true, true},
                {32, true, true},
                // On a tab change: an unnamed choice that updateBasketSetting then drops.
                {64, true, false}};
    for (const auto &row : rows) {
        SCOPED_TRACE(row.flags);
        forBothPickers([&row](auto &host, bool) {
            host.picker->reSetFlag(TC::ETempBatchOrderFlags(TC::BATCH_CLIPBOARD));

            host.picker->setBatchOp(row.flags, row.notify);

            const QString name = batchName(row.flags);
            EXPECT_EQ(stateOf(host.picker), chosenState(name, row.flags, name));
            EXPECT_EQ(int(host.picker->getAllFlag()), row.flags | 8);
            EXPECT_EQ(host.picker->canCustom(), row.canCustom);
            EXPECT_EQ(host.parent->received, row.notify ? QStringList({host.chosen(row.flags, name)}) : QStringList());
        });
    }
}

TEST_F(BasketPickersTest, typedTextOnlyFiltersUntilTheTreeClosesWithACurrentItemOrIsClicked)
{
    forBothPickers([](auto &host, bool combo) {
        const QString clipboard = batchName(8);
        host.picker->setBatchOp(8, false);
        auto *tree = treeOf(host.picker);
        QFocusEvent focusIn(QEvent::FocusIn, Qt::OtherFocusReason);
        QApplication::sendEvent(host.picker, &focusIn);
        ASSERT_TRUE(tree->isVisible());
        EXPECT_EQ(shownLeaves(tree->treeWidget()), QStringList({clipboard, QStringLiteral("Alpha"), QStringLiteral("Beta")}));

        QTest::keyClicks(host.picker, QStringLiteral("zz"));

        EXPECT_EQ(host.picker->currentText(), clipboard + QStringLiteral("zz"));
        EXPECT_TRUE(shownLeaves(tree->treeWidget()).isEmpty());
        EXPECT_EQ(int(host.picker->batchOp()), 8);
        if (combo) {
            EXPECT_EQ(host.picker->itemText(0), clipboard);
        }

        // Closing without a current item chooses nothing.
        QFocusEvent focusOut(QEvent::FocusOut, Qt::OtherFocusReason);
        QApplication::sendEvent(host.picker, &focusOut);
        EXPECT_FALSE(tree->isVisible());
        EXPECT_EQ(host.picker->currentText(), clipboard + QStringLiteral("zz"));
        EXPECT_TRUE(host.choices().isEmpty());

        // Closing with a current item chooses it, replacing the typed text even when it is the
        // choice held already.
        host.picker->showTree();
        tree->treeWidget()->setCurrentItem(findItem(tree->treeWidget(), clipboard));
        host.picker->hideTree();
        EXPECT_EQ(stateOf(host.picker), chosenState(clipboard, 8, clipboard));
        EXPECT_EQ(host.choices(), QStringList({host.chosen(8, clipboard)}));

        // A click is reported twice (the tree's hide, then the click): one state, and both go up.
        host.parent->received.clear();
        host.picker->showTree();
        QTreeWidgetItem *beta = findItem(tree->treeWidget(), QStringLiteral("Beta"));
        tree->treeWidget()->setCurrentItem(beta); // as the mouse press does
        Q_EMIT tree->treeWidget()->itemClicked(beta, 0);
        EXPECT_FALSE(tree->isVisible());
        EXPECT_EQ(stateOf(host.picker), chosenState(QStringLiteral("Beta"), 0, QString()));
        EXPECT_EQ(host.parent->received, QStringList({host.chosen(0, QStringLiteral("Beta")), host.chosen(0, QStringLiteral("Beta"))}));
    });
}

} // namespace
