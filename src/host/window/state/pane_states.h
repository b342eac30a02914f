#pragma once

#include "host/window/FeedHub.h"
#include "host/window/state/data_state_view.h"

namespace host {

class Pane;

/// What a watch takes of a feed. The watch must outlive the hub's calls.
FeedHub::Receiver receiverOf(Kel::CDataStateWatch& watch);

/// Shows a state in a pane: the badge of its title, and the veil over prices that are not current. A pane
/// that takes nothing of the feed, such as the notices, shows none. Cheap while nothing changes. GUI thread.
void showDataState(Pane& pane, const DataStateView& view);

} // namespace host
