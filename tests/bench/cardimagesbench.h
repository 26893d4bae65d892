// A bench with the memory card adapter, a small wall and a sequence whose every byte is another.
#pragma once

#include "bench/memorycardbench.h"
#include "devices/sceneimage.h"
#include "model/sequence.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace quorvane {

class CardImagesBench : public MemoryCardBench {
protected:
    CardImagesBench() {
        MakeWall(3, 1);
        TakeSteps(3);
        Screen.MemCardProgress = [this](std::int32_t done, std::int32_t all) {
            Progress.emplace_back(done, all);
        };
    }

    static void TakeSteps(int count) {
        Show.StepCount = static_cast<std::uint8_t>(count);
        for (int step = 1; step <= count; ++step) {
            SetHold(step, 1000 + step);
            SetBlend(step, 5 * step);
            for (int element = 1; element <= 3; ++element)
                for (int channel = 1; channel <= 4; ++channel)
                    Show.SequenceSteps[step][element][channel] =
                        static_cast<std::uint8_t>(step + 60 * element + channel);
        }
    }

    void ExpectImages(int count) {
        for (int image = 1; image <= count; ++image) {
            const SceneImage expected = BuildSceneImage(image);
            const auto start = Card.Memory.begin() + std::ptrdiff_t{512} * (image - 1);
            ASSERT_TRUE(std::equal(expected.begin(), expected.end(), start)) << image;
        }
    }

    // Gives up once the card has taken so many bytes.
    void GiveUpAfter(std::int64_t writes) {
        AccessTime = 0.001;
        Host.ServeEvents = [this, writes] {
            if (Card.Writes >= writes) Show.MemCardAbort = MemCardGivenUp;
            return true;
        };
    }

    std::string Status() const { return LastText("status", "frmFiles"); }

    std::vector<std::pair<std::int32_t, std::int32_t>> Progress;
};

} // namespace quorvane
