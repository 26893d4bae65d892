#include "files/sequencebench.h"

#include "model/wall.h"

#include <memory>

namespace quorvane {

TEST_F(SequenceFile, IsNotSavedWhenThereIsNone) {
    EXPECT_FALSE(SaveSequence());
    EXPECT_EQ(Boxes(), TextList{"Sie haben noch keine Sequence erstellt!"});
    EXPECT_EQ(Beeps(), 1u);
}

TEST_F(SequenceFile, IsNotSavedWithoutAWall) {
    HaveSequence();
    RemoveWall();
    EXPECT_FALSE(SaveSequence());
    EXPECT_EQ(Boxes(), TextList{"Keine Wand vorhanden. Ohne Wand kann nicht gespeichert werden!"});
}

TEST_F(SequenceFile, SaveThatIsCancelledOrFailsStaysUnsaved) {
    HaveSequence();
    Show.ChangeFlags.bits = 0x38;
    ChosenFiles = {std::nullopt, Path("fehlt/neu.QSQ")};
    for (int time = 1; time <= 2; ++time) {
        EXPECT_FALSE(SaveSequence());
        EXPECT_EQ(WallStatus(), "Speichern wurde abgebrochen.");
        EXPECT_EQ(Show.ChangeFlags.bits, 0x38);
        EXPECT_EQ(Show.SequenceFile, "alt.QSQ");
        Log.clear();
    }
}

TEST_F(SequenceFile, SaveLeavesOutWhatAStepHoldsBeyondTheWall) {
    Load(Text());
    Show.SequenceSteps[1][3].Fill(99); // recorded on a larger wall
    ChosenFiles = {Path("neu.QSQ"), Path("neu.QSQ")};
    EXPECT_TRUE(SaveSequence());
    Show.SequenceSteps[1][3].Fill(55);
    LoadSequence();
    EXPECT_EQ(Boxes(), TextList{});
    EXPECT_EQ(Show.SequenceSteps[1][2][4], 8);
    EXPECT_EQ(Show.SequenceSteps[1][3][1], 0);
}

TEST_F(SequenceFile, SavedUnderAnotherNameIsNamedInTheCaption) {
    Load(Text());
    ChosenFiles.push_back(Path("neu.QSQ"));
    EXPECT_TRUE(SaveSequence());
    EXPECT_EQ(LastText("caption", "frmControl"), "Sequence neu.QSQ");
}

TEST_F(SequenceFile, LargestSequenceComesBackAsItWas) {
    MakeWall(11, 11);
    Show.StatusFlags.Set(Status::SequenceExists);
    Show.StepCount = 253;
    for (int step = 1; step <= 253; ++step)
        for (int element = 1; element <= 121; ++element)
            for (int c = 1; c <= 4; ++c)
                Show.SequenceSteps[step][element][c] = static_cast<std::uint8_t>(step * 31 + element * 7 + c);
    const auto steps = std::make_unique<decltype(Show.SequenceSteps)>(Show.SequenceSteps);
    const auto times = Show.SequenceTimes;
    ChosenFiles = {Path("gross.QSQ"), Path("gross.QSQ")};
    EXPECT_TRUE(SaveSequence());
    Show.SequenceSteps = {};
    Show.SequenceTimes = {};
    LoadSequence();
    for (int step = 1; step <= 253; ++step) ASSERT_EQ(Show.SequenceSteps[step], (*steps)[step]) << step;
    for (int step = 1; step <= 253; ++step) ASSERT_EQ(Show.SequenceTimes[step], times[step]) << step;
}

} // namespace quorvane
