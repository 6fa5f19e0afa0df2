#pragma once

#include "CBasketSetting.h"
#include "CPriceData.h"

#include <QString>
#include <QVector>

// The built-in sample market: made-up instruments with plausible codes, names and prices.
// Everything is derived from fixed seeds, so that every run of the demo shows the same client.
struct CSampleInstrument
{
    QString market;
    QString code;
    QString name;
    double lastClose = 0.0;
    double priceTick = 0.01;
    int volumeMultiple = 0x7fffffff;
    int tradeUnit = 100;
    bool suspended = false;
};

class CSampleData final
{
public:
    CSampleData();

    const QVector<CSampleInstrument> &stocks() const { return m_stocks; }
    const QVector<CSampleInstrument> &futures() const { return m_futures; }
    const QVector<CSampleInstrument> &indexes() const { return m_indexes; }
    const QVector<CSampleInstrument> &etfs() const { return m_etfs; }

    // The index basket: the first three hundred stocks, weighted by a made-up market value.
    TC::CBasketSetting indexBasket() const;
    // Smaller baskets of the user's own.
    QVector<TC::CBasketSetting> customBaskets() const;
    // Index futures of the current month, both directions, for the futures tabs.
    TC::CBasketSetting futuresBasket() const;
    // Index funds that take the money of suspended stocks when the toolbar asks for it.
    TC::CBasketSetting etfBasket() const;

    // A first quote for every instrument that trades today, at its last close.
    QVector<TC::CPriceData> openingQuotes() const;
    // The standing quotes of the suspended stocks: their last close, and no trading.
    QVector<TC::CPriceData> suspendedQuotes() const;

private:
    QVector<CSampleInstrument> m_stocks;
    QVector<CSampleInstrument> m_futures;
    QVector<CSampleInstrument> m_indexes;
    QVector<CSampleInstrument> m_etfs;
};
