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

    explicit DayLoader(QObject* parent = nullptr);

    /// Cancels what runs and waits for its end, a fraction of a second.
    ~DayLoader() override;

    /// Opens another source and loads the instrument that it asks for.
    void open(const DaySource& source);

    /// Loads an instrument of the source by its place in the list.
    void load(int index);

    /// Gives up the load that runs: `cancelled` follows. What was loaded before stays.
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
    };

    void ask(Job job);
    void run();
    void work(const Job& job);
    bool load(const Job& job, int index);
    bool priceNext();
    bool current(int number) const { return number == m_number.load() && !m_quit.load(); }
    feed::Progress progressOf(int number);
    void tell(int number, std::function<void()> what);
    void tellPrices(int index, PriceSeriesPtr prices);

    std::atomic<int> m_number{0}; ///< of what was asked for last
    std::atomic<bool> m_quit{false};
    std::mutex m_mutex; ///< guards the job
    std::condition_variable m_changed;
    Job m_job;

    // Of the loading thread
    std::unique_ptr<DayStore> m_store;
    std::vector<bool> m_priced;
    int m_openNumber = 0; ///< of the job that opened the store

    int m_listedNumber = 0; ///< of the source that was listed last; GUI thread

    std::thread m_thread;
};

} // namespace host

Q_DECLARE_METATYPE(host::DayPtr)
Q_DECLARE_METATYPE(host::PriceSeriesPtr)
