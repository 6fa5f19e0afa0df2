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

const std::vector<COpBasketOptMemoryWidget::ModeButton> &futureButtons()
{
    static const std::vector<COpBasketOptMemoryWidget::ModeButton> buttons = {
        {54, ttservice::OT_OPEN_LONG, "开多", false},
        {55, ttservice::OT_OPEN_SHORT, "开空", true},
        {56, ttservice::OT_CLOSE_LONG, "平多", true},
        {57, ttservice::OT_CLOSE_SHORT, "平空", false},
    };
    return buttons;
}

} // namespace

COpBasketFtrBuySellWidget::COpBasketFtrBuySellWidget(QWidget *parent)
    : COpBasketOptMemoryWidget(QStringLiteral("op_basket_future_buy_sell_widget"), ttservice::BROKER_TYPE_FUTURE,
                               futureButtons(), ttservice::OT_OPEN_LONG, parent)
{
    m_param->setStartOperation(ttservice::OT_OPEN_LONG);
    m_param->resetStrategyType(ttservice::ORDER_TYPE_VWAPPLUS, QStringLiteral("VWAPPLUS"));
}

COpBasketFtrBuySellWidget::~COpBasketFtrBuySellWidget() = default;

void COpBasketFtrBuySellWidget::setCurrentOpt(ttservice::EOperationType operation)
{
    if (operation == m_currentOpt)
        return;
    keepCurrentSetting();
    m_currentOpt = operation;
    for (const ModeButton &button : buttons()) {
        if (button.m_operation == operation)
            m_group->setCheckedByID(button.m_id);
    }
    if (!m_param)
        return;
    m_param->setOperationType(operation);
    loadKeptSetting(operation);
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

    readKeptSettings(parts, false);
}

bool COpBasketFtrBuySellWidget::handleEvent(int event, int id, int value, QString text, void *data)
{
    if (event != 5 || m_group->button(id) == nullptr)
        return WK::CBaseWidget::handleEvent(event, id, value, text, data);
    keepCurrentSetting();
    m_currentOpt = currentOpt();
    if (m_param) {
        m_param->setOperationType(m_currentOpt);
        loadKeptSetting(m_currentOpt);
    }
    deliverEvent(5, static_cast<int>(kFutureWord), 0, QString(), nullptr);
    return true;
}

} // namespace TC
