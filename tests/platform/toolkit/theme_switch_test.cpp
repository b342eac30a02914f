// Switching themes and price colours at run time: who is told, what stays where it is.

#include "platform/resources/CUiResource.h"
#include "platform/resources/CUiResourceChangeHandler.h"
#include "platform/toolkit/theme_guard.h"

#include <gmock/gmock.h>

#include <functional>
#include <memory>
#include <vector>

namespace {

using test::resource;
using test::ThemeGuard;
using Zeb::EPriceColors;

/// Counts its calls and does in each what the test wants.
class Listener : public Zeb::CUiResourceChangeHandler
{
public:
    void themeChanged() override
    {
        ++calls;
        if (action)
            action();
    }

    int calls = 0;
    std::function<void()> action;
};

class ThemeSwitch : public ::testing::Test
{
private:
    ThemeGuard m_guard;
};

TEST_F(ThemeSwitch, DarkIsInForceFirstAndBothThemesAreNamed)
{
    EXPECT_EQ(resource().theme(), "dark");
    EXPECT_EQ(resource().themes(), (QStringList{"dark", "light"}));
}

TEST_F(ThemeSwitch, CallsEveryHandlerOnce)
{
    Listener first;
    Listener second;
    EXPECT_TRUE(resource().setTheme("light"));
    EXPECT_EQ(resource().theme(), "light");
    EXPECT_EQ(first.calls, 1);
    EXPECT_EQ(second.calls, 1);
}

TEST_F(ThemeSwitch, AnUnknownThemeChangesNothingAndTellsNobody)
{
    Listener listener;
    EXPECT_FALSE(resource().setTheme("sepia"));
    EXPECT_EQ(resource().theme(), "dark");
    EXPECT_EQ(listener.calls, 0);
}

TEST_F(ThemeSwitch, HandlersSeeTheNewColours)
{
    QColor seen;
    Listener listener;
    listener.action = [&] { seen = *resource().getColor("ic_clr_graph_kline_bg"); };
    resource().setTheme("light");
    EXPECT_GT(seen.lightness(), 200);
}

TEST_F(ThemeSwitch, AddressesOfColoursAndFontsStay)
{
    const QColor* color = resource().getColor("ic_clr_graph_kline_bg");
    const QFont* font = resource().getFont("fnt_default_normal");
    const QColor before = *color;
    resource().setTheme("light");
    EXPECT_EQ(resource().getColor("ic_clr_graph_kline_bg"), color);
    EXPECT_EQ(resource().getFont("fnt_default_normal"), font);
    EXPECT_NE(*color, before);
}

TEST_F(ThemeSwitch, AHandlerMadeDuringTheSwitchIsNotCalledForIt)
{
    std::vector<std::unique_ptr<Listener>> made;
    Listener maker;
    maker.action = [&] { made.push_back(std::make_unique<Listener>()); };
    resource().setTheme("light");
    ASSERT_EQ(made.size(), 1U);
    EXPECT_EQ(made[0]->calls, 0);
    maker.action = nullptr;
    resource().setTheme("dark");
    EXPECT_EQ(made[0]->calls, 1);
}

TEST_F(ThemeSwitch, AHandlerDestroyedDuringTheSwitchIsNotCalledAndTheOthersAre)
{
    Listener destroyer;
    auto destroyed = std::make_unique<Listener>();
    bool calledAfterwards = false;
    destroyed->action = [&] { calledAfterwards = true; };
    Listener last;
    destroyer.action = [&] { destroyed.reset(); };
    resource().setTheme("light");
    EXPECT_FALSE(calledAfterwards);
    EXPECT_EQ(last.calls, 1);
    resource().setTheme("dark");
    EXPECT_EQ(last.calls, 2);
}

TEST_F(ThemeSwitch, AHandlerMayDestroyItself)
{
    auto own = std::make_unique<Listener>();
    Listener last;
    own->action = [&] {
        const auto gone = std::move(own);
        Q_UNUSED(gone)
    };
    resource().setTheme("light");
    EXPECT_EQ(last.calls, 1);
}

TEST_F(ThemeSwitch, AHandlerMaySwitchAgainAndAllEndWithTheLastTheme)
{
    Listener switcher;
    switcher.action = [&] {
        switcher.action = nullptr;
        resource().setTheme("dark");
    };
    QColor seen;
    Listener last;
    last.action = [&] { seen = *resource().getColor("ic_clr_graph_kline_bg"); };
    resource().setTheme("light");
    EXPECT_EQ(resource().theme(), "dark");
    EXPECT_EQ(seen, *resource().getColor("ic_clr_graph_kline_bg"));
    EXPECT_EQ(last.calls, 2);
}

TEST_F(ThemeSwitch, RedRisesUntilToldOtherwise)
{
    EXPECT_EQ(resource().priceColors(), EPriceColors::eRedUp);
    const QColor rise = *resource().getColor("ic_clr_entrust_text_rise");
    const QColor fall = *resource().getColor("ic_clr_entrust_text_fall");
    EXPECT_GT(rise.red(), rise.green());
    EXPECT_GT(fall.green(), fall.red());
}

// Every pair of keys that says rise and fall, or buy and sell.
const std::vector<std::pair<const char*, const char*>> kPairs{
    {"ic_clr_entrust_text_rise", "ic_clr_entrust_text_fall"},
    {"ic_clr_concise_entrust_text_rise", "ic_clr_concise_entrust_text_fall"},
    {"kel_clr_deptch_order_queue_price_rise", "kel_clr_deptch_order_queue_price_fall"},
    {"ic_clr_depth_queue_big_order_buy", "ic_clr_depth_queue_big_order_sell"},
    {"ic_clr_depth_queue_super_buy", "ic_clr_depth_queue_super_sell"},
    {"ic_clr_buy_even", "ic_clr_sell_even"},
    {"ic_clr_buy_singular", "ic_clr_sell_singular"},
    {"ic_clr_comparison_line", "ic_clr_deviation_line"},
    {"kel_clr_deptch_holographic_deal_buy_line", "kel_clr_deptch_holographic_deal_sell_line"},
    {"kel_clr_deptch_holographic_deal_buy_break_line", "kel_clr_deptch_holographic_deal_sell_break_line"},
};

TEST_F(ThemeSwitch, GreenUpExchangesEveryPairOfRiseAndFall)
{
    for (const QString& theme : resource().themes()) {
        resource().setTheme(theme);
        for (const auto& pair : kPairs) {
            resource().setPriceColors(EPriceColors::eRedUp);
            const QColor rise = *resource().getColor(pair.first);
            const QColor fall = *resource().getColor(pair.second);
            EXPECT_NE(rise, fall) << pair.first;
            resource().setPriceColors(EPriceColors::eGreenUp);
            EXPECT_EQ(*resource().getColor(pair.first), fall) << pair.first;
            EXPECT_EQ(*resource().getColor(pair.second), rise) << pair.second;
        }
    }
}

TEST_F(ThemeSwitch, TheColourBlindPairIsNeitherRedNorGreen)
{
    resource().setPriceColors(EPriceColors::eColorBlind);
    for (const QString& theme : resource().themes()) {
        resource().setTheme(theme);
        // Orange against blue: the blue part, which all common kinds of colour blindness leave, tells them
        // apart.
        for (const auto& pair : kPairs) {
            const QColor rise = *resource().getColor(pair.first);
            const QColor fall = *resource().getColor(pair.second);
            EXPECT_GE(rise.red(), rise.blue()) << pair.first;
            EXPECT_GT(fall.blue(), fall.red()) << pair.second;
        }
    }
}

TEST_F(ThemeSwitch, PriceColoursTellTheHandlersOnlyOfAChange)
{
    Listener listener;
    resource().setPriceColors(EPriceColors::eRedUp);
    EXPECT_EQ(listener.calls, 0);
    resource().setPriceColors(EPriceColors::eColorBlind);
    EXPECT_EQ(listener.calls, 1);
}

} // namespace
