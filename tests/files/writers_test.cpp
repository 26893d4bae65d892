// Every writer byte for byte against a file that was put together by hand.
#include "files/filesbench.h"

#include "files/settingsfile.h"
#include "files/showfiles.h"
#include "files/textwriter.h"
#include "model/text.h"

namespace quorvane {

class Writers : public FilesBench {
protected:
    void SetUp() override { MakeReferenceWall(); }

    void SetDmxIni() {
        for (int word = 0; word < 16; ++word) Show.DmxIni[word] = static_cast<std::int16_t>(word - 1);
        const int first[] = {0, 1, -2, 8, 0, 5};
        for (int word = 0; word < 6; ++word) Show.DmxIni[word] = static_cast<std::int16_t>(first[word]);
        Show.DmxIni[15] = 32767;
        for (int word = 6; word < 15; ++word) Show.DmxIni[word] = static_cast<std::int16_t>(word);
    }
    void SaveAs(const std::string& name, bool (*save)()) {
        ChosenFiles.push_back(Path(name));
        ASSERT_TRUE(save());
    }
};

TEST_F(Writers, ConfigurationMatchesItsReferenceByteForByte) {
    Show.WallName = Padded20("Bühne");
    Show.WallAreaWidth = 600;
    Show.WallAreaHeight = 1200;
    Show.ElementSize = -5;
    SetDmxIni();
    for (int c = 1; c <= 4; ++c) Show.Patch[2][c] = static_cast<std::int16_t>(508 + c);
    Show.ColourCorrection[2][1] = 1;
    Show.ColourCorrection[2][2] = 20;
    Show.ColourCorrection[2][3] = 200;
    Show.ColourCorrection[2][4] = 255;
    SaveAs("neu.CFG", SaveConfiguration);
    EXPECT_EQ(Read("neu.CFG"), Reference("small.CFG"));
}

TEST_F(Writers, ColourTableMatchesItsReferenceByteForByte) {
    Show.UserColourName[1] = Padded20("Rot");
    Show.UserColourName[2] = Padded20("Grün");
    Show.UserColourName[20] = Padded20("Zwanzig Zeichen lang und mehr");
    Show.UserColour[1][1] = 255;
    Show.UserColour[1][4] = 1;
    Show.UserColour[2][2] = 255;
    Show.UserColour[2][4] = 2;
    for (int c = 1; c <= 4; ++c) Show.UserColour[20][c] = static_cast<std::uint8_t>(c);
    SaveAs("neu.QCT", SaveColourTable);
    EXPECT_EQ(Read("neu.QCT"), Reference("small.QCT"));
}

TEST_F(Writers, SceneMatchesItsReferenceByteForByte) {
    Show.ColourTableFile = "C:\\Farbtbl\\bunt.QCT";
    for (int c = 1; c <= 4; ++c) {
        Show.ElementValue[1][c] = static_cast<std::uint8_t>(c - 1);
        Show.ElementValue[2][c] = static_cast<std::uint8_t>(251 + c);
    }
    Show.ElementValue[3][1] = 77; // beyond the wall
    SaveAs("neu.QSC", SaveScene);
    EXPECT_EQ(Read("neu.QSC"), Reference("small.QSC"));
}

TEST_F(Writers, SequenceMatchesItsReferenceByteForByte) {
    Show.ConfigFile = "C:\\config\\wand.CFG";
    Show.StatusFlags.Set(Status::SequenceExists);
    Show.StepCount = 3;
    for (int c = 1; c <= 4; ++c) {
        for (int step = 1; step <= 2; ++step) {
            Show.SequenceSteps[step][1][c] = static_cast<std::uint8_t>(10 * step - 10 + c);
            Show.SequenceSteps[step][2][c] = static_cast<std::uint8_t>(10 * step - 6 + c);
        }
        Show.SequenceSteps[3][2][c] = 255;
    }
    Show.SequenceTimes[2] = {};
    Show.SequenceTimes[2][HoldTime] = 32767;
    Show.SequenceTimes[2][BlendTime] = 5;
    Show.SequenceTimes[3][HoldTime] = static_cast<std::int16_t>(40000);
    Show.SequenceTimes[3][BlendTime] = static_cast<std::int16_t>(65534);
    Show.Selections[0][0] = 1;
    Show.Selections[1][1] = 1;
    Show.Selections[9][0] = 1;
    Show.Selections[9][1] = 1;
    Show.Selections[10][0] = 1; // slots 10 to 13 are never written
    SaveAs("neu.QSQ", SaveSequence);
    EXPECT_EQ(Read("neu.QSQ"), Reference("small.QSQ"));
}

TEST_F(Writers, SettingsMatchTheirReferenceByteForByte) {
    SetDmxIni();
    Show.SavedFlags = 0x130401;
    Show.ElementSize = 80;
    Show.ConfigFile = "C:\\config\\wand.CFG";
    Show.SequenceFile = "C:\\sequencen\\abend.QSQ";
    Show.ColourTableFile = "C:\\Farbtbl\\bunt.QCT";
    for (int window = 1; window <= 10; ++window)
        for (int value = PosLeft; value <= PosState; ++value)
            Show.WindowPos[window][value] = window == 10 ? -value : 100 * window + value;
    EXPECT_TRUE(SaveINI());
    EXPECT_EQ(Read("QUORVANE.ini"), Reference("QUORVANE.ini"));
}

TEST_F(Writers, SequenceWritesTheBlendFieldAsItStands) {
    Show.StatusFlags.Set(Status::SequenceExists);
    Show.StepCount = 1;
    Show.SequencerField[1] = "abc ";
    SaveAs("neu.QSQ", SaveSequence);
    EXPECT_NE(Read("neu.QSQ").find("\r\nSpeed =   abc \r\n"), std::string::npos);
}

TEST_F(Writers, NameThatDoesNotFitWindows1252MakesTheWholeFileUtf8) {
    Show.WallName = Padded20("Bühne Łódź");
    SaveAs("neu.CFG", SaveConfiguration);
    EXPECT_NE(Read("neu.CFG").find("[NAME]\r\nBühne Łódź          \r\n"), std::string::npos);
}

TEST_F(Writers, BytesThatWouldReadAsUtf8AreWrittenAsUtf8) {
    Show.WallName = Padded20("Ã¤");
    SaveAs("neu.CFG", SaveConfiguration);
    Show.WallName = Padded20("");
    ChosenFiles.push_back(Path("neu.CFG"));
    LoadConfiguration();
    EXPECT_EQ(Show.WallName, Padded20("Ã¤"));
}

TEST(TextWriterList, HasNoCommaAfterItsLastValueAndNoBlankAdded) {
    TextWriter text;
    text.Add(std::int64_t{0});
    text.Add(std::int64_t{-1});
    text.Add("Name");
    text.EndList();
    text.Add(std::int64_t{7});
    text.EndList();
    EXPECT_EQ(std::move(text).FileBytes(), " 0,-1,Name\r\n 7\r\n");
}

} // namespace quorvane
