#include "CCommonDialog.h"

#include "CUiResource.h"

#include <QVBoxLayout>

namespace WK {

CCommonDialog::CCommonDialog(QWidget *parent)
    : CBaseDialog(parent, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint)
{
    setObjectName(QStringLiteral("common_dialog"));
    QPalette palette = this->palette();
    palette.setColor(QPalette::Window, CUiResource::instance()->getColor(QStringLiteral("clr_widget_background")));
    setPalette(palette);
    setAutoFillBackground(true);
}

CCommonDialog::~CCommonDialog() = default;

void CCommonDialog::setTitle(const QString &title)
{
    setWindowTitle(title);
}

void CCommonDialog::setInnerWidget(QWidget *widget)
{
    setInnerStretchWidget(widget, 0, 0, 0, 0);
}

void CCommonDialog::setInnerStretchWidget(QWidget *widget, int left, int top, int right, int bottom)
{
    if (!m_layout) {
        if (layout())
            return;
        m_layout = new QVBoxLayout(this);
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
