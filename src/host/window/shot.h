#pragma once

#include "host/window/TerminalOptions.h"

#include <iosfwd>

namespace host {

/// Writes a picture of the window, as it stands at the moment that the options name, to their file. The
/// application must run; no display is needed. Answers with the exit code: 0, or 2 with one line on `err`.
int takeShot(TerminalOptions options, std::ostream& err);

} // namespace host
