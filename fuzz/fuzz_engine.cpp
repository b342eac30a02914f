// Bytes become calls of the order-queue engine: records in any order and state, ticks, clears, changes of the
// instrument, calculations. The same calls drive two engines, one that reads every list in every pass and one
// that reads only what can have changed; whatever they hold and show must be the same after each call. With
// DEPTH_FUZZ_TRACE set the calls are printed, so that a finding can be told as steps.

#include "EngineComparison.h"
#include "EngineSteps.h"

#include "platform/services/CStockManager.h"
#include "platform/services/RPCEngine.h"
#include "platform/utils/CSingletonT.h"

#include <boost/make_shared.hpp>

#include <QCoreApplication>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr std::size_t kMostSteps = 400; ///< calls made of one input, so that each run is short

void addInstrument(const char* market, const char* code, double tick, nelservice::EInstrumentKind kind)
{
    const auto detail = boost::make_shared<nelservice::CInstrumentDetail>();
    detail->market = market;
    detail->code = code;
    detail->priceTick = tick;
    detail->kind = kind;
    utils::CSingletonT<Kel::CStockManager>::instance().addInstrument(detail);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    // The engine's timers need an application object, though no event loop runs here.
    static QCoreApplication application(*argc, *argv);
    using Kind = nelservice::EInstrumentKind;
    addInstrument("SH", "600519", 0.01, Kind::Stock);
    addInstrument("SZ", "000001", 0.01, Kind::Stock);
    addInstrument("SH", "113050", 0.001, Kind::ConvertibleBond);
    addInstrument("SZ", "131810", 0.005, Kind::Repurchase);
    addInstrument("SH", "000001", 0.01, Kind::Index);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const bool trace = std::getenv("DEPTH_FUZZ_TRACE") != nullptr;
    {
        testing_support::EngineProbe full;
        testing_support::EngineProbe quick;
        full.setFullPass(true);
        fuzzing::EngineSteps steps(data, size, trace);
        for (std::size_t step = 0; step < kMostSteps && steps.next(); ++step) {
            steps.apply(full);
            steps.apply(quick);
            const std::string difference = fuzzing::engineDifference(full, quick);
            if (difference.empty())
                continue;
            std::fprintf(stderr, "step %zu, %s: the full and the quick engine differ in %s\n", step,
                         steps.text().c_str(), difference.c_str());
            std::abort();
        }
    }
    // What the engines gave away is freed before the next run, or the leak check would see it.
    net::RPCEngine::drain("data_release");
    return 0;
}
