// What the settings file shares with the wall configuration.
#pragma once

namespace quorvane {

class SectionedText;
class TextWriter;

// The card parameter block, one list of 16 numbers. A transfer to the play unit that is under way is not seen
// in what is written.
void ReadDmxIni(SectionedText& text);
void WriteDmxIni(TextWriter& text);

// Takes ChannelCount from the card parameter block where it does not follow the wall. A low byte of 0
// stands for 256 there; a block of zeros says nothing.
void AdoptChannelCount();

} // namespace quorvane
