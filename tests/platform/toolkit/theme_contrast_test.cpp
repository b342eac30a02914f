// Text can be read on every ground that it is drawn on: 4.5 to 1 at least, in every theme with every choice
// of price colours.

#include "platform/resources/CUiResource.h"
#include "platform/toolkit/theme_guard.h"

#include <gmock/gmock.h>

#include <cmath>

namespace {

using test::resource;
using Zeb::EPriceColors;

constexpr double kLeastContrast = 4.5;

/// Texts that are drawn on grounds, keys divided by blanks. "white" stands for itself.
struct Pairing
{
    const char* texts;
    const char* grounds;
};

const Pairing kPairings[] = {
    // order queue: the price colour of the side over its cells and in reverse
    {"kel_clr_deptch_order_queue_price_rise ic_clr_concise_entrust_text_rise",
     "ic_clr_graph_kline_bg ic_clr_depth_queue_big_order_buy ic_clr_depth_queue_super_buy "
     "ic_clr_depth_queue_cancel ic_clr_depth_queue_blue kel_clr_depth_module_group_base_widget_bg"},
    {"kel_clr_deptch_order_queue_price_fall ic_clr_concise_entrust_text_fall",
     "ic_clr_graph_kline_bg ic_clr_depth_queue_big_order_sell ic_clr_depth_queue_super_sell "
     "ic_clr_depth_queue_cancel ic_clr_depth_queue_blue kel_clr_depth_module_group_base_widget_bg"},
    // marks over every kind of cell
    {"ic_clr_mark_light_blue ic_clr_mark_purple ic_clr_mark_dark_blue ic_clr_mark_yellow "
     "ic_clr_entrust_default_text",
     "ic_clr_graph_kline_bg ic_clr_depth_queue_big_order_buy ic_clr_depth_queue_super_buy "
     "ic_clr_depth_queue_big_order_sell ic_clr_depth_queue_super_sell ic_clr_depth_queue_cancel "
     "ic_clr_depth_queue_blue"},
    // part-dealt cell and its call-out
    {"ic_clr_graph_gray", "ic_clr_depth_queue_blue"},
    {"ic_clr_entrust_default_text ic_clr_concise_entrust_default_text", "ic_clr_depth_queue_part_deal"},
    // lists and level panels
    {"kel_clr_deptch_order_queue_txt kel_clr_deptch_order_queue_vol ic_clr_entrust_text_rise "
     "ic_clr_entrust_text_fall ic_clr_entrust_amount ic_clr_entrust_order_text ic_clr_entrust_lastest_text "
     "ic_clr_entrust_newvol_amount ic_clr_modelgroup_transaction_index ic_clr_entrust_default_text "
     "ic_clr_concise_modelgroup_transaction_index ic_clr_kline_axis_text ic_clr_concise_entrust_amount "
     "ic_clr_concise_entrust_default_text kel_clr_depth_module_group_base_widget_header",
     "ic_clr_graph_kline_bg"},
    {"ic_clr_concise_entrust_default_text ic_clr_concise_entrust_text_rise ic_clr_concise_entrust_text_fall "
     "ic_clr_concise_entrust_amount",
     "ic_clr_sell_head ic_clr_sell_even ic_clr_sell_singular ic_clr_buy_even ic_clr_buy_singular "
     "ic_clr_concise_new_background"},
    {"ic_clr_concise_buysell_text", "ic_clr_concise_model_today_amount"},
    // the strip: titles of panels, and the white title of the orders of one price
    {"kel_clr_depth_module_group_base_widget_header white",
     "kel_clr_depth_module_group_base_widget_header_bg"},
    // deal chart
    {"kel_clr_deptch_holographic_deal_sell_line kel_clr_deptch_holographic_deal_buy_line",
     "ic_clr_graph_kline_bg kel_clr_deptch_holographic_deal_active_deal_bg "
     "kel_clr_deptch_holographic_deal_highlight_bg"},
    {"kel_clr_deptch_holographic_deal_detail_text kel_clr_deptch_holographic_deal_detail_text_light",
     "kel_clr_deptch_holographic_deal_detail_bg"},
    // tables, tabs, menus
    {"ic_clr_table_text_default",
     "ic_clr_table_background ic_clr_table_number_background clr_edit_selection"},
    {"kel_clr_depth_bottom_group_btn_txt_nomal", "kel_clr_depth_bottom_group_btn_nomal"},
    {"kel_clr_depth_bottom_group_btn_txt_hover", "kel_clr_depth_bottom_group_btn_hover"},
    {"kel_clr_depth_bottom_group_btn_txt_press", "kel_clr_depth_bottom_group_btn_press"},
    {"clr_menubar_item_text_new",
     "clr_menubar_background_new clr_menubar_item_background_normal_new "
     "clr_menubar_item_background_hover_new "
     "clr_menubar_item_background_pressed_new clr_menubar_item_background_selected_new"},
    // controls, dialogs, windows
    {"clr_button_text", "clr_button_background clr_button_background_hover clr_button_background_pressed "
                        "clr_button_background_checked"},
    {"clr_dialog_text", "clr_dialog_background"},
    {"clr_dialog_title_text", "clr_dialog_title_background"},
    {"clr_edit_text", "clr_edit_background clr_edit_selection"},
    {"clr_message_text", "clr_message_background clr_message_error_background"},
    {"clr_tip_text", "clr_tip_background"},
    {"clr_window_text clr_window_text_soft", "clr_window_background"},
    // the state of the data, in a pane's title
    {"clr_state_gap clr_state_live clr_state_loading clr_state_rebuilt clr_state_stale clr_window_text_soft",
     "clr_dialog_title_background"},
};

double linear(double channel)
{
    return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color)
{
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(const QColor& first, const QColor& second)
{
    const double a = luminance(first) + 0.05;
    const double b = luminance(second) + 0.05;
    return a > b ? a / b : b / a;
}

QColor colorOf(const QString& key)
{
    return key == "white" ? QColor(Qt::white) : *resource().getColor(key);
}

class ThemeContrast : public ::testing::TestWithParam<std::tuple<const char*, EPriceColors>>
{
protected:
    void SetUp() override
    {
        resource().setTheme(std::get<0>(GetParam()));
        resource().setPriceColors(std::get<1>(GetParam()));
    }

private:
    test::ThemeGuard m_guard;
};

TEST_P(ThemeContrast, TextCanBeReadOnItsGround)
{
    for (const Pairing& pairing : kPairings) {
        for (const QString& ground : QString(pairing.grounds).split(' ')) {
            EXPECT_EQ(colorOf(ground).alpha(), 255) << ground.toStdString();
            for (const QString& text : QString(pairing.texts).split(' ')) {
                EXPECT_GE(contrast(colorOf(text), colorOf(ground)), kLeastContrast)
                    << text.toStdString() << " on " << ground.toStdString();
            }
        }
    }
}

TEST_P(ThemeContrast, CellsOfDifferentKindsLookDifferent)
{
    // The least distance of two cell grounds, as the sum of the differences of the three channels.
    constexpr int kLeastDistance = 20;
    const QStringList sides{"buy", "sell"};
    for (const QString& side : sides) {
        const QStringList kinds{"ic_clr_graph_kline_bg", "ic_clr_depth_queue_cancel",
                                "ic_clr_depth_queue_blue", "ic_clr_depth_queue_big_order_" + side,
                                "ic_clr_depth_queue_super_" + side};
        for (int a = 0; a < kinds.size(); ++a) {
            for (int b = 0; b < a; ++b) {
                const QColor first = colorOf(kinds[a]);
                const QColor second = colorOf(kinds[b]);
                const int distance = std::abs(first.red() - second.red()) +
                                     std::abs(first.green() - second.green()) +
                                     std::abs(first.blue() - second.blue());
                EXPECT_GE(distance, kLeastDistance)
                    << kinds[a].toStdString() << ' ' << kinds[b].toStdString();
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(AllThemes, ThemeContrast,
                         ::testing::Combine(::testing::Values("dark", "light"),
                                            ::testing::Values(EPriceColors::eRedUp, EPriceColors::eGreenUp,
                                                              EPriceColors::eColorBlind)));

} // namespace
