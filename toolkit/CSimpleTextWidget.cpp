#include "CSimpleTextWidget.h"

#include "CUiResource.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace WK {
namespace {

constexpr int kPadding = 2;

} // namespace

CSimpleTextWidget::CSimpleTextWidget(QWidget *parent)
    : CSimpleTextWidget(0, QString(), parent)
{
}

CSimpleTextWidget::CSimpleTextWidget(int id, const QString &text, QWidget *parent)
    : CBaseWidget(QStringLiteral("simple_text_widget"), false, parent)
    , m_id(id)
    , m_text(text)
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

CSimpleTextWidget::~CSimpleTextWidget() = default;

void CSimpleTextWidget::setText(const QString &text, int maxWidth)
{
    m_text = text;
    m_maxWidth = std::max(0, maxWidth);
    updateGeometry();
    update();
}

void CSimpleTextWidget::setColorKey(const QString &key)
{
    m_colorKey = key;
    update();
}

void CSimpleTextWidget::setFontKey(const QString &key)
{
    CBaseWidget::setFontKey(key);
    updateGeometry();
}

void CSimpleTextWidget::setAlignment(Qt::Alignment alignment)
{
    m_alignment = alignment;
    update();
}

void CSimpleTextWidget::setClickable(bool clickable)
{
    m_clickable = clickable;
    setCursor(clickable ? Qt::PointingHandCursor : Qt::ArrowCursor);
    update();
}

QSize CSimpleTextWidget::sizeHint() const
{
    const QFontMetrics metrics(font());
    const int width = std::min(metrics.horizontalAdvance(m_text) + 2 * kPadding, m_maxWidth);
    return QSize(width, metrics.height() + 2 * kPadding);
}

QSize CSimpleTextWidget::minimumSizeHint() const
{
    return QSize(0, QFontMetrics(font()).height());
}

void CSimpleTextWidget::paintEvent(QPaintEvent *event)
{
    CBaseWidget::paintEvent(event);
    QPainter painter(this);
    QFont f = font();
    if (m_clickable && m_hovered)
        f.setUnderline(true);
    painter.setFont(f);
    const QColor color = CUiResource::instance()->getColor(m_colorKey);
    painter.setPen(isEnabled() ? color : CUiResource::instance()->getColor(QStringLiteral("clr_text_disabled")));
    const QRect area = rect().adjusted(kPadding, 0, -kPadding, 0);
    painter.drawText(area, static_cast<int>(m_alignment),
                     QFontMetrics(f).elidedText(m_text, Qt::ElideRight, area.width()));
}

void CSimpleTextWidget::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton) {
        m_pressed = true;
        event->accept();
        return;
    }
    CBaseWidget::mousePressEvent(event);
}

void CSimpleTextWidget::mouseReleaseEvent(QMouseEvent *event)
{
    const bool click = m_pressed && event->button() == Qt::LeftButton && rect().contains(event->pos());
    m_pressed = false;
    if (click) {
        event->accept();
        deliverEvent(9, m_id, 0, m_text, nullptr);
        return;
    }
    CBaseWidget::mouseReleaseEvent(event);
}

void CSimpleTextWidget::enterEvent(QEvent *event)
{
    m_hovered = true;
    if (m_clickable)
        update();
    CBaseWidget::enterEvent(event);
}

void CSimpleTextWidget::leaveEvent(QEvent *event)
{
    m_hovered = false;
    if (m_clickable)
        update();
    CBaseWidget::leaveEvent(event);
}

} // namespace WK
