#include "CSampleClient.h"

#include "CBlackAndWhiteListService.h"
#include "CExchangeRate.h"
#include "CProductInfo.h"
#include "CProductNetValue.h"
#include "IDataCenter.h"
#include "TraderCenter.h"
#include "CExchangeClient.h"
#include "CTimeService.h"
#include "Clock.h"
#include "CQuoteClient.h"
#include "CUserConfig.h"
#include "LuaModuleCtrl.h"
#include "StockTypeCenter.h"
#include "SubstituteReset.h"

#include "StockKey.h"

#include <boost/make_shared.hpp>

#include <algorithm>
#include <cstdint>

namespace {

struct SampleAccount
{
    const char *key;
    const char *id;
    const char *name;
    const char *product;
    ttservice::EVQBrokerType type;
    double available;
    double totalAsset;
};

const SampleAccount kAccounts[] = {
    {"stk-001", "310000881", "稳健一号", "稳健一号产品", ttservice::BROKER_TYPE_STOCK, 12500000.0, 48000000.0},
    {"stk-002", "310000882", "成长二号", "成长二号产品", ttservice::BROKER_TYPE_STOCK, 8300000.0, 26000000.0},
    {"stk-003", "310000883", "量化三号", "量化三号产品", ttservice::BROKER_TYPE_STOCK, 21000000.0, 61000000.0},
    {"crd-001", "880012345", "信用一号", "稳健一号产品", ttservice::BROKER_TYPE_CREDIT, 5600000.0, 19000000.0},
    {"fut-001", "90061234", "期货对冲一号", "稳健一号产品", ttservice::BROKER_TYPE_FUTURE, 9800000.0, 15000000.0},
    {"fut-002", "90061235", "期货对冲二号", "量化三号产品", ttservice::BROKER_TYPE_FUTURE, 7200000.0, 11000000.0},
    {"hgt-001", "510000771", "沪港通账户", "成长二号产品", ttservice::BROKER_TYPE_HGT, 3000000.0, 7000000.0},
    {"crd-002", "880012346", "信用二号", "量化三号产品", ttservice::BROKER_TYPE_CREDIT, 4100000.0, 13500000.0},
};

// The products the accounts belong to, with their net values: sizing by the product's net value
// reads them.
struct SampleProduct
{
    const char *name;
    int id;
    double netValue;
};

const SampleProduct kProducts[] = {
    {"稳健一号产品", 101, 86000000.0},
    {"成长二号产品", 102, 34500000.0},
    {"量化三号产品", 103, 79000000.0},
};

const char *const kModules[] = {
    "mdl_order", "mdl_order_compose_basket_buy_sell", "mdl_order_compose_credits", "mdl_order_compose_futures",
    "mdl_order_compose_one_key_futures", "mdl_order_compose_hgt", "mdl_order_compose_hedge",
    "mdl_order_compose_adjust_position", "mdl_order_credit_has_special_opt", "mdl_order_portfolio",
    "mdl_auth", "mdl_auth_etf_management",
};

std::vector<ttservice::CPositionStatics> positionsFor(const CSampleData &data, int accountIndex)
{
    std::vector<ttservice::CPositionStatics> positions;
    const QVector<CSampleInstrument> &stocks = data.stocks();
    for (int i = accountIndex; i < 120 && i < stocks.size(); i += 3) {
        ttservice::CPositionStatics position;
        position.m_market = stocks[i].market.toStdString();
        position.m_stockCode = stocks[i].code.toStdString();
        position.m_stockName = stocks[i].name.toStdString();
        position.m_volume = 1000.0 * (1 + i % 7);
        position.m_canUseVolume = position.m_volume - (i % 4 == 0 ? 500.0 : 0.0);
        position.m_cost = stocks[i].lastClose * 0.97;
        // Every fourth position is partly held back by open orders.
        position.m_availableVolume = static_cast<int64_t>(position.m_canUseVolume);
        position.m_lastPrice = stocks[i].lastClose;
        position.m_marketValue = position.m_volume * stocks[i].lastClose;
        positions.push_back(position);
    }
    return positions;
}

// Index futures of the hedge accounts, so that a rebalance to "股指期货组合" closes, opens and
// keeps contracts: the first account is long and short IF, long IH and short IC.
std::vector<ttservice::CPositionStatics> futuresPositionsFor(const CSampleData &data, int accountIndex)
{
    const struct
    {
        int future;
        int direction;
        int volume;
    } first[] = {{0, 48, 3}, {0, 49, 1}, {1, 48, 1}, {2, 49, 2}}, second[] = {{2, 48, 2}};
    std::vector<ttservice::CPositionStatics> positions;
    const QVector<CSampleInstrument> &futures = data.futures();
    auto add = [&](int future, int direction, int volume) {
        if (future >= futures.size())
            return;
        const CSampleInstrument &contract = futures[future];
        ttservice::CPositionStatics position;
        position.m_market = contract.market.toStdString();
        position.m_stockCode = contract.code.toStdString();
        position.m_stockName = contract.name.toStdString();
        position.m_direction = direction;
        position.m_volume = volume;
        position.m_canUseVolume = volume;
        position.m_availableVolume = volume;
        position.m_cost = contract.lastClose;
        position.m_lastPrice = contract.lastClose;
        position.m_marketValue = volume * contract.lastClose * contract.volumeMultiple;
        positions.push_back(position);
    };
    if (accountIndex == 0) {
        for (const auto &p : first)
            add(p.future, p.direction, p.volume);
    } else {
        for (const auto &p : second)
            add(p.future, p.direction, p.volume);
    }
    return positions;
}

// A portfolio of the user over the first two stock accounts: the first ten positions of each.
ttservice::CPortfolio samplePortfolio(const CSampleData &data)
{
    ttservice::CPortfolio portfolio;
    portfolio.m_portfolioKey = "pf-001";
    portfolio.m_portfolioId = 1;
    portfolio.m_portfolioName = "价值精选";
    portfolio.m_portfolioCode = "JZJX";
    for (int index = 0; index < 2; ++index) {
        const std::string key = index == 0 ? "stk-001" : "stk-002";
        portfolio.m_accountKeys.push_back(key);
        std::vector<ttservice::CPositionStatics> held = positionsFor(data, index);
        held.resize(std::min<size_t>(held.size(), 10));
        portfolio.m_positions[key] = held;
    }
    return portfolio;
}

void addInstruments(const QVector<CSampleInstrument> &list)
{
    for (const CSampleInstrument &instrument : list) {
        ttservice::CInstrumentDetail detail;
        detail.m_market = instrument.market.toStdString();
        detail.m_stockCode = instrument.code.toStdString();
        detail.m_stockName = instrument.name.toStdString();
        detail.m_priceTick = instrument.priceTick;
        detail.m_volumeMultiple = instrument.volumeMultiple;
        detail.m_tradeUnit = instrument.tradeUnit;
        TC::CExchangeClient::instance()->addInstrument(detail);
        if (instrument.suspended) {
            TC::CQuoteClient::instance()->setStoppedStock(
                QString::fromStdString(utils::vqStockKey(detail.m_market, detail.m_stockCode)), true);
        }
    }
}

void installUser(int role)
{
    TC::CUserConfig *user = TC::getUserConfig();
    user->setRole(role);
    user->setUserName(QStringLiteral("张明"));
    user->setUserId("u-10086");
    user->setUserAuth(TC::USER_AUTH_HEDGE, true);
    user->setSegmentedFormatFlag(1);
    for (const char *module : kModules)
        luawrapper::LuaModuleCtrl::instance()->setModule(module, true);
}

// Stock and credit accounts hold the sample's stocks, futures accounts its contracts.
void installAccounts(const CSampleData &data)
{
    TC::CUserConfig *user = TC::getUserConfig();
    int index = 0;
    int futuresIndex = 0;
    for (const SampleAccount &sample : kAccounts) {
        ttservice::CAccountInfo info;
        info.m_accountKey = sample.key;
        info.m_accountId = sample.id;
        info.m_accountName = sample.name;
        info.m_productName = sample.product;
        info.m_brokerType = sample.type;
        info.m_accountType = sample.type == ttservice::BROKER_TYPE_CREDIT ? 3 : 0;
        ttservice::CAccountDetail detail;
        detail.m_accountKey = sample.key;
        detail.m_available = sample.available;
        detail.m_totalAsset = sample.totalAsset;
        detail.m_marketValue = sample.totalAsset - sample.available;
        const bool holdsStocks = sample.type == ttservice::BROKER_TYPE_STOCK || sample.type == ttservice::BROKER_TYPE_CREDIT;
        std::vector<ttservice::CPositionStatics> positions;
        if (holdsStocks)
            positions = positionsFor(data, index++);
        else if (sample.type == ttservice::BROKER_TYPE_FUTURE)
            positions = futuresPositionsFor(data, futuresIndex++);
        user->addAccount(info, detail, positions);
    }
}

void installProducts()
{
    TC::CUserConfig *user = TC::getUserConfig();
    const auto center = ttservice::TraderCenter::instance()->getDataCenter();
    for (const SampleAccount &sample : kAccounts) {
        for (const SampleProduct &known : kProducts) {
            if (qstrcmp(known.name, sample.product) != 0)
                continue;
            ttservice::CProductInfo product;
            product.m_productId = known.id;
            product.m_productName = known.name;
            user->setAccountProduct(sample.key, product);
            const auto accountData = center ? center->getAccountData(sample.key) : nullptr;
            if (accountData) {
                auto netValue = boost::make_shared<ttservice::CProductNetValue>();
                netValue->m_productId = known.id;
                netValue->m_netValue = known.netValue;
                accountData->setData(ttservice::DATA_TYPE_PRODUCT_NET_VALUE, netValue);
            }
        }
    }
}

void installExchangeRate()
{
    const auto center = ttservice::TraderCenter::instance()->getDataCenter();
    // The connect account's rates, as its data centre has them: the Hong Kong tab prices by them.
    if (center) {
        if (const auto hgt = center->getAccountData("hgt-001")) {
            auto rate = boost::make_shared<ttservice::CExchangeRate>();
            rate->m_buyRate = 0.9186;
            rate->m_sellRate = 0.9148;
            rate->m_buyFloat = 0.03;
            rate->m_sellFloat = -0.03;
            hgt->setData(ttservice::DATA_TYPE_EXCHANGE_RATE, rate);
        }
    }
}

void installBaskets(const CSampleData &data)
{
    TC::CUserConfig *user = TC::getUserConfig();
    const TC::CBasketSetting index300 = data.indexBasket();
    user->baskets().insert(index300.m_name, index300);
    for (const TC::CBasketSetting &basket : data.customBaskets())
        user->baskets().insert(basket.m_name, basket);
    const TC::CBasketSetting futures = data.futuresBasket();
    user->baskets().insert(futures.m_name, futures);
    const TC::CBasketSetting etfs = data.etfBasket();
    user->baskets().insert(etfs.m_name, etfs);
}

void installLists(const CSampleData &data)
{
    TC::CUserConfig *user = TC::getUserConfig();
    // Stocks that some accounts may not buy: two of "大盘蓝筹" (one with a replacement), and one
    // of "沪深300" whose replacement is the same stock, so that the two replacements merge.
    auto keyOf = [&data](int i) {
        const CSampleInstrument &stock = data.stocks().at(i);
        return QString::fromStdString(utils::vqStockKey(stock.market.toStdString(), stock.code.toStdString()));
    };
    const QString first = TC::accountDisplayIDQs(*user->getAccountData(QStringLiteral("stk-001")));
    const QString second = TC::accountDisplayIDQs(*user->getAccountData(QStringLiteral("stk-002")));
    TC::CBlackAndWhiteListService *lists = TC::CBlackAndWhiteListService::instance();
    lists->setWhiteStock(first, keyOf(6), keyOf(199));
    lists->setWhiteStock(first, keyOf(4), keyOf(199));
    lists->addBlackStock(second, keyOf(9));
}

} // namespace

void CSampleClient::install(const CSampleData &data, int role)
{
    TC::resetAllSubstitutes();
    // The reset freezes the clocks for tests; the demo runs on the machine's time.
    TC::getTimeService()->useSystemClock(true);
    utils::useSteadyClockMSec();
    // As the client's feed does, a new subscription gets the last quote at once.
    TC::CQuoteClient::instance()->setReplayLastQuoteOnRequest(true);

    installUser(role);
    installAccounts(data);
    installProducts();
    TC::getUserConfig()->addPortfolio(samplePortfolio(data));
    TC::getUserConfig()->setHasPortfolio(true);
    installExchangeRate();
    addInstruments(data.stocks());
    addInstruments(data.futures());
    addInstruments(data.indexes());
    addInstruments(data.etfs());
    // A suspended stock keeps the quote of its last close: its money can be valued and moved.
    for (const TC::CPriceData &quote : data.suspendedQuotes())
        TC::CQuoteClient::instance()->setStockPrice(quote);

    installBaskets(data);
    installLists(data);
}
