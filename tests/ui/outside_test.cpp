// What stands in the program folder, and what the program then finds outside.
#include "app/outside.h"

#include "bench/environment.h"
#include "devices/isacard.h"
#include "devices/memorycard.h"
#include "model/screen.h"
#include "model/show.h"
#include "platform/host.h"
#include "platform/monotonicclock.h"
#include "platform/sharedlibrary.h"

#include <QNetworkDatagram>
#include <QTemporaryDir>
#include <QUdpSocket>

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace quorvane {

namespace {

namespace fs = std::filesystem;

using TextList = std::vector<std::string>;

std::string LibraryFile(const std::string& name) { return name + SharedLibrary::Ending; }

} // namespace

class OutsideTest : public testing::Test {
protected:
    OutsideTest() {
        Show = ShowState{};
        Host = HostCalls{};
        Screen = ScreenCalls{};
        for (const char* name : {"program", "config", "run"}) fs::create_directory(Path(name));
    }
    ~OutsideTest() override {
        outside.reset();
        Screen = ScreenCalls{};
    }

    fs::path Path(const std::string& name) const { return fs::path(folder.path().toStdString()) / name; }
    void Install(const std::string& library, const std::string& kind = "whole") {
        fs::copy_file(fs::path(TEST_DRIVER_LIBRARIES) / kind / LibraryFile(library),
                      Path("program") / LibraryFile(library));
    }
    // The program begins, with these lines in Ausgabe.ini.
    void Begin(const std::string& settings = "") {
        std::ofstream(Path("program/Ausgabe.ini")) << "[Ausgabe]\n" << settings;
        outside.emplace(Path("program").string());
    }

    // The same, sending to the receiver.
    void BeginHeardAt(const std::string& address) {
        Begin("Adresse = " + address + "\n");
        ASSERT_TRUE(
            receiver.bind(QHostAddress(QString::fromStdString(address)), SacnPort, QUdpSocket::ShareAddress));
        Host.DasHardCommand(1, 0, nullptr);
    }

    QTemporaryDir folder;
    QUdpSocket receiver;
    Environment config{"XDG_CONFIG_HOME", Path("config").string()};
    Environment runtime{"XDG_RUNTIME_DIR", Path("run").string()};
    std::optional<Outside> outside;
};

TEST_F(OutsideTest, GivenProgramFolderIsTheProgramFolder) {
    Begin();
    EXPECT_EQ(Host.ProgramFolder, Path("program").string());
    EXPECT_TRUE(fs::exists(Path("program/quorvane.doc"))) << "the help file is placed there";
    EXPECT_EQ(outside->Messages(), TextList{});
}

TEST_F(OutsideTest, SettingsAndSenderAreKeptForTheUser) {
    Begin();
    EXPECT_EQ(Host.ReadSetting("Interface", "Type", "0"), "0");
    Host.WriteSetting("Interface", "Type", "2");
    EXPECT_EQ(Host.ReadSetting("Interface", "Type", "0"), "2");
    EXPECT_TRUE(fs::exists(Path("config/Quorvane/Quorvane.conf")));
    EXPECT_TRUE(fs::exists(Path("config/Quorvane/Absender.id")));
}

TEST_F(OutsideTest, ProgramThatIsRunningAlreadyIsFound) {
    Begin();
    EXPECT_FALSE(Host.PreviousInstance());
    const InstanceLock next;
    EXPECT_TRUE(next.PreviousInstance());
    outside.reset();
    Begin();
    EXPECT_TRUE(Host.PreviousInstance());
}

TEST_F(OutsideTest, TextIsComposed) {
    Begin();
    EXPECT_EQ(Host.ComposeText("Bu\u0308hne a\u0308"), "B\u00fchne \u00e4");
}

TEST_F(OutsideTest, DriverLibrariesWinOverWhatIsBuiltIn) {
    for (const char* library : {"dlportio", "USBDMXVB", "MemoCard"}) Install(library);
    Begin("SimulierteKarte = 7300A\nSimulierteMemorykarte = 32KB\n");
    EXPECT_EQ(Host.PortDriver.From, DriverOrigin::Library);
    EXPECT_EQ(Host.PortDriver.Name, LibraryFile("dlportio"));
    Host.DlPortWritePortUchar(0x103, 45);
    EXPECT_EQ(Host.DlPortReadPortUchar(0x103), 45) << "no card would give that back";
    EXPECT_EQ(Host.UsbDriver.From, DriverOrigin::Library);
    EXPECT_EQ(Host.DasHardCommand(3, 512, nullptr), 3512);
    Host.vbWRAMC(1, 2);
    Host.vbWDRAMC(3, 4);
    EXPECT_EQ(Host.vbRRAMC(5), 12 + 3004 + 5);
    EXPECT_FALSE(fs::exists(Path("config/Quorvane"))) << "nobody sends";
}

TEST_F(OutsideTest, OneLibraryAloneLeavesTheRestToWhatIsBuiltIn) {
    Install("USBDMXVB");
    Begin("SimulierteKarte = 7300A\nSimulierteMemorykarte = 32KB\n");
    EXPECT_EQ(Host.UsbDriver.From, DriverOrigin::Library);
    EXPECT_EQ(Host.PortDriver.From, DriverOrigin::BuiltIn);
    EXPECT_EQ(FindCard(), 0x100);
    EXPECT_TRUE(SearchMemCard());
    EXPECT_EQ(Show.MemCardSize, 32768);
}

TEST_F(OutsideTest, SimulatedCardStandsAtItsBaseAndIsOfItsModel) {
    struct Case {
        const char* Model;
        const char* Base;
        int Found;
        int State;
    };
    for (const Case& c : {Case{"7300A", "100", 0x100, 128}, Case{"7300B", "120", 0x120, 1},
                          Case{"7300B-LC", "140", 0x140, 128}, Case{"7300C", "160", 0x160, 5}}) {
        SCOPED_TRACE(c.Model);
        outside.reset();
        Begin(std::string("SimulierteKarte = ") + c.Model + "\nSimulierteBasis = " + c.Base + "\n");
        EXPECT_EQ(Host.PortDriver.From, DriverOrigin::BuiltIn);
        EXPECT_EQ(Host.PortDriver.Name,
                  std::string("simulierte Karte ") + c.Model + " an Adresse " + c.Base + "h");
        EXPECT_EQ(FindCard(), c.Found);
        WriteDpr(c.Found, 0, 1); // something to run
        ResetRead(c.Found);
        ResetWrite(c.Found);
        EXPECT_EQ(ReadDpr(c.Found, CardStateCell), c.State);
    }
}

TEST_F(OutsideTest, SimulatedMemoryCardIsInTheAdapter) {
    Install("dlportio");
    Begin("SimulierteMemorykarte = 64KB\n");
    EXPECT_TRUE(SearchMemCard());
    EXPECT_EQ(Show.MemCardSize, 65536);
    MemWrite(1000, 77);
    EXPECT_EQ(MemRead(1000), 77);
    for (const std::uint32_t port : {0x200U, 0x201U, 0x202U, 0x203U})
        EXPECT_EQ(Host.DlPortReadPortUchar(port), 0) << "the ports of the machine are left alone";
}

TEST_F(OutsideTest, AdapterIsReachedThroughThePortsWhoeverServesThem) {
    Install("dlportio");
    Begin();
    Host.vbWRAMC(0x201, 0x1FE);
    Host.vbWDRAMC(0x200, 77);
    EXPECT_EQ(Host.DlPortReadPortUchar(0x201), 0xFE);
    EXPECT_EQ(Host.DlPortReadPortUchar(0x200), 77);
    Host.DlPortWritePortUchar(0x203, 200);
    EXPECT_EQ(Host.vbRRAMC(0x203), 200);
}

TEST_F(OutsideTest, WithoutASimulatedCardThePortsAreTheSystems) {
    Begin();
    EXPECT_EQ(Host.PortDriver.From, DriverOrigin::System);
    EXPECT_EQ(Host.DlPortReadPortUchar(0x60), 255) << "a port of no card is not even asked for";
    EXPECT_EQ(Host.PortDriver.From, DriverOrigin::System);
}

// In a process of its own, which gives up what rights it may have before the system is asked for the ports.
TEST_F(OutsideTest, PortsThatTheSystemRefusesAreNobodys) {
    Begin();
    const pid_t child = fork();
    if (child == 0) {
        if (geteuid() == 0 && setuid(65534) != 0) _exit(2);
        if (FindCard() != 0 || Host.vbRRAMC(0x200) != 255) _exit(3);
        _exit(Host.PortDriver.From == DriverOrigin::Nobody ? 0 : 1);
    }
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
}

TEST_F(OutsideTest, LibraryWithoutAnEntryIsToldAndTheBuiltInOutputIsThere) {
    for (const char* library : {"dlportio", "USBDMXVB", "MemoCard"}) Install(library, "lacking");
    Begin("SimulierteKarte = 7300A\nSimulierteMemorykarte = 32KB\n");
    EXPECT_EQ(outside->Messages(),
              (TextList{"Der Treiberbibliothek \"" + LibraryFile("dlportio") +
                            "\" fehlt der Eintrag \"DlPortWritePortUchar\". Sie wird nicht benutzt.",
                        "Der Treiberbibliothek \"" + LibraryFile("USBDMXVB") +
                            "\" fehlt der Eintrag \"_DasHardCommand\". Sie wird nicht benutzt.",
                        "Der Treiberbibliothek \"" + LibraryFile("MemoCard") +
                            "\" fehlt der Eintrag \"vbWDRAMC\". Sie wird nicht benutzt."}));
    EXPECT_EQ(FindCard(), 0x100);
    EXPECT_EQ(Host.UsbDriver.From, DriverOrigin::BuiltIn);
    EXPECT_EQ(Host.UsbDriver.Unusable, LibraryFile("USBDMXVB"));
    EXPECT_EQ(Host.DasHardCommand(1, 0, nullptr), NetworkOutput::Kind);
    EXPECT_TRUE(SearchMemCard());
}

TEST_F(OutsideTest, SettingThatCannotBeIsToldBehindTheLibrariesAndTheOutputIsThere) {
    Install("MemoCard", "lacking");
    Begin("Universum = 64000\nAdresse = 127.0.0.9\n");
    EXPECT_EQ(outside->Messages(),
              (TextList{"Der Treiberbibliothek \"" + LibraryFile("MemoCard") +
                            "\" fehlt der Eintrag \"vbWDRAMC\". Sie wird nicht benutzt.",
                        "Ausgabe.ini: Universum = 64000 ist nicht möglich, erlaubt ist 1 bis 63999. "
                        "Verwendet wird 1."}));
    EXPECT_EQ(Host.UsbDriver.From, DriverOrigin::BuiltIn);
    EXPECT_EQ(Host.UsbDriver.Name, "sACN, Universum 1, an 127.0.0.9");
    EXPECT_EQ(Host.DasHardCommand(1, 0, nullptr), NetworkOutput::Kind);
}

TEST_F(OutsideTest, OutputThatIsSwitchedOffFindsNoInterface) {
    Begin("Protokoll = keine\n");
    EXPECT_EQ(Host.UsbDriver.From, DriverOrigin::BuiltIn);
    EXPECT_EQ(Host.UsbDriver.Name, "");
    EXPECT_EQ(Host.DasHardCommand(1, 0, nullptr), 0);
}

TEST_F(OutsideTest, DatedFrameLeavesByItselfAndNotBeforeItsMoment) {
    BeginHeardAt("127.0.0.77");
    std::array<std::uint8_t, 512> frame{};
    for (int tick = 0; tick < 20; ++tick) {
        const double moment = Seconds() + 0.005;
        Host.DateNextFrame(moment);
        Host.DasHardCommand(4, 512, frame.data());
        while (!receiver.hasPendingDatagrams() && Seconds() < moment + 10.0) continue;
        ASSERT_GE(Seconds(), moment);
        ASSERT_TRUE(receiver.hasPendingDatagrams());
        receiver.receiveDatagram();
        EXPECT_FALSE(receiver.hasPendingDatagrams()) << "it leaves once";
    }
}

TEST_F(OutsideTest, FrameThatStillWaitsAtTheEndGoesOutBeforeTheEndOfTheStream) {
    BeginHeardAt("127.0.0.78");
    std::array<std::uint8_t, 512> frame{};
    Host.DateNextFrame(Seconds() + 3600.0);
    Host.DasHardCommand(4, 512, frame.data());
    EXPECT_FALSE(receiver.hasPendingDatagrams());
    outside.reset();
    std::vector<bool> ends;
    while (receiver.hasPendingDatagrams())
        ends.push_back((receiver.receiveDatagram().data()[112] & 0x40) != 0); // E1.31: Stream_Terminated
    EXPECT_EQ(ends, (std::vector<bool>{false, true, true, true}));
}

TEST_F(OutsideTest, InterfaceOfALibraryGetsItsFramesWhenTheyAreDue) {
    Install("USBDMXVB");
    Begin();
    EXPECT_FALSE(Host.DateNextFrame);
}

TEST_F(OutsideTest, LostNetworkIsToldAtTheWall) {
    TextList told;
    Screen.WallStatus = [&told](std::string_view text) { told.emplace_back(text); };
    Begin("Netzwerkkarte = keine-solche\n");
    EXPECT_EQ(Host.DasHardCommand(1, 0, nullptr), NetworkOutput::Kind);
    EXPECT_EQ(told, TextList{"DMX-Ausgabe: Das Netzwerk ist nicht erreichbar (die Netzwerkkarte fehlt). Die "
                             "Ausgabe setzt von selbst wieder ein. Netzwerkkarte: keine-solche"});
}

TEST_F(OutsideTest, HostIsEmptyAgainBehindIt) {
    Begin("SimulierteKarte = 7300A\nSimulierteMemorykarte = 32KB\n");
    ASSERT_EQ(FindCard(), 0x100);
    Host.DasHardCommand(1, 0, nullptr);
    outside.reset();
    EXPECT_EQ(FindCard(), 0);
    EXPECT_EQ(Host.vbRRAMC(0x200), 255);
    EXPECT_EQ(Host.DasHardCommand(1, 0, nullptr), 0);
    EXPECT_FALSE(Host.DateNextFrame);
    EXPECT_EQ(Host.PortDriver.From, DriverOrigin::Nobody);
    EXPECT_EQ(Host.UsbDriver.From, DriverOrigin::Nobody);
    EXPECT_EQ(Host.ProgramFolder, "");
    EXPECT_EQ(Host.ComposeText("a\u0308"), "a\u0308");
    EXPECT_FALSE(Host.PreviousInstance());
}

} // namespace quorvane
