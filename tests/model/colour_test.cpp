#include "bench/bench.h"

#include "model/colour.h"
#include "model/text.h"

namespace quorvane {

using Colour = Bench;

TEST_F(Colour, WhiteLiftsAllThreePrimariesUpTo255) {
    PerChannel<std::uint8_t> colour;
    colour[1] = 200;
    colour[4] = 100;
    EXPECT_EQ(Colormix(colour), (ScreenColour{255, 100, 100}));
}

} // namespace quorvane
