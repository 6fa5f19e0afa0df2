#include "CHpfOpConfirmWidget.h"

#include "COrderParamTable.h"

namespace TC {

CHpfOpConfirmWidget::CHpfOpConfirmWidget(QWidget *parent)
    : COpBasketConfirmWidget(parent)
{
}

CHpfOpConfirmWidget::~CHpfOpConfirmWidget() = default;

void CHpfOpConfirmWidget::loadParams(std::vector<ttservice::CCodeOrderParam> *list, quint64, bool,
                                     const QMap<QString, int> &, const QMap<QString, QString> &,
                                     const QMap<QString, double> &, const QMap<QString, double> &, int)
{
    COpBasketConfirmWidget::loadParams(list);
    setLineEditable(m_lineEditable);
}

void CHpfOpConfirmWidget::setLineEditable(bool editable)
{
    m_lineEditable = editable;
    if (table())
        table()->setColumnEditable(COL_VOLUME, editable);
}

} // namespace TC
