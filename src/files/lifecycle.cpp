#include "files/lifecycle.h"

#include "devices/interface.h"
#include "devices/playunit.h"
#include "files/guard.h"
#include "files/settingsfile.h"
#include "model/screen.h"
#include "model/show.h"
#include "model/wall.h"
#include "platform/host.h"

namespace quorvane {

namespace {

// A major version above 5 runs on with an empty prefix, on purpose.
bool TakeSystemVersion() {
    const std::uint32_t version = Host.GetVersion();
    const unsigned major = version & 0xFF;
    const unsigned minor = (version >> 8) & 0xFF;
    if (major < 4) {
        ShowMessage("Das Programm ist mit dieser Windows Version nicht lauffähig");
        return false;
    }
    Show.NtFamily = major >= 5;
    if (major == 4) Show.CaptionPrefix = minor == 10 ? "Windows 98SE" : "Windows 9x";
    if (major == 5 && minor == 0) Show.CaptionPrefix = "Windows 2000";
    if (major == 5 && minor == 1) Show.CaptionPrefix = "Windows XP";
    return true;
}

void OpenStoredInterface() {
    Show.InterfaceType = StoredInterfaceType();
    Show.PreviousInterfaceType = Show.InterfaceType;
    Screen.EnableDmxEntries(Show.InterfaceType == IsaCardB);
    Show.SecondInstance = Host.PreviousInstance();
    if (Show.SecondInstance) return DisableSecondInstance();
    OpenPort(Show.InterfaceType);
    if (InterfaceReady(Show.InterfaceType)) EnableOutputClock();
}

} // namespace

bool StartProgram() {
    if (!TakeSystemVersion()) return false;
    Show.VersionText = "V 1.21";
    Screen.MainCaption(Show.CaptionPrefix + ": KMO DMX QUORVANE  Ver " + Show.VersionText);
    StartShow();
    OpenStoredInterface();
    LoadINI();
    return true;
}

bool MayClose() {
    Show.SavedFlags = Show.StatusFlags.bits;
    for (const auto* subject : {"config", "scene", "sequence", "farbtabelle"})
        if (UnsavedChangesGuard(subject)) return false;
    return true;
}

// The selected interface comes first, open or not: the caption follows it. A search may have left another
// open beside it, which would never hear of the end.
void StopOutput() {
    AbandonTransfer();
    Show.AutoXmit.Enabled = false;
    ClosePort(Show.InterfaceType);
    for (std::int16_t type = IsaCardB; type <= PciCard; ++type)
        if (Show.InterfaceOpen[type] == 1) ClosePort(type);
}

} // namespace quorvane
