#pragma once

#include "platform/models/RowWalk.h"
#include "platform/utils/AtomicSharedPtr.h"
#include "records/CFormulaParam.h"
#include "records/CInstrumentDetail.h"
#include "records/DepthExport.h"
#include "records/DepthTransData.h"
#include "records/MetaCacheDataWrapper.h"
#include "records/OrderData.h"
#include "records/SDepthFilterParam.h"
#include "records/TransData.h"

#include <QString>

#include <boost/shared_ptr.hpp>

#include <atomic>
#include <cstddef>
#include <functional>
#include <utility>
#include <vector>

namespace Kel {

/// One side of a deal: how much the order behind it is, and what its neighbouring deals cost.
struct DEPTH_EXPORT DealSide
{
    int lots = 0;             ///< as `getEntrustVolume` tells
    double previousPrice = 0; ///< yuan, of the order's deal before; not a number without one
    double nextPrice = 0;     ///< yuan, of the order's deal after; not a number without one
};

/// The deals of one instrument's day, filtered, with the orders behind them.
///
/// Rows. The whole list holds every deal in order of time tag (second) and deal number; a late deal is put
/// in its place, a repeated one (same tag and number) is ignored. Not deals, and passed over: cancellations,
/// records without shares, without a price above 0 or with a time that is none. Per deal:
/// * lots: nearest, 1 below a lot;
/// * `trend`: the price against that of the deal before in the whole list, 0 for the first;
/// * `activeSide`: what the feed says, else the side of the larger order number; none in an auction;
/// * `volumeRise`: set for an active buyer, clear for an active seller, else set if the last change of price
///   up to this deal was a rise;
/// * previous and next: the deals of the same order, as indexes of the whole list;
/// * runs: how many rows directly before this one in the filtered list are of the same order; an order
///   number that is not above 0 forms no run and has no links; counting stops at 32767.
/// `count`, `getData`, the runs and the look-ups by time are those of the filtered list.
///
/// Batches of status 0 replace all data of their channel (deals, orders) in one step, 1, 2 and 3 add to it,
/// others are ignored, as is a batch of another instrument and every batch while there is no instrument.
/// Orders may come before or after their deals; a repeated order is ignored. What is left of a batch when the
/// model is cleared or gets another instrument is dropped.
///
/// Threads: callbacks on any thread, everything else on the thread of the interface (the look-ups may be
/// called on any). Batches are taken one after the other. The model has its own lock, which lets those who
/// look pass first and is held for a few milliseconds at most, whatever a batch is like. `count` is set
/// before `dirty`; a reader clears `dirty` and then reads `count`. A row that was handed out never changes
/// and stays valid; a changed row is a new one. A new filter is applied at once to a short list and in the
/// background to a long one; the old list stays in force until the new one is whole.
class DEPTH_EXPORT CModelDepthTransaction
{
public:
    CModelDepthTransaction();
    virtual ~CModelDepthTransaction();
    CModelDepthTransaction(const CModelDepthTransaction&) = delete;
    CModelDepthTransaction& operator=(const CModelDepthTransaction&) = delete;

    /// Chooses the instrument by the code that the stock manager knows it by. Rows stay. With an unknown
    /// code there is no instrument.
    void setStock(const QString& code);

    /// Adds the instrument's key as "code".
    void getParams(CFormulaParam& param) const;

    /// Drops all rows and orders; keeps instrument and filter.
    void clear();

    /// Snapshots of the instrument; this model has no use for them.
    virtual void quoterCallback(int seq, int status, const boost::shared_ptr<MetaCacheDataWrapper>& data);
    void transactionCallback(int seq, int status, const boost::shared_ptr<MetaCacheDataWrapper>& data);
    void entrustCallback(int seq, int status, const boost::shared_ptr<MetaCacheDataWrapper>& data);

    /// Keeps what passes from now on, see `passesFilter`.
    void setFilterParam(const SDepthFilterParam& param);

    /// A row of the filtered list, null outside.
    boost::shared_ptr<DepthTransData> getData(int row) const;

    /// An order by number, whatever the filter; null when unknown.
    boost::shared_ptr<quoter::OrderData> getOrder(long long number) const;

    /// Lots of the order on one side of a deal: its original volume, of an unknown order what it has dealt
    /// so far, and of no order (number not above 0) those of the deal. 0 for null.
    int getEntrustVolume(const boost::shared_ptr<DepthTransData>& deal, bool buy) const;

    /// The number, counted from 1, of a row among the rows of its second; 0 outside.
    int tracebackSeq(int row) const;

    /// First and last row of a time tag, (-1, -1) if there is none.
    std::pair<int, int> find(int time) const;

    /// One row: with `after` the first one not before the time tag, else the last one not after it; -1 if
    /// there is none.
    int find(int time, bool after) const;

    /// The rows of the nearest second before that of `data`. False, with (-1, -1), if there is none.
    bool tryFind(const TransData* data, std::pair<int, int>& rows) const;

    /// Calls `visit` for the rows from `first` to `last` of the filtered list, as far as they exist, under
    /// the model's lock: it must be short and must not call the model.
    void visitRows(int first, int last, const std::function<void(int, const DepthTransData&)>& visit) const;

    /// Gives the next rows of a walk over the filtered list, at most so many (a thousand takes the lock for a
    /// moment); none when the walk is at the end. False when the list is another one than that which the walk
    /// began with.
    bool nextRows(RowWalk& walk, int most, std::vector<DepthTransData>& rows) const;

    /// As `visitRows`, with both sides of each row. A caller with many rows asks for them in pieces, so that
    /// the feed gets the lock in between.
    void visitSides(int first, int last,
                    const std::function<void(int, const DepthTransData&, const DealSide& buy,
                                             const DealSide& sell)>& visit) const;

    /// Whether a filter is still being applied in the background.
    bool isFiltering() const;

    /// Bytes that the model holds on the heap.
    std::size_t heapBytes() const;

    // Set by `setStock`, read by the panel. Thread of the interface.
    double priceTick = 0.01; ///< yuan
    double preClose = 0;     ///< yuan
    int volumeUnit = 100;    ///< shares per lot

    std::atomic<int> count{0};      ///< rows of the filtered list
    std::atomic<bool> dirty{false}; ///< the rows, or what is shown beside them, have changed
    utils::AtomicSharedPtr<nelservice::CInstrumentDetail> detail; ///< null without an instrument

protected:
    /// Something has changed. Called without the lock on the thread that changed it, but not for a filter
    /// that was applied in the background.
    virtual void dataChanged() {}

    /// Index in the whole list of the first deal that is not what it was at the last call, the largest int
    /// if all are. Links to later deals and the volumes of orders do not count. Any thread.
    int takeFirstChanged();

    /// Whether a batch is one of this model's instrument.
    bool isOwn(const boost::shared_ptr<MetaCacheDataWrapper>& data) const;

private:
    struct Rows;

    template <class Take>
    void take(int status, const boost::shared_ptr<MetaCacheDataWrapper>& data, Take into);

    boost::shared_ptr<Rows> m_rows; ///< also held by a filter that is being applied
};

} // namespace Kel
