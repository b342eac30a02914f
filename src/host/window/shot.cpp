#include "host/window/shot.h"

#include "host/commands/commands.h"
#include "host/window/MainWindow.h"
#include "host/window/panes/QueueCell.h"
#include "queue_view/CDepthOrderQueueWidget.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QPixmap>
#include <QTimer>

#include <ostream>

namespace host {

namespace {

// The engine has applied what the feed said last, reconciliations with published queues included, which come
// two seconds after them.
constexpr int kSettleMs = 2300;

} // namespace

int takeShot(TerminalOptions options, std::ostream& err)
{
    options.playing = false;
    MainWindow window(options);
    QEventLoop loop;
    QString failure;
    QObject::connect(&window, &MainWindow::startFailed, &loop, [&](const QString& reason) {
        failure = reason;
        loop.quit();
    });
    QObject::connect(&window, &MainWindow::shown, &loop,
                     [&] { QTimer::singleShot(kSettleMs, &loop, &QEventLoop::quit); });
    window.show();
    // The call comes back when the loop runs.
    QTimer::singleShot(0, &window, &MainWindow::start);
    loop.exec();
    if (!failure.isEmpty())
        return fail(err, failure.toStdString());
    if (!window.grab().save(options.shot))
        return fail(err, options.shot.toStdString() + ": the picture cannot be written");
    return kExitDone;
}

} // namespace host
