#pragma once

#include "platform/services/DataDemand.h"
#include "platform/services/proxy_type.h"
#include "records/DepthExport.h"
#include "records/QuoterBase.h"
#include "records/TRegionInfo.h"
#include "records/TSMetaInfo.h"

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>

#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

namespace Kel {

/// Records for a subscription: sequence number, status, records oldest first.
using QuoteCallback =
    boost::function<void(int, int, const std::vector<boost::shared_ptr<quoter::QuoterBase>>&)>;

/// A feed that answers subscriptions.
class DEPTH_EXPORT IQuoteProvider
{
public:
    virtual ~IQuoteProvider() = default;

    /// Takes a subscription on: true, and the records go to `callback`, now or later, on any thread, in one
    /// call or several. False if this feed does not have the series; `callback` is then dropped uncalled.
    /// Called on the subscriber's thread, so long work goes elsewhere.
    virtual bool serve(const quoter::TSMetaInfo& meta, const quoter::TRegionInfo& region,
                       QuoteCallback callback) = 0;
};

/// The front of the feeds: sessions of the trading day, and subscriptions of data series. Used as
/// `utils::CSingletonT<Kel::CFormulaManager>::instance()`. Any thread may call anything.
class DEPTH_EXPORT CFormulaManager
{
public:
    CFormulaManager();
    ~CFormulaManager();
    CFormulaManager(const CFormulaManager&) = delete;
    CFormulaManager& operator=(const CFormulaManager&) = delete;

    /// The trading day (20230201) whose sessions are asked for. A date that is not in the calendar is
    /// refused: false. 0 goes back to the initial state, which is today at the exchange.
    bool setTradingDay(int yyyymmdd);
    int tradingDay() const;

    /// Replaces `pairs` by the open and close times of the instrument's sessions on the trading day,
    /// milliseconds since 1970-01-01 UTC, in order. Empty for an unknown market. See `tradingSessions`.
    void getOpenCloseTime(std::vector<std::pair<std::int64_t, std::int64_t>>& pairs,
                          const std::string& market, const std::string& code) const;

    /// Installs a feed; feeds are asked in the order of installing. Null is ignored.
    void addProvider(const boost::shared_ptr<IQuoteProvider>& provider);

    /// Takes a feed out. What it has taken on is still answered.
    void removeProvider(const boost::shared_ptr<IQuoteProvider>& provider);

    /// Asks the feeds for a series; the first that has it answers. `callback` is called on a thread of the
    /// RPC pool, one answer after the other, until `unsubQuoter`. Gives the id of the subscription, above 0,
    /// or -1 if no feed has the series or the callback is empty. An answer may arrive before this returns. A
    /// subscription stays until it is ended, so that late answers reach it. The region stands for itself:
    /// service, demand and the two flags (keep alive, replace) ask for nothing that the feeds of this process
    /// do not do anyway.
    int subscribeQuoter(se::EProxyType proxy, const quoter::TSMetaInfo& meta,
                        const quoter::TRegionInfo& region, quoter::DataDemand demand, bool keepAlive,
                        bool replace, QuoteCallback callback);

    /// Ends a subscription; an unknown id is ignored. After it returns the callback does not run and will not
    /// be called again; called from the callback itself, it is not called again after that. It waits for a
    /// callback that is running, so call it without locks that the callback takes.
    void unsubQuoter(long long id, const quoter::TSMetaInfo& meta);

private:
    struct Subscription;

    std::vector<boost::shared_ptr<IQuoteProvider>> providers() const;

    mutable std::mutex m_mutex; ///< guards all below
    int m_tradingDay = 0;       ///< 0 for today
    int m_lastId = 0;
    std::vector<boost::shared_ptr<IQuoteProvider>> m_providers;
    std::map<long long, std::shared_ptr<Subscription>> m_subscriptions;
};

} // namespace Kel
