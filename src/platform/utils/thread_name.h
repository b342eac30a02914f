#pragma once

#include "records/DepthExport.h"

#include <string>

namespace utils {

/// Names the calling thread, in log lines and (its first 15 bytes) for debuggers and process viewers. Any
/// thread.
DEPTH_EXPORT void setThreadName(const std::string& name);

/// Name of the calling thread: as given by `setThreadName`, else "thread-" and a number that no other thread
/// of this process has. Any thread.
DEPTH_EXPORT std::string threadName();

} // namespace utils
