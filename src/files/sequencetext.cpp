#include "files/sequencetext.h"

#include "files/textwriter.h"
#include "model/sequence.h"

#include <algorithm>
#include <limits>

namespace quorvane {

namespace {

constexpr int ShortestSpeed = 5; // ticks; what a speed that cannot be used counts as

template<class Read> void PassOverFailure(Read read) {
    try {
        read();
    } catch (const ReadError&) {
        // meant: the values that are missing stay 0
    }
}

// Times up to 65535 are taken as well; they stand modulo 65536.
std::int16_t ReadTime(SectionedText& text) {
    const auto ticks = text.Value<std::int32_t>();
    if (ticks < std::numeric_limits<std::int16_t>::min() || ticks > std::numeric_limits<std::uint16_t>::max())
        throw ReadError("Die Zeit ist zu klein oder zu groß.");
    return static_cast<std::int16_t>(ticks);
}

// An old file lists the numbers of the selected elements. The shift by one is meant: number n is the
// element at index n - 1.
Table<std::uint8_t, 0, 254> FlagsOfList(const Table<std::uint8_t, 0, 254>& list) {
    Table<std::uint8_t, 0, 254> flags;
    for (const std::uint8_t number : list)
        if (number != 0) flags[number - 1] = 1;
    return flags;
}

void WriteLists(TextWriter& text) {
    text.Line("[Sequence]");
    for (int step = 1; step <= Show.StepCount; ++step)
        for (int element = 1; element <= Show.ElementCount; ++element)
            for (const std::uint8_t level : Show.SequenceSteps[step][element]) text.Add(level);
    text.EndList();
    text.Line("[HOLDBLEND]");
    for (int step = 1; step <= Show.StepCount; ++step)
        for (const std::int16_t ticks : Show.SequenceTimes[step]) text.Add(ticks);
    text.EndList();
    text.Line("[Selections]");
    for (int slot = 0; slot < SavedSelections; ++slot)
        for (int index = 0; index < Show.ElementCount; ++index) text.Add(Show.Selections[slot][index]);
    text.EndList();
}

} // namespace

SequenceHead ReadSequenceHead(SectionedText& text) {
    SequenceHead head;
    head.ElementLists = text.Header() == "Sequence von QUORVANE 98";
    PassOverFailure([&] {
        text.FindSection("[WALL]");
        head.Columns = text.KeyNumber();
        head.Rows = text.KeyNumber();
    });
    PassOverFailure([&] {
        text.FindSection("[CONFIG]");
        head.Elements = text.KeyNumber();
        head.Steps = text.KeyNumber();
        head.Speed = text.KeyNumber(4);
    });
    PassOverFailure([&] {
        text.FindSection("[OTHERFILES]");
        head.ColourTable = text.Text();
    });
    return head;
}

void ReadSteps(SectionedText& text, const SequenceHead& head, SequenceContent& content) {
    text.FindSection("[SEQUENCE]");
    for (int step = 1; step <= head.Steps; ++step)
        for (int element = 1; element <= head.Elements; ++element)
            for (std::uint8_t& level : content.Steps[step][element]) level = text.Value<std::uint8_t>();
}

void ReadTimes(SectionedText& text, const SequenceHead& head, SequenceContent& content) {
    text.FindSection("[HOLDBLEND]");
    for (int step = 1; step <= head.Steps; ++step) {
        content.Times[step][HoldTime] = ReadTime(text);
        content.Times[step][BlendTime] = ReadTime(text);
        if (content.Times[step][BlendTime] == 0) throw ReadError("Eine Blendzeit ist 0.");
    }
}

void DefaultTimes(const SequenceHead& head, SequenceContent& content) {
    const int speed = head.Speed < 1 ? ShortestSpeed : head.Speed;
    for (int step = 1; step <= head.Steps; ++step) {
        content.Times[step][HoldTime] = DefaultHold;
        content.Times[step][BlendTime] = static_cast<std::int16_t>(speed);
    }
}

void ReadSelections(SectionedText& text, const SequenceHead& head, SequenceContent& content) {
    text.FindSection("[SELECTIONS]");
    for (auto& selection : content.Selections) {
        for (int index = 0; index < head.Elements; ++index) selection[index] = text.Value<std::uint8_t>();
        if (head.ElementLists && selection[0] != 0) selection = FlagsOfList(selection);
    }
}

std::string SequenceText() {
    TextWriter text;
    text.Reserve(1000u + 5u * 4u * Show.StepCount * Show.ElementCount + 4u * 10u * Show.ElementCount);
    text.Line("Sequence von QUORVANE 99");
    text.Line("[Config]");
    text.Key("ElementeMax =   ", Show.ElementCount);
    text.Key("Sequencenmax =   ", Show.StepCount);
    text.Line("Speed =   " + Show.SequencerField[1]);
    text.Line("[WALL]");
    text.Key("Xmax = ", Show.WallColumns);
    text.Key("Ymax = ", Show.WallRows);
    text.Line("[OTHERFILES]");
    text.Line(Show.ColourTableFile);
    text.Line(Show.ConfigFile);
    WriteLists(text);
    return std::move(text).FileBytes();
}

} // namespace quorvane
