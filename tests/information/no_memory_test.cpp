// Where no memory is left, local information is not read, and nothing else happens.

#include "FailingMemory.h"
#include "InformationFixture.h"
#include "information/ReaderThreads.h"
#include "platform/LogCapture.h"

using namespace Kel;

namespace {

class WithoutMemory : public test::InformationTest
{
};

} // namespace

TEST_F(WithoutMemory, AJobIsNotDoneAndNothingIsThrown)
{
    bool ran = false;
    const auto job = [&ran] { ran = true; };
    ReaderThreads& threads = ReaderThreads::instance(); // its first use takes memory
    {
        test::FailingMemory failing;
        EXPECT_NO_THROW(threads.start(job));
    }
    threads.wait(); // which counts only jobs that run
    EXPECT_FALSE(ran);
    threads.start(job);
    threads.wait();
    EXPECT_TRUE(ran);
}

TEST_F(WithoutMemory, AFileIsPassedOver)
{
    write("SH", "600000", "a.csv", "x\n");
    write("SH", "600000", "b.csv", "x\n" + QByteArray(54319, '1'));
    write("SH", "600000", "c.csv", "x\n" + QByteArray(60000, '1'));
    LocalInformation local;
    testing_support::LogCapture log;
    {
        test::FailingMemory failing(54321); // the piece that the second file is read in
        local.read("SH600000");
    }
    EXPECT_EQ(local.localHeaders.keys(), (QStringList{"浦发银行_a", "浦发银行_c"}));
    ASSERT_EQ(log.events().size(), 2u);
    EXPECT_THAT(log.events()[0].text, ::testing::HasSubstr("/b.csv"));
}

TEST_F(WithoutMemory, ThePanelDoesNotReadAndStays)
{
    write("SH", "600000", "a.csv", "x\n1\n");
    test::InformationProbe panel;
    panel.setStock("SH600000");
    {
        test::FailingMemory failing;
        EXPECT_NO_THROW(panel.slotRequestTimeOut());
        EXPECT_NO_THROW(panel.requestInfo());
    }
    ReaderThreads::instance().wait();
    EXPECT_TRUE(panel.m_local->localHeaders.isEmpty());
}
