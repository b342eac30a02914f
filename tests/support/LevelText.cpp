#include "support/LevelText.h"

#include <boost/make_shared.hpp>

#include <cmath>
#include <cstdio>
#include <iterator>
#include <map>
#include <sstream>
#include <stdexcept>

namespace testing_support {

namespace {

const std::map<std::string, Kel::EOrderQueueType>& typeNames()
{
    static const std::map<std::string, Kel::EOrderQueueType> names = {
        {"cancelled", Kel::OQT_CANCELED}, {"normal", Kel::OQT_NORMAL},
        {"unknown", Kel::OQT_UNKNOWN},    {"big", Kel::OQT_BIG},
        {"super", Kel::OQT_SUPER},        {"dealt", Kel::OQT_DEALT},
        {"part", Kel::OQT_PART_DEALT},
    };
    return names;
}

[[noreturn]] void refuse(const std::string& what)
{
    throw std::invalid_argument("text of a test: " + what);
}

std::vector<std::string> split(const std::string& text, const std::string& separators)
{
    std::vector<std::string> parts(1);
    for (const char c : text) {
        if (separators.find(c) != std::string::npos)
            parts.emplace_back();
        else
            parts.back() += c;
    }
    return parts;
}

std::vector<std::string> words(const std::string& text)
{
    std::istringstream stream(text);
    return {std::istream_iterator<std::string>(stream), std::istream_iterator<std::string>()};
}

double toDouble(const std::string& word)
{
    std::size_t end = 0;
    const double value = std::stod(word, &end);
    if (end != word.size())
        refuse(word);
    return value;
}

std::int64_t toInteger(const std::string& word)
{
    std::size_t end = 0;
    const std::int64_t value = std::stoll(word, &end);
    if (end != word.size())
        refuse(word);
    return value;
}

Kel::EOrderQueueType sideOf(const std::string& word)
{
    if (word == "buy")
        return Kel::OQT_BUY;
    if (word == "sell")
        return Kel::OQT_SELL;
    return static_cast<Kel::EOrderQueueType>(toInteger(word));
}

Kel::COrderVol parseOrder(const std::vector<std::string>& parts)
{
    if (parts.size() < 3 || parts.size() > 4 || typeNames().count(parts[2]) == 0)
        refuse("an order is: number lots state [dealt lots]");
    Kel::COrderVol order;
    order.m_entrustNo = toInteger(parts[0]);
    order.m_vol = toDouble(parts[1]);
    order.m_type = typeNames().at(parts[2]);
    if (parts.size() == 4)
        order.m_partDealVol = toDouble(parts[3]);
    return order;
}

} // namespace

namespace {

void parseInto(const std::string& text, Kel::OrderQueueData& level)
{
    const std::vector<std::string> lines = split(text, "\n;");
    const std::vector<std::string> head = words(lines.front());
    if (head.size() < 2)
        refuse("a level begins with its side and price");
    for (std::size_t i = 1; i < lines.size(); ++i) {
        const std::vector<std::string> parts = words(lines[i]);
        if (parts.empty())
            continue;
        const Kel::COrderVol order = parseOrder(parts);
        level.m_orders.append(order);
        level.m_sumVol += order.m_vol;
        if (order.m_entrustNo != 0)
            level.m_orderIds.insert(order.m_entrustNo);
    }
    level.m_count = level.m_orders.size();
    level.m_type = sideOf(head[0]);
    level.m_price = toDouble(head[1]);
    bool averageGiven = false;
    for (std::size_t i = 2; i < head.size(); ++i) {
        if (head[i] == "hasPart") {
            level.m_hasPartDeal = true;
            continue;
        }
        const std::size_t equals = head[i].find('=');
        if (equals == std::string::npos)
            refuse(head[i]);
        const std::string name = head[i].substr(0, equals);
        const double value = toDouble(head[i].substr(equals + 1));
        if (name == "level")
            level.m_level = static_cast<int>(value);
        else if (name == "levelVol")
            level.m_levelVol = value;
        else if (name == "sum")
            level.m_sumVol = value;
        else if (name == "count")
            level.m_count = static_cast<int>(value);
        else if (name == "avg")
            level.m_avgVol = value;
        else if (name == "unknown")
            level.m_unknownVol = value;
        else if (name == "start")
            level.m_startIndex = static_cast<int>(value);
        else if (name == "time")
            level.m_time = static_cast<std::int64_t>(value);
        else
            refuse(name);
        averageGiven = averageGiven || name == "avg";
    }
    if (!averageGiven && level.m_count != 0)
        level.m_avgVol = level.m_sumVol / level.m_count;
    level.wake();
}

} // namespace

Kel::OrderQueueData parseLevel(const std::string& text)
{
    Kel::OrderQueueData level;
    parseInto(text, level);
    return level;
}

Kel::OrderQueueDataPtr parseLevelPtr(const std::string& text)
{
    const Kel::OrderQueueDataPtr level = boost::make_shared<Kel::OrderQueueData>();
    parseInto(text, *level);
    return level;
}

std::string numberText(double value)
{
    if (std::isnan(value))
        return "nan";
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%.12g", value == 0 ? 0.0 : value);
    return buffer;
}

std::string typeText(Kel::EOrderQueueType type)
{
    for (const auto& name : typeNames()) {
        if (name.second == type)
            return name.first;
    }
    return "type" + std::to_string(static_cast<int>(type));
}

std::string headText(const Kel::OrderQueueData& level)
{
    std::string text = level.m_type == Kel::OQT_BUY    ? "buy"
                       : level.m_type == Kel::OQT_SELL ? "sell"
                                                       : std::to_string(static_cast<int>(level.m_type));
    text += " " + numberText(level.m_price);
    text += " level=" + std::to_string(level.m_level);
    text += " levelVol=" + numberText(level.m_levelVol);
    text += " sum=" + numberText(level.m_sumVol);
    text += " count=" + std::to_string(level.m_count);
    text += " avg=" + numberText(level.m_avgVol);
    text += " unknown=" + numberText(level.m_unknownVol);
    text += " start=" + std::to_string(level.m_startIndex);
    if (level.m_time != 0)
        text += " time=" + std::to_string(level.m_time);
    if (level.m_hasPartDeal)
        text += " hasPart";
    return text;
}

namespace {

std::string orderText(const Kel::COrderVol& order)
{
    std::string text =
        std::to_string(order.m_entrustNo) + " " + numberText(order.m_vol) + " " + typeText(order.m_type);
    if (order.m_partDealVol != 0)
        text += " " + numberText(order.m_partDealVol);
    return text;
}

} // namespace

std::string levelText(const Kel::OrderQueueData& level)
{
    std::string text = headText(level) + "\n";
    for (const Kel::COrderVol& order : level.m_orders)
        text += orderText(order) + "\n";
    return text;
}

std::string ordersText(const Kel::OrderQueueData& level)
{
    std::string text;
    for (const Kel::COrderVol& order : level.m_orders)
        text += (text.empty() ? "" : "; ") + orderText(order);
    return text;
}

OrderDataPtr order(std::int64_t number, int side, double price, std::int64_t shares, int kind)
{
    const OrderDataPtr record = boost::make_shared<quoter::OrderData>();
    record->m_time = 1000;
    record->entrustNo = number;
    record->side = side;
    record->price = price;
    record->volume = shares;
    record->kind = kind;
    return record;
}

TransactionDataPtr deal(int buyNo, int sellNo, double price, std::int64_t shares, int dealNo)
{
    const TransactionDataPtr record = boost::make_shared<quoter::TransactionData>();
    record->m_time = 1000;
    record->buyNo = buyNo;
    record->sellNo = sellNo;
    record->price = price;
    record->volume = shares;
    record->dealNo = dealNo;
    return record;
}

TransactionDataPtr cancelBuy(int number, std::int64_t shares)
{
    const TransactionDataPtr record = deal(number, 0, 0, shares);
    record->kind = quoter::eTransactionCancel;
    return record;
}

TransactionDataPtr cancelSell(int number, std::int64_t shares)
{
    const TransactionDataPtr record = deal(number, number, 0, shares);
    record->kind = quoter::eTransactionCancel;
    return record;
}

QuoterDepthDataPtr snapshot(const std::string& text)
{
    const QuoterDepthDataPtr record = boost::make_shared<quoter::QuoterDepthData>();
    record->m_time = 1000;
    for (const std::string& part : split(text, ";")) {
        const std::vector<std::string> parts = words(part);
        if (parts.empty())
            continue;
        if (parts[0] == "last" && parts.size() == 2) {
            record->lastPrice = toDouble(parts[1]);
            continue;
        }
        if ((parts[0] != "ask" && parts[0] != "bid") || parts.size() > quoter::kDepthLevels + 1)
            refuse(part);
        double* const prices = parts[0] == "ask" ? record->askPrice : record->bidPrice;
        std::int64_t* const volumes = parts[0] == "ask" ? record->askVolume : record->bidVolume;
        for (std::size_t i = 1; i < parts.size(); ++i) {
            const std::vector<std::string> pair = split(parts[i], "x");
            if (pair.size() != 2)
                refuse(parts[i]);
            prices[i - 1] = toDouble(pair[0]);
            volumes[i - 1] = toInteger(pair[1]);
        }
    }
    return record;
}

LevelOrderDataPtr levelRecord(const std::string& text)
{
    const LevelOrderDataPtr record = boost::make_shared<quoter::LevelOrderData>();
    record->m_time = 1000;
    for (const std::string& part : split(text, ";")) {
        const std::vector<std::string> parts = words(part);
        if (parts.empty())
            continue;
        if ((parts[0] != "ask" && parts[0] != "bid") || parts.size() < 2 || parts[1].back() != ':')
            refuse(part);
        const bool ask = parts[0] == "ask";
        std::vector<std::int32_t>& volumes = ask ? record->askVolumes : record->bidVolumes;
        std::int32_t& count = ask ? record->askCount : record->bidCount;
        (ask ? record->askPrice : record->bidPrice) = toDouble(parts[1].substr(0, parts[1].size() - 1));
        std::size_t i = 2;
        for (; i < parts.size() && parts[i] != "of"; ++i)
            volumes.push_back(static_cast<std::int32_t>(toInteger(parts[i])));
        count = static_cast<std::int32_t>(volumes.size());
        if (i + 1 < parts.size())
            count = static_cast<std::int32_t>(toInteger(parts[i + 1]));
    }
    return record;
}

Kel::MetaCacheDataWrapperPtr wrap(quoter::QuoterBatch records, const std::string& market,
                                  const std::string& instrument)
{
    const Kel::MetaCacheDataWrapperPtr wrapper = boost::make_shared<Kel::MetaCacheDataWrapper>();
    wrapper->data = std::move(records);
    wrapper->market = market;
    wrapper->instrument = instrument;
    return wrapper;
}

} // namespace testing_support
