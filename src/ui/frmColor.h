// The colour window: a colour is mixed with four sliders or number fields, seen in the preview, given to the
// selected elements or fetched from them, and kept in a table of twenty named colours. What the sliders say
// reaches CurrentColour through one procedure, ScrFarbe_Change.
#pragma once

#include "model/table.h"
#include "ui/childwindow.h"

#include <array>
#include <cstdint>

class QCheckBox;
class QLabel;
class QLayout;
class QPushButton;
class QSlider;

namespace quorvane {

class ColourFields;
class Field;

class frmColor : public ChildWindow {
public:
    frmColor();

    std::array<QSlider*, 4> ScrFarbe{};     // red, green, blue, white
    std::array<Field*, 4> txtFarbe{};       // beside the sliders
    std::array<QLabel*, 8> lblFarbe{};      // captions of the four, preview, name, number, hint
    std::array<QPushButton*, 4> cmdColor{}; // fetch, apply, choose, add
    ColourFields* fields;                   // txtUserColor
    Field* txtFarbNr;
    Field* txtFarbName;
    QCheckBox* chkCHange;
    QCheckBox* chkMindest;
    QLabel* lblStatus;

    // Roomy sliders where the screen allows them.
    QSize sizeHint() const override { return minimumSizeHint() + QSize(60, 120); }

protected:
    void Form_Load() override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    // What stands where (colourcontrols.cpp).
    void MakeSliders();
    void MakeTable();
    void MakeButtons();
    QLayout* SliderLayout();
    QLayout* MixLayout();
    QLayout* TableLayout();
    void SetTabOrder();

    void ConnectControls();
    void FillScreen();

    void ScrFarbe_Change(int index);
    void txtFarbe_KeyUp(int index, int key, const QString& typed);
    void txtFarbe_LostFocus(int index);
    void cmdColor_Click(int index);
    void txtUserColor_Click(int index);
    void txtFarbNr_KeyUp(int key);
    void txtFarbName_LostFocus();
    void chkCHange_Click();
    void chkMindest_Click();

    void FetchColour();
    void ChooseColour();
    void AskForField();
    void StoreColour(int number);
    void PickColour(int number);
    void EndTestMode();
    void SayTestModeEnded(bool wasOn);
    // Moves a slider, or all to a colour, and runs the slider change whether or not the position moved.
    void SetSlider(int index, std::uint8_t level);
    void SetSliders(PerChannel<std::uint8_t> colour);
    // The same without the change: only what is seen follows.
    void ShowInSliders(const PerChannel<std::uint8_t>& colour);
    void ShowPreview();
    void ShowTable();
    void ShowUserColour(int number);
    void ShowCaption();
    void ShowNumberAndName();
    void ShowStatus(const char* text);
};

} // namespace quorvane
