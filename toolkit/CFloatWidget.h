#pragma once

#include "BasketToolkitExport.h"
#include "CBaseDialog.h"
#include "CInnerWidgetSlot.h"

#include <QString>

namespace WK {

// A frameless box that floats over the panel, with an optional title strip. It hides itself as
// a popup does: on a click outside it and on Escape. Show it with show(), showAt() or
// showBelow().
class BASKET_TOOLKIT_EXPORT CFloatWidget : public CBaseDialog
{
    Q_OBJECT

public:
    // hasTitleBar: a title strip of kTitleHeight pixels runs along the top edge and shows the
    // title; without it the content starts at the border.
    CFloatWidget(bool hasTitleBar, QWidget *parent);
    ~CFloatWidget() override;

    static constexpr int kTitleHeight = 24;

    void setTitle(const QString &title);
    QString title() const { return m_title; }
    bool hasTitleBar() const { return m_hasTitleBar; }

    // The content below the title strip, filling the box. A later call replaces it (the old one
    // stays a child, hidden). A subclass may instead give the box a layout of its own, which
    // also sits below the title strip; then setInnerWidget does nothing.
    void setInnerWidget(QWidget *widget);
    QWidget *innerWidget() const { return m_inner.widget(); }
    void setInnerStretchWidget(QWidget *widget, int left, int top, int right, int bottom) override;

    // Shows the box with its top left corner at this global point, moved back inside the
    // screen where it would stick out.
    void showAt(const QPoint &globalPos);
    // Shows the box under the anchor, left edges aligned; above it when there is no room below.
    void showBelow(QWidget *anchor);

Q_SIGNALS:
    void sigHidden();

protected:
    void paintEvent(QPaintEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    bool m_hasTitleBar = false;
    QString m_title;
    CInnerWidgetSlot m_inner;
};

} // namespace WK
