// Tabs, pages, events and the life of the information panel.

#include "InformationFixture.h"
#include "information/CMultiThreadDataModel.h"
#include "information/ReaderThreads.h"
#include "platform/resources/CUiResource.h"
#include "platform/toolkit/CBaseTableColumnSimpleTextDelegate.h"

#include "support/PaintRecorder.h"

#include <QHeaderView>
#include <QWheelEvent>

#include <memory>

using namespace Kel;

namespace {

class InformationEvents : public test::InformationTest
{
protected:
    bool isShown(int table) const { return !m_panel.m_tableLists[table]->isHidden(); }

    /// The pages that are not hidden, as letters.
    std::string pages() const
    {
        std::string shown;
        for (const auto& [table, name] :
             {std::pair{1, "announcements "}, std::pair{2, "reports "}, std::pair{3, "local "}}) {
            if (isShown(table))
                shown += name;
        }
        return shown;
    }

    bool choose(int page) { return m_panel.handleEvent(302, 4, page, QString(), nullptr); }

    test::InformationProbe m_panel;
};

} // namespace

TEST_F(InformationEvents, TheTablesHaveTheirColumns)
{
    const QStringList names{"新闻", "公告", "研报", "本地资讯"};
    for (int i = 0; i < 4; ++i) {
        const Zeb::CStandardTable* const table = m_panel.m_tables[i];
        ASSERT_EQ(table->columnCount(), 7);
        EXPECT_EQ(table->headerText(0), "ID");
        EXPECT_EQ(table->headerText(1), names[i] + "日期");
        EXPECT_EQ(table->headerText(2), "股票名称");
        EXPECT_EQ(table->headerText(3), names[i] + "标题");
        EXPECT_EQ(table->headerText(4), "DateTime");
        EXPECT_EQ(table->headerText(5), "股票代码");
        EXPECT_EQ(table->headerText(6), "公告连接");
        for (int column = 0; column < 7; ++column)
            EXPECT_EQ(table->isColumnHidden(column), column != 1 && column != 3) << column;
        EXPECT_EQ(table->columnWidth(1), 70);
        EXPECT_EQ(table->columnWidth(3), 500);
        EXPECT_EQ(table->flags(), (Zeb::CStandardTable::kFirstFlags | 0x204004u) & ~43u);
    }
    EXPECT_EQ(m_panel.objectName(), "basewidget_CInformationWidget");
    EXPECT_TRUE(m_panel.checkQuoteConnect());
}

TEST_F(InformationEvents, TheTabsHaveTheirSizeAndTheNewsWait)
{
    for (const char* name : {"新闻", "公告", "研报", "本地资讯"}) {
        const auto* const tab = m_panel.tab(name);
        ASSERT_TRUE(tab) << name;
        EXPECT_EQ(tab->size(), QSize(60, 20));
        EXPECT_TRUE(tab->autoRaise());
        EXPECT_EQ(tab->isEnabled(), QString(name) != "新闻") << name;
    }
}

TEST_F(InformationEvents, TabsTablesAndTitlesHaveTheirColoursFontAndPlace)
{
    const auto& resource = utils::CSingletonT<Zeb::CUiResource>::instance();
    const auto color = [&resource](const char* key) { return *resource.getColor(QLatin1String(key)); };
    m_panel.resize(600, 200);
    m_panel.show();
    QCoreApplication::processEvents();
    const auto groundOf = [this](const char* name) {
        return m_panel.tab(name)->grab().toImage().pixelColor(4, 4);
    };
    EXPECT_EQ(groundOf("新闻"), color("kel_clr_depth_bottom_group_btn_disable"));
    EXPECT_EQ(groundOf("本地资讯"), color("kel_clr_depth_bottom_group_btn_nomal"));
    EXPECT_EQ(groundOf("研报"), color("kel_clr_depth_bottom_group_btn_press"));
    EXPECT_EQ(m_panel.tab("新闻")->x(), 2 + 5);
    EXPECT_EQ(m_panel.tab("公告")->x(), 2 + 5 + 60 + 5);

    const Zeb::CStandardTable& table = *m_panel.m_tables[2];
    EXPECT_EQ(table.mapTo(&m_panel, QPoint()), QPoint(2, 20));
    const QImage picture = m_panel.m_tables[2]->grab().toImage();
    EXPECT_EQ(picture.pixelColor(300, 100), color("ic_clr_table_background"));
    EXPECT_EQ(picture.pixelColor(590, 4), color("ic_clr_table_number_background"));
    EXPECT_EQ(table.horizontalHeader()->font(), *resource.getFont("fnt_default_normal"));

    auto* const titles =
        qobject_cast<Zeb::CBaseTableColumnSimpleTextDelegate*>(table.itemDelegateForColumn(3));
    titles->setItemText("0", "回购");
    EXPECT_EQ(titles->preferredWidth(),
              QFontMetrics(*resource.getFont("fnt_default_normal_fix")).horizontalAdvance("回购") + 8);
}

TEST_F(InformationEvents, TabsHaveAGroundAndATextForEachState)
{
    auto& resource = utils::CSingletonT<Zeb::CUiResource>::instance();
    const QString path = m_directory.path() + "/tabs.json";
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    // Some of them are alike in the built-in themes.
    file.write(R"({ "name": "tabs", "base": "dark", "colors": {
        "kel_clr_depth_bottom_group_btn_nomal": "#000010", "kel_clr_depth_bottom_group_btn_hover": "#000020",
        "kel_clr_depth_bottom_group_btn_press": "#000030", "kel_clr_depth_bottom_group_btn_disable": "#000040",
        "kel_clr_depth_bottom_group_btn_txt_nomal": "#ff0010",
        "kel_clr_depth_bottom_group_btn_txt_hover": "#ff0020",
        "kel_clr_depth_bottom_group_btn_txt_press": "#ff0030",
        "kel_clr_depth_bottom_group_btn_txt_disable": "#ff0040" } })");
    file.close();
    QString error;
    ASSERT_TRUE(resource.loadThemeFile(path, &error)) << error.toStdString();
    const auto colorsOf = [this](const char* name) {
        auto* const tab = m_panel.tab(name);
        testing_support::PaintRecorder picture(tab->width(), tab->height());
        tab->render(&picture, QPoint(), QRegion(), QWidget::RenderFlags());
        return picture.fillsOf(QRectF(tab->rect())).back().color().name() + " " +
               picture.text(name).color().name();
    };
    EXPECT_EQ(colorsOf("本地资讯"), "#000010 #ff0010");
    EXPECT_EQ(colorsOf("研报"), "#000030 #ff0030") << "the page that is shown";
    EXPECT_EQ(colorsOf("新闻"), "#000040 #ff0040");
    m_panel.tab("本地资讯")->setAttribute(Qt::WA_UnderMouse);
    EXPECT_EQ(colorsOf("本地资讯"), "#000020 #ff0020");
    m_panel.tab("本地资讯")->setDown(true);
    EXPECT_EQ(colorsOf("本地资讯"), "#000030 #ff0030");
    resource.setTheme("dark");
}

TEST_F(InformationEvents, ReportsAreTheFirstPage)
{
    EXPECT_EQ(m_panel.m_pageKind, 2);
    EXPECT_EQ(pages(), "reports ");
}

TEST_F(InformationEvents, Event302ChoosesOneOfThreePages)
{
    EXPECT_TRUE(choose(1));
    EXPECT_EQ(pages(), "announcements ");
    EXPECT_EQ(m_panel.m_pageKind, 1);
    EXPECT_TRUE(choose(3));
    EXPECT_EQ(pages(), "local ");
    EXPECT_TRUE(choose(2));
    EXPECT_EQ(pages(), "reports ");
}

TEST_F(InformationEvents, OtherPagesAreSwallowed)
{
    choose(1);
    for (const int page : {0, 4, -1})
        EXPECT_TRUE(choose(page));
    EXPECT_TRUE(m_panel.handleEvent(302, 3, 2, QString(), nullptr));
    EXPECT_EQ(pages(), "announcements ");
    EXPECT_EQ(m_panel.m_pageKind, 1);
}

TEST_F(InformationEvents, Event227IsSwallowedUpToThree)
{
    EXPECT_TRUE(m_panel.handleEvent(227, 3, 3, QString(), nullptr));
    EXPECT_TRUE(m_panel.handleEvent(227, 3, -5, QString(), nullptr));
    EXPECT_FALSE(m_panel.handleEvent(227, 3, 4, QString(), nullptr));
    EXPECT_FALSE(m_panel.handleEvent(227, 2, 1, QString(), nullptr));
    EXPECT_FALSE(m_panel.handleEvent(5, 1, 1, QString(), nullptr));
    EXPECT_FALSE(m_panel.handleEvent(301, 4, 1, QString(), nullptr));
}

TEST_F(InformationEvents, AClickOnATabChoosesItsPageAndMarksIt)
{
    m_panel.resize(600, 200);
    m_panel.show();
    m_panel.clickTab("公告");
    EXPECT_EQ(pages(), "announcements ");
    EXPECT_TRUE(m_panel.tab("公告")->isChecked());
    m_panel.clickTab("本地资讯");
    EXPECT_EQ(pages(), "local ");
    EXPECT_FALSE(m_panel.tab("公告")->isChecked());
    m_panel.clickTab("本地资讯");
    EXPECT_TRUE(m_panel.tab("本地资讯")->isChecked()) << "the chosen tab stays chosen";
    m_panel.clickTab("研报");
    EXPECT_EQ(pages(), "reports ");
}

TEST_F(InformationEvents, TheNewsTabWorksOnceTheTableIsFilled)
{
    m_panel.resize(600, 200);
    m_panel.show();
    EXPECT_FALSE(isShown(0));
    m_panel.table(CInformationWidget::eTableNews)->appendRow();
    EXPECT_TRUE(m_panel.tab("新闻")->isEnabled());
    EXPECT_TRUE(isShown(0));
    EXPECT_TRUE(m_panel.tab("新闻")->isChecked());
    m_panel.clickTab("新闻");
    EXPECT_FALSE(isShown(0));
    EXPECT_FALSE(m_panel.tab("新闻")->isChecked());
    EXPECT_EQ(pages(), "reports ") << "the news have no page";
}

TEST_F(InformationEvents, AnIndexHidesBothHalves)
{
    m_panel.setStock("SH000300");
    m_panel.enableUi();
    EXPECT_TRUE(m_panel.m_leftList->isHidden());
    EXPECT_TRUE(m_panel.m_rightList->isHidden());
    EXPECT_EQ(pages(), "announcements ");
}

TEST_F(InformationEvents, AStockShowsBothHalvesAndItsPage)
{
    for (const char* code : {"SH600000", "SH688001"}) {
        m_panel.setStock("SH000300");
        m_panel.enableUi();
        m_panel.setStock(code);
        m_panel.enableUi();
        EXPECT_FALSE(m_panel.m_leftList->isHidden());
        EXPECT_FALSE(m_panel.m_rightList->isHidden());
        EXPECT_EQ(pages(), "reports ");
    }
    m_panel.m_pageKind = 1;
    m_panel.enableUi();
    EXPECT_EQ(pages(), "announcements ");
    choose(3);
    m_panel.enableUi();
    EXPECT_EQ(pages(), "local ");
}

TEST_F(InformationEvents, AStockAfterAnIndexKeepsTheAnnouncementsBesideLocalInformation)
{
    choose(3);
    m_panel.setStock("SH000300");
    m_panel.enableUi();
    m_panel.setStock("SH600000");
    m_panel.enableUi();
    EXPECT_EQ(pages(), "announcements local ") << "page 3 has no say in which of the others is shown";
    choose(3);
    EXPECT_EQ(pages(), "local ");
}

TEST_F(InformationEvents, OtherKindsAndNoInstrumentChangeNothing)
{
    m_panel.enableUi();
    m_panel.setStock("SH000300");
    m_panel.enableUi();
    m_panel.setStock("SH510300");
    m_panel.enableUi();
    EXPECT_TRUE(m_panel.m_rightList->isHidden());
}

TEST_F(InformationEvents, SettingAStockStartsTheClockAnew)
{
    EXPECT_EQ(m_panel.m_requestTimer->interval(), 5000);
    EXPECT_FALSE(m_panel.m_requestTimer->isActive());
    m_panel.setStock("");
    EXPECT_FALSE(m_panel.m_requestTimer->isActive());
    m_panel.setStock("SH600000");
    EXPECT_EQ(m_panel.getStock(), "SH600000");
    EXPECT_TRUE(m_panel.m_requestTimer->isActive());
}

TEST_F(InformationEvents, AnotherStockStopsTheClockAndStartsItAnew)
{
    QTimer& timer = *m_panel.m_requestTimer;
    timer.setTimerType(Qt::PreciseTimer);
    m_panel.setStock("SH600000");
    ASSERT_TRUE(waitFor([&timer] { return timer.remainingTime() < 4900; }));
    m_panel.setStock("SH600000");
    const int left = timer.remainingTime();
    EXPECT_LT(left, 4900) << "the same one is no change";
    m_panel.setStock("SZ000001");
    EXPECT_GT(timer.remainingTime(), left);
}

TEST_F(InformationEvents, TheSameOrAnEmptyCodeChangesNothing)
{
    m_panel.setStock("SH600000");
    m_panel.m_requestTimer->stop();
    m_panel.setStock("SH600000");
    EXPECT_FALSE(m_panel.m_requestTimer->isActive());
    m_panel.setStock("");
    EXPECT_EQ(m_panel.getStock(), "SH600000");
    EXPECT_FALSE(m_panel.m_requestTimer->isActive());
}

TEST_F(InformationEvents, TwoQuickChangesReadOnce)
{
    write("SH", "600000", "a.csv", "x\n1\n");
    write("SZ", "000001", "b.csv", "x\n1\n");
    m_panel.m_requestTimer->setInterval(50);
    m_panel.show();
    m_panel.setStock("SH600000");
    m_panel.setStock("SZ000001");
    ASSERT_TRUE(waitFor([this] { return m_panel.m_local->requestCount > 0; }));
    ASSERT_TRUE(waitFor([this] {
        boost::shared_lock<boost::shared_mutex> lock(m_panel.m_local->localLock);
        return !m_panel.m_local->localHeaders.isEmpty();
    }));
    EXPECT_FALSE(m_panel.m_requestTimer->isActive()) << "one shot";
    EXPECT_EQ(m_panel.m_local->requestCount, 1);
    EXPECT_EQ(m_panel.m_local->localHeaders.keys(), QStringList{"平安银行_b"});
}

TEST_F(InformationEvents, AHiddenPanelReadsAsWell)
{
    write("SH", "600000", "a.csv", "x\n1\n");
    m_panel.setStock("SH600000");
    m_panel.slotRequestTimeOut();
    EXPECT_FALSE(m_panel.m_requestTimer->isActive());
    EXPECT_TRUE(waitFor([this] {
        boost::shared_lock<boost::shared_mutex> lock(m_panel.m_local->localLock);
        return !m_panel.m_local->localHeaders.isEmpty();
    }));
    EXPECT_EQ(m_panel.m_local->requestCount, 1);
}

TEST_F(InformationEvents, AVisiblePanelStartsItsRequestAtOnceAndAHiddenOneOnAnotherThread)
{
    m_panel.setStock("SH600000");
    m_panel.show();
    m_panel.slotRequestTimeOut();
    EXPECT_EQ(m_panel.m_local->requestCount, 1);
    m_panel.hide();
    // The other thread may be quick, but not every time.
    bool onAnotherThread = false;
    for (int i = 0; i < 10000 && !onAnotherThread; ++i) {
        ReaderThreads::instance().wait();
        const int before = m_panel.m_local->requestCount;
        m_panel.slotRequestTimeOut();
        onAnotherThread = m_panel.m_local->requestCount == before;
        ReaderThreads::instance().wait();
        EXPECT_EQ(m_panel.m_local->requestCount, before + 1);
    }
    EXPECT_TRUE(onAnotherThread);
}

TEST_F(InformationEvents, ClearReachesTheDataModel)
{
    m_panel.setStock("SH600000");
    ASSERT_EQ(m_panel.m_dataModel->request("SH600000").instrument, "600000");
    m_panel.clear();
    EXPECT_EQ(m_panel.m_dataModel->request("SH600000").instrument, "600000") << "no subscription";
    m_panel.m_dataModel->setSubscription(7);
    m_panel.clear();
    EXPECT_EQ(m_panel.m_dataModel->request("SH600000").instrument, "");
}

TEST_F(InformationEvents, ClearForgetsTheInstrumentAndWhatWasRead)
{
    write("SH", "600000", "a.csv", "x\n1\n");
    m_panel.setStock("SH600000");
    m_panel.m_requestedStock = "SH600000";
    m_panel.readLocalInformation("SH600000");
    EXPECT_EQ(m_panel.m_local->localHeaders.size(), 1);
    m_panel.clear();
    EXPECT_EQ(m_panel.getStock(), "");
    EXPECT_EQ(m_panel.m_requestedStock, "");
    EXPECT_TRUE(m_panel.m_local->localHeaders.isEmpty());
    EXPECT_TRUE(m_panel.m_local->localValues.isEmpty());
}

TEST_F(InformationEvents, TheWheelStays)
{
    QWheelEvent event(QPointF(20, 20), QPointF(20, 20), QPoint(), QPoint(0, 120), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    event.ignore();
    QCoreApplication::sendEvent(&m_panel, &event);
    EXPECT_TRUE(event.isAccepted());
}

TEST_F(InformationEvents, PanelsMayEndWhileTheyRead)
{
    write("SH", "600000", "a.csv", "日期,x\n" + QByteArray("2023,1\n").repeated(20000));
    for (int i = 0; i < 20; ++i) {
        auto panel = std::make_unique<test::InformationProbe>();
        panel->setStock("SH600000");
        panel->requestInfo();
        panel->slotRequestTimeOut();
        const std::weak_ptr<LocalInformation> local = panel->m_local;
        if (i % 2 == 0)
            boost::this_thread::sleep_for(boost::chrono::milliseconds(i / 2));
        panel.reset();
        QCoreApplication::processEvents();
        EXPECT_TRUE(waitFor([&local] { return local.expired(); })) << "the last reader frees what was read";
    }
}
