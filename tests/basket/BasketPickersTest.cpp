#include "COpBasketsComboBox.h"
#include "COpBasketsLineEdit.h"
#include "COpBasketsTree.h"
#include "COpBasketsTreeWidget.h"

#include "BasketHelpers.h"
#include "CBaseWidget.h"
#include "CBasketSetting.h"
#include "CUserConfig.h"
#include "SubstituteFixture.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFocusEvent>
#include <QRegularExpression>
#include <QScreen>
#include <QTest>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

#include <memory>
#include <ostream>
#include <string>
#include <type_traits>
#include <utility>

namespace {

using TC::COpBasketsComboBox;
using TC::COpBasketsLineEdit;
using ttservice::EVQBrokerType;
constexpr EVQBrokerType kStock = ttservice::BROKER_TYPE_STOCK;
constexpr EVQBrokerType kFuture = ttservice::BROKER_TYPE_FUTURE;

const QString kNoBasket = QStringLiteral("请选择篮子");

// The picker's owner: records every event that reaches it as "event,id,value,text" (",data"
// appended when data comes along) and takes it.
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

    // The reported choices only: typing also sends the line edit's own edit events.
    QStringList choices() const { return received.filter(QRegularExpression(QStringLiteral("^1139,"))); }

    QStringList received;
};

int idOf(const COpBasketsComboBox *) { return 36; }
int idOf(const COpBasketsLineEdit *) { return 64; }
TC::COpBasketsTree *treeOf(COpBasketsComboBox *p) { return p->findChild<TC::COpBasketsTree *>(); }
TC::COpBasketsTreeWidget *treeOf(COpBasketsLineEdit *p) { return p->findChild<TC::COpBasketsTreeWidget *>(); }

template <typename Picker>
struct Host {
    Host() { parent->show(); }
    ~Host() { parent->hide(); }

    QString chosen(int flag, const QString &name) const
    {
        return QStringLiteral("1139,%1,%2,%3").arg(idOf(picker)).arg(flag).arg(name);
    }

    std::unique_ptr<RecordingParent> parent = std::make_unique<RecordingParent>();
    Picker *picker = new Picker(idOf(static_cast<Picker *>(nullptr)), parent.get());
};

// What a picker shows of its choice: edit text, item 0's text (the line edit's text again),
// batch flag, tool tip.
struct State {
    QString edit, item;
    int flag = 0;
    QString toolTip;
    bool operator==(const State &o) const
    {
        return edit == o.edit && item == o.item && flag == o.flag && toolTip == o.toolTip;
    }
};

void PrintTo(const State &s, std::ostream *os)
{
    *os << "{" << s.edit.toStdString() << "|" << s.item.toStdString() << "|" << s.flag << "|"
        << s.toolTip.toStdString() << "}";
}

template <typename Picker>
State stateOf(const Picker *p)
{
    return {p->currentText(), p->itemText(0), int(p->batchOp()), p->toolTip()};
}

State chosenState(const QString &name, int flag, const QString &toolTip) { return {name, name, flag, toolTip}; }

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

template <typename Case>
std::string caseName(const ::testing::TestParamInfo<Case> &info)
{
    return info.param.name;
}

class BasketPickersTest : public SubstituteTest
{
};

TEST_F(BasketPickersTest, startWithoutChoiceAndOnlyTheComboFollowsABrokerTypeChange)
{
    storeSampleBaskets();
    Host<COpBasketsComboBox> combo;
    Host<COpBasketsLineEdit> edit;
    EXPECT_EQ(combo.picker->count(), 1);
    EXPECT_FALSE(combo.picker->itemData(0, Qt::UserRole).isValid());
    EXPECT_EQ(stateOf(combo.picker), chosenState(kNoBasket, 0, QString()));
    EXPECT_EQ(stateOf(edit.picker), chosenState(QString(), 0, QString()));
    EXPECT_EQ(edit.picker->placeholderText(), QStringLiteral("请输入篮子名称"));

    combo.picker->setBasket(QStringLiteral("Alpha"), false);
    edit.picker->setBasket(QStringLiteral("Alpha"), false);
    combo.parent->received.clear();
    edit.parent->received.clear();
    combo.picker->setBrokerType(kFuture);
    edit.picker->setBrokerType(kFuture);

    EXPECT_EQ(combo.picker->getBrokerType(), kFuture);
    EXPECT_EQ(stateOf(combo.picker), chosenState(kNoBasket, 0, QString()));
    EXPECT_EQ(combo.parent->received, QStringList({combo.chosen(0, QString())}));
    EXPECT_EQ(edit.picker->getBrokerType(), kFuture);
    EXPECT_EQ(stateOf(edit.picker), chosenState(QStringLiteral("Alpha"), 0, QString()));
    EXPECT_TRUE(edit.parent->received.isEmpty());
}

// --- updateBasketSetting ---------------------------------------------------------------------

struct UpdateCase {
    const char *name;
    const char *chosen; // delivered by the tree with flag
    int flag;
    const char *typed; // typed over the choice, or null
    EVQBrokerType treeBroker;
    bool comboKeeps, lineEditKeeps;
};

void PrintTo(const UpdateCase &c, std::ostream *os) { *os << c.name; }

class PickerUpdateBasketSetting : public BasketPickersTest, public ::testing::WithParamInterface<UpdateCase>
{
protected:
    template <typename Picker>
    void check(const QString &emptied, bool keeps)
    {
        const UpdateCase &c = GetParam();
        Host<Picker> host;
        host.picker->handleEvent(1139, 0, c.flag, QString::fromUtf8(c.chosen), nullptr);
        if (c.typed)
            QTest::keyClicks(host.picker, QString::fromUtf8(c.typed));
        treeOf(host.picker)->setBrokerType(c.treeBroker);
        const State before = stateOf(host.picker);
        host.parent->received.clear();

        host.picker->updateBasketSetting();

        const State kept{before.edit, before.item, before.flag, before.edit};
        EXPECT_EQ(stateOf(host.picker), keeps ? kept : chosenState(emptied, 0, QString()));
        EXPECT_EQ(host.parent->choices(), keeps ? QStringList() : QStringList({host.chosen(0, QString())}));
    }
};

TEST_P(PickerUpdateBasketSetting, keepsWhatIsStillAChoiceAndReportsAnyDrop)
{
    storeSampleBaskets();
    { SCOPED_TRACE("combo"); check<COpBasketsComboBox>(kNoBasket, GetParam().comboKeeps); }
    { SCOPED_TRACE("line edit"); check<COpBasketsLineEdit>(QString(), GetParam().lineEditKeeps); }
}

const UpdateCase kUpdateCases[] = {
    {"storedBasketOfTheTreesBrokerType", "Alpha", 0, nullptr, kStock, true, true},
    {"storedBasketOfAnotherBrokerType", "FutA", 0, nullptr, kStock, false, true},
    {"basketRemovedMeanwhile", "Gone", 0, nullptr, kStock, false, false},
    {"clipboardInNoMapSurvives", "剪贴板组合", 8, nullptr, kStock, true, true},
    {"rebalanceSurvives", "调仓组合", 16, nullptr, kStock, true, true},
    // The custom group is stored under its fixed name with its instruments' broker type; it stays
    // the choice whatever the tree's type, as the form's group of any tab is.
    {"customNameStoredWithAnotherType", "自定义组合", 32, nullptr, kStock, true, true},
    {"customNameShadowedByFittingBasket", "自定义组合", 32, nullptr, kFuture, true, true},
    {"otherBatchNamesAreDropped", "批量买入组合", 1, nullptr, kStock, false, false},
    {"unnamedSystemFlagIsDropped", "", 64, nullptr, kStock, false, false},
    {"typedFilterIsDropped", "Alpha", 0, "zz", kStock, false, false},
};

INSTANTIATE_TEST_SUITE_P(Pickers, PickerUpdateBasketSetting, ::testing::ValuesIn(kUpdateCases),
                         caseName<UpdateCase>);

// --- setBasket -------------------------------------------------------------------------------

struct SetBasketCase {
    const char *name;
    const char *basket;
    bool force;
    EVQBrokerType treeBroker;
    int flag; // and tool tip, of the choice when made
    const char *toolTip;
    bool comboChooses, lineEditChooses;
};

void PrintTo(const SetBasketCase &c, std::ostream *os) { *os << c.name; }

class PickerSetBasket : public BasketPickersTest, public ::testing::WithParamInterface<SetBasketCase>
{
protected:
    // Starts from the custom list, so that a refusal shows as that choice kept.
    template <typename Picker>
    void check(bool chooses)
    {
        const SetBasketCase &c = GetParam();
        TC::getUserConfig()->baskets().remove(QStringLiteral("Nope"));
        Host<Picker> host;
        host.picker->setBrokerType(c.treeBroker);
        host.picker->setBatchOp(32, false);
        const State before = stateOf(host.picker);
        host.parent->received.clear();
        const QString name = QString::fromUtf8(c.basket);

        host.picker->setBasket(name, c.force);

        EXPECT_EQ(stateOf(host.picker), chooses ? chosenState(name, c.flag, QString::fromUtf8(c.toolTip)) : before);
        EXPECT_EQ(host.parent->received, chooses ? QStringList({host.chosen(c.flag, name)}) : QStringList());
    }
};

TEST_P(PickerSetBasket, choosesBatchesAndStoredBasketsAndRefusesTheRest)
{
    storeSampleBaskets();
    { SCOPED_TRACE("combo"); check<COpBasketsComboBox>(GetParam().comboChooses); }
    { SCOPED_TRACE("line edit"); check<COpBasketsLineEdit>(GetParam().lineEditChooses); }
}

const SetBasketCase kSetBasketCases[] = {
    {"batchByItsName", "剪贴板组合", false, kStock, 8, "剪贴板组合", true, true},
    {"batchNameOnAnyBrokerType", "持仓卖出组合", false, kFuture, 4, "持仓卖出组合", true, true},
    {"storedBasketOfTheTreesBrokerType", "Alpha", false, kStock, 0, "", true, true},
    {"storedBasketOfAnotherBrokerType", "FutA", false, kStock, 0, "", false, true},
    {"unknownName", "Nope", false, kStock, 0, "", false, false},
    // The combo enters a forced name as an empty basket, which has the stock broker type.
    {"unknownNameForcedOnStocks", "Nope", true, kStock, 0, "", true, true},
    {"unknownNameForcedOnFutures", "Nope", true, kFuture, 0, "", false, true},
};

INSTANTIATE_TEST_SUITE_P(Pickers, PickerSetBasket, ::testing::ValuesIn(kSetBasketCases), caseName<SetBasketCase>);

// --- setBatchOp ------------------------------------------------------------------------------

struct BatchOpCase {
    const char *name;
    int flags;
    bool notify, canCustom;
};

void PrintTo(const BatchOpCase &c, std::ostream *os) { *os << c.name; }

class PickerSetBatchOp : public BasketPickersTest, public ::testing::WithParamInterface<BatchOpCase>
{
protected:
    template <typename Picker>
    void check()
    {
        const BatchOpCase &c = GetParam();
        Host<Picker> host;
        host.picker->reSetFlag(TC::ETempBatchOrderFlags(TC::BATCH_CLIPBOARD));

        host.picker->setBatchOp(c.flags, c.notify);

        const QString name = batchName(c.flags);
        EXPECT_EQ(stateOf(host.picker), chosenState(name, c.flags, name));
        EXPECT_EQ(int(host.picker->getAllFlag()), c.flags | 8);
        EXPECT_EQ(host.picker->canCustom(), c.canCustom);
        EXPECT_EQ(host.parent->received, c.notify ? QStringList({host.chosen(c.flags, name)}) : QStringList());
    }
};

TEST_P(PickerSetBatchOp, choosesTheFlagsNameAndAddsTheFlagToTheTree)
{
    { SCOPED_TRACE("combo"); check<COpBasketsComboBox>(); }
    { SCOPED_TRACE("line edit"); check<COpBasketsLineEdit>(); }
}

const BatchOpCase kBatchOpCases[] = {
    {"storedBasketSilently", 0, false, true}, {"buyList", 1, true, false},   {"sellList", 2, true, false},
    {"positionSell", 4, false, false},        {"clipboard", 8, true, true},  {"rebalance", 16, true, true},
    {"customGroup", 32, true, true},
    // On a tab change: an unnamed choice that updateBasketSetting then drops.
    {"systemGroupsFlag", 64, true, false},
};

INSTANTIATE_TEST_SUITE_P(Pickers, PickerSetBatchOp, ::testing::ValuesIn(kBatchOpCases), caseName<BatchOpCase>);

// --- the tree --------------------------------------------------------------------------------

template <typename Picker>
class PickerTree : public BasketPickersTest
{
};

struct PickerNames {
    template <typename T>
    static std::string GetName(int)
    {
        return std::is_same<T, COpBasketsComboBox>::value ? "combo" : "lineEdit";
    }
};

using PickerTypes = ::testing::Types<COpBasketsComboBox, COpBasketsLineEdit>;
TYPED_TEST_SUITE(PickerTree, PickerTypes, PickerNames);

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

TYPED_TEST(PickerTree, aClickReportedTwiceLandsOnOneStateAndGoesUpTwice)
{
    storeSampleBaskets();
    Host<TypeParam> host;
    host.picker->setBatchOp(8, false);
    auto *tree = treeOf(host.picker);
    for (const State &click : {chosenState(QStringLiteral("Beta"), 0, QString()),
                               chosenState(batchName(8), 8, batchName(8))}) {
        SCOPED_TRACE(click.edit.toStdString());
        host.parent->received.clear();
        host.picker->showTree();
        QTreeWidgetItem *item = findItem(tree->treeWidget(), click.edit);
        ASSERT_NE(item, nullptr);
        tree->treeWidget()->setCurrentItem(item); // as the mouse press does

        Q_EMIT tree->treeWidget()->itemClicked(item, 0);

        EXPECT_FALSE(tree->isVisible());
        EXPECT_EQ(stateOf(host.picker), click);
        const QString once = host.chosen(click.flag, click.edit);
        EXPECT_EQ(host.parent->received, QStringList({once, once}));
    }
}

TYPED_TEST(PickerTree, typedTextOnlyFiltersUntilTheTreeCloses)
{
    storeSampleBaskets();
    Host<TypeParam> host;
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
    if (std::is_same<TypeParam, COpBasketsComboBox>::value) {
        EXPECT_EQ(host.picker->itemText(0), clipboard);
    }

    // Closing without a current item chooses nothing.
    QFocusEvent focusOut(QEvent::FocusOut, Qt::OtherFocusReason);
    QApplication::sendEvent(host.picker, &focusOut);
    EXPECT_FALSE(tree->isVisible());
    EXPECT_EQ(host.picker->currentText(), clipboard + QStringLiteral("zz"));
    EXPECT_TRUE(host.parent->choices().isEmpty());

    // Closing with a current item chooses it, replacing the typed text even when it is the
    // choice held already.
    host.picker->showTree();
    tree->treeWidget()->setCurrentItem(findItem(tree->treeWidget(), clipboard));
    host.picker->hideTree();
    EXPECT_EQ(stateOf(host.picker), chosenState(clipboard, 8, clipboard));
    EXPECT_EQ(host.parent->choices(), QStringList({host.chosen(8, clipboard)}));
}

TEST_F(BasketPickersTest, comboPopupIsTheTreeAndAnEmptiedEditAsksForAName)
{
    Host<COpBasketsComboBox> combo;
    combo.picker->showPopup();
    EXPECT_TRUE(treeOf(combo.picker)->isVisible());

    combo.picker->setEditText(QString());
    combo.picker->hidePopup();

    EXPECT_FALSE(treeOf(combo.picker)->isVisible());
    EXPECT_EQ(combo.picker->currentText(), QStringLiteral("请输入篮子名称"));
    EXPECT_EQ(combo.picker->itemText(0), kNoBasket);
}

struct PlacementCase {
    const char *name;
    QPoint windowAt;
    bool below;
};

void PrintTo(const PlacementCase &c, std::ostream *os) { *os << c.name; }

class PickerPlacement : public BasketPickersTest, public ::testing::WithParamInterface<PlacementCase>
{
protected:
    template <typename Picker>
    void check()
    {
        Host<Picker> host;
        host.parent->setGeometry(QRect(GetParam().windowAt, QSize(200, 40)));
        host.picker->setGeometry(5, 5, 133, 24);
        auto *tree = treeOf(host.picker);

        host.picker->showTree();

        ASSERT_TRUE(tree->isVisible());
        const QPoint topLeft = host.picker->mapToGlobal(QPoint(0, 0));
        EXPECT_EQ(tree->pos(), GetParam().below ? topLeft + QPoint(0, host.picker->height())
                                                : topLeft - QPoint(0, tree->height()));
    }
};

TEST_P(PickerPlacement, opensBelowWhenTheScreenHasRoomElseAbove)
{
    // The offscreen screen is 800 by 600; the tree is some 200 pixels each way.
    ASSERT_EQ(QApplication::primaryScreen()->availableGeometry(), QRect(0, 0, 800, 600));
    { SCOPED_TRACE("combo"); check<COpBasketsComboBox>(); }
    { SCOPED_TRACE("line edit"); check<COpBasketsLineEdit>(); }
}

const PlacementCase kPlacementCases[] = {
    {"roomBelow", QPoint(10, 20), true},
    {"nearTheBottomEdge", QPoint(10, 540), false},
    {"nearTheRightEdge", QPoint(700, 300), false},
};

INSTANTIATE_TEST_SUITE_P(Pickers, PickerPlacement, ::testing::ValuesIn(kPlacementCases), caseName<PlacementCase>);

} // namespace
