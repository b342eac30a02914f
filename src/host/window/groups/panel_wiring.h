#pragma once

#include "host/window/panes/Pane.h"

#include <vector>

namespace host {

class ChartPane;
class DealsPane;

/// The panels of one instrument, and what they tell each other through their host:
///
///     3223  a level of the ladder was selected      -> the orders of that level open beside it
///     3224  a deal was selected in list or chart    -> lists and charts highlight it
///     3225  a tracked order was found               -> queue and orders of a level mark it
///     3226  the filter's mark changed               -> queue and orders of a level mark that size
///     3227  a range was selected on the chart       -> the zoomed charts show it
///
/// Any number of panels of a kind may be there, none as well. The panes outlive the wiring or are taken out.
/// GUI thread.
class PanelWiring
{
public:
    void add(Pane* pane);
    void remove(Pane* pane);

    const std::vector<Pane*>& panes() const { return m_panes; }

    /// The panes of a class in the order of adding.
    template <class P>
    std::vector<P*> all() const
    {
        std::vector<P*> found;
        for (Pane* pane : m_panes) {
            if (auto* one = qobject_cast<P*>(pane))
                found.push_back(one);
        }
        return found;
    }

    /// The charts of a view.
    std::vector<ChartPane*> charts(bool zoomed) const;

    /// Answers an event of a pane; false if it is none of these.
    bool answer(Pane& from, int id, int first, int second, const QString& text);

    /// Marks no order any more.
    void endTracking();

    /// Tracked orders that were told of since the last call.
    int takeTracked();

private:
    void highlight(Pane& from, int row, const QString& timeTag);
    static void highlightInList(ChartPane& from, DealsPane& target, int deal, const QString& timeTag);
    static void highlightInChart(DealsPane& from, ChartPane& target, int row, const QString& timeTag);
    static void highlightInOtherChart(ChartPane& from, ChartPane& target, int deal, const QString& timeTag);
    static void highlightInOtherList(DealsPane& from, DealsPane& target, int row, const QString& timeTag);
    void setTrackOrder(int number, int color);

    std::vector<Pane*> m_panes;
    int m_tracked = 0;
    bool m_answering = false; ///< a highlighted panel may tell of its selection: that is no news
};

} // namespace host
