#include "feed/csv/ImportReport.h"

#include <gtest/gtest.h>

namespace {

TEST(ErrorText, NamesFileLineAndReasonAsFarAsKnown)
{
    EXPECT_EQ((feed::Error{"orders.csv", 12, "bad price"}.text()), "orders.csv:12: bad price");
    EXPECT_EQ((feed::Error{"orders.csv", 0, "cannot be opened"}.text()), "orders.csv: cannot be opened");
    EXPECT_EQ((feed::Error{"", 0, "cancelled"}.text()), "cancelled");
    EXPECT_EQ(feed::Error().text(), "");
    EXPECT_FALSE(feed::Error());
    EXPECT_TRUE((feed::Error{"", 0, "x"}));
}

TEST(RejectList, CountsWithoutLimitAndListsUpToItsLimit)
{
    feed::RejectList rejects;
    const int lines = static_cast<int>(feed::RejectList::kMostListed) + 50;
    for (int line = 1; line <= lines; ++line)
        rejects.add("a.csv", line, line % 2 == 0 ? "even" : "odd");
    EXPECT_EQ(rejects.count(), lines);
    EXPECT_EQ(rejects.countByReason().at("even"), lines / 2);
    EXPECT_EQ(rejects.countByReason().at("odd"), lines / 2);
    ASSERT_EQ(rejects.listed().size(), feed::RejectList::kMostListed);
    EXPECT_EQ(rejects.listed().front().line, 1);
    EXPECT_EQ(rejects.listed().back().line, static_cast<std::int64_t>(feed::RejectList::kMostListed));
}

TEST(ImportReport, FileFailsAboveTheShareAndNotAtIt)
{
    feed::ImportReport report;
    report.files.resize(2);
    report.files[0].file = "good.csv";
    report.files[0].lines = 1000;
    report.files[1].file = "orders.csv";
    report.files[1].lines = 200;
    report.reject(report.files[1], 7, "bad price");
    report.reject(report.files[1], 9, "bad price");
    EXPECT_FALSE(report.tooManyRejects(0.01));
    report.reject(report.files[1], 11, "bad side");
    const feed::Error error = report.tooManyRejects(0.01);
    EXPECT_EQ(error.text(), "orders.csv: 3 of 200 lines rejected, the first in line 7: bad price");
    EXPECT_FALSE(report.tooManyRejects(1));
    EXPECT_EQ(report.totalLines(), 1200);
}

TEST(ImportReport, CutLastLineIsListedButDoesNotCountAgainstTheFile)
{
    feed::ImportReport report;
    report.files.resize(1);
    report.files[0].lines = 3;
    report.reject(report.files[0], 4, feed::kCutLastLine);
    EXPECT_TRUE(report.truncated());
    EXPECT_EQ(report.rejects.count(), 1);
    EXPECT_FALSE(report.tooManyRejects(0.01));
}

} // namespace
