#include "COpBasketParamsEditWidget.h"

#include "CHpfOpConfirmWidget.h"

#include "CTradeClient.h"
#include "CWidgetList.h"
#include "TextHelpers.h"

#include <QKeyEvent>

namespace TC {

COpBasketParamsEditWidget::COpBasketParamsEditWidget(QWidget *parent)
    : WK::CBaseWidget(QStringLiteral("qmzd_lorvenhal_opbasketparamseditwidget"), false, parent)
{
    setMinimumWidth(150);
    createUi();
}

COpBasketParamsEditWidget::~COpBasketParamsEditWidget() = default;

void COpBasketParamsEditWidget::createUi()
{
    auto *list = new WK::CWidgetList(Qt::Vertical, this);
    list->setMargin(0, 0, 0, 0);
    list->setSpacing(0);
    m_opConfirmWidget = new CHpfOpConfirmWidget(list);
    connect(m_opConfirmWidget, &CHpfOpConfirmWidget::sigRemoveData, this, &COpBasketParamsEditWidget::slotRemoveData);
    connect(m_opConfirmWidget, &CHpfOpConfirmWidget::sigBasketSettingChanged, this,
            &COpBasketParamsEditWidget::sigbasketSettingChanged);
    // A full confirmation table of a basket list: menu actions and the direction switch.
    m_opConfirmWidget->setTradeType(4);
    m_opConfirmWidget->setOpConfirmType(1);
    list->addStretchWidget(m_opConfirmWidget, 1, 3, 0);
    setInnerStretchWidget(list, 0, 0, 0, 0);
}

void COpBasketParamsEditWidget::setWaitTest(bool wait)
{
    if (m_opConfirmWidget)
        m_opConfirmWidget->setWaitTest(wait);
}

void COpBasketParamsEditWidget::setBasketName(const QString &name)
{
    if (m_opConfirmWidget)
        m_opConfirmWidget->setBasketName(name);
}

void COpBasketParamsEditWidget::setLineEditable(bool editable)
{
    if (m_opConfirmWidget)
        m_opConfirmWidget->setLineEditable(editable);
}

void COpBasketParamsEditWidget::setParam(const QString &text)
{
    if (m_opConfirmWidget)
        m_opConfirmWidget->setParam(text);
}

QString COpBasketParamsEditWidget::param() const
{
    return m_opConfirmWidget ? m_opConfirmWidget->param() : QString();
}

void COpBasketParamsEditWidget::loadParams(std::vector<ttservice::CCodeOrderParam> *list, quint64 word, bool canCustom)
{
    if (m_opConfirmWidget)
        m_opConfirmWidget->loadParams(list, word, canCustom, {}, {}, {}, {}, 0);
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

void COpBasketParamsEditWidget::updateOrderParams()
{
    if (m_opConfirmWidget)
        m_opConfirmWidget->updateParam();
}

ttservice::CCodeOrderParam *COpBasketParamsEditWidget::getParamByRowIndex(int row) const
{
    return m_opConfirmWidget ? m_opConfirmWidget->getParamByRowIndex(row) : nullptr;
}

std::vector<ttservice::CCodeOrderParam> COpBasketParamsEditWidget::getOrderParams() const
{
    return m_opConfirmWidget ? m_opConfirmWidget->getOrderParams() : std::vector<ttservice::CCodeOrderParam>();
}

void COpBasketParamsEditWidget::setCommand(const std::string &key, std::vector<ttservice::CCodeOrderParam> *list,
                                           quint64 word, bool canCustom, const sSplitCmdInfo &)
{
    m_commandKey = key;
    m_commandTradeOpType = word;
    if (!CTradeClient::instance()->getCommandByKey(key))
        return;
    if (m_opConfirmWidget)
        m_opConfirmWidget->loadParams(list, word, canCustom, {}, {}, {}, {}, 0);
}

void COpBasketParamsEditWidget::slotRemoveData(QVector<TC::CBasketStockData> rows)
{
    Q_EMIT sigRemoveData(rows);
}

void COpBasketParamsEditWidget::keyPressEvent(QKeyEvent *event)
{
    if (WK::isKeyCharOrNum(event) && !(event->modifiers() & Qt::ControlModifier))
        Q_EMIT sig_bascketChange(event);
    QWidget::keyPressEvent(event);
}

} // namespace TC
