#pragma once

#include "CEventDeliverer.h"
#include "CUiResource.h"
#include "CUiResourceChangeHandler.h"

#include <QBoxLayout>
#include <QFont>
#include <QPointer>
#include <QWidget>

namespace WK {

// A Qt widget class T (QWidget, QComboBox, QDialog, QLineEdit and the like) that takes part in
// the event bus and follows the user-interface resources.
//
// Its parent deliverer is looked up in the widget tree when an event leaves: the widget's own
// parent if that is a deliverer, else the nearest ancestor that is one. So a widget that a layout
// moves to another parent reports to its new parent, and a plain Qt widget between two
// deliverers is skipped. setEventParent fixes the parent deliverer instead.
template <typename T>
class CEventWidgetT : public T, public CEventDeliverer, public CUiResourceChangeHandler
{
public:
    explicit CEventWidgetT(QWidget *parent = nullptr)
        : T(parent)
    {
    }

    CEventDeliverer *eventParent() const override
    {
        if (hasFixedEventParent())
            return CEventDeliverer::eventParent();
        return findEventDeliverer(this->parentWidget());
    }

    // Makes the child fill this widget, inside these margins. A later call replaces the child
    // shown before (which stays a child, hidden) and the margins.
    virtual void setInnerStretchWidget(QWidget *widget, int left, int top, int right, int bottom)
    {
        if (!m_innerLayout) {
            if (this->layout())
                return; // the widget lays itself out; an inner widget would fight its layout
            m_innerLayout = new QVBoxLayout(this);
            m_innerLayout->setSpacing(0);
        }
        m_innerLayout->setContentsMargins(left, top, right, bottom);
        if (m_innerWidget && m_innerWidget != widget) {
            m_innerLayout->removeWidget(m_innerWidget);
            m_innerWidget->hide();
        }
        m_innerWidget = widget;
        if (widget && m_innerLayout->indexOf(widget) < 0) {
            m_innerLayout->addWidget(widget, 1);
            widget->show();
        }
    }

    QWidget *innerStretchWidget() const { return m_innerWidget; }

    // A font that the widget keeps: the client's font settings no longer change it. The font
    // key variant takes the font of a CUiResource key and follows the scale.
    virtual void setFixFont(const QFont &font)
    {
        m_fontKey.clear();
        m_fixFont = true;
        this->setFont(font);
    }
    virtual void setFontKey(const QString &key)
    {
        m_fontKey = key;
        m_fixFont = true;
        this->setFont(CUiResource::instance()->getFont(key));
    }
    QString fontKey() const { return m_fontKey; }
    bool hasFixFont() const { return m_fixFont; }

    void scaleChanged() override
    {
        if (!m_fontKey.isEmpty())
            this->setFont(CUiResource::instance()->getFont(m_fontKey));
        this->update();
    }

    void themeChanged() override
    {
        scaleChanged();
    }

private:
    QVBoxLayout *m_innerLayout = nullptr;
    QPointer<QWidget> m_innerWidget;
    QString m_fontKey;
    bool m_fixFont = false;
};

} // namespace WK
