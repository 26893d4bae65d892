// The wall window: the wall as a grid of fields, each in the colour that its element has now, and the
// status line for selecting and for the file commands.
#pragma once

#include "model/screen.h"
#include "ui/childwindow.h"

#include <vector>

class QLabel;
class QScrollArea;

namespace quorvane {

class WallElement;

class frmWand : public ChildWindow {
public:
    frmWand();

    QLabel* lblStatus;

protected:
    QSize Within(const QSize& free, const QSize& own) const override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void FillScreen();
    void SizeWall(double width, double height, double labelWidth, double labelHeight);
    void AddElement(int index, int column, int row);
    void RemoveElement(int index);
    void PlaceWall(const QRect& place);

    QScrollArea* area;
    QWidget* grid; // carries the fields, gapless from its top left
    std::vector<WallElement*> lblElement;
    double fieldWidth = 0;  // pixels
    double fieldHeight = 0; // pixels
};

} // namespace quorvane
