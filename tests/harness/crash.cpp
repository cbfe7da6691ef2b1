// SPDX-License-Identifier: MIT
#include "harness/crash.h"

#include "harness/system.h"

#include <cstdio>

namespace harness {
namespace {

const Described* current_call = nullptr;
const Placement* current_placement = nullptr;
const Variant* current_table = nullptr;

// The fault comes from a kernel, which allocates nothing and holds no lock, so building a string here is safe.
void report(const void* address)
{
    if (current_call != nullptr) {
        const std::string text =
            current_call->describe() + "\n  on " + current_table->name + ", " + describe(*current_placement);
        std::fprintf(stderr, "fault at %p in %s\n", address, text.c_str());
    } else {
        std::fprintf(stderr, "fault at %p outside any call\n", address);
    }
    std::fflush(stderr);
}

void install()
{
    static const bool installed = (report_faults(report), true);
    static_cast<void>(installed);
}

} // namespace

InCall::InCall(const Described& call, const Placement& placement, const Variant& table)
{
    install();
    current_call = &call;
    current_placement = &placement;
    current_table = &table;
}

InCall::~InCall() { current_call = nullptr; }

} // namespace harness
