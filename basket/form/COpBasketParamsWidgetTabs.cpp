// The tab side of the parameter form: what a tab switch changes, which sizing modes each tab
// offers and which cells and rows are on view.
#include "COpBasketParamsWidget.h"

#include "COpBasketBuySellWidget.h"
#include "COpBasketCrdBuySellWidget.h"
#include "COpBasketFtrBuySellWidget.h"
#include "COpBasketFtrOneKeyWidget.h"
#include "COpBasketParamsButtonsBar.h"
#include "COpBasketPatchSettingWidget.h"
#include "COpBasketReplaceStockToolBar.h"
#include "COpBasketStockParamsWidget.h"
#include "COpBasketsComboBox.h"
#include "ConnectTabs.h"

#include "CComboBox.h"
#include "CComboxNameWidget.h"
#include "CGlobalOrderParamTable.h"
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
#include "DataHelper.h"
#include "OperationHelpers.h"

#include <QComboBox>

namespace TC {
namespace {

constexpr int kTraderRole = 200;

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
    if (word < 513 || word > 1023)
        enterTab(word);

    const quint64 tab = m_tradeOpType;
    if ((tab & TOT_ALL_TABS_MASK) == 0 || !m_tabGroup)
        return;

    showTabBlocks(tab);
    m_tabGroup->setCheckedByID(static_cast<int>(tab == TOT_SGT ? TOT_HGT : tab));
    const int op = showTabOperation(tab);
    showAccountsFor(tab);
    spreadOperation(tab, op);
    // No event 1072 here: the tab button's press tells the panel itself, and a switch asked
    // for by the client must not reset the panel's filter boxes.
    resetLayout();
}

// The tab's own accounts table and temporary lists.
void COpBasketParamsWidget::enterTab(quint64 word)
{
    saveCurrentAccountTableParam();
    m_inOpTypeChange = true;
    m_tradeOpType = word;
    if (m_accountsWidget)
        m_accountsWidget->setTradeOpType(word);
    loadCurrentAccountTableParam();
    m_inOpTypeChange = false;
    if (m_basketsCombo) {
        // Each tab offers its own temporary lists: a paste on one tab is not another's.
        m_basketsCombo->reSetFlag(ETempBatchOrderFlags(QFlag(m_tabBaskets.value(word).m_batchFlags)));
        if (isShowSystemBasket(m_tradeOpType))
            m_basketsCombo->setBatchOp(QFlags<ETempBatchOrderFlag>(64), true);
    }
}

// The tab's operation, from its block where the block is open; returns the operation the bar,
// the picker and the patch settings show (the buy side where the tab has none of its own).
// Longer than most: one short case per tab, kept together so that the tabs read side by side.
int COpBasketParamsWidget::showTabOperation(quint64 tab)
{
    const bool expanded = m_settingBar && m_settingBar->isExpanded();
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
        m_operationType = -1;
        setPickerBrokerType(ttservice::BROKER_TYPE_STOCK);
        if (m_buySellWidget) {
            if (expanded) {
                m_buySellWidget->switchMode(TOT_ALL);
                m_buySellWidget->show();
                m_buySellWidget->setCheckByID(108);
                op = m_buySellWidget->isCurrentBuy() ? 18 : 19;
            } else {
                m_buySellWidget->hide();
            }
        }
        break;
    case TOT_CREDIT:
        m_operationType = -1;
        setPickerBrokerType(ttservice::BROKER_TYPE_STOCK);
        if (m_crdWidget) {
            if (expanded) {
                m_crdWidget->switchMode(TOT_CREDIT);
                m_crdWidget->show();
                m_operationType = getOptTypeByCompact();
                op = m_operationType;
            } else {
                m_crdWidget->hide();
            }
        }
        break;
    case TOT_FUTURE:
        setPickerBrokerType(ttservice::BROKER_TYPE_FUTURE);
        m_operationType = -1;
        if (m_ftrWidget) {
            m_ftrWidget->setVisible(expanded);
            if (expanded) {
                m_operationType = m_ftrWidget->currentOpt();
                op = m_operationType;
                if (m_ftrWidget->getParamWidget() && m_ftrWidget->getParamWidget()->table())
                    m_ftrWidget->getParamWidget()->table()->updateCmdLog();
            }
        }
        break;
    case TOT_ONEKEY_FUTURE:
        m_operationType = -1;
        setPickerBrokerType(ttservice::BROKER_TYPE_FUTURE);
        if (m_ftrOneKeyWidget) {
            m_ftrOneKeyWidget->setVisible(expanded);
            if (expanded) {
                m_ftrOneKeyWidget->setCheckByID(60);
                op = m_ftrOneKeyWidget->currentOpt();
                m_ftrOneKeyWidget->updateCmdLog();
            }
        }
        break;
    case TOT_HGT:
    case TOT_SGT:
        m_operationType = -1;
        if (!isTraderSide())
            setPickerBrokerType(tab == TOT_HGT ? ttservice::BROKER_TYPE_HGT : ttservice::BROKER_TYPE_SGT);
        if (m_ggtWidget) {
            m_ggtWidget->setVisible(expanded);
            m_ggtWidget->updateCmdLog();
        }
        break;
    default:
        break;
    }
    if (m_stockParams && (tab & (TOT_ALL | TOT_CREDIT | TOT_FUTURE | TOT_ONEKEY_FUTURE | TOT_HGT | TOT_SGT)) != 0)
        m_stockParams->hide();
    return op;
}

void COpBasketParamsWidget::showAccountsFor(quint64 tab)
{
    if (m_accountsWidget) {
        if (isConnectTab(tab)) {
            m_ggtOpType = getGgtTradeOpType(tab);
            m_accountsWidget->setCustomComboxIndex(m_ggtOpType);
            m_accountsWidget->setCustomComboxVisble(true, !isTraderSide());
        } else {
            m_accountsWidget->setCustomComboxVisble(false, true);
        }
    }
}

// Every part of the form that depends on the operation is told it.
void COpBasketParamsWidget::spreadOperation(quint64 tab, int op)
{
    if (m_buttonsBar) {
        m_buttonsBar->setOperationType(static_cast<ttservice::EOperationType>(op), tab);
        if (tab == TOT_FUTURE)
            m_operationType = m_buttonsBar->getFutureOptType(static_cast<ttservice::EOperationType>(m_operationType));
    }
    if (m_stockParams && (tab == TOT_BUY || tab == TOT_SELL))
        m_stockParams->setOperationType(m_operationType);
    if (m_basketsCombo)
        m_basketsCombo->setOperationType(static_cast<ttservice::EOperationType>(op));
    if (m_patchSetting)
        m_patchSetting->setOperationType(static_cast<ttservice::EOperationType>(op));

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
}

QWidget *COpBasketParamsWidget::modeWidgetOf(quint64 word) const
{
    switch (word) {
    case TOT_BUY:
    case TOT_SELL:
        return m_stockParams;
    case TOT_ALL:
        return m_buySellWidget;
    case TOT_CREDIT:
        return m_crdWidget;
    case TOT_FUTURE:
        return m_ftrWidget;
    case TOT_ONEKEY_FUTURE:
        return m_ftrOneKeyWidget;
    case TOT_HGT:
    case TOT_SGT:
        return m_ggtWidget;
    default:
        return nullptr;
    }
}

void COpBasketParamsWidget::showTabBlocks(quint64 tabWord)
{
    const bool buySellOn = buySellModuleOn() && tabWord == TOT_ALL;
    if (m_buySellWidget && !buySellOn)
        m_buySellWidget->hide();
    if (m_crdWidget && tabWord != TOT_CREDIT)
        m_crdWidget->hide();
    if (m_ftrWidget && tabWord != TOT_FUTURE)
        m_ftrWidget->hide();
    if (m_ftrOneKeyWidget && tabWord != TOT_ONEKEY_FUTURE)
        m_ftrOneKeyWidget->hide();
    // The connect block is shown again by its own tab's branch.
    if (m_ggtWidget)
        m_ggtWidget->hide();
    if (m_stockParams && (tabWord & 0x7800) == 0)
        m_stockParams->setVisible(m_settingBar && m_settingBar->isExpanded());
}

QVector<COpBasketStockParamsWidget *> COpBasketParamsWidget::tabBlocks() const
{
    QVector<COpBasketStockParamsWidget *> blocks;
    switch (m_tradeOpType) {
    case TOT_ALL:
        if (m_buySellWidget)
            blocks << m_buySellWidget->getBuyParam() << m_buySellWidget->getSellParam();
        break;
    case TOT_CREDIT:
        if (m_crdWidget)
            blocks << m_crdWidget->getParamWidget();
        break;
    case TOT_FUTURE:
        if (m_ftrWidget)
            blocks << m_ftrWidget->getParamWidget();
        break;
    case TOT_HGT:
    case TOT_SGT:
        if (m_ggtWidget)
            blocks << m_ggtWidget->getBuyParam() << m_ggtWidget->getSellParam();
        break;
    case TOT_ONEKEY_FUTURE:
        if (m_ftrOneKeyWidget)
            blocks << m_ftrOneKeyWidget->getBuyParam() << m_ftrOneKeyWidget->getSellParam();
        break;
    default:
        blocks << m_stockParams;
        break;
    }
    blocks.removeAll(nullptr);
    return blocks;
}

COpBasketStockParamsWidget *COpBasketParamsWidget::getParamWidget(int operation) const
{
    const auto op = static_cast<ttservice::EOperationType>(operation);
    switch (m_tradeOpType) {
    case TOT_ALL:
        return m_buySellWidget ? (isBuy(op) ? m_buySellWidget->getBuyParam() : m_buySellWidget->getSellParam()) : nullptr;
    case TOT_CREDIT:
        return m_crdWidget ? m_crdWidget->getParamWidget() : nullptr;
    case TOT_FUTURE:
        return m_ftrWidget ? m_ftrWidget->getParamWidget() : nullptr;
    case TOT_ONEKEY_FUTURE:
        if (!m_ftrOneKeyWidget)
            return nullptr;
        return operation == 0 || operation == 12 || operation == 13 ? m_ftrOneKeyWidget->getBuyParam()
                                                                    : m_ftrOneKeyWidget->getSellParam();
    case TOT_HGT:
    case TOT_SGT:
        return m_ggtWidget ? (isBuy(op) ? m_ggtWidget->getBuyParam() : m_ggtWidget->getSellParam()) : nullptr;
    default:
        return m_stockParams;
    }
}

CGlobalOrderParamTable *COpBasketParamsWidget::getAlgorithmTable() const
{
    QVector<COpBasketStockParamsWidget *> candidates;
    switch (m_tradeOpType) {
    case TOT_BUY:
    case TOT_SELL:
        candidates << m_stockParams;
        break;
    case TOT_CREDIT:
        if (m_crdWidget)
            candidates << m_crdWidget->getParamWidget();
        break;
    case TOT_FUTURE:
        if (m_ftrWidget)
            candidates << m_ftrWidget->getParamWidget();
        break;
    case TOT_ALL:
        if (m_buySellWidget)
            candidates << m_buySellWidget->getBuyParam() << m_buySellWidget->getSellParam();
        break;
    case TOT_HGT:
    case TOT_SGT:
        if (m_ggtWidget)
            candidates << m_ggtWidget->getBuyParam() << m_ggtWidget->getSellParam();
        break;
    case TOT_ONEKEY_FUTURE:
        if (m_ftrOneKeyWidget)
            candidates << m_ftrOneKeyWidget->getBuyParam() << m_ftrOneKeyWidget->getSellParam();
        break;
    default:
        break;
    }
    for (COpBasketStockParamsWidget *block : qAsConst(candidates)) {
        if (block && block->table() && block->table()->isTrdParamTable())
            return block->table();
    }
    return nullptr;
}

namespace {

// The block of a two-sided mode widget that stands for the side of an operation.
template <typename Widget>
COpBasketStockParamsWidget *sideBlock(const Widget *widget, int operation)
{
    if (!widget)
        return nullptr;
    return isBuy(static_cast<ttservice::EOperationType>(operation)) ? widget->getBuyParam() : widget->getSellParam();
}

} // namespace

// The block that prices a line of this operation on the current tab.
const COpBasketStockParamsWidget *COpBasketParamsWidget::tabBlockFor(int operation) const
{
    switch (m_tradeOpType) {
    case TOT_ALL: return sideBlock(m_buySellWidget, operation);
    case TOT_HGT:
    case TOT_SGT: return sideBlock(m_ggtWidget, operation);
    case TOT_CREDIT: return m_crdWidget ? m_crdWidget->getParamWidget() : nullptr;
    case TOT_FUTURE: return m_ftrWidget ? m_ftrWidget->getParamWidget() : nullptr;
    default: return m_stockParams;
    }
}

int COpBasketParamsWidget::getPriceType(int operation) const
{
    const COpBasketStockParamsWidget *block = tabBlockFor(operation);
    return block ? block->getPriceType() : -1;
}

int COpBasketParamsWidget::getOrderType(int operation) const
{
    const COpBasketStockParamsWidget *block = tabBlockFor(operation);
    return block ? block->getOrderType() : -1;
}

std::string COpBasketParamsWidget::getCmdLog() const
{
    switch (m_tradeOpType) {
    case TOT_ONEKEY_FUTURE: return m_ftrOneKeyWidget ? m_ftrOneKeyWidget->getCmdLog() : std::string();
    case TOT_HGT:
    case TOT_SGT: return m_ggtWidget ? m_ggtWidget->getCmdLog() : std::string();
    case TOT_CREDIT: return m_crdWidget ? m_crdWidget->getCmdLog() : std::string();
    case TOT_BUY:
    case TOT_SELL: return m_stockParams ? m_stockParams->getCmdLog() : std::string();
    case TOT_FUTURE: return m_ftrWidget ? m_ftrWidget->getCmdLog() : std::string();
    case TOT_ALL: return m_buySellWidget ? m_buySellWidget->getCmdLog() : std::string();
    default: return std::string();
    }
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
        // A tab that offers no mode (no basket chosen yet) shows the copies cell, as a new form
        // does: a cell left from the tab before would stand for a sizing the tab does not have,
        // and would not come back from the saved text.
        WK::CParameterCell *shown = m_copiesCell;
        if (mode >= VT_COPIES && mode <= VT_INDEX_UNIT) {
            WK::CParameterCell *const modeCells[] = {m_copiesCell, m_moneyCell, m_ratioCell, m_ratioCell,
                                                     m_assetRatioCell, m_contractCell, m_totalLotsCell};
            shown = modeCells[mode];
        }
        for (WK::CParameterCell *cell : {m_copiesCell, m_moneyCell, m_ratioCell, m_assetRatioCell, m_contractCell,
                                         m_totalLotsCell})
            setShown(cell, cell == shown);
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
    auto usesInstruction = [](const COpBasketStockParamsWidget *block) {
        return block && block->getOrderType() == ttservice::ORDER_TYPE_INSTRUCTION;
    };
    const quint64 tab = m_tradeOpType;
    const COpBasketStockParamsWidget *tabBlock = nullptr;
    bool instructionOrder = false;
    if (tab == TOT_ALL && m_buySellWidget) {
        instructionOrder = usesInstruction(m_buySellWidget->getBuyParam()) || usesInstruction(m_buySellWidget->getSellParam());
    } else if (tab == TOT_BUY || tab == TOT_SELL) {
        tabBlock = m_stockParams;
        instructionOrder = usesInstruction(tabBlock);
    } else if (isConnectTab(tab) && m_ggtWidget) {
        instructionOrder = usesInstruction(m_ggtWidget->getBuyParam()) || usesInstruction(m_ggtWidget->getSellParam());
    } else if (tab == TOT_CREDIT && m_crdWidget) {
        tabBlock = m_crdWidget->getParamWidget();
        instructionOrder = usesInstruction(tabBlock);
    }

    const int role = getUserConfig()->getRole();
    if (m_buttonsBar) {
        m_buttonsBar->setCommandChangeVisible(instructionOrder && (role == 100 || role == 101));
        m_buttonsBar->updateGeometry();
    }
    const bool cmdShown = instructionOrder && isTraderSide();
    if (m_cmdRatioCell)
        m_cmdRatioCell->setVisible(cmdShown);
    if (m_cmdRatioRow)
        m_cmdRatioRow->setVisible(cmdShown);
    if (m_hedgeWidget) {
        // An algorithm order cannot be hedged by the panel: the algorithm decides the timing.
        const bool plainOrder = tabBlock && !ttservice::DataHelper::isAlgoOrderType(tabBlock->getOrderType());
        const bool show = plainOrder
            && (tab == TOT_BUY || tab == TOT_SELL || (tab == TOT_CREDIT && (m_operationType == 20 || m_operationType == 21)));
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
