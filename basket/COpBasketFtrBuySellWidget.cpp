#include "COpBasketFtrBuySellWidget.h"

#include "COpBasketBuySellWidget.h"
#include "COpBasketStockParamsWidget.h"

#include "CGlobalOrderParamTable.h"

#include "CPushButtonGroup.h"

#include "OrderSettingText.h"

#include <QStringList>
#include <QVBoxLayout>

namespace TC {
namespace {

constexpr quint64 kFutureWord = 0x1000;

struct ModeButton
{
    int id;
    int operation;
    const char *text;
    bool sellSide;
};

const ModeButton kButtons[] = {
    {54, ttservice::OT_OPEN_LONG, "开多", false},
    {55, ttservice::OT_OPEN_SHORT, "开空", true},
    {56, ttservice::OT_CLOSE_LONG, "平多", true},
    {57, ttservice::OT_CLOSE_SHORT, "平空", false},
};

} // namespace

COpBasketFtrBuySellWidget::COpBasketFtrBuySellWidget(QWidget *parent)
    : WK::CBaseWidget(QStringLiteral("op_basket_future_buy_sell_widget"), false, parent)
{
    m_group = new WK::CPushButtonGroup(1, this);
    m_param = new COpBasketStockParamsWidget(ttservice::BROKER_TYPE_FUTURE, this, ttservice::VQ_TRADER_BASKET);
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
    m_param->setOperationType(ttservice::OT_OPEN_LONG);
    m_param->resetStrategyType(ttservice::ORDER_TYPE_VWAPPLUS, QStringLiteral("VWAPPLUS"));
    setMinimumHeight(200);
}

COpBasketFtrBuySellWidget::~COpBasketFtrBuySellWidget() = default;

int COpBasketFtrBuySellWidget::currentOpt() const
{
    const int id = m_group->checkedId();
    for (const ModeButton &button : kButtons) {
        if (button.id == id)
            return button.operation;
    }
    return -1;
}

void COpBasketFtrBuySellWidget::keepCurrentSetting()
{
    if (!m_param || !m_param->table())
        return;
    ttservice::COrderSetting setting;
    m_param->table()->saveOpParam(QString(), setting);
    m_orderSettings.insert(m_currentOpt, setting);
}

void COpBasketFtrBuySellWidget::setCurrentOpt(ttservice::EOperationType operation)
{
    if (operation == m_currentOpt)
        return;
    keepCurrentSetting();
    m_currentOpt = operation;
    for (const ModeButton &button : kButtons) {
        if (button.operation == operation)
            m_group->setCheckedByID(button.id);
    }
    if (!m_param)
        return;
    m_param->setOperationType(operation);
    if (m_orderSettings.contains(operation) && m_param->table())
        m_param->table()->loadOpParam(m_orderSettings.value(operation), 0.01);
}

QString COpBasketFtrBuySellWidget::param() const
{
    QStringList parts{QString::number(m_currentOpt)};
    for (auto it = m_orderSettings.cbegin(); it != m_orderSettings.cend(); ++it)
        parts << QString::number(it.key()) << orderSettingToString(it.value());
    return parts.join(QLatin1Char('%'));
}

void COpBasketFtrBuySellWidget::setParam(const QString &text)
{
    const QStringList parts = text.split(QLatin1Char('%'));
    m_currentOpt = parts.at(0).toInt();
    int id = 57;
    if (m_currentOpt == ttservice::OT_OPEN_LONG)
        id = 54;
    else if (m_currentOpt == ttservice::OT_OPEN_SHORT)
        id = 55;
    else if (m_currentOpt == ttservice::OT_CLOSE_LONG)
        id = 56;
    m_group->setCheckedByID(id);

    for (int i = 1; i + 1 < parts.size(); i += 2) {
        const int key = parts.at(i).toInt();
        const ttservice::COrderSetting setting = orderSettingFromString(parts.at(i + 1));
        m_orderSettings.insert(key, setting);
        if (key == m_currentOpt && m_param && m_param->table())
            m_param->table()->loadOpParam(setting, 0.01);
    }
}

std::string COpBasketFtrBuySellWidget::getCmdLog() const
{
    return m_param ? m_param->getCmdLog() : std::string();
}

bool COpBasketFtrBuySellWidget::handleEvent(int event, int id, int value, QString text, void *data)
{
    if (event != 5 || m_group->button(id) == nullptr)
        return WK::CBaseWidget::handleEvent(event, id, value, text, data);
    keepCurrentSetting();
    m_currentOpt = currentOpt();
    if (m_param) {
        m_param->setOperationType(m_currentOpt);
        if (m_orderSettings.contains(m_currentOpt) && m_param->table())
            m_param->table()->loadOpParam(m_orderSettings.value(m_currentOpt), 0.01);
    }
    deliverEvent(5, static_cast<int>(kFutureWord), 0, QString(), nullptr);
    return true;
}

void COpBasketFtrBuySellWidget::paintEvent(QPaintEvent *event)
{
    WK::CBaseWidget::paintEvent(event);
    COpBasketBuySellWidget::paintBackground(this);
}

} // namespace TC
