#include "CInnerWidgetSlot.h"

#include <QVBoxLayout>
#include <QWidget>

namespace WK {

void CInnerWidgetSlot::place(QWidget *host, QWidget *widget, int left, int top, int right, int bottom)
{
    if (!m_layout) {
        if (host->layout())
            return;
        m_layout = new QVBoxLayout(host);
        m_layout->setSpacing(0);
    }
    m_layout->setContentsMargins(left, top, right, bottom);
    if (m_inner && m_inner != widget) {
        m_layout->removeWidget(m_inner);
        m_inner->hide();
    }
    m_inner = widget;
    if (widget && m_layout->indexOf(widget) < 0) {
        m_layout->addWidget(widget, 1);
        widget->show();
    }
}

} // namespace WK
