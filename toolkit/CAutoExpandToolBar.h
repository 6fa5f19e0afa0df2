#pragma once

#include "BasketToolkitExport.h"
#include "CBaseWidget.h"

#include <QList>
#include <QPointer>
#include <QSet>
#include <QVector>

class QFrame;
class QHBoxLayout;
class QToolButton;
class QVBoxLayout;

namespace WK {

// A horizontal row of tool items (check boxes, editors, texts) and separators, left to right in
// the order they are added. Items keep their own width; when the row is too narrow for all of
// them, the items from the first one that does not fit to the end fold into the overflow: they
// leave the row, and a "»" button at its right end shows them in a drop-down box, where they
// work as on the row (their events still climb through the row). The row folds only while it
// is on screen; a row that was never shown keeps every item on it.
//
// An item that its owner hides must go on the row's invisible list (doOperationInvisibleList):
// the row then neither shows it for want of room nor keeps a place for it. Separators are hidden
// by the row where they would stand at an end or next to another separator.
class BASKET_TOOLKIT_EXPORT CAutoExpandToolBar : public CBaseWidget
{
    Q_OBJECT

public:
    explicit CAutoExpandToolBar(QWidget *parent);
    ~CAutoExpandToolBar() override;

    void setMargin(int left, int top, int right, int bottom);
    // Space between neighbouring items; negative counts as 0.
    void setSpacing(int spacing);

    // bound: a run of consecutive bound items folds as one unit, so that a box never leaves the
    // row without the editor that belongs to it.
    void addToolItem(QWidget *widget, bool bound);
    void addSeparator();

    // hide true puts the item on the invisible list (and hides it); false takes it off, and the
    // item comes back on the row or into the overflow, wherever there is room for it.
    void doOperationInvisibleList(QWidget *widget, bool hide);
    bool isOnInvisibleList(const QWidget *widget) const;

    // Items folded into the overflow for want of room, in row order.
    QList<QWidget *> foldedItems() const;
    bool isFolded(const QWidget *widget) const;
    // As QWidget::isVisibleTo, except that an item folded into the overflow counts as visible
    // whenever the row is: it is out of sight for want of room, not out of use.
    bool isItemVisibleTo(const QWidget *item, const QWidget *ancestor) const;

    QToolButton *overflowButton() const { return m_overflowButton; }
    // Opens the drop-down with the folded items under the "»" button; nothing without them.
    void showOverflow();
    void hideOverflow();
    bool isOverflowShown() const;

    // Decides again which items stay on the row and which fold.
    void relayout();

    // The width of every item in use, folded or not; the least is the "»" button alone.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    struct Item {
        QPointer<QWidget> widget;
        bool bound = false;
        bool separator = false;
    };

    bool isInUse(const Item &item) const;
    static int itemWidth(const QWidget *widget);
    int spacing() const;
    void applyFolding(int cut);
    void updateSeparators();
    void returnFoldedItems();

    QHBoxLayout *m_layout = nullptr;
    QToolButton *m_overflowButton = nullptr;
    QFrame *m_overflowBox = nullptr;
    QVBoxLayout *m_overflowLayout = nullptr;
    QVector<Item> m_items;
    QSet<const QWidget *> m_invisible;
    QSet<const QWidget *> m_folded;
    // The items that sit in the drop-down while it is open, in row order.
    QList<QPointer<QWidget>> m_lent;
    QSize m_lastSizeHint;
    bool m_inRelayout = false;
};

} // namespace WK
