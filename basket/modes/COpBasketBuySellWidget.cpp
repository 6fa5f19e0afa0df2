#include "COpBasketBuySellWidget.h"

#include "COpBasketStockParamsWidget.h"

#include "CGlobalOrderParamTable.h"
#include "CTrdAlgoBaseTable.h"

#include "CPushButton.h"
#include "CPushButtonGroup.h"
#include "CUiResource.h"

#include <QFrame>
#include <QPainter>
#include <QVBoxLayout>

namespace TC {
namespace {

constexpr int kBuyId = 108;
constexpr int kSellId = 109;
constexpr quint64 kOneKeyWord = 0x800;
constexpr quint64 kCreditWord = 0x2000;

bool isStockBroker(ttservice::EVQBrokerType type)
{
    return type == ttservice::BROKER_TYPE_STOCK || type == ttservice::BROKER_TYPE_HGT || type == ttservice::BROKER_TYPE_SGT;
}

} // namespace

COpBasketBuySellWidget::COpBasketBuySellWidget(ttservice::EVQBrokerType brokerType, QWidget *parent)
    : WK::CBaseWidget(QStringLiteral("op_basket_buy_sell_widget"), false, parent)
    , m_brokerType(brokerType)
{
    createUi();
}

COpBasketBuySellWidget::~COpBasketBuySellWidget() = default;

WK::CPushButton *COpBasketBuySellWidget::addModeButton(WK::CPushButtonGroup *group, int id, const QString &text,
                                                       bool sellSide)
{
    WK::CPushButton *button = group->addPushButton(id, text);
    button->setFixedSize(80, 23);
    const WK::CUiResource *res = WK::CUiResource::instance();
    const QString side = sellSide ? QStringLiteral("sell") : QStringLiteral("buy");
    auto key = [&](const char *state) {
        return res->getColorSheetByKey(QStringLiteral("clr_basket_param_%1_btn_%2").arg(side, QLatin1String(state)));
    };
    // Unchecked buttons are outlined in their side's colour, the checked one is filled with it.
    button->setStyleSheet(QStringLiteral("QPushButton{background:%1;color:%2;border:1px solid %4;border-radius:0}"
                                         "QPushButton:hover{background:%3}"
                                         "QPushButton:checked,QPushButton:pressed{background:%4;color:%5}"
                                         "QPushButton:disabled{background:%6}"
                                         "QPushButton:checked:disabled{background:%4;color:%5}")
                              .arg(key("nomal"), res->getColorSheetByKey(QStringLiteral("clr_param_table_order_mode_inactive")),
                                   key("hover"), key("press"),
                                   res->getColorSheetByKey(QStringLiteral("clr_param_table_order_mode_active")),
                                   key("disable")));
    group->setFixedSize(group->buttons().size() * 80, 23);
    return button;
}

QWidget *COpBasketBuySellWidget::makeSeparator(QWidget *parent)
{
    auto *line = new QFrame(parent);
    line->setFrameShape(static_cast<QFrame::Shape>(4));
    line->setFrameShadow(static_cast<QFrame::Shadow>(48));
    line->setLineWidth(1);
    return line;
}

void COpBasketBuySellWidget::layoutModeBlock(QWidget *widget, WK::CPushButtonGroup *group,
                                             std::initializer_list<QWidget *> blocks)
{
    auto *layout = new QVBoxLayout(widget);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(group, 0, Qt::AlignLeft);
    layout->addSpacing(2);
    layout->addWidget(makeSeparator(widget));
    for (QWidget *block : blocks)
        layout->addWidget(block, 1);
}

void COpBasketBuySellWidget::paintBackground(QWidget *widget)
{
    QPainter painter(widget);
    painter.fillRect(widget->rect(),
                     WK::CUiResource::instance()->getColor(QStringLiteral("clr_basket_operation_param_top_tab_background")));
}

void COpBasketBuySellWidget::createUi()
{
    m_group = new WK::CPushButtonGroup(1, this);
    m_buyParam = new COpBasketStockParamsWidget(m_brokerType, this, ttservice::VQ_TRADER_BASKET);
    m_sellParam = new COpBasketStockParamsWidget(m_brokerType, this, ttservice::VQ_TRADER_BASKET);
    addModeButton(m_group, kBuyId, QStringLiteral("买入"), false);
    addModeButton(m_group, kSellId, QStringLiteral("卖出"), true);

    layoutModeBlock(this, m_group, {m_buyParam, m_sellParam});

    m_group->setCheckedByID(kBuyId);
    m_buyParam->setOperationType(ttservice::OT_BUY);
    m_sellParam->setOperationType(ttservice::OT_SELL);
    m_sellParam->hide();
    for (COpBasketStockParamsWidget *block : {m_buyParam, m_sellParam}) {
        block->setSaveParam(false);
        block->hideAlgTable();
        if (isStockBroker(m_brokerType))
            block->resetStrategyType(ttservice::ORDER_TYPE_INSTRUCTION, QString());
        block->resetStrategyType(ttservice::ORDER_TYPE_VWAPPLUS, QStringLiteral("VWAPPLUS"));
    }
    if (isStockBroker(m_brokerType)) {
        m_sellParam->hideAmountUsed(true, CTrdAlgoBaseTable::ItemMoneyLimit);
        m_sellParam->hideAmountUsed(true, CTrdAlgoBaseTable::ItemMoneyRate);
    }
    setMinimumHeight(200);
}

bool COpBasketBuySellWidget::isCurrentBuy() const
{
    return !m_buyParam || !m_buyParam->isHidden();
}

void COpBasketBuySellWidget::setCheckByID(int id)
{
    m_group->setCheckedByID(id);
    if (m_buyParam)
        m_buyParam->setVisible(id == kBuyId);
    if (m_sellParam)
        m_sellParam->setVisible(id == kSellId);
}

void COpBasketBuySellWidget::switchMode(quint64 tab)
{
    m_tradeOpType = tab;
    const bool credit = tab == kCreditWord;
    if (WK::CPushButton *buy = m_group->button(kBuyId))
        buy->setText(credit ? QStringLiteral("融资买入") : QStringLiteral("买入"));
    if (WK::CPushButton *sell = m_group->button(kSellId))
        sell->setText(credit ? QStringLiteral("融券卖出") : QStringLiteral("卖出"));
    if (m_buyParam)
        m_buyParam->setOperationType(credit ? ttservice::OT_MARGIN_BUY : ttservice::OT_BUY);
    if (m_sellParam)
        m_sellParam->setOperationType(credit ? ttservice::OT_SHORT_SELL : ttservice::OT_SELL);
}

std::string COpBasketBuySellWidget::getCmdLog() const
{
    return m_buyParam ? m_buyParam->getCmdLog() : std::string();
}

void COpBasketBuySellWidget::updateCmdLog()
{
    for (COpBasketStockParamsWidget *block : {m_buyParam, m_sellParam}) {
        if (block && block->table())
            block->table()->updateCmdLog();
    }
}

bool COpBasketBuySellWidget::handleEvent(int event, int id, int value, QString text, void *data)
{
    if (event != 5)
        return WK::CBaseWidget::handleEvent(event, id, value, text, data);
    if (id == kBuyId || id == kSellId)
        setCheckByID(id);
    // Any press tells the operation, an id of neither side as the sell side.
    if (m_tradeOpType == kOneKeyWord)
        Q_EMIT sigSetOperation(id == kBuyId ? ttservice::OT_BUY : ttservice::OT_SELL);
    else
        Q_EMIT sigSetOperation(id == kBuyId ? ttservice::OT_MARGIN_BUY : ttservice::OT_SHORT_SELL);
    return true;
}

void COpBasketBuySellWidget::paintEvent(QPaintEvent *event)
{
    WK::CBaseWidget::paintEvent(event);
    paintBackground(this);
}

} // namespace TC
