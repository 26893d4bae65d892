#include "drivers/output_settings.h"

#include "bench/bench.h"

#include <gmock/gmock.h>

#include <functional>

namespace quorvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Change = std::function<void(OutputSettings&)>;

struct ReadingCase {
    std::string Text;
    Change Expected; // what differs from the start values
    std::vector<std::string> Messages;
};

void Check(const std::vector<ReadingCase>& cases) {
    for (const ReadingCase& each : cases) {
        OutputSettings expected;
        each.Expected(expected);
        const OutputSettingsReading reading = ParseOutputSettings(each.Text);
        EXPECT_EQ(reading.Settings, expected) << each.Text;
        EXPECT_EQ(reading.Messages, each.Messages) << each.Text;
    }
}

const Change nothing = [](OutputSettings&) {};

Change ArtNet(std::uint16_t universe) {
    return [universe](OutputSettings& s) {
        s.Protocol = OutputProtocol::ArtNet;
        s.Universe = universe;
    };
}

TEST(OutputSettingsText, GoodValuesHold) {
    Check({
        {"", nothing, {}},
        {"[Ausgabe]\r\nUniversum = 7\r\n", [](auto& s) { s.Universe = 7; }, {}},
        {"Universum=63999", [](auto& s) { s.Universe = 63999; }, {}},
        {"Protokoll = Art-Net", ArtNet(0), {}},
        {"Universum = 32767\nProtokoll = artnet", ArtNet(32767), {}},
        {"Protokoll = Art-Net\nUniversum = 0", ArtNet(0), {}},
        {"Protokoll = SACN", nothing, {}},
        {"Protokoll = keine", [](auto& s) { s.Protocol = OutputProtocol::None; }, {}},
        {"Adresse = 2.0.0.10", [](auto& s) { s.Address = "2.0.0.10"; }, {}},
        {"Adresse = multicast", [](auto& s) { s.Delivery = OutputDelivery::Multicast; }, {}},
        {"Protokoll = Art-Net\nAdresse = BROADCAST",
         [](auto& s) {
             ArtNet(0)(s);
             s.Delivery = OutputDelivery::Broadcast;
         },
         {}},
        {"Netzwerkkarte = Ethernet 2", [](auto& s) { s.NetworkCard = "Ethernet 2"; }, {}},
        {"Vorrang = 0", [](auto& s) { s.Priority = 0; }, {}},
        {"Vorrang = 200", [](auto& s) { s.Priority = 200; }, {}},
        {"Name = Bühne links", [](auto& s) { s.SourceName = "Bühne links"; }, {}},
        {"SimulierteKarte = 7300b-lc\nSimulierteBasis = 160h",
         [](auto& s) {
             s.SimulatedCard = "7300B-LC";
             s.SimulatedCardBase = 0x160;
         },
         {}},
        {"SimulierteMemorykarte = 64kb", [](auto& s) { s.SimulatedMemoryCard = "64kb"; }, {}},
        {"SimulierteMemorykarte = 1MB Leitung:4",
         [](auto& s) { s.SimulatedMemoryCard = "1MB Leitung:4"; },
         {}},
    });
}

TEST(OutputSettingsText, WrongValueIsNamedWithWhatIsUsedInstead) {
    Check({
        {"Protokoll = DMX",
         nothing,
         {"Ausgabe.ini: Protokoll = DMX ist nicht möglich, erlaubt ist sACN, Art-Net oder keine. "
          "Verwendet wird sACN."}},
        {"Universum = 0",
         nothing,
         {"Ausgabe.ini: Universum = 0 ist nicht möglich, erlaubt ist 1 bis 63999. Verwendet wird 1."}},
        {"Universum = 64000",
         nothing,
         {"Ausgabe.ini: Universum = 64000 ist nicht möglich, erlaubt ist 1 bis 63999. Verwendet wird 1."}},
        {"Universum = 99999999999999999999",
         nothing,
         {"Ausgabe.ini: Universum = 99999999999999999999 ist nicht möglich, erlaubt ist 1 bis 63999. "
          "Verwendet wird 1."}},
        {"Universum = eins",
         nothing,
         {"Ausgabe.ini: Universum = eins ist nicht möglich, erlaubt ist 1 bis 63999. Verwendet wird 1."}},
        {"Universum = 1.5",
         nothing,
         {"Ausgabe.ini: Universum = 1.5 ist nicht möglich, erlaubt ist 1 bis 63999. Verwendet wird 1."}},
        {"Protokoll = Art-Net\nUniversum = 32768",
         ArtNet(0),
         {"Ausgabe.ini: Universum = 32768 ist nicht möglich, erlaubt ist 0 bis 32767. Verwendet wird 0."}},
        {"Vorrang = 201",
         nothing,
         {"Ausgabe.ini: Vorrang = 201 ist nicht möglich, erlaubt ist 0 bis 200. Verwendet wird 100."}},
        {"Vorrang = -1",
         nothing,
         {"Ausgabe.ini: Vorrang = -1 ist nicht möglich, erlaubt ist 0 bis 200. Verwendet wird 100."}},
        {"SimulierteKarte = 7400",
         nothing,
         {"Ausgabe.ini: SimulierteKarte = 7400 ist nicht möglich, erlaubt ist 7300A, 7300B-LC, 7300B oder "
          "7300C. Verwendet wird keine Karte."}},
        {"SimulierteMemorykarte = 48KB",
         nothing,
         {"Ausgabe.ini: SimulierteMemorykarte = 48KB ist nicht möglich, erlaubt ist 32KB, 64KB, 128KB, "
          "256KB, "
          "512KB oder 1MB. Verwendet wird keine Karte."}},
        {"SimulierteBasis = 110",
         nothing,
         {"Ausgabe.ini: SimulierteBasis = 110 ist nicht möglich, erlaubt ist 100, 120, 140 oder 160. "
          "Verwendet wird 100."}},
        {"Adrese = 2.0.0.10",
         nothing,
         {"Ausgabe.ini: die Zeile \"Adrese = 2.0.0.10\" ist unbekannt und bleibt unbeachtet."}},
        {"Multicast", nothing, {"Ausgabe.ini: die Zeile \"Multicast\" ist unbekannt und bleibt unbeachtet."}},
        {"Name = " + std::string(70, 'x'),
         [](auto& s) { s.SourceName = std::string(63, 'x'); },
         {"Ausgabe.ini: Name ist zu lang. Verwendet wird \"" + std::string(63, 'x') + "\"."}},
    });
}

TEST(OutputSettingsText, AddressMustBeFourNumbersOrAWordOfItsProtocol) {
    for (const std::string address :
         {"lichtpult.local", "2.0.0", "2.0.0.256", "2.0.0.0.1", "2.0.0.", "2..0.1", "::1", "0x2.0.0.1",
          "-1.0.0.1", "-0.0.0.1", "2.0.0.010", "2.0.0.1 2", "2.0.0.1000", "Broadcast", "2.0.0.1:5568"}) {
        const OutputSettingsReading reading = ParseOutputSettings("Adresse = " + address);
        EXPECT_EQ(reading.Settings, OutputSettings{}) << address;
        EXPECT_THAT(reading.Messages,
                    ElementsAre("Ausgabe.ini: Adresse = " + address +
                                " ist nicht möglich, erlaubt ist eine IP-Adresse wie 2.0.0.10 oder "
                                "Multicast. Verwendet wird 127.0.0.1."));
    }
    EXPECT_THAT(ParseOutputSettings("Protokoll = Art-Net\nAdresse = Multicast").Messages,
                ElementsAre("Ausgabe.ini: Adresse = Multicast ist nicht möglich, erlaubt ist eine "
                            "IP-Adresse wie 2.0.0.10 oder Broadcast. Verwendet wird 127.0.0.1."));
}

TEST(OutputSettingsText, OneWrongLineLeavesTheOthersInForce) {
    const auto reading = ParseOutputSettings("Universum = viele\nVorrang = 150\n???\nAdresse = 2.0.0.9\n");
    EXPECT_EQ(reading.Settings.Universe, 1);
    EXPECT_EQ(reading.Settings.Priority, 150);
    EXPECT_EQ(reading.Settings.Address, "2.0.0.9");
    EXPECT_EQ(reading.Messages.size(), 2U);
}

TEST(OutputSettingsText, CommentsBlanksAndCaseDoNotMatter) {
    Check({
        {"; Universum = 5\n# Vorrang = 3\n", nothing, {}},
        {"  universum\t=  9   ; neben der Bühne\n", [](auto& s) { s.Universe = 9; }, {}},
        {"VORRANG=5\r\rUniversum=6", [](auto& s) { s.Priority = 5, s.Universe = 6; }, {}},
        {"Universum = 5\nUniversum = 6\n", [](auto& s) { s.Universe = 6; }, {}},
        {"Universum =\nAdresse =\nVorrang =\nName =\n", nothing, {}},
    });
}

TEST(OutputSettingsText, OneByteUmlautsAreReadAsWellAsUtf8) {
    EXPECT_EQ(ParseOutputSettings("Name = B\xFChne").Settings.SourceName, "Bühne");
    EXPECT_EQ(ParseOutputSettings("\xEF\xBB\xBFName = Bühne").Settings.SourceName, "Bühne");
}

using OutputSettingsFile = Bench;

TEST_F(OutputSettingsFile, MissingFileIsMadeAndHoldsTheStartValues) {
    const OutputSettingsReading first = LoadOutputSettings(ProgramFolder);
    EXPECT_EQ(first.Settings, OutputSettings{});
    EXPECT_THAT(first.Messages, IsEmpty());

    const std::string text = Read("Ausgabe.ini");
    EXPECT_THAT(text, testing::HasSubstr("Protokoll = sACN\r\n"));
    const OutputSettingsReading again = ParseOutputSettings(text);
    EXPECT_EQ(again.Settings, OutputSettings{});
    EXPECT_THAT(again.Messages, IsEmpty());
}

TEST_F(OutputSettingsFile, IsFoundInAnyCaseAndLeftAsItIs) {
    Write("AUSGABE.INI", "Universum = 12\n");
    EXPECT_EQ(LoadOutputSettings(ProgramFolder).Settings.Universe, 12);
    EXPECT_EQ(Read("AUSGABE.INI"), "Universum = 12\n");
}

TEST_F(OutputSettingsFile, FolderThatTakesNoFileIsReportedAndTheStartValuesHold) {
    const OutputSettingsReading reading = LoadOutputSettings(ProgramFolder / "missing");
    EXPECT_EQ(reading.Settings, OutputSettings{});
    EXPECT_THAT(reading.Messages,
                ElementsAre("Ausgabe.ini: die Datei kann im Programmordner nicht angelegt werden. "
                            "Die Ausgabe geht als sACN, Universum 1, an 127.0.0.1."));
}

TEST_F(OutputSettingsFile, FolderInItsPlaceOrMoreThanASettingsFileIsReported) {
    const auto unreadable = ElementsAre("Ausgabe.ini: die Datei kann nicht gelesen werden. "
                                        "Die Ausgabe geht als sACN, Universum 1, an 127.0.0.1.");
    std::filesystem::create_directory(ProgramFolder / "Ausgabe.ini");
    EXPECT_THAT(LoadOutputSettings(ProgramFolder).Messages, unreadable);
    std::filesystem::remove(ProgramFolder / "Ausgabe.ini");
    Write("Ausgabe.ini", "Universum = 2\n" + std::string(1'000'000, ';'));
    EXPECT_THAT(LoadOutputSettings(ProgramFolder).Messages, unreadable);
}

TEST_F(OutputSettingsFile, BinaryFileGivesAFewMessagesAndNoHarm) {
    std::string bytes;
    for (int index = 0; index < 4096; ++index) bytes += static_cast<char>(index * 37 % 256);
    Write("Ausgabe.ini", bytes);
    const OutputSettingsReading reading = LoadOutputSettings(ProgramFolder);
    EXPECT_EQ(reading.Settings, OutputSettings{});
    EXPECT_THAT(reading.Messages, testing::SizeIs(5));
}

TEST(OutputSettingsText, DestinationIsTheUsersPhrase) {
    OutputSettings settings;
    EXPECT_EQ(OutputDestination(settings), "sACN, Universum 1, an 127.0.0.1");
    settings.Delivery = OutputDelivery::Multicast;
    settings.NetworkCard = "eth1";
    EXPECT_EQ(OutputDestination(settings), "sACN, Universum 1, Multicast, durch eth1");
    settings = {};
    settings.Protocol = OutputProtocol::ArtNet;
    settings.Universe = 18;
    settings.Delivery = OutputDelivery::Broadcast;
    EXPECT_EQ(OutputDestination(settings), "Art-Net, Universum 18, Broadcast");
    settings.Protocol = OutputProtocol::None;
    EXPECT_EQ(OutputDestination(settings), "");
}

} // namespace
} // namespace quorvane
