#include "COpBasketFtrOneKeyWidget.h"

#include "COpBasketBuySellWidget.h"
#include "COpBasketStockParamsWidget.h"

#include "CGlobalOrderParamTable.h"

#include "CPushButtonGroup.h"

#include <QStringList>
#include <QVBoxLayout>

namespace TC {
namespace {

constexpr int kBuyId = 60;
constexpr int kSellId = 61;

} // namespace

COpBasketFtrOneKeyWidget::COpBasketFtrOneKeyWidget(QWidget *parent)
    // The same resource name as the futures widget: both take the futures look.
    : WK::CBaseWidget(QStringLiteral("op_basket_future_buy_sell_widget"), false, parent)
{
    m_group = new WK::CPushButtonGroup(1, this);
    m_buyParam = new COpBasketStockParamsWidget(ttservice::BROKER_TYPE_FUTURE, this, ttservice::VQ_TRADER_BASKET);
    m_sellParam = new COpBasketStockParamsWidget(ttservice::BROKER_TYPE_FUTURE, this, ttservice::VQ_TRADER_BASKET);
    COpBasketBuySellWidget::addModeButton(m_group, kBuyId, QStringLiteral("买入"), false);
    COpBasketBuySellWidget::addModeButton(m_group, kSellId, QStringLiteral("卖出"), true);

    COpBasketBuySellWidget::layoutModeBlock(this, m_group, {m_buyParam, m_sellParam});

    m_buyParam->setStartOperation(ttservice::OT_BUY);
    m_sellParam->setStartOperation(ttservice::OT_SELL);
    for (COpBasketStockParamsWidget *block : {m_buyParam, m_sellParam})
        block->resetStrategyType(ttservice::ORDER_TYPE_VWAPPLUS, QStringLiteral("VWAPPLUS"));
    setCheckByID(kBuyId);
    setMinimumHeight(200);
}

COpBasketFtrOneKeyWidget::~COpBasketFtrOneKeyWidget() = default;

bool COpBasketFtrOneKeyWidget::isCurrentBuy() const
{
    return !m_buyParam || !m_buyParam->isHidden();
}

void COpBasketFtrOneKeyWidget::setCheckByID(int id)
{
    m_group->setCheckedByID(id);
    if (m_buyParam)
        m_buyParam->setVisible(id == kBuyId);
    if (m_sellParam)
        m_sellParam->setVisible(id == kSellId);
}

int COpBasketFtrOneKeyWidget::currentOpt() const
{
    switch (m_group->checkedId()) {
    case kBuyId: return ttservice::OT_BUY;
    case kSellId: return ttservice::OT_SELL;
    default: return -1;
    }
}

QString COpBasketFtrOneKeyWidget::param() const
{
    QStringList parts{QString::number(m_currentSide)};
    if (m_buyParam)
        parts << m_buyParam->param();
    if (m_sellParam)
        parts << m_sellParam->param();
    return parts.join(QLatin1Char('$'));
}

void COpBasketFtrOneKeyWidget::setParam(const QString &text)
{
    const QStringList parts = text.split(QLatin1Char('$'));
    m_currentSide = parts.at(0).toInt();
    if (parts.size() > 1 && m_buyParam)
        m_buyParam->setParam(parts.at(1));
    if (parts.size() > 2 && m_sellParam)
        m_sellParam->setParam(parts.at(2));
}

std::string COpBasketFtrOneKeyWidget::getCmdLog() const
{
    const COpBasketStockParamsWidget *block = isCurrentBuy() ? m_buyParam : m_sellParam;
    return block ? block->getCmdLog() : std::string();
}

void COpBasketFtrOneKeyWidget::updateCmdLog()
{
    for (COpBasketStockParamsWidget *block : {m_buyParam, m_sellParam}) {
        if (block && block->table())
            block->table()->updateCmdLog();
    }
}

bool COpBasketFtrOneKeyWidget::handleEvent(int event, int id, int value, QString text, void *data)
{
    if (event == 5 && (id == kBuyId || id == kSellId)) {
        setCheckByID(id);
        return true;
    }
    return WK::CBaseWidget::handleEvent(event, id, value, text, data);
}

void COpBasketFtrOneKeyWidget::paintEvent(QPaintEvent *event)
{
    WK::CBaseWidget::paintEvent(event);
    COpBasketBuySellWidget::paintBackground(this);
}

} // namespace TC
