#include "host/window/WindowFixture.h"

#include "feed/archive/DayArchiveWriter.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

namespace window_tests {

namespace {

constexpr int kPatienceMs = 30000;
constexpr int kLookMs = 5;
constexpr std::int64_t kOrders = 1500;

} // namespace

bool waitUntil(const std::function<bool()>& done)
{
    QElapsedTimer clock;
    clock.start();
    while (!done()) {
        if (clock.elapsed() > kPatienceMs)
            return false;
        letRun(kLookMs);
    }
    return true;
}

void letRun(int ms)
{
    QEventLoop loop;
    QTimer::singleShot(ms, &loop, &QEventLoop::quit);
    loop.exec();
}

host::DaySource smallSource(std::uint64_t seed)
{
    host::DaySource source;
    source.simulated = true;
    source.seed = seed;
    source.orders = kOrders;
    return source;
}

host::DayPtr simulatedDay(const std::string& kind, std::uint64_t seed)
{
    host::DaySource source = smallSource(seed);
    source.instrument = kind;
    host::DayStore store(source);
    std::string error;
    if (!store.open({}, error))
        return nullptr;
    return store.load(static_cast<std::size_t>(store.wanted(error)), {}, error);
}

std::string writeArchive(const QTemporaryDir& folder, int instruments)
{
    const std::string path = folder.path().toStdString() + "/archive";
    feed::DayArchiveWriter writer(path);
    for (int i = 0; i < instruments; ++i) {
        if (!writer.write(*simulatedDay(host::simulatedKinds()[static_cast<std::size_t>(i)])))
            return {};
    }
    return writer.finish() ? path : std::string();
}

std::int64_t timeOfDay(int hour, int minute, int second)
{
    return ((hour * 60 + minute) * 60 + second) * std::int64_t(1000);
}

} // namespace window_tests
