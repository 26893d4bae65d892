// The sequencer window beside a wall of two elements.
#pragma once

#include "ui/windowbench.h"

#include "engine/sequencer.h"
#include "engine/sequencerfields.h"
#include "model/screen.h"
#include "model/sequence.h"
#include "model/wall.h"
#include "ui/field.h"
#include "ui/frmControl.h"
#include "ui/frmWand.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QMdiSubWindow>
#include <QPushButton>

namespace quorvane {

class SequencerWindowBench : public WindowBench {
protected:
    void Open() {
        StartProgram();
        Choose("mnuTransporter");
    }
    void MakeWall() {
        Show.WallColumns = 2;
        Show.WallRows = 1;
        Show.WallAreaWidth = Show.WallAreaHeight = 600;
        Show.ElementSize = 100;
        NeueWandInit();
        Show.ChangeFlags = {};
    }
    // Steps with level 10, 20, ... on all channels, hold 3 and blend 6 each.
    void MakeSequence(int steps) {
        MakeWall();
        for (int step = 1; step <= steps; ++step) {
            for (int element = 1; element <= 2; ++element)
                Show.SequenceSteps[step][element].Fill(static_cast<std::uint8_t>(10 * step));
            SetHold(step, 3);
            SetBlend(step, 6);
        }
        Show.StepCount = static_cast<std::uint8_t>(steps);
        Show.CurrentStep = 1;
        Show.StatusFlags.Set(Status::SequenceExists);
        ShowStepFields();
    }
    Field* Text(int index) { return main->Control->txtSequence.at(static_cast<std::size_t>(index)); }
    QPushButton* Button(int index) { return main->Control->cmdSequence.at(static_cast<std::size_t>(index)); }
    QCheckBox* Factor() { return main->Control->chkFaktor; }
    std::string StatusText() { return Find<QLabel>("frmControl", "lblStatus")->text().toStdString(); }
    std::string Shown(int index) { return Text(index)->text().toStdString(); }

    void Type(int index, const char* text) {
        Click(Text(index));
        QTest::keyClick(Text(index), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(Text(index), text);
    }
    static void Leave() { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab); }
    void Confirm(int index, const char* text) {
        Type(index, text);
        QTest::keyClick(Text(index), Qt::Key_Return);
    }
};

} // namespace quorvane
