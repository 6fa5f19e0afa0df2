#include "IDockableWidget.h"

namespace WK {

IDockableWidget::IDockableWidget(const QString &name, bool flag, QWidget *parent)
    : CBaseWidget(name, flag, parent)
{
}

IDockableWidget::~IDockableWidget() = default;

void IDockableWidget::setParam(const QString &)
{
}

QString IDockableWidget::param() const
{
    return QString();
}

bool IDockableWidget::handleShortcut(int, QKeyEvent *)
{
    return false;
}

} // namespace WK
