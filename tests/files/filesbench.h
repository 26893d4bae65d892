// The bench with what the tests of the files need: paths below the program folder, a small wall whose
// files stand in tests/data/reference, and texts put together line by line.
#pragma once

#include "bench/bench.h"
#include "bench/testdata.h"

#include "platform/programfolder.h"

#include <fstream>
#include <initializer_list>
#include <sstream>
#include <string>
#include <vector>

namespace quorvane {

inline std::string Lines(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) text += line + "\r\n";
    return text;
}

inline std::string Reference(const std::string& name) {
    std::ifstream file(TestData("reference/" + name), std::ios::binary);
    EXPECT_TRUE(file) << name;
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
}

// The text with the first piece replaced, which must be in it.
inline std::string With(std::string text, const std::string& piece, const std::string& other) {
    const auto found = text.find(piece);
    EXPECT_NE(found, std::string::npos) << piece;
    return text.replace(found, piece.size(), other);
}

// The text up to a piece, which must be in it.
inline std::string UpTo(const std::string& text, const std::string& piece) {
    const auto found = text.find(piece);
    EXPECT_NE(found, std::string::npos) << piece;
    return text.substr(0, found);
}

class FilesBench : public Bench {
protected:
    // A name below the program folder as a whole path.
    std::string Path(const std::string& name) const {
        return TextOf((ProgramFolder / PathOf(name)).make_preferred());
    }
    bool Exists(const std::string& name) const {
        return std::filesystem::exists(ProgramFolder / PathOf(name));
    }

    // Writes the file and has the next dialog choose it.
    void Offer(const std::string& name, const std::string& bytes) {
        Write(name, bytes);
        ChosenFiles.push_back(Path(name));
    }

    // The wall of tests/data/reference: two elements side by side.
    void MakeReferenceWall() {
        MakeWall(2, 1);
        Show.ChangeFlags = {};
        Show.StatusFlags.Set(Status::WallWindowOpen);
    }

    std::vector<std::string> Boxes() const { return Texts("box"); }
    std::vector<std::string> Questions() const { return Texts("question"); }
    std::string WallStatus() const { return LastText("status", "frmWand"); }
    std::size_t Beeps() const { return Texts("beep").size(); }
};

using TextList = std::vector<std::string>;

} // namespace quorvane
