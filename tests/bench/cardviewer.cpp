#include "bench/cardviewer.h"

#include <algorithm>
#include <span>

namespace quorvane {

namespace {

using Image = std::span<const std::uint8_t>;

constexpr std::size_t imageBytes = 512;
constexpr int lastLevel = 506; // DMX channels above belong to the step

CardStep StepOf(Image image, const CardPatch& patch) {
    CardStep step;
    for (const auto& channels : patch) {
        std::array<std::uint8_t, 4> levels{};
        for (std::size_t i = 0; i < 4; ++i)
            if (channels[i] >= 1 && channels[i] <= lastLevel)
                levels[i] = image[static_cast<std::size_t>(channels[i] - 1)];
        step.Levels.push_back(levels);
    }
    step.Blend = image[506] * 256 + image[507];
    step.Hold = image[508] * 256 + image[509];
    return step;
}

bool IsDark(Image image) {
    return std::all_of(image.begin(), image.begin() + lastLevel, [](int level) { return level == 0; }) &&
           image[510] == 0 && image[511] == 0;
}

} // namespace

CardContents ReadCard(const std::vector<std::uint8_t>& card, const CardPatch& patch) {
    CardContents contents;
    for (std::size_t start = 0; start + imageBytes <= card.size(); start += imageBytes) {
        const Image image = Image(card).subspan(start, imageBytes);
        if (contents.HasLast)
            ++(IsDark(image) ? contents.DarkFill : contents.OtherFill);
        else if (image[511] == 128)
            contents.Steps.push_back(StepOf(image, patch));
        else {
            contents.Last = StepOf(image, patch);
            contents.HasLast = true;
        }
    }
    return contents;
}

} // namespace quorvane
