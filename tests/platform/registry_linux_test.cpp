#include "platform/registry.h"

#include "bench/bench.h"
#include "bench/environment.h"

namespace quorvane {

namespace {

namespace fs = std::filesystem;

const std::string Store = "Quorvane/Quorvane.conf";

class Registry : public Bench {
protected:
    Environment ConfigHome{"XDG_CONFIG_HOME", ProgramFolder.string()};
};

TEST_F(Registry, MissingStoreGivesTheFallback) { EXPECT_EQ(ReadSetting("Interface", "Type", "0"), "0"); }

TEST_F(Registry, KeepsWhatWasWritten) {
    WriteSetting("Interface", "Type", "3");
    EXPECT_EQ(ReadSetting("Interface", "Type", "0"), "3");
    EXPECT_EQ(Read(Store), "[Interface]\nType=3\n");
}

TEST_F(Registry, SecondValueReplacesTheFirst) {
    WriteSetting("Interface", "Type", "3");
    WriteSetting("Interface", "Type", "1");
    EXPECT_EQ(Read(Store), "[Interface]\nType=1\n");
}

TEST_F(Registry, WritingKeepsOtherSectionsKeysAndRemarks) {
    Write(Store, "; mine\n[Window]\nType=9\n[Interface]\nColour=red\nType=3\n[Last]\nx=1\n");
    WriteSetting("Interface", "Type", "5");
    EXPECT_EQ(Read(Store), "; mine\n[Window]\nType=9\n[Interface]\nColour=red\nType=5\n[Last]\nx=1\n");
}

TEST_F(Registry, NewKeyGoesIntoItsSection) {
    Write(Store, "[Interface]\nColour=red\n[Last]\nx=1\n");
    WriteSetting("Interface", "Type", "5");
    EXPECT_EQ(Read(Store), "[Interface]\nType=5\nColour=red\n[Last]\nx=1\n");
}

TEST_F(Registry, KeyOfAnotherSectionDoesNotCount) {
    Write(Store, "[Window]\nType=9\n[Interface]\n[Last]\nType=8\n");
    EXPECT_EQ(ReadSetting("Interface", "Type", "0"), "0");
}

TEST_F(Registry, LongerKeyOfTheSameBeginningDoesNotCount) {
    Write(Store, "[Interface]\nTypeName=x\nType=4\n");
    EXPECT_EQ(ReadSetting("Interface", "Type", "0"), "4");
}

TEST_F(Registry, LineEndsOfTheOtherSystemAreNoPartOfTheValue) {
    Write(Store, "[Interface]\r\nType=2\r\n");
    EXPECT_EQ(ReadSetting("Interface", "Type", "0"), "2");
}

TEST_F(Registry, FolderInPlaceOfTheStoreHurtsNobody) {
    fs::create_directories(ProgramFolder / Store / "inside");
    EXPECT_EQ(ReadSetting("Interface", "Type", "0"), "0");
    WriteSetting("Interface", "Type", "3");
    EXPECT_EQ(ReadSetting("Interface", "Type", "0"), "0");
}

TEST_F(Registry, StoreThatCannotBeMadeHurtsNobody) {
    Write("Quorvane", "a file where the folder should be");
    WriteSetting("Interface", "Type", "3");
    EXPECT_EQ(ReadSetting("Interface", "Type", "0"), "0");
    EXPECT_EQ(Read("Quorvane"), "a file where the folder should be");
}

TEST_F(Registry, StandsInTheHomeFolderWhenNoConfigFolderIsNamed) {
    const Environment none("XDG_CONFIG_HOME", "");
    const Environment home("HOME", ProgramFolder.string());
    WriteSetting("Interface", "Type", "4");
    EXPECT_EQ(Read(".config/Quorvane/Quorvane.conf"), "[Interface]\nType=4\n");
}

TEST_F(Registry, UserWithoutAHomeHasNoStore) {
    const Environment none("XDG_CONFIG_HOME", "");
    const Environment home("HOME", "");
    WriteSetting("Interface", "Type", "4");
    EXPECT_EQ(ReadSetting("Interface", "Type", "0"), "0");
}

} // namespace

} // namespace quorvane
