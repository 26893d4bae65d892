#include "engine/sequencer.h"
#include "files/colourtable.h"
#include "files/filechoice.h"
#include "files/sceneimport.h"
#include "files/sectionedtext.h"
#include "files/showfiles.h"
#include "files/showfilesave.h"
#include "files/textwriter.h"
#include "model/screen.h"
#include "model/selection.h"
#include "model/show.h"
#include "model/text.h"
#include "model/wall.h"
#include "platform/host.h"
#include "platform/programfolder.h"

#include <algorithm>
#include <exception>

namespace quorvane {

namespace {

enum class Phase { Other, Values };

struct SceneContent {
    int Columns = 0;
    int Rows = 0;
    int Elements = 0;
    std::string ColourTable;
    Table<PerChannel<std::uint8_t>, 1, 255> Values;
};

int Byte(int number) {
    if (number < 0 || number > 255) throw ReadError("Die Zahl ist zu klein oder zu groß.");
    return number;
}

void ReadHead(SectionedText& text, SceneContent& scene) {
    text.FindSection("[WALL]");
    scene.Columns = Byte(text.KeyNumber());
    scene.Rows = Byte(text.KeyNumber());
    text.FindSection("[OTHERFILES]");
    scene.ColourTable = text.Text();
    text.Field(); // the configuration the scene was made with is not looked at
    text.FindSection("[CONFIG]");
    scene.Elements = Byte(text.KeyNumber());
}

void ReadValues(SectionedText& text, SceneContent& scene) {
    text.FindSection("[VALUES]");
    for (int element = 1; element <= scene.Elements; ++element)
        for (std::uint8_t& level : scene.Values[element]) level = text.Value<std::uint8_t>();
}

bool OfAnotherWall(const SceneContent& scene) {
    return scene.Elements != Show.ElementCount || scene.Columns != Show.WallColumns ||
           scene.Rows != Show.WallRows;
}

Answer AskToImport(const SceneContent& scene) {
    Host.Beep();
    return Host.MsgBox("Scene wurde auf einer Wand mit X= " + Decimal(scene.Columns) +
                           " und Y= " + Decimal(scene.Rows) + " Elementen erstellt. Soll ich Importieren ?",
                       Buttons::YesNoCancel, Show.VersionText + "QUORVANE ", Icon::Question);
}

// Inside an unsaved sequence the mark of the scene belongs to the sequence: without it nobody would be
// asked about the sequence.
void ClearSceneMarks() {
    const bool sequenceUnsaved =
        Show.StatusFlags.Has(Status::SequenceExists) && Show.ChangeFlags.Has(Change::SequenceChanged);
    Show.ChangeFlags.Clear(Change::SceneNew);
    if (!sequenceUnsaved) Show.ChangeFlags.Clear(Change::SceneChanged);
}

void TakeOver(const SceneContent& scene, const FoundFile& file, bool import) {
    std::copy_n(scene.Values.begin(), scene.Elements, Show.ElementValue.begin());
    Show.ImportX = static_cast<std::uint8_t>(scene.Columns);
    Show.ImportY = static_cast<std::uint8_t>(scene.Rows);
    ClearSceneMarks();
    if (import && ImportScene()) {
        Show.ChangeFlags.Set(Change::SceneNew);
        Show.ChangeFlags.Set(Change::SceneChanged);
    }
    Show.SceneFile = file.Path;
    ShowWallColours();
    RepaintSelection();
}

void LoadSceneFrom(const FoundFile& file, bool byUser, Phase& phase) {
    SectionedText text = ReadSectionedText(PathOf(file.Path));
    SceneContent scene;
    ReadHead(text, scene);
    const Answer answer = OfAnotherWall(scene) ? AskToImport(scene) : Answer::No;
    if (answer != Answer::Yes && answer != Answer::No) return;
    if (answer == Answer::Yes) RequireImportSize(scene.Columns, scene.Rows);
    phase = Phase::Values;
    ReadValues(text, scene);
    phase = Phase::Other;
    TakeOver(scene, file, answer == Answer::Yes);
    if (byUser) LoadNamedColourTable(scene.ColourTable);
    if (file.HasMoved) ShowMessage("Suchpfad der Scene hat sich verändert.");
    Screen.WallStatus("Scene " + FileNamePart(file.Path) + " erfolgreich geladen!");
}

// False when the sequencer plays and the user lets it.
bool SequencerStopped() {
    if (!Show.StatusFlags.Has(Status::SequencePlaying)) return true;
    const Answer answer = Host.MsgBox("Sequenzer läuft, darf ich ihn anhalten ?", Buttons::YesNoCancel,
                                      ApplicationTitle, Icon::Question);
    if (answer != Answer::Yes) return false;
    StopSequence();
    return true;
}

std::string SceneText() {
    TextWriter text;
    text.Line("Scene von QUORVANE 99");
    text.Line("[Config]");
    text.Key("ElementeMax = ", Show.ElementCount);
    text.Line("[WALL]");
    text.Key("Xmax = ", Show.WallColumns);
    text.Key("Ymax = ", Show.WallRows);
    text.Line("[OTHERFILES]");
    text.Line(Show.ColourTableFile);
    text.Line(Show.ConfigFile);
    text.Line("[VALUES]");
    for (int element = 1; element <= Show.ElementCount; ++element)
        for (const std::uint8_t level : Show.ElementValue[element]) text.Add(level);
    text.EndList();
    return std::move(text).FileBytes();
}

} // namespace

void LoadScene() {
    if (!SequencerStopped()) return;
    const bool byUser = !Show.StatusFlags.Has(Status::SaveToCurrentFile);
    const auto chosen = ChooseFileToLoad(SceneKind, "*.QSC");
    if (!chosen) return ShowMessage("Fehler beim auswählen der Datei.");
    const auto file = FindShowFile(SceneKind, *chosen);
    if (!file) return ShowMessage("Konnte Scenendatei nicht finden");
    Phase phase = Phase::Other;
    try {
        LoadSceneFrom(*file, byUser, phase);
    } catch (const std::exception&) {
        ShowMessage(phase == Phase::Values ? "Fehler beim laden der Scenenwerte."
                                           : "Fehler beim laden der Scene!");
    }
}

bool SaveScene() {
    if (RefusedWithoutWall()) return false;
    const bool inSequence = Show.StatusFlags.Has(Status::SequenceExists);
    const std::string name = inSequence ? "*.qsc" : FileNamePart(Show.SceneFile);
    if (!SaveShowFile(SceneKind, name, SceneText, Screen.WallStatus)) return false;
    ClearSceneMarks();
    Screen.WallStatus("Scene erfolgreich abgespeichert.");
    return true;
}

} // namespace quorvane
