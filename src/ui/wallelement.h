// One element of the wall: a field in the element's colour with its number. As light as a widget can be,
// since up to 121 of them change twenty times a second while a sequence blends.
#pragma once

#include "model/screen.h"

#include <QPixmap>
#include <QWidget>

namespace quorvane {

class WallElement : public QWidget {
public:
    // index is element - 1; the field shows the element's number.
    WallElement(int index, QWidget* parent);

    const int Index;

    // Background only, on purpose: the text keeps the colour it has. Seen after Refresh.
    void Paint(ScreenColour colour);
    // Has the field drawn anew when Paint has changed it.
    void Refresh();
    // Highlight background and red text.
    void PaintSelected();
    void PaintUnselected(ScreenColour colour);

protected:
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void SetBackground(const QColor& colour);
    void SetText(const QColor& colour);
    void DrawNumber();

    QPixmap number; // drawn once, since the field is painted at every tick of a blend
    QColor background = Qt::black;
    QColor text = Qt::white;
    bool stale = false;  // the background is not on the screen yet
    bool framed = false; // the focus came by a key
};

} // namespace quorvane
