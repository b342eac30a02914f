#pragma once

#include "feed/DayRows.h"
#include "platform/services/CFormulaManager.h"

#include <map>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

namespace feed {

/// Answers the formula service's subscriptions of the level-2 queue series (1804) from recorded days: the
/// published queues in a region of time. Any thread may call anything.
class ReplayQuoteProvider : public Kel::IQuoteProvider
{
public:
    /// Takes the published queues of a day; a later day of the same instrument replaces it.
    void addDay(const InstrumentDay& day);

    void clear();

    /// Answers with one call, status 0: the LevelOrderData records with start <= time <= end, oldest first,
    /// at most `limit` of them (the latest ones; 0 for all). False for another series and for an instrument
    /// without a day.
    bool serve(const quoter::TSMetaInfo& meta, const quoter::TRegionInfo& region,
               Kel::QuoteCallback callback) override;

private:
    struct Queues
    {
        std::vector<QueueRow> rows; ///< by time
        double volumeUnit = 0;
    };

    std::mutex m_mutex; ///< guards `m_days`
    std::map<std::pair<std::string, std::string>, Queues> m_days;
};

} // namespace feed
