// How long it takes until all panels show another moment of a busy day. A program of its own: it opens the
// terminal's window, without a display if there is none.
//
//     bench_seek [orders] [layout...]
//
// For each layout of the panes it goes to twenty moments (the same ones in each run) and prints, in ms from
// the call: the feed has halted, the history has been delivered and handled, the last of the pictures that
// followed has been painted.

#include "host/window/MainWindow.h"
#include "host/window/ReplayPlayer.h"
#include "host/window/workspace/layouts.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QStyleFactory>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr std::int64_t kOrders = 560000; // about a million orders, deals and cancellations
constexpr int kSeeks = 20;
constexpr int kQuietMs = 400; // without a picture: all panels have looked at their models since

/// Tells when the last picture was painted.
class PaintWatch : public QObject
{
public:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint && watched->isWidgetType()) {
            // The picture is there when the event has been handled: the next look at the clock says when.
            m_pending = true;
            m_name = watched->metaObject()->className();
        }
        return false;
    }

    /// Begins anew at a moment of the clock.
    void begin() { m_pending = false; }

    /// Whether something was painted since the last call.
    bool take()
    {
        const bool pending = m_pending;
        m_pending = false;
        return pending;
    }

    const char* name() const { return m_name; }

private:
    bool m_pending = false;
    const char* m_name = "";
};

bool runUntil(const std::function<bool()>& done, int mostMs)
{
    QElapsedTimer timer;
    timer.start();
    while (!done() && timer.elapsed() < mostMs)
        QApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    return done();
}

struct Seek
{
    qint64 halted = 0;
    qint64 began = 0;
    qint64 painted = 0;
    std::string last; ///< class of the widget that was painted last
};

/// Goes to a moment and waits until nothing is painted any more.
Seek measure(host::MainWindow& window, PaintWatch& watch, std::int64_t moment)
{
    Seek seek;
    QElapsedTimer clock;
    bool shown = false;
    QObject context;
    QObject::connect(&window.player(), &host::ReplayPlayer::halted, &context,
                     [&] { seek.halted = clock.elapsed(); });
    QObject::connect(&window, &host::MainWindow::shown, &context, [&] {
        seek.began = clock.elapsed();
        shown = true;
    });
    watch.begin();
    clock.start();
    window.seek(moment);
    while (!shown || clock.elapsed() - std::max(seek.painted, seek.began) < kQuietMs) {
        QApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
        if (watch.take()) {
            seek.painted = clock.elapsed();
            seek.last = watch.name();
        }
    }
    return seek;
}

void measureLayout(const QString& layout, std::int64_t orders)
{
    host::TerminalOptions options;
    options.source.simulated = true;
    options.source.orders = orders;
    options.playing = false;
    options.layout = layout;
    options.given.layout = true;
    host::MainWindow window(options);
    PaintWatch watch;
    bool shown = false;
    QObject::connect(&window, &host::MainWindow::shown, &window, [&shown] { shown = true; });
    QTimer ticking; // the event loop comes back to look at the clock
    ticking.start(5);
    window.show();
    window.start();
    if (!runUntil([&shown] { return shown; }, 600000)) {
        std::printf("%s: no day\n", layout.toUtf8().constData());
        return;
    }
    qApp->installEventFilter(&watch);
    const host::DayRange range = host::dayRange(*window.day());
    std::printf("%s: %zu orders, %zu deals and cancellations\n", layout.toUtf8().constData(),
                window.day()->orders.size(), window.day()->deals.size());
    std::mt19937_64 random(7);
    std::vector<qint64> painted;
    measure(window, watch, range.end); // warms up
    for (int i = 0; i < kSeeks; ++i) {
        const auto length = static_cast<std::uint64_t>(range.end - range.begin);
        const std::int64_t moment = range.begin + static_cast<std::int64_t>(random() % length);
        const Seek seek = measure(window, watch, moment);
        painted.push_back(seek.painted);
        std::printf("  %3.0f %% of the day: halted %lld, began %lld, painted %lld (%s)\n",
                    100 * double(moment - range.begin) / double(length), static_cast<long long>(seek.halted),
                    static_cast<long long>(seek.began), static_cast<long long>(seek.painted),
                    seek.last.c_str());
        std::fflush(stdout);
    }
    std::sort(painted.begin(), painted.end());
    std::printf("  median %lld ms, worst %lld ms\n", static_cast<long long>(painted[kSeeks / 2]),
                static_cast<long long>(painted.back()));
    qApp->removeEventFilter(&watch);
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_FONT_DPI", "96");
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    const QStringList arguments = QApplication::arguments();
    const std::int64_t orders = arguments.size() > 1 ? arguments[1].toLongLong() : kOrders;
    QStringList layouts = arguments.mid(2);
    if (layouts.isEmpty()) {
        for (const host::Layout& layout : host::shippedLayouts())
            layouts << layout.id;
    }
    for (const QString& layout : layouts)
        measureLayout(layout, orders > 0 ? orders : kOrders);
    return 0;
}
