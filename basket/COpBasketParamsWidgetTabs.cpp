// The tab side of the parameter form: what a tab switch changes, which sizing modes each tab
// offers and which cells and rows are on view.
#include "COpBasketParamsWidget.h"

#include "COpBasketReplaceStockToolBar.h"
#include "COpBasketParamsButtonsBar.h"
#include "COpBasketsComboBox.h"

#include "CComboBox.h"
#include "CComboxNameWidget.h"
#include "CMessageTip.h"
#include "COpAccountsWidget.h"
#include "COpBasketFutureParamsWidget.h"
#include "COpBasketParamsExpandBar.h"
#include "COperationPushButtonGroup.h"
#include "CParameterCell.h"
#include "CPushButton.h"
#include "CSimpleTextWidget.h"
#include "CUserConfig.h"
#include "CWidgetList.h"
#include "LuaModuleCtrl.h"

#include <QComboBox>

namespace TC {
namespace {

constexpr int kTraderRole = 200;

bool isConnectTab(quint64 word)
{
    return word == TOT_HGT || word == TOT_SGT;
}

bool isTraderSide()
{
    return getUserConfig()->getRole() == kTraderRole;
}

bool buySellModuleOn()
{
    return luawrapper::LuaModuleCtrl::checkModule({"mdl_order", "mdl_order_compose_basket_buy_sell"});
}

struct VolumnItem
{
    const char *text;
    int mode;
};

} // namespace

void COpBasketParamsWidget::saveCurrentAccountTableParam()
{
    if (!m_inOpTypeChange && m_accountsWidget)
        m_accountParams[m_tradeOpType] = m_accountsWidget->param();
}

void COpBasketParamsWidget::loadCurrentAccountTableParam()
{
    const QString entry = m_accountParams.value(m_tradeOpType);
    if (entry.isEmpty() || !m_accountsWidget)
        return;
    m_accountsWidget->setParam(entry);
    m_accountsWidget->adjustWidthByForce();
}

void COpBasketParamsWidget::setPickerBrokerType(int brokerType)
{
    if (!m_basketsCombo)
        return;
    if (m_basketsCombo->getBrokerType() != brokerType)
        m_basketsCombo->setBrokerType(static_cast<ttservice::EVQBrokerType>(brokerType));
    m_basketsCombo->updateBasketSetting();
}

void COpBasketParamsWidget::setCurrentOperationType(quint64 word)
{
    // Words between the buy and the sell bit refresh the form for the tab it is on: the caller
    // meant "the current tab" and must not lose the account table of it.
    if (word < 513 || word > 1023) {
        saveCurrentAccountTableParam();
        m_inOpTypeChange = true;
        m_tradeOpType = word;
        if (m_accountsWidget)
            m_accountsWidget->setTradeOpType(word);
        loadCurrentAccountTableParam();
        m_inOpTypeChange = false;
        if (m_basketsCombo && isShowSystemBasket(m_tradeOpType))
            m_basketsCombo->setBatchOp(QFlags<ETempBatchOrderFlag>(64), true);
    }

    const quint64 tab = m_tradeOpType;
    if ((tab & TOT_ALL_TABS_MASK) == 0 || !m_tabGroup)
        return;

    m_tabGroup->setCheckedByID(static_cast<int>(tab == TOT_SGT ? TOT_HGT : tab));

    int op = 18;
    switch (tab) {
    case TOT_BUY:
        m_operationType = 18;
        setPickerBrokerType(ttservice::BROKER_TYPE_STOCK);
        break;
    case TOT_SELL:
        m_operationType = 19;
        op = 19;
        setPickerBrokerType(ttservice::BROKER_TYPE_STOCK);
        break;
    case TOT_ALL:
    case TOT_CREDIT:
        m_operationType = tab == TOT_CREDIT ? getOptTypeByCompact() : -1;
        if (tab == TOT_CREDIT)
            op = m_operationType;
        setPickerBrokerType(ttservice::BROKER_TYPE_STOCK);
        break;
    case TOT_FUTURE:
    case TOT_ONEKEY_FUTURE:
        m_operationType = -1;
        setPickerBrokerType(ttservice::BROKER_TYPE_FUTURE);
        break;
    case TOT_HGT:
    case TOT_SGT:
        m_operationType = -1;
        if (!isTraderSide())
            setPickerBrokerType(tab == TOT_HGT ? ttservice::BROKER_TYPE_HGT : ttservice::BROKER_TYPE_SGT);
        break;
    default:
        break;
    }

    if (m_accountsWidget) {
        if (isConnectTab(tab)) {
            m_ggtOpType = getGgtTradeOpType(tab);
            m_accountsWidget->setCustomComboxIndex(m_ggtOpType);
            m_accountsWidget->setCustomComboxVisble(true, !isTraderSide());
        } else {
            m_accountsWidget->setCustomComboxVisble(false, true);
        }
    }

    if (m_buttonsBar) {
        m_buttonsBar->setOperationType(static_cast<ttservice::EOperationType>(op), tab);
        if (tab == TOT_FUTURE)
            m_operationType = m_buttonsBar->getFutureOptType(static_cast<ttservice::EOperationType>(m_operationType));
    }
    if (m_basketsCombo)
        m_basketsCombo->setOperationType(static_cast<ttservice::EOperationType>(op));

    if (m_accountsWidget) {
        m_accountsWidget->setTradeOpType(tab);
        m_accountsWidget->loadAccountGroupSettings();
    }
    updateAccountsEnabled();

    if (m_hedgeWidget) {
        m_hedgeWidget->setOperationType(m_operationType);
        const bool show = m_operationType != -1 && tab != TOT_FUTURE
            && !(tab == TOT_CREDIT && (m_operationType == 22 || m_operationType == 24));
        m_hedgeWidget->setVisible(show);
        if (!show)
            m_hedgeWidget->setAutoHedge(false);
    }

    if (m_adjustBtn)
        m_adjustBtn->setVisible((tab == TOT_ALL && buySellModuleOn()) || tab == TOT_ONEKEY_FUTURE);

    resetVolumnCombobox();
    if (m_replaceToolBar)
        m_replaceToolBar->setTradeOperationType(tab);
    setItemsVisible(getCurrentVolumnType(), -1);

    if (m_contractRow) {
        const int o = m_operationType;
        m_contractRow->setVisible(tab == TOT_CREDIT && (o == 21 || o == 22 || o == 1010 || o == 1011));
    }
    resetLayout();
    deliverEvent(1072, 0, static_cast<int>(tab), QString(), nullptr);
}

void COpBasketParamsWidget::updateAccountsEnabled()
{
    if (!m_accountsWidget || isTraderSide())
        return;
    const bool batchSell = currentBasketName() == QStringLiteral("批量卖出组合") && m_tradeOpType == TOT_SELL;
    m_accountsWidget->setEnabled(!batchSell);
}

void COpBasketParamsWidget::resetVolumnCombobox()
{
    if (!m_volumnCombobox)
        return;
    const QVariant current = m_volumnCombobox->currentData();
    const QSignalBlocker blocker(m_volumnCombobox);
    m_volumnCombobox->clear();

    static const VolumnItem futures[] = {{"按组合期货数量", 0}, {"按组合期货权重", 1}, {"按产品净值", 2}};
    static const VolumnItem connect[] = {{"按组合港股通数量", 0}, {"按组合港股通权重", 1}};
    static const VolumnItem allTab[] = {{"按组合股票数量", 0}, {"按组合股票权重", 1}, {"按产品净值", 2},
                                        {"按可用资金", 3}, {"按总资产比例", 4}};
    static const VolumnItem ownBasket[] = {{"按组合股票数量", 0}, {"按组合股票权重", 1}, {"按产品净值", 2},
                                           {"按账户可用", 3}, {"按总资产比例", 4}};
    static const VolumnItem indexBasket[] = {{"按组合股票权重", 1}, {"按产品净值", 2}, {"按账户可用", 3},
                                             {"按总资产比例", 4}};
    static const VolumnItem etfBasket[] = {{"按组合股票数量", 0}};

    auto add = [this](const VolumnItem *items, size_t count) {
        for (size_t i = 0; i < count; ++i)
            m_volumnCombobox->addItem(QString::fromUtf8(items[i].text), items[i].mode);
    };
    bool hedgeItem = false;
    const quint64 tab = m_tradeOpType;
    if (tab == TOT_FUTURE || tab == TOT_ONEKEY_FUTURE) {
        add(futures, std::size(futures));
    } else if (isConnectTab(tab)) {
        add(connect, std::size(connect));
    } else if (tab == TOT_BUY || tab == TOT_SELL || tab == TOT_CREDIT) {
        hedgeItem = true;
        const int kind = currentBasketKind();
        if (kind == 0) {
            add(ownBasket, std::size(ownBasket));
        } else if (kind == 1 || kind == 2) {
            add(indexBasket, std::size(indexBasket));
            const auto &setting = getUserConfig()->baskets()[currentBasketName()];
            const QString code = setting.m_indexCode;
            if (kind == 1 && tab == TOT_BUY && setting.m_indexMarket == QLatin1String("SH")
                && (code == QLatin1String("000300") || code == QLatin1String("000016") || code == QLatin1String("000905")))
                m_volumnCombobox->addItem(QStringLiteral("按指数单位价值"), 6);
        } else if (kind == 3 || kind == 4) {
            add(etfBasket, std::size(etfBasket));
        }
    } else {
        // The one-key tab, and any word that names no tab.
        hedgeItem = true;
        add(allTab, std::size(allTab));
    }
    if (hedgeItem && m_hedgeWidget && m_hedgeWidget->isAutoHedgeCheck())
        m_volumnCombobox->addItem(QStringLiteral("按套利合约市值和篮子权重"), 5);

    const int index = m_volumnCombobox->findData(current);
    m_volumnCombobox->setCurrentIndex(index >= 0 ? index : 0);
}

void COpBasketParamsWidget::resetVolumnTypeByAutoHedge()
{
    if (!m_volumnCombobox || !m_hedgeWidget)
        return;
    const int index = m_volumnCombobox->findData(5);
    if (m_hedgeWidget->isAutoHedgeCheck()) {
        if (index < 0)
            m_volumnCombobox->addItem(QStringLiteral("按套利合约市值和篮子权重"), 5);
    } else if (index >= 0) {
        const bool wasCurrent = m_volumnCombobox->currentIndex() == index;
        m_volumnCombobox->removeItem(index);
        if (wasCurrent)
            m_volumnCombobox->setCurrentIndex(0);
    }
}

void COpBasketParamsWidget::setItemsVisible(int mode, int batchFlags)
{
    if (m_volumnRow)
        m_volumnRow->show();
    if (m_sellRatioCell)
        m_sellRatioCell->hide();
    auto setShown = [](QWidget *widget, bool shown) {
        if (widget)
            widget->setVisible(shown);
    };

    if (batchFlags == BATCH_POSITION_SELL) {
        if (m_operationType == 19) {
            for (QWidget *w : {static_cast<QWidget *>(m_volumnRow), static_cast<QWidget *>(m_copiesCell),
                               static_cast<QWidget *>(m_moneyCell), static_cast<QWidget *>(m_ratioCell),
                               static_cast<QWidget *>(m_contractCell)})
                setShown(w, false);
            setShown(m_sellRatioCell, true);
        }
    } else {
        if (mode >= VT_COPIES && mode <= VT_INDEX_UNIT) {
            WK::CParameterCell *const modeCells[] = {m_copiesCell, m_moneyCell, m_ratioCell, m_ratioCell,
                                                     m_assetRatioCell, m_contractCell, m_totalLotsCell};
            WK::CParameterCell *shown = modeCells[mode];
            for (WK::CParameterCell *cell : {m_copiesCell, m_moneyCell, m_ratioCell, m_assetRatioCell, m_contractCell,
                                             m_totalLotsCell})
                setShown(cell, cell == shown);
        }
        if (batchFlags == BATCH_SELL && m_operationType == 19) {
            for (QWidget *w : {static_cast<QWidget *>(m_volumnRow), static_cast<QWidget *>(m_copiesCell),
                               static_cast<QWidget *>(m_moneyCell), static_cast<QWidget *>(m_contractCell)})
                setShown(w, false);
            setShown(m_sellRatioCell, true);
        }
    }
    if (m_adjustBtn)
        m_adjustBtn->setEnabled(batchFlags != 16);
    reSetCopisesCell();
}

void COpBasketParamsWidget::reSetCopisesCell()
{
    if (m_moneyCell)
        m_moneyCell->changeLabel(QString(), isConnectTab(m_tradeOpType) ? QStringLiteral("港币") : QStringLiteral("元"));
}

void COpBasketParamsWidget::resetCopiesValidator(double copies)
{
    if (!m_copiesCell)
        return;
    if (m_tradeOpType == TOT_SELL) {
        // Selling may take part of a copy, to the hundredth.
        m_copiesCell->setPrecision(2);
        m_copiesCell->setDoubleValidator(QStringLiteral("份"), 0, 1000000000, 0.01);
        m_copiesCell->setDouble(copies);
    } else {
        m_copiesCell->setPrecision(0);
        m_copiesCell->setIntValidator(QStringLiteral("份"), 0, 1000000000, 1);
        m_copiesCell->setInt(static_cast<qint64>(copies));
    }
}

void COpBasketParamsWidget::resetLayout()
{
    if (m_moneyTip)
        m_moneyTip->hide();
    if (m_otherParams) {
        const int o = m_operationType;
        const bool contractShown = m_tradeOpType == TOT_CREDIT && (o == 21 || o == 22 || o == 1010 || o == 1011);
        const bool cmdShown = isTraderSide() && m_cmdRatioCell && !m_cmdRatioCell->isHidden();
        m_otherParams->setFixedHeight(contractShown || cmdShown ? 110 : 75);
    }
    if (m_hedgeWidget)
        m_hedgeWidget->setFixedHeight(m_hedgeWidget->isAutoHedgeCheck() ? 130 : 30);
    if (m_rightList)
        m_rightList->updateWidgetLength();
}

void COpBasketParamsWidget::updateCmdParamVisible()
{
    // Whether an instruction order type is in use is read from the mode blocks' tables; until
    // a block offers one, no instruction order type is in use.
    const bool instructionOrder = false;
    const bool cmdShown = instructionOrder && isTraderSide();
    if (m_cmdRatioCell)
        m_cmdRatioCell->setVisible(cmdShown);
    if (m_cmdRatioRow)
        m_cmdRatioRow->setVisible(cmdShown);
    if (m_hedgeWidget) {
        const quint64 tab = m_tradeOpType;
        const bool show = tab == TOT_BUY || tab == TOT_SELL
            || (tab == TOT_CREDIT && (m_operationType == 20 || m_operationType == 21));
        m_hedgeWidget->setVisible(show);
        if (!show)
            m_hedgeWidget->setAutoHedge(false);
    }
    resetLayout();
}

bool COpBasketParamsWidget::isEntrustmentTypeVisible(quint64 word)
{
    return (word & 0xe00) != 0;
}

void COpBasketParamsWidget::updateEntrustVisible(bool hasTouchOrders)
{
    const bool show = hasTouchOrders && isEntrustmentTypeVisible(m_tradeOpType);
    if (m_entrustLabel)
        m_entrustLabel->setVisible(show);
    if (m_entrustCombo)
        m_entrustCombo->setVisible(show);
}

} // namespace TC
