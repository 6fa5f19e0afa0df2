#pragma once

#include "BasketServicesExport.h"
#include "PanelEnums.h"
#include "TradeEnums.h"

#include <QString>

#include <functional>
#include <vector>

namespace TC {

// The client's message service: shows a message to the user in the client's message area or as
// a pop-up, by the user's message settings.
//
// Here every message is recorded and nothing is shown; a demo host may watch the messages
// through the observer. User-interface thread only.
class BASKET_SERVICES_EXPORT CMsgService final
{
public:
    // One showMsg call with its arguments.
    struct CShowMsgCall
    {
        QString m_text;
        EMsgTypeDef m_type = MSG_TYPE_NONE;
        ttservice::MsgLevel m_level = ttservice::MSG_LEVEL_NORMAL;
        bool m_showPopup = false; // first flag: the first field of the type's CMsgSetting
        bool m_playSound = false; // second flag: the second field of the type's CMsgSetting
        QString m_extra;          // the last text; empty on the panel's paths
    };

    // Shows text as a message of this type and level. The two flags are those of the user's
    // message setting of the type (or constants where the caller decides); the last text is
    // passed on to the client's message centre.
    void showMsg(QString text, EMsgTypeDef type, ttservice::MsgLevel level, bool showPopup, bool playSound,
                 QString extra);

    // --- control surface (tests and the demo host) ---
    const std::vector<CShowMsgCall> &shownMessages() const { return m_calls; }
    // Called after each recorded message; empty to stop watching.
    void setObserver(std::function<void(const CShowMsgCall &)> observer) { m_observer = std::move(observer); }
    // Forgets the recorded messages and the observer.
    void reset();

private:
    friend CMsgService *getMsgService();
    CMsgService() = default;

    std::vector<CShowMsgCall> m_calls;
    std::function<void(const CShowMsgCall &)> m_observer;
};

// The message service of the client; never null.
CMsgService *getMsgService();

} // namespace TC
