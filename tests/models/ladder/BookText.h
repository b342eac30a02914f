#pragma once

#include "platform/models/OrderBook.h"
#include "records/OrderData.h"
#include "records/TransactionData.h"

#include <boost/make_shared.hpp>

#include <cstdint>
#include <sstream>
#include <stdexcept>
#include <string>

/// Orders and deals as lines that a trader reads, and a book printed the same way.
namespace testing_support {

/// "B 7 10.00 300" or "S 7 10.00 300 @5000": side, number, price, shares, time in ms.
inline quoter::OrderData orderFrom(const std::string& line)
{
    std::istringstream in(line);
    std::string side;
    quoter::OrderData order;
    std::string time;
    in >> side >> order.entrustNo >> order.price >> order.volume >> time;
    if (in.fail() && order.volume == 0)
        throw std::invalid_argument(line);
    order.side = side == "B" ? 1 : 2;
    order.kind = quoter::eOrderLimit;
    if (!time.empty())
        order.m_time = std::stoll(time.substr(1));
    return order;
}

/// "buyNo x sellNo price shares #dealNo @time": "1x2 10.00 100 #7 @5000"; the last two may be left out.
inline quoter::TransactionData dealFrom(const std::string& line)
{
    std::istringstream in(line);
    quoter::TransactionData deal;
    char x = 0;
    in >> deal.buyNo >> x >> deal.sellNo >> deal.price >> deal.volume;
    if (in.fail() || x != 'x')
        throw std::invalid_argument(line);
    std::string word;
    while (in >> word) {
        if (word[0] == '#')
            deal.dealNo = std::stoi(word.substr(1));
        else
            deal.m_time = std::stoll(word.substr(1));
    }
    return deal;
}

/// The cancellation of a buy order (`sell` false) or of a sell order.
inline quoter::TransactionData cancelOf(int number, bool sell = false, std::int64_t volume = 100)
{
    quoter::TransactionData deal;
    deal.kind = quoter::eTransactionCancel;
    deal.buyNo = number;
    deal.sellNo = sell ? number : 0;
    deal.volume = volume;
    return deal;
}

/// One line a level, sells from the highest price down, then buys: "S 10.02 500: 5x300 6x200".
inline std::string printed(const Kel::OrderBook& book)
{
    std::ostringstream out;
    const auto print = [&](Kel::EOrderQueueType side, const Kel::BookLevel& level) {
        out << (side == Kel::OQT_BUY ? "B " : "S ") << level.price << ' ' << level.volume << ':';
        for (const Kel::BookOrder& order : book.orders(side, level.key))
            out << ' ' << order.number << 'x' << order.rest();
        out << '\n';
    };
    const auto sells = book.best(Kel::OQT_SELL, 1000);
    for (auto it = sells.rbegin(); it != sells.rend(); ++it)
        print(Kel::OQT_SELL, *it);
    for (const Kel::BookLevel& level : book.best(Kel::OQT_BUY, 1000))
        print(Kel::OQT_BUY, level);
    const std::string fault = book.firstFault();
    return out.str() + (fault.empty() ? "" : "fault: " + fault + "\n");
}

} // namespace testing_support
