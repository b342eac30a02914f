#include "host/commands/commands.h"

#include "feed/replay/ReplayClock.h"
#include "host/DayPlayer.h"
#include "platform/utils/exchange_time.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <ostream>
#include <thread>
#include <unistd.h>

namespace host {
namespace {

constexpr std::int64_t kRepaintMs = 100;     // of real time, on a terminal
constexpr std::int64_t kPageMs = 2000;       // of real time between two pages elsewhere
constexpr std::int64_t kSmallestGap = 60000; // of feed time in which nothing happens that is jumped over

const char* const kHome = "\x1b[H";
const char* const kClearScreen = "\x1b[2J";
const char* const kClearLine = "\x1b[K";
const char* const kClearBelow = "\x1b[J";
const char* const kHideCursor = "\x1b[?25l";
const char* const kShowCursor = "\x1b[?25h";

volatile std::sig_atomic_t interrupted = 0;

void onInterrupt(int /*signal*/)
{
    interrupted = 1;
}

/// Hides the cursor while the terminal is repainted and takes the interrupt key, both until its end.
class Screen
{
public:
    Screen(std::ostream& out, bool terminal) : m_out(out), m_terminal(terminal)
    {
        interrupted = 0;
        m_previous = std::signal(SIGINT, onInterrupt);
        if (m_terminal)
            m_out << kHideCursor << kHome << kClearScreen;
    }
    ~Screen()
    {
        if (m_terminal)
            m_out << kShowCursor << std::flush;
        std::signal(SIGINT, m_previous);
    }
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    void show(const QStringList& lines)
    {
        if (m_terminal)
            m_out << kHome;
        else if (m_pages++ > 0)
            m_out << '\n';
        for (const QString& line : lines)
            m_out << line.toStdString() << (m_terminal ? kClearLine : "") << '\n';
        if (m_terminal)
            m_out << kClearBelow;
        m_out << std::flush;
    }

private:
    std::ostream& m_out;
    const bool m_terminal;
    int m_pages = 0;
    void (*m_previous)(int) = SIG_DFL;
};

/// Stretches of the day in which nothing trades: the lunch break, and what a thin instrument leaves out. The
/// snapshots that repeat themselves outside continuous trading do not count.
std::vector<feed::ReplayClock::Break> quietStretches(const DayTimeline& timeline)
{
    std::vector<feed::ReplayClock::Break> breaks;
    std::int64_t before = 0;
    for (const DayTimeline::Entry& entry : timeline.entries()) {
        if (entry.kind == DayTimeline::Kind::Snapshot && !isContinuous(timeline.day().snapshots[entry.index]))
            continue;
        if (before != 0 && entry.time - before > kSmallestGap)
            breaks.push_back({before + 1, entry.time});
        before = entry.time;
    }
    return breaks;
}

} // namespace

int showRunning(const ShowOptions& options, const feed::InstrumentDay& day, std::ostream& out,
                std::ostream& err)
{
    const std::optional<std::int64_t> first = momentOf(day, options.from);
    const std::optional<std::int64_t> last = momentOf(day, options.to);
    if (!first || !last)
        return failWithoutMoment(err, first ? options.to : options.from);
    const std::int64_t from = *first;
    const std::int64_t to = *last;

    SteppedEngine engine;
    if (!engine.open(day.detail))
        return failWithoutQueue(err, day);
    const DayTimeline timeline(day);
    DayPlayer::Options playing;
    playing.tickBeforeCancel = options.refreshMs == 0;
    playing.refreshMs = options.refreshMs > 0 ? options.refreshMs : playing.refreshMs;
    DayPlayer player(timeline, engine, playing);

    const bool terminal = isTerminal(STDOUT_FILENO);
    PageStyle style = options.page;
    style.color = useColor(options.color, STDOUT_FILENO);
    Screen screen(out, terminal);

    // The clock itself knows no factor above its greatest; beyond that its real time runs faster.
    const double factor = std::clamp(options.speed, feed::ReplayClock::kSlowest, 1e6);
    const double stretch = std::max(1.0, factor / feed::ReplayClock::kFastest);
    const std::int64_t start = utils::clockMSec();
    const auto realMs = [&] { return static_cast<std::int64_t>((utils::clockMSec() - start) * stretch); };
    feed::ReplayClock clock(from);
    clock.setBreaks(quietStretches(timeline));
    clock.setFactor(factor / stretch, 0);
    clock.resume(0);

    const std::int64_t end = timeline.entries().empty() ? from : std::min(to, timeline.entries().back().time);
    const std::int64_t every = terminal ? kRepaintMs : kPageMs;
    for (std::int64_t next = start;; next += every) {
        const std::int64_t now = std::min(clock.feedTime(realMs()), std::max(end, from));
        player.playUntil(now);
        engine.calculate();
        screen.show(pageLines(engine, now, style));
        if (now >= end || interrupted)
            return kExitDone;
        while (utils::clockMSec() < next + every && !interrupted) {
            if (clock.feedTime(realMs()) >= end)
                break;
            std::this_thread::sleep_for(std::chrono::milliseconds(std::min<std::int64_t>(every, 20)));
        }
    }
}

} // namespace host
