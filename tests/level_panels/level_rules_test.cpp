#include "level_panels/level_rules.h"

#include "level_panels/LevelColumns.h"
#include "level_panels/SideSums.h"

#include <gmock/gmock.h>

using namespace Kel;

namespace {

EntrustLevel level(double price, int volume, int change = 0)
{
    EntrustLevel made;
    made.valid = true;
    made.price = price;
    made.volume = volume;
    made.change = change;
    return made;
}

struct MarketRow
{
    const char* market;
    int whenTen;
    int whenFive;
};

class MarketLevels : public ::testing::TestWithParam<MarketRow>
{
};

struct TypeRow
{
    const char* label;
    int type;
};

class PriceTypes : public ::testing::TestWithParam<TypeRow>
{
};

} // namespace

TEST_P(MarketLevels, AreAsTheMarketHasThem)
{
    EXPECT_EQ(shelvesOf(GetParam().market, true), GetParam().whenTen);
    EXPECT_EQ(shelvesOf(GetParam().market, false), GetParam().whenFive);
}

INSTANTIATE_TEST_SUITE_P(
    Markets, MarketLevels,
    ::testing::Values(MarketRow{"CFFEX", 1, 1}, MarketRow{"SHFE", 1, 1}, MarketRow{"SH", 10, 5},
                      MarketRow{"SZ", 10, 5}, MarketRow{"BJ", 10, 5}, MarketRow{"SHHK", 10, 5},
                      MarketRow{"HKSH", 10, 5}, MarketRow{"SZHK", 10, 5}, MarketRow{"HKSZ", 10, 5},
                      MarketRow{"HK", 10, 5}, MarketRow{"YSWP", 10, 10}, MarketRow{"YSWP1", 1, 1},
                      MarketRow{"YSW", 1, 1}, MarketRow{"SHOP", 5, 5}, MarketRow{"SZOP", 5, 5},
                      MarketRow{"CI", 1, 1}, MarketRow{"", 1, 1}));

TEST_P(PriceTypes, FollowTheLabel)
{
    EXPECT_EQ(priceTypeOf(GetParam().label), GetParam().type);
}

INSTANTIATE_TEST_SUITE_P(Labels, PriceTypes,
                         ::testing::Values(TypeRow{"卖五", 0}, TypeRow{"卖四", 1}, TypeRow{"卖三", 2},
                                           TypeRow{"卖二", 3}, TypeRow{"卖一", 4}, TypeRow{"最新", 5},
                                           TypeRow{"最新价", 5}, TypeRow{"卖六", 30}, TypeRow{"卖七", 31},
                                           TypeRow{"卖八", 32}, TypeRow{"卖九", 33}, TypeRow{"卖十", 34},
                                           TypeRow{"涨跌停价", 12}, TypeRow{"买一", 6}, TypeRow{"买二", 7},
                                           TypeRow{"买三", 8}, TypeRow{"买四", 9}, TypeRow{"买五", 10},
                                           TypeRow{"买六", 35}, TypeRow{"买七", 36}, TypeRow{"买八", 37},
                                           TypeRow{"买九", 38}, TypeRow{"买十", 39}, TypeRow{"对手价", 14},
                                           TypeRow{"", 11}, TypeRow{"卖①", 11}, TypeRow{"买", 11}));

TEST(LevelRules, TheTradeTextHasFourTextsInOrder)
{
    EXPECT_EQ(tradeText("SH600000", 4, 12.34, 0).toStdString(),
              R"({ "stockcode" : "SH600000", "pricetype" : "4", "price" : "12.34", "vol" : "0" })");
    EXPECT_EQ(tradeText("SZ000001", -1, 0, 1234567).toStdString(),
              R"({ "stockcode" : "SZ000001", "pricetype" : "-1", "price" : "0", "vol" : "1234567" })");
    EXPECT_EQ(tradeText("", 11, 10.10, 0).toStdString(),
              R"({ "stockcode" : "", "pricetype" : "11", "price" : "10.1", "vol" : "0" })");
}

TEST(LevelRules, APriceOfNoMoreThanATenthOfTheTickIsADash)
{
    EXPECT_EQ(levelTexts(level(0.1, 5), 1, false).price, "-");
    EXPECT_EQ(levelTexts(level(-0.1, 5), 1, false).price, "-");
    EXPECT_EQ(levelTexts(level(0, 5), 0.01, false).price, "-");
    EXPECT_EQ(levelTexts(level(0.5, 5), 1, false).price, "1");
    EXPECT_EQ(levelTexts(level(10.1, 5), 0.01, false).price, "10.10");
    EXPECT_EQ(levelTexts(level(-3.5, 5), 0.5, false).price, "-3.5");
}

TEST(LevelRules, AVolumeOfNoughtIsADashAndAChangeOfNoughtIsNothing)
{
    const LevelTexts texts = levelTexts(level(10, 0, 0), 0.01, false);
    EXPECT_EQ(texts.volume, "-");
    EXPECT_EQ(texts.change, "");
    EXPECT_EQ(levelTexts(level(10, 12345, 7), 0.01, false).volume, "12345");
    EXPECT_EQ(levelTexts(level(10, 1, 7), 0.01, false).change, "+7");
    EXPECT_EQ(levelTexts(level(10, 1, -7), 0.01, false).change, "-7");
}

TEST(LevelRules, ACustomIndexHasVolumesInTenThousands)
{
    EXPECT_EQ(levelTexts(level(10, 123456), 0.01, true).volume, QStringLiteral("12.35万"));
    EXPECT_EQ(levelTexts(level(10, 1234), 0.01, true).volume, "1234.00");
    EXPECT_EQ(levelTexts(level(10, 0), 0.01, true).volume, "0.00") << "no dash here";
}

TEST(LevelRules, AnInvalidLevelHasNoTexts)
{
    EntrustLevel invalid = level(10, 5, 3);
    invalid.valid = false;
    const LevelTexts texts = levelTexts(invalid, 0.01, false);
    EXPECT_EQ(texts.price + texts.volume + texts.change, "");
}

TEST(LevelRules, WhatLiesOutsideAListIsAnInvalidLevelOrNoLabel)
{
    const QVector<EntrustLevel> levels{level(10, 5)};
    EXPECT_TRUE(levelAt(levels, 0).valid);
    EXPECT_FALSE(levelAt(levels, -1).valid);
    EXPECT_FALSE(levelAt(levels, 1).valid);
    EXPECT_EQ(labelAt({"a", "b"}, 1), "b");
    EXPECT_EQ(labelAt({"a", "b"}, 2), "");
    EXPECT_EQ(labelAt({"a", "b"}, -1), "");
}

TEST(LevelRules, SellRowsEndAtSellOneAndBuyRowsBeginAtBuyOne)
{
    EntrustStatusData quote;
    for (int i = 0; i < 10; ++i) {
        quote.askLevels.append(level(100 + i, 1));
        quote.bidLevels.append(level(200 + i, 1));
    }
    EXPECT_EQ(levelOfRow(quote, 0, 1).price, 109);
    EXPECT_EQ(levelOfRow(quote, 1, 1).price, 200);
    EXPECT_EQ(levelOfRow(quote, 0, 5).price, 105);
    EXPECT_EQ(levelOfRow(quote, 4, 5).price, 109);
    EXPECT_EQ(levelOfRow(quote, 9, 5).price, 204);
    EXPECT_EQ(levelOfRow(quote, 0, 10).price, 100);
    EXPECT_EQ(levelOfRow(quote, 19, 10).price, 209);
    EXPECT_FALSE(levelOfRow(quote, 20, 10).valid);
}

// Columns
// ---------------------------------------------------------------------------------------------------------

TEST(LevelColumns, StandSideBySideWithThePriceInTheMiddleOfItsZone)
{
    LevelColumns columns;
    columns.panelWidth = 300;
    columns.priceZoneWidth = columns.roomForPrice();
    EXPECT_EQ(columns.priceZoneWidth, 300 - 20 - 40 - 55 - 30);
    EXPECT_EQ(columns.priceX(), 45 + 30 + 5 + 3);
    EXPECT_EQ(columns.volumeX(), 83 + 5 - 45 + 155);
    EXPECT_EQ(columns.deltaX(), 198 + 55 + 5);
    EXPECT_EQ(columns.newVolumeLabelCell(40, 20), QRect(5 + 8 + 45 + 65 + 30, 40, 65, 20));
    EXPECT_EQ(columns.newVolumeCell(40, 20), QRect(300 - 65 - 55, 40, 115, 20));
}

TEST(LevelColumns, ThePriceZoneIsNeverNarrowerThanThePrice)
{
    LevelColumns columns;
    for (const int width : {0, 50, 209, 210}) {
        columns.panelWidth = width;
        EXPECT_EQ(columns.roomForPrice(), 65) << width;
    }
    columns.panelWidth = 211;
    EXPECT_EQ(columns.roomForPrice(), 66);
}

TEST(LevelColumns, EdgesOfAZoneAreOutsideIt)
{
    LevelColumns columns;
    columns.panelWidth = 300;
    columns.priceZoneWidth = 155; // price 83 to 148, volume 198 to 253, latest volume 230 to 300
    EXPECT_FALSE(columns.isLabel(3));
    EXPECT_TRUE(columns.isLabel(4));
    EXPECT_TRUE(columns.isLabel(32));
    EXPECT_FALSE(columns.isLabel(33));
    EXPECT_FALSE(columns.isPrice(83));
    EXPECT_TRUE(columns.isPrice(84));
    EXPECT_TRUE(columns.isPrice(147));
    EXPECT_FALSE(columns.isPrice(148));
    EXPECT_FALSE(columns.isVolume(198));
    EXPECT_TRUE(columns.isVolume(199));
    EXPECT_TRUE(columns.isVolume(252));
    EXPECT_FALSE(columns.isVolume(253));
    EXPECT_FALSE(columns.isNewVolume(230));
    EXPECT_TRUE(columns.isNewVolume(231));
    EXPECT_TRUE(columns.isNewVolume(299));
    EXPECT_FALSE(columns.isNewVolume(300));
}

TEST(LevelColumns, TheMiddleRowHasTheLatestVolumeInPlaceOfTheVolume)
{
    LevelColumns columns;
    columns.panelWidth = 300;
    columns.priceZoneWidth = 155;
    EXPECT_EQ(columns.numberCellAt(100, 60, 20, false), QRect(83, 60, 65, 20));
    EXPECT_EQ(columns.numberCellAt(100, 60, 20, true), QRect(83, 60, 65, 20));
    EXPECT_EQ(columns.numberCellAt(200, 60, 20, false), QRect(198, 60, 55, 20));
    EXPECT_EQ(columns.numberCellAt(200, 60, 20, true), QRect());
    EXPECT_EQ(columns.numberCellAt(280, 60, 20, true), QRect(230, 60, 70, 20));
    EXPECT_EQ(columns.numberCellAt(280, 60, 20, false), QRect());
    EXPECT_EQ(columns.numberCellAt(160, 60, 20, false), QRect());
}

TEST(LevelRows, LeaveRoomInTheMiddleAndEndAtTheBottom)
{
    const auto places = [](const std::vector<LevelRow>& rows) {
        std::vector<int> all;
        for (const LevelRow& row : rows)
            all.push_back(row.y);
        return all;
    };
    EXPECT_THAT(places(levelRows(2, 20, 10, 500, 20)), ::testing::ElementsAre(10, 30, 70, 90));
    EXPECT_THAT(places(levelRows(2, 20, -30, 500, 20)), ::testing::ElementsAre(-30, -10, 30, 50));
    EXPECT_THAT(places(levelRows(2, 20, 10, 29, 20)), ::testing::ElementsAre(10));
    EXPECT_THAT(places(levelRows(2, 20, 10, 30, 20)), ::testing::ElementsAre(10, 30));
    EXPECT_THAT(places(levelRows(2, 20, 10, 50, 20)), ::testing::ElementsAre(10, 30, 70))
        << "the room in the middle is not looked at";
    EXPECT_THAT(places(levelRows(5, 20, 10, 0, 20)), ::testing::ElementsAre(10));
    EXPECT_TRUE(levelRows(0, 20, 10, 500, 20).empty());
}

// Sums of the concise head
// ----------------------------------------------------------------------------------------

TEST(SideSums, WithoutLotsTheBarIsHalvedAndTheTextsAreEmpty)
{
    const SideSums sums;
    EXPECT_EQ(sums.split(301), 150);
    EXPECT_EQ(sums.differenceText() + sums.ratioText() + sums.shareText(0), "");
}

TEST(SideSums, AOneSidedLadderTakesTheWholeBar)
{
    EXPECT_EQ((SideSums{0, 500}).split(300), 0);
    EXPECT_EQ((SideSums{500, 0}).split(300), 300);
    EXPECT_EQ((SideSums{500, 0}).ratioText(), "100.00%");
    EXPECT_EQ((SideSums{0, 500}).ratioText(), "-100.00%");
}

TEST(SideSums, DivideAsWholeNumbersAndInSixtyFourBits)
{
    EXPECT_EQ((SideSums{1, 2}).split(100), 33);
    const SideSums large{20000000000, 10000000000};
    EXPECT_EQ(large.split(3000), 2000);
    EXPECT_EQ(large.differenceText(), "10000000000");
    EXPECT_EQ(large.ratioText(), "33.33%");
    EXPECT_EQ(large.shareText(large.bid), "67%");
    EXPECT_EQ(large.shareText(large.ask), "33%");
}

TEST(SideSums, TakeValidLevelsAndNoNegativeVolumes)
{
    qint64 sum = 0;
    SideSums::add(sum, level(10, 5));
    SideSums::add(sum, level(10, -100));
    EntrustLevel invalid = level(10, 1000);
    invalid.valid = false;
    SideSums::add(sum, invalid);
    EXPECT_EQ(sum, 5);
    SideSums::add(sum, level(10, 2147483647));
    SideSums::add(sum, level(10, 2147483647));
    EXPECT_EQ(sum, 5 + 2 * qint64(2147483647));
}
