#pragma once

#include "TickPanels.h"

#include "tick/CCancelWidget.h"
#include "tick/CDealWidget.h"
#include "tick/CDepthEntrustTrackDialog.h"
#include "tick/CGraphWidget.h"
#include "tick/COrderWidget.h"
#include "tick/CSpliterWidget.h"

#include <boost/make_shared.hpp>

#include <list>

/// The track dialog with its parts in reach.
namespace testing_support {

using namespace Kel;

inline const char* const kRise = "ic_clr_entrust_text_rise";
inline const char* const kFall = "ic_clr_entrust_text_fall";
inline const QColor kText(255, 255, 255, 160);
inline const QColor kBuySolid(255, 0, 0, 255);
inline const QColor kBuyHalf(255, 0, 0, 128);
inline const QColor kSellSolid(0, 255, 0, 255);
inline const QColor kSellHalf(0, 255, 0, 128);
inline const QColor kCancelled(255, 255, 255, 64);

using Records = std::list<boost::shared_ptr<quoter::TransactionData>>;

class OpenTrack : public CDepthEntrustTrackDialog
{
public:
    OpenTrack() : CDepthEntrustTrackDialog(nullptr) {}

    using CDepthEntrustTrackDialog::m_cancelInfo;
    using CDepthEntrustTrackDialog::m_deals;
    using CDepthEntrustTrackDialog::m_graph;
    using CDepthEntrustTrackDialog::m_orderInfo;
    using CDepthEntrustTrackDialog::m_subject;
};

class Track : public testing::Test
{
protected:
    Track()
    {
        addInstruments();
        dialog.setStock(kStock);
        dialog.show();
        QApplication::processEvents();
    }

    /// An order of 100 lots at 10.01 with its records; `kind` of a record is its active side or 3.
    void show(int side, Records records, std::int64_t shares = 10000)
    {
        auto order = boost::make_shared<DepthOrderData>();
        order->time = tag(10, 0, 1);
        order->price = 10.01;
        order->lots = static_cast<int>(shares / 100);
        order->volume = shares;
        order->orderNo = 5;
        order->side = side;
        order->kind = 1;
        dialog.setEntrustData(order);
        dialog.setTransactionData(records);
    }

    static boost::shared_ptr<quoter::TransactionData> record(int kind, std::int64_t shares, double price = 10,
                                                             int second = 5)
    {
        auto result = deal(1, 5, 6, price, shares, at(10, 0, second, 900));
        result->kind = kind;
        return result;
    }

    static std::unique_ptr<PaintRecorder> picture(CTrackWidget* widget)
    {
        auto recorder = std::make_unique<PaintRecorder>(widget->width(), widget->height());
        QPainter painter(recorder.get());
        widget->draw(painter);
        return recorder;
    }

    OpenTrack dialog;
};

} // namespace testing_support
