#pragma once

#include "platform/models/RowWalk.h"
#include "platform/utils/AtomicSharedPtr.h"
#include "records/CFormulaParam.h"
#include "records/CInstrumentDetail.h"
#include "records/DepthCancelData.h"
#include "records/DepthExport.h"
#include "records/DepthOrderData.h"
#include "records/MetaCacheDataWrapper.h"
#include "records/SDepthFilterParam.h"
#include "records/TransactionData.h"

#include <QString>

#include <boost/shared_ptr.hpp>

#include <atomic>
#include <cstddef>
#include <list>
#include <vector>

namespace Kel {

/// A cancellation and its order, as far as that is known.
struct DEPTH_EXPORT CancelWithOrder
{
    DepthCancelData cancel;
    bool isKnown = false;
    DepthOrderData order;
};

/// The orders and the cancellations of one instrument's day, each list filtered, and the deals of each
/// order.
///
/// Orders stand in order of time tag (second) and number, cancellations in order of time tag and number of
/// their record; what comes late is put in its place, what is repeated is ignored. An order is a record with
/// a number above 0 that fits 32 bits, shares above 0, and a kind other than 3 (no standing order); its
/// volume is the original one, as the feed gives it. A cancellation is a record of kind 3 of the deal
/// channel; its order is `buyNo`, or `sellNo` when that is 0. Lots are the nearest, 1 below a lot.
///
/// Filter: see `passesFilter`, `wantsOrder` and `wantsCancel`. A cancellation is judged by side and price of
/// its order. While the order is unknown it is judged by its own price and the side that its numbers prove
/// (a number in `sellNo`: sell; in `buyNo` alone: buy), else it is kept if either kind of cancel is; when
/// the order comes it is judged again. `orderCount`, `cancelCount`, the rows and the places in a second are
/// those of the filtered lists, look-ups by number know no filter.
///
/// Batches of status 0 replace all data of their channel (orders; deals and cancellations) in one step, 1, 2
/// and 3 add to it, others are ignored, as is a batch of another instrument and every batch while there is
/// none. What is left of a batch when the model is cleared or gets another instrument is dropped.
///
/// Threads: callbacks on any thread, everything else on the thread of the interface (the look-ups may be
/// called on any). Batches are taken one after the other. The model has its own lock, which lets those who
/// look pass first and is held for a few milliseconds at most, whatever a batch is like. Counts are set
/// before flags; a reader clears a flag and then reads the count. What was handed out never changes and stays
/// valid. A new filter is applied at once to short lists and in the background to long ones; the old lists
/// stay in force until the new ones are whole.
class DEPTH_EXPORT CModelDepthEntrust
{
public:
    CModelDepthEntrust();
    virtual ~CModelDepthEntrust();
    CModelDepthEntrust(const CModelDepthEntrust&) = delete;
    CModelDepthEntrust& operator=(const CModelDepthEntrust&) = delete;

    /// Chooses the instrument by the code that the stock manager knows it by. Rows stay. With an unknown
    /// code there is no instrument.
    void setStock(const QString& code);

    /// Adds the instrument's key as "code".
    void getParams(CFormulaParam& param) const;

    /// Drops all rows and deals; keeps instrument and filter.
    void clear();

    void entrustCallback(int seq, int status, const boost::shared_ptr<MetaCacheDataWrapper>& data);
    void transactionCallback(int seq, int status, const boost::shared_ptr<MetaCacheDataWrapper>& data);

    /// Keeps what passes from now on.
    void setFilterParam(const SDepthFilterParam& param);

    /// A row of the order list, null outside: of the filtered list, with `whole` of the whole one.
    boost::shared_ptr<DepthOrderData> getOrderData(int row, bool whole) const;

    /// An order by number. True when found; otherwise `order` is made null.
    bool getOrderData(int number, boost::shared_ptr<DepthOrderData>& order) const;

    /// A row of the filtered list of cancellations, null outside.
    boost::shared_ptr<DepthCancelData> getCancelData(int row) const;

    /// Fills `records` with all deals and cancellations of an order, in order of time tag and number of the
    /// record. `kind` is 3 for a cancellation, else the side that was active, 0 for none. True if there is
    /// one.
    bool getTransactionData(int number, std::list<boost::shared_ptr<quoter::TransactionData>>& records) const;

    /// Give the next rows of a walk over a filtered list, at most so many (a thousand takes the lock for a
    /// moment); none when the walk is at the end. False when the list is another one than that which the walk
    /// began with.
    bool nextOrders(RowWalk& walk, int most, std::vector<DepthOrderData>& rows) const;
    bool nextCancels(RowWalk& walk, int most, std::vector<CancelWithOrder>& rows) const;

    /// The number, counted from 1, of a row among the rows of its second; 0 outside.
    int tracebackOrderSeq(int row) const;
    int tracebackCancelSeq(int row) const;

    /// The limit orders of the filtered list of exactly this price (yuan), these lots and this side whose
    /// whole second stands at this time of the exchange's day (ms since midnight), in order.
    std::vector<boost::shared_ptr<DepthOrderData>> findOrders(int timeOfDayMs, double price, int lots,
                                                              int side) const;

    /// Whether a filter is still being applied in the background.
    bool isFiltering() const;

    /// Bytes that the model holds on the heap.
    std::size_t heapBytes() const;

    // Set by `setStock`, read by the panel. Thread of the interface.
    double priceTick = 0.01; ///< yuan
    double preClose = 0;     ///< yuan

    std::atomic<int> orderCount{0};       ///< rows of the filtered list of orders
    std::atomic<int> cancelCount{0};      ///< rows of the filtered list of cancellations
    std::atomic<bool> orderDirty{false};  ///< the list of orders has changed
    std::atomic<bool> cancelDirty{false}; ///< the list of cancellations, or an order of one, has changed
    utils::AtomicSharedPtr<nelservice::CInstrumentDetail> detail; ///< null without an instrument

private:
    struct Rows;

    template <class Take>
    void take(int status, const boost::shared_ptr<MetaCacheDataWrapper>& data, Take into);

    boost::shared_ptr<Rows> m_rows; ///< also held by a filter that is being applied
};

} // namespace Kel
