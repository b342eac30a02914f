// A day without orders: the rows against the snapshots, and the lists at the best prices against the
// published queues.

#include "host/LevelVerifier.h"

#include "feed/record_making.h"
#include "host/DayPlayer.h"
#include "host/SteppedEngine.h"
#include "records/PriceKey.h"
#include "records/Tolerance.h"

#include <cstddef>

namespace host {
namespace {

constexpr std::int64_t kProgressRows = 5000;
constexpr std::size_t kMostVolumesNamed = 12;
const char* const kOtherRow = "the row differs from the snapshot";
const char* const kHeadNotFound =
    "the queue's beginning was not found in the list: the last order listed stands for its head";
const char* const kOtherQueue = "the list does not begin with the published queue";

class LevelVerifier
{
public:
    LevelVerifier(const feed::InstrumentDay& day, const VerifyOptions& options)
        : m_day(day), m_options(options)
    {
        m_engine.open(day.detail);
    }

    Verification run()
    {
        m_result.levelStyle = true;
        const DayTimeline timeline(m_day);
        DayPlayer::Options playing;
        if (m_options.refreshMs > 0)
            playing.refreshMs = m_options.refreshMs;
        DayPlayer player(timeline, m_engine, playing);
        std::int64_t done = 0;
        while (!player.atEnd()) {
            const DayTimeline::Entry entry = timeline.entries()[player.played()];
            player.step();
            if (entry.kind == DayTimeline::Kind::Snapshot && isContinuous(m_day.snapshots[entry.index]))
                compareRows(m_day.snapshots[entry.index]);
            else if (entry.kind == DayTimeline::Kind::Queue)
                compareQueue(m_day.queues[entry.index]);
            if (m_options.progress && ++done % kProgressRows == 0 &&
                !m_options.progress(done, static_cast<std::int64_t>(timeline.entries().size()))) {
                m_result.cancelled = true;
                break;
            }
        }
        return m_result;
    }

private:
    void compareRows(const feed::SnapshotRow& row)
    {
        m_engine.calculate();
        ++m_result.snapshots;
        m_result.bySequence += row.seq != 0 ? 1 : 0;
        const std::int64_t before = m_result.mismatches;
        const auto record = feed::makeRecord(row, m_engine.volumeUnit());
        for (std::size_t i = 0; i < m_result.buy.size(); ++i) {
            compareRow(row.time, Kel::OQT_BUY, i, record->bidPrice[i], record->bidVolume[i]);
            compareRow(row.time, Kel::OQT_SELL, i, record->askPrice[i], record->askVolume[i]);
        }
        m_result.snapshotsMatched += m_result.mismatches == before ? 1 : 0;
    }

    void compareRow(std::int64_t time, Kel::EOrderQueueType side, std::size_t i, double price,
                    std::int64_t lots)
    {
        LevelTally& tally = (side == Kel::OQT_BUY ? m_result.buy : m_result.sell)[i];
        ++tally.compared;
        const Kel::OrderQueueDataPtr shown = m_engine.at(static_cast<unsigned>(i), side);
        // A row without a price is one that the snapshot does not have.
        const bool priceRight = shown && Kel::priceKey(shown->m_price, m_engine.priceTick()) ==
                                             Kel::priceKey(price, m_engine.priceTick());
        const bool volumeRight = priceRight && Kel::isEqual(shown->m_levelVol, static_cast<double>(lots));
        tally.prices += priceRight ? 1 : 0;
        tally.volumes += volumeRight ? 1 : 0;
        tally.matched += volumeRight ? 1 : 0;
        if (volumeRight)
            return;
        Mismatch mismatch;
        mismatch.time = time;
        mismatch.side = side;
        mismatch.level = static_cast<int>(i) + 1;
        mismatch.published = {price, shares(static_cast<double>(lots)), 0};
        if (shown)
            mismatch.rebuilt = {shown->m_price, shares(shown->m_levelVol), 0};
        mismatch.cause = kOtherRow;
        note(std::move(mismatch));
    }

    void compareQueue(const feed::QueueRow& row)
    {
        const auto record = feed::makeRecord(row, m_engine.volumeUnit());
        compareList(row.time, Kel::OQT_BUY, record->bidPrice, record->bidVolumes, record->bidCount);
        compareList(row.time, Kel::OQT_SELL, record->askPrice, record->askVolumes, record->askCount);
    }

    void compareList(std::int64_t time, Kel::EOrderQueueType side, double price,
                     const std::vector<int>& published, int count)
    {
        const int key = Kel::priceKey(price, m_engine.priceTick());
        if (key == 0 || published.empty())
            return;
        ++m_result.queues;
        const Kel::OrderQueueDataPtr level = m_engine.level(side, key);
        std::size_t next = 0;
        double sum = 0;
        bool inTurn = true;
        bool headDiffers = false;
        if (level) {
            for (const Kel::COrderVol& order : level->m_orders) {
                if (order.m_type == Kel::OQT_CANCELED || order.m_type == Kel::OQT_DEALT)
                    continue;
                if (next < published.size()) {
                    const bool same = Kel::truncateToInt(order.m_vol + 0.5) == published[next];
                    headDiffers = headDiffers || (next == 0 && !same);
                    inTurn = inTurn && (same || next == 0);
                    sum += order.m_vol;
                    ++next;
                }
            }
        }
        inTurn = inTurn && level && next == published.size() && level->m_count == count;
        if (inTurn && !headDiffers) {
            ++m_result.queuesMatched;
            return;
        }
        double lots = 0;
        for (const int volume : published)
            lots += volume;
        Mismatch mismatch;
        mismatch.time = time;
        mismatch.side = side;
        mismatch.published = {price, shares(lots), count};
        if (level)
            mismatch.rebuilt = {level->m_price, shares(sum), level->m_count};
        mismatch.cause = inTurn ? kHeadNotFound : kOtherQueue;
        mismatch.detail = "published";
        for (std::size_t i = 0; i < published.size() && i < kMostVolumesNamed; ++i)
            mismatch.detail += ' ' + std::to_string(published[i]);
        mismatch.detail += published.size() > kMostVolumesNamed ? " ...; listed" : "; listed";
        const int listed = level ? level->m_orders.size() : 0;
        for (int i = 0; i < listed && i < static_cast<int>(kMostVolumesNamed); ++i) {
            const Kel::COrderVol& order = level->m_orders.at(i);
            mismatch.detail += ' ' + std::to_string(Kel::truncateToInt(order.m_vol + 0.5));
            if (order.m_type == Kel::OQT_CANCELED || order.m_type == Kel::OQT_DEALT)
                mismatch.detail += order.m_type == Kel::OQT_DEALT ? " (dealt)" : " (cancelled)";
        }
        mismatch.detail += listed > static_cast<int>(kMostVolumesNamed) ? " ..." : "";
        note(std::move(mismatch));
    }

    std::int64_t shares(double lots) const
    {
        return static_cast<std::int64_t>(Kel::truncateToInt(lots)) *
               Kel::truncateToInt(m_engine.volumeUnit());
    }

    void note(Mismatch&& mismatch)
    {
        ++m_result.mismatches;
        ++m_result.causes[mismatch.cause];
        if (m_result.listed.size() < m_options.mostListed)
            m_result.listed.push_back(std::move(mismatch));
    }

    const feed::InstrumentDay& m_day;
    const VerifyOptions& m_options;
    SteppedEngine m_engine;
    Verification m_result;
};

} // namespace

Verification verifyLevelDay(const feed::InstrumentDay& day, const VerifyOptions& options)
{
    return LevelVerifier(day, options).run();
}

} // namespace host
