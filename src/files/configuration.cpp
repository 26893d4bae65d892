#include "files/configuration.h"

#include "devices/playunit.h"
#include "files/filechoice.h"
#include "files/sectionedtext.h"
#include "files/showfiles.h"
#include "files/showfilesave.h"
#include "files/textwriter.h"
#include "model/screen.h"
#include "model/show.h"
#include "model/text.h"
#include "model/wall.h"
#include "platform/host.h"
#include "platform/programfolder.h"

#include <algorithm>
#include <exception>
#include <utility>

namespace quorvane {

namespace {

enum class Phase { Other, Config, DmxIni, Patching, Correction, Done };

std::string_view Failure(Phase phase) {
    switch (phase) {
    case Phase::Config: return "Fehler beim laden der Konfiguration im Abschnitt [Config]";
    case Phase::DmxIni: return "Fehler beim laden der DMX-Werte in der Konfigurationsdatei";
    case Phase::Patching: return "Fehler beim laden der Patchingtabelle in der Konfigurationsdatei";
    case Phase::Correction: return "Fehler beim laden der Farbkorekturtabelle in der Konfigurationsdatei";
    case Phase::Other:
    case Phase::Done: break;
    }
    return "Fehler beim laden der Konfigurationsdatei";
}

std::uint8_t WallSide(int number) {
    if (number < 0 || number > 255) throw ReadError("Die Wand ist zu groß.");
    return static_cast<std::uint8_t>(number);
}

void ReadName(SectionedText& text) {
    text.FindSection("[NAME]");
    Show.WallName = Padded20(Host.ComposeText(text.Text()));
}

// Gives the element count of the file.
int ReadSizes(SectionedText& text) {
    text.FindSection("[CONFIG]");
    const int elements = text.KeyNumber();
    Show.WallColumns = WallSide(text.KeyNumber());
    Show.WallRows = WallSide(text.KeyNumber());
    Show.WallAreaWidth = text.Value<std::int32_t>();
    Show.WallAreaHeight = text.Value<std::int32_t>();
    Show.ElementSize = text.Value<std::int32_t>();
    return elements;
}

template<class T>
void ReadElementChannels(SectionedText& text, std::string_view section,
                         Table<PerChannel<T>, 1, MaxElements>& table) {
    text.FindSection(section);
    for (int element = 1; element <= Show.ElementCount; ++element)
        for (T& value : table[element]) value = text.Value<T>();
}

template<class T>
void WriteElementChannels(TextWriter& text, std::string_view section,
                          const Table<PerChannel<T>, 1, MaxElements>& table) {
    text.Line(section);
    for (int element = 1; element <= Show.ElementCount; ++element)
        for (const T value : table[element]) text.Add(value);
    text.EndList();
}

std::string ConfigurationText() {
    TextWriter text;
    text.Line("Configuration von QUORVANE 99");
    text.Line("[NAME]");
    text.Line(Show.WallName);
    text.Line("[Config]");
    text.Key("ElementeMax = ", Show.ElementCount);
    text.Key("Xmax = ", Show.WallColumns);
    text.Key("Ymax = ", Show.WallRows);
    text.Number(Show.WallAreaWidth);
    text.Number(Show.WallAreaHeight);
    text.Number(Show.ElementSize);
    text.Line("[DMXINI]");
    WriteDmxIni(text);
    WriteElementChannels(text, "[Patching]", Show.Patch);
    WriteElementChannels(text, "[Farbkorrektur]", Show.ColourCorrection);
    return std::move(text).FileBytes();
}

// What was read into the show so far stays there. The wall is built as soon as its size is known, and
// everything after that is read for the elements that it has.
int ReadConfiguration(SectionedText& text, Phase& phase) {
    ReadName(text);
    phase = Phase::Config;
    const int elements = ReadSizes(text);
    NeueWandLoad();
    phase = Phase::DmxIni;
    text.FindSection("[DMXINI]");
    ReadDmxIni(text);
    phase = Phase::Patching;
    ReadElementChannels(text, "[PATCHING]", Show.Patch);
    phase = Phase::Correction;
    ReadElementChannels(text, "[FARBKORREKTUR]", Show.ColourCorrection);
    phase = Phase::Done;
    return elements;
}

void FinishLoading(const FoundFile& file, int elements) {
    Show.ChangeFlags.Clear(Change::ConfigNew);
    Show.ChangeFlags.Clear(Change::ConfigChanged);
    if (file.HasMoved) ShowMessage("Suchpfad der Configurationsdatei hat sich verändert");
    if (elements == Show.ElementCount) {
        Show.ConfigFile = file.Path;
        Screen.WallStatus("Configuration erfolgreich geladen!");
        return;
    }
    Host.Beep();
    ShowMessage("Fehler beim laden der Konfigurationsdatei ! Anzahl der berechneten Elemente stimmt nicht "
                "überein mit den gespeicherten.");
}

void ShowNewWall() {
    AdoptChannelCount();
    Screen.PatchLoaded();
    const bool byUser = !Show.StatusFlags.Has(Status::SaveToCurrentFile);
    if (byUser && !Show.StatusFlags.Has(Status::WallWindowOpen)) Screen.ShowWall();
}

// Columns and rows go on telling how the elements stand that are there.
void KeepWallShape(std::uint8_t columns, std::uint8_t rows) {
    if (Show.ElementCount == 0) return;
    Show.WallColumns = columns;
    Show.WallRows = rows;
}

void LoadConfigurationFrom(const FoundFile& file) {
    const std::uint8_t columns = Show.WallColumns, rows = Show.WallRows;
    int elements = 0;
    Phase phase = Phase::Other;
    // A message out of the new wall lets time pass while the patch is not read yet: nothing goes out by it.
    const bool clockWasOn = std::exchange(Show.AutoXmit.Enabled, false);
    try {
        SectionedText text = ReadSectionedText(PathOf(file.Path));
        elements = ReadConfiguration(text, phase);
    } catch (const std::exception&) {
        ShowMessage(Failure(phase));
        Show.ConfigFile.clear();
    }
    Show.AutoXmit.Enabled = clockWasOn;
    if (phase == Phase::Config) KeepWallShape(columns, rows);
    if (phase > Phase::Config) ShowNewWall();
    if (phase == Phase::Done) FinishLoading(file, elements);
}

} // namespace

void ReadDmxIni(SectionedText& text) {
    Show.DmxIniDirty = 1;
    for (std::int16_t& word : Show.DmxIni) word = text.Value<std::int16_t>();
}

void WriteDmxIni(TextWriter& text) {
    for (const std::int16_t word : ParametersToKeep()) text.Add(word);
    text.EndList();
}

void AdoptChannelCount() {
    const bool allZero = std::ranges::all_of(Show.DmxIni, [](std::int16_t word) { return word == 0; });
    if (Show.StatusFlags.Has(Status::AutoChannelCount) || allZero) return;
    const int low = Show.DmxIni[3] == 0 ? 256 : Show.DmxIni[3];
    Show.ChannelCount = static_cast<std::int16_t>(std::clamp(Show.DmxIni[4] * 256 + low, 0, DmxChannels));
}

void LoadConfiguration() {
    if (Show.StatusFlags.Has(Status::SequencePlaying))
        return ShowMessage("Während eine Sequenz abgespielt wird, kann nicht geladen werden!");
    const auto chosen = ChooseFileToLoad(ConfigurationKind, "QUORVANE.CFG");
    if (!chosen) return ShowMessage("Fehler beim auswählen der Datei.");
    if (const auto file = FindShowFile(ConfigurationKind, *chosen)) return LoadConfigurationFrom(*file);
    ShowMessage("Die Datei " + *chosen + " konnte nicht gefunden werden.");
    Show.ConfigFile.clear();
}

bool SaveConfiguration() {
    if (RefusedWithoutWall()) return false;
    const std::string name = Show.ConfigFile.empty() ? "QUORVANE.CFG" : FileNamePart(Show.ConfigFile);
    if (!SaveShowFile(ConfigurationKind, name, ConfigurationText, Screen.WallStatus)) return false;
    Show.ChangeFlags.Clear(Change::ConfigNew);
    Show.ChangeFlags.Clear(Change::ConfigChanged);
    Screen.WallStatus("Konfiguration erfolgreich abgespeichert.");
    return true;
}

} // namespace quorvane
