#pragma once

#include "DistinctTheme.h"
#include "Drawing.h"
#include "QueueViewProbe.h"
#include "platform/services/CConfig.h"
#include "queue_engine/EngineFixture.h"
#include "support/LevelText.h"

#include <QApplication>
#include <QPainter>

#include <string>
#include <vector>

namespace queue_view_rules {

using testing_support::EngineProbe;
using LevelPtr = boost::shared_ptr<Kel::OrderQueueData>;

/// A level's text: the head and `count` orders of so many lots each, numbers from `first` on.
inline std::string levelWith(const std::string& head, int count, int lots = 1, int first = 1)
{
    std::string text = head;
    for (int i = 0; i < count; ++i)
        text += "; " + std::to_string(first + i) + " " + std::to_string(lots) + " normal";
    return text;
}

/// An order queue panel that is driven by hand: no timer runs, and its rows come from texts.
class QueueViewTest : public testing::Test
{
protected:
    QueueViewTest()
        : m_prepared((useDistinctTheme(), testing_support::prepareServices(), Kel::setConfig(nullptr), true))
    {
    }
    ~QueueViewTest() override
    {
        Kel::setConfig(nullptr);
        testing_support::prepareServices();
    }

    /// Rows of the engine, best price first; an empty text is no row.
    void setRows(const std::vector<std::string>& sells, const std::vector<std::string>& buys)
    {
        auto& rows = view.engine(&EngineProbe::m_queueRows);
        rows.clear();
        rows[Kel::OQT_SELL] = levels(sells);
        rows[Kel::OQT_BUY] = levels(buys);
    }

    /// `count` levels a side, each with `orders` orders of one lot.
    void setPlainRows(int count, int orders = 1)
    {
        std::vector<std::string> sells;
        std::vector<std::string> buys;
        for (int level = 1; level <= count; ++level) {
            const std::string tail = " level=" + std::to_string(level);
            sells.push_back(levelWith("sell " + std::to_string(10 + level * 0.01) + tail, orders));
            buys.push_back(levelWith("buy " + std::to_string(10 - level * 0.01) + tail, orders));
        }
        setRows(sells, buys);
    }

    /// Gives the panel this size, also below its minimum, and lays it out.
    void layOut(int width, int height)
    {
        view.setMinimumSize(0, 0);
        view.resize(width, height);
        view.resetLayout();
    }

    void setSlider(int value) { view.m_scrollBar->setValue(value); }
    int slider() const { return view.m_scrollBar->value(); }
    bool barShown() const { return !view.m_scrollBar->isHidden(); }

    /// What `drawOrderVol` draws of a level.
    Drawing cells(const std::string& level, int cols, int row = 0)
    {
        return cells(testing_support::parseLevelPtr(level), cols, row);
    }
    Drawing cells(const LevelPtr& level, int cols, int row = 0)
    {
        return record(view.size(), [&](QPainter& painter) {
            painter.setFont(themeFont(view.m_fontVol));
            counted = view.drawOrderVol(level, painter, cols, row);
        });
    }
    bool counted = false; ///< answer of the last `drawOrderVol`

    /// The whole picture.
    Drawing picture()
    {
        return record(view.size(), [&](QPainter& painter) { view.drawGraph(painter); });
    }

    /// Whether the picture of the panel is drawn anew by `action`.
    template <class Action>
    bool redraws(Action action)
    {
        view.m_pixmap.fill(Qt::magenta);
        action();
        const QImage image = view.m_pixmap.toImage();
        return image.pixelColor(image.width() / 2 + 3, image.height() - 1) != QColor(Qt::magenta);
    }

    /// Whether `action` asks for a repaint of the panel, which must be shown.
    template <class Action>
    bool updates(Action action)
    {
        QApplication::processEvents();
        view.paints = 0;
        action();
        QApplication::processEvents();
        return view.paints > 0;
    }

private:
    static std::vector<LevelPtr> levels(const std::vector<std::string>& texts)
    {
        std::vector<LevelPtr> made(10);
        for (std::size_t i = 0; i < texts.size(); ++i) {
            if (!texts[i].empty())
                made[i] = testing_support::parseLevelPtr(texts[i]);
        }
        return made;
    }

    bool m_prepared; ///< theme and services are ready before the panel is made

protected:
    QueueViewProbe view;
};

} // namespace queue_view_rules
