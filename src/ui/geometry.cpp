#include "ui/geometry.h"

#include "model/show.h"
#include "model/text.h"

#include <QGuiApplication>
#include <QScreen>
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

void PlaceDialog(QWidget& dialog, int window) {
    const QRect stored = StoredPlace(window);
    if (!stored.isEmpty()) dialog.setGeometry(OnScreen(stored));
}

void KeepDialogPlace(const QWidget& dialog, int window) { StorePlace(window, dialog.geometry()); }

QRect OnScreen(const QRect& rectangle) {
    const auto seen = [&rectangle](const QScreen* screen) {
        const QRect common = screen->availableGeometry().intersected(rectangle);
        return static_cast<qint64>(common.width()) * common.height();
    };
    const QScreen* most = QGuiApplication::primaryScreen();
    for (const QScreen* screen : QGuiApplication::screens())
        if (seen(screen) > seen(most)) most = screen;
    const QRect available = most->availableGeometry();
    const bool fits =
        rectangle.width() <= available.width() && rectangle.height() <= available.height() && seen(most) > 0;
    return fits ? rectangle : MovedIntoView(rectangle, available);
}

QRect MovedIntoView(QRect rectangle, const QRect& area) {
    rectangle.setSize(rectangle.size().boundedTo(area.size()));
    rectangle.moveLeft(std::clamp(rectangle.left(), area.left(), area.right() + 1 - rectangle.width()));
    rectangle.moveTop(std::clamp(rectangle.top(), area.top(), area.bottom() + 1 - rectangle.height()));
    return rectangle;
}

} // namespace quorvane
