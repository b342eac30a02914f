// Renders the panel in all its modes and states, in both themes, for the eye: DEPTH_PICTURES names the
// folder, else it is the folder of the test. What is asserted is that each picture shows what it is named
// after.

#include "QueuePanel.h"

#include "platform/resources/CUiResource.h"
#include "support/picture_folder.h"

#include <QImage>
#include <QSet>

using namespace testing_support;
using namespace Kel;

namespace {

/// The panel at 900 x 640 with a full book, in one theme.
class Pictures : public testing::TestWithParam<const char*>
{
protected:
    Pictures()
    {
        prepareServices();
        utils::CSingletonT<Zeb::CUiResource>::instance().setTheme(QLatin1String(GetParam()));
        panel.m_lastClose = 10.00;
        fillBook(panel, 14);
    }
    ~Pictures() override
    {
        utils::CSingletonT<Zeb::CUiResource>::instance().setTheme(QStringLiteral("dark"));
    }

    QImage save(const char* name)
    {
        panel.updateAll();
        const QImage image = panel.grab().toImage();
        EXPECT_TRUE(image.save(QStringLiteral("%1/%2_%3.png")
                                   .arg(pictureFolder(QStringLiteral("queue_view_pictures")),
                                        QLatin1String(name), QLatin1String(GetParam()))));
        return image;
    }

    /// Different colours in the picture: a blank one has one.
    static int colors(const QImage& image)
    {
        QSet<QRgb> found;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                found.insert(image.pixel(x, y));
        }
        return found.size();
    }

    QueuePanel panel{900, 640};
};

INSTANTIATE_TEST_SUITE_P(Themes, Pictures, testing::Values("dark", "light"),
                         [](const auto& theme) { return std::string(theme.param); });

TEST_P(Pictures, ShowAllStylesWithTenAndFiveLevels)
{
    for (const EQueueMode style :
         {eQueueDetailFirst, eQueueDetailHorizontal, eQueueDetailVertical, eQueueDetailList}) {
        for (const EQueueMode levels : {eQueueTenLevels, eQueueFiveLevels}) {
            panel.setQueueFull(false);
            panel.updateQueueMode(levels);
            panel.updateQueueMode(style);
            panel.setScrollCenter();
            const std::string name =
                "style" + std::to_string(style) + (levels == eQueueTenLevels ? "_ten" : "_five");
            EXPECT_GT(colors(save(name.c_str())), 10) << name;
        }
        panel.setQueueFull(true);
        panel.updateQueueMode(style);
        EXPECT_GT(colors(save(("style" + std::to_string(style) + "_five_full").c_str())), 10);
    }
}

TEST_P(Pictures, ShowMarksTrackedOrderFillerAndDots)
{
    panel.setRow(OQT_SELL, 0,
                 "sell 10.01 level=1 levelVol=7000 unknown=2300; 1 10 normal; 2 77 normal; 3 500 unknown; "
                 "4 20 cancelled; 5 30 dealt; 6 2000 big; 7 6000 super; 8 0 normal");
    std::vector<int> many(70, 12);
    many[3] = 77;
    panel.setRow(OQT_BUY, 0, buyOf(1, many));
    panel.setVolumeColor(77, 1);
    panel.setTrackOrder(1, 3);
    save("marks_filler_dots");
    EXPECT_EQ(panel.picture().count(QStringLiteral("...")), 1);
    panel.updateQueueMode(eQueueDetailVertical);
    save("marks_filler_dots_vertical");
}

TEST_P(Pictures, ShowTheCallOutToBothSides)
{
    // Eight cells a row: the part-dealt order of the buys is the last of its row.
    panel.setRow(OQT_SELL, 0,
                 "sell 10.01 level=1 levelVol=100 hasPart; 1 44 part 56; 2 20 normal; 3 30 normal");
    panel.setRow(
        OQT_BUY, 0,
        "buy 10 level=1 levelVol=100 hasPart; 1 1 dealt; 2 1 dealt; 3 1 dealt; 4 1 dealt; 5 1 dealt; "
        "6 1 dealt; 7 1 dealt; 8 44 part 1234; 9 20 normal; 10 30 normal");
    const PaintRecording picture = panel.picture();
    save("call_out");
    EXPECT_EQ(picture.count(QStringLiteral("成")), 2);
    panel.updateQueueMode(eQueueDetailList);
    save("call_out_list");
}

TEST_P(Pictures, ShowANegativeFiller)
{
    panel.setRow(OQT_SELL, 0, sellOf(1, {500, 20, 30}, "unknown=-400"));
    const PaintRecording picture = panel.picture();
    save("negative_filler");
    EXPECT_EQ(picture.count(QStringLiteral("100")), 1);
}

TEST_P(Pictures, ShowOneEmptySideAndAnEmptyBook)
{
    for (int i = 0; i < 10; ++i)
        panel.setRow(OQT_SELL, i, "sell 0 level=" + std::to_string(i + 1));
    save("one_side_empty");
    EXPECT_EQ(panel.picture().count(QStringLiteral("卖一")), 0);
    EXPECT_EQ(panel.picture().count(QStringLiteral("买一")), 1);
    panel.updateQueueMode(eQueueDetailHorizontal);
    save("one_side_empty_horizontal");
    panel.clear();
    panel.updateQueueMode(eQueueDetailFirst);
    const QImage empty = save("empty");
    EXPECT_EQ(colors(empty), 2) << "ground and the line between the sides";
}

TEST_P(Pictures, ShowTheNarrowestPanel)
{
    panel.resizeTo(320, 400);
    for (const EQueueMode style : {eQueueDetailFirst, eQueueDetailList}) {
        panel.updateQueueMode(style);
        EXPECT_GT(colors(save(("narrow_style" + std::to_string(style)).c_str())), 10) << style;
    }
    // Two styles have no room for one order beside their heads: ground and line stay.
    for (const EQueueMode style : {eQueueDetailHorizontal, eQueueDetailVertical}) {
        panel.updateQueueMode(style);
        save(("narrow_style" + std::to_string(style)).c_str());
        EXPECT_TRUE(panel.picture().texts().isEmpty()) << style;
    }
}

} // namespace
