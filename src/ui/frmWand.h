// The wall window: the wall as a grid of fields, each in the colour that its element has now, and the
// status line for selecting and for the file commands. Elements are selected by mouse, or by keys: arrows
// move from field to field, the blank stands for a click, the menu key for a click with the right button.
#pragma once

#include "model/afterframe.h"
#include "model/screen.h"
#include "ui/childwindow.h"

#include <QPoint>

#include <vector>

class QLabel;
class QScrollArea;

namespace quorvane {

class WallElement;
class WallSurface;

class frmWand : public ChildWindow {
public:
    frmWand();

    QLabel* lblStatus;
    QPoint Pressed; // where a field was pressed last, on the screen

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    QSize Within(const QSize& free, const QSize& own) const override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void FillScreen();
    void SizeWall(double width, double height, double labelWidth, double labelHeight);
    void AddElement(int index, int column, int row);
    void RemoveElement(int index);
    void PlaceWall(const QRect& place);
    bool HasField(int index) const;
    WallElement* FieldAt(int index) const { return lblElement.at(static_cast<std::size_t>(index)); }
    void PressField(int index, Qt::MouseButton button, Qt::KeyboardModifiers modifiers, const QPoint& place);
    bool PressKey(int index, QKeyEvent* event);
    void FocusField(int index);

    QScrollArea* area;
    QWidget* grid;        // carries the fields, gapless from its top left
    WallSurface* surface; // over the fields
    std::vector<WallElement*> lblElement;
    AfterFrame drawing;     // of the colours painted since
    double fieldWidth = 0;  // 1/15 pixel
    double fieldHeight = 0; // 1/15 pixel
    int focusIndex = 0;     // the field that has the focus when the window has it
};

} // namespace quorvane
