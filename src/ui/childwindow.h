// What the windows inside the main window have in common: each keeps its place in the show's window
// positions and its bit in the status word, is made once, and is hidden when it is closed.
#pragma once

#include "model/show.h"

#include <QRect>
#include <QWidget>

#include <optional>

class QMdiSubWindow;

namespace quorvane {

class ChildWindow : public QWidget {
public:
    // name is the window's object name; windowNumber is its row in WindowPos, openBit its bit in StatusFlags.
    ChildWindow(const char* name, WindowNumber windowNumber, Status openBit);

    // Shows the window in front of the others; one that was closed comes back at its stored place.
    void Open();
    // Keeps left and top of the framed window, width and height of the window itself, as they were last while
    // it was neither maximised nor minimised. Nothing while the window is closed.
    void StorePosition();
    // The main window's active window is this frame now; none while another program has the front.
    void FrontChanged(const QMdiSubWindow* frame);

protected:
    // The window itself in this size with the frame around it, no larger than the free area, and the
    // framed window at this position, moved into view. Both wait for Open while the window is hidden.
    void ResizeFramed(const QSize& own);
    void MoveFramed(const QPoint& position);
    QMdiSubWindow* Frame() const;
    // Neither maximised nor minimised.
    bool IsNormal() const;
    // The size that the window takes of the wanted one when the free area is this large: large enough for its
    // controls.
    virtual QSize Within(const QSize& area, const QSize& own) const;

    // Runs when the window opens, before it is seen; not when it is only brought to the front.
    virtual void Form_Load() {}
    // Runs each time the window becomes the active one of the main window's, and not when the user only comes
    // back from another program.
    virtual void Form_Activate() {}

    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    // Runs the check of the field that has the focus first; hands the front on at the end.
    void closeEvent(QCloseEvent* event) override;
    // The main window's pop-up menu belongs to its free area and not to the windows inside.
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void BecomeNormal();
    void KeepPlace();
    void WantPlace();
    void ApplyPlace();
    QPoint FreePlace() const;
    void HandOnFront();

    WindowNumber windowNumber;
    Status openBit;
    QRect normalPlace; // as StorePosition keeps it; none before the window was seen
    std::optional<QSize> wantedSize;
    std::optional<QPoint> wantedPosition;
    bool unplaced = false; // opens without a position that anyone gave it
    bool front = false;    // is the active one
};

} // namespace quorvane
