#pragma once

#include "records/DepthExport.h"

namespace utils {

/// The one object of `T`, made on first use and destroyed at the end of the process, in reverse order of
/// making. Any thread may call `instance`; what the object itself allows is its class's contract.
template <class T>
class DEPTH_EXPORT CSingletonT
{
public:
    CSingletonT() = delete;

    static T& instance()
    {
        static T object;
        return object;
    }
};

} // namespace utils
