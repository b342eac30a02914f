#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>

namespace testing_support {

/// Folder of a real day, which tests read where it is: below the environment variable DEPTH_SHARED_DATA, by
/// default beside the source tree. Empty if it is not there.
inline std::string sharedDay(const std::string& name)
{
    const char* const fromEnvironment = std::getenv("DEPTH_SHARED_DATA");
    const std::string folder =
        std::string(fromEnvironment != nullptr ? fromEnvironment : DEPTH_SHARED_DATA_DEFAULT) + "/" + name;
    std::error_code code;
    return std::filesystem::is_directory(folder, code) ? folder : std::string();
}

} // namespace testing_support

/// Ends the test as skipped if the real day is not there.
#define REQUIRE_SHARED_DAY(variable, name)                                                                   \
    const std::string variable = testing_support::sharedDay(name);                                           \
    if (variable.empty())                                                                                    \
    GTEST_SKIP() << "the real day " << (name) << " is not there; DEPTH_SHARED_DATA may name its folder"
