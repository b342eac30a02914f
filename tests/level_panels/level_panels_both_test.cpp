// What both quote panels do alike.

#include "LevelPanelProbes.h"
#include "platform/LogCapture.h"
#include "platform/resources/CUiResource.h"

#include <QWheelEvent>

#include <boost/thread/thread.hpp>

#include <limits>
#include <sstream>
#include <string>
#include <type_traits>

using namespace Kel;

namespace {

const QColor& colorOf(const char* key)
{
    return *utils::CSingletonT<Zeb::CUiResource>::instance().getColor(QLatin1String(key));
}

/// Counts the calls that wait for a panel in its thread.
class CallCounter : public QObject
{
public:
    bool eventFilter(QObject*, QEvent* event) override
    {
        calls += event->type() == QEvent::MetaCall ? 1 : 0;
        return false;
    }

    int calls = 0;
};

template <class Panel>
class BothPanels : public ::testing::Test
{
protected:
    void SetUp() override
    {
        test::stocks().clear();
        test::addInstrument("SH", "600000");
        test::addInstrument("SZ", "000001");
        test::addInstrument("CFFEX", "IF2403", 0.2, 4000);
        test::addInstrument("YSWP", "FR007");
        test::addInstrument("SHOP", "10000001", 0.0001, 0.1);
    }
    void TearDown() override { test::stocks().clear(); }

    void show()
    {
        m_panel.setStock("SH600000");
        m_panel.resize(260, 500);
        m_panel.show();
        m_panel.paints();
    }

    static constexpr bool isConcise = std::is_same_v<Panel, CDepthConciseStyleEntrustStatusWidget>;
    test::LevelPanelProbe<Panel> m_panel{true};
};

using Panels = ::testing::Types<CDepthEntrustStatusWidget, CDepthConciseStyleEntrustStatusWidget>;
struct PanelNames
{
    template <class Panel>
    static std::string GetName(int)
    {
        return std::is_same_v<Panel, CDepthEntrustStatusWidget> ? "Plain" : "Concise";
    }
};
TYPED_TEST_SUITE(BothPanels, Panels, PanelNames);

} // namespace

TYPED_TEST(BothPanels, HaveTheNameAndTheLeastHeight)
{
    EXPECT_EQ(this->m_panel.objectName(), "CDepthEntrustStatusWidget");
    EXPECT_EQ(this->m_panel.minimumHeight(), 60);
}

TYPED_TEST(BothPanels, BeginWithOneLevelAndTheFirstSizes)
{
    auto& panel = this->m_panel;
    panel.resetShelves();
    EXPECT_EQ(panel.getShelves(), 1);
    EXPECT_EQ(panel.m_labels, &panel.m_labels1);
    EXPECT_EQ(panel.m_rowHeight, this->isConcise ? 24 : 20);
    EXPECT_EQ(panel.m_labelWidth, 30);
    EXPECT_EQ(panel.m_priceWidth, 65);
    EXPECT_EQ(panel.m_volumeWidth, 55);
    EXPECT_EQ(panel.m_deltaWidth, 40);
    EXPECT_EQ(panel.m_spacing, 5);
    EXPECT_EQ(panel.m_priceZoneWidth, 50);
    EXPECT_EQ(panel.m_topY, 0);
    EXPECT_TRUE(panel.m_panelRect.isNull());
    EXPECT_FALSE(panel.m_shown);
    panel.setLevelStatus(2);
    EXPECT_EQ(panel.getShelves(), 1) << "no instrument, no levels";
}

TYPED_TEST(BothPanels, HaveThreeListsOfLabels)
{
    const auto& panel = this->m_panel;
    const QString ten = QString(this->isConcise ? "卖十" : "卖⑩");
    ASSERT_EQ(panel.m_labels10.size(), 20);
    EXPECT_EQ(panel.m_labels10.first(), ten);
    EXPECT_EQ(panel.m_labels10.last(), QString(this->isConcise ? "买十" : "买⑩"));
    EXPECT_EQ(panel.m_labels5, panel.m_labels10.mid(5, 10));
    EXPECT_EQ(panel.m_labels5.first(), QString(this->isConcise ? "卖五" : "卖⑤"));
    EXPECT_EQ(panel.m_labels1, panel.m_labels10.mid(9, 2));
    EXPECT_EQ(panel.m_labels1.first(), QString(this->isConcise ? "卖一" : "卖①"));
    EXPECT_EQ(panel.m_labels1.last(), QString(this->isConcise ? "买一" : "买①"));
}

TYPED_TEST(BothPanels, ShowTheLevelsThatMarketAndStatusAskFor)
{
    auto& panel = this->m_panel;
    panel.setStock("SH600000");
    EXPECT_EQ(panel.getShelves(), 10);
    EXPECT_EQ(panel.m_labels, &panel.m_labels10);
    panel.setLevelStatus(1);
    EXPECT_EQ(panel.getShelves(), 5);
    EXPECT_EQ(panel.m_labels, &panel.m_labels5);
    for (const int status : {0, 2, -1}) {
        panel.setLevelStatus(status);
        EXPECT_EQ(panel.getShelves(), 10) << status;
    }
    panel.setStock("CFFEXIF2403");
    for (const int status : {1, 2}) {
        panel.setLevelStatus(status);
        EXPECT_EQ(panel.getShelves(), 1) << status;
        EXPECT_EQ(panel.m_labels, &panel.m_labels1);
    }
    panel.setStock("YSWPFR007");
    for (const int status : {1, 2}) {
        panel.setLevelStatus(status);
        EXPECT_EQ(panel.getShelves(), 10) << status;
    }
    panel.setStock("SHOP10000001");
    EXPECT_EQ(panel.getShelves(), 5);
    panel.setStock("XX1");
    EXPECT_EQ(panel.getShelves(), 5) << "an unknown code leaves the levels";
}

TYPED_TEST(BothPanels, MayBeMadeForFiveLevels)
{
    test::LevelPanelProbe<TypeParam> panel(false);
    panel.setStock("SH600000");
    EXPECT_EQ(panel.getShelves(), 5);
    panel.setLevelStatus(2);
    EXPECT_EQ(panel.getShelves(), 10);
}

TYPED_TEST(BothPanels, PaintTheNumbersOverTheBackground)
{
    this->show();
    auto& panel = this->m_panel;
    panel.send(test::fullSnapshot());
    panel.m_background.fill(Qt::magenta); // whatever stands there is copied
    QImage ground(panel.size(), QImage::Format_RGB32);
    ground.fill(Qt::magenta);
    QImage expected = ground;
    {
        QPainter painter(&expected);
        painter.setFont(panel.font());
        panel.drawForeground(&painter);
    }
    ASSERT_NE(expected, ground);
    QImage painted(panel.size(), QImage::Format_RGB32);
    painted.fill(Qt::cyan);
    panel.render(&painted, QPoint(), QRegion(), QWidget::RenderFlags());
    EXPECT_EQ(painted, expected);
}

TYPED_TEST(BothPanels, TellTheHeightOfTheirRows)
{
    auto& panel = this->m_panel;
    const int row = panel.m_rowHeight;
    EXPECT_EQ(panel.getMinimumSizeHeight(), 3 * row);
    panel.setStock("SH600000");
    EXPECT_EQ(panel.getMinimumSizeHeight(), 21 * row);
    panel.setLevelStatus(1);
    EXPECT_EQ(panel.getMinimumSizeHeight(), 11 * row);
}

TYPED_TEST(BothPanels, ANewInstrumentTakesTheMarkAway)
{
    this->show();
    auto& panel = this->m_panel;
    panel.m_clickRect = QRect(1, 2, 3, 4);
    panel.setStock("SZ000001");
    EXPECT_TRUE(panel.m_clickRect.isNull());
}

TYPED_TEST(BothPanels, DrawTheBackgroundAnewOnlyForOtherLabels)
{
    this->show();
    auto& panel = this->m_panel;
    const qint64 before = panel.m_background.cacheKey();
    panel.setStock("SZ000001");
    EXPECT_EQ(panel.m_background.cacheKey(), before);
    panel.setLevelStatus(1);
    EXPECT_NE(panel.m_background.cacheKey(), before);
}

TYPED_TEST(BothPanels, ANewQuoteShowsAtOnceOnlyWhenForced)
{
    this->show();
    auto& panel = this->m_panel;
    const auto record = test::fullSnapshot();
    panel.quoterCallBack(0, -1, {record}, true);
    EXPECT_EQ(panel.paints(), 1);
    panel.quoterCallBack(0, -1, {record}, true);
    EXPECT_EQ(panel.paints(), 0) << "the same once more is no news";
    const auto other = test::fullSnapshot();
    other->bidVolume[0] = 7;
    panel.quoterCallBack(0, 0, {other}, false);
    EXPECT_EQ(panel.paints(), 0) << "records wait for the next paint";
    EXPECT_EQ(panel.m_model.bidLevels[0].volume, 7);
    panel.quoterCallBack(0, 0, {}, false);
    EXPECT_EQ(panel.paints(), 1);
    panel.quoterCallBack(0, 1, {}, false);
    EXPECT_EQ(panel.paints(), 0);
}

TYPED_TEST(BothPanels, LogTheQuotesThatTheyShow)
{
    this->show();
    auto& panel = this->m_panel;
    testing_support::LogCapture log;
    panel.quoterCallBack(3, -1, {test::fullSnapshot()}, true);
    panel.quoterCallBack(4, 0, {}, false);
    panel.quoterCallBack(5, -1, {nullptr}, true);
    const auto events = log.events();
    ASSERT_EQ(events.size(), 2u);
    std::ostringstream address;
    address << static_cast<const void*>(&panel);
    const std::string name =
        this->isConcise ? "CDepthConciseStyleEntrustStatusWidget" : "CDepthEntrustStatusWidget";
    const std::string head = "[" + address.str() + "] [Kel::" + name + "::quoterCallBack] ";
    EXPECT_EQ(events[0].text,
              head + "update end [data heap check] code:SH600000, type:-1, time:10:00:00.250");
    EXPECT_EQ(events[1].text, head + "update end [data heap check] code:SH600000, type:0, time:0");
    EXPECT_EQ(events[0].level, 20000);
    EXPECT_EQ(events[0].file, name);
}

TYPED_TEST(BothPanels, LogTheTimeOfTheLastRecord)
{
    this->show();
    testing_support::LogCapture log;
    const auto next = test::fullSnapshot();
    next->m_time += 1500;
    this->m_panel.quoterCallBack(3, -1, {test::fullSnapshot(), next}, true);
    ASSERT_EQ(log.events().size(), 1u);
    EXPECT_THAT(log.events()[0].text, ::testing::EndsWith("time:10:00:01.750"));
}

TYPED_TEST(BothPanels, ConnectedTicksShowAtOnce)
{
    this->show();
    auto& panel = this->m_panel;
    const auto before = test::fullSnapshot();
    const auto latest = test::fullSnapshot();
    latest->bidVolume[0] = 260;
    panel.connectTickData(before, latest, 700);
    EXPECT_EQ(panel.paints(), 1);
    EXPECT_EQ(panel.m_model.bidLevels[0].change, 60) << "the first record is the one before";
    EXPECT_EQ(panel.m_model.newVolume, 7);
}

TYPED_TEST(BothPanels, QuotesMayComeOnAnyThread)
{
    this->show();
    auto& panel = this->m_panel;
    boost::thread feed([&panel] {
        for (int i = 1; i <= 100; ++i) {
            const auto record = test::fullSnapshot();
            record->bidVolume[0] = i;
            panel.quoterCallBack(0, -1, {record}, true);
        }
        panel.connectTickData(nullptr, test::fullSnapshot(), 0);
    });
    for (int i = 0; i < 20; ++i)
        panel.foreground();
    feed.join();
    EXPECT_GE(panel.paints(), 1);
    EXPECT_EQ(panel.m_model.bidLevels[0].volume, 200);
}

TYPED_TEST(BothPanels, QuotesOfAnotherThreadWaitAsOneEvent)
{
    this->show();
    auto& panel = this->m_panel;
    CallCounter counter;
    panel.installEventFilter(&counter);
    for (int round = 1; round <= 2; ++round) {
        boost::thread feed([&panel, round] {
            for (int i = 1; i <= 50; ++i) {
                const auto record = test::fullSnapshot();
                record->bidVolume[0] = 100 * round + i;
                panel.quoterCallBack(0, -1, {record}, true);
            }
        });
        feed.join();
        EXPECT_EQ(panel.paints(), 1);
        EXPECT_EQ(counter.calls, round);
    }
}

TYPED_TEST(BothPanels, OnAScreenOfAnotherResolutionTheBackgroundIsMadeAnew)
{
    this->show();
    auto& panel = this->m_panel;
    panel.m_background.setDevicePixelRatio(2); // as if it came from there
    panel.update();
    panel.paints();
    EXPECT_EQ(panel.m_background.devicePixelRatioF(), panel.devicePixelRatioF());
    const qint64 before = panel.m_background.cacheKey();
    panel.update();
    panel.paints();
    EXPECT_EQ(panel.m_background.cacheKey(), before) << "once is enough";
}

TYPED_TEST(BothPanels, ClearForgetsTheQuoteAndRedrawsIfAsked)
{
    this->show();
    auto& panel = this->m_panel;
    panel.send(test::fullSnapshot());
    panel.paints();
    const qint64 before = panel.m_background.cacheKey();
    panel.clear(false);
    EXPECT_FALSE(panel.m_model.bidLevels[0].valid);
    EXPECT_EQ(panel.paints(), 0);
    EXPECT_EQ(panel.m_background.cacheKey(), before);
    panel.clear(true);
    EXPECT_EQ(panel.paints(), 1);
    EXPECT_NE(panel.m_background.cacheKey(), before);
}

TYPED_TEST(BothPanels, KeepTheWheel)
{
    this->show();
    QWheelEvent event(QPointF(20, 20), QPointF(20, 20), QPoint(), QPoint(0, 120), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    event.ignore();
    QCoreApplication::sendEvent(&this->m_panel, &event);
    EXPECT_TRUE(event.isAccepted());
}

TYPED_TEST(BothPanels, KnowWhetherTheyAreShown)
{
    this->show();
    EXPECT_TRUE(this->m_panel.m_shown);
    this->m_panel.hide();
    EXPECT_FALSE(this->m_panel.m_shown);
}

TYPED_TEST(BothPanels, DrawTheBackgroundWhenTheyAreShown)
{
    this->show();
    this->m_panel.hide();
    const qint64 before = this->m_panel.m_background.cacheKey();
    this->m_panel.show();
    EXPECT_NE(this->m_panel.m_background.cacheKey(), before);
}

TYPED_TEST(BothPanels, AResizeTakesTheMarkAwayAndFitsThePriceZone)
{
    this->show();
    auto& panel = this->m_panel;
    EXPECT_EQ(panel.m_priceZoneWidth, 260 - 20 - 40 - 55 - 30);
    panel.m_clickRect = QRect(1, 2, 3, 4);
    panel.resize(100, 500);
    EXPECT_TRUE(panel.m_clickRect.isNull());
    EXPECT_EQ(panel.m_priceZoneWidth, 65) << "never less than the price";
    EXPECT_EQ(panel.m_panelRect, QRect(0, 0, 100, 500));
    EXPECT_EQ(panel.m_background.size() / panel.m_background.devicePixelRatio(), QSize(100, 500));
}

TYPED_TEST(BothPanels, NothingIsDrawnWithoutRoom)
{
    auto& panel = this->m_panel;
    panel.drawBackground();
    EXPECT_TRUE(panel.m_background.isNull());
    panel.setMinimumHeight(0);
    panel.resize(0, 100);
    panel.show();
    QCoreApplication::processEvents();
    EXPECT_TRUE(panel.m_panelRect.isNull());
    EXPECT_TRUE(panel.m_background.isNull());
}

TYPED_TEST(BothPanels, AThemeRepaintsThem)
{
    this->show();
    const qint64 before = this->m_panel.m_background.cacheKey();
    this->m_panel.themeChanged();
    EXPECT_NE(this->m_panel.m_background.cacheKey(), before);
    EXPECT_EQ(this->m_panel.paints(), 1);
}

TYPED_TEST(BothPanels, PricesAreColouredAgainstAReferenceWithTolerance)
{
    const auto& panel = this->m_panel;
    const std::string family = this->isConcise ? "ic_clr_concise_entrust_" : "ic_clr_entrust_";
    const QColor& normal = colorOf((family + "default_text").c_str());
    const QColor& rise = colorOf((family + "text_rise").c_str());
    const QColor& fall = colorOf((family + "text_fall").c_str());
    EXPECT_EQ(panel.getPriceColor(10.00002, 10), &rise);
    EXPECT_EQ(panel.getPriceColor(10.000009, 10), &normal);
    EXPECT_EQ(panel.getPriceColor(10, 10), &normal);
    EXPECT_EQ(panel.getPriceColor(9.999991, 10), &normal);
    EXPECT_EQ(panel.getPriceColor(9.99998, 10), &fall);
}

TYPED_TEST(BothPanels, LeavingTakesTheHoverAway)
{
    this->show();
    auto& panel = this->m_panel;
    panel.m_hoverRect = QRect(1, 2, 3, 4);
    panel.leave();
    EXPECT_TRUE(panel.m_hoverRect.isNull());
    EXPECT_EQ(panel.paints(), 1);
}

TYPED_TEST(BothPanels, TheMouseRepaintsOnlyForAnotherCell)
{
    this->show();
    auto& panel = this->m_panel;
    panel.send(test::fullSnapshot());
    panel.paints();
    const int x = 100; // in the price column
    const int y = panel.m_topY + 2 * panel.m_rowHeight + 3;
    panel.move(x, y);
    EXPECT_EQ(panel.m_hoverRect.topLeft(), QPoint(63, 2 * panel.m_rowHeight));
    EXPECT_EQ(panel.paints(), 1);
    panel.move(x + 5, y + 4);
    EXPECT_EQ(panel.paints(), 0);
    panel.press(x, y);
    EXPECT_EQ(panel.m_clickRect, panel.m_hoverRect);
    EXPECT_EQ(panel.paints(), 1);
    panel.press(x, y);
    EXPECT_EQ(panel.paints(), 0);
}

TYPED_TEST(BothPanels, NameTheInstrumentForASubscription)
{
    this->m_panel.setStock("SZ000001");
    CFormulaParam params;
    this->m_panel.getParams(params);
    EXPECT_EQ(params.values["market"], "SZ");
    EXPECT_EQ(params.values["instrument"], "000001");
}

TYPED_TEST(BothPanels, TheTradeDateIsKeptAndNotAsked)
{
    int asked = 0;
    this->m_panel.setCurrentTradeDateFunc([&asked] {
        ++asked;
        return 20230201;
    });
    this->show();
    this->m_panel.send(test::fullSnapshot());
    this->m_panel.press(100, 100);
    EXPECT_EQ(asked, 0);
}
