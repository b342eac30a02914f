#pragma once

#include "platform/services/CDataStateWatch.h"

#include <array>
#include <optional>
#include <string>
#include <utility>

namespace Kel {

/// What a call of the feed says to the rules below.
struct SDataCall
{
    EDataChannel channel = eDataOrders;
    std::int64_t number = 0;
    int status = 0;
    std::size_t records = 0;
    std::int64_t firstTime = 0; ///< of the first record, 0 if unknown
    std::int64_t lastTime = 0;
    bool snapshot = false; ///< holds a depth snapshot that is no history
};

/// The rules of CDataStateWatch, without threads and signals.
class DataStateRules
{
public:
    using Sessions = std::vector<std::pair<std::int64_t, std::int64_t>>;

    DataStateRules();

    void start(bool hasInstrument);
    void setStaleLimit(std::int64_t ms) { m_staleLimit = ms; }
    void loaded();
    void setClock(std::int64_t nowMs);
    void take(const SDataCall& call);

    /// The state in these sessions.
    EDataState state(const Sessions& sessions) const;

    /// Feed time at which the state began if it begins now, 0 if unknown: of a gap and of silence that of the
    /// last record before it, else the clock.
    std::int64_t since(EDataState state) const;

    const std::vector<SDataGap>& gaps() const { return m_gaps; }
    std::uint64_t gapChanges() const { return m_gapChanges; }

private:
    enum class Damage
    {
        None,
        Gap,
        Rebuilt,
    };

    struct Channel
    {
        std::optional<std::int64_t> due = 0; ///< number of the next call; none if it may have any
        bool loading = false;
        Damage damage = Damage::None;
        std::int64_t gapFrom = 0;
        std::int64_t gapTo = 0;
        std::int64_t lastTime = 0;
    };

    void countCall(const SDataCall& call);
    void openGap(const SDataCall& call, std::int64_t missing);
    void reload(EDataChannel channel);
    void heal(std::int64_t snapshotTime);
    void closeGaps(EDataChannel channel, bool reloaded);
    void noteLoading(const SDataCall& call);
    bool anyChannel(Damage damage) const;
    std::int64_t gapSince() const;
    bool stale(const Sessions& sessions) const;

    Channel& at(EDataChannel channel) { return m_channels[channel]; }
    const Channel& at(EDataChannel channel) const { return m_channels[channel]; }

    bool m_hasInstrument = false;
    bool m_waiting = false; ///< nothing live has come
    bool m_arrived = false; ///< something has come since the clock was set
    std::int64_t m_staleLimit = CDataStateWatch::kStaleLimitMs;
    std::optional<std::int64_t> m_clock;
    std::int64_t m_lastArrival = 0; ///< by the clock
    std::array<Channel, 3> m_channels;
    std::vector<SDataGap> m_gaps;
    std::uint64_t m_gapChanges = 0;
};

} // namespace Kel
