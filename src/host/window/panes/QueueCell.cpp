#include "host/window/panes/QueueCell.h"

#include "host/window/language/TerminalLanguage.h"
#include "host/window/tables/queue_tables.h"
#include "queue_view/CDepthOrderQueueWidget.h"

namespace host {

namespace {

constexpr int kFiveLevels = 5;
constexpr int kTenLevels = 10;

} // namespace

QueueCell::QueueCell(QWidget* parent)
    : PanelCell(QStringLiteral("queue"), sourceText("委托队列"), parent),
      m_panel(new Kel::CDepthOrderQueueWidget(&header()))
{
    header().setWidget(m_panel);
    header().setDrawSplit(true);
    header().m_sigEvent.connect(
        [panel = m_panel](int id, int first, int second, QString text, void* pointer) {
            return panel->handleEvent(id, first, second, text, pointer);
        });
    header().showQueueActionImage(true);
    setWantedSize(QSize(700, 560));
}

void QueueCell::setTradeDate(const boost::function<int()>& tradeDate)
{
    m_panel->setCurrentTradeDateFunc(tradeDate);
}

void QueueCell::setInstrument(const QString& key)
{
    m_panel->clear();
    m_panel->setStock(key);
    header().setHeader(QString());
    m_panel->updateAll();
}

void QueueCell::setModes(const QueueModes& modes)
{
    m_full = modes.full;
    m_panel->setQueueFull(modes.full);
    header().setQueueModeLevel(modes.levels);
    // Last: a change between full and cut shows with the next style.
    header().setQueueModeStyle(modes.style - Kel::eQueueDetailFirst);
    Q_EMIT modesChanged();
}

QueueModes QueueCell::modes() const
{
    QueueModes modes;
    modes.levels = static_cast<Kel::EQueueMode>(m_panel->getQueueModeLevel());
    modes.style = static_cast<Kel::EQueueMode>(m_panel->getQueueModeStyle() + Kel::eQueueDetailFirst);
    modes.full = m_full;
    return modes;
}

FeedHub::Receiver QueueCell::receiver()
{
    FeedHub::Receiver receiver;
    Kel::CDepthOrderQueueWidget* panel = m_panel;
    receiver.orders = [panel](const QString& key, int seq, int status,
                              const Kel::MetaCacheDataWrapperPtr& batch) {
        panel->onEntrustCallback(key, seq, status, batch);
    };
    receiver.deals = [panel](const QString& key, int seq, int status,
                             const Kel::MetaCacheDataWrapperPtr& batch) {
        panel->onTransactionCallback(key, seq, status, batch);
    };
    receiver.quotes = [panel](int seq, int status, const quoter::QuoterBatch& batch) {
        panel->quoterCallBack(seq, status, batch);
    };
    return receiver;
}

int QueueCell::shownLevels() const
{
    return m_panel->getQueueModeLevel() == Kel::eQueueFiveLevels ? kFiveLevels : kTenLevels;
}

QString QueueCell::selectedText() const
{
    return queueText(m_panel->model(), shownLevels());
}

std::vector<PaneTable> QueueCell::tables() const
{
    return {PaneTable{uiText("各档"), QStringLiteral("queue-levels"),
                      queueLevelTable(m_panel->model(), shownLevels())},
            PaneTable{uiText("各档委托"), QStringLiteral("queue-orders"),
                      queueOrderTable(m_panel->model(), shownLevels())}};
}

bool QueueCell::handleEvent(int id, int first, int second, QString text, void* pointer)
{
    const bool taken = PanelCell::handleEvent(id, first, second, text, pointer);
    if (taken)
        Q_EMIT modesChanged();
    return taken;
}

} // namespace host
