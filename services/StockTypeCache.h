#pragma once

#include "BasketServicesExport.h"

namespace ttservice {

// The kinds of one instrument, as the client's type cache answers them
// (StockTypeCacheCenter::getTypeStockCache). All false for an instrument of no special kind.
class BASKET_SERVICES_EXPORT StockTypeCache
{
public:
    bool m_etf = false;
    bool m_fund = false;
    bool m_goldEtf = false;
    bool m_governmentLoanRepurchase = false;
    bool m_loan = false;
    bool m_monetaryFund = false;
    bool m_stockB = false;

    bool isETF() const { return m_etf; }
    bool isFund() const { return m_fund; }
    bool isGoldETF() const { return m_goldEtf; }
    bool isGovernmentLoanRepurchase() const { return m_governmentLoanRepurchase; }
    bool isLoan() const { return m_loan; }
    bool isMonetaryFund() const { return m_monetaryFund; }
    bool isStockB() const { return m_stockB; }
};

} // namespace ttservice
