#include "files/guard.h"

#include "files/filesbench.h"
#include "files/showfiles.h"

namespace quorvane {

class Guard : public FilesBench {
protected:
    void SetUp() override { MakeReferenceWall(); }
    void HaveSequence() {
        Show.StatusFlags.Set(Status::SequenceExists);
        Show.StepCount = 1;
    }
    void NameEverything() {
        Show.ConfigFile = Path("wand.CFG");
        Show.SceneFile = Path("abend.QSC");
        Show.SequenceFile = Path("abend.QSQ");
        Show.ColourTableFile = Path("bunt.QCT");
    }
};

const std::string NewScene = "Sie haben eine neue Scene erstellt. Wollen Sie sie jetzt abspeichern?";
const std::string NewSequence = "Sie haben eine neue Sequenz erstellt. Wollen Sie sie jetzt abspeichern?";
const std::string NewWall = "Sie haben eine neue Wand erstellt. Wollen Sie sie jetzt abspeichern?";
const std::string NewTable = "Sie haben eine neue Farbtabelle erstellt. Wollen Sie sie jetzt abspeichern?";
const std::string ChangedScene =
    "Sie haben die Scene verändert. Wollen Sie die veränderten Werte in Ihre Datei speichern?";
const std::string ChangedSequence =
    "Sie haben die Sequence verändert. Wollen Sie die veränderten Werte in Ihre Datei speichern?";
const std::string ChangedWall = "Sie haben die Konfiguration der Wand verändert. Wollen Sie die veränderten "
                                "Werte in Ihre Datei speichern?";
const std::string ChangedTable =
    "Sie haben die Farbtabelle verändert. Wollen Sie die veränderten Werte in Ihre Datei speichern?";

enum class Dialog { None, Chosen, Cancelled };

struct GuardCase {
    std::string Name;
    std::string Subject;
    std::uint16_t Marks;
    bool HasFile;
    bool HasSequence;
    std::vector<std::string> Questions; // with a file, a changed one is followed by its path
    std::vector<Answer> Given;
    Dialog Asked;
    bool Stops;
    std::uint16_t MarksAfter;
};

class GuardTable : public Guard, public testing::WithParamInterface<GuardCase> {
protected:
    std::string FileOfSubject() const {
        if (GetParam().Subject == "config") return Path("wand.CFG");
        if (GetParam().Subject == "scene") return Path("abend.QSC");
        return GetParam().Subject == "sequence" ? Path("abend.QSQ") : Path("bunt.QCT");
    }
    TextList ExpectedQuestions() const {
        TextList questions;
        for (const std::string& text : GetParam().Questions) {
            const bool changed = text.find("verändert") != std::string::npos;
            questions.push_back(changed ? text + "\n" + FileOfSubject() : text);
        }
        return questions;
    }
};

TEST_P(GuardTable, AsksSavesAndStopsAsItsMarksSay) {
    if (GetParam().HasFile) NameEverything();
    if (GetParam().HasSequence) HaveSequence();
    Show.ChangeFlags.bits = GetParam().Marks;
    Answers.assign(GetParam().Given.begin(), GetParam().Given.end());
    if (GetParam().Asked == Dialog::Chosen) ChosenFiles.push_back(Path("neu.X"));
    if (GetParam().Asked == Dialog::Cancelled) ChosenFiles.push_back(std::nullopt);
    EXPECT_EQ(UnsavedChangesGuard(GetParam().Subject), GetParam().Stops);
    EXPECT_EQ(Questions(), ExpectedQuestions());
    EXPECT_EQ(Show.ChangeFlags.bits, GetParam().MarksAfter);
    EXPECT_EQ(Exists("neu.X"), GetParam().Asked == Dialog::Chosen);
    EXPECT_FALSE(Show.StatusFlags.Has(Status::SaveToCurrentFile));
}

constexpr Answer Yes = Answer::Yes, No = Answer::No, Cancel = Answer::Cancel;
constexpr Dialog None = Dialog::None, Chosen = Dialog::Chosen, Cancelled = Dialog::Cancelled;

// 0xFF: all marks are set, so that what is not the subject's must stay.
INSTANTIATE_TEST_SUITE_P(
    Scene, GuardTable,
    testing::Values(
        GuardCase{"Unmarked", "scene", 0, true, false, {}, {}, None, false, 0},
        GuardCase{"NewYes", "scene", 0xFF, false, false, {NewScene}, {Yes}, Chosen, false, 0xF3},
        GuardCase{"NewYesThenDialogCancelled",
                  "scene",
                  0xFF,
                  false,
                  false,
                  {NewScene},
                  {Yes},
                  Cancelled,
                  true,
                  0xFF},
        GuardCase{"NewNo", "scene", 0xFF, false, false, {NewScene}, {No}, None, false, 0xFF},
        GuardCase{"NewCancel", "scene", 0xFF, false, false, {NewScene}, {Cancel}, None, true, 0xFF},
        GuardCase{"NewNoWithOldFileAsksTwice",
                  "scene",
                  0xFF,
                  true,
                  false,
                  {NewScene, ChangedScene},
                  {No, No},
                  None,
                  false,
                  0xFF},
        GuardCase{"NewNoThenYes",
                  "scene",
                  0xFF,
                  true,
                  false,
                  {NewScene, ChangedScene},
                  {No, Yes},
                  None,
                  false,
                  0xF3},
        GuardCase{"NewOnly", "scene", 0x04, true, false, {}, {}, None, false, 0x04},
        GuardCase{"ChangedYes", "scene", 0xFB, true, false, {ChangedScene}, {Yes}, None, false, 0xF3},
        GuardCase{"ChangedNo", "scene", 0xFB, true, false, {ChangedScene}, {No}, None, false, 0xFB},
        GuardCase{"ChangedCancel", "scene", 0xFB, true, false, {ChangedScene}, {Cancel}, None, true, 0xFB},
        GuardCase{"ChangedWithoutFile", "scene", 0x08, false, false, {}, {}, None, false, 0x08},
        GuardCase{"InsideASequence", "scene", 0xFF, true, true, {}, {}, None, false, 0xFF}),
    [](const auto& parameter) { return parameter.param.Name; });

INSTANTIATE_TEST_SUITE_P(
    Sequence, GuardTable,
    testing::Values(
        GuardCase{"Unmarked", "sequence", 0, true, true, {}, {}, None, false, 0},
        GuardCase{"NewYes", "sequence", 0xFF, false, true, {NewSequence}, {Yes}, Chosen, false, 0xCF},
        GuardCase{"NewYesThenDialogCancelled",
                  "sequence",
                  0xFF,
                  false,
                  true,
                  {NewSequence},
                  {Yes},
                  Cancelled,
                  true,
                  0xFF},
        GuardCase{
            "NewNoClearsAllThree", "sequence", 0xFF, true, true, {NewSequence}, {No}, None, false, 0xC7},
        GuardCase{"NewCancel", "sequence", 0xFF, false, true, {NewSequence}, {Cancel}, None, true, 0xFF},
        GuardCase{"NewWithoutSequence", "sequence", 0xFF, false, false, {}, {}, None, false, 0xFF},
        GuardCase{"ChangedYes", "sequence", 0xEF, true, true, {ChangedSequence}, {Yes}, None, false, 0xCF},
        GuardCase{"ChangedNo", "sequence", 0xEF, true, true, {ChangedSequence}, {No}, None, false, 0xC7},
        GuardCase{
            "ChangedCancel", "sequence", 0xEF, true, true, {ChangedSequence}, {Cancel}, None, true, 0xEF},
        GuardCase{"ChangedWithoutMarkOfTheScene", "sequence", 0x20, true, true, {}, {}, None, false, 0x20},
        GuardCase{"SceneOnly", "sequence", 0x08, true, true, {}, {}, None, false, 0x08},
        GuardCase{"ChangedWithoutFile", "sequence", 0x28, false, true, {}, {}, None, false, 0x28}),
    [](const auto& parameter) { return parameter.param.Name; });

INSTANTIATE_TEST_SUITE_P(
    Config, GuardTable,
    testing::Values(
        GuardCase{"Unmarked", "config", 0, true, false, {}, {}, None, false, 0},
        GuardCase{"NewYes", "config", 0xFF, false, false, {NewWall}, {Yes}, Chosen, false, 0xFC},
        GuardCase{
            "NewYesWithOldFileAsksOnce", "config", 0xFF, true, false, {NewWall}, {Yes}, Chosen, false, 0xFC},
        GuardCase{"NewYesThenDialogCancelled",
                  "config",
                  0xFF,
                  false,
                  false,
                  {NewWall},
                  {Yes},
                  Cancelled,
                  true,
                  0xFF},
        GuardCase{"NewNo", "config", 0xFF, false, false, {NewWall}, {No}, None, false, 0xFF},
        GuardCase{"NewNoWithOldFileAsksTwice",
                  "config",
                  0xFF,
                  true,
                  false,
                  {NewWall, ChangedWall},
                  {No, No},
                  None,
                  false,
                  0xFF},
        GuardCase{"NewCancel", "config", 0x01, false, false, {NewWall}, {Cancel}, None, true, 0x01},
        GuardCase{"ChangedYes", "config", 0xFE, true, false, {ChangedWall}, {Yes}, None, false, 0xFC},
        GuardCase{"ChangedNo", "config", 0xFE, true, false, {ChangedWall}, {No}, None, false, 0xFE},
        GuardCase{"ChangedCancel", "config", 0xFE, true, false, {ChangedWall}, {Cancel}, None, true, 0xFE},
        GuardCase{"ChangedWithoutFile", "config", 0x02, false, false, {}, {}, None, false, 0x02}),
    [](const auto& parameter) { return parameter.param.Name; });

INSTANTIATE_TEST_SUITE_P(
    ColourTable, GuardTable,
    testing::Values(
        GuardCase{"Unmarked", "farbtabelle", 0, true, false, {}, {}, None, false, 0},
        GuardCase{"NewYes", "farbtabelle", 0xFF, false, false, {NewTable}, {Yes}, Chosen, false, 0x3F},
        GuardCase{"NewYesThenDialogCancelled",
                  "farbtabelle",
                  0xFF,
                  false,
                  false,
                  {NewTable},
                  {Yes},
                  Cancelled,
                  true,
                  0xFF},
        GuardCase{"NewNo", "farbtabelle", 0xFF, false, false, {NewTable}, {No}, None, false, 0xFF},
        GuardCase{"NewNoWithOldFileAsksTwice",
                  "farbtabelle",
                  0xFF,
                  true,
                  false,
                  {NewTable, ChangedTable},
                  {No, Cancel},
                  None,
                  true,
                  0xFF},
        GuardCase{"NewOnly", "farbtabelle", 0x40, true, false, {}, {}, None, false, 0x40},
        GuardCase{"ChangedYes", "farbtabelle", 0xBF, true, false, {ChangedTable}, {Yes}, None, false, 0x3F},
        GuardCase{"ChangedNo", "farbtabelle", 0xBF, true, false, {ChangedTable}, {No}, None, false, 0xBF},
        GuardCase{
            "ChangedCancel", "farbtabelle", 0xBF, true, false, {ChangedTable}, {Cancel}, None, true, 0xBF},
        GuardCase{"ChangedWithoutFile", "farbtabelle", 0x80, false, false, {}, {}, None, false, 0x80}),
    [](const auto& parameter) { return parameter.param.Name; });

TEST_F(Guard, HasTheDescribedTitles) {
    NameEverything();
    const auto titles = [this](const std::string& subject) {
        Show.ChangeFlags.bits = 0xFF;
        Answers = {Answer::No};
        if (subject != "sequence") Answers.push_back(Answer::No);
        Log.clear();
        UnsavedChangesGuard(subject);
        TextList found;
        for (const Noticed& entry : Log)
            if (entry.Kind == "question") found.push_back(entry.Title);
        return found;
    };
    EXPECT_EQ(titles("scene"), (TextList{"QUORVANE Security", "Security"}));
    EXPECT_EQ(titles("config"), (TextList{"Security", "Security"}));
    EXPECT_EQ(titles("farbtabelle"), (TextList{"Security", "Security"}));
    HaveSequence();
    EXPECT_EQ(titles("sequence"), TextList{"SAVE OPTIONS"});
    Show.ChangeFlags.bits = 0x28;
    Answers = {Answer::Cancel};
    UnsavedChangesGuard("sequence");
    EXPECT_EQ(Log.back().Title, "SAVE OPTIONS");
}

TEST_F(Guard, YesForAChangedFileWritesThatFileWithoutADialog) {
    NameEverything();
    Show.ChangeFlags.bits = 0x08;
    Show.ElementValue[1][1] = 77;
    Answers = {Answer::Yes};
    EXPECT_FALSE(UnsavedChangesGuard("scene"));
    EXPECT_TRUE(FileQuestions.empty());
    EXPECT_NE(Read("abend.QSC").find("\r\n 77, 0, 0, 0, 0"), std::string::npos);
}

TEST_F(Guard, StopsWhenTheSaveAfterYesFails) {
    for (const std::string subject : {"scene", "config", "farbtabelle", "sequence"}) {
        Show.ConfigFile = Show.SceneFile = Show.SequenceFile = Show.ColourTableFile = Path("fehlt/x");
        if (subject == "sequence") HaveSequence();
        Show.ChangeFlags.bits = 0xAA;
        Answers = {Answer::Yes};
        EXPECT_TRUE(UnsavedChangesGuard(subject)) << subject;
        EXPECT_EQ(WallStatus(), "Speichern wurde abgebrochen.");
        EXPECT_EQ(Show.ChangeFlags.bits, 0xAA);
        EXPECT_FALSE(Show.StatusFlags.Has(Status::SaveToCurrentFile));
    }
}

TEST_F(Guard, KnowsNoOtherSubject) {
    NameEverything();
    Show.ChangeFlags.bits = 0xFF;
    for (const std::string subject : {"", "Scene", "konfig", "all"})
        EXPECT_FALSE(UnsavedChangesGuard(subject));
    EXPECT_TRUE(Questions().empty());
}

TEST_F(Guard, StillAsksForAnUnsavedSequenceAfterASceneWasSaved) {
    HaveSequence();
    Show.ChangeFlags.bits = 0x38;
    ChosenFiles.push_back(Path("abend.QSC"));
    EXPECT_TRUE(SaveScene());
    Answers = {Answer::Cancel};
    EXPECT_TRUE(UnsavedChangesGuard("sequence"));
}

} // namespace quorvane
