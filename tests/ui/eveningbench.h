// A whole evening in the program: an ISA card is plugged in, the wall, the colour window and the sequencer
// are worked in side by side, and the program is ended and started again on the same program folder.
#pragma once

#include "ui/colourbench.h"

#include "drivers/simulated_card.h"
#include "ui/frmControl.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace quorvane {

class EveningBench : public ColourBench {
protected:
    static constexpr int Lamps = 50;

    using Picture = std::array<Levels, Lamps>; // by element - 1
    using Frame = std::vector<int>;            // levels of the DMX channels 1..512

    // A scene of the sequence as the user meant it.
    struct Scene {
        Picture Colours;
        int Hold = 1;  // ticks
        int Blend = 8; // ticks; a power of two, so that the levels between are exact
    };

    EveningBench();

    // The program is started anew with nothing but its files and settings; the card has been off meanwhile.
    void NextDay();

    // At the wall.
    void MakeWallByDialog(const char* name);
    QWidget* Light(int element) { return ElementField(element); }
    void ClickElement(int element, Qt::KeyboardModifiers modifiers = {}) { Click(Light(element), modifiers); }
    // The first alone, then the others with Ctrl.
    void SelectByMouse(const std::vector<int>& elements);
    void KeyAtWall(Qt::Key key, Qt::KeyboardModifiers modifiers = {});

    // At the sequencer.
    QPushButton* Transport(int index);
    QLineEdit* StepText(int index);
    std::string SequencerStatus() { return Find<QLabel>("frmControl", "lblStatus")->text().toStdString(); }
    void Confirm(int index, int number); // into a field, with Enter
    void Record(int hold, int blend);

    void DragByTitle(QWidget* window, const QPoint& distance);
    void SaveAs(const char* entry, const char* name);

    // What the wall shows and what the card has, against a picture.
    void ExpectOnWall(const Picture& picture);
    static Frame FrameOf(const Picture& picture);
    Frame CardFrame() const;
    // One round of the sequence from its first scene on, tick by tick.
    std::vector<Frame> Round() const;
    // Runs the ticks of a round, from that of the given number on, and compares each frame in the card.
    void ExpectRound(std::size_t first);

    SimulatedCard card;
    Picture picture{}; // what the user has painted
    std::vector<Scene> scenes;
};

} // namespace quorvane
