#include "COpBasketParamsEditWidget.h"

#include "COpBasketConfirmWidget.h"

namespace TC {

COpBasketParamsEditWidget::COpBasketParamsEditWidget(QWidget *parent)
    : WK::CBaseWidget(QStringLiteral("qmzd_lorvenhal_opbasketparamseditwidget"), false, parent)
{
    m_opConfirmWidget = new COpBasketConfirmWidget(this);
    setMinimumWidth(150);
    setInnerStretchWidget(m_opConfirmWidget, 0, 0, 0, 0);
}

COpBasketParamsEditWidget::~COpBasketParamsEditWidget() = default;

void COpBasketParamsEditWidget::setParam(const QString &text)
{
    if (m_opConfirmWidget)
        m_opConfirmWidget->setParam(text);
}

QString COpBasketParamsEditWidget::param() const
{
    return m_opConfirmWidget ? m_opConfirmWidget->param() : QString();
}

int COpBasketParamsEditWidget::tradeOpTypeToOptType(quint64 word)
{
    if (word == 512)
        return 18;
    if (word == 1024)
        return 19;
    return -1;
}

void COpBasketParamsEditWidget::setTradeOpType(quint64 word)
{
    if (!m_opConfirmWidget)
        return;
    m_opConfirmWidget->setTradeOperationType(word);
    m_opConfirmWidget->setOperationType(tradeOpTypeToOptType(word));
}

void COpBasketParamsEditWidget::setPasteDataFunc(const QString &hint, boost::function<void()> func)
{
    if (m_opConfirmWidget)
        m_opConfirmWidget->setPasteDataFunc(hint, std::move(func));
}

} // namespace TC
