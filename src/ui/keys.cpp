#include "ui/keys.h"

#include "model/selection.h"

#include <QKeyEvent>

namespace quorvane {

int ShiftState(Qt::KeyboardModifiers modifiers) {
    constexpr int altHeld = 4;
    return (modifiers.testFlag(Qt::ShiftModifier) ? ShiftHeld : 0) +
           (modifiers.testFlag(Qt::ControlModifier) ? CtrlHeld : 0) +
           (modifiers.testFlag(Qt::AltModifier) ? altHeld : 0);
}

bool TakeSelectionKey(QKeyEvent* event) {
    if (event->key() < Qt::Key_F2 || event->key() > Qt::Key_F12) return false;
    RememberOrRecallSelection(event->key() - Qt::Key_F2 + KeyF2, ShiftState(event->modifiers()));
    event->accept();
    return true;
}

} // namespace quorvane
