#include "CCodeOrderParam.h"

namespace ttservice {

std::string CCodeOrderParam::getKey() const
{
    return (m_account ? m_account->m_accountKey : std::string()) + '|' + m_stockInfo.getKey();
}

void CCodeOrderParam::appendElements(bson::BSONObjBuilder &builder) const
{
    if (m_account) {
        bson::BSONObjBuilder account;
        m_account->appendElements(account);
        builder.append("ac", account.obj());
    }
    bson::BSONObjBuilder stock;
    m_stockInfo.appendElements(stock);
    builder.append("si", stock.obj());
    builder.append("hf", static_cast<int>(m_hedgeFlag));
    builder.append("op", static_cast<int>(m_operationType));
    builder.append("ot", static_cast<int>(m_orderType));
    builder.append("pt", static_cast<int>(m_priceType));
    bsonAppendDouble(builder, "pr", m_price);
    bsonAppendDouble(builder, "oi", m_orderInterval);
    bsonAppendDouble(builder, "ci", m_cancelInterval);
    builder.append("vo", static_cast<long long>(m_volume));
    bsonAppendDouble(builder, "tv", m_tradedVolume);
    bsonAppendDouble(builder, "pl", m_priceLimitLow);
    bsonAppendDouble(builder, "ph", m_priceLimitHigh);
    bsonAppendDouble(builder, "ps", m_priceStep);
    builder.append("vf", m_validFrom);
    builder.append("vt", m_validTo);
    builder.append("sf", m_stepFlag);
    builder.append("ui", m_userId);
    builder.append("tt", m_touchType);
    bsonAppendDouble(builder, "tp", m_touchPrice);
    builder.append("pf", m_portfolioName);
    bsonAppendDouble(builder, "mo", m_money);
    builder.append("pa", m_positionAttr);
    builder.append("pi", m_positionId);
    builder.append("ek", m_extraKey);
    builder.append("st", m_orderStatus);
}

void CCodeOrderParam::bsonValueFromObj(bson::BSONObj obj, bool partial, const IData *base)
{
    const CCodeOrderParam *b = partial ? dynamic_cast<const CCodeOrderParam *>(base) : nullptr;
    const CCodeOrderParam d = b ? *b : CCodeOrderParam();
    if (obj.hasField("ac")) {
        auto account = boost::shared_ptr<CAccountInfo>(new CAccountInfo);
        account->bsonValueFromObj(obj.getObjectField("ac"));
        m_account = account;
    } else {
        m_account = d.m_account;
    }
    if (obj.hasField("si"))
        m_stockInfo.bsonValueFromObj(obj.getObjectField("si"));
    else
        m_stockInfo = d.m_stockInfo;
    m_hedgeFlag = static_cast<EHedge_Flag_Type>(bsonInt(obj, "hf", d.m_hedgeFlag));
    m_operationType = static_cast<EOperationType>(bsonInt(obj, "op", d.m_operationType));
    m_orderType = static_cast<EOrderType>(bsonInt(obj, "ot", d.m_orderType));
    m_priceType = static_cast<EPriceType>(bsonInt(obj, "pt", d.m_priceType));
    m_price = bsonDouble(obj, "pr", d.m_price);
    m_orderInterval = bsonDouble(obj, "oi", d.m_orderInterval);
    m_cancelInterval = bsonDouble(obj, "ci", d.m_cancelInterval);
    m_volume = bsonInt64(obj, "vo", d.m_volume);
    m_tradedVolume = bsonDouble(obj, "tv", d.m_tradedVolume);
    m_priceLimitLow = bsonDouble(obj, "pl", d.m_priceLimitLow);
    m_priceLimitHigh = bsonDouble(obj, "ph", d.m_priceLimitHigh);
    m_priceStep = bsonDouble(obj, "ps", d.m_priceStep);
    m_validFrom = bsonInt(obj, "vf", d.m_validFrom);
    m_validTo = bsonInt(obj, "vt", d.m_validTo);
    m_stepFlag = bsonInt(obj, "sf", d.m_stepFlag);
    m_userId = bsonString(obj, "ui", d.m_userId);
    m_touchType = bsonInt(obj, "tt", d.m_touchType);
    m_touchPrice = bsonDouble(obj, "tp", d.m_touchPrice);
    m_portfolioName = bsonString(obj, "pf", d.m_portfolioName);
    m_money = bsonDouble(obj, "mo", d.m_money);
    m_positionAttr = bsonInt(obj, "pa", d.m_positionAttr);
    m_positionId = bsonString(obj, "pi", d.m_positionId);
    m_extraKey = bsonString(obj, "ek", d.m_extraKey);
    m_orderStatus = bsonInt(obj, "st", d.m_orderStatus);
}

} // namespace ttservice
