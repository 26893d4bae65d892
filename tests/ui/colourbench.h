// The colour window beside a wall of three elements.
#pragma once

#include "ui/wallbench.h"

#include "ui/colourfields.h"
#include "ui/field.h"
#include "ui/frmColor.h"

#include <QApplication>
#include <QCheckBox>
#include <QPushButton>
#include <QSlider>

#include <array>

namespace quorvane {

class ColourBench : public WallBench {
protected:
    using Levels = std::array<int, 4>;

    void StartWithColours() {
        StartWithWall(3, 1);
        OpenColours();
    }
    void OpenColours() {
        Choose("mnuColorfenster");
        Show.ChangeFlags = {};
    }
    void CloseColours() { main->Color->parentWidget()->close(); }

    QSlider* Slider(int index) { return Find<QSlider>("frmColor", Named("ScrFarbe", index).c_str()); }
    Field* Number(int index) {
        return static_cast<Field*>(Find<QLineEdit>("frmColor", Named("txtFarbe", index).c_str()));
    }
    QPushButton* Button(int index) { return Find<QPushButton>("frmColor", Named("cmdColor", index).c_str()); }
    QLabel* Label(int index) { return Find<QLabel>("frmColor", Named("lblFarbe", index).c_str()); }
    QWidget* Swatch(int number) {
        return Find<QWidget>("frmColor", Named("txtUserColor", number - 1).c_str());
    }
    QLineEdit* NumberOfColour() { return Find<QLineEdit>("frmColor", "txtFarbNr"); }
    QLineEdit* NameOfColour() { return Find<QLineEdit>("frmColor", "txtFarbName"); }
    QCheckBox* AtOnce() { return Find<QCheckBox>("frmColor", "chkCHange"); }
    QCheckBox* Minimum() { return Find<QCheckBox>("frmColor", "chkMindest"); }
    std::string Status() { return Find<QLabel>("frmColor", "lblStatus")->text().toStdString(); }

    // The click falls on the box itself.
    void Tick(QCheckBox* box) { QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(8, box->height() / 2)); }
    // Clicks into a field, replaces its text and leaves it by Tab.
    void Enter(QLineEdit* field, const char* text) {
        Replace(field, text);
        Key(Qt::Key_Tab);
    }
    void Replace(QLineEdit* field, const char* text) {
        Click(field);
        Key(Qt::Key_A, Qt::ControlModifier);
        Key(Qt::Key_Delete);
        Type(text);
    }
    // By the keys of the slider, large steps first.
    void Move(int index, int level) {
        QSlider* slider = Slider(index);
        slider->setFocus(Qt::TabFocusReason);
        while (level - slider->value() >= 10) Key(Qt::Key_PageUp);
        while (slider->value() - level >= 10) Key(Qt::Key_PageDown);
        while (slider->value() < level) Key(Qt::Key_Up);
        while (slider->value() > level) Key(Qt::Key_Down);
    }
    void Mix(const Levels& levels) {
        for (int index = 0; index < 4; ++index) Move(index, levels[static_cast<std::size_t>(index)]);
    }

    Levels Sliders() {
        return {Slider(0)->value(), Slider(1)->value(), Slider(2)->value(), Slider(3)->value()};
    }
    static Levels Current() { return LevelsOf(Show.CurrentColour); }
    static Levels Element(int element) { return LevelsOf(Show.ElementValue[element]); }
    static Levels UserColour(int number) { return LevelsOf(Show.UserColour[number]); }
    QColor Preview() { return Label(4)->grab().toImage().pixelColor(5, 5); }
    QColor ShownUserColour(int number) {
        QWidget* field = Swatch(number);
        return field->grab().toImage().pixelColor(field->rect().center());
    }
    QWidget* ElementField(int element) { return WallBench::Element(element); }
    static void SetLevels(PerChannel<std::uint8_t>& colour, const Levels& levels) {
        for (int c = 1; c <= 4; ++c)
            colour[c] = static_cast<std::uint8_t>(levels[static_cast<std::size_t>(c - 1)]);
    }

private:
    static std::string Named(const char* array, int index) {
        return std::string(array) + "(" + std::to_string(index) + ")";
    }
    static Levels LevelsOf(const PerChannel<std::uint8_t>& colour) {
        return {colour[1], colour[2], colour[3], colour[4]};
    }
};

} // namespace quorvane
