// Patching in the element dialog: what its fields accept, store and say.
#include "ui/elementbench.h"

namespace quorvane {

using ElementPatch = ElementBench;

// Element number

TEST_F(ElementPatch, NumberOutsideTheWallEmptiesAllFields) {
    StartWithElement(5);
    for (const char* number : {"0", "13", "", "-1", "255", "256", "99999999999"}) {
        Enter(0, "2");
        ASSERT_EQ(Shown(1), "5");
        Enter(0, number);
        EXPECT_EQ(StatusText(), "Element nicht vorhanden!") << number;
        for (int index = 1; index <= 8; ++index) EXPECT_EQ(Shown(index), "") << number;
        EXPECT_FALSE(Show.StatusFlags.Has(Status::PatchError));
        EXPECT_EQ(Shown(0), number);
    }
    Enter(0, "12");
    EXPECT_EQ(Shown(4), "48");
    EXPECT_EQ(Show.PatchEditElement, 12);
    EXPECT_TRUE(Show.StatusFlags.Has(Status::PatchError));
}

TEST_F(ElementPatch, FieldsOfNoElementAreNotStored) {
    StartWithElement(5);
    Enter(0, "99");
    Enter(1, "40");
    Enter(5, "40");
    Enter(1, "0"); // refused, were there an element
    EXPECT_EQ(Beeps, 0);
    EXPECT_EQ(PatchOf(5), (Values{17, 18, 19, 20}));
    EXPECT_EQ(CorrectionOf(5), (Values{0, 0, 0, 0}));
    EXPECT_FALSE(ConfigChanged());
}

// The wall of 50 elements that is made smaller must not be written to where it ends no more.
TEST_F(ElementPatch, FieldsOfAnElementThatHasGoneAreNotStored) {
    StartWithElement(12);
    Click(Text(1));
    MakeWall(2, 2);
    Enter(1, "3");
    EXPECT_EQ(PatchOf(12), (Values{45, 46, 47, 48}));
}

// Channels

TEST_F(ElementPatch, ChannelIsStoredWhenItsFieldIsLeft) {
    StartWithElement(5);
    Show.ChannelCount = 100;
    Replace(2, "60");
    EXPECT_EQ(PatchOf(5)[1], 18); // not before
    Key(Qt::Key_Tab);
    EXPECT_EQ(PatchOf(5), (Values{17, 60, 19, 20}));
    EXPECT_EQ(StatusText(), "");
    EXPECT_FALSE(IsRed(2));
    EXPECT_TRUE(ConfigChanged());
}

TEST_F(ElementPatch, EnterAloneStoresNothing) {
    StartWithElement(5);
    for (const int index : {1, 5}) {
        Replace(index, "48");
        Key(Qt::Key_Return);
        EXPECT_EQ(Shown(index), "48");
    }
    Key(Qt::Key_Tab);
    EXPECT_EQ(CorrectionOf(5)[0], 48);
    Replace(6, "48");
    Key(Qt::Key_Return);
    EXPECT_EQ(CorrectionOf(5)[1], 0);
}

TEST_F(ElementPatch, ChannelBeyondTheOutputIsRefusedWithABeep) {
    StartWithElement(5);
    Show.ChannelCount = 100;
    Enter(1, "101");
    EXPECT_EQ(Beeps, 1);
    EXPECT_EQ(StatusText(), "Die Karte ist auf 100 DMX-Kanäle eingestellt");
    EXPECT_EQ(Shown(1), "17");
    EXPECT_EQ(PatchOf(5)[0], 17);
    EXPECT_FALSE(ConfigChanged());
    Enter(1, "100");
    EXPECT_EQ(PatchOf(5)[0], 100);
    EXPECT_EQ(Beeps, 1);
}

TEST_F(ElementPatch, ChannelBeyond512IsRefusedHoweverManyTheCardIsSaidToHave) {
    StartWithElement(5);
    Show.ChannelCount = 740; // as the first ISA card rebuilds it from 484
    Enter(1, "513");
    EXPECT_EQ(Beeps, 1);
    EXPECT_EQ(StatusText(), "Die Karte ist auf 740 DMX-Kanäle eingestellt");
    EXPECT_EQ(PatchOf(5)[0], 17);
    Enter(1, "512");
    EXPECT_EQ(PatchOf(5)[0], 512);
}

TEST_F(ElementPatch, ChannelZeroIsRefusedAndSoIsAnEmptyOrNegativeOne) {
    StartWithElement(5);
    for (const char* text : {"0", "", "-3", "x"}) {
        Beeps = 0;
        Enter(3, text);
        EXPECT_EQ(Beeps, 1);
        EXPECT_EQ(StatusText(), " Es gibt keinen DMX Kanal 0!") << text;
        EXPECT_EQ(Shown(3), "19");
        EXPECT_EQ(PatchOf(5)[2], 19);
    }
}

TEST_F(ElementPatch, ChannelCountIsLookedAtBeforeZero) {
    StartWithElement(5);
    Show.ChannelCount = 0;
    Enter(1, "1");
    EXPECT_EQ(StatusText(), "Die Karte ist auf 0 DMX-Kanäle eingestellt");
    Enter(1, "0");
    EXPECT_EQ(StatusText(), " Es gibt keinen DMX Kanal 0!");
}

TEST_F(ElementPatch, RefusedChannelLeavesARedFieldRed) {
    StartWithElement(5);
    Enter(1, "20");
    EXPECT_TRUE(IsRed(1));
    Enter(1, "0");
    EXPECT_EQ(Shown(1), "20");
    EXPECT_TRUE(IsRed(1));
}

TEST_F(ElementPatch, NumberIsTakenUpToTheFirstOtherCharacterAndShownAsStored) {
    StartWithElement(5);
    Enter(1, " 040a");
    EXPECT_EQ(PatchOf(5)[0], 40);
    EXPECT_EQ(Shown(1), "40");
}

// Duplicates

TEST_F(ElementPatch, TwoColoursOfOneElementOnOneChannel) {
    StartWithElement(5);
    Enter(2, "17");
    EXPECT_EQ(StatusText(), "Kanal ist bereits von diesem Element belegt!");
    EXPECT_TRUE(IsRed(2));
    EXPECT_EQ(Beeps, 0);
    EXPECT_EQ(PatchOf(5), (Values{17, 17, 19, 20}));
}

TEST_F(ElementPatch, ChannelOfAnotherElementIsToldAndStoredAllTheSame) {
    StartWithElement(2);
    Enter(1, "20"); // white of element 5
    EXPECT_EQ(StatusText(), "Kanal ist bereits von Element 5 belegt!");
    EXPECT_EQ(Beeps, 1);
    EXPECT_TRUE(IsRed(1));
    EXPECT_EQ(PatchOf(2)[0], 20);
}

TEST_F(ElementPatch, FirstOfSeveralInTheOrderOfTheElementsIsNamed) {
    StartWithElement(5);
    Show.Patch[9][1] = 40;
    Enter(1, "40"); // also blue of element 10
    EXPECT_EQ(StatusText(), "Kanal ist bereits von Element 9 belegt!");
    Enter(2, "40"); // the element itself stands before 9
    EXPECT_EQ(StatusText(), "Kanal ist bereits von diesem Element belegt!");
    Show.Patch[1][4] = 40;
    Enter(2, "40");
    EXPECT_EQ(StatusText(), "Kanal ist bereits von Element 1 belegt!");
}

TEST_F(ElementPatch, ElementsBeyondTheWallOccupyNothing) {
    StartWithElement(5);
    Show.ChannelCount = 100;
    Show.Patch[13][1] = 60;
    Enter(1, "60");
    EXPECT_FALSE(IsRed(1));
}

TEST_F(ElementPatch, FreeChannelTurnsTheFieldBlackAndTheStatusEmpty) {
    StartWithElement(5);
    Enter(1, "20");
    EXPECT_TRUE(IsRed(1));
    Enter(1, "17");
    EXPECT_FALSE(IsRed(1));
    EXPECT_EQ(Text(1)->palette().color(QPalette::Text), main->Element->palette().color(QPalette::WindowText));
    EXPECT_EQ(StatusText(), "");
}

TEST_F(ElementPatch, OtherHalfOfARepairedPairStaysRedUntilItIsLeftOnPurpose) {
    StartWithElement(5);
    Enter(2, "17");
    Click(Text(1));
    Key(Qt::Key_Tab); // red is checked by it too
    EXPECT_TRUE(IsRed(1));
    Enter(1, "21");
    Enter(1, "17");
    Enter(1, "48");
    EXPECT_TRUE(IsRed(1)); // element 12
    EXPECT_TRUE(IsRed(2));
    Click(Text(2));
    Key(Qt::Key_Tab);
    EXPECT_FALSE(IsRed(2));
}

TEST_F(ElementPatch, ShowingAnElementChecksItsFourChannelsAndTellsOfTheLastOnPurpose) {
    StartWithElement(5);
    SetPatchOf(7, {1, 26, 26, 28}); // element 1's, and blue on green
    Enter(0, "7");
    EXPECT_TRUE(IsRed(1));
    EXPECT_TRUE(IsRed(2));
    EXPECT_TRUE(IsRed(3));
    EXPECT_FALSE(IsRed(4));
    EXPECT_EQ(Beeps, 1);
    EXPECT_EQ(StatusText(), ""); // white has no fault
    Enter(0, "8");
    for (int channel = 1; channel <= 4; ++channel) EXPECT_FALSE(IsRed(channel));
}

// Corrections

TEST_F(ElementPatch, CorrectionIsStoredForItsColour) {
    StartWithElement(5);
    for (int channel = 1; channel <= 4; ++channel) Enter(4 + channel, std::to_string(channel * 60).c_str());
    EXPECT_EQ(CorrectionOf(5), (Values{60, 120, 180, 240}));
    EXPECT_EQ(CorrectionOf(4), (Values{0, 0, 0, 0}));
    EXPECT_TRUE(ConfigChanged());
    Enter(5, "255");
    Enter(6, "0");
    EXPECT_EQ(CorrectionOf(5), (Values{255, 0, 180, 240}));
}

TEST_F(ElementPatch, CorrectionOutsideItsRangeIsRefused) {
    StartWithElement(5);
    Enter(5, "7");
    for (const char* text : {"256", "-1", "70000"}) {
        Enter(5, text);
        EXPECT_EQ(CorrectionOf(5)[0], 7) << text;
        EXPECT_EQ(Shown(5), "7");
        EXPECT_EQ(StatusText(), "Werte zwischen 0 und 255 .");
    }
    EXPECT_EQ(Beeps, 0);
}

TEST_F(ElementPatch, TransferGivesEveryElementTheFourCorrections) {
    StartWithElement(5);
    Enter(5, "10");
    Enter(6, "0");
    Enter(7, "0");
    Replace(8, "20");
    Click(Transfer());
    for (int element = 1; element <= 12; ++element)
        EXPECT_EQ(CorrectionOf(element), (Values{10, 0, 0, 20})) << element;
    EXPECT_EQ(CorrectionOf(13), (Values{0, 0, 0, 0}));
    EXPECT_EQ(StatusText(), "Farbanpassung auf alle Elemente übertragen.");
    EXPECT_TRUE(ConfigChanged());
}

TEST_F(ElementPatch, TransferTakesTypedValuesWithoutAnElementButNoEmptyFields) {
    StartWithElement(0);
    Show.ColourCorrection[3].Fill(9);
    Click(Transfer());
    EXPECT_EQ(CorrectionOf(3), (Values{9, 9, 9, 9}));
    EXPECT_EQ(StatusText(), "Element nicht vorhanden!");
    Enter(5, "10");
    Enter(8, "300");
    Click(Transfer());
    EXPECT_EQ(CorrectionOf(3), (Values{9, 9, 9, 9}));
    Enter(8, "20");
    Click(Transfer());
    EXPECT_EQ(CorrectionOf(3), (Values{10, 0, 0, 20}));
}

TEST_F(ElementPatch, NumberRefusedByTheClickOnTransferKeepsThatClickFromTransferring) {
    StartWithElement(5);
    Show.ColourCorrection[3].Fill(9);
    Enter(5, "7");
    Replace(5, "300");
    Click(Transfer());
    EXPECT_EQ(CorrectionOf(3), (Values{9, 9, 9, 9}));
    EXPECT_EQ(StatusText(), "Werte zwischen 0 und 255 .");
    EXPECT_EQ(Shown(5), "7");
    Replace(1, "0");
    Click(Transfer());
    EXPECT_EQ(CorrectionOf(3), (Values{9, 9, 9, 9}));
    EXPECT_EQ(StatusText(), " Es gibt keinen DMX Kanal 0!");
    Replace(5, "-1");
    Transfer()->click(); // as a screen reader does, without moving the focus
    EXPECT_EQ(CorrectionOf(3), (Values{9, 9, 9, 9}));
    EXPECT_EQ(StatusText(), "Werte zwischen 0 und 255 .");
    Click(Transfer());
    EXPECT_EQ(CorrectionOf(3), (Values{7, 0, 0, 0}));
}

TEST_F(ElementPatch, TransferByKeyAfterARefusedNumberWasLeftGivesWhatStandsThere) {
    StartWithElement(5);
    Enter(8, "7");
    Enter(8, "300");
    EXPECT_TRUE(Transfer()->hasFocus());
    EXPECT_EQ(StatusText(), "Werte zwischen 0 und 255 .");
    Key(Qt::Key_Space);
    EXPECT_EQ(CorrectionOf(3), (Values{0, 0, 0, 7}));
}

TEST_F(ElementPatch, OnlyAValueThatDiffersIsAChangeOfTheConfiguration) {
    StartWithElement(5);
    for (int index = 0; index <= 8; ++index) {
        Click(Text(index));
        Key(Qt::Key_Tab);
    }
    Enter(1, "17");
    Enter(5, "0");
    Click(Transfer());
    EXPECT_FALSE(ConfigChanged());
}

// Hints

TEST_F(ElementPatch, KeysGiveTheHintOfTheirField) {
    StartWithElement(5);
    Show.ChannelCount = 200;
    for (int index = 0; index <= 8; ++index) {
        const std::string hint = index == 0   ? "Elementenr. eingeben und weiter mit TAB "
                                 : index <= 4 ? "Werte zwischen 1 und 200"
                                              : "Werte zwischen 0 und 255 .";
        for (const Qt::Key key : {Qt::Key_1, Qt::Key_Backspace, Qt::Key_Left, Qt::Key_Delete}) {
            Click(Text(index));
            Key(Qt::Key_X); // another text before
            Key(key);
            EXPECT_EQ(StatusText(), hint) << index;
        }
        Key(Qt::Key_X);
        EXPECT_EQ(StatusText(), "Es sind nur Zahlen erlaubt!") << index;
        Key(Qt::Key_Return);
        EXPECT_EQ(StatusText(), "Mit TAB und Shift+TAB Felder wechseln") << index;
        Key(Qt::Key_Period);
        EXPECT_EQ(StatusText(), "Es sind nur Zahlen erlaubt!") << index;
    }
}

TEST_F(ElementPatch, FaultIsStillReadAfterTheTabThatFoundIt) {
    StartWithElement(2);
    Enter(1, "20");
    EXPECT_TRUE(Text(2)->hasFocus());
    EXPECT_EQ(StatusText(), "Kanal ist bereits von Element 5 belegt!");
}

// At the output

TEST_F(ElementPatch, NextFrameGoesOutByTheNewPatchAndCorrection) {
    StartWithElement(5);
    for (int channel = 1; channel <= 4; ++channel)
        Show.ElementValue[5][channel] = static_cast<std::uint8_t>(100 + channel);
    Show.ChannelCount = 512;
    Enter(1, "512");
    Enter(6, "30");
    Enter(7, "200");
    Ticks(1);
    ASSERT_FALSE(Frames.empty());
    const auto& frame = Frames.back();
    EXPECT_EQ(frame.at(511), 101);
    EXPECT_EQ(frame.at(17), 72);
    EXPECT_EQ(frame.at(18), 0); // a correction above the level
    EXPECT_EQ(frame.at(19), 104);
    EXPECT_EQ(frame.at(16), 0);
}

} // namespace quorvane
