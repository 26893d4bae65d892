#include "engine/sequencer.h"
#include "files/colourtable.h"
#include "files/filechoice.h"
#include "files/sequencetext.h"
#include "files/showfiles.h"
#include "files/showfilesave.h"
#include "model/changes.h"
#include "model/screen.h"
#include "model/selection.h"
#include "model/sequence.h"
#include "model/text.h"
#include "model/wall.h"
#include "platform/host.h"
#include "platform/programfolder.h"

#include <algorithm>
#include <exception>
#include <memory>
#include <optional>

namespace quorvane {

namespace {

enum class Phase { Other, Steps };

bool OfAnotherWall(const SequenceHead& head) {
    return head.Elements != Show.ElementCount || head.Columns != Show.WallColumns ||
           head.Rows != Show.WallRows;
}

Answer AskToImport() {
    Host.Beep();
    return Host.MsgBox(
        "Sequenz wurde auf einer Wand mit einer anderen Anzahl an Elementen erstellt. Soll ich "
        "Importieren ?",
        Buttons::YesNoCancel, Show.VersionText + "QUORVANE ", Icon::Question);
}

// A file may bring 254 steps although the editor stops at 250: on purpose. 254 is warned of as well.
void LimitSteps(SequenceHead& head) {
    if (head.Steps < MaxLoadedSteps) return;
    Host.Beep();
    ShowMessage(
        "Fehler beim Laden der Sequenz! Die Datei enthält mehr Sequenzen als in dieser Programmversion "
        "dargestellt werden können! Die Sequenzen werden auf 254 beschränkt.");
    head.Steps = MaxLoadedSteps;
}

void ReadTimesOrDefaults(SectionedText& text, const SequenceHead& head, SequenceContent& content) {
    try {
        ReadTimes(text, head, content);
    } catch (const ReadError&) {
        ShowMessage("Keine Blend- und Haltezeiten gefunden , nehme Standartwerte.");
        DefaultTimes(head, content);
    }
}

void ReadLists(SectionedText& text, const SequenceHead& head, SequenceContent& content, Phase& phase) {
    phase = Phase::Steps;
    if (head.Elements < 0 || head.Elements > MaxElements) throw ReadError("Die Wand ist zu groß.");
    ReadSteps(text, head, content);
    phase = Phase::Other;
    ReadTimesOrDefaults(text, head, content);
    ReadSelections(text, head, content);
}

// The steps as the present wall shows them. Remembered selections do not survive it.
void Convert(const SequenceHead& head, SequenceContent& content) {
    RequireImportSize(head.Columns, head.Rows);
    for (int step = 1; step <= head.Steps; ++step) {
        const Scene source = content.Steps[step];
        MapScene(source, head.Columns, head.Rows, content.Steps[step]);
    }
    content.Selections.Fill({});
}

// Remembered elements beyond the present wall cannot be selected.
void TakeSelections(const SequenceContent& content) {
    for (int slot = 0; slot < SavedSelections; ++slot) {
        Show.Selections[slot] = content.Selections[slot];
        for (int index = Show.ElementCount; index <= 254; ++index) Show.Selections[slot][index] = 0;
    }
}

void TakeOver(const SequenceHead& head, const SequenceContent& content) {
    for (int step = 1; step <= head.Steps; ++step) {
        Show.SequenceSteps[step] = content.Steps[step];
        Show.SequenceTimes[step] = content.Times[step];
    }
    TakeSelections(content);
    Show.StepCount = static_cast<std::uint8_t>(head.Steps);
    Show.CurrentStep = 1;
    Show.TurboFactor = 1;
    Show.StatusFlags.Set(Status::SequenceExists);
}

// Only the elements that the file has take the colours of the first step.
void ShowFirstStep(int elements) {
    std::copy_n(Show.SequenceSteps[1].begin(), elements, Show.ElementValue.begin());
    ShowWallColours();
    RepaintSelection();
    ShowStepFields();
    ShowSequencerField(3, "1");
}

void MarkLoaded(bool converted) {
    Show.ChangeFlags.Put(Change::SequenceNew, converted);
    Show.ChangeFlags.Put(Change::SequenceChanged, converted);
    if (converted) Show.ChangeFlags.Set(Change::SceneChanged);
}

void ShowFileName() { Screen.SequencerCaption("Sequence " + FileNamePart(Show.SequenceFile)); }

void TellLoaded(const FoundFile& file) {
    Show.SequenceFile = file.Path;
    if (file.HasMoved) ShowMessage("Suchpfad der Sequenz hat sich verändert.");
    Screen.WallStatus("Sequenz erfolgreich geladen!");
    ShowFileName();
}

// Gives the head of the loaded sequence; nothing when the load ended without one.
void LoadSequenceFrom(const FoundFile& file, bool byUser, Phase& phase) {
    SectionedText text = ReadSectionedText(PathOf(file.Path));
    SequenceHead head = ReadSequenceHead(text);
    const Answer answer = OfAnotherWall(head) ? AskToImport() : Answer::No;
    if (answer != Answer::Yes && answer != Answer::No) return;
    const bool converts = answer == Answer::Yes;
    LimitSteps(head);
    const auto content = std::make_unique<SequenceContent>();
    ReadLists(text, head, *content, phase);
    if (head.Steps < 1) {
        Host.Beep();
        return ShowMessage("Datei enthielt keine Sequenzerdaten oder ist beschädigt.");
    }
    if (converts && !WallToImportTo()) return;
    if (converts) Convert(head, *content);
    TakeOver(head, *content);
    ShowFirstStep(converts ? Show.ElementCount : head.Elements);
    MarkLoaded(converts);
    if (byUser) LoadNamedColourTable(head.ColourTable);
    TellLoaded(file);
}

void TellFailure(Phase phase) {
    if (phase == Phase::Steps) {
        ShowMessage("Fehler beim Laden der Sequenzdaten.");
    } else {
        ShowMessage("Fehler beim Laden der Sequenz");
        ShowSequencerField(1, "5");
    }
    Show.SequenceFile.clear();
    if (!Show.StatusFlags.Has(Status::SequenceExists)) return;
    // The sequence that is still there has no file any more.
    Show.ChangeFlags.Set(Change::SequenceNew);
    MarkSequenceChanged();
}

} // namespace

void LoadSequence() {
    const bool byUser = !Show.StatusFlags.Has(Status::SaveToCurrentFile);
    const auto chosen = ChooseFileToLoad(SequenceKind, FileNamePart(Show.SequenceFile));
    if (!chosen) return ShowMessage("Fehler beim auswählen der Datei.");
    if (Show.StatusFlags.Has(Status::SequencePlaying)) StopSequence();
    const auto file = FindShowFile(SequenceKind, *chosen);
    if (!file) return ShowMessage("Konnte Sequenz-Datei nicht finden");
    Phase phase = Phase::Other;
    try {
        LoadSequenceFrom(*file, byUser, phase);
    } catch (const std::exception&) {
        TellFailure(phase);
    }
}

bool SaveSequence() {
    if (!Show.StatusFlags.Has(Status::SequenceExists)) {
        Host.Beep();
        ShowMessage("Sie haben noch keine Sequence erstellt!");
        return false;
    }
    if (RefusedWithoutWall()) return false;
    if (!SaveShowFile(SequenceKind, FileNamePart(Show.SequenceFile), SequenceText, Screen.WallStatus))
        return false;
    Show.ChangeFlags.Clear(Change::SequenceNew);
    Show.ChangeFlags.Clear(Change::SequenceChanged);
    Screen.WallStatus("Sequenz erfolgreich abgespeichert.");
    ShowFileName();
    return true;
}

} // namespace quorvane
