#include "ui/wallelement.h"

#include <QFocusEvent>
#include <QPainter>

namespace quorvane {

WallElement::WallElement(int index, QWidget* parent) : QWidget(parent), Index(index) {
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

void WallElement::Refresh() {
    if (stale) update();
    stale = false;
}

void WallElement::PaintSelected() {
    SetText(Qt::red);
    SetBackground(palette().color(QPalette::Highlight));
}

void WallElement::PaintUnselected(ScreenColour colour) {
    SetText(Qt::white);
    Paint(colour);
    Refresh();
}

void WallElement::SetBackground(const QColor& colour) {
    if (colour == background) return;
    background = colour;
    update();
}

void WallElement::SetText(const QColor& colour) {
    if (colour == text) return;
    text = colour;
    number = {};
    update();
}

// With an edge, so that white can be read on white and red on the dark highlight.
void WallElement::DrawNumber() {
    const QString digits = QString::number(Index + 1);
    const QSize size = fontMetrics().size(Qt::TextSingleLine, digits) + QSize(2, 2);
    number = QPixmap(size * devicePixelRatioF());
    number.setDevicePixelRatio(devicePixelRatioF());
    number.fill(Qt::transparent);
    QPainter painter(&number);
    painter.setFont(font());
    const QRect place(QPoint(0, 0), size);
    painter.setPen(text == Qt::white ? QColor(0, 0, 0, 110) : QColor(255, 255, 255, 90));
    for (const QPoint side : {QPoint(-1, 0), QPoint(1, 0), QPoint(0, -1), QPoint(0, 1)})
        painter.drawText(place.translated(side), Qt::AlignCenter, digits);
    painter.setPen(text);
    painter.drawText(place, Qt::AlignCenter, digits);
}

void WallElement::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), background);
    if (number.isNull() || number.devicePixelRatio() != devicePixelRatioF()) DrawNumber();
    const QSize size = number.deviceIndependentSize().toSize();
    painter.drawPixmap((width() - size.width()) / 2, (height() - size.height()) / 2, number);
    if (!framed || !hasFocus()) return;
    // Two lines, so that the frame is seen on every colour.
    painter.setPen(Qt::black);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    painter.setPen(Qt::white);
    painter.drawRect(rect().adjusted(1, 1, -2, -2));
}

// Turning back to the window brings the frame back that was there.
void WallElement::focusInEvent(QFocusEvent* event) {
    if (event->reason() != Qt::ActiveWindowFocusReason) framed = event->reason() != Qt::MouseFocusReason;
    update();
}

void WallElement::focusOutEvent(QFocusEvent*) { update(); }

} // namespace quorvane
