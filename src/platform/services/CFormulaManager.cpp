#include "platform/services/CFormulaManager.h"

#include "platform/services/RPCEngine.h"
#include "platform/services/trading_sessions.h"
#include "platform/utils/exchange_time.h"

#include <algorithm>
#include <limits>

namespace Kel {

namespace {

constexpr const char* kAnswerStrand = "quoter";

} // namespace

/// One subscription, held by the manager and by what the feed was given to answer with.
struct CFormulaManager::Subscription
{
    std::recursive_mutex mutex; ///< held while the callback runs; recursive, since the callback may end it
    QuoteCallback callback;     ///< empty once it was ended

    void answer(int seq, int status, const std::vector<boost::shared_ptr<quoter::QuoterBase>>& data)
    {
        std::lock_guard<std::recursive_mutex> lock(mutex);
        // A copy, so that a callback which ends its own subscription is not destroyed under its feet.
        const QuoteCallback call = callback;
        if (call)
            call(seq, status, data);
    }

    void end()
    {
        std::lock_guard<std::recursive_mutex> lock(mutex);
        callback.clear();
    }
};

CFormulaManager::CFormulaManager()
{
    // Made first, the pool is still there for what is answered until this object goes.
    net::RPCEngine::getStrand(kAnswerStrand);
}

CFormulaManager::~CFormulaManager()
{
    for (const auto& subscription : m_subscriptions)
        subscription.second->end();
}

bool CFormulaManager::setTradingDay(int yyyymmdd)
{
    if (yyyymmdd != 0 && utils::exchangeTime(yyyymmdd, 0, 0, 0, 0) == -1)
        return false;
    std::lock_guard<std::mutex> lock(m_mutex);
    m_tradingDay = yyyymmdd;
    return true;
}

int CFormulaManager::tradingDay() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_tradingDay != 0 ? m_tradingDay : utils::exchangeDate(utils::currentMSecSince1970());
}

void CFormulaManager::getOpenCloseTime(std::vector<std::pair<std::int64_t, std::int64_t>>& pairs,
                                       const std::string& market, const std::string& code) const
{
    const std::int64_t dayStart = utils::exchangeTime(tradingDay(), 0, 0, 0, 0);
    pairs = tradingSessions(market, code);
    for (auto& pair : pairs) {
        pair.first += dayStart;
        pair.second += dayStart;
    }
}

void CFormulaManager::addProvider(const boost::shared_ptr<IQuoteProvider>& provider)
{
    if (!provider)
        return;
    std::lock_guard<std::mutex> lock(m_mutex);
    m_providers.push_back(provider);
}

void CFormulaManager::removeProvider(const boost::shared_ptr<IQuoteProvider>& provider)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_providers.erase(std::remove(m_providers.begin(), m_providers.end(), provider), m_providers.end());
}

std::vector<boost::shared_ptr<IQuoteProvider>> CFormulaManager::providers() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_providers;
}

int CFormulaManager::subscribeQuoter(se::EProxyType, const quoter::TSMetaInfo& meta,
                                     const quoter::TRegionInfo& region, quoter::DataDemand, bool, bool,
                                     QuoteCallback callback)
{
    if (!callback)
        return -1;
    const auto subscription = std::make_shared<Subscription>();
    subscription->callback = std::move(callback);
    long long id = 0;
    {
        // Entered before a feed is asked: it may answer at once.
        std::lock_guard<std::mutex> lock(m_mutex);
        do
            m_lastId = m_lastId == std::numeric_limits<int>::max() ? 1 : m_lastId + 1;
        while (m_subscriptions.count(m_lastId) != 0);
        id = m_lastId;
        m_subscriptions[id] = subscription;
    }
    const auto strand = net::RPCEngine::getStrand(kAnswerStrand);
    const QuoteCallback answer = [strand, subscription](int seq, int status,
                                                        const quoter::QuoterBatch& data) {
        strand->post([subscription, seq, status, data] { subscription->answer(seq, status, data); });
    };
    for (const auto& provider : providers()) {
        if (provider->serve(meta, region, answer))
            return static_cast<int>(id);
    }
    unsubQuoter(id, meta);
    return -1;
}

void CFormulaManager::unsubQuoter(long long id, const quoter::TSMetaInfo&)
{
    std::shared_ptr<Subscription> ended;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        const auto entry = m_subscriptions.find(id);
        if (entry == m_subscriptions.end())
            return;
        ended = entry->second;
        m_subscriptions.erase(entry);
    }
    ended->end();
}

} // namespace Kel
