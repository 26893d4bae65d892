// Sets an environment variable of the process for the life of this object.
#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace quorvane {

class Environment {
public:
    Environment(const char* variable, const std::string& value) : name(variable) {
        const char* former = std::getenv(variable);
        if (former != nullptr) before = former;
        Set(value);
    }
    ~Environment() { before ? Set(*before) : Remove(); }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;

private:
#ifdef _WIN32
    void Set(const std::string& value) { _putenv_s(name.c_str(), value.c_str()); }
    void Remove() { _putenv_s(name.c_str(), ""); }
#else
    void Set(const std::string& value) { setenv(name.c_str(), value.c_str(), 1); }
    void Remove() { unsetenv(name.c_str()); }
#endif

    std::string name;
    std::optional<std::string> before;
};

} // namespace quorvane
