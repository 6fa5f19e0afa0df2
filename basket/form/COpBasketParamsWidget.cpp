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

#include "CBasketParamTabButton.h"
#include "CComboBox.h"
#include "CComboxNameWidget.h"
#include "CGlobalOrderParamTable.h"
#include "CJiuGongImageWidget.h"
#include "CMessageTip.h"
#include "COpAccountsWidget.h"
#include "COpBasketFutureParamsWidget.h"
#include "COpBasketHedgeSettingWidget.h"
#include "COpBasketParamsExpandBar.h"
#include "COperationPushButtonGroup.h"
#include "CParameterCell.h"
#include "CPushButton.h"
#include "CQuoteClient.h"
#include "CSimpleTextWidget.h"
#include "CUiResource.h"
#include "CUserConfig.h"
#include "CWidgetList.h"
#include "LuaModuleCtrl.h"

#include "StockKey.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QListView>
#include <QPainter>
#include <QPushButton>

namespace TC {
namespace {

constexpr int kShortcutBuy = 400;
constexpr int kShortcutSell = 401;
constexpr int kTraderRole = 200;
constexpr int kCellWidth = 185;
constexpr int kCellHeight = 24;
constexpr int kPickerWidth = 133;
constexpr int kSystemBasketFlag = 64;

bool moduleOn(const char *group, const char *name)
{
    return luawrapper::LuaModuleCtrl::checkModule({group, name});
}

bool isTraderSide()
{
    return getUserConfig()->getRole() == kTraderRole;
}

} // namespace

COpBasketParamsWidget::COpBasketParamsWidget(QWidget *parent)
    : WK::CBaseWidget(QStringLiteral("basket_params_widget"), false, parent)
{
    setMinimumWidth(200);
    setFocusPolicy(static_cast<Qt::FocusPolicy>(11));
    if (hasComposeHgtType())
        m_ggtNames.insert(TOT_HGT, QStringLiteral("沪港通"));
    if (hasComposeSgtType())
        m_ggtNames.insert(TOT_SGT, QStringLiteral("深港通"));
    createUi();
    // Quotes may arrive on the quote service's thread; the default connection brings the
    // recalculation to the widget's own thread.
    connect(this, &COpBasketParamsWidget::sigRecalcOperationParam, this,
            &COpBasketParamsWidget::slotRecalcOperationParam);
    // The client warms its account cache for the two broker types the form starts with.
    getUserConfig()->getGroupAccountsMultiType({ttservice::BROKER_TYPE_FUTURE, ttservice::BROKER_TYPE_STOCK}, QString());
}

COpBasketParamsWidget::~COpBasketParamsWidget() = default;

void COpBasketParamsWidget::createTabs()
{
    struct Tab
    {
        quint64 word;
        const char *text;
        bool created;
    };
    const bool futures = moduleOn("mdl_order", "mdl_order_compose_futures");
    const Tab tabs[] = {
        {TOT_BUY, "买入", true},
        {TOT_SELL, "卖出", true},
        {TOT_ALL, "一键买卖", moduleOn("mdl_order", "mdl_order_compose_basket_buy_sell")},
        {TOT_CREDIT, "信用交易", moduleOn("mdl_order", "mdl_order_compose_credits")},
        {TOT_FUTURE, "期货交易", futures},
        {TOT_ONEKEY_FUTURE, "一键期货", futures && moduleOn("mdl_order", "mdl_order_compose_one_key_futures")},
        {TOT_HGT, "港股通", hasComposeGgtType()},
    };
    for (const Tab &tab : tabs) {
        if (!tab.created)
            continue;
        CBasketParamTabButton *button = m_tabGroup->addButton(static_cast<int>(tab.word), QString::fromUtf8(tab.text));
        if (!button)
            continue;
        button->setFixedHeight(60);
        const QString normal = QStringLiteral("clr_basket_param_tab_button_nomal");
        if (tab.word == TOT_BUY) {
            button->setBackgroundColorKeys(normal, QStringLiteral("clr_basket_param_buy_btn_press"), QStringLiteral("clr_basket_param_buy_btn_hover"));
            button->setTextColorKeys(QStringLiteral("clr_text_left_tab_inactive"), QStringLiteral("clr_param_table_order_mode_active"));
        } else if (tab.word == TOT_SELL) {
            button->setBackgroundColorKeys(normal, QStringLiteral("clr_basket_param_sell_btn_press"), QStringLiteral("clr_basket_param_sell_btn_hover"));
            button->setTextColorKeys(QStringLiteral("clr_text_left_tab_inactive"), QStringLiteral("clr_param_table_order_mode_active"));
        } else {
            button->setBackgroundColorKeys(normal, QStringLiteral("clr_basket_param_tab_button_press"), QStringLiteral("clr_basket_param_tab_button_hover"));
            button->setTextColorKeys(QStringLiteral("clr_text_left_tab_inactive"), QStringLiteral("clr_text_left_tab_active"));
        }
    }
    m_tabGroup->setCheckedByID(static_cast<int>(TOT_BUY));
}

void COpBasketParamsWidget::createUi()
{
    auto *root = new WK::CWidgetList(Qt::Horizontal, this);
    m_tabGroup = new COperationPushButtonGroup(Qt::Vertical, 0, 0, 1, root);
    m_rightList = new WK::CWidgetList(Qt::Vertical, root);
    m_settingBar = new COpBasketParamsExpandBar(5, QStringLiteral("组合交易设置"), this);
    createModeBlocks();
    m_expandBtn = new WK::CPushButton(9, this);
    auto *accountBar = new COpBasketParamsExpandBar(7, QStringLiteral("账号选择"), this);
    m_accountsWidget = new COpAccountsWidget(8, 1, 1, this);
    m_otherParams = createOtherParams();
    if (hasHedgePermission())
        m_hedgeWidget = new COpBasketFutureParamsWidget(6, 1, this);
    auto *bottomStrip = new WK::CJiuGongImageWidget(1, QStringLiteral("img_white_widget_bg"), 2, 28, 2, 27, this);

    createTabs();
    m_settingBar->setTopLineVisible(false);
    m_expandBtn->setImageKey(QStringLiteral("tc_img_operation_showhide_btn"));
    m_expandBtn->setIconKey(QStringLiteral("tc_img_operation_expand_btn"));
    m_expandBtn->setFixedSize(WK::CUiResource::instance()->getSize(QStringLiteral("tc_siz_operation_panel_param_table_width")), 10);
    m_accountsWidget->setMinimumWidth(340);
    m_otherParams->setMinimumSize(340, 80);
    if (m_hedgeWidget)
        m_hedgeWidget->setMinimumSize(340, 30);
    bottomStrip->setFixedHeight(64);
    bottomStrip->setMinimumWidth(260);
    auto *stripLayout = new QHBoxLayout(bottomStrip);
    stripLayout->setSpacing(2);
    m_buttonsBar = new COpBasketParamsButtonsBar(bottomStrip);
    stripLayout->addWidget(m_buttonsBar);

    root->setMargin(0, 0, 0, 0);
    root->setSpacing(-1);
    root->addFixedSpace(10);
    m_tabGroup->setFixedWidth(24);
    root->addFixedWidget(m_tabGroup, 3, 0);
    root->addStretchWidget(m_rightList, 1, 3, 0);
    m_rightList->setMargin(0, 0, 0, 0);
    m_rightList->setSpacing(0);
    m_rightList->addFixedWidget(m_settingBar, 3, 0);
    for (QWidget *block : {static_cast<QWidget *>(m_stockParams), static_cast<QWidget *>(m_buySellWidget),
                           static_cast<QWidget *>(m_crdWidget), static_cast<QWidget *>(m_ftrWidget),
                           static_cast<QWidget *>(m_ftrOneKeyWidget), static_cast<QWidget *>(m_ggtWidget)}) {
        if (block)
            m_rightList->addFixedWidget(block, 3, 0);
    }
    m_rightList->addFixedWidget(m_expandBtn, 0, 0);
    m_rightList->addFixedWidget(accountBar, 3, 0);
    m_rightList->addStretchWidget(m_accountsWidget, 1, 3, 0);
    m_rightList->addFixedWidget(m_otherParams, 3, 0);
    if (m_hedgeWidget)
        m_rightList->addFixedWidget(m_hedgeWidget, 3, 0);
    m_rightList->addFixedWidget(bottomStrip, 3, 0);
    setInnerStretchWidget(root, 0, 0, 0, 0);

    m_accountsWidget->setTradeOpType(TOT_BUY);
    m_accountsWidget->addCustomCombox(m_ggtNames);
    m_ggtOpType = getGgtTradeOpType(TOT_HGT);

    if (isTraderSide())
        disableForTrader();
    setCurrentOperationType(TOT_BUY);
}

void COpBasketParamsWidget::createModeBlocks()
{
    const bool futures = moduleOn("mdl_order", "mdl_order_compose_futures");
    m_stockParams = new COpBasketStockParamsWidget(ttservice::BROKER_TYPE_STOCK, this, ttservice::VQ_TRADER_BASKET);
    m_stockParams->setFixedHeight(210);
    m_stockParams->resetStrategyType(ttservice::ORDER_TYPE_VWAPPLUS, QStringLiteral("VWAPPLUS"));
    if (moduleOn("mdl_order", "mdl_order_compose_basket_buy_sell"))
        m_buySellWidget = new COpBasketBuySellWidget(ttservice::BROKER_TYPE_STOCK, this);
    m_patchSetting = new COpBasketPatchSettingWidget(this);
    if (m_buySellWidget)
        connect(m_buySellWidget, &COpBasketBuySellWidget::sigSetOperation, m_patchSetting,
                &COpBasketPatchSettingWidget::slotSetOperation);
    if (moduleOn("mdl_order", "mdl_order_compose_credits"))
        m_crdWidget = new COpBasketCrdBuySellWidget(this);
    if (futures)
        m_ftrWidget = new COpBasketFtrBuySellWidget(this);
    if (futures && moduleOn("mdl_order", "mdl_order_compose_one_key_futures"))
        m_ftrOneKeyWidget = new COpBasketFtrOneKeyWidget(this);
    if (hasComposeGgtType())
        m_ggtWidget = new COpBasketBuySellWidget(ttservice::BROKER_TYPE_HGT, this);
    for (QWidget *block : {static_cast<QWidget *>(m_buySellWidget), static_cast<QWidget *>(m_crdWidget),
                           static_cast<QWidget *>(m_ftrWidget), static_cast<QWidget *>(m_ftrOneKeyWidget),
                           static_cast<QWidget *>(m_ggtWidget)}) {
        if (!block)
            continue;
        block->setFixedHeight(220);
        block->hide();
    }
}

WK::CParameterCell *COpBasketParamsWidget::makeCell(int id, const QString &label, const QString &unit, QWidget *parent)
{
    auto *cell = new WK::CParameterCell(id, label, unit, parent);
    cell->setFixedSize(kCellWidth, kCellHeight);
    return cell;
}

WK::CBaseWidget *COpBasketParamsWidget::createOtherParams()
{
    auto *box = new WK::CJiuGongImageWidget(1, QStringLiteral("img_white_widget_bg"), 2, 28, 2, 27, this);
    auto *list = new WK::CWidgetList(Qt::Vertical, box);
    list->setMargin(6, 6, 6, 6);
    list->setSpacing(4);
    if (moduleOn("mdl_order", "mdl_order_credit_has_special_opt"))
        createContractRow(list);
    createBasketRow(list);
    createSizingRow(list);
    createCmdRow(list);
    resetVolumnCombobox();
    box->setInnerStretchWidget(list, 0, 0, 0, 0);
    return box;
}

// The credit sell's contract type.
void COpBasketParamsWidget::createContractRow(WK::CWidgetList *list)
{
    m_contractRow = new WK::CWidgetList(Qt::Horizontal, list);
    m_contractLabel = new WK::CSimpleTextWidget(82, QStringLiteral("合约类型"), m_contractRow);
    m_contractLabel->setFixedHeight(kCellHeight);
    m_contractCombo = new WK::CComboBox(81, m_contractRow);
    m_contractCombo->setFixedSize(kPickerWidth, kCellHeight);
    m_contractCombo->addItem(QStringLiteral("普通融券"), 48);
    m_contractCombo->addItem(QStringLiteral("专项融券"), 49);
    m_contractCombo->setCurrentIndex(m_contractCombo->findData(48));
    m_contractRow->setMargin(2, 0, 2, 0);
    m_contractRow->setSpacing(2);
    m_contractRow->addFixedWidget(m_contractLabel, 0, 0);
    m_contractRow->addFixedWidget(m_contractCombo, 0, 0);
    m_contractRow->addFixedSpace(10);
    m_contractRow->addStretchSpace(1);
    m_contractRow->setMinimumHeight(26);
    list->addFixedWidget(m_contractRow, 3, 0);
}

// The basket picker, the import button, the touch-order mode and the rebalance button.
void COpBasketParamsWidget::createBasketRow(WK::CWidgetList *list)
{
    auto *basketRow = new WK::CWidgetList(Qt::Horizontal, list);
    auto *basketLabel = new WK::CSimpleTextWidget(0, QStringLiteral("选择篮子"), basketRow);
    m_basketsCombo = new COpBasketsComboBox(36, basketRow);
    m_basketsCombo->setFixedSize(kPickerWidth, kCellHeight);
    m_entrustLabel = new WK::CSimpleTextWidget(0, QStringLiteral("委托方式"), basketRow);
    m_entrustCombo = new WK::CComboBox(80, basketRow);
    m_entrustCombo->setFixedSize(169, kCellHeight);
    m_entrustCombo->addItem(QStringLiteral("全部触价委托"));
    m_entrustCombo->addItem(QStringLiteral("单笔触价委托"));
    m_entrustLabel->hide();
    m_entrustCombo->hide();
    basketRow->setMargin(2, 0, 2, 0);
    basketRow->setSpacing(2);
    basketRow->addFixedWidget(basketLabel, 0, 0);
    basketRow->addFixedWidget(m_basketsCombo, 0, 0);
    // Imports a basket file into the picker; a file dropped on the picker or the table does the same.
    auto *importButton = new QPushButton(QStringLiteral("导入"), basketRow);
    importButton->setObjectName(QStringLiteral("basket_import_button"));
    importButton->setToolTip(QStringLiteral("从 CSV 或 .xlsx 文件导入篮子，也可把文件拖到篮子框或列表上"));
    importButton->setFixedSize(44, kCellHeight);
    connect(importButton, &QPushButton::clicked, m_basketsCombo, &COpBasketsComboBox::slotImport);
    basketRow->addFixedWidget(importButton, 0, 0);
    basketRow->addFixedSpace(10);
    basketRow->addFixedWidget(m_entrustLabel, 0, 0);
    basketRow->addFixedWidget(m_entrustCombo, 0, 0);
    if (moduleOn("mdl_order", "mdl_order_compose_adjust_position")) {
        const QString text = getUserConfig()->isPbManager() ? QStringLiteral("建议调仓") : QStringLiteral("调仓");
        m_adjustBtn = new WK::CPushButton(107, text, basketRow);
        m_adjustBtn->setImageKey(QStringLiteral("img_btn_small_normal"));
        basketRow->addFixedSpace(10);
        basketRow->addFixedWidget(m_adjustBtn, 0, 0);
    }
    basketRow->addStretchSpace(1);
    basketRow->setMinimumHeight(26);
    list->addFixedWidget(basketRow, 3, 0);
}

// The sizing mode and its cells, one shown at a time.
void COpBasketParamsWidget::createSizingRow(WK::CWidgetList *list)
{
    auto *sizingRow = new WK::CWidgetList(Qt::Horizontal, list);
    m_volumnRow = new CComboxNameWidget(17, QStringLiteral("交易总量"), sizingRow);
    m_volumnRow->setFixedWidth(195);
    m_volumnRow->setListViewWidth(160);
    m_volumnCombobox = m_volumnRow->comboBox();
    m_copiesCell = makeCell(19, QStringLiteral("篮子份数"), QStringLiteral("份"), sizingRow);
    m_copiesCell->setIntValidator(QStringLiteral("份"), 0, 1000000000, 1);
    m_copiesCell->setInt(1);
    m_moneyCell = makeCell(58, QStringLiteral("总金额"), QStringLiteral("元"), sizingRow);
    m_moneyCell->setDoubleValidator(QStringLiteral("元"), 0, 1000000000000.0, 0.01);
    m_moneyCell->setDoubleValidator(QStringLiteral("港币"), 0, 1000000000000.0, 0.01);
    m_moneyCell->setUnit(QStringLiteral("元"));
    m_moneyCell->setDouble(0);
    m_moneyCell->setFlag(4);
    m_moneyCell->setFontKeys(QStringLiteral("fnt_parameter_cell_text"), QStringLiteral("fnt_parameter_cell_text_weight"));
    m_moneyCell->setColorKey(QStringLiteral("clr_basket_paramter_cell_quantity"));
    m_moneyCell->setSegmented(getUserConfig()->getSegmentedFormatFlag() != 0);
    m_moneyCell->setShowTip(false);
    m_ratioCell = makeCell(59, QStringLiteral("比例"), QStringLiteral("%"), sizingRow);
    m_ratioCell->setDoubleValidator(QStringLiteral("%"), 0, 100, 0.01);
    m_ratioCell->setDouble(100);
    m_sellRatioCell = makeCell(51, QStringLiteral("卖出比例"), QStringLiteral("%"), sizingRow);
    m_sellRatioCell->setDoubleValidator(QStringLiteral("%"), 0, 100, 0.01);
    m_sellRatioCell->setDouble(100);
    // Two cells share id 63 on purpose: they recalculate alike and neither writes a log line.
    m_assetRatioCell = makeCell(63, QStringLiteral("比例"), QStringLiteral("%"), sizingRow);
    m_assetRatioCell->setDoubleValidator(QStringLiteral("%"), 0, 100, 0.01);
    m_assetRatioCell->setDouble(100);
    m_contractCell = makeCell(93, QStringLiteral("合约手数"), QStringLiteral("手"), sizingRow);
    m_contractCell->setIntValidator(QStringLiteral("手"), 0, 1000000000, 1);
    m_contractCell->setInt(1);
    m_totalLotsCell = makeCell(63, QStringLiteral("总手数"), QStringLiteral("手"), sizingRow);
    m_totalLotsCell->setIntValidator(QStringLiteral("手"), 0, 1000000000, 1);
    m_totalLotsCell->setInt(1);
    m_moneyTip = new WK::CMessageTip(m_moneyCell, 3, 300);
    m_moneyTip->hide();
    sizingRow->setMargin(0, 0, 0, 0);
    sizingRow->setSpacing(0);
    sizingRow->addFixedWidget(m_volumnRow, 0, 0);
    sizingRow->addFixedSpace(10);
    for (WK::CParameterCell *cell : {m_copiesCell, m_moneyCell, m_ratioCell, m_sellRatioCell, m_assetRatioCell,
                                     m_contractCell, m_totalLotsCell}) {
        sizingRow->addStretchWidget(cell, 1, 0, 2);
        cell->hide();
    }
    m_copiesCell->show();
    sizingRow->setMinimumHeight(26);
    list->addFixedWidget(sizingRow, 3, 0);
}

// The instruction's order ratio, shown while an instruction is loaded.
void COpBasketParamsWidget::createCmdRow(WK::CWidgetList *list)
{
    auto *cmdRow = new WK::CWidgetList(Qt::Horizontal, list);
    m_cmdRatioCell = makeCell(91, QStringLiteral("下单比例"), QStringLiteral("%"), cmdRow);
    m_cmdRatioCell->setDoubleValidator(QStringLiteral("%"), 0, 100, 0.01);
    m_cmdRatioCell->setDouble(100);
    cmdRow->addFixedWidget(m_cmdRatioCell, 0, 0);
    cmdRow->addStretchSpace(1);
    cmdRow->setMinimumHeight(26);
    m_cmdRatioCell->hide();
    cmdRow->hide();
    m_cmdRatioRow = cmdRow;
    list->addFixedWidget(cmdRow, 3, 0);
}

void COpBasketParamsWidget::disableForTrader()
{
    for (QWidget *widget : {static_cast<QWidget *>(m_accountsWidget), static_cast<QWidget *>(m_otherParams),
                            static_cast<QWidget *>(m_stockParams), static_cast<QWidget *>(m_buySellWidget),
                            static_cast<QWidget *>(m_patchSetting), static_cast<QWidget *>(m_ftrWidget),
                            static_cast<QWidget *>(m_ftrOneKeyWidget)}) {
        if (widget)
            widget->setEnabled(false);
    }
    if (m_hedgeWidget) {
        m_hedgeWidget->setAutoHedge(false);
        m_hedgeWidget->setEnabled(false);
    }
    if (m_buttonsBar) {
        m_buttonsBar->setEnabled(false);
        m_buttonsBar->setCommandChangeVisible(false);
    }
}

WK::CParameterCell *COpBasketParamsWidget::cell(int which) const
{
    switch (which) {
    case CellCopies: return m_copiesCell;
    case CellMoney: return m_moneyCell;
    case CellRatio: return m_ratioCell;
    case CellSellRatio: return m_sellRatioCell;
    case CellAssetRatio: return m_assetRatioCell;
    case CellCmdRatio: return m_cmdRatioCell;
    case CellContract: return m_contractCell;
    case CellTotalLots: return m_totalLotsCell;
    default: return nullptr;
    }
}

void COpBasketParamsWidget::scaleChanged()
{
    WK::CBaseWidget::scaleChanged();
    const double scale = WK::CUiResource::instance()->getUIScale();
    const int picker = static_cast<int>(kPickerWidth * scale);
    const int cellWidth = static_cast<int>(kCellWidth * scale);
    if (m_basketsCombo)
        m_basketsCombo->setFixedSize(picker, kCellHeight);
    if (m_contractCombo)
        m_contractCombo->setFixedSize(picker, kCellHeight);
    for (WK::CParameterCell *cell : {m_copiesCell, m_moneyCell, m_ratioCell, m_sellRatioCell, m_contractCell}) {
        if (cell)
            cell->setFixedSize(cellWidth, kCellHeight);
    }
    if (m_volumnRow)
        m_volumnRow->setFixedSize(cellWidth + 10, kCellHeight);
    if (m_expandBtn)
        m_expandBtn->setFixedWidth(WK::CUiResource::instance()->getSize(QStringLiteral("tc_siz_operation_panel_param_table_width")));
    if (m_rightList)
        m_rightList->updateWidgetLength();
}

void COpBasketParamsWidget::paintEvent(QPaintEvent *event)
{
    WK::CBaseWidget::paintEvent(event);
    QPainter painter(this);
    painter.fillRect(rect(), QBrush(WK::CUiResource::instance()->getColor(QStringLiteral("clr_widget_background")),
                                    Qt::Dense2Pattern));
}

bool COpBasketParamsWidget::hasHedgePermission() const
{
    return moduleOn("mdl_order", "mdl_order_compose_hedge") && getUserConfig()->hasUserAuth(1);
}

bool COpBasketParamsWidget::isShowSystemBasket(quint64 word) const
{
    return (word == 512 || word == 1024 || word == 8192) && moduleOn("mdl_auth", "mdl_auth_etf_management");
}

bool COpBasketParamsWidget::isComAllOp() const
{
    return m_tradeOpType == TOT_ALL || m_tradeOpType == TOT_FUTURE || m_tradeOpType == TOT_CREDIT;
}

quint64 COpBasketParamsWidget::getGgtTradeOpType(quint64 word) const
{
    if (m_ggtNames.isEmpty() || m_ggtNames.contains(word))
        return word;
    return m_ggtNames.firstKey();
}

int COpBasketParamsWidget::getOptTypeByCompact() const
{
    const int op = m_crdWidget ? m_crdWidget->currentOpt() : -1;
    if (moduleOn("mdl_order", "mdl_order_credit_has_special_opt") && m_contractCombo && m_tradeOpType == TOT_CREDIT
        && (op == 21 || op == 22) && m_contractCombo->currentData().toInt() == 49)
        return op == 21 ? 1010 : 1011;
    return op;
}

int COpBasketParamsWidget::getCurrentVolumnType() const
{
    if (!m_volumnCombobox || m_volumnCombobox->currentIndex() < 0)
        return -1;
    return m_volumnCombobox->currentData().toInt();
}

QString COpBasketParamsWidget::currentBasketName() const
{
    return m_basketsCombo ? m_basketsCombo->currentText() : QString();
}

int COpBasketParamsWidget::currentBasketKind() const
{
    // A temporary list (pasted rows, positions, a custom group) is the user's own, sized like a
    // basket of the user's own; without this a paste would offer no sizing mode and size to 0.
    const int batch = m_basketsCombo ? static_cast<int>(m_basketsCombo->batchOp()) : BATCH_NONE;
    if (batch != BATCH_NONE && batch != kSystemBasketFlag)
        return 0;
    const QMap<QString, CBasketSetting> &baskets = getUserConfig()->baskets();
    const auto it = baskets.constFind(currentBasketName());
    return it == baskets.constEnd() ? -1 : it->m_basketKind;
}

bool COpBasketParamsWidget::autoHedge() const
{
    return m_hedgeWidget && m_hedgeWidget->isAutoHedgeCheck() && m_hedgeWidget->isVisible();
}

bool COpBasketParamsWidget::fillHedgeParam(ttservice::CBasketHedgeParam &param) const
{
    return m_hedgeWidget ? m_hedgeWidget->fillHedgeParam(param) : false;
}

void COpBasketParamsWidget::selectAccount(const QString &account)
{
    if (m_accountsWidget)
        m_accountsWidget->setSelectedAccount(account, true);
}

void COpBasketParamsWidget::setReplaceToolBar(COpBasketReplaceStockToolBar *bar)
{
    m_replaceToolBar = bar;
}

void COpBasketParamsWidget::clearBasketNum()
{
    if (getCurrentVolumnType() == VT_COPIES && m_copiesCell)
        m_copiesCell->setInt(0);
}

void COpBasketParamsWidget::enableWidgetForExchangePosition(bool enable)
{
    if (m_volumnRow)
        m_volumnRow->setEnabled(enable);
    for (WK::CParameterCell *cell : {m_copiesCell, m_moneyCell, m_ratioCell, m_contractCell}) {
        if (cell && cell->isVisible())
            cell->setEnabled(enable);
    }
}

int COpBasketParamsWidget::getTradePlatform() const
{
    // Read without entering the name: a temporary list must not become a stored basket.
    const QMap<QString, CBasketSetting> &baskets = getUserConfig()->baskets();
    return baskets.value(currentBasketName()).tradePlatform();
}

std::string COpBasketParamsWidget::get3rdPartyTradeParam() const
{
    return getTradePlatform() != 0 ? m_thirdPartyParam : std::string();
}

bool COpBasketParamsWidget::getTraderChangeEnable() const
{
    return m_buttonsBar && m_buttonsBar->getCommandChange();
}

int COpBasketParamsWidget::getIndexVolume(const QString &market, const QString &code)
{
    if (market != QLatin1String("SH"))
        return 1;
    if (code == QLatin1String("000300") || code == QLatin1String("000016"))
        return 300;
    if (code == QLatin1String("000905"))
        return 200;
    return 1;
}

void COpBasketParamsWidget::loadAccountGroupSettings()
{
    if (m_accountsWidget)
        m_accountsWidget->loadAccountGroupSettings();
}

void COpBasketParamsWidget::refreshAccounts()
{
    if (m_accountsWidget)
        m_accountsWidget->refreshAccounts();
}

void COpBasketParamsWidget::updateBasketSetting()
{
    if (m_basketsCombo)
        m_basketsCombo->updateBasketSetting();
}

void COpBasketParamsWidget::doShortCutOrder(int key, QKeyEvent *)
{
    if (key != kShortcutBuy && key != kShortcutSell)
        return;
    setFocus();
    const quint64 word = key == kShortcutBuy ? TOT_BUY : TOT_SELL;
    if (m_tradeOpType != word) {
        // The first press only switches the tab, so that the user sees what the next one sends.
        handleEvent(5, static_cast<int>(word), 0, QString(), nullptr);
    } else if (m_buySellWidget) {
        // Placing by key is a feature of the deployments that have the one-key block.
        deliverEvent(1046, 0, 0, QString(), nullptr);
    }
}

void COpBasketParamsWidget::setBatchOp(QFlags<ETempBatchOrderFlag> flags, bool select)
{
    if (m_basketsCombo)
        m_basketsCombo->setBatchOp(flags, select);
}

void COpBasketParamsWidget::resetSizingToOneCopy()
{
    if (m_volumnCombobox)
        m_volumnCombobox->setCurrentIndex(0);
    if (m_copiesCell)
        m_copiesCell->setInt(1);
}


} // namespace TC
