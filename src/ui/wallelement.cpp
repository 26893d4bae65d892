#include "ui/wallelement.h"

#include <QFocusEvent>
#include <QPainter>

#include <utility>

namespace quorvane {

WallElement::WallElement(int index, QWidget* parent, QWidget* drawnBy)
    : QWidget(parent), Index(index), surface(drawnBy) {
    setObjectName(QString("lblElement(%1)").arg(index));
    setAccessibleName(QString("Element %1").arg(index + 1));
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::ClickFocus);
}

void WallElement::Paint(ScreenColour colour) {
    const QColor painted(colour.Red, colour.Green, colour.Blue);
    stale = stale || painted != background;
    background = painted;
}

bool WallElement::TakeStale() { return std::exchange(stale, false); }

void WallElement::PaintSelected() {
    SetText(Qt::red);
    background = palette().color(QPalette::Highlight);
    DrawAnew();
}

void WallElement::PaintUnselected(ScreenColour colour) {
    SetText(Qt::white);
    Paint(colour);
    DrawAnew();
}

void WallElement::SetText(const QColor& colour) {
    if (colour == text) return;
    text = colour;
    number = {};
}

void WallElement::DrawAnew() { surface->update(geometry()); }

// With an edge, so that white can be read on white and red on the dark highlight.
void WallElement::DrawNumber(double pixelRatio) {
    const QString digits = QString::number(Index + 1);
    numberSize = fontMetrics().size(Qt::TextSingleLine, digits) + QSize(2, 2);
    number = QPixmap(numberSize * pixelRatio);
    number.setDevicePixelRatio(pixelRatio);
    number.fill(Qt::transparent);
    QPainter painter(&number);
    painter.setFont(font());
    const QRect place(QPoint(0, 0), numberSize);
    painter.setPen(text == Qt::white ? QColor(0, 0, 0, 110) : QColor(255, 255, 255, 90));
    for (const QPoint side : {QPoint(-1, 0), QPoint(1, 0), QPoint(0, -1), QPoint(0, 1)})
        painter.drawText(place.translated(side), Qt::AlignCenter, digits);
    painter.setPen(text);
    painter.drawText(place, Qt::AlignCenter, digits);
}

void WallElement::Draw(QPainter& painter, const QRect& place, double pixelRatio) {
    painter.fillRect(place, background);
    if (number.isNull() || number.devicePixelRatio() != pixelRatio) DrawNumber(pixelRatio);
    const QSize room = place.size() - numberSize;
    painter.drawPixmap(place.topLeft() + QPoint(room.width() / 2, room.height() / 2), number);
    if (!framed || !hasFocus()) return;
    // Two lines, so that the frame is seen on every colour.
    painter.setPen(Qt::black);
    painter.drawRect(place.adjusted(0, 0, -1, -1));
    painter.setPen(Qt::white);
    painter.drawRect(place.adjusted(1, 1, -2, -2));
}

// Where the field is asked for alone.
void WallElement::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    Draw(painter, rect(), devicePixelRatioF());
}

// Turning back to the window brings the frame back that was there.
void WallElement::focusInEvent(QFocusEvent* event) {
    if (event->reason() != Qt::ActiveWindowFocusReason) framed = event->reason() != Qt::MouseFocusReason;
    DrawAnew();
}

void WallElement::focusOutEvent(QFocusEvent*) { DrawAnew(); }

} // namespace quorvane
