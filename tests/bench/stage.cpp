#include "bench/stage.h"

#include "engine/outputclock.h"
#include "model/sequence.h"

namespace quorvane {

Stage::Stage() : Memory(65536), handedOver(512) {
    Host.DlPortReadPortUchar = [this](std::uint32_t port) { return ReadCard(port); };
    Host.DlPortWritePortUchar = [this](std::uint32_t port, std::uint8_t value) { WriteCard(port, value); };
    Host.DasHardCommand = [this](std::int32_t command, std::int32_t parameter, std::uint8_t* buffer) {
        Calls.push_back("usb " + std::to_string(command) + " " + std::to_string(parameter));
        if (command == 4) handedOver.assign(buffer, buffer + parameter);
        return 0;
    };
    const auto sender = [this](const char* name) {
        return [this, name](std::int32_t* handle, std::int32_t* frame) {
            Calls.push_back(std::string(name) + " " + std::to_string(*handle));
            for (std::size_t i = 0; i < 512; ++i) {
                EXPECT_TRUE(frame[i] >= 0 && frame[i] <= 255) << "entry " << i << " is " << frame[i];
                handedOver[i] = static_cast<std::uint8_t>(frame[i]);
            }
            return -1; // nobody looks at it
        };
    };
    Host.DMXSEND = sender("send");
    Host.DMXSEND2 = sender("send2");
}

void Stage::Use(std::int16_t type) {
    Show.InterfaceType = type;
    Show.CardBase = type == IsaCardB || type == IsaCardC ? Base : 0;
    Show.InterfaceOpen[type] = 1;
}

std::vector<std::uint8_t> Stage::Frame() const {
    if (Show.CardBase == Base) return {Memory.begin() + 1024, Memory.begin() + 1536};
    return handedOver;
}

void Stage::SetFrame(const std::vector<std::uint8_t>& levels) {
    for (int index = 0; index < 512; ++index) {
        const std::uint8_t level = levels.at(static_cast<std::size_t>(index));
        Memory[static_cast<std::size_t>(1024 + index)] = level;
        Show.DmxOutBytes[index] = level;
        Show.DmxOut[index] = level;
    }
    handedOver = levels;
}

void Stage::AddStep(int level, int hold, int blend) {
    const int step = ++Show.StepCount;
    for (auto& element : Show.SequenceSteps[step]) element.Fill(static_cast<std::uint8_t>(level));
    SetHold(step, hold);
    SetBlend(step, blend);
    Show.StatusFlags.Set(Status::SequenceExists);
}

void Stage::StartPlaying(int step) {
    Show.CurrentStep = static_cast<std::uint8_t>(step);
    Show.HoldCounter = 0;
    Show.BlendCounter = 0;
    Show.StatusFlags.Set(Status::SequencePlaying);
}

void Stage::Tick(int times) {
    for (int tick = 0; tick < times; ++tick) AutoXmit_Timer();
}

std::uint8_t Stage::ReadCard(std::uint32_t port) {
    if (port == Base + 3) ++StartReads;
    return port == Base + 2 ? Memory[address] : std::uint8_t{255};
}

void Stage::WriteCard(std::uint32_t port, std::uint8_t value) {
    switch (port) {
    case Base: address = (address & 0xFF00u) | value; break;
    case Base + 1: address = (address & 0xFFu) | unsigned{value} << 8; break;
    case Base + 2:
        Memory[address] = value;
        Written.push_back(static_cast<int>(address));
        break;
    case Base + 3: ++StartWrites; break;
    default: ADD_FAILURE() << "port " << port << " was written"; break;
    }
}

} // namespace quorvane
