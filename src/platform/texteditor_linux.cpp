#include "platform/texteditor.h"

#include "platform/desktoptexteditor.h"
#include "platform/programfolder.h"

#include <csignal>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace quorvane {

// A shell starts the editor and is gone at once, so that the editor is nobody's child to be waited for.
bool StartTextEditor(std::string_view file) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(PathOf(file), error)) return false;
    auto words = DesktopTextEditor(file);
    if (words.empty()) return false;
    words.insert(words.begin(), {"sh", "-c", "\"$@\" </dev/null >/dev/null 2>&1 &", "sh"});

    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (std::string& word : words) arguments.push_back(word.data());
    arguments.push_back(nullptr);

    // The program blocks the signals that end it; the editor must not inherit that.
    sigset_t none;
    sigemptyset(&none);
    posix_spawnattr_t how{};
    posix_spawnattr_init(&how);
    posix_spawnattr_setflags(&how, POSIX_SPAWN_SETSIGMASK);
    posix_spawnattr_setsigmask(&how, &none);
    pid_t shell = 0;
    const bool started = posix_spawn(&shell, "/bin/sh", nullptr, &how, arguments.data(), environ) == 0;
    posix_spawnattr_destroy(&how);
    int status = -1;
    return started && waitpid(shell, &status, 0) == shell && status == 0;
}

} // namespace quorvane
