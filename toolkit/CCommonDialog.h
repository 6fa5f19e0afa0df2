#pragma once

#include "BasketToolkitExport.h"
#include "CBaseDialog.h"
#include "CInnerWidgetSlot.h"

namespace WK {

// A window dialog with the title in its window frame and one inner widget as its content.
class BASKET_TOOLKIT_EXPORT CCommonDialog : public CBaseDialog
{
    Q_OBJECT

public:
    explicit CCommonDialog(QWidget *parent);
    ~CCommonDialog() override;

    void setTitle(const QString &title);
    QString title() const { return windowTitle(); }

    // The content, filling the dialog. A later call replaces it (the old one stays a child,
    // hidden).
    void setInnerWidget(QWidget *widget);
    QWidget *innerWidget() const { return m_inner.widget(); }
    void setInnerStretchWidget(QWidget *widget, int left, int top, int right, int bottom) override;

private:
    CInnerWidgetSlot m_inner;
};

} // namespace WK
