#pragma once

#include "platform/services/CConfig.h"
#include "platform/services/CFormulaManager.h"
#include "platform/utils/CSingletonT.h"
#include "queue_engine/EngineFixture.h"
#include "queue_engine/EngineProbe.h"
#include "queue_view/CDepthOrderQueueWidget.h"
#include "support/LevelText.h"
#include "support/PaintRecorder.h"

#include <QPainter>

#include <mutex>
#include <string>
#include <vector>

namespace testing_support {

/// The order queue panel with its inside open to tests, and rows put into its engine by hand.
class QueuePanel : public Kel::CDepthOrderQueueWidget
{
public:
    explicit QueuePanel(int width = 800, int height = 600) { resizeTo(width, height); }

    using CDepthOrderQueueWidget::calcDelta;
    using CDepthOrderQueueWidget::drawGraph;
    using CDepthOrderQueueWidget::drawOrderVol;
    using CDepthOrderQueueWidget::drawPartDealVol;
    using CDepthOrderQueueWidget::getCurTop;
    using CDepthOrderQueueWidget::getLastClosePrice;
    using CDepthOrderQueueWidget::getStoreyNum;
    using CDepthOrderQueueWidget::postQuoterDepthCallBack;
    using CDepthOrderQueueWidget::postTradeQuoterCallBack;
    using CDepthOrderQueueWidget::resetLayout;
    using CDepthOrderQueueWidget::setScrollCenter;
    using CDepthOrderQueueWidget::slotTimeout;
    using CDepthOrderQueueWidget::updateScroll;

    using CDepthOrderQueueWidget::m_centerOffset;
    using CDepthOrderQueueWidget::m_centerY;
    using CDepthOrderQueueWidget::m_clientRealHeight;
    using CDepthOrderQueueWidget::m_lastClose;
    using CDepthOrderQueueWidget::m_leftRows;
    using CDepthOrderQueueWidget::m_maxShowCount;
    using CDepthOrderQueueWidget::m_model;
    using CDepthOrderQueueWidget::m_needCenter;
    using CDepthOrderQueueWidget::m_pixmap;
    using CDepthOrderQueueWidget::m_rightRows;
    using CDepthOrderQueueWidget::m_rowCount;
    using CDepthOrderQueueWidget::m_scrollBar;
    using CDepthOrderQueueWidget::m_scrollPos;
    using CDepthOrderQueueWidget::m_scrollTop;
    using CDepthOrderQueueWidget::m_subscribeId;
    using CDepthOrderQueueWidget::m_userScroll;

    /// Gives the panel its size as a layout would; a hidden widget gets no event of it.
    void resizeTo(int width, int height)
    {
        resize(width, height);
        resetLayout();
    }

    /// A row of a side, 0 is the best price, as `parseLevel` reads it; an empty text takes the row away.
    void setRow(Kel::EOrderQueueType side, int index, const std::string& text)
    {
        setRow(side, index, text.empty() ? nullptr : parseLevelPtr(text));
    }

    void setRow(Kel::EOrderQueueType side, int index, const Kel::OrderQueueDataPtr& row)
    {
        auto& rows = m_model.*(&EngineProbe::m_queueRows);
        const std::lock_guard<utils::RowMutex> lock(m_model.*(&EngineProbe::m_rowMutex));
        rows[side].resize(10);
        rows[side][static_cast<std::size_t>(index)] = row;
    }

    void setHeader(const QString& text)
    {
        const std::lock_guard<utils::RowMutex> lock(m_model.*(&EngineProbe::m_rowMutex));
        m_model.*(&EngineProbe::m_strHeader) = text;
    }

    void setLevelDataBack(bool back) { (m_model.*(&EngineProbe::m_bLevelDataBack)).store(back); }

    /// What `drawGraph` paints.
    PaintRecording picture()
    {
        drawGraph(); // so that the scroll has settled
        return recorded([this](QPainter& painter) { drawGraph(painter); });
    }

    template <class Paint>
    PaintRecording recorded(Paint paint)
    {
        PaintRecorder recorder(width(), height());
        QPainter painter(&recorder);
        paint(painter);
        painter.end();
        return recorder;
    }
};

/// A level as text: side, price and level, and one normal order for each of the lots, numbers from `first`
/// on.
inline std::string levelOf(const std::string& side, double price, int level, const std::vector<int>& lots,
                           const std::string& more = {}, int first = 1)
{
    double sum = 0;
    for (const int vol : lots)
        sum += vol;
    std::string text = side + " " + numberText(price) + " level=" + std::to_string(level) +
                       " levelVol=" + numberText(sum) + " " + more;
    for (const int vol : lots)
        text += "; " + std::to_string(first++) + " " + std::to_string(vol) + " " +
                typeText(Kel::classifyVol(vol));
    return text;
}

inline std::string sellOf(int level, const std::vector<int>& lots, const std::string& more = {})
{
    return levelOf("sell", 10.00 + level * 0.01, level, lots, more);
}
inline std::string buyOf(int level, const std::vector<int>& lots, const std::string& more = {})
{
    return levelOf("buy", 10.01 - level * 0.01, level, lots, more);
}

/// Ten levels a side with `orders` orders each; the lots are the same in every run.
inline void fillBook(QueuePanel& panel, int orders)
{
    unsigned seed = 20230201;
    const auto next = [&seed] {
        seed = seed * 1664525U + 1013904223U;
        return seed >> 8;
    };
    for (int level = 1; level <= 10; ++level) {
        for (const bool sell : {true, false}) {
            std::vector<int> lots;
            for (int i = 0; i < orders; ++i) {
                const unsigned kind = next() % 40;
                lots.push_back(kind == 0 ? 5000 + static_cast<int>(next() % 9000)
                                         : static_cast<int>(next() % (kind < 4 ? 3000 : 90)) + 1);
            }
            panel.setRow(sell ? Kel::OQT_SELL : Kel::OQT_BUY, level - 1,
                         sell ? sellOf(level, lots) : buyOf(level, lots));
        }
    }
}

} // namespace testing_support
