#include "files/settingsfile.h"

#include "engine/sequencer.h"
#include "files/colourtable.h"
#include "files/configuration.h"
#include "files/filechoice.h"
#include "files/savefile.h"
#include "files/sectionedtext.h"
#include "files/showfiles.h"
#include "files/textwriter.h"
#include "model/screen.h"
#include "model/show.h"
#include "platform/host.h"
#include "platform/programfolder.h"

#include <exception>
#include <optional>

namespace quorvane {

namespace {

constexpr std::string_view DmxIniFailure = "Fehler beim laden der QUORVANE.ini im Abschnitt [DMXINI]";
constexpr std::string_view WindowsFailure = "Fehler beim laden der QUORVANE.ini im Abschnitt [WINDOWSPOS]";
constexpr std::string_view OtherFailure = "Fehler beim Laden der QUORVANE.INI";

void SetIniPath() { Show.IniPath = TextOf(FindInFolder(PathOf(Host.ProgramFolder), "QUORVANE.ini")); }

// Nothing when the file cannot be read at all.
std::optional<SectionedText> ReadIni() {
    try {
        return ReadSectionedText(PathOf(Show.IniPath));
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

template<class Read> void ReadPart(std::string_view failure, Read read) {
    try {
        read();
    } catch (const ReadError&) {
        ShowMessage(failure);
    }
}

// A name is cut at its comma, on purpose.
void ReadFileNames(SectionedText& text) {
    text.FindSectionFromStart("[FILES]");
    Show.ConfigFile = text.Text();
    Show.SceneFile = text.Text();
    Show.SequenceFile = text.Text();
    Show.ColourTableFile = text.Text();
}

void ReadWindowPositions(SectionedText& text) {
    text.FindSectionFromStart("[WINDOWSPOS]");
    for (auto& window : Show.WindowPos)
        for (std::int32_t& value : window) value = text.Value<std::int32_t>();
}

// True when the options were read. What cannot be read is told, and the next section is read.
bool ReadSections(SectionedText& text) {
    bool optionsRead = false;
    ReadPart(DmxIniFailure, [&] {
        text.FindSectionFromStart("[DMXINI]");
        ReadDmxIni(text);
    });
    ReadPart(OtherFailure, [&] {
        text.FindSectionFromStart("[OPTIONS]");
        Show.SavedFlags = static_cast<std::uint32_t>(text.Value<std::int32_t>());
        optionsRead = true;
        text.Field(); // ElementSize is saved but never read back, on purpose
    });
    ReadPart(OtherFailure, [&] { ReadFileNames(text); });
    ReadPart(WindowsFailure, [&] { ReadWindowPositions(text); });
    return optionsRead;
}

bool ReadSettings() {
    SetIniPath();
    Show.DmxIniDirty = 1;
    auto text = ReadIni();
    if (!text) ShowMessage(DmxIniFailure);
    return text && !text->Empty() && ReadSections(*text);
}

bool Saved(Status bit) { return (Show.SavedFlags & static_cast<std::uint32_t>(bit)) != 0; }

// The automatic channel count survives a restart only together with the reload option, on purpose.
void TakeOptions() {
    Show.StatusFlags.Put(Status::ReloadFiles, Saved(Status::ReloadFiles));
    Show.StatusFlags.Put(Status::AutoChannelCount,
                         Saved(Status::ReloadFiles) && Saved(Status::AutoChannelCount));
}

void LoadLastFiles() {
    const CurrentFileOnly lastFiles;
    if (!Show.SequenceFile.empty())
        LoadSequence();
    else if (!Show.SceneFile.empty())
        LoadScene();
    // A table that fails is not tried again at the next start.
    if (!Show.ColourTableFile.empty() && !TryLoadColourTable()) Show.ColourTableFile.clear();
}

void OpenLastWindows() {
    if (Saved(Status::WallWindowOpen)) Screen.OpenWindow(WallWindow);
    if (Saved(Status::ColourWindowOpen)) Screen.OpenWindow(ColourWindow);
    if (Saved(Status::SequencerWindowOpen)) Screen.OpenWindow(SequencerWindow);
    if (Saved(Status::TestWindowOpen)) Screen.OpenWindow(TestWindow);
    if (Saved(Status::ElementWindowOpen)) Screen.OpenWindow(ElementWindow);
    if (Saved(Status::OptionsWindowOpen)) Screen.OpenWindow(OptionsWindow);
}

std::string IniText() {
    TextWriter text;
    text.Line("ini-Datei von QUORVANE 98");
    text.Line("[DMXINI]");
    WriteDmxIni(text);
    text.Line("[OPTIONS]");
    text.Number(static_cast<std::int32_t>(Show.SavedFlags));
    text.Number(Show.ElementSize);
    text.Line("[FILES]");
    text.Line(Show.ConfigFile);
    text.Line(Show.SceneFile);
    text.Line(Show.SequenceFile);
    text.Line(Show.ColourTableFile);
    text.Line("[WINDOWSPOS]");
    for (const auto& window : Show.WindowPos)
        for (const std::int32_t value : window) text.Add(value);
    text.EndList();
    return std::move(text).FileBytes();
}

} // namespace

void LoadINI() {
    const bool optionsRead = ReadSettings();
    if (!Show.ConfigFile.empty()) { // also when reloading is off, on purpose
        const CurrentFileOnly lastFiles;
        LoadConfiguration();
    }
    if (optionsRead) TakeOptions();
    if (Saved(Status::ReloadFiles)) LoadLastFiles();
    AdoptChannelCount();
    if (Saved(Status::ReloadFiles) && Saved(Status::SequencePlaying)) Play();
    Screen.PlaceMain();
    OpenLastWindows();
}

bool SaveINI() {
    if (Show.IniPath.empty()) SetIniPath();
    try {
        SaveFile(PathOf(Show.IniPath), IniText());
        return true;
    } catch (const std::exception&) {
        ShowMessage("Speichern wurde abgebrochen.");
        return false;
    }
}

} // namespace quorvane
