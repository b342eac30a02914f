#pragma once

#include "platform/models/CModelDepthTransaction.h"
#include "platform/models/DealLog.h"
#include "platform/models/DealView.h"
#include "platform/models/OrderTable.h"
#include "platform/models/RowPages.h"
#include "platform/models/RowWalk.h"
#include "platform/models/ladder_lock.h"
#include "platform/models/tick_batches.h"

#include <cstdint>
#include <limits>
#include <memory>
#include <mutex>

namespace Kel {

/// What the model keeps.
///
/// Batches are taken one after the other: who takes one holds `feed`. Logs change by batches alone, so that
/// he may read them without the lock and holds it only to put rows in place, for a slice at a time; who looks
/// at rows or clears holds only the lock. A batch ends where it stands when `generation` is another one.
struct CModelDepthTransaction::Rows
{
    /// What a batch began with.
    struct Work
    {
        std::uint64_t generation = 0;
        int unit = 100;
        std::shared_ptr<DealLog> deals;
        std::shared_ptr<OrderTable> orders;
    };

    explicit Rows(CModelDepthTransaction* model) : owner(model) {}

    /// Begins a batch; false for one that is not of the instrument. Takes the lock.
    bool begin(const boost::shared_ptr<MetaCacheDataWrapper>& data, Work& work);

    /// Take the deals and the orders of a batch; `anew` replaces what is there, in one step. True if that
    /// changed anything. Take the lock.
    bool takeDeals(const quoter::QuoterBatch& batch, bool anew, Work& work);
    bool takeOrders(const quoter::QuoterBatch& batch, bool anew, Work& work);

    /// Lots of the order on one side of a deal, and the side as a whole. Under the lock.
    int orderLots(const DepthTransData& deal, bool buy) const;
    DealSide side(const DepthTransData& deal, bool buy) const;

    /// Tells the model, if it still lives, what has changed. Under the lock.
    void publish();

    /// Goes on with the filter of this number until its list is whole, and puts that in force. Takes the
    /// lock.
    static void applyFilter(const boost::shared_ptr<Rows>& rows, int serial);

    std::mutex feed; ///< held by who takes a batch, before the lock

    mutable ReaderFirstMutex mutex; ///< guards all below
    CModelDepthTransaction* owner;
    nelservice::CInstrumentDetailPtr detail;
    int unit = 100;
    std::uint64_t generation = 0; ///< another one after a clear and a change of instrument
    std::shared_ptr<DealLog> deals = std::make_shared<DealLog>();
    std::shared_ptr<OrderTable> orders = std::make_shared<OrderTable>();
    std::shared_ptr<DealView> view = std::make_shared<DealView>(SDepthFilterParam());
    std::shared_ptr<DealView> pending; ///< the list of a new filter, until it is whole
    int filterSerial = 0;
    std::uint64_t version = 0;
    ListMarks marks;                                    ///< of the filtered list
    int firstChanged = std::numeric_limits<int>::max(); ///< in the whole list, since it was asked for
    RowPages<DepthTransData> pages;

private:
    void placeDeals(const DealRow* begin, const DealRow* end);
    bool replaceDeals(const std::shared_ptr<DealLog>& next, bool anew, int from, Work& work);
};

} // namespace Kel
