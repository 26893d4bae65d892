#include "devices/cardimages.h"

#include "bench/cardimagesbench.h"

#include <gmock/gmock.h>

namespace quorvane {
namespace {

class CardReading : public CardImagesBench {};

TEST_F(CardReading, ComparisonFindsWhatWasWritten) {
    PlugIn(65536);
    WriteMemCard();
    EXPECT_EQ(CompareMemCard(), std::nullopt);
    EXPECT_EQ(Status(), "Die Memorykarte stimmt mit der Sequenz überein. Bis Adresse 61440 verglichen.");
}

TEST_F(CardReading, ComparisonNamesTheFirstDifference) {
    struct Case {
        std::size_t Address;
        const char* Text;
    };
    for (const Case& each : std::vector<Case>{
             {3,
              "Erster Unterschied bei Adresse 3 (Szene 1, DMX-Kanal 4): auf der Karte 1, in der Sequenz 65."},
             {512 + 507, "Erster Unterschied bei Adresse 1019 (Szene 2, Blendezeit): auf der Karte 1, in der "
                         "Sequenz 10."},
             {1024 + 508,
              "Erster Unterschied bei Adresse 1532 (Szene 3, Haltezeit): auf der Karte 1, in der Sequenz 3."},
             {1536 + 511, "Erster Unterschied bei Adresse 2047 (letzte Szene, Kennbyte): auf der Karte 1, in "
                          "der Sequenz 0."},
             {2048 + 9,
              "Erster Unterschied bei Adresse 2057 (Lichtbild mit Null 4, DMX-Kanal 10): auf der Karte "
              "1, in der Sequenz 0."}}) {
        PlugIn(32768);
        WriteMemCard();
        Card.Memory[each.Address] = 1;
        Card.Memory[each.Address + 20]++;
        EXPECT_EQ(CompareMemCard(), static_cast<std::int32_t>(each.Address));
        EXPECT_EQ(Status(), each.Text);
    }
}

TEST_F(CardReading, ComparisonCanBeGivenUp) {
    PlugIn(32768);
    WriteMemCard();
    AccessTime = 0.001;
    Host.ServeEvents = [calls = 0]() mutable {
        if (++calls == 3) Show.MemCardAbort = MemCardGivenUp;
        return true;
    };
    EXPECT_EQ(CompareMemCard(), std::nullopt);
    // Pieces, not one regular expression: not every GoogleTest has character classes.
    EXPECT_THAT(Status(), testing::StartsWith("Vergleich abgebrochen. Bis Adresse "));
    EXPECT_THAT(Status(), testing::EndsWith(" kein Unterschied."));
}

TEST_F(CardReading, RowsOfTheViewShowTenBytesEach) {
    PlugIn(32768);
    Show.MemCardSize = 32768;
    for (std::size_t cell = 0; cell < 10; ++cell)
        Card.Memory[20 + cell] = static_cast<std::uint8_t>(cell * cell * 3);
    EXPECT_EQ(ReadMemCardRow(20), "Adr     20 :  0 :  3 : 12 : 27 : 48 : 75 :108 :147 :192 :243");
    Card.Memory[32760] = 1;
    const std::string last = ReadMemCardRow(32760);
    EXPECT_THAT(last, testing::StartsWith("Adr  32760 :  1 :"));
    EXPECT_EQ(last.size(), 10u + 8 * 5) << "the card ends with its eighth byte";
}

TEST_F(CardReading, RowAddressesAreSevenCharactersWide) {
    PlugIn(1048576);
    Show.MemCardSize = 1048576;
    EXPECT_THAT(ReadMemCardRow(1048570), testing::StartsWith("Adr1048570 :"));
}

} // namespace
} // namespace quorvane
