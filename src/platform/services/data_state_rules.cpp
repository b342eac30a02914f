#include "platform/services/data_state_rules.h"

#include <algorithm>

namespace Kel {

namespace {

constexpr int kStatusFirst = 0;
constexpr int kStatusHistory = 3;

bool isHistory(int status)
{
    return status == kStatusFirst || status == kStatusHistory;
}

} // namespace

DataStateRules::DataStateRules()
{
    // A feed's thread never waits for memory here.
    m_gaps.reserve(CDataStateWatch::kMostGaps);
}

void DataStateRules::start(bool hasInstrument)
{
    m_hasInstrument = hasInstrument;
    m_waiting = hasInstrument;
    m_arrived = false;
    m_clock.reset();
    m_lastArrival = 0;
    m_channels = {};
    m_gaps.clear();
    ++m_gapChanges;
}

void DataStateRules::loaded()
{
    m_waiting = false;
    m_arrived = true;
    for (Channel& channel : m_channels)
        channel.loading = false;
}

void DataStateRules::setClock(std::int64_t nowMs)
{
    if (m_arrived || !m_clock)
        m_lastArrival = nowMs;
    // A clock that went back, to before what came.
    m_lastArrival = std::min(m_lastArrival, nowMs);
    m_arrived = false;
    m_clock = nowMs;
    // A record's time may be wrong; a gap must not wait for a moment that never comes.
    for (Channel& channel : m_channels)
        channel.gapTo = std::min(channel.gapTo, nowMs);
}

void DataStateRules::take(const SDataCall& call)
{
    if (!m_hasInstrument)
        return;
    countCall(call);
    noteLoading(call);
    if (call.records > 0)
        m_arrived = true;
    if (call.lastTime != 0)
        at(call.channel).lastTime = call.lastTime;
    if (call.snapshot)
        heal(call.lastTime);
}

void DataStateRules::countCall(const SDataCall& call)
{
    Channel& channel = at(call.channel);
    if (call.status == kStatusFirst)
        reload(call.channel);
    else if (channel.due && call.number != *channel.due)
        openGap(call, std::max<std::int64_t>(call.number - *channel.due, 0));
    channel.due = call.number + 1;
}

void DataStateRules::reload(EDataChannel channel)
{
    closeGaps(channel, true);
    at(channel).damage = Damage::None;
    // A feed that begins anew counts its quotes anew, which need not begin with a batch of status 0.
    if (channel != eDataQuotes)
        at(eDataQuotes).due.reset();
}

void DataStateRules::openGap(const SDataCall& call, std::int64_t missing)
{
    Channel& channel = at(call.channel);
    if (channel.damage != Damage::Gap)
        channel.gapFrom = channel.lastTime;
    channel.damage = Damage::Gap;
    // An empty call tells no time: what has come by now is the best that is known.
    channel.gapTo =
        call.firstTime != 0 ? call.firstTime : std::max(at(eDataOrders).lastTime, at(eDataDeals).lastTime);
    SDataGap gap;
    gap.channel = call.channel;
    gap.from = channel.lastTime;
    gap.to = channel.gapTo;
    gap.missing = missing;
    if (m_gaps.size() == CDataStateWatch::kMostGaps)
        m_gaps.erase(m_gaps.begin());
    m_gaps.push_back(gap);
    ++m_gapChanges;
}

void DataStateRules::heal(std::int64_t snapshotTime)
{
    for (const EDataChannel channel : {eDataOrders, eDataDeals, eDataQuotes}) {
        Channel& one = at(channel);
        if (one.damage != Damage::Gap || (snapshotTime != 0 && snapshotTime < one.gapTo))
            continue;
        one.damage = channel == eDataQuotes ? Damage::None : Damage::Rebuilt;
        closeGaps(channel, false);
    }
}

void DataStateRules::closeGaps(EDataChannel channel, bool reloaded)
{
    for (SDataGap& gap : m_gaps) {
        if (gap.channel != channel || (gap.healed && (gap.reloaded || !reloaded)))
            continue;
        gap.healed = true;
        gap.reloaded = reloaded;
        ++m_gapChanges;
    }
}

void DataStateRules::noteLoading(const SDataCall& call)
{
    if (call.channel == eDataQuotes) {
        if (!isHistory(call.status))
            m_waiting = false;
        return;
    }
    if (isHistory(call.status)) {
        at(call.channel).loading = true;
        return;
    }
    m_waiting = false;
    at(call.channel).loading = false;
    if (call.channel == eDataDeals)
        at(eDataOrders).loading = false;
}

bool DataStateRules::anyChannel(Damage damage) const
{
    return std::any_of(m_channels.begin(), m_channels.end(),
                       [damage](const Channel& channel) { return channel.damage == damage; });
}

bool DataStateRules::stale(const Sessions& sessions) const
{
    if (!m_clock || m_arrived)
        return false;
    return std::any_of(sessions.begin(), sessions.end(), [this](const auto& session) {
        return *m_clock >= session.first &&
               *m_clock<session.second&& * m_clock - std::max(m_lastArrival, session.first)> m_staleLimit;
    });
}

EDataState DataStateRules::state(const Sessions& sessions) const
{
    if (!m_hasInstrument)
        return eDataEmpty;
    if (anyChannel(Damage::Gap))
        return eDataGap;
    if (m_waiting || at(eDataOrders).loading || at(eDataDeals).loading)
        return eDataLoading;
    if (stale(sessions))
        return eDataStale;
    return anyChannel(Damage::Rebuilt) ? eDataRebuilt : eDataLive;
}

std::int64_t DataStateRules::since(EDataState state) const
{
    if (state == eDataGap)
        return gapSince();
    return state == eDataStale ? m_lastArrival : m_clock.value_or(0);
}

std::int64_t DataStateRules::gapSince() const
{
    std::int64_t since = 0;
    for (const Channel& channel : m_channels) {
        if (channel.damage == Damage::Gap && channel.gapFrom != 0 && (since == 0 || channel.gapFrom < since))
            since = channel.gapFrom;
    }
    return since;
}

} // namespace Kel
