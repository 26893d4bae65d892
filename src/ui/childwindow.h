// What the windows inside the main window have in common: each keeps its place in the show's window
// positions and its bit in the status word, is made once, and is hidden when it is closed.
#pragma once

#include "model/show.h"

#include <QWidget>

#include <optional>

class QMdiSubWindow;

namespace quorvane {

class ChildWindow : public QWidget {
public:
    // name is the window's object name; number is its row in WindowPos, open its bit in StatusFlags.
    ChildWindow(const char* name, WindowNumber number, Status open);

    // Shows the window in front of the others; one that was closed comes back at its stored place.
    void Open();
    // Keeps left and top of the framed window, width and height of the window itself.
    void StorePosition();

protected:
    // The window itself in this size with the frame around it, no larger than the free area, and the
    // framed window at this position, moved into view. Both wait for Open while the window is hidden.
    void ResizeFramed(const QSize& own);
    void MoveFramed(const QPoint& position);
    QMdiSubWindow* Frame() const;
    // The size that the window takes of the wanted one when the free area is this large.
    virtual QSize Within(const QSize& area, const QSize& own) const { return own.boundedTo(area); }

    void closeEvent(QCloseEvent* event) override;

private:
    void ApplyPlace();

    WindowNumber number;
    Status open;
    std::optional<QSize> wantedSize;
    std::optional<QPoint> wantedPosition;
};

} // namespace quorvane
