#include "bench/stage.h"

#include "engine/outputclock.h"

namespace quorvane {

namespace {

class DmxMonitor : public Stage {
protected:
    DmxMonitor() {
        Screen.MonitorValue = [this](int row, int value) { Values.push_back({row, value}); };
        Show.StatusFlags.Set(Status::Monitor);
        for (int row = 0; row <= 7; ++row) Show.MonitorChannel[row] = static_cast<std::int16_t>(row * 10 + 1);
        Show.MonitorChannel[7] = 512;
    }
    std::vector<std::pair<int, int>> Values;
};

} // namespace

TEST_F(DmxMonitor, ShowsWhatTheCardHoldsForTheEightChannels) {
    for (const std::int16_t type : {IsaCardB, IsaCardC}) {
        Values.clear();
        Use(type);
        Memory[1024] = 5;
        Memory[1034] = 6;
        Memory[1535] = 7;
        Tick();
        ASSERT_EQ(Values.size(), 8u);
        EXPECT_EQ(Values[0], (std::pair{0, 5}));
        EXPECT_EQ(Values[1], (std::pair{1, 6}));
        EXPECT_EQ(Values[7], (std::pair{7, 7}));
    }
}

TEST_F(DmxMonitor, ShowsTheNextChannelsByteForUsb) {
    Use(UsbInterface);
    Show.DmxOutBytes[0] = 1;
    Show.DmxOutBytes[1] = 2;
    Show.DmxOutBytes[512] = 3;
    Tick();
    ASSERT_EQ(Values.size(), 8u);
    EXPECT_EQ(Values[0].second, 2);
    EXPECT_EQ(Values[7].second, 3);
}

TEST_F(DmxMonitor, ShowsZerosForAUsbInterfaceThatIsNotOpen) {
    Use(UsbInterface);
    Show.InterfaceOpen[UsbInterface] = 0;
    Show.DmxOutBytes.Fill(77);
    ShowMonitor();
    ASSERT_EQ(Values.size(), 8u);
    for (const auto& [row, value] : Values) EXPECT_EQ(value, 0) << row;
}

TEST_F(DmxMonitor, ReadsTheByteFrameForCardsAlthoughTheyNeverFillIt) {
    for (const std::int16_t type : {PcmciaCard, PciCard}) {
        Values.clear();
        Use(type);
        Show.DmxOut.Fill(99);
        Show.DmxOutBytes[1] = 4;
        Tick();
        ASSERT_EQ(Values.size(), 8u);
        EXPECT_EQ(Values[0].second, 4);
        EXPECT_EQ(Values[7].second, 0);
    }
}

TEST_F(DmxMonitor, ShowsTheLevelsOfTheTickItBelongsTo) {
    MakeWall(1, 1);
    Use(IsaCardB);
    Show.ElementValue[1].Fill(123);
    Tick();
    EXPECT_EQ(Values.at(0).second, 123);
}

TEST_F(DmxMonitor, IsNeitherReadNorClearedByATickWithoutItsBit) {
    for (const std::int16_t type : EveryInterface) {
        Use(type);
        Show.StatusFlags.Set(Status::Monitor);
        Tick();
        EXPECT_TRUE(Show.StatusFlags.Has(Status::Monitor));
        Values.clear();
        Show.StatusFlags.Clear(Status::Monitor);
        Tick();
        EXPECT_TRUE(Values.empty());
    }
}

TEST_F(DmxMonitor, ShowsZerosWithoutAnInterfaceOrCard) {
    Show.DmxOutBytes.Fill(9);
    ShowMonitor();
    Use(IsaCardB);
    Show.CardBase = 255;
    ShowMonitor();
    ASSERT_EQ(Values.size(), 16u);
    for (const auto& [row, value] : Values) EXPECT_EQ(value, 0);
}

} // namespace quorvane
