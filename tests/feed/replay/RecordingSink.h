#pragma once

#include "feed/FeedSink.h"
#include "records/LevelOrderData.h"
#include "records/OrderData.h"
#include "records/QuoterDepthData.h"
#include "records/ThousandData.h"
#include "records/TransactionData.h"

#include <algorithm>
#include <string>
#include <vector>

namespace testing_support {

/// Writes down what a feed delivers, a line for each call: channel, sequence number, status, and the records
/// as time:number. "orders 0 s0 100:1 200:2", "snapshot 1 s-1 300:10.5", "queue 2 s1 300:10.5",
/// "ladder 0 s0 300:20".
class RecordingSink : public feed::FeedSink
{
public:
    void onOrders(const std::string& key, int seq, int status,
                  const Kel::MetaCacheDataWrapperPtr& batch) override
    {
        std::string line = head("orders", seq, status);
        for (const quoter::QuoterBasePtr& record : batch->data)
            line += item(*record, dynamic_cast<const quoter::OrderData&>(*record).entrustNo);
        note(key, batch->market + batch->instrument, line, batch->data);
    }

    void onDeals(const std::string& key, int seq, int status,
                 const Kel::MetaCacheDataWrapperPtr& batch) override
    {
        std::string line = head("deals", seq, status);
        for (const quoter::QuoterBasePtr& record : batch->data)
            line += item(*record, dynamic_cast<const quoter::TransactionData&>(*record).dealNo);
        note(key, batch->market + batch->instrument, line, batch->data);
    }

    void onQuotes(const std::string& key, int seq, int status, const quoter::QuoterBatch& batch) override
    {
        std::string line = head(status == -1 ? "snapshot" : "queue", seq, status);
        for (const quoter::QuoterBasePtr& record : batch) {
            if (status == -1)
                line += item(*record, dynamic_cast<const quoter::QuoterDepthData&>(*record).dealCount);
            else
                line += item(*record, dynamic_cast<const quoter::LevelOrderData&>(*record).bidCount);
        }
        note(key, key, line, batch);
    }

    void onLadders(const std::string& key, int seq, int status,
                   const Kel::MetaCacheDataWrapperPtr& batch) override
    {
        std::string line = head("ladder", seq, status);
        for (const quoter::QuoterBasePtr& record : batch->data) {
            const auto& ladder = dynamic_cast<const quoter::ThousandData&>(*record);
            line += item(ladder, static_cast<std::int64_t>(ladder.buys.size() + ladder.sells.size()));
        }
        note(key, batch->market + batch->instrument, line, batch->data);
    }

    /// The lines since the last call, without their line ends.
    std::vector<std::string> take()
    {
        std::vector<std::string> result;
        result.swap(m_lines);
        return result;
    }

    std::int64_t latestTime() const { return m_latestTime; }
    std::size_t largestLiveOrderBatch() const { return m_largestLiveOrderBatch; }
    bool keysAgree() const { return m_keysAgree; }

private:
    static std::string head(const char* channel, int seq, int status)
    {
        return std::string(channel) + " " + std::to_string(seq) + " s" + std::to_string(status);
    }
    static std::string item(const quoter::QuoterBase& record, std::int64_t number)
    {
        return " " + std::to_string(record.m_time) + ":" + std::to_string(number);
    }
    void note(const std::string& key, const std::string& instrument, const std::string& line,
              const quoter::QuoterBatch& batch)
    {
        m_keysAgree = m_keysAgree && key == instrument;
        for (const quoter::QuoterBasePtr& record : batch)
            m_latestTime = std::max(m_latestTime, record->m_time);
        if (line.compare(0, 6, "orders") == 0 && line.find(" s1") != std::string::npos)
            m_largestLiveOrderBatch = std::max(m_largestLiveOrderBatch, batch.size());
        m_lines.push_back(line);
    }

    std::vector<std::string> m_lines;
    std::int64_t m_latestTime = 0;
    std::size_t m_largestLiveOrderBatch = 0;
    bool m_keysAgree = true;
};

} // namespace testing_support
