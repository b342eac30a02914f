#include "host/window/panes/DealsPane.h"

#include "host/window/language/TerminalLanguage.h"
#include "records/EQueueMode.h"
#include "tick/CDepthTransactionWidget.h"

namespace host {

namespace {

constexpr int kEventButton = 5;

} // namespace

DealsPane::DealsPane(QWidget* parent)
    : PanelCell(QStringLiteral("deals"), sourceText("逐笔成交"), parent),
      m_panel(new Kel::CDepthTransactionWidget(&header()))
{
    header().setWidget(m_panel);
    header().setDrawSplit(true);
    header().setActionHandler([this](int action) {
        m_strip = action == Kel::eQueuePanelExtend || (m_strip && action != Kel::eQueuePanelShrink);
        m_panel->actionHandler(action);
    });
    header().showExtendShrinkImage(true);
    header().showFilterImage(true);
    setWantedSize(QSize(380, 600));
}

void DealsPane::toggleStrip()
{
    m_strip = !m_strip;
    m_panel->setShowHoloGraph(m_strip);
}

void DealsPane::setInstrument(const QString& key)
{
    m_panel->clear(true);
    m_panel->setStock(key);
}

void DealsPane::setTradeDate(const boost::function<int()>& tradeDate)
{
    m_panel->setCurrentTradeDateFunc(tradeDate);
}

FeedHub::Receiver DealsPane::receiver()
{
    FeedHub::Receiver receiver;
    receiver.orders = [panel = m_panel](const QString&, int seq, int status, const auto& batch) {
        panel->entrustCallback(seq, status, batch);
    };
    receiver.deals = [panel = m_panel](const QString&, int seq, int status, const auto& batch) {
        panel->transactionCallback(seq, status, batch);
    };
    receiver.quoteBatches = [panel = m_panel](int seq, int status, const auto& batch) {
        panel->quoterCallback(seq, status, batch);
    };
    return receiver;
}

QString DealsPane::selectedText() const
{
    return m_panel->selectedRow() < 0 ? QString() : m_panel->rowText(m_panel->selectedRow());
}

std::vector<PaneTable> DealsPane::tables() const
{
    return {PaneTable{title(), QStringLiteral("deals"), Kel::dealTable(m_panel->model())}};
}

bool DealsPane::handleEvent(int id, int first, int second, QString text, void* pointer)
{
    if (id == kEventButton && first == Kel::eQueueFilter) {
        m_panel->doFilter();
        return true;
    }
    return PanelCell::handleEvent(id, first, second, text, pointer);
}

} // namespace host
