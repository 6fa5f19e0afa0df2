#pragma once

#include "BasketToolkitExport.h"
#include "CEventWidgetT.h"

#include <QString>
#include <QWidget>

class QPaintEvent;

namespace WK {

// The base of every panel widget: a QWidget on the event bus that follows the user-interface
// resources.
class BASKET_TOOLKIT_EXPORT CBaseWidget : public CEventWidgetT<QWidget>
{
    Q_OBJECT

public:
    // name: identifies the widget in the client's resources and becomes its objectName.
    // paintBackground: the widget fills its background with the colour "clr_widget_background"
    // (white in the built-in theme) instead of letting its parent show through.
    CBaseWidget(const QString &name, bool paintBackground, QWidget *parent);
    ~CBaseWidget() override;

    bool handleEvent(int event, int id, int value, QString text, void *data) override;

    bool paintsBackground() const { return m_paintBackground; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    bool m_paintBackground = false;
};

} // namespace WK
