#pragma once

#include "host/window/TerminalOptions.h"
#include "host/window/panes/PanelCell.h"

namespace Kel {
class CDepthOrderQueueWidget;
}

namespace host {

/// The order-queue panel in its header, wired as a host has to: the panel is the header's child, so that its
/// title finds the strip; it is the header's body before the first resize; the header's events go to the
/// panel's `handleEvent`. GUI thread.
class QueueCell : public PanelCell
{
    Q_OBJECT

public:
    explicit QueueCell(QWidget* parent = nullptr);

    Kel::CDepthOrderQueueWidget& panel() { return *m_panel; }
    const Kel::CDepthOrderQueueWidget& panel() const { return *m_panel; }

    void setTradeDate(const boost::function<int()>& tradeDate) override;
    void setInstrument(const QString& key) override;
    FeedHub::Receiver receiver() override;

    /// All levels that are shown, each with its orders.
    QString selectedText() const override;
    std::vector<PaneTable> tables() const override;

    void setModes(const QueueModes& modes);

    /// The modes in force, by whatever way they were chosen.
    QueueModes modes() const;

Q_SIGNALS:
    /// The header's buttons have changed the mode.
    void modesChanged();

private:
    int shownLevels() const;
    bool handleEvent(int id, int first, int second, QString text, void* pointer) override;

    Kel::CDepthOrderQueueWidget* m_panel;
    bool m_full = false;
};

} // namespace host
