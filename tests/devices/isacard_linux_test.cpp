// An operating system file of an ISA card that is there and opens, and then does not read.
#include "devices/interface.h"
#include "devices/isacard.h"

#include "bench/portbench.h"

#include <filesystem>
#include <fstream>

namespace quorvane {

namespace {

namespace fs = std::filesystem;

using TextList = std::vector<std::string>;

class UnreadableCardOs : public PortBench {
protected:
    UnreadableCardOs() { WriteFirmware(); }

    // Behind the link stands the memory of the process itself, where at the beginning nothing is to be read.
    void MakeUnreadable(const char* file) {
        fs::remove(ProgramFolder / file);
        fs::create_symlink("/proc/self/mem", ProgramFolder / file);
        ASSERT_TRUE(std::ifstream(ProgramFolder / file).is_open());
    }
};

TEST_F(UnreadableCardOs, GivesUpCardAndType) {
    MakeUnreadable("QRADMX12.BIN");
    PlugIn(CardModel::C7300A);
    Show.InterfaceType = IsaCardB;
    EXPECT_EQ(UploadCardOs("QRADMX12.BIN"), 0);
    EXPECT_EQ(Log, (std::vector<Noticed>{{"box", "Error while reading OS file QRADMX12.BIN", "",
                                          "DATA TRANSFER ERROR", Icon::Critical}}));
    EXPECT_EQ(Show.CardBase, 0);
    EXPECT_EQ(Show.InterfaceType, NoInterface);
}

TEST_F(UnreadableCardOs, OpensNoCard) {
    struct Case {
        std::int16_t Type;
        CardModel Model;
        const char* File;
        int Boots; // before it needs the file
    };
    for (const Case& c : {Case{IsaCardB, CardModel::C7300A, "QRADMX12.BIN", 0},
                          Case{IsaCardB, CardModel::C7300B, "QRTDMX16.BIN", 1},
                          Case{IsaCardC, CardModel::C7300C, "QRTDMX17.BIN", 0}}) {
        SCOPED_TRACE(c.File);
        MakeUnreadable(c.File);
        Bus.Cards.clear();
        Log.clear();
        PlugIn(c.Model);
        Show.AutoXmit.Enabled = true;
        Show.InterfaceType = c.Type;
        OpenPort(c.Type);
        EXPECT_EQ(Texts("box"), TextList{std::string("Error while reading OS file ") + c.File});
        EXPECT_EQ(Captions(), (TextList{Searching, Closed, Failed}));
        EXPECT_EQ(Bus.Cards[0].Boots, c.Boots);
        EXPECT_EQ(Show.InterfaceOpen[c.Type], 0);
        EXPECT_EQ(Show.CardBase, 0);
        EXPECT_EQ(Show.InterfaceType, NoInterface);
        EXPECT_FALSE(Show.AutoXmit.Enabled);
        fs::remove(ProgramFolder / c.File);
        WriteFirmware();
    }
}

} // namespace

} // namespace quorvane
