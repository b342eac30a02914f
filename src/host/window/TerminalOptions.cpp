#include "host/window/TerminalOptions.h"

namespace host {

namespace {

struct ModeWord
{
    const char* word;
    void (*take)(QueueModes& modes);
};

const ModeWord kModeWords[] = {
    {"five", [](QueueModes& modes) { modes.levels = Kel::eQueueFiveLevels; }},
    {"ten", [](QueueModes& modes) { modes.levels = Kel::eQueueTenLevels; }},
    {"first", [](QueueModes& modes) { modes.style = Kel::eQueueDetailFirst; }},
    {"horizontal", [](QueueModes& modes) { modes.style = Kel::eQueueDetailHorizontal; }},
    {"vertical", [](QueueModes& modes) { modes.style = Kel::eQueueDetailVertical; }},
    {"list", [](QueueModes& modes) { modes.style = Kel::eQueueDetailList; }},
    {"full", [](QueueModes& modes) { modes.full = true; }},
    {"cut", [](QueueModes& modes) { modes.full = false; }},
};

} // namespace

bool takeModeWord(const std::string& word, QueueModes& modes)
{
    for (const ModeWord& known : kModeWords) {
        if (word == known.word) {
            known.take(modes);
            return true;
        }
    }
    return false;
}

const std::vector<std::string>& modeWords()
{
    static const std::vector<std::string> words = [] {
        std::vector<std::string> list;
        for (const ModeWord& known : kModeWords)
            list.emplace_back(known.word);
        return list;
    }();
    return words;
}

} // namespace host
