#include "files/sectionedtext.h"

#include "files/textencoding.h"
#include "model/text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <fstream>
#include <limits>
#include <utility>

namespace quorvane {

namespace {

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
constexpr char CtrlZ = '\x1A';

bool IsBlank(char c) { return c == ' ' || c == '\t'; }

bool EndsField(char c) { return c == ',' || c == '\r' || c == '\n'; }

// The field as a whole number. Fractions are rare and take the slow way.
std::int64_t NumberIn(std::string_view field) {
    const char* const end = field.data() + field.size();
    const bool plus = field.starts_with('+') && !field.starts_with("+-");
    const char* const begin = field.data() + (plus ? 1 : 0);
    std::int64_t whole = 0;
    const auto taken = std::from_chars(begin, end, whole);
    if (taken.ec == std::errc{} && taken.ptr == end) return whole;
    double number = 0;
    const auto [stop, fault] = std::from_chars(begin, end, number, std::chars_format::fixed);
    if (fault != std::errc{} || stop != end || !(std::abs(number) < 1e15))
        throw ReadError("Das Feld ist keine Zahl.");
    return RoundHalfEven(number);
}

} // namespace

SectionedText::SectionedText(std::string fileBytes)
    : bytes(std::move(fileBytes)), utf8(LooksLikeUtf8(bytes)) {
    if (bytes.starts_with(ByteOrderMark)) bytes.erase(0, ByteOrderMark.size());
    if (bytes.ends_with(CtrlZ)) bytes.pop_back();
}

std::string SectionedText::Header() {
    position = 0;
    return bytes.empty() ? std::string{} : Text();
}

void SectionedText::FindSection(std::string_view name) {
    Header();
    if (position < bytes.size()) PassSectionName(name);
}

void SectionedText::FindSectionFromStart(std::string_view name) {
    position = 0;
    PassSectionName(name);
}

// Only a field that begins with "[" can be the name, and fields are found faster than they are read.
void SectionedText::PassSectionName(std::string_view name) {
    for (std::size_t bracket = bytes.find('[', position); bracket != std::string::npos;
         bracket = bytes.find('[', std::max(position, bracket + 1))) {
        std::size_t begin = bracket;
        while (begin > position && IsBlank(bytes[begin - 1])) --begin;
        if (begin > position && !EndsField(bytes[begin - 1])) continue;
        position = begin;
        if (UpperCase(Field()) == name) return;
    }
    throw ReadError("Der Abschnitt fehlt.");
}

std::string_view SectionedText::Field() {
    if (position >= bytes.size()) throw ReadError("Die Datei ist zu Ende.");
    std::size_t begin = position;
    while (begin < bytes.size() && IsBlank(bytes[begin])) ++begin;
    std::size_t end = begin;
    while (end < bytes.size() && !EndsField(bytes[end])) ++end;
    position = end + 1;
    if (position < bytes.size() && bytes[end] == '\r' && bytes[position] == '\n') ++position;
    while (end > begin && IsBlank(bytes[end - 1])) --end;
    return std::string_view(bytes).substr(begin, end - begin);
}

std::string SectionedText::Text() {
    const auto field = Field();
    return utf8 ? std::string(field) : FromWindows1252(field);
}

std::int64_t SectionedText::WholeValue(std::int64_t least, std::int64_t most) {
    const std::int64_t number = NumberIn(Field());
    if (number < least || number > most) throw ReadError("Die Zahl ist zu klein oder zu groß.");
    return number;
}

template<class Number> Number SectionedText::Value() {
    return static_cast<Number>(
        WholeValue(std::numeric_limits<Number>::min(), std::numeric_limits<Number>::max()));
}

template std::uint8_t SectionedText::Value();
template std::int16_t SectionedText::Value();
template std::int32_t SectionedText::Value();

int SectionedText::KeyNumber(std::size_t characters) {
    std::string_view field = Field();
    if (field.size() > characters) field.remove_prefix(field.size() - characters);
    if (const auto equals = field.rfind('='); equals != std::string_view::npos)
        field.remove_prefix(equals + 1);
    return TypedNumber(field);
}

SectionedText ReadSectionedText(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    std::error_code fault;
    const auto size = std::filesystem::file_size(file, fault);
    if (!stream || fault || size > LargestTextFile) throw ReadError("Die Datei ist nicht lesbar.");
    std::string bytes(static_cast<std::size_t>(size), '\0');
    stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (static_cast<std::uintmax_t>(stream.gcount()) != size) throw ReadError("Die Datei ist nicht lesbar.");
    return SectionedText(std::move(bytes));
}

} // namespace quorvane
