#include "files/colourtable.h"

#include "files/filechoice.h"
#include "files/sectionedtext.h"
#include "files/showfiles.h"
#include "files/showfilesave.h"
#include "files/textwriter.h"
#include "model/changes.h"
#include "model/screen.h"
#include "model/show.h"
#include "model/text.h"
#include "platform/host.h"
#include "platform/programfolder.h"

#include <exception>
#include <filesystem>
#include <optional>
#include <system_error>

namespace quorvane {

namespace {

constexpr int UserColours = 20;

struct ColourTable {
    Table<PerChannel<std::uint8_t>, 1, UserColours> Colours;
    Table<std::string, 1, UserColours> Names;
};

// Nothing when the file was made for another number of colours.
std::optional<ColourTable> ReadColourTable(SectionedText& text) {
    text.FindSection("[CONFIG]");
    if (text.KeyNumber() != UserColours) return std::nullopt;
    ColourTable table;
    text.FindSection("[VALUES]");
    for (auto& colour : table.Colours)
        for (std::uint8_t& value : colour) value = text.Value<std::uint8_t>();
    text.FindSection("[NAMES]");
    for (std::string& name : table.Names) name = Padded20(Host.ComposeText(text.Text()));
    return table;
}

std::string ColourTableText() {
    TextWriter text;
    text.Line("Farbtabelle von QUORVANE 99");
    text.Line("[Config]");
    text.Key("UserColors = ", UserColours);
    text.Line("[VALUES]");
    for (const auto& colour : Show.UserColour)
        for (const std::uint8_t value : colour) text.Add(value);
    text.EndList();
    text.Line("[Names]");
    for (const std::string& name : Show.UserColourName) text.Add(name);
    text.EndList();
    return std::move(text).FileBytes();
}

// The scene or sequence that names the table names the wrong path now.
void TellMovedTable() {
    if (Show.StatusFlags.Has(Status::SequenceExists)) {
        ShowMessage(
            "Der Suchpfad  der Farbtabelle hat sich verändert. Bitte speichern Sie die Sequenz neu ab.");
        MarkSequenceChanged();
    } else {
        ShowMessage(
            "Der Suchpfad  der Farbtabelle hat sich verändert. Bitte speichern Sie die Szene neu ab.");
        Show.ChangeFlags.Set(Change::SceneChanged);
    }
}

void TakeOver(const ColourTable& table, const FoundFile& file) {
    Show.UserColour = table.Colours;
    Show.UserColourName = table.Names;
    Show.ColourTableFile = file.Path;
    if (file.HasMoved) TellMovedTable();
    Show.ChangeFlags.Clear(Change::ColourTableNew);
    Show.ChangeFlags.Clear(Change::ColourTableChanged);
    if (Show.StatusFlags.Has(Status::ColourWindowOpen))
        Screen.ColourStatus("Farbtabelle erfolgreich geladen!");
    Screen.ColourTableLoaded();
}

bool IsCurrent(const std::string& path) {
    std::error_code noSuchFile;
    return std::filesystem::equivalent(PathOf(path), PathOf(Show.ColourTableFile), noSuchFile);
}

bool LoadColourTableFrom(const FoundFile& file) {
    try {
        SectionedText text = ReadSectionedText(PathOf(file.Path));
        if (const auto table = ReadColourTable(text)) {
            TakeOver(*table, file);
            return true;
        }
        ShowMessage(
            "Fehler beim Laden der Farbtabelle! Beim Erstellen der Datei wurde eine andere Anzahl an Farben "
            "benutzt.");
    } catch (const std::exception&) {
        ShowMessage("Fehler beim laden der Farbtabelle");
    }
    return false;
}

} // namespace

bool TryLoadColourTable() {
    const auto chosen = ChooseFileToLoad(ColourTableKind, "*.QCT");
    if (!chosen) {
        ShowMessage("Abbruch beim angeben eines Dateinamens");
        return false;
    }
    if (const auto file = FindShowFile(ColourTableKind, *chosen)) return LoadColourTableFrom(*file);
    ShowMessage("Konnte Farbtabelle nicht finden");
    return false;
}

void LoadNamedColourTable(const std::string& path) {
    if (path.empty() || Show.ChangeFlags.Has(Change::ColourTableChanged)) return;
    const auto file = FindShowFile(ColourTableKind, path);
    if (file && !IsCurrent(file->Path)) LoadColourTableFrom(*file);
}

void LoadColourTable() { TryLoadColourTable(); }

bool SaveColourTable() {
    const auto& status =
        Show.StatusFlags.Has(Status::ColourWindowOpen) ? Screen.ColourStatus : Screen.WallStatus;
    if (!SaveShowFile(ColourTableKind, FileNamePart(Show.ColourTableFile), ColourTableText, status))
        return false;
    Show.ChangeFlags.Clear(Change::ColourTableNew);
    Show.ChangeFlags.Clear(Change::ColourTableChanged);
    Screen.ColourTableLoaded();
    status("Farbtabelle erfolgreich abgespeichert.");
    return true;
}

} // namespace quorvane
