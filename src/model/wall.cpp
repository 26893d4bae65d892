#include "model/wall.h"

#include "model/colour.h"
#include "model/screen.h"
#include "model/sequence.h"
#include "model/show.h"
#include "model/text.h"
#include "platform/host.h"

#include <stdexcept>

namespace quorvane {

namespace {

// The offsets 100 and 104 differ on purpose.
void SizeWallWindow() {
    const double size = Show.ElementSize;
    const double width = Show.WallAreaWidth / (size / (Show.WallColumns + 100)) * Show.WallColumns;
    const double height = Show.WallAreaHeight / (size / (Show.WallRows + 104)) * Show.WallRows;
    Screen.SizeWall(width, height, Show.WallAreaWidth / (size * 0.01), Show.WallAreaHeight / (size * 0.01));
}

void AddElements() {
    Show.ElementCount = 0;
    std::int16_t channel = 1;
    for (int row = 1; row <= Show.WallRows; ++row)
        for (int column = 1; column <= Show.WallColumns; ++column) {
            const int element = ++Show.ElementCount;
            Screen.AddElement(element - 1, column, row);
            Show.ElementPos[element] = {static_cast<std::uint8_t>(column), static_cast<std::uint8_t>(row)};
            for (int c = 1; c <= 4; ++c) Show.Patch[element][c] = channel++; // over one by hand, on purpose
        }
}

// Left and top are swapped against the settings file on purpose.
void PlaceWallFromSettings() {
    const auto& place = Show.WindowPos[WallWindow];
    Screen.PlaceWall(place[PosTop], place[PosLeft], place[PosWidth], place[PosHeight]);
}

// Word 4 is rounded, halves to even, where the clock later rebuilds the count by multiplying: on purpose.
void AdaptChannelCount() {
    const int channels = Show.ElementCount * 4;
    Show.DmxIni[3] = static_cast<std::int16_t>(channels % 256);
    Show.DmxIni[4] = static_cast<std::int16_t>(RoundHalfEven((channels - 1) / 256.0));
    Show.DmxIniDirty = 1;
    Show.ChannelCount = static_cast<std::int16_t>(channels);
}

// The element count, not the channel total, is compared with the channels in use: on purpose.
void WarnOfTooFewChannels() {
    if (Show.ChannelCount >= Show.ElementCount) return;
    ShowMessage("ACHTUNG! Sie haben " + Decimal(Show.ElementCount) + " die jeweils 4 und insgesamt " +
                Decimal(Show.ElementCount * 4) + " Kanäle belegen.");
}

void RemoveElements() {
    while (Show.ElementCount > 0) {
        Screen.RemoveElement(Show.ElementCount - 1);
        --Show.ElementCount;
    }
    Show.StatusFlags.Clear(Status::WallExists);
    Show.ElementSelected.Fill(0);
    Show.SelectedCount = 0;
}

void BuildWall(bool unsaved) {
    if (Show.WallColumns * Show.WallRows > MaxElements)
        throw std::out_of_range("Eine Wand mit " + Decimal(Show.WallColumns) + " x " +
                                Decimal(Show.WallRows) + " Elementen hat mehr als " + Decimal(MaxElements) +
                                " Elemente.");
    if (Show.StatusFlags.Has(Status::WallExists)) RemoveElements();
    if (unsaved) {
        Show.ChangeFlags.Set(Change::ConfigNew);
        Show.ChangeFlags.Set(Change::ConfigChanged);
        Show.ChangeFlags.Set(Change::SceneNew);
        Show.ChangeFlags.Set(Change::SequenceChanged);
    }
    Show.StatusFlags.Set(Status::WallExists);
    if (Show.ElementSize == 0) Show.ElementSize = 80;
    Screen.WallCaption(Show.WallName);
    SizeWallWindow();
    AddElements();
    if (Show.StatusFlags.Has(Status::SaveToCurrentFile)) PlaceWallFromSettings();
    if (Show.StatusFlags.Has(Status::AutoChannelCount))
        AdaptChannelCount();
    else
        WarnOfTooFewChannels();
    ShowWallColours();
}

} // namespace

void StartShow() {
    for (int step = 1; step <= MaxSteps; ++step) {
        SetHold(step, DefaultHold);
        SetBlend(step, DefaultBlend);
    }
    Show.TestLevels.Fill(0);
    Show.ColourCorrection.Fill({});
    Show.ElementValue.Fill({});
    Show.StatusFlags.Set(Status::AutoChannelCount);
    Show.StatusFlags.Set(Status::ReloadFiles);
    Show.StepCount = 0;
    Show.ChannelCount = 100;
    for (int number = 1; number <= 20; ++number) {
        Show.UserColourName[number] = Padded20("Farbe" + Decimal(number));
        Show.UserColour[number] = {};
    }
    Show.SelectedUserColour = 0;
    Show.SelectedCount = 0;
    for (int row = 0; row <= 7; ++row) Show.MonitorChannel[row] = static_cast<std::int16_t>(row + 1);
    Show.SequencerField[0] = "";
    Show.SequencerField[1] = "50";
    Show.SequencerField[2] = "";
    Show.SequencerField[3] = "100";
}

void NeueWandInit() {
    BuildWall(true);
    Screen.PatchLoaded();
}

void NeueWandLoad() { BuildWall(false); }

void RemoveWall() {
    RemoveElements();
    Screen.PatchLoaded();
}

void ShowWallColours() {
    for (int index = 0; index < Show.ElementCount; ++index) ShowWallColour(index);
}

} // namespace quorvane
