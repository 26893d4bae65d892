#include "model/flags.h"
#include "model/show.h"

#include <gtest/gtest.h>

#include <type_traits>
#include <utility>
#include <vector>

namespace quorvane {

TEST(Flags, SetClearAndPutTouchTheirBitOnly) {
    Flags<Status> flags;
    flags.Set(Status::TestMode);
    flags.Set(Status::SequencePlaying);
    flags.Clear(Status::TestMode);
    flags.Put(Status::WallExists, true);
    flags.Put(Status::Monitor, false);
    EXPECT_EQ(flags.bits, 0x101u);
    EXPECT_TRUE(flags.Has(Status::SequencePlaying));
    EXPECT_FALSE(flags.Has(Status::TestMode));
}

TEST(Flags, StatusBitsStandAsTheyAreStored) {
    const std::vector<std::pair<Status, std::uint32_t>> stored{{Status::WallExists, 0x1},
                                                               {Status::Monitor, 0x2},
                                                               {Status::SaveToCurrentFile, 0x4},
                                                               {Status::ApplyAtOnce, 0x10},
                                                               {Status::TestMode, 0x40},
                                                               {Status::SequencePlaying, 0x100},
                                                               {Status::SequenceExists, 0x400},
                                                               {Status::PatchError, 0x800},
                                                               {Status::ElementWindowOpen, 0x1000},
                                                               {Status::ColourWindowOpen, 0x2000},
                                                               {Status::UserColourStored, 0x4000},
                                                               {Status::UserColourChanged, 0x8000},
                                                               {Status::AutoChannelCount, 0x10000},
                                                               {Status::ReloadFiles, 0x20000},
                                                               {Status::SequencerWindowOpen, 0x40000},
                                                               {Status::TestWindowOpen, 0x80000},
                                                               {Status::WallWindowOpen, 0x100000},
                                                               {Status::OptionsWindowOpen, 0x200000}};
    for (const auto& [bit, value] : stored) {
        Flags<Status> flags;
        flags.Set(bit);
        EXPECT_EQ(flags.bits, value);
    }
}

TEST(Flags, ChangeBitsStandAsTheyAreStored) {
    const std::vector<std::pair<Change, std::uint16_t>> stored{
        {Change::ConfigNew, 0x01},      {Change::ConfigChanged, 0x02},     {Change::SceneNew, 0x04},
        {Change::SceneChanged, 0x08},   {Change::SequenceNew, 0x10},       {Change::SequenceChanged, 0x20},
        {Change::ColourTableNew, 0x40}, {Change::ColourTableChanged, 0x80}};
    for (const auto& [bit, value] : stored) {
        Flags<Change> flags;
        flags.Set(bit);
        EXPECT_EQ(flags.bits, value);
    }
}

TEST(Flags, ChangeMarksAndStatusBitsCannotBeMixed) {
    EXPECT_FALSE((std::is_assignable_v<Flags<Status>&, Flags<Change>>));
    EXPECT_FALSE((std::is_invocable_v<decltype(&Flags<Status>::Set), Flags<Status>*, Change>));
}

} // namespace quorvane
