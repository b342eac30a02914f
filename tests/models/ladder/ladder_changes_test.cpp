// What the ladder reports step by step, against a plain account of the same book: random orders, deals and
// cancellations around a middle that wanders, so that levels come, go and move in and out of the short form.

#include "LadderFeed.h"
#include "feed/simulation/Random.h"

#include <gtest/gtest.h>

#include <map>

namespace {

using namespace testing_support;

constexpr int kUnit = 100;

/// The book and the reports, the plain way.
class PlainLadder
{
public:
    struct Order
    {
        bool isBuy;
        int key;
        int volume;
    };

    void add(int number, bool isBuy, int key, int volume) { m_orders[number] = {isBuy, key, volume}; }
    void end(int number) { m_orders.erase(number); }
    const std::map<int, Order>& orders() const { return m_orders; }

    /// The rows of a side as the model prints them: ascending, the best `most`.
    std::string report(bool isBuy, std::size_t most, bool cover)
    {
        std::map<int, std::pair<int, int>> levels; // volume and count by price
        for (const auto& [number, order] : m_orders) {
            if (order.isBuy == isBuy) {
                levels[order.key].first += order.volume;
                ++levels[order.key].second;
            }
        }
        auto& told = m_told[isBuy];
        if (cover)
            told.clear();
        // What ended counts as new when it comes again.
        for (auto it = told.begin(); it != told.end();)
            it = levels.count(it->first) == 0 ? told.erase(it) : std::next(it);
        while (levels.size() > most)
            levels.erase(isBuy ? levels.begin() : std::prev(levels.end()));
        std::ostringstream out;
        for (const auto& [key, level] : levels) {
            const int lots = level.first / kUnit;
            const auto before = told.find(key);
            const bool isNew = before == told.end();
            const bool renewed = isNew || before->second.lots != lots ||
                                 before->second.count != level.second || !before->second.shown;
            Told now{lots, level.second, 0, true};
            if (cover)
                now.change = 0;
            else if (renewed)
                now.change = lots - (isNew ? 0 : before->second.lots);
            else
                now.change = before->second.change;
            told[key] = now;
            out << (out.tellp() > 0 ? " " : "") << key / 100.0 << ':' << lots;
            if (now.change != 0)
                out << std::showpos << now.change << std::noshowpos;
            out << '/' << level.second;
        }
        for (auto& [key, row] : told)
            row.shown = levels.count(key) != 0;
        return out.str();
    }

private:
    struct Told
    {
        int lots;
        int count;
        int change;
        bool shown;
    };
    std::map<int, Order> m_orders;
    std::map<bool, std::map<int, Told>> m_told;
};

TEST(LadderChanges, AreThoseOfAPlainAccountStepByStep)
{
    addInstrument("SH", "600519");
    int answers = 0;
    for (std::uint64_t seed = 1; seed <= 40; ++seed) {
        for (const bool shortForm : {false, true}) {
            SCOPED_TRACE("seed " + std::to_string(seed) + (shortForm ? ", short form" : ""));
            feed::Random random(seed);
            Kel::CModelDepthThousand model(0, -1);
            model.setStock("SH600519");
            PlainLadder plain;
            Answer answer;
            int middle = 5000;
            int number = 0;
            bool cover = true;
            for (int step = 0; step < 300; ++step) {
                quoter::QuoterBatch orderBatch;
                quoter::QuoterBatch dealBatch;
                middle += static_cast<int>(random.below(7)) - 3;
                for (int i = static_cast<int>(random.below(8)); i > 0; --i) {
                    const bool isBuy = random.chance(0.5);
                    const int distance = 1 + static_cast<int>(random.below(18));
                    const int key = isBuy ? middle - distance : middle + distance;
                    const int volume = kUnit * (1 + static_cast<int>(random.below(9)));
                    auto record = boost::make_shared<quoter::OrderData>();
                    record->entrustNo = ++number;
                    record->side = isBuy ? 1 : 2;
                    record->kind = quoter::eOrderLimit;
                    record->price = key / 100.0;
                    record->volume = volume;
                    orderBatch.push_back(record);
                    plain.add(number, isBuy, key, volume);
                }
                for (int i = static_cast<int>(random.below(9)); i > 0 && !plain.orders().empty(); --i) {
                    auto order = plain.orders().lower_bound(
                        1 + static_cast<int>(random.below(static_cast<std::uint32_t>(number))));
                    if (order == plain.orders().end())
                        continue;
                    auto record = boost::make_shared<quoter::TransactionData>(cancelOf(order->first));
                    dealBatch.push_back(record);
                    plain.end(order->first);
                }
                model.entrustCallback(0, 1, batchOf(orderBatch));
                model.transactionCallback(0, 1, batchOf(dealBatch));
                if (random.below(3) == 0)
                    continue;
                const std::string before = answer.text();
                const std::size_t most = shortForm ? 10 : 1000;
                const std::string expected =
                    "B " + plain.report(true, most, cover) + " S " + plain.report(false, most, cover);
                const bool news = answer.ask(model, shortForm);
                ASSERT_EQ(answer.text(), expected) << "step " << step;
                ASSERT_EQ(answer.flags != 0, cover || before != expected) << "step " << step;
                answers += news ? 1 : 0;
                cover = false;
            }
        }
    }
    EXPECT_GT(answers, 1000);
}

} // namespace
