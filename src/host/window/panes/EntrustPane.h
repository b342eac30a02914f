#pragma once

#include "host/window/panes/Pane.h"

namespace Kel {
class CDepthEntrustWidget;
}

namespace host {

/// The lists of orders and of cancels. GUI thread.
class EntrustPane : public Pane
{
    Q_OBJECT

public:
    explicit EntrustPane(QWidget* parent = nullptr);

    Kel::CDepthEntrustWidget& panel() { return *m_panel; }

    void setInstrument(const QString& key) override;
    void setTradeDate(const boost::function<int()>& tradeDate) override;
    FeedHub::Receiver receiver() override;
    QString selectedText() const override;
    std::vector<PaneTable> tables() const override;

private:
    Kel::CDepthEntrustWidget* m_panel;
};

} // namespace host
