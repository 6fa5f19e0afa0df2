#include "CJiuGongImageWidget.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <QPixmap>

namespace {

// A 12 by 12 image: red 3-pixel corners, blue edges, green middle.
QPixmap makePatch()
{
    QImage image(12, 12, QImage::Format_ARGB32);
    image.fill(Qt::green);
    for (int y = 0; y < 12; ++y) {
        for (int x = 0; x < 12; ++x) {
            const bool edgeX = x < 3 || x >= 9;
            const bool edgeY = y < 3 || y >= 9;
            if (edgeX && edgeY)
                image.setPixel(x, y, qRgb(255, 0, 0));
            else if (edgeX || edgeY)
                image.setPixel(x, y, qRgb(0, 0, 255));
        }
    }
    return QPixmap::fromImage(image);
}

QImage paint(const QSize &size, const QMargins &margins)
{
    QImage target(size, QImage::Format_ARGB32);
    target.fill(Qt::white);
    QPainter painter(&target);
    WK::drawNinePatch(painter, target.rect(), makePatch(), margins);
    return target;
}

TEST(NinePatch, keepsTheCornersStretchesEdgesAndMiddleAndAlwaysCoversTheTarget)
{
    const QImage out = paint(QSize(100, 60), QMargins(3, 3, 3, 3));
    for (const QPoint p : {QPoint(0, 0), QPoint(2, 2), QPoint(97, 57)})
        EXPECT_EQ(out.pixel(p), qRgb(255, 0, 0)) << p.x() << "," << p.y();
    EXPECT_EQ(out.pixel(50, 1), qRgb(0, 0, 255));
    EXPECT_EQ(out.pixel(1, 30), qRgb(0, 0, 255));
    EXPECT_EQ(out.pixel(50, 30), qRgb(0, 255, 0));

    // Margins larger than the pixmap still leave no pixel unpainted.
    const QImage squeezed = paint(QSize(40, 20), QMargins(2, 28, 2, 27));
    for (const QPoint p : {QPoint(0, 0), QPoint(39, 19), QPoint(20, 10)})
        EXPECT_NE(squeezed.pixel(p), qRgb(255, 255, 255)) << p.x() << "," << p.y();
}

TEST(NinePatch, widgetPaintsItsImage)
{
    WK::CJiuGongImageWidget widget(1, QStringLiteral("img_white_widget_bg"), 2, 28, 2, 27, nullptr);
    widget.resize(120, 80);
    const QImage shot = widget.grab().toImage();
    // The built-in panel image: a white ground inside a light grey border.
    EXPECT_EQ(QColor(shot.pixel(60, 40)), QColor(Qt::white));
    EXPECT_NE(QColor(shot.pixel(60, 0)), QColor(Qt::white));
}

} // namespace
