#include "CPlaceTasksCall.h"

#include "CallBson.h"

namespace TC {

bson::BSONObj CPlaceTasksCall::toBson() const
{
    bson::BSONObjBuilder b;
    b.append("call", "placeTasks");
    b.append("traderType", static_cast<int>(m_traderType));
    b.append("hedgeType", static_cast<int>(m_hedgeType));
    if (m_command)
        b.append("command", m_command->toBson());
    else
        b.appendNull("command");
    appendOrders(b, "orders", m_orders);
    b.append("stopLossType", static_cast<int>(m_stopLossType));
    b.append("flag", m_flag);
    b.append("text", m_text);
    b.append("callback", !m_callback.empty());
    b.append("intValue", m_intValue);
    b.append("paramString", m_paramString);
    if (m_autoPrice)
        b.append("autoPrice", m_autoPrice->m_tickOffset);
    else
        b.appendNull("autoPrice");
    b.append("extraText", m_extraText);
    b.append("subCommandId", m_subCommandId);
    return b.obj();
}

std::string CPlaceTasksCall::jsonString() const
{
    return toBson().jsonString();
}

} // namespace TC
