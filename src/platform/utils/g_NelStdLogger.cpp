#include "platform/utils/g_NelStdLogger.h"

namespace utils {

log4cxx::LoggerPtr& stdLogger()
{
    static auto* const logger = new log4cxx::LoggerPtr(log4cxx::Logger::getLogger("NelStd"));
    return *logger;
}

} // namespace utils
