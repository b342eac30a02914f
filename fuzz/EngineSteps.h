#pragma once

#include "queue_engine/EngineProbe.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

namespace fuzzing {

/// Reads bytes as calls of the engine's entry points and passes. Numbers, prices, volumes and times come from
/// small sets most of the time, so that orders, deals and cancels meet; now and then from the ends of their
/// types. The same bytes always give the same calls.
class EngineSteps
{
public:
    /// `data` must live as long as the object. With `trace` each call is printed to standard error.
    EngineSteps(const std::uint8_t* data, std::size_t size, bool trace)
        : m_data(data), m_size(size), m_trace(trace)
    {
    }

    /// Reads the next call; false at the end of the bytes.
    bool next();

    /// Makes the call that `next` read. May be repeated on several engines.
    void apply(testing_support::EngineProbe& engine) const { m_call(engine); }

    /// The call in words.
    const std::string& text() const { return m_text; }

private:
    using Engine = testing_support::EngineProbe;

    std::uint8_t byte() { return m_position < m_size ? m_data[m_position++] : std::uint8_t(0); }
    bool oneIn(int count) { return byte() % count == 0; }

    std::int64_t number();
    std::int32_t shortNumber();
    double price();
    std::int64_t shares();
    std::int64_t lots();
    std::int64_t time();
    int status();
    int side();

    quoter::QuoterBasePtr order();
    quoter::QuoterBasePtr transaction();
    quoter::QuoterBasePtr levelRecord();
    quoter::QuoterBasePtr snapshot();
    Kel::MetaCacheDataWrapperPtr wrap(quoter::QuoterBatch batch);

    void smallOrders();
    void largeOrders();
    void deals();
    void padding();
    void levels();
    void snapshots();
    void instrument();
    void pass();
    void ticks();

    const std::uint8_t* m_data;
    std::size_t m_size;
    bool m_trace;
    std::size_t m_position = 0;
    std::int64_t m_clock = 1000; ///< milliseconds; most records are a little later than the one before
    std::string m_market;
    std::string m_code;
    std::string m_text;
    std::function<void(Engine&)> m_call;
};

} // namespace fuzzing
