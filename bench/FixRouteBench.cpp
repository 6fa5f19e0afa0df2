// A basket of 20,000 lines over the FIX route to the simulated exchange on loopback: how long the
// press holds the interface thread, how long until the last acknowledgement and the last fill,
// and the messages per second each way. Once as one NewOrderList, once as single orders.
#include "CFixRoute.h"
#include "CSimulatedExchange.h"
#include "CTradeClient.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QThread>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <string>
#include <unordered_map>
#include <vector>

using namespace ttservice;

namespace {

constexpr int kLines = 20000;
constexpr int kStocks = 1000;

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

std::string settings(const QTemporaryDir &dir, const char *name, bool initiator, bool asList, int port)
{
    const std::string file = dir.path().toStdString() + "/" + name;
    std::ofstream out(file);
    out << "[DEFAULT]\nBeginString=FIX.4.4\nStartTime=00:00:00\nEndTime=00:00:00\nHeartBtInt=30\n"
        << "ReconnectInterval=1\nFileStorePath=" << dir.path().toStdString() << (initiator ? "/route" : "/exchange")
        << "\n[SESSION]\n"
        << (initiator ? "ConnectionType=initiator\nSenderCompID=PANEL\nTargetCompID=SIMEX\n"
                        "SocketConnectHost=127.0.0.1\nSocketConnectPort="
                      : "ConnectionType=acceptor\nSenderCompID=SIMEX\nTargetCompID=PANEL\n"
                        "SocketAcceptHost=127.0.0.1\nSocketAcceptPort=")
        << port << "\nBasketAsList=" << (asList ? "Y" : "N") << "\n";
    return file;
}

std::string code(int i)
{
    return std::to_string(600000 + i % kStocks);
}

void run(bool asList)
{
    QTemporaryDir dir;
    const int port = freeLoopbackPort();
    TC::CSimulatedExchange exchange(settings(dir, "exchange.cfg", false, asList, port), {});
    for (int i = 0; i < kStocks; ++i)
        exchange.setInstrument("XSHG", code(i), TC::CSimulatedExchange::CInstrument{10.0, 100.0, 0.1});
    TC::CFixRoute route(settings(dir, "route.cfg", true, asList, port));
    std::string error;
    if (!exchange.start(&error) || !route.start(&error)) {
        std::printf("cannot start: %s\n", error.c_str());
        return;
    }
    auto waitFor = [](const std::function<bool()> &done) {
        while (!done()) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
            QThread::usleep(200);
        }
    };
    waitFor([&] { return route.isLoggedOn(); });
    TC::CTradeClient::instance()->reset();
    TC::CTradeClient::instance()->setRoute(&route);

    std::vector<CCodeOrderParam> orders(kLines);
    boost::shared_ptr<CAccountInfo> account(new CAccountInfo);
    account->m_accountKey = account->m_accountId = "A1";
    for (int i = 0; i < kLines; ++i) {
        orders[i].m_account = account;
        orders[i].m_stockInfo = CStockInfo("SH", code(i));
        orders[i].m_operationType = i % 2 ? OT_SELL : OT_BUY;
        orders[i].m_volume = 100 * (1 + i % 5);
        orders[i].m_price = 10.0;
    }
    // Counted from linesChanged as a host sees them: a line is answered once its state is past
    // Sent (an acknowledgement may pass within one delivery straight to a fill).
    std::unordered_map<std::string, int> seen; // 1 answered, 2 filled
    int answered = 0;
    int filled = 0;
    QObject::connect(&route, &TC::CFixRoute::linesChanged, [&](const std::vector<TC::COrderLineState> &lines) {
        for (const TC::COrderLineState &line : lines) {
            int &state = seen[line.m_clOrdId];
            if (state == 0 && line.m_status != TC::EOrderLineStatus::Sent) {
                state = 1;
                ++answered;
            }
            if (state == 1 && line.m_status == TC::EOrderLineStatus::Filled) {
                state = 2;
                ++filled;
            }
        }
    });
    QElapsedTimer clock;
    clock.start();
    TC::CTradeClient::instance()->placeCommands(
        VQ_TRADER_BASKET, VQ_NOT_HEDGED, FT_SPEC_BTN_BAR_NONE, orders, {}, VQ_STOP_LOSS_NONE, false, false, false, {},
        bson::BSONObj(), "", TRADE_PLATFORM_NONE, "", VQ_LIMITED_PRICE_NONE, "bench", QString(), ORDER_STRATEGY_NONE,
        false, false, -1, "", {}, ETF_HEDGE_NONE, "", bson::BSONObj());
    const double pressMs = clock.nsecsElapsed() / 1e6;
    waitFor([&] { return answered == kLines; });
    const double ackMs = clock.nsecsElapsed() / 1e6;
    waitFor([&] { return filled == kLines; });
    const double fillMs = clock.nsecsElapsed() / 1e6;
    const double out = static_cast<double>(route.messagesSent());
    const double in = static_cast<double>(route.messagesReceived());
    std::printf("%-17s %6d lines: press holds the UI thread %6.1f ms; last ack %7.1f ms; last fill %7.1f ms; "
                "panel->exchange %6.0f msg (%8.0f msg/s); exchange->panel %6.0f msg (%8.0f msg/s)\n",
                asList ? "NewOrderList" : "NewOrderSingle", kLines, pressMs, ackMs, fillMs, out, out / (fillMs / 1e3),
                in, in / (fillMs / 1e3));
    TC::CTradeClient::instance()->setRoute(nullptr);
    route.stop();
    exchange.stop();
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    run(true);
    run(false);
    return 0;
}
