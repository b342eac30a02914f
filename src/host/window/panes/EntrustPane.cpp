#include "host/window/panes/EntrustPane.h"

#include "host/window/language/TerminalLanguage.h"
#include "tick/CDepthCancelWidget.h"
#include "tick/CDepthEntrustWidget.h"
#include "tick/CDepthOrderWidget.h"

namespace host {

EntrustPane::EntrustPane(QWidget* parent)
    : Pane(QStringLiteral("orders"), sourceText("逐笔委托与撤单"), parent),
      m_panel(new Kel::CDepthEntrustWidget(this))
{
    setContentWidget(m_panel, 0, 0, true);
    setWantedSize(QSize(700, 400));
}

void EntrustPane::setInstrument(const QString& key)
{
    m_panel->clear(true);
    m_panel->setStock(key);
}

void EntrustPane::setTradeDate(const boost::function<int()>& tradeDate)
{
    m_panel->setCurrentTradeDateFunc(tradeDate);
}

FeedHub::Receiver EntrustPane::receiver()
{
    FeedHub::Receiver receiver;
    receiver.orders = [panel = m_panel](const QString& key, int seq, int status, const auto& batch) {
        panel->entrustCallback(key, seq, status, batch);
    };
    receiver.deals = [panel = m_panel](const QString& key, int seq, int status, const auto& batch) {
        panel->transactionCallback(key, seq, status, batch);
    };
    return receiver;
}

/// Of the list with the focus, else of the one that has a selection.
QString EntrustPane::selectedText() const
{
    const Kel::CTickListWidget* const lists[] = {m_panel->orderList(), m_panel->cancelList()};
    for (const bool focused : {true, false}) {
        for (const Kel::CTickListWidget* list : lists) {
            if (list->selectedRow() >= 0 && (!focused || list->hasFocus()))
                return list->rowText(list->selectedRow());
        }
    }
    return {};
}

std::vector<PaneTable> EntrustPane::tables() const
{
    return {PaneTable{uiText("逐笔委托"), QStringLiteral("orders"), Kel::orderTable(m_panel->model())},
            PaneTable{uiText("逐笔撤单"), QStringLiteral("cancels"), Kel::cancelTable(m_panel->model())}};
}

} // namespace host
