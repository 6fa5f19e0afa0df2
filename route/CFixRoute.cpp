#include "CFixRoute.h"

#include "CClOrdIdSource.h"
#include "CTradeClient.h"
#include "FixDictionary.h"
#include "OperationSide.h"

#include <quickfix/Application.h>
#include <quickfix/FileLog.h>
#include <quickfix/FileStore.h>
#include <quickfix/Session.h>
#include <quickfix/SessionSettings.h>
#include <quickfix/SocketInitiator.h>
#include <quickfix/fix44/NewOrderList.h>
#include <quickfix/fix44/NewOrderSingle.h>
#include <quickfix/fix44/OrderStatusRequest.h>

#include <QDir>
#include <QTimer>

#include <atomic>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>
#include <unordered_map>

namespace TC {

using ttservice::CCodeOrderParam;
using ttservice::EOperationType;

namespace {

// One press: the lines to send and what they belong to.
struct CJob
{
    std::vector<CCodeOrderParam> m_orders;
    std::string m_paramString;
    std::string m_commandKey;
    std::vector<size_t> m_statusQueries; // lines whose state is asked for
};

// How far a status is along the way; a report never moves a line back (a resent old report
// may arrive after a newer one).
int progress(EOrderLineStatus status)
{
    switch (status) {
    case EOrderLineStatus::Sent:
    case EOrderLineStatus::Unknown: return 0;
    case EOrderLineStatus::Acknowledged: return 1;
    case EOrderLineStatus::PartlyFilled: return 2;
    default: return 3;
    }
}

bool isShortSell(EOperationType op)
{
    return op == ttservice::OT_SHORT_SELL || op == ttservice::OT_SPECIAL_SHORT_SELL;
}

bool isMoneyLine(EOperationType op)
{
    return op == ttservice::OT_MONEY || op == ttservice::OT_MONEY_TRANSFER;
}

// 'O' open, 'C' close for a futures operation; 0 for anything else.
char positionEffect(EOperationType op)
{
    switch (op) {
    case ttservice::OT_OPEN_LONG:
    case ttservice::OT_OPEN_SHORT: return 'O';
    case ttservice::OT_CLOSE_LONG_TODAY:
    case ttservice::OT_CLOSE_LONG_YESTERDAY:
    case ttservice::OT_CLOSE_SHORT_TODAY:
    case ttservice::OT_CLOSE_SHORT_YESTERDAY:
    case ttservice::OT_CLOSE_LONG:
    case ttservice::OT_CLOSE_SHORT: return 'C';
    default: return 0;
    }
}

// CashMargin (544): '2' opens a credit position, '3' closes one, '1' a plain order of a credit
// account; 0 leaves the field out.
char cashMargin(const CCodeOrderParam &line)
{
    switch (line.m_operationType) {
    case ttservice::OT_MARGIN_BUY:
    case ttservice::OT_SHORT_SELL:
    case ttservice::OT_SPECIAL_SHORT_SELL: return '2';
    case ttservice::OT_SELL_TO_REPAY:
    case ttservice::OT_BUY_TO_RETURN:
    case ttservice::OT_SPECIAL_BUY_TO_RETURN: return '3';
    default: return line.m_account && line.m_account->m_accountType == 3 ? '1' : 0;
    }
}

std::vector<std::string> splitText(const std::string &text, char separator)
{
    std::vector<std::string> parts;
    size_t from = 0;
    for (;;) {
        const size_t at = text.find(separator, from);
        parts.push_back(text.substr(from, at == std::string::npos ? std::string::npos : at - from));
        if (at == std::string::npos)
            return parts;
        from = at + 1;
    }
}

// The algorithm text of each line ("algo=NAME;code=...;start=...;key=value..." joined by '@'):
// the algorithm goes to TargetStrategy, every other setting but the code to a strategy parameter.
void fillAlgorithm(FIX::FieldMap &entry, const std::string &lineParams)
{
    if (lineParams.empty())
        return;
    for (const std::string &pair : splitText(lineParams, ';')) {
        const size_t eq = pair.find('=');
        if (eq == std::string::npos || eq == 0)
            continue;
        const std::string key = pair.substr(0, eq);
        const std::string value = pair.substr(eq + 1);
        if (key == "algo") {
            entry.setField(FIX::FIELD::TargetStrategy, value);
        } else if (key != "code") {
            FIX::Group param(FIX::FIELD::NoStrategyParameters, FIX::FIELD::StrategyParameterName);
            param.setField(FIX::StrategyParameterName(key));
            param.setField(FIX::StrategyParameterType(14)); // text
            param.setField(FIX::StrategyParameterValue(value));
            entry.addGroup(FIX::FIELD::NoStrategyParameters, param);
        }
    }
}

void fillLine(FIX::FieldMap &entry, const CCodeOrderParam &line, const std::string &lineParams)
{
    const EOperationType op = line.m_operationType;
    const std::string account = !line.m_account ? std::string()
                                : line.m_account->m_accountId.empty() ? line.m_account->m_accountKey
                                                                       : line.m_account->m_accountId;
    entry.setField(FIX::Account(account));
    entry.setField(FIX::Symbol(line.m_stockInfo.m_stockCode));
    entry.setField(FIX::SecurityExchange(exchangeOfMarket(line.m_stockInfo.m_market)));
    entry.setField(FIX::Side(isShortSell(op) ? FIX::Side_SELL_SHORT
                             : ttservice::isBuyOperation(op) ? FIX::Side_BUY : FIX::Side_SELL));
    if (isMoneyLine(op))
        entry.setField(FIX::CashOrderQty(ttservice::hasValue(line.m_money) ? line.m_money : 0.0));
    else
        entry.setField(FIX::OrderQty(static_cast<double>(line.m_volume)));
    // The price the trader saw goes as a limit; a line without one is a market order.
    if (ttservice::hasValue(line.m_price) && line.m_price > 0.0) {
        entry.setField(FIX::OrdType(FIX::OrdType_LIMIT));
        entry.setField(FIX::Price(line.m_price));
    } else {
        entry.setField(FIX::OrdType(FIX::OrdType_MARKET));
    }
    entry.setField(FIX::TimeInForce(FIX::TimeInForce_DAY));
    if (const char effect = positionEffect(op))
        entry.setField(FIX::PositionEffect(effect));
    if (const char margin = cashMargin(line))
        entry.setField(FIX::CashMargin(margin));
    fillAlgorithm(entry, lineParams);
}

EOrderLineStatus statusOf(char ordStatus, EOrderLineStatus current)
{
    switch (ordStatus) {
    case FIX::OrdStatus_NEW:
    case FIX::OrdStatus_PENDING_NEW: return EOrderLineStatus::Acknowledged;
    case FIX::OrdStatus_PARTIALLY_FILLED: return EOrderLineStatus::PartlyFilled;
    case FIX::OrdStatus_FILLED: return EOrderLineStatus::Filled;
    case FIX::OrdStatus_REJECTED: return EOrderLineStatus::Rejected;
    case FIX::OrdStatus_CANCELED:
    case FIX::OrdStatus_EXPIRED:
    case FIX::OrdStatus_DONE_FOR_DAY: return EOrderLineStatus::Cancelled;
    default: return current;
    }
}

std::string fieldOr(const FIX::FieldMap &map, int tag, const std::string &fallback = std::string())
{
    return map.isSetField(tag) ? map.getField(tag) : fallback;
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

class CFixRoute::CImpl : public FIX::Application
{
public:
    CImpl(CFixRoute *route, std::string settingsPath)
        : m_route(route), m_settingsPath(std::move(settingsPath))
    {
    }
    ~CImpl() override { stop(); }

    bool start(std::string *error);
    void stop();
    void enqueue(CJob job);

    void onCreate(const FIX::SessionID &) override {}
    void onLogon(const FIX::SessionID &) override;
    void onLogout(const FIX::SessionID &) override;
    void toAdmin(FIX::Message &, const FIX::SessionID &) override {}
    void toApp(FIX::Message &, const FIX::SessionID &) throw(FIX::DoNotSend) override { ++m_sent; }
    void fromAdmin(const FIX::Message &, const FIX::SessionID &) throw(
        FIX::FieldNotFound, FIX::IncorrectDataFormat, FIX::IncorrectTagValue, FIX::RejectLogon) override
    {
    }
    void fromApp(const FIX::Message &message, const FIX::SessionID &) throw(
        FIX::FieldNotFound, FIX::IncorrectDataFormat, FIX::IncorrectTagValue, FIX::UnsupportedMessageType) override;

    // Under m_linesMutex: the line has news for the host.
    void markLocked(size_t index);
    void update(const FIX::FieldMap &report);
    void run();
    void send(CJob &job);
    bool sendMessage(FIX::Message &message);

    CFixRoute *m_route;
    std::string m_settingsPath;
    std::unique_ptr<FIX::SessionSettings> m_settings;
    std::unique_ptr<FIX::MessageStoreFactory> m_storeFactory;
    std::unique_ptr<FIX::LogFactory> m_logFactory;
    std::unique_ptr<FIX::SocketInitiator> m_initiator;
    FIX::SessionID m_sessionId;
    bool m_asList = true;
    int m_fragmentSize = 500;
    std::unique_ptr<CClOrdIdSource> m_ids;
    std::atomic<bool> m_loggedOn{false};
    std::atomic<long long> m_sent{0};
    std::atomic<long long> m_received{0};

    std::thread m_worker;
    std::mutex m_queueMutex;
    std::condition_variable m_queueWake;
    std::deque<CJob> m_jobs;
    bool m_stopping = false;

    mutable std::mutex m_linesMutex;
    std::vector<COrderLineState> m_lines;
    std::unordered_map<std::string, size_t> m_byClOrdId;
    std::vector<size_t> m_pending;
    std::vector<char> m_isPending;
    bool m_connectionNews = false;
    // Takes the news to the route's own thread. Polled rather than posted: the session's
    // threads then share nothing with Qt's event queues, only m_linesMutex.
    QTimer *m_delivery = nullptr;

    // User-interface thread only: the traded volume already added to each line's instruction.
    std::unordered_map<std::string, double> m_credited;
};

bool CFixRoute::CImpl::start(std::string *error)
{
    try {
        m_settings = std::make_unique<FIX::SessionSettings>(m_settingsPath);
        ownDictionary(*m_settings);
        const std::set<FIX::SessionID> sessions = m_settings->getSessions();
        if (sessions.size() != 1)
            throw FIX::ConfigError("the route wants exactly one session in " + m_settingsPath);
        m_sessionId = *sessions.begin();
        const FIX::Dictionary &session = m_settings->get(m_sessionId);
        if (session.has("BasketAsList"))
            m_asList = session.getBool("BasketAsList");
        if (session.has("ListFragmentSize"))
            m_fragmentSize = std::max(1, session.getInt("ListFragmentSize"));
        std::string counter;
        if (session.has(FIX::FILE_STORE_PATH)) {
            const std::string folder = session.getString(FIX::FILE_STORE_PATH);
            QDir().mkpath(QString::fromStdString(folder));
            m_storeFactory = std::make_unique<FIX::FileStoreFactory>(*m_settings);
            counter = folder + "/" + m_sessionId.getSenderCompID().getString() + ".clordid";
        } else {
            m_storeFactory = std::make_unique<FIX::MemoryStoreFactory>();
        }
        m_ids = std::make_unique<CClOrdIdSource>(counter);
        if (session.has(FIX::FILE_LOG_PATH)) {
            m_logFactory = std::make_unique<FIX::FileLogFactory>(*m_settings);
            m_initiator = std::make_unique<FIX::SocketInitiator>(*this, *m_storeFactory, *m_settings, *m_logFactory);
        } else {
            m_initiator = std::make_unique<FIX::SocketInitiator>(*this, *m_storeFactory, *m_settings);
        }
        useBasketDictionary(*m_settings, FIX::Session::lookupSession(m_sessionId));
        m_stopping = false;
        m_worker = std::thread([this] { run(); });
        m_initiator->start();
        return true;
    } catch (const std::exception &e) {
        if (error)
            *error = e.what();
        stop();
        return false;
    }
}

void CFixRoute::CImpl::stop()
{
    {
        std::lock_guard<std::mutex> lock(m_queueMutex);
        m_stopping = true;
    }
    m_queueWake.notify_all();
    if (m_worker.joinable())
        m_worker.join();
    if (m_initiator) {
        m_initiator->stop();
        m_initiator.reset();
    }
    m_loggedOn = false;
}

void CFixRoute::CImpl::enqueue(CJob job)
{
    {
        std::lock_guard<std::mutex> lock(m_queueMutex);
        m_jobs.push_back(std::move(job));
    }
    m_queueWake.notify_one();
}

void CFixRoute::CImpl::run()
{
    for (;;) {
        CJob job;
        {
            std::unique_lock<std::mutex> lock(m_queueMutex);
            m_queueWake.wait(lock, [this] { return m_stopping || !m_jobs.empty(); });
            if (m_jobs.empty())
                return;
            job = std::move(m_jobs.front());
            m_jobs.pop_front();
        }
        send(job);
    }
}

bool CFixRoute::CImpl::sendMessage(FIX::Message &message)
{
    try {
        // While the session is down the message is kept in the store and goes out on the
        // resend that follows the next logon.
        return FIX::Session::sendToTarget(message, m_sessionId);
    } catch (const FIX::SessionNotFound &) {
        return false;
    }
}

void CFixRoute::CImpl::send(CJob &job)
{
    if (!job.m_statusQueries.empty()) {
        for (size_t index : job.m_statusQueries) {
            FIX44::OrderStatusRequest request;
            {
                std::lock_guard<std::mutex> lock(m_linesMutex);
                const COrderLineState &line = m_lines[index];
                if (line.m_status != EOrderLineStatus::Unknown)
                    continue;
                request.set(FIX::ClOrdID(line.m_clOrdId));
                request.set(FIX::Side(line.m_buy ? FIX::Side_BUY : FIX::Side_SELL));
                request.set(FIX::Symbol(line.m_code));
                request.set(FIX::SecurityExchange(exchangeOfMarket(line.m_market)));
            }
            sendMessage(request);
        }
        return;
    }
    const std::vector<CCodeOrderParam> &orders = job.m_orders;
    const std::string listId = m_ids->next("L");
    const std::vector<std::string> params = splitText(job.m_paramString, '@');
    auto paramsOf = [&](size_t i) {
        return params.size() == orders.size() ? params[i] : params.front();
    };
    std::vector<std::string> ids(orders.size());
    {
        std::lock_guard<std::mutex> lock(m_linesMutex);
        for (size_t i = 0; i < orders.size(); ++i) {
            const CCodeOrderParam &line = orders[i];
            COrderLineState state;
            state.m_clOrdId = ids[i] = m_ids->next("B");
            state.m_listId = listId;
            state.m_lineNo = static_cast<int>(i) + 1;
            state.m_accountKey = line.m_account ? line.m_account->m_accountKey : std::string();
            state.m_market = line.m_stockInfo.m_market;
            state.m_code = line.m_stockInfo.m_stockCode;
            state.m_lineKey = line.getKey();
            state.m_commandKey = job.m_commandKey;
            state.m_buy = ttservice::isBuyOperation(line.m_operationType);
            state.m_orderQty = isMoneyLine(line.m_operationType) ? line.m_money : static_cast<double>(line.m_volume);
            state.m_price = ttservice::hasValue(line.m_price) && line.m_price > 0.0 ? line.m_price : 0.0;
            m_byClOrdId[state.m_clOrdId] = m_lines.size();
            m_lines.push_back(std::move(state));
            m_isPending.push_back(0);
            markLocked(m_lines.size() - 1);
        }
    }
    const int total = static_cast<int>(orders.size());
    if (!m_asList) {
        for (size_t i = 0; i < orders.size(); ++i) {
            FIX44::NewOrderSingle single;
            single.set(FIX::ClOrdID(ids[i]));
            single.set(FIX::TransactTime());
            fillLine(single, orders[i], paramsOf(i));
            sendMessage(single);
        }
        return;
    }
    for (int from = 0; from < total; from += m_fragmentSize) {
        const int to = std::min(total, from + m_fragmentSize);
        FIX44::NewOrderList list;
        list.set(FIX::ListID(listId));
        list.set(FIX::BidType(FIX::BidType_NO_BIDDING_PROCESS));
        list.set(FIX::TotNoOrders(total));
        list.set(FIX::LastFragment(to == total));
        for (int i = from; i < to; ++i) {
            FIX44::NewOrderList::NoOrders entry;
            entry.set(FIX::ClOrdID(ids[i]));
            entry.set(FIX::ListSeqNo(i + 1));
            fillLine(entry, orders[i], paramsOf(i));
            list.addGroup(entry);
        }
        sendMessage(list);
    }
}

void CFixRoute::CImpl::markLocked(size_t index)
{
    if (!m_isPending[index]) {
        m_isPending[index] = 1;
        m_pending.push_back(index);
    }
}

void CFixRoute::CImpl::onLogon(const FIX::SessionID &)
{
    m_loggedOn = true;
    std::lock_guard<std::mutex> lock(m_linesMutex);
    m_connectionNews = true;
    // Lines left unknown by a drop: the resend after this logon delivers what the counterparty
    // missed, but an order it took in just before the drop may have lost its answer. Asking
    // after each settles every line; the questions leave after the resent orders.
    CJob query;
    for (size_t i = 0; i < m_lines.size(); ++i)
        if (m_lines[i].m_status == EOrderLineStatus::Unknown)
            query.m_statusQueries.push_back(i);
    if (!query.m_statusQueries.empty())
        enqueue(std::move(query));
}

void CFixRoute::CImpl::onLogout(const FIX::SessionID &)
{
    m_loggedOn = false;
    std::lock_guard<std::mutex> lock(m_linesMutex);
    m_connectionNews = true;
    // What was sent and not answered may or may not have arrived: the trader is told so, and the
    // resend after the next logon settles it.
    for (size_t i = 0; i < m_lines.size(); ++i) {
        if (m_lines[i].m_status == EOrderLineStatus::Sent) {
            m_lines[i].m_status = EOrderLineStatus::Unknown;
            markLocked(i);
        }
    }
}

void CFixRoute::CImpl::update(const FIX::FieldMap &report)
{
    const std::string clOrdId = fieldOr(report, FIX::FIELD::ClOrdID);
    const auto it = m_byClOrdId.find(clOrdId);
    if (it == m_byClOrdId.end())
        return;
    COrderLineState &line = m_lines[it->second];
    const std::string ordStatus = fieldOr(report, FIX::FIELD::OrdStatus);
    const EOrderLineStatus status = ordStatus.empty() ? line.m_status : statusOf(ordStatus[0], line.m_status);
    const double cum = numberOr(report, FIX::FIELD::CumQty, line.m_cumQty);
    if (progress(status) < progress(line.m_status) || (line.isFinal() && status != line.m_status) ||
        cum < line.m_cumQty)
        return;
    // The same news twice (an order's own report and its list's status, a resent report) is
    // delivered once.
    if (status == line.m_status && cum == line.m_cumQty)
        return;
    line.m_status = status;
    if (cum > line.m_cumQty) {
        line.m_cumQty = cum;
        line.m_avgPx = numberOr(report, FIX::FIELD::AvgPx, line.m_avgPx);
    }
    if (status == EOrderLineStatus::Rejected)
        line.m_text = fieldOr(report, FIX::FIELD::Text, fieldOr(report, FIX::FIELD::ListStatusText));
    markLocked(it->second);
}

void CFixRoute::CImpl::fromApp(const FIX::Message &message, const FIX::SessionID &) throw(
    FIX::FieldNotFound, FIX::IncorrectDataFormat, FIX::IncorrectTagValue, FIX::UnsupportedMessageType)
{
    ++m_received;
    const std::string type = message.getHeader().getField(FIX::FIELD::MsgType);
    std::lock_guard<std::mutex> lock(m_linesMutex);
    if (type == FIX::MsgType_ExecutionReport) {
        update(message);
    } else if (type == FIX::MsgType_ListStatus) {
        const int count = message.groupCount(FIX::FIELD::NoOrders);
        for (int i = 1; i <= count; ++i)
            update(message.getGroupRef(i, FIX::FIELD::NoOrders));
    }
}

CFixRoute::CFixRoute(std::string settingsPath, QObject *parent)
    : QObject(parent), m_impl(std::make_unique<CImpl>(this, std::move(settingsPath)))
{
    qRegisterMetaType<std::vector<TC::COrderLineState>>();
    m_impl->m_delivery = new QTimer(this);
    m_impl->m_delivery->setInterval(10);
    connect(m_impl->m_delivery, &QTimer::timeout, this, &CFixRoute::deliverPending);
}

CFixRoute::~CFixRoute()
{
    m_impl->stop();
}

bool CFixRoute::start(std::string *error)
{
    if (!m_impl->start(error))
        return false;
    m_impl->m_delivery->start();
    return true;
}

void CFixRoute::stop()
{
    m_impl->stop();
    m_impl->m_delivery->stop();
    deliverPending();
}

bool CFixRoute::isLoggedOn() const
{
    return m_impl->m_loggedOn;
}

bool CFixRoute::routeCommands(const CPlaceCommandsCall &call)
{
    if (!m_impl->m_loggedOn || !m_impl->m_worker.joinable())
        return false;
    if (!call.m_orders.empty())
        m_impl->enqueue(CJob{call.m_orders, call.m_paramString, std::string(), {}});
    return true;
}

bool CFixRoute::routeTasks(const CPlaceTasksCall &call)
{
    if (!m_impl->m_loggedOn || !m_impl->m_worker.joinable())
        return false;
    if (!call.m_orders.empty())
        m_impl->enqueue(CJob{call.m_orders, call.m_paramString, call.m_command ? call.m_command->m_commandKey : "", {}});
    return true;
}

std::vector<COrderLineState> CFixRoute::lines() const
{
    std::lock_guard<std::mutex> lock(m_impl->m_linesMutex);
    return m_impl->m_lines;
}

long long CFixRoute::messagesSent() const
{
    return m_impl->m_sent;
}

long long CFixRoute::messagesReceived() const
{
    return m_impl->m_received;
}

void CFixRoute::deliverPending()
{
    std::vector<COrderLineState> changed;
    bool connectionNews = false;
    {
        std::lock_guard<std::mutex> lock(m_impl->m_linesMutex);
        changed.reserve(m_impl->m_pending.size());
        for (size_t index : m_impl->m_pending) {
            m_impl->m_isPending[index] = 0;
            changed.push_back(m_impl->m_lines[index]);
        }
        m_impl->m_pending.clear();
        connectionNews = m_impl->m_connectionNews;
        m_impl->m_connectionNews = false;
    }
    for (const COrderLineState &line : changed) {
        if (line.m_commandKey.empty())
            continue;
        double &credited = m_impl->m_credited[line.m_clOrdId];
        if (line.m_cumQty > credited) {
            CTradeClient::instance()->addTradedVolume(line.m_commandKey, line.m_lineKey, line.m_cumQty - credited);
            credited = line.m_cumQty;
        }
    }
    if (connectionNews)
        Q_EMIT connectionChanged(isLoggedOn());
    if (!changed.empty())
        Q_EMIT linesChanged(changed);
}

} // namespace TC
