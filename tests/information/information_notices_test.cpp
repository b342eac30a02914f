// Notices become rows of the announcements.

#include "InformationFixture.h"
#include "platform/toolkit/CBaseTableColumnSimpleTextDelegate.h"
#include "platform/utils/exchange_time.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QSignalSpy>

using namespace Kel;

namespace {

using Notices = QList<boost::shared_ptr<quoter::Notice>>;

class InformationNotices : public test::InformationTest
{
protected:
    void SetUp() override
    {
        InformationTest::SetUp();
        m_panel.setStock("SH600000");
    }

    Zeb::CStandardTable* announcements() const { return m_panel.m_tables[1]; }

    Zeb::CBaseTableColumnSimpleTextDelegate* titles() const
    {
        return qobject_cast<Zeb::CBaseTableColumnSimpleTextDelegate*>(
            announcements()->itemDelegateForColumn(3));
    }

    test::InformationProbe m_panel;
};

} // namespace

TEST_F(InformationNotices, ARowHasDateLinkCodeAndTitle)
{
    m_panel.addOneRow(announcements(),
                      notice("年度报告", "http://example/1", utils::exchangeTime(20230201, 0, 30, 0, 0)));
    ASSERT_EQ(announcements()->rowCount(), 1);
    EXPECT_EQ(announcements()->text(0, 0), QString(QChar(0)));
    EXPECT_EQ(announcements()->text(0, 1), "2023-02-01") << "the exchange's date, not that of UTC";
    EXPECT_EQ(announcements()->text(0, 2), "");
    EXPECT_EQ(announcements()->text(0, 4), "2023-02-01");
    EXPECT_EQ(announcements()->text(0, 5), "600000");
    EXPECT_EQ(announcements()->text(0, 6), "http://example/1");
    EXPECT_EQ(titles()->itemText("0"), "年度报告");
    EXPECT_TRUE(titles()->isItemClickable("0"));
}

TEST_F(InformationNotices, TheIdIsTheCharacterOfTheRow)
{
    Notices many;
    for (int i = 0; i < 66; ++i)
        many.append(notice("x"));
    m_panel.updateNotice(many);
    EXPECT_EQ(announcements()->text(65, 0), "A");
}

TEST_F(InformationNotices, TheNameShowsOnlyForTheOwnerOfAnnouncements)
{
    m_panel.m_rowOwner = 1;
    m_panel.addOneRow(announcements(), notice("x"));
    m_panel.addOneRow(m_panel.m_tables[2], notice("x"));
    EXPECT_EQ(announcements()->text(0, 2), "浦发银行");
    EXPECT_EQ(m_panel.m_tables[2]->text(0, 2), "");
    m_panel.m_rowOwner = 2;
    m_panel.addOneRow(announcements(), notice("x"));
    EXPECT_EQ(announcements()->text(1, 2), "");
}

TEST_F(InformationNotices, WithoutAnInstrumentThereIsNoCode)
{
    m_panel.clear();
    m_panel.m_rowOwner = 1;
    m_panel.addOneRow(announcements(), notice("x"));
    EXPECT_EQ(announcements()->text(0, 5) + announcements()->text(0, 2), "");
}

TEST_F(InformationNotices, TheTitleColumnFitsTheWidestTitle)
{
    m_panel.addOneRow(announcements(), notice("x"));
    EXPECT_EQ(announcements()->columnWidth(3), 80);
    const QString wide = QString("很长的标题").repeated(20);
    m_panel.addOneRow(announcements(), notice(wide.toUtf8().constData()));
    EXPECT_EQ(announcements()->columnWidth(3), titles()->preferredWidth());
    EXPECT_GT(announcements()->columnWidth(3), 80);
    m_panel.updateNotice({notice("x"), notice((wide + wide).toUtf8().constData())});
    EXPECT_EQ(announcements()->columnWidth(3), titles()->preferredWidth());
}

TEST_F(InformationNotices, NullNoticesArePassedOverAndTheOrderIsKept)
{
    m_panel.updateNotice({notice("first"), nullptr, notice("second")});
    EXPECT_EQ(announcements()->rowCount(), 2);
    EXPECT_EQ(titles()->itemText("0"), "first");
    EXPECT_EQ(titles()->itemText("1"), "second");
    EXPECT_EQ(m_panel.m_tables[0]->rowCount() + m_panel.m_tables[2]->rowCount(), 0);
}

TEST_F(InformationNotices, NoticesOfAnotherInstrumentAndEmptyListsAddNothing)
{
    Notices none;
    Notices one{notice("x")};
    m_panel.onInfoNotice("SZ000001", one);
    m_panel.onInfoNotice("SH600000", none);
    m_panel.slotNotices("SZ000001", one);
    m_panel.slotNotices("SH600000", none);
    QCoreApplication::processEvents();
    EXPECT_EQ(announcements()->rowCount(), 0);
    m_panel.onInfoNotice("SH600000", one);
    QCoreApplication::processEvents();
    EXPECT_EQ(announcements()->rowCount(), 1);
}

TEST_F(InformationNotices, AListIsAddedAsOne)
{
    Notices many;
    for (int i = 0; i < 1000; ++i)
        many.append(notice("x"));
    QSignalSpy inserted(announcements()->model(), &QAbstractItemModel::rowsInserted);
    QSignalSpy changed(announcements()->model(), &QAbstractItemModel::dataChanged);
    m_panel.updateNotice(many);
    EXPECT_EQ(announcements()->rowCount(), 1000);
    EXPECT_EQ(inserted.count(), 1);
    EXPECT_EQ(changed.count(), 0);
}

TEST_F(InformationNotices, WhoHandsNoticesOverDoesNotWaitForTheirRows)
{
    Notices one{notice("x")};
    m_panel.onInfoNotice("SH600000", one);
    EXPECT_EQ(announcements()->rowCount(), 0);
    QCoreApplication::processEvents();
    EXPECT_EQ(announcements()->rowCount(), 1);
}

TEST_F(InformationNotices, NoticesMayComeOnAnyThread)
{
    boost::thread feed([this] {
        for (int i = 0; i < 50; ++i) {
            Notices one{notice("x")};
            m_panel.onInfoNotice("SH600000", one);
        }
    });
    feed.join();
    EXPECT_EQ(announcements()->rowCount(), 0) << "the GUI thread adds them";
    EXPECT_TRUE(waitFor([this] { return announcements()->rowCount() == 50; }));
}

TEST_F(InformationNotices, NoticesThatComeAfterAChangeAreDropped)
{
    boost::thread feed([this] {
        Notices one{notice("x")};
        m_panel.onInfoNotice("SH600000", one);
    });
    feed.join();
    m_panel.setStock("SZ000001");
    QCoreApplication::processEvents();
    EXPECT_EQ(announcements()->rowCount(), 0);
}

TEST_F(InformationNotices, RowsStayUntilTheHostClearsThem)
{
    m_panel.updateNotice({notice("x")});
    m_panel.setStock("SZ000001");
    m_panel.clear();
    EXPECT_EQ(announcements()->rowCount(), 1);
    m_panel.clearTables();
    EXPECT_EQ(announcements()->rowCount(), 0);
    m_panel.updateNotice({notice("new")});
    EXPECT_EQ(titles()->itemText("0"), "new");
}

TEST_F(InformationNotices, AClickOnATitleCopiesItsLink)
{
    QGuiApplication::clipboard()->setText("before");
    m_panel.updateNotice({notice("without"), notice("with", "http://example/2")});
    titles()->activate(0);
    QCoreApplication::processEvents();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "before");
    titles()->activate(1);
    QCoreApplication::processEvents();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "http://example/2");
}
