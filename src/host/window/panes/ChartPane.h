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

    EView view() const { return m_view; }

    Kel::CDepthHolographicWidget& panel() { return *m_panel; }

    /// Shows the deals of a range of time tags (seconds since 1970-01-01 UTC, both inside).
    void showRange(int begin, int end);

    /// Shows the last 300 deals, as in the beginning.
    void showLatest();

    /// Selects a deal; one that is not in view is brought there with the minute before and after it.
    void highlight(int deal, int timeTag);

    void setInstrument(const QString& key) override;
    FeedHub::Receiver receiver() override;

    /// The deal under the cursor, or the deals of its quote interval, else the deals in view.
    QString selectedText() const override;
    std::vector<PaneTable> tables() const override;
    void follow() override;

private:
    EView m_view;
    Kel::CDepthHolographicWidget* m_panel;
    int m_looks = 0; ///< at deals that have come, until the newest is brought into view
};

} // namespace host
