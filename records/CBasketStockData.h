#pragma once

#include "BasketRecordsExport.h"
#include "DoubleCompare.h"
#include "TradeEnums.h"

#include <QList>
#include <QMetaType>
#include <QString>
#include <QVector>

#include <cstdint>
#include <string>

namespace TC {

// One row of a basket: an instrument with its weight or its volume in one copy.
class BASKET_RECORDS_EXPORT CBasketStockData
{
public:
    QString m_accountDisplayId;   // account a generated row was sized for
    QString m_market;
    QString m_stockCode;
    QString m_stockName;
    double m_weight = 0.0;
    int64_t m_volume = 0;         // volume in one copy of the basket
    ttservice::EOperationType m_operationType = ttservice::OT_BUY;
    bool m_filtered = false;      // excluded by the filters and from the weight sums
    double m_touchPrice = ttservice::NO_VALUE;
    int m_touchType = 0;
    double m_price = ttservice::NO_VALUE;
    bool m_useFixedPrice = false; // read from the first row for the whole list
    std::string m_accountKey;     // empty: every account; else this one account
    int m_entrustBs = 48;         // side of a pasted row: 48 buy, 49 sell
    ttservice::EHedge_Flag_Type m_hedgeFlag = ttservice::HEDGE_FLAG_SPECULATION; // of a pasted futures row
    int m_positionDirection = 48; // a held row's side: 48 long, 49 short

    // The stock key of the row.
    QString key() const;
    // The row as a clipboard line: code, name, volume, weight, direction, tab separated.
    QString toString() const;

    // Rows are the same row when they name the same instrument for the same account (or both
    // for every account): an edited volume, weight or price does not make another row, so an
    // edit or a removal finds the row it was made on.
    bool operator==(const CBasketStockData &other) const;
};

// Ordering of rows by market, then code, then account.
struct BASKET_RECORDS_EXPORT CBasketStockCompareTraits
{
    static int compare(const CBasketStockData &a, const CBasketStockData &b);
};

} // namespace TC

Q_DECLARE_METATYPE(TC::CBasketStockData)
