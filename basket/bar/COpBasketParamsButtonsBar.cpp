#include "COpBasketParamsButtonsBar.h"

#include "COpOneKeyFutureButtonsBarSettingWidget.h"
#include "ConnectTabs.h"

#include "CCheckBox.h"
#include "CLogCenter.h"
#include "COpButton.h"
#include "CPushButton.h"
#include "CSimpleTextWidget.h"
#include "CUiResource.h"
#include "CUserConfig.h"
#include "CWidgetList.h"
#include "PanelEnums.h"
#include "TextHelpers.h"

#include <boost/format.hpp>

#include <QBoxLayout>
#include <QScreen>
#include <QStringList>

#include <algorithm>
#include <initializer_list>
#include <utility>

namespace TC {
namespace {

using ttservice::EHedge_Flag_Type;
using ttservice::EOperationType;

const char kSourcePath[] = "basket\\COpBasketParamsButtonsBar";
const char kCloseSettingSizeKey[] = "tc_siz_basket_param_close_setting";
const char kLinkColorKey[] = "clr_clickable_simple_text";
const char kLinkFontKey[] = "tc_fnt_operation_txt_stop_loss";
const char kTextFontKey[] = "fnt_default_normal";
constexpr int kFutureTextHeight = 22;

bool isYesterdayFirst(int op)
{
    return op == ttservice::OT_CLOSE_LONG_YESTERDAY || op == ttservice::OT_CLOSE_SHORT_YESTERDAY
        || op == ttservice::OT_ONEKEY_SELL_YESTERDAY || op == ttservice::OT_ONEKEY_BUY_YESTERDAY;
}

// The today or the yesterday variant of a close.
EOperationType byCloseOrder(bool closeTodayFirst, EOperationType today, EOperationType yesterday)
{
    return closeTodayFirst ? today : yesterday;
}

void styleAsLink(WK::CSimpleTextWidget *text)
{
    text->setColorKey(QLatin1String(kLinkColorKey));
    text->setFontKey(QLatin1String(kLinkFontKey));
}

} // namespace

COpBasketParamsButtonsBar::COpBasketParamsButtonsBar(QWidget *parent)
    : WK::CBaseWidget(QStringLiteral("basket_params_buttons_bar"), false, parent)
{
    createUi();
}

COpBasketParamsButtonsBar::~COpBasketParamsButtonsBar() = default;

void COpBasketParamsButtonsBar::createUi()
{
    const bool pbManager = getUserConfig()->isPbManager();
    m_buyButton = new COpButton(ID_BUY_BUTTON, COpButton::OBT_BUY, this);
    m_sellButton = new COpButton(ID_SELL_BUTTON, COpButton::OBT_SELL, this);
    m_orderButton = new COpButton(ID_ORDER_BUTTON, COpButton::OBT_ORDER, this);
    m_rightList = new WK::CWidgetList(Qt::Vertical, this);
    auto *commandRow = new WK::CWidgetList(Qt::Horizontal, m_rightList);
    m_commandChange = new WK::CCheckBox(ID_COMMAND_CHANGE, QStringLiteral("允许改参"), commandRow);
    auto *parityRow = new WK::CWidgetList(Qt::Horizontal, m_rightList);
    m_buyParityText = new WK::CSimpleTextWidget(ID_BUY_PARITY_TEXT, QStringLiteral("买入汇率:0.00  "), parityRow);
    m_sellParityText = new WK::CSimpleTextWidget(ID_SELL_PARITY_TEXT, QStringLiteral("卖出汇率:0.00"), parityRow);
    m_patchText = new WK::CSimpleTextWidget(ID_PATCH_TEXT, QStringLiteral("补单算法设置"), this);
    m_settingButton = new WK::CPushButton(ID_SETTING_BUTTON, this);
    m_closeTypeText = new WK::CSimpleTextWidget(this);
    m_hedgeFlagText = new WK::CSimpleTextWidget(this);
    m_settingWidget = new COpOneKeyFutureButtonsBarSettingWidget(m_hedgeFlag, m_closeTodayFirst, this);

    m_buyButton->setObjectName(QStringLiteral("buy_button"));
    m_sellButton->setObjectName(QStringLiteral("sell_button"));
    m_orderButton->setObjectName(QStringLiteral("order_button"));
    m_commandChange->setObjectName(QStringLiteral("command_change"));
    m_settingButton->setObjectName(QStringLiteral("setting_button"));
    m_closeTypeText->setObjectName(QStringLiteral("close_type_text"));
    m_hedgeFlagText->setObjectName(QStringLiteral("hedge_flag_text"));
    m_patchText->setObjectName(QStringLiteral("patch_text"));
    m_buyParityText->setObjectName(QStringLiteral("buy_parity_text"));
    m_sellParityText->setObjectName(QStringLiteral("sell_parity_text"));
    // The bar's texts take the panel's font, not the application's, so that they fit the
    // widths the bar gives them; the check box is given it itself, as a platform class font
    // of check boxes would win over the inherited one.
    setFontKey(QLatin1String(kTextFontKey));
    m_commandChange->setFontKey(QLatin1String(kTextFontKey));

    styleWidgets(pbManager);
    layOut(commandRow, parityRow);
    updateFutureTexts();
    for (QWidget *widget : std::initializer_list<QWidget *>{
             m_sellButton, m_orderButton, m_commandChange, m_buyParityText, m_sellParityText, m_patchText,
             m_settingButton, m_closeTypeText, m_hedgeFlagText, m_settingWidget})
        widget->hide();
}


void COpBasketParamsButtonsBar::styleWidgets(bool pbManager)
{
    const std::pair<COpButton *, QString> buttons[] = {
        {m_buyButton, pbManager ? QStringLiteral("建议买入") : QStringLiteral("买 入")},
        {m_sellButton, pbManager ? QStringLiteral("建议卖出") : QStringLiteral("卖 出")},
        {m_orderButton, pbManager ? QStringLiteral("建议下单") : QStringLiteral("下 单")},
    };
    for (const auto &[button, text] : buttons) {
        button->setText(text);
        button->setFixedSize(90, 36);
        button->setBoldOnHover(true);
        button->setFontKeys(QStringLiteral("tc_fnt_operation_btn_text_option"),
                            QStringLiteral("tc_fnt_operation_btn_text_price"),
                            QStringLiteral("tc_fnt_operation_btn_text_volume"));
    }
    m_commandChange->setFixedSize(90, 20);
    m_commandChange->setToolTip(QStringLiteral("允许交易员修改指令执行的参数"));
    m_commandChange->setChecked(true);
    m_buyParityText->setFixedSize(105, 20);
    m_sellParityText->setFixedSize(100, 20);
    for (WK::CSimpleTextWidget *text : {m_buyParityText, m_sellParityText, m_patchText})
        styleAsLink(text);
    m_patchText->setClickable(true);
    m_settingButton->setImageKey(QStringLiteral("tc_img_btn_set_small"));
    m_settingButton->setFixedSize(kFutureTextHeight, kFutureTextHeight);
    m_closeTypeText->setFixedSize(WK::CUiResource::instance()->getSize(QLatin1String(kCloseSettingSizeKey)),
                                  kFutureTextHeight);
    m_hedgeFlagText->setFixedSize(40, kFutureTextHeight);
}

// The order buttons in a column, the instruction switch and parities beside them, the patch
// link, then the one-key futures settings.
void COpBasketParamsButtonsBar::layOut(WK::CWidgetList *commandRow, WK::CWidgetList *parityRow)
{
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(2);
    auto *buttonColumn = new QVBoxLayout;
    buttonColumn->setContentsMargins(10, 10, 10, 10);
    buttonColumn->setSpacing(10);
    buttonColumn->addWidget(m_buyButton);
    buttonColumn->addWidget(m_sellButton);
    buttonColumn->addWidget(m_orderButton);
    row->addLayout(buttonColumn);

    m_rightList->setFixedSize(210, 45);
    m_rightList->setMargin(0, 0, 0, 0);
    commandRow->setFixedSize(210, 20);
    commandRow->setMargin(0, 0, 0, 0);
    commandRow->addFixedWidget(m_commandChange, Qt::AlignVCenter, 0);
    commandRow->addStretchSpace(1);
    parityRow->setFixedSize(210, 20);
    parityRow->setMargin(0, 0, 0, 0);
    parityRow->addFixedWidget(m_buyParityText, Qt::AlignVCenter, 0);
    parityRow->addFixedWidget(m_sellParityText, Qt::AlignVCenter, 0);
    parityRow->addStretchSpace(1);
    m_rightList->addFixedWidget(commandRow, 0, 0);
    m_rightList->addFixedWidget(parityRow, 0, 0);
    m_rightList->addStretchSpace(1);
    row->addWidget(m_rightList);
    row->addWidget(m_patchText);

    auto *settingColumn = new QVBoxLayout;
    settingColumn->setContentsMargins(0, 0, 0, 0);
    settingColumn->setSpacing(5);
    settingColumn->addSpacing(8);
    auto *settingRow = new QHBoxLayout;
    settingRow->setContentsMargins(0, 0, 0, 0);
    settingRow->setSpacing(5);
    settingRow->addWidget(m_settingButton);
    settingRow->addWidget(m_closeTypeText);
    settingRow->addWidget(m_hedgeFlagText);
    settingColumn->addLayout(settingRow);
    settingColumn->addStretch(1);
    row->addLayout(settingColumn);
    row->addStretch(1);
    row->addSpacing(10);
}

void COpBasketParamsButtonsBar::setOperationType(EOperationType op, quint64 tab)
{
    m_operationType = op;
    m_tradeOpType = tab;
    m_buyParityText->setVisible(isConnectTab(tab));
    m_sellParityText->setVisible(isConnectTab(tab));
    m_rightList->setVisible(tab != TOT_FUTURE && tab != TOT_ONEKEY_FUTURE);
    m_rightList->updateList();

    switch (tab) {
    case TOT_BUY:
    case TOT_SELL:
        if (op == ttservice::OT_BUY || op == ttservice::OT_MARGIN_BUY) {
            m_buyButton->show();
            m_sellButton->hide();
        } else if (op == ttservice::OT_SELL || op == ttservice::OT_SHORT_SELL) {
            m_buyButton->hide();
            // Unspaced, unlike the text the button starts with.
            m_sellButton->setText(getUserConfig()->isPbManager() ? QStringLiteral("建议卖出") : QStringLiteral("卖出"));
            m_sellButton->show();
        } else {
            // Other operations of these tabs keep the bar as it stands.
            return;
        }
        m_orderButton->hide();
        setFutureSettingVisible(false, false, false);
        break;
    case TOT_ALL:
    case TOT_CREDIT:
    case TOT_HGT:
    case TOT_SGT:
        m_buyButton->hide();
        m_sellButton->hide();
        m_orderButton->show();
        setFutureSettingVisible(false, false, false);
        break;
    case TOT_FUTURE:
    case TOT_ONEKEY_FUTURE: {
        m_buyButton->hide();
        m_sellButton->hide();
        m_orderButton->show();
        const bool closeShown = tab == TOT_ONEKEY_FUTURE || op == ttservice::OT_CLOSE_LONG
            || op == ttservice::OT_CLOSE_SHORT;
        setFutureSettingVisible(true, closeShown, true);
        if (m_settingWidget)
            m_settingWidget->setCloseTypeVisible(closeShown);
        break;
    }
    default:
        break;
    }
}

void COpBasketParamsButtonsBar::setFutureSettingVisible(bool setting, bool closeText, bool hedgeText)
{
    m_settingButton->setVisible(setting);
    m_closeTypeText->setVisible(closeText);
    m_hedgeFlagText->setVisible(hedgeText);
}

EOperationType COpBasketParamsButtonsBar::getFutureOptType(EOperationType op) const
{
    using namespace ttservice;
    if (m_tradeOpType != TOT_FUTURE && m_tradeOpType != TOT_ONEKEY_FUTURE)
        return op;
    switch (op) {
    case OT_CLOSE_LONG:
        return byCloseOrder(m_closeTodayFirst, OT_CLOSE_LONG_TODAY, OT_CLOSE_LONG_YESTERDAY);
    case OT_CLOSE_SHORT:
        return byCloseOrder(m_closeTodayFirst, OT_CLOSE_SHORT_TODAY, OT_CLOSE_SHORT_YESTERDAY);
    default:
        break;
    }
    if (m_tradeOpType != TOT_ONEKEY_FUTURE)
        return op;
    switch (op) {
    case OT_ONEKEY_SELL_TODAY:
    case OT_ONEKEY_SELL_YESTERDAY:
    case OT_SELL:
        return byCloseOrder(m_closeTodayFirst, OT_ONEKEY_SELL_TODAY, OT_ONEKEY_SELL_YESTERDAY);
    case OT_ONEKEY_BUY_TODAY:
    case OT_ONEKEY_BUY_YESTERDAY:
    case OT_BUY:
        return byCloseOrder(m_closeTodayFirst, OT_ONEKEY_BUY_TODAY, OT_ONEKEY_BUY_YESTERDAY);
    default:
        return op;
    }
}

void COpBasketParamsButtonsBar::setFutureOneKeyOptType(EOperationType op, EHedge_Flag_Type flag)
{
    // Operations that are no close of a known day count as closing today first.
    m_closeTodayFirst = !isYesterdayFirst(op);
    m_hedgeFlag = flag;
    updateFutureTexts();
    updateSettingWidget();
    TT_LOG_INFO(this, "TC::COpBasketParamsButtonsBar::setFutureOneKeyOptType", kSourcePath,
                boost::format("set future patch OperationType : %1% HedgeType : %2%, CloseTodayFirst : %3%")
                    % static_cast<int>(op) % static_cast<int>(flag) % m_closeTodayFirst);
}

EOperationType COpBasketParamsButtonsBar::setFutureBuySellOptType(EOperationType op, EHedge_Flag_Type flag)
{
    using namespace ttservice;
    EOperationType result = op;
    if (op == OT_CLOSE_LONG_TODAY || op == OT_CLOSE_LONG_YESTERDAY)
        result = OT_CLOSE_LONG;
    else if (op == OT_CLOSE_SHORT_TODAY || op == OT_CLOSE_SHORT_YESTERDAY)
        result = OT_CLOSE_SHORT;
    m_closeTodayFirst = op != OT_CLOSE_LONG_YESTERDAY && op != OT_CLOSE_SHORT_YESTERDAY;
    m_hedgeFlag = flag;
    updateFutureTexts();
    updateSettingWidget();
    TT_LOG_INFO(this, "TC::COpBasketParamsButtonsBar::setFutureBuySellOptType", kSourcePath,
                boost::format("set future patch eOptType : %1% HedgeType : %2%, CloseTodayFirst : %3% by "
                              "operationType : %4%")
                    % static_cast<int>(op) % static_cast<int>(flag) % m_closeTodayFirst % static_cast<int>(result));
    return result;
}

bool COpBasketParamsButtonsBar::getCommandChange() const
{
    return m_commandChange && m_commandChange->isChecked();
}

void COpBasketParamsButtonsBar::setCommandChange(bool change)
{
    if (m_commandChange)
        m_commandChange->setChecked(change);
}

void COpBasketParamsButtonsBar::setCommandChangeVisible(bool visible)
{
    if (m_commandChange)
        m_commandChange->setVisible(visible);
    if (m_rightList)
        m_rightList->updateList();
}

void COpBasketParamsButtonsBar::setParam(const QString &text)
{
    const QStringList parts = text.split(QLatin1Char(':'), Qt::KeepEmptyParts);
    m_closeTodayFirst = parts.value(0) == QLatin1String("1");
    bool ok = false;
    const int flag = parts.value(1).toInt(&ok);
    m_hedgeFlag = ok ? static_cast<EHedge_Flag_Type>(flag) : ttservice::HEDGE_FLAG_SPECULATION;
    updateFutureTexts();
    updateSettingWidget();
    TT_LOG_INFO(this, "TC::COpBasketParamsButtonsBar::setParam", kSourcePath,
                boost::format("load future speculation HedgeType : %1%, CloseTodayFirst : %2%")
                    % static_cast<int>(m_hedgeFlag) % m_closeTodayFirst);
}

QString COpBasketParamsButtonsBar::param() const
{
    return QStringLiteral("%1:%2")
        .arg(m_closeTodayFirst ? QStringLiteral("1") : QStringLiteral("0"))
        .arg(static_cast<int>(m_hedgeFlag));
}

void COpBasketParamsButtonsBar::setParities(double buy, double sell)
{
    if (!isConnectTab(m_tradeOpType))
        return;
    const QString invalid = QStringLiteral("非法值");
    m_buyParityText->setText(QStringLiteral("买入汇率:") + WK::formatDoubleNumber(buy, 5, WK::NF_NONE, invalid));
    m_sellParityText->setText(QStringLiteral("卖出汇率:") + WK::formatDoubleNumber(sell, 5, WK::NF_NONE, invalid));
}

QPoint COpBasketParamsButtonsBar::settingBoxPosition(const QPoint &buttonPos, const QSize &boxSize,
                                                     const QRect &available)
{
    int x = buttonPos.x();
    int y = buttonPos.y();
    if (y + boxSize.height() > available.bottom())
        y -= boxSize.height();
    y = std::max(y, available.top());
    if (x + boxSize.width() > available.right())
        x -= boxSize.width();
    x = std::max(x, available.left());
    return QPoint(x, y);
}

void COpBasketParamsButtonsBar::changeBarSetting()
{
    if (!m_settingWidget || !m_settingButton)
        return;
    const QPoint buttonPos = m_settingButton->mapToGlobal(QPoint(0, 0));
    QScreen *barScreen = screen();
    const QRect available = barScreen ? barScreen->availableGeometry() : QRect(buttonPos, m_settingWidget->size());
    const QPoint pos = settingBoxPosition(buttonPos, m_settingWidget->size(), available);
    m_settingWidget->setHedgeType(m_hedgeFlag);
    m_settingWidget->setCheckState(m_closeTodayFirst);
    m_settingWidget->move(pos);
    m_settingWidget->show();
    m_settingWidget->raise();
}

void COpBasketParamsButtonsBar::updateFutureTexts()
{
    m_closeTypeText->setText(m_closeTodayFirst ? QStringLiteral("优先平今") : QStringLiteral("优先平昨"));
    switch (m_hedgeFlag) {
    case ttservice::HEDGE_FLAG_SPECULATION:
        m_hedgeFlagText->setText(QStringLiteral("投机"));
        break;
    case ttservice::HEDGE_FLAG_ARBITRAGE:
        m_hedgeFlagText->setText(QStringLiteral("套利"));
        break;
    case ttservice::HEDGE_FLAG_HEDGE:
        m_hedgeFlagText->setText(QStringLiteral("套保"));
        break;
    default:
        break;
    }
}

void COpBasketParamsButtonsBar::updateSettingWidget()
{
    if (!m_settingWidget)
        return;
    m_settingWidget->setHedgeType(m_hedgeFlag);
    m_settingWidget->setCheckState(m_closeTodayFirst);
}

bool COpBasketParamsButtonsBar::handleEvent(int event, int id, int value, QString text, void *data)
{
    switch (event) {
    case 5:
        if (id == ID_ORDER_BUTTON || id == ID_BUY_BUTTON || id == ID_SELL_BUTTON) {
            deliverEvent(1046, 0, 0, QString());
        } else if (id == ID_SETTING_BUTTON) {
            TT_FILE_LOG(51, "%s : spec push button clicked, %d", "TC::COpBasketParamsButtonsBar::handleEvent", id);
            changeBarSetting();
        }
        return true;
    case 9:
        if (id == ID_PATCH_TEXT)
            deliverEvent(1142, id, value, text);
        return true;
    case 60:
        // The instruction box changes nothing of the futures setting.
        if (id != ID_COMMAND_CHANGE)
            deliverEvent(1147, id, value, text);
        return true;
    case 61:
        if (id == ID_COMMAND_CHANGE && m_commandChange) {
            TT_LOG_INFO(this, "TC::COpBasketParamsButtonsBar::handleEvent", kSourcePath,
                        boost::format("User %1% Modify trader change checkbox : %2%")
                            % getUserConfig()->getUserName().toStdString() % m_commandChange->isChecked());
        }
        return true;
    case 85:
        deliverEvent(1147, id, value, text);
        return true;
    case 1043: {
        m_closeTodayFirst = text.toInt() == 1;
        m_hedgeFlag = m_settingWidget ? m_settingWidget->getHedgeType() : ttservice::HEDGE_FLAG_SPECULATION;
        updateFutureTexts();
        // Hiding and showing again makes the row lay the new texts out at once; a text the tab
        // keeps hidden stays hidden.
        for (WK::CSimpleTextWidget *widget : {m_closeTypeText, m_hedgeFlagText}) {
            const bool shown = widget->isVisibleTo(this);
            widget->hide();
            widget->setVisible(shown);
        }
        deliverEvent(1147, id, value, text);
        return true;
    }
    default:
        return WK::CBaseWidget::handleEvent(event, id, value, std::move(text), data);
    }
}

void COpBasketParamsButtonsBar::scaleChanged()
{
    WK::CBaseWidget::scaleChanged();
    if (m_closeTypeText)
        m_closeTypeText->setFixedSize(WK::CUiResource::instance()->getSize(QLatin1String(kCloseSettingSizeKey)),
                                      kFutureTextHeight);
}

} // namespace TC
