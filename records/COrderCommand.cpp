#include "COrderCommand.h"

namespace ttservice {

void COrderCommand::appendElements(bson::BSONObjBuilder &builder) const
{
    builder.append("ck", m_commandKey);
    builder.append("tr", static_cast<int>(m_traderType));
    builder.append("ht", static_cast<int>(m_hedgeType));
    builder.append("sl", static_cast<int>(m_stopLossType));
    bson::BSONArrayBuilder orders;
    for (const CCodeOrderParam &line : m_orders)
        orders.append(line.toBson());
    builder.append("os", orders.arr());
    builder.append("hb", m_hedgeBson);
    builder.append("ci", m_commandId);
    builder.append("cs", m_commandState);
    bson::BSONArrayBuilder holders;
    for (const std::string &holder : m_holderIds)
        holders.append(holder);
    builder.append("hi", holders.arr());
    builder.append("tt", m_tableType);
    builder.append("ts", m_tableSettings);
    builder.append("bn", m_basketName);
}

void COrderCommand::bsonValueFromObj(bson::BSONObj obj, bool partial, const IData *base)
{
    const COrderCommand *b = partial ? dynamic_cast<const COrderCommand *>(base) : nullptr;
    const COrderCommand d = b ? *b : COrderCommand();
    m_commandKey = bsonString(obj, "ck", d.m_commandKey);
    m_traderType = static_cast<EVqTraderType>(bsonInt(obj, "tr", d.m_traderType));
    m_hedgeType = static_cast<EVqHedgeType>(bsonInt(obj, "ht", d.m_hedgeType));
    m_stopLossType = static_cast<EVqStopLossType>(bsonInt(obj, "sl", d.m_stopLossType));
    if (obj.hasField("os")) {
        m_orders.clear();
        bson::BSONObjIterator it(obj.getObjectField("os"));
        while (it.more()) {
            // An element that is no object is no line; Obj() would throw on it.
            const bson::BSONElement element = it.next();
            if (element.type() != bson::Object)
                continue;
            CCodeOrderParam line;
            line.bsonValueFromObj(element.Obj());
            m_orders.push_back(line);
        }
    } else {
        m_orders = d.m_orders;
    }
    m_hedgeBson = obj.hasField("hb") ? obj.getObjectField("hb").getOwned() : d.m_hedgeBson;
    m_commandId = bsonInt(obj, "ci", d.m_commandId);
    m_commandState = bsonInt(obj, "cs", d.m_commandState);
    if (obj.hasField("hi") && obj.getField("hi").type() == bson::Array) {
        m_holderIds.clear();
        bson::BSONObjIterator it(obj.getObjectField("hi"));
        while (it.more()) {
            const bson::BSONElement holder = it.next();
            // A holder that is no text names nobody; it still takes its place in the order.
            m_holderIds.push_back(holder.type() == bson::String ? holder.String() : std::string());
        }
    } else {
        m_holderIds = d.m_holderIds;
    }
    m_tableType = bsonInt(obj, "tt", d.m_tableType);
    m_tableSettings = bsonString(obj, "ts", d.m_tableSettings);
    m_basketName = bsonString(obj, "bn", d.m_basketName);
}

} // namespace ttservice
