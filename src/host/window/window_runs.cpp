#include "host/window/window_runs.h"

#include "host/commands/commands.h"
#include "host/window/MainWindow.h"
#include "host/window/StallMeter.h"
#include "platform/utils/exchange_time.h"

#include <QCoreApplication>
#include <QTimer>

#include <cstdio>
#include <ostream>

namespace host {

namespace {

constexpr int kWarmUpMs = 1500; // from the first picture to the measurement

/// Loads the source; a failure ends the application with the error's code.
void startWithin(MainWindow& window, std::ostream& err)
{
    QObject::connect(&window, &MainWindow::startFailed, &window, [&err](const QString& reason) {
        QCoreApplication::exit(fail(err, reason.toStdString()));
    });
    window.show();
    QTimer::singleShot(0, &window, &MainWindow::start);
}

} // namespace

int runWindow(const TerminalOptions& options, std::ostream& err)
{
    MainWindow window(options);
    startWithin(window, err);
    return QCoreApplication::exec();
}

int runStallMeasurement(const TerminalOptions& options, std::ostream& out, std::ostream& err)
{
    TerminalOptions paused = options;
    paused.playing = false;
    MainWindow window(paused);
    StallMeter meter;
    std::int64_t recordsBefore = 0;
    std::int64_t momentBefore = 0;
    const int lengthMs = static_cast<int>(options.measureStalls * utils::kMSecPerSecond);
    QObject::connect(&window, &MainWindow::shown, &window, [&] {
        QTimer::singleShot(kWarmUpMs, &window, [&] {
            recordsBefore = window.records();
            momentBefore = window.player().now();
            meter.start();
            window.setPlaying(true);
            QTimer::singleShot(lengthMs, Qt::PreciseTimer, &window, [&] {
                meter.stop();
                QCoreApplication::exit(kExitDone);
            });
        });
    });
    startWithin(window, err);
    const int code = QCoreApplication::exec();
    if (code != kExitDone)
        return code;

    const StallMeter::Result result = meter.result();
    const double played = static_cast<double>(window.player().now() - momentBefore) / utils::kMSecPerSecond;
    const double rate = static_cast<double>(window.records() - recordsBefore) / options.measureStalls;
    char text[256];
    std::snprintf(
        text, sizeof text,
        "worst stall %.1f ms, p99 %.1f ms, median %.2f ms over %zu turns; %.0f records/s, %.0f s of the "
        "day in %.1f s\n",
        result.worstMs, result.p99Ms, result.medianMs, result.turns, rate, played, options.measureStalls);
    out << text;
    return kExitDone;
}

} // namespace host
