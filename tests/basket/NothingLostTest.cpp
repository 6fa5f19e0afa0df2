// Nothing a trader keeps is lost on the whole panel: a stored basket stays as stored through
// everything done with its list, and a saved text the panel cannot read leaves it working on
// its defaults.
#include "CBasketOperationPanel.h"
#include "CHpfOpConfirmWidget.h"
#include "COpBasketParamsEditWidget.h"
#include "COpBasketParamsWidget.h"
#include "COpBasketsComboBox.h"
#include "COperationBasketWidget.h"

#include "CBaseDialog.h"
#include "CMessageBox.h"
#include "COpAccountsWidget.h"
#include "COrderParamTable.h"
#include "CTradeClient.h"
#include "CUserConfig.h"
#include "LuaModuleCtrl.h"

#include "Bson.h"

#include "ConfirmTestSupport.h"
#include "SampleMarket.h"
#include "SubstituteFixture.h"

#include <QDialog>

#include <functional>
#include <memory>
#include <string>

using namespace TC;
using namespace confirmtest;

namespace {

const QString kStored = QStringLiteral("红利");

// Everything of a stored basket a trader would miss.
std::string describe(const CBasketSetting &basket)
{
    std::string text = basket.m_name.toStdString() + " kind " + std::to_string(basket.m_basketKind);
    for (const CBasketStockData &r : basket.m_stocks)
        text += "\n" + r.key().toStdString() + " " + r.m_stockName.toStdString() + " " + std::to_string(r.m_volume) + " "
            + std::to_string(r.m_weight) + " " + std::to_string(r.m_operationType);
    return text;
}

class NothingLost : public SubstituteTest
{
public:
    void SetUp() override
    {
        SubstituteTest::SetUp();
        getUserConfig()->setRole(90);
        luawrapper::LuaModuleCtrl::instance()->setModules({"mdl_order", "mdl_order_compose_basket_buy_sell"}, true);
        for (const char *code : {"600000", "600001", "600002", "600003"})
            addStock(code, 12.5, 12.0);
        addAccount("a1", ttservice::BROKER_TYPE_STOCK, 1e8, {{"600000", 3000}, {"600002", 1000}});
        addAccount("a2", ttservice::BROKER_TYPE_STOCK, 1e8, {{"600001", 2000}});
        CBasketSetting basket;
        basket.m_name = kStored;
        basket.m_stocks = {sample::row("SH", "600000", 2.0, 300), sample::row("SH", "600001", 1.0, 500), sample::row("SH", "600003", 0.5, 100)};
        getUserConfig()->baskets().insert(kStored, basket);
        stored = describe(basket);

        panel = std::make_unique<CBasketOperationPanel>(1, nullptr);
        form()->accountsWidget()->setSelectedAccount(QStringLiteral("a1"), true);
        form()->accountsWidget()->setSelectedAccount(QStringLiteral("a2"), true);
        form()->basketsCombo()->setBasket(kStored, false);
    }

    void TearDown() override { WK::CBaseDialog::clearScriptedAnswer(); }

    COpBasketParamsWidget *form() const { return panel->basketWidget()->paramsWidget(); }
    CHpfOpConfirmWidget *confirm() const { return panel->basketWidget()->editWidget()->confirmWidget(); }
    void place() const { panel->basketWidget()->handleEvent(1046, 0, 0, QString(), nullptr); }

    void saveAs(const QString &name) const
    {
        confirm()->table()->selectRow(confirm()->table()->rowID(0));
        WK::CBaseDialog::setScriptedAnswer(QDialog::Accepted, name);
        confirm()->slotSaveBasket();
    }

    std::string stored;
    std::unique_ptr<CBasketOperationPanel> panel;
};

struct UseCase
{
    const char *name;
    std::function<void(NothingLost &)> use;
};

class StoredBasket : public NothingLost, public ::testing::WithParamInterface<UseCase>
{
};

} // namespace

TEST_P(StoredBasket, StaysAsStoredWhateverIsDoneWithItsList)
{
    ASSERT_GT(confirm()->table()->rowCount(), 0);
    GetParam().use(*this);
    // And once more after the panel chose the basket again, in case the use only showed later.
    form()->basketsCombo()->setBasket(kStored, true);
    EXPECT_EQ(describe(getUserConfig()->baskets().value(kStored)), stored);
    // Temporary lists (pasted rows, a custom group) never join the stored baskets.
    QStringList names = getUserConfig()->baskets().keys();
    names.removeAll(QStringLiteral("另存"));
    EXPECT_EQ(names.join(QLatin1Char(',')).toStdString(), kStored.toStdString());
}

INSTANTIATE_TEST_SUITE_P(
    Uses, StoredBasket,
    ::testing::Values(
        UseCase{"placingTheList", [](NothingLost &t) { t.place(); }},
        UseCase{"placingAfterAVolumeEdit",
                [](NothingLost &t) {
                    COrderParamTable *table = t.confirm()->table();
                    table->submitEdit(table->rowID(0), COpBasketConfirmWidget::COL_VOLUME, QStringLiteral("900"));
                    t.place();
                }},
        UseCase{"removingALine",
                [](NothingLost &t) {
                    COrderParamTable *table = t.confirm()->table();
                    table->selectRow(table->rowID(0));
                    table->deleteSelectedRows();
                }},
        UseCase{"showingThePositionsToSell",
                [](NothingLost &t) {
                    t.form()->basketsCombo()->setBasket(QStringLiteral("持仓卖出组合"), false);
                    t.place();
                }},
        UseCase{"pastingRows",
                [](NothingLost &t) {
                    t.panel->patchCommand(QStringLiteral("600000\t名600000\t700\t1\t买入\n600002\t名600002\t100\t1\t买入"));
                    t.place();
                }},
        UseCase{"savingUnderItsOwnName", [](NothingLost &t) { t.saveAs(kStored); }},
        UseCase{"savingUnderANewName", [](NothingLost &t) { t.saveAs(QStringLiteral("另存")); }},
        UseCase{"switchingTabsAndBack",
                [](NothingLost &t) {
                    t.panel->setCurrentOperationType(TOT_SELL);
                    t.place();
                    t.panel->setCurrentOperationType(TOT_BUY);
                }}),
    [](const ::testing::TestParamInfo<UseCase> &info) { return std::string(info.param.name); });

TEST_F(NothingLost, SavingUnderAStoredNameIsRefusedWithItsMessage)
{
    saveAs(kStored);
    ASSERT_FALSE(WK::CMessageBox::records().isEmpty());
    EXPECT_EQ(WK::CMessageBox::records().back().text, QStringLiteral("篮子重名"));
}

// Texts the panel cannot make sense of: the panel takes its defaults where they fail and a
// trader can still choose a basket and place it; the text it writes next is its own again.
TEST_F(NothingLost, AnUnreadableSavedTextLeavesAWorkingPanel)
{
    const QString good = panel->param();
    const QStringList damaged = {
        QStringLiteral("\xff\xfe garbage \x01\x02"),
        good.left(good.size() / 3),
        good.left(good.indexOf(QLatin1Char('/')) - 1) + QStringLiteral("/x/y/z/w/v/u/t"),
        QStringLiteral("{ \"BS\" : 7, \"AW\" : { \"$x\" : [] }, \"bsonParam\" : \"{ \\\"COM_BUY\\\" : 3 }\" }"),
        QStringLiteral("99999999999999999999;;;;;;;;nan;inf;-1e400;;;;;;*;**;***"),
        QStringLiteral("|||||||||||"),
        QString(5000, QLatin1Char('/')),
    };
    for (const QString &text : damaged) {
        SCOPED_TRACE(text.left(80).toStdString());
        CBasketOperationPanel restored(2, nullptr);
        restored.setParam(text);
        COpBasketParamsWidget *restoredForm = restored.basketWidget()->paramsWidget();
        EXPECT_NE(restoredForm->getTradeOpType() & TOT_ALL_TABS_MASK, 0u);

        restored.setCurrentOperationType(TOT_BUY);
        restoredForm->accountsWidget()->setSelectedAccount(QStringLiteral("a1"), true);
        restoredForm->basketsCombo()->setBasket(kStored, true);
        const size_t before = CTradeClient::instance()->placedCommands().size();
        restored.basketWidget()->handleEvent(1046, 0, 0, QString(), nullptr);
        ASSERT_EQ(CTradeClient::instance()->placedCommands().size(), before + 1);
        EXPECT_FALSE(CTradeClient::instance()->placedCommands().back().m_orders.empty());

        bson::BSONObj written;
        EXPECT_TRUE(ttservice::parseJson(restored.param().section(QLatin1Char('/'), 0, 0).toStdString(), written));
    }
}
