// One element of the wall: a field in the element's colour with its number. As light as a widget can be,
// since up to 121 of them change twenty times a second while a sequence blends.
#pragma once

#include "model/screen.h"

#include <QStaticText>
#include <QWidget>

namespace quorvane {

class WallElement : public QWidget {
public:
    // index is element - 1; the field shows the element's number.
    WallElement(int index, QWidget* parent);

    // Background only, on purpose: the text keeps the colour it has.
    void Paint(ScreenColour colour);
    // Highlight background and red text.
    void PaintSelected();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void SetBackground(const QColor& colour);

    QStaticText number;
    QColor background = Qt::black;
    QColor text = Qt::white;
};

} // namespace quorvane
