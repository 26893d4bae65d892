#include "platform/driverlibrary.h"

#include "bench/bench.h"
#include "platform/sharedlibrary.h"

#include <gmock/gmock.h>

namespace quorvane {

namespace {

namespace fs = std::filesystem;

using testing::ElementsAre;
using testing::IsEmpty;

class DriverLibrary : public Bench {
protected:
    static std::string FileOf(const std::string& name) { return name + SharedLibrary::Ending; }

    // Puts a library into the program folder. The tests' build made them: "whole" ones, and "lacking"
    // ones without their last entry.
    void Install(const std::string& kind, const std::string& name, const std::string& as) {
        fs::copy_file(fs::path(TEST_DRIVER_LIBRARIES) / kind / FileOf(name), ProgramFolder / as);
    }
    void Install(const std::string& name) { Install("whole", name, FileOf(name)); }

    DriverLibraries Load() { return LoadDriverLibraries(ProgramFolder.string()); }
};

TEST_F(DriverLibrary, MissingFilesLeaveEverySlotAndSayNothing) {
    const DriverLibraries found = Load();
    EXPECT_FALSE(found.Ports || found.Usb || found.Card || found.MemoryCard);
    EXPECT_THAT(found.Messages, IsEmpty());
    EXPECT_EQ(Host.DlPortReadPortUchar(0x100), 255);
}

TEST_F(DriverLibrary, DlportioCarriesThePorts) {
    Install("dlportio");
    const DriverLibraries found = Load();
    EXPECT_TRUE(found.Ports);
    EXPECT_FALSE(found.Usb || found.Card || found.MemoryCard);
    Host.DlPortWritePortUchar(0x123, 45);
    EXPECT_EQ(Host.DlPortReadPortUchar(0x123), 45);
    EXPECT_EQ(Host.DlPortReadPortUchar(0x124), 0);
}

TEST_F(DriverLibrary, HostTellsWhoAnswers) {
    Install("whole", "USBDMXVB", FileOf("usbdmxvb"));
    Install("lacking", "dmxcrd32", FileOf("dmxcrd32"));
    Load();
    EXPECT_EQ(Host.PortDriver.From, DriverOrigin::Nobody);
    EXPECT_EQ(Host.PortDriver.Unusable, "");
    EXPECT_EQ(Host.UsbDriver.From, DriverOrigin::Library);
    EXPECT_EQ(Host.UsbDriver.Name, FileOf("usbdmxvb"));
    EXPECT_EQ(Host.CardDriver.From, DriverOrigin::Nobody);
    EXPECT_EQ(Host.CardDriver.Unusable, FileOf("dmxcrd32"));
}

TEST_F(DriverLibrary, UsbdmxvbIsCalledThroughItsEntryWithTheUnderscore) {
    Install("USBDMXVB");
    EXPECT_TRUE(Load().Usb);
    std::uint8_t buffer[512] = {};
    EXPECT_EQ(Host.DasHardCommand(3, 512, buffer), 3512);
    EXPECT_EQ(buffer[0], 3);
    EXPECT_EQ(Host.DasHardCommand(1, 0, nullptr), 1000);
}

TEST_F(DriverLibrary, Dmxcrd32TakesHandleAndFrame) {
    Install("dmxcrd32");
    EXPECT_TRUE(Load().Card);
    std::int32_t handle = 5;
    std::int32_t frame[512] = {7};
    frame[511] = 9;
    EXPECT_EQ(Host.DMXSEND(&handle, frame), 7);
    EXPECT_EQ(handle, 6);
    EXPECT_EQ(Host.DMXSEND2(&handle, frame), 9);
    EXPECT_EQ(handle, 8);
}

TEST_F(DriverLibrary, MemoCardHasThreeEntries) {
    Install("MemoCard");
    EXPECT_TRUE(Load().MemoryCard);
    Host.vbWRAMC(1, 2);
    Host.vbWDRAMC(3, 4);
    EXPECT_EQ(Host.vbRRAMC(5), 12 + 3004 + 5);
}

TEST_F(DriverLibrary, AllFourWorkSideBySide) {
    for (const char* name : {"dlportio", "USBDMXVB", "dmxcrd32", "MemoCard"}) Install(name);
    const DriverLibraries found = Load();
    EXPECT_TRUE(found.Ports && found.Usb && found.Card && found.MemoryCard);
    EXPECT_THAT(found.Messages, IsEmpty());
}

TEST_F(DriverLibrary, FileIsFoundInOtherLetterCase) {
    Install("whole", "USBDMXVB", "usbdmxvb" + std::string(SharedLibrary::Ending));
    EXPECT_TRUE(Load().Usb);
}

TEST_F(DriverLibrary, OneWithoutAnEntryIsNotUsedAndTheUserLearnsItsFileName) {
    struct Case {
        const char* Library;
        const char* Entry;
    };
    for (const auto& [library, entry] :
         {Case{"dlportio", "DlPortWritePortUchar"}, Case{"USBDMXVB", "_DasHardCommand"},
          Case{"dmxcrd32", "DMXSEND2"}, Case{"MemoCard", "vbWDRAMC"}}) {
        SCOPED_TRACE(library);
        Install("lacking", library, FileOf(library));
        const DriverLibraries found = Load();
        EXPECT_FALSE(found.Ports || found.Usb || found.Card || found.MemoryCard);
        EXPECT_THAT(found.Messages,
                    ElementsAre("Der Treiberbibliothek \"" + FileOf(library) + "\" fehlt der Eintrag \"" +
                                entry + "\". Sie wird nicht benutzt."));
        fs::remove(ProgramFolder / FileOf(library));
    }
}

TEST_F(DriverLibrary, OneWithoutAnEntryLeavesAllOfItsSlotsAsTheyWere) {
    Install("lacking", "dlportio", FileOf("dlportio"));
    Host.DlPortReadPortUchar = [](std::uint32_t) { return std::uint8_t{77}; };
    Load();
    EXPECT_EQ(Host.DlPortReadPortUchar(0x100), 77);
}

TEST_F(DriverLibrary, OneThatIsNoLibraryIsNamedAndTheOthersWork) {
    Write(FileOf("USBDMXVB"), "no machine code");
    Install("MemoCard");
    const DriverLibraries found = Load();
    EXPECT_FALSE(found.Usb);
    EXPECT_TRUE(found.MemoryCard);
    EXPECT_THAT(found.Messages, ElementsAre("Die Treiberbibliothek \"" + FileOf("USBDMXVB") +
                                            "\" konnte nicht geladen werden und wird nicht benutzt."));
}

} // namespace

} // namespace quorvane
