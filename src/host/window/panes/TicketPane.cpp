#include "host/window/panes/TicketPane.h"

#include "host/window/language/TerminalLanguage.h"
#include "host/window/panes/OrderTicket.h"
#include "host/window/tables/book_tables.h"
#include "host/window/tables/text_tables.h"
#include "level_panels/CDepthConciseStyleEntrustStatusWidget.h"

#include <QScrollArea>
#include <QVBoxLayout>

namespace host {

namespace {

constexpr int kStatusFive = 1;
constexpr int kStatusTen = 2;
constexpr int kHeadHeight = 24 + 5; // pixels: the head row and the lines, which the panel's height leaves out
constexpr int kLeastWidth = 210;

} // namespace

TicketPane::TicketPane(QWidget* parent)
    : Pane(QStringLiteral("ticket"), sourceText("盘口下单"), parent),
      m_panel(new Kel::CDepthConciseStyleEntrustStatusWidget(nullptr, true)),
      m_ticket(new OrderTicket)
{
    auto* column = new QWidget;
    column->setObjectName(QStringLiteral("TicketColumn"));
    column->setAttribute(Qt::WA_StyledBackground);
    auto* layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_panel);
    layout->addWidget(m_ticket);
    layout->addStretch(1);
    column->setMinimumWidth(kLeastWidth);
    auto* room = new QScrollArea(this);
    room->setObjectName(QStringLiteral("TicketRoom"));
    room->setFrameShape(QFrame::NoFrame);
    room->setWidgetResizable(true);
    room->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    room->setWidget(column);
    setContentWidget(room, 0, 0, true);
    m_panel->setPairParamFunc([this](const QString& parameters) { m_ticket->take(parameters); });
    fitHeight();
    setWantedSize(QSize(290, 600));
}

void TicketPane::setInstrument(const QString& key)
{
    m_panel->clear(true);
    m_panel->setStock(key);
    fitHeight();
    if (key != m_key)
        m_ticket->clear(key);
    m_key = key;
}

void TicketPane::setTradeDate(const boost::function<int()>& tradeDate)
{
    m_panel->setCurrentTradeDateFunc(tradeDate);
}

FeedHub::Receiver TicketPane::receiver()
{
    FeedHub::Receiver receiver;
    receiver.quotes = [panel = m_panel](int seq, int status, const quoter::QuoterBatch& batch) {
        panel->quoterCallBack(seq, status, batch, true);
    };
    return receiver;
}

QString TicketPane::selectedText() const
{
    return quoteText(m_panel->quote(), m_panel->getShelves(), m_panel->markedRow());
}

std::vector<PaneTable> TicketPane::tables() const
{
    return {PaneTable{uiText("盘口"), QStringLiteral("quote"),
                      quoteTable(m_panel->quote(), m_panel->getShelves())},
            PaneTable{uiText("票据"), QStringLiteral("ticket"),
                      fixedTable({QStringLiteral("证券"), QStringLiteral("报价方式"),
                                  QStringLiteral("价格(元)"), QStringLiteral("数量(手)")},
                                 {QStringList{m_ticket->stock(), m_ticket->priceType(), m_ticket->price(),
                                              m_ticket->volume()}})}};
}

void TicketPane::setFiveLevels(bool five)
{
    m_panel->setLevelStatus(five ? kStatusFive : kStatusTen);
    fitHeight();
}

void TicketPane::fitHeight()
{
    m_panel->setFixedHeight(m_panel->getMinimumSizeHeight() + kHeadHeight);
}

} // namespace host
