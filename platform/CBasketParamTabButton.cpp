#include "CBasketParamTabButton.h"

#include "CUiResource.h"

#include <QFontMetrics>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>

#include <algorithm>

namespace TC {

CBasketParamTabButton::CBasketParamTabButton(int id, const QString &text, QWidget *parent)
    : WK::CPushButton(id, text, parent)
{
    setObjectName(QStringLiteral("basket_param_tab_button"));
    setCheckable(true);
    setAttribute(Qt::WA_Hover);
    setFixedHeight(kTabHeight);
    setMinimumWidth(kTabWidth);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setToolTip(text);
    setFontKey(QStringLiteral("fnt_default_normal"));
}

CBasketParamTabButton::~CBasketParamTabButton() = default;

void CBasketParamTabButton::setBackgroundColorKeys(const QString &normal, const QString &press, const QString &hover)
{
    m_normalKey = normal;
    m_pressKey = press;
    m_hoverKey = hover;
    update();
}

void CBasketParamTabButton::setTextColorKeys(const QString &inactive, const QString &active)
{
    m_inactiveTextKey = inactive;
    m_activeTextKey = active;
    update();
}

QString CBasketParamTabButton::currentBackgroundKey() const
{
    if (isChecked() || isDown())
        return m_pressKey;
    if (isEnabled() && underMouse())
        return m_hoverKey;
    return m_normalKey;
}

QString CBasketParamTabButton::currentTextKey() const
{
    if (!isEnabled())
        return QStringLiteral("clr_text_disabled");
    return isChecked() || isDown() ? m_activeTextKey : m_inactiveTextKey;
}

QSize CBasketParamTabButton::sizeHint() const
{
    return QSize(kTabWidth, kTabHeight);
}

QSize CBasketParamTabButton::minimumSizeHint() const
{
    return sizeHint();
}

void CBasketParamTabButton::paintEvent(QPaintEvent *)
{
    WK::CUiResource *res = WK::CUiResource::instance();
    QPainter painter(this);
    painter.fillRect(rect(), res->getColor(currentBackgroundKey()));
    painter.setPen(res->getColor(QStringLiteral("clr_widget_border")));
    painter.drawLine(rect().bottomLeft(), rect().bottomRight());

    const QString label = text();
    if (!label.isEmpty()) {
        painter.setFont(font());
        painter.setPen(res->getColor(currentTextKey()));
        const QFontMetrics metrics(font());
        const int count = label.size();
        // Characters stand one under the other; a long text squeezes its lines rather than
        // losing characters at the ends.
        const int available = std::max(1, height() - 4);
        const int step = std::min(metrics.height(), available / count);
        int y = (height() - step * count) / 2;
        for (const QChar c : label) {
            painter.drawText(QRect(0, y, width(), step), Qt::AlignCenter, QString(c));
            y += step;
        }
    }

    if (hasFocus()) {
        QStyleOptionFocusRect option;
        option.initFrom(this);
        option.rect = rect().adjusted(2, 2, -2, -2);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
    }
}

} // namespace TC
