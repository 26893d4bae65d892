// Ticks must not allocate. Every allocation of the test program passes through here and is counted
// while someone wants to know.
#include "bench/bench.h"

#include "engine/outputclock.h"
#include "model/sequence.h"
#include "platform/monotonicclock.h"
#include "platform/punctualcall.h"

#include <atomic>
#include <cstdlib>
#include <new>
#include <numeric>
#include <thread>

namespace {

std::atomic<bool> counting = false;
std::atomic<int> allocations = 0;

void* Allocate(std::size_t size) {
    if (counting) ++allocations;
    if (void* memory = std::malloc(size == 0 ? 1 : size)) return memory;
    throw std::bad_alloc();
}

} // namespace

void* operator new(std::size_t size) { return Allocate(size); }
void* operator new[](std::size_t size) { return Allocate(size); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }

namespace quorvane {

namespace {

struct Seen {
    std::int64_t sum = 0; // so that nothing a window or a driver is given is left out
    int texts = 0;
};

class Allocation : public Bench {
protected:
    Allocation() {
        MakeWall(11, 11);
        for (int step = 1; step <= 3; ++step) {
            for (int element = 1; element <= 121; ++element)
                Show.SequenceSteps[step][element].Fill(static_cast<std::uint8_t>(step * 80 + element % 10));
            SetHold(step, 40000); // five digits everywhere
            SetBlend(step, 12345);
        }
        Show.StepCount = 3;
        Show.TurboFactor = 5000; // hold 8, blend 5
        Show.InterfaceName = "7300A / 7300B-LC, und so weiter und so fort";
        FillSlots();
    }

    void FillSlots() {
        const auto text = [this](std::string_view shown) {
            ++seen.texts;
            seen.sum = std::accumulate(shown.begin(), shown.end(), seen.sum);
        };
        Screen.MainCaption = text;
        Screen.SequencerStatus = text;
        Screen.SequencerField = [text](int, std::string_view shown) { text(shown); };
        Screen.PaintElement = [this](int index, ScreenColour colour) { seen.sum += index + colour.Red; };
        Screen.MonitorValue = [this](int row, int value) { seen.sum += row + value; };
        Host.DlPortReadPortUchar = [this](std::uint32_t port) {
            return static_cast<std::uint8_t>(seen.sum += port);
        };
        Host.DlPortWritePortUchar = [this](std::uint32_t port, std::uint8_t value) {
            seen.sum += port + value;
        };
        Host.DasHardCommand = [this](std::int32_t, std::int32_t, std::uint8_t* bytes) {
            return static_cast<int>(seen.sum += bytes[0]);
        };
        Host.DMXSEND = [this](std::int32_t*, std::int32_t* frame) {
            return static_cast<int>(seen.sum += frame[0]);
        };
        Host.DMXSEND2 = Host.DMXSEND;
    }

    int AllocationsOf(int ticks) {
        allocations = 0;
        counting = true;
        for (int tick = 0; tick < ticks; ++tick) AutoXmit_Timer();
        counting = false;
        return allocations;
    }

    void Use(std::int16_t type) {
        Show.InterfaceType = type;
        Show.CardBase = type == IsaCardB || type == IsaCardC ? 0x100 : 0;
        Show.InterfaceOpen[type] = 1;
        Show.DmxIniDirty = 1;
    }

    Seen seen;
};

constexpr std::int16_t EveryType[] = {NoInterface, IsaCardB, IsaCardC, UsbInterface, PcmciaCard, PciCard};

} // namespace

TEST_F(Allocation, IsCounted) {
    counting = true;
    allocations = 0;
    Show.IniPath = std::string(1000, 'x');
    counting = false;
    EXPECT_EQ(allocations, 1);
}

TEST_F(Allocation, NoneInATickOfAPlayingSequenceStartTicksIncluded) {
    for (const std::int16_t type : EveryType) {
        Use(type);
        Show.StatusFlags.Set(Status::SequencePlaying);
        Show.StatusFlags.Set(Status::Monitor);
        Show.CurrentStep = 1;
        Show.HoldCounter = Show.BlendCounter = 0;
        seen.texts = 0;
        EXPECT_EQ(AllocationsOf(60), 0) << "interface type " << type;
        EXPECT_EQ(Show.CurrentStep, 3) << "four transitions and more were started";
        EXPECT_GE(seen.texts, 60);
    }
}

TEST_F(Allocation, NoneInATickOfTheLiveWallOrOfTestMode) {
    for (const std::int16_t type : EveryType) {
        Use(type);
        Show.StatusFlags.Clear(Status::TestMode);
        EXPECT_EQ(AllocationsOf(2), 0) << "interface type " << type;
        Show.StatusFlags.Set(Status::TestMode);
        EXPECT_EQ(AllocationsOf(2), 0) << "interface type " << type;
    }
}

TEST_F(Allocation, NoneInACallThatIsMadeOnTime) {
    std::atomic<int> calls = 0;
    PunctualCall punctual([&calls] { ++calls; }, 0.0005);
    allocations = 0;
    counting = true;
    for (int call = 1; call <= 100; ++call) {
        punctual.At(Seconds() + 0.0005);
        if (call % 4 != 0)
            while (calls < call) std::this_thread::yield();
        punctual.Now();
    }
    counting = false;
    EXPECT_EQ(calls, 100);
    EXPECT_EQ(allocations, 0);
}

} // namespace quorvane
