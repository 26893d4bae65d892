#include "devices/cardimages.h"

#include "bench/cardimagesbench.h"
#include "bench/samplecases.h"

#include <gmock/gmock.h>

namespace quorvane {
namespace {

using nlohmann::json;
using testing::ElementsAre;
using TextList = std::vector<std::string>;

class CardImages : public CardImagesBench {};

TEST_F(CardImages, EveryCardPassesItsOwnThresholdOfDecimalThousands) {
    const json sample = SampleExpectation("180-card-capacity");
    for (const json& each : sample["cases"]) EXPECT_EQ(MemCardImages(each[0]), each[1]) << each[0];
}

TEST_F(CardImages, SmallestCardTakesSixtyImagesAndKeepsItsRest) {
    PlugIn(32768);
    const auto before = Card.Memory;
    WriteMemCard();
    ExpectImages(60);
    EXPECT_TRUE(std::equal(before.begin() + 30720, before.end(), Card.Memory.begin() + 30720));
    EXPECT_THAT(Texts("status"),
                ElementsAre("Die Memorykarte wird gesucht ...", " 32KB grosse Memorykarte gefunden.",
                            "Schreibe Daten in Memory Karte",
                            "Fertig mit Schreiben. Bis Adresse 30720 geschrieben."));
}

TEST_F(CardImages, LabelTellsTheImageBeforeItIsWritten) {
    PlugIn(32768);
    WriteMemCard();
    const TextList labels = Texts("progress");
    ASSERT_EQ(labels.size(), 60u);
    EXPECT_EQ(labels[0], "Schreibe Szene (Lichtbild) Nr.: 0");
    EXPECT_EQ(labels[2], "Schreibe Szene (Lichtbild) Nr.: 2");
    EXPECT_EQ(labels[3], "Schreibe letzte Szene (Lichtbild) 3");
    EXPECT_EQ(labels[4], "Fülle Lichtbild  mit Null auf  4");
    EXPECT_EQ(labels[59], "Fülle Lichtbild  mit Null auf  59");
}

TEST_F(CardImages, SequenceOfAsManyStepsAsFitLosesItsLastSceneImage) {
    PlugIn(32768);
    TakeSteps(60);
    WriteMemCard();
    ExpectImages(60);
    EXPECT_TRUE(Texts("question").empty());
    for (std::size_t image = 0; image < 60; ++image) EXPECT_EQ(Card.Memory[512 * image + 511], 128) << image;
}

TEST_F(CardImages, SequenceOfOneStepLessEndsWithItsLastSceneImage) {
    PlugIn(32768);
    TakeSteps(59);
    SetHold(60, 3 * 256 + 4);
    SetBlend(60, 5 * 256 + 6);
    WriteMemCard();
    EXPECT_TRUE(Texts("question").empty());
    EXPECT_EQ(Texts("progress").back(), "Schreibe letzte Szene (Lichtbild) 59");
    EXPECT_EQ(Card.Memory[58 * 512 + 511], 128);
    const auto last = Card.Memory.begin() + std::ptrdiff_t{59} * 512;
    EXPECT_THAT(std::vector<int>(last, last + 13),
                ElementsAre(62, 63, 64, 65, 122, 123, 124, 125, 182, 183, 184, 185, 0))
        << "step 1";
    EXPECT_THAT(std::vector<int>(last + 506, last + 512), ElementsAre(5, 6, 3, 4, 0, 0));
}

TEST_F(CardImages, WaitsAndTheLabelComeBeforeTheQuestion) {
    PlugIn(32768);
    TakeSteps(61);
    std::vector<std::pair<std::string, int>> told; // with tenths of a second
    const double start = Now;
    const auto tell = [&](std::string_view text) {
        told.emplace_back(text, static_cast<int>((Now - start) * 10 + 0.05));
    };
    Screen.MemCardStatus = tell;
    Host.MsgBox = [&](std::string_view, Buttons, std::string_view title, Icon) {
        tell(title);
        return Answer::No;
    };
    WriteMemCard();
    EXPECT_THAT(told,
                ElementsAre(std::pair("Die Memorykarte wird gesucht ...", 0),
                            std::pair(" 32KB grosse Memorykarte gefunden.", 0),
                            std::pair("Schreibe Daten in Memory Karte", 5), std::pair("SAVE OPTIONS", 6),
                            std::pair("Schreiben wurde abgebrochen!", 6)));
}

TEST_F(CardImages, AbortDuringTheWaitsBeforeItEndsTheWritingAtAddressZeroWithoutAQuestion) {
    PlugIn(32768);
    TakeSteps(61);
    const auto before = Card.Memory;
    for (const double moment : {0.2, 0.55}) {
        Log.clear();
        Host.DoEvents = [this, giveUpAt = Now + moment] {
            Now += 0.01;
            if (Now >= giveUpAt) Show.MemCardAbort = MemCardGivenUp;
            return true;
        };
        const double start = Now;
        WriteMemCard();
        EXPECT_NEAR(Now - start, moment, 0.011);
        EXPECT_EQ(Status(), "Abbruch beim Schreiben. Bis Adresse 0 geschrieben.");
        EXPECT_TRUE(Texts("question").empty() && Texts("box").empty() && Texts("progress").empty());
        EXPECT_EQ(Card.Memory, before);
    }
}

TEST_F(CardImages, LongerSequenceIsWrittenInPartAfterAQuestion) {
    PlugIn(32768);
    TakeSteps(61);
    Answers = {Answer::Yes};
    WriteMemCard();
    ExpectImages(60);
    const auto asked = std::find_if(Log.begin(), Log.end(),
                                    [](const Noticed& noticed) { return noticed.Kind == "question"; });
    EXPECT_EQ(*asked,
              (Noticed{"question",
                       "Sequenz kann nicht komplett auf die Memorykarte gespeichert werden.Soll so ich "
                       "bis 60 Scenen abspeichern?",
                       "", "SAVE OPTIONS", Icon::Question}));
}

TEST_F(CardImages, NothingIsWrittenWhenTheUserDoesNotWantAPart) {
    PlugIn(32768);
    const auto before = Card.Memory;
    TakeSteps(61);
    Answers = {Answer::No};
    WriteMemCard();
    EXPECT_EQ(Card.Memory, before);
    EXPECT_EQ(Status(), "Schreiben wurde abgebrochen!");
}

TEST_F(CardImages, FillImagesHaveNoMarker) {
    PlugIn(32768);
    WriteMemCard();
    EXPECT_EQ(Card.Memory[2 * 512 + 511], 128);
    for (std::size_t image = 3; image < 60; ++image) EXPECT_EQ(Card.Memory[512 * image + 511], 0) << image;
}

TEST_F(CardImages, ImagesBeyondTheStepsThereCanBeAreZeroWithZeroTimes) {
    PlugIn(262144);
    WriteMemCard();
    EXPECT_EQ(Card.Memory[254 * 512 + 509], 1) << "the last step there can be holds one tick";
    for (std::size_t cell = 255 * 512; cell < 480 * 512; ++cell) ASSERT_EQ(Card.Memory[cell], 0) << cell;
    EXPECT_EQ(Status(), "Fertig mit Schreiben. Bis Adresse 245760 geschrieben.");
}

TEST_F(CardImages, WithoutASequenceStepOneIsTheLastSceneImage) {
    PlugIn(32768);
    Show.StepCount = 0;
    WriteMemCard();
    EXPECT_EQ(Texts("progress")[0], "Schreibe letzte Szene (Lichtbild) 0");
    EXPECT_EQ(Card.Memory[0], 1 + 60 + 1);
    EXPECT_EQ(Card.Memory[511], 0);
}

TEST_F(CardImages, WithoutACardNothingIsWrittenAndTheAdapterIsNamed) {
    Answers = {Answer::Ignore};
    WriteMemCard();
    EXPECT_THAT(Texts("box"),
                ElementsAre(" Keine Memorykarte gefunden. Überprüfen Sie die Memoryramcard und die "
                            "E/A Adresse der Schnittstellenkarte . E/A = 512"));
    EXPECT_EQ(Status(), "Keine Memorykarte gefunden!");
    EXPECT_EQ(Waits.size(), 21u) << "the probe, and what stood there before";
}

TEST_F(CardImages, FaultyCardIsNotWrittenAndItsTextStays) {
    PlugIn(32768);
    Card.StuckLow = 8;
    const auto before = Card.Memory;
    WriteMemCard();
    EXPECT_EQ(Card.Memory, before);
    EXPECT_EQ(Status(), "E/A -Fehler. Kann Karte nicht ansprechen");
    EXPECT_EQ(Texts("box").size(), 1u) << "the detection's own";
}

TEST_F(CardImages, CardOfUnknownSizeIsWrittenAsTheLargest) {
    PlugIn(2097152);
    Show.ElementCount = 0;
    WriteMemCard();
    EXPECT_EQ(Status(), "Fertig mit Schreiben. Bis Adresse 983040 geschrieben.");
}

TEST_F(CardImages, AbortInTheRetryBoxStopsWritingAtOnce) {
    PlugIn(32768);
    Card.RefusedWrites[700] = 1000;
    Answers = {Answer::Abort};
    WriteMemCard();
    EXPECT_EQ(Status(), "Abbruch beim Schreiben. Bis Adresse 700 geschrieben.");
    EXPECT_EQ(Card.Memory[701], static_cast<std::uint8_t>(701 * 7 + 701 / 256 + 3));
}

TEST_F(CardImages, AbortDuringTheSearchEndsTheWritingAtAddressZeroWithoutABox) {
    for (const std::uint32_t cell : {65536u, 64u}) {
        PlugIn(131072);
        Card.RefusedWrites[cell] = 20;
        const auto before = Card.Memory;
        Log.clear();
        Answers = {Answer::Abort};
        WriteMemCard();
        EXPECT_THAT(Texts("status"),
                    ElementsAre("Die Memorykarte wird gesucht ...", " 128KB grosse Memorykarte gefunden.",
                                "Schreibe Daten in Memory Karte",
                                "Abbruch beim Schreiben. Bis Adresse 0 geschrieben."));
        EXPECT_TRUE(Texts("box").empty()) << cell;
        EXPECT_EQ(Card.Memory, before);
    }
}

TEST_F(CardImages, IgnoredByteIsPassedOver) {
    PlugIn(32768);
    Card.RefusedWrites[700] = 20;
    Answers = {Answer::Ignore};
    WriteMemCard();
    EXPECT_EQ(Status(), "Fertig mit Schreiben. Bis Adresse 30720 geschrieben.");
    EXPECT_EQ(Card.Memory[700], static_cast<std::uint8_t>(700 * 7 + 700 / 256 + 3));
}

TEST_F(CardImages, CardPulledOutMidwayAsksForEachByteUntilTheUserGivesUp) {
    PlugIn(65536);
    Card.WritesUntilPulled = 5000;
    Answers = {Answer::Retry, Answer::Ignore, Answer::Abort};
    WriteMemCard();
    EXPECT_THAT(Status(), testing::StartsWith("Abbruch beim Schreiben. Bis Adresse 49"));
    EXPECT_EQ(Texts("question").size(), 3u);
}

TEST_F(CardImages, AbortFromOutsideStopsBetweenTwoBytes) {
    PlugIn(32768);
    GiveUpAfter(1000);
    WriteMemCard();
    EXPECT_THAT(Status(), testing::StartsWith("Abbruch beim Schreiben. Bis Adresse "));
    EXPECT_LT(Card.Writes, 1010);
}

TEST_F(CardImages, ClosingTheProgramEndsTheWritingWithoutABox) {
    PlugIn(32768);
    AccessTime = 0.001;
    Host.ServeEvents = [] { return false; };
    WriteMemCard();
    EXPECT_EQ(Show.MemCardAbort, MemCardLeft);
    EXPECT_TRUE(Texts("box").empty() && Texts("question").empty());
}

TEST_F(CardImages, ClosingTheProgramDuringTheSearchShowsNoBox) {
    Host.DoEvents = [] { return false; };
    WriteMemCard();
    EXPECT_TRUE(Texts("box").empty());
    EXPECT_EQ(Texts("status").size(), 2u);
}

} // namespace
} // namespace quorvane
