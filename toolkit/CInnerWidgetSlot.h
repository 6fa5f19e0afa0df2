#pragma once

#include "BasketToolkitExport.h"

#include <QPointer>

class QVBoxLayout;
class QWidget;

namespace WK {

// The one widget that fills a frame (a dialog, a floating box) inside the given margins.
// Placing another widget hides the one before; a host that already has a layout of its own
// keeps it and takes nothing.
class BASKET_TOOLKIT_EXPORT CInnerWidgetSlot
{
public:
    void place(QWidget *host, QWidget *widget, int left, int top, int right, int bottom);
    QWidget *widget() const { return m_inner; }

private:
    QVBoxLayout *m_layout = nullptr;
    QPointer<QWidget> m_inner;
};

} // namespace WK
