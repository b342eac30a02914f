#include "host/window/shot.h"

#include "host/commands/commands.h"
#include "host/window/InstrumentList.h"
#include "host/window/MainWindow.h"
#include "host/window/workspace/Workspace.h"
#include "platform/resources/CUiResource.h"
#include "platform/services/CConfig.h"
#include "platform/utils/CSingletonT.h"

#include <QApplication>
#include <QDockWidget>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QLayout>
#include <QPixmap>
#include <QTimer>

#include <ostream>

namespace host {

namespace {

// The engine has applied what the feed said last, reconciliations with published queues included, which come
// two seconds after them.
constexpr int kSettleMs = 2300;
constexpr int kPatienceMs = 10000;
constexpr int kLookMs = 50;

/// Takes a pane out of the window, so that it is shown at its own size whatever the layout.
QWidget* takeOut(QDockWidget& dock, const QSize& wanted)
{
    QWidget* pane = dock.widget();
    dock.setFloating(true);
    dock.show();
    pane->show(); // it rested, if it was not seen
    dock.layout()->activate();
    const QSize size = wanted.isEmpty() ? pane->sizeHint() : wanted;
    dock.resize(size + (dock.size() - pane->size()));
    return pane;
}

/// Whether the list tells what each instrument costs; prices come one after the other.
bool allPriced(const InstrumentList& list)
{
    const QAbstractItemModel& model = *list.model();
    for (int row = 0; row < model.rowCount(); ++row) {
        if (model.index(row, InstrumentModel::eLastPrice).data().toString().startsWith(QLatin1Char('-')))
            return false;
    }
    return true;
}

/// Lets the window work until it is as it will stay, or patience ends: an instrument may have no price yet.
void settle(MainWindow& window, QEventLoop& loop)
{
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < kSettleMs || (clock.elapsed() < kPatienceMs && !allPriced(window.list()))) {
        QTimer::singleShot(kLookMs, &loop, &QEventLoop::quit);
        loop.exec();
    }
}

} // namespace

int takeShot(TerminalOptions options, std::ostream& err)
{
    options.playing = false;
    const QSize paneSize = options.size;
    if (!options.pane.isEmpty())
        options.size = QSize();
    MainWindow window(options);
    if (options.concise) {
        Kel::getConfig()->setConciseStyle(true);
        utils::CSingletonT<Zeb::CUiResource>::instance().setTheme(options.theme);
    }
    QEventLoop loop;
    QString failure;
    QObject::connect(&window, &MainWindow::startFailed, &loop, [&](const QString& reason) {
        failure = reason;
        loop.quit();
    });
    QObject::connect(&window, &MainWindow::shown, &loop, &QEventLoop::quit);
    window.show();
    QWidget* shown = &window;
    if (QDockWidget* dock = window.workspace().dock(options.pane))
        shown = takeOut(*dock, paneSize);
    // The call comes back when the loop runs.
    QTimer::singleShot(0, &window, &MainWindow::start);
    loop.exec();
    if (!failure.isEmpty())
        return fail(err, failure.toStdString());
    QObject::disconnect(&window, nullptr, &loop, nullptr);
    settle(window, loop);
    if (QWidget* focused = QApplication::focusWidget(); focused && shown != &window)
        focused->clearFocus(); // a window of its own has given it to one of its buttons
    if (!shown->grab().save(options.shot))
        return fail(err, options.shot.toStdString() + ": the picture cannot be written");
    return kExitDone;
}

} // namespace host
