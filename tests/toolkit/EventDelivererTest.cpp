#include "CBaseDialog.h"
#include "CBaseWidget.h"
#include "CWidgetList.h"

#include "Fields.h"

#include <gtest/gtest.h>

#include <QWidget>

#include <vector>

namespace {

struct Received { int event, id, value; QString text; void *data; };

// A widget that records what reaches it and takes the events listed in `takes`.
class Node : public WK::CBaseWidget
{
public:
    Node(QWidget *parent, std::vector<int> takes = {})
        : WK::CBaseWidget(QStringLiteral("node"), false, parent)
        , m_takes(std::move(takes))
    {
    }
    bool handleEvent(int event, int id, int value, QString text, void *data) override
    {
        received.push_back({event, id, value, text, data});
        for (int taken : m_takes) {
            if (taken == event)
                return true;
        }
        return WK::CBaseWidget::handleEvent(event, id, value, text, data);
    }
    bool send(int event, int id = 0, int value = 0, const QString &text = QString(), void *data = nullptr)
    {
        return deliverEvent(event, id, value, text, data);
    }
    std::vector<Received> received;

private:
    std::vector<int> m_takes;
};

TEST(EventDeliverer, climbsToTheFirstAncestorThatTakesItCarryingAllFiveValues)
{
    struct Row { const char *name; std::vector<int> rootTakes, parentTakes, childTakes; bool handled;
                 size_t childSees, parentSees, rootSees; };
    const Row rows[] = {
        {"takenByTheDirectParent", {}, {}, {7}, true, 1, 0, 0},
        {"takenTwoLevelsUp", {}, {7}, {}, true, 1, 1, 0},
        {"takenAtTheRoot", {7}, {}, {}, true, 1, 1, 1},
        {"swallowedBelowAnAncestorThatWouldTakeIt", {7}, {7}, {}, true, 1, 1, 0},
        {"unhandledAnswersFalseAtTheRoot", {}, {}, {}, false, 1, 1, 1},
        {"otherEventsTakenDoNotStopIt", {8}, {9}, {10}, false, 1, 1, 1},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        Node root(nullptr, row.rootTakes);
        Node *parent = new Node(&root, row.parentTakes);
        Node *child = new Node(parent, row.childTakes);
        auto *grandchild = new Node(child, {7});
        int payload = 0;

        EXPECT_EQ(grandchild->send(7, 11, -22, QStringLiteral("买入"), &payload), row.handled);

        // What the child, its parent and the root saw; the sender's own handleEvent must not run.
        EXPECT_EQ(fields(child->received.size(), parent->received.size(), root.received.size(), grandchild->received.size()),
                  fields(row.childSees, row.parentSees, row.rootSees, 0));
        for (const Node *node : {child, parent, &root}) {
            for (const Received &r : node->received)
                EXPECT_EQ(fields(r.event, r.id, r.value, r.text, r.data == &payload), "7|11|-22|买入|true");
        }
    }
}

TEST(EventDeliverer, skipsPlainQtWidgetsAndWidgetListsBetweenDeliverers)
{
    Node top(nullptr, {5});
    auto *inner = new QWidget(new QWidget(&top));
    auto *sender = new Node(inner);
    EXPECT_TRUE(sender->send(5));
    EXPECT_EQ(sender->eventParent(), &top);

    auto *list = new WK::CWidgetList(Qt::Vertical, &top);
    auto *listed = new Node(list);
    list->addFixedWidget(listed, 0, 0);
    EXPECT_TRUE(listed->send(5, 9));
    ASSERT_EQ(top.received.size(), 2u);
    EXPECT_EQ(top.received.back().id, 9);
}

TEST(EventDeliverer, followsTheWidgetToItsNewParentUnlessAParentIsFixed)
{
    Node first(nullptr, {5});
    Node second(nullptr, {5});
    Node fixed(nullptr, {5});
    auto *sender = new Node(&first);

    sender->setParent(&second);
    sender->send(5);
    EXPECT_TRUE(first.received.empty());
    EXPECT_EQ(second.received.size(), 1u);

    sender->setEventParent(&fixed);
    sender->send(5);
    EXPECT_EQ(second.received.size(), 1u);
    EXPECT_EQ(fixed.received.size(), 1u);

    sender->setEventParent(nullptr);
    EXPECT_FALSE(sender->send(5)) << "a fixed empty parent sends nowhere";
    EXPECT_EQ(fixed.received.size(), 1u);
}

TEST(EventDeliverer, aDialogKeepsItsChildrensEventsFromThePanel)
{
    Node panel(nullptr, {5});
    auto *button = new Node(new WK::CBaseDialog(&panel));
    EXPECT_FALSE(button->send(5));
    EXPECT_TRUE(panel.received.empty());
}

} // namespace
