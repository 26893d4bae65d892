#include "files/guard.h"

#include "files/filechoice.h"
#include "files/showfiles.h"
#include "model/show.h"
#include "platform/host.h"

#include <string>

namespace quorvane {

namespace {

Answer Ask(std::string_view text, std::string_view title) {
    return Host.MsgBox(text, Buttons::YesNoCancel, title, Icon::Question);
}

// The question about work that has a file already, which is named on a line of its own.
Answer AskAboutFile(std::string_view text, const std::string& file, std::string_view title) {
    return Ask(std::string(text) + "\n" + file, title);
}

bool SaveCurrent(bool (*save)()) {
    const CurrentFileOnly theOneAskedAbout;
    return save();
}

// True when the caller must stop: the work would be lost although the user did not say No.
bool Stops(Answer answer, bool (*save)()) {
    if (answer == Answer::No) return false;
    return answer != Answer::Yes || !save();
}
bool StopsForFile(Answer answer, bool (*save)()) {
    if (answer == Answer::No) return false;
    return answer != Answer::Yes || !SaveCurrent(save);
}

bool Changed(Change change) { return Show.ChangeFlags.Has(change); }

bool SequenceExists() { return Show.StatusFlags.Has(Status::SequenceExists); }

bool GuardScene() {
    if (Changed(Change::SceneNew) && Changed(Change::SceneChanged) && !SequenceExists() &&
        Stops(
            Ask("Sie haben eine neue Scene erstellt. Wollen Sie sie jetzt abspeichern?", "QUORVANE Security"),
            SaveScene))
        return true;
    // A scene inside a sequence is not asked for.
    if (Show.SceneFile.empty() || !Changed(Change::SceneChanged) || SequenceExists()) return false;
    return StopsForFile(
        AskAboutFile("Sie haben die Scene verändert. Wollen Sie die veränderten Werte in Ihre "
                     "Datei speichern?",
                     Show.SceneFile, "Security"),
        SaveScene);
}

bool GuardNewSequence() {
    const Answer answer =
        Ask("Sie haben eine neue Sequenz erstellt. Wollen Sie sie jetzt abspeichern?", "SAVE OPTIONS");
    if (answer == Answer::No) {
        Show.ChangeFlags.Clear(Change::SceneChanged);
        Show.ChangeFlags.Clear(Change::SequenceNew);
        Show.ChangeFlags.Clear(Change::SequenceChanged);
    }
    return Stops(answer, SaveSequence);
}

bool GuardChangedSequence() {
    const Answer answer =
        AskAboutFile("Sie haben die Sequence verändert. Wollen Sie die veränderten Werte in Ihre "
                     "Datei speichern?",
                     Show.SequenceFile, "SAVE OPTIONS");
    if (answer == Answer::No) {
        Show.ChangeFlags.Clear(Change::SceneChanged);
        Show.ChangeFlags.Clear(Change::SequenceChanged);
    }
    if (StopsForFile(answer, SaveSequence)) return true;
    Show.ChangeFlags.Clear(Change::SequenceNew);
    Show.ChangeFlags.Clear(Change::SequenceChanged);
    return false;
}

// Both questions hang on the mark of the scene as well: changing a sequence changes the live scene.
bool GuardSequence() {
    if (Changed(Change::SceneChanged) && Changed(Change::SequenceNew) && Changed(Change::SequenceChanged) &&
        SequenceExists() && GuardNewSequence())
        return true;
    if (Show.SequenceFile.empty() || !Changed(Change::SceneChanged) || !Changed(Change::SequenceChanged))
        return false;
    return GuardChangedSequence();
}

bool GuardConfiguration() {
    if (Changed(Change::ConfigNew) &&
        Stops(Ask("Sie haben eine neue Wand erstellt. Wollen Sie sie jetzt abspeichern?", "Security"),
              SaveConfiguration))
        return true;
    if (Show.ConfigFile.empty() || !Changed(Change::ConfigChanged)) return false;
    return StopsForFile(
        AskAboutFile("Sie haben die Konfiguration der Wand verändert. Wollen Sie die veränderten Werte "
                     "in Ihre Datei speichern?",
                     Show.ConfigFile, "Security"),
        SaveConfiguration);
}

bool GuardColourTable() {
    if (Changed(Change::ColourTableNew) && Changed(Change::ColourTableChanged) &&
        Stops(Ask("Sie haben eine neue Farbtabelle erstellt. Wollen Sie sie jetzt abspeichern?", "Security"),
              SaveColourTable))
        return true;
    if (Show.ColourTableFile.empty() || !Changed(Change::ColourTableChanged)) return false;
    return StopsForFile(
        AskAboutFile("Sie haben die Farbtabelle verändert. Wollen Sie die veränderten Werte in Ihre "
                     "Datei speichern?",
                     Show.ColourTableFile, "Security"),
        SaveColourTable);
}

} // namespace

bool UnsavedChangesGuard(std::string_view subject) {
    if (subject == "scene") return GuardScene();
    if (subject == "sequence") return GuardSequence();
    if (subject == "config") return GuardConfiguration();
    if (subject == "farbtabelle") return GuardColourTable();
    return false;
}

} // namespace quorvane
