#pragma once

#include "host/window/panes/Pane.h"

namespace Kel {
class CDepthConciseStyleEntrustStatusWidget;
}

namespace host {

class OrderTicket;

/// The concise quote panel, and below it the order ticket that its clicks fill. GUI thread.
class TicketPane : public Pane
{
    Q_OBJECT

public:
    explicit TicketPane(QWidget* parent = nullptr);

    Kel::CDepthConciseStyleEntrustStatusWidget& panel() { return *m_panel; }
    OrderTicket& ticket() { return *m_ticket; }

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

    Kel::CDepthConciseStyleEntrustStatusWidget* m_panel;
    OrderTicket* m_ticket;
    QString m_key;
};

} // namespace host
