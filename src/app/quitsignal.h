// A program that is told to end from outside (SIGTERM at the end of a session, SIGINT from a terminal)
// ends as by its own menu: unsaved work is asked about and receivers are told that the stream is over.
#pragma once

#include <QObject>

#include <functional>

namespace quorvane {

// To be called before any thread is started, for a signal goes to whichever thread does not block it.
void BlockQuitSignals();

class QuitSignal : public QObject {
public:
    // Windows has no such signals: nothing happens there.
    explicit QuitSignal(std::function<void()> quit);
    ~QuitSignal() override;

private:
    int handle = -1;
};

} // namespace quorvane
