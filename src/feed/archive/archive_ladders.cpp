// The table of ladders: a line per price, so that a line has a bounded length whatever stands in the book.

#include "feed/archive/archive_tables.h"

#include "feed/archive/TableColumns.h"
#include "feed/archive/TableLine.h"
#include "feed/csv/read_rows.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <utility>

namespace feed {

const char* const kLaddersHeader = "time,seq,last_price,last_volume,side,price,volume,orders,lines_left";

namespace {

// An order takes at most 84 characters, and a line of a table 1 MB.
constexpr std::size_t kOrdersOfLine = 4096;

constexpr std::int32_t kNoSide = 0;
constexpr std::int32_t kBuy = 1;
constexpr std::int32_t kSell = 2;

constexpr const char* kIncomplete = "ladder is not complete";
constexpr const char* kLostPart = "part of a ladder that was left out";

std::int64_t linesOf(const LadderLevel& level)
{
    const std::size_t lines = (level.orders.size() + kOrdersOfLine - 1) / kOrdersOfLine;
    return static_cast<std::int64_t>(std::max<std::size_t>(lines, 1));
}

std::int64_t linesOf(const LadderRow& row)
{
    std::int64_t lines = 0;
    for (const std::vector<LadderLevel>* const side : {&row.buys, &row.sells}) {
        for (const LadderLevel& level : *side)
            lines += linesOf(level);
    }
    return std::max<std::int64_t>(lines, 1);
}

/// Writes the lines of one ladder; only the first one has what is said of all of it.
class LadderText
{
public:
    LadderText(std::string& text, const LadderRow& row)
        : m_text(text), m_row(row), m_linesLeft(linesOf(row) - 1)
    {
    }

    void writeAll()
    {
        writeSide(kBuy, m_row.buys);
        writeSide(kSell, m_row.sells);
        if (m_first) {
            TableLine line(m_text);
            writeStart(line);
            line.integer(kNoSide).word({}).word({}).word({}).integer(m_linesLeft);
        }
    }

private:
    void writeSide(std::int32_t side, const std::vector<LadderLevel>& levels)
    {
        for (const LadderLevel& level : levels) {
            std::size_t from = 0;
            do {
                TableLine line(m_text);
                writeStart(line);
                line.integer(side);
                if (from == 0)
                    line.number(level.price).integer(level.volume);
                else
                    line.word({}).word({});
                line.word(ordersText(level.orders, from)).integer(m_linesLeft--);
                from += kOrdersOfLine;
            } while (from < level.orders.size());
        }
    }

    void writeStart(TableLine& line)
    {
        if (m_first)
            line.integer(m_row.time).integer(m_row.seq).number(m_row.lastPrice).integer(m_row.lastVolume);
        else
            line.word({}).word({}).word({}).word({});
        m_first = false;
    }

    const std::string& ordersText(const std::vector<LadderOrder>& orders, std::size_t from)
    {
        m_orders.clear();
        const std::size_t end = std::min(orders.size(), from + kOrdersOfLine);
        for (std::size_t i = from; i < end; ++i) {
            if (i > from)
                m_orders += ' ';
            appendInteger(m_orders, orders[i].number);
            for (const std::int64_t value : {orders[i].time, orders[i].volume, orders[i].dealt}) {
                m_orders += ':';
                appendInteger(m_orders, value);
            }
        }
        return m_orders;
    }

    std::string& m_text;
    const LadderRow& m_row;
    std::int64_t m_linesLeft;
    std::string m_orders;
    bool m_first = true;
};

/// Reads "number:time:volume:dealt".
bool readOrder(std::string_view word, LadderOrder& order)
{
    std::array<std::int64_t, 4> values{};
    for (std::size_t i = 0; i < values.size(); ++i) {
        const bool last = i + 1 == values.size();
        const std::size_t colon = word.find(':');
        if (last != (colon == std::string_view::npos) || !parseInteger(word.substr(0, colon), values[i]))
            return false;
        if (!last)
            word.remove_prefix(colon + 1);
    }
    order = {values[0], values[1], values[2], values[3]};
    return true;
}

/// Adds the orders of a cell to those of a level.
bool readOrders(std::string_view cell, std::vector<LadderOrder>& orders)
{
    while (!cell.empty()) {
        const std::size_t blank = cell.find(' ');
        const std::string_view word = cell.substr(0, blank);
        cell.remove_prefix(blank == std::string_view::npos ? cell.size() : blank + 1);
        if (word.empty())
            continue;
        LadderOrder order;
        if (!readOrder(word, order))
            return false;
        orders.push_back(order);
    }
    return true;
}

/// Puts the lines of ladders together. A ladder of which a line is missing or cannot be read is left out.
class LadderLines
{
public:
    LadderLines(CsvReader& reader, std::vector<LadderRow>& rows, ImportReport& report)
        : m_rows(rows), m_report(report), m_columns(reader)
    {
        m_time = m_columns.required("time");
        m_seq = m_columns.optional("seq");
        m_lastPrice = m_columns.optional("last_price");
        m_lastVolume = m_columns.optional("last_volume");
        m_side = m_columns.required("side");
        m_price = m_columns.required("price");
        m_volume = m_columns.required("volume");
        m_orders = m_columns.required("orders");
        m_linesLeft = m_columns.required("lines_left");
    }

    bool complete(Error& error) const { return m_columns.complete(error); }

    /// Takes the next line over; the reason if that is not possible.
    const char* read(const CsvReader& line)
    {
        const char* fault = nullptr;
        if (!line.field(m_time).empty()) {
            endEarly(kIncomplete);
            fault = begin(line);
        } else if (m_left == 0) {
            return kLostPart;
        } else {
            fault = next(line);
        }
        m_line = line.lineNumber();
        if (fault != nullptr) {
            m_left = 0;
            return fault;
        }
        if (m_left == 0)
            m_rows.push_back(std::move(m_ladder));
        return nullptr;
    }

    /// Gives up a ladder that has not had all of its lines.
    void endEarly(const char* reason)
    {
        if (m_left > 0)
            m_report.reject(m_report.files.back(), m_line, reason);
        m_left = 0;
    }

private:
    const char* begin(const CsvReader& line)
    {
        m_ladder = LadderRow();
        m_openSide = kNoSide;
        if (!parseInteger(line.field(m_time), m_ladder.time))
            return kBadTime;
        if (!optionalInteger(line, m_seq, m_ladder.seq))
            return kBadSequence;
        if (!optionalNumber(line, m_lastPrice, m_ladder.lastPrice))
            return kBadPrice;
        if (!optionalInteger(line, m_lastVolume, m_ladder.lastVolume))
            return kBadVolume;
        std::int64_t left = 0;
        if (!parseInteger(line.field(m_linesLeft), left) || left < 0)
            return kIncomplete;
        if (!m_rows.empty() && m_ladder.time < m_rows.back().time)
            return kBadOutOfOrder;
        m_left = left;
        return readLevel(line);
    }

    const char* next(const CsvReader& line)
    {
        std::int64_t left = 0;
        if (!parseInteger(line.field(m_linesLeft), left) || left != m_left - 1)
            return kIncomplete;
        m_left = left;
        return readLevel(line);
    }

    const char* readLevel(const CsvReader& line)
    {
        std::int32_t side = 0;
        if (!parseInteger32(line.field(m_side), side) || side < kNoSide || side > kSell)
            return "bad side";
        if (side == kNoSide)
            return nullptr;
        std::vector<LadderLevel>& levels = side == kBuy ? m_ladder.buys : m_ladder.sells;
        if (line.field(m_price).empty()) {
            if (side != m_openSide)
                return kBadPrice;
        } else {
            LadderLevel level;
            if (!parseNumber(line.field(m_price), level.price))
                return kBadPrice;
            if (!parseInteger(line.field(m_volume), level.volume))
                return kBadVolume;
            levels.push_back(std::move(level));
            m_openSide = side;
        }
        return readOrders(line.field(m_orders), levels.back().orders) ? nullptr : "bad orders";
    }

    std::vector<LadderRow>& m_rows;
    ImportReport& m_report;
    TableColumns m_columns;
    int m_time = -1;
    int m_seq = -1;
    int m_lastPrice = -1;
    int m_lastVolume = -1;
    int m_side = -1;
    int m_price = -1;
    int m_volume = -1;
    int m_orders = -1;
    int m_linesLeft = -1;
    LadderRow m_ladder;                ///< the one that is being put together
    std::int64_t m_left = 0;           ///< lines that it still needs
    std::int64_t m_line = 0;           ///< of the table, the last one that was taken
    std::int32_t m_openSide = kNoSide; ///< of the level that a line without a price goes on with
};

bool areFinite(const std::vector<LadderLevel>& levels)
{
    return std::all_of(levels.begin(), levels.end(),
                       [](const LadderLevel& level) { return std::isfinite(level.price); });
}

} // namespace

void appendLine(std::string& text, const LadderRow& row)
{
    LadderText(text, row).writeAll();
}

bool isWritable(const LadderRow& row)
{
    return std::isfinite(row.lastPrice) && areFinite(row.buys) && areFinite(row.sells);
}

bool readTable(CsvReader& reader, std::vector<LadderRow>& rows, ImportReport& report,
               const Progress& progress, Error& error)
{
    LadderLines lines(reader, rows, report);
    if (!lines.complete(error))
        return false;
    const bool whole =
        readRows(reader, report, progress, error, [&](const CsvReader& line) { return lines.read(line); });
    lines.endEarly(kCutLastLine);
    return whole;
}

} // namespace feed
