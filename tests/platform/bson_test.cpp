#include "records/bson/BSONObj.h"
#include "records/bson/BSONObjBuilder.h"
#include "records/bson/jsonString.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using bson::BSONObj;
using bson::BSONObjBuilder;
using bson::jsonString;

TEST(Bson, TheEmptyDocumentIsWrittenAsBraces)
{
    EXPECT_TRUE(BSONObj().isEmpty());
    EXPECT_EQ(jsonString(BSONObj()), "{ }");
    EXPECT_EQ(jsonString(BSONObjBuilder().obj()), "{ }");
}

TEST(Bson, NamesKeepTheOrderOfTheirAppending)
{
    BSONObjBuilder builder;
    builder.append("a", 1).append("b", "x").append("c", true);
    EXPECT_EQ(jsonString(builder.obj()), R"({ "a" : 1, "b" : "x", "c" : true })");
    BSONObjBuilder reverse;
    reverse.append("z", 1).append("a", 2);
    EXPECT_EQ(jsonString(reverse.obj()), R"({ "z" : 1, "a" : 2 })");
}

TEST(Bson, EveryTypeComesBack)
{
    BSONObjBuilder builder;
    builder.append("double", 10.25);
    builder.append("int", -7);
    builder.append("long", 1234567890123LL);
    builder.append("bool", false);
    builder.append("chars", "abc");
    builder.append("string", std::string("def"));
    builder.append("qstring", QStringLiteral("买入"));
    const BSONObj object = builder.obj();
    EXPECT_EQ(object.numberField("double"), 10.25);
    EXPECT_EQ(object.intField("int"), -7);
    EXPECT_EQ(object.longField("long"), 1234567890123LL);
    EXPECT_EQ(object.boolField("bool"), false);
    EXPECT_EQ(object.stringField("chars"), "abc");
    EXPECT_EQ(object.stringField("string"), "def");
    EXPECT_EQ(object.stringField("qstring"), "买入");
    EXPECT_FALSE(object.isEmpty());
}

TEST(Bson, Utf8IsWrittenRawAndQuotesAreEscaped)
{
    BSONObjBuilder builder;
    builder.append("名", "贵州茅台").append("q", "a\"b\\c\nd");
    EXPECT_EQ(jsonString(builder.obj()), "{ \"名\" : \"贵州茅台\", \"q\" : \"a\\\"b\\\\c\\nd\" }");
}

TEST(Bson, ALookUpOfAnotherTypeOrNameGivesNothing)
{
    BSONObjBuilder builder;
    builder.append("text", "1").append("int", 1).append("bool", true).append("double", 1.5);
    const BSONObj object = builder.obj();
    EXPECT_FALSE(object.intField("text"));
    EXPECT_FALSE(object.numberField("text"));
    EXPECT_FALSE(object.boolField("int"));
    EXPECT_FALSE(object.intField("bool"));
    EXPECT_FALSE(object.intField("double"));
    EXPECT_FALSE(object.stringField("int"));
    EXPECT_FALSE(object.stringField("missing"));
    EXPECT_FALSE(object.hasField("missing"));
    EXPECT_FALSE(object.hasField("in"));
    EXPECT_FALSE(object.hasField(""));
    EXPECT_TRUE(object.hasField("bool"));
}

TEST(Bson, AWholeNumberIsReadInTheWidthThatHoldsIt)
{
    BSONObjBuilder builder;
    builder.append("small", 5LL).append("int", 6).append("large", std::numeric_limits<long long>::min());
    const BSONObj object = builder.obj();
    EXPECT_EQ(object.intField("small"), 5);
    EXPECT_EQ(object.longField("int"), 6);
    EXPECT_EQ(object.numberField("int"), 6.0);
    EXPECT_FALSE(object.intField("large"));
    EXPECT_EQ(object.longField("large"), std::numeric_limits<long long>::min());
}

TEST(Bson, TheFirstOfTwoEqualNamesCounts)
{
    BSONObjBuilder builder;
    builder.append("a", 1).append("a", 2);
    EXPECT_EQ(builder.obj().intField("a"), 1);
}

TEST(Bson, ACopyStandsByItselfWhenTheBuilderGoesOn)
{
    BSONObjBuilder builder;
    builder.append("a", 1);
    const BSONObj first = builder.obj();
    const BSONObj copy = first;
    builder.append("b", 2);
    EXPECT_EQ(jsonString(copy), R"({ "a" : 1 })");
    EXPECT_EQ(jsonString(builder.obj()), R"({ "a" : 1, "b" : 2 })");
}

TEST(Bson, InvalidUtf8IsReplacedSoThatTheTextStaysValid)
{
    BSONObjBuilder builder;
    builder.append("a\xFF", std::string("x\xC4\xEAy\xE4\xB8"));
    const BSONObj object = builder.obj();
    const std::string text = jsonString(object);
    EXPECT_EQ(QString::fromStdString(text).toStdString(), text);
    EXPECT_NE(text.find("\xEF\xBF\xBD"), std::string::npos) << text;
    EXPECT_TRUE(object.hasField("a\xEF\xBF\xBD")) << text;
}

TEST(Bson, AZeroByteStaysInAValueAndEndsAName)
{
    BSONObjBuilder builder;
    builder.append(std::string("ab\0cd", 5), std::string("x\0y", 3));
    const BSONObj object = builder.obj();
    EXPECT_TRUE(object.hasField("ab"));
    EXPECT_EQ(object.stringField("ab"), std::string("x\0y", 3));
    EXPECT_EQ(jsonString(object), "{ \"ab\" : \"x\\u0000y\" }");
}

TEST(Bson, ANullPointerIsAnEmptyText)
{
    BSONObjBuilder builder;
    builder.append("a", static_cast<const char*>(nullptr));
    EXPECT_EQ(builder.obj().stringField("a"), "");
}

TEST(Bson, NumbersThatAreNotFiniteDoNotCrashTheWriter)
{
    BSONObjBuilder builder;
    builder.append("nan", std::nan("")).append("inf", std::numeric_limits<double>::infinity());
    const BSONObj object = builder.obj();
    EXPECT_TRUE(std::isnan(object.numberField("nan").value_or(0)));
    EXPECT_NE(jsonString(object), "");
}

TEST(Bson, JsonIsReadBackAsItWasWritten)
{
    const std::string text = R"({ "a" : 1, "b" : "x 买", "c" : true, "d" : 0.5, "e" : 1234567890123 })";
    BSONObj object;
    std::string error = "untouched";
    ASSERT_TRUE(BSONObj::fromJson("\n " + text + " \t\n", object, &error)) << error;
    EXPECT_EQ(error, "untouched");
    EXPECT_EQ(object.intField("a"), 1);
    EXPECT_EQ(object.stringField("b"), "x 买");
    EXPECT_EQ(object.boolField("c"), true);
    EXPECT_EQ(object.numberField("d"), 0.5);
    EXPECT_EQ(object.longField("e"), 1234567890123);
    EXPECT_EQ(jsonString(object), text);
}

TEST(Bson, AnyOtherTextIsRefusedWithAReasonAndChangesNothing)
{
    BSONObjBuilder builder;
    builder.append("before", 1);
    for (const std::string text : {"",
                                   " ",
                                   "null",
                                   "1",
                                   "[1, 2]",
                                   "[]",
                                   "\"a\"",
                                   "{",
                                   "{ \"a\" : ",
                                   "{ \"a\" : 1",
                                   "{ a : 1 }",
                                   "{ \"a\" : 1 } x",
                                   "{ \"a\" : 1 } { \"b\" : 2 }",
                                   "{ \"a\" : 1 }}",
                                   "{ \"a\" : 1 },",
                                   "{ \"a\" : 1, }",
                                   "{} {}",
                                   "{}[]",
                                   "{ \"a\" : \"\xFF\" }",
                                   "}",
                                   "{ \"a\" 1 }",
                                   "{}\"",
                                   "{} 1",
                                   "{}null",
                                   "{} {"}) {
        BSONObj object = builder.obj();
        std::string error;
        EXPECT_FALSE(BSONObj::fromJson(text, object, &error)) << text;
        EXPECT_NE(error, "") << text;
        EXPECT_EQ(object.intField("before"), 1) << text;
        EXPECT_FALSE(BSONObj::fromJson(text, object, nullptr)) << text;
    }
}

TEST(Bson, DeeplyNestedJsonIsRefusedOrReadButNeverCrashes)
{
    std::string text;
    for (int i = 0; i < 100000; ++i)
        text += "{\"a\":";
    BSONObj object;
    std::string error;
    EXPECT_FALSE(BSONObj::fromJson(text, object, &error));
    EXPECT_NE(error, "");
}

TEST(Bson, AZeroByteInJsonIsRefused)
{
    BSONObj object;
    std::string error;
    EXPECT_FALSE(BSONObj::fromJson(std::string("{}\0{}", 5), object, &error));
    EXPECT_FALSE(BSONObj::fromJson(std::string("{}\0", 3), object, &error));
}
