#pragma once

#include "host/window/panes/Pane.h"
#include "tick/tick_table.h"

namespace host {

/// A list of the tick panels as a table of its pane.
PaneTable tickPaneTable(const QString& name, const QString& file, const Kel::TickTable& table);

} // namespace host
