// The two panels together, wired as a host does it: a click on an order count opens the orders of that price
// beside the row, each news refreshes them, and they close when the level is gone.

#include "LadderFixture.h"
#include "thousand/CSingleQueueWidget.h"

using namespace thousand_tests;

namespace {

class LadderWithQueue : public LadderTest
{
protected:
    LadderWithQueue() : queue(nullptr)
    {
        queue.resize(290, 100);
        host.answer = [this](const RecordingHost::Event& event) {
            if (event.id != 3223)
                return;
            double tick = 0;
            int unit = 0;
            const auto orders = event.first == 0 ? panel->getSelectedQueue(tick, unit) : nullptr;
            if (!orders) {
                queue.hide();
                queue.setSingleQueue(nullptr, tick, unit);
                return;
            }
            // The panel is shown first, so that it takes its new height at once.
            queue.show();
            queue.setSingleQueue(orders, tick, unit);
            if (event.second >= 0)
                queue.move(panel->mapToGlobal(QPoint(panel->width(), event.second)));
        };
        feedSmall();
    }
    ~LadderWithQueue() override
    {
        delete panel;
        host.answer = {};
    }

    QStringList shown()
    {
        PaintRecorder drawn(queue.width(), queue.height());
        QPainter painter(&drawn);
        queue.drawQueue(painter);
        painter.end();
        return drawn.texts();
    }

    struct Drawn : Kel::CSingleQueueWidget
    {
        using CSingleQueueWidget::CSingleQueueWidget;
        using CSingleQueueWidget::drawQueue;
    };
    Drawn queue;
};

} // namespace

TEST_F(LadderWithQueue, AClickOpensTheOrdersBesideTheRowAndNewsRefreshThem)
{
    click(countAt(4));
    EXPECT_TRUE(queue.isVisible());
    EXPECT_EQ(shown(), (QStringList{"买入 9.98 共 2 笔 总量 12", "2", "10"}));
    EXPECT_EQ(queue.y(), panel->mapToGlobal(QPoint(0, panel->layout().rowTop(4))).y());
    feed({"B 9 9.98 700"});
    panel->slotTimeout();
    EXPECT_EQ(shown(), (QStringList{"买入 9.98 共 3 笔 总量 19", "2", "10", "7"}));
    // Orders that change while the row shows the same are refreshed as well.
    cancel({9});
    feed({"B 10 9.98 700"});
    panel->transactionCallback(0, 1, deals({"2x50 9.98 100 #2", "10x50 9.98 0 #3"}));
    feed({"B 11 9.98 100"});
    cancel({10});
    feed({"B 12 9.98 300", "B 13 9.98 400"});
    panel->slotTimeout();
    EXPECT_EQ(shown(), (QStringList{"买入 9.98 共 5 笔 总量 19", "1", "10", "1", "3", "4"}));
}

TEST_F(LadderWithQueue, TheOrdersCloseWithTheSelectionTheLevelAndTheInstrument)
{
    click(countAt(1));
    EXPECT_TRUE(queue.isVisible());
    click(priceAt(1));
    EXPECT_FALSE(queue.isVisible());
    click(countAt(1));
    cancel({3});
    panel->slotTimeout();
    EXPECT_FALSE(queue.isVisible());
    EXPECT_EQ(shown(), QStringList());
    click(countAt(0));
    EXPECT_TRUE(queue.isVisible());
    panel->clear(true);
    EXPECT_FALSE(queue.isVisible());
}
