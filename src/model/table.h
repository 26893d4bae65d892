// A table of fixed size whose first and last index are part of its type, so that a declaration reads
// like the list it stands for: Table<..., 1, 250> is indexed by element, Table<..., 0, 511> by
// DMX channel - 1. Every access is checked; an index outside is an error and never clipped.
#pragma once

#include <array>
#include <cstddef>
#include <stdexcept>
#include <string>

namespace quorvane {

// Apart from the tables, so that the check of an access is small enough to stand at its place.
[[noreturn]] inline void RefuseIndex(int index, int first, int last) {
    throw std::out_of_range("Der Index " + std::to_string(index) + " liegt nicht zwischen " +
                            std::to_string(first) + " und " + std::to_string(last) + ".");
}

template<class T, int First, int Last> class Table {
public:
    static constexpr int first = First;
    static constexpr int last = Last;
    static constexpr std::size_t count = static_cast<std::size_t>(Last - First + 1);

    // The entry at index. Throws std::out_of_range when index is not in First..Last.
    T& operator[](int index) { return cells[Position(index)]; }
    const T& operator[](int index) const { return cells[Position(index)]; }

    void Fill(const T& value) { cells.fill(value); }
    // The entries from First on, without gaps, as driver libraries take them.
    T* data() { return cells.data(); }
    const T* data() const { return cells.data(); }

    auto begin() { return cells.begin(); }
    auto end() { return cells.end(); }
    auto begin() const { return cells.begin(); }
    auto end() const { return cells.end(); }

    bool operator==(const Table&) const = default;

private:
    static std::size_t Position(int index) {
        if (index < First || index > Last) RefuseIndex(index, First, Last);
        return static_cast<std::size_t>(index - First);
    }

    std::array<T, count> cells{};
};

// The four colour channels of an element: 1 red, 2 green, 3 blue, 4 white.
template<class T> using PerChannel = Table<T, 1, 4>;

} // namespace quorvane
