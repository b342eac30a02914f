// Pictures of the ladder and of the orders of one price, for people to look at: written to the folder that
// DEPTH_PICTURES names. What they must show at least is asserted.

#include "LadderFixture.h"
#include "thousand/CSingleQueueWidget.h"

#include <QDir>

#include <cmath>

using namespace thousand_tests;

namespace {

void save(const QPixmap& picture, const QString& name)
{
    const QString folder = qEnvironmentVariable("DEPTH_PICTURES");
    if (folder.isEmpty())
        return;
    QDir().mkpath(folder);
    picture.save(folder + "/" + name + ".png");
}

/// Colours that a picture has.
int colors(const QPixmap& picture)
{
    const QImage image = picture.toImage();
    QSet<QRgb> seen;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            seen.insert(image.pixel(x, y));
    }
    return seen.size();
}

class ThousandPictures : public LadderTest, public ::testing::WithParamInterface<const char*>
{
protected:
    ThousandPictures() : LadderTest(false, 270, 520)
    {
        utils::CSingletonT<Zeb::CUiResource>::instance().setTheme(QLatin1String(GetParam()));
    }
    ~ThousandPictures() override
    {
        utils::CSingletonT<Zeb::CUiResource>::instance().setTheme(QStringLiteral("dark"));
    }

    void feedBusy(int sells, int buys, double middle)
    {
        std::vector<std::string> lines;
        int number = 1;
        const auto level = [&](const char* side, double price, int i) {
            const int count = 1 + (i * 7) % 5;
            for (int k = 0; k < count; ++k)
                lines.push_back(std::string(side) + " " + std::to_string(number++) + " " +
                                std::to_string(price) + " " +
                                std::to_string(100 * (1 + static_cast<int>(400 * std::exp(-i * 0.02) *
                                                                           (1 + std::sin(i * 0.7) * 0.8)))));
        };
        for (int i = 0; i < sells; ++i)
            level("S", middle + 0.01 * (i + 1), i);
        for (int i = 0; i < buys; ++i)
            level("B", middle - 0.01 * (i + 1), i);
        feed(lines);
        panel->transactionCallback(0, 1, deals({"99971x99972 " + std::to_string(middle) + " 4200 #1 @1000"}));
        panel->slotTimeout();
        // Some changes since.
        lines.clear();
        for (int i = 0; i < 6; ++i) {
            if (sells > 0)
                lines.push_back("S " + std::to_string(number++) + " " +
                                std::to_string(middle + 0.01 * (i + 1)) + " " +
                                std::to_string(100 * (i + 1) * (i + 3)));
            lines.push_back("B " + std::to_string(number++) + " " + std::to_string(middle - 0.01 * (i + 1)) +
                            " 1000100");
        }
        feed(lines);
        cancel({2, 3, 4, 9});
        panel->slotTimeout();
    }

    void shoot(const QString& name)
    {
        const QPixmap picture = panel->grab();
        save(picture, QString("ladder_%1_%2").arg(name, QLatin1String(GetParam())));
        EXPECT_GT(colors(picture), 3);
    }
};

} // namespace

TEST_P(ThousandPictures, Empty)
{
    shoot("empty");
}

TEST_P(ThousandPictures, FewLevels)
{
    feedSmall();
    shoot("few");
}

TEST_P(ThousandPictures, FullWithDistributionSelectionHoverAndTip)
{
    feedBusy(300, 250, 10.00);
    shoot("full");
    const int row = panel->m_sellCount - 3;
    click(countAt(row));
    move(countAt(row + 6));
    rest(countAt(row + 6));
    EXPECT_TRUE(panel->m_showTip);
    shoot("tip");
    panel->m_scrollBar->setValue(panel->m_scrollBar->value() - 30);
    move(volumeAt(panel->m_scrollTop + 5));
    shoot("scrolled");
    panel->setShowDistribute(false);
    shoot("plain");
}

TEST_P(ThousandPictures, WideColumns)
{
    addInstrument("SH", "600519", 0.01, 1801.5);
    panel->setStock("SH600519");
    feedBusy(120, 90, 1800.00);
    place(400, 900);
    shoot("wide");
    addInstrument("SH", "600519");
}

TEST_P(ThousandPictures, OneSideEmpty)
{
    feedBusy(0, 60, 11.00);
    shoot("limit_up");
}

TEST_P(ThousandPictures, ShortForm)
{
    panel->setDisplayDataLevel(11);
    feedBusy(7, 40, 10.00);
    shoot("short");
}

TEST_P(ThousandPictures, OrdersOfOnePrice)
{
    Kel::CSingleQueueWidget queue(nullptr);
    queue.resize(290, 100);
    queue.show();
    const auto level = std::make_shared<Kel::SingleQueue>();
    level->isBuy = 1;
    level->price = 1800.55;
    level->time = 100000;
    level->orderCount = 160;
    for (int i = 0; i < 160; ++i) {
        const auto quote = std::make_shared<Kel::SingleQuote>();
        quote->volume = 100 * (1 + i * i % 977);
        quote->state = 1;
        quote->time = i < 150 ? 1000 : 99000;
        level->totalVolume += quote->volume;
        level->quotes.emplace_back(1000 + i, quote);
    }
    queue.setTrackOrder(1007, 3);
    queue.setVolumeColor(2, 1);
    queue.setSingleQueue(level, 0.01, 100);
    const QString theme = QLatin1String(GetParam());
    save(queue.grab(), "orders_full_" + theme);
    queue.handleEvent(15, 0, 0, QString(), nullptr);
    level->price = 1800.56;
    level->isBuy = 0;
    level->orderCount = 7;
    level->quotes.erase(level->quotes.begin() + 2, level->quotes.begin() + 155);
    queue.setSingleQueue(level, 0.01, 100);
    const QPixmap picture = queue.grab();
    save(picture, "orders_few_" + theme);
    EXPECT_GT(colors(picture), 3);
}

INSTANTIATE_TEST_SUITE_P(Themes, ThousandPictures, ::testing::Values("dark", "light"),
                         [](const auto& theme) { return std::string(theme.param); });
