#pragma once

#include "host/window/TerminalOptions.h"

#include <iosfwd>

/// The ways in which the program runs its window. The application must be there; each answers with the exit
/// code: 0, or 2 with one line on `err`.
namespace host {

/// Opens the window and stays until it is closed.
int runWindow(const TerminalOptions& options, std::ostream& err);

/// Plays for `options.measureStalls` seconds and prints how long the event loop stood still.
int runStallMeasurement(const TerminalOptions& options, std::ostream& out, std::ostream& err);

/// Goes through the window's commands as a person would, by its shortcuts, checks what each of them did, and
/// closes the window. A step that fails is the line on `err`.
int runTour(const TerminalOptions& options, std::ostream& out, std::ostream& err);

} // namespace host
