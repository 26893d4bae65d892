#include "devices/playunit.h"

#include "devices/isacard.h"
#include "devices/sceneimage.h"
#include "model/colour.h"
#include "model/screen.h"
#include "model/show.h"
#include "model/text.h"
#include "platform/host.h"

#include <array>

namespace quorvane {

namespace {

constexpr int LastImage = 255; // whatever the length of the sequence
constexpr int LastWord = 15;
constexpr int LastSavedWord = 10;
constexpr int SavedBlendField = 16;

std::uint8_t LowByte(int number) { return static_cast<std::uint8_t>(number & 255); }

void SaveParameters() {
    for (int word = 0; word <= LastSavedWord; ++word) Show.SavedDmxIni[word] = LowByte(Show.DmxIni[word]);
    // Saved and never restored, on purpose.
    Show.SavedDmxIni[SavedBlendField] = LowByte(TypedNumber(Show.SequencerField[1]));
}

void RestoreParameters() {
    Show.DmxIni = ParametersToKeep();
    Show.DmxIniDirty = 1;
}

// 512 channels, hardware repeat, no interdigit time, nothing else.
void SetTransferParameters() {
    constexpr std::array<std::int16_t, 4> parameters{0, 1, 0, 0};
    int word = 3;
    for (const std::int16_t value : parameters) Show.DmxIni[word++] = value;
    while (word <= LastWord) Show.DmxIni[word++] = 0;
}

void StopCard() {
    if (Show.InterfaceType == IsaCardB) ClearPort(Show.CardBase);
    if (Show.InterfaceType == IsaCardC) ReadPort(Show.CardBase);
}

void WriteParameters(int image) {
    Show.DmxIni[1] = static_cast<std::int16_t>(image);
    for (int word = 0; word <= LastWord; ++word)
        WriteDpr(Show.CardBase, CardParameters + word, LowByte(Show.DmxIni[word]));
}

void ShowProgress(int image) {
    TickText text;
    if (IsFillImage(image))
        text << "Fülle Lichtbild  mit Null auf  ";
    else if (IsLastSceneImage(image))
        text << "Schreibe letzte Scene (Lichtbild) ";
    else
        text << "Schreibe Scene (Lichtbild) Nr.: ";
    text << image - 1;
    Screen.SequencerStatus(text.View());
}

void WriteImage(int image) {
    const SceneImage bytes = BuildSceneImage(image);
    for (int index = 0; index < ImageBytes; ++index) WriteDpr(Show.CardBase, CardDmx + index, bytes[index]);
}

void EndTransfer() {
    RestoreParameters();
    Show.timSendToMerger.Enabled = false;
    Screen.TransferRuns(false);
    Screen.SequencerStatus("Fertig mit Senden.");
    Show.AutoXmit.Enabled = true;
    Screen.MainCaption(": KMO DMX QUORVANE  ....Transfer complete");
}

void RefuseWithoutCard() {
    for (int index = 0; index < Show.ElementCount; ++index) ShowWallColour(index);
    Host.Beep();
    ShowMessage("Ohne Karte kann nicht gesendet werden.\n"
                "Bitte installieren Sie eine DMX-Interfacekarte 7300B");
}

} // namespace

// Words 11 to 15 were never saved, so that they become 0, on purpose. Word 0 was never changed.
Table<std::int16_t, 0, 15> ParametersToKeep() {
    auto parameters = Show.DmxIni;
    if (Show.timSendToMerger.Enabled)
        for (int word = 1; word <= LastWord; ++word) parameters[word] = Show.SavedDmxIni[word];
    return parameters;
}

void mnuSequenceToMerger_Click() {
    if (Show.timSendToMerger.Enabled) return;
    if (Show.CardBase <= LastBaseWithoutCard) {
        RefuseWithoutCard();
        return;
    }
    if (Show.StatusFlags.Has(Status::SequencePlaying)) {
        ShowMessage("Während eine Sequenz abgespielt wird, kann nicht gesendet werden!");
        return;
    }
    Show.TransferImage = 1;
    SaveParameters();
    Show.AutoXmit.Enabled = false;
    Screen.MainCaption(": KMO DMX QUORVANE  ....stopped: transferring Sequence to PlayUnit");
    SetTransferParameters();
    Show.timSendToMerger.Enabled = true;
    Screen.TransferRuns(true);
}

void timSendToMerger_Timer() {
    if (Show.CardBase <= LastBaseWithoutCard) {
        AbandonTransfer();
        return;
    }
    const int image = Show.TransferImage;
    StopCard();
    WriteParameters(image);
    ShowProgress(image);
    WriteImage(image);
    if (image < LastImage)
        ++Show.TransferImage;
    else
        EndTransfer();
}

void AbandonTransfer() {
    if (!Show.timSendToMerger.Enabled) return;
    RestoreParameters();
    Show.timSendToMerger.Enabled = false;
    Screen.TransferRuns(false);
    Screen.SequencerStatus("Das Senden wurde abgebrochen.");
    // A card that is gone has said so in the caption.
    if (Show.CardBase > LastBaseWithoutCard) Screen.MainCaption(": KMO DMX QUORVANE  ....stopped");
}

} // namespace quorvane
