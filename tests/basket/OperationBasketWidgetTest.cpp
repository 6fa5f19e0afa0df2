#include "COpBasketConfirmWidget.h"
#include "CHpfOpConfirmWidget.h"
#include "COpBasketParamsEditWidget.h"
#include "COpBasketParamsWidget.h"
#include "COpBasketReplaceStockToolBar.h"
#include "COperationBasketWidget.h"

#include "CBaseWidget.h"
#include "CCheckBox.h"
#include "CSplitContainer.h"
#include "CUserConfig.h"
#include "SubstituteFixture.h"

#include <QApplication>
#include <QKeyEvent>
#include <QSignalSpy>

#include <memory>
#include <vector>

using namespace TC;

namespace {

// A parent that records what climbs up to it.
class RecordingParent : public WK::CBaseWidget
{
public:
    RecordingParent() : WK::CBaseWidget(QStringLiteral("recording_parent"), false, nullptr) {}

    bool handleEvent(int event, int, int, QString, void *) override
    {
        events.push_back(event);
        return true;
    }

    std::vector<int> events;
};

// A child that can send events, standing for any widget inside the form.
class Sender : public WK::CBaseWidget
{
public:
    explicit Sender(QWidget *parent) : WK::CBaseWidget(QStringLiteral("sender"), false, parent) {}
    bool send(int event, int id = 0, int value = 0) { return deliverEvent(event, id, value); }
};

class OperationBasketWidgetTest : public SubstituteTest
{
protected:
    void SetUp() override
    {
        SubstituteTest::SetUp();
        getUserConfig()->setRole(90);
        parent = std::make_unique<RecordingParent>();
        widget = new COperationBasketWidget(parent.get());
    }

    COpBasketReplaceStockToolBar *bar() const { return widget->replaceToolBar(); }
    bool box(int id) const { return bar()->checkBox(id)->isChecked(); }

    // Whether a key press is left for the parent.
    bool passesUp(int key, Qt::KeyboardModifiers modifiers)
    {
        QKeyEvent event(QEvent::KeyPress, key, modifiers);
        event.accept();
        QApplication::sendEvent(widget, &event);
        return !event.isAccepted();
    }

    std::unique_ptr<RecordingParent> parent;
    COperationBasketWidget *widget = nullptr;
};

struct ParamCase
{
    const char *name;
    const char *text;
    bool stop;
    bool rise;
    bool fall;
};

class FormParamLevels : public OperationBasketWidgetTest, public ::testing::WithParamInterface<ParamCase>
{
};

} // namespace

TEST_P(FormParamLevels, FilterBoxesFollowTheNumberOfParts)
{
    const ParamCase &c = GetParam();
    // Start from the opposite of what a four-part text would leave, to see what is touched.
    bar()->setFilterBox(1, true);
    bar()->setFilterBox(2, false);
    widget->setParam(QString::fromUtf8(c.text));
    EXPECT_EQ(box(1), c.stop);
    EXPECT_EQ(box(16), c.rise);
    EXPECT_EQ(box(32), c.fall);
}

INSTANTIATE_TEST_SUITE_P(Levels, FormParamLevels,
    ::testing::Values(ParamCase{"fourPartsLeaveTheLimitBoxes", "F/T/300/1", true, true, false},
                      ParamCase{"fivePartsSetBothLimitBoxes", "F/T/300/0/1", false, true, true},
                      ParamCase{"fivePartsClearBothLimitBoxes", "F/T/300/1/0", true, false, false},
                      ParamCase{"sixPartsSetEachBox", "F/T/300/1/0/1", true, false, true},
                      ParamCase{"sevenPartsActLikeSix", "F/T/300/0/1/0/9", false, true, false},
                      ParamCase{"twoPartsTouchNoBox", "F/T", false, true, false}),
    [](const ::testing::TestParamInfo<ParamCase> &info) { return std::string(info.param.name); });

TEST_F(OperationBasketWidgetTest, PiecesGoToFormTableAndSplit)
{
    // The table's piece is its column layout, in the table's own text; a layout it was given
    // comes back as the table settled it.
    const QString table = widget->editWidget()->confirmWidget()->param();
    ASSERT_FALSE(table.isEmpty());
    ASSERT_FALSE(table.contains(QLatin1Char('/')) || table.contains(QLatin1Char('|')));
    // The form's piece is an older client's text that names the sell tab.
    widget->setParam(QStringLiteral("1024/") + table + QStringLiteral("/420/0/0/0"));
    EXPECT_EQ(widget->paramsWidget()->getTradeOpType(), 0x400u);
    const QString settled = widget->editWidget()->confirmWidget()->param();
    EXPECT_EQ(widget->splitContainer()->stableLength(), 420);
    EXPECT_EQ(widget->param(), widget->paramsWidget()->param() + QLatin1Char('/') + settled + QStringLiteral("/420/0/0/0"));
    widget->setParam(widget->param());
    EXPECT_EQ(widget->editWidget()->confirmWidget()->param(), settled);
}

TEST_F(OperationBasketWidgetTest, ParamTextRoundTripsWithTickedBoxes)
{
    widget->setParam(QStringLiteral("F/") + widget->editWidget()->confirmWidget()->param() + QStringLiteral("/360/1/1/0"));
    const QString text = widget->param();
    EXPECT_TRUE(text.endsWith(QStringLiteral("/360/1/1/0")));
    widget->setParam(text);
    // The pieces after the form's: the form's own text has its own round trip tests.
    EXPECT_EQ(widget->param().section(QLatin1Char('/'), 1), text.section(QLatin1Char('/'), 1));
    EXPECT_EQ(widget->paramsWidget()->getTradeOpType(), 0x200u);
}

TEST_F(OperationBasketWidgetTest, GarbageIsTakenWithoutComplaint)
{
    widget->paramsWidget()->setCurrentOperationType(0x400);
    widget->setParam(QStringLiteral("only form"));
    // Text the form cannot read brings it back to its first tab; saved, it is a text it reads.
    EXPECT_EQ(widget->paramsWidget()->getTradeOpType(), 0x200u);
    EXPECT_TRUE(widget->paramsWidget()->param().startsWith(QLatin1Char('{')));
    EXPECT_EQ(widget->splitContainer()->stableLength(), 345);

    widget->setParam(QStringLiteral("F/T/wide/x/y"));
    // A number that does not parse is 0, as the client's older texts expect.
    EXPECT_EQ(widget->splitContainer()->stableLength(), 0);
    EXPECT_FALSE(box(1));
    EXPECT_FALSE(box(16));
}

TEST_F(OperationBasketWidgetTest, HiddenBoxIsSavedAsOff)
{
    bar()->setFilterBox(0, true);
    bar()->setTradeOperationType(0x1000);
    EXPECT_TRUE(box(1));
    EXPECT_TRUE(widget->param().endsWith(QStringLiteral("/0/0/0")));
}

TEST_F(OperationBasketWidgetTest, FilterChangeReachesTheTable)
{
    COpBasketConfirmWidget *table = widget->editWidget()->confirmWidget();
    QSignalSpy spy(bar(), &COpBasketReplaceStockToolBar::sigSetFilter);
    bar()->setFilterZhangdie(true);
    ASSERT_EQ(spy.count(), 1);
    EXPECT_EQ(spy.at(0).at(0).toInt(), 16 | 32);
    EXPECT_EQ(table->filterFlags(), 16 | 32);
}

struct KeyCase
{
    const char *name;
    int key;
    Qt::KeyboardModifiers modifiers;
    bool passesUp;
};

class KeyHandling : public OperationBasketWidgetTest, public ::testing::WithParamInterface<KeyCase>
{
};

TEST_P(KeyHandling, OnlyShiftWAndUnknownKeysTravelUp)
{
    const KeyCase &c = GetParam();
    EXPECT_EQ(passesUp(c.key, c.modifiers), c.passesUp);
}

INSTANTIATE_TEST_SUITE_P(Keys, KeyHandling,
    ::testing::Values(KeyCase{"ctrlV", Qt::Key_V, Qt::ControlModifier, false},
                      KeyCase{"plainV", Qt::Key_V, Qt::NoModifier, false},
                      KeyCase{"shiftW", Qt::Key_W, Qt::ShiftModifier, true},
                      KeyCase{"ctrlShiftW", Qt::Key_W, Qt::ShiftModifier | Qt::ControlModifier, false},
                      KeyCase{"plainW", Qt::Key_W, Qt::NoModifier, false},
                      KeyCase{"otherKey", Qt::Key_A, Qt::NoModifier, true}),
    [](const ::testing::TestParamInfo<KeyCase> &info) { return std::string(info.param.name); });

TEST_F(OperationBasketWidgetTest, SwallowsButtonAndParameterEventsPassesOthers)
{
    auto *child = new Sender(widget->paramsWidget());
    EXPECT_TRUE(child->send(5, 77));
    EXPECT_TRUE(child->send(1138));
    EXPECT_TRUE(parent->events.empty());
    EXPECT_TRUE(child->send(4242));
    EXPECT_EQ(parent->events, std::vector<int>{4242});
}

TEST_F(OperationBasketWidgetTest, TabChangeReachesTableAndToolbar)
{
    COpBasketConfirmWidget *table = widget->editWidget()->confirmWidget();
    widget->paramsWidget()->handleEvent(5, 0x400, 0, QString(), nullptr);
    EXPECT_EQ(table->tradeOperationType(), 0x400u);
    EXPECT_EQ(table->operationType(), 19);
    // The replace controls belong to the buy tab only.
    bar()->checkBox(2)->setChecked(true);
    EXPECT_FALSE(bar()->isFilterBlacklist());
    widget->paramsWidget()->handleEvent(5, 0x200, 0, QString(), nullptr);
    EXPECT_EQ(table->operationType(), 18);
    EXPECT_TRUE(bar()->isFilterBlacklist());
    widget->paramsWidget()->handleEvent(5, 0x800, 0, QString(), nullptr);
    EXPECT_EQ(table->operationType(), -1);
}

TEST_F(OperationBasketWidgetTest, ClientTabSwitchLeavesTheFilterBoxesAlone)
{
    bar()->checkBox(2)->setChecked(true);
    ASSERT_TRUE(bar()->isFilterBlacklist());
    widget->setCurrentOperationType(0x400);
    EXPECT_EQ(widget->paramsWidget()->getTradeOpType(), 0x400u);
    EXPECT_TRUE(bar()->isFilterBlacklist()) << "only a press of the tab tells the panel";
}

TEST_F(OperationBasketWidgetTest, ShortcutFirstSwitchesTheTab)
{
    widget->doShortCutOrder(401, nullptr);
    EXPECT_EQ(widget->paramsWidget()->getTradeOpType(), 0x400u);
    widget->doShortCutOrder(400, nullptr);
    EXPECT_EQ(widget->paramsWidget()->getTradeOpType(), 0x200u);
    widget->doShortCutOrder(402, nullptr);
    EXPECT_EQ(widget->paramsWidget()->getTradeOpType(), 0x200u);
}

TEST(OperationBasketWidgetRoles, TraderCannotTouchTheFilters)
{
    TC::resetAllSubstitutes();
    getUserConfig()->setRole(200);
    COperationBasketWidget widget(nullptr);
    EXPECT_FALSE(widget.replaceToolBar()->isEnabled());
    getUserConfig()->setRole(90);
    COperationBasketWidget managerWidget(nullptr);
    EXPECT_TRUE(managerWidget.replaceToolBar()->isEnabled());
}
