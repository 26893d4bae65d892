// The application object with the fault net: whatever a handler throws ends here, is told to the user,
// and costs nothing but that one command.
#pragma once

#include <QApplication>

#include <exception>

namespace quorvane {

// Tells the user what went wrong.
void ShowFault(const std::exception& fault);

class Application : public QApplication {
public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override;
};

} // namespace quorvane
