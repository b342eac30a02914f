#pragma once

#include "frame/CDepthModuleHeaderWidget.h"
#include "platform/toolkit/CBaseWidget.h"

namespace host {

/// The place of one panel in the window: its header, and the answer to the header's wish for another mode
/// (event 1396). Each header has a cell of its own, so that a wish reaches its own panel only. GUI thread.
class PanelCell : public Zeb::CBaseWidget
{
    Q_OBJECT

public:
    explicit PanelCell(const QString& objectName, QWidget* parent = nullptr);

    Kel::CDepthModuleHeaderWidget& header() { return *m_header; }

    bool handleEvent(int id, int first, int second, QString text, void* pointer) override;

private:
    Kel::CDepthModuleHeaderWidget* m_header;
};

} // namespace host
