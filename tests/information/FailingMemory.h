#pragma once

#include <cstddef>

namespace test {

/// While it lives, `operator new` of this thread throws: for every request, or for those of one size only.
/// What Qt's containers ask for is not met by it.
class FailingMemory
{
public:
    static constexpr std::size_t kEverySize = static_cast<std::size_t>(-1);

    explicit FailingMemory(std::size_t size = kEverySize);
    ~FailingMemory();
    FailingMemory(const FailingMemory&) = delete;
    FailingMemory& operator=(const FailingMemory&) = delete;
};

} // namespace test
