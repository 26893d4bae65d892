// A text or number field that tells its window what the rules of fields ask for: each key as it comes up
// again, and the focus moving on to something else in the program.
#pragma once

#include <QApplication>
#include <QHash>
#include <QLineEdit>

#include <functional>

namespace quorvane {

class Field : public QLineEdit {
public:
    Field(const QString& name, const QString& accessibleName);

    // Puts a text in for the user; until he changes it, it is no entry of his.
    void Put(const QString& text);
    bool Edited() const { return isModified() || text() != put; }

    // A key goes down in this field; false keeps it out.
    std::function<bool(const QString& typed)> KeyPress;
    // A key that was pressed in this field has come up. typed is what it typed when it went down: empty for
    // Tab, arrows, Ctrl+V and the like.
    std::function<void(int key, const QString& typed)> KeyUp;
    // The focus has moved on within the program: not to a menu, and not by turning to another program.
    std::function<void()> LostFocus;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    QString put;
    QHash<int, QString> down; // keys that are down, with what they typed
};

// True for what a number field accepts: digits, "." and "/", or nothing, which many keys type.
bool IsNumberText(const QString& typed);

// Runs the check of the field that has the focus, as if the focus moved on: before a window closes and
// before a button acts that was chosen by its access key. The window is to be named when another program
// may be the active one.
void CheckFocusedField(const QWidget* window = QApplication::activeWindow());

} // namespace quorvane
