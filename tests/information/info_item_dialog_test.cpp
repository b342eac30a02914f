#include "information/CInfoItemDialog.h"

#include "platform/resources/CUiResource.h"
#include "platform/utils/CSingletonT.h"

#include <gtest/gtest.h>

using namespace Kel;

TEST(InfoItemDialog, HasItsTitleAndSizesFromTheTheme)
{
    auto& dialog = utils::CSingletonT<CInfoItemDialog>::instance();
    const auto& resource = utils::CSingletonT<Zeb::CUiResource>::instance();
    EXPECT_EQ(dialog.title(), QStringLiteral("资讯信息"));
    EXPECT_EQ(dialog.minimumSize(), QSize(resource.getSize("kel_siz_information_widget_width"),
                                          resource.getSize("kel_siz_information_widget_height")));
    EXPECT_EQ(dialog.size(), QSize(resource.getSize("kel_siz_mainwindow_width_min"),
                                   resource.getSize("kel_siz_mainwindow_height_min")));
}

TEST(InfoItemDialog, ShowsNoItem)
{
    auto& dialog = utils::CSingletonT<CInfoItemDialog>::instance();
    dialog.showInfoItem("title", "text");
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.title(), QStringLiteral("资讯信息"));
}
