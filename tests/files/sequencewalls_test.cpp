// Sequences that were made on another wall, or by an older program.
#include "files/sequencebench.h"

#include "model/wall.h"

namespace quorvane {

TEST_F(SequenceFile, OfAnotherWallIsLeftAfterCancel) {
    HaveSequence();
    Answers = {Answer::Cancel};
    Load(TextOf(3, 3, 2));
    EXPECT_EQ(Log[1].Kind, "beep");
    EXPECT_EQ(Log[2].Text, ImportQuestion);
    EXPECT_EQ(Log[2].Title, "V 1.21QUORVANE ");
    ExpectOldSequence();
    EXPECT_EQ(Show.SequenceFile, "alt.QSQ");
}

TEST_F(SequenceFile, OfAWallThatHasOtherColumnsOrRowsOnlyIsAskedForToo) {
    for (const char* size : {"Xmax =  2", "Ymax =  1"}) {
        Answers = {Answer::Cancel};
        Load(With(Text(), size, std::string(size, 7) + " 3"));
        EXPECT_EQ(Questions(), TextList{ImportQuestion}) << size;
        Log.clear();
    }
}

TEST_F(SequenceFile, IsWarnedOfTooManyStepsAfterTheQuestionAndNotAfterCancel) {
    for (const auto& [answer, order] : {std::pair{Answer::Cancel, TextList{"question"}},
                                        std::pair{Answer::No, TextList{"question", "box"}}}) {
        Answers = {answer};
        Log.clear();
        Load(TextOf(1, 1, 254));
        TextList seen;
        for (const auto& entry : Log)
            if (entry.Kind == "question" || entry.Kind == "box") seen.push_back(entry.Kind);
        EXPECT_EQ(seen, order);
    }
}

TEST_F(SequenceFile, OfASmallerWallFillsItsOwnElementsAfterNo) {
    MakeWall(12, 10);
    Answers = {Answer::No};
    Load(TextOf(10, 10, 2));
    EXPECT_EQ(Show.SequenceSteps[2][100][1], (2 + 1000) % 256);
    EXPECT_EQ(Show.SequenceSteps[2][101][1], 0);
    EXPECT_EQ(Show.Selections[1][98], 0);
    EXPECT_EQ(Show.Selections[1][97], 1);
    EXPECT_EQ(Show.Selections[1][100], 0);
    EXPECT_EQ(WallStatus(), "Sequenz erfolgreich geladen!");
    EXPECT_EQ(Show.ChangeFlags.Has(Change::SequenceChanged), false);
}

TEST_F(SequenceFile, LiveLevelsBeyondTheFilesElementsStayAfterNo) {
    MakeWall(2, 2);
    Show.ElementValue[4][1] = 99;
    Answers = {Answer::No};
    Load(TextOf(3, 1, 1));
    EXPECT_EQ(Show.ElementValue[3][1], 31);
    EXPECT_EQ(Show.ElementValue[4][1], 99);
}

TEST_F(SequenceFile, LiveLevelsOfALargerWallAreTakenAsFarAsTheFileGoesAfterNo) {
    Answers = {Answer::No};
    Load(TextOf(3, 1, 1));
    EXPECT_EQ(Show.ElementValue[3][1], 31) << "beyond the wall";
}

TEST_F(SequenceFile, OfALargerWallKeepsItsSelectionsInPlaceAfterNo) {
    Answers = {Answer::No};
    Load(TextOf(3, 1, 1));
    EXPECT_EQ(Show.Selections[1][0], 0);
    EXPECT_EQ(Show.Selections[1][1], 1);
    EXPECT_EQ(Show.Selections[1][2], 0) << "beyond the wall";
    EXPECT_EQ(Show.Selections[2][0], 1);
}

TEST_F(SequenceFile, OfAnotherWallIsConvertedStepByStepAfterYes) {
    MakeWall(2, 2);
    Show.ChangeFlags = {};
    for (int slot = 0; slot <= 13; ++slot) Show.Selections[slot][0] = 1;
    Answers = {Answer::Yes};
    Load(TextOf(3, 1, 2));
    EXPECT_EQ(Show.SequenceSteps[2][1][1], 12);
    EXPECT_EQ(Show.SequenceSteps[2][2][1], 22);
    EXPECT_EQ(Show.SequenceSteps[2][3][1], 0);
    EXPECT_EQ(Show.SequenceSteps[2][4][1], 0);
    EXPECT_EQ(Show.ElementValue[2][1], 21) << "step 1 is shown";
    EXPECT_EQ(Show.ChangeFlags.bits, 0x38);
    for (int slot = 0; slot <= 9; ++slot) EXPECT_EQ(Show.Selections[slot][0], 0);
    EXPECT_EQ(Show.Selections[10][0], 1);
    EXPECT_EQ(Show.CurrentStep, 1);
}

TEST_F(SequenceFile, ConversionOfASizeNoWallCanHaveIsAnError) {
    HaveSequence();
    for (const std::string columns : {"1000", " 200"}) {
        Answers = {Answer::Yes};
        Load(With(With(Text(), "Xmax =  2", "Xmax = " + columns), "Ymax =  1", "Ymax =  2"));
        EXPECT_EQ(Boxes(), TextList{AnyFailure});
        ExpectOldSequence();
        Log.clear();
    }
}

TEST_F(SequenceFile, ConversionNeedsAWall) {
    RemoveWall();
    Answers = {Answer::Yes};
    Load(Text());
    EXPECT_EQ(Boxes(), TextList{"Keine Wand vorhanden. Auf eine  leere Wand kann nicht importiert werden!"});
    EXPECT_EQ(Show.StepCount, 0);
    EXPECT_FALSE(Show.StatusFlags.Has(Status::SequenceExists));
}

// Old files.

std::string SelectionList(const std::vector<std::string>& slots) {
    std::string list;
    for (std::size_t slot = 0; slot < 10; ++slot)
        list += (slot > 0 ? "," : "") + (slot < slots.size() ? slots[slot] : "0,0,0,0");
    return list;
}

class OldSelections : public SequenceFile {
protected:
    void LoadOld(const std::string& header, const std::string& selections) {
        MakeWall(4, 1);
        std::string text = UpTo(TextOf(4, 1, 1), "[Selections]") + "[Selections]\r\n" + selections + "\r\n";
        Load(With(text, "Sequence von QUORVANE 99", header));
    }
    std::vector<int> Flags(int slot) const {
        return {Show.Selections[slot].begin(), Show.Selections[slot].begin() + 4};
    }
};

TEST_F(OldSelections, AreListsOfElementNumbersShiftedByOne) {
    LoadOld("Sequence von QUORVANE 98", SelectionList({"4,2,0,0", "1,0,0,0", "0,0,0,0", "3,3,1,4"}));
    EXPECT_EQ(Flags(0), (std::vector<int>{0, 1, 0, 1}));
    EXPECT_EQ(Flags(1), (std::vector<int>{1, 0, 0, 0}));
    EXPECT_EQ(Flags(2), (std::vector<int>{0, 0, 0, 0}));
    EXPECT_EQ(Flags(3), (std::vector<int>{1, 0, 1, 1}));
}

TEST_F(OldSelections, AreLeftWhenTheirFirstEntryIs0) {
    LoadOld("Sequence von QUORVANE 98", SelectionList({"0,1,1,0"}));
    EXPECT_EQ(Flags(0), (std::vector<int>{0, 1, 1, 0}));
}

TEST_F(OldSelections, NumbersBeyondThePresentWallAreLeftOut) {
    Answers = {Answer::No};
    MakeWall(2, 1);
    const std::string text = UpTo(TextOf(4, 1, 1), "[Selections]") + "[Selections]\r\n" +
                             SelectionList({"4,2,0,0", "3,4,0,0"}) + "\r\n";
    Load(With(text, "Sequence von QUORVANE 99", "Sequence von QUORVANE 98"));
    EXPECT_EQ(Flags(0), (std::vector<int>{0, 1, 0, 0}));
    EXPECT_EQ(Flags(1), (std::vector<int>{0, 0, 0, 0}));
    EXPECT_EQ(WallStatus(), "Sequenz erfolgreich geladen!");
}

TEST_F(OldSelections, BelongToThatHeaderOnly) {
    for (const char* header : {"Sequence von QUORVANE 97", "Sequence von QUORVANE 198", "QUORVANE 98"}) {
        LoadOld(header, SelectionList({"4,2,0,0"}));
        EXPECT_EQ(Flags(0), (std::vector<int>{4, 2, 0, 0})) << header;
    }
}

} // namespace quorvane
