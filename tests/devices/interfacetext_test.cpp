#include "devices/interfacetext.h"

#include "bench/bench.h"
#include "platform/sharedlibrary.h"

namespace quorvane {
namespace {

class InterfaceTextTest : public Bench {
protected:
    static bool Says(std::int16_t type, const std::string& words) {
        const std::string text = InterfaceText(type);
        EXPECT_FALSE(text.empty());
        return text.find(words) != std::string::npos;
    }
    static std::string FileOf(const char* library) { return std::string(library) + SharedLibrary::Ending; }
};

TEST_F(InterfaceTextTest, CardTellsWhetherItWasFound) {
    Host.PortDriver.From = DriverOrigin::System;
    for (const std::int16_t type : {IsaCardB, IsaCardC}) {
        EXPECT_TRUE(Says(type, "Keine Karte gefunden."));
        EXPECT_TRUE(Says(type, "100h, 120h, 140h oder 160h"));
        Show.InterfaceOpen[type] = 1;
        EXPECT_TRUE(Says(type, "Karte gefunden. Nach OK wird sie mit DMX Start gestartet."));
        EXPECT_FALSE(Says(type, "Keine Karte"));
    }
}

TEST_F(InterfaceTextTest, CardTellsWhoReachesThePorts) {
    Host.PortDriver = {};
    EXPECT_TRUE(Says(IsaCardB, "Auf die Ports dieses Rechners besteht kein Zugriff."));
    EXPECT_TRUE(Says(IsaCardB, "Nötig ist die Bibliothek " + FileOf("dlportio")));
    Host.PortDriver = {DriverOrigin::Library, "DLPORTIO.SO", ""};
    EXPECT_TRUE(Says(IsaCardB, "Treiber: die Bibliothek DLPORTIO.SO im Programmordner."));
    Host.PortDriver = {DriverOrigin::System, "", "dlportio.so"};
    EXPECT_TRUE(Says(IsaCardC, "Die Bibliothek dlportio.so im Programmordner kann nicht benutzt werden."));
    EXPECT_TRUE(Says(IsaCardC, "Treiber: Zugriff auf die Ports durch das Betriebssystem."));
    Host.PortDriver = {DriverOrigin::BuiltIn, "simulierte Karte 7300B an Adresse 100h", ""};
    EXPECT_TRUE(Says(IsaCardC, "Treiber: eingebaut, simulierte Karte 7300B an Adresse 100h."));
    EXPECT_TRUE(Says(IsaCardC, "Ausgabe.ini"));
}

TEST_F(InterfaceTextTest, CardTellsWhichOperatingSystemsAreMissing) {
    EXPECT_TRUE(Says(IsaCardB, "Im Programmordner fehlt QRADMX12.BIN und QRTDMX16.BIN."));
    Write("qradmx12.bin", "x"); // found whatever its case
    EXPECT_TRUE(Says(IsaCardB, "Im Programmordner fehlt QRTDMX16.BIN."));
    EXPECT_TRUE(Says(IsaCardC, "Im Programmordner fehlt QRTDMX17.BIN."));
    Write("QRTDMX16.BIN", "x");
    Write("QRTDMX17.BIN", "x");
    EXPECT_FALSE(Says(IsaCardB, "fehlt"));
    EXPECT_FALSE(Says(IsaCardC, "fehlt"));
}

TEST_F(InterfaceTextTest, UsbTellsOfItsLibrary) {
    Host.UsbDriver = {DriverOrigin::Library, "USBDMXVB.so", ""};
    EXPECT_TRUE(Says(UsbInterface, "Treiber: die Bibliothek USBDMXVB.so im Programmordner."));
    EXPECT_TRUE(Says(UsbInterface, "Kein Interface gefunden."));
    Show.InterfaceOpen[UsbInterface] = 1;
    EXPECT_TRUE(Says(UsbInterface, "Interface gefunden. Nach OK läuft die Ausgabe."));
}

TEST_F(InterfaceTextTest, UsbTellsWhereTheBuiltInOutputSends) {
    Host.UsbDriver = {DriverOrigin::BuiltIn, "Art-Net, Universum 3, Broadcast", "usbdmxvb.so"};
    Show.InterfaceOpen[UsbInterface] = 1;
    EXPECT_TRUE(
        Says(UsbInterface, "Die Bibliothek usbdmxvb.so im Programmordner kann nicht benutzt werden."));
    EXPECT_TRUE(Says(UsbInterface, "Eingebaute Ausgabe ins Netz: Art-Net, Universum 3, Broadcast."));
    EXPECT_TRUE(Says(UsbInterface, "Ausgabe.ini"));
    Show.InterfaceOpen[UsbInterface] = 0; // Protokoll = keine
    EXPECT_TRUE(Says(UsbInterface, "Die eingebaute Ausgabe ins Netz ist ausgeschaltet."));
    Host.UsbDriver = {};
    EXPECT_TRUE(Says(UsbInterface, "Nötig ist die Bibliothek " + FileOf("USBDMXVB")));
}

TEST_F(InterfaceTextTest, LibraryCardsTellThatTheyAreNotLookedFor) {
    for (const std::int16_t type : {PcmciaCard, PciCard}) {
        Host.CardDriver = {};
        EXPECT_TRUE(Says(type, "nichts geht hinaus. Nötig ist die Bibliothek " + FileOf("dmxcrd32")));
        Host.CardDriver = {DriverOrigin::Library, "dmxcrd32.so", ""};
        EXPECT_TRUE(Says(type, "Treiber: die Bibliothek dmxcrd32.so im Programmordner."));
        EXPECT_TRUE(Says(type, "Die Karte wird nicht gesucht"));
    }
}

TEST_F(InterfaceTextTest, NoInterfaceHasNoText) { EXPECT_EQ(InterfaceText(NoInterface), ""); }

} // namespace
} // namespace quorvane
