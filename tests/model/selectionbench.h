// What the tests of selecting look at: which fields were painted as selected and which again in their colour.
#pragma once

#include "bench/samplecases.h"

#include "model/selection.h"

#include <string>
#include <vector>

namespace quorvane {

// Beside those that remember.
constexpr int KeyF1 = 112;
constexpr int KeyF3 = 114;
constexpr int KeyF5 = 116;
constexpr int KeyF13 = 124;
constexpr int AltHeld = 4;

class SelectionBench : public Bench {
protected:
    SelectionBench() {
        Screen.PaintSelected = [this](int index) { Painted.push_back(index); };
        Screen.PaintUnselected = [this](int index, ScreenColour colour) {
            Unpainted.push_back(index);
            shownAgain = colour;
        };
        Screen.ActivateElementWindow = [this] { ++Activations; };
    }
    std::vector<std::string> Statuses() const { return Texts("status"); }
    // As element numbers.
    static std::vector<int> Selected() {
        std::vector<int> elements;
        for (int index = 0; index <= 254; ++index)
            if (Show.ElementSelected[index] == 1) elements.push_back(index + 1);
        return elements;
    }
    static void Press(int element, int shift = 0) { lblElement_MouseDown(element - 1, true, shift); }

    using Elements = std::vector<int>;
    using Text = std::vector<std::string>;
    std::vector<int> Painted;   // as selected, by index
    std::vector<int> Unpainted; // by index
    ScreenColour shownAgain;
    int Activations = 0; // of the element dialog
};

} // namespace quorvane
