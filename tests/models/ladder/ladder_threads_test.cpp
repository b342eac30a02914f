// The ladder model with its feed and its readers on threads of their own.

#include "LadderFeed.h"
#include "feed/record_making.h"
#include "feed/simulation/SimulatedExchange.h"

#include <boost/thread/thread.hpp>

#include <gtest/gtest.h>

#include <atomic>

namespace {

using namespace testing_support;

constexpr std::size_t kBatch = 500;

template <class Row, class Make, class Give>
void deliver(const std::vector<Row>& rows, Make make, Give give, const feed::InstrumentDay& day)
{
    for (std::size_t from = 0; from < rows.size(); from += kBatch) {
        const std::size_t count = std::min(kBatch, rows.size() - from);
        give(from == 0 ? 0 : 1, batchOf(make(rows.data() + from, count), day.detail.market, day.detail.code));
    }
}

TEST(LadderThreads, OrdersAndDealsOnTwoThreadsWithAReaderEndInTheSameBook)
{
    feed::SimulationSettings settings = feed::shanghaiStock(5);
    settings.orders = 20000;
    const feed::InstrumentDay day = feed::simulatedDay(settings);
    utils::CSingletonT<Kel::CStockManager>::instance().addInstrument(
        boost::make_shared<nelservice::CInstrumentDetail>(day.detail));
    const QString key = QString::fromStdString(day.detail.market + day.detail.code);

    Kel::CModelDepthThousand expected(0, -1);
    expected.setStock(key);
    expected.entrustCallback(0, 1,
                             batchOf(feed::makeOrderBatch(day.orders.data(), day.orders.size()),
                                     day.detail.market, day.detail.code));
    expected.transactionCallback(
        0, 1,
        batchOf(feed::makeDealBatch(day.deals.data(), day.deals.size()), day.detail.market, day.detail.code));
    Answer truth;
    ASSERT_TRUE(truth.ask(expected));

    Kel::CModelDepthThousand model(0, -1);
    model.setStock(key);
    std::atomic<bool> done{false};
    int answers = 0;
    Answer seen;
    boost::thread reader([&] {
        bool last = false;
        while (!last) {
            last = done.load();
            if (seen.ask(model)) {
                ++answers;
                if (!seen.buys.empty())
                    model.getQueue(true, seen.buys.back()->price);
            }
            model.getLastClose();
        }
    });
    // Each channel opens the reload by itself: the one that comes first must not be lost.
    boost::thread orderFeed([&] {
        deliver(
            day.orders, feed::makeOrderBatch,
            [&](int status, const Kel::MetaCacheDataWrapperPtr& batch) {
                model.entrustCallback(0, status, batch);
            },
            day);
    });
    boost::thread dealFeed([&] {
        deliver(
            day.deals, feed::makeDealBatch,
            [&](int status, const Kel::MetaCacheDataWrapperPtr& batch) {
                // Live batches of one channel end the reload that the other has not opened yet.
                model.transactionCallback(0, status == 0 ? 1 : status, batch);
            },
            day);
    });
    orderFeed.join();
    dealFeed.join();
    done = true;
    reader.join();
    EXPECT_GT(answers, 0);
    // The orders' reload emptied the book once, at its beginning: deals before it are lost with it, so the
    // deals are given again; none of them counts twice.
    model.transactionCallback(
        0, 1,
        batchOf(feed::makeDealBatch(day.deals.data(), day.deals.size()), day.detail.market, day.detail.code));
    seen.ask(model);
    const auto plain = [](const Answer::Rows& rows) {
        std::ostringstream out;
        for (const auto& row : rows)
            out << row->price << ':' << row->volume << '/' << row->orderCount << ' ';
        return out.str();
    };
    EXPECT_EQ(plain(seen.buys), plain(truth.buys));
    EXPECT_EQ(plain(seen.sells), plain(truth.sells));
}

TEST(LadderThreads, ABatchThatIsUnderWayWhenTheBookIsClearedBringsNothingIntoTheNewOne)
{
    addInstrument("SH", "600519");
    std::vector<std::string> lines;
    for (int i = 1; i <= 60000; ++i)
        lines.push_back("B " + std::to_string(i) + " 9.99 100");
    const auto batch = orders(lines);
    for (int round = 0; round < 5; ++round) {
        Kel::CModelDepthThousand model(0, -1);
        model.setStock("SH600519");
        boost::thread feed([&] { model.entrustCallback(0, 1, batch); });
        while (!model.getQueue(true, 9.99))
            boost::this_thread::yield();
        model.setStock("SH600519");
        feed.join();
        const auto queue = model.getQueue(true, 9.99);
        EXPECT_FALSE(queue) << queue->orderCount << " orders of the book before";
    }
}

} // namespace
