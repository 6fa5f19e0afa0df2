#include "COpBasketOptMemoryWidget.h"

#include "COpBasketBuySellWidget.h"
#include "COpBasketStockParamsWidget.h"

#include "CGlobalOrderParamTable.h"

#include "CPushButtonGroup.h"

#include "OrderSettingText.h"

#include <utility>

namespace TC {

COpBasketOptMemoryWidget::COpBasketOptMemoryWidget(const QString &name, int brokerType, std::vector<ModeButton> buttons,
                                                   int firstOperation, QWidget *parent)
    : WK::CBaseWidget(name, false, parent)
    , m_currentOpt(firstOperation)
    , m_buttons(std::move(buttons))
{
    m_group = new WK::CPushButtonGroup(1, this);
    m_param = new COpBasketStockParamsWidget(static_cast<ttservice::EVQBrokerType>(brokerType), this,
                                             ttservice::VQ_TRADER_BASKET);
    for (const ModeButton &button : m_buttons)
        COpBasketBuySellWidget::addModeButton(m_group, button.m_id, QString::fromUtf8(button.m_text), button.m_sellSide);

    COpBasketBuySellWidget::layoutModeBlock(this, m_group, {m_param});

    if (!m_buttons.empty())
        m_group->setCheckedByID(m_buttons.front().m_id);
    setMinimumHeight(200);
}

COpBasketOptMemoryWidget::~COpBasketOptMemoryWidget() = default;

int COpBasketOptMemoryWidget::currentOpt() const
{
    const int id = m_group->checkedId();
    for (const ModeButton &button : m_buttons) {
        if (button.m_id == id)
            return button.m_operation;
    }
    return -1;
}

void COpBasketOptMemoryWidget::keepCurrentSetting()
{
    if (!m_param || !m_param->table())
        return;
    ttservice::COrderSetting setting;
    m_param->table()->saveOpParam(QString(), setting);
    m_orderSettings.insert(m_currentOpt, setting);
}

void COpBasketOptMemoryWidget::loadKeptSetting(int operation)
{
    if (m_orderSettings.contains(operation))
        applySetting(m_orderSettings.value(operation));
}

void COpBasketOptMemoryWidget::applySetting(const ttservice::COrderSetting &setting)
{
    if (!m_param || !m_param->table())
        return;
    // Each operation keeps the order type it was left with too; set first, since it decides
    // which price types the table offers.
    if (setting.m_orderType >= 0)
        m_param->table()->setOrderType(setting.m_orderType);
    m_param->table()->loadOpParam(setting, 0.01);
}

QString COpBasketOptMemoryWidget::param() const
{
    // The operation on view is written with what the block shows now, even before it was ever
    // left, or what the user set on it would be lost with the text.
    QMap<int, ttservice::COrderSetting> settings = m_orderSettings;
    if (m_param && m_param->table()) {
        ttservice::COrderSetting fresh;
        m_param->table()->saveOpParam(QString(), fresh);
        settings.insert(m_currentOpt, fresh);
    }
    QStringList parts{QString::number(writtenCurrentOpt())};
    for (auto it = settings.cbegin(); it != settings.cend(); ++it)
        parts << QString::number(it.key()) << orderSettingToString(it.value());
    // The algorithms' numbers on view close the text as a piece of its own: a reader that
    // takes the text by pairs passes over it.
    if (m_param)
        parts << m_param->captureTrdParams();
    return parts.join(QLatin1Char('%'));
}

void COpBasketOptMemoryWidget::readKeptSettings(const QStringList &parts, bool onlyKnown)
{
    for (int i = 1; i + 1 < parts.size(); i += 2) {
        const int key = parts.at(i).toInt();
        if (onlyKnown && !m_orderSettings.contains(key))
            continue;
        const ttservice::COrderSetting setting = orderSettingFromString(parts.at(i + 1));
        m_orderSettings.insert(key, setting);
        if (key == m_currentOpt)
            applySetting(setting);
    }
    if (m_param && parts.size() >= 2 && parts.size() % 2 == 0)
        m_param->applyTrdParams(parts.constLast());
}

std::string COpBasketOptMemoryWidget::getCmdLog() const
{
    return m_param ? m_param->getCmdLog() : std::string();
}

void COpBasketOptMemoryWidget::paintEvent(QPaintEvent *event)
{
    WK::CBaseWidget::paintEvent(event);
    COpBasketBuySellWidget::paintBackground(this);
}

} // namespace TC
