#include "CJiuGongImageWidget.h"

#include "CUiResource.h"

#include <QPainter>
#include <QPixmap>

#include <algorithm>

namespace WK {

void drawNinePatch(QPainter &painter, const QRect &target, const QPixmap &pixmap, const QMargins &margins)
{
    if (pixmap.isNull() || target.isEmpty())
        return;
    const int pw = pixmap.width();
    const int ph = pixmap.height();
    // Corners keep at least one pixel of the pixmap for the middle, and take at most half of the
    // target each way.
    const int l = std::clamp(margins.left(), 0, std::min((pw - 1) / 2, target.width() / 2));
    const int r = std::clamp(margins.right(), 0, std::min(pw - 1 - l, target.width() - l));
    const int t = std::clamp(margins.top(), 0, std::min((ph - 1) / 2, target.height() / 2));
    const int b = std::clamp(margins.bottom(), 0, std::min(ph - 1 - t, target.height() - t));

    const int xs[] = {0, l, pw - r, pw};
    const int ys[] = {0, t, ph - b, ph};
    const int xd[] = {target.left(), target.left() + l, target.right() + 1 - r, target.right() + 1};
    const int yd[] = {target.top(), target.top() + t, target.bottom() + 1 - b, target.bottom() + 1};
    for (int row = 0; row < 3; ++row) {
        for (int col = 0; col < 3; ++col) {
            const QRect source(xs[col], ys[row], xs[col + 1] - xs[col], ys[row + 1] - ys[row]);
            const QRect dest(xd[col], yd[row], xd[col + 1] - xd[col], yd[row + 1] - yd[row]);
            if (!source.isEmpty() && !dest.isEmpty())
                painter.drawPixmap(dest, pixmap, source);
        }
    }
}

CJiuGongImageWidget::CJiuGongImageWidget(int style, const QString &imageKey, int left, int top, int right,
                                         int bottom, QWidget *parent)
    : CBaseWidget(QStringLiteral("jiugong_image_widget"), false, parent)
    , m_style(style)
    , m_imageKey(imageKey)
    , m_margins(left, top, right, bottom)
{
}

CJiuGongImageWidget::~CJiuGongImageWidget() = default;

void CJiuGongImageWidget::setImageKey(const QString &key)
{
    m_imageKey = key;
    update();
}

void CJiuGongImageWidget::paintEvent(QPaintEvent *event)
{
    if (m_style != 0 && !m_imageKey.isEmpty()) {
        QPainter painter(this);
        drawNinePatch(painter, rect(), CUiResource::instance()->getPixmap(m_imageKey), m_margins);
    }
    CBaseWidget::paintEvent(event);
}

} // namespace WK
