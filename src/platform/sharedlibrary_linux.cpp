#include "platform/sharedlibrary.h"

#include <dlfcn.h>

namespace quorvane {

const char* const SharedLibrary::Ending = ".so";

SharedLibrary::SharedLibrary(const std::filesystem::path& path)
    : handle(dlopen(std::filesystem::absolute(path).c_str(), RTLD_NOW | RTLD_LOCAL)) {}

SharedLibrary::~SharedLibrary() {
    if (handle != nullptr) dlclose(handle);
}

void* SharedLibrary::Entry(const char* name) const {
    return handle != nullptr ? dlsym(handle, name) : nullptr;
}

} // namespace quorvane
