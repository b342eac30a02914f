// Quote panels and local information: a quote until it is painted, a click until the host has its parameters,
// thousands of notices scrolled, a large local file read.

#include "information/CInformationWidget.h"
#include "information/LocalInformation.h"
#include "level_panels/CDepthConciseStyleEntrustStatusWidget.h"
#include "level_panels/CDepthEntrustStatusWidget.h"
#include "platform/services/CStockManager.h"
#include "platform/services/RPCEngine.h"
#include "platform/services/external_data.h"
#include "platform/toolkit/CStandardTable.h"
#include "platform/utils/CSingletonT.h"
#include "records/QuoterDepthData.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <boost/make_shared.hpp>

namespace {

constexpr int kNotices = 10000;
constexpr int kLocalFileBytes = 100 * 1024 * 1024;

void addStock()
{
    auto detail = boost::make_shared<nelservice::CInstrumentDetail>();
    detail->market = "SH";
    detail->code = "600999";
    detail->name = "沪市模拟";
    detail->previousClose = 10;
    utils::CSingletonT<Kel::CStockManager>::instance().addInstrument(detail);
}

boost::shared_ptr<quoter::QuoterDepthData> snapshot(int lots)
{
    auto record = boost::make_shared<quoter::QuoterDepthData>();
    for (int i = 0; i < quoter::kDepthLevels; ++i) {
        record->askPrice[i] = 10.01 + 0.01 * i;
        record->bidPrice[i] = 9.99 - 0.01 * i;
        record->askVolume[i] = record->bidVolume[i] = lots + i;
    }
    record->lastPrice = 10;
    return record;
}

template <class Panel>
void quoteToPicture(benchmark::State& state)
{
    addStock();
    Panel panel(nullptr, true);
    panel.setStock("SH600999");
    panel.resize(260, 540);
    panel.show();
    QImage picture(panel.size(), QImage::Format_ARGB32_Premultiplied);
    int lots = 0;
    for (auto _ : state) {
        panel.quoterCallBack(0, -1, {snapshot(++lots % 5000)}, true);
        panel.render(&picture);
    }
}
BENCHMARK_TEMPLATE(quoteToPicture, Kel::CDepthEntrustStatusWidget)->Unit(benchmark::kMicrosecond);
BENCHMARK_TEMPLATE(quoteToPicture, Kel::CDepthConciseStyleEntrustStatusWidget)->Unit(benchmark::kMicrosecond);

void clickToParameters(benchmark::State& state)
{
    addStock();
    Kel::CDepthConciseStyleEntrustStatusWidget panel(nullptr, true);
    panel.setStock("SH600999");
    panel.resize(260, 540);
    panel.show();
    panel.quoterCallBack(0, -1, {snapshot(100)}, true);
    int sent = 0;
    panel.setPairParamFunc([&sent](const QString&) { ++sent; });
    for (auto _ : state) {
        QMouseEvent event(QEvent::MouseButtonPress, QPointF(100, 10 * 24 + 5), Qt::LeftButton, Qt::LeftButton,
                          Qt::NoModifier);
        QApplication::sendEvent(&panel, &event);
    }
    if (sent == 0)
        state.SkipWithError("no parameters");
}
BENCHMARK(clickToParameters)->Unit(benchmark::kMicrosecond);

/// A step of the scroll bar through ten thousand notices, and its picture.
void scrollNotices(benchmark::State& state)
{
    addStock();
    Kel::CInformationWidget panel;
    panel.resize(640, 400);
    panel.show();
    panel.setStock("SH600999");
    panel.handleEvent(302, 4, 1, QString(), nullptr);
    QList<boost::shared_ptr<quoter::Notice>> notices;
    for (int i = 0; i < kNotices; ++i) {
        auto notice = boost::make_shared<quoter::Notice>();
        notice->m_time = 1675218600000 - std::int64_t(i) * 3600000;
        notice->title = "关于回购股份进展的公告" + std::to_string(i);
        notices.append(notice);
    }
    panel.onInfoNotice("SH600999", notices);
    QApplication::processEvents();
    QScrollBar* const bar = panel.table(Kel::CInformationWidget::eTableAnnouncements)->verticalScrollBar();
    QImage picture(panel.size(), QImage::Format_ARGB32_Premultiplied);
    int step = 0;
    for (auto _ : state) {
        bar->setValue(bar->maximum() * (++step % 100) / 100);
        panel.render(&picture);
    }
}
BENCHMARK(scrollNotices)->Unit(benchmark::kMillisecond);

/// Notices that come together, until they are seen.
void addNotices(benchmark::State& state)
{
    addStock();
    QList<boost::shared_ptr<quoter::Notice>> notices;
    for (int i = 0; i < state.range(0); ++i) {
        auto notice = boost::make_shared<quoter::Notice>();
        notice->title = "关于回购股份进展的公告" + std::to_string(i);
        notices.append(notice);
    }
    Kel::CInformationWidget panel;
    panel.resize(640, 400);
    panel.show();
    panel.setStock("SH600999");
    panel.handleEvent(302, 4, 1, QString(), nullptr);
    QImage picture(panel.size(), QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state) {
        panel.slotNotices("SH600999", notices);
        QApplication::processEvents();
        panel.render(&picture);
        state.PauseTiming();
        panel.clearTables();
        state.ResumeTiming();
    }
}
BENCHMARK(addNotices)->Arg(100)->Arg(1000)->Arg(kNotices)->Unit(benchmark::kMillisecond);

/// Opens what a reader thread does to the benchmark.
class ReadingPanel : public Kel::CInformationWidget
{
public:
    using CInformationWidget::readLocalInformation;
};

/// What the GUI thread does when a file was read: the table and its picture.
void showFile(benchmark::State& state, const QByteArray& bytes)
{
    addStock();
    QTemporaryDir directory;
    Kel::setExternalDataDir(directory.path());
    const QString folder = Kel::localInformationDirectory("SH", "600999");
    QDir().mkpath(folder);
    QFile file(folder + "/a.csv");
    file.open(QIODevice::WriteOnly);
    file.write(bytes);
    file.close();
    ReadingPanel panel;
    panel.resize(640, 400);
    panel.show();
    panel.setStock("SH600999");
    panel.handleEvent(302, 4, 3, QString(), nullptr);
    QImage picture(panel.size(), QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state) {
        state.PauseTiming();
        panel.clear();
        panel.clearTables();
        panel.setStock("SH600999");
        panel.readLocalInformation("SH600999");
        state.ResumeTiming();
        QApplication::processEvents();
        panel.render(&picture);
    }
}

void showLocalFile(benchmark::State& state)
{
    QByteArray bytes("日期,名称,价格,数量,金额\n");
    for (int row = 0; row < state.range(0); ++row)
        bytes += "2023-02-01,持股名称甲乙," + QByteArray::number(row) + ".25,12,1234567.89\n";
    showFile(state, bytes);
}
BENCHMARK(showLocalFile)->Arg(1000)->Arg(1000000)->Unit(benchmark::kMillisecond);

/// A thousand columns of texts that no cell has room for.
void showRubbish(benchmark::State& state)
{
    const QByteArray line = (QByteArray(2000, 'x') + ',').repeated(1000) + '\n';
    showFile(state, line.repeated(20));
}
BENCHMARK(showRubbish)->Unit(benchmark::kMillisecond);

void readLocalFile(benchmark::State& state)
{
    addStock();
    QTemporaryDir directory;
    Kel::setExternalDataDir(directory.path());
    const QString folder = Kel::localInformationDirectory("SH", "600999");
    QDir().mkpath(folder);
    QFile file(folder + "/a.csv");
    file.open(QIODevice::WriteOnly);
    QByteArray bytes("日期,名称,价格,数量,金额\n");
    for (int row = 0; bytes.size() < kLocalFileBytes; ++row) {
        const QByteArray number = QByteArray::number(row);
        bytes += "2023-02-" + QByteArray::number(10 + row / 1000 % 18) + ",持股名称甲乙," + number +
                 ".25,\"1," + number + "\",1234567.89\n";
    }
    file.write(bytes);
    file.close();
    for (auto _ : state) {
        Kel::LocalInformation local;
        local.read("SH600999");
        state.PauseTiming();
        local.clear();
        net::RPCEngine::drain("data_release"); // which frees what the next round would wait for
        state.ResumeTiming();
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * bytes.size());
}
BENCHMARK(readLocalFile)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
