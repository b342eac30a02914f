// Presses everything in a random order while the feed runs. What is asserted is that the chart stays whole; a
// sanitizer build looks for the rest. DEPTH_SECONDS makes it run so long, DEPTH_SEED names another start.

#include "Chart.h"

#include "feed/simulation/Random.h"

#include <QElapsedTimer>

using namespace testing_support;
using namespace Kel;

namespace {

class Presser
{
public:
    explicit Presser(std::uint64_t seed) : m_random(seed) { chart.dealMode(); }

    void step()
    {
        switch (below(30)) {
        case 0:
        case 1:
        case 2:
            sendDeals();
            break;
        case 3:
            sendOrders();
            break;
        case 4:
            chart.quotes({below(4000) - 10});
            break;
        case 5:
            QTest::keyClick(&chart, Qt::Key_Left, anyModifiers());
            break;
        case 6:
            QTest::keyClick(&chart, Qt::Key_Right, anyModifiers());
            break;
        case 7:
            QTest::keyClick(&chart, below(2) == 0 ? Qt::Key_Up : Qt::Key_Down, Qt::ControlModifier);
            break;
        case 8:
            QTest::keyClick(&chart, Qt::Key(Qt::Key_A + below(20)), anyModifiers());
            break;
        case 9:
        case 10:
            chart.press(anyPoint(), anyButton());
            break;
        case 11:
        case 12:
            chart.release(anyPoint(), anyButton());
            break;
        case 13:
        case 14:
        case 15:
            chart.move(anyPoint());
            break;
        case 16:
            chart.mouse(QEvent::MouseButtonDblClick, anyPoint(), anyButton());
            break;
        case 17:
            chart.wheel((below(7) - 3) * 60);
            break;
        case 18: {
            QEvent leave(QEvent::Leave);
            QApplication::sendEvent(&chart, &leave);
            break;
        }
        case 19:
            chart.resize(below(900), below(700));
            break;
        case 20:
            chart.setViewTimeRange(anyTime(), anyTime());
            break;
        case 21:
            chart.setViewTimeRange(-1, -1);
            break;
        case 22:
            chart.highlightTransactionSeq(below(4) == 0 ? anyInt() : below(3000) - 5);
            break;
        case 23:
            chart.highlightTransactionTime(below(4) == 0 ? anyInt() : anyTime());
            break;
        case 24:
            chart.middleCurrDeal(below(4) == 0 ? anyInt() : below(3000));
            break;
        case 25:
            chart.m_menu->actions()[1 + below(3)]->trigger();
            break;
        case 26:
            chart.m_scrollBar->setValue(below(200));
            break;
        case 27:
            chart.slotShowDealDetail();
            break;
        case 28:
            rare();
            break;
        default:
            chart.slotTimeOut();
            chart.grab();
            break;
        }
    }

    Chart chart;

private:
    int below(int n) { return static_cast<int>(m_random.below(static_cast<std::uint32_t>(n))); }
    QPoint anyPoint() { return QPoint(below(chart.width() + 60) - 30, below(chart.height() + 60) - 30); }
    Qt::MouseButton anyButton() { return below(4) == 0 ? Qt::RightButton : Qt::LeftButton; }
    Qt::KeyboardModifiers anyModifiers() { return Qt::KeyboardModifiers(below(8) << 25); }
    int anyTime() { return tag(10, 0, 0) + below(5000) - 100; }
    int anyInt()
    {
        const int ints[] = {std::numeric_limits<int>::min(), std::numeric_limits<int>::max(), -1, 0, -2};
        return ints[below(5)];
    }

    void sendDeals()
    {
        Batch batch;
        for (int count = below(60); count > 0; --count) {
            const int second = below(20) == 0 ? below(4000) : m_number / 10;
            const double price = below(300) == 0 ? 1e6 * below(1000) : 10 + below(60) * 0.01;
            const std::int64_t shares =
                below(200) == 0 ? std::numeric_limits<std::int64_t>::max() : 50 * (1 + below(3000));
            ++m_number;
            batch.push_back(deal(m_number, below(50) + m_number / 60 * 30, below(50) + m_number / 70 * 30,
                                 price, shares, at(10, 0, 0) + second * 1000, below(3)));
        }
        chart.onTransactionCallback(kStock, 0, below(60) == 0 ? 0 : 1, wrap(std::move(batch)));
    }

    void sendOrders()
    {
        Batch batch;
        for (int count = below(60); count > 0; --count)
            batch.push_back(order(below(50) + m_number / 60 * 30, 1 + below(2), 10 + below(60) * 0.01,
                                  100 * (1 + below(2000)), at(9, 59, 0), below(8) == 0 ? 2 : 1));
        chart.onEntrustCallback(kStock, 0, below(80) == 0 ? 0 : 1, wrap(std::move(batch)));
    }

    void rare()
    {
        auto& resource = utils::CSingletonT<Zeb::CUiResource>::instance();
        switch (below(8)) {
        case 0:
            chart.clear();
            break;
        case 1:
            chart.setStock(below(3) == 0 ? kOther : kStock);
            break;
        case 2:
            resource.setTheme(below(2) == 0 ? QStringLiteral("light") : QStringLiteral("dark"));
            break;
        case 3:
            chart.m_model->setFullHeightHandle(below(700) - 10);
            chart.m_model->dirty = true;
            break;
        case 4:
            chart.slotRefreshTimer(1000 + below(100));
            break;
        case 5:
            chart.m_drawing = below(2) == 0 ? Chart::eDrawByColumns : Chart::eDrawAsFits;
            break;
        case 6: {
            QTimer::singleShot(0, &chart, [this] {
                if (chart.m_fullHeightDialog != nullptr)
                    chart.m_fullHeightDialog->reject();
            });
            chart.slotSetFullHeightHandle();
            break;
        }
        default: {
            QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(9, 9), chart.mapToGlobal(QPoint(9, 9)));
            QApplication::sendEvent(&chart, &event);
            chart.m_menu->close();
            break;
        }
        }
    }

    feed::Random m_random;
    int m_number = 0;
};

void expectWhole(Chart& chart)
{
    ASSERT_GE(chart.m_halfRow, 1);
    ASSERT_LE(chart.m_halfRow, 16);
    ASSERT_GE(chart.m_rowHeight, 3);
    ASSERT_GE(chart.m_scrollRow, 0);
    ASSERT_GT(chart.m_model->fullHeightHand, 0);
    int before = std::numeric_limits<int>::min();
    for (const int right : qAsConst(chart.m_dealRightX)) {
        ASSERT_GE(right, before);
        before = right;
    }
}

} // namespace

TEST(RandomEvents, LeaveTheChartWhole)
{
    const int seconds = qEnvironmentVariableIntValue("DEPTH_SECONDS");
    const std::uint64_t seed =
        qEnvironmentVariableIsSet("DEPTH_SEED") ? qEnvironmentVariable("DEPTH_SEED").toULongLong() : 20230201;
    QElapsedTimer clock;
    clock.start();
    std::uint64_t round = 0;
    do {
        SCOPED_TRACE("seed " + std::to_string(seed + round));
        Presser presser(seed + round);
        for (int step = 0; step < 1500; ++step) {
            presser.step();
            expectWhole(presser.chart);
            if (testing::Test::HasFatalFailure())
                return;
        }
        ++round;
    } while (clock.elapsed() < qint64(seconds) * 1000);
    utils::CSingletonT<Zeb::CUiResource>::instance().setTheme(QStringLiteral("dark"));
    RecordProperty("rounds", static_cast<int>(round));
}
