#include "CBaseWidget.h"

#include <QPaintEvent>
#include <QPainter>

#include <utility>

namespace WK {

CBaseWidget::CBaseWidget(const QString &name, bool paintBackground, QWidget *parent)
    : CEventWidgetT<QWidget>(parent)
    , m_paintBackground(paintBackground)
{
    setObjectName(name);
}

CBaseWidget::~CBaseWidget() = default;

bool CBaseWidget::handleEvent(int event, int id, int value, QString text, void *data)
{
    return CEventWidgetT<QWidget>::handleEvent(event, id, value, std::move(text), data);
}

void CBaseWidget::paintEvent(QPaintEvent *event)
{
    if (m_paintBackground) {
        QPainter painter(this);
        painter.fillRect(event->rect(), CUiResource::instance()->getColor(QStringLiteral("clr_widget_background")));
    }
    QWidget::paintEvent(event);
}

} // namespace WK
