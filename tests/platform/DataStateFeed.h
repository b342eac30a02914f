#pragma once

#include "platform/services/CDataStateWatch.h"
#include "platform/services/CFormulaManager.h"
#include "platform/services/CStockManager.h"
#include "platform/utils/CSingletonT.h"
#include "platform/utils/exchange_time.h"
#include "records/LevelOrderData.h"
#include "records/OrderData.h"
#include "records/QuoterDepthData.h"
#include "records/TransactionData.h"

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

#include <string>
#include <vector>

/// A watch over SH600519 on a trading day, fed by hand.
class DataStateFeed : public ::testing::Test
{
protected:
    static constexpr int kDay = 20230201;
    static constexpr int kHistory = 3;
    static constexpr int kLive = 1;
    static constexpr int kSnapshot = -1;

    DataStateFeed()
    {
        auto& formulas = utils::CSingletonT<Kel::CFormulaManager>::instance();
        formulas.setTradingDay(kDay);
        const auto detail = boost::make_shared<nelservice::CInstrumentDetail>();
        detail->market = "SH";
        detail->code = "600519";
        utils::CSingletonT<Kel::CStockManager>::instance().addInstrument(detail);
        QObject::connect(&m_watch, &Kel::CDataStateWatch::sigDataStateChanged, &m_watch,
                         [this](int state) { m_told.push_back(state); });
        QObject::connect(&m_watch, &Kel::CDataStateWatch::sigDataGapsChanged, &m_watch,
                         [this] { ++m_gapsTold; });
    }

    ~DataStateFeed() override
    {
        utils::CSingletonT<Kel::CStockManager>::instance().clear();
        utils::CSingletonT<Kel::CFormulaManager>::instance().setTradingDay(0);
    }

    static std::int64_t at(int hour, int minute, int second = 0, int ms = 0)
    {
        return utils::exchangeTime(kDay, hour, minute, second, ms);
    }

    template <class Record>
    static quoter::QuoterBatch records(std::int64_t time, std::size_t count = 1)
    {
        quoter::QuoterBatch batch;
        for (std::size_t i = 0; i < count; ++i) {
            batch.push_back(boost::make_shared<Record>());
            batch.back()->m_time = time;
        }
        return batch;
    }

    static Kel::MetaCacheDataWrapperPtr wrapped(quoter::QuoterBatch batch)
    {
        const auto wrapper = boost::make_shared<Kel::MetaCacheDataWrapper>();
        wrapper->data = std::move(batch);
        return wrapper;
    }

    void orders(int number, int status, std::int64_t time = 0, std::size_t count = 1)
    {
        m_watch.onEntrustCallback(m_key, number, status, wrapped(records<quoter::OrderData>(time, count)));
    }
    void deals(int number, int status, std::int64_t time = 0, std::size_t count = 1)
    {
        m_watch.onTransactionCallback(m_key, number, status,
                                      wrapped(records<quoter::TransactionData>(time, count)));
    }
    void snapshot(int number, std::int64_t time = 0)
    {
        m_watch.onQuoterCallback(m_key, number, kSnapshot, records<quoter::QuoterDepthData>(time));
    }
    void queue(int number, int status, std::int64_t time = 0)
    {
        m_watch.onQuoterCallback(m_key, number, status, records<quoter::LevelOrderData>(time));
    }

    /// The usual start of a day: one batch of history each, the end of the load, a snapshot.
    void load()
    {
        m_watch.setStock(m_key);
        deals(0, 0, at(10, 0));
        orders(0, 0, at(10, 0));
        deals(1, kLive, 0, 0);
        snapshot(0, at(10, 0));
        m_watch.setClock(at(10, 0));
    }

    Kel::EDataState state()
    {
        m_watch.check();
        return m_watch.state();
    }

    const QString m_key = QStringLiteral("SH600519");
    Kel::CDataStateWatch m_watch;
    std::vector<int> m_told; ///< states, by the signal
    int m_gapsTold = 0;
};
