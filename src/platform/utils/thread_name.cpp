#include "platform/utils/thread_name.h"

#include <atomic>

#ifdef __linux__
#include <pthread.h>
#endif

namespace utils {

namespace {

thread_local std::string t_name;
std::atomic<unsigned> g_unnamedThreads{0};

} // namespace

void setThreadName(const std::string& name)
{
    t_name = name;
#ifdef __linux__
    constexpr std::size_t kLongestKernelName = 15;
    pthread_setname_np(pthread_self(), name.substr(0, kLongestKernelName).c_str());
#endif
}

std::string threadName()
{
    if (t_name.empty())
        t_name = "thread-" + std::to_string(++g_unnamedThreads);
    return t_name;
}

} // namespace utils
