#pragma once

#include "BasketPlatformExport.h"
#include "CPushButton.h"

#include <QString>

namespace TC {

// One vertical tab of the basket form: a checkable button whose text runs top to bottom, one
// character under the other, so that a column 24 pixels wide holds "一键买卖".
//
// It paints itself with colour keys: a background for the normal, pressed (also checked) and
// hovered states, and a text colour for the inactive and the active (checked) tab. A press
// delivers event 5 with the button's id, as every toolkit button does.
class BASKET_PLATFORM_EXPORT CBasketParamTabButton final : public WK::CPushButton
{
    Q_OBJECT

public:
    static constexpr int kTabHeight = 60;
    static constexpr int kTabWidth = 24;

    CBasketParamTabButton(int id, const QString &text, QWidget *parent);
    ~CBasketParamTabButton() override;

    void setBackgroundColorKeys(const QString &normal, const QString &press, const QString &hover);
    void setTextColorKeys(const QString &inactive, const QString &active);

    QString normalColorKey() const { return m_normalKey; }
    QString pressColorKey() const { return m_pressKey; }
    QString hoverColorKey() const { return m_hoverKey; }
    QString inactiveTextColorKey() const { return m_inactiveTextKey; }
    QString activeTextColorKey() const { return m_activeTextKey; }

    // The keys that the button paints with in its present state.
    QString currentBackgroundKey() const;
    QString currentTextKey() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_normalKey = QStringLiteral("clr_basket_param_tab_button_nomal");
    QString m_pressKey = QStringLiteral("clr_basket_param_tab_button_press");
    QString m_hoverKey = QStringLiteral("clr_basket_param_tab_button_hover");
    QString m_inactiveTextKey = QStringLiteral("clr_text_left_tab_inactive");
    QString m_activeTextKey = QStringLiteral("clr_text_left_tab_active");
};

} // namespace TC
