// The function keys of the remembered selections, in every window that hands them on.
#include "ui/wallbench.h"

#include "model/screen.h"
#include "model/selection.h"

#include <QMenuBar>

namespace quorvane {

class SelectionKeys : public WallBench {
protected:
    struct Place {
        WindowNumber Number;
        const char* Window;
        const char* Control;
    };
    struct Held {
        const char* Name;
        Qt::KeyboardModifiers Keys;
    };

    static constexpr Place Places[] = {{WallWindow, "frmWand", "lblElement(2)"},
                                       {ColourWindow, "frmColor", "ScrFarbe(1)"},
                                       {ColourWindow, "frmColor", "txtFarbe(0)"},
                                       {ColourWindow, "frmColor", "txtFarbName"},
                                       {ColourWindow, "frmColor", "txtFarbNr"},
                                       {ColourWindow, "frmColor", "cmdColor(1)"},
                                       {ColourWindow, "frmColor", "chkMindest"},
                                       {ColourWindow, "frmColor", "txtUserColor(3)"},
                                       {SequencerWindow, "frmControl", "txtSequence(1)"},
                                       {SequencerWindow, "frmControl", "chkFaktor"},
                                       {SequencerWindow, "frmControl", "cmdSequence(4)"},
                                       {TestWindow, "frmDMX", "ScrDMX(0)"},
                                       {TestWindow, "frmDMX", "txtPatch(5)"},
                                       {TestWindow, "frmDMX", "cmdDMX"}};
    const std::vector<Held> AllHeld{{"", {}},
                                    {"Shift+", Qt::ShiftModifier},
                                    {"Ctrl+", Qt::ControlModifier},
                                    {"Alt+", Qt::AltModifier},
                                    {"Ctrl+Shift+", Qt::ControlModifier | Qt::ShiftModifier}};

    // The system's own: they close a window or go to the next.
    static bool IsTheSystems(int number, Qt::KeyboardModifiers held) {
        return (number == 4 && (held == Qt::AltModifier || held.testFlag(Qt::ControlModifier))) ||
               (number == 6 && held.testFlag(Qt::ControlModifier));
    }
    // Element 1 is selected, element 2 is remembered on every key there is.
    static void Prepare() {
        Show.ElementSelected.Fill(0);
        SelectOnly(0);
        for (auto& memory : Show.Selections) {
            memory.Fill(0);
            memory[1] = 1;
        }
        Screen.WallStatus("vorher");
        Show.ChangeFlags = {};
    }
    static std::vector<int> Remembered(int slot) {
        std::vector<int> elements;
        for (int index = 0; index <= 254; ++index)
            if (Show.Selections[slot][index] == 1) elements.push_back(index + 1);
        return elements;
    }
    void ExpectAfter(int number, bool shiftAlone) {
        const bool acts = number >= 2 && number <= 12;
        const bool stores = acts && shiftAlone;
        EXPECT_EQ(Selected(), acts && !stores ? Elements{2} : Elements{1});
        for (int slot = 0; slot <= 13; ++slot)
            EXPECT_EQ(Remembered(slot), stores && slot == number - 1 ? Elements{1} : Elements{2}) << slot;
        EXPECT_EQ(Show.ChangeFlags.bits, stores ? 0x28 : 0);
        const char* recalled = " Es wurden 1 Elemente ausgewählt";
        const char* acted = stores ? "Selectionen gemerkt ." : recalled;
        EXPECT_EQ(WallStatus(), acts ? acted : "vorher");
    }
};

TEST_F(SelectionKeys, RememberWithShiftAloneAndRecallWithAnythingElseInEveryWindow) {
    StartWithWall(3, 1);
    for (const Place& place : Places) {
        Screen.OpenWindow(place.Number);
        auto* control = Find<QWidget>(place.Window, place.Control);
        control->setFocus();
        for (const Held& held : AllHeld)
            for (int number = 1; number <= 13; ++number) {
                if (IsTheSystems(number, held.Keys)) continue;
                SCOPED_TRACE(std::string(place.Window) + " " + place.Control + " " + held.Name + "F" +
                             std::to_string(number));
                ASSERT_TRUE(control->hasFocus());
                Prepare();
                Key(static_cast<Qt::Key>(Qt::Key_F1 + number - 1), held.Keys);
                ExpectAfter(number, held.Keys == Qt::ShiftModifier);
                EXPECT_EQ(main->menuBar()->activeAction(), nullptr); // F10 is not the menu bar's
                EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
                if (HasFailure()) return;
            }
    }
    EXPECT_FALSE(Show.StatusFlags.Has(Status::TestMode));
}

} // namespace quorvane
