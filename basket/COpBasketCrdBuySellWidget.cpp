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

struct ModeButton
{
    int id;
    int operation;
    const char *text;
    bool sellSide;
};

const ModeButton kButtons[] = {
    {108, ttservice::OT_MARGIN_BUY, "买入", false},
    {109, ttservice::OT_SHORT_SELL, "卖出", true},
    {52, ttservice::OT_BUY_TO_RETURN, "买券还券", false},
    {53, ttservice::OT_SELL_TO_REPAY, "卖券还款", true},
};

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
    : WK::CBaseWidget(QStringLiteral("op_basket_credit_buy_sell_widget"), false, parent)
{
    m_group = new WK::CPushButtonGroup(1, this);
    m_param = new COpBasketStockParamsWidget(ttservice::BROKER_TYPE_CREDIT, this, ttservice::VQ_TRADER_BASKET);
    for (const ModeButton &button : kButtons)
        COpBasketBuySellWidget::addModeButton(m_group, button.id, QString::fromUtf8(button.text), button.sellSide);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_group, 0, Qt::AlignLeft);
    layout->addSpacing(2);
    layout->addWidget(COpBasketBuySellWidget::makeSeparator(this));
    layout->addWidget(m_param, 1);

    m_group->setCheckedByID(kButtons[0].id);
    m_param->setSaveParam(true);
    m_param->resetStrategyType(ttservice::ORDER_TYPE_VWAPPLUS, QStringLiteral("VWAPPLUS"));
    setMinimumHeight(200);
}

COpBasketCrdBuySellWidget::~COpBasketCrdBuySellWidget() = default;

int COpBasketCrdBuySellWidget::currentOpt() const
{
    const int id = m_group->checkedId();
    for (const ModeButton &button : kButtons) {
        if (button.id == id)
            return button.operation;
    }
    return -1;
}

void COpBasketCrdBuySellWidget::keepCurrentSetting()
{
    if (!m_param || !m_param->table())
        return;
    ttservice::COrderSetting setting;
    m_param->table()->saveOpParam(QString(), setting);
    m_orderSettings.insert(m_currentOpt, setting);
}

void COpBasketCrdBuySellWidget::setCurrentOpt(ttservice::EOperationType operation)
{
    if (operation != m_currentOpt) {
        keepCurrentSetting();
        m_currentOpt = operation;
        m_group->setCheckedByID(buttonOfOperation(operation));
        if (m_orderSettings.contains(operation) && m_param && m_param->table()) {
            m_param->setOperationType(operation);
            m_param->table()->loadOpParam(m_orderSettings.value(operation), 0.01);
        }
    }
    for (const ModeButton &button : kButtons)
        m_group->setCheckedByID(button.id);
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

QString COpBasketCrdBuySellWidget::param() const
{
    QStringList parts{QString::number(m_currentOpt)};
    for (auto it = m_orderSettings.cbegin(); it != m_orderSettings.cend(); ++it)
        parts << QString::number(it.key()) << orderSettingToString(it.value());
    return parts.join(QLatin1Char('%'));
}

void COpBasketCrdBuySellWidget::setParam(const QString &text)
{
    const QStringList parts = text.split(QLatin1Char('%'));
    m_currentOpt = parts.at(0).toInt();
    // A stored 20 or 21 checks 53, not its own button: texts of that age meant the last button.
    int id = 53;
    if (m_currentOpt == ttservice::OT_BUY || m_currentOpt == ttservice::OT_SELL)
        id = m_currentOpt + 90;
    else if (m_currentOpt == ttservice::OT_BUY_TO_RETURN)
        id = 52;
    m_group->setCheckedByID(id);

    for (int i = 1; i + 1 < parts.size(); i += 2) {
        const int key = parts.at(i).toInt();
        if (!m_orderSettings.contains(key))
            continue;
        const ttservice::COrderSetting setting = orderSettingFromString(parts.at(i + 1));
        m_orderSettings.insert(key, setting);
        if (key == m_currentOpt && m_param && m_param->table())
            m_param->table()->loadOpParam(setting, 0.01);
    }
}

std::string COpBasketCrdBuySellWidget::getCmdLog() const
{
    return m_param ? m_param->getCmdLog() : std::string();
}

bool COpBasketCrdBuySellWidget::handleEvent(int event, int id, int value, QString text, void *data)
{
    if (event != 5 || m_group->button(id) == nullptr)
        return WK::CBaseWidget::handleEvent(event, id, value, text, data);
    keepCurrentSetting();
    m_currentOpt = currentOpt();
    // A first visit keeps the block as it is; only an operation set before brings its setting.
    if (m_orderSettings.contains(m_currentOpt) && m_param && m_param->table()) {
        m_param->setOperationType(m_currentOpt);
        m_param->table()->loadOpParam(m_orderSettings.value(m_currentOpt), 0.01);
    }
    deliverEvent(5, static_cast<int>(kCreditWord), 0, QString(), nullptr);
    return true;
}

void COpBasketCrdBuySellWidget::paintEvent(QPaintEvent *event)
{
    WK::CBaseWidget::paintEvent(event);
    COpBasketBuySellWidget::paintBackground(this);
}

} // namespace TC
