#pragma once

#include "feed/csv/Error.h"
#include "feed/csv/ImportReport.h"
#include "records/Notice.h"

#include <string>

namespace feed {

/// Reads the notices of one instrument ("SH600519") of a day archive, in the order of the table; a missing
/// table gives none. Lines that cannot be read are rejected and counted in `report`. False, with `error`
/// filled, if the table cannot be read as a whole; `notices` then has the rows read so far. Any thread.
bool readArchivedNotices(const std::string& folder, const std::string& key, quoter::NoticeList& notices,
                         ImportReport& report, Error& error);

} // namespace feed
