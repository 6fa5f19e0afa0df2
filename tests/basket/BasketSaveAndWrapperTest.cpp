// Rows of the table saved as a basket (a name in use is refused: the nothing-lost tests), and the
// table's wrapper.
#include "CHpfOpConfirmWidget.h"
#include "COpBasketParamsEditWidget.h"

#include "CBaseDialog.h"
#include "COrderParamTable.h"
#include "CUserConfig.h"
#include "ConfirmTestSupport.h"
#include "Fields.h"
#include "SampleMarket.h"
#include "SubstituteFixture.h"

#include <QTableView>
#include <QDialog>
#include <QKeyEvent>
#include <QSignalSpy>

#include <memory>

using namespace TC;
using ttservice::CCodeOrderParam;

namespace {

class BasketSave : public SubstituteTest
{
protected:
    void SetUp() override
    {
        SubstituteTest::SetUp();
        confirmtest::addAccount("a1", ttservice::BROKER_TYPE_STOCK, 1e7);
        account = getUserConfig()->getAccountData(QStringLiteral("a1"));
        for (const char *code : {"600000", "600001"}) {
            sample::addInstrument("SH", code, 0x7fffffff, std::string("股票") + code);
            sample::setQuote("SH", code, 12.5, 12.0);
        }
        wrapper = new COpBasketParamsEditWidget(&form);
        lines = {line("600000", 100), line("600001", 300)};
        wrapper->loadParams(&lines, TOT_BUY, true);
    }

    void TearDown() override { WK::CBaseDialog::clearScriptedAnswer(); }

    CCodeOrderParam line(const char *code, int64_t volume) const
    {
        CCodeOrderParam l;
        l.m_account = account;
        l.m_stockInfo = ttservice::CStockInfo("SH", code, std::string("股票") + code);
        l.m_operationType = ttservice::OT_BUY;
        l.m_volume = volume;
        return l;
    }

    void saveAs(const QString &name)
    {
        WK::CBaseDialog::setScriptedAnswer(QDialog::Accepted, name);
        wrapper->confirmWidget()->slotSaveBasket();
    }

    boost::shared_ptr<CAccount> account;
    std::vector<CCodeOrderParam> lines; // outlives the table that works on it
    confirmtest::FormStub form;
    COpBasketParamsEditWidget *wrapper = nullptr;
};

} // namespace

TEST_F(BasketSave, SelectedRowsBecomeABasketWeightedByMoney)
{
    wrapper->confirmWidget()->table()->selectRow(1);
    saveAs(QStringLiteral("我的篮子"));
    ASSERT_TRUE(getUserConfig()->baskets().contains(QStringLiteral("我的篮子")));
    const CBasketSetting basket = getUserConfig()->baskets().value(QStringLiteral("我的篮子"));
    EXPECT_EQ(basket.m_name, QStringLiteral("我的篮子"));
    ASSERT_EQ(basket.m_stocks.size(), 1);
    const CBasketStockData &row = basket.m_stocks.front();
    EXPECT_EQ(fields(row.key(), row.m_stockName, row.m_volume, row.m_weight), "600001.SH|股票600001|300|3750");
    ASSERT_FALSE(form.seen.empty());
    EXPECT_EQ(fields(form.seen.back().event, form.seen.back().text), "1195|我的篮子");

    // All rows over two accounts: one row per stock, its lines added up, not the stock twice.
    confirmtest::addAccount("a2", ttservice::BROKER_TYPE_STOCK, 1e7);
    CCodeOrderParam other = line("600001", 200);
    other.m_account = getUserConfig()->getAccountData(QStringLiteral("a2"));
    lines.push_back(other);
    wrapper->loadParams(&lines, TOT_BUY, true);
    wrapper->confirmWidget()->table()->view()->selectAll();
    saveAs(QStringLiteral("全部"));
    const CBasketSetting all = getUserConfig()->baskets().value(QStringLiteral("全部"));
    ASSERT_EQ(all.m_stocks.size(), 2);
    EXPECT_EQ(all.m_stocks[1].key(), QStringLiteral("600001.SH"));
    EXPECT_EQ(all.m_stocks[1].m_volume, 500);
    EXPECT_EQ(all.m_stocks[1].m_operationType, ttservice::OT_BUY);
}

TEST_F(BasketSave, WrapperReportsTypingButNotControlKeysAndKnowsTheListsDirection)
{
    QSignalSpy typed(wrapper, &COpBasketParamsEditWidget::sig_bascketChange);
    QKeyEvent letter(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, QStringLiteral("a"));
    QKeyEvent paste(QEvent::KeyPress, Qt::Key_V, Qt::ControlModifier, QStringLiteral("v"));
    QCoreApplication::sendEvent(wrapper, &letter);
    QCoreApplication::sendEvent(wrapper, &paste);
    EXPECT_EQ(typed.count(), 1);

    for (const auto &c : {std::make_pair(TOT_BUY, 18), std::make_pair(TOT_SELL, 19), std::make_pair(TOT_ALL, -1)}) {
        wrapper->setTradeOpType(c.first);
        EXPECT_EQ(wrapper->confirmWidget()->operationType(), c.second) << c.first;
    }
    EXPECT_EQ(wrapper->getOrderParams().size(), 2u);
}
