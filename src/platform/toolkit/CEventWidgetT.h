#pragma once

#include "platform/toolkit/CEventHandler.h"
#include "records/DepthExport.h"

#include <utility>

namespace Zeb {

/// A widget class that takes events; by itself it takes none.
template <class Widget>
class DEPTH_EXPORT CEventWidgetT : public Widget, public CEventHandler
{
public:
    using Widget::Widget;

    bool handleEvent(int, int, int, QString, void*) override { return false; }
};

} // namespace Zeb
