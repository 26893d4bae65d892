// The text of a sequence file. It is read as a whole before the show takes any of it over.
#pragma once

#include "files/sceneimport.h"
#include "files/sectionedtext.h"
#include "model/show.h"

#include <string>

namespace quorvane {

// What stands before the lists. A value that is missing is 0.
struct SequenceHead {
    bool ElementLists = false; // an old file, whose selections are lists of element numbers
    int Columns = 0;
    int Rows = 0;
    int Elements = 0;
    int Steps = 0;
    int Speed = 0; // blend time of all steps when the file has none for each
    std::string ColourTable;
};

constexpr int SavedSelections = 10; // slots 0..9; the others are never written, on purpose

struct SequenceContent {
    Table<Scene, 1, MaxSteps> Steps;
    Table<Table<std::int16_t, HoldTime, BlendTime>, 1, MaxSteps> Times;
    Table<Table<std::uint8_t, 0, 254>, 0, SavedSelections - 1> Selections;
};

// Sections that cannot be read are passed over.
SequenceHead ReadSequenceHead(SectionedText& text);

// The lists, for the number of elements and steps that the head names; each throws when it is broken.
void ReadSteps(SectionedText& text, const SequenceHead& head, SequenceContent& content);
void ReadTimes(SectionedText& text, const SequenceHead& head, SequenceContent& content);
void ReadSelections(SectionedText& text, const SequenceHead& head, SequenceContent& content);

// Hold 1 and the speed as blend time for every step, 5 where the speed is below 1.
void DefaultTimes(const SequenceHead& head, SequenceContent& content);

// What saving the sequence writes.
std::string SequenceText();

} // namespace quorvane
