#include "platform/flushfile.h"

#include "bench/bench.h"

namespace quorvane {

namespace {

class FlushFileTo : public Bench {};

TEST_F(FlushFileTo, DiskKeepsTheBytes) {
    Write("show.cfg", "[CONFIG]");
    EXPECT_TRUE(FlushFile(ProgramFolder / "show.cfg"));
    EXPECT_EQ(Read("show.cfg"), "[CONFIG]");
}

TEST_F(FlushFileTo, MissingFileFails) { EXPECT_FALSE(FlushFile(ProgramFolder / "missing.cfg")); }

} // namespace

} // namespace quorvane
