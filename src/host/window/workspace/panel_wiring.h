#pragma once

#include "host/window/panes/Pane.h"

namespace host {

class ChartPane;
class DealsPane;
class EntrustPane;
class LadderPane;
class QueueCell;

/// The panels of one instrument, and what they tell each other through their host:
///
///     3223  a level of the ladder was selected      -> the orders of that level open beside it
///     3224  a deal was selected in list or chart    -> list and charts highlight it
///     3225  a tracked order was found               -> queue and orders of a level mark it
///     3226  the filter's mark changed               -> queue and orders of a level mark that size
///     3227  a range was selected on the chart       -> the zoomed chart below shows it
///
/// GUI thread.
class PanelWiring
{
public:
    QueueCell* queue = nullptr;
    LadderPane* ladder = nullptr;
    DealsPane* deals = nullptr;
    EntrustPane* orders = nullptr;
    ChartPane* chart = nullptr;
    ChartPane* zoom = nullptr;

    int trackedFound = 0; ///< tracked orders that were told of

    /// Answers an event of a pane; false if it is none of these.
    bool answer(Pane& from, int id, int first, int second, const QString& text);

private:
    void highlightInList(ChartPane& from, int deal, const QString& timeTag);
    void highlightInChart(ChartPane& target, int row, const QString& timeTag);
    static void highlightInOtherChart(ChartPane& from, ChartPane& target, int deal, const QString& timeTag);

    bool m_answering = false; ///< a highlighted panel may tell of its selection: that is no news
};

} // namespace host
