// The track of one order.

#include "TrackFixture.h"

#include <limits>

using namespace testing_support;
using namespace Kel;

namespace {

std::vector<int> numbers(const std::vector<TrackSlice>& slices)
{
    std::vector<int> result;
    for (const TrackSlice& slice : slices) {
        result.push_back(slice.start);
        result.push_back(slice.span);
        result.push_back(static_cast<int>(slice.share));
    }
    return result;
}

constexpr int kFilled = 0;
constexpr int kQueueing = 1;
constexpr int kGone = 2;
using Ints = std::vector<int>;

} // namespace

TEST(TrackSlices, AreOneCircleWhereOneThingIsAll)
{
    EXPECT_EQ(numbers(trackSlices(1000, 1000, 0)), (Ints{0, 5760, kFilled}));
    EXPECT_EQ(numbers(trackSlices(1000, 0, 0)), (Ints{0, 5760, kQueueing}));
    EXPECT_EQ(numbers(trackSlices(1000, 0, 1000)), (Ints{0, 5760, kGone}));
}

TEST(TrackSlices, QueueingThenFilled)
{
    EXPECT_EQ(numbers(trackSlices(1000, 250, 0)), (Ints{0, 4320, kQueueing, 4320, 1440, kFilled}));
    EXPECT_EQ(numbers(trackSlices(7, 3, 0)), (Ints{0, 3291, kQueueing, 3291, 2469, kFilled}))
        << "to the nearest";
}

TEST(TrackSlices, CancelledThenFilledWhichTakesWhatIsQueueing)
{
    EXPECT_EQ(numbers(trackSlices(1000, 250, 500)), (Ints{0, 2880, kGone, 2880, 2880, kFilled}));
}

TEST(TrackSlices, CancelledWithoutFillsLeavesTheRestOpen)
{
    EXPECT_EQ(numbers(trackSlices(1000, 0, 500)), (Ints{0, 2880, kGone}));
}

TEST(TrackSlices, StayWithinTheCircleForAnyNumbers)
{
    constexpr qint64 kMost = std::numeric_limits<qint64>::max();
    constexpr qint64 kLeast = std::numeric_limits<qint64>::min();
    for (const qint64 volume : {kLeast, qint64(-5), qint64(0), qint64(1), qint64(1000), kMost}) {
        for (const qint64 filled : {kLeast, qint64(-3), qint64(0), qint64(5), kMost}) {
            for (const qint64 cancelled : {-3LL, 0LL, 5LL, 5000000000LL}) {
                for (const TrackSlice& slice : trackSlices(volume, filled, cancelled)) {
                    EXPECT_GE(slice.start, 0);
                    EXPECT_GE(slice.span, 0);
                    EXPECT_LE(slice.start + slice.span, 5760);
                }
            }
        }
    }
    EXPECT_EQ(filledPercent(0, 5), 0);
    EXPECT_EQ(filledPercent(-1, 5), 0);
    EXPECT_EQ(filledPercent(1000, 5), 1);
    EXPECT_EQ(filledPercent(1000, 4), 0);
}

TEST_F(Track, HasTitleSizeAndParts)
{
    EXPECT_EQ(dialog.title(), QStringLiteral("委托追踪"));
    EXPECT_EQ(dialog.size(), QSize(290, 530));
    EXPECT_EQ(dialog.m_graph->height(), 110);
    EXPECT_EQ(dialog.m_orderInfo->height(), 50);
    EXPECT_EQ(dialog.m_cancelInfo->height(), 60);
    const auto splitters = dialog.findChildren<CSpliterWidget*>();
    EXPECT_EQ(splitters.size(), 3);
    EXPECT_EQ(splitters[0]->height(), 10);
    EXPECT_EQ(dialog.m_graph->y(), 0);
    EXPECT_EQ(dialog.m_orderInfo->y(), 120);
    EXPECT_EQ(dialog.m_deals->y(), 180);
    EXPECT_EQ(dialog.m_cancelInfo->y(), dialog.innerWidget()->height() - 60);
    EXPECT_EQ(dialog.m_deals->table()->geometry(),
              QRect(0, 50, dialog.m_deals->width(), dialog.m_deals->height() - 50));
    EXPECT_EQ(dialog.m_graph->objectName(), QStringLiteral("track_graph_widget"));
    EXPECT_EQ(dialog.m_orderInfo->objectName(), QStringLiteral("track_order_widget"));
    EXPECT_EQ(dialog.m_deals->objectName(), QStringLiteral("track_deal_widget"));
    EXPECT_EQ(dialog.m_deals->table()->objectName(), QStringLiteral("track_deal_table"));
    EXPECT_EQ(dialog.m_cancelInfo->objectName(), QStringLiteral("track_cancel_widget"));
    EXPECT_EQ(splitters[0]->objectName(), QStringLiteral("track_spliter_widget"));
}

TEST_F(Track, SharesPerLotAreThoseOfTheInstrument)
{
    EXPECT_EQ(dialog.m_subject.volumeUnit, 100);
    dialog.setStock(kBond);
    EXPECT_EQ(dialog.m_subject.volumeUnit, 10);
    dialog.setStock(QStringLiteral("SH999999"));
    EXPECT_EQ(dialog.m_subject.volumeUnit, 1);
    for (const char* const code : {"SZ131810", "SH204001"}) {
        auto detail = boost::make_shared<nelservice::CInstrumentDetail>();
        detail->market = std::string(code).substr(0, 2);
        detail->code = std::string(code).substr(2);
        utils::CSingletonT<CStockManager>::instance().addInstrument(detail);
        dialog.setStock(QString::fromLatin1(code));
        EXPECT_EQ(dialog.m_subject.volumeUnit, 10) << code;
    }
}

TEST_F(Track, LotsAreRoundedToTheNearestAndOneBelowALot)
{
    EXPECT_EQ(lotsText(0, 100), QStringLiteral("0手"));
    EXPECT_EQ(lotsText(-5, 100), QStringLiteral("0手"));
    EXPECT_EQ(lotsText(1, 100), QStringLiteral("1手"));
    EXPECT_EQ(lotsText(149, 100), QStringLiteral("1手"));
    EXPECT_EQ(lotsText(150, 100), QStringLiteral("2手"));
    EXPECT_EQ(rowLotsText(0, 100), QStringLiteral("1手")) << "a row has no test for 0";
    EXPECT_EQ(rowLotsText(150, 100), QStringLiteral("2手"));
}

TEST_F(Track, WithoutOrderOrInstrumentShowsTheGroundAlone)
{
    for (CTrackWidget* const widget :
         {static_cast<CTrackWidget*>(dialog.m_graph), static_cast<CTrackWidget*>(dialog.m_orderInfo),
          static_cast<CTrackWidget*>(dialog.m_deals), static_cast<CTrackWidget*>(dialog.m_cancelInfo)}) {
        EXPECT_EQ(picture(widget)->commands().size(), 1u);
        EXPECT_EQ(picture(widget)->fills()[0].color(), colorOf("ic_clr_graph_kline_bg"));
    }
    show(1, {record(1, 500)});
    EXPECT_GT(picture(dialog.m_orderInfo)->commands().size(), 1u);
    dialog.setStock(QStringLiteral("SH999999"));
    EXPECT_EQ(picture(dialog.m_orderInfo)->commands().size(), 1u);
}

TEST_F(Track, AnOrderWithoutRecords)
{
    show(1, {});
    const auto graph = picture(dialog.m_graph);
    ASSERT_EQ(graph->paths().size(), 1u);
    EXPECT_EQ(graph->paths()[0].brush.color(), kBuyHalf);
    EXPECT_EQ(graph->count(QStringLiteral("0%")), 1);
    EXPECT_EQ(picture(dialog.m_cancelInfo)->texts(),
              (QStringList{QStringLiteral("撤单"), QStringLiteral("0手"), QStringLiteral("无撤单")}));
    EXPECT_EQ(picture(dialog.m_deals)->texts(),
              (QStringList{QStringLiteral("成交"), QStringLiteral("0手"), QStringLiteral("主动买 0手"),
                           QStringLiteral("被动买 0手")}));
}

TEST_F(Track, AFullyCancelledOrderStillQueuesWhole)
{
    show(2, {record(3, 10000)});
    const auto graph = picture(dialog.m_graph);
    ASSERT_EQ(graph->paths().size(), 1u);
    EXPECT_EQ(graph->paths()[0].brush.color(), kCancelled);
    EXPECT_TRUE(graph->text(QStringLiteral("排队")).standsIn(QRect(105, 60, 45, 25), kRight));
    EXPECT_EQ(graph->textCommands(QStringLiteral("100手")).size(), 3u) << "total, queueing, cancelled";
}

TEST_F(Track, OneFillOfAllIsASolidCircle)
{
    show(1, {record(1, 10000)});
    const auto graph = picture(dialog.m_graph);
    ASSERT_EQ(graph->paths().size(), 1u);
    EXPECT_EQ(graph->paths()[0].brush.color(), kBuySolid);
    const PaintCommand percent = graph->text(QStringLiteral("100%"));
    EXPECT_TRUE(percent.standsIn(QRect(20, 25, 70, 70), Qt::AlignCenter));
    EXPECT_EQ(percent.color(), QColor(255, 255, 255));
}

TEST_F(Track, WhatQueuesOfASellOrderIsHalfGreen)
{
    show(2, {record(2, 2500)});
    const auto graph = picture(dialog.m_graph);
    ASSERT_EQ(graph->paths().size(), 2u);
    EXPECT_EQ(graph->paths()[0].brush.color(), kSellHalf);
    EXPECT_EQ(graph->paths()[1].brush.color(), kSellSolid);
    EXPECT_EQ(graph->fillsOf(QRectF(112, 68, 10, 10)).at(0).color(), kSellHalf);
    EXPECT_EQ(graph->fillsOf(QRectF(112, 43, 10, 10)).at(0).color(), kSellSolid);
}

TEST_F(Track, FillsAndCancelsLeaveNoRoomForQueueing)
{
    show(2, {record(2, 2500), record(3, 5000)});
    const auto graph = picture(dialog.m_graph);
    ASSERT_EQ(graph->paths().size(), 2u);
    EXPECT_EQ(graph->paths()[0].brush.color(), kCancelled);
    EXPECT_EQ(graph->paths()[1].brush.color(), kSellSolid);
    EXPECT_EQ(graph->count(QStringLiteral("25%")), 1);
}

TEST_F(Track, TheGraphHasFourLinesWithSwatches)
{
    show(1, {record(1, 2500), record(3, 5000)});
    const auto graph = picture(dialog.m_graph);
    struct Line
    {
        int y;
        const char* label;
        const char* lots;
        const char* amount;
    };
    for (const Line& line : {Line{10, "总买量", "100手", "10.01万"}, Line{35, "成交", "25手", "2.50万"},
                             Line{60, "排队", "75手", "7.51万"}, Line{85, "撤单", "50手", "5.01万"}}) {
        const PaintCommand label = graph->text(QString::fromUtf8(line.label));
        EXPECT_TRUE(label.standsIn(QRect(105, line.y, 45, 25), kRight)) << line.label;
        EXPECT_TRUE(graph->text(QString::fromUtf8(line.lots)).standsIn(QRect(150, line.y, 40, 25), kRight))
            << line.lots;
        EXPECT_TRUE(graph->text(QString::fromUtf8(line.amount)).standsIn(QRect(190, line.y, 65, 25), kRight))
            << line.amount;
        EXPECT_EQ(label.color(), line.y == 10 ? kBuySolid : kText) << line.label;
    }
    EXPECT_EQ(graph->fillsOf(QRectF(112, 43, 10, 10)).at(0).color(), kBuySolid);
    EXPECT_EQ(graph->fillsOf(QRectF(112, 68, 10, 10)).at(0).color(), kBuyHalf);
    EXPECT_EQ(graph->fillsOf(QRectF(112, 93, 10, 10)).at(0).color(), kCancelled);
    show(2, {});
    EXPECT_EQ(picture(dialog.m_graph)->count(QStringLiteral("总卖量")), 1);
    EXPECT_EQ(picture(dialog.m_graph)->text(QStringLiteral("总卖量")).color(), kSellSolid);
}

TEST_F(Track, TheOrderHasItsRow)
{
    show(1, {});
    const auto info = picture(dialog.m_orderInfo);
    const int width = dialog.m_orderInfo->width();
    EXPECT_TRUE(info->text(QStringLiteral("委托")).standsIn(QRect(10, 0, 100, 25), kLeft));
    const auto lots = info->textCommands(QStringLiteral("100手"));
    ASSERT_EQ(lots.size(), 2u);
    EXPECT_TRUE(lots[0].standsIn(QRect(width - 110, 0, 100, 25), kRight));
    EXPECT_EQ(lots[0].color(), kText);
    EXPECT_TRUE(lots[1].standsIn(QRect(120, 25, 60, 25), kRight));
    EXPECT_EQ(lots[1].color(), colorOf(kRise));
    const PaintCommand time = info->text(QStringLiteral("10:00:01"));
    EXPECT_NEAR(time.baseline.x(), 10, 1);
    EXPECT_LE(time.width, 51) << "a wide text is written narrower";
    EXPECT_EQ(time.color(), kText);
    EXPECT_TRUE(info->text(QStringLiteral("10.01")).standsIn(QRect(60, 25, 60, 25), kRight));
    EXPECT_EQ(info->text(QStringLiteral("10.01")).color(), colorOf(kRise));
    EXPECT_TRUE(info->text(QStringLiteral("10.01万")).standsIn(QRect(180, 25, width - 190, 25), kRight));
}

TEST_F(Track, TheCaptionShowsTheHandsOfTheOrderAsTheyAre)
{
    auto order = boost::make_shared<DepthOrderData>();
    order->price = 10;
    order->lots = 7;
    order->volume = 10000;
    order->side = 1;
    dialog.setEntrustData(order);
    const auto info = picture(dialog.m_orderInfo);
    EXPECT_EQ(info->count(QStringLiteral("7手")), 1);
    EXPECT_EQ(info->count(QStringLiteral("100手")), 1) << "the row counts shares";
    order->volume = 0;
    EXPECT_EQ(picture(dialog.m_orderInfo)->count(QStringLiteral("1手")), 1) << "a row has no 0";
}

TEST_F(Track, PartsAreDividedByALineInTheMiddleOfItsWidget)
{
    const auto* const splitter = dialog.findChildren<CSpliterWidget*>().at(0);
    const QImage image = const_cast<CSpliterWidget*>(splitter)->grab().toImage();
    for (const int x : {0, image.width() / 2, image.width() - 1}) {
        EXPECT_EQ(image.pixelColor(x, 5), colorOf("ic_clr_modelgroup_transaction_splitter")) << x;
        EXPECT_EQ(image.pixelColor(x, 4), colorOf("ic_clr_graph_kline_bg")) << x;
    }
}

TEST_F(Track, ThePieAloneIsSmooth)
{
    show(1, {record(1, 300)});
    QImage image(dialog.m_graph->size(), QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    dialog.m_graph->draw(painter);
    EXPECT_FALSE(painter.testRenderHint(QPainter::Antialiasing));
    painter.end();
    QSet<QRgb> colors; // a row through the pie without its text: smooth edges have colours of their own
    for (int x = 20; x < 90; ++x)
        colors.insert(image.pixel(x, 30));
    EXPECT_GT(colors.size(), 3);
}

TEST_F(Track, DealsOfTheOrdersSideAreActive)
{
    show(1, {record(1, 300), record(2, 500), record(0, 700), record(3, 900), nullptr});
    EXPECT_EQ(picture(dialog.m_deals)->texts(),
              (QStringList{QStringLiteral("成交"), QStringLiteral("15手"), QStringLiteral("主动买 3手"),
                           QStringLiteral("被动买 12手")}));
    show(2, {record(1, 300), record(2, 500), record(0, 700)});
    const auto deals = picture(dialog.m_deals);
    EXPECT_EQ(deals->texts(), (QStringList{QStringLiteral("成交"), QStringLiteral("15手"),
                                           QStringLiteral("被动卖 10手"), QStringLiteral("主动卖 5手")}));
    EXPECT_TRUE(deals->text(QStringLiteral("被动卖 10手")).standsIn(QRect(10, 25, 150, 25), kLeft));
    EXPECT_EQ(deals->text(QStringLiteral("被动卖 10手")).color(), colorOf(kRise));
    EXPECT_TRUE(deals->text(QStringLiteral("主动卖 5手"))
                    .standsIn(QRect(dialog.m_deals->width() - 160, 25, 150, 25), kRight));
    EXPECT_EQ(deals->text(QStringLiteral("主动卖 5手")).color(), colorOf(kFall));
}

TEST_F(Track, TheCancelShowsThePriceOfTheOrderAndOnlyTheFirstOne)
{
    show(1, {record(3, 300, 0, 9), record(3, 900, 0, 10)});
    const auto cancel = picture(dialog.m_cancelInfo);
    EXPECT_EQ(cancel->texts(),
              (QStringList{QStringLiteral("撤单"), QStringLiteral("3手"), QStringLiteral("10:00:09"),
                           QStringLiteral("10.01"), QStringLiteral("3手"), QStringLiteral("3003.00元")}));
    EXPECT_EQ(picture(dialog.m_graph)->textCommands(QStringLiteral("12手")).size(), 1u)
        << "the graph sums all";
}

TEST_F(Track, ANewOrderReplacesEverythingOfTheOneBefore)
{
    Records many;
    for (int number = 0; number < 60; ++number)
        many.push_back(record(1, 100, 10, number));
    many.push_back(record(3, 100));
    show(1, many);
    QTest::keyClick(dialog.m_deals->table(), Qt::Key_End);
    show(2, {record(2, 500)});
    EXPECT_EQ(picture(dialog.m_deals->table())->count(QStringLiteral("5手")), 1);
    EXPECT_EQ(picture(dialog.m_cancelInfo)->count(QStringLiteral("无撤单")), 1);
    EXPECT_TRUE(picture(dialog.m_deals->table())->all(PaintCommand::eRect).empty()) << "nothing is selected";
}

TEST_F(Track, ClearLeavesTheTableAlone)
{
    show(1, {record(1, 300), record(3, 900)});
    dialog.clear();
    for (CTrackWidget* const widget :
         {static_cast<CTrackWidget*>(dialog.m_graph), static_cast<CTrackWidget*>(dialog.m_orderInfo),
          static_cast<CTrackWidget*>(dialog.m_deals), static_cast<CTrackWidget*>(dialog.m_cancelInfo)})
        EXPECT_EQ(picture(widget)->commands().size(), 1u);
    EXPECT_EQ(picture(dialog.m_deals->table())->count(QStringLiteral("3手")), 1);
}

TEST_F(Track, ColoursStayUntilTheDialogIsMadeAnew)
{
    show(1, {});
    auto& resource = utils::CSingletonT<Zeb::CUiResource>::instance();
    const QColor dark = colorOf("ic_clr_graph_kline_bg");
    resource.setTheme(QStringLiteral("light"));
    EXPECT_EQ(picture(dialog.m_graph)->fills()[0].color(), dark);
    OpenTrack light;
    light.setStock(kStock);
    EXPECT_EQ(picture(light.m_graph)->fills()[0].color(), colorOf("ic_clr_graph_kline_bg"));
    resource.setTheme(QStringLiteral("dark"));
}

TEST_F(Track, AfterASwitchOfTheThemeAnOpenDialogKeepsAllItsColours)
{
    const auto images = [&] {
        show(1, {record(1, 300), record(2, 200), record(3, 900)});
        QTest::keyClick(dialog.m_deals->table(), Qt::Key_Home);
        std::vector<QImage> result;
        for (CTrackWidget* const widget :
             {static_cast<CTrackWidget*>(dialog.m_graph), static_cast<CTrackWidget*>(dialog.m_orderInfo),
              static_cast<CTrackWidget*>(dialog.m_deals), static_cast<CTrackWidget*>(dialog.m_deals->table()),
              static_cast<CTrackWidget*>(dialog.m_cancelInfo)}) {
            QImage image(widget->size(), QImage::Format_ARGB32_Premultiplied);
            QPainter painter(&image);
            widget->draw(painter);
            result.push_back(image);
        }
        return result;
    };
    const std::vector<QImage> dark = images();
    auto& resource = utils::CSingletonT<Zeb::CUiResource>::instance();
    resource.setTheme(QStringLiteral("light"));
    const std::vector<QImage> after = images();
    resource.setTheme(QStringLiteral("dark"));
    for (std::size_t part = 0; part < dark.size(); ++part)
        EXPECT_EQ(after[part], dark[part]) << part;
}

TEST(TrackStyleOnALightGround, WritesInBlackWithTheSameOpacity)
{
    auto& resource = utils::CSingletonT<Zeb::CUiResource>::instance();
    EXPECT_EQ(TrackStyle().text, QColor(255, 255, 255, 160));
    EXPECT_EQ(TrackStyle().cancelled, QColor(255, 255, 255, 64));
    resource.setTheme(QStringLiteral("light"));
    EXPECT_EQ(TrackStyle().text, QColor(0, 0, 0, 160));
    EXPECT_EQ(TrackStyle().cancelled, QColor(0, 0, 0, 64));
    resource.setTheme(QStringLiteral("dark"));
}
