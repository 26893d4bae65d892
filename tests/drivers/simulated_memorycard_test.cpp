#include "drivers/simulated_memorycard.h"

#include <gtest/gtest.h>

namespace quorvane {
namespace {

SimulatedMemoryCard CardOf(std::size_t size) {
    SimulatedMemoryCard card;
    card.Memory.resize(size);
    return card;
}

void Latch(SimulatedMemoryCard& card, std::int32_t address) {
    card.WritePort(0x201, address & 255);
    card.WritePort(0x202, address >> 8 & 255);
    card.WritePort(0x203, address >> 16);
}

void Put(SimulatedMemoryCard& card, std::int32_t address, std::int32_t value) {
    Latch(card, address);
    card.WriteData(0x200, value);
}

std::int32_t Get(SimulatedMemoryCard& card, std::int32_t address) {
    Latch(card, address);
    return card.ReadPort(0x200);
}

TEST(SimulatedMemoryCard, KeepsBytesBehindTheLatchedAddress) {
    SimulatedMemoryCard card = CardOf(1048576);
    Put(card, 0, 1);
    Put(card, 0x0FEDCB, 2);
    Put(card, 1048575, 3);
    EXPECT_EQ(Get(card, 0), 1);
    EXPECT_EQ(Get(card, 0x0FEDCB), 2);
    EXPECT_EQ(card.Memory.back(), 3);
}

TEST(SimulatedMemoryCard, BeginsAgainBehindItsEnd) {
    SimulatedMemoryCard card = CardOf(32768);
    Put(card, 32768 + 5, 9);
    EXPECT_EQ(card.Memory[5], 9);
    EXPECT_EQ(Get(card, 3 * 32768 + 5), 9);
}

TEST(SimulatedMemoryCard, DataPortTakesDataWritesOnly) {
    SimulatedMemoryCard card = CardOf(32768);
    card.WritePort(0x200, 9);
    card.WriteData(0x201, 9);
    card.WriteData(0x1FF, 9);
    EXPECT_EQ(Get(card, 0), 0);
    EXPECT_EQ(card.Writes, 0);
}

TEST(SimulatedMemoryCard, ControlRegisterReadsBack) {
    SimulatedMemoryCard card;
    card.WritePort(0x203, 255);
    EXPECT_EQ(card.ReadPort(0x203), 255);
    card.WritePort(0x203, 4);
    EXPECT_EQ(card.ReadPort(0x203), 4);
    EXPECT_EQ(card.ReadPort(0x201), 255);
}

TEST(SimulatedMemoryCard, EmptyAdapterReads255) {
    SimulatedMemoryCard card;
    Put(card, 0, 9);
    EXPECT_EQ(Get(card, 0), 255);
}

TEST(SimulatedMemoryCard, StuckLinesLeadToAnotherCell) {
    SimulatedMemoryCard card = CardOf(32768);
    card.StuckLow = 1 << 4;
    Put(card, 16 + 3, 9);
    EXPECT_EQ(card.Memory[3], 9);
    card.StuckLow = 0;
    card.StuckHigh = 1 << 5;
    Put(card, 1, 8);
    EXPECT_EQ(card.Memory[33], 8);
}

TEST(SimulatedMemoryCard, CellLosesItsFirstWrites) {
    SimulatedMemoryCard card = CardOf(32768);
    card.RefusedWrites[7] = 2;
    for (const std::int32_t value : {1, 2, 3}) {
        Put(card, 7, value);
        EXPECT_EQ(Get(card, 7), value == 3 ? 3 : 0);
    }
    Put(card, 8, 1);
    EXPECT_EQ(Get(card, 8), 1);
}

TEST(SimulatedMemoryCard, PulledOutCardKeepsWhatItHas) {
    SimulatedMemoryCard card = CardOf(32768);
    card.WritesUntilPulled = 2;
    for (std::int32_t address = 0; address < 4; ++address) Put(card, address, 9);
    EXPECT_EQ(Get(card, 0), 255);
    EXPECT_EQ(card.Memory[1], 9);
    EXPECT_EQ(card.Memory[2], 0);
}

TEST(SimulatedMemoryCard, SettingDescribesSizeAndFaults) {
    for (const auto& [text, size] : std::vector<std::pair<const char*, std::size_t>>{
             {"32KB", 32768}, {"64kb", 65536}, {" 1MB ", 1048576}, {"4mb", 4194304}}) {
        const auto card = ParseSimulatedMemoryCard(text);
        ASSERT_TRUE(card) << text;
        EXPECT_EQ(card->Memory.size(), size);
    }
    const auto faulty = ParseSimulatedMemoryCard("leitung:13 64KB Zelle:1000:25\tZIEHEN:20000");
    ASSERT_TRUE(faulty);
    EXPECT_EQ(faulty->StuckLow, 1u << 13);
    EXPECT_EQ(faulty->RefusedWrites.at(1000), 25);
    EXPECT_EQ(faulty->WritesUntilPulled, 20000);
}

TEST(SimulatedMemoryCard, SettingThatIsNoneIsRefused) {
    for (const char* text :
         {"", "48KB", "32KB 64KB", "Leitung:4", "32KB Leitung:24", "32KB Leitung:", "32KB Leitung:-1",
          "32KB Zelle:", "32KB Zelle:5", "32KB Zelle::", "32KB Zelle:5:", "32KB Ziehen:x",
          "32KB Ziehen:99999999", "32KB,"})
        EXPECT_FALSE(ParseSimulatedMemoryCard(text)) << text;
}

} // namespace
} // namespace quorvane
