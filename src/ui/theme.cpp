#include "ui/theme.h"

#include <QApplication>
#include <QPalette>
#include <QStyleFactory>

namespace quorvane {

void UseDarkTheme(QApplication& application) {
    application.setStyle(QStyleFactory::create("Fusion"));

    const QColor text(0xd6, 0xd8, 0xdc);
    const QColor dimmed(0x7c, 0x80, 0x88);
    QPalette palette(QColor(0x3a, 0x3e, 0x46), QColor(0x2a, 0x2d, 0x33));
    palette.setColor(QPalette::WindowText, text);
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::ButtonText, text);
    palette.setColor(QPalette::BrightText, Qt::white);
    palette.setColor(QPalette::Base, QColor(0x1d, 0x1f, 0x24));
    palette.setColor(QPalette::AlternateBase, QColor(0x24, 0x27, 0x2c));
    palette.setColor(QPalette::ToolTipBase, QColor(0x3a, 0x3e, 0x46));
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::PlaceholderText, dimmed);
    palette.setColor(QPalette::Highlight, QColor(0x3d, 0x6f, 0xa8));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(0x7a, 0xae, 0xe6));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, dimmed);
    application.setPalette(palette);

    // What is ticked and what is dragged has to be found at a glance.
    QPalette boxes = palette;
    boxes.setColor(QPalette::Base, QColor(0x50, 0x55, 0x5f));
    QApplication::setPalette(boxes, "QCheckBox");
    QApplication::setPalette(boxes, "QRadioButton");
    QPalette sliders = palette;
    sliders.setColor(QPalette::Button, QColor(0x82, 0x88, 0x94));
    QApplication::setPalette(sliders, "QSlider");
}

} // namespace quorvane
