#include "model/colour.h"

#include "model/changes.h"
#include "model/show.h"
#include "model/text.h"

#include <algorithm>
#include <string>

namespace quorvane {

namespace {

std::uint8_t Lifted(std::uint8_t primary, std::uint8_t white) {
    return static_cast<std::uint8_t>(std::min(primary + white, 255));
}

} // namespace

ScreenColour Colormix(const PerChannel<std::uint8_t>& colour) {
    return {Lifted(colour[1], colour[4]), Lifted(colour[2], colour[4]), Lifted(colour[3], colour[4])};
}

std::uint32_t ScreenColourNumber(ScreenColour colour) {
    return colour.Red + 256u * colour.Green + 65536u * colour.Blue;
}

ScreenColour SplitScreenColour(std::uint32_t number) {
    return {static_cast<std::uint8_t>(number & 0xFF), static_cast<std::uint8_t>((number & 0xFF00) / 0x100),
            static_cast<std::uint8_t>((number & 0xFF0000) / 0x10000)};
}

void ShowWallColour(int index) { Screen.PaintElement(index, Colormix(Show.ElementValue[index + 1])); }

void FetchColourFromSelection() {
    for (int element = 1; element <= Show.ElementCount; ++element)
        if (Show.ElementSelected[element - 1] == 1) {
            Show.CurrentColour = Show.ElementValue[element];
            return;
        }
}

void ApplyColourToSelection() {
    MarkSceneChanged(); // also when nothing is selected, on purpose
    for (int element = 1; element <= Show.ElementCount; ++element)
        if (Show.ElementSelected[element - 1] == 1) {
            Show.ElementValue[element] = Show.CurrentColour;
            ShowWallColour(element - 1);
        }
}

void StoreUserColour(int number) {
    Show.UserColour[number] = Show.CurrentColour;
    Show.SelectedUserColour = static_cast<std::uint8_t>(number);
    Show.StatusFlags.Set(Status::UserColourChanged);
    Show.StatusFlags.Set(Status::UserColourStored);
    MarkColourTableChanged();
}

void RenameUserColour(int number, std::string_view name) {
    std::string& stored = Show.UserColourName[number];
    if (name.empty()) return;
    std::string cleaned(name);
    for (char& c : cleaned)
        if (c == ',' || c == '\n' || c == '\r') c = ' ';
    cleaned = Padded20(cleaned);
    if (cleaned == stored) return;
    stored = cleaned;
    MarkColourTableChanged();
}

std::uint8_t SliderLevel(std::uint8_t level, bool minimumRule) {
    return minimumRule && level == 0 ? std::uint8_t{1} : level;
}

} // namespace quorvane
