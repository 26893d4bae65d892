#include "bench/samples.h"
#include "bench/stage.h"

#include "engine/sequencerfields.h"
#include "model/sequence.h"

namespace quorvane {

namespace {

class SequencerFields : public Stage {
protected:
    SequencerFields() { MakeWall(2, 1); }

    void MakeSequence(int steps, int current) {
        for (int step = 1; step <= steps; ++step) AddStep(step * 10, 3, 6);
        Show.CurrentStep = static_cast<std::uint8_t>(current);
        Show.ChangeFlags = {};
        ShowStepFields();
        Log.clear();
    }
    std::string Status() const { return LastText("status", "frmControl"); }
};

struct FieldCase {
    int Field;
    const char* Text;
    const char* Says;
};

} // namespace

TEST_F(SequencerFields, EveryTextIsTakenOrRefusedWithItsReason) {
    MakeSequence(3, 1);
    for (const FieldCase& c : std::initializer_list<FieldCase>{
             {StepField, "1", ""},
             {StepField, "3", ""},
             {StepField, " 2 ", ""},
             {StepField, "0", " Bitte geben Sie eine vorhandene Szenen-Nr. ein "},
             {StepField, "", " Bitte geben Sie eine vorhandene Szenen-Nr. ein "},
             {StepField, "4", "Szene in der Sequenz nicht vorhanden!"},
             {StepField, "x", " Es sind nur Zahlen erlaubt. "},
             {BlendField, "4", "Blendzeiten unter 5 sind nicht zulässig"},
             {BlendField, "5", ""},
             {BlendField, "65534", ""},
             {BlendField, "65535", "Blendzeiten über 65534 sind nicht zulässig"},
             {BlendField, "99999999999", "Blendzeiten über 65534 sind nicht zulässig"},
             {BlendField, "5,5", " Es sind nur Zahlen erlaubt. "},
             {HoldField, "0", "Haltezeiten unter 1 sind nicht zulässig"},
             {HoldField, "1", ""},
             {HoldField, "65534", ""},
             {HoldField, "65535", "Haltezeiten über 65534 sind nicht zulässig"},
             {FactorField, "0", "Ein Turbofaktor unter 1 ist nicht zulässig"},
             {FactorField, "1", ""},
             {FactorField, "10001", ""},
             {FactorField, "65534", ""},
             {FactorField, "65535", "Ein Turbofaktor über 65534 ist nicht zulässig"},
         })
        EXPECT_EQ(FaultOfField(c.Field, c.Text), c.Says) << c.Field << " '" << c.Text << "'";
}

TEST_F(SequencerFields, AdviceWhileTypingHasWordsOfItsOwn) {
    MakeSequence(3, 1);
    for (const FieldCase& c : std::initializer_list<FieldCase>{
             {StepField, "1", ""},
             {StepField, "3", ""},
             {StepField, "0", "Scene not contained in Sequence"},
             {StepField, "4", "Scene not contained in Sequence"},
             {BlendField, "4", "Nur Werte zwischen 5 und 65534 sind erlaubt."},
             {BlendField, "x", "Nur Werte zwischen 5 und 65534 sind erlaubt."},
             {BlendField, "5", ""},
             {BlendField, "65534", ""},
             {BlendField, "65535", "Nur Werte zwischen 5 und 65534 sind erlaubt."},
             {HoldField, "0", "Nur Werte zwischen 1 und 65534 sind erlaubt."},
             {HoldField, "1", ""},
             {HoldField, "65534", ""},
             {HoldField, "65535", "Nur Werte zwischen 1 und 65534 sind erlaubt."},
             {FactorField, "0", "Turbofaktor darf zwischen 1 und 10.000 liegen"},
             {FactorField, "1", ""},
             {FactorField, "10000", ""},
             {FactorField, "10001", "Turbofaktor darf zwischen 1 und 10.000 liegen"},
         })
        EXPECT_EQ(AdviceOnField(c.Field, c.Text), c.Says) << c.Field << " '" << c.Text << "'";
}

TEST_F(SequencerFields, WithoutASequenceEveryFieldSaysSo) {
    for (int field = StepField; field <= FactorField; ++field) {
        EXPECT_EQ(AdviceOnField(field, "5"), "Keine Sequenz.");
        EXPECT_EQ(FaultOfField(field, "5"), " Es wurde noch keine Sequenz erstellt.");
    }
}

TEST_F(SequencerFields, ExistingStepIsJumpedTo) {
    MakeSequence(3, 1);
    TakeSequencerField(StepField, "3");
    EXPECT_EQ(Show.CurrentStep, 3);
    EXPECT_EQ(Show.ElementValue[1][1], 30);
    EXPECT_EQ(Status(), "Auf Szene Nr 3 gesprungen.");
}

TEST_F(SequencerFields, StepIsJumpedToWhilePlayingToo) {
    MakeSequence(3, 1);
    Show.StatusFlags.Set(quorvane::Status::SequencePlaying);
    TakeSequencerField(StepField, "2");
    EXPECT_EQ(Show.CurrentStep, 2);
    EXPECT_TRUE(Show.StatusFlags.Has(quorvane::Status::SequencePlaying));
}

TEST_F(SequencerFields, UnknownStepChangesNothingAndThePresentOneComesBack) {
    MakeSequence(3, 2);
    Show.SequencerField[StepField] = "4";
    TakeSequencerField(StepField, "4");
    EXPECT_EQ(Show.CurrentStep, 2);
    EXPECT_EQ(Show.SequencerField[StepField], "2");
}

TEST_F(SequencerFields, TimesAreStoredForTheStepThatTheStepFieldNames) {
    MakeSequence(3, 1);
    ShowSequencerField(StepField, "2");
    TakeSequencerField(BlendField, "40");
    TakeSequencerField(HoldField, "007");
    EXPECT_EQ(BlendOf(2), 40);
    EXPECT_EQ(HoldOf(2), 7);
    EXPECT_EQ(Show.SequencerField[HoldField], "7");
    EXPECT_EQ(BlendOf(1), 6);
    EXPECT_TRUE(Texts("status").empty());
}

TEST_F(SequencerFields, TimesAreStoredForTheCurrentStepWhenTheStepFieldNamesNone) {
    MakeSequence(3, 2);
    int hold = 10;
    for (const char* named : {"", "0", "4", "-1", "x"}) {
        ShowSequencerField(StepField, named);
        TakeSequencerField(HoldField, std::to_string(++hold));
        EXPECT_EQ(HoldOf(2), hold) << named;
        TakeSequencerField(HoldField, "0");
        EXPECT_EQ(Show.SequencerField[HoldField], std::to_string(hold)) << named;
    }
    EXPECT_EQ(HoldOf(1), 3);
    EXPECT_EQ(HoldOf(3), 3);
}

TEST_F(SequencerFields, TimesAboveTheSignedRangeAreStoredAndShownWhole) {
    MakeSequence(1, 1);
    TakeSequencerField(BlendField, "65534");
    TakeSequencerField(HoldField, "40000");
    EXPECT_EQ(BlendOf(1), 65534);
    EXPECT_EQ(HoldOf(1), 40000);
    EXPECT_EQ(Show.SequencerField[HoldField], "40000");
}

TEST_F(SequencerFields, OnlyAnotherTimeMarksTheSequenceChanged) {
    MakeSequence(2, 1);
    TakeSequencerField(BlendField, "6");
    TakeSequencerField(HoldField, "3");
    EXPECT_EQ(Show.ChangeFlags.bits, 0);
    TakeSequencerField(HoldField, "4");
    EXPECT_EQ(Show.ChangeFlags.bits, 0x28);
}

TEST_F(SequencerFields, RefusedTimeGivesWayToTheStoredOne) {
    MakeSequence(2, 2);
    for (const int field : {BlendField, HoldField}) {
        Show.SequencerField[field] = "0";
        TakeSequencerField(field, "0");
    }
    EXPECT_EQ(Show.SequencerField[BlendField], "6");
    EXPECT_EQ(Show.SequencerField[HoldField], "3");
    EXPECT_EQ(Show.ChangeFlags.bits, 0);
}

TEST_F(SequencerFields, WithoutASequenceATimeStaysForTheFirstScene) {
    TakeSequencerField(BlendField, "30");
    EXPECT_EQ(Status(), " Es wurde noch keine Sequenz erstellt.");
    EXPECT_EQ(Show.SequencerField[BlendField], "30");
    TakeSequencerField(StepField, "1");
    EXPECT_EQ(Show.SequencerField[StepField], "");
}

TEST_F(SequencerFields, FactorOfTenIsCutToTheHoldTimeOfFive) {
    AddStep(1, 5, 100);
    TakeTurboFactor("10", true);
    EXPECT_EQ(Show.TurboFactor, 5);
    EXPECT_EQ(Show.SequencerField[FactorField], "5");
    EXPECT_EQ(Status(), "Kleinstmöglichen Turbo-Faktor errechnet.");
}

TEST_F(SequencerFields, DefaultTimesBearTenAtMost) {
    AddStep(1, DefaultHold, DefaultBlend);
    TakeTurboFactor("100", true);
    EXPECT_EQ(Show.TurboFactor, 10);
}

TEST_F(SequencerFields, LastStepThatCannotBearTheFactorHasTheSay) {
    AddStep(1, 3, 50);
    AddStep(1, 5, 50);
    EXPECT_EQ(TurboCandidate(10), 5);
    AddStep(1, 100, 5);
    AddStep(1, 50, 500);
    EXPECT_EQ(TurboCandidate(100), 50); // although the blend time of 5 before it bears 1 only
}

TEST_F(SequencerFields, CandidateIsNeverBelowOne) {
    AddStep(1, 0, 3);
    EXPECT_EQ(TurboCandidate(1), 1);
}

TEST_F(SequencerFields, FactorAboveTenThousandIsTakenWhenTheStepsBearIt) {
    AddStep(1, 20000, 65534);
    TakeTurboFactor("12000", true);
    EXPECT_EQ(Show.TurboFactor, 12000);
}

TEST_F(SequencerFields, StepsShortenedOrRecordedAfterTheFactorAreNotCheckedAgainOnPurpose) {
    AddStep(10, 100, 500);
    ShowSequencerField(StepField, "1");
    TakeTurboFactor("20", true);
    TakeSequencerField(HoldField, "5");
    TakeSequencerField(BlendField, "6");
    AddStep(20, 2, 7);
    EXPECT_EQ(Show.TurboFactor, 20);
    EXPECT_EQ(Show.SequencerField[FactorField], "20");
    for (const int step : {1, 2}) {
        EXPECT_EQ(TurboHoldOf(step), 1);
        EXPECT_EQ(TurboBlendOf(step), 5);
    }
}

TEST_F(SequencerFields, FactorThatIsSwitchedOffIsOnlyChecked) {
    MakeSequence(1, 1);
    TakeTurboFactor("2", false);
    EXPECT_EQ(Show.TurboFactor, 1);
    EXPECT_EQ(Show.SequencerField[FactorField], "2");
    TakeTurboFactor("0", false);
    EXPECT_EQ(Status(), "Ein Turbofaktor unter 1 ist nicht zulässig");
    EXPECT_EQ(Show.SequencerField[FactorField], "1");
}

TEST_F(SequencerFields, WithoutASequenceTheFactorWaitsForTheFirstScene) {
    TakeTurboFactor("2", true);
    EXPECT_EQ(Status(), " Es wurde noch keine Sequenz erstellt.");
    EXPECT_EQ(Show.TurboFactor, 2);
}

TEST_F(SequencerFields, WorkedOutTurboFactors) {
    const auto sample = Sample("258-sequencer");
    int number = 0;
    for (const auto& c : sample.at("turbo")) {
        SCOPED_TRACE(++number);
        Show.StepCount = 0;
        Show.TurboFactor = 1;
        for (const auto& times : c.at("times")) AddStep(0, times.at(0), times.at(1));
        Log.clear();
        TakeTurboFactor(std::to_string(c.at("factor").get<int>()), true);
        EXPECT_EQ(Show.TurboFactor, c.at("after").get<int>());
        EXPECT_EQ(Texts("status"), c.at("text").is_null()
                                       ? std::vector<std::string>{}
                                       : std::vector<std::string>{c.at("text").get<std::string>()});
    }
    EXPECT_GT(number, 30);
}

TEST_F(SequencerFields, WorkedOutFieldTexts) {
    const auto sample = Sample("258-sequencer");
    AddStep(0, 65534, 65534);
    for (const auto& c : sample.at("fields")) {
        SCOPED_TRACE(c.dump());
        const std::string fault(FaultOfField(c.at("index"), c.at("text").get<std::string>()));
        EXPECT_EQ(fault.empty(), c.at("accepted").get<bool>());
        EXPECT_EQ(fault.empty() ? nlohmann::json::array() : nlohmann::json::array({fault}), c.at("texts"));
    }
    EXPECT_EQ(sample.at("fields").size(), 30u);
}

} // namespace quorvane
