#include "host/window/TerminalServices.h"

#include "host/DayTimeline.h"
#include "platform/services/CFormulaManager.h"
#include "platform/services/CStockManager.h"
#include "platform/utils/CSingletonT.h"
#include "platform/utils/exchange_time.h"

#include <boost/make_shared.hpp>

#include <algorithm>
#include <utility>
#include <vector>

namespace host {

namespace {

constexpr double kRefreshInterval = 0.1; // seconds between two looks of a panel at its model

Kel::CFormulaManager& formulas()
{
    return utils::CSingletonT<Kel::CFormulaManager>::instance();
}

Kel::CStockManager& stocks()
{
    return utils::CSingletonT<Kel::CStockManager>::instance();
}

int dateOf(const feed::InstrumentDay& day)
{
    return day.tradingDay > 0 ? static_cast<int>(day.tradingDay) : utils::exchangeDate(dayStart(day));
}

} // namespace

TerminalServices::TerminalServices() : m_provider(boost::make_shared<feed::ReplayQuoteProvider>())
{
    m_userConfig.setRefreshInterval(kRefreshInterval);
    Kel::setUserConfig(&m_userConfig);
    Kel::setConfig(&m_config);
    formulas().addProvider(m_provider);
}

TerminalServices::~TerminalServices()
{
    formulas().removeProvider(m_provider);
    Kel::setConfig(nullptr);
    Kel::setUserConfig(nullptr);
}

void TerminalServices::setDays(const std::vector<DayPtr>& days)
{
    m_provider->clear();
    if (days.empty())
        return;
    m_tradingDay = dateOf(*days.front());
    formulas().setTradingDay(m_tradingDay);
    for (const DayPtr& day : days) {
        stocks().addInstrument(boost::make_shared<nelservice::CInstrumentDetail>(day->detail));
        stocks().setLastClose(keyOf(day->detail), dateOf(*day), day->detail.previousClose);
        m_provider->addDay(*day);
    }
}

std::int64_t TerminalServices::closeOf(const feed::InstrumentDay& day)
{
    std::vector<std::pair<std::int64_t, std::int64_t>> sessions;
    formulas().getOpenCloseTime(sessions, day.detail.market, day.detail.code);
    std::int64_t close = -1;
    for (const auto& session : sessions)
        close = std::max(close, session.second);
    return close;
}

QString TerminalServices::keyOf(const nelservice::CInstrumentDetail& detail)
{
    return QString::fromStdString(detail.market + detail.code);
}

} // namespace host
