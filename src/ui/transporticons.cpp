#include "ui/transporticons.h"

#include <QPainter>
#include <QPixmap>

namespace quorvane {

namespace {

constexpr QRgb Plain = 0xffd6d8dc;
constexpr QRgb Red = 0xffd9534f;
constexpr QRgb Green = 0xff6fbf73;
constexpr QRgb Dimmed = 0xff7c8088;

// All on a square of 16 by 16.
void Triangle(QPainter& painter, double from, double to) {
    const QPolygonF triangle({{from, 3}, {to, 8}, {from, 13}});
    painter.drawPolygon(triangle);
}

void Bar(QPainter& painter, double left) { painter.drawRect(QRectF(left, 3, 2, 10)); }

void Draw(QPainter& painter, Transport picture) {
    switch (picture) {
    case Transport::Previous:
        Triangle(painter, 11, 3);
        Bar(painter, 12);
        break;
    case Transport::Record: painter.drawEllipse(QRectF(3, 3, 10, 10)); break;
    case Transport::Play: Triangle(painter, 4, 13); break;
    case Transport::Stop: painter.drawRect(QRectF(3, 3, 10, 10)); break;
    case Transport::Next:
        Bar(painter, 2);
        Triangle(painter, 5, 13);
        break;
    case Transport::Start:
        Bar(painter, 2);
        Triangle(painter, 9, 4);
        Triangle(painter, 14, 9);
        break;
    case Transport::Delete:
        painter.setPen(QPen(painter.brush(), 2.2, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(QPointF(4, 4), QPointF(12, 12));
        painter.drawLine(QPointF(12, 4), QPointF(4, 12));
    }
}

QRgb ColourOf(Transport picture) {
    switch (picture) {
    case Transport::Record:
    case Transport::Delete: return Red;
    case Transport::Play: return Green;
    default: return Plain;
    }
}

QPixmap Picture(Transport picture, QRgb colour, int size) {
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(size / 16.0, size / 16.0);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(colour));
    Draw(painter, picture);
    return pixmap;
}

} // namespace

QIcon TransportIcon(Transport picture) {
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64}) {
        icon.addPixmap(Picture(picture, ColourOf(picture), size));
        icon.addPixmap(Picture(picture, Dimmed, size), QIcon::Disabled);
    }
    return icon;
}

} // namespace quorvane
