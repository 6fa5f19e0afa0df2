// Edits a trader makes in the confirmation table must survive every later recalculation of the
// list. The whole-panel sessions edit, delete, switch and add at random on every tab; here the
// custom group the edits make, what it keeps of a line, and what it refuses.
#include "CHpfOpConfirmWidget.h"
#include "COpBasketParamsEditWidget.h"
#include "COpBasketParamsWidget.h"
#include "COpBasketReplaceStockToolBar.h"
#include "COpBasketsComboBox.h"
#include "COperationBasketWidget.h"
#include "COrderParamTable.h"

#include "CCheckBox.h"
#include "COpAccountsWidget.h"
#include "CParameterCell.h"
#include "SampleMarket.h"
#include "Fields.h"
#include "SubstituteFixture.h"
#include "../platform/EventRecorder.h"

#include <map>

using namespace TC;
using ttservice::CCodeOrderParam;

namespace {

CBasketStockData row(const char *code, int64_t volume) { return sample::row("SH", code, 1, volume); }

ttservice::CStockInfo stock(const char *market, const char *code)
{
    return ttservice::CStockInfo(market, code, std::string("n") + code);
}

class BasketEdits : public SubstituteTest
{
protected:
    void SetUp() override
    {
        SubstituteTest::SetUp();
        getUserConfig()->setRole(90);
        getUserConfig()->setUserId("u1");
        for (const char *key : {"a1", "a2"})
            sample::addAccount(key, ttservice::BROKER_TYPE_STOCK, 1e7);
        for (const char *code : {"600000", "600001", "600002", "600003"}) {
            sample::addInstrument("SH", code);
            sample::setQuote("SH", code, 10, 10);
        }
        sample::storeBasket(QStringLiteral("b"), {row("600000", 100), row("600001", 200)});

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

    bool editVolume(const std::string &account, const std::string &code, int volume)
    {
        return table()->submitEdit(rowOf(account, code), COpBasketConfirmWidget::COL_VOLUME, QString::number(volume));
    }

    // "account code" to "operation volume" of every line, as the form holds them now.
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

    bool isCustomGroup() const
    {
        return form()->basketsCombo()->batchOp() == ETempBatchOrderFlags(BATCH_CUSTOM_GROUP);
    }

    EventRecorder root;
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

    ASSERT_TRUE(editVolume("a2", "600001", 700));
    EXPECT_TRUE(isCustomGroup());
    EXPECT_EQ(form()->basketsCombo()->currentText(), QStringLiteral("自定义组合"));

    // Copies, accounts and a regeneration no longer size the list: it states its volumes.
    recalculate(9);
    const std::map<std::string, std::string> edited = {
        {"a1 600000", "18 200"}, {"a2 600000", "18 200"}, {"a1 600001", "18 400"}, {"a2 600001", "18 700"}};
    EXPECT_EQ(lines(), edited);
    EXPECT_EQ(table()->itemLonglong(rowOf("a2", "600001"), COpBasketConfirmWidget::COL_VOLUME), 700);

    // A second edit, now on the group, lands too.
    ASSERT_TRUE(editVolume("a1", "600000", 300));
    recalculate(1);
    EXPECT_EQ(lines().at("a1 600000") + ", " + lines().at("a2 600001"), "18 300, 18 700");

    // Removing what is not there changes nothing; the stored basket is left as it was.
    const std::map<std::string, std::string> kept = lines();
    form()->slotRemoveData({row("688888", 100)});
    EXPECT_TRUE(isCustomGroup());
    EXPECT_EQ(lines(), kept);
    EXPECT_EQ(fields(getUserConfig()->baskets().value(QStringLiteral("b")).m_stocks.size(),
                     getUserConfig()->baskets().value(QStringLiteral("b")).m_stocks.first().m_volume),
              "2|100");

    // An account ticked now has no edited lines of its own: the trader is told, not left guessing.
    sample::addAccount("a3", ttservice::BROKER_TYPE_STOCK, ttservice::NO_VALUE);
    form()->refreshAccounts();
    form()->accountsWidget()->setSelectedAccount(QStringLiteral("a3"), true);
    form()->handleEvent(1167, 8, 0, QString(), nullptr);
    EXPECT_TRUE(shownMessages().contains(QStringLiteral("新勾选的账号 a3 没有委托行"))) << shownMessages().toStdString();
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
    EXPECT_EQ(fields(rows.first().m_volume, rows.first().m_accountKey), "500|a1");

    line.m_price = 13.5;
    line.m_touchType = 1;
    line.m_touchPrice = 9.5;
    form()->changeBascketData(&line);
    const CBasketStockData &edited = form()->tabBaskets().value(TOT_BUY).m_basketList.first();
    EXPECT_EQ(fields(edited.m_price, edited.m_touchType, edited.m_touchPrice), "13.5|1|9.5");
}

TEST_F(BasketEdits, StocksFromTheKeyboardAreAddedOnceAndOnlyOfTheTabsMarkets)
{
    form()->onSelectStock(stock("SH", "600002"), SKT_STOCK);
    EXPECT_TRUE(isCustomGroup());
    EXPECT_EQ(lines().count("a1 600002"), 1u);
    EXPECT_EQ(lines().count("a2 600002"), 1u);
    const size_t count = form()->getCodeOrderParams()->size();

    form()->onSelectStock(stock("SH", "600002"), SKT_STOCK);
    form()->onSelectStock(stock("SH", "600000"), SKT_STOCK);
    EXPECT_EQ(form()->getCodeOrderParams()->size(), count) << "a stock in the list is not added twice";

    sample::addInstrument("CFFEX", "IF2612");
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
    // Rows of (market, operation).
    const struct { const char *name; std::vector<std::pair<const char *, int>> rows; quint64 expected; } cases[] = {
        {"unknownBasket", {}, TOT_BUY},
        {"buys", {{"SH", 18}}, TOT_BUY},
        {"sells", {{"SZ", 19}}, TOT_SELL},
        {"both", {{"SH", 18}, {"SZ", 19}}, TOT_ALL},
        {"futuresOneSide", {{"CFFEX", 18}}, TOT_FUTURE},
        {"futuresBothSides", {{"CFFEX", 18}, {"CFFEX", 19}}, TOT_ONEKEY_FUTURE},
    };
    TC::resetAllSubstitutes();
    COpBasketParamsWidget form(nullptr);
    for (const auto &c : cases) {
        QList<CBasketStockData> rows;
        for (const auto &r : c.rows)
            rows << sample::row(r.first, "1", 0, 0, static_cast<ttservice::EOperationType>(r.second));
        if (!rows.isEmpty())
            sample::storeBasket(QString::fromLatin1(c.name), rows);
        EXPECT_EQ(form.getAutoImportBasketsOpType(QString::fromLatin1(c.name)), c.expected) << c.name;
    }
}
