#include "bench/bench.h"

#include "model/wall.h"
#include "platform/programfolder.h"

#include <fstream>
#include <random>
#include <sstream>

namespace quorvane {

namespace {

std::filesystem::path FreshFolder() {
    std::random_device random;
    const auto folder =
        std::filesystem::temp_directory_path() / ("quorvane-test-" + std::to_string(random()));
    std::filesystem::create_directories(folder);
    return folder;
}

Answer QuietAnswer(Buttons buttons) { return buttons == Buttons::Ok ? Answer::Ok : Answer::Cancel; }

} // namespace

Bench::Bench() : ProgramFolder(FreshFolder()) {
    Show = ShowState{};
    Screen = ScreenCalls{};
    Host = HostCalls{};
    Host.ProgramFolder = ProgramFolder.string();

    Host.Seconds = [this] { return Now; };
    Host.DoEvents = [this] {
        Now += 0.01;
        return true;
    };
    Host.Beep = [this] { Log.push_back({"beep", "", "", ""}); };
    Host.MsgBox = [this](std::string_view text, Buttons buttons, std::string_view title, Icon icon) {
        const bool question = buttons != Buttons::Ok;
        Log.push_back({question ? "question" : "box", std::string(text), "", std::string(title), icon});
        if (!question) return Answer::Ok;
        if (Answers.empty()) {
            ADD_FAILURE() << "Nobody answered: " << text;
            return QuietAnswer(buttons);
        }
        const Answer answer = Answers.front();
        Answers.pop_front();
        return answer;
    };
    const auto dialog = [this](const std::string& kind, const FileQuestion& question) {
        Log.push_back({kind, question.Title, "", ""});
        FileQuestions.push_back(question);
        if (ChosenFiles.empty()) {
            ADD_FAILURE() << "Nobody chose a file for: " << question.Title;
            return std::optional<std::string>{};
        }
        auto file = ChosenFiles.front();
        ChosenFiles.pop_front();
        return file;
    };
    Host.AskOpenFile = [dialog](const FileQuestion& question) { return dialog("open", question); };
    Host.AskSaveFile = [dialog](const FileQuestion& question) { return dialog("save", question); };
    Host.ReadSetting = [this](std::string_view section, std::string_view key, std::string_view fallback) {
        const auto found = Settings.find(std::string(section) + "/" + std::string(key));
        return found == Settings.end() ? std::string(fallback) : found->second;
    };
    Host.WriteSetting = [this](std::string_view section, std::string_view key, std::string_view value) {
        Settings[std::string(section) + "/" + std::string(key)] = std::string(value);
    };

    const auto text = [this](const char* kind, const char* window) {
        return [this, kind, window](std::string_view shown) {
            Log.push_back({kind, std::string(shown), window, ""});
        };
    };
    Screen.MainCaption = text("caption", "MDIHaupt");
    Screen.WallCaption = text("caption", "frmWand");
    Screen.SequencerCaption = text("caption", "frmControl");
    Screen.WallStatus = text("status", "frmWand");
    Screen.SequencerStatus = text("status", "frmControl");
    Screen.ColourStatus = text("status", "frmColor");
    Screen.MemCardStatus = text("status", "frmFiles");
    Screen.MemCardImage = text("progress", "frmFiles");
    Screen.PaintElement = [this](int index, ScreenColour) { PaintedElements.push_back(index); };

    StartShow();
    Log.clear();
}

Bench::~Bench() {
    EXPECT_TRUE(Answers.empty()) << "Answers were left over";
    EXPECT_TRUE(ChosenFiles.empty()) << "Chosen files were left over";
    Host = HostCalls{};
    Screen = ScreenCalls{};
    std::error_code ignored;
    std::filesystem::remove_all(ProgramFolder, ignored);
}

std::vector<std::string> Bench::Texts(const std::string& kind) const {
    std::vector<std::string> texts;
    for (const Noticed& noticed : Log)
        if (noticed.Kind == kind) texts.push_back(noticed.Text);
    return texts;
}

std::string Bench::LastText(const std::string& kind, const std::string& window) const {
    for (auto noticed = Log.rbegin(); noticed != Log.rend(); ++noticed)
        if (noticed->Kind == kind && noticed->Window == window) return noticed->Text;
    return {};
}

void Bench::MakeWall(int columns, int rows) {
    Show.WallColumns = static_cast<std::uint8_t>(columns);
    Show.WallRows = static_cast<std::uint8_t>(rows);
    Show.WallAreaWidth = 600;
    Show.WallAreaHeight = 1200;
    NeueWandInit();
    Log.clear();
    PaintedElements.clear();
}

void Bench::Write(const std::string& name, const std::string& bytes) {
    const auto path = ProgramFolder / PathOf(name);
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << bytes;
}

std::string Bench::Read(const std::string& name) const {
    std::ifstream file(ProgramFolder / PathOf(name), std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
}

} // namespace quorvane
