// How a deal stands within the deals of its order.

#include "models/tick/TickRecords.h"
#include "platform/models/CModelDepthHolographic.h"

#include <gtest/gtest.h>

#include <limits>

using namespace Kel;
using namespace testing_support;

namespace {

constexpr double kGone = std::numeric_limits<double>::quiet_NaN();

struct KindCase
{
    const char* name;
    DealNeighbours deal; // order, index, price; previous, its price; next, its price
    E_DEAL_KIND kind;
};

void PrintTo(const KindCase& kindCase, std::ostream* out)
{
    *out << kindCase.name;
}

const KindCase kCases[] = {
    {"NoOrder", {0, 5, 10, 4, 10, 6, 10}, E_DEAL_OPENING},
    {"NegativeOrder", {-1, 5, 10, -1, kGone, -1, kGone}, E_DEAL_OPENING},
    {"OnlyDeal", {7, 5, 10, -1, kGone, -1, kGone}, E_DEAL_WHOLE},
    {"NextIsNeighbourAtTheSamePrice", {7, 5, 10, -1, kGone, 6, 10}, E_DEAL_JOINED},
    {"NextIsNeighbourAtAlmostTheSamePrice", {7, 5, 10, -1, kGone, 6, 10.000009}, E_DEAL_JOINED},
    {"NextIsNeighbourAtAnotherPrice", {7, 5, 10, -1, kGone, 6, 10.01}, E_DEAL_OPENING},
    {"NextIsFurtherOn", {7, 5, 10, -1, kGone, 7, 10}, E_DEAL_OPENING},
    {"NextIsGone", {7, 5, 10, -1, kGone, 6, kGone}, E_DEAL_OPENING},
    {"PreviousIsGone", {7, 5, 10, 4, kGone, 6, 10}, E_DEAL_OPENING},
    {"PreviousAtAnotherPrice", {7, 5, 10, 4, 10.01, -1, kGone}, E_DEAL_SLANTED_BREAK},
    {"PreviousFurtherBackAtAnotherPrice", {7, 5, 10, 1, 9.99, -1, kGone}, E_DEAL_SLANTED_BREAK},
    {"PreviousIsNeighbourAtTheSamePrice", {7, 5, 10, 4, 10, -1, kGone}, E_DEAL_JOINED},
    {"PreviousFurtherBackAtTheSamePrice", {7, 5, 10, 3, 10, 6, 10}, E_DEAL_FLAT_BREAK},
};

class DealKind : public testing::TestWithParam<KindCase>
{
};

INSTANTIATE_TEST_SUITE_P(Rule, DealKind, testing::ValuesIn(kCases),
                         [](const auto& given) { return std::string(given.param.name); });

} // namespace

TEST_P(DealKind, FollowsTheNeighboursOfTheOrder)
{
    EXPECT_EQ(dealKind(GetParam().deal), GetParam().kind);
}

TEST(DealKinds, HaveTheNumbersThatTheChartKnows)
{
    EXPECT_EQ(int(E_DEAL_WHOLE), 0);
    EXPECT_EQ(int(E_DEAL_JOINED), 1);
    EXPECT_EQ(int(E_DEAL_FLAT_BREAK), 2);
    EXPECT_EQ(int(E_DEAL_OPENING), 3);
    EXPECT_EQ(int(E_DEAL_SLANTED_BREAK), 4);
}

class KindsOfADay : public testing::Test
{
protected:
    KindsOfADay()
    {
        addInstruments();
        model.setStock(kStock);
    }

    void add(Batch batch) { model.transactionCallback(0, 1, wrap(std::move(batch))); }
    E_DEAL_KIND kind(int seq, bool buy) const { return model.getDataKind(model.getData(seq), buy); }

    CModelDepthHolographic model;
};

TEST_F(KindsOfADay, AreToldForEachSideByItself)
{
    add({deal(1, 11, 21, 10.00, 100, at(10, 0, 0)), deal(2, 11, 22, 10.00, 100, at(10, 0, 1)),
         deal(3, 12, 22, 10.01, 100, at(10, 0, 2)), deal(4, 11, 23, 10.00, 100, at(10, 0, 3)),
         deal(5, 12, 22, 10.01, 100, at(10, 0, 4)), deal(6, 0, 24, 10.01, 100, at(10, 0, 5))});
    EXPECT_EQ(kind(0, true), E_DEAL_JOINED) << "the next deal of the order follows directly";
    EXPECT_EQ(kind(1, true), E_DEAL_JOINED);
    EXPECT_EQ(kind(3, true), E_DEAL_FLAT_BREAK);
    EXPECT_EQ(kind(2, true), E_DEAL_OPENING) << "its next deal does not follow directly";
    EXPECT_EQ(kind(4, true), E_DEAL_FLAT_BREAK);
    EXPECT_EQ(kind(5, true), E_DEAL_OPENING) << "there is no buy order";
    EXPECT_EQ(kind(0, false), E_DEAL_WHOLE);
    EXPECT_EQ(kind(1, false), E_DEAL_OPENING) << "its next deal has another price";
    EXPECT_EQ(kind(2, false), E_DEAL_SLANTED_BREAK);
    EXPECT_EQ(kind(4, false), E_DEAL_FLAT_BREAK);
}

TEST_F(KindsOfADay, ALaterDealCanChangeTheKindOfAnEarlierOne)
{
    add({deal(1, 11, 21, 10.00, 100, at(10, 0, 0))});
    EXPECT_EQ(kind(0, true), E_DEAL_WHOLE);
    add({deal(2, 11, 22, 10.00, 100, at(10, 0, 1))});
    EXPECT_EQ(kind(0, true), E_DEAL_JOINED);
    add({deal(2, 12, 22, 10.00, 100, at(10, 0, 0))});
    EXPECT_EQ(kind(0, true), E_DEAL_OPENING) << "a late deal came between";
}

TEST_F(KindsOfADay, NoDealOpensARun)
{
    EXPECT_EQ(model.getDataKind(nullptr, true), E_DEAL_OPENING);
    EXPECT_EQ(model.getDataKind(model.getData(-1), false), E_DEAL_OPENING);
}
