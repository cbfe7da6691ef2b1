// SPDX-License-Identifier: MIT
#include "bench/library.h"

#include <dlfcn.h>

#include <filesystem>
#include <stdexcept>

namespace bench {
namespace {

template <class Function> void find(void* handle, const char* name, Function& function)
{
    void* address = dlsym(handle, name);
    if (!address) throw std::runtime_error(dlerror());
    function = reinterpret_cast<Function>(address);
}

} // namespace

Library::Library(const std::string& path) : isa_{"loaded", &kernels_, [] { return true; }}
{
    // With a slash in its name the loader takes the file for what it is; two builds share their short names.
    const std::string file = std::filesystem::canonical(path).string();
    void* handle = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!handle) throw std::runtime_error(dlerror());
#define EXPORT(name, call) find(handle, #name, kernels_.name);
#include "frame/exports.inc"
#undef EXPORT
    find(handle, "get_contrast_data", set_adjustment_);
}

} // namespace bench
