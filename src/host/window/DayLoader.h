#pragma once

#include "host/window/DayStore.h"
#include "host/window/PriceSeries.h"

#include <QMetaType>
#include <QObject>
#include <QString>

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace host {

using PriceSeriesPtr = std::shared_ptr<const PriceSeries>;

/// Loads days off the GUI thread. What was asked for last counts: an earlier load ends without a word. While
/// nothing is asked for, it goes through the other instruments of the source for their prices, unless they
/// are many. All functions and signals belong to the GUI thread.
class DayLoader : public QObject
{
    Q_OBJECT

public:
    /// Instruments beyond so many get their prices only when they are chosen.
    static constexpr std::size_t kMostPriced = 24;

    /// The same for all but the chosen ones of a source once a day of it has more rows than this.
    static constexpr std::size_t kMostRowsPriced = 1000000;

    /// Makes the store of a source, on the loading thread.
    using StoreMaker = std::function<std::unique_ptr<DayStore>(const DaySource& source)>;

    explicit DayLoader(QObject* parent = nullptr);
    explicit DayLoader(StoreMaker makeStore, QObject* parent = nullptr);

    /// Cancels what runs and waits for its end, a fraction of a second.
    ~DayLoader() override;

    /// Opens another source and loads the instrument that it asks for.
    void open(const DaySource& source);

    /// Loads an instrument of the source by its place in the list that was told last. If another source has
    /// been opened since, whose list is on its way, the instrument that this one asks for is loaded.
    void load(int index);

    /// Gives up the load that runs: `cancelled` follows. What was loaded before stays. A source that is open
    /// already is listed nevertheless, since instruments are loaded from it.
    void cancel();

Q_SIGNALS:
    /// Of the load that was asked for; total 0 for unknown.
    void progress(qint64 done, qint64 total);

    /// The instruments of a source that was opened.
    void listed(const std::vector<nelservice::CInstrumentDetail>& instruments);

    void loaded(int index, const host::DayPtr& day);
    void priced(int index, const host::PriceSeriesPtr& prices);
    void failed(const QString& reason);
    void cancelled();

private:
    struct Job
    {
        enum class Kind
        {
            None,
            Open,
            Load,
        };
        Kind kind = Kind::None;
        int number = 0;
        DaySource source;
        int index = 0;
        int listed = 0; ///< number of the list that the index belongs to
    };

    void ask(Job job);
    void run();
    void work(const Job& job);
    bool load(const Job& job, int index);
    bool replaceStore(int number, std::unique_ptr<DayStore> store);
    bool mayPrice() const;
    bool priceNext(int number);
    void price(std::size_t place, int number);
    bool current(int number) const { return number == m_number.load() && !m_quit.load(); }
    feed::Progress progressOf(int number);
    void tell(int number, std::function<void()> what);
    void tellList();
    void tellPrices(int index, PriceSeriesPtr prices);

    std::atomic<int> m_number{0}; ///< of what was asked for last
    std::atomic<bool> m_quit{false};
    StoreMaker m_makeStore;
    std::mutex m_mutex; ///< guards the job
    std::condition_variable m_changed;
    Job m_job;

    // Of the loading thread
    std::unique_ptr<DayStore> m_store;
    std::vector<bool> m_priced;
    bool m_longDays = false; ///< a day of the store had many rows
    int m_openNumber = 0;    ///< of the job that opened the store

    int m_listedNumber = 0; ///< of the source that was listed last; GUI thread

    std::thread m_thread;
};

} // namespace host

Q_DECLARE_METATYPE(host::DayPtr)
Q_DECLARE_METATYPE(host::PriceSeriesPtr)
