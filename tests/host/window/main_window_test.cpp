// The window as a whole, on the offscreen platform.

#include "host/window/MainWindow.h"

#include "feed/archive/DayArchiveWriter.h"
#include "host/window/DaySlider.h"
#include "host/window/InstrumentList.h"
#include "host/window/MessageBar.h"
#include "host/window/ReplayBar.h"
#include "host/window/TerminalActions.h"
#include "host/window/WindowFixture.h"
#include "host/window/panes/QueueCell.h"
#include "platform/resources/CUiResource.h"
#include "platform/utils/CSingletonT.h"
#include "platform/utils/exchange_time.h"
#include "queue_view/CDepthOrderQueueWidget.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

namespace window_tests {
namespace {

Zeb::CUiResource& resource()
{
    return utils::CSingletonT<Zeb::CUiResource>::instance();
}

class Window : public ::testing::Test
{
protected:
    void open(const std::function<void(host::TerminalOptions&)>& change = {})
    {
        host::TerminalOptions options;
        options.source = smallSource();
        options.playing = false;
        if (change)
            change(options);
        window = std::make_unique<host::MainWindow>(options);
        QObject::connect(window.get(), &host::MainWindow::shown, window.get(), [this] { ++shown; });
        QObject::connect(window.get(), &host::MainWindow::startFailed, window.get(),
                         [this](const QString& reason) { failure = reason; });
        window->show();
        window->activateWindow();
        window->start();
    }

    bool waitForDay(int count = 1)
    {
        return waitUntil([&] { return shown >= count || !failure.isEmpty(); }) && failure.isEmpty();
    }

    ~Window() override
    {
        window.reset();
        resource().setTheme(QStringLiteral("dark"));
        resource().setPriceColors(Zeb::EPriceColors::eRedUp);
    }

    std::int64_t now() const { return utils::timeOfDayMs(window->player().now()); }

    std::unique_ptr<host::MainWindow> window;
    int shown = 0;
    QString failure;
};

TEST_F(Window, ShowsTheOpenOfTheFirstInstrument)
{
    open();
    ASSERT_TRUE(waitForDay());
    EXPECT_EQ(now(), timeOfDay(9, 30));
    EXPECT_EQ(window->list().shown(), 0);
    EXPECT_GT(window->records(), 0);
    EXPECT_FALSE(window->player().playing());
    EXPECT_TRUE(window->windowTitle().contains(QStringLiteral("600999")));
}

TEST_F(Window, PaintsTheQueueInTheColoursOfTheTradingDay)
{
    open([](host::TerminalOptions& options) { options.at = timeOfDay(10, 30); });
    const QImage empty = window->queue().panel().grab().toImage();
    ASSERT_TRUE(waitForDay());
    ASSERT_TRUE(waitUntil([&] { return window->queue().panel().grab().toImage() != empty; }));
    // A previous close between the prices makes some of them rise and others fall.
    const auto has = [this](const char* key) {
        const QColor wanted = *resource().getColor(QString::fromLatin1(key));
        const QImage image = window->queue().panel().grab().toImage();
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixelColor(x, y) == wanted)
                    return true;
            }
        }
        return false;
    };
    EXPECT_TRUE(waitUntil([&] { return has("ic_clr_entrust_text_fall"); }));
}

TEST_F(Window, BeginsAtTheMomentTheSpeedAndTheModesOfItsOptions)
{
    open([](host::TerminalOptions& options) {
        options.at = timeOfDay(13, 5, 7);
        options.speed = 20;
        options.playing = true;
        options.theme = QStringLiteral("light");
        options.colors = Zeb::EPriceColors::eColorBlind;
        options.modes.levels = Kel::eQueueFiveLevels;
        options.modes.style = Kel::eQueueDetailVertical;
        options.size = QSize(900, 600);
        options.source.instrument = "bond";
    });
    ASSERT_TRUE(waitForDay());
    EXPECT_GE(now(), timeOfDay(13, 5, 7));
    EXPECT_EQ(window->player().speed(), 20);
    EXPECT_EQ(window->bar().speed(), 20);
    EXPECT_EQ(resource().theme(), QStringLiteral("light"));
    EXPECT_EQ(resource().priceColors(), Zeb::EPriceColors::eColorBlind);
    EXPECT_EQ(window->queue().panel().getQueueModeLevel(), 0);
    EXPECT_EQ(window->queue().panel().getQueueModeStyle(), 2);
    EXPECT_EQ(window->size(), QSize(900, 600));
    EXPECT_EQ(window->list().shown(), 4);
    EXPECT_TRUE(window->actions().action(QStringLiteral("light"))->isChecked());
    EXPECT_TRUE(window->actions().action(QStringLiteral("mode0"))->isChecked());
    EXPECT_TRUE(window->actions().action(QStringLiteral("mode4"))->isChecked());
    const std::int64_t before = now();
    EXPECT_TRUE(waitUntil([&] { return now() > before; }));
}

TEST_F(Window, AnotherInstrumentGoesOnAtTheSameTimeOfDay)
{
    open([](host::TerminalOptions& options) { options.at = timeOfDay(10, 30); });
    ASSERT_TRUE(waitForDay());
    window->list().setFocus();
    QTest::keyClick(&window->list(), Qt::Key_Down);
    ASSERT_TRUE(waitForDay(2));
    EXPECT_EQ(window->list().shown(), 1);
    EXPECT_EQ(window->day()->detail.code, "003999");
    EXPECT_EQ(now(), timeOfDay(10, 30));
}

TEST_F(Window, TheListShowsThePricesOfTheMoment)
{
    open([](host::TerminalOptions& options) { options.at = timeOfDay(14, 0); });
    ASSERT_TRUE(waitForDay());
    const auto& model = window->list().instruments();
    ASSERT_TRUE(waitUntil([&] {
        for (int row = 0; row < model.rowCount(); ++row) {
            if (model.index(row, host::InstrumentModel::eLastPrice).data().toString() == QLatin1String("--"))
                return false;
        }
        return model.rowCount() == static_cast<int>(host::simulatedKinds().size());
    }));
}

TEST_F(Window, SeeksBackAndForth)
{
    open([](host::TerminalOptions& options) { options.at = timeOfDay(14, 0); });
    ASSERT_TRUE(waitForDay());
    const std::int64_t records = window->records();
    window->seek(utils::exchangeDayStart(window->player().now()) + timeOfDay(9, 31));
    ASSERT_TRUE(waitForDay(2));
    EXPECT_EQ(now(), timeOfDay(9, 31));
    EXPECT_GT(window->records(), records) << "the history is delivered anew";
    window->seek(0);
    ASSERT_TRUE(waitForDay(3));
    EXPECT_LT(now(), timeOfDay(9, 30)) << "cut to the begin of the day";
}

TEST_F(Window, ShortcutsDoWhatTheMenusSay)
{
    open();
    ASSERT_TRUE(waitForDay());
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    window->list().setFocus();
    auto& panel = window->queue().panel();
    struct Key
    {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        std::function<bool()> done;
    };
    const Key keys[] = {
        {Qt::Key_5, Qt::ControlModifier, [&] { return panel.getQueueModeLevel() == 0; }},
        {Qt::Key_0, Qt::ControlModifier, [&] { return panel.getQueueModeLevel() == 1; }},
        {Qt::Key_2, Qt::ControlModifier, [&] { return panel.getQueueModeStyle() == 1; }},
        {Qt::Key_3, Qt::ControlModifier, [&] { return panel.getQueueModeStyle() == 2; }},
        {Qt::Key_4, Qt::ControlModifier, [&] { return panel.getQueueModeStyle() == 3; }},
        {Qt::Key_1, Qt::ControlModifier, [&] { return panel.getQueueModeStyle() == 0; }},
        {Qt::Key_F, Qt::ControlModifier, [&] { return window->queue().modes().full; }},
        {Qt::Key_T, Qt::ControlModifier, [&] { return resource().theme() == QLatin1String("light"); }},
        {Qt::Key_T, Qt::ControlModifier, [&] { return resource().theme() == QLatin1String("dark"); }},
        {Qt::Key_2, Qt::AltModifier, [&] { return resource().priceColors() == Zeb::EPriceColors::eGreenUp; }},
        {Qt::Key_Up, Qt::ControlModifier, [&] { return window->player().speed() == 2; }},
        {Qt::Key_Down, Qt::ControlModifier, [&] { return window->player().speed() == 1; }},
        {Qt::Key_Right, Qt::ControlModifier, [&] { return now() == timeOfDay(9, 31); }},
        {Qt::Key_Left, Qt::ControlModifier, [&] { return now() == timeOfDay(9, 30); }},
        {Qt::Key_Space, Qt::NoModifier, [&] { return window->player().playing(); }},
        {Qt::Key_Space, Qt::NoModifier, [&] { return !window->player().playing(); }},
        {Qt::Key_G, Qt::ControlModifier, [&] { return qobject_cast<QLineEdit*>(window->focusWidget()); }},
        {Qt::Key_Q, Qt::ControlModifier, [&] { return !window->isVisible(); }},
    };
    for (const Key& key : keys) {
        QTest::keyClick(window->windowHandle(), key.key, key.modifiers);
        EXPECT_TRUE(waitUntil(key.done)) << key.key;
    }
}

TEST_F(Window, SpacePressesAFocusedButtonAndOpensAFocusedChoice)
{
    open();
    ASSERT_TRUE(waitForDay());
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    QPushButton push(&window->bar());
    QToolButton tool(&window->bar());
    for (QAbstractButton* button :
         {static_cast<QAbstractButton*>(&push), static_cast<QAbstractButton*>(&tool)}) {
        button->setCheckable(true);
        button->show();
        button->setFocus();
        QTest::keyClick(window->windowHandle(), Qt::Key_Space);
        EXPECT_TRUE(button->isChecked());
        EXPECT_FALSE(window->player().playing());
    }
    auto* choice = window->bar().findChild<QComboBox*>();
    choice->setFocus();
    QTest::keyClick(window->windowHandle(), Qt::Key_Space);
    EXPECT_TRUE(choice->view()->isVisible());
    EXPECT_FALSE(window->player().playing());
    choice->hidePopup();
}

TEST_F(Window, TheListHasRoomForARiseToTheTenfold)
{
    open();
    ASSERT_TRUE(waitForDay());
    auto& model = window->list().instruments();
    nelservice::CInstrumentDetail detail;
    detail.code = "600001";
    detail.previousClose = 1;
    model.setInstruments({detail});
    feed::InstrumentDay day;
    feed::SnapshotRow row;
    row.time = 1;
    row.lastPrice = 11;
    day.snapshots.push_back(row);
    model.setPrices(0, std::make_shared<const host::PriceSeries>(day));
    const QModelIndex change = model.index(0, host::InstrumentModel::eChange);
    ASSERT_EQ(change.data().toString().toStdString(), "+1000.00%");
    EXPECT_GE(window->list().columnWidth(change.column()), window->list().sizeHintForIndex(change).width());
}

TEST_F(Window, TheButtonsOfTheHeaderAndTheMenuAgree)
{
    open();
    ASSERT_TRUE(waitForDay());
    window->queue().header().setQueueModeStyle(0);
    ASSERT_TRUE(window->queue().panel().parentWidget());
    for (auto* button : window->queue().findChildren<QAbstractButton*>()) {
        if (button->isVisible() && button->x() > window->queue().width() - 2 * button->width()) {
            QTest::mouseClick(button, Qt::LeftButton);
            break;
        }
    }
    EXPECT_EQ(window->queue().panel().getQueueModeStyle(), 3);
    EXPECT_TRUE(window->actions().action(QStringLiteral("mode5"))->isChecked());
}

TEST_F(Window, AMissingFolderIsToldInTheMessageBarAndTheDayStays)
{
    open();
    ASSERT_TRUE(waitForDay());
    window->list().setFocus();
    host::DaySource source;
    source.archive = "/nowhere";
    window->openSource(source);
    ASSERT_TRUE(waitUntil([&] { return window->messages().isVisible(); }));
    EXPECT_TRUE(window->messages().isError());
    EXPECT_EQ(window->messages().text().toStdString(), "/nowhere: no such folder");
    EXPECT_EQ(window->day()->detail.code, "600999");
    EXPECT_EQ(window->list().shown(), 0);
    EXPECT_TRUE(window->list().hasFocus());
    EXPECT_EQ(shown, 1);
}

TEST_F(Window, AStartWithoutADayIsAFailure)
{
    open([](host::TerminalOptions& options) {
        options.source = {};
        options.source.archive = "/nowhere";
    });
    ASSERT_TRUE(waitUntil([&] { return !failure.isEmpty(); }));
    EXPECT_EQ(failure.toStdString(), "/nowhere: no such folder");
    EXPECT_FALSE(window->messages().isVisible());
}

TEST_F(Window, OpensAnotherSource)
{
    const QTemporaryDir folder;
    open();
    ASSERT_TRUE(waitForDay());
    host::DaySource source;
    source.archive = writeArchive(folder, 2);
    source.instrument = "003999";
    window->openSource(source);
    ASSERT_TRUE(waitForDay(2));
    EXPECT_EQ(window->list().instruments().rowCount(), 2);
    EXPECT_EQ(window->list().shown(), 1);
}

TEST_F(Window, ADayWhoseQueueMustStayEmptySaysWhy)
{
    const QTemporaryDir folder;
    const std::string path = folder.path().toStdString() + "/ticks only";
    feed::InstrumentDay day = *simulatedDay("stock");
    day.snapshots.clear();
    feed::DayArchiveWriter writer(path);
    ASSERT_TRUE(writer.write(day) && writer.finish());
    open([&](host::TerminalOptions& options) {
        options.source = {};
        options.source.archive = path;
    });
    ASSERT_TRUE(waitForDay());
    EXPECT_TRUE(window->messages().isVisible());
    EXPECT_TRUE(window->messages().text().contains(QStringLiteral("快照")));
    window->openSource(smallSource());
    ASSERT_TRUE(waitForDay(2));
    EXPECT_FALSE(window->messages().isVisible()) << "gone with the day";
}

TEST_F(Window, CancellingALoadIsNotedAndLeavesTheDay)
{
    open();
    ASSERT_TRUE(waitForDay());
    host::DaySource source = smallSource();
    source.orders = 2000000;
    window->openSource(source);
    Q_EMIT window->bar().cancelAsked();
    EXPECT_TRUE(window->messages().isVisible());
    EXPECT_FALSE(window->messages().isError());
    EXPECT_EQ(window->day()->detail.code, "600999");
    letRun(100);
    EXPECT_EQ(shown, 1);
}

TEST_F(Window, ATypedTimeThatIsNoneIsTold)
{
    open();
    ASSERT_TRUE(waitForDay());
    Q_EMIT window->bar().timeRefused(QStringLiteral("77"));
    EXPECT_TRUE(window->messages().isError());
    EXPECT_TRUE(window->messages().text().contains(QStringLiteral("77")));
}

TEST_F(Window, PlaysToTheEndAndFromTheBeginAgain)
{
    open([](host::TerminalOptions& options) {
        options.at = timeOfDay(14, 59);
        options.speed = 0;
        options.playing = true;
    });
    ASSERT_TRUE(waitForDay());
    ASSERT_TRUE(waitUntil([&] { return !window->player().playing(); }));
    EXPECT_GE(now(), timeOfDay(15, 0));
    window->player().setSpeed(1);
    window->setPlaying(true);
    EXPECT_LT(now(), timeOfDay(9, 30));
}

TEST_F(Window, PlayingBeginsAnewAtTheEndOfTheSlider)
{
    open([](host::TerminalOptions& options) { options.at = timeOfDay(10, 30); });
    ASSERT_TRUE(waitForDay());
    window->seek(window->player().now() + utils::kMSecPerDay);
    ASSERT_TRUE(waitForDay(2));
    window->setPlaying(true);
    EXPECT_LT(now(), timeOfDay(9, 30));
    EXPECT_TRUE(window->player().playing());
}

TEST_F(Window, TheSliderReachesTheEndOfADayThatWasPlayedSlowly)
{
    const QTemporaryDir folder;
    feed::InstrumentDay day = *simulatedDay("stock");
    const std::int64_t last = host::dayRange(day).end;
    day.snapshots.push_back(day.snapshots.back());
    day.snapshots.back().time = last + 250;
    const std::string path = folder.path().toStdString() + "/day";
    feed::DayArchiveWriter writer(path);
    ASSERT_TRUE(writer.write(day) && writer.finish());
    open([&](host::TerminalOptions& options) {
        options.source = {};
        options.source.archive = path;
        options.at = utils::timeOfDayMs(last) + 100;
        options.playing = true;
    });
    ASSERT_TRUE(waitForDay());
    ASSERT_TRUE(waitUntil([&] { return !window->player().playing(); }));
    const auto* slider = window->findChild<host::DaySlider*>();
    EXPECT_TRUE(waitUntil([&] { return slider->value() == slider->maximum(); }));
    window->setPlaying(true);
    EXPECT_LT(now(), timeOfDay(9, 30));
}

TEST_F(Window, AFailureAfterTheStartWasGivenUpIsToldInTheMessageBar)
{
    open([](host::TerminalOptions& options) { options.source.orders = 2000000; });
    Q_EMIT window->bar().cancelAsked();
    host::DaySource missing;
    missing.archive = "/nowhere";
    window->openSource(missing);
    ASSERT_TRUE(waitUntil([&] { return window->messages().isError() || !failure.isEmpty(); }));
    EXPECT_TRUE(failure.isEmpty()) << failure.toStdString();
    EXPECT_EQ(window->messages().text().toStdString(), "/nowhere: no such folder");
}

TEST_F(Window, ClosesWhilePlayingAndLoading)
{
    open([](host::TerminalOptions& options) {
        options.playing = true;
        options.speed = 100;
    });
    ASSERT_TRUE(waitForDay());
    host::DaySource source = smallSource();
    source.orders = 2000000;
    window->openSource(source);
    window->close();
    window.reset();
}

} // namespace
} // namespace window_tests
