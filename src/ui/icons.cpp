#include "ui/icons.h"

#include <QPainter>
#include <QPixmap>

#include <array>

namespace quorvane {

namespace {

QPixmap WallPicture(int size) {
    constexpr int fields = 3; // along each side
    constexpr std::array<QRgb, fields * fields> colours{0xffd23b3b, 0xffe0812f, 0xffe8c63a,
                                                        0xffb03fb8, 0xfff2f2f2, 0xff57b847,
                                                        0xff5b46c9, 0xff3a7bd5, 0xff2fb5b0};
    QPixmap picture(size, size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const double step = static_cast<double>(size) / fields;
    const double gap = size / 24.0;
    for (int field = 0; field < fields * fields; ++field) {
        const int column = field % fields;
        const int row = field / fields;
        painter.setBrush(QColor(colours.at(static_cast<std::size_t>(field))));
        painter.drawRoundedRect(QRectF(column * step + gap, row * step + gap, step - 2 * gap, step - 2 * gap),
                                gap, gap);
    }
    return picture;
}

} // namespace

QIcon ProgramIcon() {
    QIcon icon;
    for (const int size : {16, 32, 64}) icon.addPixmap(WallPicture(size));
    return icon;
}

} // namespace quorvane
