#include "host/window/panes/LadderPane.h"

#include "host/window/language/TerminalLanguage.h"
#include "host/window/tables/text_tables.h"
#include "platform/utils/volume_unit.h"
#include "thousand/CDepthThousandDataWidget.h"
#include "thousand/CSingleQueueWidget.h"

#include <QDockWidget>
#include <QEvent>
#include <QScreen>
#include <QStackedWidget>
#include <QWindow>

#include <algorithm>

namespace host {

namespace {

constexpr int kOrdersWidth = 290; // pixels
constexpr int kOrdersHeight = 100;
constexpr int kGap = 4; // between the ladder and the orders

/// The least move that brings a window of this size onto the screen.
QPoint movedInto(const QRect& screen, const QSize& size, QPoint place)
{
    place.setX(std::max(screen.left(), std::min(place.x(), screen.right() + 1 - size.width())));
    place.setY(std::max(screen.top(), std::min(place.y(), screen.bottom() + 1 - size.height())));
    return place;
}

} // namespace

LadderPane::LadderPane(QWidget* parent)
    : Pane(QStringLiteral("ladder"), sourceText("千档盘口"), parent),
      m_stack(new QStackedWidget(this)),
      m_rebuilt(new Kel::CDepthThousandDataWidget(m_stack, false)),
      m_ready(new Kel::CDepthThousandDataWidget(m_stack, true)),
      m_shown(m_rebuilt),
      m_orders(new Kel::CSingleQueueWidget(this))
{
    m_stack->addWidget(m_rebuilt);
    m_stack->addWidget(m_ready);
    setContentWidget(m_stack, 0, 0, true);
    m_orders->setWindowFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus);
    m_orders->setAttribute(Qt::WA_ShowWithoutActivating);
    m_orders->resize(kOrdersWidth, kOrdersHeight);
    m_orders->hide();
    setWantedSize(QSize(330, 600));
}

LadderPane::~LadderPane()
{
    // A panel that goes tells of its selection.
    setAnswer({});
    delete m_rebuilt;
    delete m_ready;
}

void LadderPane::setDay(const DayPtr& day)
{
    const bool ready = day->orders.empty() && !day->ladders.empty();
    m_shown = ready ? m_ready : m_rebuilt;
    m_stack->setCurrentWidget(m_shown);
    m_unit = utils::getVolumeUnit(day->detail.market, day->detail.code);
}

void LadderPane::setInstrument(const QString& key)
{
    hideOrders();
    for (Kel::CDepthThousandDataWidget* panel : {m_rebuilt, m_ready}) {
        panel->clear(true);
        panel->setStock(key);
    }
}

void LadderPane::setTradeDate(const boost::function<int()>& tradeDate)
{
    m_rebuilt->setCurrentTradeDateFunc(tradeDate);
    m_ready->setCurrentTradeDateFunc(tradeDate);
}

FeedHub::Receiver LadderPane::receiver()
{
    FeedHub::Receiver receiver;
    receiver.orders = [panel = m_rebuilt](const QString&, int seq, int status, const auto& batch) {
        panel->entrustCallback(seq, status, batch);
    };
    receiver.deals = [panel = m_rebuilt](const QString&, int seq, int status, const auto& batch) {
        panel->transactionCallback(seq, status, batch);
    };
    receiver.quoteBatches = [rebuilt = m_rebuilt, ready = m_ready](int seq, int status, const auto& batch) {
        rebuilt->quoterCallback(seq, status, batch);
        ready->quoterCallback(seq, status, batch);
    };
    receiver.ladders = [panel = m_ready](int seq, int status, const auto& batch) {
        panel->thousandDataCallback(seq, status, batch);
    };
    return receiver;
}

LadderRows LadderPane::rows() const
{
    return {m_shown->sellRows(), m_shown->buyRows(), m_shown->latestPrice(), m_shown->lastVolume(),
            m_shown->getPriceTick()};
}

/// Null without a selection.
std::shared_ptr<Kel::SingleQueue> LadderPane::selectedOrders(double& priceTick, int& unit) const
{
    const std::shared_ptr<Kel::SingleQueue> queue = m_shown->getSelectedQueue(priceTick, unit);
    if (queue && m_shown == m_ready) { // what comes with a selection is of a ladder rebuilt from orders
        priceTick = m_ready->getPriceTick();
        unit = m_unit;
    }
    return queue;
}

QString LadderPane::selectedText() const
{
    if (const auto selected = m_shown->selectedRow()) {
        const QStringList cells = ladderCells(rows(), m_shown->isBuySelected(), selected->price);
        if (!cells.isEmpty())
            return rowText(cells);
    }
    const bool isEmpty = m_shown->sellRows().empty() && m_shown->buyRows().empty();
    return isEmpty ? QString() : tableText(ladderTable(rows()), kMostCopiedRows);
}

std::vector<PaneTable> LadderPane::tables() const
{
    std::vector<PaneTable> tables{PaneTable{title(), QStringLiteral("ladder"), ladderTable(rows())}};
    double tick = 0;
    int unit = 0;
    if (const auto queue = selectedOrders(tick, unit))
        tables.push_back(PaneTable{uiText("选中价位的委托"), QStringLiteral("price-orders"),
                                   priceOrderTable(*queue, tick, unit)});
    return tables;
}

void LadderPane::answerSelection(int first, int top)
{
    double tick = 0;
    int unit = 0;
    const std::shared_ptr<Kel::SingleQueue> queue = first == 0 ? selectedOrders(tick, unit) : nullptr;
    if (!queue) {
        hideOrders();
        return;
    }
    if (m_behind)
        return;
    if (top >= 0)
        m_top = top;
    // The panel is shown first, so that it takes its new height at once.
    followWindow();
    m_orders->show();
    m_orders->setSingleQueue(queue, tick, unit);
    placeOrders();
}

void LadderPane::hideOrders()
{
    m_orders->hide();
    m_orders->setSingleQueue(nullptr, 1, 1);
}

/// At the ladder's left if there is room, else at its right; never off the screen.
void LadderPane::placeOrders()
{
    const QPoint row = m_shown->mapToGlobal(QPoint(0, m_top));
    const QScreen* screen = window()->windowHandle() ? window()->windowHandle()->screen() : nullptr;
    const QRect room = screen ? screen->availableGeometry() : QRect(row, m_orders->size());
    QPoint place(row.x() - kGap - m_orders->width(), row.y());
    if (place.x() < room.left())
        place.setX(row.x() + m_shown->width() + kGap);
    m_orders->move(movedInto(room, m_orders->size(), place));
}

/// A pane changes its window when it floats.
void LadderPane::followWindow()
{
    if (m_followed == window())
        return;
    if (m_followed)
        m_followed->removeEventFilter(this);
    m_followed = window();
    m_followed->installEventFilter(this);
}

bool LadderPane::event(QEvent* event)
{
    if (event->type() == QEvent::Hide || event->type() == QEvent::ParentChange)
        m_orders->hide(); // the next news shows it again, beside the ladder's new place
    if (event->type() == QEvent::ParentChange)
        followDock();
    return Pane::event(event);
}

/// A pane behind other tabs is not hidden: its dock stands where nobody sees it.
void LadderPane::followDock()
{
    const auto* dock = qobject_cast<QDockWidget*>(parentWidget());
    if (!dock)
        return;
    connect(dock, &QDockWidget::visibilityChanged, this, [this](bool inFront) {
        m_behind = !inFront;
        if (m_behind)
            m_orders->hide();
    });
}

bool LadderPane::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_followed && m_orders->isVisible()) {
        if (event->type() == QEvent::Move || event->type() == QEvent::Resize)
            placeOrders();
        else if (event->type() == QEvent::Hide || event->type() == QEvent::WindowStateChange)
            m_orders->hide();
    }
    return Pane::eventFilter(watched, event);
}

} // namespace host
