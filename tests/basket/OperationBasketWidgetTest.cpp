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
#include "Fields.h"
#include "SubstituteFixture.h"
#include "../platform/EventRecorder.h"

#include <QApplication>
#include <QKeyEvent>

#include <memory>
#include <vector>

using namespace TC;

namespace {

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
        widget = new COperationBasketWidget(&parent);
    }

    COpBasketReplaceStockToolBar *bar() const { return widget->replaceToolBar(); }
    bool box(int id) const { return bar()->checkBox(id)->isChecked(); }
    QString tableText() const { return widget->editWidget()->confirmWidget()->param(); }

    EventRecorder parent;
    COperationBasketWidget *widget = nullptr;
};

} // namespace

TEST_F(OperationBasketWidgetTest, FilterBoxesFollowTheNumberOfParts)
{
    const struct { const char *text; bool stop, rise, fall; } cases[] = {
        {"F/T/300/1", true, true, false},         // four parts leave the limit boxes
        {"F/T/300/0/1", false, true, true},       // five set both limit boxes ...
        {"F/T/300/1/0", true, false, false},      // ... or clear both
        {"F/T/300/1/0/1", true, false, true},     // six set each box
        {"F/T/300/0/1/0/9", false, true, false},  // seven act like six
        {"F/T", false, true, false},              // two touch no box
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.text);
        // Start from the opposite of what a four-part text would leave, to see what is touched.
        bar()->setFilterBox(1, true);
        bar()->setFilterBox(2, false);
        bar()->setFilterBox(0, false);
        widget->setParam(QString::fromUtf8(c.text));
        EXPECT_EQ(fields(box(1), box(16), box(32)), fields(c.stop, c.rise, c.fall));
    }
}

TEST_F(OperationBasketWidgetTest, PiecesGoToFormTableAndSplitAndComeBack)
{
    // The table's piece is its column layout; a layout it was given comes back as it settled it.
    const QString table = tableText();
    ASSERT_FALSE(table.isEmpty());
    ASSERT_FALSE(table.contains(QLatin1Char('/')) || table.contains(QLatin1Char('|')));
    // The form's piece is an older client's text that names the sell tab.
    widget->setParam(QStringLiteral("1024/") + table + QStringLiteral("/420/0/0/0"));
    EXPECT_EQ(widget->paramsWidget()->getTradeOpType(), 0x400u);
    const QString settled = tableText();
    EXPECT_EQ(widget->splitContainer()->stableLength(), 420);
    EXPECT_EQ(widget->param(), widget->paramsWidget()->param() + QLatin1Char('/') + settled + QStringLiteral("/420/0/0/0"));
    widget->setParam(widget->param());
    EXPECT_EQ(tableText(), settled);

    widget->setParam(QStringLiteral("F/") + table + QStringLiteral("/360/1/1/0"));
    const QString text = widget->param();
    EXPECT_TRUE(text.endsWith(QStringLiteral("/360/1/1/0")));
    EXPECT_EQ(widget->paramsWidget()->getTradeOpType(), 0x200u);
    widget->setParam(text);
    EXPECT_EQ(widget->param().section(QLatin1Char('/'), 1), text.section(QLatin1Char('/'), 1));
}

TEST_F(OperationBasketWidgetTest, FiltersReachTheTableAndAHiddenBoxIsSavedAsOff)
{
    bar()->setFilterZhangdie(true);
    EXPECT_EQ(widget->editWidget()->confirmWidget()->filterFlags(), 16 | 32);
    bar()->setFilterZhangdie(false);
    bar()->setFilterBox(0, true);
    bar()->setTradeOperationType(0x1000);
    EXPECT_TRUE(box(1));
    EXPECT_TRUE(widget->param().endsWith(QStringLiteral("/0/0/0")));
}

TEST_F(OperationBasketWidgetTest, OnlyShiftWAndUnknownKeysTravelUp)
{
    const struct { const char *name; int key; Qt::KeyboardModifiers modifiers; bool passesUp; } cases[] = {
        {"ctrlV", Qt::Key_V, Qt::ControlModifier, false},
        {"plainV", Qt::Key_V, Qt::NoModifier, false},
        {"shiftW", Qt::Key_W, Qt::ShiftModifier, true},
        {"ctrlShiftW", Qt::Key_W, Qt::ShiftModifier | Qt::ControlModifier, false},
        {"plainW", Qt::Key_W, Qt::NoModifier, false},
        {"otherKey", Qt::Key_A, Qt::NoModifier, true},
    };
    for (const auto &c : cases) {
        QKeyEvent event(QEvent::KeyPress, c.key, c.modifiers);
        event.accept();
        QApplication::sendEvent(widget, &event);
        EXPECT_EQ(!event.isAccepted(), c.passesUp) << c.name;
    }
}

TEST_F(OperationBasketWidgetTest, SwallowsButtonAndParameterEventsPassesOthers)
{
    auto *child = new Sender(widget->paramsWidget());
    EXPECT_TRUE(child->send(5, 77) && child->send(1138) && child->send(4242));
    EXPECT_EQ(parent.seen, (EventRecorder::Events{{4242, 0, 0, QString()}})) << "only the last one goes on";
}

TEST_F(OperationBasketWidgetTest, TabPressReachesTableAndToolbarAClientSwitchDoesNot)
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

    widget->paramsWidget()->handleEvent(5, 0x200, 0, QString(), nullptr);
    ASSERT_TRUE(bar()->isFilterBlacklist());
    widget->setCurrentOperationType(0x400);
    EXPECT_EQ(widget->paramsWidget()->getTradeOpType(), 0x400u);
    EXPECT_TRUE(bar()->isFilterBlacklist()) << "only a press of the tab tells the toolbar";
}

TEST(OperationBasketWidgetRoles, TraderCannotTouchTheFilters)
{
    TC::resetAllSubstitutes();
    for (const int role : {200, 90}) {
        getUserConfig()->setRole(role);
        COperationBasketWidget widget(nullptr);
        EXPECT_EQ(widget.replaceToolBar()->isEnabled(), role == 90) << role;
    }
}
