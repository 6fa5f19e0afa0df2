#pragma once

#include "BasketToolkitExport.h"

#include <QString>

class QWidget;

namespace WK {

// The upward event bus of the toolkit. An event is five values (event number, id, value, text,
// data); a child hands it to its parent deliverer without knowing who that is, and it climbs
// the chain of deliverers until one handleEvent takes it. Everything runs synchronously on the
// user-interface thread.
class BASKET_TOOLKIT_EXPORT CEventDeliverer
{
public:
    // parent: the deliverer that receives this one's events; null for a root. A non-null parent
    // is kept as given (see setEventParent).
    explicit CEventDeliverer(CEventDeliverer *parent = nullptr);
    virtual ~CEventDeliverer();

    CEventDeliverer(const CEventDeliverer &) = delete;
    CEventDeliverer &operator=(const CEventDeliverer &) = delete;

    // Answers true when the event was taken. Overrides answer the events they know and pass the
    // rest to their base class; this base implementation passes the event to the next deliverer
    // up and answers false at the root.
    virtual bool handleEvent(int event, int id, int value, QString text, void *data);

    // Fixes the parent deliverer; from then on it no longer follows the widget tree (widgets
    // look their parent up in the widget tree until this is called). Null makes this a root.
    // A deliverer cannot be its own parent: such a call is ignored.
    void setEventParent(CEventDeliverer *parent);
    virtual CEventDeliverer *eventParent() const;

protected:
    // Hands the event to the parent deliverer's handleEvent and returns its answer; the sender's
    // own handleEvent is not called. False without a parent.
    bool deliverEvent(int event, int id, int value, QString text = QString(), void *data = nullptr);

    bool hasFixedEventParent() const { return m_fixedParent; }

private:
    CEventDeliverer *m_eventParent = nullptr;
    bool m_fixedParent = false;
};

// The deliverer of a widget: null for null or for a plain Qt widget.
CEventDeliverer *castEventDeliverer(QWidget *widget);

// The deliverer of the widget itself or, if it is a plain Qt widget, of its nearest ancestor
// that is one; null when there is none.
CEventDeliverer *findEventDeliverer(QWidget *widget);

} // namespace WK
