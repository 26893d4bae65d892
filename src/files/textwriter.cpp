#include "files/textwriter.h"

#include "files/textencoding.h"

#include <array>
#include <charconv>
#include <utility>

namespace quorvane {

void TextWriter::Line(std::string_view line) {
    text += line;
    text += "\r\n";
}

void TextWriter::Key(std::string_view key, std::int64_t number) {
    text += key;
    Append(number);
    text += "\r\n";
}

void TextWriter::Add(std::int64_t number) {
    Separate();
    Append(number);
}

void TextWriter::Add(std::string_view entry) {
    Separate();
    text += entry;
}

void TextWriter::EndList() {
    text += "\r\n";
    inList = false;
}

std::string TextWriter::FileBytes() && { return EncodedForFile(std::move(text)); }

void TextWriter::Separate() {
    if (inList) text += ',';
    inList = true;
}

void TextWriter::Append(std::int64_t number) {
    std::array<char, 24> digits;
    digits[0] = ' ';
    char* const begin = digits.data() + (number < 0 ? 0 : 1);
    const auto end = std::to_chars(begin, digits.data() + digits.size(), number).ptr;
    text.append(digits.data(), end);
}

} // namespace quorvane
