#include "model/table.h"

#include <gtest/gtest.h>

namespace quorvane {

TEST(Table, FirstAndLastIndexAreInRange) {
    Table<int, 1, 250> table;
    table[1] = 7;
    table[250] = 9;
    EXPECT_EQ(table.data()[0], 7);
    EXPECT_EQ(table.data()[249], 9);
    EXPECT_EQ((Table<int, 1, 250>::count), 250u);
}

TEST(Table, StartsWithZeros) {
    const Table<int, 0, 511> table;
    for (const int entry : table) EXPECT_EQ(entry, 0);
}

TEST(Table, IndexOutsideIsAnErrorAndNeverClipped) {
    Table<int, 1, 4> table;
    const auto& constant = table;
    for (const int index : {0, 5, -1, 100}) {
        EXPECT_THROW(table[index] = 1, std::out_of_range) << index;
        EXPECT_THROW(static_cast<void>(constant[index]), std::out_of_range) << index;
    }
    EXPECT_EQ(table, (Table<int, 1, 4>{}));
}

TEST(Table, ErrorNamesTheIndexAndTheRange) {
    try {
        Table<int, 0, 511>{}[512] = 1;
        FAIL() << "nothing was thrown";
    } catch (const std::out_of_range& error) {
        EXPECT_STREQ(error.what(), "Der Index 512 liegt nicht zwischen 0 und 511.");
    }
}

TEST(Table, FillReachesEveryEntry) {
    Table<int, 1, 3> table;
    table.Fill(8);
    EXPECT_EQ(table[1] + table[2] + table[3], 24);
}

} // namespace quorvane
