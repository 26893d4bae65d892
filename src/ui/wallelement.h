// One element of the wall: a field in the element's colour with its number. It is what is pressed and
// focused; what is seen of it the WallSurface draws.
#pragma once

#include "model/screen.h"

#include <QPixmap>
#include <QWidget>

namespace quorvane {

class WallElement : public QWidget {
public:
    // index is element - 1; the field shows the element's number. surface lies over the field.
    WallElement(int index, QWidget* parent, QWidget* surface);

    const int Index;

    // Background only, on purpose: the text keeps the colour it has. Seen when the surface asks for it.
    void Paint(ScreenColour colour);
    // Whether Paint has changed the field since this was asked last.
    bool TakeStale();
    // Highlight background and red text.
    void PaintSelected();
    void PaintUnselected(ScreenColour colour);

    // As it looks now, at that place, on a screen with so many dots to a pixel.
    void Draw(QPainter& painter, const QRect& place, double pixelRatio);

protected:
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void SetText(const QColor& colour);
    void DrawNumber(double pixelRatio);
    void DrawAnew();

    QWidget* surface;
    QPixmap number; // drawn once, since the field is painted at every tick of a blend
    QSize numberSize;
    QColor background = Qt::black;
    QColor text = Qt::white;
    bool stale = false;  // the background is not on the screen yet
    bool framed = false; // the focus came by a key
};

} // namespace quorvane
