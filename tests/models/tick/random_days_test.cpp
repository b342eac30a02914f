// Both models against a plain reference on random days: batches in a random order of calls, cut at random,
// with repeats, late and foreign records.

#include "feed/record_making.h"
#include "feed/simulation/Random.h"
#include "models/tick/SimulatedTicks.h"
#include "models/tick/TickRecords.h"
#include "platform/models/CModelDepthEntrust.h"
#include "platform/models/CModelDepthTransaction.h"
#include "platform/models/tick_batches.h"
#include "platform/services/RPCEngine.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <sstream>
#include <tuple>

using namespace Kel;
using namespace testing_support;

namespace {

using Day = SimulatedTicks;

Day simulate(std::uint64_t seed)
{
    return simulateTicks(seed, 3000);
}

SDepthFilterParam randomFilter(feed::Random& random)
{
    SDepthFilterParam param;
    param.com1 = static_cast<int>(random.below(3));
    param.volume = static_cast<int>(random.below(8));
    param.relate = static_cast<int>(random.below(2));
    param.com2 = static_cast<int>(random.below(2));
    param.amount = static_cast<int>(random.below(30000));
    param.buy = random.chance(0.7);
    param.sell = random.chance(0.7);
    param.unbuy = random.chance(0.7);
    param.unsell = random.chance(0.7);
    param.start += static_cast<int>(random.below(4000000));
    return param;
}

/// Sends the records in batches of random length; now and then some are sent twice, some late.
template <class Send>
void sendInPieces(Batch records, feed::Random& random, Send send)
{
    for (std::size_t index = 1; index < records.size(); ++index) {
        if (random.chance(0.02))
            std::swap(records[index],
                      records[index - 1 -
                              random.below(static_cast<std::uint32_t>(std::min<std::size_t>(index, 50)))]);
    }
    int status = 0;
    for (std::size_t from = 0; from < records.size();) {
        const std::size_t count = 1 + random.below(status == 1 ? 60 : 1500);
        const std::size_t to = std::min(from + count, records.size());
        const auto begin = records.begin() + static_cast<std::ptrdiff_t>(from);
        send(Batch(begin, records.begin() + static_cast<std::ptrdiff_t>(to)), status);
        from = random.chance(0.1) && to - from > 5 ? to - 3 : to;
        status = 1 + static_cast<int>(random.below(3));
    }
}

// The rules, told once more and in another way than the models tell them.

int plainLots(std::int64_t shares, int unit)
{
    if (shares <= 0)
        return 0;
    return std::max(1, static_cast<int>(std::floor(static_cast<double>(shares) / unit + 0.5)));
}

/// Milliseconds of the exchange's day at which a time tag stands.
int plainTimeOfDay(int time)
{
    return (time + 8 * 3600) % 86400 * 1000;
}

bool plainPasses(const SDepthFilterParam& param, int time, int lots, std::int64_t shares, double price)
{
    const int timeOfDay = plainTimeOfDay(time);
    const double amount = static_cast<double>(shares) * price;
    const bool volumes[] = {lots >= param.volume, lots > param.volume, lots == param.volume};
    const bool amounts[] = {amount > param.amount - 0.00001, amount > param.amount + 0.00001};
    const bool volume = volumes[param.com1];
    const bool money = amounts[param.com2];
    const bool both = param.relate == 1 ? volume && money : volume || money;
    return both && timeOfDay >= param.start && timeOfDay <= param.end;
}

bool plainWants(int side, bool buys, bool sells)
{
    return (side == 1 && buys) || (side == 2 && sells);
}

/// 1 or 2 for the side that was active, 0 for none.
int plainActiveSide(const feed::DealRow& row)
{
    if (row.activeSide != 0)
        return row.activeSide;
    const int timeOfDay = plainTimeOfDay(static_cast<int>(row.time / 1000)) / 1000;
    const bool opening = timeOfDay < 9 * 3600 + 30 * 60;
    const bool closing = timeOfDay >= 14 * 3600 + 57 * 60 && timeOfDay < 15 * 3600 + 5 * 60;
    if (opening || closing)
        return 0;
    return row.buyNo > row.sellNo ? 1 : 2;
}

/// What the deal list must show, from the rows of the day and nothing else.
struct PlainDeals
{
    struct Deal
    {
        feed::DealRow row;
        int time = 0;
        int lots = 0;
        DepthTransData shown;
    };

    PlainDeals(const Day& day, const SDepthFilterParam& param)
    {
        for (const feed::DealRow& row : day.rows.deals) {
            if (row.kind != 3)
                whole.push_back(
                    {row, static_cast<int>(row.time / 1000), plainLots(row.volume, day.unit), {}});
        }
        std::stable_sort(whole.begin(), whole.end(), [](const Deal& left, const Deal& right) {
            return std::tie(left.time, left.row.dealNo) < std::tie(right.time, right.row.dealNo);
        });
        link();
        for (const Deal& deal : whole) {
            if (plainPasses(param, deal.time, deal.lots, deal.row.volume, deal.row.price))
                list.push_back(deal);
        }
        countRuns();
    }

    void link()
    {
        std::map<int, int> lastBuy, lastSell;
        int direction = 0;
        for (int index = 0; index < static_cast<int>(whole.size()); ++index) {
            Deal& deal = at(index);
            DepthTransData& shown = deal.shown;
            if (index > 0)
                shown.trend = deal.row.price > at(index - 1).row.price + 1e-5   ? 1
                              : deal.row.price < at(index - 1).row.price - 1e-5 ? -1
                                                                                : 0;
            direction = shown.trend != 0 ? shown.trend : direction;
            shown.activeSide = plainActiveSide(deal.row);
            shown.volumeRise = shown.activeSide != 0 ? shown.activeSide == 1 : direction == 1;
            if (lastBuy.count(deal.row.buyNo)) {
                shown.buyPrevious = lastBuy[deal.row.buyNo];
                at(shown.buyPrevious).shown.buyNext = index;
            }
            if (lastSell.count(deal.row.sellNo)) {
                shown.sellPrevious = lastSell[deal.row.sellNo];
                at(shown.sellPrevious).shown.sellNext = index;
            }
            lastBuy[deal.row.buyNo] = index;
            lastSell[deal.row.sellNo] = index;
        }
    }

    void countRuns()
    {
        for (std::size_t row = 1; row < list.size(); ++row) {
            if (list[row].row.buyNo == list[row - 1].row.buyNo)
                list[row].shown.buyRun = static_cast<std::int16_t>(list[row - 1].shown.buyRun + 1);
            if (list[row].row.sellNo == list[row - 1].row.sellNo)
                list[row].shown.sellRun = static_cast<std::int16_t>(list[row - 1].shown.sellRun + 1);
        }
    }

    Deal& at(int index) { return whole[static_cast<std::size_t>(index)]; }

    std::vector<Deal> whole;
    std::vector<Deal> list;
};

std::string text(const DepthTransData& row)
{
    std::ostringstream out;
    out << row.buyPrevious << ' ' << row.buyNext << ' ' << row.sellPrevious << ' ' << row.sellNext << " runs "
        << row.buyRun << ' ' << row.sellRun << " trend " << row.trend << " active " << row.activeSide
        << " rise " << int(row.volumeRise);
    return out.str();
}

void expectDeals(const CModelDepthTransaction& model, const PlainDeals& plain)
{
    ASSERT_EQ(model.count, static_cast<int>(plain.list.size()));
    int place = 0;
    for (int row = 0; row < model.count; ++row) {
        const PlainDeals::Deal& deal = plain.list[static_cast<std::size_t>(row)];
        const auto data = model.getData(row);
        ASSERT_TRUE(data);
        ASSERT_EQ(data->time, deal.time) << "row " << row;
        ASSERT_EQ(data->price, deal.row.price) << "row " << row;
        ASSERT_EQ(data->volume, deal.lots) << "row " << row;
        ASSERT_EQ(data->buyNo, deal.row.buyNo) << "row " << row;
        ASSERT_EQ(data->sellNo, deal.row.sellNo) << "row " << row;
        ASSERT_EQ(text(*data), text(deal.shown)) << "row " << row;
        const bool sameSecond = row > 0 && plain.list[static_cast<std::size_t>(row - 1)].time == deal.time;
        place = sameSecond ? place + 1 : 1;
        ASSERT_EQ(model.tracebackSeq(row), place) << "row " << row;
        const std::pair<int, int> rows = model.find(deal.time);
        ASSERT_TRUE(rows.first <= row && row <= rows.second);
        ASSERT_EQ(rows.first, row - place + 1);
        ASSERT_TRUE(rows.second + 1 == model.count ||
                    plain.list[static_cast<std::size_t>(rows.second + 1)].time != deal.time);
    }
}

/// The lots beside the runs: of the orders, or, while these are unknown, of what they have dealt.
void expectVolumes(const CModelDepthTransaction& model, const Day& day, bool areOrdersKnown)
{
    std::map<std::int64_t, std::int64_t> shares;
    for (const feed::DealRow& row : day.rows.deals) {
        if (row.kind == 3 || areOrdersKnown)
            continue;
        shares[row.buyNo] += row.volume;
        shares[row.sellNo] += row.volume;
    }
    if (areOrdersKnown) {
        for (const feed::OrderRow& row : day.rows.orders)
            shares[row.number] = row.volume;
    }
    for (int row = 0; row < model.count; ++row) {
        const auto data = model.getData(row);
        ASSERT_EQ(model.getEntrustVolume(data, true), plainLots(shares.at(data->buyNo), day.unit)) << row;
        ASSERT_EQ(model.getEntrustVolume(data, false), plainLots(shares.at(data->sellNo), day.unit)) << row;
    }
}

/// What the order and cancel lists must show.
void expectEntrusts(const CModelDepthEntrust& model, const Day& day, const SDepthFilterParam& param)
{
    std::map<std::int64_t, feed::OrderRow> byNumber;
    std::vector<std::tuple<int, std::int64_t>> orders;
    for (const feed::OrderRow& row : day.rows.orders) {
        byNumber[row.number] = row;
        const int time = static_cast<int>(row.time / 1000);
        if (plainWants(row.side, param.buy, param.sell) &&
            plainPasses(param, time, plainLots(row.volume, day.unit), row.volume, row.price))
            orders.emplace_back(time, row.number);
    }
    std::sort(orders.begin(), orders.end());
    ASSERT_EQ(model.orderCount, static_cast<int>(orders.size()));
    for (int row = 0; row < model.orderCount; ++row) {
        const auto data = model.getOrderData(row, false);
        const auto expected = orders[static_cast<std::size_t>(row)];
        ASSERT_EQ(std::make_tuple(int(data->time), std::int64_t(data->orderNo)), expected) << row;
    }
    std::vector<std::tuple<int, int, int>> cancels;
    for (const feed::DealRow& row : day.rows.deals) {
        if (row.kind != 3)
            continue;
        const int number = row.buyNo != 0 ? row.buyNo : row.sellNo;
        const feed::OrderRow& order = byNumber.at(number);
        const int time = static_cast<int>(row.time / 1000);
        if (plainWants(order.side, param.unbuy, param.unsell) &&
            plainPasses(param, time, plainLots(row.volume, day.unit), row.volume, order.price))
            cancels.emplace_back(time, row.dealNo, number);
    }
    std::sort(cancels.begin(), cancels.end());
    ASSERT_EQ(model.cancelCount, static_cast<int>(cancels.size()));
    for (int row = 0; row < model.cancelCount; ++row)
        ASSERT_EQ(model.getCancelData(row)->orderNo, std::get<2>(cancels[static_cast<std::size_t>(row)]))
            << row;
}

/// The records of every order's track.
void expectTracks(const CModelDepthEntrust& model, const Day& day)
{
    std::map<int, std::vector<int>> plain;
    for (const feed::DealRow& row : day.rows.deals) {
        plain[row.buyNo].push_back(row.dealNo);
        if (row.sellNo != row.buyNo)
            plain[row.sellNo].push_back(row.dealNo);
    }
    for (const auto& [number, expected] : plain) {
        std::list<boost::shared_ptr<quoter::TransactionData>> records;
        model.getTransactionData(number, records);
        std::vector<int> numbers;
        for (const auto& record : records)
            numbers.push_back(record->dealNo);
        if (number != 0) {
            ASSERT_EQ(numbers, expected) << "order " << number;
        }
    }
}

class RandomDay : public testing::TestWithParam<std::uint64_t>
{
};

} // namespace

TEST_P(RandomDay, BothModelsShowWhatAPlainReferenceShows)
{
    const std::uint64_t seed = GetParam();
    SCOPED_TRACE("seed " + std::to_string(seed));
    feed::Random random(seed);
    const Day day = simulate(seed);
    CModelDepthTransaction deals;
    CModelDepthEntrust entrusts;
    deals.setStock(QString::fromStdString(day.key));
    entrusts.setStock(QString::fromStdString(day.key));
    SDepthFilterParam param = random.chance(0.5) ? SDepthFilterParam() : randomFilter(random);
    deals.setFilterParam(param);
    entrusts.setFilterParam(param);
    const auto sendOrders = [&] {
        sendInPieces(feed::makeOrderBatch(day.rows.orders.data(), day.rows.orders.size()), random,
                     [&](Batch batch, int status) {
                         deals.entrustCallback(0, status, wrap(batch, day.key));
                         entrusts.entrustCallback(0, status, wrap(batch, day.key));
                     });
    };
    const auto sendDeals = [&] {
        sendInPieces(feed::makeDealBatch(day.rows.deals.data(), day.rows.deals.size()), random,
                     [&](Batch batch, int status) {
                         deals.transactionCallback(0, status, wrap(batch, day.key));
                         entrusts.transactionCallback(0, status, wrap(batch, day.key));
                     });
    };
    const bool dealsFirst = random.chance(0.5);
    if (dealsFirst) {
        sendDeals();
        expectVolumes(deals, day, false);
    }
    sendOrders();
    if (!dealsFirst)
        sendDeals();
    for (int round = 0; round < 3; ++round) {
        SCOPED_TRACE("filter " + std::to_string(round));
        expectDeals(deals, PlainDeals(day, param));
        expectVolumes(deals, day, true);
        expectEntrusts(entrusts, day, param);
        param = randomFilter(random);
        deals.setFilterParam(param);
        entrusts.setFilterParam(param);
        net::RPCEngine::drain(kFilterStrand);
    }
    expectTracks(entrusts, day);
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomDay, testing::Range<std::uint64_t>(1, 13));
