#pragma once

#include "platform/models/CModelDepthEntrust.h"
#include "platform/models/CancelLog.h"
#include "platform/models/DealLog.h"
#include "platform/models/EntrustViews.h"
#include "platform/models/OrderLog.h"
#include "platform/models/RowPages.h"
#include "platform/models/RowWalk.h"
#include "platform/models/ladder_lock.h"
#include "platform/models/tick_batches.h"

#include <cstdint>
#include <memory>
#include <mutex>
#include <vector>

namespace Kel {

/// What the model keeps.
///
/// Batches are taken one after the other: who takes one holds `feed`. Logs change by batches alone, so that
/// he may read them without the lock and holds it only to put rows in place, for a slice at a time; who looks
/// at rows or clears holds only the lock. A batch ends where it stands when `generation` is another one.
struct CModelDepthEntrust::Rows
{
    /// What a batch began with.
    struct Work
    {
        std::uint64_t generation = 0;
        int unit = 100;
        std::shared_ptr<OrderLog> orders;
        std::shared_ptr<CancelLog> cancels;
        std::shared_ptr<DealLog> deals;
    };

    explicit Rows(CModelDepthEntrust* model) : owner(model) {}

    /// Begins a batch; false for one that is not of the instrument. Takes the lock.
    bool begin(const boost::shared_ptr<MetaCacheDataWrapper>& data, Work& work);

    /// Take the orders, or the deals and cancellations, of a batch; `anew` replaces what is there, in one
    /// step. Take the lock.
    void takeOrders(const quoter::QuoterBatch& batch, bool anew, Work& work);
    void takeDeals(const quoter::QuoterBatch& batch, bool anew, Work& work);

    /// Tell the model, if it still lives, what has changed. Under the lock.
    void publishOrders();
    void publishCancels();

    /// Starts to build the lists of a filter; gives the number to apply it with. Under the lock.
    int startFilter(const SDepthFilterParam& param);

    /// The filter that was set last. Under the lock.
    const SDepthFilterParam& lastParam() const { return (pending ? pending : views)->param(); }

    /// Builds the lists that `startFilter` began, slice by slice, and puts them in force; gives up when
    /// another filter was set or the model has gone. Takes the lock.
    static void applyFilter(const boost::shared_ptr<Rows>& rows, int serial);

    std::mutex feed; ///< held by who takes a batch, before the lock

    mutable ReaderFirstMutex mutex; ///< guards all below
    CModelDepthEntrust* owner;
    nelservice::CInstrumentDetailPtr detail;
    int unit = 100;
    std::uint64_t generation = 0; ///< another one after a clear and a change of instrument
    std::shared_ptr<OrderLog> orders = std::make_shared<OrderLog>();
    std::shared_ptr<CancelLog> cancels = std::make_shared<CancelLog>();
    std::shared_ptr<DealLog> deals = std::make_shared<DealLog>();
    std::shared_ptr<EntrustViews> views = std::make_shared<EntrustViews>(SDepthFilterParam());
    std::shared_ptr<EntrustViews> pending; ///< the lists of a new filter, until they are whole
    int filterSerial = 0;
    std::uint64_t version = 0;
    ListMarks orderMarks; ///< this one and the next: of the filtered lists
    ListMarks cancelMarks;
    RowPages<DepthOrderData> orderPages;
    RowPages<DepthOrderData> wholeOrderPages;
    RowPages<DepthCancelData> cancelPages;

private:
    void placeOrders(const OrderLogRow* begin, const OrderLogRow* end);
    void judgeCancelsOf(const OrderLogRow* begin, const OrderLogRow* end);
    void addCancels(std::vector<CancelLogRow>& batch, Work& work);
    void addDeals(std::vector<DealRow>& batch, Work& work);
    void replaceOrders(const std::shared_ptr<OrderLog>& next, bool anew, int firstChanged, Work& work);
    void replaceCancels(const std::shared_ptr<CancelLog>& next, const std::shared_ptr<DealLog>& nextDeals,
                        int firstChanged, Work& work);
};

} // namespace Kel
