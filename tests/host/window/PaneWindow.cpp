#include "host/window/PaneWindow.h"

#include "host/window/InstrumentList.h"
#include "host/window/MessageBar.h"
#include "host/window/WindowFixture.h"
#include "platform/resources/CUiResource.h"
#include "platform/toolkit/CStandardTable.h"
#include "platform/utils/CSingletonT.h"
#include "platform/utils/exchange_time.h"
#include "records/Tolerance.h"

#include <QPointer>
#include <QTest>

#include <ostream>

namespace window_tests {

namespace {

constexpr int kDialogMs = 5000; // no test needs a dialog for so long
constexpr int kSettleMs = 250;  // more than two looks of a panel at its model

host::LayoutCell cell(const char* id, int share)
{
    return {{QString::fromLatin1(id)}, share};
}

int indexOfPrice(const LadderEyes::Levels& levels, double price)
{
    for (std::size_t i = 0; i < levels.size(); ++i) {
        if (Kel::isEqual(levels[i]->price, price))
            return static_cast<int>(i);
    }
    return -1;
}

} // namespace

const host::Layout& allPanes()
{
    static const host::Layout layout = {QStringLiteral("all"),
                                        QString(),
                                        {{{cell("list", 100)}, 12},
                                         {{cell("queue", 50), cell("orders", 50)}, 25},
                                         {{cell("ladder", 50), cell("information", 50)}, 14},
                                         {{cell("deals", 100)}, 14},
                                         {{cell("chart", 50), cell("zoom", 50)}, 15},
                                         {{cell("levels", 50), cell("ticket", 50)}, 20}}};
    return layout;
}

const host::Layout& ladderAlone()
{
    static const host::Layout layout = {QStringLiteral("ladder"), QString(), {{{cell("ladder", 100)}, 100}}};
    return layout;
}

QPoint LadderEyes::countOf(Kel::CDepthThousandDataWidget& panel, double price)
{
    const Kel::LadderLayout rows = geometry(panel);
    const int sell = indexOfPrice(sells(panel), price);
    const int buy = indexOfPrice(buys(panel), price);
    for (int row = rows.firstRow(); row < rows.endRow(); ++row) {
        const bool found = rows.isSell(row) ? sell >= 0 && rows.sellIndex(row) == sell
                                            : !rows.isLatest(row) && buy >= 0 && rows.buyIndex(row) == buy;
        if (found)
            return rows.countCell(rows.rowTop(row)).center();
    }
    return QPoint(-1, -1);
}

bool Contents::operator==(const Contents& other) const
{
    return deals == other.deals && orders == other.orders && cancels == other.cancels &&
           chartDeals == other.chartDeals && zoomDeals == other.zoomDeals && sellPrices == other.sellPrices &&
           buyPrices == other.buyPrices && lastPrice == other.lastPrice &&
           conciseLastPrice == other.conciseLastPrice && notices == other.notices &&
           intervals == other.intervals;
}

std::ostream& operator<<(std::ostream& out, const Contents& contents)
{
    return out << contents.deals << " deals, " << contents.orders << " orders, " << contents.cancels
               << " cancels, " << contents.chartDeals << " and " << contents.zoomDeals
               << " deals in the charts, " << contents.sellPrices << " sell prices, " << contents.buyPrices
               << " buy prices, last prices " << contents.lastPrice << " and " << contents.conciseLastPrice
               << ", " << contents.notices << " notices, intervals " << contents.intervals;
}

PaneWindow::~PaneWindow()
{
    window.reset();
    auto& theme = utils::CSingletonT<Zeb::CUiResource>::instance();
    theme.setTheme(QStringLiteral("dark"));
    theme.setPriceColors(Zeb::EPriceColors::eRedUp);
}

void PaneWindow::open(const std::function<void(host::TerminalOptions&)>& change)
{
    host::TerminalOptions options;
    options.source = smallSource();
    options.playing = false;
    options.size = QSize(2200, 1100);
    if (change)
        change(options);
    window = std::make_unique<host::MainWindow>(options);
    QObject::connect(window.get(), &host::MainWindow::shown, window.get(), [this] { ++shown; });
    window->show();
    window->activateWindow();
    window->workspace().apply(allPanes());
    window->start();
    endForgottenDialogs();
}

/// A dialog that nobody answers would stop the tests.
void PaneWindow::endForgottenDialogs()
{
    auto* watch = new QTimer(window.get());
    QObject::connect(watch, &QTimer::timeout, window.get(), [last = QPointer<QWidget>()]() mutable {
        QWidget* dialog = QApplication::activeModalWidget();
        if (dialog && dialog == last) {
            ADD_FAILURE() << "nobody answered " << dialog->metaObject()->className();
            dialog->close();
        }
        last = dialog;
    });
    watch->start(kDialogMs);
}

bool PaneWindow::openAt(int hour, int minute, const std::function<void(host::TerminalOptions&)>& change)
{
    open([&](host::TerminalOptions& options) {
        options.at = timeOfDay(hour, minute);
        if (change)
            change(options);
    });
    return waitForDay(1) && QTest::qWaitForWindowActive(window.get());
}

bool PaneWindow::waitForDay(int count)
{
    if (!waitUntil([&] { return shown >= count; }))
        return false;
    settle();
    return true;
}

bool PaneWindow::seek(std::int64_t timeOfDay)
{
    const int before = shown;
    window->seek(utils::exchangeDayStart(window->player().now()) + timeOfDay);
    return waitForDay(before + 1);
}

void PaneWindow::settle()
{
    letRun(kSettleMs);
}

Contents PaneWindow::contents()
{
    Contents contents;
    contents.deals = deals().model()->count;
    contents.orders = orders().model()->orderCount;
    contents.cancels = orders().model()->cancelCount;
    contents.chartDeals = chart().model()->count;
    contents.zoomDeals = zoom().model()->count;
    contents.sellPrices = LadderEyes::sells(ladder()).size();
    contents.buyPrices = LadderEyes::buys(ladder()).size();
    contents.lastPrice = LevelEyes::quote(window->levels().panel()).lastPrice;
    contents.conciseLastPrice = ConciseEyes::quote(window->ticket().panel()).lastPrice;
    contents.notices =
        window->information().panel().table(Kel::CInformationWidget::eTableAnnouncements)->rowCount();
    contents.intervals = chart().model()->hasIntervals() && zoom().model()->hasIntervals();
    return contents;
}

QString PaneWindow::message()
{
    return window->messages().isVisible() ? window->messages().text() : QString();
}

void PaneWindow::focus(QWidget& widget)
{
    // A dialog that was closed does not give the activity back where there is no window manager.
    widget.window()->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(widget.window()));
    widget.setFocus(Qt::MouseFocusReason);
}

void PaneWindow::key(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(window->windowHandle(), key, modifiers);
}

} // namespace window_tests
