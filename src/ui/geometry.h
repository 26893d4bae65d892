// Stored lengths are 1/15 of a logical pixel; they become pixels only where a widget is placed.
#pragma once

#include <QRect>

#include <cstdint>

class QWidget;

namespace quorvane {

// Divided by 15, halves to even, held within what a widget can be.
int PixelsOf(double stored);
std::int32_t StoredOf(int pixels);

// The stored place of a window (left, top, width, height). Width or height 0 or less means none is stored.
QRect StoredPlace(int window);
// Puts a place into the window positions; the fifth value stays.
void StorePlace(int window, const QRect& place);

// A dialog at its stored place on the screen, if there is one; and its place kept for the next time.
void PlaceDialog(QWidget& dialog, int window);
void KeepDialogPlace(const QWidget& dialog, int window);

// The rectangle as it stands when it is at least partly on a screen and no larger than that, else moved into
// view on the main screen.
QRect OnScreen(const QRect& rectangle);

// The rectangle moved, and made smaller if it must be, so that it lies within area.
QRect MovedIntoView(QRect rectangle, const QRect& area);

} // namespace quorvane
