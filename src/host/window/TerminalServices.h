#pragma once

#include "feed/replay/ReplayQuoteProvider.h"
#include "host/window/DayStore.h"
#include "platform/services/CConfig.h"
#include "platform/services/CUserConfig.h"

#include <boost/shared_ptr.hpp>

#include <QString>

#include <vector>

namespace host {

/// What a client puts in place before its panels: configuration, instruments, trading day and the feed that
/// answers subscriptions. Taken out again at the end. One at a time, and panels live within its life. GUI
/// thread.
class TerminalServices
{
public:
    TerminalServices();
    ~TerminalServices();
    TerminalServices(const TerminalServices&) = delete;
    TerminalServices& operator=(const TerminalServices&) = delete;

    /// Makes the instruments of days known, with their previous closes, and the trading day of the first one
    /// the current one. Their queues answer subscriptions in place of those before.
    void setDays(const std::vector<DayPtr>& days);

    /// What the panels follow while they run.
    Kel::CUserConfig& userConfig() { return m_userConfig; }
    Kel::CConfig& config() { return m_config; }

    /// yyyymmdd; 0 before the first day.
    int tradingDay() const { return m_tradingDay; }

    /// The close of the instrument's last session, ms since 1970-01-01 UTC; -1 if there is none.
    static std::int64_t closeOf(const feed::InstrumentDay& day);

    /// Market and code joined.
    static QString keyOf(const nelservice::CInstrumentDetail& detail);

private:
    Kel::CUserConfig m_userConfig;
    Kel::CConfig m_config;
    boost::shared_ptr<feed::ReplayQuoteProvider> m_provider;
    int m_tradingDay = 0;
};

} // namespace host
