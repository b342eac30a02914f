#pragma once

#include "platform/services/CDataStateWatch.h"

#include <QString>

#include <cstdint>

namespace host {

/// What the terminal shows of the state of a feed.
struct DataStateView
{
    Kel::EDataState state = Kel::eDataEmpty;
    std::int64_t since = 0;   ///< ms since 1970-01-01 UTC; 0 if unknown
    std::int64_t missing = 0; ///< calls that were lost and have not come again

    bool operator==(const DataStateView& other) const
    {
        return state == other.state && since == other.since && missing == other.missing;
    }
    bool operator!=(const DataStateView& other) const { return !(*this == other); }
};

/// As of the watch's last check.
DataStateView viewOf(const Kel::CDataStateWatch& watch);

/// The state in one word, "实时"; empty without an instrument.
QString stateWord(Kel::EDataState state);

/// Since when and why, for a tool tip.
QString stateReason(const DataStateView& view);

/// One line over prices that are not current; empty if they are.
QString stateNotice(const DataStateView& view);

/// The theme's colour of a state.
QString stateColorKey(Kel::EDataState state);

} // namespace host
