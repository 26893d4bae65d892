#include "ui/geometry.h"

#include "model/show.h"
#include "model/text.h"

#include <QWidget>

#include <algorithm>

namespace quorvane {

namespace {
constexpr int StoredPerPixel = 15;
}

int PixelsOf(double stored) {
    const double limit = QWIDGETSIZE_MAX;
    return static_cast<int>(RoundHalfEven(std::clamp(stored / StoredPerPixel, -limit, limit)));
}

std::int32_t StoredOf(int pixels) { return pixels * StoredPerPixel; }

QRect StoredPlace(int window) {
    const auto& place = Show.WindowPos[window];
    return {PixelsOf(place[PosLeft]), PixelsOf(place[PosTop]), PixelsOf(place[PosWidth]),
            PixelsOf(place[PosHeight])};
}

void StorePlace(int window, const QRect& place) {
    auto& stored = Show.WindowPos[window];
    stored[PosLeft] = StoredOf(place.left());
    stored[PosTop] = StoredOf(place.top());
    stored[PosWidth] = StoredOf(place.width());
    stored[PosHeight] = StoredOf(place.height());
}

QRect MovedIntoView(QRect rectangle, const QRect& area) {
    rectangle.setSize(rectangle.size().boundedTo(area.size()));
    rectangle.moveLeft(std::clamp(rectangle.left(), area.left(), area.right() + 1 - rectangle.width()));
    rectangle.moveTop(std::clamp(rectangle.top(), area.top(), area.bottom() + 1 - rectangle.height()));
    return rectangle;
}

} // namespace quorvane
