#include "queue_engine/EngineFixture.h"
#include "queue_engine/reference_level.h"

#include <random>

using namespace testing_support;

namespace {

/// Random levels and caches in which everything collides: few numbers, few volumes.
class Chance
{
public:
    explicit Chance(unsigned int seed) : m_random(seed) {}

    int upTo(int most) { return static_cast<int>(m_random() % static_cast<unsigned int>(most + 1)); }
    bool oneIn(int many) { return upTo(many - 1) == 0; }

    double lots()
    {
        switch (upTo(7)) {
        case 0:
            return 1000 + upTo(2);
        case 1:
            return 5000 + upTo(2);
        case 2:
            return upTo(4) + 0.5;
        case 3:
            return upTo(400) / 100.0;
        default:
            return upTo(5);
        }
    }

    std::vector<int> volumes(int most)
    {
        std::vector<int> result;
        for (int count = upTo(most); count > 0; --count)
            result.push_back(oneIn(8) ? 1000 + upTo(1) : upTo(5));
        return result;
    }

    Kel::COrderVol order(int numbers)
    {
        static const Kel::EOrderQueueType types[] = {Kel::OQT_CANCELED, Kel::OQT_NORMAL,    Kel::OQT_UNKNOWN,
                                                     Kel::OQT_NORMAL,   Kel::OQT_BIG,       Kel::OQT_SUPER,
                                                     Kel::OQT_DEALT,    Kel::OQT_PART_DEALT};
        Kel::COrderVol made;
        made.m_entrustNo = upTo(numbers);
        made.m_vol = lots();
        made.m_type = types[upTo(7)];
        made.m_partDealVol = oneIn(3) ? upTo(5) : 0;
        return made;
    }

private:
    std::mt19937 m_random;
};

class AgainstTheReference : public EngineTest
{
protected:
    /// Makes the same level twice.
    void make(Chance& chance, int mostOrders)
    {
        real =
            boost::make_shared<Kel::OrderQueueData>(10.0, 0, chance.oneIn(2) ? Kel::OQT_BUY : Kel::OQT_SELL);
        plain = ReferenceLevel();
        plain.price = 10;
        plain.type = real->m_type;
        for (int count = chance.upTo(mostOrders); count > 0; --count) {
            const Kel::COrderVol order = chance.order(30);
            if (chance.oneIn(2)) {
                real->addOrderVol(order);
                plain.addOrderVol(order);
            } else {
                real->appendUncounted(order);
                plain.orders.push_back(order);
            }
        }
        real->m_level = plain.level = chance.upTo(12) - 1;
        real->m_levelVol = plain.levelVol = chance.oneIn(4) ? plain.sumVol : chance.lots() + chance.upTo(60);
        compare("made");
    }

    void compare(const char* what)
    {
        ASSERT_EQ(levelText(*real), plain.text()) << what;
        ASSERT_EQ(real->m_orderIds.size(), static_cast<int>(plain.ids.size())) << what;
        for (const std::int64_t number : plain.ids)
            ASSERT_TRUE(real->m_orderIds.contains(number)) << what << " " << number;
    }

    Kel::OrderQueueDataPtr real;
    ReferenceLevel plain;
};

constexpr unsigned int kSeeds = 3000;

} // namespace

TEST_F(AgainstTheReference, PublishedQueuesMergeAlike)
{
    for (unsigned int seed = 1; seed <= kSeeds; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Chance chance(seed);
        make(chance, chance.oneIn(4) ? 80 : 12);
        for (int step = 0; step < 4; ++step) {
            std::vector<int> volumes = chance.volumes(chance.oneIn(4) ? 70 : 10);
            if (chance.oneIn(3)) {
                // A stretch of the list itself, with an order missing, so that anchors are found far behind.
                volumes.clear();
                for (std::size_t i = static_cast<std::size_t>(chance.upTo(9)); i < plain.orders.size(); ++i) {
                    if (!chance.oneIn(6))
                        volumes.push_back(static_cast<int>(plain.orders[i].m_vol + 0.5));
                }
            }
            if (chance.oneIn(3))
                real->m_levelVol = plain.levelVol = plain.sumVol + chance.upTo(3) - 1;
            real->mergeLevelVols(volumes);
            plain.mergeLevelVols(volumes);
            compare("merged");
            if (HasFatalFailure())
                return;
        }
        const std::vector<int> volumes = chance.volumes(20);
        real->resetByLevelVols(volumes);
        plain.resetByLevelVols(volumes);
        compare("reset");
        if (HasFatalFailure())
            return;
    }
}

TEST_F(AgainstTheReference, ListsAreComparedCutAndCountedAlike)
{
    for (unsigned int seed = 1; seed <= kSeeds; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Chance chance(seed);
        make(chance, 15);
        for (int step = 0; step < 6; ++step) {
            const bool onlyTen = chance.oneIn(2);
            switch (chance.upTo(4)) {
            case 0:
                real->calcUnknownVol();
                plain.calcUnknownVol();
                compare("unknown");
                break;
            case 1:
                ASSERT_EQ(real->trimToLevelVol(), plain.trimToLevelVol());
                compare("trimmed");
                break;
            case 2:
                ASSERT_EQ(real->dropBeforePartDeal(onlyTen), plain.dropBeforePartDeal(onlyTen));
                compare("dropped");
                break;
            case 3:
                real->recount();
                plain.recount();
                compare("recounted");
                break;
            default:
                real->m_levelVol = plain.levelVol = chance.lots();
                real->m_level = plain.level = chance.upTo(11);
            }
            if (HasFatalFailure())
                return;
        }
    }
}

TEST_F(AgainstTheReference, PassesApplyDealsAndCancellationsAlike)
{
    const auto depth = snapshot("bid 10.00x7 9.99x8; ask 10.00x9 10.01x5");
    for (unsigned int seed = 1; seed <= kSeeds; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Chance chance(seed);
        ReferenceCaches caches;
        engine.clear(true);
        make(chance, 15);
        for (int step = 0; step < 6; ++step) {
            for (int entries = chance.upTo(4); entries > 0; --entries) {
                const int number = chance.upTo(30);
                const int kind = 1 + chance.upTo(2);
                caches.dealt[kind][number] = engine.m_dealCache[kind][number] =
                    chance.oneIn(5) ? 0 : chance.lots();
            }
            if (chance.oneIn(2)) {
                const int number = chance.upTo(30);
                caches.cancelled.insert(number);
                engine.m_cancelOrders.insert(number);
            }
            if (chance.oneIn(3)) {
                const Kel::COrderVol order = chance.order(60);
                real->addOrderVol(order);
                plain.addOrderVol(order);
            }
            engine.m_lastFeedTime = caches.lastFeedTime = 1000;
            engine.m_refreshClock = caches.refreshClock = 1000 + chance.upTo(8);
            engine.m_depthTime = caches.depthTime = 999 + chance.upTo(2);
            const bool known = chance.oneIn(2);
            caches.depth = known ? depth.get() : nullptr;
            engine.m_depthData.store(known ? depth : QuoterDepthDataPtr());
            real->wake();
            ASSERT_EQ(engine.updateVolList(real), plain.updateVolList(caches)) << "step " << step;
            compare("pass");
            std::string entries;
            for (const auto& kind : caches.dealt) {
                if (kind.second.empty())
                    continue;
                entries += (entries.empty() ? "" : "; ") + std::to_string(kind.first) + ":";
                for (const auto& entry : kind.second)
                    entries += " " + std::to_string(entry.first) + "=" + numberText(entry.second);
            }
            ASSERT_EQ(dealt(), entries) << "step " << step;
            std::string numbers;
            for (const std::int64_t number : caches.cancelled)
                numbers += (numbers.empty() ? "" : " ") + std::to_string(number);
            ASSERT_EQ(cancelled(), numbers) << "step " << step;
            if (HasFatalFailure())
                return;
        }
    }
}
