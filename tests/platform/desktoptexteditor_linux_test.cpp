#include "platform/desktoptexteditor.h"
#include "platform/texteditor.h"

#include "bench/bench.h"
#include "bench/environment.h"

#include <sys/stat.h>

namespace quorvane {

namespace {

namespace fs = std::filesystem;

using Words = std::vector<std::string>;

// A desktop with nothing but what a test puts into the folders of this user and of the system.
class TextEditor : public Bench {
protected:
    TextEditor() { fs::create_directories(ProgramFolder / "bin"); }

    // An application that opens plain text; its program is there.
    void Install(const std::string& name, const std::string& arguments = " %f") {
        Write("share/applications/" + name + ".desktop",
              "[Desktop Entry]\nType=Application\nExec=" + Program(name) + arguments + "\nTerminal=false\n");
        Write("bin/" + name, "#!/bin/sh\nprintf '%s\\n' \"$@\" >\"" + Started() + "\"\n");
        fs::permissions(Program(name), fs::perms::owner_all);
    }
    void Choose(const std::string& list, const std::string& entries) {
        Write(list, "[Added Associations]\ntext/plain=wrong.desktop;\n[Default Applications]\n"
                    "text/html=wrong.desktop\ntext/plain=" +
                        entries + "\n");
    }
    std::string Program(const std::string& name) const { return (ProgramFolder / "bin" / name).string(); }
    std::string Started() const { return (ProgramFolder / "started").string(); }
    Words For(const std::string& name) const { return {Program(name), "/shows/hilfe.doc"}; }
    static Words Found() { return DesktopTextEditor("/shows/hilfe.doc"); }

    Environment configHome{"XDG_CONFIG_HOME", (ProgramFolder / "config").string()};
    Environment configDirs{"XDG_CONFIG_DIRS", (ProgramFolder / "etc").string()};
    Environment dataHome{"XDG_DATA_HOME", (ProgramFolder / "own").string()};
    Environment dataDirs{"XDG_DATA_DIRS", (ProgramFolder / "share").string()};
    Environment desktop{"XDG_CURRENT_DESKTOP", "Demo:KDE"};
    Environment path{"PATH", (ProgramFolder / "bin").string()};
};

TEST_F(TextEditor, IsTheUsersChoiceForPlainTextBeforeAllOthers) {
    for (const char* name : {"own", "desktop", "system", "cache"}) Install(name);
    Write("share/applications/mimeinfo.cache", "[MIME Cache]\ntext/plain=cache.desktop;\n");
    EXPECT_EQ(Found(), For("cache"));
    Choose("share/applications/mimeapps.list", "system.desktop");
    EXPECT_EQ(Found(), For("system"));
    Choose("share/applications/kde-mimeapps.list", "desktop.desktop");
    EXPECT_EQ(Found(), For("desktop"));
    Choose("config/mimeapps.list", "own.desktop");
    EXPECT_EQ(Found(), For("own"));
}

TEST_F(TextEditor, ThatIsNotInstalledOrNeedsATerminalIsPassedOver) {
    Install("there");
    Choose("config/mimeapps.list", "missing.desktop;gone.desktop;terminal.desktop;there.desktop");
    Write("share/applications/gone.desktop", "[Desktop Entry]\nExec=/no/such/program %f\n");
    Write("share/applications/terminal.desktop", "[Desktop Entry]\nExec=there %f\nTerminal=true\n");
    EXPECT_EQ(Found(), For("there"));
}

TEST_F(TextEditor, OfAnEntryWithoutAValueIsPassedOver) {
    Install("there");
    Write("share/applications/empty.desktop", "[Desktop Entry]\nExec=\nTerminal=\n");
    Write("share/applications/blank.desktop", "[Desktop Entry]\nExec= \nTerminal = \n");
    Choose("config/mimeapps.list", "");
    Choose("etc/mimeapps.list", "empty.desktop;blank.desktop;there.desktop");
    EXPECT_EQ(Found(), For("there"));
}

TEST_F(TextEditor, OfAKeyThatOnlyBeginsAlikeIsPassedOver) {
    Install("there");
    Write("config/mimeapps.list", "[Default Applications]\n"
                                  "text/plain-old=wrong.desktop\ntext/plain\ntext/plain = there.desktop\n");
    EXPECT_EQ(Found(), For("there"));
}

TEST_F(TextEditor, TakesTheFileWhereItsCommandSays) {
    Choose("config/mimeapps.list", "editor.desktop");
    struct Case {
        const char* Arguments;
        Words Expected;
    };
    for (const Case& c :
         std::initializer_list<Case>{{" %U", {"/shows/hilfe.doc"}},
                                     {"", {"/shows/hilfe.doc"}},
                                     {" --new %F --line 1", {"--new", "/shows/hilfe.doc", "--line", "1"}},
                                     {" %i -caption %c \"two words\" a\\ b %u",
                                      {"-caption", "two words", "a b", "/shows/hilfe.doc"}}}) {
        Install("editor", c.Arguments);
        Words expected{Program("editor")};
        expected.insert(expected.end(), c.Expected.begin(), c.Expected.end());
        EXPECT_EQ(Found(), expected) << c.Arguments;
    }
}

TEST_F(TextEditor, OfADesktopWithoutOneIsItsGeneralOpener) {
    EXPECT_EQ(Found(), Words{});
    Install("xdg-open");
    EXPECT_EQ(Found(), (Words{"xdg-open", "/shows/hilfe.doc"}));
}

// Reading waits until the editor writes what it was given.
TEST_F(TextEditor, IsStartedWithTheFile) {
    Install("editor", " --new %f");
    Choose("config/mimeapps.list", "editor.desktop");
    Write("Hilfe zur \"Wand\" & mehr.doc", "Hilfe");
    const std::string file = (ProgramFolder / "Hilfe zur \"Wand\" & mehr.doc").string();
    ASSERT_EQ(mkfifo(Started().c_str(), 0600), 0);
    ASSERT_TRUE(StartTextEditor(file));
    EXPECT_EQ(Read("started"), "--new\n" + file + "\n");
}

TEST_F(TextEditor, IsNotStartedForAMissingFileOrWithoutOne) {
    const std::string file = (ProgramFolder / "hilfe.doc").string();
    Install("editor");
    Choose("config/mimeapps.list", "editor.desktop");
    EXPECT_FALSE(StartTextEditor(file));
    Write("hilfe.doc", "Hilfe");
    EXPECT_FALSE(StartTextEditor(ProgramFolder.string())) << "a folder";
    fs::remove(Program("editor"));
    EXPECT_FALSE(StartTextEditor(file));
    EXPECT_FALSE(fs::exists(Started()));
}

} // namespace

} // namespace quorvane
