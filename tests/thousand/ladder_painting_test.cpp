// The picture of the ladder.

#include "LadderFixture.h"

using namespace thousand_tests;

namespace {

constexpr int kRight = Qt::AlignRight | Qt::AlignVCenter;
constexpr int kLeft = Qt::AlignLeft | Qt::AlignVCenter;
const QColor kNavy(0, 0, 128, 255);
const QColor kHover(0x30, 0x40, 0x80, 255);

class LadderPainting : public LadderTest
{
protected:
    int top(int row) const { return panel->layout().rowTop(row); }
    QRect price(int row) const { return panel->layout().priceCell(top(row)); }
    QRect count(int row) const { return panel->layout().countCell(top(row)); }
    QRect volume(int row) const { return panel->layout().volumeCell(top(row)); }
    QRect change(int row) const { return panel->layout().changeCell(top(row)); }
};

} // namespace

TEST_F(LadderPainting, TheGroundFillsTheClientAndTheRowsAreClipped)
{
    const auto& picture = background();
    ASSERT_FALSE(picture.commands().empty());
    EXPECT_EQ(picture.fillsOf(QRectF(0, 0, 260, 200)).size(), 1u);
    EXPECT_EQ(picture.fills().front().color(), themeColor("ic_clr_graph_kline_bg"));
    ASSERT_EQ(picture.all(PaintCommand::eSetClip).size(), 1u);
    EXPECT_EQ(picture.all(PaintCommand::eSetClip).front().rect, QRectF(0, 2, 260, 196));
}

TEST_F(LadderPainting, AnEmptyLadderHasTheRowOfTheLatestPriceAlone)
{
    panel->updateScroll(false);
    EXPECT_EQ(background().texts(), (QStringList{"最新", "现手"}));
    EXPECT_EQ(graph().texts(), QStringList());
}

TEST_F(LadderPainting, LevelsAreNamedInTheColourOfTheirSide)
{
    feedSmall();
    const auto& picture = background();
    EXPECT_EQ(picture.texts(), (QStringList{"卖②", "卖①", "最新", "现手", "买①", "买②"}));
    EXPECT_EQ(picture.text("卖②").color(), themeColor("ic_clr_entrust_text_fall"));
    EXPECT_EQ(picture.text("买①").color(), themeColor("ic_clr_entrust_text_rise"));
    EXPECT_TRUE(picture.text("卖②").standsIn(QRect(3, top(0), 30, 20), kRight));
    EXPECT_TRUE(picture.text("买②").standsIn(QRect(3, top(4), 30, 20), kRight));
    EXPECT_EQ(picture.text("买①").font.pixelSize(),
              themeFont("ic_fnt_index_modulegroup_entruststatus_text").pixelSize());
}

TEST_F(LadderPainting, NamesAboveNinetyNineTakeTheFontOfNumbers)
{
    feedDeep(120, 1);
    panel->m_scrollBar->setValue(120 - 101);
    const auto& picture = background();
    EXPECT_EQ(picture.text("100").font, themeFont("ic_fnt_index_modulegroup_entruststatus_amount"));
    EXPECT_EQ(picture.text("九⑨").font, themeFont("ic_fnt_index_modulegroup_entruststatus_text"));
}

TEST_F(LadderPainting, TheLatestPriceStandsBetweenTwoLines)
{
    feedSmall();
    const auto& picture = background();
    const int y = top(2);
    const auto lines = picture.lineCommands();
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0].line, QLineF(0, y, 260, y));
    EXPECT_EQ(lines[1].line, QLineF(0, y + 20, 260, y + 20));
    EXPECT_EQ(lines[0].color(), themeColor("ic_clr_dialog_stock_splitter"));
    EXPECT_EQ(picture.text("最新").color(), themeColor("ic_clr_entrust_lastest_text"));
    EXPECT_TRUE(picture.text("最新").standsIn(QRect(3, y, 30, 20), kLeft));
    EXPECT_TRUE(picture.text("现手").standsIn(panel->layout().lastVolumeLabel(y), kLeft));

    const auto& numbers = graph();
    EXPECT_TRUE(numbers.text("10.00").standsIn(price(2), kRight));
    EXPECT_EQ(numbers.text("10.00").color(), themeColor("ic_clr_entrust_default_text")) << "the last close";
    const auto last = numbers.textsIn(QRectF(200, y, 60, 20));
    EXPECT_EQ(last, QStringList("12"));
    const auto lastVolume = numbers.textCommands("12").front();
    EXPECT_EQ(lastVolume.color(), themeColor("ic_clr_entrust_newvol_amount"));
    EXPECT_TRUE(lastVolume.standsIn(QRect(260 - 120, y, 120, 20), kRight));
}

TEST_F(LadderPainting, ALatestPriceTakesTheColourOfItsDirection)
{
    feedSmall();
    panel->m_latestPrice = 10.01;
    EXPECT_EQ(graph().textCommands("10.01").back().color(), themeColor("ic_clr_entrust_text_rise"));
    panel->m_latestPrice = 9.97;
    EXPECT_EQ(graph().text("9.97").color(), themeColor("ic_clr_entrust_text_fall"));
    panel->m_lastVolume = 0;
    EXPECT_EQ(graph().textsIn(QRectF(200, top(2), 60, 20)), QStringList());
}

TEST_F(LadderPainting, ARowWritesPriceCountVolumeAndChange)
{
    feedSmall();
    feed({"B 7 9.99 200"});
    cancel({5});
    panel->slotTimeout();
    const auto& picture = graph();
    EXPECT_TRUE(picture.text("10.02").standsIn(price(0), kRight));
    EXPECT_EQ(picture.text("10.02").color(), themeColor("ic_clr_entrust_text_rise"));
    EXPECT_EQ(picture.text("9.99").color(), themeColor("ic_clr_entrust_text_fall"));
    EXPECT_EQ(picture.text("9.99").font, themeFont("ic_fnt_index_modulegroup_entruststatus_price"));
    EXPECT_EQ(picture.textsIn(count(0)), QStringList(" 2"));
    EXPECT_EQ(picture.textsIn(count(4)), QStringList(" 1"));
    const auto twoOrders = picture.textCommands(" 2").front();
    EXPECT_TRUE(twoOrders.standsIn(count(0), kLeft));
    EXPECT_EQ(twoOrders.color(), themeColor("ic_clr_entrust_order_text"));
    EXPECT_EQ(twoOrders.font, themeFont("ic_fnt_index_modulegroup_entruststatus_order_text"));
    EXPECT_EQ(picture.textsIn(volume(3)), QStringList("5"));
    EXPECT_EQ(picture.textsIn(volume(4)), QStringList("2"));
    const auto two = picture.textCommands("2").front();
    EXPECT_TRUE(two.standsIn(volume(4), kRight));
    EXPECT_EQ(two.color(), themeColor("ic_clr_entrust_amount"));
    EXPECT_EQ(two.font, themeFont("ic_fnt_index_modulegroup_entruststatus_amount"));
    EXPECT_EQ(picture.textsIn(change(3)), QStringList("+2"));
    EXPECT_EQ(picture.textsIn(change(4)), QStringList("-10"));
    EXPECT_EQ(picture.text("+2").color(), themeColor("ic_clr_entrust_text_rise"));
    EXPECT_EQ(picture.text("-10").color(), themeColor("ic_clr_entrust_text_fall"));
    EXPECT_TRUE(picture.text("+2").standsIn(change(3), kRight));
    EXPECT_EQ(picture.textsIn(change(0)), QStringList()) << "no change is not written";
}

TEST_F(LadderPainting, PricesHaveTheDecimalsOfTheTick)
{
    addInstrument("SH", "510300", 0.001, 4);
    panel->setStock("SH510300");
    quoter::QuoterBatch batch{boost::make_shared<quoter::OrderData>(orderFrom("B 1 3.995 300"))};
    panel->entrustCallback(0, 1, batchOf(batch, "SH", "510300"));
    panel->slotTimeout();
    EXPECT_EQ(graph().count("3.995"), 1);
}

TEST_F(LadderPainting, AVolumeAboveTheBigOneTakesTheBigFont)
{
    feed({"B 1 9.99 999900", "B 2 9.98 1000000"});
    panel->slotTimeout();
    const auto& picture = graph();
    EXPECT_EQ(picture.text("9999").font, themeFont("ic_fnt_index_modulegroup_entruststatus_amount"));
    EXPECT_EQ(picture.text("10000").font, themeFont("ic_fnt_index_modulegroup_transaction_big_number"));
}

TEST_F(LadderPainting, RowsOfTheShortFormWithoutALevelShowADashAlone)
{
    place(260, 440);
    panel->setDisplayDataLevel(11);
    feedSmall();
    const auto& picture = graph();
    EXPECT_EQ(picture.count("-"), 2 * (8 + 8)) << "price and volume of eight rows a side";
    EXPECT_EQ(picture.textsIn(price(0)), QStringList("-"));
    EXPECT_EQ(picture.textsIn(volume(0)), QStringList("-"));
    EXPECT_EQ(picture.textsIn(count(0)), QStringList());
    EXPECT_EQ(picture.textsIn(change(0)), QStringList());
    EXPECT_EQ(picture.textsIn(price(8)), QStringList("10.02"));
    EXPECT_EQ(picture.textsIn(price(11)), QStringList("9.99"));
    EXPECT_EQ(picture.textsIn(price(12)), QStringList("9.98"));
    EXPECT_EQ(picture.textsIn(price(13)), QStringList("-"));
    EXPECT_EQ(background().texts().size(), 22);
    EXPECT_EQ(background().texts().front(), "卖⑩");
    EXPECT_EQ(background().texts().back(), "买⑩");
}

TEST_F(LadderPainting, AnEmptyOrderCountIsNotWritten)
{
    feedSmall();
    panel->m_sellQueues[0] = boost::make_shared<Kel::EntrustData>(Kel::EntrustData{10.01, 5, 0, 0});
    EXPECT_EQ(graph().textsIn(count(1)), QStringList());
}

TEST_F(LadderPainting, TheHoveredCellStandsOnItsGround)
{
    feedSmall();
    panel->m_hoverRow = 1;
    panel->m_hoverColumn = 0;
    auto fills = graph().fillsOf(kHover);
    ASSERT_EQ(fills.size(), 1u);
    EXPECT_EQ(fills[0].rect, QRectF(price(1).adjusted(0, 1, 0, -1)));
    panel->m_hoverColumn = 1;
    fills = graph().fillsOf(kHover);
    ASSERT_EQ(fills.size(), 1u);
    EXPECT_EQ(fills[0].rect, QRectF(count(1)));
    panel->m_hoverColumn = 2;
    fills = graph().fillsOf(kHover);
    ASSERT_EQ(fills.size(), 1u);
    const double width = graph().textCommands("5").front().width;
    EXPECT_NEAR(fills[0].rect.width(), width + 2, 1) << "around the text alone";
    EXPECT_EQ(fills[0].rect.top(), top(1) + 1);
    EXPECT_EQ(fills[0].rect.height(), 18);
    panel->m_hoverRow = -1;
    EXPECT_TRUE(graph().fillsOf(kHover).empty());
}

TEST_F(LadderPainting, TheSelectedLevelStandsOnNavyAcrossTheWidth)
{
    feedSmall();
    click(countAt(1));
    auto fills = background().fillsOf(kNavy);
    ASSERT_EQ(fills.size(), 1u);
    EXPECT_EQ(fills[0].rect, QRectF(1, top(1), 258, 20));
    panel->m_selectedSide = 1;
    EXPECT_TRUE(background().fillsOf(kNavy).empty()) << "no buy level has that price";
    click(countAt(4));
    fills = background().fillsOf(kNavy);
    ASSERT_EQ(fills.size(), 1u);
    EXPECT_EQ(fills[0].rect, QRectF(1, top(4), 258, 20));
}

TEST_F(LadderPainting, TheConciseStyleTakesItsOwnColours)
{
    Kel::CConfig config;
    config.setConciseStyle(true);
    Kel::setConfig(&config);
    panel->initDraw();
    auto& resource = utils::CSingletonT<Zeb::CUiResource>::instance();
    EXPECT_EQ(panel->m_clrVolume, resource.getColor("ic_clr_concise_entrust_amount"));
    EXPECT_EQ(panel->m_clrCount, resource.getColor("ic_clr_entrust_order_text"));
    EXPECT_EQ(panel->m_clrFall, resource.getColor("ic_clr_concise_entrust_text_fall"));
    EXPECT_EQ(panel->m_clrRise, resource.getColor("ic_clr_concise_entrust_text_rise"));
    EXPECT_EQ(panel->m_clrFlat, resource.getColor("ic_clr_concise_entrust_default_text"));
    config.setConciseStyle(false);
    panel->themeChanged();
    EXPECT_EQ(panel->m_clrVolume, resource.getColor("ic_clr_entrust_amount"));
    EXPECT_EQ(panel->m_clrFall, resource.getColor("ic_clr_entrust_text_fall"));
    EXPECT_EQ(panel->m_clrRise, resource.getColor("ic_clr_entrust_text_rise"));
    EXPECT_EQ(panel->m_clrFlat, resource.getColor("ic_clr_entrust_default_text"));
    Kel::setConfig(nullptr);
}

TEST_F(LadderPainting, AnotherThemeRedrawsThePixmap)
{
    feedSmall();
    painted();
    auto& resource = utils::CSingletonT<Zeb::CUiResource>::instance();
    for (const char* theme : {"light", "dark"}) {
        resource.setTheme(QLatin1String(theme));
        const QImage image = panel->m_pixmap.toImage();
        EXPECT_EQ(image.pixelColor(130, 5), themeColor("ic_clr_graph_kline_bg")) << theme;
        EXPECT_EQ(painted(), 1) << theme;
    }
}

TEST_F(LadderPainting, InksOnDarkGroundsAreLightInALightTheme)
{
    feedSmall();
    click(countAt(1));
    const QColor dark = background().text("卖①").color();
    EXPECT_EQ(dark, themeColor("ic_clr_entrust_text_fall")) << "the theme's own";
    utils::CSingletonT<Zeb::CUiResource>::instance().setTheme("light");
    EXPECT_EQ(background().text("卖②").color(), themeColor("ic_clr_entrust_text_fall"));
    EXPECT_GT(background().text("卖①").color().lightness(), 160);
    EXPECT_GT(graph().text("10.01").color().lightness(), 160);
}

// Distribution
// ------------------------------------------------------------------------------------------------

TEST_F(LadderPainting, TheDistributionDrawsEachSideAtTheHeightOfItsPrices)
{
    feedSmall();
    const auto paths = distribution().paths();
    ASSERT_EQ(paths.size(), 2u);
    const int right = 259;
    const int span = 40 + 5 + 55;
    // Largest lots times price: 12 lots at 9.98.
    const auto length = [&](double lots, double price) {
        return static_cast<int>(span * lots * price / (12 * 9.98) + 0.5);
    };
    const auto points = [](const QPainterPath& path) {
        std::vector<QPointF> result;
        for (int i = 0; i < path.elementCount(); ++i)
            result.push_back(path.elementAt(i));
        return result;
    };
    EXPECT_EQ(points(paths[0].path), (std::vector<QPointF>{{right, 50},
                                                           {right - length(5, 10.01), 50.0},
                                                           {right - length(5, 10.02), 0.0},
                                                           {right, 0},
                                                           {right, 50}}));
    EXPECT_EQ(points(paths[1].path), (std::vector<QPointF>{{right, 200},
                                                           {right - length(12, 9.98), 200.0},
                                                           {right - length(3, 9.99), 150.0},
                                                           {right, 150},
                                                           {right, 200}}));
    const auto* sells = static_cast<const QLinearGradient*>(paths[0].brush.gradient());
    ASSERT_TRUE(sells);
    EXPECT_EQ(sells->stops(), (QGradientStops{{0, QColor(64, 255, 64, 16)}, {1, QColor(64, 255, 64, 64)}}));
    EXPECT_EQ(sells->spread(), QGradient::PadSpread);
    EXPECT_EQ(sells->start(), QPointF(right - span, 0));
    EXPECT_EQ(sells->finalStop(), QPointF(right, 0));
    const auto* buys = static_cast<const QLinearGradient*>(paths[1].brush.gradient());
    EXPECT_EQ(buys->stops(), (QGradientStops{{0, QColor(255, 64, 64, 16)}, {1, QColor(255, 64, 64, 64)}}));
}

TEST_F(LadderPainting, AnEmptySideHasNoDistributionAndAnEmptyLadderNone)
{
    EXPECT_TRUE(distribution().commands().empty());
    feed({"B 1 11.00 300", "B 2 10.99 300"});
    panel->slotTimeout();
    EXPECT_EQ(distribution().paths().size(), 1u);
    cancel({1, 2});
    panel->slotTimeout();
    EXPECT_TRUE(distribution().commands().empty());
}

TEST_F(LadderPainting, ADistributionOfOnePriceStandsAtTheTop)
{
    feed({"B 1 11.00 300"});
    panel->slotTimeout();
    const auto paths = distribution().paths();
    ASSERT_EQ(paths.size(), 1u);
    EXPECT_EQ(paths[0].path.boundingRect(), QRectF(259 - 100, 0, 100, 0));
}

TEST_F(LadderPainting, BoundsThatCrossDrawNoDistribution)
{
    feedSmall();
    panel->m_minPrice = 10.5;
    panel->m_maxPrice = 10.4;
    EXPECT_TRUE(distribution().commands().empty());
}

TEST_F(LadderPainting, PaintingAddsDistributionNumbersAndTip)
{
    feedSmall();
    painted();
    const QImage with = panel->grab().toImage();
    panel->setShowDistribute(false);
    const QImage without = panel->grab().toImage();
    EXPECT_NE(with, without);
    move(countAt(1));
    rest(countAt(1));
    const QImage tip = panel->grab().toImage();
    const QPoint inTip = countAt(1) + QPoint(3, -19);
    EXPECT_EQ(tip.pixelColor(inTip), QColor(16, 128, 192));
    EXPECT_EQ(tip.pixelColor(countAt(1) + QPoint(3, -21)), QColor(240, 192, 16)) << "its outline";
}

TEST_F(LadderPainting, AResizeToNothingAndBackIsHarmless)
{
    feedSmall();
    for (const QSize size : {QSize(0, 0), QSize(1, 1), QSize(3, 500), QSize(500, 3), QSize(260, 200)}) {
        panel->resize(size);
        QApplication::processEvents();
        panel->grab();
        graph();
        distribution();
        background();
        move({1, 1});
        click({1, 1});
        panel->slotTimeout();
    }
    EXPECT_EQ(graph().count("10.00"), 1);
}

TEST_F(LadderPainting, PicturesCarryTheRatioOfTheDevice)
{
    EXPECT_EQ(panel->m_pixmap.devicePixelRatioF(), panel->devicePixelRatioF());
    EXPECT_EQ(panel->m_pixmap.size(), (QSizeF(260, 200) * panel->devicePixelRatioF()).toSize());
}
