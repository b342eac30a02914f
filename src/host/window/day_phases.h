#pragma once

#include "feed/DayRows.h"
#include "host/window/day_moments.h"

#include <QString>

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace host {

/// What begins at a mark of the day.
enum class EDayPhase
{
    eOpeningAuction,
    eOpeningMatch, ///< the opening auction is over
    eOpen,
    eBreak,  ///< lunch, or a shorter pause
    eResume, ///< trading after a break
    eClosingAuction,
    eClose,
};

/// Where a phase of the day begins.
struct PhaseMark
{
    EDayPhase phase = EDayPhase::eOpen;
    std::int64_t moment = 0; ///< ms since 1970-01-01 UTC
    QString name;            ///< "午间休市", for `uiText`
    QString label;           ///< the same in two letters, for `uiText`
};

/// Open and close of the sessions, ms since 1970-01-01 UTC, in order.
using Sessions = std::vector<std::pair<std::int64_t, std::int64_t>>;

/// The marks of a day in order, those of them that lie within the range. Breaks are those between the
/// sessions. The markets of Shanghai and Shenzhen open with an auction, 15 to 5 minutes before the first
/// session; one of three minutes ends a last session that closes at 15:00. Empty without sessions.
std::vector<PhaseMark> phasesOf(const DayRange& range, const Sessions& sessions, const std::string& market);

/// The same with the range and the sessions of the day's instrument.
std::vector<PhaseMark> phasesOf(const feed::InstrumentDay& day);

/// The first mark after a moment; nothing after the last one.
std::optional<PhaseMark> nextPhase(const std::vector<PhaseMark>& marks, std::int64_t moment);

/// The last mark before a moment; nothing before the first one. One that was passed within the last two
/// seconds is left out, so that a replay that plays on can go back from mark to mark.
std::optional<PhaseMark> previousPhase(const std::vector<PhaseMark>& marks, std::int64_t moment);

/// From a mark to the next in which there is an auction, or a break.
struct PhaseBand
{
    DayStretch stretch;
    bool auction = false; ///< else a break
};

std::vector<PhaseBand> bandsOf(const std::vector<PhaseMark>& marks);

} // namespace host
