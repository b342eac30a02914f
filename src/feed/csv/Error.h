#pragma once

#include <cstdint>
#include <string>

namespace feed {

/// What went wrong with a file. Errors of files are values: nothing is thrown out of the reading and writing
/// functions.
struct Error
{
    std::string file;      ///< path as it was given; empty if no file is to blame
    std::int64_t line = 0; ///< 1 for the header; 0 if no line is to blame
    std::string reason;    ///< empty for "no error"

    explicit operator bool() const { return !reason.empty(); }

    /// "file:line: reason", without the parts that are not known; empty for no error.
    std::string text() const;
};

} // namespace feed
