// The show: everything that is. One record, program-wide, of plain fields that every window, file
// command, interface driver and the output clock read and write directly, all on one thread.
// Elements, steps and DMX channels count from 1; a field whose index counts from 0 says so.
// `Show = ShowState{};` is a fresh program before its start-up defaults (StartShow, wall.h).
#pragma once

#include "model/flags.h"
#include "model/table.h"

#include <cstdint>
#include <string>

namespace quorvane {

// Capacities. A wall made by hand has at most 121 elements; a file may bring up to 250.
constexpr int MaxElements = 250;
constexpr int MaxSteps = 255;
constexpr int DmxChannels = 512;

// The values are written to the settings file: never change one.
enum class Status : std::uint32_t {
    WallExists = 0x1,        // the element labels are loaded
    Monitor = 0x2,           // every tick reads eight channels back into the DMX test window
    SaveToCurrentFile = 0x4, // file commands take the stored file of their kind, without a dialog
    ApplyAtOnce = 0x10,      // a mixed colour goes straight into the selected elements
    TestMode = 0x40,         // TestLevels go out instead of the show
    SequencePlaying = 0x100,
    SequenceExists = 0x400,
    PatchError = 0x800, // the element dialog shows a fault or fills its fields itself
    ElementWindowOpen = 0x1000,
    ColourWindowOpen = 0x2000,
    UserColourStored = 0x4000,
    UserColourChanged = 0x8000,
    AutoChannelCount = 0x10000, // the DMX channel count follows the wall
    ReloadFiles = 0x20000,      // the last files come back at start-up
    SequencerWindowOpen = 0x40000,
    TestWindowOpen = 0x80000,
    WallWindowOpen = 0x100000,
    OptionsWindowOpen = 0x200000,
};

// Unsaved work, one pair of bits for each kind of file.
enum class Change : std::uint16_t {
    ConfigNew = 0x01,
    ConfigChanged = 0x02,
    SceneNew = 0x04,
    SceneChanged = 0x08,
    SequenceNew = 0x10,
    SequenceChanged = 0x20,
    ColourTableNew = 0x40,
    ColourTableChanged = 0x80,
};

// Interface types. A number and no enumeration, since the stored setting may hold anything.
constexpr std::int16_t NoInterface = 0;
constexpr std::int16_t IsaCardB = 1;     // 7300A, 7300B-LC, 7300B
constexpr std::int16_t IsaCardC = 2;     // 7300C
constexpr std::int16_t UsbInterface = 3; // USBLINK1, USBLINK2
constexpr std::int16_t PcmciaCard = 4;   // 8300A
constexpr std::int16_t PciCard = 5;      // 7310PCI, 8310PCI

// A CardBase up to this value means that no ISA card is open.
constexpr int LastBaseWithoutCard = 255;

// Columns of SequenceTimes.
constexpr int HoldTime = 0;
constexpr int BlendTime = 1;

// Windows of WindowPos, by their number in the settings file.
enum WindowNumber : int {
    MainWindow = 1,
    ColourWindow,
    SequencerWindow,
    TestWindow,
    ElementWindow,
    OptionsWindow,
    WallWindow,
    NewWallWindow,
    MemoryCardWindow,
    InterfaceSelectWindow,
};

// Columns of WindowPos. All lengths are 1/15 of a logical pixel.
enum WindowValue : int { PosLeft = 1, PosTop, PosWidth, PosHeight, PosState };

// What MemCardSize says when it is no size.
constexpr std::int32_t NoMemCard = 0;
constexpr std::int32_t NoMemCardInterface = 1;
constexpr std::int32_t MemCardFault = 2;

// Values of MemCardAbort.
constexpr std::uint8_t MemCardGivenUp = 1; // by the user
constexpr std::uint8_t MemCardLeft = 2;    // its window or the program is being closed: nothing is asked

struct GridPosition {
    std::uint8_t Column = 0; // 1-based
    std::uint8_t Row = 0;    // 1-based
    bool operator==(const GridPosition&) const = default;
};

// A clock that the 50 ms heartbeat asks at every beat.
struct Clock {
    bool Enabled = false;
};

struct ShowState {
    // Wall
    std::uint8_t WallColumns = 0;
    std::uint8_t WallRows = 0;
    std::uint8_t ElementCount = 0;
    std::string WallName = std::string(20, ' '); // exactly 20 characters, padded with blanks
    Table<GridPosition, 1, MaxElements> ElementPos;
    std::int32_t ElementSize = 0;    // per cent; 0 becomes 80 when a wall is built
    std::int32_t WallAreaWidth = 0;  // 1/15 pixel at 100 per cent
    std::int32_t WallAreaHeight = 0; // 1/15 pixel at 100 per cent

    // Element channels
    Table<PerChannel<std::int16_t>, 1, MaxElements> Patch;            // DMX channel 1..512; 0 not patched
    Table<PerChannel<std::uint8_t>, 1, MaxElements> ColourCorrection; // taken off at the DMX output only
    Table<PerChannel<std::uint8_t>, 1, 255> ElementValue;             // level now; beyond the wall kept
    Table<PerChannel<float>, 1, MaxElements> BlendValue;              // running level of a blend
    Table<PerChannel<float>, 1, MaxElements> BlendIncrement;          // per tick

    // Colours
    PerChannel<std::uint8_t> CurrentColour; // being mixed in the colour window
    Table<PerChannel<std::uint8_t>, 1, 20> UserColour;
    Table<std::string, 1, 20> UserColourName; // exactly 20 characters each
    std::uint8_t SelectedUserColour = 0;      // 1..20, 0 none

    // Selection. Both are indexed by element - 1.
    Table<std::uint8_t, 0, 254> ElementSelected; // 1 selected
    std::uint8_t SelectedCount = 0;
    Table<Table<std::uint8_t, 0, 254>, 0, 13> Selections; // [slot][element - 1]; F2..F12 use slots 1..11
    std::int16_t PatchElementNo = 0;   // element last pressed with the right button; for the element dialog
    std::uint8_t PatchEditElement = 0; // element whose patch the element dialog shows

    // Sequence
    std::uint8_t StepCount = 0;
    std::uint8_t CurrentStep = 0; // shown, or played next; 1..StepCount
    Table<Table<PerChannel<std::uint8_t>, 1, MaxElements>, 1, MaxSteps> SequenceSteps;
    // [step][HoldTime or BlendTime] in ticks of 50 ms. Times above 32767 stand modulo 65536 and are
    // read as unsigned (HoldOf and BlendOf in sequence.h).
    Table<Table<std::int16_t, HoldTime, BlendTime>, 1, MaxSteps> SequenceTimes;
    std::int32_t HoldCounter = 0;  // ticks still to hold
    std::int32_t BlendCounter = 0; // ticks still to blend
    std::int32_t BlendSteps = 0;   // ticks of the blend in progress
    std::int32_t TurboFactor = 1;  // divides the times of every step during playback

    // DMX output
    Clock AutoXmit;                     // the output clock
    Clock timSendToMerger;              // the transfer to the play unit; keeps AutoXmit off while it runs
    Table<std::int32_t, 0, 512> DmxOut; // frame for types 4 and 5, index DMX channel - 1
    Table<std::uint8_t, 0, 512> DmxOutBytes;  // frame for type 3, index DMX channel - 1
    Table<std::uint8_t, 0, 511> TestLevels;   // frame of the DMX test window, index DMX channel - 1
    Table<std::int16_t, 0, 7> MonitorChannel; // DMX channels 1..512 of the test window's rows

    // Interface
    std::int16_t InterfaceType = NoInterface;
    std::int16_t PreviousInterfaceType = NoInterface; // as stored when the program started
    std::int16_t ActiveInterface = NoInterface;       // InterfaceType while that is open, else 0
    Table<std::int16_t, 0, 5> InterfaceOpen;          // 1 while the interface of that type is open
    std::int32_t CardBase = 0;                        // I/O address of the ISA card
    std::int16_t CardState = 0;                       // what the ISA card reported after its reset
    std::int16_t UsbKind = 0;                         // what the USB library's open command returned
    std::int32_t DriverHandle = 0;                    // for the card driver library
    Table<std::int16_t, 0, 15> DmxIni;                // card parameter block
    std::uint8_t DmxIniDirty = 0;                     // 1 while DmxIni has to be written to the card
    std::int16_t ChannelCount = 0;                    // DMX channels in use
    std::string InterfaceName;                        // of the open interface, for the caption
    float SendLength = 0;                             // of one DMX transmission, microseconds
    std::int16_t SendLengthFives = 0;                 // (SendLength / 3600 + 2) x 5; used by nothing
    std::int32_t SendRepeatTime = 50;                 // milliseconds, as the options have it; used by nothing

    // Transfer to the play unit
    std::uint8_t TransferImage = 0;         // the image that the next tick sends, 1..255
    Table<std::uint8_t, 0, 16> SavedDmxIni; // low bytes of DmxIni before the transfer

    // Memory card
    std::int16_t MemCardBase = 0;  // I/O address of its adapter, set when work on the card begins
    std::int32_t MemCardSize = 0;  // bytes, or NoMemCard, NoMemCardInterface, MemCardFault
    std::uint8_t MemCardAbort = 0; // not 0: the work on the card is given up, every loop stops

    // Files and last state. Paths are full names, empty when there is none.
    std::string IniPath;
    std::string ConfigFile;
    std::string SceneFile;
    std::string SequenceFile;
    std::string ColourTableFile;
    Table<Table<std::int32_t, PosLeft, PosState>, 1, 10> WindowPos; // [window][value]
    std::uint32_t SavedFlags = 0; // StatusFlags as the settings file keeps them
    std::uint8_t ImportX = 0;     // columns of the wall that the scene being imported was made on
    std::uint8_t ImportY = 0;     // rows of it
    Flags<Change> ChangeFlags;
    Flags<Status> StatusFlags;

    // Program
    std::string CaptionPrefix; // name of the operating system's version; empty on today's systems
    bool NtFamily = false;
    bool SecondInstance = false; // another instance drives the interface; this one never opens it
    std::string VersionText;

    // Texts of the sequencer window's fields as they stand: step, blend time, hold time, turbo factor.
    Table<std::string, 0, 3> SequencerField;
};

inline ShowState Show;

// The same text, under the name the interface part knows it by.
inline std::string& OsName = Show.CaptionPrefix;

} // namespace quorvane
