#include "COpButton.h"

#include "CUiResource.h"

#include <QEvent>
#include <QFontMetrics>
#include <QPainter>

#include <utility>
#include <vector>

namespace TC {
namespace {

struct ColorScheme {
    const char *normal;
    const char *hover;
    const char *press;
    const char *disable;
    const char *text;
};

const ColorScheme kBuyScheme = {"clr_basket_param_buy_btn_nomal", "clr_basket_param_buy_btn_hover",
                                "clr_basket_param_buy_btn_press", "clr_basket_param_buy_btn_disable",
                                "clr_global_rise"};
const ColorScheme kSellScheme = {"clr_basket_param_sell_btn_nomal", "clr_basket_param_sell_btn_hover",
                                 "clr_basket_param_sell_btn_press", "clr_basket_param_sell_btn_disable",
                                 "clr_global_fall"};
// A neutral grey for the disabled order button: the guessed colour of an unknown "disable" key
// is as dark as the disabled text and would swallow it.
const ColorScheme kOrderScheme = {"clr_basket_param_order_btn_nomal", "clr_basket_param_order_btn_hover",
                                  "clr_basket_param_order_btn_press", "clr_basket_param_tab_button_nomal",
                                  "clr_accent"};

const ColorScheme &schemeOf(int type)
{
    switch (type) {
    case COpButton::OBT_BUY:
        return kBuyScheme;
    case COpButton::OBT_SELL:
        return kSellScheme;
    default:
        return kOrderScheme;
    }
}

constexpr int kLineGap = 2;

} // namespace

COpButton::COpButton(int id, int type, QWidget *parent)
    : WK::CPushButton(id, parent)
    , m_type(type)
{
    setObjectName(QStringLiteral("op_button"));
    setAttribute(Qt::WA_Hover);
    setFontKey(QStringLiteral("tc_fnt_operation_btn_text_option"));
}

COpButton::~COpButton() = default;

void COpButton::setBoldOnHover(bool bold)
{
    m_boldOnHover = bold;
    update();
}

void COpButton::setFontKeys(const QString &textKey, const QString &priceKey, const QString &volumeKey)
{
    setFontKey(textKey);
    m_priceFontKey = priceKey;
    m_volumeFontKey = volumeKey;
    update();
}

void COpButton::setPriceText(const QString &text)
{
    m_priceText = text;
    update();
}

void COpButton::setVolumeText(const QString &text)
{
    m_volumeText = text;
    update();
}

QString COpButton::currentBackgroundKey() const
{
    const ColorScheme &scheme = schemeOf(m_type);
    if (!isEnabled())
        return QLatin1String(scheme.disable);
    if (isDown())
        return QLatin1String(scheme.press);
    return QLatin1String(m_hovered ? scheme.hover : scheme.normal);
}

QString COpButton::currentBorderKey() const
{
    return isEnabled() ? QLatin1String(schemeOf(m_type).press) : QStringLiteral("clr_widget_border");
}

QString COpButton::currentTextKey() const
{
    if (!isEnabled())
        return QStringLiteral("clr_text_disabled");
    return isDown() ? QStringLiteral("clr_global_white") : QLatin1String(schemeOf(m_type).text);
}

QFont COpButton::currentTextFont() const
{
    QFont f = font();
    if (m_boldOnHover && m_hovered && isEnabled())
        f.setBold(true);
    return f;
}

void COpButton::paintEvent(QPaintEvent *)
{
    WK::CUiResource *res = WK::CUiResource::instance();
    QPainter painter(this);
    painter.fillRect(rect(), res->getColor(currentBackgroundKey()));
    painter.setPen(res->getColor(currentBorderKey()));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));

    std::vector<std::pair<QString, QFont>> lines;
    lines.emplace_back(text(), currentTextFont());
    if (!m_priceText.isEmpty())
        lines.emplace_back(m_priceText, res->getFont(m_priceFontKey));
    if (!m_volumeText.isEmpty())
        lines.emplace_back(m_volumeText, res->getFont(m_volumeFontKey));

    int total = 0;
    for (const auto &line : lines)
        total += QFontMetrics(line.second).height();
    total += kLineGap * (static_cast<int>(lines.size()) - 1);

    painter.setPen(res->getColor(currentTextKey()));
    int y = (height() - total) / 2;
    for (const auto &[lineText, lineFont] : lines) {
        const QFontMetrics metrics(lineFont);
        painter.setFont(lineFont);
        const QRect area(2, y, width() - 4, metrics.height());
        painter.drawText(area, Qt::AlignCenter, metrics.elidedText(lineText, Qt::ElideRight, area.width()));
        y += metrics.height() + kLineGap;
    }
}

void COpButton::enterEvent(QEvent *event)
{
    m_hovered = true;
    update();
    WK::CPushButton::enterEvent(event);
}

void COpButton::leaveEvent(QEvent *event)
{
    m_hovered = false;
    update();
    WK::CPushButton::leaveEvent(event);
}

} // namespace TC
