#pragma once

#include "BasketPlatformExport.h"
#include "CPushButton.h"

#include <QFont>
#include <QString>

class QEvent;
class QPaintEvent;

namespace TC {

// The order button of the client's operation panels: a push button whose colours say what it
// does (buy red, sell green, a plain order blue). It paints the operation text in the font of
// a CUiResource key and, when given, a price line and a volume line under it, each in a font
// of its own key. A press delivers event 5 with the button's id, as every toolkit button does.
class BASKET_PLATFORM_EXPORT COpButton : public WK::CPushButton
{
    Q_OBJECT

public:
    // The colour scheme; a type not listed here looks like an order button.
    enum EOpButtonType {
        OBT_SELL = 0,
        OBT_ORDER = 1,
        OBT_BUY = 3,
    };

    COpButton(int id, int type, QWidget *parent);
    ~COpButton() override;

    int type() const { return m_type; }

    // The operation text turns bold while the mouse is over the button.
    void setBoldOnHover(bool bold);
    bool boldOnHover() const { return m_boldOnHover; }

    // Font keys of the operation text, the price line and the volume line.
    void setFontKeys(const QString &textKey, const QString &priceKey, const QString &volumeKey);
    QString priceFontKey() const { return m_priceFontKey; }
    QString volumeFontKey() const { return m_volumeFontKey; }

    // Lines under the operation text; an empty text leaves its line out.
    void setPriceText(const QString &text);
    QString priceText() const { return m_priceText; }
    void setVolumeText(const QString &text);
    QString volumeText() const { return m_volumeText; }

    // What the button paints with in its present state.
    QString currentBackgroundKey() const;
    QString currentBorderKey() const;
    QString currentTextKey() const;
    QFont currentTextFont() const;
    bool isHovered() const { return m_hovered; }

protected:
    void paintEvent(QPaintEvent *event) override;
    void enterEvent(QEvent *event) override;
    void leaveEvent(QEvent *event) override;

private:
    int m_type = OBT_ORDER;
    bool m_boldOnHover = false;
    bool m_hovered = false;
    QString m_priceFontKey = QStringLiteral("tc_fnt_operation_btn_text_price");
    QString m_volumeFontKey = QStringLiteral("tc_fnt_operation_btn_text_volume");
    QString m_priceText;
    QString m_volumeText;
};

} // namespace TC
