#include "files/sceneimport.h"

#include "bench/samplecases.h"
#include "files/filesbench.h"
#include "files/sectionedtext.h"

#include <array>

namespace quorvane {

using nlohmann::json;

namespace {

// The same import by walking over the target's places, one at a time.
std::vector<PerChannel<std::uint8_t>> SlowImport(const std::vector<PerChannel<std::uint8_t>>& source,
                                                 int sourceColumns, int sourceRows, int columns, int rows) {
    std::vector<PerChannel<std::uint8_t>> wall;
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < columns; ++column) {
            const bool known = column < sourceColumns && row < sourceRows;
            wall.push_back(known ? source[static_cast<std::size_t>(row * sourceColumns + column)]
                                 : PerChannel<std::uint8_t>{});
        }
    return wall;
}

PerChannel<std::uint8_t> TestColour(int element) {
    PerChannel<std::uint8_t> colour;
    for (int c = 1; c <= 4; ++c) colour[c] = static_cast<std::uint8_t>(1 + (element * 7 + c * 61) % 255);
    return colour;
}

} // namespace

class SceneImport : public FilesBench {
protected:
    void Put(int columns, int rows) {
        Source.clear();
        Show.ElementValue.Fill(TestColour(99));
        for (int element = 1; element <= columns * rows; ++element) {
            Source.push_back(TestColour(element));
            Show.ElementValue[element] = Source.back();
        }
        Show.ImportX = static_cast<std::uint8_t>(columns);
        Show.ImportY = static_cast<std::uint8_t>(rows);
    }
    std::vector<PerChannel<std::uint8_t>> Wall() const {
        return {Show.ElementValue.begin(), Show.ElementValue.begin() + Show.ElementCount};
    }
    void SetWall(int columns, int rows) {
        Show.WallColumns = static_cast<std::uint8_t>(columns);
        Show.WallRows = static_cast<std::uint8_t>(rows);
        Show.ElementCount = static_cast<std::uint8_t>(columns * rows);
        Show.StatusFlags.Set(Status::WallExists);
    }
    std::vector<PerChannel<std::uint8_t>> Source;
};

// The extra row that is started when the limit was met exactly runs over the wall's end in many of these.
TEST_F(SceneImport, KeepsColumnAndRowForEveryPairOfSizesUpTo12x10) {
    for (int columns = 1; columns <= 12; ++columns)
        for (int rows = 1; rows <= 10; ++rows)
            for (int sourceColumns = 1; sourceColumns <= 12; ++sourceColumns)
                for (int sourceRows = 1; sourceRows <= 10; ++sourceRows) {
                    SetWall(columns, rows);
                    Put(sourceColumns, sourceRows);
                    ImportScene();
                    ASSERT_EQ(Wall(), SlowImport(Source, sourceColumns, sourceRows, columns, rows))
                        << sourceColumns << " x " << sourceRows << " on " << columns << " x " << rows;
                    const int behind = std::max(columns * rows, sourceColumns * sourceRows) + 1;
                    ASSERT_EQ(Show.ElementValue[behind], TestColour(99)) << "beyond wall and source";
                }
}

TEST_F(SceneImport, TakesTheLargestAndTheMostUnequalSizes) {
    const std::vector<std::array<int, 4>> sizes = {{1, 20, 20, 5},   {250, 1, 1, 121}, {1, 250, 121, 1},
                                                   {25, 10, 10, 25}, {1, 1, 121, 1},   {121, 1, 1, 1}};
    for (const auto& [sourceColumns, sourceRows, columns, rows] : sizes) {
        SetWall(columns, rows);
        Put(sourceColumns, sourceRows);
        ImportScene();
        EXPECT_EQ(Wall(), SlowImport(Source, sourceColumns, sourceRows, columns, rows)) << sourceColumns;
    }
}

TEST_F(SceneImport, RepaintsEveryElementOfTheWall) {
    MakeWall(3, 3);
    Put(4, 3);
    PaintedElements.clear();
    EXPECT_TRUE(ImportScene());
    EXPECT_EQ(PaintedElements, (std::vector<int>{0, 1, 2, 3, 4, 5, 6, 7, 8}));
}

TEST_F(SceneImport, NeedsAWall) {
    Put(2, 2);
    EXPECT_FALSE(ImportScene());
    EXPECT_EQ(Boxes(), TextList{"Keine Wand vorhanden. Auf eine  leere Wand kann nicht importiert werden!"});
    EXPECT_EQ(Show.ElementValue[1], TestColour(1));
}

TEST_F(SceneImport, SizeThatNoWallCanHaveIsAnErrorThatChangesNothing) {
    MakeWall(2, 2);
    for (const auto& [columns, rows] : {std::pair{0, 3}, std::pair{3, 0}, std::pair{16, 16}}) {
        Show.ElementValue.Fill(TestColour(5));
        Show.ImportX = static_cast<std::uint8_t>(columns);
        Show.ImportY = static_cast<std::uint8_t>(rows);
        EXPECT_THROW(ImportScene(), ReadError);
        EXPECT_EQ(Show.ElementValue[1], TestColour(5));
    }
}

TEST_F(SceneImport, AgreesWithWorkedOutCases) {
    const auto bytes = [](const std::string& hex, int element) {
        PerChannel<std::uint8_t> colour;
        for (int c = 1; c <= 4; ++c)
            colour[c] = static_cast<std::uint8_t>(std::stoi(
                hex.substr(static_cast<std::size_t>((element - 1) * 8 + (c - 1) * 2), 2), nullptr, 16));
        return colour;
    };
    const json expected = SampleExpectation("153-import");
    int cases = 0;
    for (const json& entry : expected["cases"]) {
        SetWall(entry["WallColumns"], entry["WallRows"]);
        Show.ImportX = entry["ImportX"];
        Show.ImportY = entry["ImportY"];
        const std::string source = entry["source"], wall = entry["wall"];
        Show.ElementValue.Fill({});
        for (int element = 1; element <= static_cast<int>(source.size() / 8); ++element)
            Show.ElementValue[element] = bytes(source, element);
        ImportScene();
        for (int element = 1; element <= Show.ElementCount; ++element)
            ASSERT_EQ(Show.ElementValue[element], bytes(wall, element)) << entry["ImportX"] << " " << element;
        ++cases;
    }
    EXPECT_GT(cases, 0);
}

} // namespace quorvane
