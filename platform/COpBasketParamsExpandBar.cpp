#include "COpBasketParamsExpandBar.h"

#include "CUiResource.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>

namespace TC {
namespace {

constexpr int kTextMargin = 8;
constexpr int kArrowSize = 12;

} // namespace

COpBasketParamsExpandBar::COpBasketParamsExpandBar(int id, const QString &title, QWidget *parent)
    : WK::CBaseWidget(QStringLiteral("basket_params_expand_bar"), false, parent)
    , m_id(id)
    , m_title(title)
{
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setFontKey(QStringLiteral("fnt_default_bold"));
    setAccessibleName(title);
}

COpBasketParamsExpandBar::~COpBasketParamsExpandBar() = default;

void COpBasketParamsExpandBar::setTitle(const QString &title)
{
    m_title = title;
    setAccessibleName(title);
    updateGeometry();
    update();
}

void COpBasketParamsExpandBar::setExpanded(bool expanded)
{
    if (m_expanded == expanded)
        return;
    m_expanded = expanded;
    update();
}

void COpBasketParamsExpandBar::setTopLineVisible(bool visible)
{
    m_topLine = visible;
    update();
}

QString COpBasketParamsExpandBar::arrowKey() const
{
    return m_expanded ? QStringLiteral("tc_img_operation_contract_btn") : QStringLiteral("tc_img_operation_expand_btn");
}

QSize COpBasketParamsExpandBar::sizeHint() const
{
    const QFontMetrics metrics(font());
    return QSize(kTextMargin + metrics.horizontalAdvance(m_title) + kTextMargin + kArrowSize + kTextMargin, kBarHeight);
}

QSize COpBasketParamsExpandBar::minimumSizeHint() const
{
    return QSize(kTextMargin * 2 + kArrowSize, kBarHeight);
}

void COpBasketParamsExpandBar::paintEvent(QPaintEvent *)
{
    WK::CUiResource *res = WK::CUiResource::instance();
    QPainter painter(this);
    const QString background = m_hovered && isEnabled() ? QStringLiteral("clr_basket_param_expand_bar_hover")
                                                         : QStringLiteral("clr_basket_param_expand_bar_background");
    painter.fillRect(rect(), res->getColor(background));
    if (m_topLine) {
        painter.setPen(res->getColor(QStringLiteral("clr_widget_border")));
        painter.drawLine(rect().topLeft(), rect().topRight());
    }

    const QRect arrowRect(width() - kTextMargin - kArrowSize, (height() - kArrowSize) / 2, kArrowSize, kArrowSize);
    const QRect textRect(kTextMargin, 0, arrowRect.left() - 2 * kTextMargin, height());
    painter.setFont(font());
    painter.setPen(res->getColor(isEnabled() ? QStringLiteral("clr_text_default") : QStringLiteral("clr_text_disabled")));
    painter.drawText(textRect, Qt::AlignLeft | Qt::AlignVCenter,
                     painter.fontMetrics().elidedText(m_title, Qt::ElideRight, textRect.width()));
    painter.drawPixmap(arrowRect, res->getPixmap(arrowKey()));

    if (hasFocus()) {
        QStyleOptionFocusRect option;
        option.initFrom(this);
        option.rect = rect().adjusted(1, 1, -1, -1);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
    }
}

void COpBasketParamsExpandBar::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton) {
        WK::CBaseWidget::mousePressEvent(event);
        return;
    }
    m_pressed = true;
    event->accept();
}

void COpBasketParamsExpandBar::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton) {
        WK::CBaseWidget::mouseReleaseEvent(event);
        return;
    }
    // As with a button, a press that the user drags off the bar before releasing does nothing.
    const bool click = m_pressed && rect().contains(event->pos());
    m_pressed = false;
    event->accept();
    if (click)
        toggleByUser();
}

void COpBasketParamsExpandBar::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Space || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        event->accept();
        toggleByUser();
        return;
    }
    WK::CBaseWidget::keyPressEvent(event);
}

void COpBasketParamsExpandBar::enterEvent(QEvent *event)
{
    m_hovered = true;
    update();
    WK::CBaseWidget::enterEvent(event);
}

void COpBasketParamsExpandBar::leaveEvent(QEvent *event)
{
    m_hovered = false;
    update();
    WK::CBaseWidget::leaveEvent(event);
}

void COpBasketParamsExpandBar::toggleByUser()
{
    if (!isEnabled())
        return;
    setExpanded(!m_expanded);
    deliverEvent(1137, m_id, m_expanded ? 1 : 0, m_title, nullptr);
}

} // namespace TC
