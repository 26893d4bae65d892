#include "files/textencoding.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace quorvane {

namespace {

// The characters of the bytes 80h..9Fh; the five bytes without one stand for themselves.
constexpr std::array<char32_t, 32> Upper = {0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                            0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x8D,   0x017D, 0x8F,
                                            0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                            0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

constexpr char32_t NoCharacter = 0xFFFFFFFF;

bool IsAscii(char c) { return static_cast<unsigned char>(c) < 0x80; }

// Length of the character that begins with this byte, 0 when none does.
std::size_t CharacterLength(unsigned char first) {
    if (first < 0x80) return 1;
    if (first >= 0xC2 && first <= 0xDF) return 2;
    if (first >= 0xE0 && first <= 0xEF) return 3;
    if (first >= 0xF0 && first <= 0xF4) return 4;
    return 0;
}

// Takes the next character off the text; NoCharacter, one byte long, when the bytes are not UTF-8.
char32_t TakeCharacter(std::string_view& text) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const std::size_t length = CharacterLength(byte(0));
    constexpr std::array<unsigned char, 5> firstBits = {0, 0x7F, 0x1F, 0x0F, 0x07};
    char32_t character = length == 0 || length > text.size() ? NoCharacter : byte(0) & firstBits[length];
    for (std::size_t i = 1; character != NoCharacter && i < length; ++i)
        character = (byte(i) & 0xC0) == 0x80 ? character << 6 | (byte(i) & 0x3Fu) : NoCharacter;
    const bool longForm = (length == 3 && character < 0x800) || (length == 4 && character < 0x10000);
    const bool outside = (character >= 0xD800 && character <= 0xDFFF) || character > 0x10FFFF;
    if (longForm || outside) character = NoCharacter;
    text.remove_prefix(character == NoCharacter ? 1 : length);
    return character;
}

void AddCharacter(std::string& text, char32_t character) {
    const auto add = [&](char32_t bits) { text += static_cast<char>(bits); };
    if (character < 0x80) return add(character);
    if (character < 0x800) {
        add(0xC0 | character >> 6);
    } else {
        add(0xE0 | character >> 12);
        add(0x80 | (character >> 6 & 0x3F));
    }
    add(0x80 | (character & 0x3F));
}

// The text in Windows-1252; nothing when a character does not fit.
std::optional<std::string> ToWindows1252(std::string_view text) {
    std::string bytes;
    while (!text.empty()) {
        const char32_t character = TakeCharacter(text);
        const auto upper = std::find(Upper.begin(), Upper.end(), character);
        if (upper != Upper.end())
            bytes += static_cast<char>(0x80 + (upper - Upper.begin()));
        else if (character < 0x80 || (character >= 0xA0 && character <= 0xFF))
            bytes += static_cast<char>(character);
        else
            return std::nullopt;
    }
    return bytes;
}

} // namespace

bool LooksLikeUtf8(std::string_view bytes) {
    bool several = false;
    while (!bytes.empty()) {
        if (IsAscii(bytes.front())) { // nearly all of a file
            bytes.remove_prefix(1);
            continue;
        }
        several = true;
        if (TakeCharacter(bytes) == NoCharacter) return false;
    }
    return several;
}

std::string FromWindows1252(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size());
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        AddCharacter(text, byte >= 0x80 && byte <= 0x9F ? Upper[byte - 0x80u] : char32_t{byte});
    }
    return text;
}

std::string EncodedForFile(std::string text) {
    if (std::all_of(text.begin(), text.end(), IsAscii)) return text;
    auto bytes = ToWindows1252(text);
    // Some single bytes in a row would be taken for UTF-8 when read; such a text is written as UTF-8.
    if (!bytes || LooksLikeUtf8(*bytes)) return text;
    return *std::move(bytes);
}

} // namespace quorvane
