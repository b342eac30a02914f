#include "host/window/window_runs.h"

#include "holographic/CDepthHolographicWidget.h"
#include "host/commands/commands.h"
#include "host/window/InstrumentList.h"
#include "host/window/MainWindow.h"
#include "host/window/panes/ChartPane.h"
#include "host/window/panes/QueueCell.h"
#include "host/window/workspace/Workspace.h"
#include "platform/resources/CUiResource.h"
#include "platform/utils/CSingletonT.h"
#include "platform/utils/exchange_time.h"

#include <QAction>
#include <QApplication>
#include <QDockWidget>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QKeyEvent>
#include <QKeySequence>
#include <QTimer>

#include <functional>
#include <ostream>

namespace host {

namespace {

constexpr int kPatienceMs = 20000; // for what a step has to bring about
constexpr int kLookMs = 20;        // between two looks

/// One step: what a person does, and what has to be so after it.
struct Step
{
    const char* name;
    std::function<void()> act;
    std::function<bool()> done;
};

/// Does what the shortcut stands for; a key without a command goes to the widget with the focus.
void press(QWidget* window, const char* shortcut)
{
    const QKeySequence keys(QString::fromLatin1(shortcut));
    for (QAction* action : window->findChildren<QAction*>()) {
        if (action->shortcut() == keys) {
            action->trigger();
            return;
        }
    }
    QWidget* target = window->focusWidget() ? window->focusWidget() : window;
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, keys[0], Qt::NoModifier);
        QApplication::sendEvent(target, &event);
    }
}

bool waitFor(const std::function<bool()>& done)
{
    QElapsedTimer clock;
    clock.start();
    while (!done()) {
        if (clock.elapsed() > kPatienceMs)
            return false;
        QEventLoop loop;
        QTimer::singleShot(kLookMs, &loop, &QEventLoop::quit);
        loop.exec();
    }
    return true;
}

} // namespace

int runTour(const TerminalOptions& options, std::ostream& out, std::ostream& err)
{
    MainWindow window(options);
    QString failure;
    bool shown = false;
    QObject::connect(&window, &MainWindow::startFailed, &window,
                     [&](const QString& reason) { failure = reason; });
    QObject::connect(&window, &MainWindow::shown, &window, [&] { shown = true; });
    window.show();
    window.start();

    std::int64_t moment = 0;
    QString theme;
    auto& resource = utils::CSingletonT<Zeb::CUiResource>::instance();
    const auto action = [&window](const char* shortcut) {
        return [&window, shortcut] { press(&window, shortcut); };
    };
    const auto mode = [&window](Kel::EQueueMode style) {
        return [&window, style] { return window.queue().modes().style == style; };
    };
    const auto shows = [&window](const char* pane) {
        return [&window, pane] { return window.workspace().dock(QString::fromLatin1(pane))->isVisible(); };
    };
    const Step steps[] = {
        {"the window is active", [] {}, [&] { return window.isActiveWindow(); }},
        {"a day is shown", [] {}, [&] { return shown || !failure.isEmpty(); }},
        {"the replay runs", [&] { moment = window.player().now(); },
         [&] { return failure.isEmpty() && window.player().now() > moment; }},
        {"faster", action("Ctrl+Up"), [&] { return window.player().speed() > options.speed; }},
        {"horizontal", action("Ctrl+2"), mode(Kel::eQueueDetailHorizontal)},
        {"vertical", action("Ctrl+3"), mode(Kel::eQueueDetailVertical)},
        {"list", action("Ctrl+4"), mode(Kel::eQueueDetailList)},
        {"first-level detail", action("Ctrl+1"), mode(Kel::eQueueDetailFirst)},
        {"five levels", action("Ctrl+5"),
         [&] { return window.queue().modes().levels == Kel::eQueueFiveLevels; }},
        {"all orders", action("Ctrl+F"), [&] { return window.queue().modes().full; }},
        {"another theme",
         [&] {
             theme = resource.theme();
             press(&window, "Ctrl+T");
         },
         [&] { return resource.theme() != theme; }},
        {"other price colours", action("Alt+2"),
         [&] { return resource.priceColors() == Zeb::EPriceColors::eGreenUp; }},
        {"another instrument",
         [&] {
             shown = false;
             window.list().setFocus();
             press(&window, "Down");
         },
         [&] { return shown && window.list().shown() == 1; }},
        {"a minute back",
         [&] {
             shown = false;
             press(&window, "Ctrl+Left");
         },
         [&] { return shown; }},
        {"the desk of deals and orders", action("Ctrl+Shift+2"), shows("orders")},
        {"the desk of the chart", action("Ctrl+Shift+3"), shows("chart")},
        {"the whole day on the chart", action("Ctrl+D"),
         [&] { return window.panels().chart->panel().model()->getStartIndex() == 0; }},
        {"the desk of the queue", action("Ctrl+Shift+1"), shows("ladder")},
        {"pause", action("Space"), [&] { return !window.player().playing(); }},
        {"closed", action("Ctrl+Q"), [&] { return !window.isVisible(); }},
    };
    for (const Step& step : steps) {
        step.act();
        if (!waitFor(step.done) || !failure.isEmpty())
            return fail(err, failure.isEmpty() ? std::string("the tour stopped at: ") + step.name
                                               : failure.toStdString());
        out << "done: " << step.name << '\n';
    }
    return kExitDone;
}

} // namespace host
