#include "CWidgetList.h"

#include <QBoxLayout>

namespace WK {

CWidgetList::CWidgetList(int orientation, QWidget *parent)
    : CBaseWidget(QStringLiteral("widget_list"), false, parent)
    , m_orientation(orientation == Qt::Vertical ? Qt::Vertical : Qt::Horizontal)
{
    m_layout = new QBoxLayout(m_orientation == Qt::Vertical ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight, this);
    m_layout->setContentsMargins(0, 0, 0, 0);
}

CWidgetList::~CWidgetList() = default;

void CWidgetList::setMargin(int left, int top, int right, int bottom)
{
    m_layout->setContentsMargins(left, top, right, bottom);
}

void CWidgetList::setSpacing(int spacing)
{
    m_layout->setSpacing(spacing < 0 ? -1 : spacing);
}

void CWidgetList::addFixedWidget(QWidget *widget, int alignment, int leading)
{
    addWidgetItem(widget, 0, alignment, leading, true);
}

void CWidgetList::addStretchWidget(QWidget *widget, int stretch, int alignment, int leading)
{
    addWidgetItem(widget, stretch < 0 ? 0 : stretch, alignment, leading, false);
}

void CWidgetList::addFixedSpace(int length)
{
    m_layout->addSpacing(length < 0 ? 0 : length);
}

void CWidgetList::addStretchSpace(int stretch)
{
    m_layout->addStretch(stretch < 0 ? 0 : stretch);
}

void CWidgetList::removeWidget(QWidget *widget)
{
    if (!widget || m_layout->indexOf(widget) < 0)
        return;
    m_layout->removeWidget(widget);
    widget->hide();
}

void CWidgetList::updateList()
{
    m_layout->invalidate();
    m_layout->activate();
    update();
}

void CWidgetList::updateWidgetLength()
{
    for (int i = 0; i < m_layout->count(); ++i)
        m_layout->itemAt(i)->invalidate();
    m_layout->invalidate();
    updateGeometry();
    m_layout->activate();
    update();
}

int CWidgetList::count() const
{
    return m_layout->count();
}

QWidget *CWidgetList::widgetAt(int index) const
{
    if (index < 0 || index >= m_layout->count())
        return nullptr;
    return m_layout->itemAt(index)->widget();
}

int CWidgetList::indexOf(QWidget *widget) const
{
    return widget ? m_layout->indexOf(widget) : -1;
}

void CWidgetList::addWidgetItem(QWidget *widget, int stretch, int alignment, int leading, bool fixed)
{
    if (!widget || widget == this || m_layout->indexOf(widget) >= 0)
        return;
    if (leading > 0)
        m_layout->addSpacing(leading);
    if (fixed) {
        // A fixed widget must not grow along the list when no stretch item takes the room.
        QSizePolicy policy = widget->sizePolicy();
        if (m_orientation == Qt::Vertical)
            policy.setVerticalPolicy(QSizePolicy::Fixed);
        else
            policy.setHorizontalPolicy(QSizePolicy::Fixed);
        widget->setSizePolicy(policy);
    }
    m_layout->addWidget(widget, stretch, crossAlignment(alignment));
}

Qt::Alignment CWidgetList::crossAlignment(int alignment) const
{
    if (alignment == 0 || alignment == static_cast<int>(Qt::AlignLeft | Qt::AlignRight))
        return Qt::Alignment();
    const Qt::Alignment flags(alignment);
    const Qt::Alignment cross = flags & (m_orientation == Qt::Vertical ? Qt::AlignHorizontal_Mask : Qt::AlignVertical_Mask);
    if (cross == (Qt::AlignTop | Qt::AlignBottom))
        return Qt::Alignment();
    return cross;
}

} // namespace WK
