#include "CSimulatedExchange.h"

#include "FixDictionary.h"

#include <quickfix/Application.h>
#include <quickfix/FileLog.h>
#include <quickfix/FileStore.h>
#include <quickfix/Session.h>
#include <quickfix/SessionSettings.h>
#include <quickfix/SocketAcceptor.h>
#include <quickfix/fix44/ExecutionReport.h>
#include <quickfix/fix44/ListStatus.h>

#include <QDir>

#include <atomic>
#include <chrono>
#include <cmath>
#include <condition_variable>
#include <fstream>
#include <mutex>
#include <queue>
#include <sstream>
#include <cstdlib>
#include <thread>

namespace TC {

namespace {

using Clock = std::chrono::steady_clock;

// A booked order as the exchange works it.
struct COpenOrder
{
    FIX::SessionID m_session;
    std::string m_clOrdId;
    std::string m_orderId;
    std::string m_account;
    std::string m_symbol;
    std::string m_exchange;
    char m_side = FIX::Side_BUY;
    double m_qty = 0.0;
    double m_toFill = 0.0; // what will ever fill
    double m_cum = 0.0;
    double m_value = 0.0;  // sum of quantity times price of the fills
    double m_fillPrice = 0.0;
    int m_partsLeft = 1;
    std::string m_rejectText; // why it was refused; empty when booked for filling
};

struct CFillEvent
{
    Clock::time_point m_at;
    std::shared_ptr<COpenOrder> m_order;
    bool operator<(const CFillEvent &other) const { return m_at > other.m_at; } // earliest on top
};

std::string fieldOr(const FIX::FieldMap &map, int tag)
{
    return map.isSetField(tag) ? map.getField(tag) : std::string();
}

double numberOr(const FIX::FieldMap &map, int tag, double fallback)
{
    if (!map.isSetField(tag))
        return fallback;
    try {
        return FIX::DoubleConvertor::convert(map.getField(tag));
    } catch (const FIX::FieldConvertError &) {
        return fallback;
    }
}

} // namespace

class CSimulatedExchange::CImpl : public FIX::Application
{
public:
    CImpl(std::string settingsPath, COptions options)
        : m_settingsPath(std::move(settingsPath)), m_options(std::move(options))
    {
        m_options.m_fillParts = std::max(1, m_options.m_fillParts);
    }
    ~CImpl() override { stop(); }

    bool start(std::string *error);
    void stop();

    void onCreate(const FIX::SessionID &) override {}
    void onLogon(const FIX::SessionID &) override { ++m_loggedOn; }
    void onLogout(const FIX::SessionID &) override { --m_loggedOn; }
    void toAdmin(FIX::Message &, const FIX::SessionID &) override {}
    void toApp(FIX::Message &, const FIX::SessionID &) throw(FIX::DoNotSend) override { ++m_sent; }
    void fromAdmin(const FIX::Message &, const FIX::SessionID &) throw(
        FIX::FieldNotFound, FIX::IncorrectDataFormat, FIX::IncorrectTagValue, FIX::RejectLogon) override
    {
    }
    void fromApp(const FIX::Message &message, const FIX::SessionID &session) throw(
        FIX::FieldNotFound, FIX::IncorrectDataFormat, FIX::IncorrectTagValue, FIX::UnsupportedMessageType) override;

    // Books one order; the reject text when refused, "" when booked; sets duplicate for an id
    // already booked (nothing is sent for it).
    std::string book(const FIX::SessionID &session, const FIX::FieldMap &order, bool fromList, bool &duplicate);
    std::string check(const FIX::FieldMap &order, double &quote) const;
    void report(const COpenOrder &order, char execType, char ordStatus, double lastQty, double lastPx,
                const std::string &text);
    void runFills();
    // An ExecutionReport of the order's present state (ExecType I).
    void reportStatus(const COpenOrder &order);
    void answerStatus(const FIX::SessionID &session, const FIX::Message &request);

    std::string m_settingsPath;
    COptions m_options;
    std::unique_ptr<FIX::SessionSettings> m_settings;
    std::unique_ptr<FIX::MessageStoreFactory> m_storeFactory;
    std::unique_ptr<FIX::LogFactory> m_logFactory;
    std::unique_ptr<FIX::SocketAcceptor> m_acceptor;
    std::atomic<int> m_loggedOn{0};
    std::atomic<long long> m_sent{0};
    std::atomic<long long> m_received{0};
    std::atomic<long long> m_execIds{0};

    std::map<std::string, CInstrument> m_instruments; // exchange|code; set before start

    mutable std::mutex m_bookMutex;
    std::map<std::string, std::shared_ptr<COpenOrder>> m_orders; // by ClOrdID, with earlier runs'
    std::vector<CBookedOrder> m_bookedOrders;
    size_t m_duplicates = 0;
    std::ofstream m_journal;
    size_t m_bookedThisRun = 0;

    std::mutex m_fillMutex;
    std::condition_variable m_fillWake;
    std::priority_queue<CFillEvent> m_fills;
    bool m_stopping = false;
    std::thread m_filler;
};

bool CSimulatedExchange::CImpl::start(std::string *error)
{
    try {
        m_settings = std::make_unique<FIX::SessionSettings>(m_settingsPath);
        ownDictionary(*m_settings);
        if (!m_options.m_journalPath.empty()) {
            std::ifstream in(m_options.m_journalPath);
            std::string text;
            while (std::getline(in, text)) {
                std::istringstream fields(text);
                auto order = std::make_shared<COpenOrder>();
                std::string side;
                std::string qty;
                if (!std::getline(fields, order->m_clOrdId, '\t') || order->m_clOrdId.empty())
                    continue;
                std::getline(fields, side, '\t');
                std::getline(fields, qty, '\t');
                std::getline(fields, order->m_symbol, '\t');
                std::getline(fields, order->m_exchange, '\t');
                std::getline(fields, order->m_account, '\t');
                std::getline(fields, order->m_rejectText, '\t');
                order->m_orderId = "X" + order->m_clOrdId;
                order->m_side = side.empty() ? FIX::Side_BUY : side[0];
                order->m_qty = std::atof(qty.c_str());
                m_orders[order->m_clOrdId] = order;
            }
            m_journal.open(m_options.m_journalPath, std::ios::app);
        }
        const FIX::Dictionary &defaults = m_settings->get();
        bool fileStore = defaults.has(FIX::FILE_STORE_PATH);
        for (const FIX::SessionID &id : m_settings->getSessions())
            fileStore = fileStore || m_settings->get(id).has(FIX::FILE_STORE_PATH);
        if (fileStore)
            m_storeFactory = std::make_unique<FIX::FileStoreFactory>(*m_settings);
        else
            m_storeFactory = std::make_unique<FIX::MemoryStoreFactory>();
        if (defaults.has(FIX::FILE_LOG_PATH)) {
            m_logFactory = std::make_unique<FIX::FileLogFactory>(*m_settings);
            m_acceptor = std::make_unique<FIX::SocketAcceptor>(*this, *m_storeFactory, *m_settings, *m_logFactory);
        } else {
            m_acceptor = std::make_unique<FIX::SocketAcceptor>(*this, *m_storeFactory, *m_settings);
        }
        for (const FIX::SessionID &id : m_acceptor->getSessions())
            useBasketDictionary(*m_settings, m_acceptor->getSession(id));
        m_stopping = false;
        m_filler = std::thread([this] { runFills(); });
        m_acceptor->start();
        return true;
    } catch (const std::exception &e) {
        if (error)
            *error = e.what();
        stop();
        return false;
    }
}

void CSimulatedExchange::CImpl::stop()
{
    {
        std::lock_guard<std::mutex> lock(m_fillMutex);
        m_stopping = true;
        m_fills = {};
    }
    m_fillWake.notify_all();
    if (m_filler.joinable())
        m_filler.join();
    if (m_acceptor) {
        m_acceptor->stop(true);
        m_acceptor.reset();
    }
    m_loggedOn = 0;
}

std::string CSimulatedExchange::CImpl::check(const FIX::FieldMap &order, double &quote) const
{
    const std::string key = fieldOr(order, FIX::FIELD::SecurityExchange) + "|" + fieldOr(order, FIX::FIELD::Symbol);
    const double price = numberOr(order, FIX::FIELD::Price, 0.0);
    quote = price;
    if (m_instruments.empty())
        return std::string();
    const auto it = m_instruments.find(key);
    if (it == m_instruments.end())
        return "unknown code " + fieldOr(order, FIX::FIELD::Symbol);
    const CInstrument &instrument = it->second;
    quote = instrument.m_quote;
    if (price > 0.0 && std::fabs(price - instrument.m_quote) > instrument.m_limitRatio * instrument.m_quote + 1e-9)
        return "price outside the limits";
    const double qty = numberOr(order, FIX::FIELD::OrderQty, 0.0);
    const std::string side = fieldOr(order, FIX::FIELD::Side);
    if (side == "1" && instrument.m_lot > 0.0) {
        const double lots = qty / instrument.m_lot;
        if (std::fabs(lots - std::round(lots)) > 1e-9)
            return "quantity not a whole lot on a buy";
    }
    return std::string();
}

void CSimulatedExchange::CImpl::report(const COpenOrder &order, char execType, char ordStatus, double lastQty,
                                       double lastPx, const std::string &text)
{
    FIX44::ExecutionReport er(FIX::OrderID(order.m_orderId), FIX::ExecID("E" + std::to_string(++m_execIds)),
                              FIX::ExecType(execType), FIX::OrdStatus(ordStatus), FIX::Side(order.m_side),
                              FIX::LeavesQty(ordStatus == FIX::OrdStatus_REJECTED ? 0.0 : order.m_qty - order.m_cum),
                              FIX::CumQty(order.m_cum), FIX::AvgPx(order.m_cum > 0 ? order.m_value / order.m_cum : 0.0));
    er.set(FIX::ClOrdID(order.m_clOrdId));
    er.set(FIX::Symbol(order.m_symbol));
    er.set(FIX::SecurityExchange(order.m_exchange));
    er.set(FIX::OrderQty(order.m_qty));
    if (!order.m_account.empty())
        er.set(FIX::Account(order.m_account));
    if (lastQty > 0.0) {
        er.set(FIX::LastQty(lastQty));
        er.set(FIX::LastPx(lastPx));
    }
    if (!text.empty())
        er.set(FIX::Text(text));
    try {
        FIX::Session::sendToTarget(er, order.m_session);
    } catch (const FIX::SessionNotFound &) {
    }
}

std::string CSimulatedExchange::CImpl::book(const FIX::SessionID &session, const FIX::FieldMap &order, bool fromList,
                                            bool &duplicate)
{
    auto open = std::make_shared<COpenOrder>();
    open->m_session = session;
    open->m_clOrdId = fieldOr(order, FIX::FIELD::ClOrdID);
    open->m_orderId = "X" + open->m_clOrdId;
    open->m_account = fieldOr(order, FIX::FIELD::Account);
    open->m_symbol = fieldOr(order, FIX::FIELD::Symbol);
    open->m_exchange = fieldOr(order, FIX::FIELD::SecurityExchange);
    const std::string side = fieldOr(order, FIX::FIELD::Side);
    open->m_side = side.empty() ? FIX::Side_BUY : side[0];
    open->m_qty = numberOr(order, FIX::FIELD::OrderQty, 0.0);
    double quote = 0.0;
    open->m_rejectText = check(order, quote);
    bool drop = false;
    COpenOrder known;
    {
        std::lock_guard<std::mutex> lock(m_bookMutex);
        const auto it = m_orders.find(open->m_clOrdId);
        duplicate = it != m_orders.end();
        if (duplicate) {
            ++m_duplicates;
            known = *it->second;
        } else {
            m_orders[open->m_clOrdId] = open;
            if (m_journal.is_open())
                m_journal << open->m_clOrdId << '\t' << open->m_side << '\t' << open->m_qty << '\t' << open->m_symbol
                          << '\t' << open->m_exchange << '\t' << open->m_account << '\t' << open->m_rejectText
                          << std::endl;
            CBookedOrder booked;
            booked.m_fromList = fromList;
            for (auto it = order.begin(); it != order.end(); ++it)
                booked.m_fields[it->getTag()] = it->getString();
            const int params = order.groupCount(FIX::FIELD::NoStrategyParameters);
            for (int i = 1; i <= params; ++i) {
                const FIX::FieldMap &param = order.getGroupRef(i, FIX::FIELD::NoStrategyParameters);
                booked.m_params[fieldOr(param, FIX::FIELD::StrategyParameterName)] =
                    fieldOr(param, FIX::FIELD::StrategyParameterValue);
            }
            m_bookedOrders.push_back(std::move(booked));
            drop = ++m_bookedThisRun == m_options.m_dropAfter;
        }
    }
    if (duplicate) {
        // Never booked twice. A resend (PossDupFlag) asks whether the order arrived: it is
        // answered with the order's state, which the lost first answer may never have told.
        known.m_session = session;
        reportStatus(known);
        return std::string();
    }
    if (drop) {
        // As if the process died between booking and answering.
        if (FIX::Session *live = FIX::Session::lookupSession(session))
            live->disconnect();
        return std::string();
    }
    if (!open->m_rejectText.empty()) {
        report(*open, FIX::ExecType_REJECTED, FIX::OrdStatus_REJECTED, 0.0, 0.0, open->m_rejectText);
        return open->m_rejectText;
    }
    const double limit = numberOr(order, FIX::FIELD::Price, 0.0);
    const bool buy = open->m_side == FIX::Side_BUY;
    open->m_fillPrice = limit <= 0.0 ? quote : buy ? std::min(limit, quote) : std::max(limit, quote);
    open->m_toFill = std::floor(open->m_qty * m_options.m_fillShare + 1e-9);
    open->m_partsLeft = m_options.m_fillParts;
    report(*open, FIX::ExecType_NEW, FIX::OrdStatus_NEW, 0.0, 0.0, std::string());
    if (open->m_toFill > 0.0) {
        std::lock_guard<std::mutex> lock(m_fillMutex);
        m_fills.push(CFillEvent{Clock::now() + std::chrono::milliseconds(m_options.m_fillDelayMs), open});
        m_fillWake.notify_one();
    }
    return std::string();
}

void CSimulatedExchange::CImpl::reportStatus(const COpenOrder &order)
{
    const char status = !order.m_rejectText.empty() ? FIX::OrdStatus_REJECTED
                        : order.m_cum >= order.m_qty ? FIX::OrdStatus_FILLED
                        : order.m_cum > 0.0          ? FIX::OrdStatus_PARTIALLY_FILLED
                                                     : FIX::OrdStatus_NEW;
    report(order, FIX::ExecType_ORDER_STATUS, status, 0.0, 0.0, order.m_rejectText);
}

void CSimulatedExchange::CImpl::answerStatus(const FIX::SessionID &session, const FIX::Message &request)
{
    COpenOrder order;
    {
        std::lock_guard<std::mutex> lock(m_bookMutex);
        const auto it = m_orders.find(fieldOr(request, FIX::FIELD::ClOrdID));
        if (it != m_orders.end()) {
            order = *it->second;
        } else {
            // Orders arrive in sequence, so one not here by now never came.
            order.m_clOrdId = fieldOr(request, FIX::FIELD::ClOrdID);
            order.m_orderId = "NONE";
            order.m_symbol = fieldOr(request, FIX::FIELD::Symbol);
            order.m_exchange = fieldOr(request, FIX::FIELD::SecurityExchange);
            order.m_rejectText = "unknown order";
        }
    }
    order.m_session = session;
    reportStatus(order);
}

void CSimulatedExchange::CImpl::runFills()
{
    std::unique_lock<std::mutex> lock(m_fillMutex);
    while (!m_stopping) {
        if (m_fills.empty()) {
            m_fillWake.wait(lock);
            continue;
        }
        const Clock::time_point at = m_fills.top().m_at;
        if (Clock::now() < at) {
            m_fillWake.wait_until(lock, at);
            continue;
        }
        std::shared_ptr<COpenOrder> order = m_fills.top().m_order;
        m_fills.pop();
        lock.unlock();
        COpenOrder now;
        double part = 0.0;
        {
            std::lock_guard<std::mutex> book(m_bookMutex);
            const double left = order->m_toFill - order->m_cum;
            part = order->m_partsLeft <= 1 ? left : std::floor(order->m_toFill / m_options.m_fillParts);
            order->m_cum += part;
            order->m_value += part * order->m_fillPrice;
            --order->m_partsLeft;
            now = *order;
        }
        const bool done = now.m_cum >= now.m_qty;
        report(now, done ? FIX::ExecType_FILL : FIX::ExecType_PARTIAL_FILL,
               done ? FIX::OrdStatus_FILLED : FIX::OrdStatus_PARTIALLY_FILLED, part, now.m_fillPrice, std::string());
        lock.lock();
        if (now.m_cum < now.m_toFill && !m_stopping)
            m_fills.push(CFillEvent{Clock::now() + std::chrono::milliseconds(m_options.m_fillDelayMs), order});
    }
}

void CSimulatedExchange::CImpl::fromApp(const FIX::Message &message, const FIX::SessionID &session) throw(
    FIX::FieldNotFound, FIX::IncorrectDataFormat, FIX::IncorrectTagValue, FIX::UnsupportedMessageType)
{
    ++m_received;
    const std::string type = message.getHeader().getField(FIX::FIELD::MsgType);
    bool duplicate = false;
    if (type == FIX::MsgType_NewOrderSingle) {
        book(session, message, false, duplicate);
        return;
    }
    if (type == FIX::MsgType_OrderStatusRequest) {
        answerStatus(session, message);
        return;
    }
    if (type != FIX::MsgType_NewOrderList)
        throw FIX::UnsupportedMessageType();
    FIX44::ListStatus status;
    status.set(FIX::ListID(fieldOr(message, FIX::FIELD::ListID)));
    status.set(FIX::ListStatusType(FIX::ListStatusType_ACK));
    status.set(FIX::NoRpts(1));
    status.set(FIX::RptSeq(1));
    status.set(FIX::ListOrderStatus(FIX::ListOrderStatus_EXECUTING));
    status.set(FIX::TotNoOrders(static_cast<int>(numberOr(message, FIX::FIELD::TotNoOrders, 0))));
    const int count = message.groupCount(FIX::FIELD::NoOrders);
    int answered = 0;
    for (int i = 1; i <= count; ++i) {
        const FIX::FieldMap &order = message.getGroupRef(i, FIX::FIELD::NoOrders);
        const std::string refusal = book(session, order, true, duplicate);
        if (duplicate)
            continue;
        FIX44::ListStatus::NoOrders entry;
        entry.set(FIX::ClOrdID(fieldOr(order, FIX::FIELD::ClOrdID)));
        entry.set(FIX::CumQty(0));
        entry.set(FIX::OrdStatus(refusal.empty() ? FIX::OrdStatus_NEW : FIX::OrdStatus_REJECTED));
        entry.set(FIX::CxlQty(0));
        entry.set(FIX::AvgPx(0));
        if (!refusal.empty())
            entry.set(FIX::Text(refusal));
        status.addGroup(entry);
        ++answered;
    }
    if (answered == 0)
        return;
    try {
        FIX::Session::sendToTarget(status, session);
    } catch (const FIX::SessionNotFound &) {
    }
}

CSimulatedExchange::CSimulatedExchange(std::string settingsPath, COptions options)
    : m_impl(std::make_unique<CImpl>(std::move(settingsPath), std::move(options)))
{
}

CSimulatedExchange::~CSimulatedExchange() = default;

void CSimulatedExchange::setInstrument(const std::string &exchange, const std::string &code, CInstrument instrument)
{
    m_impl->m_instruments[exchange + "|" + code] = instrument;
}

bool CSimulatedExchange::start(std::string *error)
{
    return m_impl->start(error);
}

void CSimulatedExchange::stop()
{
    m_impl->stop();
}

bool CSimulatedExchange::isLoggedOn() const
{
    return m_impl->m_loggedOn > 0;
}

size_t CSimulatedExchange::bookedCount() const
{
    std::lock_guard<std::mutex> lock(m_impl->m_bookMutex);
    return m_impl->m_orders.size();
}

std::vector<CSimulatedExchange::CBookedOrder> CSimulatedExchange::bookedOrders() const
{
    std::lock_guard<std::mutex> lock(m_impl->m_bookMutex);
    return m_impl->m_bookedOrders;
}

size_t CSimulatedExchange::duplicatesRefused() const
{
    std::lock_guard<std::mutex> lock(m_impl->m_bookMutex);
    return m_impl->m_duplicates;
}

long long CSimulatedExchange::messagesSent() const
{
    return m_impl->m_sent;
}

long long CSimulatedExchange::messagesReceived() const
{
    return m_impl->m_received;
}

} // namespace TC
