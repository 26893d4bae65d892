#include "devices/cardimages.h"

#include "devices/memorycard.h"
#include "devices/sceneimage.h"
#include "model/screen.h"
#include "model/show.h"
#include "model/text.h"
#include "platform/host.h"

#include <algorithm>

namespace quorvane {

namespace {

bool GivenUp() { return Show.MemCardAbort != 0; }

// Lets events run between the slices of work, and shows how far it has come.
class CardWork {
public:
    explicit CardWork(std::int32_t bytes) : all(bytes) { Screen.MemCardProgress(0, all); }

    // False when the work is given up. address is the byte that is next.
    bool GoesOn(std::int32_t address) {
        constexpr double slice = 0.004; // seconds
        if (Host.Seconds() - sliceStart < slice) return !GivenUp();
        Screen.MemCardProgress(address, all);
        if (!Host.ServeEvents()) Show.MemCardAbort = MemCardLeft;
        sliceStart = Host.Seconds();
        return !GivenUp();
    }

private:
    std::int32_t all;
    double sliceStart = Host.Seconds();
};

void ShowImage(int image) {
    TickText text;
    if (IsFillImage(image))
        text << "Fülle Lichtbild  mit Null auf  ";
    else if (IsLastSceneImage(image))
        text << "Schreibe letzte Szene (Lichtbild) ";
    else
        text << "Schreibe Szene (Lichtbild) Nr.: ";
    text << image - 1;
    Screen.MemCardImage(text);
}

// Calls take(address, byte) for every byte of the images until it says no. Returns the address behind the
// last one that was taken.
template<class Take> std::int32_t EachByte(int images, void (*show)(int), Take take) {
    CardWork work(images * ImageBytes);
    for (int image = 1; image <= images; ++image) {
        if (GivenUp()) return (image - 1) * ImageBytes;
        show(image);
        const SceneImage bytes = BuildSceneImage(image);
        for (int index = 0; index < ImageBytes; ++index) {
            const std::int32_t address = (image - 1) * ImageBytes + index;
            if (!work.GoesOn(address) || !take(address, bytes[index])) return address;
        }
    }
    Screen.MemCardProgress(images * ImageBytes, images * ImageBytes);
    return images * ImageBytes;
}

bool MayWriteInPart(int images) {
    if (Show.StepCount <= images || GivenUp()) return true;
    return Host.MsgBox("Sequenz kann nicht komplett auf die Memorykarte gespeichert werden.Soll so ich bis " +
                           Decimal(images) + " Scenen abspeichern?",
                       Buttons::YesNo, "SAVE OPTIONS", Icon::Question) == Answer::Yes;
}

void WriteImages(int images) {
    const std::int32_t end = EachByte(images, ShowImage, [](std::int32_t address, std::uint8_t byte) {
        MemWrite(address, byte);
        return !GivenUp();
    });
    Screen.MemCardStatus(
        (GivenUp() ? "Abbruch beim Schreiben. Bis Adresse " : "Fertig mit Schreiben. Bis Adresse ") +
        Decimal(end) + " geschrieben.");
}

// A window that is being closed asks nothing any more.
void TellNoCard() {
    if (Show.MemCardSize >= 1 || Show.MemCardAbort == MemCardLeft) return;
    ShowMessage(" Keine Memorykarte gefunden. Überprüfen Sie die Memoryramcard und die E/A Adresse der "
                "Schnittstellenkarte . E/A = " +
                Decimal(Show.MemCardBase));
}

std::string SceneName(int image) {
    if (IsFillImage(image)) return "Lichtbild mit Null " + Decimal(image - 1);
    if (IsLastSceneImage(image)) return "letzte Szene";
    return "Szene " + Decimal(image);
}

std::string PlaceInImage(int index) {
    if (index < ImageBlendTime) return "DMX-Kanal " + Decimal(index + 1);
    if (index < ImageHoldTime) return "Blendezeit";
    if (index < ImageMarker - 1) return "Haltezeit";
    return "Kennbyte";
}

std::string DifferenceText(std::int32_t address, std::uint8_t onCard) {
    const int image = address / ImageBytes + 1;
    const int index = address % ImageBytes;
    return "Erster Unterschied bei Adresse " + Decimal(address) + " (" + SceneName(image) + ", " +
           PlaceInImage(index) + "): auf der Karte " + Decimal(onCard) + ", in der Sequenz " +
           Decimal(BuildSceneImage(image)[index]) + ".";
}

std::string RightAligned(std::int32_t number, std::size_t width) {
    const std::string digits = Decimal(number);
    return std::string(width - std::min(width, digits.size()), ' ') + digits;
}

} // namespace

// Thresholds of decimal thousands, on purpose: every card passes its own.
int MemCardImages(std::int32_t size) {
    if (size <= 32000) return 0;
    int images = 60;
    for (const std::int32_t threshold : {64000, 128000, 256000, 512000, 1024000})
        if (size > threshold) images *= 2;
    return images;
}

void WriteMemCard() {
    if (!SearchMemCard()) {
        TellNoCard();
        return;
    }
    WaitForMemCard(0.5);
    Screen.MemCardStatus("Schreibe Daten in Memory Karte");
    WaitForMemCard(0.1);
    const int images = MemCardImages(Show.MemCardSize);
    if (MayWriteInPart(images))
        WriteImages(images);
    else
        Screen.MemCardStatus("Schreiben wurde abgebrochen!");
}

std::optional<std::int32_t> CompareMemCard() {
    if (!SearchMemCard()) return {};
    Screen.MemCardStatus("Die Memorykarte wird mit der Sequenz verglichen ...");
    const int images = MemCardImages(Show.MemCardSize);
    std::uint8_t onCard = 0;
    bool same = true;
    const std::int32_t end = EachByte(
        images, [](int) {},
        [&](std::int32_t address, std::uint8_t byte) {
            onCard = MemRead(address);
            return same = onCard == byte;
        });
    if (GivenUp())
        Screen.MemCardStatus("Vergleich abgebrochen. Bis Adresse " + Decimal(end) + " kein Unterschied.");
    else if (same)
        Screen.MemCardStatus("Die Memorykarte stimmt mit der Sequenz überein. Bis Adresse " + Decimal(end) +
                             " verglichen.");
    else
        Screen.MemCardStatus(DifferenceText(end, onCard));
    return same ? std::nullopt : std::optional(end);
}

std::string ReadMemCardRow(std::int32_t address) {
    std::string row = "Adr" + RightAligned(address, 7);
    const std::int32_t end = std::min(address + MemCardRowBytes, Show.MemCardSize);
    for (std::int32_t byte = address; byte < end; ++byte) row += " :" + RightAligned(MemRead(byte), 3);
    return row;
}

} // namespace quorvane
