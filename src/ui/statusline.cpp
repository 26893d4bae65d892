#include "ui/statusline.h"

#include <QLabel>

namespace quorvane {

StatusLine::StatusLine(const char* accessibleName) : lblStatus(new QLabel(this)) {
    lblStatus->setObjectName("lblStatus");
    lblStatus->setAccessibleName(accessibleName);
    lblStatus->setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

QSize StatusLine::sizeHint() const { return {0, fontMetrics().height() + 4}; }

QSize StatusLine::minimumSizeHint() const { return sizeHint(); }

void StatusLine::resizeEvent(QResizeEvent*) { lblStatus->setFixedSize(size()); }

} // namespace quorvane
