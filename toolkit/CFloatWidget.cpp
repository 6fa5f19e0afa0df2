#include "CFloatWidget.h"

#include "CUiResource.h"

#include <QApplication>
#include <QHideEvent>
#include <QPainter>
#include <QScreen>

#include <algorithm>

namespace WK {
namespace {

constexpr int kBorder = 1;

} // namespace

CFloatWidget::CFloatWidget(bool hasTitleBar, QWidget *parent)
    : CBaseDialog(parent, Qt::Popup | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint)
    , m_hasTitleBar(hasTitleBar)
{
    setObjectName(QStringLiteral("float_widget"));
    // The layouts sit inside these margins: the border, and the title strip on top.
    setContentsMargins(kBorder, hasTitleBar ? kTitleHeight : kBorder, kBorder, kBorder);
}

CFloatWidget::~CFloatWidget() = default;

void CFloatWidget::setTitle(const QString &title)
{
    m_title = title;
    setWindowTitle(title);
    update();
}

void CFloatWidget::setInnerWidget(QWidget *widget)
{
    setInnerStretchWidget(widget, 0, 0, 0, 0);
}

void CFloatWidget::setInnerStretchWidget(QWidget *widget, int left, int top, int right, int bottom)
{
    m_inner.place(this, widget, left, top, right, bottom);
}

void CFloatWidget::showAt(const QPoint &globalPos)
{
    QPoint pos = globalPos;
    if (QScreen *screen = QGuiApplication::screenAt(globalPos)) {
        const QRect area = screen->availableGeometry();
        pos.setX(std::max(area.left(), std::min(pos.x(), area.right() - width() + 1)));
        pos.setY(std::max(area.top(), std::min(pos.y(), area.bottom() - height() + 1)));
    }
    move(pos);
    show();
    raise();
}

void CFloatWidget::showBelow(QWidget *anchor)
{
    if (!anchor) {
        show();
        return;
    }
    QPoint pos = anchor->mapToGlobal(QPoint(0, anchor->height()));
    if (QScreen *screen = QGuiApplication::screenAt(pos)) {
        if (pos.y() + height() > screen->availableGeometry().bottom() + 1)
            pos.setY(anchor->mapToGlobal(QPoint(0, 0)).y() - height());
    }
    showAt(pos);
}

void CFloatWidget::paintEvent(QPaintEvent *event)
{
    CUiResource *res = CUiResource::instance();
    QPainter painter(this);
    painter.fillRect(rect(), res->getColor(QStringLiteral("clr_widget_background")));
    if (m_hasTitleBar) {
        const QRect strip(0, 0, width(), kTitleHeight);
        painter.fillRect(strip, res->getColor(QStringLiteral("clr_basket_operation_param_top_tab_background")));
        painter.setPen(res->getColor(QStringLiteral("clr_widget_border")));
        painter.drawLine(strip.bottomLeft(), strip.bottomRight());
        painter.setPen(res->getColor(QStringLiteral("clr_text_default")));
        painter.setFont(res->getFont(QStringLiteral("fnt_title")));
        painter.drawText(strip.adjusted(8, 0, -8, 0), Qt::AlignVCenter | Qt::AlignLeft, m_title);
    }
    painter.setPen(res->getColor(QStringLiteral("clr_tool_bar_border")));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    CBaseDialog::paintEvent(event);
}

void CFloatWidget::hideEvent(QHideEvent *event)
{
    CBaseDialog::hideEvent(event);
    Q_EMIT sigHidden();
}

} // namespace WK
