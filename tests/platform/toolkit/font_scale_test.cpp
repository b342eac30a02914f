// Fonts at a share of their usual size.

#include "platform/resources/CUiResource.h"
#include "platform/resources/CUiResourceChangeHandler.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

TEST(FontScale, IsTheShareOfTheUsualPixels)
{
    Zeb::CUiResource resource;
    const QFont* font = resource.getFont(QStringLiteral("fnt_default_normal_fix"));
    EXPECT_EQ(font->pixelSize(), 12);
    EXPECT_TRUE(resource.setFontScale(1.5));
    EXPECT_EQ(font->pixelSize(), 18) << "the address stays";
    EXPECT_TRUE(resource.setFontScale(0.8));
    EXPECT_EQ(font->pixelSize(), 10);
    EXPECT_EQ(resource.fontScale(), 0.8);
}

TEST(FontScale, StaysWithTheNextTheme)
{
    Zeb::CUiResource resource;
    resource.setFontScale(2);
    ASSERT_TRUE(resource.setTheme(QStringLiteral("light")));
    EXPECT_EQ(resource.getFont(QStringLiteral("fnt_default_normal_fix"))->pixelSize(), 24);
}

TEST(FontScale, TakesTheHeightOfTextLinesAlongAndNoOtherSize)
{
    Zeb::CUiResource resource;
    const int bar = resource.getSize(QStringLiteral("siz_scroll_bar_width"));
    resource.setFontScale(1.5);
    EXPECT_EQ(resource.getSize(QStringLiteral("siz_dialog_title_height")), 42);
    EXPECT_EQ(resource.getSize(QStringLiteral("siz_scroll_bar_width")), bar);
}

TEST(FontScale, OutOfItsRangeIsRefused)
{
    Zeb::CUiResource resource;
    for (const double wrong : {0.49, 3.01, 0.0, -1.0, std::nan(""), std::numeric_limits<double>::infinity()})
        EXPECT_FALSE(resource.setFontScale(wrong)) << wrong;
    EXPECT_EQ(resource.fontScale(), 1);
    EXPECT_TRUE(resource.setFontScale(0.5));
    EXPECT_TRUE(resource.setFontScale(3));
}

} // namespace
