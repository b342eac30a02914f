#pragma once

#include "records/DepthExport.h"
#include "records/QuoterBase.h"

#include <QList>

#include <string>

namespace quoter {

/// One news item or announcement of an instrument. `m_time` is the time of the notice.
struct DEPTH_EXPORT Notice : QuoterBase
{
    std::string title; ///< UTF-8, shown in the title column
    std::string link;  ///< UTF-8, kept in a hidden column; never opened by itself
};

using NoticePtr = boost::shared_ptr<Notice>;
using NoticeList = QList<NoticePtr>;

} // namespace quoter
