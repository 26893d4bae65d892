#include "ui/wallsurface.h"

#include "ui/wallelement.h"

#include <QPaintEvent>
#include <QPainter>

namespace quorvane {

WallSurface::WallSurface(const std::vector<WallElement*>& wallFields, QWidget* parent)
    : QWidget(parent), fields(wallFields) {
    setObjectName("picWand");
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide(); // until there is a field
}

// In a blend nearly all fields change, so the rectangle around them is as good as their exact region, and
// sooner found.
void WallSurface::Refresh() {
    QRect changed;
    for (WallElement* field : fields)
        if (field->TakeStale()) changed |= field->geometry();
    update(changed);
}

void WallSurface::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    const double pixelRatio = devicePixelRatioF(); // asked for once: it takes a way through window and screen
    for (WallElement* field : fields)
        if (const QRect& place = field->geometry(); event->rect().intersects(place))
            field->Draw(painter, place, pixelRatio);
}

} // namespace quorvane
