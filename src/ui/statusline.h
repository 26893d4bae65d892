// The line below a window's controls that tells what happened. It may change at every tick: a new text
// repaints the line and moves nothing else, since the label is no part of the window's layout.
#pragma once

#include <QWidget>

class QLabel;

namespace quorvane {

class StatusLine : public QWidget {
public:
    explicit StatusLine(const char* accessibleName);

    QLabel* lblStatus;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;
};

} // namespace quorvane
