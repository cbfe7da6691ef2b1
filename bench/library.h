// SPDX-License-Identifier: MIT
// A build of the shared library, loaded at run time, so that two of them can run in one process.
#pragma once
#include <string>

#include "frame/dispatch.h"

namespace bench {

class Library {
public:
    explicit Library(const std::string& path); // throws std::runtime_error
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;

    const vsurf::Isa& isa() const { return isa_; }
    void adjust(ajust_contrast_info info) const { set_adjustment_(&info); }

private:
    vsurf::Kernels kernels_{};
    vsurf::Isa isa_;
    void(VSURF_CALL* set_adjustment_)(void*) = nullptr;
};

} // namespace bench
