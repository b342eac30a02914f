#pragma once

#include "models/tick/TickRecords.h"
#include "platform/resources/CUiResource.h"
#include "platform/services/CConfig.h"
#include "platform/services/CUserConfig.h"
#include "platform/utils/CSingletonT.h"
#include "support/EventSink.h"
#include "support/PaintRecorder.h"
#include "tick/CDealTable.h"
#include "tick/CDepthCancelWidget.h"
#include "tick/CDepthEntrustWidget.h"
#include "tick/CDepthOrderWidget.h"
#include "tick/CDepthTransactionWidget.h"
#include "tick/tick_resources.h"

#include <QPainter>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <gtest/gtest.h>

#include <memory>
#include <vector>

/// Panels of ticks for tests, with what they keep in reach.
namespace testing_support {

constexpr int kRight = Qt::AlignRight | Qt::AlignVCenter;
constexpr int kLeft = Qt::AlignLeft | Qt::AlignVCenter;

inline QColor colorOf(const char* key)
{
    return *Kel::themeColor(key);
}

/// A list with its protected side open.
template <class List>
class OpenList : public List
{
public:
    using List::List;
    using List::m_buffer;
    using List::m_columnGap;
    using List::m_firstIndex;
    using List::m_followTail;
    using List::m_layout;
    using List::m_priceWidth;
    using List::m_rect;
    using List::m_scrollBar;
    using List::m_selectedIndex;
    using List::m_timeWidth;
    using List::m_total;
    using List::m_volumeWidth;

    /// What the list draws into its pixmap.
    std::unique_ptr<PaintRecorder> picture()
    {
        auto recorder = std::make_unique<PaintRecorder>(this->width(), this->height());
        QPainter painter(recorder.get());
        this->drawBackground(&painter);
        return recorder;
    }

    /// The same as it must stand in the pixmap.
    QImage pictureAsImage()
    {
        QPixmap pixmap(this->size());
        QPainter painter(&pixmap);
        this->drawBackground(&painter);
        painter.end();
        return pixmap.toImage();
    }

    /// The box of a column of the row at a place in the view, `offset` pixels from its group's left edge.
    QRect cell(int place, int offset, int width) const
    {
        return QRect(m_layout.left(place) + offset, m_layout.lineTop(place), width, m_layout.rowHeight);
    }

    QPoint middleOf(int place) const { return m_layout.rowRect(place).center(); }
};

class DealPanel : public OpenList<Kel::CDepthTransactionWidget>
{
public:
    using CDepthTransactionWidget::drawTip;
    using CDepthTransactionWidget::getPriceColor;
    using CDepthTransactionWidget::getVolumeColor;
    using CDepthTransactionWidget::m_arrowDown;
    using CDepthTransactionWidget::m_arrowUp;
    using CDepthTransactionWidget::m_filterParam;
    using CDepthTransactionWidget::m_highlightKey;
    using CDepthTransactionWidget::m_highlightRange;
    using CDepthTransactionWidget::m_holoWidth;
    using CDepthTransactionWidget::m_model;
    using CDepthTransactionWidget::m_mousePos;
    using CDepthTransactionWidget::m_showHoloGraph;
    using CDepthTransactionWidget::m_timer;
    using CDepthTransactionWidget::m_tipSide;
    using CDepthTransactionWidget::slotTimeout;
    using CDepthTransactionWidget::stripOffset;
    using CDepthTransactionWidget::tipRect;

    explicit DealPanel(int width = 540, int height = 94, bool strip = true) : OpenList(nullptr, strip)
    {
        addInstruments();
        setStock(kStock);
        m_timer->stop();
        addReceiver(&sink);
        resize(width, height);
        show();
    }

    void deals(Batch batch, int status = 1)
    {
        transactionCallback(0, status, wrap(std::move(batch)));
        slotTimeout();
    }
    void orders(Batch batch, int status = 1)
    {
        entrustCallback(0, status, wrap(std::move(batch)));
        slotTimeout();
    }

    /// So many deals, one a second, each of its own orders.
    void fill(int count, int firstNumber = 1)
    {
        Batch batch;
        for (int number = firstNumber; number < firstNumber + count; ++number)
            batch.push_back(
                deal(number, number * 2, number * 2 + 1, 10, 100 * number, at(10, 0, 0) + number * 1000));
        deals(batch);
    }

    EventSink sink;
};

class OrderPanel : public OpenList<Kel::CDepthOrderWidget>
{
public:
    using OpenList::OpenList;
};

/// The panel of orders and cancels; its lists are reached through friends of the same layout.
class EntrustPanel : public Kel::CDepthEntrustWidget
{
public:
    using CDepthEntrustWidget::m_cancelTitle;
    using CDepthEntrustWidget::m_filterDialog;
    using CDepthEntrustWidget::m_model;
    using CDepthEntrustWidget::m_orderTitle;
    using CDepthEntrustWidget::m_splitter;
    using CDepthEntrustWidget::m_timer;
    using CDepthEntrustWidget::m_trackDialog;
    using CDepthEntrustWidget::slotTimeout;

    explicit EntrustPanel(int width = 900, int height = 300)
    {
        addInstruments();
        setStock(kStock);
        m_timer->stop();
        addReceiver(&sink);
        resize(width, height);
        show();
    }

    void orders(Batch batch, int status = 1)
    {
        entrustCallback(kStock, 0, status, wrap(std::move(batch)));
        slotTimeout();
    }
    void deals(Batch batch, int status = 1)
    {
        transactionCallback(kStock, 0, status, wrap(std::move(batch)));
        slotTimeout();
    }

    EventSink sink;
};

} // namespace testing_support
