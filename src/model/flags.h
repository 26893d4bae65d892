// A word of status bits that accepts the bits of one enumeration only, so that a change mark cannot
// land in the status word.
#pragma once

#include <type_traits>

namespace quorvane {

template<class Bit> struct Flags {
    using Word = std::underlying_type_t<Bit>;

    Word bits = 0; // as it stands in a file

    bool Has(Bit bit) const { return (bits & static_cast<Word>(bit)) != 0; }
    void Set(Bit bit) { bits = static_cast<Word>(bits | static_cast<Word>(bit)); }
    void Clear(Bit bit) { bits = static_cast<Word>(bits & ~static_cast<Word>(bit)); }
    void Put(Bit bit, bool on) { on ? Set(bit) : Clear(bit); }

    bool operator==(const Flags&) const = default;
};

} // namespace quorvane
