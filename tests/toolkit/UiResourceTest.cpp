// Every style key, known or not, gives a usable colour, sheet, picture, font and size: a key
// the build does not know must never leave a control blank.
#include "CUiResource.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPixmap>

namespace {

WK::CUiResource *res()
{
    return WK::CUiResource::instance();
}

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

TEST(UiResource, everyKeyKnownOrNotGivesUsableValues)
{
    res()->resetToDefaults();
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

} // namespace
