#include "COpBasketCrdBuySellWidget.h"

#include "COpBasketBuySellWidget.h"
#include "COpBasketStockParamsWidget.h"

#include "CGlobalOrderParamTable.h"

#include "CPushButton.h"
#include "CPushButtonGroup.h"

#include "OrderSettingText.h"

#include <QStringList>
#include <QVBoxLayout>

namespace TC {
namespace {

constexpr quint64 kCreditWord = 0x2000;

const std::vector<COpBasketOptMemoryWidget::ModeButton> &creditButtons()
{
    static const std::vector<COpBasketOptMemoryWidget::ModeButton> buttons = {
        {108, ttservice::OT_MARGIN_BUY, "买入", false},
        {109, ttservice::OT_SHORT_SELL, "卖出", true},
        {52, ttservice::OT_BUY_TO_RETURN, "买券还券", false},
        {53, ttservice::OT_SELL_TO_REPAY, "卖券还款", true},
    };
    return buttons;
}

int buttonOfOperation(int operation)
{
    switch (operation) {
    case ttservice::OT_BUY_TO_RETURN: return 52;
    case ttservice::OT_SELL_TO_REPAY: return 53;
    case ttservice::OT_SHORT_SELL: return 109;
    default: return 108;
    }
}

} // namespace

COpBasketCrdBuySellWidget::COpBasketCrdBuySellWidget(QWidget *parent)
    : COpBasketOptMemoryWidget(QStringLiteral("op_basket_credit_buy_sell_widget"), ttservice::BROKER_TYPE_CREDIT,
                               creditButtons(), ttservice::OT_MARGIN_BUY, parent)
{
    m_param->setSaveParam(true);
    m_param->resetStrategyType(ttservice::ORDER_TYPE_VWAPPLUS, QStringLiteral("VWAPPLUS"));
}

COpBasketCrdBuySellWidget::~COpBasketCrdBuySellWidget() = default;

void COpBasketCrdBuySellWidget::setCurrentOpt(ttservice::EOperationType operation)
{
    if (operation != m_currentOpt) {
        keepCurrentSetting();
        m_currentOpt = operation;
        m_group->setCheckedByID(buttonOfOperation(operation));
        if (m_orderSettings.contains(operation) && m_param) {
            m_param->setOperationType(operation);
            loadKeptSetting(operation);
        }
    }
    for (const ModeButton &button : buttons())
        m_group->setCheckedByID(button.m_id);
    m_group->setCheckedByID(buttonOfOperation(operation));
    m_group->setEnabled(false);
}

void COpBasketCrdBuySellWidget::switchMode(quint64 tab)
{
    m_tradeOpType = tab;
    const bool credit = tab == kCreditWord;
    if (WK::CPushButton *buy = m_group->button(108))
        buy->setText(credit ? QStringLiteral("融资买入") : QStringLiteral("买入"));
    if (WK::CPushButton *sell = m_group->button(109))
        sell->setText(credit ? QStringLiteral("融券卖出") : QStringLiteral("卖出"));
    const int checked = m_group->checkedId();
    if (m_param && (checked == 108 || checked == 109)) {
        const bool buy = checked == 108;
        m_param->setOperationType(credit ? (buy ? ttservice::OT_MARGIN_BUY : ttservice::OT_SHORT_SELL)
                                         : (buy ? ttservice::OT_BUY : ttservice::OT_SELL));
    }
}

int COpBasketCrdBuySellWidget::writtenCurrentOpt() const
{
    // The reader takes 20 and 21 for the last button; 18 and 19 read back as their buttons.
    if (m_currentOpt == ttservice::OT_MARGIN_BUY)
        return ttservice::OT_BUY;
    if (m_currentOpt == ttservice::OT_SHORT_SELL)
        return ttservice::OT_SELL;
    return m_currentOpt;
}

void COpBasketCrdBuySellWidget::setParam(const QString &text)
{
    const QStringList parts = text.split(QLatin1Char('%'));
    const int stored = parts.at(0).toInt();
    // A stored 20 or 21 checks 53, not its own button: texts of that age meant the last button.
    int id = 53;
    if (stored == ttservice::OT_BUY || stored == ttservice::OT_SELL)
        id = stored + 90;
    else if (stored == ttservice::OT_BUY_TO_RETURN)
        id = 52;
    m_group->setCheckedByID(id);
    // The order leaves as the operation of the checked button; what the block keeps and shows
    // belongs to it, not to the stored number (a stored 20 is 卖券还款 now).
    m_currentOpt = currentOpt();

    // Every kept setting is read, the shown operation's included: reading only operations the
    // block already kept took nothing into a new panel, so the user's settings were lost.
    readKeptSettings(parts, false);
    // Older texts stored the plain buy and sell for 108 and 109, with what was on view under
    // them; it is what those buttons show unless the text has their own operation's.
    bool ownEntry = false;
    for (int i = 1; i + 1 < parts.size(); i += 2)
        ownEntry = ownEntry || parts.at(i).toInt() == m_currentOpt;
    if (!ownEntry && (stored == ttservice::OT_BUY || stored == ttservice::OT_SELL) && m_orderSettings.contains(stored))
        applySetting(m_orderSettings.value(stored));
}

bool COpBasketCrdBuySellWidget::handleEvent(int event, int id, int value, QString text, void *data)
{
    if (event != 5 || m_group->button(id) == nullptr)
        return WK::CBaseWidget::handleEvent(event, id, value, text, data);
    keepCurrentSetting();
    m_currentOpt = currentOpt();
    // A first visit keeps the block as it is; only an operation set before brings its setting.
    if (m_orderSettings.contains(m_currentOpt) && m_param) {
        m_param->setOperationType(m_currentOpt);
        loadKeptSetting(m_currentOpt);
    }
    deliverEvent(5, static_cast<int>(kCreditWord), 0, QString(), nullptr);
    return true;
}

} // namespace TC
