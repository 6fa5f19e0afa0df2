#include "CMsgService.h"

#include <utility>

namespace TC {

void CMsgService::showMsg(QString text, EMsgTypeDef type, ttservice::MsgLevel level, bool showPopup,
                          bool playSound, QString extra)
{
    const CShowMsgCall call{std::move(text), type, level, showPopup, playSound, std::move(extra)};
    m_calls.push_back(call);
    // The observer gets its own copy: it may show another message, which grows the record.
    if (m_observer)
        m_observer(call);
}

void CMsgService::reset()
{
    m_calls.clear();
    m_observer = nullptr;
}

CMsgService *getMsgService()
{
    static CMsgService service;
    return &service;
}

} // namespace TC
