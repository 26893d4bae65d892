// The DMX test window: eight faders, each for any DMX channel, that drive the output past the show, and
// beside each what the interface really holds for its channel. Moving a fader starts the test mode; it ends
// here, in the sequencer, in the colour window, or by closing this window.
#pragma once

#include "model/afterframe.h"
#include "ui/childwindow.h"

#include <array>

class QFrame;
class QLabel;
class QLayout;
class QLineEdit;
class QPushButton;
class QSlider;

namespace quorvane {

class Field;
class StatusLine;

class frmDMX : public ChildWindow {
public:
    frmDMX();

    std::array<QSlider*, 8> ScrDMX{};
    std::array<QLabel*, 8> lblFader{};  // where each slider stands
    std::array<Field*, 8> txtPatch{};   // DMX channel
    std::array<QLineEdit*, 8> txtDMX{}; // what the interface holds for it
    QPushButton* cmdDMX;
    QFrame* Frame1; // seen while there is no interface
    QLabel* lblDMX;

    // Roomy faders where the screen allows them.
    QSize sizeHint() const override { return minimumSizeHint() + QSize(40, 110); }

protected:
    void Form_Load() override;
    void Form_Activate() override;
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void MakeRow(int index);
    void MakeNotice();
    QLayout* Faders();
    QLayout* Foot();
    void SetTabOrder();
    void ConnectControls();
    void FillScreen();
    void ShowLevels();

    void ScrDMX_Change(int index);
    void cmdDMX_Click();
    bool txtPatch_KeyPress(const QString& typed);
    void txtPatch_LostFocus(int index);

    void Refresh();
    void ShowTestMode(bool on);
    void ShowStatus(const char* text);

    StatusLine* status;
    AfterFrame monitor;
    std::array<int, 8> levels{}; // of the channels watched
    std::array<int, 8> shown{};  // in txtDMX
};

} // namespace quorvane
