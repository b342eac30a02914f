// What panes give away: the selected row to the clipboard, lists and pictures to files.

#include "host/window/workspace/pane_files.h"

#include "host/window/InstrumentList.h"
#include "host/window/MessageBar.h"
#include "host/window/PaneWindow.h"
#include "host/window/ReplayBar.h"
#include "host/window/TerminalActions.h"
#include "host/window/WindowFixture.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QClipboard>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QDockWidget>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QImage>
#include <QInputDialog>
#include <QLineEdit>
#include <QProgressDialog>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTextCodec>

#include <algorithm>

#include <sys/stat.h>

namespace window_tests {
namespace {

constexpr int kManyRows = 60000;

/// A list of so many rows; `look` is called with the number of each piece that is asked for.
host::PaneTable tableOf(int rows, std::function<void(int)> look = {})
{
    host::PaneTable table;
    table.name = QStringLiteral("逐笔成交");
    table.file = QStringLiteral("deals");
    table.table.columns = QStringList{QStringLiteral("时间"), QStringLiteral("价格")};
    table.table.rowCount = [rows] { return rows; };
    table.table.walk = [look, rows] {
        return [look, left = rows, piece = 0](int most, std::vector<QStringList>& taken) mutable {
            if (look)
                look(piece);
            ++piece;
            const int count = std::min(most, left);
            left -= count;
            taken.assign(static_cast<std::size_t>(count),
                         QStringList{QStringLiteral("09:30:00"), QStringLiteral("10.01")});
            return true;
        };
    };
    return table;
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

class Files : public ::testing::Test
{
protected:
    QString path(const char* name) const { return folder.path() + QLatin1Char('/') + QLatin1String(name); }

    void write(const QString& path, const QByteArray& text)
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }

    const QTemporaryDir folder;
    QWidget window;
};

TEST_F(Files, ATableIsWrittenInBothEncodings)
{
    const QString text = QStringLiteral("时间,价格\r\n09:30:00,10.01\r\n09:30:00,10.01\r\n");
    host::FileResult result = host::writeTable(tableOf(2), path("utf8.csv"), false, &window);
    EXPECT_TRUE(result.written);
    EXPECT_TRUE(result.text.contains(path("utf8.csv"))) << result.text.toStdString();
    EXPECT_EQ(contentOf(path("utf8.csv")), QByteArray("\xEF\xBB\xBF") + text.toUtf8());
    result = host::writeTable(tableOf(2), path("gbk.csv"), true, &window);
    EXPECT_TRUE(result.written);
    EXPECT_EQ(contentOf(path("gbk.csv")), QTextCodec::codecForName("GBK")->fromUnicode(text));
}

TEST_F(Files, AStoppedExportLeavesNoFileAndSaysNothing)
{
    const host::PaneTable table = tableOf(kManyRows, [this](int piece) {
        if (piece == 20)
            window.findChild<QProgressDialog*>()->cancel();
    });
    const host::FileResult result = host::writeTable(table, path("new.csv"), false, &window);
    EXPECT_FALSE(result.written);
    EXPECT_EQ(result.text, QString());
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
}

TEST_F(Files, AStoppedExportKeepsTheOldFile)
{
    write(path("old.csv"), "old");
    const host::PaneTable table = tableOf(kManyRows, [this](int piece) {
        if (piece == 20)
            window.findChild<QProgressDialog*>()->cancel();
    });
    host::writeTable(table, path("old.csv"), false, &window);
    EXPECT_EQ(contentOf(path("old.csv")), "old");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 1);
}

TEST_F(Files, AListThatWasExchangedMeanwhileIsToldAndKeepsTheOldFile)
{
    write(path("old.csv"), "old");
    host::PaneTable table = tableOf(kManyRows);
    table.table.walk = [] { return [](int, std::vector<QStringList>&) { return false; }; };
    const host::FileResult result = host::writeTable(table, path("old.csv"), false, &window);
    EXPECT_FALSE(result.written);
    EXPECT_TRUE(result.text.contains(QStringLiteral("导出时列表已更换"))) << result.text.toStdString();
    EXPECT_EQ(contentOf(path("old.csv")), "old");
}

TEST_F(Files, ATableForAMissingFolderIsToldWithPathAndReason)
{
    const QString file = QStringLiteral("/nowhere/deals.csv");
    const host::FileResult result = host::writeTable(tableOf(2), file, false, &window);
    EXPECT_FALSE(result.written);
    const QString begin = QStringLiteral("无法写入 ") + file + QStringLiteral("：");
    EXPECT_TRUE(result.text.startsWith(begin)) << result.text.toStdString();
    EXPECT_GT(result.text.size(), begin.size());
}

TEST_F(Files, WhatIsNoFileIsNotReplacedByOne)
{
    const QString pipe = path("pipe");
    ASSERT_EQ(mkfifo(pipe.toLocal8Bit().constData(), 0600), 0);
    window.resize(60, 40);
    for (const host::FileResult& result :
         {host::writeTable(tableOf(2), pipe, false, &window), host::writePicture(window, pipe)}) {
        EXPECT_FALSE(result.written);
        EXPECT_EQ(result.text, QStringLiteral("无法写入 ") + pipe + QStringLiteral("：不是文件"));
    }
    EXPECT_TRUE(QFileInfo::exists(pipe));
    EXPECT_FALSE(QFileInfo(pipe).isFile());
    EXPECT_FALSE(host::writeTable(tableOf(2), folder.path(), false, &window).written) << "a folder";
}

TEST_F(Files, APictureShowsThePaneAsItLooks)
{
    window.resize(60, 40);
    QPalette palette;
    palette.setColor(QPalette::Window, Qt::red);
    window.setPalette(palette);
    const host::FileResult result = host::writePicture(window, path("pane.png"));
    EXPECT_TRUE(result.written);
    EXPECT_TRUE(result.text.contains(path("pane.png")));
    const QImage image(path("pane.png"));
    EXPECT_EQ(image.size(), QSize(60, 40));
    EXPECT_EQ(image.pixelColor(30, 20), QColor(Qt::red));
}

TEST_F(Files, APictureOfNothingIsAFailureAndLeavesNoFile)
{
    window.resize(0, 0);
    EXPECT_FALSE(host::writePicture(window, path("pane.png")).written);
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
    window.resize(60, 40);
    EXPECT_FALSE(host::writePicture(window, QStringLiteral("/nowhere/pane.png")).written);
}

/// The same by the window's menu.
class Exports : public PaneWindow
{
protected:
    void trigger(const char* action) { window->actions().action(QString::fromLatin1(action))->trigger(); }

    /// Answers the question for a file; nothing cancels it.
    void answerFile(const QString& file)
    {
        whenOpen<QFileDialog>([this, file](QFileDialog& dialog) {
            suggested = dialog.selectedFiles().isEmpty() ? QString() : dialog.selectedFiles().front();
            if (file.isEmpty()) {
                static_cast<QDialog&>(dialog).reject();
                return;
            }
            auto* name = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            name->setText(file);
            QTest::keyClick(name, Qt::Key_Return);
        });
    }

    void select(Kel::CTickListWidget& list, int row)
    {
        QTest::mouseClick(&list, Qt::LeftButton, Qt::NoModifier, ListEyes::middleOf(list, row));
        focus(list);
        ASSERT_EQ(list.selectedRow(), row);
    }

    /// The current pane is closed: there is none until another one is pressed.
    void leavePanes()
    {
        focus(window->list());
        focus(window->bar());
        window->workspace().dock(QStringLiteral("list"))->close();
        EXPECT_EQ(window->workspace().currentPane(), nullptr);
    }

    static QString clipboard() { return QApplication::clipboard()->text(); }

    const QTemporaryDir folder;
    QString suggested;
};

TEST_F(Exports, TheSelectedRowOfEachListIsCopied)
{
    ASSERT_TRUE(openAt(10, 30));
    Kel::CTickListWidget* const lists[] = {&deals(), orders().orderList(), orders().cancelList()};
    for (Kel::CTickListWidget* list : lists) {
        QApplication::clipboard()->clear();
        select(*list, list->total() - 2);
        key(Qt::Key_C, Qt::ControlModifier);
        EXPECT_EQ(clipboard(), list->rowText(list->total() - 2)) << list->objectName().toStdString();
        EXPECT_GE(clipboard().count(QLatin1Char('\t')), 3);
    }
    // Both lists of the pane have a selection now: the one with the focus is meant.
    select(*orders().orderList(), orders().orderList()->total() - 3);
    key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard(), orders().orderList()->rowText(orders().orderList()->total() - 3));
}

TEST_F(Exports, WithoutASelectionTheClipboardStaysAndAWordIsSaid)
{
    ASSERT_TRUE(openAt(10, 30));
    QApplication::clipboard()->setText(QStringLiteral("mine"));
    for (QWidget* pane : {static_cast<QWidget*>(&deals()), static_cast<QWidget*>(orders().orderList())}) {
        window->messages().hide();
        focus(*pane);
        key(Qt::Key_C, Qt::ControlModifier);
        EXPECT_EQ(clipboard(), QStringLiteral("mine"));
        EXPECT_TRUE(message().contains(QStringLiteral("没有选中"))) << message().toStdString();
        EXPECT_FALSE(window->messages().isError());
    }
}

TEST_F(Exports, TheDealsAreWrittenAsFilteredUnderANameThatTellsWhatTheyAre)
{
    ASSERT_TRUE(openAt(10, 30));
    focus(deals());
    const QString file = folder.path() + QStringLiteral("/mine.csv");
    answerFile(file);
    trigger("csvUtf8");
    EXPECT_EQ(QFileInfo(suggested).fileName(),
              QStringLiteral("SH600999-%1-deals.csv").arg(static_cast<qlonglong>(window->day()->tradingDay)));
    EXPECT_TRUE(message().startsWith(QStringLiteral("已导出 "))) << message().toStdString();
    EXPECT_FALSE(window->messages().isError());
    const QByteArray bytes = contentOf(file);
    EXPECT_TRUE(bytes.startsWith("\xEF\xBB\xBF"));
    EXPECT_EQ(bytes.count("\r\n"), deals().model()->count + 1);
    EXPECT_TRUE(bytes.contains(QStringLiteral("成交量").toUtf8()));
}

TEST_F(Exports, OfOrdersAndCancelsOneIsChosen)
{
    ASSERT_TRUE(openAt(10, 30));
    focus(*orders().orderList());
    const QString file = folder.path() + QStringLiteral("/cancels.csv");
    whenOpen<QInputDialog>([this, file](QInputDialog& dialog) {
        EXPECT_EQ(dialog.comboBoxItems(),
                  (QStringList{QStringLiteral("逐笔委托"), QStringLiteral("逐笔撤单")}));
        dialog.setTextValue(QStringLiteral("逐笔撤单"));
        answerFile(file);
        QTimer::singleShot(0, &dialog, &QDialog::accept);
    });
    trigger("csvGbk");
    const QByteArray bytes = contentOf(file);
    EXPECT_EQ(bytes.count("\r\n"), orders().model()->cancelCount + 1);
    EXPECT_TRUE(bytes.contains(QTextCodec::codecForName("GBK")->fromUnicode(QStringLiteral("撤单量"))));
    EXPECT_TRUE(suggested.endsWith(QStringLiteral("-cancels.csv"))) << suggested.toStdString();
}

TEST_F(Exports, ACancelledQuestionWritesNothingAndSaysNothing)
{
    ASSERT_TRUE(openAt(10, 30));
    focus(deals());
    answerFile({});
    trigger("csvUtf8");
    EXPECT_EQ(dialogs, 1);
    EXPECT_EQ(message(), QString());
    focus(*orders().orderList());
    whenOpen<QInputDialog>([](QInputDialog& dialog) { dialog.reject(); });
    trigger("csvUtf8");
    EXPECT_EQ(dialogs, 2);
    EXPECT_EQ(message(), QString());
}

TEST_F(Exports, AFileThatCannotBeWrittenIsToldInTheMessageBar)
{
    ASSERT_TRUE(openAt(10, 30));
    focus(deals());
    answerFile(QStringLiteral("/nowhere/deals.csv"));
    trigger("csvUtf8");
    EXPECT_TRUE(window->messages().isError());
    EXPECT_TRUE(message().startsWith(QStringLiteral("无法写入 /nowhere/deals.csv：")))
        << message().toStdString();
}

TEST_F(Exports, WithoutACurrentPaneThereIsNoTableAndAWordIsSaid)
{
    ASSERT_TRUE(openAt(10, 30));
    leavePanes();
    trigger("csvUtf8");
    EXPECT_TRUE(message().contains(QStringLiteral("请先点选"))) << message().toStdString();
    EXPECT_FALSE(window->messages().isError());
}

TEST_F(Exports, ThePictureIsOfTheCurrentPane)
{
    ASSERT_TRUE(openAt(10, 30));
    focus(chart());
    const QString file = folder.path() + QStringLiteral("/chart.png");
    answerFile(file);
    const QSize size = window->panels().chart->size(); // the message that follows takes room
    trigger("picture");
    EXPECT_TRUE(suggested.endsWith(QStringLiteral("-chart.png"))) << suggested.toStdString();
    const QImage image(file);
    EXPECT_EQ(image.size(), size);
    EXPECT_TRUE(message().startsWith(QStringLiteral("已导出 "))) << message().toStdString();
}

TEST_F(Exports, WithoutACurrentPaneThePictureIsOfTheWindow)
{
    ASSERT_TRUE(openAt(10, 30));
    leavePanes();
    const QString file = folder.path() + QStringLiteral("/window.png");
    answerFile(file);
    trigger("picture");
    EXPECT_TRUE(suggested.endsWith(QStringLiteral("-window.png"))) << suggested.toStdString();
    EXPECT_EQ(QImage(file).size(), window->size());
}

} // namespace
} // namespace window_tests
