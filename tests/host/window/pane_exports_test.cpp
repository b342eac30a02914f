// Every pane of a shown day gives away what it shows: copied, as CSV in both encodings, as a picture.

#include "host/window/InstrumentList.h"
#include "host/window/PaneWindow.h"
#include "host/window/TerminalActions.h"
#include "host/window/WindowFixture.h"
#include "host/window/tables/chart_tables.h"
#include "host/window/tables/text_tables.h"
#include "host/window/workspace/PaneMenu.h"
#include "host/window/workspace/PaneTitle.h"
#include "host/window/workspace/pane_files.h"
#include "platform/toolkit/CStandardTable.h"
#include "platform/toolkit/number_formats.h"
#include "records/Tolerance.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QClipboard>
#include <QDockWidget>
#include <QFile>
#include <QImage>
#include <QMenu>
#include <QTemporaryDir>
#include <QTest>
#include <QTextCodec>

#include <set>

namespace window_tests {
namespace {

const char* const kPanes[] = {"list",  "queue", "ladder", "deals",  "orders",
                              "chart", "zoom",  "levels", "ticket", "information"};

using Rows = std::vector<QStringList>;

Rows rowsOf(const Kel::TickTable& table)
{
    Rows all;
    Rows rows;
    const Kel::TickTableWalk walk = table.walk();
    while (walk(500, rows) && !rows.empty())
        all.insert(all.end(), rows.begin(), rows.end());
    return all;
}

/// Cells of comma-separated values, quotes and all.
Rows readCsv(const QString& text)
{
    Rows rows{{}};
    QString cell;
    bool quoted = false;
    for (int i = 0; i < text.size(); ++i) {
        const QChar sign = text[i];
        if (quoted && sign == QLatin1Char('"') && text.mid(i + 1, 1) == QLatin1String("\"")) {
            cell += sign;
            ++i;
        } else if (sign == QLatin1Char('"')) {
            quoted = !quoted;
        } else if (!quoted && (sign == QLatin1Char(',') || sign == QLatin1Char('\n'))) {
            rows.back().append(cell);
            cell.clear();
            if (sign == QLatin1Char('\n'))
                rows.push_back({});
        } else if (quoted || sign != QLatin1Char('\r')) {
            cell += sign;
        }
    }
    EXPECT_TRUE(cell.isEmpty() && rows.back().isEmpty()) << "the last line is not ended";
    rows.pop_back();
    return rows;
}

std::size_t colorsOf(const QImage& image)
{
    std::set<QRgb> colors;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            colors.insert(image.pixel(x, y));
    }
    return colors.size();
}

class EveryPane : public PaneWindow
{
protected:
    QDockWidget* dock(const char* id) { return window->workspace().dock(QString::fromLatin1(id)); }

    host::Pane& pane(const char* id)
    {
        auto* found = qobject_cast<host::Pane*>(dock(id)->widget());
        EXPECT_NE(found, nullptr) << id;
        return *found;
    }

    QAction* action(const char* name) { return window->actions().action(QString::fromLatin1(name)); }

    /// Presses the title of a pane and copies.
    QString copied(const char* id)
    {
        QApplication::clipboard()->clear();
        QTest::mouseClick(dock(id)->titleBarWidget(), Qt::LeftButton, Qt::NoModifier, QPoint(20, 10));
        action("copy")->trigger();
        return QApplication::clipboard()->text();
    }

    host::PaneTable table(const char* id, const char* file)
    {
        for (const host::PaneTable& table : pane(id).tables()) {
            if (table.file == QLatin1String(file))
                return table;
        }
        ADD_FAILURE() << id << " has no table " << file;
        return {};
    }

    Rows rows(const char* id, const char* file) { return rowsOf(table(id, file).table); }

    QString price(double value)
    {
        return Zeb::formatPriceDoubleNumber(value, window->day()->detail.priceTick);
    }

    void selectRow(Kel::CTickListWidget& list, int row)
    {
        QTest::mouseClick(&list, Qt::LeftButton, Qt::NoModifier, ListEyes::middleOf(list, row));
        ASSERT_EQ(list.selectedRow(), row);
    }

    const QTemporaryDir folder;
};

TEST_F(EveryPane, IsWrittenInBothEncodingsAndReadsBackWithTheSameCells)
{
    ASSERT_TRUE(openAt(10, 30));
    QTest::mouseClick(&ladder(), Qt::LeftButton, Qt::NoModifier,
                      LadderEyes::countOf(ladder(), LadderEyes::sells(ladder()).front()->price));
    for (const char* id : kPanes) {
        const std::vector<host::PaneTable> tables = pane(id).tables();
        EXPECT_FALSE(tables.empty()) << id;
        std::set<QString> files;
        for (const host::PaneTable& table : tables) {
            SCOPED_TRACE(id + (' ' + table.file.toStdString()));
            EXPECT_TRUE(files.insert(table.file).second) << "two files of one name";
            EXPECT_FALSE(table.name.isEmpty());
            Rows cells = rowsOf(table.table);
            EXPECT_FALSE(cells.empty());
            EXPECT_EQ(static_cast<int>(cells.size()), table.table.rowCount());
            cells.insert(cells.begin(), table.table.columns);
            for (const bool gbk : {false, true}) {
                const QString file = folder.path() + QStringLiteral("/table.csv");
                ASSERT_TRUE(host::writeTable(table, file, gbk, window.get()).written);
                QFile written(file);
                ASSERT_TRUE(written.open(QIODevice::ReadOnly));
                QByteArray bytes = written.readAll();
                if (!gbk) {
                    ASSERT_TRUE(bytes.startsWith("\xEF\xBB\xBF"));
                    bytes.remove(0, 3);
                }
                const QTextCodec* codec = QTextCodec::codecForName(gbk ? "GBK" : "UTF-8");
                EXPECT_EQ(readCsv(codec->toUnicode(bytes)), cells) << (gbk ? "GBK" : "UTF-8");
            }
        }
    }
}

TEST_F(EveryPane, HasAPictureOfMoreThanOneColour)
{
    ASSERT_TRUE(openAt(10, 30));
    for (const char* id : kPanes) {
        const QString file = folder.path() + QLatin1Char('/') + QLatin1String(id) + QStringLiteral(".png");
        ASSERT_TRUE(host::writePicture(pane(id), file).written) << id;
        const QImage image(file);
        EXPECT_EQ(image.size(), pane(id).size()) << id;
        EXPECT_GT(colorsOf(image), 10U) << id;
    }
}

TEST_F(EveryPane, CopiesFiguresOfItsOwn)
{
    ASSERT_TRUE(openAt(10, 30));
    const double last = contents().lastPrice;
    for (const char* id : {"chart", "zoom"}) {
        const QStringList lines = copied(id).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        ASSERT_EQ(lines.size(), chart().model()->getEndIndex() - chart().model()->getStartIndex() + 2) << id;
        EXPECT_EQ(lines.last(),
                  host::rowText(host::chartDealCells(*chart().model(), chart().model()->getEndIndex())))
            << id;
        EXPECT_TRUE(lines.last().contains(QLatin1Char('\t') + price(last) + QLatin1Char('\t'))) << id;
    }
    selectRow(deals(), deals().total() - 2); // the charts show it, and copy it, too
    selectRow(*orders().orderList(), orders().orderList()->total() - 2);
    const auto& best = *LadderEyes::sells(ladder()).front();
    const auto row = queue().model().at(0, Kel::OQT_SELL);
    ASSERT_TRUE(row);

    EXPECT_TRUE(copied("list").startsWith(QStringLiteral("600999\t"))) << "the row under the cursor";
    EXPECT_TRUE(copied("list").contains(price(last)));
    const QString queueRow =
        QStringLiteral("\n卖\t1\t%1\t%2\t%3\t")
            .arg(price(row->m_price), host::plainLots(row->m_levelVol), QString::number(row->m_count));
    EXPECT_TRUE(copied("queue").contains(queueRow)) << copied("queue").toStdString();
    EXPECT_TRUE(copied("ladder").contains(QStringLiteral("\n卖\t1\t%1\t%2\t%3\t%4\n")
                                              .arg(price(best.price))
                                              .arg(best.volume)
                                              .arg(best.orderCount)
                                              .arg(best.change)))
        << copied("ladder").toStdString();
    EXPECT_EQ(copied("deals"), deals().rowText(deals().total() - 2));
    EXPECT_EQ(copied("orders"), orders().orderList()->rowText(orders().orderList()->total() - 2));
    for (const char* id : {"levels", "ticket"})
        EXPECT_TRUE(copied(id).contains(QStringLiteral("\n最新\t\t") + price(last) + QLatin1Char('\t')))
            << id;
    const Zeb::CStandardTable& notices =
        *window->information().panel().table(Kel::CInformationWidget::eTableAnnouncements);
    ASSERT_GT(notices.rowCount(), 0);
    EXPECT_TRUE(copied("information").contains(notices.text(0, 1) + QLatin1Char('\t') + notices.text(0, 3)))
        << copied("information").toStdString();
}

TEST_F(EveryPane, SaysOfTheQueueWhatStandsInIt)
{
    ASSERT_TRUE(openAt(10, 30));
    const Rows levels = rows("queue", "queue-levels");
    const Rows all = rows("queue", "queue-orders");
    ASSERT_EQ(levels.size(), 20U);
    EXPECT_EQ(levels.front().mid(0, 2), (QStringList{QStringLiteral("卖"), QStringLiteral("10")}));
    EXPECT_EQ(levels.back().mid(0, 2), (QStringList{QStringLiteral("买"), QStringLiteral("10")}));
    for (const QStringList& level : levels) {
        double lots = 0;
        int place = 0;
        std::set<QString> numbers;
        for (const QStringList& order : all) {
            if (order.mid(0, 3) != level.mid(0, 3))
                continue;
            lots += order[3].isEmpty() && !order[4].isEmpty() ? 0 : order[5].toDouble();
            if (!order[3].isEmpty()) {
                EXPECT_EQ(order[3].toInt(), ++place);
            }
            if (!order[4].isEmpty()) {
                EXPECT_TRUE(numbers.insert(order[4]).second) << "an order stands twice";
            }
        }
        EXPECT_GT(place, 0) << level.join(QLatin1Char(' ')).toStdString();
        EXPECT_NEAR(lots, level[3].toDouble(), 1) << level.join(QLatin1Char(' ')).toStdString();
    }
}

TEST_F(EveryPane, GivesFiveLevelsAwayWhenFiveAreShown)
{
    ASSERT_TRUE(
        openAt(10, 30, [](host::TerminalOptions& options) { options.modes.levels = Kel::eQueueFiveLevels; }));
    EXPECT_EQ(rows("queue", "queue-levels").size(), 10U);
    EXPECT_EQ(rows("levels", "levels").size(), 11U);
    EXPECT_EQ(rows("ticket", "quote").size(), 11U);
}

TEST_F(EveryPane, OfTheLadderTheSelectedPriceIsCopiedAndItsOrdersAreATable)
{
    ASSERT_TRUE(openAt(10, 30));
    EXPECT_EQ(pane("ladder").tables().size(), 1U) << "no price is selected";
    const Kel::EntrustData best = *LadderEyes::buys(ladder()).back();
    QTest::mouseClick(&ladder(), Qt::LeftButton, Qt::NoModifier, LadderEyes::countOf(ladder(), best.price));
    action("copy")->trigger();
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("买\t1\t%1\t%2\t%3\t%4")
                                                     .arg(price(best.price))
                                                     .arg(best.volume)
                                                     .arg(best.orderCount)
                                                     .arg(best.change))
        << "a press in the ladder makes it the current pane";
    const Rows orders = rows("ladder", "price-orders");
    ASSERT_EQ(static_cast<int>(orders.size()), best.orderCount);
    double lots = 0;
    for (const QStringList& order : orders)
        lots += order[5].toDouble();
    EXPECT_NEAR(lots, best.volume, 1);
}

TEST_F(EveryPane, OfAQuoteTheClickedRowIsCopied)
{
    ASSERT_TRUE(openAt(10, 30));
    Kel::CDepthEntrustStatusWidget& levels = window->levels().panel();
    const int rowHeight = levels.getMinimumSizeHeight() / (2 * levels.getShelves() + 1);
    QTest::mouseClick(&levels, Qt::LeftButton, Qt::NoModifier,
                      QPoint(10, 11 * rowHeight + rowHeight / 2)); // buy one
    EXPECT_TRUE(copied("levels").startsWith(QStringLiteral("买\t1\t"))) << copied("levels").toStdString();

    Kel::CDepthConciseStyleEntrustStatusWidget& concise = window->ticket().panel();
    const int height = ConciseEyes::rowHeight(concise);
    const QRect cell =
        ConciseEyes::columns(concise).priceCell(10 * height, height); // below the head: sell one
    QTest::mouseClick(&concise, Qt::LeftButton, Qt::NoModifier, cell.center());
    EXPECT_TRUE(copied("ticket").startsWith(QStringLiteral("卖\t1\t"))) << copied("ticket").toStdString();
    EXPECT_EQ(rows("ticket", "ticket").front()[2].toDouble(),
              ConciseEyes::quote(concise).askLevels.back().price);
}

TEST_F(EveryPane, OfTheChartTheDealUnderTheCursorIsCopiedOrItsInterval)
{
    ASSERT_TRUE(openAt(10, 30));
    const int deal = chart().model()->getEndIndex() - 5;
    window->panels().chart->highlight(deal, 0);
    const auto interval = chart().model()->getCurrSeqPair(deal);
    ASSERT_GE(interval.first, 0);
    QStringList lines = copied("chart").split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), interval.second - interval.first + 2) << "columns are whole intervals";
    EXPECT_EQ(lines[1], host::rowText(host::chartDealCells(*chart().model(), interval.first)));

    QTest::mouseDClick(&chart(), Qt::LeftButton, Qt::NoModifier, chart().rect().center());
    ASSERT_FALSE(chart().isColumnMode());
    window->panels().chart->highlight(deal, 0);
    EXPECT_EQ(copied("chart"), host::rowText(host::chartDealCells(*chart().model(), deal)));
}

TEST_F(EveryPane, OfTheChartTheDealsInViewAreATableWithTheirOrders)
{
    ASSERT_TRUE(openAt(14, 30));
    const auto& model = *chart().model();
    const Rows all = rows("chart", "chart-deals");
    ASSERT_EQ(static_cast<int>(all.size()), model.getEndIndex() - model.getStartIndex() + 1);
    ASSERT_GT(model.getStartIndex(), 0) << "not all deals are in view";
    for (std::size_t i = 0; i < all.size(); ++i)
        EXPECT_EQ(all[i], host::chartDealCells(model, model.getStartIndex() + static_cast<int>(i)));
    int wholeOrders = 0;
    for (const QStringList& deal : all) {
        EXPECT_GE(deal[5].toInt(), deal[2].toInt()) << "an order is as large as its deal at least";
        wholeOrders += deal[5].toInt() > deal[2].toInt();
    }
    EXPECT_GT(wholeOrders, 0);
    int deals = 0;
    int lots = 0;
    const Rows intervals = rows("chart", "chart-intervals");
    ASSERT_GT(intervals.size(), 1U);
    for (const QStringList& interval : intervals) {
        deals += interval[1].toInt();
        lots += interval[2].toInt();
        EXPECT_LE(interval[4].toDouble(), interval[5].toDouble() + 0.005);
        EXPECT_GE(interval[3].toDouble(), interval[5].toDouble() - 0.005);
    }
    EXPECT_GE(deals, static_cast<int>(all.size())) << "the first interval may begin before the view";
    EXPECT_GE(lots, deals);
}

TEST_F(EveryPane, ADealThatComesWhileTheChartIsWrittenIsNotInTheTable)
{
    ASSERT_TRUE(openAt(10, 30));
    const host::PaneTable before = table("chart", "chart-deals");
    const Rows expected = rowsOf(before.table);
    const Kel::TickTableWalk walk = before.table.walk();
    Rows written;
    Rows piece;
    ASSERT_TRUE(walk(100, piece));
    written = piece;
    const int deals = chart().model()->count;
    window->player().setSpeed(0);
    window->setPlaying(true);
    ASSERT_TRUE(waitUntil([&] { return chart().model()->count > deals; }));
    window->setPlaying(false);
    while (walk(100, piece) && !piece.empty())
        written.insert(written.end(), piece.begin(), piece.end());
    EXPECT_EQ(written.size(), expected.size());
    EXPECT_EQ(written, expected);
}

TEST_F(EveryPane, OfTheInformationTheSelectedNoticeIsCopied)
{
    ASSERT_TRUE(openAt(10, 30));
    Zeb::CStandardTable& notices =
        *window->information().panel().table(Kel::CInformationWidget::eTableAnnouncements);
    ASSERT_GT(notices.rowCount(), 1);
    notices.selectRow(1);
    const QString text = copied("information");
    EXPECT_TRUE(text.startsWith(notices.text(1, 1) + QLatin1Char('\t') + notices.text(1, 3)))
        << text.toStdString();
    EXPECT_EQ(text.count(QLatin1Char('\n')), 0);
}

TEST_F(EveryPane, WritesTheListOfInstrumentsInNumbers)
{
    ASSERT_TRUE(openAt(10, 30));
    const Rows all = rows("list", "instruments");
    ASSERT_EQ(static_cast<int>(all.size()), window->list().model()->rowCount());
    ASSERT_TRUE(waitUntil([&] { return !rows("list", "instruments").back()[3].isEmpty(); }));
    for (const QStringList& row : rows("list", "instruments")) {
        for (const int column : {2, 3}) {
            bool isNumber = false;
            row[column].toDouble(&isNumber);
            EXPECT_TRUE(isNumber) << row.join(QLatin1Char(' ')).toStdString();
            EXPECT_FALSE(row[column].contains(QLatin1Char('%')) || row[column].contains(QLatin1Char('+')));
        }
    }
}

TEST_F(EveryPane, IsTheCurrentOneAfterAPressAnywhereInIt)
{
    ASSERT_TRUE(openAt(10, 30));
    for (const char* id : kPanes) {
        QWidget* within = dock(id)->widget()->childAt(dock(id)->widget()->rect().center());
        QTest::mousePress(within ? within : dock(id)->widget(), Qt::RightButton);
        EXPECT_EQ(window->workspace().currentPane(), &pane(id)) << id;
        if (QWidget* popup = QApplication::activePopupWidget())
            popup->close();
    }
    focus(deals());
    EXPECT_EQ(window->workspace().currentPane(), &pane("deals")) << "by the keyboard as well";
    QTest::mousePress(&popup(), Qt::LeftButton);
    EXPECT_EQ(window->workspace().currentPane(), &pane("ladder")) << "a window of the pane belongs to it";
}

TEST_F(EveryPane, HasAMenuOnItsTitleThatMeansIt)
{
    ASSERT_TRUE(openAt(10, 30));
    for (const char* id : kPanes) {
        SCOPED_TRACE(id);
        QWidget* title = dock(id)->titleBarWidget();
        const auto* paneMenu = title->findChild<host::PaneMenu*>();
        ASSERT_NE(paneMenu, nullptr);
        const std::unique_ptr<QMenu> menu(paneMenu->makeMenu());
        QStringList names;
        for (const QAction* entry : menu->actions()) {
            if (!entry->isSeparator())
                names.append(entry->objectName());
        }
        EXPECT_EQ(names,
                  QStringLiteral("copy csvUtf8 csvGbk picture paneFloat paneClose").split(QLatin1Char(' ')));
        EXPECT_EQ(menu->actions().front(), action("copy")) << "the window's own command, with its key";
    }
}

TEST_F(EveryPane, IsCopiedFloatedAndClosedByTheMenuOfItsTitle)
{
    ASSERT_TRUE(openAt(10, 30));
    focus(deals());
    QWidget* title = dock("levels")->titleBarWidget();
    const auto choose = [&](const char* name) {
        QTest::mousePress(title, Qt::RightButton, Qt::NoModifier, QPoint(20, 10));
        QContextMenuEvent asked(QContextMenuEvent::Mouse, QPoint(20, 10), title->mapToGlobal(QPoint(20, 10)));
        QApplication::sendEvent(title, &asked);
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        QAction* entry = nullptr;
        for (QAction* each : menu->actions())
            entry = each->objectName() == QLatin1String(name) ? each : entry;
        ASSERT_NE(entry, nullptr);
        QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier, menu->actionGeometry(entry).center());
        settle();
    };
    QApplication::clipboard()->clear();
    choose("copy");
    EXPECT_TRUE(QApplication::clipboard()->text().contains(QStringLiteral("\n最新\t")));
    choose("paneFloat");
    EXPECT_TRUE(dock("levels")->isFloating());
    choose("paneFloat");
    EXPECT_FALSE(dock("levels")->isFloating());
    choose("paneClose");
    EXPECT_FALSE(dock("levels")->isVisible());
}

} // namespace
} // namespace window_tests
