// What the window's menu does with panes: layouts, copies, files, and the tracking of an order.

#include "host/window/MainWindow.h"

#include "host/window/MessageBar.h"
#include "host/window/TerminalActions.h"
#include "host/window/panes/ChartPane.h"
#include "host/window/panes/DealsPane.h"
#include "host/window/panes/EntrustPane.h"
#include "host/window/panes/LadderPane.h"
#include "host/window/panes/LevelPane.h"
#include "host/window/panes/QueueCell.h"
#include "host/window/panes/TicketPane.h"
#include "host/window/workspace/TrackOrderDialog.h"
#include "host/window/workspace/Workspace.h"
#include "host/window/workspace/layouts.h"
#include "host/window/workspace/pane_files.h"
#include "platform/utils/exchange_time.h"
#include "queue_view/CDepthOrderQueueWidget.h"
#include "thousand/CSingleQueueWidget.h"
#include "tick/CDepthEntrustWidget.h"
#include "tick/CDepthOrderWidget.h"
#include "tick/CDepthTransactionWidget.h"

#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QInputDialog>

namespace host {

namespace {

constexpr int kNoOrder = -1;
constexpr int kBuy = 1;

QString suggestedFile(const feed::InstrumentDay& day, const QString& part, const char* ending)
{
    return QStringLiteral("%1%2-%3-%4.%5")
        .arg(QString::fromStdString(day.detail.market), QString::fromStdString(day.detail.code),
             QString::number(day.tradingDay), part, QString::fromLatin1(ending));
}

} // namespace

void MainWindow::takeModes(const QueueModes& modes)
{
    m_wiring.queue->setModes(modes);
    const bool five = modes.levels == Kel::eQueueFiveLevels;
    m_levels->setFiveLevels(five);
    m_ticket->setFiveLevels(five);
}

void MainWindow::applyLayout(const QString& id)
{
    if (const Layout* layout = shippedLayout(id))
        m_workspace->apply(*layout);
}

/// Of the orders if they were used last, else of the deals.
void MainWindow::filterList()
{
    if (m_workspace->currentPane() == m_wiring.orders)
        m_wiring.orders->panel().doFilter();
    else
        m_wiring.deals->panel().doFilter();
}

/// Deals that come later are in the range as well.
void MainWindow::showWholeDay()
{
    if (m_day)
        m_wiring.chart->showRange(static_cast<int>(m_range.begin / utils::kMSecPerSecond),
                                  static_cast<int>(m_range.end / utils::kMSecPerSecond));
}

void MainWindow::copySelection()
{
    Pane* pane = m_workspace->currentPane();
    const QString text = pane ? pane->selectedText() : QString();
    if (text.isEmpty())
        m_messages->showNote(QStringLiteral("没有选中的行可复制"));
    else
        QApplication::clipboard()->setText(text);
}

void MainWindow::exportTable(bool gbk)
{
    Pane* pane = m_workspace->currentPane();
    std::vector<PaneTable> tables;
    if (pane)
        tables = pane->tables();
    if (tables.empty() || !m_day) {
        m_messages->showNote(QStringLiteral("请先点选要导出的逐笔列表"));
        return;
    }
    std::size_t chosen = 0;
    if (tables.size() > 1) {
        QStringList names;
        for (const PaneTable& table : tables)
            names.append(table.name);
        bool agreed = false;
        const QString name = QInputDialog::getItem(this, QStringLiteral("导出 CSV"), QStringLiteral("列表"),
                                                   names, 0, false, &agreed);
        if (!agreed)
            return;
        chosen = static_cast<std::size_t>(names.indexOf(name));
    }
    const PaneTable& table = tables[chosen];
    const QString file =
        QFileDialog::getSaveFileName(this, QStringLiteral("导出 CSV"),
                                     suggestedFile(*m_day, table.file, "csv"), QStringLiteral("CSV (*.csv)"));
    if (!file.isEmpty())
        tellResult(writeTable(table, file, gbk, this));
}

void MainWindow::exportPicture()
{
    Pane* pane = m_workspace->currentPane();
    QWidget* shown = pane ? static_cast<QWidget*>(pane) : this;
    const QString part = pane ? pane->id() : QStringLiteral("window");
    const QString usual = m_day ? suggestedFile(*m_day, part, "png") : part + QStringLiteral(".png");
    const QString file =
        QFileDialog::getSaveFileName(this, QStringLiteral("导出图片"), usual, QStringLiteral("PNG (*.png)"));
    if (!file.isEmpty())
        tellResult(writePicture(*shown, file));
}

void MainWindow::tellResult(const FileResult& result)
{
    if (result.text.isEmpty())
        return;
    if (result.written)
        m_messages->showNote(result.text);
    else
        m_messages->showError(result.text);
}

/// Asks for an order, the selected one to begin with, and tracks it: the list of orders finds it, and the
/// queue marks it when it is told.
void MainWindow::trackOrder()
{
    if (!m_day)
        return;
    Kel::CDepthEntrustWidget& orders = m_wiring.orders->panel();
    TrackOrderDialog dialog(this);
    dialog.setPriceTick(m_day->detail.priceTick);
    const int row = orders.orderList()->selectedRow();
    const auto order = row < 0 ? nullptr : orders.model()->getOrderData(row, false);
    if (order)
        dialog.setOrder(static_cast<int>(utils::timeOfDayMs(order->time * utils::kMSecPerSecond)),
                        order->price, order->lots, order->side);
    else
        dialog.setOrder(static_cast<int>(utils::timeOfDayMs(m_player->now())), m_day->detail.previousClose, 1,
                        kBuy);
    if (dialog.exec() != QDialog::Accepted)
        return;
    endTracking();
    m_wiring.trackedFound = 0;
    orders.setTrackOrderParam(dialog.timeMs(), dialog.price(), dialog.lots(), dialog.side(), dialog.color());
    if (m_wiring.trackedFound == 0)
        m_messages->showNote(QStringLiteral("没有找到这样的限价委托"));
}

void MainWindow::endTracking()
{
    m_wiring.queue->panel().setTrackOrder(kNoOrder, 0);
    m_wiring.queue->panel().updateAll();
    m_wiring.ladder->orders().setTrackOrder(kNoOrder, 0);
}

} // namespace host
