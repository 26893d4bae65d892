#include "ui/field.h"

#include <QFocusEvent>
#include <QKeyEvent>

#include <algorithm>

namespace quorvane {

Field::Field(const QString& name, const QString& accessibleName) {
    setObjectName(name);
    setAccessibleName(accessibleName);
}

void Field::Put(const QString& shown) {
    setText(shown);
    put = shown;
}

// What a key types is known when it goes down: by the time it comes up, Ctrl may be up already.
void Field::keyPressEvent(QKeyEvent* event) {
    const QString typed = event->text();
    const bool command = event->modifiers().testFlag(Qt::ControlModifier) &&
                         !event->modifiers().testFlag(Qt::AltModifier); // both together may stand for AltGr
    const bool visible = !typed.isEmpty() && typed.at(0).isPrint() && !command;
    down[event->key()] = visible ? typed : QString();
    if (!KeyPress || KeyPress(down[event->key()])) QLineEdit::keyPressEvent(event);
}

void Field::keyReleaseEvent(QKeyEvent* event) {
    QLineEdit::keyReleaseEvent(event);
    if (event->isAutoRepeat() || !down.contains(event->key())) return;
    const QString typed = down.take(event->key());
    if (KeyUp) KeyUp(event->key(), typed);
}

void Field::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    const bool menu = event->reason() == Qt::PopupFocusReason || event->reason() == Qt::MenuBarFocusReason;
    const bool otherProgram = event->reason() == Qt::ActiveWindowFocusReason && !QApplication::activeWindow();
    if (menu || otherProgram) return;
    down.clear();
    if (LostFocus) LostFocus();
}

bool IsNumberText(const QString& typed) {
    return std::ranges::all_of(typed, [](QChar c) { return c >= QChar('.') && c <= QChar('9'); });
}

void CheckFocusedField(const QWidget* window) {
    auto* field = window ? dynamic_cast<Field*>(window->focusWidget()) : nullptr;
    if (field && field->LostFocus) field->LostFocus();
}

} // namespace quorvane
