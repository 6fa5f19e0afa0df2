#pragma once

#include "BasketToolkitExport.h"

#include <QColor>
#include <QFont>
#include <QHash>
#include <QPixmap>
#include <QString>

#include <vector>

namespace WK {

class CUiResourceChangeHandler;

// Colours, fonts, images and sizes of the user interface, by key: "clr_..." colours,
// "img_..." and "tc_img_..." images, "fnt_..." and "tc_fnt_..." fonts, "tc_siz_..." sizes.
// A built-in light theme covers the keys the panel uses; any other key still gets a usable
// value (never an invalid colour, a null pixmap or a zero font), guessed from the words of the
// key, so that the panel looks right without the client's theme files.
//
// The theme: white backgrounds, dark grey text, blue accents, and the market's colours of rise
// and fall: red for buy and rise, green for sell and fall.
//
// A plain singleton, used on the user-interface thread only.
class BASKET_TOOLKIT_EXPORT CUiResource final
{
public:
    static CUiResource *instance();

    CUiResource(const CUiResource &) = delete;
    CUiResource &operator=(const CUiResource &) = delete;

    QColor getColor(const QString &key) const;
    // The colour of the key in style-sheet form: "#rrggbb", or "rgba(r, g, b, a)" when it is
    // not opaque.
    QString getColorSheetByKey(const QString &key) const;
    QPixmap getPixmap(const QString &key) const;
    // The font of the key at the present scale.
    QFont getFont(const QString &key) const;
    // The size of the key in pixels at the present scale.
    int getSize(const QString &key) const;
    // 1.0 unless the client sets another scale.
    double getUIScale() const { return m_scale; }

    // Control surface for the client's theme and for the demo. Setting a value replaces the
    // built-in one; nothing is notified until notifyThemeChanged.
    void setUIScale(double scale); // kept within 0.5 to 4; notifies scaleChanged on a change
    void setColor(const QString &key, const QColor &color);
    void setPixmap(const QString &key, const QPixmap &pixmap);
    void setFont(const QString &key, const QFont &font); // the font as it is at scale 1
    void setSize(const QString &key, int size);          // the size at scale 1
    void notifyThemeChanged();
    // Back to the built-in theme at scale 1; handlers are notified of what changed.
    void resetToDefaults();

    // Handlers register themselves for their lifetime (CUiResourceChangeHandler does it).
    void registerHandler(CUiResourceChangeHandler *handler);
    void unregisterHandler(CUiResourceChangeHandler *handler);
    int handlerCount() const { return static_cast<int>(m_handlers.size()); }

private:
    CUiResource();

    bool isRegistered(const CUiResourceChangeHandler *handler) const;

    QHash<QString, QColor> m_colors;
    QHash<QString, QPixmap> m_pixmaps;
    QHash<QString, QFont> m_fonts;
    QHash<QString, int> m_sizes;
    mutable QHash<QString, QPixmap> m_generatedPixmaps;
    std::vector<CUiResourceChangeHandler *> m_handlers;
    double m_scale = 1.0;
};

} // namespace WK
