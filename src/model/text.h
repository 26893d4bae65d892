// Forms of text and number that several floors share. Texts are UTF-8.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace quorvane {

// A text built in place, for what is shown at every tick: nothing is allocated.
class TickText {
public:
    TickText& operator<<(std::string_view text);
    TickText& operator<<(int number);
    std::string_view View() const { return {buffer, length}; }
    operator std::string_view() const { return View(); }

private:
    char buffer[160] = {};
    std::size_t length = 0; // what does not fit is left off
};

// The number as user texts show it: plain decimal, no padding.
std::string Decimal(std::int64_t number);
// Upper-case hexadecimal without prefix, as card addresses are shown ("160").
std::string Hexadecimal(std::uint32_t number);

// The number at the start of a typed text: blanks are ignored, a sign, digits and a fraction after "."
// are taken, the rest is not looked at; nothing counts as 0. Rounded to whole, halves to even, and held
// within the range of the result.
std::int32_t TypedNumber(std::string_view text);

// Exactly 20 characters (code points of the composed text, never bytes): cut, or padded with blanks on
// the right.
std::string Padded20(std::string_view name);
// Without the blanks at its right end, as padded names are displayed.
std::string_view TrimmedRight(std::string_view text);
// Without blanks and tabs at either end.
std::string_view Trimmed(std::string_view text);
// ASCII letters in upper case.
std::string UpperCase(std::string_view text);

// value rounded to the nearest whole number, halves to even.
std::int32_t RoundHalfEven(float value);
std::int64_t RoundHalfEven(double value);

} // namespace quorvane
