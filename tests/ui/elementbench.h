// The element patch dialog beside a wall of twelve elements in four columns.
#pragma once

#include "ui/wallbench.h"

#include "ui/field.h"
#include "ui/frmElement.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>

#include <array>

namespace quorvane {

class ElementBench : public WallBench {
protected:
    using Values = std::array<int, 4>;

    // The dialog shows this element; with 0 nothing is selected and nothing was pressed.
    void StartWithElement(int element) {
        StartWithWall(4, 3);
        if (element != 0) Click(WallBench::Element(element));
        OpenPatch();
    }
    void OpenPatch() { Choose("mnuElement"); }
    void ClosePatch() { Frame()->close(); }
    QMdiSubWindow* Frame() { return qobject_cast<QMdiSubWindow*>(main->Element->parentWidget()); }
    QMdiSubWindow* Front() { return main->findChild<QMdiArea*>()->activeSubWindow(); }

    QLineEdit* Text(int index) {
        return Find<QLineEdit>("frmElement", ("txtElement(" + std::to_string(index) + ")").c_str());
    }
    std::string Shown(int index) { return Text(index)->text().toStdString(); }
    std::vector<std::string> AllShown() {
        std::vector<std::string> texts;
        for (int index = 0; index <= 8; ++index) texts.push_back(Shown(index));
        return texts;
    }
    bool IsRed(int index) { return Text(index)->palette().color(QPalette::Text) == QColor(255, 0, 0); }
    QPushButton* Transfer() { return Find<QPushButton>("frmElement", "cmdColorCorrektion"); }
    QPushButton* Leave() { return Find<QPushButton>("frmElement", "cmdOK"); }
    std::string StatusText() { return Find<QLabel>("frmElement", "lblStatus")->text().toStdString(); }

    void Replace(int index, const char* text) {
        Click(Text(index));
        Key(Qt::Key_A, Qt::ControlModifier);
        Key(Qt::Key_Delete);
        Type(text);
    }
    // Replaces the text of a field and leaves it by Tab.
    void Enter(int index, const char* text) {
        Replace(index, text);
        Key(Qt::Key_Tab);
    }

    static Values PatchOf(int element) {
        const auto& patch = Show.Patch[element];
        return {patch[1], patch[2], patch[3], patch[4]};
    }
    static Values CorrectionOf(int element) {
        const auto& correction = Show.ColourCorrection[element];
        return {correction[1], correction[2], correction[3], correction[4]};
    }
    static void SetPatchOf(int element, const Values& channels) {
        for (int channel = 1; channel <= 4; ++channel)
            Show.Patch[element][channel] =
                static_cast<std::int16_t>(channels[static_cast<std::size_t>(channel - 1)]);
    }
    static bool ConfigChanged() { return Show.ChangeFlags.Has(Change::ConfigChanged); }
};

} // namespace quorvane
