#pragma once

#include "platform/resources/CUiResourceChangeHandler.h"
#include "platform/toolkit/CEventDeliverer.h"
#include "records/DepthExport.h"

#include <QPushButton>

namespace Zeb {

/// Button of a dialog with a text that sends event 5 (first number `id`, second 0) when it is clicked, before
/// anything that is connected to its `clicked`. The return key presses it only if it has the focus or
/// `setDefault` was called. GUI thread.
class DEPTH_EXPORT CMediumNormalButton : public QPushButton,
                                         public CEventDeliverer,
                                         public CUiResourceChangeHandler
{
    Q_OBJECT

public:
    CMediumNormalButton(const QString& text, int id, QWidget* parent);

    int id() const { return m_id; }

    void themeChanged() override;

private:
    int m_id;
};

} // namespace Zeb
