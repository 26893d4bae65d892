#include "ui/childwindow.h"

#include "ui/field.h"
#include "ui/geometry.h"

#include <QCloseEvent>
#include <QContextMenuEvent>
#include <QMdiArea>
#include <QMdiSubWindow>

#include <algorithm>

namespace quorvane {

ChildWindow::ChildWindow(const char* name, WindowNumber number, Status open)
    : windowNumber(number), openBit(open) {
    setObjectName(name);
}

QMdiSubWindow* ChildWindow::Frame() const { return qobject_cast<QMdiSubWindow*>(parentWidget()); }

bool ChildWindow::IsNormal() const { return !Frame()->isMaximized() && !Frame()->isMinimized(); }

void ChildWindow::BecomeNormal() {
    Frame()->setWindowState(Frame()->windowState() & ~(Qt::WindowMaximized | Qt::WindowMinimized));
}

void ChildWindow::Open() {
    Show.StatusFlags.Set(openBit);
    const bool closed = Frame()->isHidden();
    if (closed || Frame()->isMinimized()) BecomeNormal();
    if (closed) {
        Form_Load();
        WantPlace();
    }
    show();
    Frame()->show();
    ApplyPlace();
    Frame()->mdiArea()->setActiveSubWindow(Frame());
    FrontChanged(Frame());
}

void ChildWindow::FrontChanged(const QMdiSubWindow* frame) {
    if (!frame || !Show.StatusFlags.Has(openBit)) return; // the area activates what it hides, too
    const bool before = front;
    front = frame == Frame();
    if (front && !before) Form_Activate();
}

QSize ChildWindow::Within(const QSize& area, const QSize& own) const {
    return own.expandedTo(minimumSizeHint()).boundedTo(area);
}

// The stored place; without one a useful size beside the windows that are open.
void ChildWindow::WantPlace() {
    const QRect stored = StoredPlace(windowNumber);
    if (!wantedSize) wantedSize = stored.isEmpty() ? sizeHint() : stored.size();
    if (!wantedPosition && !stored.isEmpty()) wantedPosition = stored.topLeft();
    unplaced = !wantedPosition;
}

// The place at a corner of the area or beside another window that covers the least of the others.
QPoint ChildWindow::FreePlace() const {
    QList<QRect> others;
    QList<QPoint> corners{{0, 0}};
    for (const QMdiSubWindow* other : Frame()->mdiArea()->subWindowList())
        if (other != Frame() && other->isVisible()) {
            others.append(other->geometry());
            corners.append({other->geometry().right() + 1, std::max(0, other->y())});
            corners.append({std::max(0, other->x()), other->geometry().bottom() + 1});
        }
    const QRect area = Frame()->mdiArea()->viewport()->rect();
    const auto covered = [&](const QPoint& corner) {
        const QRect here = MovedIntoView({corner, Frame()->size()}, area);
        int pixels = 0;
        for (const QRect& other : others) {
            const QRect common = here.intersected(other);
            pixels += common.width() * common.height();
        }
        return pixels;
    };
    return *std::min_element(corners.begin(), corners.end(),
                             [&](const QPoint& a, const QPoint& b) { return covered(a) < covered(b); });
}

bool ChildWindow::event(QEvent* event) {
    if (event->type() == QEvent::ParentChange && Frame()) Frame()->installEventFilter(this);
    if (event->type() == QEvent::Resize && Frame()) KeepPlace();
    return QWidget::event(event);
}

bool ChildWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == Frame() && event->type() == QEvent::Move) KeepPlace();
    return QWidget::eventFilter(watched, event);
}

void ChildWindow::KeepPlace() {
    if (isVisible() && IsNormal()) normalPlace = {Frame()->pos(), size()};
}

void ChildWindow::StorePosition() {
    if (!Frame()->isHidden() && normalPlace.isValid()) StorePlace(windowNumber, normalPlace);
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
    if (wantedSize || wantedPosition) BecomeNormal();
    const QRect area = Frame()->mdiArea()->viewport()->rect();
    if (wantedSize) {
        const QSize border = Frame()->size() - Frame()->contentsRect().size();
        Frame()->resize(Within(area.size() - border, *wantedSize) + border);
    }
    const QRect wanted(unplaced ? FreePlace() : wantedPosition.value_or(Frame()->pos()), Frame()->size());
    const bool asWanted = !unplaced && area.intersects(wanted);
    Frame()->move(asWanted ? wanted.topLeft() : MovedIntoView(wanted, area).topLeft());
    unplaced = false;
    wantedSize.reset();
    wantedPosition.reset();
    KeepPlace();
}

void ChildWindow::closeEvent(QCloseEvent* event) {
    CheckFocusedField();
    StorePosition();
    Show.StatusFlags.Clear(openBit);
    front = false;
    event->accept();
    HandOnFront();
}

// To the window that was in front before this one, so that the keys reach somebody.
void ChildWindow::HandOnFront() {
    QMdiArea* area = Frame()->mdiArea();
    if (area->activeSubWindow() != Frame()) return;
    const auto windows = area->subWindowList(QMdiArea::ActivationHistoryOrder); // the latest is the last
    const auto before = std::find_if(windows.rbegin(), windows.rend(), [this](const QMdiSubWindow* window) {
        return window != Frame() && window->isVisible();
    });
    if (before != windows.rend()) area->setActiveSubWindow(*before);
}

void ChildWindow::contextMenuEvent(QContextMenuEvent* event) { event->accept(); }

} // namespace quorvane
