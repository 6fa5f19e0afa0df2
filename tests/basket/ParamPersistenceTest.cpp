#include "CBasketOperationPanel.h"
#include "COpBasketBuySellWidget.h"
#include "COpBasketCrdBuySellWidget.h"
#include "COpBasketFtrBuySellWidget.h"
#include "COpBasketFtrOneKeyWidget.h"
#include "COpBasketParamsButtonsBar.h"
#include "COpBasketParamsWidget.h"
#include "COpBasketStockParamsWidget.h"
#include "COpBasketsComboBox.h"
#include "COperationBasketWidget.h"
#include "Fields.h"
#include "SampleMarket.h"
#include "SubstituteFixture.h"
#include "../platform/EventRecorder.h"

#include "CGlobalOrderParamTable.h"

#include "CComboBox.h"
#include "COpAccountsWidget.h"
#include "COpBasketFutureParamsWidget.h"
#include "CParameterCell.h"
#include "CAccountData.h"
#include "CProductInfo.h"
#include "CProductNetValue.h"
#include "IDataCenter.h"
#include "TraderCenter.h"
#include "LuaModuleCtrl.h"

#include "Bson.h"

#include <boost/make_shared.hpp>

#include <QComboBox>
#include <QStringList>

#include <list>
#include <string>
#include <vector>

using namespace TC;
using P = COpBasketParamsWidget;

namespace {

const std::list<std::string> kAllTabs = {
    "mdl_order", "mdl_order_compose_basket_buy_sell", "mdl_order_compose_credits", "mdl_order_compose_futures",
    "mdl_order_compose_one_key_futures", "mdl_order_compose_hgt", "mdl_order_compose_sgt", "mdl_order_compose_hedge",
    "mdl_order_credit_has_special_opt"};

void switchOn(const std::list<std::string> &modules, bool on = true)
{
    luawrapper::LuaModuleCtrl::instance()->setModules(modules, on);
}

void addAccount(const char *key, ttservice::EVQBrokerType broker)
{
    sample::addAccount(key, broker, 1e8);
}

void storeBasket(const QString &name, ttservice::EVQBrokerType broker)
{
    sample::storeBasket(name, {sample::row("SH", "600000", 1, 100)}, broker);
}

bson::BSONObj parsed(const QString &text)
{
    bson::BSONObj obj;
    EXPECT_TRUE(ttservice::parseJson(text.toStdString(), obj)) << text.toStdString();
    return obj;
}

QString field(const bson::BSONObj &obj, const char *key)
{
    return QString::fromStdString(ttservice::bsonString(obj, key, std::string()));
}

// The text without the per-tab memory: that part keeps only one entry when it is read back, so
// a text with entries of several tabs comes back with fewer.
QString withoutTabMemory(const QString &text)
{
    return QString::fromStdString(parsed(text).removeField("bsonParam").jsonString(bson::Strict, 0));
}

std::vector<std::string> fieldNames(const bson::BSONObj &obj)
{
    std::vector<std::string> names;
    for (bson::BSONObjIterator it(obj); it.more();)
        names.push_back(it.next().fieldName());
    return names;
}

// A per-tab text as saveHedgeParam writes it, with the given fields changed.
QString perTabText(quint64 word, int batch, const QString &basket, std::vector<std::pair<int, QString>> changes = {},
                   int fieldCount = 13)
{
    QStringList fields = {QString::number(word), QStringLiteral("0"), QString(), QString::number(batch), basket,
                          QStringLiteral("0"), QStringLiteral("1"), QStringLiteral("0"), QStringLiteral("100"),
                          QStringLiteral("100"), QStringLiteral("true"), QStringLiteral("1"), QStringLiteral("1")};
    while (fields.size() < fieldCount)
        fields << QStringLiteral("1");
    fields = fields.mid(0, fieldCount);
    for (const auto &change : changes)
        fields[change.first] = change.second;
    return fields.join(QLatin1Char('*'));
}

// A form text of the given string fields, in the order given.
QString formText(const std::vector<std::pair<const char *, QString>> &fields)
{
    bson::BSONObjBuilder builder;
    for (const auto &f : fields)
        builder.append(f.first, f.second.toStdString());
    return QString::fromStdString(builder.obj().jsonString(bson::Strict, 0));
}

class ParamPersistence : public SubstituteTest
{
protected:
    void SetUp() override
    {
        SubstituteTest::SetUp();
        getUserConfig()->setRole(90);
        getUserConfig()->setUserAuth(1, true);
        switchOn(kAllTabs);
    }

    COpBasketParamsWidget *makeForm() { return new COpBasketParamsWidget(&parent); }

    int eventCount(int event, int value) const
    {
        int count = 0;
        for (const auto &seen : parent.seen)
            count += seen.event == event && seen.value == value ? 1 : 0;
        return count;
    }

    EventRecorder parent;
};

TEST_F(ParamPersistence, KeysFollowTheirOrderAndTheWidgetsThatExist)
{
    const std::vector<std::string> full = {"BS", "SP", "HP", "AW", "BBox", "BBP", "BSP", "BHP", "VTB", "CC",
                                           "MC", "BCPW", "BFPW", "BB", "BFOKOPW", "BGBP", "BGSP", "OGT", "bsonParam", "CTCN", "RC"};
    const bson::BSONObj all = parsed(makeForm()->param());
    EXPECT_EQ(fieldNames(all), full);
    for (bson::BSONObjIterator it(all); it.more();) {
        const bson::BSONElement e = it.next();
        EXPECT_EQ(e.type(), bson::String) << e.fieldName();
    }

    // Without the optional tabs and the hedge right only the form's own widgets are written.
    switchOn(kAllTabs, false);
    switchOn({"mdl_order"});
    const std::vector<std::string> plain = {"BS", "SP", "AW", "BBox", "VTB", "CC", "MC", "BB", "OGT", "bsonParam", "CTCN", "RC"};
    EXPECT_EQ(fieldNames(parsed(makeForm()->param())), plain);
}

TEST_F(ParamPersistence, TextWithoutSideBlocksGivesBothSidesTheStockText)
{
    COpBasketParamsWidget *source = makeForm();
    source->buySellWidget()->getBuyParam()->table()->setPriceType(3);
    const QString tableText = source->buySellWidget()->getBuyParam()->param();
    ASSERT_FALSE(tableText.contains(QLatin1Char('='))) << "the one-key blocks write the table's own text";

    COpBasketParamsWidget *form = makeForm();
    ASSERT_NE(form->buySellWidget()->getSellParam()->getPriceType(), 3);
    form->setParam(formText({{"BS", QStringLiteral("2048")}, {"SP", tableText}}));

    EXPECT_EQ(form->getTradeOpType(), TOT_ALL);
    EXPECT_EQ(form->buySellWidget()->getBuyParam()->getPriceType(), 3);
    EXPECT_EQ(form->buySellWidget()->getSellParam()->getPriceType(), 3);
}

TEST_F(ParamPersistence, SavedConnectTabMapsToTheEnabledKind)
{
    const struct { const char *name; std::list<std::string> connectModules; quint64 expected; } cases[] = {
        {"onlyShenzhen", {"mdl_order_compose_sgt"}, TOT_SGT},
        {"onlyShanghai", {"mdl_order_compose_hgt"}, TOT_HGT},
        {"both", {"mdl_order_compose_hgt", "mdl_order_compose_sgt"}, TOT_HGT},
        {"neither", {}, TOT_BUY},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        switchOn({"mdl_order_compose_hgt", "mdl_order_compose_sgt"}, false);
        switchOn(c.connectModules);
        COpBasketParamsWidget *form = makeForm();
        form->setParam(formText({{"BS", QStringLiteral("524288")}}));
        EXPECT_EQ(form->getTradeOpType(), c.expected);
    }
}

TEST_F(ParamPersistence, EveryTabsEntryComesBackWhicheverTabTheTextWasSavedOn)
{
    // Saved on a futures tab, which keeps no entry of its own but its copies beside the others.
    for (quint64 last : {TOT_FUTURE, TOT_ONEKEY_FUTURE}) {
        SCOPED_TRACE(last);
        COpBasketParamsWidget *form = makeForm();
        for (const quint64 word : {quint64(TOT_SELL), quint64(TOT_CREDIT), last})
            form->handleEvent(5, static_cast<int>(word), 0, QString(), nullptr);
        form->cell(P::CellCopies)->setInt(3);
        const QString text = form->param();
        ASSERT_EQ(form->hedgeParams().keys(), (QList<quint64>{TOT_BUY, TOT_SELL, TOT_CREDIT}));
        const bson::BSONObj inner = parsed(field(parsed(text), "bsonParam"));
        EXPECT_EQ(fieldNames(inner), (std::vector<std::string>{"COM_BUY", "COM_SELL", "COM_CRD_ALL"}));

        COpBasketParamsWidget *restored = makeForm();
        restored->setParam(text);
        EXPECT_EQ(restored->getTradeOpType(), last);
        EXPECT_EQ(restored->hedgeParams(), form->hedgeParams());
        EXPECT_EQ(restored->param().toStdString(), text.toStdString());
        EXPECT_EQ(restored->cell(P::CellCopies)->toInt(), 3);
    }
}

TEST_F(ParamPersistence, AnOlderTextWithEveryEntryUnderOneNameKeepsItsFirst)
{
    // Older clients named every entry after the tab that was current while saving.
    const QString buy = perTabText(TOT_BUY, 0, QStringLiteral("b1"));
    const QString sell = perTabText(TOT_SELL, 0, QStringLiteral("b2"));
    bson::BSONObjBuilder inner;
    inner.append("COM_BUY", buy.toStdString());
    inner.append("COM_BUY", sell.toStdString());
    const QString text = formText({{"BS", QStringLiteral("512")},
                                   {"bsonParam", QString::fromStdString(inner.obj().jsonString(bson::Strict, 0))}});

    COpBasketParamsWidget *form = makeForm();
    form->setParam(text);
    EXPECT_EQ(form->hedgeParams().keys(), QList<quint64>{TOT_BUY});
    EXPECT_EQ(form->hedgeParams().value(TOT_BUY).section(QLatin1Char('*'), 4, 4), QStringLiteral("b1"));
}

TEST_F(ParamPersistence, SystemGroupsComeBackOnlyWhereTheTabShowsThem)
{
    luawrapper::LuaModuleCtrl::instance()->setModules({"mdl_auth", "mdl_auth_etf_management"}, true);
    const struct { quint64 tab; const char *entryName; int expectedBatch; } cases[] = {
        {TOT_ALL, "COM_ALL", 0}, {TOT_BUY, "COM_BUY", 64},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.entryName);
        COpBasketParamsWidget *form = makeForm();
        form->setParam(formText({{"BS", QString::number(c.tab)},
                                 {"bsonParam", formText({{c.entryName, perTabText(c.tab, 64, QString())}})}}));
        ASSERT_EQ(form->getTradeOpType(), c.tab);
        EXPECT_EQ(static_cast<int>(form->basketsCombo()->batchOp()), c.expectedBatch);
    }
}

TEST_F(ParamPersistence, TotalLotsAreReadFromAFourteenthFieldOnly)
{
    for (const auto &c : {std::make_pair(13, 7), std::make_pair(14, 55)}) {
        SCOPED_TRACE(c.first);
        COpBasketParamsWidget *form = makeForm();
        form->cell(P::CellTotalLots)->setInt(7);
        // The thirteenth field is where the lots are written; the reader looks one further.
        QStringList fields = perTabText(TOT_SELL, 0, QString(), {{12, QStringLiteral("99")}}, c.first).split(QLatin1Char('*'));
        if (fields.size() > 13)
            fields[13] = QStringLiteral("55");
        form->setParam(formText({{"BS", QStringLiteral("1024")},
                                 {"bsonParam", formText({{"COM_SELL", fields.join(QLatin1Char('*'))}})}}));
        EXPECT_EQ(form->cell(P::CellTotalLots)->toInt(), c.second);
    }
}

// An old text with every part set to something recognisable; each prefix of it is a text an
// older client may have saved. Old clients wrote no ";" inside a part, so the blocks' parts are
// texts of the block's memory without one.
class OldText : public ParamPersistence
{
protected:
    void SetUp() override
    {
        ParamPersistence::SetUp();
        addAccount("a1", ttservice::BROKER_TYPE_STOCK);
        addAccount("a2", ttservice::BROKER_TYPE_STOCK);
        storeBasket(QStringLiteral("红利"), ttservice::BROKER_TYPE_STOCK);
    }

    static QStringList parts()
    {
        // Tab, block, hedge, accounts, basket, buy and sell blocks, auto-hedge, mode, copies, money,
        // credit and futures operations, bar, contract kind, then the per-tab entries.
        return QStringLiteral("1024;checkedIds=0*1:currentOrderType=4:;IH2402,80,1,2;a2:3;红利;"
                              "checkedIds=0*1:currentOrderType=5:;checkedIds=0*1:currentOrderType=5:;"
                              "0;1;4;12345;22;14;1:50;49")
                   .split(QLatin1Char(';'))
               << perTabText(TOT_SELL, 0, QStringLiteral("红利"),
                             {{5, QStringLiteral("1")}, {6, QStringLiteral("4")}, {7, QStringLiteral("12345")}})
               << perTabText(TOT_CREDIT, 0, QString());
    }
};

TEST_F(OldText, EveryLengthAppliesExactlyThePartsItHas)
{
    const QStringList all = parts();
    ASSERT_EQ(all.size(), 17);
    for (int n = 0; n <= all.size(); ++n) {
        SCOPED_TRACE(n);
        COpBasketParamsWidget *form = makeForm();
        // Left on the sell tab: an empty text goes back to the buy tab and tells it twice.
        form->setCurrentOperationType(TOT_SELL);
        parent.seen.clear();
        const int defaultOrderType = form->stockParams()->getOrderType();
        ASSERT_NE(defaultOrderType, 4);
        const QString defaultContract = form->hedgeWidget()->hedgeContractCode();
        form->setParam(all.mid(0, n).join(QLatin1Char(';')));

        EXPECT_EQ(form->getTradeOpType(), n > 0 ? TOT_SELL : TOT_BUY);
        EXPECT_EQ(form->getOperationType(), n > 0 ? 19 : 18);
        EXPECT_EQ(eventCount(1072, static_cast<int>(form->getTradeOpType())), n > 0 ? 1 : 2);
        EXPECT_EQ(form->stockParams()->getOrderType(), n > 1 ? 4 : defaultOrderType);
        EXPECT_EQ(form->hedgeWidget()->hedgeContractCode(), n > 2 ? QStringLiteral("IH2402") : defaultContract);
        EXPECT_EQ(form->accountsWidget()->getSelectedAccounts(), n > 3 ? QSet<QString>{QStringLiteral("a2")} : QSet<QString>());
        EXPECT_EQ(form->basketsCombo()->currentText(), n > 4 ? QStringLiteral("红利") : COpBasketsComboBox::noBasketText());
        // Without a basket the sell tab offers no sizing mode at all.
        EXPECT_EQ(form->getCurrentVolumnType(), n > 8 ? VT_MONEY : (n > 4 ? VT_COPIES : -1));
        EXPECT_DOUBLE_EQ(form->cell(P::CellCopies)->toDouble(), n > 9 ? 4.0 : 1.0);
        EXPECT_DOUBLE_EQ(form->cell(P::CellMoney)->toDouble(), n > 10 ? 12345.0 : 0.0);
        EXPECT_EQ(form->crdWidget()->currentOptMemory(), n > 11 ? 22 : 20);
        EXPECT_EQ(form->ftrWidget()->currentOptMemory(), n > 12 ? 14 : 0);
        EXPECT_EQ(form->buttonsBar()->param(), n > 13 ? QStringLiteral("1:50") : QStringLiteral("0:49"));
        EXPECT_EQ(form->contractCombo()->currentData().toInt(), n > 14 ? 49 : 48);
        EXPECT_EQ(form->hedgeParams().contains(TOT_SELL), n > 15);
        EXPECT_EQ(form->hedgeParams().contains(TOT_CREDIT), n > 16);

        // Saved again, the text is of the current kind and reads back the same.
        const QString upgraded = form->param();
        ASSERT_TRUE(upgraded.startsWith(QLatin1Char('{')));
        COpBasketParamsWidget *again = makeForm();
        again->setParam(upgraded);
        EXPECT_EQ(withoutTabMemory(again->param()).toStdString(), withoutTabMemory(upgraded).toStdString());
        delete again;
        delete form;
    }
}

// An old text's auto-hedge tick (the text above sets an algorithm order, which is never hedged,
// so the tick is read here beside a plain one): on comes back on, off clears a tick the form had.
TEST_F(ParamPersistence, OldTextsAutoHedgeTickComesBackAsSaved)
{
    for (const bool on : {true, false}) {
        COpBasketParamsWidget *form = makeForm();
        form->hedgeWidget()->setAutoHedge(!on);
        form->setParam(QStringLiteral("1024;;;;;;;") + (on ? QLatin1Char('1') : QLatin1Char('0')));
        EXPECT_EQ(form->hedgeWidget()->isAutoHedgeCheck(), on) << on;
    }
}

// The futures settings of the bar (close today first, hedge flag) reach every futures line: a
// text that does not carry them leaves them as they stand, one that does sets them.
TEST_F(ParamPersistence, TheBarsFuturesSettingsChangeOnlyWithTheirOwnText)
{
    COpBasketParamsWidget *form = makeForm();
    form->buttonsBar()->setParam(QStringLiteral("1:51"));
    form->setParam(formText({{"BS", QStringLiteral("2")}}));
    EXPECT_EQ(form->buttonsBar()->param(), QStringLiteral("1:51"));
    form->setParam(formText({{"BS", QStringLiteral("2")}, {"BB", QStringLiteral("0:50")}}));
    EXPECT_EQ(form->buttonsBar()->param(), QStringLiteral("0:50"));
}

TEST_F(ParamPersistence, DamagedTextFallsBackToTheOldReader)
{
    addAccount("a1", ttservice::BROKER_TYPE_STOCK);
    storeBasket(QStringLiteral("b"), ttservice::BROKER_TYPE_STOCK);
    COpBasketParamsWidget *source = makeForm();
    source->handleEvent(5, static_cast<int>(TOT_SELL), 0, QString(), nullptr);
    source->accountsWidget()->setSelectedAccount(QStringLiteral("a1"), true);
    source->basketsCombo()->setBasket(QStringLiteral("b"), false);
    const QString good = source->param();

    // A broken inner object is found only after the outer keys were read: the old reader then
    // takes the whole text, whose first part is no tab word.
    QString brokenInner = formText({{"BS", QStringLiteral("1024")}, {"bsonParam", QStringLiteral("{\"COM_SELL\":")}});
    const QStringList damaged = {good.left(good.size() / 2), good.mid(1), QString(good).replace(QLatin1Char('"'), QLatin1Char('\'')),
                                 brokenInner, QStringLiteral("[1,2]"), QStringLiteral("1024;;;;;;;;x;1e999;nan;;;;;*;-5*"),
                                 QStringLiteral("-1;"), QStringLiteral("6144;"),
                                 QStringLiteral("{\"BS\":\"-1\",\"VTB\":\"99\",\"CC\":\"1e300\",\"MC\":\"inf\"}")};
    for (const QString &text : damaged) {
        SCOPED_TRACE(text.toStdString());
        COpBasketParamsWidget *form = makeForm();
        form->setParam(text);
        const quint64 tab = form->getTradeOpType();
        EXPECT_NE(tab, 0u);
        // Whatever was read, the form saves a text of the current kind, on the tab it is on.
        const QString saved = form->param();
        COpBasketParamsWidget *again = makeForm();
        again->setParam(saved);
        EXPECT_EQ(again->getTradeOpType(), tab);
        delete again;
        delete form;
    }

    for (const QString &text : {brokenInner, QStringLiteral("-1;"), QStringLiteral("{\"BS\":\"-1\"}")}) {
        COpBasketParamsWidget *form = makeForm();
        form->setParam(text);
        EXPECT_EQ(form->getTradeOpType(), TOT_BUY) << text.toStdString();
    }
}

// The blocks whose price type the text carries; none where the tab's block keeps it only per
// operation it has left (credit and futures).
enum Blocks { NoBlock, StockBlock, BuySellBlocks, FuturesOneKeyBlocks, ConnectBlocks };

std::vector<COpBasketStockParamsWidget *> blocksOf(const COpBasketParamsWidget &form, Blocks blocks)
{
    switch (blocks) {
    case StockBlock: return {form.stockParams()};
    case BuySellBlocks: return {form.buySellWidget()->getBuyParam(), form.buySellWidget()->getSellParam()};
    case FuturesOneKeyBlocks: return {form.ftrOneKeyWidget()->getBuyParam(), form.ftrOneKeyWidget()->getSellParam()};
    case ConnectBlocks: return {form.ggtWidget()->getBuyParam(), form.ggtWidget()->getSellParam()};
    default: return {};
    }
}

// A form state set up on one tab: two accounts, a basket, sizing by money and a price type.
struct TabState
{
    const char *name;
    quint64 tab;
    ttservice::EVQBrokerType accountBroker;
    ttservice::EVQBrokerType basketBroker;
    std::list<std::string> modulesOff;
    Blocks blocks;
};

class RoundTrip : public ParamPersistence, public ::testing::WithParamInterface<TabState>
{
};

TEST_P(RoundTrip, FreshFormReadsBackTheSameText)
{
    const TabState &c = GetParam();
    switchOn(c.modulesOff, false);
    for (const char *key : {"x1", "x2", "x3"})
        addAccount(key, c.accountBroker);
    storeBasket(QStringLiteral("组合"), c.basketBroker);

    COpBasketParamsWidget *source = makeForm();
    source->setCurrentOperationType(c.tab);
    ASSERT_EQ(source->getTradeOpType(), c.tab);
    source->accountsWidget()->setSelectedAccount(QStringLiteral("x1"), true);
    source->accountsWidget()->setSelectedAccount(QStringLiteral("x3"), true);
    source->accountsWidget()->setAccountWeight(QStringLiteral("x3"), 2.5);
    source->basketsCombo()->setBasket(QStringLiteral("组合"), false);
    ASSERT_EQ(source->currentBasketName(), QStringLiteral("组合"));
    source->volumnCombobox()->setCurrentIndex(source->volumnCombobox()->findData(VT_MONEY));
    source->handleEvent(64, 17, 0, QString(), nullptr);
    source->cell(P::CellMoney)->setDouble(1234567.89); // more digits than a short number form keeps
    int priceType = 1;
    for (COpBasketStockParamsWidget *block : blocksOf(*source, c.blocks))
        block->table()->setPriceType(++priceType);
    const QString text = source->param();

    COpBasketParamsWidget *restored = makeForm();
    restored->setParam(text);
    EXPECT_EQ(restored->param(), text);
    QStringList accounts = restored->accountsWidget()->getSelectedAccounts().values();
    accounts.sort();
    // The tab, basket, ticked accounts and a weight, the sizing mode, its amount and the one cell shown.
    EXPECT_EQ(fields(restored->getTradeOpType(), restored->currentBasketName(), accounts.join(QLatin1Char(',')),
                     restored->accountsWidget()->getAccountWeight(QStringLiteral("x3")),
                     restored->getCurrentVolumnType(), restored->cell(P::CellMoney)->toDouble(),
                     restored->cell(P::CellCopies)->isHidden()),
              fields(c.tab, "组合", "x1,x3", 2.5, VT_MONEY, 1234567.89, true));
    const auto sourceBlocks = blocksOf(*source, c.blocks);
    const auto restoredBlocks = blocksOf(*restored, c.blocks);
    for (size_t i = 0; i < sourceBlocks.size(); ++i)
        EXPECT_EQ(restoredBlocks[i]->getPriceType(), sourceBlocks[i]->getPriceType()) << i;
}

INSTANTIATE_TEST_SUITE_P(
    Tabs, RoundTrip,
    ::testing::Values(
        TabState{"buy", TOT_BUY, ttservice::BROKER_TYPE_STOCK, ttservice::BROKER_TYPE_STOCK, {}, StockBlock},
        TabState{"sell", TOT_SELL, ttservice::BROKER_TYPE_STOCK, ttservice::BROKER_TYPE_STOCK, {}, StockBlock},
        TabState{"oneKey", TOT_ALL, ttservice::BROKER_TYPE_STOCK, ttservice::BROKER_TYPE_STOCK, {}, BuySellBlocks},
        TabState{"credit", TOT_CREDIT, ttservice::BROKER_TYPE_CREDIT, ttservice::BROKER_TYPE_STOCK, {}, NoBlock},
        TabState{"futures", TOT_FUTURE, ttservice::BROKER_TYPE_FUTURE, ttservice::BROKER_TYPE_FUTURE, {}, NoBlock},
        TabState{"oneKeyFutures", TOT_ONEKEY_FUTURE, ttservice::BROKER_TYPE_FUTURE, ttservice::BROKER_TYPE_FUTURE, {},
                 FuturesOneKeyBlocks},
        TabState{"shanghaiConnect", TOT_HGT, ttservice::BROKER_TYPE_HGT, ttservice::BROKER_TYPE_HGT, {}, ConnectBlocks},
        TabState{"shenzhenConnect", TOT_SGT, ttservice::BROKER_TYPE_SGT, ttservice::BROKER_TYPE_SGT, {}, ConnectBlocks},
        TabState{"shenzhenConnectAlone", TOT_SGT, ttservice::BROKER_TYPE_SGT, ttservice::BROKER_TYPE_SGT,
                 {"mdl_order_compose_hgt"}, ConnectBlocks}),
    [](const auto &info) { return std::string(info.param.name); });

// A sizing mode chosen by the trader and the one cell it is typed in.
struct ModeCase { const char *name; int mode; int cell; double value; };

class RestoredMode : public ParamPersistence, public ::testing::WithParamInterface<ModeCase>
{
};

TEST_P(RestoredMode, ShowsTheCellTheModeIsTypedIn)
{
    const ModeCase &c = GetParam();
    addAccount("x1", ttservice::BROKER_TYPE_STOCK);
    // Every mode sizes to something: total assets, and a product with its net value.
    const auto data = ttservice::TraderCenter::instance()->getDataCenter()->getAccountData("x1");
    ttservice::CAccountDetail detail = *data->getAccountDetail();
    detail.m_totalAsset = 3e8;
    data->setAccountDetail(detail);
    ttservice::CProductInfo product;
    product.m_productId = 7;
    getUserConfig()->setAccountProduct("x1", product);
    auto netValue = boost::make_shared<ttservice::CProductNetValue>();
    netValue->m_productId = 7;
    netValue->m_netValue = 2e8;
    data->setData(ttservice::DATA_TYPE_PRODUCT_NET_VALUE, netValue);
    sample::setQuote("SH", "600000", 10.0, 10.0);
    sample::setQuote("SH", "000300", 3900.0, 3900.0);
    // An index basket of the CSI 300 offers every mode on the buy tab, sizing by index units too.
    sample::storeBasket(QStringLiteral("沪深300"), {sample::row("SH", "600000", 1, 100)}, ttservice::BROKER_TYPE_STOCK, 1,
                        QStringLiteral("000300"));

    COpBasketParamsWidget *source = makeForm();
    source->setCurrentOperationType(TOT_BUY);
    source->accountsWidget()->setSelectedAccount(QStringLiteral("x1"), true);
    source->basketsCombo()->setBasket(QStringLiteral("沪深300"), false);
    source->volumnCombobox()->setCurrentIndex(source->volumnCombobox()->findData(c.mode));
    source->handleEvent(64, 17, 0, QString(), nullptr);
    source->cell(c.cell)->setDouble(c.value);
    source->updateBasketConfirmData();
    ASSERT_EQ(source->getCodeOrderParams()->size(), 1u);
    const int64_t sized = source->getCodeOrderParams()->front().m_volume;
    EXPECT_GT(sized, 0);
    const QString text = source->param();

    COpBasketParamsWidget *restored = makeForm();
    restored->setParam(text);
    ASSERT_EQ(restored->getCurrentVolumnType(), c.mode);
    for (int cell : {P::CellCopies, P::CellMoney, P::CellRatio, P::CellAssetRatio, P::CellTotalLots})
        EXPECT_EQ(!restored->cell(cell)->isHidden(), cell == c.cell) << "cell " << cell;
    if (c.cell != P::CellTotalLots) {
        EXPECT_DOUBLE_EQ(restored->cell(c.cell)->toDouble(), c.value);
    }
    EXPECT_EQ(restored->param(), text);
    // The list on view is sized by the restored mode, not by the one the combo held before.
    ASSERT_EQ(restored->getCodeOrderParams()->size(), 1u);
    EXPECT_EQ(restored->getCodeOrderParams()->front().m_volume, sized);
}

INSTANTIATE_TEST_SUITE_P(
    Modes, RestoredMode,
    ::testing::Values(ModeCase{"money", VT_MONEY, P::CellMoney, 300000},
                      ModeCase{"netValue", VT_NET_VALUE, P::CellRatio, 40},
                      ModeCase{"available", VT_AVAILABLE, P::CellRatio, 25},
                      ModeCase{"assetRatio", VT_ASSET_RATIO, P::CellAssetRatio, 15},
                      // The lots themselves are not read back (the per-tab reader looks one field
                      // past where they are written); the cell must still be the one on view.
                      ModeCase{"indexUnits", VT_INDEX_UNIT, P::CellTotalLots, 1}),
    [](const auto &info) { return std::string(info.param.name); });

TEST_F(ParamPersistence, AnyBasketNameSurvivesATabSwitchAndARestart)
{
    // Marks of the text's own formats: placeholders of its builder, separators of its levels.
    for (const QString &name : {QStringLiteral("b%1x%2"), QStringLiteral("a*b%"), QStringLiteral("x/y|z")}) {
        SCOPED_TRACE(name.toStdString());
        storeBasket(name, ttservice::BROKER_TYPE_STOCK);
        CBasketOperationPanel panel(2, nullptr);
        COpBasketParamsWidget *form = panel.basketWidget()->paramsWidget();
        form->basketsCombo()->setBasket(name, false);
        form->cell(P::CellCopies)->setInt(3);
        form->handleEvent(5, static_cast<int>(TOT_SELL), 0, QString(), nullptr);
        form->handleEvent(5, static_cast<int>(TOT_BUY), 0, QString(), nullptr);
        EXPECT_EQ(form->currentBasketName(), name);
        EXPECT_EQ(form->cell(P::CellCopies)->toInt(), 3);

        CBasketOperationPanel restored(2, nullptr);
        restored.setParam(QStringLiteral("frame|frame|") + panel.param());
        EXPECT_EQ(restored.basketWidget()->paramsWidget()->currentBasketName(), name);
        EXPECT_EQ(restored.basketWidget()->paramsWidget()->hedgeParams(), form->hedgeParams());
        EXPECT_EQ(restored.param(), panel.param());
    }
}

TEST_F(ParamPersistence, AccountsOfAnotherTabAreTickedWhenTheListShowsThem)
{
    addAccount("s1", ttservice::BROKER_TYPE_STOCK);
    addAccount("c1", ttservice::BROKER_TYPE_CREDIT);
    addAccount("c2", ttservice::BROKER_TYPE_CREDIT);
    COpAccountsWidget *accounts = makeForm()->accountsWidget();
    accounts->setSelectedAccount(QStringLiteral("s1"), true);

    accounts->setParam(QStringLiteral("c1:2,c2:x,gone:1"));
    EXPECT_TRUE(accounts->getSelectedAccounts().isEmpty()) << "the text names only credit accounts";
    EXPECT_TRUE(accounts->param().isEmpty());

    accounts->setTradeOpType(TOT_CREDIT);
    EXPECT_EQ(accounts->getSelectedAccounts(), (QSet<QString>{QStringLiteral("c1"), QStringLiteral("c2")}));
    EXPECT_DOUBLE_EQ(accounts->getAccountWeight(QStringLiteral("c1")), 2.0);
    EXPECT_EQ(accounts->param(), QStringLiteral("c1:2,c2:1"));

    // A choice made since is not overridden by what an older text named.
    accounts->setParam(QStringLiteral("s1:1"));
    accounts->clearCheckStatus();
    accounts->setTradeOpType(TOT_BUY);
    EXPECT_TRUE(accounts->getSelectedAccounts().isEmpty());
}

} // namespace
