// The text that all of the program's files are made of, written: built in memory, saved in one go.
// Lines end with CR LF; a number that is not negative has a leading blank in place of its sign.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace quorvane {

class TextWriter {
public:
    void Reserve(std::size_t size) { text.reserve(size); }

    // A line of plain text.
    void Line(std::string_view text);
    // The key with the blanks that belong to it, and the number behind it.
    void Key(std::string_view key, std::int64_t number);
    void Number(std::int64_t number) { Key("", number); }

    // A list: all values on one line, with "," between them. EndList ends the line.
    void Add(std::int64_t number);
    void Add(std::string_view text);
    void EndList();

    // What the file gets, in its encoding.
    std::string FileBytes() &&;

private:
    void Separate();
    void Append(std::int64_t number);

    std::string text; // UTF-8
    bool inList = false;
};

} // namespace quorvane
