#include "CBaseWidget.h"
#include "CJiuGongImageWidget.h"
#include "CUiResource.h"
#include "CUiResourceChangeHandler.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <QPixmap>

#include <memory>

namespace {

WK::CUiResource *res()
{
    return WK::CUiResource::instance();
}

class UiResource : public ::testing::Test
{
protected:
    void SetUp() override { res()->resetToDefaults(); }
    void TearDown() override { res()->resetToDefaults(); }
};

bool hasVisiblePixels(const QPixmap &pixmap)
{
    const QImage image = pixmap.toImage();
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) > 0)
                return true;
        }
    }
    return false;
}

TEST_F(UiResource, everyKeyKnownOrNotGivesUsableValues)
{
    for (const char *key : {"clr_global_rise", "img_white_widget_bg", "tc_img_operation_expand_btn",
                            "tc_img_tree_basket_icon", "fnt_default_normal_fix", "tc_siz_basket_param_close_setting",
                            "clr_never_heard_of", "img_never_heard_of", "tc_img_some_new_expand_btn",
                            "fnt_never_heard_of", "tc_siz_never_heard_of", ""}) {
        SCOPED_TRACE(key);
        const QString k = QString::fromLatin1(key);
        EXPECT_TRUE(res()->getColor(k).isValid());
        EXPECT_FALSE(res()->getColorSheetByKey(k).isEmpty());
        const QPixmap pixmap = res()->getPixmap(k);
        ASSERT_FALSE(pixmap.isNull());
        EXPECT_TRUE(hasVisiblePixels(pixmap));
        EXPECT_GT(res()->getFont(k).pixelSize(), 0);
        EXPECT_GT(res()->getSize(k), 0);
    }
    EXPECT_NE(res()->getPixmap(QStringLiteral("tc_img_operation_expand_btn")).toImage(),
              res()->getPixmap(QStringLiteral("tc_img_operation_contract_btn")).toImage());
}

TEST_F(UiResource, unknownColoursOfRiseAndBuyAreRedAndOfFallAndSellGreenAsTheTradersReadThem)
{
    for (const char *key : {"clr_global_rise", "clr_basket_param_buy_btn_press", "clr_unknown_rise_text"}) {
        const QColor c = res()->getColor(QString::fromLatin1(key));
        EXPECT_GT(c.red(), c.green() + 80) << key;
    }
    for (const char *key : {"clr_global_fall", "clr_basket_param_sell_btn_press", "clr_unknown_fall_text"}) {
        const QColor c = res()->getColor(QString::fromLatin1(key));
        EXPECT_GT(c.green(), c.red() + 80) << key;
    }
}

TEST_F(UiResource, scaleMultipliesSizesAndFontsAndWidgetsWithAFontKeyFollow)
{
    const QString sizeKey = QStringLiteral("tc_siz_operation_panel_param_table_width");
    const QString fontKey = QStringLiteral("fnt_default_normal_fix");
    const int size = res()->getSize(sizeKey);
    const int pixels = res()->getFont(fontKey).pixelSize();
    WK::CBaseWidget widget(QStringLiteral("w"), false, nullptr);
    widget.setFontKey(fontKey);
    EXPECT_EQ(widget.font().pixelSize(), pixels);

    res()->setUIScale(1.5);
    EXPECT_EQ(res()->getSize(sizeKey), qRound(size * 1.5));
    EXPECT_EQ(res()->getFont(fontKey).pixelSize(), qRound(pixels * 1.5));
    EXPECT_EQ(widget.font().pixelSize(), qRound(pixels * 1.5));
}

TEST_F(UiResource, scaleChangeNotifiesLiveHandlersOnlyOnAChangeAndResetRestoresTheDefaults)
{
    struct Counting : WK::CUiResourceChangeHandler {
        void scaleChanged() override { ++scales; }
        void themeChanged() override { ++themes; }
        int scales = 0;
        int themes = 0;
    };
    Counting kept;
    auto gone = std::make_unique<Counting>();
    const int before = res()->handlerCount();
    gone.reset();
    EXPECT_EQ(res()->handlerCount(), before - 1);

    res()->setUIScale(1.25);
    res()->setUIScale(1.25);
    EXPECT_EQ(kept.scales, 1) << "an unchanged scale notifies nobody";
    res()->notifyThemeChanged();
    EXPECT_EQ(kept.themes, 1);

    // Overrides win until a reset brings back the built-in values and the scale of 1.
    const QColor builtIn = res()->getColor(QStringLiteral("clr_global_rise"));
    res()->setColor(QStringLiteral("clr_global_rise"), Qt::magenta);
    res()->setSize(QStringLiteral("tc_siz_x"), 7);
    res()->setUIScale(2.0);
    EXPECT_EQ(res()->getColor(QStringLiteral("clr_global_rise")), QColor(Qt::magenta));
    EXPECT_EQ(res()->getSize(QStringLiteral("tc_siz_x")), 14);
    res()->resetToDefaults();
    EXPECT_EQ(res()->getColor(QStringLiteral("clr_global_rise")), builtIn);
    EXPECT_DOUBLE_EQ(res()->getUIScale(), 1.0);
}

// A 12 by 12 image with red 3-pixel corners, blue edges and a green middle, drawn into a target
// of the given size.
QImage paint(const QSize &size, const QMargins &margins)
{
    QImage patch(12, 12, QImage::Format_ARGB32);
    for (int y = 0; y < 12; ++y) {
        for (int x = 0; x < 12; ++x) {
            const int edges = (x < 3 || x >= 9) + (y < 3 || y >= 9);
            patch.setPixel(x, y, edges == 2 ? qRgb(255, 0, 0) : edges == 1 ? qRgb(0, 0, 255) : qRgb(0, 255, 0));
        }
    }
    QImage target(size, QImage::Format_ARGB32);
    target.fill(Qt::white);
    QPainter painter(&target);
    WK::drawNinePatch(painter, target.rect(), QPixmap::fromImage(patch), margins);
    return target;
}

TEST(NinePatch, keepsTheCornersStretchesEdgesAndMiddleAndAlwaysCoversTheTarget)
{
    const QImage out = paint(QSize(100, 60), QMargins(3, 3, 3, 3));
    const std::pair<QPoint, QRgb> rows[] = {{QPoint(0, 0), qRgb(255, 0, 0)},  {QPoint(2, 2), qRgb(255, 0, 0)},
                                            {QPoint(97, 57), qRgb(255, 0, 0)}, {QPoint(50, 1), qRgb(0, 0, 255)},
                                            {QPoint(1, 30), qRgb(0, 0, 255)},  {QPoint(50, 30), qRgb(0, 255, 0)}};
    for (const auto &row : rows)
        EXPECT_EQ(out.pixel(row.first), row.second) << row.first.x() << "," << row.first.y();

    // Margins larger than the pixmap still leave no pixel unpainted.
    const QImage squeezed = paint(QSize(40, 20), QMargins(2, 28, 2, 27));
    for (const QPoint p : {QPoint(0, 0), QPoint(39, 19), QPoint(20, 10)})
        EXPECT_NE(squeezed.pixel(p), qRgb(255, 255, 255)) << p.x() << "," << p.y();
}

} // namespace
