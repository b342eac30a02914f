#include "feed/csv/Error.h"

namespace feed {

std::string Error::text() const
{
    if (reason.empty())
        return {};
    std::string result = file;
    if (line > 0)
        result += (result.empty() ? "line " : ":") + std::to_string(line);
    return result.empty() ? reason : result + ": " + reason;
}

} // namespace feed
