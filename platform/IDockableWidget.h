#pragma once

#include "BasketPlatformExport.h"
#include "CBaseWidget.h"

#include <QString>

class QKeyEvent;

namespace WK {

// A widget that the client can dock: it keeps its state in a parameter string that the client
// stores between sessions, and it may answer the client's keyboard shortcuts.
class BASKET_PLATFORM_EXPORT IDockableWidget : public CBaseWidget
{
    Q_OBJECT

public:
    IDockableWidget(const QString &name, bool flag, QWidget *parent);
    ~IDockableWidget() override;

    // The state as text; the client keeps it and hands it back through setParam.
    virtual void setParam(const QString &text);
    virtual QString param() const;

    // A shortcut of the client's table, by number; true when the widget used it.
    virtual bool handleShortcut(int key, QKeyEvent *event);
};

} // namespace WK
