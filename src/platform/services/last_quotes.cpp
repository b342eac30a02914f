#include "platform/services/last_quotes.h"

#include "platform/utils/CSingletonT.h"

#include <map>
#include <mutex>
#include <shared_mutex>
#include <utility>

namespace Kel {

namespace {

struct LastQuotes
{
    std::shared_mutex mutex; ///< guards the quotes
    std::map<std::pair<std::string, std::string>, quoter::QuoterAllDataPtr> quotes;
};

LastQuotes& lastQuotes()
{
    return utils::CSingletonT<LastQuotes>::instance();
}

} // namespace

quoter::QuoterAllDataPtr getLastQuoterAllDataPtr(const std::string& market, const std::string& code)
{
    LastQuotes& last = lastQuotes();
    std::shared_lock<std::shared_mutex> lock(last.mutex);
    const auto entry = last.quotes.find({market, code});
    return entry == last.quotes.end() ? quoter::QuoterAllDataPtr() : entry->second;
}

void setLastQuoterAllData(const std::string& market, const std::string& code,
                          const quoter::QuoterAllDataPtr& quote)
{
    LastQuotes& last = lastQuotes();
    std::unique_lock<std::shared_mutex> lock(last.mutex);
    if (quote)
        last.quotes[{market, code}] = quote;
    else
        last.quotes.erase({market, code});
}

void clearLastQuoterAllData()
{
    LastQuotes& last = lastQuotes();
    std::unique_lock<std::shared_mutex> lock(last.mutex);
    last.quotes.clear();
}

} // namespace Kel
