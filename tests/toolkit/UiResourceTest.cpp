#include "CBaseWidget.h"
#include "CUiResource.h"
#include "CUiResourceChangeHandler.h"

#include <gtest/gtest.h>

#include <QImage>

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

class CountingHandler : public WK::CUiResourceChangeHandler
{
public:
    void scaleChanged() override { ++scales; }
    void themeChanged() override { ++themes; }
    int scales = 0;
    int themes = 0;
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

class ResourceKey : public UiResource, public ::testing::WithParamInterface<const char *>
{
};

TEST_P(ResourceKey, everyKeyGivesUsableValues)
{
    const QString key = QString::fromLatin1(GetParam());
    EXPECT_TRUE(res()->getColor(key).isValid());
    EXPECT_FALSE(res()->getColorSheetByKey(key).isEmpty());
    const QPixmap pixmap = res()->getPixmap(key);
    ASSERT_FALSE(pixmap.isNull());
    EXPECT_TRUE(hasVisiblePixels(pixmap));
    EXPECT_GT(res()->getFont(key).pixelSize(), 0);
    EXPECT_GT(res()->getSize(key), 0);
}

INSTANTIATE_TEST_SUITE_P(Toolkit, ResourceKey,
    ::testing::Values("clr_global_rise", "img_white_widget_bg", "tc_img_operation_expand_btn",
                      "tc_img_tree_basket_icon", "fnt_default_normal_fix", "tc_siz_basket_param_close_setting",
                      "clr_never_heard_of", "img_never_heard_of", "tc_img_some_new_expand_btn",
                      "fnt_never_heard_of", "tc_siz_never_heard_of", ""));

TEST_F(UiResource, riseAndBuyAreRedFallAndSellAreGreen)
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

TEST_F(UiResource, unknownBackgroundsAreLightAndUnknownTextsDark)
{
    EXPECT_GT(res()->getColor(QStringLiteral("clr_some_panel_background")).lightness(), 200);
    EXPECT_LT(res()->getColor(QStringLiteral("clr_some_label_text")).lightness(), 100);
}

TEST_F(UiResource, colorSheetIsTheColourInStyleSheetForm)
{
    EXPECT_EQ(res()->getColorSheetByKey(QStringLiteral("clr_global_white")), QStringLiteral("#ffffff"));
    res()->setColor(QStringLiteral("clr_half"), QColor(10, 20, 30, 128));
    EXPECT_EQ(res()->getColorSheetByKey(QStringLiteral("clr_half")), QStringLiteral("rgba(10, 20, 30, 128)"));
}

TEST_F(UiResource, expandAndContractArrowsDiffer)
{
    const QImage down = res()->getPixmap(QStringLiteral("tc_img_operation_expand_btn")).toImage();
    const QImage up = res()->getPixmap(QStringLiteral("tc_img_operation_contract_btn")).toImage();
    EXPECT_NE(down, up);
}

TEST_F(UiResource, scaleIsOneByDefaultAndScalesSizesAndFonts)
{
    EXPECT_DOUBLE_EQ(res()->getUIScale(), 1.0);
    const int size = res()->getSize(QStringLiteral("tc_siz_operation_panel_param_table_width"));
    const int pixels = res()->getFont(QStringLiteral("fnt_default_normal_fix")).pixelSize();

    res()->setUIScale(1.5);
    EXPECT_EQ(res()->getSize(QStringLiteral("tc_siz_operation_panel_param_table_width")), qRound(size * 1.5));
    EXPECT_EQ(res()->getFont(QStringLiteral("fnt_default_normal_fix")).pixelSize(), qRound(pixels * 1.5));
}

TEST_F(UiResource, scaleChangeNotifiesLiveHandlersOnly)
{
    CountingHandler kept;
    auto gone = std::make_unique<CountingHandler>();
    const int before = res()->handlerCount();
    gone.reset();
    EXPECT_EQ(res()->handlerCount(), before - 1);

    res()->setUIScale(1.25);
    res()->setUIScale(1.25);
    EXPECT_EQ(kept.scales, 1) << "an unchanged scale notifies nobody";

    res()->notifyThemeChanged();
    EXPECT_EQ(kept.themes, 1);
}

TEST_F(UiResource, themeOverridesWinAndResetRestoresTheDefaults)
{
    const QColor builtIn = res()->getColor(QStringLiteral("clr_global_rise"));
    res()->setColor(QStringLiteral("clr_global_rise"), Qt::magenta);
    res()->setSize(QStringLiteral("tc_siz_x"), 7);
    EXPECT_EQ(res()->getColor(QStringLiteral("clr_global_rise")), QColor(Qt::magenta));
    EXPECT_EQ(res()->getSize(QStringLiteral("tc_siz_x")), 7);

    res()->resetToDefaults();
    EXPECT_EQ(res()->getColor(QStringLiteral("clr_global_rise")), builtIn);
}

TEST_F(UiResource, widgetWithAFontKeyFollowsTheScale)
{
    WK::CBaseWidget widget(QStringLiteral("w"), false, nullptr);
    widget.setFontKey(QStringLiteral("fnt_default_normal_fix"));
    const int before = widget.font().pixelSize();

    res()->setUIScale(2.0);
    EXPECT_EQ(widget.font().pixelSize(), before * 2);
}

} // namespace
