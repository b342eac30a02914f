#include "host/window/panes/LevelPane.h"

#include "host/window/language/TerminalLanguage.h"
#include "host/window/tables/book_tables.h"
#include "host/window/tables/text_tables.h"
#include "level_panels/CDepthEntrustStatusWidget.h"

#include <QScrollArea>
#include <QVBoxLayout>

namespace host {

namespace {

constexpr int kStatusFive = 1;
constexpr int kStatusTen = 2;
constexpr int kLeastWidth = 170; // pixels; less cuts the volumes off

} // namespace

LevelPane::LevelPane(QWidget* parent)
    : Pane(QStringLiteral("levels"), sourceText("买卖盘"), parent),
      m_panel(new Kel::CDepthEntrustStatusWidget(nullptr, true))
{
    // The rows keep their height; a low pane scrolls, a high one has them in its middle.
    auto* room = new QScrollArea(this);
    room->setObjectName(QStringLiteral("LevelRoom"));
    room->setFrameShape(QFrame::NoFrame);
    room->setWidgetResizable(true);
    room->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto* column = new QWidget;
    column->setObjectName(QStringLiteral("LevelColumn"));
    column->setAttribute(Qt::WA_StyledBackground);
    auto* layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addStretch(1);
    layout->addWidget(m_panel);
    layout->addStretch(1);
    column->setMinimumWidth(kLeastWidth);
    room->setWidget(column);
    setContentWidget(room, 0, 0, true);
    fitHeight();
    setWantedSize(QSize(260, m_panel->getMinimumSizeHeight()));
}

void LevelPane::setInstrument(const QString& key)
{
    m_panel->clear(true);
    m_panel->setStock(key);
    fitHeight();
}

void LevelPane::setTradeDate(const boost::function<int()>& tradeDate)
{
    m_panel->setCurrentTradeDateFunc(tradeDate);
}

FeedHub::Receiver LevelPane::receiver()
{
    FeedHub::Receiver receiver;
    receiver.quotes = [panel = m_panel](int seq, int status, const quoter::QuoterBatch& batch) {
        panel->quoterCallBack(seq, status, batch, true);
    };
    return receiver;
}

QString LevelPane::selectedText() const
{
    return quoteText(m_panel->quote(), m_panel->getShelves(), m_panel->markedRow());
}

std::vector<PaneTable> LevelPane::tables() const
{
    return {
        PaneTable{title(), QStringLiteral("levels"), quoteTable(m_panel->quote(), m_panel->getShelves())}};
}

void LevelPane::setFiveLevels(bool five)
{
    m_panel->setLevelStatus(five ? kStatusFive : kStatusTen);
    fitHeight();
}

void LevelPane::fitHeight()
{
    // The panel finds its middle when it gets a size.
    m_panel->setFixedHeight(m_panel->getMinimumSizeHeight());
    if (QLayout* column = m_panel->parentWidget() ? m_panel->parentWidget()->layout() : nullptr)
        column->activate();
}

} // namespace host
