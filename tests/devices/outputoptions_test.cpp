#include "devices/outputoptions.h"

#include "bench/bench.h"
#include "bench/testdata.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <limits>

namespace quorvane {
namespace {

using nlohmann::json;

const std::string RepeatAdvice = " Beim Sende repeat sollte der Wert 50 unbedingt beibehalten werden!";

OutputOptions Options(const std::vector<int>& values, bool software = false) {
    OutputOptions options;
    for (int field = StartSync; field <= SendRepeat; ++field)
        options.Fields[field] = values.at(static_cast<std::size_t>(field));
    options.SoftwareRepeat = software;
    return options;
}

class OutputOptionsTest : public Bench {
protected:
    static std::vector<int> Block() { return {Show.DmxIni.begin(), Show.DmxIni.end()}; }
    static void SetBlock(const std::vector<int>& words) {
        Show.DmxIni.Fill(0);
        for (int word = 0; word < static_cast<int>(words.size()); ++word)
            Show.DmxIni[word] = static_cast<std::int16_t>(words.at(static_cast<std::size_t>(word)));
    }
};

TEST_F(OutputOptionsTest, FieldsBecomeWhatTheWorkedOutCasesSay) {
    std::ifstream file(TestData("samples/256-options/expected.json"));
    const json expected = json::parse(file);
    ASSERT_EQ(expected["fields"].size(), 162u);
    for (const json& field : expected["fields"]) {
        SCOPED_TRACE(field.dump());
        Show.ElementCount = field["ElementCount"].get<std::uint8_t>();
        const int index = field["index"];
        const int value = field["value"];
        const OptionCheck check = CheckOption(index, value);
        EXPECT_EQ(check.Value, field["after"]);
        const json messages = check.Message.empty() ? json::array() : json{check.Message};
        EXPECT_EQ(messages, field["messages"]);
        if (field["label"].is_null()) continue; // no label of its own
        EXPECT_EQ(OptionWarning(index, check.Value), field["label"]);
    }
    ASSERT_EQ(expected["words"].size(), 8u);
    for (const json& words : expected["words"]) {
        SCOPED_TRACE(words.dump());
        Show.DmxIni.Fill(99);
        SaveConfig(Options(words["fields"], words["software"]));
        EXPECT_EQ(json(Block()), words["words"]);
        EXPECT_EQ(Show.ChannelCount, words["fields"][4]);
    }
    ASSERT_EQ(expected["lengths"].size(), 60u);
    for (const json& length : expected["lengths"]) {
        SCOPED_TRACE(length.dump());
        Show.InterfaceType = length["type"];
        BerechneSendelänge(Options({length["D0"], 0, 0, length["D3"], length["D4"], 50}));
        EXPECT_EQ(Show.SendLength, length["SendLength"]);
        std::string shown = length["text"];
        std::ranges::replace(shown, ',', '.');
        EXPECT_EQ(SendLengthTenths(), std::lround(std::stod(shown) * 10));
    }
}

TEST_F(OutputOptionsTest, StartSyncIsHeldBetween64And180AndWarnedOfBelow88) {
    EXPECT_EQ(CheckOption(StartSync, 70).Value, 70);
    EXPECT_TRUE(OptionWarning(StartSync, 70));
    EXPECT_EQ(CheckOption(StartSync, 50).Value, 64);
    EXPECT_TRUE(OptionWarning(StartSync, 64));
    EXPECT_EQ(CheckOption(StartSync, 200).Value, 180);
    EXPECT_FALSE(OptionWarning(StartSync, 88));
}

TEST_F(OutputOptionsTest, NegativeValuesAreZeroButForTheIdleTimeThatIsWarnedOf) {
    for (const int field : {StartByte, InterdigitTime, SendChannels})
        EXPECT_EQ(CheckOption(field, -5).Value, 0) << field;
    EXPECT_EQ(CheckOption(IdleTime, -5).Value, -5);
    EXPECT_TRUE(OptionWarning(IdleTime, -5));
    EXPECT_TRUE(OptionWarning(IdleTime, 0));
    EXPECT_FALSE(OptionWarning(IdleTime, 1));
    EXPECT_FALSE(OptionWarning(StartByte, 0));
}

TEST_F(OutputOptionsTest, RepeatOf50AloneIsNotAdvisedAgainst) {
    EXPECT_EQ(CheckOption(SendRepeat, 50).Message, "");
    EXPECT_EQ(CheckOption(SendRepeat, 40).Value, 40);
    EXPECT_EQ(CheckOption(SendRepeat, 40).Message, RepeatAdvice);
    EXPECT_EQ(CheckOption(SendRepeat, 10).Value, 30);
    EXPECT_EQ(CheckOption(SendRepeat, 5000).Value, 1000);
}

TEST_F(OutputOptionsTest, TooFewChannelsAreToldAndKept) {
    MakeWall(11, 11);
    const OptionCheck check = CheckOption(SendChannels, 483);
    EXPECT_EQ(check.Value, 483);
    EXPECT_EQ(check.Message,
              "Es werden für 121 Elemente 484 DMX Kanäle benötigt. Ihre Einstellung unterschreitet die "
              "Anzahl benötigter DMX Kanäle!");
    EXPECT_EQ(CheckOption(SendChannels, 484).Message, "");
    // A wall from a file may be larger than the line: nothing is enough then.
    Show.ElementCount = 250;
    EXPECT_EQ(CheckOption(SendChannels, 2000).Value, 512);
    EXPECT_NE(CheckOption(SendChannels, 2000).Message, "");
}

TEST_F(OutputOptionsTest, InterfacesFixWhatTheyDecideThemselves) {
    using Row = std::vector<std::string>;
    const Row free(6);
    const std::vector<Row> expected{free,
                                    free,
                                    {"Auto", "0", "Auto", "", "512", "Auto"},
                                    {"Auto", "0", "Auto", "Auto", "512", "Auto"},
                                    {"Auto", "0", "Auto", "Auto", "512", "Auto"},
                                    {"Auto", "0", "Auto", "Auto", "512", "Auto"}};
    for (std::int16_t type = NoInterface; type <= PciCard; ++type) {
        Row row;
        for (int field = StartSync; field <= SendRepeat; ++field) row.emplace_back(FixedOption(type, field));
        EXPECT_EQ(row, expected.at(static_cast<std::size_t>(type))) << type;
    }
    EXPECT_EQ(FixedOption(17, StartSync), "") << "a stored type may be anything";
}

TEST_F(OutputOptionsTest, StoredValuesComeOutOfTheBlock) {
    Show.StatusFlags.Clear(Status::AutoChannelCount);
    SetBlock({60, 12, 3, 228, 1, 1, 7});
    const std::vector<int> expected{120, 3, 12, 7, 484, 50};
    for (int field = StartSync; field <= SendRepeat; ++field)
        EXPECT_EQ(StoredOption(field, false), expected.at(static_cast<std::size_t>(field))) << field;
}

TEST_F(OutputOptionsTest, StoredChannelsUndoTheUnevenSplit) {
    Show.StatusFlags.Clear(Status::AutoChannelCount);
    struct Case {
        int low, high, channels;
    };
    for (const Case& c :
         {Case{0, 1, 512}, Case{0, 0, 256}, Case{100, 0, 100}, Case{1, 1, 257}, Case{228, 2, 512}}) {
        SetBlock({60, 0, 0, c.low, c.high});
        EXPECT_EQ(StoredOption(SendChannels, false), c.channels) << c.low << ',' << c.high;
    }
    SetBlock({});
    Show.ChannelCount = 100;
    EXPECT_EQ(StoredOption(SendChannels, false), 100) << "a block that was never set says nothing";
    Show.ChannelCount = 740;
    EXPECT_EQ(StoredOption(SendChannels, false), 512);
}

TEST_F(OutputOptionsTest, AutomaticCountIsThatOfTheWall) {
    MakeWall(10, 5);
    EXPECT_EQ(Block()[4], 1) << "rounded by the wall build: read back it would be 456";
    EXPECT_EQ(StoredOption(SendChannels, true), 200);
    EXPECT_EQ(StoredOption(SendChannels, false), 200) << "still so while only the box was cleared";
    Show.StatusFlags.Clear(Status::AutoChannelCount);
    EXPECT_EQ(StoredOption(SendChannels, true), 200) << "already so while only the box was ticked";
    EXPECT_EQ(StoredOption(SendChannels, false), 456);
    Show.ElementCount = 250;
    EXPECT_EQ(StoredOption(SendChannels, true), 512);
}

TEST_F(OutputOptionsTest, DefaultsAreThoseOfAFreshCard) {
    const std::vector<int> defaults{120, 0, 0, 0, 512, 50};
    OutputOptions options;
    for (int field = StartSync; field <= SendRepeat; ++field) {
        EXPECT_EQ(DefaultOption(field, false), defaults.at(static_cast<std::size_t>(field))) << field;
        options.Fields[field] = DefaultOption(field, true);
    }
    EXPECT_EQ(DefaultOption(SendChannels, true), 512) << "without a wall";
    SaveConfig(options);
    EXPECT_EQ(Block(), (std::vector<int>{60, 0, 0, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
    MakeWall(10, 5);
    EXPECT_EQ(DefaultOption(SendChannels, true), 200);
    EXPECT_EQ(DefaultOption(SendChannels, false), 512);
}

TEST_F(OutputOptionsTest, ChannelCountIsSplitUnevenly) {
    struct Case {
        int channels, low, high;
    };
    for (const Case& c : {Case{512, 0, 1}, Case{256, 0, 0}, Case{100, 100, 0}, Case{484, 228, 1},
                          Case{257, 1, 1}, Case{1, 1, 0}, Case{0, 0, 0}}) {
        SaveConfig(Options({120, 0, 0, 0, c.channels, 50}));
        EXPECT_EQ(Show.DmxIni[3], c.low) << c.channels;
        EXPECT_EQ(Show.DmxIni[4], c.high) << c.channels;
    }
}

TEST_F(OutputOptionsTest, HalvesOfTheStartSyncAreRoundedToEven) {
    SaveConfig(Options({115, 0, 0, 0, 512, 50}));
    EXPECT_EQ(Show.DmxIni[0], 58);
    SaveConfig(Options({117, 0, 0, 0, 512, 50}));
    EXPECT_EQ(Show.DmxIni[0], 58);
}

TEST_F(OutputOptionsTest, WordsWhoseFieldsShowAutoKeepTheirValue) {
    SetBlock({55, 22, 9, 44, 0, 1, 33, 5, 5});
    OutputOptions options;
    options.Fields[StartByte] = 0;
    options.Fields[SendChannels] = 512;
    EXPECT_TRUE(ChangedConfig(options));
    SaveConfig(options);
    EXPECT_EQ(Block(), (std::vector<int>{55, 22, 0, 0, 1, 0, 33, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
    EXPECT_FALSE(ChangedConfig(options));
}

TEST_F(OutputOptionsTest, EveryUsedWordCountsAsAChange) {
    const OutputOptions stored = Options({120, 3, 12, 7, 484, 50}, true);
    SaveConfig(stored);
    EXPECT_FALSE(ChangedConfig(stored));
    for (int field = StartSync; field <= InterdigitTime; ++field) {
        OutputOptions other = stored;
        other.Fields[field] = *other.Fields[field] + 2;
        EXPECT_TRUE(ChangedConfig(other)) << field;
    }
    EXPECT_TRUE(ChangedConfig(Options({120, 3, 12, 7, 483, 50}, true)));
    EXPECT_TRUE(ChangedConfig(Options({120, 3, 12, 7, 228, 50}, true))) << "the high part alone";
    EXPECT_TRUE(ChangedConfig(Options({120, 3, 12, 7, 484, 50}, false)));
    EXPECT_FALSE(ChangedConfig(Options({120, 3, 12, 7, 484, 999}, true))) << "the repeat is no part of it";
}

TEST_F(OutputOptionsTest, SavingMarksTheConfigurationAndTheBlock) {
    Show.DmxIniDirty = 0;
    SaveConfig(Options({120, 0, 0, 0, 512, 50}));
    EXPECT_EQ(Show.DmxIniDirty, 1);
    EXPECT_TRUE(Show.ChangeFlags.Has(Change::ConfigChanged));
}

TEST_F(OutputOptionsTest, NothingNewIsNotWritten) {
    SaveConfig(Options({120, 0, 0, 0, 512, 50}));
    Show.DmxIniDirty = 0;
    Show.ChangeFlags = {};
    Show.InterfaceType = UsbInterface;
    Show.ChannelCount = 200;
    EXPECT_TRUE(TakeOptions(Options({120, 0, 0, 0, 512, 70})));
    EXPECT_EQ(Show.DmxIniDirty, 0);
    EXPECT_EQ(Show.ChangeFlags.bits, 0);
    EXPECT_EQ(Show.ChannelCount, 512) << "the count in use follows the field all the same";
    EXPECT_EQ(StoredOption(SendRepeat, false), 70) << "kept until the program ends";
}

TEST_F(OutputOptionsTest, TakingTheAutomaticCountUntouchedMayChangeTheConfiguration) {
    Show.StatusFlags.Set(Status::AutoChannelCount);
    MakeWall(11, 11);
    EXPECT_EQ(Show.DmxIni[3], 228);
    EXPECT_EQ(Show.DmxIni[4], 2);
    std::vector<int> untouched;
    for (int field = StartSync; field <= SendRepeat; ++field) untouched.push_back(StoredOption(field, true));
    Show.ChangeFlags = {};
    EXPECT_TRUE(TakeOptions(Options(untouched)));
    EXPECT_EQ(Show.DmxIni[3], 228);
    EXPECT_EQ(Show.DmxIni[4], 1);
    EXPECT_TRUE(Show.ChangeFlags.Has(Change::ConfigChanged));
}

TEST_F(OutputOptionsTest, FirstCardKindKeepsTheCountThatItRebuilt) {
    SaveConfig(Options({120, 0, 0, 0, 512, 50}));
    Show.InterfaceType = IsaCardB;
    Show.ChannelCount = 256; // 1 x 256 + 0, as its tick does
    EXPECT_TRUE(TakeOptions(Options({120, 0, 0, 0, StoredOption(SendChannels, false), 50})));
    EXPECT_EQ(Show.ChannelCount, 256);
    EXPECT_EQ(Show.DmxIni[4], 1);
}

TEST_F(OutputOptionsTest, TransferToThePlayUnitKeepsTheBlockForItself) {
    SaveConfig(Options({120, 0, 0, 0, 512, 50}));
    const auto block = Show.DmxIni;
    Show.timSendToMerger.Enabled = true;
    EXPECT_TRUE(TakeOptions(Options({120, 0, 0, 0, 512, 50}))) << "nothing to write";
    EXPECT_FALSE(TakeOptions(Options({140, 0, 0, 0, 512, 50})));
    EXPECT_EQ(Texts("box"), std::vector<std::string>{"Während eine Sequenz gesendet wird, können die DMX "
                                                     "Einstellungen nicht geändert werden!"});
    EXPECT_EQ(Show.DmxIni, block);
}

TEST_F(OutputOptionsTest, LengthGoesByTheInterface) {
    Show.InterfaceType = IsaCardB;
    BerechneSendelänge(Options({88, 0, 0, 0, 512, 50}));
    EXPECT_EQ(Show.SendLength, 22624);
    EXPECT_EQ(SendLengthTenths(), 226);
    EXPECT_EQ(Show.SendLengthFives, 40);
    for (std::int16_t type = UsbInterface; type <= PciCard; ++type) {
        Show.InterfaceType = type;
        OutputOptions options; // every field "Auto"
        options.Fields[SendChannels] = 4;
        BerechneSendelänge(options);
        EXPECT_EQ(Show.SendLength, 23680) << "full frames, whatever the field says";
        EXPECT_EQ(SendLengthTenths(), 237);
    }
    Show.InterfaceType = NoInterface;
    BerechneSendelänge(Options({88, 0, 0, 0, 512, 50}));
    EXPECT_EQ(SendLengthTenths(), 0);
}

TEST_F(OutputOptionsTest, NumbersBeyondAllMeasureAreReckonedWith) {
    for (std::int16_t type = NoInterface; type <= PciCard; ++type) {
        Show.InterfaceType = type;
        for (const int number : {std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
            const OutputOptions options = Options({number, number, number, number, number, number});
            BerechneSendelänge(options);
            SendLengthTenths();
            ChangedConfig(options);
            for (int field = StartSync; field <= SendRepeat; ++field) CheckOption(field, number);
        }
    }
    EXPECT_EQ(Show.SendLengthFives, -32768);
}

} // namespace
} // namespace quorvane
