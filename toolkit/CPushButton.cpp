#include "CPushButton.h"

#include "CJiuGongImageWidget.h"
#include "CUiResource.h"

#include <QPainter>
#include <QStyleOptionButton>
#include <QStylePainter>

namespace WK {

CPushButton::CPushButton(int id, QWidget *parent)
    : CPushButton(id, QString(), parent)
{
}

CPushButton::CPushButton(int id, const QString &text, QWidget *parent)
    : CEventWidgetT<QPushButton>(parent)
    , m_id(id)
{
    setText(text);
    setCursor(Qt::PointingHandCursor);
    applyLook();
    connect(this, &QPushButton::clicked, this, [this](bool checked) {
        deliverEvent(5, m_id, checked ? 1 : 0, this->text(), nullptr);
    });
}

CPushButton::~CPushButton() = default;

void CPushButton::setImageKey(const QString &key)
{
    m_imageKey = key;
    applyLook();
}

void CPushButton::setIconKey(const QString &key)
{
    m_iconKey = key;
    setIcon(key.isEmpty() ? QIcon() : QIcon(CUiResource::instance()->getPixmap(key)));
}

void CPushButton::setColorKey(const QString &key)
{
    m_colorKey = key;
    applyLook();
}

void CPushButton::themeChanged()
{
    CEventWidgetT<QPushButton>::themeChanged();
    applyLook();
    if (!m_iconKey.isEmpty())
        setIconKey(m_iconKey);
}

void CPushButton::applyLook()
{
    CUiResource *res = CUiResource::instance();
    const QString textColor = res->getColorSheetByKey(m_colorKey.isEmpty() ? QStringLiteral("clr_text_default") : m_colorKey);
    if (!m_imageKey.isEmpty()) {
        setStyleSheet(QStringLiteral("QPushButton { color: %1; border: none; background: transparent; }").arg(textColor));
        return;
    }
    setStyleSheet(QStringLiteral(
        "QPushButton { color: %1; background: %2; border: 1px solid %3; border-radius: 3px; padding: 2px 8px; }"
        "QPushButton:hover { border-color: %4; background: %5; }"
        "QPushButton:pressed, QPushButton:checked { background: %4; color: %6; border-color: %4; }"
        "QPushButton:disabled { color: %7; background: %8; border-color: %3; }")
        .arg(textColor, res->getColorSheetByKey(QStringLiteral("clr_widget_background")),
             res->getColorSheetByKey(QStringLiteral("clr_widget_border")),
             res->getColorSheetByKey(QStringLiteral("clr_accent")),
             res->getColorSheetByKey(QStringLiteral("clr_basket_param_tab_button_hover")),
             res->getColorSheetByKey(QStringLiteral("clr_global_white")),
             res->getColorSheetByKey(QStringLiteral("clr_text_disabled")),
             res->getColorSheetByKey(QStringLiteral("clr_basket_param_buy_btn_disable"))));
}

void CPushButton::paintEvent(QPaintEvent *event)
{
    if (m_imageKey.isEmpty()) {
        QPushButton::paintEvent(event);
        return;
    }
    QPainter painter(this);
    drawNinePatch(painter, rect(), CUiResource::instance()->getPixmap(m_imageKey), QMargins(3, 3, 3, 3));
    if (!isEnabled())
        painter.fillRect(rect(), QColor(255, 255, 255, 120));
    else if (isDown() || isChecked())
        painter.fillRect(rect(), QColor(47, 124, 246, 50));
    else if (underMouse())
        painter.fillRect(rect(), QColor(47, 124, 246, 22));
    painter.end();

    // Icon and text over the image, as the style draws them.
    QStylePainter stylePainter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    option.features |= QStyleOptionButton::Flat;
    stylePainter.drawControl(QStyle::CE_PushButtonLabel, option);
}

} // namespace WK
