// The picture of the plain panel.

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

using test::hasFont;
using test::kAmountFont;
using test::kPriceFont;
using test::kTextFont;

class PlainPicture : public ::testing::Test
{
protected:
    void SetUp() override
    {
        test::stocks().clear();
        test::addInstrument("SH", "600000");
        test::addInstrument("CI", "900001");
        m_panel.setStock("SH600000");
        m_panel.setLevelStatus(1);
        m_panel.resize(300,
                       300); // five levels: topY 40, rows at 40 to 120, middle row 140, rows at 160 to 240
        m_panel.show();
        QCoreApplication::processEvents();
    }
    void TearDown() override { test::stocks().clear(); }

    test::LevelPanelProbe<CDepthEntrustStatusWidget> m_panel;
};

} // namespace

TEST_F(PlainPicture, TheLadderStandsInTheMiddleOfThePanel)
{
    EXPECT_EQ(m_panel.m_topY, 40);
    m_panel.resize(300, 120);
    EXPECT_EQ(m_panel.m_topY, -50);
    m_panel.resize(300, 221);
    EXPECT_EQ(m_panel.m_topY, 0) << "half a pixel is cut";
}

TEST_F(PlainPicture, OtherLevelsMoveTheLadderAtTheNextResize)
{
    m_panel.setLevelStatus(2);
    EXPECT_EQ(m_panel.m_topY, 40) << "a host gives the panel the height that it asks for now";
    m_panel.resize(300, m_panel.getMinimumSizeHeight());
    EXPECT_EQ(m_panel.m_topY, 0);
}

TEST_F(PlainPicture, TheGroundIsFilledAndTheMiddleRowLinedBeforeAnythingIsClipped)
{
    const auto picture = m_panel.background();
    const auto& commands = picture->commands();
    ASSERT_GE(commands.size(), 4u);
    EXPECT_EQ(commands[0].kind, PaintCommand::eFill);
    EXPECT_EQ(commands[0].rect, QRectF(0, 0, 300, 300));
    EXPECT_EQ(commands[0].color(), color("ic_clr_graph_kline_bg"));
    const auto lines = picture->lineCommands();
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0].line.y1(), 140);
    EXPECT_EQ(lines[1].line.y1(), 160);
    for (const auto& line : lines) {
        EXPECT_EQ(line.line.y1(), line.line.y2());
        EXPECT_EQ(line.line.x1(), 0);
        EXPECT_GE(line.line.x2(), 299);
        EXPECT_EQ(line.color(), color("ic_clr_dialog_stock_splitter"));
        EXPECT_TRUE(line.clip.isNull());
    }
    EXPECT_EQ(picture->text("最新").clip, QRectF(2, 2, 296, 296));
}

TEST_F(PlainPicture, LabelsStandInTheirRowsFromTheTop)
{
    const auto picture = m_panel.background();
    // A letter and its number may be runs of different fonts.
    EXPECT_EQ(picture->texts().join(""), "最新现手卖⑤卖④卖③卖②卖①买①买②买③买④买⑤");
    const auto labelIn = [&picture](const QRect& box, const char* letter) {
        for (const PaintCommand& text : picture->all(PaintCommand::eText)) {
            if (text.text.startsWith(QString(letter)) && text.standsIn(box, kLeft))
                return text;
        }
        return PaintCommand();
    };
    EXPECT_TRUE(picture->text("最新").standsIn(QRect(3, 140, 30, 20), kLeft));
    EXPECT_TRUE(picture->text("现手").standsIn(QRect(5 + 8 + 45 + 65 + 30, 140, 65, 20), kLeft));
    EXPECT_EQ(labelIn(QRect(3, 40, 30, 20), "卖").kind, PaintCommand::eText);
    EXPECT_EQ(labelIn(QRect(3, 120, 30, 20), "卖").kind, PaintCommand::eText);
    EXPECT_EQ(labelIn(QRect(3, 160, 30, 20), "买").kind, PaintCommand::eText);
    EXPECT_EQ(labelIn(QRect(3, 240, 30, 20), "买").kind, PaintCommand::eText);
    EXPECT_EQ(picture->text("最新").color(), color("ic_clr_entrust_lastest_text"));
    EXPECT_EQ(picture->text("现手").color(), color("ic_clr_entrust_lastest_text"));
    EXPECT_EQ(labelIn(QRect(3, 40, 30, 20), "卖").color(), color("ic_clr_entrust_default_text"));
    EXPECT_TRUE(hasFont(labelIn(QRect(3, 240, 30, 20), "买"), kTextFont));
    EXPECT_TRUE(hasFont(picture->text("最新"), kTextFont));
    EXPECT_TRUE(hasFont(picture->text("现手"), kTextFont));
}

TEST_F(PlainPicture, RowsAboveThePanelArePassedOverAndThoseBelowEndIt)
{
    m_panel.resize(300, 100); // topY -60: rows at -60, -40, -20, 0, 20, middle 40, rows at 60, 80, 100
    const auto picture = m_panel.background();
    EXPECT_EQ(picture->texts().join(""), "最新现手卖③卖②卖①买①买②")
        << "a row that ends at 0 is still drawn, one that begins at the bottom is not";
}

TEST_F(PlainPicture, NumbersStandInTheirColumns)
{
    auto before = test::fullSnapshot();
    before->askVolume[0] = 80;
    before->bidVolume[0] = 230;
    m_panel.send(before);
    m_panel.send(test::fullSnapshot());
    const auto picture = m_panel.foreground();
    const auto price = picture->text("10.01");
    EXPECT_TRUE(price.standsIn(QRect(83, 120, 65, 20), kRight));
    EXPECT_TRUE(hasFont(price, kPriceFont));
    EXPECT_EQ(price.color(), color("ic_clr_entrust_text_rise"));
    EXPECT_TRUE(picture->text("9.99").standsIn(QRect(83, 160, 65, 20), kRight));
    EXPECT_EQ(picture->text("9.99").color(), color("ic_clr_entrust_text_fall"));
    const auto volume = picture->text("100");
    EXPECT_TRUE(volume.standsIn(QRect(198, 120, 55, 20), kRight));
    EXPECT_TRUE(hasFont(volume, kAmountFont));
    EXPECT_EQ(volume.color(), color("ic_clr_entrust_amount"));
    EXPECT_TRUE(picture->text("+20").standsIn(QRect(258, 120, 40, 20), kRight));
    EXPECT_EQ(picture->text("+20").color(), color("ic_clr_entrust_text_rise"));
    EXPECT_TRUE(hasFont(picture->text("+20"), kAmountFont)) << "as the volume beside it";
    EXPECT_TRUE(picture->text("-30").standsIn(QRect(258, 160, 40, 20), kRight));
    EXPECT_EQ(picture->text("-30").color(), color("ic_clr_entrust_text_fall"));
    EXPECT_EQ(price.clip, QRectF(2, 2, 296, 296));
}

TEST_F(PlainPicture, FiveOfTheTenLevelsAreShown)
{
    m_panel.send(test::fullSnapshot());
    const auto picture = m_panel.foreground();
    EXPECT_EQ(picture->texts().mid(2),
              (QStringList{"10.05", "104", "10.04", "103", "10.03", "102", "10.02", "101", "10.01", "100",
                           "9.99",  "200", "9.98",  "201", "9.97",  "202", "9.96",  "203", "9.95",  "204"}));
    m_panel.setLevelStatus(2);
    m_panel.resize(300, 421);
    const auto ten = m_panel.foreground();
    EXPECT_EQ(ten->count("10.10"), 1);
    EXPECT_TRUE(ten->text("10.10").standsIn(QRect(83, 0, 65, 20), kRight));
    EXPECT_TRUE(ten->text("9.90").standsIn(QRect(83, 400, 65, 20), kRight));
}

TEST_F(PlainPicture, APriceAtTheReferenceHasTheDefaultColour)
{
    auto record = test::fullSnapshot();
    record->bidPrice[0] = 10;
    m_panel.send(record);
    const auto picture = m_panel.foreground();
    for (const auto& text : picture->textCommands("10.00"))
        EXPECT_EQ(text.color(), color("ic_clr_entrust_default_text"));
    EXPECT_EQ(picture->count("10.00"), 2) << "the latest price and buy one";
}

TEST_F(PlainPicture, TheMiddleRowHasLatestPriceAndVolume)
{
    m_panel.send(test::fullSnapshot());
    auto next = test::fullSnapshot();
    next->totalVolume += 4200;
    next->lastPrice = 10.5;
    m_panel.send(next);
    const auto picture = m_panel.foreground();
    EXPECT_TRUE(picture->text("10.50").standsIn(QRect(83, 140, 65, 20), kRight));
    EXPECT_EQ(picture->text("10.50").color(), color("ic_clr_entrust_text_rise"));
    EXPECT_TRUE(hasFont(picture->text("10.50"), kPriceFont));
    EXPECT_TRUE(picture->text("42").standsIn(QRect(300 - 65 - 55, 140, 115, 20), kRight));
    EXPECT_EQ(picture->text("42").color(), color("ic_clr_entrust_newvol_amount"));
    EXPECT_TRUE(hasFont(picture->text("42"), kAmountFont));
}

TEST_F(PlainPicture, WithoutALatestPriceTheMiddleRowIsEmpty)
{
    auto record = test::fullSnapshot();
    record->lastPrice = 0;
    m_panel.send(record);
    EXPECT_TRUE(m_panel.foreground()->textsIn(QRectF(0, 140, 300, 20)).isEmpty());
}

TEST_F(PlainPicture, InvalidLevelsAreEmptyAndMissingNumbersDashes)
{
    auto record = test::fullSnapshot();
    record->askPrice[0] = 0; // volume without a price
    record->askVolume[1] = 0;
    record->askPrice[2] = 0;
    record->askVolume[2] = 0;
    m_panel.send(record);
    const auto picture = m_panel.foreground();
    EXPECT_EQ(picture->textsIn(QRectF(0, 120, 300, 20)), (QStringList{"-", "100"}));
    EXPECT_EQ(picture->textsIn(QRectF(0, 100, 300, 20)), (QStringList{"10.02", "-"}));
    EXPECT_TRUE(picture->textsIn(QRectF(0, 80, 300, 20)).isEmpty());
}

TEST_F(PlainPicture, ACustomIndexHasVolumesInUnits)
{
    m_panel.setStock("CI900001");
    m_panel.resize(300, 60);
    auto record = test::fullSnapshot();
    record->askVolume[0] = 250000;
    m_panel.send(record);
    EXPECT_EQ(m_panel.foreground()->textsIn(QRectF(180, 0, 120, 20)).join(""), "25.00万");
    EXPECT_EQ(m_panel.foreground()->count("200.00"), 1);
}

TEST_F(PlainPicture, MarkedCellsAreOutlinedInTheirRows)
{
    m_panel.press(100, 125); // sell one: cell 83,80 counted from the first row
    m_panel.move(200, 165);  // volume of buy one
    const auto picture = m_panel.foreground();
    const auto marks = picture->all(PaintCommand::eRect);
    ASSERT_EQ(marks.size(), 2u);
    EXPECT_EQ(marks[0].rect.topLeft(), QPointF(83, 120));
    EXPECT_EQ(marks[1].rect.topLeft(), QPointF(198, 160));
    for (const auto& mark : marks) {
        EXPECT_EQ(mark.pen.color(), color("ic_clr_entrust_amount"));
        EXPECT_EQ(mark.brush.style(), Qt::NoBrush);
    }
    m_panel.leave();
    EXPECT_EQ(m_panel.foreground()->all(PaintCommand::eRect).size(), 1u);
}

TEST_F(PlainPicture, TheSameSizeAgainChangesNothing)
{
    const qint64 before = m_panel.m_background.cacheKey();
    QResizeEvent event(QSize(300, 300), QSize(10, 10));
    QCoreApplication::sendEvent(&m_panel, &event);
    EXPECT_EQ(m_panel.m_background.cacheKey(), before);
}

TEST_F(PlainPicture, TheBackgroundIsMadeWhileThePanelIsHidden)
{
    m_panel.hide();
    m_panel.resize(280, 280);
    QCoreApplication::processEvents();
    m_panel.ensurePolished();
    QResizeEvent event(QSize(280, 280), QSize(300, 300));
    QCoreApplication::sendEvent(&m_panel, &event);
    const QImage made = m_panel.m_background.toImage();
    m_panel.drawBackground();
    EXPECT_EQ(made, m_panel.m_background.toImage());
    EXPECT_EQ(made.pixelColor(1, 1), color("ic_clr_graph_kline_bg"));
    EXPECT_EQ(made.pixelColor(1, 130), color("ic_clr_dialog_stock_splitter"));
}
