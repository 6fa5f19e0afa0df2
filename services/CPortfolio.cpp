#include "CPortfolio.h"

namespace ttservice {

void CPortfolio::appendElements(bson::BSONObjBuilder &builder) const
{
    builder.append("pk", m_portfolioKey);
    builder.append("id", m_portfolioId);
    builder.append("nm", m_portfolioName);
    builder.append("cd", m_portfolioCode);
    builder.append("tw", static_cast<long long>(m_tradeWords));
    bson::BSONArrayBuilder accounts(builder.subarrayStart("ac"));
    for (const std::string &key : m_accountKeys)
        accounts.append(key);
    accounts.done();
}

void CPortfolio::bsonValueFromObj(bson::BSONObj obj, bool partial, const IData *base)
{
    const CPortfolio *b = partial ? dynamic_cast<const CPortfolio *>(base) : nullptr;
    const CPortfolio d = b ? *b : CPortfolio();
    m_portfolioKey = bsonString(obj, "pk", d.m_portfolioKey);
    m_portfolioId = bsonInt(obj, "id", d.m_portfolioId);
    m_portfolioName = bsonString(obj, "nm", d.m_portfolioName);
    m_portfolioCode = bsonString(obj, "cd", d.m_portfolioCode);
    m_tradeWords = static_cast<quint64>(bsonInt64(obj, "tw", static_cast<long long>(d.m_tradeWords)));
    const bson::BSONElement accounts = obj.getField("ac");
    if (accounts.type() == bson::Array) {
        m_accountKeys.clear();
        bson::BSONObjIterator it(accounts.embeddedObject());
        while (it.more()) {
            const bson::BSONElement e = it.next();
            if (e.type() == bson::String)
                m_accountKeys.push_back(e.str());
        }
    } else {
        m_accountKeys = d.m_accountKeys;
    }
    m_positions = d.m_positions;
}

} // namespace ttservice
