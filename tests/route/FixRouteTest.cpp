#include "CBasketHedgeManager.h"
#include "CFixRoute.h"
#include "CSimulatedExchange.h"
#include "CTradeClient.h"
#include "SubstituteReset.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QThread>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <fstream>
#include <functional>
#include <set>

using namespace ttservice;
using TC::CFixRoute;
using TC::COrderLineState;
using TC::CSimulatedExchange;
using TC::CTradeClient;
using TC::EOrderLineStatus;

namespace {

int freeLoopbackPort()
{
    const int fd = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof(address);
    ::bind(fd, reinterpret_cast<sockaddr *>(&address), size);
    ::getsockname(fd, reinterpret_cast<sockaddr *>(&address), &size);
    ::close(fd);
    return ntohs(address.sin_port);
}

bool waitUntil(const std::function<bool()> &done, int ms)
{
    QElapsedTimer timer;
    timer.start();
    while (!done()) {
        if (timer.elapsed() > ms)
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        QThread::msleep(2);
    }
    return true;
}

boost::shared_ptr<CAccountInfo> account(const char *id, int type = 0)
{
    boost::shared_ptr<CAccountInfo> a(new CAccountInfo);
    a->m_accountKey = std::string("key-") + id;
    a->m_accountId = id;
    a->m_accountType = type;
    return a;
}

CCodeOrderParam line(const char *market, const char *code, EOperationType op, int64_t volume, double price,
                     int accountType = 0)
{
    CCodeOrderParam p;
    p.m_account = account(accountType == 3 ? "C1" : "A1", accountType);
    p.m_stockInfo = CStockInfo(market, code);
    p.m_operationType = op;
    p.m_volume = volume;
    p.m_price = price;
    return p;
}

// An initiator and an acceptor on a free loopback port, their stores in a temporary folder.
class FixRoute : public ::testing::Test
{
protected:
    void SetUp() override
    {
        TC::resetAllSubstitutes();
        ASSERT_TRUE(m_dir.isValid());
        m_port = freeLoopbackPort();
    }
    void TearDown() override
    {
        CTradeClient::instance()->setRoute(nullptr);
        m_route.reset();
        m_exchange.reset();
    }

    std::string path(const char *name) const { return m_dir.path().toStdString() + "/" + name; }

    std::string writeSettings(const char *name, bool initiator, bool asList)
    {
        const std::string file = path(name);
        std::ofstream out(file);
        out << "[DEFAULT]\nBeginString=FIX.4.4\nStartTime=00:00:00\nEndTime=00:00:00\nHeartBtInt=30\n"
            << "ReconnectInterval=1\nResetOnLogon=N\nPersistMessages=Y\n"
            << "FileStorePath=" << path(initiator ? "store-route" : "store-exchange") << "\n"
            << "[SESSION]\n"
            << (initiator ? "ConnectionType=initiator\nSenderCompID=PANEL\nTargetCompID=SIMEX\n"
                            "SocketConnectHost=127.0.0.1\nSocketConnectPort="
                          : "ConnectionType=acceptor\nSenderCompID=SIMEX\nTargetCompID=PANEL\n"
                            "SocketAcceptHost=127.0.0.1\nSocketAcceptPort=")
            << m_port << "\nBasketAsList=" << (asList ? "Y" : "N") << "\nListFragmentSize=100\n";
        return file;
    }

    void startExchange(CSimulatedExchange::COptions options)
    {
        m_exchange = std::make_unique<CSimulatedExchange>(writeSettings("exchange.cfg", false, true), options);
        for (const char *code : {"600000", "000001", "IF2412", "600036"})
            m_exchange->setInstrument(code[0] == '6' ? "XSHG" : code[0] == '0' ? "XSHE" : "CFFEX", code,
                                      CSimulatedExchange::CInstrument{10.0, code[0] == 'I' ? 1.0 : 100.0, 0.1});
        std::string error;
        ASSERT_TRUE(m_exchange->start(&error)) << error;
    }

    void startRoute(bool asList)
    {
        m_route = std::make_unique<CFixRoute>(writeSettings("route.cfg", true, asList));
        std::string error;
        ASSERT_TRUE(m_route->start(&error)) << error;
        ASSERT_TRUE(waitUntil([&] { return m_route->isLoggedOn(); }, 10000));
        CTradeClient::instance()->setRoute(m_route.get());
        QObject::connect(m_route.get(), &CFixRoute::linesChanged, [this](const std::vector<COrderLineState> &lines) {
            m_signalled += lines.size();
        });
    }

    bool place(std::vector<CCodeOrderParam> orders, const std::string &params = std::string())
    {
        return CTradeClient::instance()->placeCommands(
            VQ_TRADER_BASKET, VQ_NOT_HEDGED, FT_SPEC_BTN_BAR_NONE, orders, {}, VQ_STOP_LOSS_NONE, false, false, false,
            {}, bson::BSONObj(), "", TRADE_PLATFORM_NONE, params, VQ_LIMITED_PRICE_NONE, "b", QString(),
            ORDER_STRATEGY_NONE, false, false, -1, "", {}, ETF_HEDGE_NONE, "", bson::BSONObj());
    }

    bool allLines(size_t count, const std::function<bool(const COrderLineState &)> &test) const
    {
        const std::vector<COrderLineState> lines = m_route->lines();
        if (lines.size() != count)
            return false;
        for (const COrderLineState &l : lines)
            if (!test(l))
                return false;
        return true;
    }

    QTemporaryDir m_dir;
    int m_port = 0;
    std::unique_ptr<CSimulatedExchange> m_exchange;
    std::unique_ptr<CFixRoute> m_route;
    size_t m_signalled = 0;
};

TEST_F(FixRoute, EachLineCarriesItsFieldsAsListOrAsSingleOrders)
{
    struct Row
    {
        CCodeOrderParam line;
        std::map<int, std::string> expected; // "" : the field must be absent
    };
    const std::vector<Row> rows = {
        {line("SH", "600000", OT_BUY, 300, 10.5),
         {{1, "A1"}, {55, "600000"}, {207, "XSHG"}, {54, "1"}, {38, "300"}, {40, "2"}, {44, "10.5"}, {59, "0"},
          {77, ""}, {544, ""}}},
        {line("SZ", "000001", OT_SELL, 150, NO_VALUE), {{207, "XSHE"}, {54, "2"}, {40, "1"}, {44, ""}}},
        {line("CFFEX", "IF2412", OT_OPEN_SHORT, 2, 10.2), {{207, "CFFEX"}, {54, "2"}, {77, "O"}}},
        {line("CFFEX", "IF2412", OT_CLOSE_SHORT_TODAY, 1, 10.2), {{54, "1"}, {77, "C"}}},
        {line("SH", "600036", OT_MARGIN_BUY, 100, 10.0, 3), {{1, "C1"}, {54, "1"}, {544, "2"}}},
        {line("SH", "600036", OT_SELL_TO_REPAY, 100, 10.0, 3), {{54, "2"}, {544, "3"}}},
        {line("SH", "600036", OT_SHORT_SELL, 100, 10.0, 3), {{54, "5"}, {544, "2"}}},
        {line("SH", "600036", OT_SELL, 100, 10.0, 3), {{544, "1"}, {847, "TWAP"}}},
    };
    std::vector<CCodeOrderParam> orders;
    std::string params;
    for (size_t i = 0; i < rows.size(); ++i) {
        orders.push_back(rows[i].line);
        params += (i ? "@" : "") + std::string("algo=TWAP;code=x;start=09:30:00;rate=0.") + std::to_string(i);
    }
    startExchange({});
    for (const bool asList : {true, false}) {
        SCOPED_TRACE(asList ? "list" : "single");
        startRoute(asList);
        const size_t before = m_exchange->bookedOrders().size();
        ASSERT_TRUE(place(orders, params));
        ASSERT_TRUE(waitUntil([&] { return m_exchange->bookedOrders().size() == before + rows.size(); }, 10000));
        const auto booked = m_exchange->bookedOrders();
        std::set<std::string> ids;
        for (size_t i = 0; i < rows.size(); ++i) {
            const auto &got = booked[before + i];
            SCOPED_TRACE(i);
            EXPECT_EQ(got.m_fromList, asList);
            if (asList) {
                EXPECT_EQ(got.m_fields.at(67), std::to_string(i + 1));
            }
            for (const auto &field : rows[i].expected) {
                const auto it = got.m_fields.find(field.first);
                EXPECT_EQ(it == got.m_fields.end() ? std::string() : it->second, field.second) << "tag " << field.first;
            }
            EXPECT_EQ(got.m_fields.at(847), "TWAP");
            EXPECT_EQ(got.m_params.at("rate"), "0." + std::to_string(i));
            EXPECT_EQ(got.m_params.count("code"), 0u);
            ids.insert(got.m_fields.at(11));
        }
        EXPECT_EQ(ids.size(), rows.size());
        CTradeClient::instance()->setRoute(nullptr);
        m_route.reset();
    }
    // The id counter lives in the store: a restarted route never gives an id twice.
    std::set<std::string> all;
    for (const auto &order : m_exchange->bookedOrders())
        EXPECT_TRUE(all.insert(order.m_fields.at(11)).second) << order.m_fields.at(11);
}

TEST_F(FixRoute, RejectsAndPartialFillsReachTheLinesAndTheInstruction)
{
    CSimulatedExchange::COptions options;
    options.m_fillParts = 2;
    options.m_fillShare = 0.5;
    startExchange(options);
    startRoute(true);
    boost::shared_ptr<COrderCommand> command(new COrderCommand);
    command->m_commandKey = "cmd-7";
    command->m_orders = {line("SH", "600000", OT_BUY, 1000, 10.0)};
    CTradeClient::instance()->addCommand(command);
    std::vector<CCodeOrderParam> orders = {
        line("SH", "600000", OT_BUY, 400, 10.0),   // half fills, in two parts
        line("SH", "688999", OT_BUY, 100, 10.0),   // not listed
        line("SH", "600036", OT_BUY, 100, 11.5),   // beyond 10 %
        line("SH", "600036", OT_BUY, 150, 10.0),   // an odd lot on a buy
        line("SH", "600036", OT_SELL, 150, 10.0),  // an odd lot may be sold
    };
    ASSERT_TRUE(CTradeClient::instance()->placeTasks(VQ_TRADER_BASKET, VQ_NOT_HEDGED, command, orders,
                                                     VQ_STOP_LOSS_NONE, false, "", {}, 0, "", nullptr, "", 1));
    auto settled = [&] {
        const auto lines = m_route->lines();
        return lines.size() == 5 && lines[0].m_cumQty == 200 && lines[4].m_cumQty == 75 && lines[1].isFinal() &&
               lines[2].isFinal() && lines[3].isFinal();
    };
    ASSERT_TRUE(waitUntil(settled, 10000));
    ASSERT_TRUE(waitUntil([&] { return m_signalled >= 5 && command->m_orders[0].m_tradedVolume == 200; }, 5000));
    const auto lines = m_route->lines();
    EXPECT_EQ(lines[0].m_status, EOrderLineStatus::PartlyFilled);
    EXPECT_DOUBLE_EQ(lines[0].m_avgPx, 10.0);
    const char *texts[] = {"unknown code 688999", "price outside the limits", "quantity not a whole lot on a buy"};
    for (int i = 1; i <= 3; ++i) {
        EXPECT_EQ(lines[i].m_status, EOrderLineStatus::Rejected) << i;
        EXPECT_EQ(lines[i].m_text, texts[i - 1]);
    }
    // Only the instruction's own line counts; the remainder a trader sizes next is 800.
    EXPECT_DOUBLE_EQ(command->m_orders[0].m_tradedVolume, 200);
    EXPECT_EQ(m_exchange->bookedCount(), 5u);
    // The hedge service's basket order leaves over the same route.
    TC::CBasketHedgeManager::instance()->onBasketCommand(command, true);
    ASSERT_TRUE(waitUntil([&] { return m_exchange->bookedCount() == 6; }, 5000));
    EXPECT_EQ(m_exchange->bookedOrders().back().m_fields.at(38), "1000");
}

TEST_F(FixRoute, ADroppedExchangeBooksEveryLineOfABasketOnce)
{
    CSimulatedExchange::COptions options;
    options.m_fillShare = 0.0;
    options.m_journalPath = path("booked.journal");
    options.m_dropAfter = 300;
    startExchange(options);
    startRoute(false);
    std::vector<CCodeOrderParam> orders;
    for (int i = 0; i < 1000; ++i)
        orders.push_back(line("SH", i % 2 ? "600000" : "600036", OT_BUY, 100 * (1 + i % 7), 10.0));
    ASSERT_TRUE(place(orders));
    // The exchange drops the line mid-basket, dies and comes back from its store and journal.
    ASSERT_TRUE(waitUntil([&] { return !m_route->isLoggedOn(); }, 10000));
    m_exchange->stop();
    std::vector<CSimulatedExchange::CBookedOrder> booked = m_exchange->bookedOrders();
    ASSERT_EQ(booked.size(), 300u);
    m_exchange.reset();
    // The trader is told which lines may or may not have arrived.
    ASSERT_TRUE(waitUntil([&] {
        return allLines(1000, [](const COrderLineState &l) { return l.m_status != EOrderLineStatus::Sent; });
    }, 5000));
    EXPECT_FALSE(allLines(1000, [](const COrderLineState &l) { return l.m_status != EOrderLineStatus::Unknown; }));
    options.m_dropAfter = 0;
    startExchange(options);
    ASSERT_TRUE(waitUntil([&] {
        return allLines(1000, [](const COrderLineState &l) { return l.m_status == EOrderLineStatus::Acknowledged; });
    }, 30000)) << m_exchange->bookedCount() << " booked";
    for (const auto &order : m_exchange->bookedOrders())
        booked.push_back(order);
    std::set<std::string> ids;
    for (const auto &order : booked)
        EXPECT_TRUE(ids.insert(order.m_fields.at(11)).second) << "booked twice: " << order.m_fields.at(11);
    EXPECT_EQ(ids.size(), 1000u);
    EXPECT_EQ(m_exchange->bookedCount(), 1000u);
}

} // namespace
