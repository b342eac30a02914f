#include "EngineSteps.h"

#include <boost/make_shared.hpp>

#include <algorithm>
#include <cstdio>
#include <limits>

namespace fuzzing {

namespace {

/// Numbers at which tables by number go over to the next word, page or chunk, and the last ones of 32 bits.
constexpr std::int64_t kBoundaries[] = {63, 64, 255, 256, 65535, 65536, 0x7fffffff, 0x80000000};

template <class Integer>
Integer extreme(std::uint8_t choice)
{
    constexpr Integer kMin = std::numeric_limits<Integer>::min();
    constexpr Integer kMax = std::numeric_limits<Integer>::max();
    const Integer values[] = {kMin, kMax, Integer(kMin + 1), Integer(kMax - 1), Integer(-1), Integer(-7)};
    return values[choice % 6];
}

double oddPrice(std::uint8_t choice)
{
    const double infinity = std::numeric_limits<double>::infinity();
    const double values[] = {0,        -10.0,     std::numeric_limits<double>::quiet_NaN(),
                             infinity, -infinity, 1e308,
                             5e-324,   0.005,     21474836.47};
    return values[choice % 9];
}

std::string say(double value)
{
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%g", value);
    return buffer;
}

std::string say(std::int64_t value)
{
    return std::to_string(value);
}

} // namespace

std::int64_t EngineSteps::number()
{
    const std::uint8_t choice = byte();
    if (choice < 230)
        return choice % 12;
    return choice < 250 ? kBoundaries[choice % 8] : extreme<std::int64_t>(byte());
}

std::int32_t EngineSteps::shortNumber()
{
    const std::uint8_t choice = byte();
    if (choice < 230)
        return choice % 12;
    return choice < 250 ? static_cast<std::int32_t>(kBoundaries[choice % 8]) : extreme<std::int32_t>(byte());
}

double EngineSteps::price()
{
    const std::uint8_t choice = byte();
    return choice < 240 ? (998 + choice % 5) / 100.0 : oddPrice(choice);
}

std::int64_t EngineSteps::shares()
{
    const std::uint8_t choice = byte();
    if (choice < 220)
        return 100 * (choice % 8);
    if (choice < 235)
        return 10 * choice;
    if (choice < 250)
        return 100000 * std::int64_t(choice % 8);
    const std::int64_t beyondDouble = (std::int64_t(1) << 53) + 1;
    return choice < 253 ? extreme<std::int64_t>(byte()) : beyondDouble;
}

std::int64_t EngineSteps::lots()
{
    const std::uint8_t choice = byte();
    if (choice < 230)
        return choice % 20;
    return choice < 250 ? 500 * (choice % 20) : extreme<std::int64_t>(byte());
}

std::int64_t EngineSteps::time()
{
    const std::uint8_t choice = byte();
    if (choice >= 252)
        return extreme<std::int64_t>(byte());
    if (choice >= 128)
        return m_clock - choice % 32;
    m_clock += choice % 32;
    return m_clock;
}

int EngineSteps::status()
{
    const std::uint8_t choice = byte();
    if (choice < 160)
        return 1 + choice % 2;
    if (choice < 200)
        return 0;
    if (choice < 240)
        return 3;
    const int unknown[] = {-2, -1, 4, 100, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()};
    return unknown[choice % 6];
}

int EngineSteps::side()
{
    const std::uint8_t choice = byte();
    if (choice < 240)
        return 1 + choice % 2;
    return choice < 252 ? choice % 6 : extreme<int>(byte());
}

quoter::QuoterBasePtr EngineSteps::order()
{
    if (oneIn(64))
        return oneIn(2) ? nullptr : boost::make_shared<quoter::QuoterBase>();
    const auto made = boost::make_shared<quoter::OrderData>();
    made->entrustNo = number();
    made->side = side();
    made->price = price();
    made->volume = shares();
    made->kind = oneIn(32) ? byte() % 6 : 1;
    made->m_time = time();
    m_text += " [" + say(made->entrustNo) + " side " + std::to_string(made->side) + " kind " +
              std::to_string(made->kind) + " at " + say(made->price) + " shares " + say(made->volume) +
              " time " + say(made->m_time) + "]";
    return made;
}

quoter::QuoterBasePtr EngineSteps::transaction()
{
    if (oneIn(64))
        return oneIn(2) ? nullptr : boost::make_shared<quoter::OrderData>();
    const auto made = boost::make_shared<quoter::TransactionData>();
    made->buyNo = shortNumber();
    made->sellNo = oneIn(2) ? 0 : shortNumber();
    made->kind = oneIn(3) ? int(quoter::eTransactionCancel) : 0;
    made->volume = shares();
    made->dealNo = shortNumber();
    made->m_time = time();
    m_text += " [buy " + std::to_string(made->buyNo) + " sell " + std::to_string(made->sellNo) + " kind " +
              std::to_string(made->kind) + " shares " + say(made->volume) + " time " + say(made->m_time) +
              "]";
    return made;
}

quoter::QuoterBasePtr EngineSteps::levelRecord()
{
    const auto made = boost::make_shared<quoter::LevelOrderData>();
    made->m_time = time();
    const auto fill = [this](double& at, std::vector<std::int32_t>& volumes, std::int32_t& count) {
        at = price();
        int size = byte() % 12;
        if (oneIn(8))
            size = 48 + byte() % 4;
        for (int i = 0; i < size; ++i) {
            const std::uint8_t choice = byte();
            volumes.push_back(choice < 245 ? choice % 8 : extreme<std::int32_t>(choice));
        }
        count = oneIn(16) ? extreme<std::int32_t>(byte()) : size;
        m_text += " [at " + say(at) + " count " + std::to_string(count) + ":";
        for (const std::int32_t volume : volumes)
            m_text += " " + std::to_string(volume);
        m_text += "]";
    };
    fill(made->bidPrice, made->bidVolumes, made->bidCount);
    fill(made->askPrice, made->askVolumes, made->askCount);
    m_text += " time " + say(made->m_time);
    return made;
}

quoter::QuoterBasePtr EngineSteps::snapshot()
{
    const auto made = boost::make_shared<quoter::QuoterDepthData>();
    made->m_time = time();
    const int best = 998 + byte() % 5;
    const int spread = byte() % 3; // 0: equal best prices, as in an auction
    const int shown = byte() % 11;
    for (int i = 0; i < shown; ++i) {
        made->bidPrice[i] = (best - i) / 100.0;
        made->askPrice[i] = (best + spread + i) / 100.0;
        made->bidVolume[i] = lots();
        made->askVolume[i] = lots();
    }
    if (oneIn(8))
        made->bidPrice[byte() % 10] = price();
    if (oneIn(8))
        made->askPrice[byte() % 10] = price();
    made->lastPrice = price();
    m_text += " time " + say(made->m_time) + " last " + say(made->lastPrice) + " bids";
    for (int i = 0; i < quoter::kDepthLevels; ++i)
        m_text += " " + say(made->bidPrice[i]) + "x" + say(made->bidVolume[i]);
    m_text += " asks";
    for (int i = 0; i < quoter::kDepthLevels; ++i)
        m_text += " " + say(made->askPrice[i]) + "x" + say(made->askVolume[i]);
    return made;
}

Kel::MetaCacheDataWrapperPtr EngineSteps::wrap(quoter::QuoterBatch batch)
{
    const std::uint8_t choice = byte();
    if (choice == 255) {
        m_text += " in a null wrapper";
        return nullptr;
    }
    const auto wrapper = boost::make_shared<Kel::MetaCacheDataWrapper>();
    wrapper->data = std::move(batch);
    wrapper->market = m_market;
    wrapper->instrument = m_code;
    if (choice == 254) {
        m_text += " for another instrument";
        wrapper->instrument = "600000";
    }
    return wrapper;
}

void EngineSteps::smallOrders()
{
    const int at = status();
    m_text = "orders status " + std::to_string(at);
    quoter::QuoterBatch batch;
    for (int count = byte() % 8; count > 0; --count)
        batch.push_back(order());
    const auto wrapper = wrap(std::move(batch));
    m_call = [at, wrapper](Engine& engine) { engine.doOrderCallBack(0, at, wrapper); };
}

/// More than 100 records, so that the batch goes through the order cache.
void EngineSteps::largeOrders()
{
    const int at = status();
    m_text = "large order batch status " + std::to_string(at);
    quoter::QuoterBatch batch;
    for (int count = byte() % 12; count > 0; --count)
        batch.push_back(order());
    batch.resize(std::max<std::size_t>(batch.size(), 101) - 1);
    batch.push_back(order());
    batch.push_back(order());
    const auto wrapper = wrap(std::move(batch));
    m_call = [at, wrapper](Engine& engine) { engine.doOrderCallBack(0, at, wrapper); };
}

void EngineSteps::deals()
{
    const int at = status();
    m_text = "deals status " + std::to_string(at);
    quoter::QuoterBatch batch;
    for (int count = byte() % 8; count > 0; --count)
        batch.push_back(transaction());
    const auto wrapper = wrap(std::move(batch));
    m_call = [at, wrapper](Engine& engine) { engine.doDealCallBack(0, at, wrapper); };
}

/// Enough records of no effect to bring the next sweep of the order cache.
void EngineSteps::padding()
{
    m_text = "1000 null deals status 1";
    const auto wrapper = wrap(quoter::QuoterBatch(1000));
    m_call = [wrapper](Engine& engine) { engine.doDealCallBack(0, 1, wrapper); };
}

void EngineSteps::levels()
{
    const int at = oneIn(4) ? 3 * (byte() % 2) : 1;
    m_text = "level records status " + std::to_string(at);
    quoter::QuoterBatch batch;
    for (int count = 1 + byte() % 2; count > 0; --count)
        batch.push_back(levelRecord());
    // History comes on a thread of its own; called here, it has ended before the engines are compared.
    if (at == 1)
        m_call = [batch](Engine& engine) { engine.quoterCallBack(0, 1, batch); };
    else
        m_call = [batch, at](Engine& engine) { engine.quoterCallBackThread(batch, 0, at); };
}

void EngineSteps::snapshots()
{
    m_text = "snapshot";
    const bool foreign = oneIn(64);
    const quoter::QuoterBatch batch(1, foreign ? order() : snapshot());
    m_call = [batch](Engine& engine) { engine.quoterCallBack(0, -1, batch); };
}

void EngineSteps::instrument()
{
    static const char* const kKeys[][2] = {{"SH", "600519"}, {"SZ", "131810"}, {"SH", "113050"},
                                           {"SZ", "000001"}, {"SH", "000001"}, {"SH", "unknown"}};
    const auto& key = kKeys[byte() % 6];
    m_market = key[0];
    m_code = key[1];
    m_text = "instrument " + m_market + m_code;
    const QString code = QString::fromStdString(m_market + m_code);
    m_call = [code](Engine& engine) { engine.setStock(code); };
}

void EngineSteps::pass()
{
    switch (byte() % 10) {
    case 0:
        m_text = "updateDataList";
        m_call = [](Engine& engine) { engine.updateDataList(); };
        break;
    case 1:
        m_text = "fixOrderDataList";
        m_call = [](Engine& engine) { engine.fixOrderDataList(); };
        break;
    case 2:
        m_text = "fixSZDataList(true)";
        m_call = [](Engine& engine) { engine.fixSZDataList(true); };
        break;
    case 3:
        m_text = "fixSZDataList(false)";
        m_call = [](Engine& engine) { engine.fixSZDataList(false); };
        break;
    case 4:
        m_text = "matchOrderDeal";
        m_call = [](Engine& engine) { engine.matchOrderDeal(); };
        break;
    case 5:
        m_text = "checkCalcOrder";
        m_call = [](Engine& engine) { engine.checkCalcOrder(); };
        break;
    case 6:
        m_text = "slotShangHaiTimeout";
        m_call = [](Engine& engine) { engine.slotShangHaiTimeout(); };
        break;
    case 7:
        m_text = "view takes the repaint flag";
        m_call = [](Engine& engine) { engine.m_bNeedRepaint.exchange(false); };
        break;
    case 8: {
        const bool rows = oneIn(2);
        m_text = rows ? "clear(true)" : "clear(false)";
        m_call = [rows](Engine& engine) { engine.clear(rows); };
        break;
    }
    default:
        m_text = "calcOrder";
        m_call = [](Engine& engine) { engine.calcOrder(); };
        break;
    }
}

void EngineSteps::ticks()
{
    const int count = oneIn(8) ? 22 : 1 + byte() % 6;
    m_text = std::to_string(count) + " refresh ticks";
    m_call = [count](Engine& engine) {
        for (int i = 0; i < count; ++i)
            engine.slotTimeout();
    };
}

bool EngineSteps::next()
{
    if (m_position >= m_size)
        return false;
    if (m_code.empty()) {
        // Most inputs begin with a stock.
        m_market = "SH";
        m_code = "600519";
        m_text = "instrument SH600519";
        m_call = [](Engine& engine) { engine.setStock(QStringLiteral("SH600519")); };
    } else {
        const std::uint8_t choice = byte() % 32;
        if (choice < 7)
            smallOrders();
        else if (choice < 14)
            deals();
        else if (choice < 17)
            largeOrders();
        else if (choice < 19)
            padding();
        else if (choice < 21)
            levels();
        else if (choice < 24)
            snapshots();
        else if (choice < 25)
            instrument();
        else if (choice < 29)
            ticks();
        else
            pass();
    }
    if (m_trace)
        std::fprintf(stderr, "%s\n", m_text.c_str());
    return true;
}

} // namespace fuzzing
