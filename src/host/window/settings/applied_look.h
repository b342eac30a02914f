#pragma once

#include "host/window/settings/TerminalSettings.h"

namespace host {

class TerminalServices;

/// Puts theme, colours of prices, concise style, size of fonts, refresh period and language in force; panels
/// and windows follow at once. What is in force already is not told again. GUI thread.
void applyLook(const TerminalSettings& settings, TerminalServices& services);

} // namespace host
