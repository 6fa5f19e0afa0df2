#include "CCommonDialog.h"

#include "CUiResource.h"


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
    m_inner.place(this, widget, left, top, right, bottom);
}

} // namespace WK
