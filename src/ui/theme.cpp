#include "ui/theme.h"

#include <QApplication>
#include <QPalette>
#include <QProxyStyle>
#include <QStyleOption>

namespace quorvane {

namespace {

// Fusion, where it is not at home in the dark.
class DarkStyle : public QProxyStyle {
public:
    DarkStyle() : QProxyStyle("Fusion") {}

    // A caption would touch the edges of its button; beside an icon it does not.
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget) const override {
        constexpr int room = 12; // pixels
        const QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
        const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
        const bool bare = type == CT_PushButton && button && button->icon.isNull();
        return bare ? size + QSize(room, 0) : size;
    }

    // The shadow of a window's title would be light, and the signs on the buttons of an inactive window
    // black.
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override {
        const auto* bar = qstyleoption_cast<const QStyleOptionTitleBar*>(option);
        if (control != CC_TitleBar || !bar) {
            QProxyStyle::drawComplexControl(control, option, painter, widget);
            return;
        }
        QStyleOptionTitleBar readable(*bar);
        if (!(bar->titleBarState & State_Active))
            readable.palette.setColor(QPalette::Highlight, bar->palette.color(QPalette::Button));
        readable.palette.setColor(QPalette::Text, bar->palette.color(QPalette::Base));
        readable.titleBarState |= State_Active;
        QProxyStyle::drawComplexControl(control, &readable, painter, widget);
    }
};

} // namespace

void UseDarkTheme(QApplication& application) {
    application.setStyle(new DarkStyle);

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
