#include "CPlaceCommandsCall.h"

#include "CallBson.h"

namespace TC {

bson::BSONObj CPlaceCommandsCall::toBson() const
{
    bson::BSONObjBuilder b;
    b.append("call", "placeCommands");
    b.append("traderType", static_cast<int>(m_traderType));
    b.append("hedgeType", static_cast<int>(m_hedgeType));
    b.append("specBtnBarType", static_cast<int>(m_specBtnBarType));
    appendOrders(b, "orders", m_orders);
    {
        bson::BSONObjBuilder values(b.subobjStart("valueMap"));
        for (const auto &entry : m_valueMap)
            ttservice::bsonAppendDouble(values, entry.first.c_str(), entry.second);
        values.done();
    }
    b.append("stopLossType", static_cast<int>(m_stopLossType));
    b.append("firstFlag", m_firstFlag);
    b.append("secondFlag", m_secondFlag);
    b.append("createPortfolio", m_createPortfolio);
    b.append("resultCallback", !m_resultCallback.empty());
    b.append("hedgeBson", m_hedgeBson);
    b.append("commandText", m_commandText);
    b.append("tradePlatform", static_cast<int>(m_tradePlatform));
    b.append("paramString", m_paramString);
    b.append("limitedPriceType", static_cast<int>(m_limitedPriceType));
    b.append("basketName", m_basketName);
    b.append("remark", m_remark.toStdString());
    b.append("strategyType", static_cast<int>(m_strategyType));
    b.append("firstExtraFlag", m_firstExtraFlag);
    b.append("secondExtraFlag", m_secondExtraFlag);
    b.append("extraInt", m_extraInt);
    b.append("extraText", m_extraText);
    {
        bson::BSONObjBuilder pairs(b.subobjStart("pairMap"));
        for (auto it = m_pairMap.constBegin(); it != m_pairMap.constEnd(); ++it) {
            bson::BSONArrayBuilder pair(pairs.subarrayStart(it.key().toStdString()));
            pair.append(it.value().first);
            pair.append(it.value().second);
            pair.done();
        }
        pairs.done();
    }
    b.append("etfHedgeStatus", static_cast<int>(m_etfHedgeStatus));
    b.append("commandLog", m_commandLog);
    b.append("extraBson", m_extraBson);
    return b.obj();
}

std::string CPlaceCommandsCall::jsonString() const
{
    return toBson().jsonString();
}

} // namespace TC
