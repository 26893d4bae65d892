#include "files/savefile.h"

#include "files/filesbench.h"

#include <system_error>

namespace quorvane {

namespace fs = std::filesystem;

class SavedFile : public FilesBench {
protected:
    void Save(const std::string& name, const std::string& bytes) {
        SaveFile(ProgramFolder / PathOf(name), bytes);
    }
    bool Fails(const std::string& name) {
        try {
            Save(name, "neu\r\n");
        } catch (const std::exception&) {
            return true;
        }
        return false;
    }
};

TEST_F(SavedFile, ReplacesAndLeavesNoBak) {
    Save("ä.CFG", "alt\r\n");
    Save("ä.CFG", "neu\r\n");
    EXPECT_EQ(Read("ä.CFG"), "neu\r\n");
    EXPECT_FALSE(Exists("ä.CFG.bak"));
}

TEST_F(SavedFile, ReplacesAnOlderBakOfACompleteFile) {
    Write("a.CFG", "besser\r\n");
    Write("a.CFG.bak", "alt\r\n");
    Save("a.CFG", "neu\r\n");
    EXPECT_EQ(Read("a.CFG"), "neu\r\n");
    EXPECT_FALSE(Exists("a.CFG.bak"));
}

TEST_F(SavedFile, ThatIsWriteProtectedIsLeftAndTheSaveFails) {
    Write("a.CFG", "alt\r\n");
    fs::permissions(ProgramFolder / "a.CFG", fs::perms::owner_read);
    EXPECT_TRUE(Fails("a.CFG"));
    fs::permissions(ProgramFolder / "a.CFG", fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(Read("a.CFG"), "alt\r\n");
    EXPECT_FALSE(Exists("a.CFG.bak"));
}

TEST_F(SavedFile, InPlaceOfAFolderFailsAndLeavesTheFolder) {
    fs::create_directories(ProgramFolder / "a.CFG" / "darin");
    EXPECT_TRUE(Fails("a.CFG"));
    EXPECT_TRUE(fs::is_directory(ProgramFolder / "a.CFG" / "darin"));
    EXPECT_FALSE(Exists("a.CFG.bak"));
}

TEST_F(SavedFile, InAFolderThatIsMissingFails) { EXPECT_TRUE(Fails("fehlt/a.CFG")); }

TEST_F(SavedFile, WhoseBakCannotBeMadeIsLeft) {
    Write("a.CFG", "alt\r\n");
    fs::create_directories(ProgramFolder / "a.CFG.bak" / "darin");
    EXPECT_TRUE(Fails("a.CFG"));
    EXPECT_EQ(Read("a.CFG"), "alt\r\n");
}

} // namespace quorvane
