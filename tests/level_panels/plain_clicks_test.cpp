// Cells under the mouse, and what a click on them checks.

#include "LevelPanelProbes.h"

using namespace Kel;

namespace {

class PlainClicks : public ::testing::Test
{
protected:
    void SetUp() override
    {
        test::stocks().clear();
        test::addInstrument("SH", "600000");
        m_panel.setStock("SH600000");
        m_panel.setLevelStatus(1); // five levels: rows 0 to 10, the middle one is 5
        m_panel.resize(300, 300);  // price 83 to 148, volume 198 to 253, latest volume 230 to 300
        m_panel.show();
        QCoreApplication::processEvents();
        ASSERT_EQ(m_panel.m_topY, 40);
    }
    void TearDown() override { test::stocks().clear(); }

    /// y of the middle of a row.
    int rowY(int row) const { return m_panel.m_topY + row * 20 + 10; }

    bool trade(int row, QString& message) { return m_panel.doTradeFunc(100, rowY(row), message); }

    test::LevelPanelProbe<CDepthEntrustStatusWidget> m_panel;
};

} // namespace

TEST_F(PlainClicks, CellsAreLabelPriceAndVolume)
{
    EXPECT_EQ(m_panel.getCursorRect(10, rowY(2)), QRect(3, 40, 30, 20));
    EXPECT_EQ(m_panel.getCursorRect(100, rowY(2)), QRect(83, 40, 65, 20));
    EXPECT_EQ(m_panel.getCursorRect(200, rowY(2)), QRect(198, 40, 55, 20));
    EXPECT_EQ(m_panel.getCursorRect(160, rowY(2)), QRect());
    EXPECT_EQ(m_panel.getCursorRect(280, rowY(2)), QRect());
    EXPECT_EQ(m_panel.getCursorRect(3, rowY(2)), QRect());
    EXPECT_EQ(m_panel.getCursorRect(33, rowY(2)), QRect());
}

TEST_F(PlainClicks, TheMiddleRowHasTheLatestVolumeAtTheRight)
{
    EXPECT_EQ(m_panel.getCursorRect(10, rowY(5)), QRect(3, 100, 30, 20));
    EXPECT_EQ(m_panel.getCursorRect(100, rowY(5)), QRect(83, 100, 65, 20));
    EXPECT_EQ(m_panel.getCursorRect(200, rowY(5)), QRect());
    EXPECT_EQ(m_panel.getCursorRect(280, rowY(5)), QRect(230, 100, 70, 20));
}

TEST_F(PlainClicks, RowsRunFromNoughtToTwiceTheLevels)
{
    EXPECT_EQ(m_panel.getCursorRect(100, rowY(10)), QRect(83, 200, 65, 20));
    EXPECT_EQ(m_panel.getCursorRect(100, rowY(11)), QRect());
    EXPECT_EQ(m_panel.getCursorRect(100, 40 - 20), QRect());
    EXPECT_EQ(m_panel.getCursorRect(100, 40 - 19), QRect(83, 0, 65, 20)) << "division cuts toward zero";
}

TEST_F(PlainClicks, WithoutAQuoteEveryRowIsInvalid)
{
    QString message;
    EXPECT_FALSE(trade(0, message));
    EXPECT_EQ(message, QStringLiteral("卖⑤价无效!"));
    EXPECT_FALSE(trade(4, message));
    EXPECT_EQ(message, QStringLiteral("卖①价无效!"));
    EXPECT_FALSE(trade(5, message));
    EXPECT_EQ(message, QStringLiteral("最新价无效!"));
    EXPECT_FALSE(trade(6, message));
    EXPECT_EQ(message, QStringLiteral("价无效!")) << "buy levels are not named";
    EXPECT_FALSE(trade(10, message));
    EXPECT_EQ(message, QStringLiteral("价无效!"));
}

TEST_F(PlainClicks, OutsideTheRowsThereIsNoQuote)
{
    QString message;
    EXPECT_FALSE(trade(11, message));
    EXPECT_EQ(message, QStringLiteral("不在有效报价范围内!"));
    message.clear();
    EXPECT_FALSE(m_panel.doTradeFunc(100, 20, message));
    EXPECT_EQ(message, QStringLiteral("不在有效报价范围内!"));
}

TEST_F(PlainClicks, RowsWithAQuoteAreValid)
{
    m_panel.send(test::fullSnapshot());
    QString message;
    for (int row = 0; row <= 10; ++row)
        EXPECT_TRUE(trade(row, message)) << row;
    EXPECT_EQ(message, "");
}

TEST_F(PlainClicks, EachRowAsksItsOwnLevel)
{
    const auto record = test::fullSnapshot();
    record->askPrice[0] = 0;
    record->askVolume[0] = 0;
    record->bidPrice[4] = 0;
    record->bidVolume[4] = 0;
    m_panel.send(record);
    QString message;
    for (int row = 0; row <= 10; ++row)
        EXPECT_EQ(trade(row, message), row != 4 && row != 10) << row;
}

TEST_F(PlainClicks, ALevelOfTheVectorsEndIsInvalid)
{
    m_panel.send(test::fullSnapshot());
    m_panel.m_model.bidLevels.resize(2);
    QString message;
    EXPECT_TRUE(trade(7, message));
    EXPECT_FALSE(trade(8, message));
}

TEST_F(PlainClicks, AClickOnAnInvalidBuyLevelStillMarksTheCell)
{
    m_panel.press(100, rowY(7));
    EXPECT_EQ(m_panel.m_clickRect, QRect(83, 140, 65, 20));
}

TEST_F(PlainClicks, NothingIsSent)
{
    int sent = 0;
    m_panel.setPairParamFunc([&sent](const QString&) { ++sent; });
    m_panel.send(test::fullSnapshot());
    for (const int x : {10, 100, 200, 280}) {
        for (int row = 0; row <= 10; ++row)
            m_panel.press(x, rowY(row));
    }
    EXPECT_EQ(sent, 0);
}

TEST_F(PlainClicks, AClickBesideTheCellsTakesTheMarkAway)
{
    m_panel.press(100, rowY(7));
    m_panel.press(160, rowY(7));
    EXPECT_TRUE(m_panel.m_clickRect.isNull());
}
