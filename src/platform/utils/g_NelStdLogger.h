#pragma once

#include "records/DepthExport.h"

#include <log4cxx/logger.h>

namespace utils {

/// The logger behind `g_NelStdLogger`, named "NelStd". Made on first use, never destroyed, so that it can be
/// used by initialisers and destructors of static objects. Appenders and levels are the host's to configure.
/// Any thread.
DEPTH_EXPORT log4cxx::LoggerPtr& stdLogger();

} // namespace utils

/// The logger that all lines of this library go through. Bound before the first use in every file that
/// includes this.
inline log4cxx::LoggerPtr& g_NelStdLogger = utils::stdLogger();
