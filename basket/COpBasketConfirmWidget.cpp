#include "COpBasketConfirmWidget.h"

namespace TC {

COpBasketConfirmWidget::COpBasketConfirmWidget(QWidget *parent)
    : WK::CBaseWidget(QStringLiteral("basket_confirm_widget"), false, parent)
{
}

COpBasketConfirmWidget::~COpBasketConfirmWidget() = default;

void COpBasketConfirmWidget::setParam(const QString &text)
{
    m_param = text;
}

QString COpBasketConfirmWidget::param() const
{
    return m_param;
}

void COpBasketConfirmWidget::setPasteDataFunc(const QString &hint, boost::function<void()> func)
{
    m_pasteHint = hint;
    m_pasteFunc = std::move(func);
}

void COpBasketConfirmWidget::setTradeOperationType(quint64 word)
{
    m_tradeOpType = word;
}

void COpBasketConfirmWidget::setOperationType(int operation)
{
    m_operationType = operation;
}

void COpBasketConfirmWidget::slotSetFilter(int flags)
{
    if (flags == m_filterFlags)
        return;
    m_filterFlags = flags;
    update();
}

} // namespace TC
