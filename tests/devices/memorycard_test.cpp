#include "devices/memorycard.h"

#include "bench/memorycardbench.h"
#include "bench/samplecases.h"

#include <gmock/gmock.h>

namespace quorvane {
namespace {

using nlohmann::json;
using testing::Each;
using testing::ElementsAre;
using TextList = std::vector<std::string>;

constexpr const char* NotAddressable = "Es Konnte keine Karte angesprochen werden";

class MemoryCard : public MemoryCardBench {
protected:
    // Detects the card and expects it to be left as it was.
    std::string Detect() {
        const auto before = Card.Memory;
        const std::string text = DetectMemCard();
        EXPECT_EQ(Card.Memory, before);
        return text;
    }
};

TEST_F(MemoryCard, ReadLatchesThreeAddressBytesAndReadsTheBase) {
    PlugIn(1048576);
    Card.Memory[0x0ABCDE] = 99;
    Tracing = true;
    EXPECT_EQ(MemRead(0x0ABCDE), 99);
    EXPECT_THAT(Trace, ElementsAre(CardAccess{'a', 0x201, 0xDE}, CardAccess{'a', 0x202, 0xBC},
                                   CardAccess{'a', 0x203, 0x0A}, CardAccess{'r', 0x200, 0}));
}

TEST_F(MemoryCard, WriteGoesThroughTheDataOperationAndIsReadBackWithoutAWait) {
    PlugIn(1048576);
    Tracing = true;
    MemWrite(0x01FFFF, 7);
    EXPECT_EQ(Card.Memory[0x01FFFF], 7);
    EXPECT_THAT(Trace, ElementsAre(CardAccess{'a', 0x201, 0xFF}, CardAccess{'a', 0x202, 0xFF},
                                   CardAccess{'a', 0x203, 0x01}, CardAccess{'d', 0x200, 7},
                                   CardAccess{'r', 0x200, 0}));
    EXPECT_THAT(Waits, ElementsAre(0.0));
}

TEST_F(MemoryCard, EveryAttemptLatchesTheAddressAndWritesTheByteAnew) {
    PlugIn(1048576);
    Card.RefusedWrites[0x0ABCDE] = 1;
    Tracing = true;
    MemWrite(0x0ABCDE, 7);
    const std::vector<CardAccess> attempt{
        {'a', 0x201, 0xDE}, {'a', 0x202, 0xBC}, {'a', 0x203, 0x0A}, {'d', 0x200, 7}, {'r', 0x200, 0}};
    std::vector<CardAccess> twice = attempt;
    twice.insert(twice.end(), attempt.begin(), attempt.end());
    EXPECT_EQ(Trace, twice);
}

TEST_F(MemoryCard, EachAttemptWaitsLongerThanTheLast) {
    PlugIn(32768);
    Card.RefusedWrites[5] = 4;
    MemWrite(5, 200);
    EXPECT_EQ(Card.Memory[5], 200);
    ASSERT_EQ(Waits.size(), 5u);
    for (std::size_t n = 0; n < Waits.size(); ++n)
        EXPECT_NEAR(Waits[n], 0.05 * static_cast<double>(n), 0.0101) << n;
    EXPECT_EQ(Texts("progress").back(), "Adresse 5, Versuch Nr.:4") << "so a long wait is explained";
}

TEST_F(MemoryCard, TwentiethFailureAsksWithAddressAndAttemptNumberNineteen) {
    PlugIn(32768);
    Card.RefusedWrites[1000] = 20;
    Answers = {Answer::Retry};
    MemWrite(1000, 1);
    EXPECT_EQ(Log.back(), (Noticed{"progress", "Adresse 1000, Versuch Nr.:20", "frmFiles", ""}));
    EXPECT_THAT(Texts("question"), ElementsAre("Fehler beim Schreiben von Adresse 1000 Versuch Nr.:19"));
    EXPECT_EQ(Card.Memory[1000], 1);
    EXPECT_EQ(Show.MemCardAbort, 0);
}

TEST_F(MemoryCard, NineteenFailuresAskNothing) {
    PlugIn(32768);
    Card.RefusedWrites[1000] = 19;
    MemWrite(1000, 1);
    EXPECT_EQ(Card.Memory[1000], 1);
    EXPECT_TRUE(Texts("question").empty());
}

TEST_F(MemoryCard, NineteenSilentRetriesTakeNineAndAHalfSecondsBeforeTheFirstQuestion) {
    const double start = Now;
    double asked = 0;
    Host.MsgBox = [&](std::string_view, Buttons buttons, std::string_view title, Icon) {
        EXPECT_EQ(buttons, Buttons::AbortRetryIgnore);
        EXPECT_EQ(title, "QUORVANE");
        asked = Now - start;
        return Answer::Ignore;
    };
    MemWrite(0, 1);
    EXPECT_NEAR(asked, 9.5, 0.2);
}

TEST_F(MemoryCard, IgnoreEndsTheWriteAndNothingElse) {
    Answers = {Answer::Ignore};
    MemWrite(0, 1);
    EXPECT_EQ(Waits.size(), 20u);
    EXPECT_EQ(Show.MemCardAbort, 0);
}

TEST_F(MemoryCard, AbortEndsTheWriteAndGivesUp) {
    Answers = {Answer::Retry, Answer::Retry, Answer::Abort};
    MemWrite(0, 1);
    EXPECT_EQ(Waits.size(), 22u);
    EXPECT_EQ(Show.MemCardAbort, MemCardGivenUp);
}

TEST_F(MemoryCard, WriteEndsSilentlyAfterAttemptNinetyNine) {
    Answers = std::deque<Answer>(81, Answer::Retry);
    MemWrite(0, 1);
    EXPECT_EQ(Waits.size(), 100u);
    EXPECT_EQ(Texts("question").back(), "Fehler beim Schreiben von Adresse 0 Versuch Nr.:99");
    EXPECT_EQ(Show.MemCardAbort, 0);
}

TEST_F(MemoryCard, WaitEndsAtOnceWhenTheWorkIsGivenUp) {
    Host.DoEvents = [this, calls = 0]() mutable {
        Now += 0.01;
        if (++calls == 3) Show.MemCardAbort = MemCardGivenUp;
        return true;
    };
    const double start = Now;
    EXPECT_FALSE(WaitForMemCard(5));
    EXPECT_NEAR(Now - start, 0.03, 1e-6);
}

TEST_F(MemoryCard, ClosingTheProgramGivesTheWorkUpWithoutAQuestion) {
    Host.DoEvents = [] { return false; };
    MemWrite(0, 1);
    EXPECT_EQ(Show.MemCardAbort, MemCardLeft);
    EXPECT_TRUE(Log.empty() || Texts("question").empty());
}

TEST_F(MemoryCard, AfterGivingUpAByteIsPutBackByOneAttempt) {
    PlugIn(32768);
    Show.MemCardAbort = MemCardGivenUp;
    MemWrite(3, 77);
    EXPECT_EQ(Card.Memory[3], 77);
    Card.RefusedWrites[4] = 50;
    MemWrite(4, 77);
    EXPECT_THAT(Waits, ElementsAre(0.0, 0.0));
}

TEST_F(MemoryCard, DetectionTellsEverySize) {
    const std::vector<std::pair<std::size_t, const char*>> sizes{
        {32768, " 32KB grosse Memorykarte gefunden."},   {65536, " 64KB grosse Memorykarte gefunden."},
        {131072, " 128KB grosse Memorykarte gefunden."}, {262144, " 256KB grosse Memorykarte gefunden."},
        {524288, " 512KB grosse Memorykarte gefunden."}, {1048576, " 1MB grosse Memorykarte gefunden."}};
    for (const auto& [size, text] : sizes) {
        PlugIn(size);
        EXPECT_EQ(Detect(), text);
        EXPECT_EQ(Show.MemCardSize, static_cast<std::int32_t>(size));
    }
    EXPECT_THAT(Waits, Each(0.0));
    EXPECT_TRUE(Log.empty());
}

TEST_F(MemoryCard, LargerThanTheLargestIsTwiceItAndUnknown) {
    for (const std::size_t size : {2097152, 4194304}) {
        PlugIn(size);
        Log.clear();
        EXPECT_EQ(Detect(), "Keine bekannte Memorykarte gefunden!");
        EXPECT_EQ(Show.MemCardSize, 2097152);
        EXPECT_EQ(Log,
                  (std::vector<Noticed>{{"beep", "", "", ""},
                                        {"box",
                                         "Fehler beim erkennen der Memorykarte. Karte könnte defekt sein "
                                         "oder grösser als 1MB!",
                                         "", "QUORVANE", Icon::Exclamation}}));
    }
}

TEST_F(MemoryCard, EveryStuckAddressLineIsFound) {
    for (int line = 0; line < 15; ++line) {
        PlugIn(32768);
        Card.StuckLow = 1u << line;
        Log.clear();
        EXPECT_EQ(Detect(), "E/A -Fehler. Kann Karte nicht ansprechen") << line;
        EXPECT_EQ(Show.MemCardSize, MemCardFault);
        EXPECT_EQ(Log, (std::vector<Noticed>{{"beep", "", "", ""},
                                             {"box",
                                              "E/A -Fehler. Bitte überprüfen Sie ob eine andere Karte auf "
                                              "Adresse 512 ist.",
                                              "", "QUORVANE", Icon::Exclamation}}));
    }
}

TEST_F(MemoryCard, LineStuckAtTheCardsOwnSizeLooksLikeASmallerCard) {
    PlugIn(131072);
    Card.StuckLow = 1u << 16;
    EXPECT_EQ(Detect(), " 64KB grosse Memorykarte gefunden.");
}

TEST_F(MemoryCard, NoCardIsFoundAfterTheUserPassesTheProbeOver) {
    Answers = {Answer::Ignore};
    EXPECT_EQ(DetectMemCard(), "Keine Memorykarte gefunden!");
    EXPECT_EQ(Show.MemCardSize, NoMemCard);
    EXPECT_TRUE(Texts("beep").empty());
}

TEST_F(MemoryCard, AbortInTheRetryBoxStopsDetectionAtOnce) {
    Answers = {Answer::Abort};
    EXPECT_EQ(DetectMemCard(), NotAddressable);
    EXPECT_EQ(Show.MemCardSize, NoMemCard);
    EXPECT_EQ(Texts("beep").size(), 1u);
    EXPECT_EQ(Waits.size(), 21u) << "the last puts the byte back";
}

TEST_F(MemoryCard, CardThatTakesOneProbeAndNotTheOtherIsNone) {
    PlugIn(32768);
    int writes = 0;
    Host.vbWDRAMC = [&](std::int32_t port, std::int32_t value) {
        if (value != 85) Card.WriteData(port, value);
        ++writes;
    };
    Answers = {Answer::Ignore};
    EXPECT_EQ(Detect(), "Keine Memorykarte gefunden!");
    EXPECT_EQ(writes, 1 + 20 + 1);
}

// The card holds 85 where it is probed and takes nothing: that must not pass for the second probe.
TEST_F(MemoryCard, ReadOnlyCardIsNone) {
    PlugIn(32768);
    Card.Memory[0] = 85;
    Host.vbWDRAMC = [](std::int32_t, std::int32_t) {};
    Answers = {Answer::Ignore};
    EXPECT_EQ(Detect(), "Keine Memorykarte gefunden!");
}

TEST_F(MemoryCard, AbortWhileTheSizeIsSoughtKeepsTwiceTheSizeTriedAndPutsEveryByteBack) {
    PlugIn(524288);
    Card.RefusedWrites = {{32768, 20}, {65536, 20}};
    Answers = {Answer::Abort};
    EXPECT_EQ(Detect(), " 64KB grosse Memorykarte gefunden.");
    EXPECT_EQ(Show.MemCardSize, 65536);
    Show.MemCardAbort = 0;
    Answers = {Answer::Abort};
    EXPECT_EQ(Detect(), " 128KB grosse Memorykarte gefunden.");
    EXPECT_EQ(Show.MemCardSize, 131072);
}

TEST_F(MemoryCard, AbortWhileTheLinesAreTestedKeepsTheFoundSizeAndPutsEveryByteBack) {
    PlugIn(131072);
    Card.RefusedWrites[64] = 20;
    Answers = {Answer::Abort};
    EXPECT_EQ(Detect(), " 128KB grosse Memorykarte gefunden.");
    EXPECT_EQ(Show.MemCardSize, 131072);
    EXPECT_TRUE(Texts("box").empty());
}

TEST_F(MemoryCard, ControlRegisterIsWrittenAndReadBackAtTheEndOfEveryDetection) {
    struct Case {
        std::size_t Size;
        std::uint32_t StuckLow;
        std::int32_t Found;
    };
    for (const Case& each : {Case{32768, 0, 32768}, Case{0, 0, NoMemCard}, Case{32768, 4, MemCardFault}}) {
        PlugIn(each.Size);
        Card.StuckLow = each.StuckLow;
        if (each.Size == 0) Answers = {Answer::Ignore};
        Tracing = true;
        DetectMemCard();
        EXPECT_EQ(Show.MemCardSize, each.Found);
        ASSERT_GE(Trace.size(), 2u);
        EXPECT_EQ(Trace[Trace.size() - 2], (CardAccess{'a', 0x203, 255})) << each.Found;
        EXPECT_EQ(Trace.back(), (CardAccess{'r', 0x203, 0})) << each.Found;
        Trace.clear();
    }
}

TEST_F(MemoryCard, SizeBetweenTheKnownOnesIsAFaultOfTheProgram) {
    for (const std::int32_t size : {3, 16384, 98304, 1048575}) {
        Show.MemCardSize = size;
        EXPECT_EQ(MemCardText(),
                  " Fehler im Programmteil zum ermitteln der Kartengrösse. Bitte teilen Sie diese "
                  "Fehlermeldung dem Herrsteller Ihres Programms mit und geben Sie bitte die Speichergrösse  "
                  "Ihrer Memorykarte mit an. Danke!")
            << size;
    }
    EXPECT_TRUE(Log.empty()) << "neither beep nor box";
}

TEST_F(MemoryCard, WithoutAnAdapterAddressNothingIsInitialised) {
    PlugIn(32768);
    Card.Base = 0;
    Show.MemCardBase = 0;
    EXPECT_EQ(DetectMemCard(), "Es wurde noch keine Schittstellenkarte initialisiert!");
    EXPECT_EQ(Show.MemCardSize, NoMemCardInterface);
    EXPECT_EQ(Texts("beep").size(), 1u);
    EXPECT_EQ(Card.Memory[0], 0);
}

TEST_F(MemoryCard, SearchStartsAnewAtTheAdapterAndShowsTheResult) {
    PlugIn(65536);
    Show.MemCardBase = 0;
    Show.MemCardAbort = MemCardGivenUp;
    EXPECT_TRUE(SearchMemCard());
    EXPECT_EQ(Show.MemCardBase, 0x200);
    EXPECT_THAT(Texts("status"),
                ElementsAre("Die Memorykarte wird gesucht ...", " 64KB grosse Memorykarte gefunden."));
    Card.StuckLow = 2;
    EXPECT_FALSE(SearchMemCard()) << "a code is no size";
}

// Worked-out detections.
class DetectionSample : public MemoryCard, public testing::WithParamInterface<std::string> {};

TEST_P(DetectionSample, EndsAsWorkedOut) {
    const json expected = SampleExpectation(GetParam());
    const json& card = expected["card"];
    PlugIn(card["size"]);
    const json stuck = card.value("stuck", json::object());
    for (const auto& [line, level] : stuck.items()) {
        ASSERT_EQ(level, 0);
        Card.StuckLow |= 1u << std::stoi(line);
    }
    const json bad = card.value("bad", json::object());
    for (const auto& [cell, refused] : bad.items())
        Card.RefusedWrites[static_cast<std::uint32_t>(std::stoi(cell))] = refused;
    ASSERT_TRUE(expected["answers"].empty());
    ASSERT_TRUE(expected["memory_untouched"]);
    EXPECT_EQ(Detect(), expected["text"]);
    EXPECT_EQ(Show.MemCardSize, expected["MemCardSize"]);
    ASSERT_EQ(Waits.size(), expected["waits"].size());
    for (std::size_t n = 0; n < Waits.size(); ++n)
        EXPECT_NEAR(Waits[n], expected["waits"][n].get<double>(), 0.0101) << n;
    TextList noticed;
    for (const Noticed& each : Log)
        if (each.Kind != "progress") noticed.push_back(each.Kind + ": " + each.Text);
    TextList wanted;
    for (const json& each : expected["log"])
        wanted.push_back(each["kind"].get<std::string>() + ": " + each.value("text", ""));
    EXPECT_EQ(noticed, wanted);
}

std::string NameOf(const testing::TestParamInfo<std::string>& sample) {
    std::string name = sample.param;
    std::replace(name.begin(), name.end(), '-', '_');
    return "Case_" + name;
}

INSTANTIATE_TEST_SUITE_P(Samples, DetectionSample, testing::ValuesIn(SampleFolders("-card-detection")),
                         NameOf);

} // namespace
} // namespace quorvane
