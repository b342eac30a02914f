#pragma once

#include "holographic/CDepthHolographicWidget.h"
#include "host/window/MainWindow.h"
#include "host/window/panes/ChartPane.h"
#include "host/window/panes/DealsPane.h"
#include "host/window/panes/EntrustPane.h"
#include "host/window/panes/InformationPane.h"
#include "host/window/panes/LadderPane.h"
#include "host/window/panes/LevelPane.h"
#include "host/window/panes/QueueCell.h"
#include "host/window/panes/TicketPane.h"
#include "host/window/workspace/Workspace.h"
#include "host/window/workspace/layouts.h"
#include "information/CInformationWidget.h"
#include "level_panels/CDepthConciseStyleEntrustStatusWidget.h"
#include "level_panels/CDepthEntrustStatusWidget.h"
#include "queue_view/CDepthOrderQueueWidget.h"
#include "thousand/CDepthThousandDataWidget.h"
#include "thousand/CSingleQueueWidget.h"
#include "tick/CDepthCancelWidget.h"
#include "tick/CDepthEntrustWidget.h"
#include "tick/CDepthOrderWidget.h"
#include "tick/CDepthTransactionWidget.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTimer>

#include <functional>
#include <memory>
#include <vector>

/// A window with a small day, and what its panels keep to themselves.
namespace window_tests {

// What panels show, as their painting and their mouse see it
// ---------------------------------------------------------------------------------------------------

struct LadderEyes : Kel::CDepthThousandDataWidget
{
    using Levels = std::vector<boost::shared_ptr<Kel::EntrustData>>;

    static const Levels& sells(Kel::CDepthThousandDataWidget& panel)
    {
        return panel.*(&LadderEyes::m_sellQueues);
    }
    static const Levels& buys(Kel::CDepthThousandDataWidget& panel)
    {
        return panel.*(&LadderEyes::m_buyQueues);
    }
    static bool hasSelection(Kel::CDepthThousandDataWidget& panel)
    {
        return (panel.*(&LadderEyes::m_selected)).get() != nullptr;
    }
    static Kel::LadderLayout geometry(Kel::CDepthThousandDataWidget& panel)
    {
        return (panel.*(&LadderEyes::layout))();
    }

    /// A place on the order count of a price's row.
    static QPoint countOf(Kel::CDepthThousandDataWidget& panel, double price);
};

struct OrdersEyes : Kel::CSingleQueueWidget
{
    static double price(Kel::CSingleQueueWidget& panel) { return panel.*(&OrdersEyes::m_price); }
    static double tick(Kel::CSingleQueueWidget& panel) { return panel.*(&OrdersEyes::m_priceTick); }
    static int unit(Kel::CSingleQueueWidget& panel) { return panel.*(&OrdersEyes::m_volumeUnit); }
    static int count(Kel::CSingleQueueWidget& panel) { return panel.*(&OrdersEyes::m_orderCount); }
    static int trackOrder(Kel::CSingleQueueWidget& panel) { return panel.*(&OrdersEyes::m_trackOrderNo); }
    static int trackColor(Kel::CSingleQueueWidget& panel) { return panel.*(&OrdersEyes::m_trackColor); }
    static int markVolume(Kel::CSingleQueueWidget& panel) { return panel.*(&OrdersEyes::m_markVolume); }
    static int markColor(Kel::CSingleQueueWidget& panel) { return panel.*(&OrdersEyes::m_markColor); }
};

struct QueueEyes : Kel::CDepthOrderQueueWidget
{
    static int trackOrder(Kel::CDepthOrderQueueWidget& panel) { return panel.*(&QueueEyes::m_trackOrderNo); }
    static int trackColor(Kel::CDepthOrderQueueWidget& panel) { return panel.*(&QueueEyes::m_trackColor); }
    static int markVolume(Kel::CDepthOrderQueueWidget& panel) { return panel.*(&QueueEyes::m_markVolume); }
    static int markColor(Kel::CDepthOrderQueueWidget& panel) { return panel.*(&QueueEyes::m_markColor); }
};

struct ChartEyes : Kel::CDepthHolographicWidget
{
    static int cursor(Kel::CDepthHolographicWidget& chart) { return chart.*(&ChartEyes::m_cursorSeq); }
    static bool columns(Kel::CDepthHolographicWidget& chart) { return chart.*(&ChartEyes::m_columnMode); }
    static int halfRow(Kel::CDepthHolographicWidget& chart) { return chart.*(&ChartEyes::m_halfRow); }

    /// A place on the chart where a deal is drawn; outside of the chart if it is not in view.
    static QPoint pointOf(Kel::CDepthHolographicWidget& chart, int deal)
    {
        const QMap<int, int>& ends = chart.*(&ChartEyes::m_dealRightX);
        return QPoint(ends.value(deal, 0) - 1, chart.*(&ChartEyes::m_chartHeight) / 2);
    }
};

struct DealEyes : Kel::CDepthTransactionWidget
{
    static std::pair<int, int> highlighted(Kel::CDepthTransactionWidget& list)
    {
        return list.*(&DealEyes::m_highlightRange);
    }
    static bool showsTip(Kel::CDepthTransactionWidget& list) { return list.*(&DealEyes::m_tipSide) != -1; }
};

/// The middle of a row of a list of deals, orders or cancels, in the list; outside if it is not in view.
struct ListEyes : Kel::CTickListWidget
{
    static QPoint middleOf(Kel::CTickListWidget& list, int row)
    {
        const Kel::TickListLayout& layout = list.*(&ListEyes::m_layout);
        return layout.rowRect(row - list.*(&ListEyes::m_firstIndex)).center();
    }
    static int firstInView(Kel::CTickListWidget& list) { return list.*(&ListEyes::m_firstIndex); }
};

struct LevelEyes : Kel::CDepthEntrustStatusWidget
{
    static Kel::EntrustStatusData quote(Kel::CDepthEntrustStatusWidget& panel)
    {
        return (panel.*(&LevelEyes::m_model)).data();
    }
};

struct ConciseEyes : Kel::CDepthConciseStyleEntrustStatusWidget
{
    static Kel::EntrustStatusData quote(Kel::CDepthConciseStyleEntrustStatusWidget& panel)
    {
        return (panel.*(&ConciseEyes::m_model)).data();
    }
    static Kel::LevelColumns columns(Kel::CDepthConciseStyleEntrustStatusWidget& panel)
    {
        Kel::LevelColumns columns;
        columns.panelWidth = panel.width();
        columns.priceZoneWidth = panel.*(&ConciseEyes::m_priceZoneWidth);
        return columns;
    }
    static int rowHeight(Kel::CDepthConciseStyleEntrustStatusWidget& panel)
    {
        return panel.*(&ConciseEyes::m_rowHeight);
    }
};

// The window
// -------------------------------------------------------------------------------------------------------------

/// How much of a day the panels hold.
struct Contents
{
    int deals = 0;
    int orders = 0;
    int cancels = 0;
    int chartDeals = 0;
    int zoomDeals = 0;
    std::size_t sellPrices = 0;
    std::size_t buyPrices = 0;
    double lastPrice = 0;        ///< of the quote panel, yuan
    double conciseLastPrice = 0; ///< of the concise one
    int notices = 0;
    bool intervals = false; ///< the chart has had snapshots

    bool operator==(const Contents& other) const;
};

std::ostream& operator<<(std::ostream& out, const Contents& contents);

class PaneWindow : public ::testing::Test
{
protected:
    ~PaneWindow() override;

    /// Opens a window with a small simulated day, paused, all of whose panes are shown in reach of the mouse.
    void open(const std::function<void(host::TerminalOptions&)>& change = {});

    /// Opens it and waits until the day has reached the panels, and they their screen.
    bool openAt(int hour, int minute, const std::function<void(host::TerminalOptions&)>& change = {});

    /// Waits until a day or a moment was shown so often, and the panels show it.
    bool waitForDay(int count);

    /// Goes to a time of day and waits as above.
    bool seek(std::int64_t timeOfDay);

    /// Lets each panel look at its model.
    static void settle();

    Contents contents();

    /// What the message bar says, as far as it is shown.
    QString message();

    /// Gives a widget the keyboard, as a click does.
    void focus(QWidget& widget);

    /// Presses a key in the window.
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

    /// Calls `act` as soon as a modal dialog of this class is open.
    template <class Dialog>
    void whenOpen(const std::function<void(Dialog&)>& act)
    {
        auto* watch = new QTimer(window.get());
        QObject::connect(watch, &QTimer::timeout, window.get(), [this, watch, act] {
            auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
            if (!dialog)
                return;
            watch->deleteLater();
            ++dialogs;
            act(*dialog);
        });
        watch->start(5);
    }

    Kel::CDepthThousandDataWidget& ladder() { return window->panels().ladder->panel(); }
    Kel::CSingleQueueWidget& popup() { return window->panels().ladder->orders(); }
    Kel::CDepthTransactionWidget& deals() { return window->panels().deals->panel(); }
    Kel::CDepthEntrustWidget& orders() { return window->panels().orders->panel(); }
    Kel::CDepthHolographicWidget& chart() { return window->panels().chart->panel(); }
    Kel::CDepthHolographicWidget& zoom() { return window->panels().zoom->panel(); }
    Kel::CDepthOrderQueueWidget& queue() { return window->queue().panel(); }

    std::unique_ptr<host::MainWindow> window;
    int shown = 0;
    int dialogs = 0; ///< that `whenOpen` has met

private:
    void endForgottenDialogs();
};

/// A layout in which no pane lies behind another one.
const host::Layout& allPanes();

/// One with the ladder alone.
const host::Layout& ladderAlone();

} // namespace window_tests
