#pragma once

#include "host/window/FeedHub.h"
#include "host/window/day_moments.h"
#include "host/window/groups/panel_wiring.h"
#include "platform/services/CDataStateWatch.h"

#include <cstdint>

namespace host {

/// Panes that are linked: they show the same instrument, live of the same feed and tell each other what a
/// person selects. GUI thread; the feed calls the hub on its own.
class PaneGroup
{
public:
    FeedHub& hub() { return m_hub; }
    const FeedHub& hub() const { return m_hub; }
    PanelWiring& wiring() { return m_wiring; }
    const PanelWiring& wiring() const { return m_wiring; }
    const std::vector<Pane*>& panes() const { return m_wiring.panes(); }

    /// The state of the group's data, which its panes show.
    Kel::CDataStateWatch& watch() { return m_watch; }

    /// The instrument comes to the panes with the next `begin`.
    void setDay(int row, const DayPtr& day);

    /// Null before the first one.
    const DayPtr& day() const { return m_day; }

    /// Place of the instrument in the list; -1 without one.
    int row() const { return m_row; }

    const DayRange& range() const { return m_range; }

    /// Empties the panes and gives them the day, and connects them with the feed. While nothing is delivered.
    void begin();

    /// The history has been delivered.
    void loaded() { m_watch.loaded(); }

    /// Lets the panes look at the clock (ms since 1970-01-01 UTC), shows the state of the data in them, and
    /// tells the queues of the close once it is reached.
    void follow(std::int64_t now);

private:
    FeedHub m_hub;
    PanelWiring m_wiring;
    Kel::CDataStateWatch m_watch;
    DayPtr m_day;
    int m_row = -1;
    DayRange m_range;
    std::int64_t m_close = -1; ///< ms since 1970-01-01 UTC
    bool m_closeAsked = false; ///< the queues were told of the close
};

} // namespace host
