#pragma once

#include "records/DepthExport.h"

namespace Zeb {

/// Hears of theme changes from its making to its end. GUI thread.
class DEPTH_EXPORT CUiResourceChangeHandler
{
public:
    CUiResourceChangeHandler();
    virtual ~CUiResourceChangeHandler();
    CUiResourceChangeHandler(const CUiResourceChangeHandler&) = delete;
    CUiResourceChangeHandler& operator=(const CUiResourceChangeHandler&) = delete;

    /// Colours, fonts, sizes or pictures have changed: read them again and repaint.
    virtual void themeChanged() {}
};

} // namespace Zeb
