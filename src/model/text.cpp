#include "model/text.h"

#include "platform/host.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace quorvane {

namespace {

// Bytes 10xxxxxx carry on the character that an earlier byte began.
bool StartsCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) != 0x80; }

std::string Digits(std::uint64_t number, int base) {
    std::array<char, 24> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number, base).ptr;
    return std::string(digits.data(), end);
}

} // namespace

TickText& TickText::operator<<(std::string_view text) {
    const auto taken = std::min(text.size(), sizeof buffer - length);
    std::copy_n(text.data(), taken, buffer + length);
    length += taken;
    return *this;
}

TickText& TickText::operator<<(int number) {
    std::array<char, 12> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    return *this << std::string_view(digits.data(), static_cast<std::size_t>(end - digits.data()));
}

std::string Decimal(std::int64_t number) { return std::to_string(number); }

std::string Hexadecimal(std::uint32_t number) { return UpperCase(Digits(number, 16)); }

std::int32_t TypedNumber(std::string_view text) {
    std::string number; // the part that counts, without blanks
    bool fraction = false;
    for (const char c : text) {
        if (c == ' ' || c == '\t') continue;
        const bool sign = (c == '-' || c == '+') && number.empty();
        const bool point = c == '.' && !fraction;
        if (!sign && !point && (c < '0' || c > '9')) break;
        fraction = fraction || point;
        number += c;
    }
    if (!number.empty() && number.front() == '+') number.erase(0, 1);
    constexpr double least = std::numeric_limits<std::int32_t>::min();
    constexpr double most = std::numeric_limits<std::int32_t>::max();
    double value = 0;
    const auto read = std::from_chars(number.data(), number.data() + number.size(), value);
    const bool whole = number.find_first_of("123456789") < number.find('.');
    if (read.ec == std::errc::result_out_of_range && whole) value = number.front() == '-' ? least : most;
    return static_cast<std::int32_t>(RoundHalfEven(std::clamp(value, least, most)));
}

std::string Padded20(std::string_view name) {
    constexpr int width = 20;
    const std::string text = Host.ComposeText(name);
    int characters = 0;
    std::size_t end = 0;
    for (; end < text.size(); ++end)
        if (StartsCharacter(text[end]) && ++characters > width) return text.substr(0, end);
    return text + std::string(static_cast<std::size_t>(width - characters), ' ');
}

std::string_view TrimmedRight(std::string_view text) {
    const auto last = text.find_last_not_of(' ');
    return last == std::string_view::npos ? std::string_view{} : text.substr(0, last + 1);
}

std::string_view Trimmed(std::string_view text) {
    const auto blank = [](char letter) { return letter == ' ' || letter == '\t'; };
    while (!text.empty() && blank(text.front())) text.remove_prefix(1);
    while (!text.empty() && blank(text.back())) text.remove_suffix(1);
    return text;
}

std::string UpperCase(std::string_view text) {
    std::string upper(text);
    for (char& c : upper)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    return upper;
}

std::int32_t RoundHalfEven(float value) { return static_cast<std::int32_t>(std::lrint(value)); }

std::int64_t RoundHalfEven(double value) { return std::llrint(value); }

} // namespace quorvane
