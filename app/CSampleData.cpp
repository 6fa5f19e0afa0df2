#include "CSampleData.h"

#include "COpBasketFutureParamsWidget.h"

#include <QDateTime>
#include <QStringList>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <random>

namespace {

const char *const kPrefixes[] = {"华", "中", "东", "南", "新", "金", "长", "海", "天", "国", "恒", "安",
                                 "宏", "光", "泰", "瑞", "民", "通", "永", "龙", "嘉", "远", "信", "鼎"};
const char *const kMiddles[] = {"信", "融", "达", "源", "丰", "盛", "华", "宇", "联", "晟", "川", "润"};
const char *const kTrades[] = {"银行", "证券", "电力", "科技", "医药", "地产", "汽车", "能源", "化工",
                               "电子", "食品", "钢铁", "传媒", "保险", "机械", "建设", "通信", "材料"};

QString makeName(std::mt19937 &random)
{
    std::uniform_int_distribution<size_t> p(0, std::size(kPrefixes) - 1);
    std::uniform_int_distribution<size_t> m(0, std::size(kMiddles) - 1);
    std::uniform_int_distribution<size_t> t(0, std::size(kTrades) - 1);
    return QString::fromUtf8(kPrefixes[p(random)]) + QString::fromUtf8(kMiddles[m(random)])
        + QString::fromUtf8(kTrades[t(random)]);
}

double roundTo(double value, double tick)
{
    return std::round(value / tick) * tick;
}

TC::CPriceData quoteOf(const CSampleInstrument &instrument)
{
    TC::CPriceData quote;
    quote.m_market = instrument.market.toStdString();
    quote.m_stockCode = instrument.code.toStdString();
    quote.m_lastClose = instrument.lastClose;
    quote.m_lastPrice = instrument.lastClose;
    // Ten percent either way, the daily limit of ordinary stocks and of index futures alike.
    quote.m_upStopPrice = roundTo(instrument.lastClose * 1.1, instrument.priceTick);
    quote.m_downStopPrice = roundTo(instrument.lastClose * 0.9, instrument.priceTick);
    quote.m_bidPrice1 = instrument.lastClose - instrument.priceTick;
    quote.m_askPrice1 = instrument.lastClose + instrument.priceTick;
    return quote;
}

} // namespace

CSampleData::CSampleData()
{
    std::mt19937 random(300u);
    std::lognormal_distribution<double> price(2.6, 0.7);
    for (int i = 0; i < 360; ++i) {
        CSampleInstrument stock;
        const bool shanghai = i % 2 == 0;
        stock.market = shanghai ? QStringLiteral("SH") : QStringLiteral("SZ");
        stock.code = shanghai ? QStringLiteral("60%1").arg(i / 2 * 7 % 10000, 4, 10, QLatin1Char('0'))
                              : QStringLiteral("00%1").arg(i / 2 * 11 % 3000 + 1, 4, 10, QLatin1Char('0'));
        stock.name = makeName(random);
        stock.lastClose = roundTo(std::clamp(price(random), 2.0, 400.0), 0.01);
        // A handful of stocks do not trade today.
        stock.suspended = i % 37 == 5;
        m_stocks.push_back(stock);
    }

    // The contracts of the current month, named from today's date as the exchange lists them,
    // so that the hedge and the futures tabs find them on any day the demo runs.
    const QStringList listed = TC::COpBasketFutureParamsWidget::listedIndexFutures(QDateTime::currentSecsSinceEpoch());
    const struct
    {
        const char *prefix;
        const char *name;
        double close;
        int multiple;
    } futures[] = {{"IF", "沪深300指数", 3920.0, 300}, {"IH", "上证50指数", 2650.0, 300}, {"IC", "中证500指数", 5810.0, 200}};
    for (const auto &f : futures) {
        const auto current = std::find_if(listed.cbegin(), listed.cend(), [&f](const QString &code) {
            return code.startsWith(QLatin1String(f.prefix));
        });
        if (current == listed.cend())
            continue;
        CSampleInstrument future;
        future.market = QStringLiteral("CFFEX");
        future.code = *current;
        future.name = QString::fromUtf8(f.name) + current->mid(2);
        future.lastClose = f.close;
        future.priceTick = 0.2;
        future.volumeMultiple = f.multiple;
        future.tradeUnit = 1;
        m_futures.push_back(future);
    }

    const struct
    {
        const char *code;
        const char *name;
        double close;
    } indexes[] = {{"000300", "沪深300", 3915.62}, {"000016", "上证50", 2648.31}, {"000905", "中证500", 5803.17}};
    for (const auto &x : indexes) {
        CSampleInstrument index;
        index.market = QStringLiteral("SH");
        index.code = QString::fromLatin1(x.code);
        index.name = QString::fromUtf8(x.name);
        index.lastClose = x.close;
        index.tradeUnit = 1;
        m_indexes.push_back(index);
    }

    const struct
    {
        const char *market;
        const char *code;
        const char *name;
        double close;
    } etfs[] = {{"SH", "510300", "沪深300ETF", 3.952}, {"SH", "510500", "中证500ETF", 5.861}, {"SZ", "159919", "300ETF", 4.068}};
    for (const auto &e : etfs) {
        CSampleInstrument etf;
        etf.market = QString::fromLatin1(e.market);
        etf.code = QString::fromLatin1(e.code);
        etf.name = QString::fromUtf8(e.name);
        etf.lastClose = e.close;
        etf.priceTick = 0.001;
        m_etfs.push_back(etf);
    }
}

TC::CBasketSetting CSampleData::etfBasket() const
{
    TC::CBasketSetting basket;
    basket.m_name = QStringLiteral("ETF替代组合");
    basket.m_basketKind = 0;
    const double weights[] = {50.0, 30.0, 20.0};
    for (int i = 0; i < m_etfs.size() && i < 3; ++i) {
        TC::CBasketStockData row;
        row.m_market = m_etfs[i].market;
        row.m_stockCode = m_etfs[i].code;
        row.m_stockName = m_etfs[i].name;
        row.m_volume = 1000;
        row.m_weight = weights[i];
        basket.m_stocks.push_back(row);
    }
    return basket;
}

TC::CBasketSetting CSampleData::indexBasket() const
{
    TC::CBasketSetting basket;
    basket.m_name = QStringLiteral("沪深300");
    basket.m_basketKind = 1;
    basket.m_indexMarket = QStringLiteral("SH");
    basket.m_indexCode = QStringLiteral("000300");
    std::mt19937 random(7u);
    std::lognormal_distribution<double> size(0.0, 1.0);
    QVector<double> weights;
    double total = 0.0;
    for (int i = 0; i < 300 && i < m_stocks.size(); ++i) {
        weights.push_back(size(random));
        total += weights.back();
    }
    for (int i = 0; i < weights.size(); ++i) {
        TC::CBasketStockData row;
        row.m_market = m_stocks[i].market;
        row.m_stockCode = m_stocks[i].code;
        row.m_stockName = m_stocks[i].name;
        row.m_weight = std::round(weights[i] / total * 1e6) / 1e4; // percent, four decimals
        row.m_volume = 100;
        basket.m_stocks.push_back(row);
    }
    return basket;
}

QVector<TC::CBasketSetting> CSampleData::customBaskets() const
{
    QVector<TC::CBasketSetting> baskets;
    const struct
    {
        const char *name;
        int first;
        int count;
        int step;
    } plans[] = {{"大盘蓝筹", 0, 20, 3}, {"科技成长", 40, 30, 2}, {"红利精选", 100, 12, 5}};
    for (const auto &plan : plans) {
        TC::CBasketSetting basket;
        basket.m_name = QString::fromUtf8(plan.name);
        basket.m_basketKind = 0;
        for (int i = 0; i < plan.count; ++i) {
            const CSampleInstrument &stock = m_stocks[(plan.first + i * plan.step) % m_stocks.size()];
            TC::CBasketStockData row;
            row.m_market = stock.market;
            row.m_stockCode = stock.code;
            row.m_stockName = stock.name;
            row.m_volume = 100 * (1 + i % 5);
            row.m_weight = 100.0 / plan.count;
            basket.m_stocks.push_back(row);
        }
        baskets.push_back(basket);
    }
    return baskets;
}

TC::CBasketSetting CSampleData::futuresBasket() const
{
    TC::CBasketSetting basket;
    basket.m_name = QStringLiteral("股指期货组合");
    basket.m_basketKind = 0;
    basket.m_brokerType = ttservice::BROKER_TYPE_FUTURE;
    // Long the large caps, short the small ones: the one-key futures tab trades both sides.
    const int lots[] = {2, 1, 1};
    const ttservice::EOperationType sides[] = {ttservice::OT_BUY, ttservice::OT_BUY, ttservice::OT_SELL};
    for (int i = 0; i < m_futures.size() && i < 3; ++i) {
        TC::CBasketStockData row;
        row.m_market = m_futures[i].market;
        row.m_stockCode = m_futures[i].code;
        row.m_stockName = m_futures[i].name;
        row.m_volume = lots[i];
        row.m_weight = 100.0 / 3;
        row.m_operationType = sides[i];
        basket.m_stocks.push_back(row);
    }
    return basket;
}

QVector<TC::CPriceData> CSampleData::openingQuotes() const
{
    QVector<TC::CPriceData> quotes;
    for (const QVector<CSampleInstrument> *list : {&m_stocks, &m_futures, &m_indexes, &m_etfs}) {
        for (const CSampleInstrument &instrument : *list) {
            if (!instrument.suspended)
                quotes.push_back(quoteOf(instrument));
        }
    }
    return quotes;
}

QVector<TC::CPriceData> CSampleData::suspendedQuotes() const
{
    QVector<TC::CPriceData> quotes;
    for (const CSampleInstrument &stock : m_stocks) {
        if (stock.suspended)
            quotes.push_back(quoteOf(stock));
    }
    return quotes;
}
