#include "bench/bench.h"
#include "devices/interface.h"

#include <tuple>

namespace quorvane {
namespace {

using TextList = std::vector<std::string>;
// Command, parameter, first byte of the buffer.
using UsbCall = std::tuple<int, int, int>;

class Usb : public Bench {
protected:
    Usb() {
        Show.CaptionPrefix = "Windows XP";
        Host.DasHardCommand = [this](std::int32_t command, std::int32_t parameter, std::uint8_t* buffer) {
            Calls.emplace_back(command, parameter, *buffer);
            *buffer = 99; // a library may write there
            return command == 1 ? Kind : 1;
        };
    }
    std::int32_t Kind = 0;
    std::vector<UsbCall> Calls;
};

TEST_F(Usb, KindsOneToThreeAndTenToThirteenAreKnownAndNoOther) {
    Show.InterfaceType = UsbInterface;
    for (int kind = -1; kind <= 20; ++kind) {
        Log.clear();
        Calls.clear();
        Kind = kind;
        OpenPort(UsbInterface);
        const bool first = kind >= 1 && kind <= 3;
        const bool second = kind >= 10 && kind <= 13;
        TextList captions{": KMO DMX QUORVANE: ..... searching interface ...Windows XP",
                          "USB DMX Interface not foundWindows XP"};
        std::vector<UsbCall> calls{{2, 0, 0}, {1, 0, 0}};
        if (first) captions.push_back("QUORVANE: ORBILUX USBLINK1 Interface opened succesfullyWindows XP");
        if (second) captions.push_back("QUORVANE: HALVENOR USBLINK2 Interface opened succesfullyWindows XP");
        if (first || second) {
            calls.emplace_back(3, 0, 0);
        } else {
            captions.push_back(":  KMO DMX QUORVANEWindows XP");
            captions.push_back(": KMO DMX QUORVANE:  Interface Initialization failedWindows XP");
            if (kind == 4 || kind == 14) calls.emplace_back(2, 0, 0); // the one before was open
        }
        EXPECT_EQ(Texts("caption"), captions) << kind;
        EXPECT_EQ(Calls, calls) << kind;
        EXPECT_EQ(Show.UsbKind, kind);
        EXPECT_EQ(Show.InterfaceOpen[UsbInterface], first || second) << kind;
        EXPECT_EQ(Show.InterfaceName, first ? "USBLINK1" : second ? "USBLINK2" : "") << kind;
        EXPECT_EQ(InterfaceReady(UsbInterface), first || second) << kind;
    }
}

TEST_F(Usb, KindBeyondSixteenBitsIsNotTakenForAKnownOne) {
    for (const std::int32_t kind : {65537, -65535, 0x7FFFFFFF}) {
        Kind = kind;
        OpenPort(UsbInterface);
        EXPECT_EQ(Show.InterfaceOpen[UsbInterface], 0) << kind;
    }
}

TEST_F(Usb, OpeningDarkensAllChannelsButTheFirst) {
    Show.DmxOutBytes.Fill(50);
    Kind = 12;
    OpenPort(UsbInterface);
    EXPECT_EQ(Show.DmxOutBytes[0], 50);
    for (int index = 1; index <= 511; ++index) EXPECT_EQ(Show.DmxOutBytes[index], 0) << index;
}

TEST_F(Usb, FailureLeavesTheFrame) {
    Show.DmxOutBytes.Fill(50);
    OpenPort(UsbInterface);
    EXPECT_EQ(Show.DmxOutBytes[511], 50);
}

TEST_F(Usb, OpeningAnewClosesFirstSoThatNoConnectionIsLost) {
    Kind = 1;
    OpenPort(UsbInterface);
    Calls.clear();
    OpenPort(UsbInterface);
    EXPECT_EQ(Calls, (std::vector<UsbCall>{{2, 0, 0}, {1, 0, 0}, {3, 0, 0}}));
    EXPECT_EQ(Show.InterfaceOpen[UsbInterface], 1);
}

TEST_F(Usb, OpeningLeavesTheClockAsItIsAndFailureStopsIt) {
    Kind = 1;
    Show.AutoXmit.Enabled = true;
    OpenPort(UsbInterface);
    EXPECT_TRUE(Show.AutoXmit.Enabled);
    Kind = 0;
    OpenPort(UsbInterface);
    EXPECT_FALSE(Show.AutoXmit.Enabled);
}

} // namespace
} // namespace quorvane
