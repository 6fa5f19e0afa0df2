// The form's reactions to its children: when the list is recalculated, when the tab changes,
// and what the operator's log records.
#include "COpBasketParamsWidget.h"

#include "COpBasketBuySellWidget.h"
#include "COpBasketCrdBuySellWidget.h"
#include "COpBasketFtrBuySellWidget.h"
#include "COpBasketFtrOneKeyWidget.h"
#include "COpBasketParamsButtonsBar.h"
#include "COpBasketPatchSettingWidget.h"
#include "COpBasketStockParamsWidget.h"
#include "COpBasketsComboBox.h"
#include "ConnectTabs.h"

#include "CAlgorithmHelpDialog.h"
#include "CCommonHelpDialog.h"
#include "CComboBox.h"
#include "CGlobalOrderParamTable.h"
#include "CLogCenter.h"
#include "CMessageTip.h"
#include "CMsgService.h"
#include "COpAccountsWidget.h"
#include "COpBasketFutureParamsWidget.h"
#include "COpBasketHedgeSettingWidget.h"
#include "CParameterCell.h"
#include "CPushButton.h"
#include "CSimpleTextWidget.h"
#include "ChineseNumerals.h"
#include "CUserConfig.h"
#include "CWidgetList.h"
#include "LuaModuleCtrl.h"

#include "DoubleCompare.h"

#include <boost/format.hpp>

#include <QComboBox>
#include <QGuiApplication>
#include <QScreen>

namespace TC {
namespace {

constexpr int kTraderRole = 200;
constexpr int kSystemBasketFlag = 64;

// The log text of a committed cell, by the cell's id; null for cells that are not logged.
const char *cellLogText(int id)
{
    switch (id) {
    case 19:
        return "User %1% Modify basket copies: %2%";
    case 58:
        return "User %1% Modify total money: %2%";
    case 59:
        return "User %1% Modify trade percentage rate: %2%";
    case 51:
        return "User %1% Modify sell percentage rate: %2%";
    case 91:
        return "User %1% Modify command percentage rate: %2%";
    case 93:
        return "User %1% Modify contract percentage rate: %2%";
    default:
        return nullptr;
    }
}

// Keeps a pop-up that was placed against an anchor on the anchor's screen: one that would
// stick out above or to the left is moved back by the two widgets' extents.
void keepOnScreen(QWidget *popup, const QWidget *anchor)
{
    const QScreen *screen = QGuiApplication::screenAt(popup->geometry().center());
    if (!screen)
        screen = anchor->screen();
    if (!screen)
        return;
    const QRect available = screen->availableGeometry();
    QRect frame = popup->geometry();
    if (frame.bottom() <= available.bottom() && frame.top() < available.top())
        frame.translate(0, popup->height() + anchor->height());
    if (frame.right() <= available.right() && frame.left() < available.left())
        frame.translate(popup->width() + anchor->width(), 0);
    popup->move(frame.topLeft());
}

} // namespace

int COpBasketParamsWidget::pickerBrokerTypeOf(quint64 word)
{
    switch (word) {
    case TOT_HGT:
        return ttservice::BROKER_TYPE_HGT;
    case TOT_SGT:
        return ttservice::BROKER_TYPE_SGT;
    case TOT_FUTURE:
    case TOT_ONEKEY_FUTURE:
        return ttservice::BROKER_TYPE_FUTURE;
    default:
        return ttservice::BROKER_TYPE_STOCK;
    }
}

void COpBasketParamsWidget::logUserAction(const boost::format &text)
{
    TT_LOG_INFO(this, "TC::COpBasketParamsWidget::handleEvent", "basket\\COpBasketParamsWidget", text);
}

// The amount of the money cell in words beside the cell, while it holds a usable amount.
void COpBasketParamsWidget::showMoneyTip()
{
    if (!m_moneyTip || !m_moneyCell)
        return;
    const double money = m_moneyCell->toDouble();
    const bool usable = !m_moneyCell->toString().isEmpty() && !ttservice::isZero(money)
        && !ttservice::isEqual(money, ttservice::NO_VALUE) && !ttservice::isEqual(money, double(0x7fffffff));
    if (usable)
        m_moneyTip->showTip(utils::numToChinese(static_cast<double>(static_cast<long long>(money))), 68, 3, 2, 300, 1);
    else
        m_moneyTip->hide();
}

// The form's events: one handler per group, each named after what the user did.
bool COpBasketParamsWidget::handleEvent(int event, int id, int value, QString text, void *data)
{
    switch (event) {
    case 5:
        onButtonPressed(id);
        return true;
    case 64:
        if (onComboChosen(id))
            return true;
        break;
    case 103:
        if (onCellEdited(id, text))
            return true;
        break;
    case 107:
        onCellTyped(id);
        return true;
    case 114:
        updateCmdParamVisible();
        recalculate(0);
        return true;
    case 220:
        CAlgorithmHelpDialog::doHelp();
        return true;
    case 1088:
        recalculate(value);
        return true;
    case 1137:
        onBarSwitch(id, value);
        return true;
    case 1139:
        onBasketChosen(value);
        return true;
    case 1142:
        showPatchSetting();
        return true;
    case 1143:
        showHedgeSetting();
        return true;
    case 1203:
        copyCheckParamToOtherSide(data);
        return true;
    case 1146:
        takeExchangePositions(data);
        return true;
    case 1149:
        if (value == 1)
            pushAccountsToExchangeDialog(data);
        return true;
    case 1147:
        setCurrentOperationType(m_tradeOpType);
        recalculate(0);
        return true;
    case 1167:
        onAccountsChanged();
        return true;
    case 1168: {
        const quint64 word = getGgtTradeOpType(static_cast<quint64>(value));
        m_ggtOpType = word;
        if (m_accountsWidget)
            m_accountsWidget->setTradeOpType(word);
        setCurrentOperationType(word);
        return true;
    }
    default:
        break;
    }
    return WK::CBaseWidget::handleEvent(event, id, value, text, data);
}

std::string COpBasketParamsWidget::userIdText() const
{
    return getUserConfig()->getUserId();
}

// A button of the form: a tab, the lock, help, the expander or the rebalance dialog.
void COpBasketParamsWidget::onButtonPressed(int id)
{
    const quint64 idWord = static_cast<quint64>(static_cast<quint32>(id));
    if ((idWord & TOT_ALL_TABS_MASK) != 0) {
        switchTab(idWord);
    } else if (id == 2) {
        toggleLock();
    } else if (id == 62) {
        CCommonHelpDialog::doHelp();
    } else if (id == 9 && m_stockParams && m_expandBtn) {
        m_expanded = !m_expanded;
        m_expandBtn->setIconKey(m_expanded ? QStringLiteral("tc_img_operation_contract_btn")
                                           : QStringLiteral("tc_img_operation_expand_btn"));
        for (COpBasketStockParamsWidget *block : tabBlocks())
            block->setExpandItemsHidden(!m_expanded);
        resetLayout();
    } else if (id == 107) {
        openExchangeDialog();
    }
    const quint64 tab = m_tradeOpType;
    if (m_accountsWidget)
        m_accountsWidget->setShowToolBar(tab != TOT_ONEKEY_FUTURE && tab != TOT_FUTURE && tab != TOT_ALL && tab != TOT_CREDIT);
    if (tab == TOT_BUY || tab == TOT_SELL || tab == TOT_ALL)
        updateParamsByCmd(true);
    updateCmdParamVisible();
}

void COpBasketParamsWidget::switchTab(quint64 idWord)
{
    if ((idWord & 0xe00) == 0 && m_entrustCombo) {
        m_entrustCombo->hide();
        if (m_entrustLabel)
            m_entrustLabel->hide();
    }
    const quint64 word = isConnectTab(idWord) ? getGgtTradeOpType(m_ggtOpType) : idWord;
    saveHedgeParam();
    setCurrentOperationType(word);
    if (m_basketsCombo) {
        if (isShowSystemBasket(idWord)) {
            m_basketsCombo->setBatchOp(kSystemBasketFlag, true);
        } else {
            m_basketsCombo->setBatchOp(BATCH_NONE, true);
            m_basketsCombo->reSetFlag(m_basketsCombo->getAllFlag() & ~ETempBatchOrderFlags(QFlag(kSystemBasketFlag)));
        }
    }
    setPickerBrokerType(pickerBrokerTypeOf(word));
    loadHedgeParam();
    deliverEvent(1072, 0, static_cast<int>(word), QString(), nullptr);
    recalculate(0);
    logUserAction(boost::format("User %1% Modify tradeOperType: %2%") % userIdText() % word);
}

void COpBasketParamsWidget::toggleLock()
{
    m_locked = !m_locked;
    if (m_stockParams && m_stockParams->table())
        m_stockParams->table()->setEnabled(!m_locked);
    if (m_hedgeWidget)
        m_hedgeWidget->setLocked(m_locked);
    // The ratio cell stays as it is: it is shared with modes the lock does not fix.
    for (QWidget *widget : std::initializer_list<QWidget *>{m_basketsCombo, m_volumnCombobox, m_copiesCell, m_moneyCell,
                                                            m_sellRatioCell, m_assetRatioCell, m_contractCell}) {
        if (widget)
            widget->setEnabled(!m_locked);
    }
}

bool COpBasketParamsWidget::onComboChosen(int id)
{
    if (id == 17 && m_volumnCombobox) {
        const int mode = getCurrentVolumnType();
        setItemsVisible(mode, 1);
        if (mode == VT_MONEY)
            showMoneyTip();
        logUserAction(boost::format("User %1% Modify trade volumnType index : %2%, Text: %3%") % userIdText()
                      % m_volumnCombobox->currentIndex() % m_volumnCombobox->currentText().toStdString());
        recalculate(0);
        return true;
    }
    if (id == 81 && m_tradeOpType == TOT_CREDIT
        && (m_operationType == 21 || m_operationType == 22 || m_operationType == 1010 || m_operationType == 1011)) {
        setCurrentOperationType(TOT_CREDIT);
        recalculate(0);
        return true;
    }
    return false;
}

bool COpBasketParamsWidget::onCellEdited(int id, const QString &text)
{
    const char *logText = cellLogText(id);
    if (id == 19 || id == 51 || id == 58 || id == 59 || id == 63 || id == 91)
        recalculate(0);
    else if (id != 93)
        return false;
    // The contract cell only takes effect at the next recalculation another change causes.
    if (logText)
        logUserAction(boost::format(logText) % userIdText() % text.toStdString());
    return true;
}

void COpBasketParamsWidget::onCellTyped(int id)
{
    if (id == 58 && getCurrentVolumnType() == VT_MONEY && m_moneyTip)
        showMoneyTip();
    if (m_accountsWidget) {
        const quint64 tab = m_tradeOpType;
        m_accountsWidget->setShowToolBar(tab != TOT_ONEKEY_FUTURE && tab != TOT_FUTURE && tab != TOT_ALL && tab != TOT_CREDIT);
    }
}

// The bar's switches: the order block shown or hidden, automatic hedging, the accounts shown.
void COpBasketParamsWidget::onBarSwitch(int id, int value)
{
    if (id == 5) {
        const quint64 tab = m_tradeOpType;
        const bool ownTab = tab == TOT_BUY || tab == TOT_SELL || tab == TOT_ALL || tab == TOT_CREDIT || tab == TOT_FUTURE
            || isConnectTab(tab);
        if (QWidget *block = ownTab ? modeWidgetOf(tab) : m_ftrOneKeyWidget)
            block->setVisible(value == 1);
        if (m_expandBtn)
            m_expandBtn->setVisible(value == 1);
        if (m_rightList)
            m_rightList->updateWidgetLength();
        if (m_accountsWidget)
            m_accountsWidget->setEnabled(value != 2);
    } else if (id == 6 && luawrapper::LuaModuleCtrl::checkModule({"mdl_order", "mdl_order_compose_hedge"})) {
        if (m_hedgeWidget)
            m_hedgeWidget->setAutoHedge(value == 1);
        resetVolumnTypeByAutoHedge();
        resetLayout();
    } else if (id == 7 && m_accountsWidget) {
        m_accountsWidget->setVisible(value == 1);
    }
}

void COpBasketParamsWidget::onBasketChosen(int value)
{
    if (!m_basketsCombo || !m_volumnCombobox)
        return;
    if (m_operationType == 21 && luawrapper::LuaModuleCtrl::checkModule({"mdl_auth", "mdl_auth_query_sellsecutities_for_slosell"}))
        updateAccountsSlo();
    resetVolumnCombobox();
    setItemsVisible(getCurrentVolumnType(), value);
    const int batch = static_cast<int>(m_basketsCombo->batchOp());
    enableWidgetForExchangePosition(batch != BATCH_BUY_SELL && batch != BATCH_CUSTOM_GROUP);
    m_tabBaskets[m_tradeOpType].m_batchFlags = static_cast<int>(m_basketsCombo->getAllFlag());
    if (m_accountsWidget)
        m_accountsWidget->setEnabled(value != 2);
    logUserAction(boost::format("User %1% Modify basket: %2%") % userIdText() % m_basketsCombo->currentText().toStdString());
    recalculate(value);
}

void COpBasketParamsWidget::showPatchSetting()
{
    if (!m_patchSetting || !m_buttonsBar)
        return;
    m_patchSetting->load();
    m_patchSetting->show();
    // Its bottom right corner on the bar's top right corner: the window rises from the bar.
    m_patchSetting->move(m_buttonsBar->mapToGlobal(m_buttonsBar->rect().topRight())
                         - QPoint(m_patchSetting->width() - 1, m_patchSetting->height() - 1));
    keepOnScreen(m_patchSetting, m_buttonsBar);
}

void COpBasketParamsWidget::showHedgeSetting()
{
    if (!m_hedgeWidget)
        return;
    if (!m_hedgeSetting) {
        m_hedgeSetting = new COpBasketHedgeSettingWidget(this);
        m_hedgeSetting->setHedgeWidget(m_hedgeWidget);
    }
    m_hedgeSetting->load();
    m_hedgeSetting->show();
    m_hedgeSetting->move(m_hedgeWidget->mapToGlobal(m_hedgeWidget->rect().bottomLeft())
                         - QPoint(m_hedgeSetting->width(), m_hedgeSetting->height()));
    keepOnScreen(m_hedgeSetting, m_hedgeWidget);
}

// One table's options are copied to the other side of the one-key tab.
void COpBasketParamsWidget::copyCheckParamToOtherSide(void *table)
{
    COpBasketStockParamsWidget *buy = m_buySellWidget ? m_buySellWidget->getBuyParam() : nullptr;
    COpBasketStockParamsWidget *sell = m_buySellWidget ? m_buySellWidget->getSellParam() : nullptr;
    if (!buy || !sell || !buy->table() || !sell->table() || !table)
        return;
    if (table == buy->table()) {
        sell->table()->setCheckParam(buy->table()->loadCheckParam());
        sell->table()->resetBtnType();
    } else if (table == sell->table()) {
        buy->table()->setCheckParam(sell->table()->loadCheckParam());
        buy->table()->resetBtnType();
    }
}

void COpBasketParamsWidget::onAccountsChanged()
{
    if (m_basketsCombo && m_basketsCombo->batchOp() == ETempBatchOrderFlags(BATCH_BUY_SELL))
        m_basketsCombo->setBatchOp(BATCH_NONE, true);
    if (m_basketsCombo && isConnectTab(m_tradeOpType) && getUserConfig()->getRole() != kTraderRole) {
        const int brokerType = pickerBrokerTypeOf(m_tradeOpType);
        if (m_basketsCombo->getBrokerType() != brokerType)
            m_basketsCombo->setBatchOp(BATCH_NONE, true);
        setPickerBrokerType(brokerType);
    }
    genOperation();
    updateParamsByAccount();
    tellAccountsWithoutCustomLines();
    deliverListChanged(0);
    setParities();
}

void COpBasketParamsWidget::tellAccountsWithoutCustomLines()
{
    // A custom group keeps the lines the trader edited account by account: an account ticked
    // afterwards has none of its own, and the trader must learn why it shows no line.
    if (!m_accountsWidget || !m_basketsCombo || m_basketsCombo->batchOp() != ETempBatchOrderFlags(BATCH_CUSTOM_GROUP))
        return;
    QSet<QString> withLines;
    for (const ttservice::CCodeOrderParam &line : m_orderParams) {
        if (line.m_account)
            withLines.insert(QString::fromStdString(line.m_account->getKey()));
    }
    QStringList without;
    for (const QString &key : m_accountsWidget->getSelectedAccounts()) {
        if (!withLines.contains(key))
            without << key;
    }
    if (without.isEmpty() || m_orderParams.empty())
        return;
    without.sort();
    const CMsgSetting setting = getUserConfig()->msgSetting(1);
    getMsgService()->showMsg(QStringLiteral("自定义组合按账号保存了编辑过的委托, 新勾选的账号 %1 没有委托行; "
                                            "如需为其下单, 请重新选择篮子按所有勾选的账号计算")
                                 .arg(without.join(QStringLiteral(", "))),
                             EMsgTypeDef(1), ttservice::MsgLevel(1), setting.m_showPopup, setting.m_playSound, QString());
}

} // namespace TC
