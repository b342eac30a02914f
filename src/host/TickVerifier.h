#pragma once

#include "host/DayPlayer.h"
#include "host/ReferenceBook.h"
#include "host/SteppedEngine.h"
#include "host/Verification.h"

#include <cstddef>
#include <vector>

namespace host {

/// Verifies a day with orders: see `verifyDay`. For one run.
class TickVerifier
{
public:
    /// The day must outlive the verifier.
    TickVerifier(const feed::InstrumentDay& day, const VerifyOptions& options);

    Verification run();

private:
    static ShownLevel publishedLevel(const feed::SnapshotRow& row, Kel::EOrderQueueType side, std::size_t i);
    static bool isBetter(Kel::EOrderQueueType side, int key, int than);
    void compare(std::size_t index);
    void compareSide(const feed::SnapshotRow& row, Kel::EOrderQueueType side);
    void note(const feed::SnapshotRow& row, Kel::EOrderQueueType side, int level, const ShownLevel& published,
              const ShownLevel& rebuilt);
    void explain(Kel::EOrderQueueType side, int key, Mismatch& mismatch) const;
    void noteUnplaced(const feed::SnapshotRow& row);

    const feed::InstrumentDay& m_day;
    const VerifyOptions& m_options;
    SteppedEngine m_engine;
    double m_tick = 0.01; ///< yuan
    ReferenceBook m_book{0.01};
    std::vector<SnapshotPlace> m_places;
    DayPlayer* m_player = nullptr; ///< of the run in hand
    bool m_unplaced = false;       ///< the snapshot in hand shows no moment of the feed
    Verification m_result;
};

} // namespace host
