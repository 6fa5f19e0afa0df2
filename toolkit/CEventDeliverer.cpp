#include "CEventDeliverer.h"

#include <QWidget>

#include <utility>

namespace WK {

CEventDeliverer::CEventDeliverer(CEventDeliverer *parent)
    : m_eventParent(parent)
    , m_fixedParent(parent != nullptr)
{
}

CEventDeliverer::~CEventDeliverer() = default;

bool CEventDeliverer::handleEvent(int event, int id, int value, QString text, void *data)
{
    return deliverEvent(event, id, value, std::move(text), data);
}

void CEventDeliverer::setEventParent(CEventDeliverer *parent)
{
    if (parent == this)
        return;
    m_eventParent = parent;
    m_fixedParent = true;
}

CEventDeliverer *CEventDeliverer::eventParent() const
{
    return m_eventParent;
}

bool CEventDeliverer::deliverEvent(int event, int id, int value, QString text, void *data)
{
    CEventDeliverer *parent = eventParent();
    if (!parent || parent == this)
        return false;
    return parent->handleEvent(event, id, value, std::move(text), data);
}

CEventDeliverer *castEventDeliverer(QWidget *widget)
{
    return dynamic_cast<CEventDeliverer *>(widget);
}

CEventDeliverer *findEventDeliverer(QWidget *widget)
{
    for (QWidget *w = widget; w; w = w->parentWidget()) {
        if (CEventDeliverer *deliverer = castEventDeliverer(w))
            return deliverer;
    }
    return nullptr;
}

} // namespace WK
