// Cells under the mouse, the tip, and the parameters that a click sends.

#include "LevelPanelProbes.h"

#include <QPointer>
#include <QStringList>

using namespace Kel;

namespace {

class ConciseProbe : public test::LevelPanelProbe<CDepthConciseStyleEntrustStatusWidget>
{
public:
    using CDepthConciseStyleEntrustStatusWidget::m_showTip;
    using LevelPanelProbe::LevelPanelProbe;
};

class ConciseClicks : public ::testing::Test
{
protected:
    void SetUp() override
    {
        test::stocks().clear();
        test::addInstrument("SH", "600000");
        m_panel.setStock("SH600000");
        m_panel.setLevelStatus(1); // five levels: head in row 0, levels from row 1, the middle one is 6
        m_panel.resize(300, 300);  // price 83 to 148, volume 198 to 253, latest volume 230 to 300
        m_panel.setPairParamFunc([this](const QString& text) { m_sent.append(text); });
        m_panel.show();
        QCoreApplication::processEvents();
    }
    void TearDown() override { test::stocks().clear(); }

    int rowY(int row) const { return row * 24 + 12; }

    void sendQuote()
    {
        auto first = test::fullSnapshot();
        m_panel.send(first);
        auto second = test::fullSnapshot();
        second->totalVolume += 1800;
        m_panel.send(second);
    }

    static QString sent(const char* type, const char* price, const char* volume)
    {
        return QStringLiteral(
                   R"({ "stockcode" : "SH600000", "pricetype" : "%1", "price" : "%2", "vol" : "%3" })")
            .arg(type, price, volume);
    }

    /// What a click on a point sends, empty for nothing.
    QString click(int x, int row)
    {
        m_sent.clear();
        m_panel.press(x, rowY(row));
        return m_sent.join('|');
    }

    ConciseProbe m_panel;
    QStringList m_sent;
};

} // namespace

TEST_F(ConciseClicks, CellsArePriceAndVolumeAndNoLabel)
{
    EXPECT_EQ(m_panel.getCursorRect(10, rowY(2)), QRect());
    EXPECT_EQ(m_panel.getCursorRect(100, rowY(2)), QRect(83, 48, 65, 24));
    EXPECT_EQ(m_panel.getCursorRect(200, rowY(2)), QRect(198, 48, 55, 24));
    EXPECT_EQ(m_panel.getCursorRect(280, rowY(2)), QRect());
    EXPECT_EQ(m_panel.getCursorRect(200, rowY(6)), QRect());
    EXPECT_EQ(m_panel.getCursorRect(280, rowY(6)), QRect(230, 144, 70, 24));
}

TEST_F(ConciseClicks, TheHeadRowIsNoCellAndRowsHaveNoEnd)
{
    EXPECT_EQ(m_panel.getCursorRect(100, 23), QRect());
    EXPECT_EQ(m_panel.getCursorRect(100, 24), QRect(83, 24, 65, 24));
    EXPECT_EQ(m_panel.getCursorRect(100, rowY(40)), QRect(83, 960, 65, 24));
    EXPECT_EQ(m_panel.getCursorRect(100, -30), QRect());
}

TEST_F(ConciseClicks, ALabelSendsThePriceTypeOfItsLevel)
{
    sendQuote();
    EXPECT_EQ(click(10, 1), sent("0", "10.05", "0"));
    EXPECT_EQ(click(10, 5), sent("4", "10.01", "0"));
    EXPECT_EQ(click(10, 6), sent("5", "10", "0"));
    EXPECT_EQ(click(10, 7), sent("6", "9.99", "0"));
    EXPECT_EQ(click(10, 11), sent("10", "9.95", "0"));
}

TEST_F(ConciseClicks, APriceSendsTypeElevenWithThePrice)
{
    sendQuote();
    EXPECT_EQ(click(100, 5), sent("11", "10.01", "0"));
    EXPECT_EQ(click(100, 6), sent("11", "10", "0"));
    EXPECT_EQ(click(100, 7), sent("11", "9.99", "0"));
}

TEST_F(ConciseClicks, AVolumeSendsTypeMinusOneWithTheVolume)
{
    sendQuote();
    EXPECT_EQ(click(200, 5), sent("-1", "0", "100"));
    EXPECT_EQ(click(280, 6), sent("-1", "0", "18"));
    EXPECT_EQ(click(200, 8), sent("-1", "0", "201"));
}

TEST_F(ConciseClicks, TheHalfIsThatOfThePanelAndNotOfTheCell)
{
    m_panel.resize(250, 300); // price 58 to 123, volume 148 to 203; the middle is 125
    sendQuote();
    EXPECT_EQ(click(120, 5), sent("11", "10.01", "0"));
    m_panel.resize(211, 300); // price zone 66: price 38 to 103, the middle is 105; volume 109 to 164
    EXPECT_EQ(click(102, 5), sent("11", "10.01", "0"));
    m_panel.resize(150, 300); // price 38 to 103, the middle is 75: the cell lies on both sides of it
    EXPECT_EQ(click(74, 5), sent("11", "10.01", "0"));
    EXPECT_EQ(click(75, 5), sent("11", "0", "100")) << "right of the middle a price cell sends the volume";
}

TEST_F(ConciseClicks, BesideTheZonesNothingIsSent)
{
    sendQuote();
    for (const int x : {3, 33, 83, 148, 160, 198, 253, 290})
        EXPECT_EQ(click(x, 5), "") << x;
    EXPECT_EQ(click(200, 6), "");
    QString message;
    EXPECT_TRUE(m_panel.doTradeFunc(160, rowY(5), message)) << "the row itself can be traded by";
    EXPECT_TRUE(m_sent.isEmpty());
}

TEST_F(ConciseClicks, TheHeadRowAndWhatLiesBelowTheRowsSendNothing)
{
    sendQuote();
    EXPECT_EQ(click(100, 0), "");
    EXPECT_EQ(click(10, 0), "");
    EXPECT_EQ(click(100, 12), "");
    QString message;
    EXPECT_FALSE(m_panel.doTradeFunc(100, rowY(0), message));
    EXPECT_EQ(message, QStringLiteral("不在有效报价范围内!"));
    message.clear();
    EXPECT_FALSE(m_panel.doTradeFunc(100, rowY(12), message));
    EXPECT_EQ(message, QStringLiteral("不在有效报价范围内!"));
}

TEST_F(ConciseClicks, InvalidLevelsSendNothingAndOnlyTheSellSideIsNamed)
{
    QString message;
    EXPECT_FALSE(m_panel.doTradeFunc(100, rowY(1), message));
    EXPECT_EQ(message, QStringLiteral("卖五价无效!"));
    EXPECT_FALSE(m_panel.doTradeFunc(100, rowY(6), message));
    EXPECT_EQ(message, QStringLiteral("最新价无效!"));
    EXPECT_FALSE(m_panel.doTradeFunc(100, rowY(7), message));
    EXPECT_EQ(message, QStringLiteral("价无效!"));
    EXPECT_TRUE(m_sent.isEmpty());
}

TEST_F(ConciseClicks, ALevelWithoutAPriceSendsNought)
{
    auto record = test::fullSnapshot();
    record->bidPrice[1] = 0;
    m_panel.send(record);
    EXPECT_EQ(click(100, 8), sent("11", "0", "0"));
    EXPECT_EQ(click(200, 8), sent("-1", "0", "201"));
}

TEST_F(ConciseClicks, TenLevelsSendTheirTypes)
{
    m_panel.setLevelStatus(2);
    m_panel.resize(300, 540);
    sendQuote();
    EXPECT_EQ(click(10, 1), sent("34", "10.1", "0"));
    EXPECT_EQ(click(10, 5), sent("30", "10.06", "0"));
    EXPECT_EQ(click(10, 17), sent("35", "9.94", "0"));
    EXPECT_EQ(click(10, 21), sent("39", "9.9", "0"));
}

TEST_F(ConciseClicks, WithoutAReceiverTheCellIsStillMarked)
{
    m_panel.setPairParamFunc({});
    sendQuote();
    m_panel.press(100, rowY(5));
    EXPECT_EQ(m_panel.m_clickRect, QRect(83, 120, 65, 24));
    QString message;
    EXPECT_TRUE(m_panel.doTradeFunc(100, rowY(5), message));
}

TEST_F(ConciseClicks, TheReceiverMayBeReplacedByItself)
{
    ConciseProbe probe;
    ConciseProbe* const panel = &probe;
    panel->setStock("SH600000");
    panel->resize(300, 540);
    panel->send(test::fullSnapshot());
    panel->setPairParamFunc([panel](const QString&) { panel->setPairParamFunc({}); });
    QString message;
    EXPECT_TRUE(panel->doTradeFunc(100, rowY(5), message));
}

TEST_F(ConciseClicks, OnANarrowPanelTheLabelIsAskedFirst)
{
    sendQuote();
    m_panel.resize(90, 300); // the latest volume takes clicks from 20 on, the label those up to 33
    EXPECT_EQ(click(25, 6), sent("5", "10", "0"));
    EXPECT_EQ(click(36, 6), sent("-1", "10", "0"));
}

TEST_F(ConciseClicks, TheParametersGoOutBeforeTheCellIsMarked)
{
    sendQuote();
    m_panel.press(100, rowY(4));
    QRect marked;
    m_panel.setPairParamFunc([&](const QString&) { marked = m_panel.m_clickRect; });
    m_panel.press(100, rowY(5));
    EXPECT_EQ(marked, QRect(83, 96, 65, 24));
    EXPECT_EQ(m_panel.m_clickRect, QRect(83, 120, 65, 24));
}

TEST_F(ConciseClicks, TheReceiverMayCloseThePanel)
{
    QWidget window;
    QPointer<ConciseProbe> panel = new ConciseProbe;
    panel->setParent(&window);
    panel->setStock("SH600000");
    panel->resize(300, 540);
    window.show();
    panel->send(test::fullSnapshot());
    panel->setPairParamFunc([&panel](const QString&) { delete panel.data(); });
    panel->press(100, rowY(5));
    EXPECT_FALSE(panel);
}

TEST_F(ConciseClicks, WhoReceivesTheParametersMayChooseAnotherInstrument)
{
    test::addInstrument("SZ", "000001");
    sendQuote();
    m_panel.setPairParamFunc([this](const QString&) { m_panel.setStock("SZ000001"); });
    m_panel.press(100, rowY(5));
    EXPECT_TRUE(m_panel.m_clickRect.isNull()) << "of the new one no cell was clicked";
    m_panel.press(100, rowY(5));
    EXPECT_EQ(m_panel.m_clickRect, QRect(83, 120, 65, 24)) << "the same one once more is no change";
}

TEST_F(ConciseClicks, ALevelOfTheVectorsEndIsInvalid)
{
    sendQuote();
    m_panel.m_model.bidLevels.resize(2);
    EXPECT_EQ(click(100, 8), sent("11", "9.98", "0"));
    EXPECT_EQ(click(100, 9), "");
    QString message;
    EXPECT_FALSE(m_panel.doTradeFunc(100, rowY(9), message));
    EXPECT_EQ(message, QStringLiteral("价无效!"));
    EXPECT_EQ(m_panel.foreground()->count("9.98"), 1);
    EXPECT_EQ(m_panel.foreground()->count("9.97"), 0);
}

TEST_F(ConciseClicks, AfterAnUnknownCodeNothingIsSent)
{
    sendQuote();
    m_panel.setStock("NOTHING");
    ASSERT_TRUE(m_panel.m_model.bidLevels[0].valid) << "the rows stay";
    EXPECT_EQ(click(100, 5), "");
    m_panel.setStock("SH600000");
    EXPECT_EQ(click(100, 5), sent("11", "10.01", "0"));
}

TEST_F(ConciseClicks, TheTipShowsWhileTheMouseIsOverTheHeadRow)
{
    sendQuote();
    m_panel.paints();
    m_panel.move(160, 10);
    EXPECT_TRUE(m_panel.m_showTip);
    EXPECT_EQ(m_panel.paints(), 1) << "though no cell has changed";
    m_panel.move(170, 12);
    EXPECT_EQ(m_panel.paints(), 0);
    m_panel.move(160, rowY(2));
    EXPECT_FALSE(m_panel.m_showTip);
    EXPECT_EQ(m_panel.paints(), 1);
    m_panel.press(160, 10);
    EXPECT_TRUE(m_panel.m_showTip);
    EXPECT_EQ(m_panel.paints(), 1);
    m_panel.leave();
    EXPECT_FALSE(m_panel.m_showTip);
    EXPECT_EQ(m_panel.paints(), 1);
}
