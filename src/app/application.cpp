#include "app/application.h"

#include "platform/host.h"

#include <string>

namespace quorvane {

void ShowFault(const std::exception& fault) {
    ShowMessage(std::string("Der Befehl konnte nicht ausgeführt werden.\n") + fault.what(), Icon::Critical);
}

bool Application::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception& fault) {
        ShowFault(fault);
        return true;
    }
}

} // namespace quorvane
