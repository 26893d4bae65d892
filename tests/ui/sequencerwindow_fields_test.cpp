#include "ui/sequencerwindowbench.h"

namespace quorvane {

using SequencerWindowFields = SequencerWindowBench;

TEST_F(SequencerWindowFields, KeysOnlyAdviseAndLeaveTheValueUntouched) {
    Open();
    MakeSequence(2);
    Type(1, "4");
    EXPECT_EQ(StatusText(), "Nur Werte zwischen 5 und 65534 sind erlaubt.");
    EXPECT_EQ(Shown(1), "4");
    EXPECT_EQ(BlendOf(1), 6);
    QTest::keyClicks(Text(1), "0");
    EXPECT_EQ(StatusText(), ""); // 40 will do
    EXPECT_EQ(BlendOf(1), 6);
}

TEST_F(SequencerWindowFields, AdviceFollowsDeletingOfDigitsToo) {
    Open();
    MakeSequence(2);
    Type(2, "1");
    QTest::keyClick(Text(2), Qt::Key_Backspace);
    EXPECT_EQ(StatusText(), "Nur Werte zwischen 1 und 65534 sind erlaubt.");
}

TEST_F(SequencerWindowFields, AdviceGoesWhenTheTextIsTakenWithoutAWord) {
    Open();
    MakeSequence(2);
    for (const Qt::Key end : {Qt::Key_Tab, Qt::Key_Return}) {
        Type(3, "10001");
        EXPECT_EQ(StatusText(), "Turbofaktor darf zwischen 1 und 10.000 liegen");
        QTest::keyClick(Text(3), end);
        EXPECT_EQ(StatusText(), "");
        EXPECT_EQ(Shown(3), "10001");
    }
}

TEST_F(SequencerWindowFields, AdviceOnATextThatWasUndoneGoesWhenTheFieldIsLeft) {
    Open();
    MakeSequence(2);
    Click(Text(1));
    QTest::keyClicks(Text(1), "x");
    EXPECT_EQ(StatusText(), "Nur Werte zwischen 5 und 65534 sind erlaubt.");
    QTest::keyClick(Text(1), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Shown(1), "6");
    Leave();
    EXPECT_EQ(StatusText(), "");
}

TEST_F(SequencerWindowFields, OtherTextsStayWhenAFieldIsLeft) {
    Open();
    MakeSequence(2);
    Type(2, "9");
    Screen.SequencerStatus("vorher");
    Leave();
    EXPECT_EQ(HoldOf(1), 9);
    EXPECT_EQ(StatusText(), "vorher");
}

TEST_F(SequencerWindowFields, KeysThatTypeNothingAdviseNothing) {
    Open();
    MakeSequence(2);
    Screen.SequencerStatus("vorher");
    Click(Text(1));
    for (const int key : {Qt::Key_Left, Qt::Key_End, Qt::Key_Shift, Qt::Key_F1, Qt::Key_F13})
        QTest::keyClick(Text(1), static_cast<Qt::Key>(key));
    Leave();
    EXPECT_EQ(StatusText(), "vorher");
}

TEST_F(SequencerWindowFields, LeavingAFieldDecides) {
    Open();
    MakeSequence(2);
    Type(1, "4");
    Leave();
    EXPECT_EQ(StatusText(), "Blendzeiten unter 5 sind nicht zulässig");
    EXPECT_EQ(Shown(1), "6");
    Type(1, "5");
    Leave();
    EXPECT_EQ(BlendOf(1), 5);
    EXPECT_EQ(Show.ChangeFlags.bits, 0x28);
}

TEST_F(SequencerWindowFields, EnterDecidesToo) {
    Open();
    MakeSequence(2);
    Confirm(2, "0");
    EXPECT_EQ(StatusText(), "Haltezeiten unter 1 sind nicht zulässig");
    EXPECT_EQ(Shown(2), "3");
    Confirm(2, "1");
    EXPECT_EQ(HoldOf(1), 1);
    Confirm(0, "2");
    EXPECT_EQ(Show.CurrentStep, 2);
    EXPECT_EQ(StatusText(), "Auf Szene Nr 2 gesprungen.");
    Confirm(0, "3");
    EXPECT_EQ(StatusText(), "Szene in der Sequenz nicht vorhanden!");
    EXPECT_EQ(Shown(0), "2");
}

TEST_F(SequencerWindowFields, LeavingAnUntouchedStepFieldDoesNotJump) {
    Open();
    MakeSequence(3);
    Show.HoldCounter = 2;
    Click(Text(0));
    Leave();
    EXPECT_EQ(Show.HoldCounter, 2);
    EXPECT_EQ(StatusText(), "");
}

TEST_F(SequencerWindowFields, ClosingTheWindowDecidesOnTheFieldBeingTypedIn) {
    Open();
    MakeSequence(2);
    Type(2, "9");
    main->Control->parentWidget()->close();
    EXPECT_EQ(HoldOf(1), 9);
}

TEST_F(SequencerWindowFields, WithoutASequenceTheFieldsSaySoAndTimesStay) {
    Open();
    Type(1, "30");
    EXPECT_EQ(StatusText(), "Keine Sequenz.");
    Leave();
    EXPECT_EQ(StatusText(), " Es wurde noch keine Sequenz erstellt.");
    EXPECT_EQ(Shown(1), "30");
}

TEST_F(SequencerWindowFields, PlaybackFollowsInTheFieldsExceptTheOneBeingTypedIn) {
    Open();
    MakeSequence(3);
    SetBlend(2, 60);
    SetHold(2, 30);
    Click(Button(2));
    Type(2, "8");
    Ticks(1); // step 2 is current now
    EXPECT_EQ(Shown(0), "2");
    EXPECT_EQ(Shown(1), "60");
    EXPECT_EQ(Shown(2), "8");
    Leave();
    EXPECT_EQ(HoldOf(2), 8); // the step that the step field names
    EXPECT_EQ(HoldOf(1), 3);
    Ticks(11);
    EXPECT_EQ(Shown(2), "3"); // follows again
}

TEST_F(SequencerWindowFields, RefusedTimeWhilePlayingGivesWayToThatOfTheStepShown) {
    Open();
    MakeSequence(3);
    SetHold(2, 30);
    Click(Button(2));
    Type(2, "0");
    Ticks(1);
    Leave();
    EXPECT_EQ(Shown(2), "30");
}

// Turbo factor

TEST_F(SequencerWindowFields, FactorTakesEffectWhileTheBoxIsTicked) {
    Open();
    MakeSequence(2);
    SetBlend(1, 50);
    SetBlend(2, 50);
    Type(3, "2");
    Leave();
    EXPECT_EQ(Show.TurboFactor, 1);
    Click(Factor());
    EXPECT_EQ(Show.TurboFactor, 2);
    Type(3, "3");
    Leave();
    EXPECT_EQ(Show.TurboFactor, 3);
    Click(Factor());
    EXPECT_EQ(Show.TurboFactor, 1);
}

TEST_F(SequencerWindowFields, FactorThatAStepCannotBearIsCut) {
    Open();
    MakeSequence(1);
    SetHold(1, 5);
    SetBlend(1, 100);
    Click(Factor());
    EXPECT_EQ(Shown(3), "20"); // 100 at the start; the blend time has the last word
    Type(3, "10");
    Leave();
    EXPECT_EQ(Shown(3), "5");
    EXPECT_EQ(Show.TurboFactor, 5);
    EXPECT_EQ(StatusText(), "Kleinstmöglichen Turbo-Faktor errechnet.");
}

TEST_F(SequencerWindowFields, FactorOutOfRangeIsAdvisedAgainstAndRefused) {
    Open();
    MakeSequence(1);
    Click(Factor());
    const std::string before = Shown(3);
    Type(3, "10001");
    EXPECT_EQ(StatusText(), "Turbofaktor darf zwischen 1 und 10.000 liegen");
    Confirm(3, "65535");
    EXPECT_EQ(StatusText(), "Ein Turbofaktor über 65534 ist nicht zulässig");
    EXPECT_EQ(Shown(3), before);
}

} // namespace quorvane
