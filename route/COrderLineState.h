#pragma once

#include <QMetaType>

#include <string>
#include <vector>

namespace TC {

// Where one order line stands at the counterparty, as its reports tell.
enum class EOrderLineStatus : int {
    Sent = 0,         // handed to the session; nothing heard back yet
    Unknown = 1,      // the connection dropped before an answer: it may or may not have arrived
    Acknowledged = 2, // booked by the counterparty
    PartlyFilled = 3,
    Filled = 4,
    Rejected = 5,     // m_text says why
    Cancelled = 6,
};

// One order line as it travels: who sent it, what was asked, what came back.
struct COrderLineState
{
    std::string m_clOrdId;
    std::string m_listId;     // the basket's list id; each press has its own
    int m_lineNo = 0;         // 1-based, in screen order
    std::string m_accountKey;
    std::string m_market;
    std::string m_code;
    std::string m_lineKey;    // CCodeOrderParam::getKey of the line sent
    std::string m_commandKey; // the instruction the line executes; empty for a plain order
    bool m_buy = true;
    double m_orderQty = 0.0;
    double m_price = 0.0;     // 0 for a market order
    EOrderLineStatus m_status = EOrderLineStatus::Sent;
    double m_cumQty = 0.0;
    double m_avgPx = 0.0;
    std::string m_text;       // the counterparty's reason of a reject

    bool isFinal() const
    {
        return m_status == EOrderLineStatus::Filled || m_status == EOrderLineStatus::Rejected ||
               m_status == EOrderLineStatus::Cancelled;
    }
};

// A word for the status, as the order pane and the log show it.
const char *orderLineStatusText(EOrderLineStatus status);

} // namespace TC

Q_DECLARE_METATYPE(std::vector<TC::COrderLineState>)
