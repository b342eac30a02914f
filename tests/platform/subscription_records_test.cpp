#include "records/TRegionInfo.h"
#include "records/TSMetaInfo.h"
#include "records/bson/BSONObj.h"
#include "records/bson/BSONObjBuilder.h"
#include "records/bson/jsonString.h"

#include <gtest/gtest.h>

namespace {

std::string written(const quoter::BsonInterface& record)
{
    bson::BSONObjBuilder builder;
    record.appendElements(builder);
    return bson::jsonString(builder.obj());
}

bson::BSONObj fromJson(const std::string& text)
{
    bson::BSONObj object;
    std::string error;
    EXPECT_TRUE(bson::BSONObj::fromJson(text, object, &error)) << error;
    return object;
}

} // namespace

TEST(SubscriptionRecords, AMetaInfoWritesItsElementsInOrder)
{
    quoter::TSMetaInfo meta;
    meta.market = "SH";
    meta.instrument = "600519";
    meta.metaId = quoter::eMetaLevel2Queue;
    EXPECT_EQ(written(meta), R"({ "market" : "SH", "instrument" : "600519", "metaId" : 1804, "period" : 0, )"
                             R"("extra1" : "", "extra2" : "" })");
}

TEST(SubscriptionRecords, ARegionWritesItsElementsInOrder)
{
    quoter::TRegionInfo region;
    region.start.milliseconds = 1675234740000;
    region.end.milliseconds = 1675234860000;
    region.limit = 100;
    EXPECT_EQ(written(region), R"({ "start" : 1675234740000, "startFraction" : 0, "end" : 1675234860000, )"
                               R"("endFraction" : 0, "limit" : 100 })");
}

TEST(SubscriptionRecords, AMetaInfoReadsWhatItWrote)
{
    quoter::TSMetaInfo meta;
    meta.market = "SZ";
    meta.instrument = "000001";
    meta.metaId = -5;
    meta.period = 60;
    meta.extra1 = "一";
    meta.extra2 = "b";
    bson::BSONObjBuilder builder;
    meta.appendElements(builder);
    quoter::TSMetaInfo read;
    read.bsonValueFromObj(builder.obj());
    EXPECT_EQ(written(read), written(meta));
    EXPECT_EQ(read.extra1, "一");
    EXPECT_EQ(read.metaId, -5);
}

TEST(SubscriptionRecords, ARegionReadsWhatItWrote)
{
    quoter::TRegionInfo region;
    region.start = {-1, 2};
    region.end = {9007199254740993, 3};
    region.limit = 4;
    bson::BSONObjBuilder builder;
    region.appendElements(builder);
    quoter::TRegionInfo read;
    read.bsonValueFromObj(builder.obj());
    EXPECT_EQ(read.start.milliseconds, -1);
    EXPECT_EQ(read.start.fraction, 2);
    EXPECT_EQ(read.end.milliseconds, 9007199254740993);
    EXPECT_EQ(read.end.fraction, 3);
    EXPECT_EQ(read.limit, 4);
}

TEST(SubscriptionRecords, AMissingElementOrOneOfAnotherTypeLeavesItsField)
{
    quoter::TSMetaInfo meta;
    meta.market = "SH";
    meta.instrument = "600519";
    meta.metaId = 1804;
    meta.bsonValueFromObj(fromJson(R"({ "market" : 5, "metaId" : "1010", "period" : 7 })"));
    EXPECT_EQ(meta.market, "SH");
    EXPECT_EQ(meta.instrument, "600519");
    EXPECT_EQ(meta.metaId, 1804);
    EXPECT_EQ(meta.period, 7);

    quoter::TRegionInfo region;
    region.start.milliseconds = 11;
    region.limit = 12;
    region.bsonValueFromObj(fromJson(R"({ "start" : 1.5, "limit" : 99999999999, "end" : 13 })"));
    EXPECT_EQ(region.start.milliseconds, 11);
    EXPECT_EQ(region.limit, 12) << "too large for the field";
    EXPECT_EQ(region.end.milliseconds, 13);
}
