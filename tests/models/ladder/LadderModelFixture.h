#pragma once

#include "LadderFeed.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace testing_support {

/// A rebuilt ladder of SH600519 and what it answered last.
class LadderModel : public ::testing::Test
{
protected:
    LadderModel()
    {
        addInstrument("SH", "600519");
        model.setStock("SH600519");
    }

    /// A book of two levels a side, reported.
    void start()
    {
        model.entrustCallback(0, 1,
                              orders({"B 1 9.99 300", "B 2 9.98 200", "S 3 10.01 500", "S 4 10.02 400"}));
        answer.ask(model);
    }

    /// `count` levels a side around 50.00: buys of 100 shares from 49.99 down, sells from 50.01 up.
    void startDeep(int count, int firstNumber = 1)
    {
        std::vector<std::string> lines;
        for (int i = 0; i < count; ++i) {
            lines.push_back("B " + std::to_string(firstNumber + 2 * i) + " " +
                            std::to_string(49.99 - 0.01 * i) + " 100");
            lines.push_back("S " + std::to_string(firstNumber + 2 * i + 1) + " " +
                            std::to_string(50.01 + 0.01 * i) + " 100");
        }
        model.entrustCallback(0, 1, orders(lines));
    }

    Kel::CModelDepthThousand model{0, -1};
    Answer answer;
};

} // namespace testing_support
