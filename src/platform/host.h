// The outside: everything beyond the process that the program asks for. One record of functions; the
// program fills it from this folder, from src/drivers and from its windows, a test fills it otherwise.
// The start values are a machine with nothing attached to it: ports read 255, no driver library finds
// a device, no user answers. All texts are UTF-8.
// `Host = HostCalls{};` is such a machine again.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace quorvane {

enum class Buttons { Ok, OkCancel, YesNo, YesNoCancel, AbortRetryIgnore };
enum class Icon { None, Question, Exclamation, Critical };
enum class Answer { Ok, Cancel, Yes, No, Abort, Retry, Ignore };

// What a file dialog shows. Folder may be missing on disk; the caller makes it before it asks.
struct FileQuestion {
    std::string Title;
    std::string Filter;    // "*.CFG"
    std::string Extension; // "CFG", added to a name typed without one
    std::string Folder;    // where the dialog opens
    std::string Name;      // proposed
};

// Who answers the calls of a driver on this machine, for telling the user.
struct DriverOrigin {
    enum Kind { Nobody, System, BuiltIn, Library };

    Kind From = Nobody;
    std::string Name; // of a library its file; of what is built in a phrase, empty when it is switched off
    std::string Unusable; // file of a library that is there and cannot be used
};

struct HostCalls {
    // Byte-wide I/O ports.
    std::function<std::uint8_t(std::uint32_t port)> DlPortReadPortUchar = [](std::uint32_t) {
        return std::uint8_t{255};
    };
    std::function<void(std::uint32_t port, std::uint8_t value)> DlPortWritePortUchar = [](std::uint32_t,
                                                                                          std::uint8_t) {};

    // USB interface library, entry _DasHardCommand.
    std::function<std::int32_t(std::int32_t command, std::int32_t parameter, std::uint8_t* buffer)>
        DasHardCommand = [](std::int32_t, std::int32_t, std::uint8_t*) { return 0; };
    // The frame that DasHardCommand is given next is to leave at that moment of Seconds, not before. Empty
    // for an interface that sends each frame as soon as it has it.
    std::function<void(double moment)> DateNextFrame;

    // Card driver library of the PCMCIA and PCI cards.
    std::function<std::int32_t(std::int32_t* handle, std::int32_t* frame)> DMXSEND =
        [](std::int32_t*, std::int32_t*) { return 0; };
    std::function<std::int32_t(std::int32_t* handle, std::int32_t* frame)> DMXSEND2 =
        [](std::int32_t*, std::int32_t*) { return 0; };

    // Memory card adapter library.
    std::function<void(std::int32_t port, std::int32_t value)> vbWRAMC = [](std::int32_t, std::int32_t) {};
    std::function<std::int32_t(std::int32_t port)> vbRRAMC = [](std::int32_t) { return 255; };
    std::function<void(std::int32_t port, std::int32_t value)> vbWDRAMC = [](std::int32_t, std::int32_t) {};

    // Per-user store of single values; ReadSetting gives fallback when there is none.
    std::function<std::string(std::string_view section, std::string_view key, std::string_view fallback)>
        ReadSetting = [](std::string_view, std::string_view, std::string_view fallback) {
            return std::string(fallback);
        };
    std::function<void(std::string_view section, std::string_view key, std::string_view value)> WriteSetting =
        [](std::string_view, std::string_view, std::string_view) {};

    // Version of the operating system: major in the lowest byte, minor in the second.
    std::function<std::uint32_t()> GetVersion = [] { return std::uint32_t{10}; };
    // True when another instance of the program was running when this one started.
    std::function<bool()> PreviousInstance = [] { return false; };
    // Opens a text file in the system's editor, maximised where the system allows it. False when it could
    // not.
    std::function<bool(std::string_view path)> StartEditor = [](std::string_view) { return false; };
    // Where settings, firmware, pictures, help, driver libraries and the folders of show files stand.
    std::string ProgramFolder;

    DriverOrigin PortDriver; // of the byte-wide ports
    DriverOrigin UsbDriver;
    DriverOrigin CardDriver; // of the PCMCIA and PCI cards

    // Monotonic time in seconds, from any start.
    std::function<double()> Seconds = [] { return 0.0; };
    // Lets waiting events of the user interface and the heartbeat run. False when the program is being
    // closed: whoever waits gives up.
    std::function<bool()> DoEvents = [] { return true; };
    // The same for work instead of waiting: serves the events that are there, and does not pause for more.
    std::function<bool()> ServeEvents = [] { return true; };

    std::function<Answer(std::string_view text, Buttons buttons, std::string_view title, Icon icon)> MsgBox =
        [](std::string_view, Buttons, std::string_view, Icon) { return Answer::Cancel; };
    // The chosen path; nothing when the user cancelled. AskSaveFile asks before overwriting.
    std::function<std::optional<std::string>(const FileQuestion&)> AskOpenFile = [](const FileQuestion&) {
        return std::optional<std::string>{};
    };
    std::function<std::optional<std::string>(const FileQuestion&)> AskSaveFile = [](const FileQuestion&) {
        return std::optional<std::string>{};
    };
    // The chosen colour as red + 256 green + 65536 blue; nothing when the user cancelled.
    std::function<std::optional<std::uint32_t>(std::uint32_t initial)> AskColour = [](std::uint32_t) {
        return std::optional<std::uint32_t>{};
    };
    std::function<void()> Beep = [] {};
    // Joins letters with following accents into single characters (Unicode NFC).
    std::function<std::string(std::string_view text)> ComposeText = [](std::string_view text) {
        return std::string(text);
    };
};

inline HostCalls Host;

// The title of boxes that have none of their own.
inline constexpr std::string_view ApplicationTitle = "QUORVANE";

// A box with an OK button and the application's title.
inline void ShowMessage(std::string_view text, Icon icon = Icon::Exclamation) {
    Host.MsgBox(text, Buttons::Ok, ApplicationTitle, icon);
}

} // namespace quorvane
