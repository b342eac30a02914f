// What the timer does, and when it fires.

#include "QueueViewFixture.h"

#include <memory>

using namespace queue_view_rules;
using namespace testing_support;

namespace {

/// A parent that keeps the events of its panel.
class EventKeeper : public Zeb::CBaseWidget
{
public:
    EventKeeper() : CBaseWidget("EventKeeper") {}

    bool handleEvent(int id, int first, int second, QString text, void* pointer) override
    {
        events.push_back(std::to_string(id) + " " + std::to_string(first) + " " + std::to_string(second) +
                         " " + text.toStdString() + (pointer == nullptr ? "" : " data"));
        if (panel != nullptr)
            flagAtEvent = panel->m_model.m_bNeedRepaint;
        return true;
    }

    std::vector<std::string> events;
    QueueViewProbe* panel = nullptr;
    bool flagAtEvent = false;
};

class Timer : public QueueViewTest
{
protected:
    Timer()
    {
        panel = new QueueViewProbe(&keeper);
        keeper.panel = panel;
        panel->setStock("SH600519");
        panel->setGeometry(0, 0, 600, 300);
        keeper.resize(600, 300);
        panel->quoterCallBack(0, -1, {snapshot("ask 10.02x5; bid 10.01x3; last 10.01")});
    }

    void show()
    {
        keeper.show();
        QApplication::processEvents();
        panel->paints = 0;
        keeper.events.clear();
    }

    bool magenta() const
    {
        const QImage image = panel->m_pixmap.toImage();
        return image.pixelColor(5, image.height() - 1) == QColor(Qt::magenta);
    }

    EventKeeper keeper;
    QueueViewProbe* panel = nullptr;
};

} // namespace

TEST_F(Timer, AHiddenPanelNeitherCalculatesNorPaints)
{
    panel->m_model.m_bNeedRepaint = true;
    panel->m_pixmap.fill(Qt::magenta);
    panel->slotTimeout();
    EXPECT_TRUE(panel->m_model.m_bNeedRepaint);
    EXPECT_TRUE(magenta());
    EXPECT_FALSE(panel->m_model.at(0, Kel::OQT_SELL)) << "no calculation";
    EXPECT_TRUE(keeper.events.empty());
}

TEST_F(Timer, APanelInAHiddenParentIsHidden)
{
    panel->show();
    panel->slotTimeout();
    EXPECT_FALSE(panel->m_model.at(0, Kel::OQT_SELL));
}

TEST_F(Timer, AVisiblePanelCalculatesDrawsShowsAndSendsTheHeader)
{
    show();
    panel->m_pixmap.fill(Qt::magenta);
    panel->slotTimeout();
    EXPECT_TRUE(panel->m_model.at(0, Kel::OQT_SELL));
    EXPECT_FALSE(magenta());
    ASSERT_EQ(keeper.events.size(), 1u);
    EXPECT_EQ(keeper.events[0], "1395 0 0 " + panel->m_model.headerText().toStdString());
    EXPECT_FALSE(panel->m_model.headerText().isEmpty());
    EXPECT_FALSE(panel->m_model.m_bNeedRepaint);
    EXPECT_FALSE(keeper.flagAtEvent);
    QApplication::processEvents();
    EXPECT_GT(panel->paints, 0);
}

TEST_F(Timer, WithoutNewsNothingIsDrawnOrSent)
{
    show();
    panel->slotTimeout();
    keeper.events.clear();
    QApplication::processEvents();
    panel->paints = 0;
    panel->m_pixmap.fill(Qt::magenta);
    panel->slotTimeout();
    EXPECT_TRUE(magenta());
    EXPECT_TRUE(keeper.events.empty());
    QApplication::processEvents();
    EXPECT_EQ(panel->paints, 0);
}

TEST_F(Timer, TheRedrawFlagAloneIsEnough)
{
    show();
    panel->slotTimeout();
    keeper.events.clear();
    panel->m_pixmap.fill(Qt::magenta);
    panel->m_model.m_bNeedRepaint = true;
    panel->slotTimeout();
    EXPECT_FALSE(magenta());
    EXPECT_EQ(keeper.events.size(), 1u);
    EXPECT_FALSE(panel->m_model.m_bNeedRepaint);
}

TEST_F(Timer, FiresEveryFifthOfASecondWithoutAUserConfiguration)
{
    const Kel::CDepthOrderQueueWidget other;
    const QueueViewProbe probe;
    EXPECT_EQ(probe.m_timer->interval(), 200);
    EXPECT_EQ(probe.m_timer->parent(), &probe);
    ASSERT_EQ(other.findChildren<QTimer*>(QString(), Qt::FindDirectChildrenOnly).size(), 1);
    EXPECT_TRUE(other.findChildren<QTimer*>(QString(), Qt::FindDirectChildrenOnly)[0]->isActive());
}

TEST_F(Timer, FiresWithThePeriodOfTheUserConfigurationTruncated)
{
    Kel::CUserConfig config;
    config.setRefreshInterval(0.1239);
    Kel::setUserConfig(&config);
    {
        const QueueViewProbe probe;
        EXPECT_EQ(probe.m_timer->interval(), 123);
    }
    Kel::setUserConfig(nullptr);
}

TEST_F(Timer, TakesANewPeriodFromTheUserConfigurationAtOnce)
{
    Kel::CUserConfig config;
    Kel::setUserConfig(&config);
    {
        const QueueViewProbe probe;
        EXPECT_EQ(probe.m_timer->interval(), 500);
        EXPECT_FALSE(probe.m_timer->isActive());
        config.setRefreshInterval(0.077);
        EXPECT_EQ(probe.m_timer->interval(), 77);
        EXPECT_TRUE(probe.m_timer->isActive()) << "it is started, also when it stood still";
    }
    Kel::setUserConfig(nullptr);
}

TEST_F(Timer, TakesAnyPeriodFromItsSlot)
{
    view.slotRefreshTimer(33);
    EXPECT_EQ(view.m_timer->interval(), 33);
    EXPECT_TRUE(view.m_timer->isActive());
    view.slotRefreshTimer(0);
    EXPECT_EQ(view.m_timer->interval(), 0);
    EXPECT_TRUE(view.m_timer->isActive());
    view.m_timer->stop();
}

TEST_F(Timer, IsWhatCallsTheSlot)
{
    show();
    panel->m_model.m_bNeedRepaint = true;
    panel->m_timer->start(0);
    while (keeper.events.empty())
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    panel->m_timer->stop();
    EXPECT_EQ(keeper.events[0].substr(0, 8), "1395 0 0");
}
