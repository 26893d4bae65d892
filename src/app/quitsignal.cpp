#include "app/quitsignal.h"

#include <QtGlobal>

#ifdef Q_OS_LINUX
#include <QSocketNotifier>

#include <csignal>
#include <sys/signalfd.h>
#include <unistd.h>
#endif

#include <utility>

namespace quorvane {

#ifdef Q_OS_LINUX

namespace {

sigset_t QuitSignals() {
    sigset_t quitting;
    sigemptyset(&quitting);
    sigaddset(&quitting, SIGTERM);
    sigaddset(&quitting, SIGINT);
    return quitting;
}

} // namespace

void BlockQuitSignals() {
    const sigset_t quitting = QuitSignals();
    pthread_sigmask(SIG_BLOCK, &quitting, nullptr);
}

// Read from a file descriptor, so that nothing runs in a signal handler.
QuitSignal::QuitSignal(std::function<void()> quit) {
    const sigset_t quitting = QuitSignals();
    handle = signalfd(-1, &quitting, SFD_CLOEXEC | SFD_NONBLOCK);
    if (handle < 0) return;
    auto* notifier = new QSocketNotifier(static_cast<qintptr>(handle), QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this, end = std::move(quit)] {
        signalfd_siginfo received{};
        if (read(handle, &received, sizeof received) == sizeof received) end();
    });
}

QuitSignal::~QuitSignal() {
    if (handle >= 0) ::close(handle);
}

#else

void BlockQuitSignals() {}

QuitSignal::QuitSignal(std::function<void()>) {}

QuitSignal::~QuitSignal() = default;

#endif

} // namespace quorvane
