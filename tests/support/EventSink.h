#pragma once

#include "platform/toolkit/CEventHandler.h"

#include <QString>

#include <ostream>
#include <utility>
#include <vector>

namespace testing_support {

/// An event that a panel has sent.
struct SentEvent
{
    int id;
    int first;
    int second;
    QString text;

    bool operator==(const SentEvent& other) const
    {
        return id == other.id && first == other.first && second == other.second && text == other.text;
    }
};

using Events = std::vector<SentEvent>;

inline std::ostream& operator<<(std::ostream& out, const SentEvent& event)
{
    return out << event.id << ' ' << event.first << ' ' << event.second << " \"" << event.text.toStdString()
               << '"';
}

/// Takes every event that reaches it.
class EventSink : public Zeb::CEventHandler
{
public:
    bool handleEvent(int id, int first, int second, QString text, void*) override
    {
        events.push_back({id, first, second, text});
        return true;
    }

    /// The events so far, which are forgotten.
    Events take() { return std::exchange(events, {}); }

    Events events;
};

} // namespace testing_support
