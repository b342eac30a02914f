#pragma once

#include "host/window/panes/Pane.h"

namespace Kel {
class CDepthEntrustStatusWidget;
}

namespace host {

/// The plain quote panel with one, five or ten levels a side. GUI thread.
class LevelPane : public Pane
{
    Q_OBJECT

public:
    explicit LevelPane(QWidget* parent = nullptr);

    Kel::CDepthEntrustStatusWidget& panel() { return *m_panel; }

    void setInstrument(const QString& key) override;
    void setTradeDate(const boost::function<int()>& tradeDate) override;
    FeedHub::Receiver receiver() override;

    /// The marked row, else all rows.
    QString selectedText() const override;
    std::vector<PaneTable> tables() const override;

    /// Five levels a side instead of ten, where the market has ten.
    void setFiveLevels(bool five);

private:
    void fitHeight();

    Kel::CDepthEntrustStatusWidget* m_panel;
};

} // namespace host
