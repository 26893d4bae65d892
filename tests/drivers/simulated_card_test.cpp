#include "drivers/simulated_card.h"

#include <gtest/gtest.h>

namespace quorvane {
namespace {

SimulatedCard Card(CardModel model, CardFault fault = CardFault::None) {
    SimulatedCard card;
    card.Base = 0x120;
    card.Model = model;
    card.Fault = fault;
    return card;
}

void Put(SimulatedCard& card, int address, std::uint8_t value) {
    card.WritePort(card.Base, static_cast<std::uint8_t>(address & 255));
    card.WritePort(card.Base + 1, static_cast<std::uint8_t>(address / 256));
    card.WritePort(card.Base + 2, value);
}

std::uint8_t Get(SimulatedCard& card, int address) {
    card.WritePort(card.Base, static_cast<std::uint8_t>(address & 255));
    card.WritePort(card.Base + 1, static_cast<std::uint8_t>(address / 256));
    return card.ReadPort(card.Base + 2);
}

constexpr int State = 1017;

TEST(SimulatedCard, KeepsBytesBehindTheLatchedAddress) {
    SimulatedCard card = Card(CardModel::C7300A);
    Put(card, 0, 11);
    Put(card, 1023, 12);
    Put(card, 1024, 13);
    Put(card, 65535, 14);
    EXPECT_EQ(Get(card, 0), 11);
    EXPECT_EQ(Get(card, 1023), 12);
    EXPECT_EQ(Get(card, 1024), 13);
    EXPECT_EQ(Get(card, 65535), 14);
    EXPECT_EQ(card.Level(1), 13);
}

TEST(SimulatedCard, AnswersOnItsFourPortsOnly) {
    const SimulatedCard card = Card(CardModel::C7300A);
    EXPECT_FALSE(card.Answers(0x11F));
    EXPECT_TRUE(card.Answers(0x120));
    EXPECT_TRUE(card.Answers(0x123));
    EXPECT_FALSE(card.Answers(0x124));
}

TEST(SimulatedCard, ReportsTheStateOfItsModelAfterTheStrobeOfItsFamily) {
    struct Case {
        CardModel model;
        int state;
        bool startsByReading;
    };
    for (const Case& c : {Case{CardModel::C7300A, 128, true}, Case{CardModel::C7300BLC, 128, true},
                          Case{CardModel::C7300B, 1, true}, Case{CardModel::C7300C, 5, false}}) {
        SimulatedCard card = Card(c.model);
        Put(card, 0, 1);
        if (c.startsByReading)
            card.WritePort(card.Base + 3, 0);
        else
            card.ReadPort(card.Base + 3);
        EXPECT_EQ(card.Boots, 0) << "the other family's strobe";
        EXPECT_EQ(Get(card, State), 0);
        if (c.startsByReading)
            card.ReadPort(card.Base + 3);
        else
            card.WritePort(card.Base + 3, 0);
        EXPECT_EQ(card.Boots, 1);
        EXPECT_EQ(Get(card, State), c.state);
        EXPECT_EQ(card.ReadsOfReset, 1);
        EXPECT_EQ(card.WritesOfReset, 1);
    }
}

TEST(SimulatedCard, BootsOnlyWhatWasLoadedSinceTheLastBoot) {
    SimulatedCard card = Card(CardModel::C7300B);
    card.ReadPort(card.Base + 3);
    EXPECT_EQ(card.Boots, 0) << "nothing loaded";
    Put(card, 1, 1);
    card.ReadPort(card.Base + 3);
    Put(card, State, 9); // a parameter
    Put(card, 1024, 9);  // a level
    card.ReadPort(card.Base + 3);
    EXPECT_EQ(card.Boots, 1);
    EXPECT_EQ(Get(card, State), 9);
    Put(card, 1007, 1);
    card.ReadPort(card.Base + 3);
    EXPECT_EQ(card.Boots, 2);
    EXPECT_EQ(Get(card, State), 1);
}

TEST(SimulatedCard, ThatRunsByItselfBootsWithNothingLoaded) {
    for (const CardModel model : {CardModel::C7300A, CardModel::C7300BLC}) {
        SimulatedCard card = Card(model);
        card.ReadPort(card.Base + 3);
        EXPECT_EQ(Get(card, State), 128);
    }
}

TEST(SimulatedCard, OfFamilyBStopsAtEveryZeroWrittenToItsBase) {
    SimulatedCard card = Card(CardModel::C7300A);
    card.ReadPort(card.Base + 3);
    EXPECT_TRUE(card.Started);
    card.ReadPort(card.Base);
    EXPECT_TRUE(card.Started) << "a read stops the other family";
    card.WritePort(card.Base, 7);
    EXPECT_TRUE(card.Started);
    Put(card, 1024, 50); // its low byte is 0
    EXPECT_FALSE(card.Started);
    card.ReadPort(card.Base + 3);
    EXPECT_TRUE(card.Started);
    EXPECT_EQ(card.Boots, 1);
}

TEST(SimulatedCard, OfFamilyCStopsWhenItsBaseIsRead) {
    SimulatedCard card = Card(CardModel::C7300C);
    Put(card, 0, 1);
    card.WritePort(card.Base + 3, 1);
    EXPECT_FALSE(card.Started) << "the strobe is a 0";
    card.WritePort(card.Base + 3, 0);
    Put(card, 1024, 50);
    EXPECT_TRUE(card.Started);
    EXPECT_EQ(card.ReadPort(card.Base), 255);
    EXPECT_FALSE(card.Started);
    EXPECT_EQ(card.ReadsOfStop, 1);
}

TEST(SimulatedCard, FaultsShowInStateAndMemory) {
    SimulatedCard dead = Card(CardModel::C7300C, CardFault::Dead);
    Put(dead, 0, 1);
    dead.WritePort(dead.Base + 3, 0);
    EXPECT_EQ(Get(dead, State), 0);

    SimulatedCard garbage = Card(CardModel::C7300A, CardFault::Garbage);
    garbage.ReadPort(garbage.Base + 3);
    EXPECT_EQ(Get(garbage, State), 77);

    SimulatedCard second = Card(CardModel::C7300B, CardFault::SecondBootFails);
    for (const int state : {1, 0, 1, 0}) {
        Put(second, 0, 1);
        second.ReadPort(second.Base + 3);
        EXPECT_EQ(Get(second, State), state);
    }

    SimulatedCard forgetful = Card(CardModel::C7300A, CardFault::ForgetsByte);
    Put(forgetful, 5, 0xF0);
    Put(forgetful, 6, 0xF0);
    EXPECT_EQ(Get(forgetful, 5), 0x0F);
    EXPECT_EQ(Get(forgetful, 6), 0xF0);

    SimulatedCard unseen = Card(CardModel::C7300A, CardFault::ForgetsProbeCell);
    Put(unseen, 1023, 170);
    EXPECT_EQ(Get(unseen, 1023), 85);
}

TEST(SimulatedBus, ReadsHighWhereNoCardAnswers) {
    SimulatedBus bus;
    bus.Cards.push_back(Card(CardModel::C7300A));
    EXPECT_EQ(bus.ReadPort(0x100), 255);
    EXPECT_EQ(bus.ReadPort(0x122), 0);
    bus.WritePort(0x102, 1);
    bus.WritePort(0x122, 3);
    EXPECT_EQ(bus.ReadPort(0x122), 3);
}

TEST(SimulatedBus, FirstCardWinsWhereTwoShareABase) {
    SimulatedBus bus;
    bus.Cards = {Card(CardModel::C7300A), Card(CardModel::C7300B)};
    bus.WritePort(0x122, 3);
    EXPECT_EQ(bus.Cards[0].Memory[0], 3);
    EXPECT_EQ(bus.Cards[1].Memory[0], 0);
}

TEST(SimulatedCardSetting, NamesModelBaseAndFaultInAnyOrder) {
    struct Case {
        const char* text;
        CardModel model;
        std::uint32_t base;
        CardFault fault;
    };
    const Case cases[] = {
        {"7300A", CardModel::C7300A, 0x100, CardFault::None},
        {"7300B-LC 160", CardModel::C7300BLC, 0x160, CardFault::None},
        {" 140  7300b\t", CardModel::C7300B, 0x140, CardFault::None},
        {"7300C 120 dead", CardModel::C7300C, 0x120, CardFault::Dead},
        {"GARBAGE 7300C", CardModel::C7300C, 0x100, CardFault::Garbage},
        {"7300B second-boot-fails", CardModel::C7300B, 0x100, CardFault::SecondBootFails},
        {"7300A forgets-byte", CardModel::C7300A, 0x100, CardFault::ForgetsByte},
        {"7300A forgets-probe-cell", CardModel::C7300A, 0x100, CardFault::ForgetsProbeCell},
    };
    for (const Case& c : cases) {
        const auto card = ParseSimulatedCard(c.text);
        ASSERT_TRUE(card) << c.text;
        EXPECT_EQ(card->Model, c.model) << c.text;
        EXPECT_EQ(card->Base, c.base) << c.text;
        EXPECT_EQ(card->Fault, c.fault) << c.text;
    }
}

TEST(SimulatedCardSetting, IsRefusedWhole) {
    for (const char* text : {"", "  ", "140", "dead", "7300", "7300D", "7300A 7300B", "7300A 100 120",
                             "7300A 180", "7300A 140h", "7300A dead garbage", "7300A, 140"})
        EXPECT_FALSE(ParseSimulatedCard(text)) << text;
}

} // namespace
} // namespace quorvane
