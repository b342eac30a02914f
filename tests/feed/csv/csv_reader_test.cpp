#include "feed/csv/CsvReader.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <zstd.h>

#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {

using Rows = std::vector<std::vector<std::string>>;

/// Reads a text as a table; each row is its values in the order of the header, or {"!", fault}.
Rows rowsOf(const std::string& text, feed::Error* headerError = nullptr)
{
    feed::CsvReader reader(feed::openMemory(text), "table.csv");
    feed::Error error;
    Rows rows;
    if (!reader.readHeader(error)) {
        if (headerError != nullptr)
            *headerError = error;
        return rows;
    }
    rows.push_back(reader.columns());
    while (reader.nextRow()) {
        if (reader.rowFault() != nullptr) {
            rows.push_back({"!", reader.rowFault(), std::to_string(reader.lineNumber())});
            continue;
        }
        std::vector<std::string> row;
        for (std::size_t i = 0; i < reader.columns().size(); ++i)
            row.push_back(reader.text(static_cast<int>(i)));
        rows.push_back(row);
    }
    return rows;
}

std::string packed(const std::string& text)
{
    std::string result(ZSTD_compressBound(text.size()), '\0');
    result.resize(ZSTD_compress(result.data(), result.size(), text.data(), text.size(), 3));
    return result;
}

TEST(CsvReader, ReadsTheSameTableInEachUsualShape)
{
    const Rows expected = {{"time", "price"}, {"1", "10.5"}, {"2", ""}};
    EXPECT_EQ(rowsOf("time,price\n1,10.5\n2,\n"), expected);
    EXPECT_EQ(rowsOf("time,price\r\n1,10.5\r\n2,\r\n"), expected) << "CRLF";
    EXPECT_EQ(rowsOf("time,price,\n1,10.5,\n2,,\n"), expected) << "comma at the end";
    EXPECT_EQ(rowsOf("time,price\n1,10.5,\n2,,\n"), expected) << "comma at the end of the rows only";
    EXPECT_EQ(rowsOf("time,price,\n1,10.5\n2,\n"), expected) << "comma at the end of the header only";
    EXPECT_EQ(rowsOf(" time , price\n1 ,\t10.5 \n2, \n"), expected) << "blanks";
    EXPECT_EQ(rowsOf("\xEF\xBB\xBFtime,price\n1,10.5\n2,\n"), expected) << "byte order mark";
    EXPECT_EQ(rowsOf("\"time\",\"price\"\n\"1\", \"10.5\" \n2,\"\"\n"), expected) << "quotes";
    EXPECT_EQ(rowsOf("\ntime,price\n\n1,10.5\n  \n2,\n\n"), expected) << "blank lines";
    EXPECT_EQ(rowsOf("time,price\n1,10.5\n2,"), expected) << "no line end at the end";
    EXPECT_EQ(rowsOf(packed("time,price\n1,10.5\n2,\n")), expected) << "compressed";
    EXPECT_EQ(rowsOf(packed("time,price\n1,10.5\n") + packed("2,\n")), expected) << "two frames";
}

TEST(CsvReader, QuotedValuesMayHoldCommasAndQuotes)
{
    const Rows rows = rowsOf("a,b\n\"x,y\",\"say \"\"hi\"\" now\"\n\"\"\"\",2\n");
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_EQ(rows[1], (std::vector<std::string>{"x,y", "say \"hi\" now"}));
    EXPECT_EQ(rows[2], (std::vector<std::string>{"\"", "2"}));
}

TEST(CsvReader, ReadsChineseNamesInBothEncodings)
{
    const Rows utf8 = rowsOf("时间,价格\n1,沪农商行\n");
    const Rows gbk = rowsOf("\xCA\xB1\xBC\xE4,\xBC\xDB\xB8\xF1\n1,\xBB\xA6\xC5\xA9\xC9\xCC\xD0\xD0\n");
    EXPECT_EQ(utf8, gbk);
    ASSERT_EQ(utf8.size(), 2u);
    EXPECT_EQ(utf8[0][0], "时间");
    EXPECT_EQ(utf8[1][1], "沪农商行");
}

TEST(CsvReader, FindsColumnsByNameWithoutRegardToAsciiCase)
{
    feed::CsvReader reader(feed::openMemory("BizIndex,时间\n"), "t");
    feed::Error error;
    ASSERT_TRUE(reader.readHeader(error));
    EXPECT_EQ(reader.column("bizindex"), 0);
    EXPECT_EQ(reader.column("时间"), 1);
    EXPECT_EQ(reader.column("Biz"), -1);
    EXPECT_EQ(reader.field(-1), "");
}

TEST(CsvReader, TellsWhatIsWrongWithALine)
{
    const Rows rows = rowsOf("a,b,c\n1,2\n1,2,3,4\n\"1,2,3\n1,2,3\n4,5");
    const Rows expected = {{"a", "b", "c"},
                           {"!", "too few columns", "2"},
                           {"!", "too many columns", "3"},
                           {"!", "quote not closed", "4"},
                           {"1", "2", "3"},
                           {"!", "cut last line", "6"}};
    EXPECT_EQ(rows, expected);
}

TEST(CsvReader, SkipsALineThatIsTooLongAndReadsOn)
{
    const std::string tooLong(3 * feed::CsvReader::kLongestLine, 'x');
    const Rows rows = rowsOf("a,b\n1,2\n" + tooLong + ",5\n3,4\n");
    const Rows expected = {{"a", "b"}, {"1", "2"}, {"!", "line too long", "3"}, {"3", "4"}};
    EXPECT_EQ(rows, expected);
}

TEST(CsvReader, RowsAreTheSameWhereverAChunkOfTheFileEnds)
{
    std::string text = "number,filler\n";
    for (int i = 0; i < 60000; ++i)
        text += std::to_string(i) + "," + std::string(static_cast<std::size_t>(i % 37), 'f') + "\n";
    feed::CsvReader reader(feed::openMemory(text), "t");
    feed::Error error;
    ASSERT_TRUE(reader.readHeader(error));
    int expected = 0;
    while (reader.nextRow()) {
        ASSERT_EQ(reader.field(0), std::to_string(expected));
        ASSERT_EQ(reader.field(1).size(), static_cast<std::size_t>(expected % 37));
        ++expected;
    }
    EXPECT_EQ(expected, 60000);
    EXPECT_EQ(reader.bytesDone(), reader.bytesTotal());
}

TEST(CsvReader, RefusesWhatHasNoHeader)
{
    feed::Error error;
    EXPECT_TRUE(rowsOf("", &error).empty());
    EXPECT_EQ(error.text(), "table.csv: has no header");
    EXPECT_TRUE(rowsOf("\n\n", &error).empty());
    EXPECT_EQ(error.text(), "table.csv: has no header");
    EXPECT_TRUE(rowsOf(std::string("a,\0b\n", 5), &error).empty());
    EXPECT_EQ(error.text(), "table.csv:1: is no table of text");
    EXPECT_TRUE(rowsOf("a,b,a\n", &error).empty());
    EXPECT_EQ(error.text(), "table.csv:1: has two columns named a");
}

TEST(CsvReader, KeepsWhatCameBeforeTheEndOfACutCompressedFile)
{
    std::string text = "a,b\n";
    for (int i = 0; i < 200000; ++i)
        text += std::to_string(i) + "," + std::to_string(i * 7919LL % 100003) + "\n";
    const std::string whole = packed(text);
    const std::string cut = whole.substr(0, whole.size() / 2);
    feed::CsvReader reader(feed::openMemory(cut), "t");
    feed::Error error;
    ASSERT_TRUE(reader.readHeader(error));
    int rows = 0;
    while (reader.nextRow() && reader.lineTerminated()) {
        ASSERT_EQ(reader.field(0), std::to_string(rows));
        ++rows;
    }
    EXPECT_GT(rows, 1000);
    EXPECT_TRUE(reader.truncated());
    EXPECT_EQ(reader.failure(), "");
}

TEST(CsvReader, ReportsDamagedCompressedData)
{
    std::string damaged = packed("a,b\n1,2\n" + std::string(1000, '\n'));
    damaged.resize(8);
    damaged += "damage damage damage";
    feed::CsvReader reader(feed::openMemory(damaged), "t");
    feed::Error error;
    EXPECT_FALSE(reader.readHeader(error) && reader.nextRow());
    EXPECT_NE(reader.failure().find("damaged zstd data"), std::string::npos);
}

TEST(OpenFile, TellsWhyAFileCannotBeRead)
{
    feed::Error error;
    EXPECT_EQ(feed::openFile("/nowhere/at/all.csv", error), nullptr);
    EXPECT_EQ(error.text(), "/nowhere/at/all.csv: cannot be opened: No such file or directory");
    EXPECT_EQ(feed::openFile("/", error), nullptr);
    EXPECT_EQ(error.text(), "/: is not a file");
}

TEST(OpenFile, RefusesAPipeWhichCouldKeepItWaiting)
{
    const QTemporaryDir temporary;
    const std::string path = temporary.path().toStdString() + "/pipe.csv";
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    // With a writer and something to read, so that a reader would not wait in this test.
    const int writer = open(path.c_str(), O_RDWR);
    ASSERT_EQ(write(writer, "a,b\n1,2\n", 8), 8);
    feed::Error error;
    EXPECT_EQ(feed::openFile(path, error), nullptr);
    EXPECT_EQ(error.text(), path + ": is not a file");
    close(writer);
}

} // namespace
