#include "feed/archive/DayArchiveReader.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <utility>

namespace {

using feed::DayArchiveReader;
using feed::InstrumentDay;

class DayArchive : public ::testing::Test
{
protected:
    void SetUp() override
    {
        m_folder = m_temporary.path().toStdString();
        std::filesystem::create_directories(m_folder + "/SZ000001");
        put("instruments.csv", "market,code,name,kind,price_tick,previous_close,trading_day\n"
                               "SZ,000001,Bank,stock,0.01,14.5,20230201\n");
    }

    void put(const std::string& name, const std::string& text) const
    {
        std::ofstream(m_folder + "/" + name, std::ios::binary) << text;
    }

    bool load(double mostRejected = 0.01)
    {
        DayArchiveReader::Options options;
        options.mostRejected = mostRejected;
        DayArchiveReader reader(m_folder, options);
        const bool loaded = reader.load("SZ000001", m_day, m_error);
        m_report = reader.report();
        return loaded;
    }

    QTemporaryDir m_temporary;
    std::string m_folder;
    InstrumentDay m_day;
    feed::Error m_error;
    feed::ImportReport m_report;
};

TEST_F(DayArchive, IsWrittenByHandWithTheFewestColumns)
{
    put("SZ000001/orders.csv", "seq,time,side,price,volume,number\n1,1675213200000,1,14.65,100,7\n");
    put("SZ000001/deals.csv", "time,seq,buy_no,sell_no,price,volume,kind\n1675213200010,2,7,8,14.65,100,0\n");
    put("SZ000001/snapshots.csv",
        "time,ask_price_1,ask_volume_1,bid_price_1,bid_volume_1\n5,14.66,300,14.65,\n");
    put("SZ000001/queues.csv", "time,bid_price,bid_volumes,ask_price,ask_volumes\n5,14.65,100 200  300,,\n");
    ASSERT_TRUE(load()) << m_error.text();
    ASSERT_EQ(m_day.orders.size(), 1u);
    EXPECT_EQ(m_day.orders[0].number, 7);
    EXPECT_EQ(m_day.orders[0].kind, 1);
    ASSERT_EQ(m_day.deals.size(), 1u);
    EXPECT_EQ(m_day.deals[0].sellNo, 8);
    ASSERT_EQ(m_day.snapshots.size(), 1u);
    EXPECT_EQ(m_day.snapshots[0].askVolume[0], 300);
    EXPECT_EQ(m_day.snapshots[0].bidVolume[0], 0);
    ASSERT_EQ(m_day.queues.size(), 1u);
    EXPECT_EQ(m_day.queues[0].bidVolumes, (std::vector<std::int64_t>{100, 200, 300}));
    EXPECT_EQ(m_day.queues[0].bidCount, 3);
    EXPECT_EQ(m_day.detail.previousClose, 14.5);
    EXPECT_EQ(m_day.tradingDay, 20230201);
}

TEST_F(DayArchive, MayLackAnyTable)
{
    ASSERT_TRUE(load()) << m_error.text();
    EXPECT_TRUE(m_day.orders.empty() && m_day.deals.empty() && m_day.snapshots.empty() &&
                m_day.queues.empty());
}

TEST_F(DayArchive, NamesTheMissingColumn)
{
    put("SZ000001/orders.csv", "time,seq,number,price,side\n1,1,1,1,1\n");
    EXPECT_FALSE(load());
    EXPECT_EQ(m_error.text(), m_folder + "/SZ000001/orders.csv:1: has no column volume");
}

TEST_F(DayArchive, KeepsTheRowsBesideBadOnes)
{
    put("SZ000001/orders.csv", "time,seq,number,price,volume,side,kind\n"
                               "1,1,1,14.6,100,1,1\n"
                               "1,2,2,nan,100,1,1\n"
                               "1,3,3,14.6,,1,1\n"
                               "1,1,4,14.6,100,1,1\n"
                               "x,4,5,14.6,100,1,1\n"
                               "1,5,6,14.6,100,1,1\n");
    EXPECT_FALSE(load());
    EXPECT_EQ(m_error.text(),
              m_folder + "/SZ000001/orders.csv: 4 of 6 lines rejected, the first in line 3: bad price");
    ASSERT_TRUE(load(1));
    ASSERT_EQ(m_day.orders.size(), 2u);
    EXPECT_EQ(m_day.orders[1].number, 6);
    EXPECT_EQ(m_report.rejects.countByReason(),
              (std::map<std::string, std::int64_t>{
                  {"bad price", 1}, {"bad volume", 1}, {"out of order", 1}, {"bad time", 1}}));
    EXPECT_EQ(m_report.rejects.listed()[2].line, 5);
}

TEST_F(DayArchive, CutTableKeepsWhatCameBefore)
{
    const std::string whole = "time,bid_price,ask_price,bid_volumes,ask_volumes,end\n1,2,3,100 200,300,end\n"
                              "2,2,3,100 200,300 500,end\n";
    for (std::size_t size = whole.find("\n2,") + 1; size < whole.size() - 1; ++size) {
        put("SZ000001/queues.csv", whole.substr(0, size));
        ASSERT_TRUE(load()) << m_error.text();
        ASSERT_EQ(m_day.queues.size(), 1u) << whole.substr(0, size);
        EXPECT_EQ(m_report.truncated(), whole[size - 1] != '\n');
    }
    put("SZ000001/queues.csv", whole.substr(0, whole.size() - 1));
    ASSERT_TRUE(load());
    EXPECT_EQ(m_day.queues.size(), 2u) << "a file without its last line end is whole";
}

TEST_F(DayArchive, ATableCutAnywhereInItsLastLineKeepsTheLinesBefore)
{
    const std::pair<const char*, std::string> tables[] = {
        {"orders", "time,seq,number,price,volume,side,kind\n1,1,1,14.6,100,1,1\n1,2,2,0,100,2,2\n"},
        {"deals", "time,seq,buy_no,sell_no,price,volume,kind,active_side\n"
                  "1,3,1,2,14.6,50,0,2\n1,4,1,2,14.6,50,0,2\n"},
        {"snapshots", "time,ask_price_1,ask_volume_1,bid_price_1,bid_volume_1,phase\n"
                      "1,14.6,100,14.5,100,continuous\n2,14.6,100,14.5,100,continuous\n"},
    };
    for (const auto& [name, whole] : tables) {
        const std::string path = std::string("SZ000001/") + name + ".csv";
        const std::size_t lastLine = whole.rfind('\n', whole.size() - 2) + 1;
        for (std::size_t size = lastLine + 1; size < whole.size() - 1; ++size) {
            put(path, whole.substr(0, size));
            ASSERT_TRUE(load()) << m_error.text();
            const std::size_t rows = m_day.orders.size() + m_day.deals.size() + m_day.snapshots.size();
            ASSERT_EQ(rows, 1u) << whole.substr(lastLine, size - lastLine);
            EXPECT_TRUE(m_report.truncated());
        }
        std::filesystem::remove(m_folder + "/" + path);
    }
}

TEST_F(DayArchive, RefusesFolderNamesThatLeadElsewhere)
{
    put("instruments.csv", "market,code,trading_day\n..,/etc,20230201\nSZ,000001,20230201\n");
    DayArchiveReader::Options options;
    options.mostRejected = 1;
    const DayArchiveReader reader(m_folder, options);
    ASSERT_EQ(reader.instruments().size(), 1u);
    EXPECT_EQ(reader.instruments()[0].key(), "SZ000001");
    EXPECT_TRUE(DayArchiveReader(m_folder).error());
}

TEST_F(DayArchive, SaysWhenTheFolderIsNoArchiveOrLacksTheInstrument)
{
    const DayArchiveReader none(m_folder + "/SZ000001");
    EXPECT_EQ(none.error().text(), m_folder + "/SZ000001: is no day archive: has no instruments.csv");
    DayArchiveReader reader(m_folder);
    EXPECT_FALSE(reader.load("SH600519", m_day, m_error));
    EXPECT_EQ(m_error.text(), m_folder + ": has no instrument SH600519");
}

TEST_F(DayArchive, TellsItsProgressAndCanBeCancelled)
{
    std::string text = "time,seq,number,price,volume,side,kind\n";
    for (int i = 1; i <= 20000; ++i)
        text += "1," + std::to_string(i) + ",1,14.6,100,1,1\n";
    put("SZ000001/orders.csv", text);
    std::int64_t last = 0;
    DayArchiveReader::Options options;
    options.progress = [&](std::int64_t done, std::int64_t total) {
        EXPECT_GE(done, last);
        EXPECT_LE(done, total);
        last = done;
        return true;
    };
    DayArchiveReader reader(m_folder, options);
    ASSERT_TRUE(reader.load("SZ000001", m_day, m_error));
    EXPECT_EQ(last, static_cast<std::int64_t>(text.size()));
    options.progress = [](std::int64_t, std::int64_t) { return false; };
    DayArchiveReader cancelled(m_folder, options);
    EXPECT_FALSE(cancelled.load("SZ000001", m_day, m_error));
    EXPECT_EQ(m_error.reason, "cancelled");
    EXPECT_FALSE(m_day.orders.empty());
}

} // namespace
