// A host of everything that the library offers: each class is made, fed, asked and destroyed by a program
// that has nothing but the installed headers and the shared library. Prints what came of it.

#include "frame/CDepthModuleHeaderWidget.h"
#include "holographic/CDepthHolographicWidget.h"
#include "information/CInfoItemDialog.h"
#include "information/CInformationWidget.h"
#include "level_panels/CDepthConciseStyleEntrustStatusWidget.h"
#include "level_panels/CDepthEntrustStatusWidget.h"
#include "platform/models/CModelDepthEntrust.h"
#include "platform/models/CModelDepthTransaction.h"
#include "platform/resources/CUiResource.h"
#include "platform/services/CConfig.h"
#include "platform/services/CFormulaManager.h"
#include "platform/services/CStockManager.h"
#include "platform/services/CUserConfig.h"
#include "platform/services/RPCEngine.h"
#include "platform/toolkit/number_formats.h"
#include "platform/utils/CSingletonT.h"
#include "platform/utils/Log.h"
#include "platform/utils/g_NelStdLogger.h"
#include "queue_view/CDepthOrderQueueWidget.h"
#include "records/bson/BSONObjBuilder.h"
#include "records/bson/jsonString.h"
#include "thousand/CDepthThousandDataWidget.h"
#include "thousand/CSingleQueueWidget.h"
#include "tick/CDepthEntrustTrackDialog.h"
#include "tick/CDepthEntrustWidget.h"
#include "tick/CDepthFilterSettingDialog.h"
#include "tick/CDepthOrderWidget.h"
#include "tick/CDepthTransactionWidget.h"

#include <boost/make_shared.hpp>

#include <QApplication>
#include <QElapsedTimer>
#include <QGridLayout>
#include <QTextStream>

namespace {

const QString kKey = QStringLiteral("SZ000001");
constexpr std::int64_t kOpen = 1675215000000; // 2023-02-01 09:30:00 at the exchange
constexpr int kOrders = 40;

boost::shared_ptr<Kel::MetaCacheDataWrapper> wrap(const quoter::QuoterBatch& records)
{
    return boost::make_shared<Kel::MetaCacheDataWrapper>(Kel::MetaCacheDataWrapper{records, "SZ", "000001"});
}

quoter::QuoterBatch orders()
{
    quoter::QuoterBatch batch;
    for (int number = 1; number <= kOrders; ++number) {
        auto order = boost::make_shared<quoter::OrderData>();
        order->m_time = kOpen + number * 100;
        order->entrustNo = number;
        order->side = number % 2 == 0 ? 1 : 2;
        order->price = number % 2 == 0 ? 9.99 : 10.01;
        order->volume = 100 * number;
        order->kind = quoter::eOrderLimit;
        batch.push_back(order);
    }
    return batch;
}

quoter::QuoterBatch deals()
{
    quoter::QuoterBatch batch;
    for (int number = 1; number <= 3; ++number) {
        auto deal = boost::make_shared<quoter::TransactionData>();
        deal->m_time = kOpen + number * 1000;
        deal->dealNo = number;
        deal->buyNo = 100 + number;
        deal->sellNo = 2 * number - 1; // the first sell orders, each whole
        deal->price = 10.01;
        deal->volume = 100 * deal->sellNo;
        deal->activeSide = 1;
        batch.push_back(deal);
    }
    return batch;
}

quoter::QuoterBatch snapshot()
{
    auto depth = boost::make_shared<quoter::QuoterDepthData>();
    depth->m_time = kOpen + 5000;
    depth->lastPrice = 10.01;
    depth->previousClose = 10.00;
    depth->askPrice[0] = 10.01;
    depth->askVolume[0] = 391;
    depth->bidPrice[0] = 9.99;
    depth->bidVolume[0] = 420;
    depth->totalVolume = 900;
    return {depth};
}

/// Lets the panels' timers run until something is so; false if it is not within half a minute.
template <class Condition>
bool becomes(Condition condition)
{
    QElapsedTimer time;
    time.start();
    while (!condition() && time.elapsed() < 30000)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    return condition();
}

} // namespace

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    QTextStream out(stdout);
    out.setCodec("UTF-8");

    // Services, as a host sets them
    Kel::CUserConfig userConfig;
    userConfig.setRefreshInterval(0.02);
    Kel::setUserConfig(&userConfig);
    Kel::CConfig config;
    Kel::setConfig(&config);
    auto& stocks = utils::CSingletonT<Kel::CStockManager>::instance();
    nelservice::CInstrumentDetail detail;
    detail.market = "SZ";
    detail.code = "000001";
    detail.name = "Bank";
    detail.previousClose = 10.00;
    detail.kind = nelservice::EInstrumentKind::Stock;
    stocks.addInstrument(boost::make_shared<nelservice::CInstrumentDetail>(detail));
    auto& formulas = utils::CSingletonT<Kel::CFormulaManager>::instance();
    out << "trading day: " << formulas.setTradingDay(20230201) << '\n';
    auto& theme = utils::CSingletonT<Zeb::CUiResource>::instance();
    out << "themes: " << theme.themes().join(' ') << '\n';

    // Panels
    QWidget window;
    QGridLayout grid(&window);
    Kel::CDepthModuleHeaderWidget header;
    auto* queue = new Kel::CDepthOrderQueueWidget(&header);
    header.setWidget(queue);
    header.m_sigEvent.connect([queue](int id, int first, int second, QString text, void* data) {
        return queue->handleEvent(id, first, second, text, data);
    });
    Kel::CDepthThousandDataWidget ladder(nullptr, false);
    Kel::CSingleQueueWidget single;
    Kel::CDepthTransactionWidget transactions;
    Kel::CDepthEntrustWidget entrusts;
    Kel::CDepthHolographicWidget chart;
    Kel::CDepthEntrustStatusWidget levels(nullptr, true);
    Kel::CDepthConciseStyleEntrustStatusWidget concise(nullptr, true);
    Kel::CInformationWidget information;
    int place = 0;
    for (QWidget* widget :
         {static_cast<QWidget*>(&header), static_cast<QWidget*>(&ladder), static_cast<QWidget*>(&single),
          static_cast<QWidget*>(&transactions), static_cast<QWidget*>(&entrusts),
          static_cast<QWidget*>(&chart), static_cast<QWidget*>(&levels), static_cast<QWidget*>(&concise),
          static_cast<QWidget*>(&information)}) {
        grid.addWidget(widget, place / 3, place % 3);
        ++place;
    }
    window.resize(1600, 1000);
    window.show();

    queue->setStock(kKey);
    ladder.setStock(kKey);
    transactions.setStock(kKey);
    entrusts.setStock(kKey);
    chart.setStock(kKey);
    levels.setStock(kKey);
    concise.setStock(kKey);
    information.setStock(kKey);

    // Feed
    queue->onTransactionCallback(kKey, 0, 0, wrap(deals()));
    queue->onEntrustCallback(kKey, 0, 0, wrap(orders()));
    queue->quoterCallBack(0, -1, snapshot());
    ladder.entrustCallback(0, 0, wrap(orders()));
    ladder.transactionCallback(0, 0, wrap(deals()));
    ladder.quoterCallback(0, -1, wrap(snapshot()));
    transactions.entrustCallback(0, 0, wrap(orders()));
    transactions.transactionCallback(0, 0, wrap(deals()));
    entrusts.entrustCallback(kKey, 0, 0, wrap(orders()));
    entrusts.transactionCallback(kKey, 0, 0, wrap(deals()));
    chart.onEntrustCallback(kKey, 0, 0, wrap(orders()));
    chart.onTransactionCallback(kKey, 0, 0, wrap(deals()));
    chart.slotQuoterCallBack(0, 0, snapshot(), kKey, 0);
    levels.quoterCallBack(0, 0, snapshot(), true);
    concise.quoterCallBack(0, 0, snapshot(), true);
    auto held = std::make_shared<Kel::SingleQueue>();
    single.setSingleQueue(held, 0.01, 100);
    net::RPCEngine::drain("modulegroup");
    out << "deals listed: " << becomes([&] { return transactions.total() == 3; }) << '\n';
    out << "orders listed: " << becomes([&] { return entrusts.orderList()->total() == kOrders; }) << '\n';
    out << "levels a side: " << levels.getShelves() << ' ' << concise.getShelves() << '\n';
    out << "ladder of: " << ladder.getStockKey() << '\n';
    theme.setTheme(QStringLiteral("light"));
    out << "theme: " << theme.theme() << '\n';
    const bool written = window.grab().save(QString::fromLocal8Bit(argv[1]));
    out << "picture: " << written << '\n';

    // Dialogs
    Kel::CDepthFilterSettingDialog filter(Kel::eDepthFilterTransaction, nullptr);
    Kel::CDepthEntrustTrackDialog track(nullptr);
    track.setStock(kKey);
    Kel::CInfoItemDialog item;
    item.showInfoItem(QString(), QString());

    // The engine by itself, and the platform's functions
    Kel::CDepthModelOrderQueue engine;
    engine.setStock(kKey);
    engine.quoterDealCallBack(0, 0, wrap(deals()));
    engine.quoterOrderCallBack(0, 0, wrap(orders()));
    net::RPCEngine::drain("modulegroup");
    engine.quoterCallBack(0, -1, snapshot());
    engine.checkCalcOrder();
    out << "engine: " << engine.headerText().replace('\n', QStringLiteral(" | ")) << '\n';
    out << "price: " << Zeb::formatPriceDoubleNumber(10.005, 0.01) << '\n';
    bson::BSONObjBuilder builder;
    builder.append("lots", 3);
    out << "json: " << QString::fromStdString(bson::jsonString(builder.obj())) << '\n';
    DEPTH_LOG(utils::kLogInfo, "main.cpp", boost::format("%1%") % 1);
    out << "logger: " << QString::fromStdString(g_NelStdLogger->getName()) << '\n';

    Kel::setUserConfig(nullptr);
    Kel::setConfig(nullptr);
    return 0;
}
