#pragma once

#include "BasketToolkitExport.h"
#include "CBaseWidget.h"

#include <QPointer>

namespace WK {

// Two widgets side by side (or one above the other) with a handle between them. The second part
// is the stable one: it keeps its length when the container is resized and the first part takes
// the rest. The user drags the handle to change the stable length. The first part never gets
// shorter than its minimum length: when the container is too small the stable part gives way
// (its stable length is kept and comes back when there is room again).
class BASKET_TOOLKIT_EXPORT CSplitContainer : public CBaseWidget
{
    Q_OBJECT

public:
    // orientation: 1 the parts side by side, 2 one above the other, as Qt::Orientation.
    // handleWidth: the breadth of the handle in pixels.
    CSplitContainer(int orientation, int handleWidth, QWidget *parent);
    ~CSplitContainer() override;

    // first and second become children of the container. firstMinLength: as
    // setFirstMinLength, 0 for none. stableLength: the length of the second part.
    void setWidgets(QWidget *first, QWidget *second, int firstMinLength, int stableLength);

    int stableLength() const { return m_stableLength; }
    void setStableLength(int length);
    int firstMinLength() const { return m_firstMinLength; }
    void setFirstMinLength(int length);

    int orientation() const { return m_orientation; }
    int handleWidth() const { return m_handleWidth; }
    QWidget *firstWidget() const { return m_first; }
    QWidget *secondWidget() const { return m_second; }
    QWidget *handle() const { return m_handle; }

    // The lengths the parts get in a container of this length along its orientation.
    int secondLengthFor(int totalLength) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    // The user moved the handle.
    void sigStableLengthChanged(int length);

protected:
    void resizeEvent(QResizeEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void dragHandleTo(int handleStart);
    void relayout();
    int length(const QSize &size) const;
    int breadth(const QSize &size) const;
    QRect partRect(int start, int len) const;

    int m_orientation = Qt::Horizontal;
    int m_handleWidth = 3;
    int m_stableLength = 0;
    int m_firstMinLength = 0;
    QPointer<QWidget> m_first;
    QPointer<QWidget> m_second;
    QWidget *m_handle = nullptr;
    int m_dragOffset = -1; // where in the handle the drag started; -1 while not dragging
};

} // namespace WK
