// The page that shows the local files.

#include "InformationFixture.h"
#include "platform/toolkit/CComboBox.h"

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
    EXPECT_EQ(model().columnCount(), 0);
    ASSERT_TRUE(read("SH600000", 1));
}
