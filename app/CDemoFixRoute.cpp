#include "CDemoFixRoute.h"

#include "CPriceData.h"
#include "CTradeClient.h"

#include <QDir>
#include <QFile>
#include <QTextStream>

#include <algorithm>
#include <cmath>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

const char *exchangeOf(const std::string &market)
{
    if (market == "SH")
        return "XSHG";
    if (market == "SZ")
        return "XSHE";
    if (market == "CFFEX")
        return "CFFEX";
    return nullptr;
}

// A loopback port the system has free now; 0 when none.
quint16 freeLoopbackPort()
{
    const int fd = ::socket(AF_INET, SOCK_STREAM, 0);
    if (fd < 0)
        return 0;
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof(address);
    quint16 port = 0;
    if (::bind(fd, reinterpret_cast<sockaddr *>(&address), size) == 0
        && ::getsockname(fd, reinterpret_cast<sockaddr *>(&address), &size) == 0)
        port = ntohs(address.sin_port);
    ::close(fd);
    return port;
}

bool writeText(const QString &path, const QString &text)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Text))
        return false;
    QTextStream(&file) << text;
    return file.error() == QFile::NoError;
}

} // namespace

CDemoFixRoute::CDemoFixRoute(const QString &folder, const QVector<TC::CPriceData> &quotes, const QString &ownSettings)
    : m_folder(folder), m_quotes(quotes), m_ownSettings(ownSettings)
{
}

CDemoFixRoute::~CDemoFixRoute()
{
    if (TC::CTradeClient::instance()->route() == m_route.get())
        TC::CTradeClient::instance()->setRoute(nullptr);
    if (m_route)
        m_route->stop();
    if (m_exchange)
        m_exchange->stop();
}

bool CDemoFixRoute::start(QString *error)
{
    QString routeSettings = m_ownSettings;
    if (routeSettings.isEmpty()) {
        QDir().mkpath(m_folder);
        // The exchange takes the port at once.
        const quint16 port = freeLoopbackPort();
        if (port == 0) {
            *error = QStringLiteral("no free loopback port");
            return false;
        }
        const QString common = QStringLiteral("[DEFAULT]\nBeginString=FIX.4.4\nStartTime=00:00:00\nEndTime=00:00:00\n"
                                              "HeartBtInt=30\nReconnectInterval=1\nFileStorePath=%1\n")
                                   .arg(m_folder + QStringLiteral("/store"));
        const QString exchangeSettings = m_folder + QStringLiteral("/exchange.cfg");
        routeSettings = m_folder + QStringLiteral("/route.cfg");
        const bool written =
            writeText(exchangeSettings, common + QStringLiteral("[SESSION]\nConnectionType=acceptor\nSenderCompID=SIMEX\n"
                                                                "TargetCompID=PANEL\nSocketAcceptHost=127.0.0.1\n"
                                                                "SocketAcceptPort=%1\n").arg(port))
            && writeText(routeSettings, common + QStringLiteral("[SESSION]\nConnectionType=initiator\nSenderCompID=PANEL\n"
                                                                "TargetCompID=SIMEX\nSocketConnectHost=127.0.0.1\n"
                                                                "SocketConnectPort=%1\nBasketAsList=Y\n").arg(port));
        if (!written) {
            *error = QStringLiteral("cannot write the FIX settings in ") + m_folder;
            return false;
        }
        TC::CSimulatedExchange::COptions options;
        options.m_fillDelayMs = 400;
        options.m_fillParts = 2;
        options.m_journalPath = QString(m_folder + QStringLiteral("/booked.journal")).toStdString();
        m_exchange = std::make_unique<TC::CSimulatedExchange>(exchangeSettings.toStdString(), options);
        for (const TC::CPriceData &quote : m_quotes) {
            const char *exchange = exchangeOf(quote.m_market);
            if (!exchange || !ttservice::hasValue(quote.m_lastPrice) || quote.m_lastPrice <= 0)
                continue;
            TC::CSimulatedExchange::CInstrument instrument;
            instrument.m_quote = quote.m_lastPrice;
            instrument.m_lot = quote.m_market == "CFFEX" ? 1.0 : 100.0;
            if (ttservice::hasValue(quote.m_upStopPrice) && ttservice::hasValue(quote.m_downStopPrice))
                instrument.m_limitRatio = std::max(quote.m_upStopPrice - quote.m_lastPrice,
                                                   quote.m_lastPrice - quote.m_downStopPrice) / quote.m_lastPrice;
            m_exchange->setInstrument(exchange, quote.m_stockCode, instrument);
        }
        std::string reason;
        if (!m_exchange->start(&reason)) {
            *error = QStringLiteral("the simulated exchange cannot start: ") + QString::fromStdString(reason);
            return false;
        }
    }
    m_route = std::make_unique<TC::CFixRoute>(routeSettings.toStdString());
    std::string reason;
    if (!m_route->start(&reason)) {
        *error = QStringLiteral("the FIX route cannot start: ") + QString::fromStdString(reason);
        return false;
    }
    TC::CTradeClient::instance()->setRoute(m_route.get());
    return true;
}
