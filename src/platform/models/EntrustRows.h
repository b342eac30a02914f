#pragma once

#include "platform/models/CModelDepthEntrust.h"
#include "platform/models/CancelLog.h"
#include "platform/models/DealLog.h"
#include "platform/models/EntrustViews.h"
#include "platform/models/OrderLog.h"
#include "platform/models/RowPages.h"

#include <cstdint>
#include <memory>
#include <mutex>
#include <vector>

namespace Kel {

/// What the model keeps. All but `applyFilter` is called under the lock.
struct CModelDepthEntrust::Rows
{
    explicit Rows(CModelDepthEntrust* model) : owner(model) {}

    void publishOrders();
    void publishCancels();
    void addOrders(const quoter::QuoterBatch& batch, std::size_t from, std::size_t to);
    void addDeals(const quoter::QuoterBatch& batch, std::size_t from, std::size_t to);

    /// Starts to build the lists of a filter; gives the number to apply it with.
    int startFilter(const SDepthFilterParam& param);

    /// The filter that was set last.
    const SDepthFilterParam& lastParam() const { return (pending ? pending : views)->param(); }

    /// Builds the lists that `startFilter` began, slice by slice, and puts them in force; gives up when
    /// another filter was set or the model has gone.
    static void applyFilter(const boost::shared_ptr<Rows>& rows, int serial);

    mutable std::mutex mutex; ///< guards all below
    CModelDepthEntrust* owner;
    int unit = 100;
    std::unique_ptr<OrderLog> orders = std::make_unique<OrderLog>();
    std::unique_ptr<CancelLog> cancels = std::make_unique<CancelLog>();
    std::unique_ptr<DealLog> deals = std::make_unique<DealLog>();
    std::unique_ptr<EntrustViews> views = std::make_unique<EntrustViews>(SDepthFilterParam());
    std::unique_ptr<EntrustViews> pending; ///< the lists of a new filter, until they are whole
    int filterSerial = 0;
    std::uint64_t version = 0;
    RowPages<DepthOrderData> orderPages;
    RowPages<DepthOrderData> wholeOrderPages;
    RowPages<DepthCancelData> cancelPages;

private:
    void judgeCancelsOf(const std::vector<OrderLogRow>& added);

    std::vector<OrderLogRow> orderBatch; ///< this one and the next two are kept for their memory
    std::vector<CancelLogRow> cancelBatch;
    std::vector<DealRow> dealBatch;
};

} // namespace Kel
