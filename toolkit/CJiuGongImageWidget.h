#pragma once

#include "BasketToolkitExport.h"
#include "CBaseWidget.h"

#include <QMargins>

class QPainter;
class QPixmap;

namespace WK {

// Paints the pixmap over the target as a nine-patch: the corners as they are, the edges
// stretched along, the middle stretched both ways. The margins are the corner sizes in the
// pixmap; they shrink to fit a pixmap or target too small for them.
void drawNinePatch(QPainter &painter, const QRect &target, const QPixmap &pixmap, const QMargins &margins);

// A container whose background is a CUiResource image painted as a nine-patch (a white panel
// with a thin border in the built-in theme).
class BASKET_TOOLKIT_EXPORT CJiuGongImageWidget : public CBaseWidget
{
    Q_OBJECT

public:
    // style: 1 paints the image; 0 leaves the background to the parent (a plain container).
    // left, top, right, bottom: the corner sizes in the image.
    CJiuGongImageWidget(int style, const QString &imageKey, int left, int top, int right, int bottom,
                        QWidget *parent);
    ~CJiuGongImageWidget() override;

    void setImageKey(const QString &key);
    QString imageKey() const { return m_imageKey; }
    QMargins imageMargins() const { return m_margins; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    int m_style = 1;
    QString m_imageKey;
    QMargins m_margins;
};

} // namespace WK
