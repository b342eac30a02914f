#pragma once

#include <cstddef>

/// Bytes that the program holds on the heap now, the allocator's rounding included.
std::size_t heapInUse();
