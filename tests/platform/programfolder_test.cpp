#include "platform/programfolder.h"

#include "bench/bench.h"

namespace quorvane {
namespace {

using ProgramFolderEntries = Bench;

TEST_F(ProgramFolderEntries, AreFoundWhateverTheCaseOfTheirLetters) {
    Write("Dmxos.BIN", "x");
    for (const char* name : {"DMXOS.BIN", "dmxos.bin", "Dmxos.BIN", "dMXOS.bin"})
        EXPECT_EQ(FindInFolder(ProgramFolder, name).filename(), "Dmxos.BIN") << name;
}

TEST_F(ProgramFolderEntries, FoldersAreFoundToo) {
    std::filesystem::create_directory(ProgramFolder / "Scenes");
    EXPECT_EQ(FindInFolder(ProgramFolder, "SCENES"), ProgramFolder / "Scenes");
}

TEST_F(ProgramFolderEntries, ExactSpellingWinsBeforeAlphabeticalOrder) {
    Write("SHOW.cfg", "1");
    Write("Show.cfg", "2");
    Write("show.CFG", "3");
    const bool casesAreOneFile = std::filesystem::exists(ProgramFolder / "SHOW.CFG");
    EXPECT_EQ(FindInFolder(ProgramFolder, "SHOW.CFG"), ProgramFolder / "SHOW.cfg");
    EXPECT_EQ(FindInFolder(ProgramFolder, "show.CFG"),
              ProgramFolder / (casesAreOneFile ? "SHOW.cfg" : "show.CFG"));
}

TEST_F(ProgramFolderEntries, MissingOnesKeepTheNameAskedFor) {
    EXPECT_EQ(FindInFolder(ProgramFolder, "DMXOS_C.BIN"), ProgramFolder / "DMXOS_C.BIN");
    EXPECT_EQ(FindInFolder(ProgramFolder / "nowhere", "A"), ProgramFolder / "nowhere" / "A");
}

TEST_F(ProgramFolderEntries, PathsGoThereAndBackAsUtf8) {
    const std::string text = "Bühne/Größe – ½.CFG";
    EXPECT_EQ(TextOf(PathOf(text)), text);
    Write("Bühne.CFG", "x");
    EXPECT_TRUE(std::filesystem::exists(FindInFolder(ProgramFolder, "BüHNE.cfg")));
}

} // namespace
} // namespace quorvane
