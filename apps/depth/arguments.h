#pragma once

#include <iosfwd>

/// Reads the arguments of the program and runs what they ask for. Answers with the exit code; wrong arguments
/// and an output that cannot be written give one line on `err` and 2.
int runDepth(int argc, char** argv, std::ostream& out, std::ostream& err);
