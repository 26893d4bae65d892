// The text that all of the program's files are made of, read: fields, ended by "," or a line end, in
// sections that are each looked for from the start of the text. So sections may stand in any order and
// lists may be broken into lines. The file is read once and stays in memory; every call that finds what
// it does not expect throws.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>

namespace quorvane {

struct ReadError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// No file of the program comes near this size; a larger one is refused before it is read.
constexpr std::uintmax_t LargestTextFile = 16u << 20;

class SectionedText {
public:
    // Bytes as they stand in the file. A byte order mark and a closing Ctrl-Z are dropped.
    explicit SectionedText(std::string fileBytes);

    bool Empty() const { return bytes.empty(); }
    // The first field of the file, empty when there is none.
    std::string Header();
    // Goes behind the field that is the section's name, in any case of letters. name is in capitals.
    // The header is never a section's name. A file that ends with its header is not searched: the first
    // value read then fails.
    void FindSection(std::string_view name);
    // The same for the settings file, where the first field counts as well.
    void FindSectionFromStart(std::string_view name);

    // The next field without blanks around it.
    std::string_view Field();
    // The next field as a text in UTF-8.
    std::string Text();
    // The next field as a number of this kind; a fraction is rounded, halves to even. A field that is no
    // number, or whose number the kind cannot hold, is an error.
    template<class Number> Number Value();
    // The number in the last characters of the next field. Leading digits of a longer number are lost on
    // purpose, and what stands up to "=" is not looked at; without a number it is 0.
    int KeyNumber(std::size_t characters = 3);

private:
    void PassSectionName(std::string_view name);
    std::int64_t WholeValue(std::int64_t least, std::int64_t most);

    std::string bytes;
    std::size_t position = 0;
    bool utf8 = false;
};

// Reads the whole file. Throws ReadError when it cannot be read or is too large.
SectionedText ReadSectionedText(const std::filesystem::path& file);

} // namespace quorvane
