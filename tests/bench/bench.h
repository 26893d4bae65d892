// The bench on which the core is tested: every record fresh before each test, the outside replaced by
// things that a test sets and looks at. Boxes and dialogs take their answers from a queue and are
// recorded; a question that nobody answered fails the test. Time moves only when someone waits.
#pragma once

#include "model/screen.h"
#include "model/show.h"
#include "platform/host.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <deque>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace quorvane {

// One thing that a user would have noticed, in the order it happened.
struct Noticed {
    std::string Kind;       // "box", "question", "open", "save", "beep", "status", "caption"
    std::string Text;       // of a box, status line or caption; a dialog's title
    std::string Window;     // of a status line or caption: "MDIHaupt", "frmWand", "frmControl", "frmColor"
    std::string Title;      // of a box
    Icon Sign = Icon::None; // of a box
    bool operator==(const Noticed&) const = default;
};

class Bench : public testing::Test {
protected:
    Bench();
    ~Bench() override;
    Bench(const Bench&) = delete;
    Bench& operator=(const Bench&) = delete;

    // The program folder of this test: a folder of its own, gone afterwards.
    std::filesystem::path ProgramFolder;

    // Answers to questions with more than an OK button, in the order they will be asked.
    std::deque<Answer> Answers;
    // Files that the next dialogs give; an empty optional is a cancelled dialog.
    std::deque<std::optional<std::string>> ChosenFiles;

    std::vector<Noticed> Log;
    std::vector<FileQuestion> FileQuestions;
    std::vector<int> PaintedElements;            // indexes, in order
    std::map<std::string, std::string> Settings; // "Interface/Type" -> "1"
    double Now = 1000.0; // what Host.Seconds gives; Host.DoEvents moves it on by 10 ms

    // The texts of Log of one kind, in order.
    std::vector<std::string> Texts(const std::string& kind) const;
    std::string LastText(const std::string& kind, const std::string& window) const;

    // Builds a wall as a user would: fields set, NeueWandInit, what was noticed forgotten.
    void MakeWall(int columns, int rows);

    // Whole files below ProgramFolder, byte for byte. Write makes missing folders.
    void Write(const std::string& name, const std::string& bytes);
    std::string Read(const std::string& name) const;
};

} // namespace quorvane
