// Theme files: what they may leave out, and messages that lead to the fault.

#include "platform/LogCapture.h"
#include "platform/resources/CUiResource.h"
#include "platform/resources/CUiResourceChangeHandler.h"
#include "platform/toolkit/theme_guard.h"

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QTemporaryDir>
#include <QtMath>

#include <gmock/gmock.h>

#include <ostream>

namespace {

using test::resource;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using Zeb::EPriceColors;

/// A drawing of one square in one ink.
QByteArray dotInkedWith(const char* ink)
{
    const QByteArray square = "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 4 4\">"
                              "<rect width=\"4\" height=\"4\" fill=\"var(--INK, #ffffff)\"/></svg>";
    return QByteArray(square).replace("INK", ink);
}

class CountingHandler : public Zeb::CUiResourceChangeHandler
{
public:
    void themeChanged() override { ++calls; }
    int calls = 0;
};

class ThemeFiles : public ::testing::Test
{
protected:
    QString write(const QString& name, const QByteArray& bytes)
    {
        QFile file(m_folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return file.fileName();
    }

    /// The message for a theme file of `bytes`; empty if it was taken. The folder's name is left out.
    std::string load(const QByteArray& bytes)
    {
        const QString path = write("own.json", bytes);
        QString error;
        if (resource().loadThemeFile(path, &error))
            return {};
        return error.replace(m_folder.path() + '/', QString()).toStdString();
    }

private:
    test::ThemeGuard m_guard;
    QTemporaryDir m_folder;
};

TEST_F(ThemeFiles, OwnPaletteShowsThroughTheColoursOfTheBase)
{
    EXPECT_EQ(load(R"({"name": "own", "base": "light", "palette": {"ground": "#123456"}})"), "");
    EXPECT_EQ(resource().theme(), "own");
    EXPECT_EQ(resource().getColor("ic_clr_graph_kline_bg")->name(), "#123456");
    const QColor text = *resource().getColor("ic_clr_entrust_default_text");
    resource().setTheme("light");
    EXPECT_EQ(text, *resource().getColor("ic_clr_entrust_default_text"));
}

TEST_F(ThemeFiles, WithoutABaseTheDarkThemeFillsTheGaps)
{
    const QColor dark = *resource().getColor("ic_clr_entrust_default_text");
    EXPECT_EQ(load(R"({"name": "own", "colors": {"ic_clr_graph_kline_bg": "#102030"}})"), "");
    EXPECT_EQ(*resource().getColor("ic_clr_entrust_default_text"), dark);
    EXPECT_EQ(resource().getColor("ic_clr_graph_kline_bg")->name(), "#102030");
}

TEST_F(ThemeFiles, ColoursMayBeTransparent)
{
    EXPECT_EQ(load(R"({"name": "own", "palette": {"ground": "#112233"},
                       "colors": {"ic_clr_graph_kline_bg": "ground 40%", "ic_clr_graph_gray": "#445566 0%"}})"),
              "");
    EXPECT_EQ(*resource().getColor("ic_clr_graph_kline_bg"), QColor(0x11, 0x22, 0x33, 102));
    EXPECT_EQ(*resource().getColor("ic_clr_graph_gray"), QColor(0x44, 0x55, 0x66, 0));
    EXPECT_EQ(resource().getColorSheetByKey("ic_clr_graph_kline_bg"), "rgba(17, 34, 51, 102)");
}

TEST_F(ThemeFiles, OwnHuesAreExchangedWithThePriceColours)
{
    EXPECT_EQ(load(R"({"name": "own", "hues": {"red": {"text": "#aa0001"}, "green": {"text": "#00aa02"}}})"),
              "");
    EXPECT_EQ(resource().getColor("ic_clr_entrust_text_rise")->name(), "#aa0001");
    resource().setPriceColors(EPriceColors::eGreenUp);
    EXPECT_EQ(resource().getColor("ic_clr_entrust_text_rise")->name(), "#00aa02");
}

TEST_F(ThemeFiles, FontsAndSizesAreTakenOver)
{
    EXPECT_EQ(load(R"({"name": "own", "font_families": ["DejaVu Sans"], "sizes": {"siz_scroll_bar_width": 9},
                       "fonts": {"fnt_default_normal": {"size": 20, "bold": true, "stretch": 80}}})"),
              "");
    const QFont& font = *resource().getFont("fnt_default_normal");
    EXPECT_EQ(font.pixelSize(), 20);
    EXPECT_TRUE(font.bold());
    EXPECT_EQ(font.stretch(), 80);
    EXPECT_EQ(font.families(), QStringList{"DejaVu Sans"});
    EXPECT_EQ(resource().getSize("siz_scroll_bar_width"), 9);
}

TEST_F(ThemeFiles, APictureIsLookedForBesideTheFile)
{
    write("dot.svg", dotInkedWith("own"));
    EXPECT_EQ(load(R"({"name": "own", "inks": {"own": "#010203"},
                       "pictures": {"img_menu_check": {"file": "dot.svg", "size": [6, 5]}}})"),
              "");
    const QPixmap picture = resource().getPixmap("img_menu_check", 1);
    EXPECT_EQ(picture.size(), QSize(6, 5));
    EXPECT_EQ(picture.toImage().pixelColor(2, 2), QColor("#010203"));
}

TEST_F(ThemeFiles, AFaultLeavesTheThemeAsItWas)
{
    CountingHandler handler;
    const QColor before = *resource().getColor("ic_clr_graph_kline_bg");
    EXPECT_NE(
        load(R"({"name": "own", "palette": {"ground": "#123456"}, "colors": {"ic_clr_graph_gray": "nix"}})"),
        "");
    EXPECT_EQ(resource().theme(), "dark");
    EXPECT_EQ(*resource().getColor("ic_clr_graph_kline_bg"), before);
    EXPECT_EQ(handler.calls, 0);
    EXPECT_EQ(load(R"({"name": "own"})"), "");
    EXPECT_EQ(handler.calls, 1);
}

TEST_F(ThemeFiles, AFileThatIsNotThereIsNamed)
{
    QString error;
    EXPECT_FALSE(resource().loadThemeFile("/no/such.json", &error));
    EXPECT_THAT(error.toStdString(), HasSubstr("/no/such.json: file: "));
    EXPECT_FALSE(resource().loadThemeFile("/no/such.json", nullptr));
}

struct FaultCase
{
    const char* name;
    const char* json;
    const char* message;
};

void PrintTo(const FaultCase& given, std::ostream* out)
{
    *out << given.name;
}

class ThemeFault : public ThemeFiles, public ::testing::WithParamInterface<FaultCase>
{
};

TEST_P(ThemeFault, IsNamedWithFilePlaceAndReason)
{
    EXPECT_THAT(load(GetParam().json), ::testing::StartsWith(GetParam().message));
}

const FaultCase kFaults[] = {
    {"Syntax", "{\n  \"name\": \"own\",\n  \"palette\": {,}\n}", "own.json: line 3, column 1"},
    {"Empty", "", "own.json: line 1, column "},
    {"NoObject", "[]", "own.json: line 1, column 1: an object is expected"},
    {"NoName", "{}", "own.json: name: a text is expected"},
    {"UnknownSection", R"({"name": "own", "colours": {}})",
     "own.json: colours: there is no section of this name"},
    {"UnknownBase", R"({"name": "own", "base": "sepia"})",
     "own.json: base: there is no built-in theme \"sepia\""},
    {"SectionNoObject", R"({"name": "own", "colors": []})", "own.json: colors: an object is expected"},
    {"ColourNoText", R"({"name": "own", "colors": {"clr_x": 5}})",
     "own.json: colors.clr_x: a text is expected"},
    {"ColourUnknown", R"({"name": "own", "colors": {"clr_x": "nix"}})",
     "own.json: colors.clr_x: \"nix\" stands for no colour"},
    {"ColourShort", R"({"name": "own", "colors": {"clr_x": "#fff"}})",
     "own.json: colors.clr_x: \"#fff\" stands for no colour"},
    {"ColourEmpty", R"({"name": "own", "colors": {"clr_x": ""}})",
     "own.json: colors.clr_x: \"\" is no colour"},
    {"Opacity", R"({"name": "own", "colors": {"clr_x": "#ffffff 101%"}})",
     "own.json: colors.clr_x: \"101%\" is no opacity from 0% to 100%"},
    {"OpacityNoPercent", R"({"name": "own", "colors": {"clr_x": "#ffffff 50"}})",
     "own.json: colors.clr_x: \"50\" is no opacity from 0% to 100%"},
    {"HuePart", R"({"name": "own", "colors": {"clr_x": "up.nix"}})",
     "own.json: colors.clr_x: \"up.nix\" stands for no colour"},
    {"Palette", R"({"name": "own", "palette": {"p": "ground"}})",
     "own.json: palette.p: \"ground\" is not of the form #rrggbb"},
    {"Ink", R"({"name": "own", "inks": {"ink": "nix"}})", "own.json: inks.ink: \"nix\" stands for no colour"},
    {"Pair", R"({"name": "own", "price_colors": {"usual": ["red"]}})",
     "own.json: price_colors.usual: two names of hues are expected"},
    {"FontSize", R"({"name": "own", "fonts": {"fnt_x": {"size": 5}}})",
     "own.json: fonts.fnt_x.size: a whole number from 6 to 72 is expected"},
    {"FontBold", R"({"name": "own", "fonts": {"fnt_x": {"size": 12, "bold": 1}}})",
     "own.json: fonts.fnt_x.bold: true or false is expected"},
    {"FontStretch", R"({"name": "own", "fonts": {"fnt_x": {"size": 12, "stretch": 20}}})",
     "own.json: fonts.fnt_x.stretch: a whole number from 50 to 200 is expected"},
    {"Families", R"({"name": "own", "font_families": []})",
     "own.json: font_families: a list of names is expected"},
    {"Size", R"({"name": "own", "sizes": {"siz_x": 1.5}})",
     "own.json: sizes.siz_x: a whole number from 0 to 10000 is expected"},
    {"PictureSize", R"({"name": "own", "pictures": {"img_x": {"file": "a.svg", "size": [0, 5]}}})",
     "own.json: pictures.img_x.size: a whole number from 1 to 512 is expected"},
    {"PictureFile", R"({"name": "own", "pictures": {"img_x": {"file": "no.svg", "size": [5, 5]}}})",
     "own.json: pictures.img_x.file: cannot read "},
    {"PictureNoDrawing", R"({"name": "own", "pictures": {"img_x": {"file": "own.json", "size": [5, 5]}}})",
     "own.json: pictures.img_x.file: "},
};

INSTANTIATE_TEST_SUITE_P(Table, ThemeFault, ::testing::ValuesIn(kFaults),
                         [](const auto& given) { return std::string(given.param.name); });

TEST_F(ThemeFiles, AnInkThatIsNotThereIsNamed)
{
    write("dot.svg", dotInkedWith("nix"));
    EXPECT_EQ(load(R"({"name": "own", "pictures": {"img_x": {"file": "dot.svg", "size": [5, 5]}}})"),
              "own.json: pictures.img_x: there is no ink \"nix\"");
}

class UnknownKeys : public ::testing::Test
{
protected:
    std::vector<std::string> logged() const
    {
        std::vector<std::string> texts;
        for (const auto& event : m_log.events())
            texts.push_back(event.text);
        return texts;
    }

private:
    test::ThemeGuard m_guard;
    testing_support::LogCapture m_log;
};

TEST_F(UnknownKeys, AreLoudAndLoggedOnce)
{
    const QColor* color = resource().getColor("clr_no_such");
    EXPECT_EQ(*color, QColor(255, 0, 255));
    EXPECT_EQ(resource().getColor("clr_no_such"), color);
    EXPECT_THAT(logged(), ElementsAre("theme dark has no key clr_no_such"));
    resource().setTheme("light");
    EXPECT_EQ(resource().getColor("clr_no_such"), color);
    EXPECT_EQ(logged().size(), 2U);
}

TEST_F(UnknownKeys, GiveADefaultFontSizeZeroAndAMagentaPicture)
{
    EXPECT_EQ(*resource().getFont("fnt_no_such"), QFont());
    EXPECT_EQ(resource().getSize("siz_no_such"), 0);
    EXPECT_EQ(resource().getPixmap("img_no_such").toImage().pixelColor(3, 3), QColor(255, 0, 255));
    EXPECT_EQ(resource().getColorSheetByKey("clr_none"), "rgba(255, 0, 255, 255)");
    EXPECT_EQ(resource().getImageSheet("img_none"), "background: #ff00ff");
    EXPECT_EQ(logged().size(), 5U);
}

TEST(ThemePictures, HaveTheirOwnSizeTimesTheRatioOfTheScreen)
{
    const test::ThemeGuard guard;
    for (const qreal ratio : {1.0, 1.25, 1.5, 2.0}) {
        const QPixmap picture = resource().getPixmap("kel_img_depth_filter_first", ratio);
        EXPECT_EQ(picture.devicePixelRatio(), ratio);
        EXPECT_EQ(picture.width(), qCeil(18 * ratio));
        EXPECT_EQ(picture.height(), qCeil(18 * ratio));
    }
}

TEST(ThemePictures, AreInkedByTheTheme)
{
    const test::ThemeGuard guard;
    const auto shaft = [] { return resource().getPixmap("ic_img_arrow_up", 1).toImage().pixelColor(4, 7); };
    EXPECT_EQ(shaft(), *resource().getColor("ic_clr_comparison_line"));
    const QColor before = shaft();
    resource().setPriceColors(EPriceColors::eGreenUp);
    EXPECT_NE(shaft(), before);
    EXPECT_EQ(shaft(), *resource().getColor("ic_clr_comparison_line"));
}

TEST(ThemePictures, AStyleSheetShowsThePictureInTheColoursInForce)
{
    const test::ThemeGuard guard;
    QLabel label;
    label.resize(14, 14);
    const auto shown = [&] {
        label.setStyleSheet(QStringLiteral("QLabel {background: #000000; %1;}")
                                .arg(resource().getImageSheet("img_menu_check")));
        // The lower point of the tick.
        return label.grab().toImage().pixelColor(6, 10);
    };
    const QColor dark = shown();
    EXPECT_GT(dark.blue(), 100);
    resource().setTheme("light");
    const QColor light = shown();
    EXPECT_NE(light, dark);
    resource().setTheme("dark");
    EXPECT_EQ(shown(), dark);
}

} // namespace
