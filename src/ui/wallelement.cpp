#include "ui/wallelement.h"

#include <QPainter>

namespace quorvane {

WallElement::WallElement(int index, QWidget* parent) : QWidget(parent), number(QString::number(index + 1)) {
    setObjectName(QString("lblElement(%1)").arg(index));
    setAccessibleName(QString("Element %1").arg(index + 1));
    setAttribute(Qt::WA_OpaquePaintEvent);
    number.setTextFormat(Qt::PlainText);
    number.setPerformanceHint(QStaticText::AggressiveCaching);
}

void WallElement::Paint(ScreenColour colour) { SetBackground(QColor(colour.Red, colour.Green, colour.Blue)); }

void WallElement::PaintSelected() {
    text = Qt::red;
    SetBackground(palette().color(QPalette::Highlight));
    update();
}

void WallElement::SetBackground(const QColor& colour) {
    if (colour == background) return;
    background = colour;
    update();
}

void WallElement::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), background);
    painter.setPen(text);
    const QSizeF size = number.size();
    painter.drawStaticText(QPointF((width() - size.width()) / 2, (height() - size.height()) / 2), number);
}

} // namespace quorvane
