// The page that shows the local files.

#include "InformationFixture.h"
#include "information/CutTextDelegate.h"
#include "information/LocalTableModel.h"
#include "information/ReaderThreads.h"
#include "platform/LogCapture.h"
#include "platform/toolkit/CComboBox.h"
#include "platform/toolkit/CSimpleTextWidget.h"
#include "platform/toolkit/EventLog.h"

#include <QItemSelectionModel>
#include <QKeyEvent>

using namespace Kel;

namespace {

class LocalPage : public test::InformationTest
{
protected:
    void SetUp() override
    {
        InformationTest::SetUp();
        m_panel.resize(600, 300);
        m_panel.show();
        m_panel.handleEvent(302, 4, 3, QString(), nullptr);
    }

    const QAbstractItemModel& model() const { return *m_panel.m_tables[3]->model(); }

    /// The titles, or the texts of a row.
    QStringList texts(int row = -1) const
    {
        QStringList all;
        for (int column = 0; column < model().columnCount(); ++column)
            all.append(row < 0 ? model().headerData(column, Qt::Horizontal).toString()
                               : model().index(row, column).data().toString());
        return all;
    }

    /// What the page says of rows and columns that it does not show; empty while nothing is cut.
    QString cutHint() const
    {
        const auto* const hint = m_panel.m_tableLists[3]->findChild<Zeb::CSimpleTextWidget*>();
        return hint->isVisible() ? hint->text() : QString();
    }

    QComboBox* chooser() const { return m_panel.findChild<Zeb::CComboBox*>(); }

    bool read(const char* code, int rows)
    {
        m_panel.setStock(code);
        m_panel.requestInfo();
        return waitFor([this, rows] { return model().rowCount() == rows; });
    }

    test::InformationProbe m_panel;
};

} // namespace

TEST_F(LocalPage, ShowsTitlesAsColumnsAndRowsByDateNewestFirst)
{
    write("SH", "600000", "a.csv", "日期,内容\n2023-01-31,旧\n2023-02-01,新\n2023-02-01,次\n");
    ASSERT_TRUE(read("SH600000", 3));
    EXPECT_EQ(texts(), (QStringList{"日期", "内容"}));
    EXPECT_EQ(texts(0), (QStringList{"2023-02-01", "新"}));
    EXPECT_EQ(texts(1), (QStringList{"2023-02-01", "次"}));
    EXPECT_EQ(texts(2), (QStringList{"2023-01-31", "旧"}));
    for (int column = 0; column < 2; ++column)
        EXPECT_FALSE(m_panel.m_tables[3]->isColumnHidden(column));
    EXPECT_TRUE(chooser()->isHidden()) << "one file leaves no choice";
}

TEST_F(LocalPage, AChooserStandsAboveSeveralFiles)
{
    write("SH", "600000", "a.csv", "日期,a\n1,2\n");
    write("SH", "600000", "b.csv", "日期,b,c\n1,2,3\n4,5,6\n");
    ASSERT_TRUE(read("SH600000", 1));
    EXPECT_FALSE(chooser()->isHidden());
    ASSERT_EQ(chooser()->count(), 2);
    EXPECT_EQ(chooser()->itemText(1), "浦发银行_b");
    chooser()->setCurrentIndex(1);
    EXPECT_EQ(texts(), (QStringList{"日期", "b", "c"}));
    EXPECT_EQ(model().rowCount(), 2);
}

TEST_F(LocalPage, ShortRowsAreFilledAndLongOnesShown)
{
    write("SH", "600000", "a.csv", "日期,a\n3\n2,x,y\n");
    ASSERT_TRUE(read("SH600000", 2));
    EXPECT_EQ(texts(), (QStringList{"日期", "a", ""}));
    EXPECT_EQ(texts(0), (QStringList{"3", "", ""}));
    EXPECT_EQ(texts(1), (QStringList{"2", "x", "y"}));
}

TEST_F(LocalPage, ATableOfEndlessColumnsIsCut)
{
    write("SH", "600000", "a.csv", QByteArray(5000, ',') + "\n1\n");
    ASSERT_TRUE(read("SH600000", 1));
    EXPECT_EQ(model().columnCount(), 1000);
    EXPECT_EQ(cutHint(), QStringLiteral("仅显示前 1000 列"));
}

TEST_F(LocalPage, WhatWasReadForAFormerInstrumentIsNotShown)
{
    write("SH", "600000", "a.csv", "日期,a\n1,2\n");
    m_panel.setStock("SH600000");
    m_panel.readLocalInformation("SH600000");
    m_panel.setStock("SZ000001");
    QCoreApplication::processEvents();
    EXPECT_EQ(model().rowCount(), 0);
}

TEST_F(LocalPage, RowsStayUntilTheHostClearsThem)
{
    write("SH", "600000", "a.csv", "日期,a\n1,2\n");
    ASSERT_TRUE(read("SH600000", 1));
    m_panel.setStock("SZ000001");
    m_panel.clear();
    EXPECT_EQ(model().rowCount(), 1);
    m_panel.clearTables();
    EXPECT_EQ(model().rowCount(), 0);
    ASSERT_TRUE(read("SH600000", 1));
    EXPECT_EQ(texts(), (QStringList{"日期", "a"}));
}

TEST_F(LocalPage, WithoutAFileThereAreTheColumnsOfTheOtherPages)
{
    write("SH", "600000", "a.csv", "日期,a\n1,2\n");
    const auto expectEmpty = [this] {
        const Zeb::CStandardTable& table = *m_panel.m_tables[3];
        ASSERT_EQ(model().columnCount(), 7);
        EXPECT_EQ(texts()[1], "本地资讯日期");
        EXPECT_EQ(texts()[3], "本地资讯标题");
        for (int column = 0; column < 7; ++column)
            EXPECT_EQ(table.isColumnHidden(column), column != 1 && column != 3) << column;
        EXPECT_EQ(table.columnWidth(1), 70);
        EXPECT_EQ(table.columnWidth(3), 500);
        EXPECT_TRUE(table.itemDelegateForColumn(3));
    };
    expectEmpty();
    m_panel.clearTables();
    expectEmpty();
    ASSERT_TRUE(read("SH600000", 1));
    EXPECT_FALSE(m_panel.m_tables[3]->itemDelegateForColumn(3));
    m_panel.clearTables();
    expectEmpty();
    EXPECT_TRUE(chooser()->isHidden());
}

TEST_F(LocalPage, ChangesOfFilesLeaveNoSelectionModelsBehind)
{
    write("SH", "600000", "a.csv", "日期,a\n1,2\n");
    for (int i = 0; i < 3; ++i) {
        m_panel.setStock("SZ000001");
        ASSERT_TRUE(read("SH600000", 1));
        m_panel.clearTables();
    }
    EXPECT_EQ(m_panel.m_tables[3]->findChildren<QItemSelectionModel*>().size(), 1);
}

TEST_F(LocalPage, ADirectoryWithoutFilesShowsTheEmptyTable)
{
    ASSERT_TRUE(QDir().mkpath(folder("SZ", "000001")));
    write("SH", "600000", "a.csv", "日期,a\n1,2\n");
    ASSERT_TRUE(read("SH600000", 1));
    m_panel.setStock("SZ000001");
    m_panel.requestInfo();
    EXPECT_TRUE(waitFor([this] { return model().columnCount() == 7; }));
}

TEST_F(LocalPage, LongTextsAreCut)
{
    write("SH", "600000", "a.csv", QByteArray(5000, 't') + ",b\n" + QByteArray(5000, 'x') + ",short\n");
    ASSERT_TRUE(read("SH600000", 1));
    EXPECT_EQ(texts()[0], QString(LocalTableModel::kMostTitle, 't'));
    EXPECT_EQ(texts(0), (QStringList{QString(LocalTableModel::kMostText, 'x'), "short"}));
}

TEST_F(LocalPage, NoMoreOfATextIsLaidOutThanItsCellShows)
{
    struct Probe : CutTextDelegate
    {
        using CutTextDelegate::initStyleOption;
    };
    write("SH", "600000", "a.csv", "a,b\n" + QByteArray(900, 'x') + ",short\n");
    ASSERT_TRUE(read("SH600000", 1));
    auto* const delegate = qobject_cast<CutTextDelegate*>(m_panel.m_tables[3]->itemDelegate());
    ASSERT_TRUE(delegate);
    const Probe probe;
    QStyleOptionViewItem option;
    option.rect = QRect(0, 0, 400, 20);
    probe.initStyleOption(&option, model().index(0, 0));
    EXPECT_EQ(option.text.size(), 201);
    EXPECT_GT(option.fontMetrics.horizontalAdvance(QString(201, 'i')), 400) << "the cell cuts it off as well";
    probe.initStyleOption(&option, model().index(0, 1));
    EXPECT_EQ(option.text, "short");
}

TEST_F(LocalPage, ATableOfEndlessRowsIsCut)
{
    write("SH", "600000", "a.csv", "x\n" + QByteArray("1\n").repeated(LocalTableModel::kMostRows + 7));
    ASSERT_TRUE(read("SH600000", LocalTableModel::kMostRows));
    EXPECT_EQ(cutHint(), QStringLiteral("仅显示前 200000 行"));
    m_panel.clearTables();
    EXPECT_EQ(cutHint(), "");
}

TEST_F(LocalPage, WhatJustFitsIsNotSaidToBeCut)
{
    write("SH", "600000", "a.csv",
          QByteArray(999, ',') + "\n" + QByteArray("1\n").repeated(LocalTableModel::kMostRows));
    ASSERT_TRUE(read("SH600000", LocalTableModel::kMostRows));
    EXPECT_EQ(model().columnCount(), 1000);
    EXPECT_EQ(cutHint(), "");
}

TEST_F(LocalPage, TheHintSaysAllThatIsCutOfTheChosenFile)
{
    const auto tables = std::make_shared<LocalTables>();
    tables->append({"whole", {"a"}, {{"1"}}, false});
    tables->append({"cut", LocalRow(1001, "a").toList(), QVector<LocalRow>(200001), true});
    tables->append({"unread", {"a"}, {{"1"}}, true});
    LocalTableModel tested;
    EXPECT_EQ(tested.cutText(), "");
    tested.setTable(tables, 0);
    EXPECT_EQ(tested.cutText(), "");
    tested.setTable(tables, 1);
    EXPECT_EQ(tested.cutText(), QStringLiteral("仅显示前 200000 行、前 1000 列；文件过大，末尾未读取"));
    tested.setTable(tables, 2);
    EXPECT_EQ(tested.cutText(), QStringLiteral("文件过大，末尾未读取"));
}

TEST_F(LocalPage, TwoReadingsOfAFileShowItOnce)
{
    write("SH", "600000", "a.csv", "日期,a\n1,2\n");
    ASSERT_TRUE(read("SH600000", 1));
    m_panel.clearTables();
    m_panel.requestInfo();
    ReaderThreads::instance().wait();
    QCoreApplication::processEvents();
    ASSERT_EQ(m_panel.m_local->localHeaders.value("浦发银行_a").size(), 4) << "the maps have it twice";
    EXPECT_EQ(texts(), (QStringList{"日期", "a"}));
    EXPECT_EQ(model().rowCount(), 1);
}

TEST_F(LocalPage, AReaderOfAFormerChoiceOfTheInstrumentShowsNothing)
{
    write("SH", "600000", "a.csv", "日期,a\n1,2\n");
    testing_support::LogCapture log;
    log.hold(); // the line that a reader writes before it tells the page
    m_panel.setStock("SH600000");
    m_panel.requestInfo();
    ASSERT_TRUE(waitFor([this] {
        boost::shared_lock<boost::shared_mutex> lock(m_panel.m_local->localLock);
        return !m_panel.m_local->localHeaders.isEmpty();
    }));
    m_panel.setStock("SZ000001");
    m_panel.setStock("SH600000");
    log.release();
    ReaderThreads::instance().wait();
    QCoreApplication::processEvents();
    EXPECT_EQ(model().rowCount(), 0) << "the clock of the new choice is still running";
    m_panel.requestInfo();
    EXPECT_TRUE(waitFor([this] { return model().rowCount() == 1; }));
    EXPECT_EQ(texts(), (QStringList{"日期", "a"}));
}

TEST_F(LocalPage, TheEventLoopTurnsWhileALargeFileIsRead)
{
    const QByteArray line = "1" + ("," + QByteArray(100, 'x')).repeated(10) + '\n';
    write("SH", "600000", "a.csv", "日期\n" + line.repeated(20000));
    m_panel.setStock("SH600000");
    m_panel.requestInfo();
    int turns = 0;
    ASSERT_TRUE(waitFor([this, &turns] {
        ++turns;
        return model().rowCount() == 20000;
    }));
    EXPECT_GT(turns, 5) << "read before the first turn it would be shown in the second";
}

TEST_F(LocalPage, ColumnsFitTheirTextsWithinBounds)
{
    write("SH", "600000", "a.csv",
          "日期,b,c\n1," + QByteArray(2000, 'x') + ",一二三四五六七八九十一二三四五\n");
    ASSERT_TRUE(read("SH600000", 1));
    const Zeb::CStandardTable& table = *m_panel.m_tables[3];
    EXPECT_EQ(table.columnWidth(0), 80);
    EXPECT_EQ(table.columnWidth(1), 400);
    EXPECT_GT(table.columnWidth(2), table.fontMetrics().horizontalAdvance(texts(0)[2]) + 4);
    EXPECT_LT(table.columnWidth(2), 400);
}

TEST_F(LocalPage, AChoiceOfAFileIsNobodyElsesEvent)
{
    write("SH", "600000", "a.csv", "日期,a\n1,2\n");
    write("SH", "600000", "b.csv", "日期,b\n1,2\n3,4\n");
    ASSERT_TRUE(read("SH600000", 1));
    test::EventLog host;
    m_panel.setParent(&host);
    m_panel.show();
    QKeyEvent down(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
    QCoreApplication::sendEvent(chooser(), &down);
    EXPECT_EQ(chooser()->currentIndex(), 1);
    EXPECT_EQ(model().rowCount(), 2);
    EXPECT_TRUE(host.events.empty());
    EXPECT_FALSE(m_panel.handleEvent(70, 4, 0, QString(), nullptr)) << "that is somebody else's";
    m_panel.setParent(nullptr);
}
