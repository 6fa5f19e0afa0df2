#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace TC {

// A simulated exchange on FIX 4.4: a QuickFIX acceptor configured by a standard settings file
// (SocketAcceptPort, SenderCompID, TargetCompID, FileStorePath, ...). It books NewOrderSingle
// (35=D) and NewOrderList (35=E; answered with one ListStatus per message as well), acknowledges
// each order, and after a short delay fills it at the quote in one or several parts. It rejects:
//   - a code it does not list, when it lists any (setInstrument);
//   - a limit price more than the instrument's limit ratio away from its quote;
//   - a buy whose quantity is not a whole number of the instrument's lot.
// An order id it has booked is never booked again, however often it arrives (resends with
// PossDupFlag, a client's retry): with a booking journal the rule holds over restarts too.
// Usable in process (the demo, tests) and as the program basket-simexchange.
class CSimulatedExchange
{
public:
    struct CInstrument
    {
        double m_quote = 0.0;
        double m_lot = 100.0;      // a buy's quantity is a whole number of these
        double m_limitRatio = 0.1; // a limit price at most this far from the quote, as a share of it
    };
    struct COptions
    {
        int m_fillDelayMs = 20;     // from the acknowledgement to the first fill, and between parts
        int m_fillParts = 1;        // a fill comes in this many parts (at least 1)
        double m_fillShare = 1.0;   // this share of each order is ever filled (0: none, ack only)
        std::string m_journalPath;  // booked order ids, one a line; empty: kept in memory only
        size_t m_dropAfter = 0;     // a drill: drops the connection after booking this many orders (0: never)
    };
    // What one booked order asked for, field by field as it arrived (tag -> value), and its
    // strategy parameters as name -> value.
    struct CBookedOrder
    {
        std::map<int, std::string> m_fields;
        std::map<std::string, std::string> m_params;
        bool m_fromList = false;
    };

    CSimulatedExchange(std::string settingsPath, COptions options);
    ~CSimulatedExchange();

    // Lists an instrument under its exchange code (207, e.g. "XSHG") and code (55).
    void setInstrument(const std::string &exchange, const std::string &code, CInstrument instrument);

    // Opens the port; false with the reason when it cannot.
    bool start(std::string *error = nullptr);
    // Closes every session at once, the way a process that dies would, and stops filling.
    void stop();
    bool isLoggedOn() const;

    // Bookings so far (in this run and, with a journal, earlier runs).
    size_t bookedCount() const;
    // Orders booked in this run, in the order booked.
    std::vector<CBookedOrder> bookedOrders() const;
    // How many times an order with this id arrived again and was not booked.
    size_t duplicatesRefused() const;
    long long messagesSent() const;
    long long messagesReceived() const;

private:
    class CImpl;
    std::unique_ptr<CImpl> m_impl;
};

} // namespace TC
