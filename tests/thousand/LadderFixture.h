#pragma once

#include "models/ladder/LadderFeed.h"
#include "platform/resources/CUiResource.h"
#include "platform/services/CConfig.h"
#include "platform/services/CUserConfig.h"
#include "platform/toolkit/CEventWidgetT.h"
#include "platform/utils/CSingletonT.h"
#include "support/PaintRecorder.h"
#include "thousand/CDepthThousandDataWidget.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace thousand_tests {

using namespace testing_support;

inline QColor themeColor(const char* key)
{
    return *utils::CSingletonT<Zeb::CUiResource>::instance().getColor(QLatin1String(key));
}

inline const QFont& themeFont(const char* key)
{
    return *utils::CSingletonT<Zeb::CUiResource>::instance().getFont(QLatin1String(key));
}

/// The ladder with its inside open to tests; no timer runs.
class LadderProbe : public Kel::CDepthThousandDataWidget
{
public:
    LadderProbe(QWidget* parent, bool useQuoterModel) : CDepthThousandDataWidget(parent, useQuoterModel)
    {
        period = m_timer->interval();
        wasRunning = m_timer->isActive();
        m_timer->stop();
    }

    int period = 0;
    bool wasRunning = false;
    int paints = 0;

    using CDepthThousandDataWidget::drawBackground;
    using CDepthThousandDataWidget::drawDistribute;
    using CDepthThousandDataWidget::drawGraph;
    using CDepthThousandDataWidget::getCursorData;
    using CDepthThousandDataWidget::initDraw;
    using CDepthThousandDataWidget::layout;
    using CDepthThousandDataWidget::resetCenterPosition;
    using CDepthThousandDataWidget::slotRefreshTimer;
    using CDepthThousandDataWidget::slotThousandDataDistribution;
    using CDepthThousandDataWidget::slotTimeout;
    using CDepthThousandDataWidget::updateScroll;

    using CDepthThousandDataWidget::m_buyCount;
    using CDepthThousandDataWidget::m_buyQueues;
    using CDepthThousandDataWidget::m_centerDelta;
    using CDepthThousandDataWidget::m_changeWidth;
    using CDepthThousandDataWidget::m_clrCount;
    using CDepthThousandDataWidget::m_clrFall;
    using CDepthThousandDataWidget::m_clrFlat;
    using CDepthThousandDataWidget::m_clrRise;
    using CDepthThousandDataWidget::m_clrVolume;
    using CDepthThousandDataWidget::m_hoverColumn;
    using CDepthThousandDataWidget::m_hoverRow;
    using CDepthThousandDataWidget::m_lastVolume;
    using CDepthThousandDataWidget::m_latestPrice;
    using CDepthThousandDataWidget::m_maxAmount;
    using CDepthThousandDataWidget::m_maxPrice;
    using CDepthThousandDataWidget::m_minPrice;
    using CDepthThousandDataWidget::m_pairParamFunc;
    using CDepthThousandDataWidget::m_pixmap;
    using CDepthThousandDataWidget::m_priceAreaWidth;
    using CDepthThousandDataWidget::m_priceWidth;
    using CDepthThousandDataWidget::m_resetBottom;
    using CDepthThousandDataWidget::m_resetTop;
    using CDepthThousandDataWidget::m_scrollBar;
    using CDepthThousandDataWidget::m_scrollTop;
    using CDepthThousandDataWidget::m_selected;
    using CDepthThousandDataWidget::m_selectedSide;
    using CDepthThousandDataWidget::m_sellCount;
    using CDepthThousandDataWidget::m_sellQueues;
    using CDepthThousandDataWidget::m_showDistribute;
    using CDepthThousandDataWidget::m_showTip;
    using CDepthThousandDataWidget::m_timer;
    using CDepthThousandDataWidget::m_tipText;
    using CDepthThousandDataWidget::m_totalRows;
    using CDepthThousandDataWidget::m_tradeDateFunc;
    using CDepthThousandDataWidget::m_visibleRows;

protected:
    void paintEvent(QPaintEvent* event) override
    {
        ++paints;
        CDepthThousandDataWidget::paintEvent(event);
    }
};

/// A parent that keeps the events that reach it.
class RecordingHost : public Zeb::CEventWidgetT<QWidget>
{
public:
    struct Event
    {
        int id;
        int first;
        int second;
        bool operator==(const Event& other) const
        {
            return id == other.id && first == other.first && second == other.second;
        }
        friend std::ostream& operator<<(std::ostream& out, const Event& event)
        {
            return out << event.id << '(' << event.first << ", " << event.second << ')';
        }
    };

    bool handleEvent(int id, int first, int second, QString, void*) override
    {
        events.push_back({id, first, second});
        if (answer)
            answer(events.back());
        return true;
    }

    std::vector<Event> take()
    {
        std::vector<Event> result;
        result.swap(events);
        return result;
    }

    std::vector<Event> events;
    std::function<void(const Event&)> answer;
};

using Events = std::vector<RecordingHost::Event>;

class LadderTest : public ::testing::Test
{
protected:
    explicit LadderTest(bool useQuoterModel = false, int width = 260, int height = 200)
    {
        utils::CSingletonT<Zeb::CUiResource>::instance().setTheme(QStringLiteral("dark"));
        Kel::setConfig(nullptr);
        Kel::setUserConfig(nullptr);
        addInstrument("SH", "600519");
        panel = new LadderProbe(&host, useQuoterModel);
        place(width, height);
        host.show();
        panel->setStock("SH600519");
    }
    ~LadderTest() override
    {
        Kel::setConfig(nullptr);
        Kel::setUserConfig(nullptr);
    }

    void place(int width, int height)
    {
        host.resize(width, height);
        panel->resize(width, height);
    }

    void feed(const std::vector<std::string>& lines) { panel->entrustCallback(0, 1, orders(lines)); }
    void cancel(const std::vector<int>& numbers) { panel->transactionCallback(0, 1, cancels(numbers)); }

    /// Two levels a side around a latest price of 10.00: seven orders.
    void feedSmall()
    {
        feed({"B 1 9.99 300", "B 2 9.98 200", "B 5 9.98 1000", "S 3 10.01 500", "S 4 10.02 400",
              "S 6 10.02 100"});
        panel->transactionCallback(0, 1, deals({"71x72 10.00 1200 #1 @1000"}));
        panel->slotTimeout();
    }

    /// `sells` and `buys` levels of one order of a hundred shares each around 50.00; sell `i` from 0 has
    /// number 2 i + 2, buy `i` number 2 i + 1.
    void feedDeep(int sells, int buys)
    {
        std::vector<std::string> lines;
        for (int i = 0; i < buys; ++i)
            lines.push_back("B " + std::to_string(2 * i + 1) + " " + std::to_string(49.99 - 0.01 * i) +
                            " 100");
        for (int i = 0; i < sells; ++i)
            lines.push_back("S " + std::to_string(2 * i + 2) + " " + std::to_string(50.01 + 0.01 * i) +
                            " 100");
        feed(lines);
        panel->slotTimeout();
    }

    PaintRecorder& graph()
    {
        recorder = std::make_unique<PaintRecorder>(panel->width(), panel->height());
        QPainter painter(recorder.get());
        panel->drawGraph(painter);
        return *recorder;
    }

    PaintRecorder& background()
    {
        recorder = std::make_unique<PaintRecorder>(panel->width(), panel->height());
        QPainter painter(recorder.get());
        panel->drawBackground(painter);
        return *recorder;
    }

    /// What the pixmap under the numbers must look like.
    QImage drawnBackground()
    {
        QPixmap pixmap(panel->size());
        QPainter painter(&pixmap);
        panel->drawBackground(painter);
        painter.end();
        return pixmap.toImage();
    }

    PaintRecorder& distribution()
    {
        recorder = std::make_unique<PaintRecorder>(panel->width(), panel->height());
        QPainter painter(recorder.get());
        panel->drawDistribute(painter);
        return *recorder;
    }

    void mouse(QEvent::Type type, const QPoint& at, Qt::MouseButton button = Qt::NoButton)
    {
        QMouseEvent event(type, at, panel->mapToGlobal(at), button, button, Qt::NoModifier);
        QApplication::sendEvent(panel, &event);
    }
    void move(const QPoint& at) { mouse(QEvent::MouseMove, at); }
    void click(const QPoint& at) { mouse(QEvent::MouseButtonPress, at, Qt::LeftButton); }
    void leave()
    {
        QEvent event(QEvent::Leave);
        QApplication::sendEvent(panel, &event);
    }
    void rest(const QPoint& at)
    {
        QHelpEvent event(QEvent::ToolTip, at, panel->mapToGlobal(at));
        QApplication::sendEvent(panel, &event);
    }
    bool wheel(int delta)
    {
        const QPointF at(50, 50);
        QWheelEvent event(at, panel->mapToGlobal(at.toPoint()), QPoint(), QPoint(0, delta), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(panel, &event);
        return event.isAccepted();
    }

    /// The middle of a cell of a row.
    QPoint priceAt(int row) const { return middle(panel->layout().priceCell(panel->layout().rowTop(row))); }
    QPoint countAt(int row) const { return middle(panel->layout().countCell(panel->layout().rowTop(row))); }
    QPoint volumeAt(int row) const { return middle(panel->layout().volumeCell(panel->layout().rowTop(row))); }
    static QPoint middle(const QRect& box) { return box.center(); }

    /// Runs the event loop until what `update` asked for is painted; the number of paint events.
    int painted()
    {
        panel->paints = 0;
        QApplication::processEvents();
        return panel->paints;
    }

    RecordingHost host;
    LadderProbe* panel = nullptr; ///< child of the host
    std::unique_ptr<PaintRecorder> recorder;
};

} // namespace thousand_tests
