// The colour table as it is seen: twenty fields in two rows, each in its colour with its number. A field is
// chosen by a click, or by arrows and the blank; the table is one stop of the Tab key.
#pragma once

#include "model/screen.h"

#include <QAbstractButton>

#include <array>
#include <functional>

namespace quorvane {

class ColourField : public QAbstractButton {
public:
    ColourField(int index, QWidget* parent);

    void Paint(ScreenColour shown);
    QSize sizeHint() const override { return {44, 34}; }
    QSize minimumSizeHint() const override { return {30, 26}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString number;
    QColor colour = Qt::black;
};

class ColourFields : public QWidget {
public:
    ColourFields();

    std::function<void(int index)> Clicked; // index is user colour - 1
    std::array<ColourField*, 20> txtUserColor{};

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Enter(int index);
    bool PressKey(int index, int key);
};

} // namespace quorvane
