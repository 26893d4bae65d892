#include "platform/instancelock.h"

#include "bench/bench.h"
#include "bench/environment.h"

#include <optional>

namespace quorvane {

namespace {

class PreviousInstance : public Bench {
protected:
    // Keeps apart what runs at the same time; where the system asks by name this changes nothing.
    Environment RuntimeFolder{"XDG_RUNTIME_DIR", ProgramFolder.string()};
};

TEST_F(PreviousInstance, FirstHasNoneBeforeIt) {
    const InstanceLock first;
    EXPECT_FALSE(first.PreviousInstance());
}

TEST_F(PreviousInstance, SecondAndThirdFindTheFirst) {
    const InstanceLock first;
    const InstanceLock second;
    const InstanceLock third;
    EXPECT_TRUE(second.PreviousInstance());
    EXPECT_TRUE(third.PreviousInstance());
    EXPECT_FALSE(first.PreviousInstance());
}

TEST_F(PreviousInstance, IsJudgedAtTheStartAndStaysSo) {
    std::optional<InstanceLock> first(std::in_place);
    const InstanceLock second;
    first.reset();
    EXPECT_TRUE(second.PreviousInstance());
}

TEST_F(PreviousInstance, SecondCountsForTheThirdWhenTheFirstHasEnded) {
    std::optional<InstanceLock> first(std::in_place);
    const InstanceLock second;
    first.reset();
    const InstanceLock third;
    EXPECT_TRUE(third.PreviousInstance());
}

TEST_F(PreviousInstance, OneThatHasEndedDoesNotCount) {
    { const InstanceLock ended; }
    const InstanceLock next;
    EXPECT_FALSE(next.PreviousInstance());
}

} // namespace

} // namespace quorvane
