#include "CUiResource.h"

#include "CUiResourceChangeHandler.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace WK {
namespace {

struct ColorEntry {
    const char *key;
    QRgb rgb;
};

// Theme colours. The spellings of the keys are the panel's own ("nomal", "paramter").
const ColorEntry kColors[] = {
    {"clr_global_rise", 0xffe23c39},
    {"clr_global_fall", 0xff13a15b},
    {"clr_global_white", 0xffffffff},
    {"clr_text_default", 0xff333333},
    {"clr_text_disabled", 0xffb0b4ba},
    {"clr_text_hint", 0xff9aa0a8},
    {"clr_text_left_tab_active", 0xffffffff},
    {"clr_text_left_tab_inactive", 0xff555b64},
    {"clr_accent", 0xff2f7cf6},
    {"clr_clickable_simple_text", 0xff2f7cf6},
    {"clr_widget_background", 0xffffffff},
    {"clr_widget_border", 0xffd9dde3},
    {"clr_graph_background", 0xffffffff},
    {"clr_tool_bar_border", 0xffd9dde3},
    {"clr_tip_background", 0xfffff8e6},
    {"clr_tip_border", 0xffe8c66a},
    {"clr_tip_text", 0xff5c4400},
    {"clr_basket_checkbox_text", 0xff333333},
    {"clr_basket_operation_param_top_tab_background", 0xfff5f7fa},
    {"clr_basket_paramter_cell_quantity", 0xff1e5bc6},
    {"clr_basket_param_buy_btn_nomal", 0xffffffff},
    {"clr_basket_param_buy_btn_hover", 0xfffdeceb},
    {"clr_basket_param_buy_btn_press", 0xffe23c39},
    {"clr_basket_param_buy_btn_disable", 0xfff0f1f3},
    {"clr_basket_param_sell_btn_nomal", 0xffffffff},
    {"clr_basket_param_sell_btn_hover", 0xffe6f6ee},
    {"clr_basket_param_sell_btn_press", 0xff13a15b},
    {"clr_basket_param_sell_btn_disable", 0xfff0f1f3},
    {"clr_basket_param_tab_button_nomal", 0xfff2f4f7},
    {"clr_basket_param_tab_button_hover", 0xffe3ecfb},
    {"clr_basket_param_tab_button_press", 0xff2f7cf6},
    {"clr_param_table_order_mode_active", 0xffffffff},
    {"clr_param_table_order_mode_inactive", 0xff333333},
    {"clr_op_basket_suspend_trade", 0xffe08a00},
    {"clr_scrollbar_background", 0xfff5f6f8},
    {"clr_scrollbar_slider", 0xffc8ccd2},
    {"clr_scrollbar_slider_hover", 0xffaeb4bc},
    {"clr_scrollbar_slider_pressed", 0xff959ca6},
};

struct FontEntry {
    const char *key;
    int pixelSize;
    bool bold;
};

const FontEntry kFonts[] = {
    {"fnt_default_normal", 12, false},
    {"fnt_default_normal_fix", 12, false},
    {"fnt_default_bold", 12, true},
    {"fnt_parameter_cell_text", 12, false},
    {"fnt_parameter_cell_text_weight", 12, true},
    {"fnt_title", 13, true},
    {"tc_fnt_operation_btn_text_option", 14, true},
    {"tc_fnt_operation_btn_text_price", 12, false},
    {"tc_fnt_operation_btn_text_volume", 12, false},
    {"tc_fnt_operation_txt_stop_loss", 12, false},
};

struct SizeEntry {
    const char *key;
    int size;
};

const SizeEntry kSizes[] = {
    {"tc_siz_basket_param_close_setting", 60},
    {"tc_siz_operation_panel_param_table_width", 330},
};

enum class PixmapKind { ArrowDown, ArrowUp, Panel, Button, ToolBar, Bar, Gear, Basket, Plain };

struct PixmapEntry {
    const char *key;
    PixmapKind kind;
};

const PixmapEntry kPixmaps[] = {
    {"img_btn_small_normal", PixmapKind::Button},
    {"img_white_widget_bg", PixmapKind::Panel},
    {"tc_img_btn_set_small", PixmapKind::Gear},
    {"tc_img_operation_expand_btn", PixmapKind::ArrowDown},
    {"tc_img_operation_contract_btn", PixmapKind::ArrowUp},
    {"tc_img_operation_showhide_btn", PixmapKind::Bar},
    {"tc_img_tree_basket_icon", PixmapKind::Basket},
    {"tc_img_widget_list_default_bg", PixmapKind::ToolBar},
};

bool has(const QString &key, const char *word)
{
    return key.contains(QLatin1String(word), Qt::CaseInsensitive);
}

// An unknown colour key is guessed from its words, most telling first; the fallback is the
// text colour, the commonest use of a colour key.
QColor guessColor(const QString &key)
{
    if (has(key, "disable"))
        return QColor(0xb0, 0xb4, 0xba);
    if (has(key, "rise") || has(key, "buy") || has(key, "up_"))
        return QColor(0xe2, 0x3c, 0x39);
    if (has(key, "fall") || has(key, "sell") || has(key, "down_"))
        return QColor(0x13, 0xa1, 0x5b);
    if (has(key, "border") || has(key, "line") || has(key, "separator") || has(key, "grid"))
        return QColor(0xd9, 0xdd, 0xe3);
    if (has(key, "hover"))
        return QColor(0xe3, 0xec, 0xfb);
    if (has(key, "press") || has(key, "select") || has(key, "active") || has(key, "link")
        || has(key, "click") || has(key, "focus"))
        return QColor(0x2f, 0x7c, 0xf6);
    if (has(key, "background") || has(key, "_bg") || has(key, "white") || has(key, "nomal")
        || has(key, "normal"))
        return QColor(Qt::white);
    if (has(key, "hint") || has(key, "gray") || has(key, "grey"))
        return QColor(0x9a, 0xa0, 0xa8);
    return QColor(0x33, 0x33, 0x33);
}

PixmapKind guessPixmapKind(const QString &key)
{
    if (has(key, "expand") || has(key, "down"))
        return PixmapKind::ArrowDown;
    if (has(key, "contract") || has(key, "collapse") || has(key, "_up"))
        return PixmapKind::ArrowUp;
    if (has(key, "tool_bar") || has(key, "toolbar") || has(key, "list"))
        return PixmapKind::ToolBar;
    if (has(key, "_bg") || has(key, "background"))
        return PixmapKind::Panel;
    if (has(key, "btn") || has(key, "button"))
        return PixmapKind::Button;
    if (has(key, "set"))
        return PixmapKind::Gear;
    return PixmapKind::Plain;
}

void drawArrow(QPainter &p, const QSize &size, bool down)
{
    QPen pen(QColor(0x8a, 0x91, 0x9c), 1.6);
    pen.setCapStyle(Qt::RoundCap);
    pen.setJoinStyle(Qt::RoundJoin);
    p.setPen(pen);
    const qreal w = size.width();
    const qreal h = size.height();
    const qreal y1 = down ? h * 0.35 : h * 0.65;
    const qreal y2 = down ? h * 0.65 : h * 0.35;
    QPainterPath path;
    path.moveTo(w * 0.25, y1);
    path.lineTo(w * 0.5, y2);
    path.lineTo(w * 0.75, y1);
    p.drawPath(path);
}

void drawBox(QPainter &p, const QSize &size, const QColor &top, const QColor &bottom,
             const QColor &border, qreal radius)
{
    QLinearGradient gradient(0, 0, 0, size.height());
    gradient.setColorAt(0, top);
    gradient.setColorAt(1, bottom);
    p.setPen(QPen(border, 1));
    p.setBrush(gradient);
    p.drawRoundedRect(QRectF(0.5, 0.5, size.width() - 1, size.height() - 1), radius, radius);
}

QPixmap generatePixmap(PixmapKind kind)
{
    QSize size(16, 16);
    switch (kind) {
    case PixmapKind::ArrowDown:
    case PixmapKind::ArrowUp:
        size = QSize(12, 12);
        break;
    case PixmapKind::Panel:
        size = QSize(60, 60);
        break;
    case PixmapKind::Button:
        size = QSize(60, 24);
        break;
    case PixmapKind::ToolBar:
        size = QSize(60, 24);
        break;
    case PixmapKind::Bar:
        size = QSize(40, 10);
        break;
    case PixmapKind::Gear:
    case PixmapKind::Basket:
    case PixmapKind::Plain:
        break;
    }
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing);
    switch (kind) {
    case PixmapKind::ArrowDown:
        drawArrow(p, size, true);
        break;
    case PixmapKind::ArrowUp:
        drawArrow(p, size, false);
        break;
    case PixmapKind::Panel:
        drawBox(p, size, Qt::white, Qt::white, QColor(0xd9, 0xdd, 0xe3), 3);
        break;
    case PixmapKind::Button:
        drawBox(p, size, Qt::white, QColor(0xf1, 0xf3, 0xf6), QColor(0xc9, 0xce, 0xd6), 3);
        break;
    case PixmapKind::ToolBar:
        drawBox(p, size, QColor(0xf7, 0xf8, 0xfa), QColor(0xf2, 0xf4, 0xf7), QColor(0xdf, 0xe2, 0xe7), 2);
        break;
    case PixmapKind::Bar:
        drawBox(p, size, QColor(0xf2, 0xf4, 0xf7), QColor(0xe8, 0xeb, 0xf0), QColor(0xd9, 0xdd, 0xe3), 2);
        break;
    case PixmapKind::Gear: {
        const QColor grey(0x6b, 0x72, 0x7c);
        p.setPen(QPen(grey, 2.2, Qt::SolidLine, Qt::RoundCap));
        const QPointF c(8, 8);
        for (int i = 0; i < 8; ++i) {
            const qreal a = i * M_PI / 4;
            p.drawLine(c + QPointF(std::cos(a) * 4.5, std::sin(a) * 4.5), c + QPointF(std::cos(a) * 6.5, std::sin(a) * 6.5));
        }
        p.setPen(QPen(grey, 1.6));
        p.setBrush(Qt::NoBrush);
        p.drawEllipse(c, 4.2, 4.2);
        p.drawEllipse(c, 1.6, 1.6);
        break;
    }
    case PixmapKind::Basket: {
        const QColor blue(0x2f, 0x7c, 0xf6);
        p.setPen(QPen(blue, 1.3));
        p.setBrush(QColor(0xe3, 0xec, 0xfb));
        p.drawRoundedRect(QRectF(2.5, 6.5, 11, 7), 1.5, 1.5);
        p.setBrush(Qt::NoBrush);
        p.drawArc(QRectF(4.5, 2.5, 7, 8), 0, 180 * 16);
        break;
    }
    case PixmapKind::Plain:
        drawBox(p, size, QColor(0xee, 0xf1, 0xf5), QColor(0xe6, 0xe9, 0xee), QColor(0xc9, 0xce, 0xd6), 3);
        break;
    }
    return pixmap;
}

} // namespace

CUiResource *CUiResource::instance()
{
    static CUiResource resource;
    return &resource;
}

CUiResource::CUiResource()
{
    resetToDefaults();
}

QColor CUiResource::getColor(const QString &key) const
{
    const auto it = m_colors.constFind(key);
    if (it != m_colors.constEnd() && it->isValid())
        return *it;
    return guessColor(key);
}

QString CUiResource::getColorSheetByKey(const QString &key) const
{
    const QColor color = getColor(key);
    if (color.alpha() == 255)
        return color.name(QColor::HexRgb);
    return QStringLiteral("rgba(%1, %2, %3, %4)")
        .arg(color.red())
        .arg(color.green())
        .arg(color.blue())
        .arg(color.alpha());
}

QPixmap CUiResource::getPixmap(const QString &key) const
{
    const auto given = m_pixmaps.constFind(key);
    if (given != m_pixmaps.constEnd() && !given->isNull())
        return *given;
    const auto cached = m_generatedPixmaps.constFind(key);
    if (cached != m_generatedPixmaps.constEnd())
        return *cached;

    PixmapKind kind = guessPixmapKind(key);
    for (const PixmapEntry &entry : kPixmaps) {
        if (key == QLatin1String(entry.key)) {
            kind = entry.kind;
            break;
        }
    }
    const QPixmap pixmap = generatePixmap(kind);
    m_generatedPixmaps.insert(key, pixmap);
    return pixmap;
}

QFont CUiResource::getFont(const QString &key) const
{
    QFont font;
    const auto given = m_fonts.constFind(key);
    if (given != m_fonts.constEnd()) {
        font = *given;
    } else {
        int pixelSize = 12;
        bool bold = has(key, "bold") || has(key, "weight");
        bool found = false;
        for (const FontEntry &entry : kFonts) {
            if (key == QLatin1String(entry.key)) {
                pixelSize = entry.pixelSize;
                bold = entry.bold;
                found = true;
                break;
            }
        }
        if (!found && has(key, "title"))
            pixelSize = 13;
        if (qobject_cast<QGuiApplication *>(QCoreApplication::instance()))
            font = QGuiApplication::font();
        font.setPixelSize(pixelSize);
        font.setBold(bold);
    }
    if (font.pixelSize() > 0)
        font.setPixelSize(std::max(1, static_cast<int>(std::lround(font.pixelSize() * m_scale))));
    else if (font.pointSizeF() > 0)
        font.setPointSizeF(font.pointSizeF() * m_scale);
    return font;
}

int CUiResource::getSize(const QString &key) const
{
    int size = 0;
    const auto it = m_sizes.constFind(key);
    if (it != m_sizes.constEnd())
        size = *it;
    else if (has(key, "width"))
        size = 100;
    else
        size = 24; // a row height: the commonest unknown size
    return static_cast<int>(std::lround(size * m_scale));
}

void CUiResource::setUIScale(double scale)
{
    if (!std::isfinite(scale))
        return;
    scale = std::clamp(scale, 0.5, 4.0);
    if (std::fabs(scale - m_scale) < 1e-9)
        return;
    m_scale = scale;
    const std::vector<CUiResourceChangeHandler *> handlers = m_handlers;
    for (CUiResourceChangeHandler *handler : handlers) {
        // A handler may delete others while it reacts.
        if (isRegistered(handler))
            handler->scaleChanged();
    }
}

void CUiResource::setColor(const QString &key, const QColor &color)
{
    m_colors.insert(key, color);
}

void CUiResource::setPixmap(const QString &key, const QPixmap &pixmap)
{
    m_pixmaps.insert(key, pixmap);
}

void CUiResource::setFont(const QString &key, const QFont &font)
{
    m_fonts.insert(key, font);
}

void CUiResource::setSize(const QString &key, int size)
{
    m_sizes.insert(key, size);
}

void CUiResource::notifyThemeChanged()
{
    const std::vector<CUiResourceChangeHandler *> handlers = m_handlers;
    for (CUiResourceChangeHandler *handler : handlers) {
        if (isRegistered(handler))
            handler->themeChanged();
    }
}

void CUiResource::resetToDefaults()
{
    m_colors.clear();
    m_pixmaps.clear();
    m_fonts.clear();
    m_sizes.clear();
    for (const ColorEntry &entry : kColors)
        m_colors.insert(QLatin1String(entry.key), QColor::fromRgba(entry.rgb));
    for (const SizeEntry &entry : kSizes)
        m_sizes.insert(QLatin1String(entry.key), entry.size);
    setUIScale(1.0);
    notifyThemeChanged();
}

void CUiResource::registerHandler(CUiResourceChangeHandler *handler)
{
    if (handler && !isRegistered(handler))
        m_handlers.push_back(handler);
}

void CUiResource::unregisterHandler(CUiResourceChangeHandler *handler)
{
    m_handlers.erase(std::remove(m_handlers.begin(), m_handlers.end(), handler), m_handlers.end());
}

bool CUiResource::isRegistered(const CUiResourceChangeHandler *handler) const
{
    return std::find(m_handlers.begin(), m_handlers.end(), handler) != m_handlers.end();
}

} // namespace WK
