#include "bench/bench.h"

#include "model/text.h"

#include <limits>
#include <utility>
#include <vector>

namespace quorvane {

using Text = Bench;

TEST_F(Text, DecimalIsPlainWithoutPadding) {
    EXPECT_EQ(Decimal(0), "0");
    EXPECT_EQ(Decimal(12), "12");
    EXPECT_EQ(Decimal(-3), "-3");
}

TEST_F(Text, HexadecimalIsUpperCaseWithoutPrefix) {
    EXPECT_EQ(Hexadecimal(0x160), "160");
    EXPECT_EQ(Hexadecimal(0xabc), "ABC");
    EXPECT_EQ(Hexadecimal(0), "0");
}

TEST_F(Text, TypedNumberTakesWhatStandsAtTheStart) {
    constexpr auto most = std::numeric_limits<std::int32_t>::max();
    constexpr auto least = std::numeric_limits<std::int32_t>::min();
    const std::vector<std::pair<std::string, std::int32_t>> cases{{"", 0},
                                                                  {"   ", 0},
                                                                  {"abc", 0},
                                                                  {"12", 12},
                                                                  {" 1 2 ", 12},
                                                                  {"\t7", 7},
                                                                  {"-5", -5},
                                                                  {"- 5", -5},
                                                                  {"+5", 5},
                                                                  {"--5", 0},
                                                                  {"+-5", 0},
                                                                  {"-", 0},
                                                                  {"+", 0},
                                                                  {".", 0},
                                                                  {"12x9", 12},
                                                                  {"3,7", 3},
                                                                  {"5.", 5},
                                                                  {".75", 1},
                                                                  {"1.2.9", 1},
                                                                  {"1e3", 1},
                                                                  {"007", 7},
                                                                  {"&H10", 0},
                                                                  {"ä1", 0},
                                                                  {"5-3", 5},
                                                                  {"2147483647", most},
                                                                  {"2147483648", most},
                                                                  {"-99999999999", least},
                                                                  {std::string(400, '9'), most},
                                                                  {"-" + std::string(400, '9'), least},
                                                                  {"0." + std::string(400, '0') + "1", 0}};
    for (const auto& [typed, number] : cases) EXPECT_EQ(TypedNumber(typed), number) << typed;
}

TEST_F(Text, TypedNumberRoundsHalvesToEven) {
    const std::vector<std::pair<std::string, std::int32_t>> cases{
        {"0.5", 0}, {"1.5", 2}, {"2.5", 2}, {"3.5", 4}, {"-0.5", 0}, {"-1.5", -2}, {"2.4", 2}, {"2.6", 3}};
    for (const auto& [typed, number] : cases) EXPECT_EQ(TypedNumber(typed), number) << typed;
}

TEST_F(Text, NameOfThreeCharactersIsPaddedWithSeventeenBlanks) {
    EXPECT_EQ(Padded20("Rot"), "Rot" + std::string(17, ' '));
    EXPECT_EQ(Padded20(""), std::string(20, ' '));
}

TEST_F(Text, NameOfTwentyFiveCharactersIsCutAtTwenty) {
    EXPECT_EQ(Padded20("abcdefghijklmnopqrstuvwxy"), "abcdefghijklmnopqrst");
    EXPECT_EQ(Padded20("abcdefghijklmnopqrst"), "abcdefghijklmnopqrst");
}

TEST_F(Text, TwentyCharactersAreCharactersAndNotBytes) {
    EXPECT_EQ(Padded20("Grün"), "Grün" + std::string(16, ' '));
    std::string umlauts;
    for (int i = 0; i < 20; ++i) umlauts += "ä";
    EXPECT_EQ(Padded20(umlauts), umlauts);
    EXPECT_EQ(Padded20(umlauts + "ö"), umlauts);
    EXPECT_EQ(Padded20("€𝄞"), "€𝄞" + std::string(18, ' '));
}

TEST_F(Text, AccentsAreJoinedBeforeCharactersAreCounted) {
    Host.ComposeText = [](std::string_view text) { return text == "u\u0308" ? std::string("ü") : ""; };
    EXPECT_EQ(Padded20("u\u0308"), "ü" + std::string(19, ' '));
}

TEST_F(Text, TrimmingTakesBlanksOff) {
    EXPECT_EQ(TrimmedRight("  Farbe1   "), "  Farbe1");
    EXPECT_EQ(TrimmedRight("    "), "");
    EXPECT_EQ(Trimmed(" \t12 \t"), "12");
    EXPECT_EQ(Trimmed(" \t "), "");
    EXPECT_EQ(Trimmed("a b"), "a b");
}

TEST_F(Text, UpperCaseLeavesEverythingButAsciiLetters) { EXPECT_EQ(UpperCase("az[Ä]ä9"), "AZ[Ä]ä9"); }

TEST_F(Text, RoundingTakesHalvesToEven) {
    const std::vector<std::pair<double, int>> cases{{25.5, 26}, {127.5, 128}, {178.5, 178}, {229.5, 230},
                                                    {-0.5, 0},  {0.49, 0},    {2.5, 2}};
    for (const auto& [value, rounded] : cases) {
        EXPECT_EQ(RoundHalfEven(value), rounded) << value;
        EXPECT_EQ(RoundHalfEven(static_cast<float>(value)), rounded) << value;
    }
}

TEST_F(Text, TickTextJoinsTextsAndNumbers) {
    TickText text;
    text << 12 << "Hold  ";
    EXPECT_EQ(text.View(), "12Hold  ");
    EXPECT_EQ((TickText{} << std::numeric_limits<int>::min()).View(), "-2147483648");
    EXPECT_EQ(TickText{}.View(), "");
}

TEST_F(Text, TickTextLeavesOffWhatDoesNotFit) {
    TickText text;
    text << std::string(159, 'x') << 42 << "yz";
    EXPECT_EQ(text.View(), std::string(159, 'x') + "4");
}

} // namespace quorvane
