#pragma once

#include "host/window/panes/PanelCell.h"

namespace Kel {
class CDepthTransactionWidget;
}

namespace host {

/// The list of deals in its header, whose buttons open the filter and switch the hologram strip. GUI thread.
class DealsPane : public PanelCell
{
    Q_OBJECT

public:
    explicit DealsPane(QWidget* parent = nullptr);

    Kel::CDepthTransactionWidget& panel() { return *m_panel; }

    /// Shows or hides the hologram strip.
    void toggleStrip();

    void setInstrument(const QString& key) override;
    void setTradeDate(const boost::function<int()>& tradeDate) override;
    FeedHub::Receiver receiver() override;
    QString selectedText() const override;
    std::vector<PaneTable> tables() const override;
    bool handleEvent(int id, int first, int second, QString text, void* pointer) override;

private:
    Kel::CDepthTransactionWidget* m_panel;
    bool m_strip = true; ///< the hologram strip is shown
};

} // namespace host
