#pragma once

#include "host/window/TerminalOptions.h"

#include <iosfwd>

/// Reads the arguments of the program. True: run with `options`. False: the program ends with `exitCode`,
/// after a help text on `out`, or one line on `err` for wrong arguments.
bool readArguments(int argc, char** argv, host::TerminalOptions& options, int& exitCode, std::ostream& out,
                   std::ostream& err);
