#pragma once

#include "platform/models/LadderModelBase.h"
#include "platform/models/OrderBook.h"
#include "records/DepthExport.h"
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
class DEPTH_EXPORT CModelDepthThousand : public LadderModelBase
{
public:
    /// Both numbers are kept for the caller and have no effect.
    CModelDepthThousand(int id, int parent);
    ~CModelDepthThousand();

    /// Chooses the instrument by the code that the stock manager knows it by and empties the book. An unknown
    /// code leaves no instrument. Nothing is reported before the feed has brought something; the first report
    /// replaces everything.
    void setStock(const QString& code);

    /// Empties the book; the instrument stays. Large containers are freed on the strand "data_release".
    void clear();

    /// Orders. Status 0 opens a reload of the instrument's orders, 3 brings more of it, 1 and 2 are live.
    void entrustCallback(int seq, int status, const MetaCacheDataWrapperPtr& batch);

    /// Deals and cancellations, with the same statuses. Orders and deals may come in either order and on two
    /// threads. Whichever opens a reload first empties the book; the other one joins it, also after live
    /// batches. Nothing is reported until both have opened or a live batch has come, nor while an opening
    /// batch is being taken.
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
    /// What has come of a reload.
    struct Reload
    {
        bool waits = false; ///< nothing is reported
        bool ordersOpened = false;
        bool dealsOpened = false;
        bool live = false; ///< a live batch came since one of them opened
        bool late = false; ///< the second of them opened after a live batch, and nothing live came since
        int underWay = 0;  ///< opening batches that are being taken
    };

    template <class Record, class Apply>
    void take(int status, const MetaCacheDataWrapperPtr& batch, bool Reload::*opened, bool Reload::*other,
              Apply apply);
    void open(bool Reload::*opened, bool Reload::*other);
    void taken(int status);
    void emptyBook();
    void reset();
    int report(bool shortForm);

    std::unique_ptr<OrderBook> m_book;
    Reload m_reload;
    std::uint64_t m_generation = 0; ///< of the book: batches that began with another one are stale
    bool m_shortForm = false;       ///< of the last report
};

} // namespace Kel
