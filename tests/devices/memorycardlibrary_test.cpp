// The largest card, through a driver library as it is loaded from the program folder.
#include "devices/cardimages.h"

#include "bench/bench.h"
#include "devices/memorycard.h"
#include "devices/sceneimage.h"
#include "platform/driverlibrary.h"
#include "platform/sharedlibrary.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;

class MemoryCardLibrary : public Bench {
protected:
    MemoryCardLibrary() {
        const std::string file = std::string("MemoCard") + SharedLibrary::Ending;
        fs::copy_file(fs::path(TEST_DRIVER_LIBRARIES) / "ram" / file, ProgramFolder / file);
        EXPECT_TRUE(LoadDriverLibraries(ProgramFolder.string()).MemoryCard);
    }
};

TEST_F(MemoryCardLibrary, OneMegabyteTakesNoMoreThanTheTwoWaitsBeforeIt) {
    MakeWall(11, 11);
    Show.StepCount = 200;
    for (int step = 1; step <= 200; ++step)
        for (int element = 1; element <= 121; ++element)
            Show.SequenceSteps[step][element].Fill(static_cast<std::uint8_t>(step + element));
    int pauses = 0;
    Host.DoEvents = [this, &pauses] {
        Now += 0.01;
        ++pauses;
        return true;
    };
    const double start = Now;
    WriteMemCard();
    EXPECT_EQ(LastText("status", "frmFiles"), "Fertig mit Schreiben. Bis Adresse 983040 geschrieben.");
    EXPECT_NEAR(Now - start, 0.5 + 0.1, 0.021);
    EXPECT_LE(pauses, 62);
    EXPECT_EQ(CompareMemCard(), std::nullopt);
    EXPECT_EQ(MemRead(200 * 512), BuildSceneImage(1)[0]) << "the last scene image";
    EXPECT_EQ(MemRead(199 * 512 + 511), 128);
}

} // namespace
} // namespace quorvane
