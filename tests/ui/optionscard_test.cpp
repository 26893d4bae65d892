// The output options of an ISA card: from the window to the card's memory.
#include "ui/testwindowbench.h"

#include "ui/frmOptions.h"

#include <QApplication>
#include <QCheckBox>

namespace quorvane {

class OptionsAtTheCard : public TestWindowBench {
protected:
    // The program on a card of the first kind, without a wall and with the automatic count, the options open.
    void OpenOptions() {
        PlugIn(IsaCardB);
        StartProgram();
        int word = 0;
        for (const int value : {60, 12, 3, 100, 0, 0, 7})
            Show.DmxIni[word++] = static_cast<std::int16_t>(value);
        Show.ChannelCount = 100;
        Choose("mnuOptions");
        options = main->Options;
        ASSERT_TRUE(options->cckAutoDMXmax->isChecked());
        ASSERT_EQ(Channels()->text(), "100");
    }
    Field* Channels() { return options->txtDMX[4]; }
    std::vector<int> Parameters() {
        const auto first = Card().Memory.begin() + 1008;
        return {first, first + 10};
    }

    frmOptions* options = nullptr;
};

TEST_F(OptionsAtTheCard, DefaultsSetTheChannelsTooWhileNoWallSetsThem) {
    OpenOptions();
    Click(options->cmdDefaultDMX);
    EXPECT_EQ(Channels()->text(), "512");
    EXPECT_FALSE(Channels()->isEnabled());
    Click(options->cmdApply);
    EXPECT_EQ(Channels()->text(), "512");
    EXPECT_TRUE(Show.StatusFlags.Has(Status::AutoChannelCount));
    MakeWall(10, 5);
    QApplication::setActiveWindow(nullptr); // as the dialog that builds one does
    QApplication::setActiveWindow(main.get());
    EXPECT_EQ(Channels()->text(), "200") << "a wall that comes sets them again";
}

TEST_F(OptionsAtTheCard, WallThatComesSetsTheChannelsAlsoAfterTheDefaults) {
    OpenOptions();
    Click(options->cmdDefaultDMX);
    MakeWall(10, 5);
    Click(options->cmdOK);
    EXPECT_EQ(Show.DmxIni[3], 200);
    EXPECT_EQ(Show.DmxIni[4], 0);
}

TEST_F(OptionsAtTheCard, OkReachesTheCardAtTheNextTick) {
    OpenOptions();
    Ticks(1);
    EXPECT_EQ(Parameters(), (std::vector<int>{60, 12, 3, 100, 0, 0, 7, 0, 0, 0}));
    Click(options->cmdDefaultDMX);
    Click(options->cmdOK);
    EXPECT_EQ(Show.ChannelCount, 512);
    EXPECT_EQ(Parameters(), (std::vector<int>{60, 12, 3, 100, 0, 0, 7, 0, 0, 0}));
    Ticks(1);
    EXPECT_EQ(Parameters(), (std::vector<int>{60, 0, 0, 0, 1, 0, 0, 0, 0, 0}));
    EXPECT_EQ(Show.ChannelCount, 256) << "rebuilt from words 3 and 4, on purpose";
}

} // namespace quorvane
