#include "model/afterframe.h"

#include "model/screen.h"

#include <gtest/gtest.h>

#include <optional>
#include <stdexcept>
#include <string>

namespace quorvane {

// What happens, in order: t a tick's own work, w the work it asks for.
class AfterFrameTest : public testing::Test {
protected:
    AfterFrameTest() {
        Screen = ScreenCalls{};
        story.clear();
        drawing.emplace([] { story += 'w'; });
    }
    ~AfterFrameTest() override { drawing.reset(); }

    static inline std::string story;
    static inline std::optional<AfterFrame> drawing;
};

TEST_F(AfterFrameTest, OutsideOfATickTheWorkIsDoneAtOnceEachTime) {
    drawing->Ask();
    EXPECT_EQ(story, "w");
    drawing->Ask();
    EXPECT_EQ(story, "ww");
}

TEST_F(AfterFrameTest, InATickItIsDoneOnceAndWhenTheTickIsThrough) {
    const auto tick = [] {
        drawing->Ask();
        drawing->Ask();
        story += 't';
    };
    FrameFirst(tick);
    EXPECT_EQ(story, "tw");
    FrameFirst(tick);
    EXPECT_EQ(story, "twtw");
    drawing->Ask();
    EXPECT_EQ(story, "twtww");
}

TEST_F(AfterFrameTest, TickThatFailsStillShowsWhatItAskedFor) {
    const auto tick = [] {
        drawing->Ask();
        story += 't';
        throw std::runtime_error("Der Port ist weg.");
    };
    EXPECT_THROW(FrameFirst(tick), std::runtime_error);
    EXPECT_EQ(story, "tw");
    drawing->Ask();
    EXPECT_EQ(story, "tww");
}

TEST_F(AfterFrameTest, TicksWithinATickShowTheirWorkWhileItGoesOn) {
    FrameFirst([] {
        FrameFirst([] {
            drawing->Ask();
            story += 't';
        });
        story += 'T';
    });
    EXPECT_EQ(story, "twT");
}

TEST_F(AfterFrameTest, WorkOfAWindowThatIsGoneIsNotDone) {
    FrameFirst([] {
        drawing->Ask();
        drawing.reset();
        story += 't';
    });
    EXPECT_EQ(story, "t");
}

} // namespace quorvane
