#pragma once

#include "BasketPlatformExport.h"
#include "CBaseWidget.h"

#include <QString>

namespace TC {

// The title bar of a section of the basket form: the title on the left, an arrow on the right
// that points down while the section is collapsed and up while it is expanded. A click anywhere
// on the bar, or Space or Return while it has the focus, expands or collapses the section.
//
// Each toggle by the user delivers event 1137 with the bar's id, value 1 when the section is now
// expanded and 0 when collapsed, and the title as text. setExpanded delivers nothing. A bar
// starts expanded, with a thin line along its top edge.
class BASKET_PLATFORM_EXPORT COpBasketParamsExpandBar final : public WK::CBaseWidget
{
    Q_OBJECT

public:
    static constexpr int kBarHeight = 24;

    COpBasketParamsExpandBar(int id, const QString &title, QWidget *parent);
    ~COpBasketParamsExpandBar() override;

    int id() const { return m_id; }

    QString title() const { return m_title; }
    void setTitle(const QString &title);

    bool isExpanded() const { return m_expanded; }
    void setExpanded(bool expanded);

    void setTopLineVisible(bool visible);
    bool isTopLineVisible() const { return m_topLine; }

    // The image key of the arrow that the bar shows now.
    QString arrowKey() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void enterEvent(QEvent *event) override;
    void leaveEvent(QEvent *event) override;

private:
    void toggleByUser();

    int m_id = 0;
    QString m_title;
    bool m_expanded = true;
    bool m_topLine = true;
    bool m_pressed = false;
    bool m_hovered = false;
};

} // namespace TC
