#pragma once

#include "COrderLineState.h"
#include "IOrderRoute.h"

#include <QObject>

#include <memory>
#include <string>
#include <vector>

namespace TC {

// The trade service's orders over FIX 4.4: a QuickFIX initiator configured by a standard
// QuickFIX settings file (one session: SenderCompID, TargetCompID, SocketConnectHost/Port,
// HeartBtInt, FileStorePath, FileLogPath, ...). Two keys of its own in the session:
//   BasketAsList=Y       a basket leaves as NewOrderList (35=E) in screen order; N: one
//                        NewOrderSingle (35=D) per line
//   ListFragmentSize=500 lines per NewOrderList message of a long list
// ClOrdIDs come from a counter kept in FileStorePath, so that they stay unique over restarts.
//
// routeCommands / routeTasks (user-interface thread) hand the lines to a sending thread and
// return at once. Execution reports and list status come in on the session's thread; the lines'
// new states reach linesChanged on the thread this object lives in (within 10 ms), together with
// the traded volume of an instruction's lines in CTradeClient.
class CFixRoute : public QObject, public IOrderRoute
{
    Q_OBJECT
public:
    explicit CFixRoute(std::string settingsPath, QObject *parent = nullptr);
    ~CFixRoute() override;

    // Starts the initiator (it connects and logs on in the background); false with the reason
    // when the settings cannot be used.
    bool start(std::string *error = nullptr);
    // Logs out and stops; lines not answered by then stay as they are.
    void stop();
    bool isLoggedOn() const;

    bool routeCommands(const CPlaceCommandsCall &call) override;
    bool routeTasks(const CPlaceTasksCall &call) override;

    // Every line sent since start, in the order sent, in its latest state.
    std::vector<COrderLineState> lines() const;
    // Application messages sent and received since start.
    long long messagesSent() const;
    long long messagesReceived() const;

Q_SIGNALS:
    // Lines whose state changed, each once, in their latest state.
    void linesChanged(const std::vector<TC::COrderLineState> &lines);
    // The session logged on (true) or dropped (false). On a drop, lines sent and not yet
    // answered turn Unknown: they are in linesChanged.
    void connectionChanged(bool loggedOn);

private:
    void deliverPending();

    class CImpl;
    std::unique_ptr<CImpl> m_impl;
};

} // namespace TC
