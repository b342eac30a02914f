#include "feed/archive/archived_notices.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace feed::test {
namespace {

class ArchivedNotices : public ::testing::Test
{
protected:
    void write(const std::string& text)
    {
        std::filesystem::create_directories(folder() + "/SH600999");
        std::ofstream(folder() + "/SH600999/notices.csv", std::ios::binary) << text;
    }

    std::string folder() const { return m_directory.path().toStdString(); }
    bool read() { return readArchivedNotices(folder(), "SH600999", m_notices, m_report, m_error); }

    QTemporaryDir m_directory;
    quoter::NoticeList m_notices;
    ImportReport m_report;
    Error m_error;
};

TEST_F(ArchivedNotices, AMissingTableGivesNone)
{
    EXPECT_TRUE(read());
    EXPECT_TRUE(m_notices.isEmpty());
    EXPECT_TRUE(m_report.files.empty());
}

TEST_F(ArchivedNotices, ComeInTheOrderOfTheTable)
{
    write("time,title,link\n1675215000000,\"年报, 摘要\",https://a\n1675214000000,公告,\n");
    ASSERT_TRUE(read()) << m_error.text();
    ASSERT_EQ(m_notices.size(), 2);
    EXPECT_EQ(m_notices[0]->m_time, 1675215000000);
    EXPECT_EQ(m_notices[0]->title, "年报, 摘要");
    EXPECT_EQ(m_notices[0]->link, "https://a");
    EXPECT_EQ(m_notices[1]->link, "");
}

TEST_F(ArchivedNotices, TheLinkMayBeMissingAndOtherColumnsStandBetween)
{
    write("title,source,time\nx,y,5\n");
    ASSERT_TRUE(read());
    ASSERT_EQ(m_notices.size(), 1);
    EXPECT_EQ(m_notices[0]->m_time, 5);
    EXPECT_EQ(m_notices[0]->link, "");
}

TEST_F(ArchivedNotices, LinesThatCannotBeReadAreCounted)
{
    write("time,title\nsoon,x\n5,\n6,good\n");
    ASSERT_TRUE(read());
    EXPECT_EQ(m_notices.size(), 1);
    EXPECT_EQ(m_report.rejects.count(), 2);
}

TEST_F(ArchivedNotices, ATableWithoutItsColumnsIsRefused)
{
    write("time,text\n5,x\n");
    EXPECT_FALSE(read());
    EXPECT_EQ(m_error.reason, "no column title");
    write("when,title\n5,x\n");
    EXPECT_FALSE(read());
    EXPECT_EQ(m_error.reason, "no column time");
}

} // namespace
} // namespace feed::test
