// Pictures of the quote panels, kept in the folder DEPTH_PICTURES if it is given; here they must only hold
// ink.

#include "LevelPanelProbes.h"
#include "platform/resources/CUiResource.h"

#include <QDir>

#include <set>

using namespace Kel;

namespace {

Zeb::CUiResource& resource()
{
    return utils::CSingletonT<Zeb::CUiResource>::instance();
}

class LevelPictures : public ::testing::TestWithParam<const char*>
{
protected:
    void SetUp() override
    {
        resource().setTheme(QLatin1String(GetParam()));
        test::stocks().clear();
        test::addInstrument("SH", "600000");
        test::addInstrument("CFFEX", "IF2403", 0.2, 4000);
        test::addInstrument("CI", "900001");
    }
    void TearDown() override
    {
        test::stocks().clear();
        resource().setTheme(QStringLiteral("dark"));
    }

    template <class Panel>
    void keep(Panel& panel, const char* name)
    {
        panel.show();
        const QImage image = panel.grab().toImage();
        std::set<QRgb> colors;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                colors.insert(image.pixel(x, y));
        }
        EXPECT_GT(colors.size(), 8u);
        const QString folder = qEnvironmentVariable("DEPTH_PICTURES");
        if (folder.isEmpty())
            return;
        QDir().mkpath(folder);
        EXPECT_TRUE(image.save(QStringLiteral("%1/%2_%3.png").arg(folder, name, GetParam())));
    }

    template <class Panel>
    void sendDay(Panel& panel)
    {
        auto before = test::fullSnapshot();
        before->askVolume[0] = 12080;
        before->bidVolume[1] = 3;
        panel.send(before);
        auto now = test::fullSnapshot();
        now->askVolume[0] = 11234;
        now->bidVolume[0] = 985;
        now->bidPrice[3] = 0;
        now->bidVolume[3] = 0;
        now->askVolume[2] = 0;
        now->totalVolume += 43200;
        panel.send(now);
    }
};

} // namespace

TEST_P(LevelPictures, OfThePlainPanelHoldInk)
{
    test::LevelPanelProbe<CDepthEntrustStatusWidget> panel;
    panel.setStock("SH600000");
    panel.resize(240, panel.getMinimumSizeHeight());
    panel.show(); // a hidden panel has no size yet
    sendDay(panel);
    panel.press(100, 9 * 20 + 5);
    panel.move(160, 12 * 20 + 5);
    keep(panel, "level_plain_10");
    panel.setLevelStatus(1);
    panel.resize(240, 240);
    keep(panel, "level_plain_5");
    panel.clear(true);
    panel.setStock("CFFEXIF2403");
    panel.resize(240, 61);
    panel.send(test::fullSnapshot());
    keep(panel, "level_plain_1");
}

TEST_P(LevelPictures, OfTheConcisePanelHoldInk)
{
    test::LevelPanelProbe<CDepthConciseStyleEntrustStatusWidget> panel;
    panel.setStock("SH600000");
    panel.resize(260, 535);
    panel.show(); // a hidden panel has no size yet
    sendDay(panel);
    panel.press(100, 10 * 24 + 5);
    panel.move(180, 13 * 24 + 5);
    keep(panel, "level_concise_10");
    panel.setLevelStatus(1);
    panel.resize(260, 295);
    panel.move(100, 10);
    keep(panel, "level_concise_5_tip");
    panel.clear(true);
    panel.setStock("CI900001");
    panel.leave();
    panel.resize(260, 102);
    auto record = test::fullSnapshot();
    record->askVolume[0] = 1250000;
    panel.send(record);
    keep(panel, "level_concise_custom_index");
}

INSTANTIATE_TEST_SUITE_P(Themes, LevelPictures, ::testing::Values("dark", "light"));
