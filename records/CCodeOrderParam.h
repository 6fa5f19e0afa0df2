#pragma once

#include "BasketRecordsExport.h"
#include "CAccountInfo.h"
#include "CStockInfo.h"
#include "DoubleCompare.h"
#include "IData.h"
#include "TradeEnums.h"

#include <boost/shared_ptr.hpp>

#include <QMetaType>

#include <cstdint>
#include <ctime>
#include <string>

namespace ttservice {

// One order line: one instrument for one account. A std::vector of them is an order list.
class BASKET_RECORDS_EXPORT CCodeOrderParam : public IData
{
public:
    boost::shared_ptr<CAccountInfo> m_account;
    EHedge_Flag_Type m_hedgeFlag = HEDGE_FLAG_SPECULATION;
    EOperationType m_operationType = OT_NONE;
    EOrderType m_orderType = ORDER_TYPE_NORMAL;
    CStockInfo m_stockInfo;
    EPriceType m_priceType = PRICE_TYPE_NONE;
    double m_price = NO_VALUE;
    double m_orderInterval = NO_VALUE;
    double m_cancelInterval = NO_VALUE;
    int64_t m_volume = 0;
    double m_tradedVolume = NO_VALUE;
    double m_priceLimitLow = NO_VALUE;
    double m_priceLimitHigh = NO_VALUE;
    double m_priceStep = NO_VALUE;
    int m_validFrom = 0;
    int m_validTo = 0;
    int m_stepFlag = 0;
    std::string m_userId;
    int m_touchType = 0;
    double m_touchPrice = NO_VALUE;
    std::string m_portfolioName;
    double m_money = NO_VALUE; // the quantity of a money line (operations 25 and 1024)
    int m_positionAttr = 0;     // of a handed-over position
    std::string m_positionId;
    std::string m_extraKey;
    int m_orderStatus = 0; // an instruction line's state in the trading service; 0 for a new order

    // Account key and stock key: one line per instrument and account.
    std::string getKey() const override;
    void appendElements(bson::BSONObjBuilder &builder) const override;
    void bsonValueFromObj(bson::BSONObj obj, bool partial = false, const IData *base = nullptr) override;
};

} // namespace ttservice

Q_DECLARE_METATYPE(ttservice::CCodeOrderParam)
