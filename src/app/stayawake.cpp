#include "app/stayawake.h"

#include "platform/stayawake.h"

#include <QtGlobal>

#ifdef Q_OS_LINUX
#include <QDBusConnection>
#include <QDBusMessage>
#endif

namespace quorvane {

namespace {

#ifdef Q_OS_LINUX
// Asked without waiting: a desktop that does not answer must not hold a tick up. The desktop takes an
// inhibition back by itself when the program leaves the bus, so ending one means leaving this connection.
void AskDesktop(bool on) {
    const QString name = QStringLiteral("quorvane-playing");
    if (!on) {
        QDBusConnection::disconnectFromBus(name);
        return;
    }
    QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, name);
    if (!bus.isConnected()) return;
    QDBusMessage call =
        QDBusMessage::createMethodCall("org.freedesktop.ScreenSaver", "/org/freedesktop/ScreenSaver",
                                       "org.freedesktop.ScreenSaver", "Inhibit");
    call << "Quorvane"
         << "Eine Sequenz wird abgespielt";
    bus.send(call);
}
#else
void AskDesktop(bool) {}
#endif

} // namespace

StayAwake::~StayAwake() { Follow(false, false); }

void StayAwake::Follow(bool outputRuns, bool sequencePlays) {
    if (outputRuns != output) KeepAtFullSpeed(outputRuns);
    if (sequencePlays != playing) {
        KeepAwake(sequencePlays);
        AskDesktop(sequencePlays);
    }
    output = outputRuns;
    playing = sequencePlays;
}

} // namespace quorvane
