#include "CSplitContainer.h"

#include <QMouseEvent>
#include <QResizeEvent>

#include <algorithm>

namespace WK {

CSplitContainer::CSplitContainer(int orientation, int handleWidth, QWidget *parent)
    : CBaseWidget(QStringLiteral("split_container"), false, parent)
    , m_orientation(orientation == Qt::Vertical ? Qt::Vertical : Qt::Horizontal)
    , m_handleWidth(std::max(0, handleWidth))
{
    m_handle = new QWidget(this);
    m_handle->setObjectName(QStringLiteral("split_handle"));
    m_handle->setCursor(m_orientation == Qt::Horizontal ? Qt::SplitHCursor : Qt::SplitVCursor);
    m_handle->setAutoFillBackground(true);
    QPalette palette = m_handle->palette();
    palette.setColor(QPalette::Window, CUiResource::instance()->getColor(QStringLiteral("clr_widget_border")));
    m_handle->setPalette(palette);
    m_handle->installEventFilter(this);
    m_handle->hide();
}

CSplitContainer::~CSplitContainer() = default;

void CSplitContainer::setWidgets(QWidget *first, QWidget *second, int firstMinLength, int stableLength)
{
    for (QWidget *old : {m_first.data(), m_second.data()}) {
        if (old && old != first && old != second) {
            old->removeEventFilter(this);
            old->hide();
        }
    }
    m_first = first;
    m_second = second;
    for (QWidget *part : {first, second}) {
        if (!part)
            continue;
        if (part->parentWidget() != this)
            part->setParent(this);
        part->installEventFilter(this);
        part->show();
    }
    m_firstMinLength = std::max(0, firstMinLength);
    m_stableLength = std::max(0, stableLength);
    m_handle->raise();
    relayout();
    updateGeometry();
}

void CSplitContainer::setStableLength(int length)
{
    m_stableLength = std::max(0, length);
    relayout();
}

void CSplitContainer::setFirstMinLength(int length)
{
    m_firstMinLength = std::max(0, length);
    relayout();
    updateGeometry();
}

int CSplitContainer::secondLengthFor(int totalLength) const
{
    const int room = std::max(0, totalLength - m_handleWidth);
    return std::clamp(m_stableLength, 0, std::max(0, room - m_firstMinLength));
}

QSize CSplitContainer::sizeHint() const
{
    const int firstHint = m_first ? length(m_first->sizeHint()) : 0;
    const int len = std::max(firstHint, m_firstMinLength) + m_handleWidth + m_stableLength;
    int br = 0;
    for (QWidget *part : {m_first.data(), m_second.data()}) {
        if (part)
            br = std::max(br, breadth(part->sizeHint()));
    }
    return m_orientation == Qt::Horizontal ? QSize(len, br) : QSize(br, len);
}

QSize CSplitContainer::minimumSizeHint() const
{
    const int len = m_firstMinLength + m_handleWidth;
    return m_orientation == Qt::Horizontal ? QSize(len, 0) : QSize(0, len);
}

void CSplitContainer::resizeEvent(QResizeEvent *event)
{
    CBaseWidget::resizeEvent(event);
    relayout();
}

bool CSplitContainer::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_handle) {
        // A part shown or hidden later changes who takes the room.
        if ((watched == m_first || watched == m_second)
            && (event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent))
            relayout();
        return CBaseWidget::eventFilter(watched, event);
    }
    switch (event->type()) {
    case QEvent::MouseButtonPress: {
        auto *mouse = static_cast<QMouseEvent *>(event);
        if (mouse->button() != Qt::LeftButton)
            break;
        m_dragOffset = m_orientation == Qt::Horizontal ? mouse->pos().x() : mouse->pos().y();
        return true;
    }
    case QEvent::MouseMove: {
        auto *mouse = static_cast<QMouseEvent *>(event);
        if (m_dragOffset < 0 || !(mouse->buttons() & Qt::LeftButton))
            break;
        const QPoint inContainer = m_handle->mapToParent(mouse->pos());
        const int pos = m_orientation == Qt::Horizontal ? inContainer.x() : inContainer.y();
        dragHandleTo(pos - m_dragOffset);
        return true;
    }
    case QEvent::MouseButtonRelease:
        if (m_dragOffset >= 0 && static_cast<QMouseEvent *>(event)->button() == Qt::LeftButton) {
            m_dragOffset = -1;
            return true;
        }
        break;
    default:
        break;
    }
    return CBaseWidget::eventFilter(watched, event);
}

void CSplitContainer::dragHandleTo(int handleStart)
{
    const int total = length(size());
    const int room = std::max(0, total - m_handleWidth);
    const int firstLength = std::clamp(handleStart, std::min(m_firstMinLength, room), room);
    const int stable = room - firstLength;
    if (stable == m_stableLength)
        return;
    m_stableLength = stable;
    relayout();
    Q_EMIT sigStableLengthChanged(m_stableLength);
}

void CSplitContainer::relayout()
{
    const int total = length(size());
    QWidget *first = m_first && !m_first->isHidden() ? m_first.data() : nullptr;
    QWidget *second = m_second && !m_second->isHidden() ? m_second.data() : nullptr;
    if (first && second) {
        const int secondLength = secondLengthFor(total);
        const int firstLength = std::max(0, total - m_handleWidth - secondLength);
        first->setGeometry(partRect(0, firstLength));
        m_handle->setGeometry(partRect(firstLength, m_handleWidth));
        second->setGeometry(partRect(firstLength + m_handleWidth, secondLength));
        m_handle->setVisible(m_handleWidth > 0);
        return;
    }
    // With one part hidden the other takes the whole container and there is nothing to drag.
    m_handle->hide();
    if (first)
        first->setGeometry(rect());
    if (second)
        second->setGeometry(rect());
}

int CSplitContainer::length(const QSize &size) const
{
    return m_orientation == Qt::Horizontal ? size.width() : size.height();
}

int CSplitContainer::breadth(const QSize &size) const
{
    return m_orientation == Qt::Horizontal ? size.height() : size.width();
}

QRect CSplitContainer::partRect(int start, int len) const
{
    if (m_orientation == Qt::Horizontal)
        return QRect(start, 0, len, height());
    return QRect(0, start, width(), len);
}

} // namespace WK
