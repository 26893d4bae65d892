#include "devices/interfacetext.h"

#include "model/show.h"
#include "platform/host.h"
#include "platform/programfolder.h"
#include "platform/sharedlibrary.h"

#include <filesystem>
#include <string_view>
#include <vector>

namespace quorvane {

namespace {

void Say(std::string& text, const std::string& sentence) {
    if (!text.empty()) text += '\n';
    text += sentence;
}

// The library that is there and used, or there and of no use.
void SayLibrary(std::string& text, const DriverOrigin& driver) {
    if (!driver.Unusable.empty())
        Say(text, "Die Bibliothek " + driver.Unusable + " im Programmordner kann nicht benutzt werden.");
    if (driver.From == DriverOrigin::Library)
        Say(text, "Treiber: die Bibliothek " + driver.Name + " im Programmordner.");
}

bool FileIsThere(std::string_view name) {
    std::error_code ignored;
    return std::filesystem::is_regular_file(FindInFolder(PathOf(Host.ProgramFolder), name), ignored);
}

// The operating systems that the cards of this type need and that are not in the program folder.
std::string MissingFirmware(std::int16_t type) {
    const std::vector<std::string> needed = type == IsaCardC
                                                ? std::vector<std::string>{"QRTDMX17.BIN"}
                                                : std::vector<std::string>{"QRADMX12.BIN", "QRTDMX16.BIN"};
    std::string missing;
    for (const std::string& name : needed) {
        if (FileIsThere(name)) continue;
        missing += missing.empty() ? "" : " und ";
        missing += name;
    }
    return missing;
}

std::string PortAdvice() {
    switch (Host.PortDriver.From) {
    case DriverOrigin::Nobody:
        return std::string("Nötig ist die Bibliothek dlportio") + SharedLibrary::Ending +
               " im Programmordner; unter Linux genügt auch das Recht auf Ports (CAP_SYS_RAWIO).";
    case DriverOrigin::BuiltIn: return "Bitte die Einträge der simulierten Karte in Ausgabe.ini prüfen.";
    default: return "Bitte prüfen, ob die Karte steckt und auf 100h, 120h, 140h oder 160h eingestellt ist.";
    }
}

void SayPorts(std::string& text) {
    switch (Host.PortDriver.From) {
    case DriverOrigin::Nobody: Say(text, "Auf die Ports dieses Rechners besteht kein Zugriff."); break;
    case DriverOrigin::System: Say(text, "Treiber: Zugriff auf die Ports durch das Betriebssystem."); break;
    case DriverOrigin::BuiltIn: Say(text, "Treiber: eingebaut, " + Host.PortDriver.Name + "."); break;
    case DriverOrigin::Library: break;
    }
}

std::string CardText(std::int16_t type) {
    std::string text;
    SayLibrary(text, Host.PortDriver);
    SayPorts(text);
    const std::string missing = MissingFirmware(type);
    if (Show.InterfaceOpen[type] == 1) {
        Say(text, "Karte gefunden. Nach OK wird sie mit DMX Start gestartet.");
    } else {
        Say(text, "Keine Karte gefunden.");
        Say(text, PortAdvice());
    }
    if (!missing.empty()) Say(text, "Im Programmordner fehlt " + missing + ".");
    return text;
}

std::string UsbText() {
    std::string text;
    SayLibrary(text, Host.UsbDriver);
    const bool open = Show.InterfaceOpen[UsbInterface] == 1;
    switch (Host.UsbDriver.From) {
    case DriverOrigin::BuiltIn:
        if (open)
            Say(text, "Eingebaute Ausgabe ins Netz: " + Host.UsbDriver.Name + ".");
        else
            Say(text, "Die eingebaute Ausgabe ins Netz ist ausgeschaltet.");
        Say(text, "Einstellen lässt sie sich in Ausgabe.ini im Programmordner, für den nächsten Start.");
        break;
    case DriverOrigin::Library:
        Say(text, open ? "Interface gefunden. Nach OK läuft die Ausgabe."
                       : "Kein Interface gefunden. Bitte den Stecker prüfen und noch einmal initialisieren.");
        break;
    default:
        Say(text, std::string("Hier ist nichts angeschlossen. Nötig ist die Bibliothek USBDMXVB") +
                      SharedLibrary::Ending + " im Programmordner.");
    }
    return text;
}

std::string LibraryCardText() {
    std::string text;
    SayLibrary(text, Host.CardDriver);
    if (Host.CardDriver.From == DriverOrigin::Library)
        Say(text, "Die Karte wird nicht gesucht: Nach OK geht jedes Bild an die Bibliothek.");
    else
        Say(text, std::string("Hier ist nichts angeschlossen, nichts geht hinaus. Nötig ist die Bibliothek "
                              "dmxcrd32") +
                      SharedLibrary::Ending + " im Programmordner und ein neuer Start.");
    return text;
}

} // namespace

std::string InterfaceText(std::int16_t type) {
    switch (type) {
    case IsaCardB:
    case IsaCardC: return CardText(type);
    case UsbInterface: return UsbText();
    case PcmciaCard:
    case PciCard: return LibraryCardText();
    default: return "";
    }
}

} // namespace quorvane
