#include "feed/replay/ReplayQuoteProvider.h"

#include "feed/record_making.h"
#include "platform/utils/volume_unit.h"

#include <algorithm>

namespace feed {

void ReplayQuoteProvider::addDay(const InstrumentDay& day)
{
    Queues queues;
    queues.rows = day.queues;
    queues.volumeUnit = utils::getVolumeUnit(day.detail.market, day.detail.code);
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_days[{day.detail.market, day.detail.code}] = std::move(queues);
}

void ReplayQuoteProvider::clear()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_days.clear();
}

bool ReplayQuoteProvider::serve(const quoter::TSMetaInfo& meta, const quoter::TRegionInfo& region,
                                Kel::QuoteCallback callback)
{
    if (meta.metaId != quoter::eMetaLevel2Queue || !callback)
        return false;
    quoter::QuoterBatch records;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        const auto found = m_days.find({meta.market, meta.instrument});
        if (found == m_days.end())
            return false;
        const std::vector<QueueRow>& rows = found->second.rows;
        auto first = std::lower_bound(rows.begin(), rows.end(), region.start.milliseconds,
                                      [](const QueueRow& row, std::int64_t time) { return row.time < time; });
        const auto last =
            std::upper_bound(rows.begin(), rows.end(), region.end.milliseconds,
                             [](std::int64_t time, const QueueRow& row) { return time < row.time; });
        if (region.limit > 0 && first < last && last - first > region.limit)
            first = last - region.limit;
        for (; first < last; ++first)
            records.push_back(makeRecord(*first, found->second.volumeUnit));
    }
    callback(0, 0, records);
    return true;
}

} // namespace feed
