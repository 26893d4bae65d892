#include "model/selection.h"

#include "model/changes.h"
#include "model/colour.h"
#include "model/screen.h"
#include "model/show.h"
#include "model/text.h"

namespace quorvane {

namespace {

constexpr int LastIndex = 254;
constexpr int SlotBeforeF2 = KeyF2 - 1;

bool IsSelected(int index) { return Show.ElementSelected[index] == 1; }

bool FieldExists(int index) {
    if (index >= 0 && index < Show.ElementCount) return true;
    Screen.WallStatus("Fehler beim Makieren.");
    return false;
}

void ShowSelectedNumber(int index) {
    Screen.WallStatus(" Es wurde Element Nr " + Decimal(index + 1) + " ausgewählt. ");
}

void ShowSelectedCount() {
    Screen.WallStatus(" Es wurden " + Decimal(Show.SelectedCount) + " Elemente ausgewählt");
}

// One element past the last of the wall is remembered too, on purpose.
void Remember(int slot) {
    MarkSequenceChanged();
    auto& memory = Show.Selections[slot];
    for (int index = 0; index <= LastIndex; ++index)
        memory[index] = index <= Show.ElementCount ? Show.ElementSelected[index] : std::uint8_t{0};
    Screen.WallStatus("Selectionen gemerkt .");
}

// Taken off and added again where it was selected already, so that the count is right either way.
void Recall(int slot) {
    const auto memory = Show.Selections[slot];
    for (int index = 0; index <= LastIndex; ++index)
        if (memory[index] == 1) {
            if (!FieldExists(index)) return;
            RemoveFromSelection(index);
            AddToSelection(index);
        } else if (IsSelected(index))
            RemoveFromSelection(index);
}

void Toggle(int index) {
    if (Show.SelectedCount == 0)
        SelectOnly(index);
    else if (IsSelected(index))
        RemoveFromSelection(index);
    else
        AddToSelection(index);
}

void SelectAlone(int index) {
    for (int other = 0; other < Show.ElementCount; ++other)
        if (IsSelected(other)) RemoveFromSelection(other);
    SelectOnly(index);
}

void OpenEditMenu(int index) {
    Show.PatchElementNo = static_cast<std::int16_t>(index + 1);
    Screen.OpenEditMenu();
}

// The element dialog takes the front when the press concerns it, and the wall takes it back, so that further
// clicks land there.
void HandOverToElementWindow() {
    if (!Show.StatusFlags.Has(Status::ElementWindowOpen) || Show.SelectedCount != 1) return;
    Screen.WallStatus("Zeige Patchdaten des ausgewälten Elements");
    Screen.ActivateElementWindow();
    Screen.ActivateWall();
}

} // namespace

void SelectOnly(int index) {
    if (!FieldExists(index)) return;
    Show.ElementSelected[index] = 1;
    Screen.PaintSelected(index);
    Show.SelectedCount = 1;
    ShowSelectedNumber(index);
}

void AddToSelection(int index) {
    if (!FieldExists(index)) return;
    Screen.PaintSelected(index);
    Show.ElementSelected[index] = 1;
    ++Show.SelectedCount;
    ShowSelectedCount();
}

void RemoveFromSelection(int index) {
    if (!FieldExists(index)) return;
    Screen.PaintUnselected(index, Colormix(Show.ElementValue[index + 1]));
    if (IsSelected(index)) --Show.SelectedCount;
    Show.ElementSelected[index] = 0;
    if (Show.SelectedCount == 1)
        ShowSelectedNumber(index); // the one just removed and not the one that remains, on purpose
    else
        ShowSelectedCount();
}

void SelectAll() {
    for (int index = 0; index < Show.ElementCount; ++index)
        if (!IsSelected(index)) AddToSelection(index);
}

void InvertSelection() {
    for (int index = 0; index < Show.ElementCount; ++index)
        if (IsSelected(index))
            RemoveFromSelection(index);
        else
            AddToSelection(index);
}

void RepaintSelection() {
    for (int index = 0; index < Show.ElementCount; ++index)
        if (IsSelected(index)) Screen.PaintSelected(index);
}

int FirstSelectedElementNo() {
    for (int element = 1; element <= Show.ElementCount; ++element)
        if (IsSelected(element - 1)) return element;
    return Show.ElementCount + 2; // meant
}

void RememberOrRecallSelection(int key, int shift) {
    if (key < KeyF2 || key > KeyF12) return;
    const int slot = key - SlotBeforeF2;
    if (shift == ShiftHeld)
        Remember(slot);
    else
        Recall(slot);
}

void lblElement_MouseDown(int index, bool leftButton, int shift) {
    if (!Show.StatusFlags.Has(Status::WallExists)) return;
    if (!leftButton)
        OpenEditMenu(index);
    else if (shift == CtrlHeld)
        Toggle(index);
    else
        SelectAlone(index);
    HandOverToElementWindow(); // after what was chosen in the menu
}

// A place kept for a command that was never settled, on purpose.
void lblElement_DblClick() { Screen.WallStatus(" Wassollas?"); }

} // namespace quorvane
