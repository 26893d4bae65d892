#include "devices/memorycard.h"

#include "model/screen.h"
#include "model/show.h"
#include "model/text.h"
#include "platform/host.h"

namespace quorvane {

namespace {

constexpr int ControlPort = 3;
constexpr std::uint8_t Probe = 170;
constexpr std::uint8_t OtherProbe = 85;

bool GivenUp() { return Show.MemCardAbort != 0; }

void LatchAddress(std::int32_t address) {
    Host.vbWRAMC(Show.MemCardBase + 1, address % 256);
    Host.vbWRAMC(Show.MemCardBase + 2, address / 256 % 256);
    Host.vbWRAMC(Show.MemCardBase + ControlPort, address / 65536);
}

std::uint8_t ReadLatched() { return static_cast<std::uint8_t>(Host.vbRRAMC(Show.MemCardBase)); }

void ShowAttempt(std::int32_t address, int attempt) {
    TickText text;
    text << "Adresse " << address << ", Versuch Nr.:" << attempt;
    Screen.MemCardImage(text);
}

// Whether writing goes on after this attempt has failed.
bool TryAgain(std::int32_t address, int attempt) {
    constexpr int silentAttempts = 19;
    if (attempt < silentAttempts) return true;
    const Answer answer = Host.MsgBox("Fehler beim Schreiben von Adresse " + Decimal(address) +
                                          " Versuch Nr.:" + Decimal(attempt),
                                      Buttons::AbortRetryIgnore, ApplicationTitle, Icon::Exclamation);
    const bool giveUp = answer != Answer::Retry && answer != Answer::Ignore;
    if (giveUp && !GivenUp()) Show.MemCardAbort = MemCardGivenUp;
    return answer == Answer::Retry;
}

// Doubles the size until writing behind the end of the card shows at its start. Address 0 holds OtherProbe.
// Given up, the size that it has come to stays, on purpose.
void FindSize(std::uint8_t first) {
    std::int32_t& size = Show.MemCardSize;
    for (size = SmallestMemCard; size <= LargestMemCard && !GivenUp(); size *= 2) {
        const std::uint8_t kept = MemRead(size);
        MemWrite(size, Probe);
        if (MemRead(0) != OtherProbe) {
            MemWrite(0, first);
            return;
        }
        MemWrite(size, kept);
    }
}

// A line that is stuck leads back to address 0.
void TestAddressLines(std::uint8_t first) {
    MemWrite(0, OtherProbe);
    for (std::int32_t address = 1; address < Show.MemCardSize && !GivenUp(); address *= 2) {
        const std::uint8_t kept = MemRead(address);
        MemWrite(address, Probe);
        if (MemRead(0) != OtherProbe) Show.MemCardSize = MemCardFault;
        MemWrite(address, kept);
    }
    MemWrite(0, first);
}

// Probe was written to address 0. Where it does not stand there, or the other one does not, there is no card.
bool TakesProbes() {
    if (MemRead(0) != Probe) return false;
    MemWrite(0, OtherProbe);
    return MemRead(0) == OtherProbe;
}

void MeasureCard(std::uint8_t first) {
    if (!TakesProbes()) {
        MemWrite(0, first);
        return;
    }
    FindSize(first);
    TestAddressLines(first);
}

void ReadControlRegister() {
    Host.vbWRAMC(Show.MemCardBase + ControlPort, 255);
    Host.vbRRAMC(Show.MemCardBase + ControlPort);
}

std::string FaultText() {
    Host.Beep();
    ShowMessage("E/A -Fehler. Bitte überprüfen Sie ob eine andere Karte auf Adresse " +
                Decimal(Show.MemCardBase) + " ist.");
    return "E/A -Fehler. Kann Karte nicht ansprechen";
}

std::string UnknownSizeText() {
    if (Show.MemCardSize < LargestMemCard)
        return " Fehler im Programmteil zum ermitteln der Kartengrösse. Bitte teilen Sie diese Fehlermeldung "
               "dem Herrsteller Ihres Programms mit und geben Sie bitte die Speichergrösse  Ihrer "
               "Memorykarte "
               "mit an. Danke!";
    Host.Beep();
    ShowMessage("Fehler beim erkennen der Memorykarte. Karte könnte defekt sein oder grösser als 1MB!");
    return "Keine bekannte Memorykarte gefunden!";
}

std::string GivenUpText() {
    Host.Beep();
    return "Es Konnte keine Karte angesprochen werden";
}

} // namespace

std::uint8_t MemRead(std::int32_t address) {
    LatchAddress(address);
    return ReadLatched();
}

void MemWrite(std::int32_t address, std::uint8_t value) {
    constexpr int attempts = 100;
    constexpr double longerEachTime = 0.05; // seconds
    for (int attempt = 0; attempt < attempts; ++attempt) {
        LatchAddress(address);
        Host.vbWDRAMC(Show.MemCardBase, value);
        if (attempt > 0) {
            ShowAttempt(address, attempt);
            if (!WaitForMemCard(attempt * longerEachTime)) return;
        }
        if (ReadLatched() == value || GivenUp() || !TryAgain(address, attempt)) return;
    }
}

bool WaitForMemCard(double seconds) {
    const double end = Host.Seconds() + seconds;
    while (!GivenUp() && Host.Seconds() < end)
        if (!Host.DoEvents()) Show.MemCardAbort = MemCardLeft;
    return !GivenUp();
}

std::string MemCardText() {
    switch (Show.MemCardSize) {
    case NoMemCard: return "Keine Memorykarte gefunden!";
    case NoMemCardInterface: Host.Beep(); return "Es wurde noch keine Schittstellenkarte initialisiert!";
    case MemCardFault: return FaultText();
    case 32768: return " 32KB grosse Memorykarte gefunden.";
    case 65536: return " 64KB grosse Memorykarte gefunden.";
    case 131072: return " 128KB grosse Memorykarte gefunden.";
    case 262144: return " 256KB grosse Memorykarte gefunden.";
    case 524288: return " 512KB grosse Memorykarte gefunden.";
    case 1048576: return " 1MB grosse Memorykarte gefunden.";
    default: return UnknownSizeText();
    }
}

std::string DetectMemCard() {
    Show.MemCardSize = NoMemCard;
    if (Show.MemCardBase == 0) {
        Show.MemCardSize = NoMemCardInterface;
        MemWrite(0, 0);
        return MemCardText();
    }
    const std::uint8_t first = MemRead(0);
    MemWrite(0, Probe);
    if (GivenUp()) {
        MemWrite(0, first);
        return GivenUpText();
    }
    MeasureCard(first);
    ReadControlRegister();
    return MemCardText();
}

bool SearchMemCard() {
    Show.MemCardAbort = 0;
    Show.MemCardBase = MemCardPorts;
    Screen.MemCardStatus("Die Memorykarte wird gesucht ...");
    Screen.MemCardStatus(DetectMemCard());
    return Show.MemCardSize >= SmallestMemCard;
}

} // namespace quorvane
