#pragma once

#include "host/window/panes/Pane.h"
#include "host/window/tables/book_tables.h"

#include <QPointer>

#include <memory>

class QStackedWidget;

namespace Kel {
class CDepthThousandDataWidget;
class CSingleQueueWidget;
} // namespace Kel

namespace host {

/// The thousand-level ladder, and beside the selected level a window with its orders. Days with tick-by-tick
/// orders rebuild the ladder; for days without them that hold ready ladders, the panel made for those shows
/// them. GUI thread.
class LadderPane : public Pane
{
    Q_OBJECT

public:
    explicit LadderPane(QWidget* parent = nullptr);
    ~LadderPane() override;

    void setDay(const DayPtr& day) override;
    void setInstrument(const QString& key) override;
    void setTradeDate(const boost::function<int()>& tradeDate) override;
    FeedHub::Receiver receiver() override;

    /// The selected price, else the whole ladder.
    QString selectedText() const override;
    std::vector<PaneTable> tables() const override;

    /// Answers event 3223: opens, refreshes or closes the orders of the selected level.
    void answerSelection(int first, int top);

    /// The panel that is shown.
    Kel::CDepthThousandDataWidget& panel() { return *m_shown; }
    Kel::CSingleQueueWidget& orders() { return *m_orders; }

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    LadderRows rows() const;
    std::shared_ptr<Kel::SingleQueue> selectedOrders(double& priceTick, int& unit) const;
    void hideOrders();
    void placeOrders();
    void followWindow();
    void followDock();

    QStackedWidget* m_stack;
    Kel::CDepthThousandDataWidget* m_rebuilt;
    Kel::CDepthThousandDataWidget* m_ready;
    Kel::CDepthThousandDataWidget* m_shown;
    Kel::CSingleQueueWidget* m_orders;
    QPointer<QWidget> m_followed; ///< the window whose moves are followed
    int m_top = 0;                ///< of the selected row, pixels of the panel
    int m_unit = 100;             ///< shares of a lot
    bool m_behind = false;        ///< another tab is in front, or the pane is closed
};

} // namespace host
