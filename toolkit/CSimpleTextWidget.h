#pragma once

#include "BasketToolkitExport.h"
#include "CBaseWidget.h"

namespace WK {

// One line of text in a colour and font of CUiResource keys. Its size hint is the width of its
// text (up to the width given with the text), so in a CWidgetList it takes just the room it
// needs; a longer text is elided. A click delivers event 9 with the id; a clickable text also
// looks like a link (pointing hand, underlined under the mouse).
class BASKET_TOOLKIT_EXPORT CSimpleTextWidget : public CBaseWidget
{
    Q_OBJECT

public:
    explicit CSimpleTextWidget(QWidget *parent);
    CSimpleTextWidget(int id, const QString &text, QWidget *parent);
    ~CSimpleTextWidget() override;

    int id() const { return m_id; }
    void setId(int id) { m_id = id; }

    // maxWidth: the widest the widget asks to be, in pixels.
    void setText(const QString &text, int maxWidth);
    void setText(const QString &text) { setText(text, m_maxWidth); }
    QString text() const { return m_text; }

    void setColorKey(const QString &key);
    QString colorKey() const { return m_colorKey; }
    void setFontKey(const QString &key) override;
    void setAlignment(Qt::Alignment alignment);
    void setClickable(bool clickable);
    bool isClickable() const { return m_clickable; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void enterEvent(QEvent *event) override;
    void leaveEvent(QEvent *event) override;

private:
    int m_id = 0;
    QString m_text;
    int m_maxWidth = 100000;
    QString m_colorKey = QStringLiteral("clr_text_default");
    Qt::Alignment m_alignment = Qt::AlignLeft | Qt::AlignVCenter;
    bool m_clickable = false;
    bool m_pressed = false;
    bool m_hovered = false;
};

} // namespace WK
