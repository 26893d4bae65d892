// What is seen: calls that go out to the windows. Nothing here answers, and a slot that no window has
// filled does nothing. Texts are UTF-8, plain, and valid during the call only.
// `Screen = ScreenCalls{};` closes all windows as far as the rest of the program can tell.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>
#include <utility>
#include <vector>

namespace quorvane {

class AfterFrame;

template<class... Arguments> class Slot {
public:
    Slot& operator=(std::function<void(Arguments...)> receiver) {
        call = std::move(receiver);
        return *this;
    }
    void operator()(Arguments... arguments) const {
        if (call) call(arguments...);
    }

private:
    std::function<void(Arguments...)> call;
};

// 0..255 each.
struct ScreenColour {
    std::uint8_t Red = 0;
    std::uint8_t Green = 0;
    std::uint8_t Blue = 0;
    bool operator==(const ScreenColour&) const = default;
};

struct ScreenCalls {
    // Wall window. index is element - 1; lengths are 1/15 of a logical pixel.
    Slot<double /*width*/, double /*height*/, double /*labelWidth*/, double /*labelHeight*/> SizeWall;
    Slot<std::int32_t /*left*/, std::int32_t /*top*/, std::int32_t /*width*/, std::int32_t /*height*/>
        PlaceWall;
    Slot<int /*index*/, int /*column*/, int /*row*/> AddElement;
    Slot<int /*index*/> RemoveElement;
    Slot<int /*index*/, ScreenColour> PaintElement; // background only
    Slot<std::string_view> WallCaption;
    // Results of file commands and of selecting; the main window shows it too, for when the wall is closed.
    Slot<std::string_view> WallStatus;
    Slot<> ShowWall;     // opens the wall window
    Slot<> ActivateWall; // brings it to the front again
    // At the field that was pressed; comes back when the menu is closed and its entry done.
    Slot<> OpenEditMenu;

    // Main window.
    Slot<std::string_view> MainCaption; // what the interface and the clock are doing
    Slot<> RefreshMain;
    Slot<bool /*on*/> EnableDmxEntries; // DMX Start and DMX Stop
    Slot<bool /*shown*/> ShowDmxEntries;
    Slot<bool /*stopped*/> CheckDmxStop;
    Slot<bool /*runs*/> TransferRuns; // to the play unit; nobody changes meanwhile what it sends
    Slot<> PlaceMain;                 // from window 1 of WindowPos, its state included
    Slot<int /*WindowNumber*/> OpenWindow;

    // Sequencer window. field: 0 step, 1 blend time, 2 hold time, 3 turbo factor; the text stands in
    // Show.SequencerField too.
    Slot<int /*field*/, std::string_view> SequencerField;
    Slot<std::string_view> SequencerStatus;
    Slot<std::string_view> SequencerCaption;

    // Colour window.
    Slot<std::string_view> ColourStatus;
    Slot<> ColourTableLoaded; // repaint the twenty fields, show the file's name

    // DMX test window. row 0..7.
    Slot<int /*row*/, int /*value*/> MonitorValue;
    Slot<> TestModeEnded; // mode text, background and button as they are without test mode

    // Selection. index is element - 1.
    Slot<int /*index*/> PaintSelected;                 // highlight background, red text
    Slot<int /*index*/, ScreenColour> PaintUnselected; // colour as background, white text

    // Memory card window.
    Slot<std::string_view> MemCardStatus;
    Slot<std::string_view> MemCardImage; // what is being written, or tried again
    Slot<std::int32_t /*bytes*/, std::int32_t /*of*/> MemCardProgress;

    // Element dialog.
    Slot<> ActivateElementWindow; // the one selected element is another: show its patch
    Slot<> PatchLoaded;           // the patch shown is no longer the one in the show

    // What the windows show when the tick that runs is through (model/afterframe.h).
    std::vector<AfterFrame*> Waiting;
    int TicksRunning = 0; // one within another when a message box of the first lets events run
};

inline ScreenCalls Screen;

} // namespace quorvane
