// A library of machine code that is loaded while the program runs.
#pragma once

#include <filesystem>

namespace quorvane {

// Stays loaded as long as this object lives; what it gave out must not be called later.
class SharedLibrary {
public:
    // The ending of such files on this system: ".so" or ".dll".
    static const char* const Ending;

    // Loads exactly this file, never one of the same name elsewhere.
    explicit SharedLibrary(const std::filesystem::path& path);
    ~SharedLibrary();
    SharedLibrary(const SharedLibrary&) = delete;
    SharedLibrary& operator=(const SharedLibrary&) = delete;

    bool IsLoaded() const { return handle != nullptr; }
    // The address of an entry of exactly that name, or null.
    void* Entry(const char* name) const;

private:
    void* handle;
};

} // namespace quorvane
