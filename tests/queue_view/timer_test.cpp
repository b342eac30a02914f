// What the panel tells those around it.

#include "QueuePanel.h"

using namespace testing_support;
using namespace Kel;

namespace {

/// Parent that takes the title.
class Host : public Zeb::CBaseWidget
{
public:
    Host() : CBaseWidget(QStringLiteral("Host")) {}

    bool handleEvent(int id, int first, int second, QString text, void* pointer) override
    {
        events.append(QStringLiteral("%1 %2 %3 %4 %5")
                          .arg(id)
                          .arg(first)
                          .arg(second)
                          .arg(text)
                          .arg(pointer ? QStringLiteral("data") : QString()));
        return true;
    }

    QStringList events;
};

TEST(Timer, TellsTheTitleWithTheNewsAndOnlyWhileThePanelIsSeen)
{
    prepareServices();
    Host host;
    auto* panel = new QueuePanel;
    panel->setParent(&host);
    panel->setHeader(QStringLiteral("two lines"));
    panel->setRow(OQT_SELL, 0, sellOf(1, {1}));
    panel->m_model.m_bNeedRepaint = true;
    panel->slotTimeout();
    EXPECT_TRUE(host.events.isEmpty());
    EXPECT_EQ(panel->m_rowCount, 0);
    host.show();
    panel->show();
    panel->m_model.m_bNeedRepaint = true;
    panel->slotTimeout();
    EXPECT_EQ(host.events, QStringList{QStringLiteral("1395 0 0 two lines ")});
    EXPECT_EQ(panel->m_rowCount, 2);
    EXPECT_FALSE(panel->m_model.m_bNeedRepaint);
    panel->slotTimeout();
    EXPECT_EQ(host.events.size(), 1);
}

TEST(Panel, IsNamedForScreenReaders)
{
    EXPECT_EQ(QueuePanel().accessibleName(), QStringLiteral("委托队列"));
}

} // namespace
