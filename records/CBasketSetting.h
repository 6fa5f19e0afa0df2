#pragma once

#include "BasketRecordsExport.h"
#include "CBasketStockData.h"
#include "TradeEnums.h"

#include <QList>
#include <QString>
#include <QVector>

namespace TC {

// One entry of a stored basket: where its orders go.
class BASKET_RECORDS_EXPORT CBasketEntry
{
public:
    ttservice::ETradePlatform m_tradePlatform = ttservice::TRADE_PLATFORM_NONE;
    QString m_note;
};

// One stored basket, kept by name in the user configuration.
class BASKET_RECORDS_EXPORT CBasketSetting
{
public:
    QString m_name;
    // 0: the user's own basket, whose lines may be edited; 1, 2: index baskets; 3, 4: ETF baskets.
    int m_basketKind = 0;
    ttservice::EVQBrokerType m_brokerType = ttservice::BROKER_TYPE_STOCK;
    QString m_indexMarket; // of an index basket
    QString m_indexCode;
    QVector<CBasketEntry> m_entries;
    QList<CBasketStockData> m_stocks;

    // The trade platform of the first entry, 0 without entries.
    ttservice::ETradePlatform tradePlatform() const;
};

} // namespace TC
