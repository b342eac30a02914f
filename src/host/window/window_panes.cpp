// What the window's menu does with panes: modes, copies, files, and the tracking of an order.

#include "host/window/MainWindow.h"

#include "host/window/MessageBar.h"
#include "host/window/TerminalActions.h"
#include "host/window/language/TerminalLanguage.h"
#include "host/window/panes/ChartPane.h"
#include "host/window/panes/DealsPane.h"
#include "host/window/panes/EntrustPane.h"
#include "host/window/panes/LevelPane.h"
#include "host/window/panes/QueueCell.h"
#include "host/window/panes/TicketPane.h"
#include "host/window/workspace/TrackOrderDialog.h"
#include "host/window/workspace/Workspaces.h"
#include "host/window/workspace/pane_files.h"
#include "platform/utils/exchange_time.h"
#include "tick/CDepthEntrustWidget.h"
#include "tick/CDepthOrderWidget.h"
#include "tick/CDepthTransactionWidget.h"

#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QInputDialog>

namespace host {

namespace {

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
    const bool five = modes.levels == Kel::eQueueFiveLevels;
    for (int group = 0; group < PaneGroups::kCount; ++group) {
        const PanelWiring& wiring = m_groups.at(group).wiring();
        for (QueueCell* queue : wiring.all<QueueCell>())
            queue->setModes(modes);
        for (LevelPane* levels : wiring.all<LevelPane>())
            levels->setFiveLevels(five);
        for (TicketPane* ticket : wiring.all<TicketPane>())
            ticket->setFiveLevels(five);
    }
}

/// Of the orders if they were used last, else of the deals.
void MainWindow::filterList()
{
    Pane* current = m_workspaces->currentPane();
    const auto lists = m_groups.at(m_group).wiring().all<DealsPane>();
    if (auto* orders = qobject_cast<EntrustPane*>(current))
        orders->panel().doFilter();
    else if (auto* deals = qobject_cast<DealsPane*>(current))
        deals->panel().doFilter();
    else
        (lists.empty() ? m_first.deals : lists.front())->panel().doFilter();
}

/// Deals that come later are in the range as well.
void MainWindow::showWholeDay()
{
    const DayRange range = m_groups.at(m_group).range();
    for (ChartPane* chart : m_groups.at(m_group).wiring().charts(false))
        chart->showRange(static_cast<int>(range.begin / utils::kMSecPerSecond),
                         static_cast<int>(range.end / utils::kMSecPerSecond));
}

void MainWindow::showLatestDeals()
{
    for (ChartPane* chart : m_groups.at(m_group).wiring().all<ChartPane>())
        chart->showLatest();
}

void MainWindow::copySelection()
{
    Pane* pane = m_workspaces->currentPane();
    const QString text = pane ? pane->selectedText() : QString();
    if (text.isEmpty())
        m_messages->showNote(uiText("没有选中的行可复制"));
    else
        QApplication::clipboard()->setText(text);
}

void MainWindow::exportTable(bool gbk)
{
    Pane* pane = m_workspaces->currentPane();
    std::vector<PaneTable> tables;
    if (pane)
        tables = pane->tables();
    const DayPtr shown = day();
    if (tables.empty() || !shown) {
        m_messages->showNote(uiText("请先点选要导出的窗格"));
        return;
    }
    std::size_t chosen = 0;
    if (tables.size() > 1) {
        QStringList names;
        for (const PaneTable& table : tables)
            names.append(table.name);
        bool agreed = false;
        const QString name =
            QInputDialog::getItem(this, uiText("导出 CSV"), uiText("列表"), names, 0, false, &agreed);
        if (!agreed)
            return;
        chosen = static_cast<std::size_t>(names.indexOf(name));
    }
    const PaneTable& table = tables[chosen];
    const QString file = QFileDialog::getSaveFileName(
        this, uiText("导出 CSV"), suggestedFile(*shown, table.file, "csv"), QStringLiteral("CSV (*.csv)"));
    if (!file.isEmpty())
        tellResult(writeTable(table, file, gbk, this));
}

void MainWindow::exportPicture()
{
    Pane* pane = m_workspaces->currentPane();
    QWidget* shown = pane ? static_cast<QWidget*>(pane) : this;
    const QString part = pane ? pane->id() : QStringLiteral("window");
    const DayPtr shownDay = day();
    const QString usual = shownDay ? suggestedFile(*shownDay, part, "png") : part + QStringLiteral(".png");
    const QString file =
        QFileDialog::getSaveFileName(this, uiText("导出图片"), usual, QStringLiteral("PNG (*.png)"));
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
    const DayPtr shown = day();
    if (!shown)
        return;
    PanelWiring& wiring = m_groups.at(m_group).wiring();
    const std::vector<EntrustPane*> lists = wiring.all<EntrustPane>();
    if (lists.empty()) {
        m_messages->showNote(uiText("本组没有委托列表可查"));
        return;
    }
    Kel::CDepthEntrustWidget& orders = lists.front()->panel();
    TrackOrderDialog dialog(this);
    dialog.setPriceTick(shown->detail.priceTick);
    const int row = orders.orderList()->selectedRow();
    const auto order = row < 0 ? nullptr : orders.model()->getOrderData(row, false);
    if (order)
        dialog.setOrder(static_cast<int>(utils::timeOfDayMs(order->time * utils::kMSecPerSecond)),
                        order->price, order->lots, order->side);
    else
        dialog.setOrder(static_cast<int>(utils::timeOfDayMs(m_player->now())), shown->detail.previousClose, 1,
                        kBuy);
    if (dialog.exec() != QDialog::Accepted)
        return;
    wiring.endTracking();
    wiring.takeTracked();
    orders.setTrackOrderParam(dialog.timeMs(), dialog.price(), dialog.lots(), dialog.side(), dialog.color());
    if (wiring.takeTracked() == 0)
        m_messages->showNote(uiText("没有找到这样的限价委托"));
}

} // namespace host
