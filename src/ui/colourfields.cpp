#include "ui/colourfields.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QPainter>

namespace quorvane {

namespace {

constexpr int FieldsPerRow = 10;
constexpr int FieldCount = 20;

} // namespace

ColourField::ColourField(int index, QWidget* parent)
    : QAbstractButton(parent), number(QString::number(index + 1)) {
    setObjectName(QString("txtUserColor(%1)").arg(index));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setFocusPolicy(index == 0 ? Qt::StrongFocus : Qt::ClickFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void ColourField::Paint(ScreenColour shown) {
    colour = QColor(shown.Red, shown.Green, shown.Blue);
    update();
}

// The number stands small in a corner, so that the field is all colour.
void ColourField::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), colour);
    const bool light = qGray(colour.rgb()) > 110;
    QFont small = font();
    small.setPointSizeF(font().pointSizeF() * 0.8);
    painter.setFont(small);
    painter.setPen(light ? QColor(0, 0, 0, 190) : QColor(255, 255, 255, 190));
    painter.drawText(rect().adjusted(0, 0, -4, -2), Qt::AlignRight | Qt::AlignBottom, number);
    if (!hasFocus()) return;
    painter.setPen(Qt::black);
    painter.drawRect(rect().adjusted(1, 1, -2, -2));
    painter.setPen(Qt::white);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

ColourFields::ColourFields() {
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(4);
    for (int index = 0; index < FieldCount; ++index) {
        auto* field = new ColourField(index, this);
        layout->addWidget(field, index / FieldsPerRow, index % FieldsPerRow);
        field->installEventFilter(this);
        connect(field, &QAbstractButton::clicked, this, [this, index] {
            if (Clicked) Clicked(index);
        });
        txtUserColor.at(static_cast<std::size_t>(index)) = field;
    }
}

bool ColourFields::eventFilter(QObject* watched, QEvent* event) {
    for (int index = 0; index < FieldCount; ++index) {
        if (watched != txtUserColor.at(static_cast<std::size_t>(index))) continue;
        if (event->type() == QEvent::FocusIn) Enter(index);
        if (event->type() == QEvent::KeyPress) return PressKey(index, static_cast<QKeyEvent*>(event)->key());
    }
    return QWidget::eventFilter(watched, event);
}

// Tab comes back to the field that was left last.
void ColourFields::Enter(int index) {
    for (ColourField* field : txtUserColor) field->setFocusPolicy(Qt::ClickFocus);
    txtUserColor.at(static_cast<std::size_t>(index))->setFocusPolicy(Qt::StrongFocus);
}

bool ColourFields::PressKey(int index, int key) {
    const auto focus = [this](int to) {
        if (to >= 0 && to < FieldCount) txtUserColor.at(static_cast<std::size_t>(to))->setFocus();
        return true;
    };
    switch (key) {
    case Qt::Key_Left: return focus(index - 1);
    case Qt::Key_Right: return focus(index + 1);
    case Qt::Key_Up: return focus(index - FieldsPerRow);
    case Qt::Key_Down: return focus(index + FieldsPerRow);
    case Qt::Key_Return:
    case Qt::Key_Enter: txtUserColor.at(static_cast<std::size_t>(index))->click(); return true;
    default: return false;
    }
}

} // namespace quorvane
