#include "CBaseDialog.h"
#include "CBaseWidget.h"
#include "CWidgetList.h"

#include <gtest/gtest.h>

#include <QWidget>

#include <memory>
#include <vector>

namespace {

struct Received {
    QString who;
    int event = 0;
    int id = 0;
    int value = 0;
    QString text;
    void *data = nullptr;
};

// A widget that records what reaches it and takes the events listed in `takes`.
class RecordingWidget : public WK::CBaseWidget
{
public:
    RecordingWidget(const QString &name, QWidget *parent, std::vector<int> takes = {})
        : WK::CBaseWidget(name, false, parent)
        , m_takes(std::move(takes))
    {
    }

    bool handleEvent(int event, int id, int value, QString text, void *data) override
    {
        received.push_back({objectName(), event, id, value, text, data});
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

// root <- parent <- child <- grandchild; who takes which event is set per case.
struct Chain {
    std::unique_ptr<RecordingWidget> root;
    RecordingWidget *parent = nullptr;
    RecordingWidget *child = nullptr;
    RecordingWidget *grandchild = nullptr;
};

Chain makeChain(std::vector<int> rootTakes, std::vector<int> parentTakes, std::vector<int> childTakes)
{
    Chain chain;
    chain.root = std::make_unique<RecordingWidget>(QStringLiteral("root"), nullptr, rootTakes);
    chain.parent = new RecordingWidget(QStringLiteral("parent"), chain.root.get(), parentTakes);
    chain.child = new RecordingWidget(QStringLiteral("child"), chain.parent, childTakes);
    chain.grandchild = new RecordingWidget(QStringLiteral("grandchild"), chain.child, {1, 2, 3});
    return chain;
}

struct ClimbCase {
    const char *name;
    std::vector<int> rootTakes;
    std::vector<int> parentTakes;
    std::vector<int> childTakes;
    bool handled;
    size_t childSees, parentSees, rootSees;
};

class EventClimb : public ::testing::TestWithParam<ClimbCase>
{
};

TEST_P(EventClimb, reachesTheFirstAncestorThatTakesItAndNoFurther)
{
    const ClimbCase &c = GetParam();
    Chain chain = makeChain(c.rootTakes, c.parentTakes, c.childTakes);

    EXPECT_EQ(chain.grandchild->send(7, 11, 22, QStringLiteral("text")), c.handled);

    EXPECT_EQ(chain.child->received.size(), c.childSees);
    EXPECT_EQ(chain.parent->received.size(), c.parentSees);
    EXPECT_EQ(chain.root->received.size(), c.rootSees);
    EXPECT_TRUE(chain.grandchild->received.empty()) << "the sender's own handleEvent must not run";
}

INSTANTIATE_TEST_SUITE_P(Toolkit, EventClimb,
    ::testing::Values(
        ClimbCase{"TakenByTheDirectParent", {}, {}, {7}, true, 1, 0, 0},
        ClimbCase{"TakenTwoLevelsUp", {}, {7}, {}, true, 1, 1, 0},
        ClimbCase{"TakenAtTheRoot", {7}, {}, {}, true, 1, 1, 1},
        ClimbCase{"SwallowedBelowAnAncestorThatWouldTakeIt", {7}, {7}, {}, true, 1, 1, 0},
        ClimbCase{"UnhandledAnswersFalseAtTheRoot", {}, {}, {}, false, 1, 1, 1},
        ClimbCase{"OtherEventsTakenDoNotStopIt", {8}, {9}, {10}, false, 1, 1, 1}),
    [](const ::testing::TestParamInfo<ClimbCase> &info) { return std::string(info.param.name); });

TEST(EventDeliverer, carriesAllFiveValuesUnchanged)
{
    Chain chain = makeChain({}, {}, {});
    int payload = 0;
    chain.grandchild->send(1046, 3, -5, QStringLiteral("买入"), &payload);

    ASSERT_EQ(chain.root->received.size(), 1u);
    const Received &r = chain.root->received.front();
    EXPECT_EQ(r.event, 1046);
    EXPECT_EQ(r.id, 3);
    EXPECT_EQ(r.value, -5);
    EXPECT_EQ(r.text, QStringLiteral("买入"));
    EXPECT_EQ(r.data, &payload);
}

TEST(EventDeliverer, skipsPlainQtWidgetsBetweenDeliverers)
{
    RecordingWidget top(QStringLiteral("top"), nullptr, {5});
    auto *plain = new QWidget(&top);
    auto *inner = new QWidget(plain);
    auto *sender = new RecordingWidget(QStringLiteral("sender"), inner);

    EXPECT_TRUE(sender->send(5));
    ASSERT_EQ(top.received.size(), 1u);
    EXPECT_EQ(sender->eventParent(), &top);
}

TEST(EventDeliverer, followsTheWidgetToItsNewParent)
{
    RecordingWidget first(QStringLiteral("first"), nullptr, {5});
    RecordingWidget second(QStringLiteral("second"), nullptr, {5});
    auto *sender = new RecordingWidget(QStringLiteral("sender"), &first);

    sender->setParent(&second);
    sender->send(5);

    EXPECT_TRUE(first.received.empty());
    EXPECT_EQ(second.received.size(), 1u);
}

TEST(EventDeliverer, aFixedEventParentWinsOverTheWidgetTree)
{
    RecordingWidget treeParent(QStringLiteral("tree"), nullptr, {5});
    RecordingWidget fixed(QStringLiteral("fixed"), nullptr, {5});
    auto *sender = new RecordingWidget(QStringLiteral("sender"), &treeParent);

    sender->setEventParent(&fixed);
    sender->send(5);
    EXPECT_TRUE(treeParent.received.empty());
    EXPECT_EQ(fixed.received.size(), 1u);

    sender->setEventParent(nullptr);
    EXPECT_FALSE(sender->send(5));
    EXPECT_EQ(fixed.received.size(), 1u);
}

TEST(EventDeliverer, plainDeliverersChainThroughTheirGivenParents)
{
    struct Taker : WK::CEventDeliverer {
        using WK::CEventDeliverer::CEventDeliverer;
        bool handleEvent(int event, int id, int value, QString text, void *data) override
        {
            ++seen;
            return event == 1 || WK::CEventDeliverer::handleEvent(event, id, value, text, data);
        }
        bool send(int event) { return deliverEvent(event, 0, 0); }
        int seen = 0;
    };
    Taker root(nullptr);
    Taker middle(&root);
    Taker leaf(&middle);

    EXPECT_TRUE(leaf.send(1));
    EXPECT_EQ(root.seen, 0);
    EXPECT_FALSE(leaf.send(2));
    EXPECT_EQ(root.seen, 1);
    EXPECT_EQ(leaf.seen, 0);
}

TEST(EventDeliverer, castFindsDeliverersOnly)
{
    QWidget plain;
    RecordingWidget widget(QStringLiteral("w"), nullptr);
    EXPECT_EQ(WK::castEventDeliverer(nullptr), nullptr);
    EXPECT_EQ(WK::castEventDeliverer(&plain), nullptr);
    EXPECT_EQ(WK::castEventDeliverer(&widget), static_cast<WK::CEventDeliverer *>(&widget));
}

TEST(EventDeliverer, climbsThroughAWidgetList)
{
    RecordingWidget top(QStringLiteral("top"), nullptr, {5});
    auto *list = new WK::CWidgetList(Qt::Vertical, &top);
    auto *sender = new RecordingWidget(QStringLiteral("sender"), list);
    list->addFixedWidget(sender, 0, 0);

    EXPECT_TRUE(sender->send(5, 9));
    ASSERT_EQ(top.received.size(), 1u);
    EXPECT_EQ(top.received.front().id, 9);
}

TEST(EventDeliverer, aDialogKeepsItsChildrensEventsFromThePanel)
{
    RecordingWidget panel(QStringLiteral("panel"), nullptr, {5});
    auto *dialog = new WK::CBaseDialog(&panel);
    auto *button = new RecordingWidget(QStringLiteral("button"), dialog);

    EXPECT_FALSE(button->send(5, 0));
    EXPECT_TRUE(panel.received.empty());
}

} // namespace
