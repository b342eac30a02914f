#pragma once

#include "frame/CDepthModuleGroupBaseWidget.h"
#include "platform/toolkit/CBaseWidget.h"
#include "platform/toolkit/CPushButton.h"

#include <gtest/gtest.h>

#include <QString>

#include <memory>
#include <ostream>
#include <vector>

namespace frame_tests {

struct Event
{
    int id = 0;
    int first = 0;
    int second = 0;
    QString text;
    void* pointer = nullptr;

    bool operator==(const Event& other) const
    {
        return id == other.id && first == other.first && second == other.second && text == other.text &&
               pointer == other.pointer;
    }
};

inline std::ostream& operator<<(std::ostream& out, const Event& event)
{
    return out << '{' << event.id << ' ' << event.first << ' ' << event.second << " \""
               << event.text.toStdString() << "\" " << (event.pointer ? "pointer" : "null") << '}';
}

/// A parent that keeps the events which reach it.
class Listener : public Zeb::CBaseWidget
{
public:
    explicit Listener(QWidget* parent = nullptr) : Zeb::CBaseWidget(QStringLiteral("Listener"), parent) {}

    bool handleEvent(int id, int first, int second, QString text, void* pointer) override
    {
        events.push_back({id, first, second, text, pointer});
        return answer;
    }

    std::vector<Event> events;
    bool answer = true;
};

/// Opens what the frame keeps to itself.
class FrameProbe : public Kel::CDepthModuleGroupBaseWidget
{
public:
    using CDepthModuleGroupBaseWidget::CDepthModuleGroupBaseWidget;
    using CDepthModuleGroupBaseWidget::drawFrame;
};

class Frame : public ::testing::Test
{
protected:
    Frame() : frame(new FrameProbe(&parent))
    {
        parent.resize(400, 300);
        frame->resize(400, 300);
        parent.show();
    }

    /// All buttons with this id.
    Zeb::CPushButton* button(int id) const
    {
        for (Zeb::CPushButton* one : frame->findChildren<Zeb::CPushButton*>()) {
            if (one->id() == id)
                return one;
        }
        return nullptr;
    }

    /// Ids of the buttons that are shown, in the order of their making.
    std::vector<int> shown() const
    {
        std::vector<int> ids;
        for (Zeb::CPushButton* one : frame->findChildren<Zeb::CPushButton*>()) {
            if (!one->isHidden())
                ids.push_back(one->id());
        }
        return ids;
    }

    Listener parent;
    FrameProbe* frame;
};

using Ids = std::vector<int>;
using Events = std::vector<Event>;

} // namespace frame_tests
