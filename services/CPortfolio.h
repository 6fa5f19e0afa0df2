#pragma once

#include "BasketServicesExport.h"
#include "CPositionStatics.h"
#include "IData.h"

#include <QtGlobal>

#include <map>
#include <string>
#include <vector>

namespace ttservice {

// An investment portfolio of the user: a named set of positions spread over some accounts.
// The portfolio lookups of the user configuration (PortfolioLookup.h) read it.
class BASKET_SERVICES_EXPORT CPortfolio : public IData
{
public:
    std::string m_portfolioKey;  // what the lookups and pickers know it by
    int m_portfolioId = -1;
    std::string m_portfolioName; // display name
    std::string m_portfolioCode; // the user's short code for it
    // The tab words (ETradeOperationType bits) on which the portfolio is offered; 0 for all.
    quint64 m_tradeWords = 0;
    std::vector<std::string> m_accountKeys;
    // The portfolio's positions by account key.
    std::map<std::string, std::vector<CPositionStatics>> m_positions;

    // Whether the portfolio is offered on this tab word.
    bool servesTradeWord(quint64 word) const { return m_tradeWords == 0 || (m_tradeWords & word) != 0; }

    std::string getKey() const override { return m_portfolioKey; }
    // Key, id, texts, words and account keys; the positions are not part of the BSON form.
    void appendElements(bson::BSONObjBuilder &builder) const override;
    void bsonValueFromObj(bson::BSONObj obj, bool partial = false, const IData *base = nullptr) override;
};

} // namespace ttservice
