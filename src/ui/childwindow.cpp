#include "ui/childwindow.h"

#include "ui/geometry.h"

#include <QCloseEvent>
#include <QMdiArea>
#include <QMdiSubWindow>

namespace quorvane {

ChildWindow::ChildWindow(const char* name, WindowNumber windowNumber, Status openBit)
    : number(windowNumber), open(openBit) {
    setObjectName(name);
}

QMdiSubWindow* ChildWindow::Frame() const { return qobject_cast<QMdiSubWindow*>(parentWidget()); }

void ChildWindow::Open() {
    Show.StatusFlags.Set(open);
    if (!isVisible()) {
        const QRect stored = StoredPlace(number);
        if (!wantedSize && !stored.isEmpty()) wantedSize = stored.size();
        if (!wantedPosition && !stored.isEmpty()) wantedPosition = stored.topLeft();
    }
    show();
    Frame()->show();
    ApplyPlace();
    Frame()->mdiArea()->setActiveSubWindow(Frame());
}

void ChildWindow::StorePosition() {
    if (!Frame()->isMinimized() && !Frame()->isMaximized()) StorePlace(number, {Frame()->pos(), size()});
}

void ChildWindow::ResizeFramed(const QSize& own) {
    wantedSize = own;
    if (isVisible()) ApplyPlace();
}

void ChildWindow::MoveFramed(const QPoint& position) {
    wantedPosition = position;
    if (isVisible()) ApplyPlace();
}

void ChildWindow::ApplyPlace() {
    const QRect area = Frame()->mdiArea()->viewport()->rect();
    if (wantedSize) {
        const QSize border = Frame()->size() - Frame()->contentsRect().size();
        Frame()->resize(Within(area.size() - border, *wantedSize) + border);
    }
    const QRect wanted(wantedPosition.value_or(Frame()->pos()), Frame()->size());
    Frame()->move(area.intersects(wanted) ? wanted.topLeft() : MovedIntoView(wanted, area).topLeft());
    wantedSize.reset();
    wantedPosition.reset();
}

void ChildWindow::closeEvent(QCloseEvent* event) {
    StorePosition();
    Show.StatusFlags.Clear(open);
    event->accept();
}

} // namespace quorvane
