// Records that no exchange sends: the lists stay in order, whole and linked, whatever comes.

#include "feed/simulation/Random.h"
#include "models/tick/TickRecords.h"
#include "platform/models/CModelDepthEntrust.h"
#include "platform/models/CModelDepthTransaction.h"
#include "platform/models/tick_batches.h"
#include "platform/services/RPCEngine.h"

#include <gtest/gtest.h>

#include <limits>

using namespace Kel;
using namespace testing_support;

namespace {

class Malice
{
public:
    explicit Malice(std::uint64_t seed) : m_random(seed) {}

    template <class Value>
    Value oneOf(std::initializer_list<Value> values)
    {
        return *(values.begin() + m_random.below(static_cast<std::uint32_t>(values.size())));
    }

    std::int64_t time()
    {
        if (m_random.chance(0.9))
            return at(9, 0, 0) + m_random.below(30000);
        return oneOf<std::int64_t>(
            {0, -1, 1, std::numeric_limits<std::int64_t>::max(), std::numeric_limits<std::int64_t>::min(),
             std::int64_t(std::numeric_limits<std::int32_t>::max()) * 1000 + 999, 86400000});
    }

    double price()
    {
        if (m_random.chance(0.8))
            return 10 + m_random.below(5) * 0.01;
        return oneOf({0.0, -1.0, 1e300, std::numeric_limits<double>::max(), 1e-300,
                      std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()});
    }

    std::int64_t volume()
    {
        if (m_random.chance(0.8))
            return 1 + m_random.below(3000);
        return oneOf<std::int64_t>({0, -1, 1, std::numeric_limits<std::int64_t>::max(),
                                    std::numeric_limits<std::int64_t>::min(), 1LL << 40});
    }

    int number()
    {
        if (m_random.chance(0.9))
            return static_cast<int>(m_random.below(40));
        return oneOf({0, -1, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()});
    }

    boost::shared_ptr<quoter::QuoterBase> record()
    {
        if (m_random.chance(0.02))
            return {};
        if (m_random.chance(0.35)) {
            auto result =
                order(number(), number(), price(), volume(), time(), oneOf({0, 1, 1, 1, 2, 3, 4, -7}));
            if (m_random.chance(0.05))
                result->entrustNo =
                    oneOf<std::int64_t>({1LL << 40, std::numeric_limits<std::int64_t>::min(), 5});
            return result;
        }
        auto result = deal(m_random.chance(0.7) ? static_cast<int>(m_random.below(3000)) : number(), number(),
                           number(), price(), volume(), time(), oneOf({0, 0, 1, 2, 3, -1}));
        result->kind = oneOf({0, 0, 0, 3, 3, 1, -5});
        return result;
    }

    boost::shared_ptr<MetaCacheDataWrapper> batch()
    {
        if (m_random.chance(0.03))
            return {};
        Batch records;
        for (std::uint32_t count = m_random.below(60); count > 0; --count)
            records.push_back(record());
        return wrap(records, m_random.chance(0.95) ? kStock : kOther);
    }

    SDepthFilterParam filter()
    {
        SDepthFilterParam param;
        param.com1 = oneOf({0, 1, 2, 9, -1});
        param.volume = oneOf({0, 1, 15, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()});
        param.relate = oneOf({0, 1, 7});
        param.com2 = oneOf({0, 1, 2});
        param.amount = oneOf({0, 5000, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()});
        param.start = oneOf({0, 32400000, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()});
        param.end = oneOf({58200000, 86400000, std::numeric_limits<int>::max(), 0});
        param.buy = m_random.chance(0.7);
        param.unsell = m_random.chance(0.7);
        return param;
    }

    int status() { return oneOf({0, 1, 1, 1, 1, 1, 2, 3, 3, 3, -1, 4, 99}); }
    bool chance(double p) { return m_random.chance(p); }

private:
    feed::Random m_random;
};

void expectInOrder(const CModelDepthTransaction& model)
{
    int whole = -1;
    for (int row = 0; row < model.count; ++row) {
        const auto data = model.getData(row);
        ASSERT_TRUE(data);
        ASSERT_GT(data->volume, 0);
        ASSERT_LT(data->buyPrevious, data->buyNext == -1 ? std::numeric_limits<int>::max() : data->buyNext);
        ASSERT_LE(data->buyRun, row);
        ASSERT_LE(data->sellRun, row);
        const auto rows = model.find(data->time);
        ASSERT_TRUE(rows.first <= row && row <= rows.second);
        ASSERT_EQ(model.tracebackSeq(row), row - rows.first + 1);
        ASSERT_GE(model.getEntrustVolume(data, true), 0);
        if (row > 0) {
            ASSERT_LE(model.getData(row - 1)->time, data->time);
        }
        whole = row;
    }
    ASSERT_EQ(whole + 1, model.count);
    ASSERT_FALSE(model.getData(model.count));
}

void expectInOrder(const CModelDepthEntrust& model)
{
    for (int row = 0; row < model.orderCount; ++row) {
        const auto data = model.getOrderData(row, false);
        ASSERT_TRUE(data);
        boost::shared_ptr<DepthOrderData> same;
        ASSERT_TRUE(model.getOrderData(data->orderNo, same));
        ASSERT_EQ(same->volume, data->volume);
        ASSERT_GE(model.tracebackOrderSeq(row), 1);
    }
    for (int row = 0; row < model.cancelCount; ++row) {
        const auto data = model.getCancelData(row);
        ASSERT_TRUE(data);
        std::list<boost::shared_ptr<quoter::TransactionData>> records;
        ASSERT_EQ(model.getTransactionData(data->orderNo, records), data->orderNo > 0);
        if (row > 0) {
            ASSERT_LE(model.getCancelData(row - 1)->time, data->time);
        }
    }
}

class HostileTicks : public testing::TestWithParam<std::uint64_t>
{
};

} // namespace

TEST_P(HostileTicks, LeaveTheListsInOrder)
{
    SCOPED_TRACE("seed " + std::to_string(GetParam()));
    addInstruments();
    Malice malice(GetParam());
    CModelDepthTransaction deals;
    CModelDepthEntrust entrusts;
    deals.setStock(kStock);
    entrusts.setStock(kStock);
    for (int step = 0; step < 400; ++step) {
        const auto batch = malice.batch();
        const int status = malice.chance(0.9) ? 1 : malice.status();
        deals.transactionCallback(step, status, batch);
        deals.entrustCallback(step, status, batch);
        entrusts.transactionCallback(step, status, batch);
        entrusts.entrustCallback(step, status, batch);
        if (malice.chance(0.05)) {
            const SDepthFilterParam param = malice.filter();
            deals.setFilterParam(param);
            entrusts.setFilterParam(param);
        }
        if (malice.chance(0.01)) {
            deals.clear();
            entrusts.clear();
        }
        if (malice.chance(0.02)) {
            const char* const code = malice.oneOf({kStock, kOther, kBond, "XX", kStock});
            deals.setStock(QString::fromLatin1(code));
            entrusts.setStock(QString::fromLatin1(code));
        }
        if (malice.chance(0.3)) {
            deals.setStock(kStock);
            entrusts.setStock(kStock);
        }
        if (step % 20 == 0) {
            expectInOrder(deals);
            expectInOrder(entrusts);
        }
    }
    SDepthFilterParam open;
    open.start = std::numeric_limits<int>::min();
    open.end = std::numeric_limits<int>::max();
    deals.setFilterParam(open);
    entrusts.setFilterParam(open);
    expectInOrder(deals);
    expectInOrder(entrusts);
    entrusts.findOrders(36000000, 10, 1, 1);
}

INSTANTIATE_TEST_SUITE_P(Seeds, HostileTicks, testing::Range<std::uint64_t>(1, 21));
