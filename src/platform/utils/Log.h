#pragma once

#include "platform/utils/CLogCenter.h"

#include <boost/current_function.hpp>
#include <boost/format.hpp>

/// Writes a line of `level` (`utils::kLogInfo`, `utils::kLogError`) through the log centre.
/// `formatExpression` is a `boost::format` with its arguments, as in
///     DEPTH_LOG(utils::kLogInfo, "CDepthModelOrderQueue", boost::format("orders %1%") % count);
/// and is evaluated only if the line is written. `sourceFile` is a string literal that names the source in
/// the line's location; it is not used in asynchronous mode, where the thread and the time stand before the
/// text.
#define DEPTH_LOG(level, sourceFile, formatExpression)                                                       \
    do {                                                                                                     \
        if (::utils::CLogCenter::isLogged(level))                                                            \
            ::utils::CLogCenter::instance().write(level, ::boost::str(formatExpression), sourceFile,         \
                                                  BOOST_CURRENT_FUNCTION, __LINE__);                         \
    } while (false)
