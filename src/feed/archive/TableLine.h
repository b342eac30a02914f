#pragma once

#include "feed/csv/values.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace feed {

/// Appends a line of a table: values with commas between them, and a line end when the object ends.
class TableLine
{
public:
    explicit TableLine(std::string& text) : m_text(text) {}
    ~TableLine() { m_text += '\n'; }
    TableLine(const TableLine&) = delete;
    TableLine& operator=(const TableLine&) = delete;

    TableLine& integer(std::int64_t value)
    {
        comma();
        appendInteger(m_text, value);
        return *this;
    }
    TableLine& number(double value)
    {
        comma();
        appendNumber(m_text, value);
        return *this;
    }
    TableLine& word(std::string_view value)
    {
        comma();
        m_text += value;
        return *this;
    }
    /// A text that may hold commas and quotes. Line ends and other control characters become blanks.
    TableLine& quoted(std::string_view value)
    {
        comma();
        m_text += '"';
        for (const char c : value) {
            if (c == '"')
                m_text += '"';
            m_text += static_cast<unsigned char>(c) < 0x20 ? ' ' : c;
        }
        m_text += '"';
        return *this;
    }
    TableLine& list(const std::vector<std::int64_t>& values)
    {
        comma();
        for (std::size_t i = 0; i < values.size(); ++i) {
            if (i > 0)
                m_text += ' ';
            appendInteger(m_text, values[i]);
        }
        return *this;
    }

private:
    void comma()
    {
        if (!m_first)
            m_text += ',';
        m_first = false;
    }

    std::string& m_text;
    bool m_first = true;
};

} // namespace feed
