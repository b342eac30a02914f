#pragma once

#include "platform/toolkit/CEventWidgetT.h"

#include <QWidget>

#include <string>
#include <vector>

namespace test {

/// Takes every event and keeps it as "id first second".
class EventLog : public Zeb::CEventWidgetT<QWidget>
{
public:
    bool handleEvent(int id, int first, int second, QString, void*) override
    {
        events.push_back(std::to_string(id) + ' ' + std::to_string(first) + ' ' + std::to_string(second));
        return true;
    }

    std::vector<std::string> events;
};

} // namespace test
