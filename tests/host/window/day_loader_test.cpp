// Loading off the GUI thread.

#include "host/window/DayLoader.h"

#include "feed/archive/DayArchiveWriter.h"
#include "host/window/WindowFixture.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <QThread>

#include <atomic>
#include <new>
#include <numeric>

namespace window_tests {
namespace {

class Loader : public ::testing::Test
{
protected:
    Loader()
    {
        QObject::connect(&loader, &host::DayLoader::listed, &loader,
                         [this](const auto& instruments) { listed = instruments; });
        QObject::connect(&loader, &host::DayLoader::loaded, &loader,
                         [this](int index, const host::DayPtr& day) {
                             loaded.push_back(index);
                             last = day;
                         });
        QObject::connect(&loader, &host::DayLoader::priced, &loader,
                         [this](int index, const host::PriceSeriesPtr& prices) {
                             priced.push_back(index);
                             EXPECT_FALSE(prices->empty());
                         });
        QObject::connect(&loader, &host::DayLoader::failed, &loader,
                         [this](const QString& reason) { failures << reason; });
        QObject::connect(&loader, &host::DayLoader::cancelled, &loader, [this] { ++cancels; });
        QObject::connect(&loader, &host::DayLoader::progress, &loader, [this](qint64 done, qint64 total) {
            ++progresses;
            EXPECT_LE(done, total);
        });
    }

    host::DayLoader loader;
    std::vector<nelservice::CInstrumentDetail> listed;
    std::vector<int> loaded;
    std::vector<int> priced;
    host::DayPtr last;
    QStringList failures;
    int cancels = 0;
    int progresses = 0;
};

/// Of all instruments of a simulated source.
std::vector<int> rows()
{
    std::vector<int> all(host::simulatedKinds().size());
    std::iota(all.begin(), all.end(), 0);
    return all;
}

TEST_F(Loader, ListsAndLoadsTheFirstInstrumentThenPricesTheOthers)
{
    loader.open(smallSource());
    ASSERT_TRUE(waitUntil([&] { return !loaded.empty(); }));
    EXPECT_EQ(listed.size(), host::simulatedKinds().size());
    EXPECT_EQ(loaded, std::vector<int>{0});
    EXPECT_EQ(last->detail.code, listed[0].code);
    ASSERT_TRUE(waitUntil([&] { return priced.size() == listed.size(); }));
    EXPECT_EQ(priced, rows());
    EXPECT_EQ(loaded.size(), 1U) << "prices alone load nothing";
    EXPECT_GT(progresses, 0);
    EXPECT_TRUE(failures.isEmpty());
}

TEST_F(Loader, LoadsTheInstrumentThatIsAskedFor)
{
    host::DaySource source = smallSource();
    source.instrument = "fund";
    loader.open(source);
    ASSERT_TRUE(waitUntil([&] { return !loaded.empty(); }));
    EXPECT_EQ(loaded.back(), 3);
    loader.load(1);
    ASSERT_TRUE(waitUntil([&] { return loaded.size() == 2; }));
    EXPECT_EQ(loaded.back(), 1);
    EXPECT_EQ(last->detail.code, "003999");
}

TEST_F(Loader, OnlyTheLastWishCounts)
{
    loader.open(smallSource());
    ASSERT_TRUE(waitUntil([&] { return !loaded.empty(); }));
    loaded.clear();
    for (const int index : {1, 2, 3, 4})
        loader.load(index);
    ASSERT_TRUE(waitUntil([&] { return !loaded.empty(); }));
    letRun(100);
    EXPECT_EQ(loaded, std::vector<int>{4});
}

TEST_F(Loader, GivesUpAndCanLoadAgain)
{
    loader.open(smallSource());
    ASSERT_TRUE(waitUntil([&] { return !loaded.empty(); }));
    loaded.clear();
    loader.load(2);
    loader.cancel();
    EXPECT_EQ(cancels, 1);
    letRun(100);
    EXPECT_TRUE(loaded.empty());
    EXPECT_TRUE(failures.isEmpty());
    loader.load(2);
    ASSERT_TRUE(waitUntil([&] { return !loaded.empty(); }));
    EXPECT_EQ(loaded, std::vector<int>{2});
}

TEST_F(Loader, TellsWhyASourceCannotBeOpenedAndKeepsTheOldOne)
{
    loader.open(smallSource());
    ASSERT_TRUE(waitUntil([&] { return !loaded.empty(); }));
    host::DaySource missing;
    missing.archive = "/nowhere";
    loader.open(missing);
    ASSERT_TRUE(waitUntil([&] { return !failures.isEmpty(); }));
    EXPECT_EQ(failures, QStringList(QStringLiteral("/nowhere: no such folder")));
    loader.load(1);
    ASSERT_TRUE(waitUntil([&] { return loaded.size() == 2; }));
    EXPECT_EQ(loaded.back(), 1);
}

TEST_F(Loader, TellsWhyAnInstrumentCannotBeLoaded)
{
    loader.open(smallSource());
    ASSERT_TRUE(waitUntil([&] { return !loaded.empty(); }));
    loader.load(77);
    ASSERT_TRUE(waitUntil([&] { return !failures.isEmpty(); }));
    EXPECT_EQ(loaded.size(), 1U);
}

TEST_F(Loader, ReadsAnArchive)
{
    const QTemporaryDir folder;
    host::DaySource source;
    source.archive = writeArchive(folder, 2);
    loader.open(source);
    ASSERT_TRUE(waitUntil([&] { return priced.size() == 2; }));
    EXPECT_EQ(loaded, std::vector<int>{0});
}

/// A store that notes its loads, and fails or waits in them on demand.
struct Watch
{
    std::atomic<int> begun{0};         ///< loads
    std::atomic<int> throwing{-1};     ///< place whose load finds no memory
    std::atomic<bool> waiting{false};  ///< loads wait until they are given up or this ends
    std::atomic<std::size_t> extra{0}; ///< snapshots more than the day has
};

class WatchedStore : public host::DayStore
{
public:
    WatchedStore(const host::DaySource& source, Watch& watch) : DayStore(source), m_watch(watch) {}

    host::DayPtr load(std::size_t index, const feed::Progress& progress, std::string& error) override
    {
        ++m_watch.begun;
        if (m_watch.throwing == static_cast<int>(index))
            throw std::bad_alloc();
        while (m_watch.waiting && progress(0, 1))
            QThread::msleep(1);
        const host::DayPtr day = DayStore::load(index, progress, error);
        if (!day || m_watch.extra == 0)
            return day;
        auto longer = std::make_shared<feed::InstrumentDay>(*day);
        longer->snapshots.resize(longer->snapshots.size() + m_watch.extra);
        return longer;
    }

private:
    Watch& m_watch;
};

class WatchedLoader : public ::testing::Test
{
protected:
    WatchedLoader()
    {
        QObject::connect(&loader, &host::DayLoader::listed, &loader,
                         [this](const auto& instruments) { listed = instruments; });
        QObject::connect(&loader, &host::DayLoader::loaded, &loader,
                         [this](int index, const host::DayPtr& day) {
                             loaded.push_back(index);
                             last = day;
                         });
        QObject::connect(&loader, &host::DayLoader::priced, &loader,
                         [this](int index) { priced.push_back(index); });
        QObject::connect(&loader, &host::DayLoader::failed, &loader,
                         [this](const QString& reason) { failures << reason; });
    }

    /// Opens an archive of other instruments, up to the load of the first one, without a look at what the
    /// loader tells.
    void openArchiveUnseen()
    {
        feed::DayArchiveWriter writer(folder.path().toStdString() + "/archive");
        ASSERT_TRUE(writer.write(*simulatedDay("fund")) && writer.write(*simulatedDay("bond")) &&
                    writer.finish());
        host::DaySource source;
        source.archive = folder.path().toStdString() + "/archive";
        watch.waiting = true;
        const int before = watch.begun;
        loader.open(source);
        while (watch.begun == before)
            QThread::msleep(1);
    }

    /// The first source, with all of its prices.
    void openFirst()
    {
        loader.open(smallSource());
        ASSERT_TRUE(waitUntil([&] { return priced.size() == host::simulatedKinds().size(); }));
        loaded.clear();
    }

    QTemporaryDir folder;
    Watch watch;
    std::vector<nelservice::CInstrumentDetail> listed;
    std::vector<int> loaded;
    std::vector<int> priced;
    host::DayPtr last;
    QStringList failures;
    host::DayLoader loader{
        [this](const host::DaySource& source) { return std::make_unique<WatchedStore>(source, watch); }};
};

TEST_F(WatchedLoader, ASourceThatIsOpenIsListedThoughItsLoadIsGivenUp)
{
    openFirst();
    openArchiveUnseen();
    loader.cancel();
    watch.waiting = false;
    ASSERT_TRUE(waitUntil([&] { return listed.size() == 2; }));
    EXPECT_TRUE(loaded.empty());
    loader.load(1);
    ASSERT_TRUE(waitUntil([&] { return !loaded.empty(); }));
    EXPECT_EQ(last->detail.code, listed[1].code);
}

TEST_F(WatchedLoader, ARowOfAListThatIsGoneLoadsWhatTheNewSourceAsksFor)
{
    openFirst();
    openArchiveUnseen();
    loader.load(1);
    watch.waiting = false;
    ASSERT_TRUE(waitUntil([&] { return !loaded.empty(); }));
    EXPECT_EQ(listed.size(), 2U);
    EXPECT_EQ(loaded, std::vector<int>{0});
    EXPECT_EQ(last->detail.code, listed[0].code);
}

TEST_F(WatchedLoader, PricesGoOnWhenThereIsNoMemoryForOne)
{
    watch.throwing = 2;
    loader.open(smallSource());
    ASSERT_TRUE(waitUntil([&] { return priced.size() == host::simulatedKinds().size() - 1; }));
    std::vector<int> others = rows();
    others.erase(others.begin() + 2);
    EXPECT_EQ(priced, others);
    EXPECT_TRUE(failures.isEmpty()) << "nobody asked for it";
    loader.load(2);
    EXPECT_TRUE(waitUntil([&] { return failures.size() == 1; }));
}

TEST_F(WatchedLoader, ALongDayIsNotPricedForTheListAlone)
{
    watch.extra = host::DayLoader::kMostRowsPriced;
    loader.open(smallSource());
    ASSERT_TRUE(waitUntil([&] { return !loaded.empty(); }));
    letRun(300);
    EXPECT_EQ(priced, std::vector<int>{0});
    EXPECT_EQ(watch.begun, 1);
}

TEST(LoaderEnd, DoesNotWaitForALongLoad)
{
    host::DaySource source;
    source.simulated = true;
    source.orders = 2000000; // a minute and more
    bool progress = false;
    {
        host::DayLoader loader;
        QObject::connect(&loader, &host::DayLoader::progress, &loader, [&] { progress = true; });
        loader.open(source);
        ASSERT_TRUE(waitUntil([&] { return progress; }));
    }
}

} // namespace
} // namespace window_tests
