#pragma once

#include "BasketToolkitExport.h"
#include "CBaseWidget.h"

class QBoxLayout;

namespace WK {

// A row or a column of widgets and spaces, in the order they are added. Events of the widgets
// climb through the list to its parent.
//
// Alignment arguments are Qt alignment flags across the list: for a vertical list the
// horizontal flags (Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight), for a horizontal list the
// vertical ones; such a widget keeps its own breadth and sits where the flag says. 0, or 3 (left
// and right together), and any flag that says nothing across the list make the widget fill the
// list's breadth.
class BASKET_TOOLKIT_EXPORT CWidgetList : public CBaseWidget
{
    Q_OBJECT

public:
    // orientation: 1 horizontal, 2 vertical, as Qt::Orientation.
    CWidgetList(int orientation, QWidget *parent);
    ~CWidgetList() override;

    int orientation() const { return m_orientation; }

    void setMargin(int left, int top, int right, int bottom);
    // Space between neighbouring items; -1 takes the style's default.
    void setSpacing(int spacing);

    // A widget that keeps its own length along the list (its fixed size, else its size hint).
    // leading: space before the widget in pixels, as addFixedSpace(leading) would put it; 0 for
    // none.
    void addFixedWidget(QWidget *widget, int alignment, int leading);
    // A widget that shares the free length with the other stretch items, by stretch factor.
    void addStretchWidget(QWidget *widget, int stretch, int alignment, int leading);
    void addFixedSpace(int length);
    void addStretchSpace(int stretch);
    // Takes a widget out of the list (it stays a child of the list, hidden).
    void removeWidget(QWidget *widget);

    // Lays the items out again at once, after widgets were shown or hidden.
    void updateList();
    // The same, after widgets changed their lengths: their new lengths are read again, and the
    // list's own size hint follows so that a parent list makes room.
    void updateWidgetLength();

    // Items in order, spaces included; widgetAt gives null for a space.
    int count() const;
    QWidget *widgetAt(int index) const;
    int indexOf(QWidget *widget) const;

private:
    void addWidgetItem(QWidget *widget, int stretch, int alignment, int leading, bool fixed);
    Qt::Alignment crossAlignment(int alignment) const;

    int m_orientation = Qt::Horizontal;
    QBoxLayout *m_layout = nullptr;
};

} // namespace WK
