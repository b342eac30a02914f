#pragma once

#include "frame/CDepthModuleHeaderWidget.h"
#include "host/window/panes/Pane.h"

namespace host {

/// A pane whose panel stands in a header: the header, and the answer to the header's wish for another mode
/// (event 1396). Each header has a cell of its own, so that a wish reaches its own panel only. GUI thread.
class PanelCell : public Pane
{
    Q_OBJECT

public:
    PanelCell(const QString& id, const QString& title, QWidget* parent);

    Kel::CDepthModuleHeaderWidget& header() { return *m_header; }

    bool handleEvent(int id, int first, int second, QString text, void* pointer) override;

private:
    Kel::CDepthModuleHeaderWidget* m_header;
};

} // namespace host
