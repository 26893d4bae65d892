#include "drivers/output_settings.h"

#include "drivers/artnet_packet.h"
#include "drivers/sacn_packet.h"
#include "drivers/simulated_memorycard.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <fstream>
#include <iterator>
#include <optional>

namespace quorvane {

namespace {

constexpr std::string_view FileName = "Ausgabe.ini";
constexpr std::size_t LargestFile = 65536; // far beyond any that a person writes

// Without letters that differ between encodings, so that every editor shows it right.
constexpr std::string_view DefaultFile =
    "; Ausgabe von QUORVANE: wohin die DMX-Werte gehen, wenn kein eigener Treiber\r\n"
    "; im Programmordner liegt. Gelesen wird die Datei beim Start des Programms.\r\n"
    "; Was hinter einem Semikolon steht, ist Kommentar.\r\n"
    "\r\n"
    "[Ausgabe]\r\n"
    "\r\n"
    "; sACN (ANSI E1.31), Art-Net oder keine\r\n"
    "Protokoll = sACN\r\n"
    "\r\n"
    "; sACN: 1 bis 63999. Art-Net: 0 bis 32767 (Net x 256 + Sub-Net x 16 + Universe)\r\n"
    "Universum = 1\r\n"
    "\r\n"
    "; IP-Adresse des Ziels, zum Beispiel 2.0.0.10; 127.0.0.1 ist dieser Rechner.\r\n"
    "; sACN kennt statt dessen auch: Multicast. Art-Net auch: Broadcast\r\n"
    "Adresse = 127.0.0.1\r\n"
    "\r\n"
    "; Name der Netzwerkkarte, zum Beispiel eth0 oder Ethernet 2. Leer: das System entscheidet\r\n"
    "Netzwerkkarte =\r\n"
    "\r\n"
    "; Vorrang vor anderen Sendern (sACN-Priority): 0 bis 200\r\n"
    "Vorrang = 100\r\n"
    "\r\n"
    "; Unter diesem Namen erscheint der Sender bei sACN\r\n"
    "Name = Quorvane\r\n"
    "\r\n"
    "; Zum Ausprobieren ohne Karte: 7300A, 7300B-LC, 7300B oder 7300C. Leer: keine\r\n"
    "SimulierteKarte =\r\n"
    "\r\n"
    "; Adresse der simulierten Karte, hexadezimal: 100, 120, 140 oder 160\r\n"
    "SimulierteBasis = 100\r\n"
    "\r\n"
    "; Zum Ausprobieren ohne Memorykarte: 32KB, 64KB, 128KB, 256KB, 512KB oder 1MB. Leer: keine\r\n"
    "SimulierteMemorykarte =\r\n";

constexpr std::array<std::string_view, 9> KnownKeys = {
    "Protokoll", "Universum",       "Adresse",         "Netzwerkkarte",        "Vorrang",
    "Name",      "SimulierteKarte", "SimulierteBasis", "SimulierteMemorykarte"};

std::string_view Trim(std::string_view text) {
    constexpr std::string_view blanks = " \t\r\n";
    const auto first = text.find_first_not_of(blanks);
    if (first == text.npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::string Lower(std::string_view text) {
    std::string lower(text);
    for (char& c : lower)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return lower;
}

bool SameWord(std::string_view a, std::string_view b) { return Lower(a) == Lower(b); }

std::optional<long> WholeNumber(std::string_view text, int base = 10) {
    long number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, base);
    if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
    return number;
}

// Four numbers of 0 to 255 with dots between. Names are not taken: looking one up could hold up the
// start of the program for seconds.
bool IsAddress(std::string_view text) {
    for (int part = 1; part <= 4; ++part) {
        const auto end = part < 4 ? text.find('.') : text.size();
        if (end == text.npos || end < 1 || end > 3) return false;
        // With a leading zero some read the number as octal.
        if (end > 1 && text.front() == '0') return false;
        if (text.substr(0, end).find_first_not_of("0123456789") != text.npos) return false;
        if (*WholeNumber(text.substr(0, end)) > 255) return false;
        if (part < 4) text.remove_prefix(end + 1);
    }
    return true;
}

bool IsUtf8(std::string_view text) {
    std::size_t following = 0;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (following > 0) {
            if ((byte & 0xC0) != 0x80) return false;
            --following;
        } else if (byte >= 0x80) {
            following = byte >= 0xC2 && byte <= 0xDF ? 1
                        : (byte & 0xF0) == 0xE0      ? 2
                        : (byte & 0xF8) == 0xF0      ? 3
                                                     : 0;
            if (following == 0) return false;
        }
    }
    return following == 0;
}

// A file that is not UTF-8 has one byte a character, as older editors write it.
std::string AsUtf8(std::string_view text) {
    if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
    if (IsUtf8(text)) return std::string(text);
    std::string wide;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80) {
            wide += c;
        } else {
            wide += static_cast<char>(0xC0 | (byte >> 6));
            wide += static_cast<char>(0x80 | (byte & 0x3F));
        }
    }
    return wide;
}

struct Entry {
    std::string Key;
    std::string Value;
};

class Reader {
public:
    explicit Reader(std::string_view text) { ReadEntries(AsUtf8(text)); }

    OutputSettingsReading Read() {
        ReadProtocol();
        ReadUniverse();
        ReadAddress();
        settings.NetworkCard = Value("Netzwerkkarte");
        ReadPriority();
        ReadSourceName();
        ReadSimulatedCard();
        ReadSimulatedMemoryCard();
        return std::move(reading);
    }

private:
    void ReadEntries(std::string_view text) {
        while (!text.empty()) {
            const auto end = std::min(text.find_first_of("\r\n"), text.size());
            ReadLine(Trim(text.substr(0, end)));
            text.remove_prefix(std::min(end + 1, text.size()));
        }
    }

    void ReadLine(std::string_view line) {
        line = Trim(line.substr(0, line.find(';')));
        if (line.empty() || line.front() == '#' || line.front() == '[') return;
        const auto sign = line.find('=');
        const auto key = Trim(line.substr(0, sign));
        const bool known = sign != line.npos && std::any_of(KnownKeys.begin(), KnownKeys.end(),
                                                            [key](auto name) { return SameWord(name, key); });
        if (known)
            entries.push_back({std::string(key), std::string(Trim(line.substr(sign + 1)))});
        else if (++unknownLines <= 5) // a file that is no text would fill the screen
            Say("die Zeile \"" + std::string(CutText(line, 60)) + "\" ist unbekannt und bleibt unbeachtet.");
    }

    // Empty when the file does not say; of several lines the last one holds.
    std::string Value(std::string_view key) const {
        for (auto entry = entries.rbegin(); entry != entries.rend(); ++entry)
            if (SameWord(entry->Key, key)) return entry->Value;
        return {};
    }

    void Say(std::string_view text) {
        reading.Messages.push_back(std::string(FileName) + ": " + std::string(text));
    }

    void SayWrong(std::string_view key, std::string_view allowed, std::string_view instead) {
        Say(std::string(key) + " = " + std::string(CutText(Value(key), 60)) +
            " ist nicht möglich, erlaubt ist " + std::string(allowed) + ". Verwendet wird " +
            std::string(instead) + ".");
    }

    void ReadProtocol() {
        const std::string value = Value("Protokoll");
        if (SameWord(value, "Art-Net") || SameWord(value, "ArtNet"))
            settings.Protocol = OutputProtocol::ArtNet;
        else if (SameWord(value, "keine") || SameWord(value, "kein"))
            settings.Protocol = OutputProtocol::None;
        else if (!value.empty() && !SameWord(value, "sACN") && !SameWord(value, "E1.31"))
            SayWrong("Protokoll", "sACN, Art-Net oder keine", "sACN");
    }

    void ReadUniverse() {
        const bool artNet = settings.Protocol == OutputProtocol::ArtNet;
        const long lowest = artNet ? 0 : SacnLowestUniverse;
        const long highest = artNet ? ArtNetHighestUniverse : SacnHighestUniverse;
        settings.Universe = static_cast<std::uint16_t>(lowest);
        const std::string value = Value("Universum");
        if (value.empty()) return;
        const auto number = WholeNumber(value);
        if (number && *number >= lowest && *number <= highest)
            settings.Universe = static_cast<std::uint16_t>(*number);
        else
            SayWrong("Universum", std::to_string(lowest) + " bis " + std::to_string(highest),
                     std::to_string(lowest));
    }

    void ReadAddress() {
        const bool artNet = settings.Protocol == OutputProtocol::ArtNet;
        const std::string value = Value("Adresse");
        if (!artNet && SameWord(value, "Multicast"))
            settings.Delivery = OutputDelivery::Multicast;
        else if (artNet && SameWord(value, "Broadcast"))
            settings.Delivery = OutputDelivery::Broadcast;
        else if (IsAddress(value))
            settings.Address = value;
        else if (!value.empty())
            SayWrong("Adresse",
                     artNet ? "eine IP-Adresse wie 2.0.0.10 oder Broadcast"
                            : "eine IP-Adresse wie 2.0.0.10 oder Multicast",
                     settings.Address);
    }

    void ReadPriority() {
        const std::string value = Value("Vorrang");
        if (value.empty()) return;
        const auto number = WholeNumber(value);
        if (number && *number >= 0 && *number <= SacnHighestPriority)
            settings.Priority = static_cast<std::uint8_t>(*number);
        else
            SayWrong("Vorrang", "0 bis 200", "100");
    }

    void ReadSourceName() {
        const std::string value = Value("Name");
        if (value.empty()) return;
        settings.SourceName = CutText(value, SacnNameLength);
        if (settings.SourceName.size() < value.size())
            Say("Name ist zu lang. Verwendet wird \"" + settings.SourceName + "\".");
    }

    void ReadSimulatedCard() {
        const std::string model = Value("SimulierteKarte");
        for (const std::string_view known : {"7300A", "7300B-LC", "7300B", "7300C"})
            if (SameWord(model, known)) settings.SimulatedCard = known;
        if (!model.empty() && settings.SimulatedCard.empty())
            SayWrong("SimulierteKarte", "7300A, 7300B-LC, 7300B oder 7300C", "keine Karte");

        std::string base = Value("SimulierteBasis");
        if (base.empty()) return;
        if (base.back() == 'h' || base.back() == 'H') base.pop_back();
        const auto number = WholeNumber(base, 16);
        if (number && (*number == 0x100 || *number == 0x120 || *number == 0x140 || *number == 0x160))
            settings.SimulatedCardBase = static_cast<std::uint16_t>(*number);
        else
            SayWrong("SimulierteBasis", "100, 120, 140 oder 160", "100");
    }

    void ReadSimulatedMemoryCard() {
        const std::string card = Value("SimulierteMemorykarte");
        if (ParseSimulatedMemoryCard(card))
            settings.SimulatedMemoryCard = card;
        else if (!card.empty())
            SayWrong("SimulierteMemorykarte", "32KB, 64KB, 128KB, 256KB, 512KB oder 1MB", "keine Karte");
    }

    std::vector<Entry> entries;
    int unknownLines = 0;
    OutputSettingsReading reading;
    OutputSettings& settings = reading.Settings;
};

// The file of the folder, in whatever case its name is written; nothing when there is none.
std::optional<std::filesystem::path> FindFile(const std::filesystem::path& folder) {
    std::error_code error;
    if (std::filesystem::exists(folder / FileName, error)) return folder / FileName;
    for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        const std::u8string name = entry->path().filename().u8string();
        if (SameWord(std::string(name.begin(), name.end()), FileName)) return entry->path();
    }
    return std::nullopt;
}

OutputSettingsReading OnlyDefaults(std::string_view message) {
    return {.Settings = {}, .Messages = {std::string(FileName) + ": " + std::string(message)}};
}

OutputSettingsReading MakeDefaultFile(const std::filesystem::path& path) {
    std::ofstream file(path, std::ios::binary);
    file << DefaultFile << std::flush;
    if (file) return {};
    return OnlyDefaults("die Datei kann im Programmordner nicht angelegt werden. "
                        "Die Ausgabe geht als sACN, Universum 1, an 127.0.0.1.");
}

} // namespace

std::string OutputDestination(const OutputSettings& settings) {
    if (settings.Protocol == OutputProtocol::None) return "";
    std::string text = settings.Protocol == OutputProtocol::Sacn ? "sACN" : "Art-Net";
    text += ", Universum " + std::to_string(settings.Universe);
    switch (settings.Delivery) {
    case OutputDelivery::Unicast: text += ", an " + settings.Address; break;
    case OutputDelivery::Multicast: text += ", Multicast"; break;
    case OutputDelivery::Broadcast: text += ", Broadcast"; break;
    }
    if (!settings.NetworkCard.empty()) text += ", durch " + settings.NetworkCard;
    return text;
}

OutputSettingsReading ParseOutputSettings(std::string_view text) { return Reader(text).Read(); }

OutputSettingsReading LoadOutputSettings(const std::filesystem::path& programFolder) {
    const auto path = FindFile(programFolder);
    if (!path) return MakeDefaultFile(programFolder / FileName);

    std::error_code error;
    std::ifstream file;
    if (std::filesystem::is_regular_file(*path, error)) file.open(*path, std::ios::binary);
    std::string text(LargestFile + 1, '\0');
    file.read(text.data(), static_cast<std::streamsize>(text.size()));
    text.resize(static_cast<std::size_t>(file.gcount()));
    if (!file.is_open() || file.bad() || text.size() > LargestFile)
        return OnlyDefaults("die Datei kann nicht gelesen werden. "
                            "Die Ausgabe geht als sACN, Universum 1, an 127.0.0.1.");
    return ParseOutputSettings(text);
}

} // namespace quorvane
