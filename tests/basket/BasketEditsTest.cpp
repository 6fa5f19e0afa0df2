// Edits a trader makes in the confirmation table (volumes, directions, removals, added stocks)
// must survive every later recalculation of the list.
#include "CHpfOpConfirmWidget.h"
#include "COpBasketParamsEditWidget.h"
#include "COpBasketParamsWidget.h"
#include "COpBasketReplaceStockToolBar.h"
#include "COpBasketsComboBox.h"
#include "COperationBasketWidget.h"
#include "COrderParamTable.h"

#include "CBaseWidget.h"
#include "CCheckBox.h"
#include "CTableCellEvent.h"
#include "COpAccountsWidget.h"
#include "COperationPushButtonGroup.h"
#include "CParameterCell.h"
#include "CMsgService.h"
#include "CUserConfig.h"
#include "SampleMarket.h"
#include "SubstituteFixture.h"

#include <QComboBox>
#include <QCoreApplication>

#include <map>
#include <memory>

using namespace TC;
using ttservice::CCodeOrderParam;
using sample::addInstrument;
using sample::setQuote;

namespace {

class Root : public WK::CBaseWidget
{
public:
    Root() : WK::CBaseWidget(QStringLiteral("root"), false, nullptr) {}
};

CBasketStockData row(const char *code, int64_t volume, ttservice::EOperationType operation = ttservice::OT_BUY)
{
    CBasketStockData r;
    r.m_market = QStringLiteral("SH");
    r.m_stockCode = QString::fromLatin1(code);
    r.m_weight = 1;
    r.m_volume = volume;
    r.m_operationType = operation;
    return r;
}

ttservice::CStockInfo stock(const char *market, const char *code)
{
    ttservice::CStockInfo s;
    s.m_market = market;
    s.m_stockCode = code;
    s.m_stockName = std::string("n") + code;
    return s;
}

class BasketEdits : public SubstituteTest
{
protected:
    void SetUp() override
    {
        SubstituteTest::SetUp();
        getUserConfig()->setRole(90);
        getUserConfig()->setUserId("u1");
        for (const char *key : {"a1", "a2"}) {
            ttservice::CAccountInfo info;
            info.m_accountKey = key;
            info.m_accountId = key;
            info.m_brokerType = ttservice::BROKER_TYPE_STOCK;
            ttservice::CAccountDetail detail;
            detail.m_available = 1e7;
            getUserConfig()->addAccount(info, detail);
        }
        for (const char *code : {"600000", "600001", "600002", "600003"}) {
            addInstrument("SH", code);
            setQuote("SH", code, 10, 10);
        }
        CBasketSetting basket;
        basket.m_name = QStringLiteral("b");
        basket.m_stocks = {row("600000", 100), row("600001", 200)};
        getUserConfig()->baskets().insert(basket.m_name, basket);

        widget = new COperationBasketWidget(&root);
        form()->refreshAccounts();
        form()->accountsWidget()->setSelectedAccount(QStringLiteral("a1"), true);
        form()->accountsWidget()->setSelectedAccount(QStringLiteral("a2"), true);
        form()->updateBasketSetting();
        form()->basketsCombo()->setBasket(QStringLiteral("b"), false);
    }

    COpBasketParamsWidget *form() const { return widget->paramsWidget(); }
    COrderParamTable *table() const { return widget->editWidget()->confirmWidget()->table(); }

    // The table row of an account's line of a stock; -1 if the table has none.
    int rowOf(const std::string &account, const std::string &code) const
    {
        for (int visual = 0; visual < table()->rowCount(); ++visual) {
            const int id = table()->rowID(visual);
            if (table()->itemText(id, COpBasketConfirmWidget::COL_CODE).toStdString() == code
                && table()->itemText(id, COpBasketConfirmWidget::COL_ACCOUNT).toStdString() == account)
                return id;
        }
        return -1;
    }

    // "account code operation volume" of every line, sorted, as the form holds them now.
    std::map<std::string, std::string> lines() const
    {
        std::map<std::string, std::string> out;
        for (const CCodeOrderParam &line : *form()->getCodeOrderParams())
            out[line.m_account->getKey() + " " + line.m_stockInfo.m_stockCode] =
                std::to_string(line.m_operationType) + " " + std::to_string(line.m_volume);
        return out;
    }

    void recalculate(double copies)
    {
        form()->cell(COpBasketParamsWidget::CellCopies)->setDouble(copies);
        form()->updateBasketConfirmData();
    }

    Root root;
    COperationBasketWidget *widget = nullptr;
};

} // namespace

TEST_F(BasketEdits, AVolumeEditTurnsTheListIntoTheCustomGroupAndSurvivesRecalculation)
{
    const std::map<std::string, std::string> before = {
        {"a1 600000", "18 100"}, {"a2 600000", "18 0"}, {"a1 600001", "18 100"}, {"a2 600001", "18 100"}};
    ASSERT_EQ(lines(), before);
    recalculate(4);
    ASSERT_EQ(lines().at("a1 600000"), "18 200");

    ASSERT_TRUE(table()->submitEdit(rowOf("a2", "600001"), COpBasketConfirmWidget::COL_VOLUME, QStringLiteral("700")));
    EXPECT_EQ(form()->basketsCombo()->batchOp(), ETempBatchOrderFlags(BATCH_CUSTOM_GROUP));
    EXPECT_EQ(form()->basketsCombo()->currentText(), QStringLiteral("自定义组合"));

    // Copies, accounts and a regeneration no longer size the list: it states its volumes.
    recalculate(9);
    const std::map<std::string, std::string> edited = {
        {"a1 600000", "18 200"}, {"a2 600000", "18 200"}, {"a1 600001", "18 400"}, {"a2 600001", "18 700"}};
    EXPECT_EQ(lines(), edited);
    EXPECT_EQ(table()->itemLonglong(rowOf("a2", "600001"), COpBasketConfirmWidget::COL_VOLUME), 700);

    // A second edit, now on the group, lands too.
    ASSERT_TRUE(table()->submitEdit(rowOf("a1", "600000"), COpBasketConfirmWidget::COL_VOLUME, QStringLiteral("300")));
    recalculate(1);
    EXPECT_EQ(lines().at("a1 600000"), "18 300");
    EXPECT_EQ(lines().at("a2 600001"), "18 700");

    // The stored basket is left as it was.
    EXPECT_EQ(getUserConfig()->baskets().value(QStringLiteral("b")).m_stocks.size(), 2);
    EXPECT_EQ(getUserConfig()->baskets().value(QStringLiteral("b")).m_stocks.first().m_volume, 100);

    // An account ticked now has no edited lines of its own: the trader is told, not left guessing.
    ttservice::CAccountInfo third;
    third.m_accountKey = "a3";
    third.m_accountId = "a3";
    third.m_brokerType = ttservice::BROKER_TYPE_STOCK;
    getUserConfig()->addAccount(third, ttservice::CAccountDetail());
    form()->refreshAccounts();
    form()->accountsWidget()->setSelectedAccount(QStringLiteral("a3"), true);
    form()->handleEvent(1167, 8, 0, QString(), nullptr);
    ASSERT_FALSE(getMsgService()->shownMessages().empty());
    EXPECT_TRUE(getMsgService()->shownMessages().back().m_text.contains(QStringLiteral("新勾选的账号 a3 没有委托行")));
    EXPECT_EQ(lines(), (std::map<std::string, std::string>{
                           {"a1 600000", "18 300"}, {"a2 600000", "18 200"}, {"a1 600001", "18 400"}, {"a2 600001", "18 700"}}));
}

TEST_F(BasketEdits, EditsOfTheGroupKeepTheLinePriceAndTouchSettings)
{
    CCodeOrderParam &line = form()->getCodeOrderParams()->front();
    line.m_volume = 500;
    form()->changeBascketData(&line);
    ASSERT_EQ(form()->customGroupMode(), 0);
    const QList<CBasketStockData> &rows = form()->tabBaskets().value(TOT_BUY).m_basketList;
    ASSERT_EQ(rows.size(), 4) << "one row per account's line";
    EXPECT_EQ(rows.first().m_volume, 500);
    EXPECT_EQ(rows.first().m_accountKey, "a1");

    line.m_price = 13.5;
    line.m_touchType = 1;
    line.m_touchPrice = 9.5;
    form()->changeBascketData(&line);
    const CBasketStockData &edited = form()->tabBaskets().value(TOT_BUY).m_basketList.first();
    EXPECT_DOUBLE_EQ(edited.m_price, 13.5);
    EXPECT_EQ(edited.m_touchType, 1);
    EXPECT_DOUBLE_EQ(edited.m_touchPrice, 9.5);
}

TEST_F(BasketEdits, RemovalsAndDirectionSwitchesStay)
{
    form()->handleEvent(5, static_cast<int>(TOT_ALL), 0, QString(), nullptr); // the tab button
    form()->basketsCombo()->setBasket(QStringLiteral("b"), false);
    recalculate(1);
    ASSERT_EQ(lines().size(), 4u);

    table()->selectRow(rowOf("a1", "600001"));
    table()->deleteSelectedRows();
    QCoreApplication::processEvents();
    EXPECT_EQ(form()->basketsCombo()->batchOp(), ETempBatchOrderFlags(BATCH_CUSTOM_GROUP));
    recalculate(3);
    EXPECT_EQ(lines().count("a1 600001"), 0u) << "a removed line does not come back";
    EXPECT_EQ(lines().size(), 3u);

    const int row = rowOf("a1", "600000");
    WK::CTableCellEvent click(row, COpBasketConfirmWidget::COL_OPERATION, QString::number(COpBasketConfirmWidget::COL_OPERATION));
    widget->editWidget()->confirmWidget()->handleEvent(WK::TE_CELL_CLICKED, row, COpBasketConfirmWidget::COL_OPERATION,
                                                        click.m_text, &click);
    recalculate(1);
    EXPECT_EQ(lines().at("a1 600000").substr(0, 2), "19") << "the switched direction is kept";
}

TEST_F(BasketEdits, RemovingWhatIsNotThereChangesNothing)
{
    ASSERT_TRUE(table()->submitEdit(rowOf("a1", "600000"), COpBasketConfirmWidget::COL_VOLUME, QStringLiteral("300")));
    const std::map<std::string, std::string> kept = lines();
    form()->slotRemoveData({row("688888", 100)});
    EXPECT_EQ(form()->basketsCombo()->batchOp(), ETempBatchOrderFlags(BATCH_CUSTOM_GROUP));
    EXPECT_EQ(lines(), kept);
}

TEST_F(BasketEdits, StocksFromTheKeyboardAreAddedOnceAndOnlyOfTheTabsMarkets)
{
    form()->onSelectStock(stock("SH", "600002"), SKT_STOCK);
    EXPECT_EQ(form()->basketsCombo()->batchOp(), ETempBatchOrderFlags(BATCH_CUSTOM_GROUP));
    EXPECT_EQ(lines().count("a1 600002"), 1u);
    EXPECT_EQ(lines().count("a2 600002"), 1u);
    const size_t count = form()->getCodeOrderParams()->size();

    form()->onSelectStock(stock("SH", "600002"), SKT_STOCK);
    form()->onSelectStock(stock("SH", "600000"), SKT_STOCK);
    EXPECT_EQ(form()->getCodeOrderParams()->size(), count) << "a stock in the list is not added twice";

    // The added stock's line of one account is edited like any other, and the edit lasts.
    ASSERT_TRUE(table()->submitEdit(rowOf("a2", "600002"), COpBasketConfirmWidget::COL_VOLUME, QStringLiteral("500")));
    recalculate(2);
    EXPECT_EQ(lines().at("a2 600002"), "18 500");
    EXPECT_EQ(lines().at("a1 600002"), "18 0");
    EXPECT_EQ(table()->itemLonglong(rowOf("a2", "600002"), COpBasketConfirmWidget::COL_VOLUME), 500);
    form()->onSelectStock(stock("SH", "600003"), SKT_STOCK);
    table()->selectRow(rowOf("a1", "600003"));
    table()->deleteSelectedRows();
    QCoreApplication::processEvents();
    recalculate(3);
    EXPECT_EQ(lines().count("a1 600003"), 0u) << "so is a removal of its line";
    EXPECT_EQ(lines().count("a2 600003"), 1u);

    addInstrument("CFFEX", "IF2612");
    form()->onSelectStock(stock("CFFEX", "IF2612"), SKT_FUTURE);
    EXPECT_EQ(lines().count("a1 IF2612"), 0u) << "a futures code is ignored on a stock tab";
}

TEST_F(BasketEdits, TheBlacklistBoxesStayTheTradersToUntick)
{
    COpBasketReplaceStockToolBar *bar = widget->replaceToolBar();
    for (int id : {2, 4}) {
        bar->checkBox(id)->click();
        recalculate(2);
        EXPECT_TRUE(bar->checkBox(id)->isEnabled()) << id;
        bar->checkBox(id)->click();
        EXPECT_FALSE(bar->checkBox(id)->isChecked()) << id;
    }
}

TEST(BasketImportTab, ChosenByTheOperationsAndMarketsOfTheRows)
{
    struct Case
    {
        const char *name;
        std::vector<std::pair<const char *, int>> rows; // market, operation
        quint64 expected;
    };
    const Case cases[] = {
        {"unknownBasket", {}, TOT_BUY},
        {"buys", {{"SH", 18}}, TOT_BUY},
        {"sells", {{"SZ", 19}}, TOT_SELL},
        {"both", {{"SH", 18}, {"SZ", 19}}, TOT_ALL},
        {"futuresOneSide", {{"CFFEX", 18}}, TOT_FUTURE},
        {"futuresBothSides", {{"CFFEX", 18}, {"CFFEX", 19}}, TOT_ONEKEY_FUTURE},
    };
    TC::resetAllSubstitutes();
    COpBasketParamsWidget form(nullptr);
    for (const Case &c : cases) {
        CBasketSetting basket;
        basket.m_name = QString::fromLatin1(c.name);
        for (const auto &r : c.rows) {
            CBasketStockData d;
            d.m_market = QString::fromLatin1(r.first);
            d.m_stockCode = QStringLiteral("1");
            d.m_operationType = static_cast<ttservice::EOperationType>(r.second);
            basket.m_stocks.push_back(d);
        }
        if (!c.rows.empty())
            getUserConfig()->baskets().insert(basket.m_name, basket);
        EXPECT_EQ(form.getAutoImportBasketsOpType(basket.m_name), c.expected) << c.name;
    }
}
