// The picture of the concise panel.

#include "LevelPanelProbes.h"
#include "platform/resources/CUiResource.h"

using namespace Kel;
using testing_support::PaintCommand;
using testing_support::PaintRecorder;

namespace {

constexpr int kLeft = Qt::AlignLeft | Qt::AlignVCenter;
constexpr int kRight = Qt::AlignRight | Qt::AlignVCenter;

QColor color(const char* key)
{
    return *utils::CSingletonT<Zeb::CUiResource>::instance().getColor(QLatin1String(key));
}

class ConciseProbe : public test::LevelPanelProbe<CDepthConciseStyleEntrustStatusWidget>
{
public:
    using CDepthConciseStyleEntrustStatusWidget::drawTip;
    using CDepthConciseStyleEntrustStatusWidget::m_showTip;
};

class ConcisePicture : public ::testing::Test
{
protected:
    void SetUp() override
    {
        test::stocks().clear();
        test::addInstrument("SH", "600000");
        test::addInstrument("CI", "900001");
        m_panel.setStock("SH600000");
        m_panel.setLevelStatus(1);
        // Head at 0, bar at 24, labels at 26, 50, 74, 98, 122, lines at 146 and 171, labels from 173 on.
        m_panel.resize(300, 320);
        m_panel.show();
        QCoreApplication::processEvents();
    }
    void TearDown() override { test::stocks().clear(); }

    /// Colours of the stripes in order of their rows.
    std::vector<QColor> stripes()
    {
        std::vector<QColor> colors;
        const auto picture = m_panel.background();
        for (const auto& fill : picture->fills()) {
            for (const char* key :
                 {"ic_clr_sell_singular", "ic_clr_sell_even", "ic_clr_buy_singular", "ic_clr_buy_even"}) {
                if (fill.rect.height() == 24 && fill.rect.y() >= 26 && fill.color() == color(key)) {
                    colors.push_back(fill.color());
                    break;
                }
            }
        }
        return colors;
    }

    ConciseProbe m_panel;
};

} // namespace

TEST_F(ConcisePicture, TheHeadRowStandsOnItsOwnGround)
{
    const auto picture = m_panel.background();
    const auto fills = picture->fills();
    ASSERT_GE(fills.size(), 2u);
    EXPECT_EQ(fills[0].rect, QRectF(0, 0, 300, 320));
    EXPECT_EQ(fills[0].color(), color("ic_clr_graph_kline_bg"));
    EXPECT_EQ(fills[1].rect, QRectF(0, 0, 300, 24));
    EXPECT_EQ(fills[1].color(), color("ic_clr_sell_head"));
    EXPECT_TRUE(picture->text("委比").standsIn(QRect(10, 0, 30, 24), kLeft));
    EXPECT_TRUE(picture->text("委差").standsIn(QRect(155, 0, 30, 24), kLeft));
    EXPECT_EQ(picture->text("委比").color(), color("ic_clr_concise_entrust_default_text"));
}

TEST_F(ConcisePicture, LabelsBeginTwoPixelsBelowTheHeadRow)
{
    const auto picture = m_panel.background();
    EXPECT_TRUE(picture->text("卖五").standsIn(QRect(10, 26, 30, 24), kLeft));
    EXPECT_TRUE(picture->text("卖一").standsIn(QRect(10, 122, 30, 24), kLeft));
    EXPECT_TRUE(picture->text("买一").standsIn(QRect(10, 173, 30, 24), kLeft));
    EXPECT_TRUE(picture->text("买五").standsIn(QRect(10, 269, 30, 24), kLeft));
    EXPECT_EQ(picture->text("买五").color(), color("ic_clr_concise_entrust_default_text"));
    EXPECT_EQ(picture->text("买五").clip, QRectF(0, 0, 300, 320)) << "clipped to the whole panel";
}

TEST_F(ConcisePicture, TheMiddleRowLiesBetweenTwoLines)
{
    const auto picture = m_panel.background();
    const auto lines = picture->lineCommands();
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0].line.y1(), 146);
    EXPECT_EQ(lines[1].line.y1(), 171);
    for (const auto& line : lines)
        EXPECT_EQ(line.color(), color("ic_clr_concise_modulegroup_spliter"));
    ASSERT_EQ(picture->fillsOf(QRectF(0, 147, 300, 24)).size(), 1u);
    EXPECT_EQ(picture->fillsOf(QRectF(0, 147, 300, 24))[0].color(), color("ic_clr_concise_new_background"));
    EXPECT_TRUE(picture->text("最新").standsIn(QRect(3, 147, 30, 24), kLeft));
    EXPECT_TRUE(picture->text("现手").standsIn(QRect(5 + 8 + 45 + 65 + 30, 147, 65, 24), kLeft));
    EXPECT_EQ(picture->text("最新").color(), color("ic_clr_concise_entrust_amount"));
    EXPECT_EQ(picture->text("现手").color(), color("ic_clr_concise_entrust_amount"));
}

TEST_F(ConcisePicture, StripesAlternateFromTheSingularColour)
{
    const QColor sellOdd = color("ic_clr_sell_even");
    const QColor sellEven = color("ic_clr_sell_singular");
    const QColor buyOdd = color("ic_clr_buy_even");
    const QColor buyEven = color("ic_clr_buy_singular");
    EXPECT_THAT(stripes(), ::testing::ElementsAre(sellEven, sellOdd, sellEven, sellOdd, sellEven, buyOdd,
                                                  buyEven, buyOdd, buyEven, buyOdd));
    m_panel.setStock("CI900001");
    EXPECT_THAT(stripes(), ::testing::ElementsAre(sellEven, buyOdd));
}

TEST_F(ConcisePicture, StripesOfTenLevelsAreReversed)
{
    m_panel.setLevelStatus(2);
    m_panel.resize(300, 540);
    const auto all = stripes();
    ASSERT_EQ(all.size(), 20u);
    for (std::size_t i = 0; i < 20; ++i) {
        const bool odd = i % 2 == 1;
        const QColor expected = i < 10 ? color(odd ? "ic_clr_sell_singular" : "ic_clr_sell_even")
                                       : color(odd ? "ic_clr_buy_singular" : "ic_clr_buy_even");
        EXPECT_EQ(all[i], expected) << i;
    }
}

TEST_F(ConcisePicture, AnotherNumberOfLevelsHasNoStripe)
{
    m_panel.m_shelves = 3;
    EXPECT_TRUE(stripes().empty());
}

TEST_F(ConcisePicture, TheLadderHangsFromTheTop)
{
    for (const int height : {100, 600}) {
        m_panel.resize(300, height);
        EXPECT_EQ(m_panel.m_topY, 0) << height;
    }
}

TEST_F(ConcisePicture, NumbersStandAPixelAboveTheLabelsOfTheBuySide)
{
    m_panel.send(test::fullSnapshot());
    const auto picture = m_panel.foreground();
    EXPECT_TRUE(picture->text("10.05").standsIn(QRect(83, 26, 65, 24), kRight));
    EXPECT_TRUE(picture->text("10.01").standsIn(QRect(83, 122, 65, 24), kRight));
    EXPECT_TRUE(picture->text("9.99").standsIn(QRect(83, 172, 65, 24), kRight));
    EXPECT_TRUE(picture->text("9.95").standsIn(QRect(83, 268, 65, 24), kRight));
    EXPECT_TRUE(picture->text("104").standsIn(QRect(198, 26, 55, 24), kRight));
    EXPECT_EQ(picture->text("10.05").color(), color("ic_clr_concise_entrust_text_rise"));
    EXPECT_EQ(picture->text("9.99").color(), color("ic_clr_concise_entrust_text_fall"));
    EXPECT_EQ(picture->text("104").color(), color("ic_clr_concise_entrust_amount"));
    EXPECT_EQ(picture->text("104").clip, QRectF(0, 0, 300, 320));
}

TEST_F(ConcisePicture, LatestPriceAndVolumeStandInTheMiddleRow)
{
    m_panel.send(test::fullSnapshot());
    auto next = test::fullSnapshot();
    next->totalVolume += 4200;
    m_panel.send(next);
    const auto picture = m_panel.foreground();
    EXPECT_TRUE(picture->text("10.00").standsIn(QRect(83, 147, 65, 24), kRight));
    EXPECT_TRUE(picture->text("42").standsIn(QRect(180, 147, 115, 24), kRight));
    EXPECT_EQ(picture->text("42").color(), color("ic_clr_concise_entrust_amount"));
}

TEST_F(ConcisePicture, ChangesAreColouredByTheirSign)
{
    auto before = test::fullSnapshot();
    before->askVolume[0] = 80;
    before->bidVolume[0] = 230;
    m_panel.send(before);
    m_panel.send(test::fullSnapshot());
    const auto picture = m_panel.foreground();
    EXPECT_TRUE(picture->text("+20").standsIn(QRect(258, 122, 40, 24), kRight));
    EXPECT_EQ(picture->text("+20").color(), color("ic_clr_concise_entrust_text_rise"));
    EXPECT_EQ(picture->text("-30").color(), color("ic_clr_concise_entrust_text_fall"));
}

TEST_F(ConcisePicture, TheHeadComparesTheSidesOfTheShownLevels)
{
    m_panel.send(test::fullSnapshot()); // 510 sell, 1010 buy
    const auto picture = m_panel.foreground();
    const int split = 300 * 1010 / 1520;
    ASSERT_EQ(picture->fillsOf(QRectF(0, 24, split, 2)).size(), 1u);
    EXPECT_EQ(picture->fillsOf(QRectF(0, 24, split, 2))[0].color(), color("ic_clr_comparison_line"));
    ASSERT_EQ(picture->fillsOf(QRectF(split, 24, 300 - split, 2)).size(), 1u);
    EXPECT_EQ(picture->fillsOf(QRectF(split, 24, 300 - split, 2))[0].color(), color("ic_clr_deviation_line"));
    EXPECT_TRUE(picture->text("32.89%").standsIn(QRect(150 - 65 - 5, 0, 65, 24), kRight));
    EXPECT_TRUE(picture->text("500").standsIn(QRect(200, 0, 65, 24), kRight));
    EXPECT_EQ(picture->text("500").color(), color("ic_clr_concise_entrust_text_rise"));
    EXPECT_EQ(picture->text("32.89%").color(), color("ic_clr_concise_entrust_text_rise"));
}

TEST_F(ConcisePicture, ARatioBelowNoughtHasTheFallColour)
{
    auto record = test::fullSnapshot();
    record->askVolume[0] = 5000;
    m_panel.send(record);
    const auto picture = m_panel.foreground();
    EXPECT_EQ(picture->text("-4400").color(), color("ic_clr_concise_entrust_text_fall"));
    EXPECT_EQ(picture->text("-68.54%").color(), color("ic_clr_concise_entrust_text_fall"));
}

TEST_F(ConcisePicture, EqualSidesHaveTheRiseColour)
{
    auto record = test::fullSnapshot();
    for (int i = 0; i < 10; ++i)
        record->askVolume[i] = record->bidVolume[i];
    m_panel.send(record);
    EXPECT_EQ(m_panel.foreground()->text("0.00%").color(), color("ic_clr_concise_entrust_text_rise"));
}

TEST_F(ConcisePicture, WithoutVolumesTheBarIsHalvedAndTheHeadEmpty)
{
    const auto picture = m_panel.foreground();
    EXPECT_EQ(picture->fillsOf(QRectF(0, 24, 150, 2)).size(), 1u);
    EXPECT_EQ(picture->fillsOf(QRectF(150, 24, 150, 2)).size(), 1u);
    EXPECT_TRUE(picture->textsIn(QRectF(0, 0, 300, 24)).join("").isEmpty());
}

TEST_F(ConcisePicture, OneSidedLaddersTakeTheWholeBar)
{
    auto sells = test::fullSnapshot();
    auto buys = test::fullSnapshot();
    for (int i = 0; i < 10; ++i) {
        sells->bidVolume[i] = 0;
        buys->askVolume[i] = 0;
    }
    m_panel.send(sells);
    EXPECT_EQ(m_panel.foreground()->fillsOf(QRectF(0, 24, 300, 2)).back().color(),
              color("ic_clr_deviation_line"));
    m_panel.send(buys);
    EXPECT_EQ(m_panel.foreground()->fillsOf(QRectF(0, 24, 300, 2)).front().color(),
              color("ic_clr_comparison_line"));
}

TEST_F(ConcisePicture, LevelsBelowThePanelAreNotSummed)
{
    m_panel.resize(300, 120); // rows at 26, 50, 74, 98: sell five to sell two
    m_panel.send(test::fullSnapshot());
    EXPECT_EQ(m_panel.foreground()->count("-410"), 1);
}

TEST_F(ConcisePicture, ACustomIndexHasVolumesInUnits)
{
    m_panel.setStock("CI900001");
    auto record = test::fullSnapshot();
    record->askVolume[0] = 250000;
    m_panel.send(record);
    EXPECT_EQ(m_panel.foreground()->textsIn(QRectF(180, 26, 120, 24)).join(""), "25.00万");
}

TEST_F(ConcisePicture, TheTipTellsTheSharesOfBothSides)
{
    PaintRecorder recorder(300, 320);
    {
        QPainter painter(&recorder);
        m_panel.drawTip(&painter, 300, 100);
    }
    const auto fills = recorder.fills();
    ASSERT_EQ(fills.size(), 3u);
    EXPECT_EQ(fills[0].rect, QRectF(0, 24, 200, 30));
    EXPECT_EQ(fills[0].color(), color("ic_clr_concise_model_today_amount"));
    EXPECT_EQ(fills[1].rect, QRectF(20, 34, 10, 10));
    EXPECT_EQ(fills[1].color(), color("ic_clr_deviation_line"));
    EXPECT_EQ(fills[2].rect, QRectF(105, 34, 10, 10));
    EXPECT_EQ(fills[2].color(), color("ic_clr_comparison_line"));
    EXPECT_EQ(recorder.texts(), (QStringList{"卖", "25%", "买", "75%"}));
    EXPECT_TRUE(recorder.text("卖").standsIn(QRect(40, 26, 55, 24), kLeft));
    EXPECT_TRUE(recorder.text("25%").standsIn(QRect(60, 26, 55, 24), kLeft));
    EXPECT_TRUE(recorder.text("买").standsIn(QRect(125, 26, 55, 24), kLeft));
    EXPECT_TRUE(recorder.text("75%").standsIn(QRect(145, 26, 55, 24), kLeft));
    EXPECT_EQ(recorder.text("75%").color(), color("ic_clr_concise_buysell_text"));
}

TEST_F(ConcisePicture, TheTipIsShownOnlyWithTheMouseOverTheHeadRow)
{
    m_panel.send(test::fullSnapshot());
    EXPECT_EQ(m_panel.foreground()->count("卖"), 0);
    m_panel.move(100, 10);
    const auto picture = m_panel.foreground();
    EXPECT_EQ(picture->count("34%"), 1);
    EXPECT_EQ(picture->count("66%"), 1);
}

TEST_F(ConcisePicture, TheTipOfAnEmptyLadderHasNoPercentages)
{
    m_panel.m_showTip = true;
    EXPECT_EQ(m_panel.foreground()->texts().join("").remove("卖").remove("买"), "");
}

TEST_F(ConcisePicture, MarkedCellsAreOutlinedTwoPixelsAboveTheirRow)
{
    m_panel.press(100, 5 * 24 + 12);
    const auto marks = m_panel.foreground()->all(PaintCommand::eRect);
    ASSERT_EQ(marks.size(), 1u);
    EXPECT_EQ(marks[0].rect.topLeft(), QPointF(83, 120));
    EXPECT_EQ(marks[0].pen.color(), color("ic_clr_concise_entrust_amount"));
}

TEST_F(ConcisePicture, LabelsHaveTheTextFont)
{
    const auto picture = m_panel.background();
    for (const char* label : {"委比", "委差", "卖五", "买五", "最新", "现手"})
        EXPECT_TRUE(test::hasFont(picture->text(label), test::kTextFont)) << label;
}

TEST_F(ConcisePicture, NumbersHaveTheFontsOfPriceAndAmount)
{
    auto before = test::fullSnapshot();
    before->askVolume[0] = 80;
    m_panel.send(before);
    auto next = test::fullSnapshot();
    next->totalVolume += 4200;
    m_panel.send(next);
    const auto picture = m_panel.foreground();
    for (const char* price : {"10.05", "9.95", "10.00", "32.89%", "500"})
        EXPECT_TRUE(test::hasFont(picture->text(price), test::kPriceFont)) << price;
    for (const char* amount : {"104", "204", "42", "+20"})
        EXPECT_TRUE(test::hasFont(picture->text(amount), test::kAmountFont)) << amount;
}

TEST_F(ConcisePicture, BeforeItIsShownNothingStandsOnTheGround)
{
    ConciseProbe panel;
    panel.setStock("SH600000");
    panel.resize(300, 320);
    QResizeEvent event(QSize(300, 320), QSize(10, 10));
    QCoreApplication::sendEvent(&panel, &event);
    ASSERT_EQ(panel.m_panelRect, QRect(0, 0, 300, 320));
    const QImage before = panel.m_background.toImage();
    QImage bare = before;
    bare.fill(color("ic_clr_graph_kline_bg"));
    EXPECT_EQ(before, bare);
    panel.show();
    EXPECT_NE(panel.m_background.toImage(), bare);
}

TEST_F(ConcisePicture, TheBackgroundWaitsUntilThePanelIsShown)
{
    m_panel.hide();
    QResizeEvent event(QSize(300, 320), QSize(10, 10));
    m_panel.m_panelRect = QRect(0, 0, 10, 10);
    QCoreApplication::sendEvent(&m_panel, &event);
    EXPECT_EQ(m_panel.m_panelRect, QRect(0, 0, 300, 320));
    const qint64 before = m_panel.m_background.cacheKey();
    m_panel.show();
    EXPECT_NE(m_panel.m_background.cacheKey(), before);
}
