#include "InformationFixture.h"
#include "platform/LogCapture.h"
#include "platform/services/RPCEngine.h"

#include <boost/thread/barrier.hpp>

#include <memory>

#include <sys/fsuid.h>
#include <sys/stat.h>

using namespace Kel;

namespace {

/// While it lives, this thread opens files as nobody in particular: the superuser may open every file.
class NobodysLeave
{
public:
    NobodysLeave() : m_before(::setfsuid(kNobody)) {}
    ~NobodysLeave() { ::setfsuid(static_cast<uid_t>(m_before)); }
    NobodysLeave(const NobodysLeave&) = delete;
    NobodysLeave& operator=(const NobodysLeave&) = delete;

private:
    static constexpr uid_t kNobody = 65534;
    int m_before;
};

class LocalReading : public test::InformationTest
{
protected:
    QStringList keys() const { return m_local.localHeaders.keys(); }

    /// Whether `shared`, which somebody else holds as well, is let go on the strand "data_release" once
    /// `drop` was called, and not before.
    template <class Container, class Drop>
    static bool isReleasedOnTheStrand(const Container& shared, Drop drop)
    {
        boost::barrier blocked(2);
        net::RPCEngine::getStrand("data_release")->post([&blocked] { blocked.wait(); });
        drop();
        const bool keptUntilThen = !shared.isDetached();
        blocked.wait();
        net::RPCEngine::drain("data_release");
        return keptUntilThen && shared.isDetached();
    }

    LocalInformation m_local;
};

} // namespace

TEST_F(LocalReading, FilesStandUnderMarketAndCode)
{
    EXPECT_EQ(localInformationDirectory("SH", "600000"), m_directory.path() + "/localinformation/SH/600000");
}

TEST_F(LocalReading, AKeyIsTheNameAndTheFileNameUpToItsFirstPoint)
{
    EXPECT_EQ(localFileKey("浦发", "股东.csv"), "浦发_股东");
    EXPECT_EQ(localFileKey("浦发", "股东.2023.csv"), "浦发_股东");
    EXPECT_EQ(localFileKey("浦发", ".hidden"), "浦发_");
    EXPECT_EQ(localFileKey("浦发", "股东"), "浦发_股东");
    EXPECT_EQ(localFileKey("浦发", ""), "浦发_");
}

TEST_F(LocalReading, HeadersAndRowsComeUnderTheFilesKey)
{
    write("SH", "600000", "股东.csv", "日期,名称,数量\n2023-02-01,甲,1\n2023-02-01,乙,2\n2023-01-31,丙,3\n");
    m_local.read("SH600000");
    EXPECT_EQ(keys(), QStringList{"浦发银行_股东"});
    EXPECT_EQ(m_local.localHeaders["浦发银行_股东"], (QStringList{"日期", "名称", "数量"}));
    const LocalRows& rows = m_local.localValues["浦发银行_股东"];
    EXPECT_EQ(rows.keys(), (QStringList{"2023-01-31", "2023-02-01"}));
    EXPECT_EQ(rows["2023-02-01"], (QVector<LocalRow>{{"2023-02-01", "甲", "1"}, {"2023-02-01", "乙", "2"}}));
}

TEST_F(LocalReading, WithoutInstrumentOrDirectoryNothingIsReadNorLogged)
{
    testing_support::LogCapture log;
    m_local.read("SH600000");
    m_local.read("NOTHING");
    m_local.read("");
    EXPECT_TRUE(keys().isEmpty());
    EXPECT_TRUE(log.events().empty());
}

TEST_F(LocalReading, TheTimeIsLogged)
{
    write("SH", "600000", "a.csv", "x\n");
    testing_support::LogCapture log;
    m_local.read("SH600000");
    const auto events = log.events();
    ASSERT_EQ(events.size(), 1u);
    EXPECT_THAT(events[0].text,
                ::testing::MatchesRegex("Kel::CInformationWidget::readLocalInformation code : SH600000 "
                                        "readinformation use time [0-9]+"));
    EXPECT_EQ(events[0].level, 20000);
    EXPECT_EQ(events[0].file, "CInformationWidget");
}

TEST_F(LocalReading, HiddenFilesCountAndDirectoriesAndLinksDoNot)
{
    write("SH", "600000", ".secret.csv", "hidden\n");
    write("SH", "600000", "plain", "seen\n");
    write("SZ", "000001", "far.csv", "far\n");
    ASSERT_TRUE(QDir().mkpath(folder("SH", "600000") + "/folder.csv"));
    ASSERT_TRUE(QFile::link(folder("SZ", "000001") + "/far.csv", folder("SH", "600000") + "/link.csv"));
    m_local.read("SH600000");
    EXPECT_EQ(keys(), (QStringList{"浦发银行_", "浦发银行_plain"}));
}

TEST_F(LocalReading, SmallFilesComeFirst)
{
    // Both have the key "浦发银行_a": the order of the titles tells the order of the files.
    write("SH", "600000", "a.large", "large,large,large\n");
    write("SH", "600000", "a.small", "small\n");
    m_local.read("SH600000");
    EXPECT_EQ(m_local.localHeaders["浦发银行_a"], (QStringList{"small", "large", "large", "large"}));
}

TEST_F(LocalReading, AFileThatCannotBeOpenedIsPassedOver)
{
    write("SH", "600000", "good.csv", "x\n1\n");
    ASSERT_TRUE(QFile::link("/nowhere/at/all", folder("SH", "600000") + "/bad.csv"));
    m_local.read("SH600000");
    EXPECT_EQ(keys(), QStringList{"浦发银行_good"});
}

TEST_F(LocalReading, AFileWithoutLeaveToReadIsPassedOverAndTheNextOneRead)
{
    write("SH", "600000", "a.csv", "x\n");
    write("SH", "600000", "b.csv", "locked\n");
    write("SH", "600000", "c.csv", "last of them\n");
    ASSERT_EQ(::chmod(m_directory.path().toLocal8Bit().constData(), 0755), 0);
    const QString locked = folder("SH", "600000") + "/b.csv";
    ASSERT_EQ(::chmod(locked.toLocal8Bit().constData(), 0), 0);
    testing_support::LogCapture log;
    {
        const NobodysLeave nobody;
        ASSERT_FALSE(QFile(locked).open(QIODevice::ReadOnly));
        m_local.read("SH600000");
    }
    EXPECT_EQ(keys(), (QStringList{"浦发银行_a", "浦发银行_c"}));
    EXPECT_EQ(log.events().size(), 1u) << "in silence: the line is that of the time";
}

TEST_F(LocalReading, AnEmptyFileAddsNothing)
{
    write("SH", "600000", "empty.csv", "");
    m_local.read("SH600000");
    EXPECT_TRUE(keys().isEmpty());
    EXPECT_TRUE(m_local.localValues.isEmpty());
}

TEST_F(LocalReading, AHeaderAloneMakesNoRows)
{
    write("SH", "600000", "head.csv", "a,b\n");
    m_local.read("SH600000");
    EXPECT_EQ(keys().size(), 1);
    EXPECT_TRUE(m_local.localValues.isEmpty());
}

TEST_F(LocalReading, ASecondReadingRepeatsTitlesAndRows)
{
    write("SH", "600000", "a.csv", "x,y\n1,2\n");
    m_local.read("SH600000");
    m_local.read("SH600000");
    EXPECT_EQ(m_local.localHeaders["浦发银行_a"], (QStringList{"x", "y", "x", "y"}));
    EXPECT_EQ(m_local.localValues["浦发银行_a"]["1"].size(), 2);
}

TEST_F(LocalReading, ClearEmptiesBothMaps)
{
    write("SH", "600000", "a.csv", "x,y\n1,2\n");
    m_local.read("SH600000");
    m_local.clear();
    EXPECT_TRUE(m_local.localHeaders.isEmpty());
    EXPECT_TRUE(m_local.localValues.isEmpty());
}

TEST_F(LocalReading, AReadingForAFormerInstrumentWritesUnderItsOwnKeys)
{
    write("SH", "600000", "a.csv", "x\n1\n");
    write("SZ", "000001", "a.csv", "x\n1\n");
    m_local.clear();
    m_local.read("SZ000001");
    m_local.read("SH600000");
    EXPECT_EQ(keys(), (QStringList{"平安银行_a", "浦发银行_a"}));
}

TEST_F(LocalReading, TheListenerHearsTablesByDateNewestFirst)
{
    write("SH", "600000", "a.csv", "日期,v\n2023-01-30,1\n2023-02-01,2\n2023-02-01,3\n2023-01-31,4\n");
    write("SH", "600000", "b.csv", "日期\n");
    write("SZ", "000001", "c.csv", "日期\nx\n");
    QString heard;
    LocalTablesPtr tables;
    m_local.setListener([&](const QString& code, const LocalTablesPtr& read) {
        heard = code;
        tables = read;
    });
    m_local.read("SZ000001");
    m_local.read("SH600000");
    EXPECT_EQ(heard, "SH600000");
    ASSERT_EQ(tables->size(), 2);
    EXPECT_EQ(tables->at(0).key, "浦发银行_a");
    EXPECT_EQ(tables->at(0).headers, (QStringList{"日期", "v"}));
    EXPECT_EQ(tables->at(0).rows,
              (QVector<LocalRow>{
                  {"2023-02-01", "2"}, {"2023-02-01", "3"}, {"2023-01-31", "4"}, {"2023-01-30", "1"}}));
    EXPECT_TRUE(tables->at(1).rows.isEmpty());
}

TEST_F(LocalReading, RubbishOfAllBytesIsRead)
{
    QByteArray bytes;
    for (int i = 0; i < 200000; ++i)
        bytes.append(static_cast<char>((i * 7919) >> 3));
    write("SH", "600000", "rubbish.bin", bytes);
    m_local.read("SH600000");
    EXPECT_EQ(keys(), QStringList{"浦发银行_rubbish"});
}

TEST_F(LocalReading, AFileMayVanishOrShrinkWhileItIsRead)
{
    write("SH", "600000", "large.csv", "a,b\n" + QByteArray("1,2\n").repeated(500000));
    const QString path = folder("SH", "600000") + "/large.csv";
    boost::thread reader([this] { m_local.read("SH600000"); });
    QFile::resize(path, 1000);
    QFile::remove(path);
    reader.join();
    EXPECT_LE(keys().size(), 1);
}

TEST_F(LocalReading, ReadersOfDifferentInstrumentsOverlap)
{
    write("SH", "600000", "a.csv", "x\n" + QByteArray("1\n").repeated(20000));
    write("SZ", "000001", "b.csv", "x\n" + QByteArray("1\n").repeated(20000));
    boost::barrier start(3);
    boost::thread_group readers;
    for (const char* code : {"SH600000", "SZ000001"}) {
        readers.create_thread([this, code, &start] {
            start.wait();
            m_local.read(code);
        });
    }
    start.wait();
    m_local.clear();
    readers.join_all();
    for (auto rows = m_local.localValues.cbegin(); rows != m_local.localValues.cend(); ++rows)
        EXPECT_EQ(rows.value().value("1").size(), 20000) << "files come as a whole";
}

TEST_F(LocalReading, WithoutARootNothingIsRead)
{
    const QString before = QDir::currentPath();
    write("SH", "600000", "a.csv", "x\n1\n");
    ASSERT_TRUE(QDir::setCurrent(folder("SH", "600000")));
    setExternalDataDir(QString());
    m_local.read("SH600000");
    QDir::setCurrent(before);
    EXPECT_EQ(localInformationDirectory("SH", "600000"), "");
    EXPECT_TRUE(keys().isEmpty());
}

TEST_F(LocalReading, AReadingEndsWithItsBudgetAndSaysSo)
{
    write("SH", "600000", "a.csv", "x\n1\n");
    write("SH", "600000", "b.csv", "x\n" + QByteArray("1\n").repeated(1000));
    write("SH", "600000", "c.csv", "x\n" + QByteArray("1\n").repeated(2000));
    LocalInformation local(20000);
    testing_support::LogCapture log;
    local.read("SH600000");
    EXPECT_EQ(local.localHeaders.keys(), (QStringList{"浦发银行_a", "浦发银行_b"}));
    const int rows = local.localValues["浦发银行_b"]["1"].size();
    EXPECT_GT(rows, 10) << "what fits is kept";
    EXPECT_LT(rows, 400);
    const auto events = log.events();
    ASSERT_EQ(events.size(), 2u);
    EXPECT_THAT(events[0].text, ::testing::HasSubstr("/b.csv"));
    EXPECT_EQ(events[0].level, 40000);
}

TEST_F(LocalReading, ReadingsShareTheBudgetUntilTheMapsAreCleared)
{
    write("SH", "600000", "a.csv", "x\n" + QByteArray("1\n").repeated(100));
    LocalInformation local(20000); // room for one reading and not for two
    const auto rows = [&local] { return local.localValues["浦发银行_a"]["1"].size(); };
    local.read("SH600000");
    ASSERT_EQ(rows(), 100);
    testing_support::LogCapture log;
    local.read("SH600000");
    EXPECT_LT(rows(), 200) << "what the maps hold counts";
    EXPECT_EQ(log.events().size(), 2u);
    for (int i = 0; i < 5; ++i) {
        local.clear();
        local.read("SH600000");
        EXPECT_EQ(rows(), 100) << "cleared maps hold nothing";
    }
}

TEST_F(LocalReading, TheEndOfAFileThatIsTooLongIsNotReadWhichIsLogged)
{
    write("SH", "600000", "a.csv", "x\n1\n");
    write("SH", "600000", "b.csv", "x\n1\n2\n");
    write("SH", "600000", "c.csv", "x\n1\n2\n3\n");
    LocalInformation local(LocalFileParser::kUsualBudget, 6);
    LocalTablesPtr tables;
    local.setListener([&tables](const QString&, const LocalTablesPtr& read) { tables = read; });
    testing_support::LogCapture log;
    local.read("SH600000");
    EXPECT_EQ(local.localValues["浦发银行_b"].keys(), (QStringList{"1", "2"}));
    EXPECT_EQ(local.localValues["浦发银行_c"].keys(), (QStringList{"1", "2"}));
    const auto events = log.events();
    ASSERT_EQ(events.size(), 2u);
    EXPECT_THAT(events[0].text, ::testing::HasSubstr("/c.csv"));
    EXPECT_EQ(events[0].level, 40000);
    ASSERT_EQ(tables->size(), 3);
    EXPECT_FALSE(tables->at(1).isCut) << "a file of just that length is whole";
    EXPECT_TRUE(tables->at(2).isCut);
    EXPECT_EQ(LocalInformation::kMostFileBytes, 1 << 30);
}

TEST_F(LocalReading, WhoListensHearsWhatOneReadingFound)
{
    write("SH", "600000", "a.csv", "x,y\n1,2\n");
    LocalTablesPtr tables;
    m_local.setListener([&tables](const QString&, const LocalTablesPtr& read) { tables = read; });
    m_local.read("SH600000");
    m_local.read("SH600000");
    ASSERT_EQ(tables->size(), 1);
    EXPECT_EQ(tables->at(0).headers, (QStringList{"x", "y"})) << "though the maps have it twice";
    EXPECT_EQ(tables->at(0).rows.size(), 1);
}

TEST_F(LocalReading, AReadingThatBeganBeforeAClearTellsNobody)
{
    write("SH", "600000", "a.csv", "x\n1\n");
    write("SH", "600000", "b.csv", "x\n1\n23\n");
    int told = 0;
    m_local.setListener([&told](const QString&, const LocalTablesPtr&) { ++told; });
    testing_support::LogCapture log;
    log.hold(); // the line of the time, which comes before the listener hears anything
    boost::thread reader([this] { m_local.read("SH600000"); });
    EXPECT_TRUE(waitFor([this] {
        boost::shared_lock<boost::shared_mutex> lock(m_local.localLock);
        return m_local.localHeaders.size() == 2;
    }));
    m_local.clear();
    log.release();
    reader.join();
    EXPECT_EQ(told, 0);
    m_local.read("SH600000");
    EXPECT_EQ(told, 1);
}

TEST_F(LocalReading, AReadingThatNobodyWantsAnyMoreStops)
{
    write("SH", "600000", "a.csv", "x\n1\n");
    bool told = false;
    m_local.setListener([&told](const QString&, const LocalTablesPtr&) { told = true; });
    m_local.end();
    m_local.read("SH600000");
    EXPECT_TRUE(keys().isEmpty());
    EXPECT_FALSE(told);
}

TEST_F(LocalReading, WhatWasReadIsFreedOnTheReleaseStrand)
{
    write("SH", "600000", "a.csv", "x\n1\n2\n");
    auto local = std::make_unique<LocalInformation>();
    LocalTablesPtr tables;
    local->setListener([&tables](const QString&, const LocalTablesPtr& read) { tables = read; });
    local->read("SH600000");
    const QVector<LocalRow> rows = tables->at(0).rows;
    EXPECT_TRUE(isReleasedOnTheStrand(rows, [&tables] { tables.reset(); }));
    const QMap<QString, LocalRows> cleared = local->localValues;
    EXPECT_TRUE(isReleasedOnTheStrand(cleared, [&local] { local->clear(); }));
    local->read("SH600000");
    tables.reset();
    const QMap<QString, LocalRows> gone = local->localValues;
    EXPECT_TRUE(isReleasedOnTheStrand(gone, [&local] { local.reset(); }));
}

TEST_F(LocalReading, TheSampleFilesBelongToTheSimulatedInstruments)
{
    setExternalDataDir(QStringLiteral(DEPTH_SOURCE_DIR "/examples/external_data"));
    add("SH", "600999", "沪市模拟");
    add("SZ", "003999", "深市模拟");
    m_local.read("SH600999");
    m_local.read("SZ003999");
    EXPECT_EQ(keys(), (QStringList{"沪市模拟_机构调研", "沪市模拟_股东变动", "深市模拟_融资融券"}));
    EXPECT_EQ(m_local.localValues["沪市模拟_股东变动"]["2023-01-31"].size(), 2);
    EXPECT_EQ(m_local.localValues["沪市模拟_股东变动"]["2023-01-31"][0].last(), "集中竞价,减持");
    EXPECT_TRUE(m_local.localValues["深市模拟_融资融券"].contains("2023-01-31")) << "the date is column 1";
}
