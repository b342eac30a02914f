#pragma once

#include "records/CInstrumentDetail.h"
#include "records/Notice.h"

#include <cstdint>

namespace feed {

/// Notices that a listed company might have published up to a trading day (20230201), newest first: some of
/// the weeks before, some of the day itself before 09:30. Links lead nowhere. The same arguments give the
/// same notices; a day that is not in the calendar gives none.
quoter::NoticeList simulatedNotices(const nelservice::CInstrumentDetail& detail, std::int64_t tradingDay,
                                    std::uint64_t seed);

} // namespace feed
