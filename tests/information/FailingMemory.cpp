#include "FailingMemory.h"

#include <cstdlib>
#include <new>

namespace {

thread_local std::size_t t_failing = 0; // bytes, 0 for none

} // namespace

void* operator new(std::size_t size)
{
    if (t_failing != 0 && (t_failing == test::FailingMemory::kEverySize || t_failing == size))
        throw std::bad_alloc();
    if (void* const memory = std::malloc(size > 0 ? size : 1))
        return memory;
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

namespace test {

FailingMemory::FailingMemory(std::size_t size)
{
    t_failing = size;
}

FailingMemory::~FailingMemory()
{
    t_failing = 0;
}

} // namespace test
