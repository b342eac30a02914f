#pragma once

#include "host/DaySource.h"
#include "host/window/DayStore.h"
#include "host/window/TerminalOptions.h"

#include <QTemporaryDir>

#include <functional>
#include <memory>
#include <string>

namespace window_tests {

/// Lets the event loop run until it is so; false if it is not within half a minute.
bool waitUntil(const std::function<bool()>& done);

/// Lets the event loop run for so long.
void letRun(int ms);

/// A simulated source with a short day.
host::DaySource smallSource(std::uint64_t seed = 1);

/// The day of a kind of a small simulated source.
host::DayPtr simulatedDay(const std::string& kind, std::uint64_t seed = 1);

/// Writes an archive of the first kinds of a small simulated source. Empty if that fails.
std::string writeArchive(const QTemporaryDir& folder, int instruments);

/// A time of day as milliseconds since midnight.
std::int64_t timeOfDay(int hour, int minute, int second = 0);

} // namespace window_tests
