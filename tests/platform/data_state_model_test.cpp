// Random feeds against a plain model that looks at the whole story again for each answer.

#include "DataStateFeed.h"

#include <algorithm>
#include <random>

using namespace Kel;

namespace {

enum class What
{
    Call,
    Clock,
    Loaded,
};

struct Event
{
    What what = What::Call;
    EDataChannel channel = eDataOrders;
    int number = 0;
    int status = 0;
    std::int64_t time = 0; ///< of the record, or of the clock
    bool empty = false;
};

using Story = std::vector<Event>;

bool isCall(const Event& event, EDataChannel channel)
{
    return event.what == What::Call && event.channel == channel;
}

bool isHistory(const Event& event)
{
    return event.status == 0 || event.status == 3;
}

bool isSnapshot(const Event& event)
{
    return isCall(event, eDataQuotes) && event.status == -1 && !event.empty;
}

/// Whether the call at `place` has a number that is not due, by what came before it.
bool jumps(const Story& story, std::size_t place)
{
    const Event& call = story[place];
    if (call.status == 0)
        return false;
    for (std::size_t i = place; i-- > 0;) {
        const Event& before = story[i];
        if (isCall(before, call.channel))
            return call.number != before.number + 1;
        const bool ticksReloaded = before.what == What::Call && before.channel != eDataQuotes &&
                                   before.status == 0 && call.channel == eDataQuotes;
        if (ticksReloaded)
            return false;
    }
    return call.number != 0;
}

/// Time that a snapshot must have to make up for the jump at `place`.
std::int64_t healedFrom(const Story& story, std::size_t place, std::size_t end)
{
    std::int64_t time = story[place].time;
    if (story[place].empty) {
        time = 0;
        for (const EDataChannel channel : {eDataOrders, eDataDeals}) {
            for (std::size_t i = place; i-- > 0;) {
                if (isCall(story[i], channel) && !story[i].empty) {
                    time = std::max(time, story[i].time);
                    break;
                }
            }
        }
    }
    for (std::size_t i = place; i < end; ++i) {
        if (story[i].what == What::Clock)
            time = std::min(time, story[i].time);
    }
    return time;
}

/// 0 sound, 1 a gap, 2 rebuilt.
int damage(const Story& story, EDataChannel channel)
{
    std::size_t begin = 0;
    for (std::size_t i = 0; i < story.size(); ++i) {
        if (isCall(story[i], channel) && story[i].status == 0)
            begin = i;
    }
    int result = 0;
    std::size_t latest = 0;
    for (std::size_t i = begin; i < story.size(); ++i) {
        if (isCall(story[i], channel) && jumps(story, i)) {
            result = 1;
            latest = i;
        }
    }
    if (result == 0)
        return 0;
    for (std::size_t i = latest; i < story.size(); ++i) {
        if (isSnapshot(story[i]) && story[i].time >= healedFrom(story, latest, i))
            return channel == eDataQuotes ? 0 : 2;
    }
    return 1;
}

bool loads(const Story& story, EDataChannel channel)
{
    for (std::size_t i = story.size(); i-- > 0;) {
        const Event& event = story[i];
        if (event.what == What::Loaded)
            return false;
        if (isCall(event, channel))
            return isHistory(event);
        if (channel == eDataOrders && isCall(event, eDataDeals) && !isHistory(event))
            return false;
    }
    return false;
}

bool nothingLive(const Story& story)
{
    return std::none_of(story.begin(), story.end(), [](const Event& event) {
        return event.what == What::Loaded || (event.what == What::Call && !isHistory(event));
    });
}

/// A story whose clock only goes forward, within the morning.
bool stale(const Story& story)
{
    std::int64_t came = -1;
    std::int64_t clock = -1;
    bool fresh = true;
    for (const Event& event : story) {
        if (event.what == What::Clock) {
            if (fresh)
                came = event.time;
            clock = event.time;
            fresh = false;
        } else if (event.what == What::Loaded || !event.empty) {
            fresh = true;
        }
    }
    return clock >= 0 && !fresh && clock - came > CDataStateWatch::kStaleLimitMs;
}

EDataState expected(const Story& story)
{
    const int orders = damage(story, eDataOrders);
    const int deals = damage(story, eDataDeals);
    if (orders == 1 || deals == 1 || damage(story, eDataQuotes) == 1)
        return eDataGap;
    if (nothingLive(story) || loads(story, eDataOrders) || loads(story, eDataDeals))
        return eDataLoading;
    if (stale(story))
        return eDataStale;
    return orders == 2 || deals == 2 ? eDataRebuilt : eDataLive;
}

class DataStateModel : public DataStateFeed
{
protected:
    int roll(int sides) { return std::uniform_int_distribution<int>(0, sides - 1)(m_random); }

    Event nextEvent()
    {
        Event event;
        const int kind = roll(20);
        m_now += roll(3000);
        if (kind < 5) {
            event.what = What::Clock;
            m_now += roll(12) == 0 ? 120000 : 0;
            event.time = m_now;
            return event;
        }
        if (kind == 5 && roll(4) == 0) {
            event.what = What::Loaded;
            return event;
        }
        event.channel = static_cast<EDataChannel>(roll(3));
        const int live = event.channel == eDataQuotes ? -1 : 1;
        const int fate = roll(25);
        event.status = fate == 0 ? 0 : fate == 1 ? 3 : live;
        int& due = m_due[event.channel];
        due += roll(12) == 0 ? roll(4) - 1 : 0;
        event.number = due++;
        event.time = m_now - roll(4000);
        event.empty = roll(8) == 0;
        return event;
    }

    void send(const Event& event)
    {
        const std::size_t count = event.empty ? 0 : 1;
        if (event.what == What::Clock)
            m_watch.setClock(event.time);
        else if (event.what == What::Loaded)
            m_watch.loaded();
        else if (event.channel == eDataOrders)
            orders(event.number, event.status, event.time, count);
        else if (event.channel == eDataDeals)
            deals(event.number, event.status, event.time, count);
        else if (event.empty)
            m_watch.onQuoterCallback(m_key, event.number, event.status, {});
        else
            m_watch.onQuoterCallback(m_key, event.number, event.status,
                                     records<quoter::QuoterDepthData>(event.time));
    }

    std::mt19937 m_random{20230201};
    std::int64_t m_now = 0;
    int m_due[3] = {0, 0, 0};
};

} // namespace

TEST_F(DataStateModel, RandomFeedsAlwaysEndInTheStateOfAPlainModel)
{
    constexpr int kStories = 300;
    constexpr int kEvents = 120;
    int seen[6] = {};
    for (int run = 0; run < kStories; ++run) {
        m_watch.setStock(m_key);
        std::fill(std::begin(m_due), std::end(m_due), 0);
        m_now = at(9, 31);
        Story story;
        for (int i = 0; i < kEvents; ++i) {
            story.push_back(nextEvent());
            send(story.back());
            const EDataState told = state();
            ++seen[told];
            ASSERT_EQ(told, expected(story)) << "story " << run << ", event " << i;
        }
    }
    // The stories go through all states, or they prove little.
    for (const EDataState one : {eDataLoading, eDataLive, eDataGap, eDataStale, eDataRebuilt})
        EXPECT_GT(seen[one], kStories / 3) << one;
}
