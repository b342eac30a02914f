#include "platform/utils/market_predicates.h"

#include <gtest/gtest.h>

#include <map>

using namespace utils;

namespace {

struct Instrument
{
    const char* market;
    const char* code;
    const char* what; ///< the questions that are answered with yes, in the order of `answers`
};

std::string answers(const std::string& market, const std::string& code)
{
    std::string text;
    const auto add = [&text](bool yes, const char* name) {
        if (yes)
            text += (text.empty() ? "" : " ") + std::string(name);
    };
    add(isStock(market, code), "stock");
    add(isGrowthBoard(market, code), "growth");
    add(isShanghaiTechBoard(market, code), "technology");
    add(isFund(market, code), "fund");
    add(isBond(market, code), "bond");
    add(isConvertibleBond(market, code), "convertible");
    add(isLoan(market, code, 0), "loan");
    add(isGovernmentLoanRepurchase(market, code), "repurchase");
    add(isIndex(market, code), "index");
    add(isShanghaiIndex(market, code), "shanghai-index");
    add(isShenzhenIndex(market, code), "shenzhen-index");
    add(isFuture(market, code), "future");
    add(isStockOption(market, code), "option");
    return text;
}

class RealCodes : public ::testing::TestWithParam<Instrument>
{
};

} // namespace

TEST_P(RealCodes, AnswerAsTheExchangeListsThem)
{
    EXPECT_EQ(answers(GetParam().market, GetParam().code), GetParam().what);
}

INSTANTIATE_TEST_SUITE_P(
    Shanghai, RealCodes,
    ::testing::Values(
        Instrument{"SH", "600519", "stock"}, Instrument{"SH", "601825", "stock"},
        Instrument{"SH", "603288", "stock"}, Instrument{"SH", "605499", "stock"},
        Instrument{"SH", "688233", "stock technology"}, Instrument{"SH", "689009", "stock technology"},
        Instrument{"SH", "900901", "stock"}, Instrument{"SH", "000001", "index shanghai-index"},
        Instrument{"SH", "000300", "index shanghai-index"},
        Instrument{"SH", "000688", "index shanghai-index"}, Instrument{"SH", "510300", "fund"},
        Instrument{"SH", "501018", "fund"}, Instrument{"SH", "508000", "fund"},
        Instrument{"SH", "511880", "fund"}, Instrument{"SH", "588000", "fund"},
        Instrument{"SH", "563300", "fund"}, Instrument{"SH", "010107", "bond loan"},
        Instrument{"SH", "019547", "bond loan"}, Instrument{"SH", "018003", "bond loan"},
        Instrument{"SH", "122607", "bond loan"}, Instrument{"SH", "136093", "bond loan"},
        Instrument{"SH", "113050", "convertible loan"}, Instrument{"SH", "110059", "convertible loan"},
        Instrument{"SH", "118000", "convertible loan"}, Instrument{"SH", "132026", "convertible loan"},
        Instrument{"SH", "204001", "repurchase"}, Instrument{"SH", "204182", "repurchase"},
        Instrument{"SH", "131810", "bond loan"}));

INSTANTIATE_TEST_SUITE_P(
    Shenzhen, RealCodes,
    ::testing::Values(Instrument{"SZ", "000001", "stock"}, Instrument{"SZ", "000858", "stock"},
                      Instrument{"SZ", "001979", "stock"}, Instrument{"SZ", "002594", "stock"},
                      Instrument{"SZ", "003816", "stock"}, Instrument{"SZ", "300274", "stock growth"},
                      Instrument{"SZ", "301269", "stock growth"}, Instrument{"SZ", "302132", "stock growth"},
                      Instrument{"SZ", "200002", "stock"}, Instrument{"SZ", "399001", "index shenzhen-index"},
                      Instrument{"SZ", "399006", "index shenzhen-index"},
                      Instrument{"SZ", "980017", "index shenzhen-index"}, Instrument{"SZ", "159915", "fund"},
                      Instrument{"SZ", "161725", "fund"}, Instrument{"SZ", "180101", "fund"},
                      Instrument{"SZ", "150019", "fund"}, Instrument{"SZ", "128136", "convertible loan"},
                      Instrument{"SZ", "127045", "convertible loan"},
                      Instrument{"SZ", "123107", "convertible loan"}, Instrument{"SZ", "101801", "bond loan"},
                      Instrument{"SZ", "112233", "bond loan"}, Instrument{"SZ", "148012", "bond loan"},
                      Instrument{"SZ", "131810", "repurchase"}, Instrument{"SZ", "204001", ""},
                      Instrument{"SZ", "600519", ""}));

INSTANTIATE_TEST_SUITE_P(
    OtherMarkets, RealCodes,
    ::testing::Values(Instrument{"BJ", "430047", "stock"}, Instrument{"BJ", "835185", "stock"},
                      Instrument{"BJ", "920002", "stock"}, Instrument{"BJ", "899050", "index"},
                      Instrument{"HK", "00700", "stock"}, Instrument{"HK", "09988", "stock"},
                      Instrument{"HK", "80700", "stock"}, Instrument{"HK", "02800", "fund"},
                      Instrument{"HK", "03033", "fund"}, Instrument{"HK", "HSI", "index"},
                      Instrument{"HK", "HSTECH", "index"}, Instrument{"HK", "000700", ""},
                      Instrument{"SHHK", "00700", "stock"}, Instrument{"SZHK", "02800", "fund"},
                      Instrument{"HKSH", "600519", "stock"}, Instrument{"HKSZ", "300274", "stock growth"},
                      Instrument{"SHFE", "rb2405", "future"}, Instrument{"CZCE", "SR405", "future"},
                      Instrument{"CFFEX", "IF2406", "future"}, Instrument{"DCE", "m2409", "future"},
                      Instrument{"INE", "sc2407", "future"}, Instrument{"GFEX", "si2408", "future"},
                      Instrument{"DCE", "m2409-C-3000", ""}, Instrument{"SHFE", "cu2405C70000", ""},
                      Instrument{"SHOP", "10006237", "option"}, Instrument{"SZOP", "90002789", "option"},
                      Instrument{"SZOP", "10006237", ""}));

INSTANTIATE_TEST_SUITE_P(BadInput, RealCodes,
                         ::testing::Values(Instrument{"", "", ""}, Instrument{"SH", "", ""},
                                           Instrument{"SH", "60051", ""}, Instrument{"SH", "6005190", ""},
                                           Instrument{"SH", "60051A", ""}, Instrument{"SH", "000000", ""},
                                           Instrument{"sh", "600519", ""}, Instrument{"SHX", "600519", ""},
                                           Instrument{"SHFE", "2405", ""}, Instrument{"SHFE", "rb", ""},
                                           Instrument{"SHFE", "rbxy2405", ""}));

TEST(MarketPredicates, AMarketWithAZeroByteInsideIsNotTheMarketBeforeIt)
{
    EXPECT_FALSE(isStock(std::string("SH\0X", 4), "600519"));
    EXPECT_FALSE(isStock("SH", std::string("6005\0009", 6)));
}

TEST(MarketPredicates, EachMarketQuestionKnowsItsMarketsAlone)
{
    const std::map<std::string, std::string> expected = {
        {"SH", "shanghai stock"},
        {"SZ", "shenzhen stock"},
        {"BJ", "beijing stock"},
        {"HK", "hongkong"},
        {"SHHK", "shanghai-connect"},
        {"HKSH", "shanghai-connect"},
        {"SZHK", "shenzhen-connect"},
        {"HKSZ", "shenzhen-connect"},
        {"SHFE", "future"},
        {"DCE", "future"},
        {"CZCE", "future"},
        {"CFFEX", "future"},
        {"INE", "future"},
        {"GFEX", "future"},
        {"SHOP", "option"},
        {"SZOP", "option"},
        {"YSWP", ""},
        {"", ""},
        {"SH ", ""},
        {"sz", ""},
    };
    for (const auto& [market, what] : expected) {
        std::string text;
        const auto add = [&text](bool yes, const char* name) {
            if (yes)
                text += (text.empty() ? "" : " ") + std::string(name);
        };
        add(isShanghaiMarket(market), "shanghai");
        add(isShenzhenMarket(market), "shenzhen");
        add(isBeijingMarket(market), "beijing");
        add(isHKMarket(market), "hongkong");
        add(isHGTMarket(market), "shanghai-connect");
        add(isSGTMarket(market), "shenzhen-connect");
        add(isStockMarket(market), "stock");
        add(isFutureMarket(market), "future");
        add(isStockOptionMarket(market), "option");
        EXPECT_EQ(text, what) << market;
    }
}

TEST(MarketPredicates, AShenzhenRepurchaseIsToldByItsCodeAlone)
{
    EXPECT_TRUE(isShenzhenGovernmentLoanRepurchase("131810"));
    EXPECT_TRUE(isShenzhenGovernmentLoanRepurchase("131000"));
    EXPECT_TRUE(isShenzhenGovernmentLoanRepurchase("131999"));
    EXPECT_FALSE(isShenzhenGovernmentLoanRepurchase("130999"));
    EXPECT_FALSE(isShenzhenGovernmentLoanRepurchase("132000"));
    EXPECT_FALSE(isShenzhenGovernmentLoanRepurchase("204001"));
    EXPECT_FALSE(isShenzhenGovernmentLoanRepurchase("1318100"));
    EXPECT_FALSE(isShenzhenGovernmentLoanRepurchase(""));
}

TEST(MarketPredicates, ABondIsALoanWhateverTheFlagsAre)
{
    for (const int flags : {0, 1, -1, 0x7fffffff}) {
        EXPECT_TRUE(isLoan("SH", "019547", flags));
        EXPECT_TRUE(isLoan("SZ", "128136", flags));
        EXPECT_FALSE(isLoan("SH", "600519", flags));
        EXPECT_FALSE(isLoan("SH", "204001", flags));
    }
}

TEST(MarketPredicates, TheInstrumentKindOfAReferenceRecordFollowsTheRanges)
{
    using nelservice::EInstrumentKind;
    EXPECT_EQ(instrumentKind("SH", "600519"), EInstrumentKind::Stock);
    EXPECT_EQ(instrumentKind("SH", "510300"), EInstrumentKind::Fund);
    EXPECT_EQ(instrumentKind("SH", "019547"), EInstrumentKind::Bond);
    EXPECT_EQ(instrumentKind("SZ", "128136"), EInstrumentKind::ConvertibleBond);
    EXPECT_EQ(instrumentKind("SZ", "131810"), EInstrumentKind::Repurchase);
    EXPECT_EQ(instrumentKind("SH", "000001"), EInstrumentKind::Index);
    EXPECT_EQ(instrumentKind("CFFEX", "IF2406"), EInstrumentKind::Future);
    EXPECT_EQ(instrumentKind("SHOP", "10006237"), EInstrumentKind::Option);
    EXPECT_EQ(instrumentKind("SH", "999999"), EInstrumentKind::Unknown);
    EXPECT_EQ(instrumentKind("", ""), EInstrumentKind::Unknown);
}
