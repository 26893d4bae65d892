#include "devices/interface.h"

#include "devices/isacard.h"
#include "devices/usbinterface.h"
#include "model/screen.h"
#include "model/show.h"
#include "model/text.h"
#include "platform/host.h"

#include <array>
#include <charconv>

namespace quorvane {

namespace {

void ShowStatus(std::string_view text) { Screen.MainCaption((TickText() << text << OsName).View()); }

void ShowCardFound(std::string_view text) {
    ShowStatus(std::string(text) + Hexadecimal(static_cast<std::uint32_t>(Show.CardBase)) + "h");
}

bool CardIsOpen() { return Show.CardBase > LastBaseWithoutCard; }

// Whether the operating system that the card reported belongs to the cards of this type.
bool CardRuns(std::int16_t type) {
    if (!CardIsOpen()) return false;
    if (type == IsaCardC) return Show.CardState == Card7300CRuns;
    return Show.CardState == CardRunsAlone || Show.CardState == Card7300BRuns;
}

std::string_view ModelName(std::int16_t type) {
    switch (type) {
    case IsaCardB: return Show.CardState == CardRunsAlone ? "7300A / 7300B-LC" : "7300B";
    case IsaCardC: return "7300C";
    case UsbInterface: return UsbModelName();
    default: return "";
    }
}

// The selected type is the active one while it is open. Wherever either changes, this follows.
void TakeActiveInterface() {
    const std::int16_t selected = Show.InterfaceType;
    Show.ActiveInterface = Show.InterfaceOpen[selected] == 1 ? selected : NoInterface;
    Show.InterfaceName = ModelName(Show.ActiveInterface);
}

void MarkOpen(std::int16_t type) {
    Show.InterfaceOpen[type] = 1;
    TakeActiveInterface();
}

// Loads an operating system, resets the card and takes what it reports then into CardState. False when
// there is no file or no card to go on with, or the program is being closed.
bool BootCard(std::int16_t type, std::string_view fileName) {
    UploadCardOs(fileName);
    if (!CardIsOpen()) return false;
    const std::int32_t base = Show.CardBase;
    if (type == IsaCardB)
        ResetRead(base);
    else
        ResetWrite(base);
    // Nobody finds the card while it boots, whatever the events of the wait do.
    Show.CardBase = 0;
    const bool waited = delay();
    Show.CardBase = base;
    if (waited) Show.CardState = ReadDpr(base, CardStateCell);
    return waited;
}

bool Start7300B() {
    if (!BootCard(IsaCardB, "QRTDMX16.BIN") || Show.CardState != Card7300BRuns) return false;
    ShowCardFound("QUORVANE: HALVENOR 7300B card found at address");
    Show.DmxIniDirty = 1;
    constexpr std::array<std::int16_t, 9> parameters{60, 0, 0, 0, 1, 0, 0, 0, 0};
    int word = 0;
    for (const std::int16_t value : parameters) Show.DmxIni[word++] = value;
    return true;
}

bool OpenCardB() {
    if (!BootCard(IsaCardB, "QRADMX12.BIN")) return false;
    if (Show.CardState == Card7300BRuns) return Start7300B();
    if (Show.CardState != CardRunsAlone) return false;
    ShowCardFound("7300A / 7300B-LC card found at address ");
    return true;
}

bool OpenCardC() {
    if (!BootCard(IsaCardC, "QRTDMX17.BIN") || Show.CardState != Card7300CRuns) return false;
    ShowCardFound("QUORVANE: HALVENOR 7300C card found at address");
    return true;
}

void OpenUsb() {
    ShowStatus("USB DMX Interface not found"); // seen only while the library searches
    if (!OpenUsbInterface()) {
        ReportFailure(UsbInterface);
        return;
    }
    MarkOpen(UsbInterface);
    if (UsbModelName() == "USBLINK1")
        ShowStatus("QUORVANE: ORBILUX USBLINK1 Interface opened succesfully");
    else
        ShowStatus("QUORVANE: HALVENOR USBLINK2 Interface opened succesfully");
    StartUsbInterface();
}

std::int16_t LastTypeTried() { return Show.NtFamily ? UsbInterface : PciCard; }

bool IsIsaCard(std::int16_t type) { return type == IsaCardB || type == IsaCardC; }

// Selects a type after a search, which may have tried the other type on the same card since. A card that is
// wanted and does not run as this type is opened again; true then, also when that failed.
bool SelectAfterSearch(std::int16_t type, bool wanted) {
    Show.InterfaceType = type;
    TakeActiveInterface();
    if (!IsIsaCard(type)) return false;
    const bool runs = InterfaceReady(type) && CardRuns(type);
    if (!InterfaceReady(type)) Show.CardBase = 0; // a card of the other type is not driven as one of this
    const bool reopen = wanted && !runs;
    if (reopen) OpenPort(type);
    return reopen;
}

// DMX Start and DMX Stop are for ISA cards, also when one is found while another interface drives.
bool CardIsDriven() { return CardIsOpen() && IsIsaCard(Show.InterfaceType); }

} // namespace

void OpenPort(std::int16_t type) {
    if (Show.SecondInstance) return;
    ShowStatus(": KMO DMX QUORVANE: ..... searching interface ...");
    switch (type) {
    case NoInterface: ShowMessage("INTERFACE SELECT ERROR", Icon::Critical); break;
    case IsaCardB:
    case IsaCardC: OpenCardAt(FindCard(), type); break;
    case UsbInterface: OpenUsb(); break;
    default: break; // PCMCIA and PCI cards are not opened, on purpose: frames just go to their library
    }
    Screen.RefreshMain();
}

// The clock stands still meanwhile, so that no tick writes into a card that boots.
void OpenCardAt(std::int32_t base, std::int16_t type) {
    Show.CardBase = base;
    if (base != 0 && !CardIsOpen()) return; // deliberately silent; FindCard knows no such address
    const bool clockWasOn = Show.AutoXmit.Enabled;
    Show.AutoXmit.Enabled = false;
    if (!CardIsOpen() || !(type == IsaCardB ? OpenCardB() : OpenCardC())) {
        ReportFailure(type);
        return;
    }
    MarkOpen(type);
    if (clockWasOn) EnableOutputClock();
}

void ClosePort(std::int16_t type) {
    if (type == UsbInterface && Show.InterfaceOpen[UsbInterface] > 0) CloseUsbInterface();
    Show.InterfaceOpen[type] = 0;
    TakeActiveInterface();
    ShowStatus(":  KMO DMX QUORVANE");
}

void ReportFailure(std::int16_t type) {
    Show.AutoXmit.Enabled = false;
    ClosePort(type);
    if (IsIsaCard(type)) Show.CardBase = 0;
    if (type == PcmciaCard || type == PciCard) Show.DriverHandle = 0;
    ShowStatus(": KMO DMX QUORVANE:  Interface Initialization failed");
}

bool InterfaceReady(std::int16_t type) {
    if (type == PcmciaCard || type == PciCard) return true;
    return type != NoInterface && Show.InterfaceOpen[type] == 1;
}

void EnableOutputClock() {
    if (!Show.timSendToMerger.Enabled) Show.AutoXmit.Enabled = true;
}

bool delay() {
    constexpr double seconds = 0.5;
    const double end = Host.Seconds() + seconds;
    while (Host.Seconds() < end)
        if (!Host.DoEvents()) return false;
    return true;
}

std::int16_t StoredInterfaceType() {
    const std::string stored = Host.ReadSetting("Interface", "Type", "0");
    const std::string_view text = Trimmed(stored);
    std::int16_t type = NoInterface;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), type);
    const bool number = error == std::errc() && end == text.data() + text.size();
    return number && type >= NoInterface && type <= PciCard ? type : NoInterface;
}

DrivingInterface PresentInterface() {
    return {Show.InterfaceType, InterfaceReady(Show.InterfaceType), Show.AutoXmit.Enabled};
}

void KeepInterface(const DrivingInterface& before) {
    SelectAfterSearch(before.Type, before.Ready);
    const bool gone = before.Ready && !InterfaceReady(before.Type);
    if (before.ClockOn && !gone) EnableOutputClock();
}

void ChooseInterface(std::int16_t type) {
    const bool isa = IsIsaCard(type);
    const bool reopen = SelectAfterSearch(type, InterfaceReady(type));
    Host.WriteSetting("Interface", "Type", Decimal(type));
    if (type != NoInterface) Screen.ShowDmxEntries(isa);
    if (isa) Screen.EnableDmxEntries(true);
    if (!isa && InterfaceReady(type)) EnableOutputClock(); // ISA cards wait for DMX Start
    if (reopen && !InterfaceReady(type)) return;           // the failure stays in sight
    ShowStatus(": ");
}

bool InitialiseInterfaces() {
    if (Show.SecondInstance || Host.PreviousInstance()) {
        DisableSecondInstance();
        return false;
    }
    for (std::int16_t type = IsaCardB; type <= LastTypeTried(); ++type) {
        OpenPort(type);
        if (!Host.DoEvents()) return false;
    }
    return true;
}

void DisableSecondInstance() {
    Show.SecondInstance = true;
    Host.Beep();
    Host.MsgBox("Dieses Programm wird zum 2. Mal ausgeführt. DMX-QUORVANE darf auf einem Rechner nicht mehr "
                "als einmal mit DMX-Ausgabe ausgeführt werden. Interfaceunterstützung wird deaktiviert.",
                Buttons::Ok, "DMX QUORVANE", Icon::Exclamation);
    Screen.EnableDmxEntries(false);
    for (std::int16_t type = IsaCardB; type <= LastTypeTried(); ++type) ClosePort(type);
    // A sequence still plays on the wall; the stored choice is the other instance's too and stays.
    Show.InterfaceType = NoInterface;
}

void mnuDMXStart_Click() {
    if (!CardIsDriven()) return;
    // The two card families take the start strobe in opposite directions.
    if (Show.InterfaceType == IsaCardB)
        ResetRead(Show.CardBase);
    else
        ResetWrite(Show.CardBase);
    EnableOutputClock();
    Screen.CheckDmxStop(false);
    TickText text;
    text << ": KMO DMX QUORVANE  ....running. DMX started. Interface = " << Show.InterfaceName << OsName;
    Screen.MainCaption(text.View());
}

void mnuDMXStop_Click() {
    if (!CardIsDriven()) return;
    Show.AutoXmit.Enabled = false;
    ShowStatus(": KMO DMX QUORVANE  ....stopped: DMX STOP");
    // Opposite directions again, the other way round.
    if (Show.InterfaceType == IsaCardB)
        ClearPort(Show.CardBase);
    else
        ReadPort(Show.CardBase);
    Screen.CheckDmxStop(true);
}

} // namespace quorvane
