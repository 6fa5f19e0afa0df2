#include "COpBasketParamsWidget.h"
#include "COpBasketsComboBox.h"

#include "CMessageBox.h"
#include "CMsgService.h"
#include "COpAccountsWidget.h"
#include "COpBasketFutureParamsWidget.h"
#include "CParameterCell.h"
#include "CTradeClient.h"
#include "LuaModuleCtrl.h"
#include "SampleMarket.h"
#include "Fields.h"
#include "SubstituteFixture.h"

#include <memory>

using namespace TC;
using ttservice::CCodeOrderParam;
using sample::addInstrument;
using sample::setQuote;

namespace {

class OrderChecks : public SubstituteTest
{
protected:
    void SetUp() override
    {
        SubstituteTest::SetUp();
        getUserConfig()->setRole(90);
        luawrapper::LuaModuleCtrl::instance()->setModules({"mdl_order", "mdl_order_compose_basket_buy_sell",
                                                           "mdl_order_compose_futures", "mdl_order_compose_hedge"},
                                                          true);
        getUserConfig()->setUserAuth(1, true);
        form = std::make_unique<COpBasketParamsWidget>(nullptr);
    }

    void addAccount(const std::string &key, double available, const std::string &name = std::string(),
                    ttservice::EVQBrokerType broker = ttservice::BROKER_TYPE_STOCK)
    {
        ttservice::CAccountInfo info;
        info.m_accountKey = key;
        info.m_accountId = key + "-id";
        info.m_accountName = name;
        info.m_brokerType = broker;
        ttservice::CAccountDetail detail;
        detail.m_available = available;
        getUserConfig()->addAccount(info, detail);
        form->refreshAccounts();
        form->accountsWidget()->setSelectedAccount(QString::fromStdString(key), true);
    }

    // Stores a basket of the given number of SH stocks from 600000 on and chooses it.
    void chooseBasket(const QString &name, int rows, ttservice::EVQBrokerType broker = ttservice::BROKER_TYPE_STOCK)
    {
        QList<CBasketStockData> stocks;
        for (int i = 0; i < rows; ++i)
            stocks << sample::row("SH", QByteArray::number(600000 + i).constData(), 0, 0);
        sample::storeBasket(name, stocks, broker);
        form->updateBasketSetting();
        form->basketsCombo()->setBasket(name, false);
    }

    bool runCheck()
    {
        error.clear();
        log.clear();
        return form->check(error, log);
    }

    static CCodeOrderParam line(const char *code, int operation, int64_t volume)
    {
        CCodeOrderParam l;
        l.m_stockInfo = ttservice::CStockInfo("SH", code);
        l.m_operationType = static_cast<ttservice::EOperationType>(operation);
        l.m_volume = volume;
        return l;
    }

    std::unique_ptr<COpBasketParamsWidget> form;
    QString error;
    QString log;
};

} // namespace

// --- check ---

TEST_F(OrderChecks, AccountsMustBeChosenAndLoggedIn)
{
    chooseBasket(QStringLiteral("b"), 1);
    EXPECT_FALSE(runCheck());
    EXPECT_EQ(error, QStringLiteral("您没有选择任何账号!"));
    ASSERT_FALSE(getMsgService()->shownMessages().empty());
    EXPECT_EQ(getMsgService()->shownMessages().back().m_text, error);

    // The batch-sell list brings its own accounts.
    form->basketsCombo()->setBatchOp(BATCH_SELL, false);
    EXPECT_TRUE(runCheck());

    form->basketsCombo()->setBasket(QStringLiteral("b"), false);
    addAccount("a1", 0, "主账户");
    addAccount("a2", 0);
    CTradeClient::instance()->setLoginStatus("a2", ttservice::LOGIN_STATUS_DISCONNECTED);
    EXPECT_FALSE(runCheck());
    EXPECT_EQ(error, QStringLiteral("账号 [a2-id] 尚未登录, 下单无法完成!")) << "without a name the account id stands";
    CTradeClient::instance()->setLoginStatus("a2", ttservice::LOGIN_STATUS_READY);
    EXPECT_TRUE(runCheck());
    EXPECT_EQ(log, QStringLiteral("basket=b, copies=1"));
}

TEST_F(OrderChecks, BasketMustBeStoredAndHoldStocksForManagers)
{
    // The picker's text, the rows of the stored basket (-1: not stored) and the error (empty: passes).
    const struct { const char *name; int role; const char *basket; int rows; const char *error; } cases[] = {
        {"stored", 90, "b", 2, ""},
        {"unknownName", 90, "nope", -1, "您选择的篮子不正确!"},
        {"emptyBasket", 90, "e", 0, "您选择的篮子不包含任何股票!"},
        {"traderUnstoredName", 200, "指令篮子", -1, ""},
        {"traderEmptyText", 200, "", -1, "您选择的篮子不正确!"},
    };
    addAccount("a1", 0);
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        getUserConfig()->setRole(c.role);
        const QString name = QString::fromUtf8(c.basket);
        if (c.rows >= 0)
            chooseBasket(name, c.rows);
        form->basketsCombo()->setCurrentText(name);
        EXPECT_EQ(runCheck(), QString::fromUtf8(c.error).isEmpty());
        EXPECT_EQ(error, QString::fromUtf8(c.error));
    }
}

TEST_F(OrderChecks, CopiesTruncateBeforeTheSignTest)
{
    addAccount("a1", 0);
    chooseBasket(QStringLiteral("b"), 1);
    for (const double value : {0.0, -0.5, -1.0}) {
        form->cell(COpBasketParamsWidget::CellCopies)->setDouble(value);
        EXPECT_EQ(runCheck(), value > -1) << value;
    }
    EXPECT_EQ(error, QStringLiteral("篮子份数必须大于0!"));
}

TEST_F(OrderChecks, HedgeFailureStopsOnlyOffTheFuturesTabs)
{
    addAccount("a1", 0);
    chooseBasket(QStringLiteral("b"), 1);
    form->hedgeWidget()->setAutoHedge(true);
    form->hedgeWidget()->setHedgeContractCode(QStringLiteral("IF9999"));
    EXPECT_FALSE(runCheck()) << "an unknown contract cannot hedge a stock basket";

    form->setCurrentOperationType(TOT_FUTURE);
    addAccount("f1", 0, std::string(), ttservice::BROKER_TYPE_FUTURE);
    chooseBasket(QStringLiteral("f"), 1, ttservice::BROKER_TYPE_FUTURE);
    form->hedgeWidget()->setAutoHedge(true);
    ASSERT_TRUE(form->hedgeWidget()->isAutoHedgeCheck());
    EXPECT_TRUE(runCheck()) << "on the futures tab a failed hedge does not stop the order";
    form->cell(COpBasketParamsWidget::CellCopies)->setDouble(-2);
    EXPECT_FALSE(runCheck()) << "the later checks still run";
}

TEST_F(OrderChecks, MoneyCheckWithTheToleranceAndSellsPayingForBuys)
{
    addAccount("a1", 100000);
    setQuote("SH", "600000", 1);
    setQuote("SH", "600001", 100000.000005);
    setQuote("SH", "600002", 100000.1);
    std::vector<CCodeOrderParam> justOver = {line("600001", 18, 1)};
    std::vector<CCodeOrderParam> tooMuch = {line("600002", 18, 1)};
    std::vector<CCodeOrderParam> noQuote = {line("688888", 18, 1000000)};
    // Over by less than the tolerance, over by more, and a line without a quote.
    EXPECT_EQ(fields(form->checkOrderValid(justOver), form->checkOrderValid(tooMuch), form->checkOrderValid(noQuote)), "true|false|true");

    form->setCurrentOperationType(TOT_SELL);
    EXPECT_TRUE(form->checkOrderValid(tooMuch)) << "sells need no money";

    form->accountsWidget()->clearCheckStatus();
    form->setCurrentOperationType(TOT_ALL);
    std::vector<CCodeOrderParam> swap = {line("600000", 18, 100000), line("600000", 19, 100000)};
    EXPECT_TRUE(form->checkOrderValid(swap));
    swap[1].m_volume = 99999;
    EXPECT_FALSE(form->checkOrderValid(swap));

    // Account by account too: the sells pay for the buys the cash does not cover.
    std::vector<CCodeOrderParam> own = {line("600000", 18, 150000), line("600000", 19, 50000)};
    for (CCodeOrderParam &l : own)
        l.m_account = getUserConfig()->getAccountData(QStringLiteral("a1"));
    EXPECT_EQ(form->accountsShortOfMoney(own).toStdString(), "");
    own[1].m_volume = 49999;
    EXPECT_EQ(form->accountsShortOfMoney(own).toStdString(), "可用资金不足, 未下单: a1-id 需 100001.00, 可用 100000.00");
}

class PatchChecks : public OrderChecks
{
protected:
    void SetUp() override
    {
        OrderChecks::SetUp();
        addInstrument("SZ", "000001", 0x7fffffff, "平安银行");
        addInstrument("SH", "600000", 0x7fffffff, "浦发银行");
        addInstrument("CFFEX", "IF2412", 300, "沪深300股指2412");
        setQuote("SZ", "000001", 12.5);
    }

    QList<CBasketStockData> stored(quint64 tab) const { return form->clipboardStocks().value(tab); }

    int warnings() const { return WK::CMessageBox::records().size(); }
};

TEST_F(PatchChecks, RowsArePaddedLookedUpAndRead)
{
    quint64 tab = 0;
    ASSERT_TRUE(form->checkPatch(QStringLiteral("1\t\t300\n600000\tx\t200\t0.4\t买入\n999999\t\t100\n600000\t\t100"),
                                 tab, false));
    EXPECT_EQ(tab, TOT_BUY);
    const QList<CBasketStockData> rows = stored(TOT_BUY);
    ASSERT_EQ(rows.size(), 2) << "unknown codes and repeated stocks are dropped";
    // The first row padded: its name looked up, and three columns weigh by the last price.
    EXPECT_EQ(fields(rows[0].key(), rows[0].m_stockName, rows[0].m_volume, rows[0].m_weight, rows[1].m_weight, rows[1].m_entrustBs),
              "000001.SZ|平安银行|300|12.5|0.4|48");
    EXPECT_TRUE(form->clipboardHasWeight()) << "the last line decides";

    // A code and a quantity per line is the short form.
    ASSERT_TRUE(form->checkPatch(QStringLiteral("000001\t1,500\r\n600000 \t 200\r\n"), tab, false));
    const QList<CBasketStockData> shortRows = stored(TOT_BUY);
    ASSERT_EQ(shortRows.size(), 2);
    EXPECT_EQ(fields(shortRows[0].m_volume, shortRows[1].key(), shortRows[1].m_volume), "1500|600000.SH|200");

    // An instruction's rows choose their tab, and are not compared with the one on view.
    ASSERT_TRUE(form->checkPatch(QStringLiteral("600000\t\t100\t1\t卖出\n000001\t\t100\t1\t0"), tab, true));
    EXPECT_EQ(tab, TOT_ALL);
    ASSERT_TRUE(form->checkPatch(QStringLiteral("IF2412\t\t1\t1\t0\t12\t49"), tab, true));
    EXPECT_EQ(tab, TOT_ONEKEY_FUTURE);
    EXPECT_EQ(warnings(), 0);
}

TEST_F(PatchChecks, FuturesRowsMayRepeatAndSevenColumnsCarryOperationAndHedge)
{
    form->setCurrentOperationType(TOT_FUTURE);
    quint64 tab = 0;
    ASSERT_TRUE(form->checkPatch(QStringLiteral("IF2412\t\t1\t1\t0\t6\t51\nIF2412\t\t2\t1\t1\t9\t49"), tab, false));
    const QList<CBasketStockData> rows = stored(TOT_FUTURE);
    ASSERT_EQ(rows.size(), 2);
    EXPECT_EQ(fields(rows[0].m_operationType, rows[0].m_hedgeFlag, rows[1].m_operationType), "6|51|9");
}

TEST_F(PatchChecks, WrongTypeIsRefusedAndWrongDirectionOnlyWarned)
{
    quint64 tab = 0;
    EXPECT_FALSE(form->checkPatch(QStringLiteral("IF2412\t\t1"), tab, false));
    ASSERT_EQ(warnings(), 1);
    EXPECT_EQ(WK::CMessageBox::records().back().text,
              QStringLiteral("复制的未成量交易类型与当前下单面板交易类型不一致, 无法粘贴数据!"));
    EXPECT_TRUE(form->clipboardStocks().isEmpty());
    EXPECT_FALSE(form->checkPatch(QString(), tab, false)) << "no rows count as futures";

    // One stock row makes the paste a stock paste.
    EXPECT_TRUE(form->checkPatch(QStringLiteral("IF2412\t\t1\n600000\t\t100\t1\t卖出"), tab, false));
    EXPECT_EQ(WK::CMessageBox::records().back().text,
              QStringLiteral("复制的未成量交易方向与当前下单面板交易方向不一致, 请仔细核对!"));
    EXPECT_EQ(stored(TOT_BUY).size(), 2) << "a direction warning still stores the rows";

    form->setCurrentOperationType(TOT_FUTURE);
    EXPECT_FALSE(form->checkPatch(QStringLiteral("600000\t\t100"), tab, false));
    // Nothing recognisable keeps the list and says what a paste looks like.
    EXPECT_FALSE(form->checkPatch(QStringLiteral("hello\tworld"), tab, false));
    EXPECT_TRUE(WK::CMessageBox::records().back().text.startsWith(QStringLiteral("粘贴的内容中没有可识别的证券代码")));
}
