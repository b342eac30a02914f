#pragma once

#include "records/DepthExport.h"

#include <QString>

namespace Zeb {

/// What a widget takes events with. GUI thread.
class DEPTH_EXPORT CEventHandler
{
public:
    virtual ~CEventHandler() = default;

    /// True if the event was taken, which ends its delivery. `docs/events.md` lists the ids and what their
    /// numbers, text and data mean. `data` is valid during the call only.
    virtual bool handleEvent(int id, int first, int second, QString text, void* data) = 0;
};

} // namespace Zeb
