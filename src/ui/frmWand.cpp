#include "ui/frmWand.h"

#include "model/selection.h"
#include "model/text.h"
#include "ui/geometry.h"
#include "ui/keys.h"
#include "ui/shown.h"
#include "ui/wallelement.h"
#include "ui/wallsurface.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>

namespace quorvane {

namespace {

constexpr int SmallestField = 8; // pixels

// As drawn: never too small to see, and the whole wall never more than a widget can hold.
double DrawnField(double stored, int fields) {
    return std::clamp<double>(stored, StoredOf(SmallestField),
                              StoredOf(QWIDGETSIZE_MAX) / std::max(1.0, static_cast<double>(fields)));
}

} // namespace

frmWand::frmWand()
    : ChildWindow("frmWand", WallWindow, Status::WallWindowOpen), lblStatus(new QLabel),
      area(new QScrollArea), grid(new QWidget), surface(new WallSurface(lblElement, grid)),
      drawing([this] { surface->Refresh(); }) {
    setFocusPolicy(Qt::StrongFocus);
    lblStatus->setObjectName("lblStatus");
    lblStatus->setAccessibleName("Statuszeile der Wand");
    lblStatus->setTextFormat(Qt::PlainText);
    lblStatus->setMargin(4);
    lblStatus->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed); // a long text never widens the wall
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidget(grid);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(area, 1);
    layout->addWidget(lblStatus);
    FillScreen();
}

void frmWand::FillScreen() {
    Screen.SizeWall = [this](double width, double height, double labelWidth, double labelHeight) {
        SizeWall(width, height, labelWidth, labelHeight);
    };
    Screen.PlaceWall = [this](int left, int top, int width, int height) {
        PlaceWall({PixelsOf(left), PixelsOf(top), PixelsOf(width), PixelsOf(height)});
    };
    Screen.AddElement = [this](int index, int column, int row) { AddElement(index, column, row); };
    Screen.RemoveElement = [this](int index) { RemoveElement(index); };
    Screen.PaintElement = [this](int index, ScreenColour colour) {
        if (!HasField(index)) return;
        FieldAt(index)->Paint(colour);
        drawing.Ask();
    };
    Screen.PaintSelected = [this](int index) {
        if (HasField(index)) FieldAt(index)->PaintSelected();
    };
    Screen.PaintUnselected = [this](int index, ScreenColour colour) {
        if (HasField(index)) FieldAt(index)->PaintUnselected(colour);
    };
    Screen.WallCaption = [this](std::string_view text) { setWindowTitle(ShownAsTitle(TrimmedRight(text))); };
    Screen.ShowWall = [this] { Open(); };
    Screen.ActivateWall = [this] { Frame()->mdiArea()->setActiveSubWindow(Frame()); };
}

void frmWand::SizeWall(double width, double height, double labelWidth, double labelHeight) {
    fieldWidth = DrawnField(labelWidth, Show.WallColumns);
    fieldHeight = DrawnField(labelHeight, Show.WallRows);
    grid->resize(PixelsOf(fieldWidth * Show.WallColumns), PixelsOf(fieldHeight * Show.WallRows));
    surface->resize(grid->size());

    // The formula leaves too little below small walls for the status line, so that has a say too.
    const QSize formula(PixelsOf(width), PixelsOf(height));
    ResizeFramed(formula.expandedTo(grid->size() + QSize(0, lblStatus->sizeHint().height())));
}

QSize frmWand::Within(const QSize& free, const QSize& own) const {
    QSize size = own;
    if (own.height() > free.height()) size.rwidth() += area->verticalScrollBar()->sizeHint().width();
    if (own.width() > free.width()) size.rheight() += area->horizontalScrollBar()->sizeHint().height();
    return size.boundedTo(free);
}

void frmWand::PlaceWall(const QRect& place) {
    if (!place.isEmpty()) ResizeFramed(place.size());
    MoveFramed(place.topLeft());
}

void frmWand::AddElement(int index, int column, int row) {
    auto* field = new WallElement(index, grid, surface);
    // Edges are rounded, not widths, so that no gap opens between fields.
    const int left = PixelsOf(fieldWidth * (column - 1));
    const int top = PixelsOf(fieldHeight * (row - 1));
    field->setGeometry(left, top, PixelsOf(fieldWidth * column) - left, PixelsOf(fieldHeight * row) - top);
    field->installEventFilter(this);
    field->show();
    lblElement.push_back(field);
    surface->raise();
    surface->show();
}

void frmWand::RemoveElement(int index) {
    delete lblElement.at(static_cast<std::size_t>(index));
    lblElement.pop_back();
    surface->setVisible(!lblElement.empty()); // it covers the fields only
}

bool frmWand::HasField(int index) const { return index >= 0 && index < static_cast<int>(lblElement.size()); }

bool frmWand::eventFilter(QObject* watched, QEvent* event) {
    auto* field = dynamic_cast<WallElement*>(watched);
    if (!field) return ChildWindow::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: { // the second press of a double click is a press like the first
        const auto* mouse = static_cast<QMouseEvent*>(event);
        PressField(field->Index, mouse->button(), mouse->modifiers(), mouse->globalPosition().toPoint());
        if (event->type() == QEvent::MouseButtonDblClick) lblElement_DblClick();
        return true;
    }
    case QEvent::ContextMenu: // that of the mouse came as a press already
        if (static_cast<QContextMenuEvent*>(event)->reason() == QContextMenuEvent::Keyboard)
            PressField(field->Index, Qt::RightButton, {}, field->mapToGlobal(field->rect().center()));
        return true;
    case QEvent::FocusIn: focusIndex = field->Index; return false;
    case QEvent::KeyPress: return PressKey(field->Index, static_cast<QKeyEvent*>(event));
    default: return false;
    }
}

void frmWand::PressField(int index, Qt::MouseButton button, Qt::KeyboardModifiers modifiers,
                         const QPoint& place) {
    Pressed = place;
    lblElement_MouseDown(index, button == Qt::LeftButton, ShiftState(modifiers));
}

bool frmWand::PressKey(int index, QKeyEvent* event) {
    const auto [column, row] = Show.ElementPos[index + 1];
    switch (event->key()) {
    case Qt::Key_Space: PressField(index, Qt::LeftButton, event->modifiers(), {}); return true;
    case Qt::Key_Left: FocusField(column > 1 ? index - 1 : index); return true;
    case Qt::Key_Right: FocusField(column < Show.WallColumns ? index + 1 : index); return true;
    case Qt::Key_Up: FocusField(row > 1 ? index - Show.WallColumns : index); return true;
    case Qt::Key_Down: FocusField(row < Show.WallRows ? index + Show.WallColumns : index); return true;
    case Qt::Key_Home: FocusField(0); return true;
    case Qt::Key_End: FocusField(Show.ElementCount - 1); return true;
    default: return false;
    }
}

void frmWand::FocusField(int index) {
    FieldAt(index)->setFocus(Qt::TabFocusReason);
    area->ensureWidgetVisible(FieldAt(index));
}

void frmWand::focusInEvent(QFocusEvent* event) {
    if (!HasField(focusIndex)) focusIndex = 0;
    if (HasField(focusIndex)) FieldAt(focusIndex)->setFocus(event->reason());
}

void frmWand::keyPressEvent(QKeyEvent* event) {
    if (!TakeSelectionKey(event)) ChildWindow::keyPressEvent(event);
}

void frmWand::resizeEvent(QResizeEvent* event) {
    ChildWindow::resizeEvent(event);
    if (Show.StatusFlags.Has(Status::SaveToCurrentFile) || !isVisible() || !IsNormal()) return;
    Show.WindowPos[WallWindow][PosWidth] = StoredOf(width());
    Show.WindowPos[WallWindow][PosHeight] = StoredOf(height());
}

} // namespace quorvane
