#include "devices/isacard.h"

#include "bench/portbench.h"

namespace quorvane {
namespace {

using IsaCard = PortBench;

TEST_F(IsaCard, IsFoundAtEachOfTheFourBases) {
    for (const int base : {0x100, 0x120, 0x140, 0x160}) {
        Bus.Cards.clear();
        PlugIn(CardModel::C7300A, static_cast<std::uint32_t>(base));
        EXPECT_EQ(FindCard(), base);
    }
}

TEST_F(IsaCard, LowestBaseWinsWhenTwoCardsAnswer) {
    PlugIn(CardModel::C7300A, 0x140);
    PlugIn(CardModel::C7300B, 0x120);
    EXPECT_EQ(FindCard(), 0x120);
}

TEST_F(IsaCard, SearchTouchesNothingBehindTheFirstMatch) {
    PlugIn(CardModel::C7300A, 0x120);
    FindCard();
    EXPECT_EQ(Trace, (std::vector<PortAccess>{{'w', 0x100, 255},
                                              {'w', 0x101, 3},
                                              {'w', 0x102, 170},
                                              {'r', 0x102, 0},
                                              {'w', 0x120, 255},
                                              {'w', 0x121, 3},
                                              {'w', 0x122, 170},
                                              {'r', 0x122, 0}}));
}

TEST_F(IsaCard, IsNotFoundWhereNoneAnswersOrTheTestByteIsLost) {
    EXPECT_EQ(FindCard(), 0);
    EXPECT_EQ(Trace.size(), 16u);
    PlugIn(CardModel::C7300A, 0x140, CardFault::ForgetsProbeCell);
    EXPECT_EQ(FindCard(), 0);
}

TEST_F(IsaCard, IsNotFoundOnAMachineWithoutPortAccess) {
    Host = HostCalls{};
    EXPECT_EQ(FindCard(), 0);
}

TEST_F(IsaCard, MemoryIsReachedThroughTwoAddressWrites) {
    PlugIn(CardModel::C7300A, 0x100);
    WriteDpr(0x100, 1535, 200);
    EXPECT_EQ(ReadDpr(0x100, 1535), 200);
    EXPECT_EQ(Trace, (std::vector<PortAccess>{{'w', 0x100, 255},
                                              {'w', 0x101, 5},
                                              {'w', 0x102, 200},
                                              {'w', 0x100, 255},
                                              {'w', 0x101, 5},
                                              {'r', 0x102, 0}}));
}

TEST_F(IsaCard, StrobesTouchOnePortEach) {
    ReadPort(0x160);
    ClearPort(0x160);
    ResetRead(0x160);
    ResetWrite(0x160);
    EXPECT_EQ(Trace,
              (std::vector<PortAccess>{{'r', 0x160, 0}, {'w', 0x160, 0}, {'r', 0x163, 0}, {'w', 0x163, 0}}));
}

TEST_F(IsaCard, UploadPutsByteAfterByteIntoTheMemory) {
    const std::string system("A\0\r\n\x1A\xFF"
                             "Z",
                             7);
    Write("QRADMX12.BIN", system);
    PlugIn(CardModel::C7300A);
    EXPECT_EQ(UploadCardOs("QRADMX12.BIN"), 7);
    const auto& memory = Bus.Cards[0].Memory;
    EXPECT_EQ(std::string(memory.begin(), memory.begin() + 8), system + '\0');
    EXPECT_EQ(Show.CardBase, 0x140);
    EXPECT_TRUE(Log.empty());
}

TEST_F(IsaCard, UploadReadsEveryByteBackAndPassesOverAMismatch) {
    Write("QRADMX12.BIN", std::string(20, 'x'));
    PlugIn(CardModel::C7300A, 0x140, CardFault::ForgetsByte);
    EXPECT_EQ(UploadCardOs("QRADMX12.BIN"), 20);
    EXPECT_EQ(Bus.Cards[0].Memory[5], static_cast<std::uint8_t>(~'x'));
    EXPECT_EQ(Bus.Cards[0].Memory[19], 'x');
    EXPECT_EQ(Accesses('r', 0x142), 1 + 20); // the probe and every byte
    EXPECT_TRUE(Log.empty());
}

TEST_F(IsaCard, UploadFindsTheFileWhateverTheCaseOfItsName) {
    Write("qradmx12.bin", "abc");
    PlugIn(CardModel::C7300A);
    EXPECT_EQ(UploadCardOs("QRADMX12.BIN"), 3);
}

TEST_F(IsaCard, UploadOfAnEmptyFileWritesNothing) {
    Write("QRADMX12.BIN", "");
    PlugIn(CardModel::C7300A);
    EXPECT_EQ(UploadCardOs("QRADMX12.BIN"), 0);
    EXPECT_FALSE(Bus.Cards[0].Loaded);
    EXPECT_EQ(Show.CardBase, 0x140);
    EXPECT_TRUE(Log.empty());
}

TEST_F(IsaCard, UploadWithoutACardLooksForNoFile) {
    Show.CardBase = 0x140;
    EXPECT_EQ(UploadCardOs("QRADMX12.BIN"), 0);
    EXPECT_EQ(Show.CardBase, 0);
    EXPECT_TRUE(Log.empty());
}

TEST_F(IsaCard, UploadReadsTheStopStrobeFirstWhenTheInterfaceTypeIsTwo) {
    Write("QRTDMX17.BIN", "abc");
    PlugIn(CardModel::C7300C);
    for (const std::int16_t type : {NoInterface, IsaCardB, UsbInterface}) {
        Show.InterfaceType = type;
        UploadCardOs("QRTDMX17.BIN");
    }
    EXPECT_EQ(Bus.Cards[0].ReadsOfStop, 0);
    Show.InterfaceType = IsaCardC;
    UploadCardOs("QRTDMX17.BIN");
    EXPECT_EQ(Bus.Cards[0].ReadsOfStop, 1);
}

TEST_F(IsaCard, MissingFileIsToldWithItsPathAndClosesTheCard) {
    Show.InterfaceType = IsaCardB;
    PlugIn(CardModel::C7300A);
    EXPECT_EQ(UploadCardOs("QRADMX12.BIN"), 0);
    auto path = ProgramFolder / "QRADMX12.BIN";
    EXPECT_EQ(Log,
              (std::vector<Noticed>{{"box", "Card OS file " + path.make_preferred().string() + " is missing",
                                     "", "DATA TRANSFER ERROR", Icon::Critical}}));
    EXPECT_EQ(Show.CardBase, 0);
    EXPECT_EQ(Show.InterfaceType, IsaCardB);
}

TEST_F(IsaCard, UnreadableFileIsToldByNameAndDropsTheInterfaceType) {
    std::filesystem::create_directory(ProgramFolder / "QRTDMX17.BIN");
    Show.InterfaceType = IsaCardC;
    PlugIn(CardModel::C7300C);
    Settings["Interface/Type"] = "2";
    UploadCardOs("QRTDMX17.BIN");
    EXPECT_EQ(Log, (std::vector<Noticed>{{"box", "Error while reading OS file QRTDMX17.BIN", "",
                                          "DATA TRANSFER ERROR", Icon::Critical}}));
    EXPECT_EQ(Show.CardBase, 0);
    EXPECT_EQ(Show.InterfaceType, NoInterface);
    EXPECT_EQ(Settings["Interface/Type"], "2");
}

TEST_F(IsaCard, FileLongerThanTheAddressesReachIsNoOperatingSystem) {
    Write("QRADMX12.BIN", std::string(65537, 'x'));
    PlugIn(CardModel::C7300A);
    EXPECT_EQ(UploadCardOs("QRADMX12.BIN"), 65536);
    EXPECT_EQ(Texts("box"), std::vector<std::string>{"Error while reading OS file QRADMX12.BIN"});
    EXPECT_EQ(Show.CardBase, 0);
}

TEST_F(IsaCard, UploadNeverLetsEventsRun) {
    Write("QRADMX12.BIN", std::string(1000, 'x'));
    PlugIn(CardModel::C7300A);
    Host.DoEvents = [] {
        ADD_FAILURE() << "events";
        return true;
    };
    EXPECT_EQ(UploadCardOs("QRADMX12.BIN"), 1000);
}

} // namespace
} // namespace quorvane
