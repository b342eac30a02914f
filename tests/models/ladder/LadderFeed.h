#pragma once

#include "BookText.h"
#include "platform/models/CModelDepthThousand.h"
#include "platform/models/CModelQuoterDepthThousand.h"
#include "platform/models/ladder_flags.h"
#include "platform/services/CStockManager.h"
#include "platform/utils/CSingletonT.h"
#include "records/MetaCacheDataWrapper.h"
#include "records/QuoterDepthData.h"
#include "records/ThousandData.h"

#include <boost/make_shared.hpp>

#include <limits>
#include <string>
#include <vector>

/// What the ladder models are fed with, and what they answer, as values.
namespace testing_support {

inline void addInstrument(const std::string& market, const std::string& code, double tick = 0.01,
                          double close = 10)
{
    const auto detail = boost::make_shared<nelservice::CInstrumentDetail>();
    detail->market = market;
    detail->code = code;
    detail->priceTick = tick;
    detail->previousClose = close;
    utils::CSingletonT<Kel::CStockManager>::instance().addInstrument(detail);
}

inline Kel::MetaCacheDataWrapperPtr batchOf(quoter::QuoterBatch records, const std::string& market = "SH",
                                            const std::string& code = "600519")
{
    const auto batch = boost::make_shared<Kel::MetaCacheDataWrapper>();
    batch->data = std::move(records);
    batch->market = market;
    batch->instrument = code;
    return batch;
}

inline Kel::MetaCacheDataWrapperPtr orders(const std::vector<std::string>& lines)
{
    quoter::QuoterBatch records;
    for (const std::string& line : lines)
        records.push_back(boost::make_shared<quoter::OrderData>(orderFrom(line)));
    return batchOf(std::move(records));
}

inline Kel::MetaCacheDataWrapperPtr deals(const std::vector<std::string>& lines)
{
    quoter::QuoterBatch records;
    for (const std::string& line : lines)
        records.push_back(boost::make_shared<quoter::TransactionData>(dealFrom(line)));
    return batchOf(std::move(records));
}

inline Kel::MetaCacheDataWrapperPtr cancels(const std::vector<int>& numbers)
{
    quoter::QuoterBatch records;
    for (const int number : numbers)
        records.push_back(boost::make_shared<quoter::TransactionData>(cancelOf(number)));
    return batchOf(std::move(records));
}

/// The outputs of `checkUpdate`, kept from call to call as a panel does.
struct Answer
{
    using Rows = std::vector<boost::shared_ptr<Kel::EntrustData>>;

    bool news = false;
    int flags = 0;
    Rows buys;
    Rows sells;
    double latest = -7;
    int lastVolume = -7;
    double minPrice = -7;
    double maxPrice = -7;
    double maxAmount = -7;

    bool ask(Kel::CModelDepthThousand& model, bool shortForm = false)
    {
        flags = 0;
        news = model.checkUpdate(flags, buys, sells, latest, lastVolume, minPrice, maxPrice, maxAmount,
                                 shortForm);
        return news;
    }

    bool ask(Kel::CModelQuoterDepthThousand& model)
    {
        flags = 0;
        news = model.checkUpdate(flags, buys, sells, latest, lastVolume, minPrice, maxPrice, maxAmount);
        return news;
    }

    /// "9.98:3+3/1 10:5/2": price, lots, change if any, orders; ascending.
    static std::string text(const Rows& rows)
    {
        std::ostringstream out;
        for (const auto& row : rows) {
            out << (out.tellp() > 0 ? " " : "") << row->price << ':' << row->volume;
            if (row->change != 0)
                out << std::showpos << row->change << std::noshowpos;
            out << '/' << row->orderCount;
        }
        return out.str();
    }

    std::string text() const { return "B " + text(buys) + " S " + text(sells); }
};

} // namespace testing_support
