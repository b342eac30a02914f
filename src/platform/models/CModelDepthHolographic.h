#pragma once

#include "platform/models/CModelDepthTransaction.h"
#include "platform/models/DealSummary.h"
#include "platform/models/QuoteSeconds.h"
#include "platform/models/deal_kind.h"
#include "records/DepthExport.h"

#include <atomic>
#include <cstddef>
#include <functional>
#include <mutex>
#include <utility>

namespace Kel {

/// A deal with all that the chart draws of it.
struct DEPTH_EXPORT HolographicDeal : DepthTransData
{
    int index = -1;
    int buyLots = 0;  ///< of the whole buy order
    int sellLots = 0; ///< of the whole sell order
    E_DEAL_KIND buyKind = E_DEAL_OPENING;
    E_DEAL_KIND sellKind = E_DEAL_OPENING;
};

/// The deals of a day for the chart: which of them are in view, how much room they take, and which belong to
/// one quote interval. The list is never filtered: a row is a deal's index.
///
/// View. The last 300 deals, until a range of time tags is set. What the view's fields tell holds from one
/// call of `recalcMaxMinSeqAndPrice` or `setViewTimeRange` to the next; deals that came since are not in it.
/// `clear` goes back to the last 300 deals.
///
/// Quote intervals. The deals after the second of one depth snapshot up to and including the second of the
/// next. The tag of an interval is the second of the snapshot that closes it, of the last, still open one the
/// second of its last deal. Snapshots without a deal between them make no interval of their own. Before the
/// first snapshot has come there are no intervals.
///
/// Snapshots come through `quoterCallback`; batches of status 0 replace those before, -1, 1, 2 and 3 add.
/// Late and repeated ones are sorted in. A batch that is being read while the model is cleared or gets
/// another instrument is dropped.
///
/// Threads: as of the base class, callbacks on any thread; the public fields that are not atomic and all
/// other operations of this class on the thread of the interface.
class DEPTH_EXPORT CModelDepthHolographic : public CModelDepthTransaction
{
public:
    /// Deals in view until a range is set.
    static constexpr int kUsualDeals = 300;

    /// Chooses the instrument as the base class does. Snapshots of another one are dropped.
    void setStock(const QString& code);

    /// Drops deals, orders and snapshots, and the range of the view; keeps instrument and `fullHeightHand`.
    void clear();

    void quoterCallback(int seq, int status, const boost::shared_ptr<MetaCacheDataWrapper>& data) override;

    // View
    // ---------------------------------------------------------------------------------------------------

    /// Brings the view up to the data. True when the range of deals, the extent or the prices changed, and
    /// at the first call after `clear`. At most a millisecond for a batch of new deals, whatever the day has.
    bool recalcMaxMinSeqAndPrice();

    /// Shows the deals whose time tags (seconds) lie from `begin` to `end`, both inside, -1 and -1 the last
    /// 300; an upside-down range holds none. True when the view changed, as above.
    bool setViewTimeRange(const int& begin, const int& end);

    /// First and last deal in view, 0 and -1 without one.
    int getStartIndex() const { return m_view.first; }
    int getEndIndex() const { return m_view.last; }

    /// Lots at which a bar reaches full height. Below 1: refused, nothing changes.
    void setFullHeightHandle(const int& hands);

    // Deals
    // --------------------------------------------------------------------------------------------------

    /// How a deal stands within the deals of its buy or sell order. A later deal can change it.
    ///
    /// A deal without an order opens a run, and so does null. An order's only deal is whole. An order's first
    /// deal joins when the next one follows directly at the same price, else it opens a run. Later deals: a
    /// slanted break when the deal before was at another price, else joined when that is the deal directly
    /// before, a flat break when others lie between; opening when the data of the deal before are gone.
    E_DEAL_KIND getDataKind(const boost::shared_ptr<DepthTransData>& deal, bool buy) const;

    /// Calls `visit` for the deals from `first` to `last`, as far as they exist, in order. The lock is held
    /// for a few thousand deals at a time; `visit` must be short and must not call the model.
    void visitDeals(int first, int last, const std::function<void(const HolographicDeal&)>& visit) const;

    // Quote intervals
    // -----------------------------------------------------------------------------------------------

    /// Whether a snapshot has come.
    bool hasIntervals() const;

    /// First and last deal of the interval that holds a deal; (-1, -1) when there is none.
    std::pair<int, int> getCurrSeqPair(const int& seq) const;

    /// The same of the interval before it, and after it.
    std::pair<int, int> getPreSeqPair(const int& seq) const;
    std::pair<int, int> getNextSeqPair(const int& seq) const;

    /// Time tag of the interval that holds a deal, seconds; -1 when there is none.
    int getCurrQuoterTimgtag(const int& seq) const;

    std::size_t heapBytes() const;

    int lastSeq = -1;                    ///< highest valid deal index, -1 without deals
    std::atomic<bool> needRecalc{false}; ///< new data arrived; set here on any thread, cleared by the chart
    int fullHeightHand = 500;            ///< lots at which a bar reaches full height, above 0
    double maxPrice = 0;                 ///< yuan, of the deals in view; the previous close without one
    double minPrice = 0;                 ///< yuan, likewise
    int viewExtent = 0; ///< width of the view: its lots and one for each deal, at most the largest int

protected:
    void dataChanged() override { needRecalc.store(true); }

private:
    /// What the view is made of, to tell whether it changed.
    struct View
    {
        int first = 0;
        int last = -1;
        int extent = 0;
        double maxPrice = 0;
        double minPrice = 0;

        bool operator==(const View& other) const;
    };

    void catchUp();
    std::pair<int, int> range() const;
    View makeView() const;
    QuoteSeconds::Interval intervalAt(int second) const;

    int m_begin = -1; ///< range of time tags in view
    int m_end = -1;
    View m_view;
    bool m_cleared = false; ///< the next recalculation tells of a change, whatever it finds
    DealSummary m_summary;  ///< of the deals up to `lastSeq`

    mutable std::mutex m_quoteMutex; ///< guards the next two; taken before the base class's lock
    QuoteSeconds m_quotes;
    unsigned m_generation = 0; ///< another one after `clear` and for another instrument
};

} // namespace Kel
