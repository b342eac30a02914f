#pragma once

#include "host/window/panes/Pane.h"

namespace Kel {
class CDepthHolographicWidget;
}

namespace host {

/// The holographic deal chart: of the whole day, or the zoomed one that shows a range selected on the other.
/// GUI thread.
class ChartPane : public Pane
{
    Q_OBJECT

public:
    enum class EView
    {
        eDay,
        eZoomed,
    };

    explicit ChartPane(EView view, QWidget* parent = nullptr);

    Kel::CDepthHolographicWidget& panel() { return *m_panel; }

    void setInstrument(const QString& key) override;
    FeedHub::Receiver receiver() override;
    void follow() override;

private:
    Kel::CDepthHolographicWidget* m_panel;
    bool m_toNewest = false; ///< the newest deal has still to be brought into view
};

} // namespace host
