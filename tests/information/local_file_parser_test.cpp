#include "information/LocalFileParser.h"

#include <QByteArray>
#include <QTextStream>

#include <gmock/gmock.h>

#include <algorithm>
#include <memory>

using namespace Kel;

namespace {

MemoryBudget& plenty()
{
    static MemoryBudget budget(LocalFileParser::kUsualBudget);
    return budget;
}

std::unique_ptr<LocalFileParser> parsed(const std::string& bytes, std::size_t piece = 0)
{
    auto parser = std::make_unique<LocalFileParser>(plenty());
    if (piece == 0)
        piece = std::max<std::size_t>(bytes.size(), 1);
    for (std::size_t at = 0; at < bytes.size(); at += piece)
        parser->feed(bytes.data() + at, std::min(piece, bytes.size() - at));
    parser->finish();
    return parser;
}

/// Headers joined by "|", then a line for each row: its date, ": " and its fields joined by "|".
std::string shown(LocalFileParser& parser)
{
    QString text = parser.headers().join('|');
    for (auto date = parser.rows().cbegin(); date != parser.rows().cend(); ++date) {
        for (const LocalRow& row : date.value())
            text += '\n' + date.key() + ": " + QStringList(row.toList()).join('|');
    }
    return text.toStdString();
}

std::string shown(const std::string& bytes)
{
    return shown(*parsed(bytes));
}

std::string shownRow(const std::string& line)
{
    return shown("h\n" + line + "\n");
}

} // namespace

TEST(LocalFileParser, TheFirstLineIsTheHeaderAndTheDateColumnIsFoundByItsTitle)
{
    EXPECT_EQ(shown("名称,日期,值\na,2023-02-01,1\nb,2023-02-02,2\n"),
              "名称|日期|值\n2023-02-01: a|2023-02-01|1\n2023-02-02: b|2023-02-02|2");
}

TEST(LocalFileParser, WithoutADateTitleTheFirstColumnIsTheDate)
{
    EXPECT_EQ(shown("a,b\nx,y\n"), "a|b\nx: x|y");
}

TEST(LocalFileParser, TheLastDateTitleWins)
{
    EXPECT_EQ(shown("日期,x,日期\n1,2,3\n"), "日期|x|日期\n3: 1|2|3");
}

TEST(LocalFileParser, RowsOfTheSameDateStayInTheirOrder)
{
    EXPECT_EQ(shown("日期,v\nd,1\ne,2\nd,3\n"), "日期|v\nd: d|1\nd: d|3\ne: e|2");
}

TEST(LocalFileParser, ARowThatDoesNotReachTheDateGoesUnderTheEmptyText)
{
    EXPECT_EQ(shown("a,b,日期\nx,y\n"), "a|b|日期\n: x|y");
}

TEST(LocalFileParser, AnEmptyLineIsARowOfOneEmptyText)
{
    EXPECT_EQ(shown("a,b\n\nx,y\n"), "a|b\n: \nx: x|y");
    EXPECT_EQ(parsed("a,b\n\n")->rows().value("").at(0).size(), 1);
}

TEST(LocalFileParser, AnEmptyFileHasNotEvenAHeader)
{
    EXPECT_FALSE(parsed("")->hasHeader());
    EXPECT_FALSE(parsed("\xEF\xBB\xBF")->hasHeader());
    EXPECT_TRUE(parsed("\n")->hasHeader());
    EXPECT_EQ(parsed("\n")->headers(), QStringList{""});
    EXPECT_TRUE(parsed("\n")->rows().isEmpty());
}

TEST(LocalFileParser, FieldsAreSplitAtEveryCommaAndEmptyOnesKept)
{
    EXPECT_EQ(shownRow("a,,b,"), "h\na: a||b|");
    EXPECT_EQ(shownRow(",,"), "h\n: ||");
    EXPECT_EQ(shownRow("a;b\tc"), "h\na;b\tc: a;b\tc");
}

TEST(LocalFileParser, QuotedFieldsKeepTheirCommas)
{
    EXPECT_EQ(shownRow(R"(x,"a,b",c)"), "h\nx: x|a,b|c");
    EXPECT_EQ(shownRow(R"(x,"a,b,c","d")"), "h\nx: x|a,b,c|d");
    EXPECT_EQ(shownRow(R"("a,b",c)"), "h\n: a,b|c") << "the first field ends with part 1: no date";
}

TEST(LocalFileParser, QuotesAreDroppedOnlyAtTheEnds)
{
    EXPECT_EQ(shownRow(R"("word",x)"), "h\nword: word|x");
    EXPECT_EQ(shownRow(R"(x,"")"), "h\nx: x|");
    EXPECT_EQ(shownRow(R"(x,""a"")"), "h\nx: x|\"a\"") << "doubled quotes mean nothing";
    EXPECT_EQ(shownRow(R"(x,a"b"c)"), "h\nx: x|a\"b\"c");
    EXPECT_EQ(shownRow(R"(x,a"b,c")"), "h\nx: x|a\"b|c\"");
    EXPECT_EQ(shownRow(R"(x, "a,b")"), "h\nx: x| \"a|b\"") << "a blank before the quote makes it a letter";
}

TEST(LocalFileParser, ASingleQuoteStartsAndEndsAField)
{
    EXPECT_EQ(shownRow(R"(x,",y)"), "h\nx: x||y");
    EXPECT_EQ(shownRow(R"(x,"a,",y)"), "h\nx: x|a,|y");
}

TEST(LocalFileParser, AQuoteThatIsNotClosedEndsWithItsLine)
{
    EXPECT_EQ(shown("h\nx,\"a,b\ny,c\n"), "h\nx: x|a,b\ny: y|c");
    EXPECT_EQ(shown("h\nx,\"a\"b"), "h\nx: x|a\"b");
}

TEST(LocalFileParser, TheDateIsCountedByPartsOfTheSplit)
{
    // In the header: the quoted title is two parts, so the date is part 2, though it is field 1.
    EXPECT_EQ(shown("\"a,b\",日期,c\n1,2,3\n"), "a,b|日期|c\n3: 1|2|3");
    // In a row: the date is part 1, which the quoted field ends with.
    EXPECT_EQ(shown("a,日期\n\"1,2\",2023\n"), "a|日期\n1,2: 1,2|2023");
    // Both alike find each other.
    EXPECT_EQ(shown("\"a,b\",日期\n\"1,2\",2023\n"), "a,b|日期\n2023: 1,2|2023");
}

TEST(LocalFileParser, AQuotedDateTitleCounts)
{
    EXPECT_EQ(shown("a,\"日期\"\n1,\"2023-02-01\"\n"), "a|日期\n2023-02-01: 1|2023-02-01");
}

TEST(LocalFileParser, LinesEndWithOrWithoutACarriageReturn)
{
    EXPECT_EQ(shown("a,b\r\n1,2\r\n3,4\n"), "a|b\n1: 1|2\n3: 3|4");
    EXPECT_EQ(shown("a,b\r1\n2,3"), "a|b\r1\n2: 2|3") << "alone it ends no line";
    EXPECT_EQ(shown("a\n\r\n"), "a\n: ");
}

TEST(LocalFileParser, ALastLineWithoutAnEndCounts)
{
    EXPECT_EQ(shown("a,b\n1,2"), "a|b\n1: 1|2");
    EXPECT_EQ(shown("a,b"), "a|b");
    EXPECT_EQ(shown("a,b\n"), "a|b") << "nothing follows the last end";
}

TEST(LocalFileParser, ACarriageReturnAtTheVeryEndEndsTheLastLine)
{
    EXPECT_EQ(shown("a,b\n1,2\r"), "a|b\n1: 1|2");
    EXPECT_EQ(shown("a,b\r"), "a|b");
    EXPECT_EQ(shown("a\n1\r\r"), "a\n1\r: 1\r") << "only the last one";
    EXPECT_EQ(shown("a\n\r"), "a\n: ") << "a row of one empty text";
    EXPECT_EQ(parsed("\xEF\xBB\xBF\r")->headers(), QStringList{""});
}

TEST(LocalFileParser, LinesAreThoseOfATextStream)
{
    for (const char* text : {"a\r", "\r", "a\n\r", "a\n1\r\r", "a\n1\r2\r\n3\r", "a\r\n\r\n\r", "a\n\n"}) {
        QByteArray bytes(text);
        QTextStream stream(&bytes);
        stream.setCodec("utf-8");
        QStringList lines;
        while (!stream.atEnd())
            lines.append(stream.readLine());
        const auto parser = parsed(text);
        QStringList read = parser->headers();
        for (const QVector<LocalRow>& rows : parser->rows()) {
            for (const LocalRow& row : rows)
                read.append(row.at(0));
        }
        lines.sort();
        read.sort();
        EXPECT_EQ(read, lines) << QByteArray(text).toPercentEncoding().toStdString();
    }
}

TEST(LocalFileParser, AByteOrderMarkIsNoPartOfTheFirstField)
{
    EXPECT_EQ(shown("\xEF\xBB\xBF日期,b\nx,y\n"), "日期|b\nx: x|y");
    EXPECT_EQ(parsed("a\n\xEF\xBB\xBFx\n")->rows().firstKey(), QString(QChar(0xFEFF)) + "x")
        << "inside the file it is a character";
}

TEST(LocalFileParser, WhatIsNoUtf8BecomesTheReplacementCharacter)
{
    const QChar replacement(QChar::ReplacementCharacter);
    EXPECT_EQ(parsed("a\xC3,b\n")->headers(), (QStringList{QString("a") + replacement, "b"}));
    EXPECT_EQ(parsed(std::string("a\0b\n", 4))->headers(), QStringList{QString("a") + replacement + "b"});
    // The title of a date in another encoding is no date.
    EXPECT_EQ(parsed("x,\xC8\xD5\xC6\xDA\n1,2\n")->rows().firstKey(), "1");
}

TEST(LocalFileParser, PiecesOfAnySizeGiveTheSame)
{
    const std::string bytes = "\xEF\xBB\xBF名称,日期,\"x,y\"\r\n\"a,b\",2023,\"\n\n日,\"open,1\r\nlast";
    const std::string whole = shown(bytes);
    for (std::size_t piece = 1; piece <= bytes.size(); ++piece)
        EXPECT_EQ(shown(*parsed(bytes, piece)), whole) << piece;
}

TEST(LocalFileParser, AMillionColumnsAreTakenAndNoMore)
{
    std::string line(LocalFileParser::kMostFields + 5, ',');
    const auto parser = parsed(line + "\n" + line + "\n");
    EXPECT_EQ(parser->headers().size(), LocalFileParser::kMostFields);
    EXPECT_EQ(parser->rows().value("").at(0).size(), LocalFileParser::kMostFields);
}

TEST(LocalFileParser, AnEndlessLineIsCutAndTheNextOneRead)
{
    LocalFileParser parser(plenty());
    const std::string piece(1 << 20, 'x');
    parser.feed("a\n", 2);
    for (int i = 0; i < 70; ++i)
        parser.feed(piece.data(), piece.size());
    parser.feed("\nb\n", 3);
    parser.finish();
    ASSERT_EQ(parser.rows().size(), 2);
    EXPECT_EQ(parser.rows().firstKey(), "b");
    EXPECT_EQ(parser.rows().lastKey().size(), 64 << 20);
}

TEST(LocalFileParser, TheFirstLineThatDoesNotFitIntoTheBudgetEndsTheTable)
{
    MemoryBudget budget(1000);
    LocalFileParser parser(budget);
    const std::string text = "date,v\na,1\nb,2\nc," + std::string(1000, 'x') + "\nd,3\n";
    parser.feed(text.data(), text.size());
    parser.feed("e,4", 3);
    parser.finish();
    EXPECT_TRUE(parser.isFull());
    EXPECT_EQ(shown(parser), "date|v\na: a|1\nb: b|2");
    EXPECT_GT(parser.cost(), 0u);
    EXPECT_LE(parser.cost(), 1000u);
    EXPECT_FALSE(parsed(text)->isFull());
}

TEST(LocalFileParser, ParsersShareABudgetAndGiveBackWhatIsNotKept)
{
    MemoryBudget budget(1000);
    {
        LocalFileParser first(budget);
        first.feed("a\n1\n", 4);
        first.finish();
        EXPECT_EQ(budget.left(), 1000 - first.cost());
        LocalFileParser second(budget);
        const std::string title(400, 'x');
        second.feed(title.data(), title.size());
        second.finish();
        EXPECT_TRUE(second.isFull()) << "alone it would fit";
        EXPECT_EQ(budget.left(), 1000 - first.cost());
    }
    EXPECT_EQ(budget.left(), 1000u);
    std::size_t kept = 0;
    {
        LocalFileParser parser(budget);
        parser.feed("a\n1\n", 4);
        kept = parser.keepCost();
        EXPECT_GT(kept, 0u);
    }
    EXPECT_EQ(budget.left(), 1000 - kept);
}

TEST(LocalFileParser, AHeaderThatDoesNotFitIsNone)
{
    MemoryBudget budget(100);
    LocalFileParser parser(budget);
    parser.feed("a,b,c,d,e,f\n1,2\n", 16);
    parser.finish();
    EXPECT_TRUE(parser.isFull());
    EXPECT_FALSE(parser.hasHeader());
    EXPECT_TRUE(parser.rows().isEmpty());
}

TEST(LocalFileParser, LinesOfOneByteCostTheirRows)
{
    constexpr std::size_t kBudget = 1 << 20;
    MemoryBudget budget(kBudget);
    LocalFileParser parser(budget);
    const std::string lines(kBudget, '\n');
    parser.feed(lines.data(), lines.size());
    parser.finish();
    EXPECT_TRUE(parser.isFull());
    const auto rows = static_cast<std::size_t>(parser.rows().value("").size());
    EXPECT_GT(rows, 1000u);
    EXPECT_LT(rows * (sizeof(LocalRow) + sizeof(QString) + sizeof(QArrayData)), kBudget);
}
