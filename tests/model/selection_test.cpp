#include "bench/bench.h"

#include "model/selection.h"

namespace quorvane {

using Selection = Bench;

TEST_F(Selection, RepaintingPaintsTheSelectedElementsOnly) {
    MakeWall(4, 1);
    Show.ElementSelected[0] = 1;
    Show.ElementSelected[3] = 1;
    Show.ElementSelected[4] = 1; // beyond the wall
    std::vector<int> painted;
    Screen.PaintSelected = [&painted](int index) { painted.push_back(index); };
    RepaintSelection();
    EXPECT_EQ(painted, (std::vector<int>{0, 3}));
    EXPECT_TRUE(PaintedElements.empty());
}

} // namespace quorvane
