#pragma once

#include <string>

namespace utils {

/// Names the calling thread, in log lines and (its first 15 bytes) for debuggers and process viewers. Any
/// thread.
void setThreadName(const std::string& name);

/// Name of the calling thread: as given by `setThreadName`, else "thread-" and a number that no other thread
/// of this process has. Any thread.
std::string threadName();

} // namespace utils
