#include "bench/bench.h"

#include "model/changes.h"

namespace quorvane {

using Changes = Bench;

TEST_F(Changes, SceneWithoutFileIsNewToo) {
    MarkSceneChanged();
    EXPECT_EQ(Show.ChangeFlags.bits, 0x0C);
}

TEST_F(Changes, SceneWithFileIsChangedOnly) {
    Show.SceneFile = "abend.QSC";
    MarkSceneChanged();
    EXPECT_EQ(Show.ChangeFlags.bits, 0x08);
}

TEST_F(Changes, SceneInsideASequenceIsNotANewOne) {
    Show.StatusFlags.Set(Status::SequenceExists);
    MarkSceneChanged();
    EXPECT_EQ(Show.ChangeFlags.bits, 0x08);
}

TEST_F(Changes, ColourTableWithoutFileIsNewToo) {
    MarkColourTableChanged();
    EXPECT_EQ(Show.ChangeFlags.bits, 0xC0);
}

TEST_F(Changes, ColourTableWithFileIsChangedOnly) {
    Show.ColourTableFile = "farben.QCT";
    MarkColourTableChanged();
    EXPECT_EQ(Show.ChangeFlags.bits, 0x80);
}

TEST_F(Changes, SequenceIsMarkedTogetherWithTheSceneSoThatItIsAskedFor) {
    MarkSequenceChanged();
    EXPECT_EQ(Show.ChangeFlags.bits, 0x28);
}

} // namespace quorvane
