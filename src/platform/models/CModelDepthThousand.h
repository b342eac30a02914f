#pragma once

#include "platform/models/LadderInstrument.h"
#include "platform/models/LadderSide.h"
#include "platform/models/OrderBook.h"
#include "platform/models/ladder_lock.h"
#include "records/EntrustData.h"
#include "records/MetaCacheDataWrapper.h"
#include "records/SingleQueue.h"

#include <QString>

#include <boost/shared_ptr.hpp>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace Kel {

/// The ladder of one instrument, rebuilt from single orders and deals: all prices of the book, of which the
/// best thousand a side are shown, or the best ten in the short form.
///
/// Every operation may be called on any thread; one lock guards everything. A large batch gives the lock away
/// now and then, so that a reader never waits for the whole of it. Nothing is thrown. A null batch, one of
/// another instrument and records of another type are passed over in silence.
class CModelDepthThousand
{
public:
    /// Both numbers are kept for the caller and have no effect.
    CModelDepthThousand(int id, int parent);
    ~CModelDepthThousand();
    CModelDepthThousand(const CModelDepthThousand&) = delete;
    CModelDepthThousand& operator=(const CModelDepthThousand&) = delete;

    /// Chooses the instrument by the code that the stock manager knows it by and empties the book. An unknown
    /// code leaves no instrument. Nothing is reported before the feed has brought something; the first report
    /// replaces everything.
    void setStock(const QString& code);

    /// Empties the book; the instrument stays. Large containers are freed on the strand "data_release".
    void clear();

    /// Market and code of the instrument, "SH600519"; empty without one.
    QString getStockKey() const;
    double getPriceTick() const; ///< yuan; 0.01 without an instrument
    double getLastClose() const; ///< yuan; 0 without one
    int getVolumeUnit() const;   ///< shares of a lot, at least 1; 100 without an instrument

    /// Depth snapshots: the previous close of the last one is taken, if it has any.
    void quoterCallback(int seq, int status, const MetaCacheDataWrapperPtr& batch);

    /// Orders. Status 0 opens a reload of the instrument's orders, 3 brings more of it, 1 and 2 are live.
    void entrustCallback(int seq, int status, const MetaCacheDataWrapperPtr& batch);

    /// Deals and cancellations, with the same statuses. Orders and deals may come in either order. Whichever
    /// opens a reload first empties the book, and nothing is reported until the other has opened as well or a
    /// live batch has come.
    void transactionCallback(int seq, int status, const MetaCacheDataWrapperPtr& batch);

    /// True if something has changed since the call before; then all outputs are set: `flags` (see
    /// ladder_flags.h; 0 if orders changed behind rows that show the same), the rows of both sides ascending
    /// by price, so that the best price stands last in `buys` and first in `sells`, price (yuan; the largest
    /// double for none) and volume (lots; -1 for none) of the newest deal, lowest and highest price shown
    /// (1e9 and 0 for an empty ladder) and the largest lots times price. False leaves the outputs alone. Rows
    /// are shared and never changed; hand in the lists of the call before, and only rows that are new are
    /// written. The cost follows what has changed.
    bool checkUpdate(int& flags, std::vector<boost::shared_ptr<EntrustData>>& buys,
                     std::vector<boost::shared_ptr<EntrustData>>& sells, double& latest, int& lastVolume,
                     double& minPrice, double& maxPrice, double& maxAmount, bool shortForm);

    /// The orders at a price (yuan) as they stand now; null for a price without orders.
    std::shared_ptr<SingleQueue> getQueue(bool isBuy, double price) const;

    /// Bytes on the heap that the book takes.
    std::size_t heapBytes() const;

private:
    /// Which batches of a reload have come.
    struct Reload
    {
        bool running = false;
        bool ordersOpened = false;
        bool dealsOpened = false;
    };

    template <class Record, class Apply>
    void take(int status, const MetaCacheDataWrapperPtr& batch, bool Reload::*opened, bool Reload::*other,
              Apply apply);
    void open(bool Reload::*opened, bool Reload::*other);
    void emptyBook();
    int report(bool shortForm);

    mutable ReaderFirstMutex m_mutex; ///< guards all below
    LadderInstrument m_instrument;
    std::unique_ptr<OrderBook> m_book;
    LadderSide m_buys{OQT_BUY};
    LadderSide m_sells{OQT_SELL};
    double m_latest;  ///< yuan, as reported last
    int m_lastVolume; ///< lots, as reported last
    Reload m_reload;
    std::uint64_t m_generation = 0; ///< of the book: batches that began with another one are stale
    bool m_fed = false;             ///< something came since the last report
    bool m_cover = true;            ///< the next report replaces everything
    bool m_shortForm = false;       ///< of the last report
};

} // namespace Kel
