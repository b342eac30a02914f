// What the terminal says of the state of its data: words, badge, veil.

#include "host/window/FeedHub.h"
#include "host/window/panes/InformationPane.h"
#include "host/window/panes/LevelPane.h"
#include "host/window/state/PaneVeil.h"
#include "host/window/state/StateBadge.h"
#include "host/window/state/pane_states.h"
#include "platform/utils/exchange_time.h"
#include "records/QuoterDepthData.h"

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

#include <QDockWidget>
#include <QImage>
#include <QPainter>
#include <QPushButton>
#include <QSet>
#include <QtTest>

using namespace host;
using Kel::EDataState;

namespace {

constexpr EDataState kStates[] = {Kel::eDataLoading, Kel::eDataLive, Kel::eDataGap, Kel::eDataStale,
                                  Kel::eDataRebuilt};

DataStateView viewOfState(EDataState state)
{
    DataStateView view;
    view.state = state;
    view.since = utils::exchangeTime(20230201, 10, 15, 3, 0);
    return view;
}

QImage picture(QWidget& widget)
{
    QImage image(widget.size(), QImage::Format_RGB32);
    image.fill(Qt::white);
    widget.render(&image);
    return image;
}

} // namespace

TEST(DataStateWords, EachStateHasAWordAMarkAndAColorOfItsOwn)
{
    QSet<QString> words;
    QSet<QString> marks;
    QSet<QString> colors;
    for (const EDataState state : kStates) {
        words.insert(stateWord(state));
        colors.insert(stateColorKey(state));
        QString mark;
        QDebug(&mark) << stateMark(state, QRectF(0, 0, 8, 8));
        marks.insert(mark);
    }
    EXPECT_EQ(words, QSet<QString>({QStringLiteral("载入"), QStringLiteral("实时"), QStringLiteral("缺口"),
                                    QStringLiteral("陈旧"), QStringLiteral("重建")}));
    EXPECT_EQ(marks.size(), 5);
    EXPECT_EQ(colors.size(), 5);
    EXPECT_TRUE(stateWord(Kel::eDataEmpty).isEmpty());
    EXPECT_TRUE(stateMark(Kel::eDataEmpty, QRectF(0, 0, 8, 8)).isEmpty());
}

TEST(DataStateWords, AGapAndASilenceAndALoadAreSaidOverThePricesAndOtherStatesAreNot)
{
    EXPECT_EQ(stateNotice(viewOfState(Kel::eDataGap)), QStringLiteral("数据缺口，10:15:03 起，等待下一快照"));
    EXPECT_EQ(stateNotice(viewOfState(Kel::eDataStale)),
              QStringLiteral("没有新数据，10:15:03 起，价格可能已过时"));
    EXPECT_EQ(stateNotice(viewOfState(Kel::eDataLoading)), QStringLiteral("正在载入历史数据"));
    for (const EDataState state : {Kel::eDataEmpty, Kel::eDataLive, Kel::eDataRebuilt})
        EXPECT_EQ(stateNotice(viewOfState(state)), QString());
    DataStateView unknown;
    unknown.state = Kel::eDataGap;
    EXPECT_EQ(stateNotice(unknown), QStringLiteral("数据缺口，等待下一快照"));
}

TEST(DataStateWords, TheReasonTellsSinceWhenAndHowMuchIsMissing)
{
    EXPECT_EQ(stateReason(viewOfState(Kel::eDataEmpty)), QString());
    EXPECT_EQ(stateReason(viewOfState(Kel::eDataLive)), QStringLiteral("实时：10:15:03 起，数据完整"));
    DataStateView gap = viewOfState(Kel::eDataGap);
    gap.missing = 3;
    EXPECT_TRUE(stateReason(gap).startsWith(QStringLiteral("缺口：10:15:03 起")));
    EXPECT_TRUE(stateReason(gap).endsWith(QStringLiteral("（缺 3 批）")));
    gap.state = Kel::eDataLive;
    EXPECT_FALSE(stateReason(gap).contains(QStringLiteral("缺 3 批")));
}

TEST(DataStateWords, MissingCallsAreThoseThatNeitherAReloadNorForQuotesASnapshotBroughtBack)
{
    Kel::CDataStateWatch watch;
    const QString key = QStringLiteral("SH600519");
    watch.setStock(key);
    watch.onEntrustCallback(key, 2, 1, nullptr);                                         // 2 are missing
    watch.onTransactionCallback(key, 5, 1, nullptr);                                     // 5
    watch.onQuoterCallback(key, 9, -1, {boost::make_shared<quoter::QuoterDepthData>()}); // 9, and heals
    watch.check();
    EXPECT_EQ(viewOf(watch).state, Kel::eDataRebuilt);
    EXPECT_EQ(viewOf(watch).missing, 7);
    watch.onEntrustCallback(key, 3, 0, nullptr);
    watch.onEntrustCallback(key, 4, 1, nullptr);
    watch.check();
    EXPECT_EQ(viewOf(watch).missing, 5);
}

TEST(StateBadge, TakesNoRoomWithoutAnInstrumentAndLittleWithoutItsWord)
{
    StateBadge badge;
    EXPECT_EQ(badge.sizeHint().width(), 0);
    badge.setState(viewOfState(Kel::eDataGap));
    const int full = badge.sizeHint().width();
    badge.setWordShown(false);
    EXPECT_GT(badge.sizeHint().width(), 0);
    EXPECT_LT(badge.sizeHint().width(), full - 12);
    EXPECT_EQ(badge.toolTip(), stateReason(viewOfState(Kel::eDataGap)));
    EXPECT_EQ(badge.accessibleName(), badge.toolTip());
}

TEST(StateBadge, EachStateLooksDifferentEvenWithoutWordsAndColors)
{
    QSet<QByteArray> looks;
    for (const EDataState state : kStates) {
        StateBadge badge;
        badge.setWordShown(false);
        badge.setState(viewOfState(state));
        badge.resize(badge.sizeHint());
        QImage image = picture(badge).convertToFormat(QImage::Format_Grayscale8);
        QByteArray shape;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                shape.append(qGray(image.pixel(x, y)) < 230 ? '#' : '.');
        }
        EXPECT_TRUE(shape.contains('#')) << state;
        looks.insert(shape);
    }
    EXPECT_EQ(looks.size(), 5);
}

TEST(PaneVeil, LiesOverThePaneWhileItsPricesAreNotCurrentAndIsGoneWhenTheyAre)
{
    QWidget pane;
    pane.resize(400, 200);
    pane.show();
    PaneVeil veil(&pane);
    EXPECT_TRUE(veil.isHidden());
    for (const EDataState state : {Kel::eDataGap, Kel::eDataStale}) {
        veil.setState(viewOfState(state));
        EXPECT_FALSE(veil.isHidden());
        EXPECT_EQ(veil.geometry(), pane.rect());
        EXPECT_EQ(veil.notice(), stateNotice(viewOfState(state)));
        veil.setState(viewOfState(Kel::eDataRebuilt));
        EXPECT_TRUE(veil.isHidden());
        EXPECT_EQ(veil.notice(), QString());
    }
    veil.setState(viewOfState(Kel::eDataGap));
    pane.resize(300, 350);
    EXPECT_EQ(veil.geometry(), pane.rect());
    EXPECT_EQ(veil.accessibleName(), veil.notice());
}

TEST(PaneVeil, WashesTheContentOutButLeavesItToBeSeen)
{
    QWidget pane;
    pane.setStyleSheet(QStringLiteral("background: #ff0000"));
    pane.resize(400, 200);
    PaneVeil veil(&pane);
    veil.setState(viewOfState(Kel::eDataGap));
    const QColor under = picture(pane).pixelColor(200, 180);
    EXPECT_GT(under.red(), under.blue() + 40);
    EXPECT_LT(under.red(), 220);
}

TEST(PaneVeil, AShortLoadDoesNotFlicker)
{
    QWidget pane;
    pane.show();
    PaneVeil veil(&pane);
    veil.setState(viewOfState(Kel::eDataLoading));
    EXPECT_TRUE(veil.isHidden());
    veil.setState(viewOfState(Kel::eDataLive));
    QTest::qWait(600);
    EXPECT_TRUE(veil.isHidden());
    veil.setState(viewOfState(Kel::eDataLoading));
    EXPECT_TRUE(QTest::qWaitFor([&veil] { return !veil.isHidden(); }));
    // A load out of a gap goes on covering the prices at once.
    veil.setState(viewOfState(Kel::eDataGap));
    veil.setState(viewOfState(Kel::eDataLoading));
    EXPECT_FALSE(veil.isHidden());
}

TEST(PaneVeil, TheMouseGoesThroughIt)
{
    QWidget pane;
    pane.resize(200, 100);
    auto* button = new QPushButton(&pane);
    button->setGeometry(pane.rect());
    pane.show();
    int clicks = 0;
    QObject::connect(button, &QPushButton::clicked, &pane, [&clicks] { ++clicks; });
    PaneVeil veil(&pane);
    veil.setState(viewOfState(Kel::eDataGap));
    EXPECT_EQ(pane.childAt(100, 50), button);
    QTest::mouseClick(pane.childAt(100, 50), Qt::LeftButton);
    EXPECT_EQ(clicks, 1);
}

TEST(PaneVeil, TheNoticeStaysInsideOfAPaneOfAnySize)
{
    for (const QSize& pane : {QSize(600, 400), QSize(150, 300), QSize(300, 20), QSize(40, 10)}) {
        const QRect strip = PaneVeil::stripOf(pane, QSize(250, 15));
        EXPECT_TRUE(QRect(QPoint(), pane).contains(strip)) << pane.width();
        EXPECT_LE(std::abs(strip.center().x() - pane.width() / 2), 1) << pane.width();
    }
    EXPECT_GT(PaneVeil::stripOf(QSize(600, 400), QSize(250, 15)).width(), 250);
}

TEST(PaneStates, APaneShowsTheStateInItsTitleAndOverItsPricesButNoticesShowNone)
{
    QDockWidget dock;
    auto* title = new QWidget(&dock);
    auto* badge = new StateBadge(title);
    dock.setTitleBarWidget(title);
    auto* level = new LevelPane(&dock);
    dock.setWidget(level);
    showDataState(*level, viewOfState(Kel::eDataLive));
    EXPECT_EQ(badge->state(), viewOfState(Kel::eDataLive));
    EXPECT_EQ(level->findChild<PaneVeil*>(), nullptr);
    showDataState(*level, viewOfState(Kel::eDataGap));
    EXPECT_EQ(badge->state(), viewOfState(Kel::eDataGap));
    const auto* veil = level->findChild<PaneVeil*>();
    ASSERT_NE(veil, nullptr);
    EXPECT_FALSE(veil->isHidden());
    showDataState(*level, viewOfState(Kel::eDataRebuilt));
    EXPECT_TRUE(veil->isHidden());
    EXPECT_EQ(level->findChildren<PaneVeil*>().size(), 1);

    InformationPane information;
    showDataState(information, viewOfState(Kel::eDataGap));
    EXPECT_EQ(information.findChild<PaneVeil*>(), nullptr);
}

TEST(PaneStates, AHubFeedsAWatchWithAllThreeChannels)
{
    Kel::CDataStateWatch watch;
    FeedHub hub;
    hub.add(receiverOf(watch));
    nelservice::CInstrumentDetail detail;
    detail.market = "SH";
    detail.code = "600519";
    hub.setInstrument(detail);
    watch.setStock(QStringLiteral("SH600519"));
    const auto batch = boost::make_shared<Kel::MetaCacheDataWrapper>();
    hub.onOrders("SH600519", 1, 1, batch);
    hub.onDeals("SH600519", 1, 1, batch);
    hub.onQuotes("SH600519", 1, 1, {});
    watch.check();
    ASSERT_EQ(watch.gaps().size(), 3u);
    EXPECT_EQ(watch.gaps()[0].channel, Kel::eDataOrders);
    EXPECT_EQ(watch.gaps()[1].channel, Kel::eDataDeals);
    EXPECT_EQ(watch.gaps()[2].channel, Kel::eDataQuotes);
}
