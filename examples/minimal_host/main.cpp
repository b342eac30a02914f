// The smallest host: an order queue panel, and a feed of five records made by hand. With the name of a
// picture as argument it ends with the first news: prints the title that came and writes the picture.
#include "platform/services/CStockManager.h"
#include "platform/services/RPCEngine.h"
#include "platform/utils/CSingletonT.h"
#include "queue_view/CDepthOrderQueueWidget.h"

#include <QApplication>
#include <QTextStream>
#include <boost/make_shared.hpp>

template <class Record>
auto batchOf(const Record& record)
{
    Kel::MetaCacheDataWrapper batch{{boost::make_shared<Record>(record)}, "SH", "600519"};
    return boost::make_shared<Kel::MetaCacheDataWrapper>(batch);
}

struct Window : Zeb::CBaseWidget
{
    Window() : CBaseWidget("window") {}
    bool handleEvent(int id, int, int, QString text, void*) override
    {
        setWindowTitle(text); // 1395: the panel has drawn news, and this is a title for it
        if (id == 1395 && QApplication::arguments().size() > 1)
            QApplication::quit();
        return id == 1395;
    }
};

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    const nelservice::CInstrumentDetailPtr stock(new nelservice::CInstrumentDetail{"SH", "600519", ""});
    utils::CSingletonT<Kel::CStockManager>::instance().addInstrument(stock);
    Window window;
    auto* panel = new Kel::CDepthOrderQueueWidget(&window);
    window.setContentWidget(panel, 0, 0, true);
    window.show();
    panel->setStock("SH600519");

    // Any thread may feed the panel. Prices in yuan; status 0 opens a load, 1 goes on live, -1 is a snapshot.
    quoter::TransactionData deal;
    deal.buyNo = 1, deal.volume = 300, deal.price = 10.00;
    panel->onTransactionCallback("SH600519", 0, 0, batchOf(deal));
    quoter::OrderData order;
    for (order.entrustNo = 1; order.entrustNo <= 3; ++order.entrustNo) {
        order.side = order.entrustNo <= 2 ? 1 : 2; // two buy, one sells
        order.price = order.side == 1 ? 10.00 : 10.01, order.volume = 500 * order.entrustNo;
        panel->onEntrustCallback("SH600519", 0, order.entrustNo > 1, batchOf(order));
    }
    net::RPCEngine::drain("modulegroup"); // not needed: so that the first news has it all
    quoter::QuoterDepthData depth;
    depth.bidPrice[0] = 10.00, depth.askPrice[0] = 10.01, depth.bidVolume[0] = 12, depth.askVolume[0] = 15;
    panel->quoterCallBack(0, -1, batchOf(depth)->data);
    app.exec();
    QTextStream(stdout) << window.windowTitle() << '\n';
    return argc > 1 && !window.grab().save(argv[1]);
}
