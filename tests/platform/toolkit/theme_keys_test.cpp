// Every key that the code asks for, and every key that panels are promised, is in every theme.

#include "platform/resources/CUiResource.h"
#include "platform/toolkit/theme_guard.h"

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QSet>

#include <gmock/gmock.h>

#include <map>

namespace {

using test::resource;

// What panels are promised, whether or not one asks for it yet.
const char* const kPromised = R"(
clr_menubar_background_new clr_menubar_border_new clr_menubar_item_background_hover_new
clr_menubar_item_background_normal_new clr_menubar_item_background_pressed_new
clr_menubar_item_background_selected_new clr_menubar_item_border_new clr_menubar_item_text_new
clr_scrollbar_background_new clr_scrollbar_slider_new clr_table_split_line_header
fnt_default_normal fnt_default_normal_fix fnt_graph_axis_text fnt_index_title_text fnt_kline_graph_axis_text
ic_clr_buy_even ic_clr_buy_singular ic_clr_comparison_line ic_clr_concise_buysell_text
ic_clr_concise_entrust_amount ic_clr_concise_entrust_default_text ic_clr_concise_entrust_text_fall
ic_clr_concise_entrust_text_rise ic_clr_concise_model_today_amount ic_clr_concise_modelgroup_transaction_index
ic_clr_concise_modulegroup_spliter ic_clr_concise_new_background ic_clr_depth_queue_big_order_buy
ic_clr_depth_queue_big_order_sell ic_clr_depth_queue_blue ic_clr_depth_queue_cancel ic_clr_depth_queue_part_deal
ic_clr_depth_queue_part_deal_back ic_clr_depth_queue_super_buy ic_clr_depth_queue_super_sell
ic_clr_deviation_line ic_clr_dialog_stock_splitter ic_clr_entrust_amount ic_clr_entrust_default_text
ic_clr_entrust_lastest_text ic_clr_entrust_newvol_amount ic_clr_entrust_order_text ic_clr_entrust_text_fall
ic_clr_entrust_text_rise ic_clr_graph_gray ic_clr_graph_kline_bg ic_clr_kline_axis ic_clr_kline_axis_text
ic_clr_kline_graph_scale_border ic_clr_mark_dark_blue ic_clr_mark_light_blue ic_clr_mark_purple
ic_clr_mark_yellow ic_clr_modelgroup_transaction_index ic_clr_modelgroup_transaction_splitter
ic_clr_modulegroup_spliter ic_clr_realtime_axis_line ic_clr_sell_even ic_clr_sell_head ic_clr_sell_singular
ic_clr_table_background ic_clr_table_number_background ic_clr_table_text_default
ic_fnt_index_modulegroup_entruststatus_amount ic_fnt_index_modulegroup_entruststatus_order_text
ic_fnt_index_modulegroup_entruststatus_price ic_fnt_index_modulegroup_entruststatus_text
ic_fnt_index_modulegroup_today_text ic_fnt_index_modulegroup_transaction
ic_fnt_index_modulegroup_transaction_big_number
ic_img_arrow_down ic_img_arrow_up img_menu_arrow img_menu_check img_thousand_down_arrow img_thousand_up_arrow
kel_clr_deptch_holographic_deal_active_deal_bg kel_clr_deptch_holographic_deal_buy_break_line
kel_clr_deptch_holographic_deal_buy_line kel_clr_deptch_holographic_deal_detail_bg
kel_clr_deptch_holographic_deal_detail_line kel_clr_deptch_holographic_deal_detail_text
kel_clr_deptch_holographic_deal_detail_text_light kel_clr_deptch_holographic_deal_highlight_bg
kel_clr_deptch_holographic_deal_sell_break_line kel_clr_deptch_holographic_deal_sell_line
kel_clr_deptch_holographic_deal_special_market_price_triangle
kel_clr_deptch_holographic_deal_special_urgent_order_triangle
kel_clr_deptch_order_queue_price_fall kel_clr_deptch_order_queue_price_rise kel_clr_deptch_order_queue_txt
kel_clr_deptch_order_queue_vol kel_clr_depth_bottom_group_btn_disable kel_clr_depth_bottom_group_btn_hover
kel_clr_depth_bottom_group_btn_nomal kel_clr_depth_bottom_group_btn_press
kel_clr_depth_bottom_group_btn_txt_disable kel_clr_depth_bottom_group_btn_txt_hover
kel_clr_depth_bottom_group_btn_txt_nomal kel_clr_depth_bottom_group_btn_txt_press
kel_clr_depth_modelgroup_transaction_splitter kel_clr_depth_module_group_base_widget_bg
kel_clr_depth_module_group_base_widget_header kel_clr_depth_module_group_base_widget_header_bg
kel_clr_depth_module_group_base_widget_split_line kel_clr_depth_module_group_base_widget_split_line_red
kel_img_depth_data_five kel_img_depth_data_ten kel_img_depth_detai_first kel_img_depth_detail_horizontal
kel_img_depth_detail_list kel_img_depth_detail_vertical kel_img_depth_filter_first kel_img_depth_panel_extend
kel_img_depth_panel_shrink
kel_siz_information_widget_height kel_siz_information_widget_width kel_siz_mainwindow_height_min
kel_siz_mainwindow_width_min siz_scroll_bar_width
)";

/// Keys in string literals and in the sheets of the toolkit, with the first file that has them.
std::map<QString, QString> keysOfTheSources()
{
    static const QRegularExpression literal(
        QStringLiteral("[\"@]((?:ic_|kel_)?(?:clr|fnt|img|siz)_[A-Za-z0-9_]*[A-Za-z0-9])[\"@]"));
    std::map<QString, QString> keys;
    for (const char* folder : {"/src", "/apps", "/examples"}) {
        QDirIterator files(QStringLiteral(DEPTH_SOURCE_DIR) + folder, {"*.h", "*.cpp"}, QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            EXPECT_TRUE(file.open(QIODevice::ReadOnly));
            auto matches = literal.globalMatch(QString::fromUtf8(file.readAll()));
            while (matches.hasNext())
                keys.emplace(matches.next().captured(1), file.fileName());
        }
    }
    return keys;
}

class ThemeKeys : public ::testing::TestWithParam<const char*>
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(resource().setTheme(GetParam()));
        const QStringList keys = resource().keys();
        m_keys = QSet<QString>(keys.begin(), keys.end());
    }

    QSet<QString> m_keys;

private:
    test::ThemeGuard m_guard;
};

TEST_P(ThemeKeys, HasEveryKeyThatTheSourcesAskFor)
{
    const auto asked = keysOfTheSources();
    EXPECT_GT(asked.size(), 40U) << "the sources are not where they are looked for";
    for (const auto& entry : asked)
        EXPECT_TRUE(m_keys.contains(entry.first))
            << entry.first.toStdString() << " in " << entry.second.toStdString();
}

TEST_P(ThemeKeys, HasEveryKeyThatPanelsArePromised)
{
    const QStringList promised = QString(kPromised).simplified().split(' ');
    EXPECT_EQ(promised.size(), 121);
    for (const QString& key : promised)
        EXPECT_TRUE(m_keys.contains(key)) << key.toStdString();
}

TEST_P(ThemeKeys, HasTheSameKeysAsTheOthers)
{
    const QStringList own = resource().keys();
    for (const QString& other : resource().themes()) {
        resource().setTheme(other);
        EXPECT_EQ(resource().keys(), own) << other.toStdString();
    }
}

TEST_P(ThemeKeys, TellTheirKindByThePrefix)
{
    for (const QString& key : m_keys) {
        if (key.contains("img_")) {
            EXPECT_FALSE(resource().getPixmap(key).isNull()) << key.toStdString();
        } else if (key.contains("fnt_")) {
            EXPECT_GT(resource().getFont(key)->pixelSize(), 0) << key.toStdString();
        } else if (key.contains("siz_")) {
            EXPECT_GT(resource().getSize(key), 0) << key.toStdString();
        } else {
            EXPECT_TRUE(key.contains("clr_")) << key.toStdString();
        }
    }
}

INSTANTIATE_TEST_SUITE_P(BothThemes, ThemeKeys, ::testing::Values("dark", "light"));

} // namespace
