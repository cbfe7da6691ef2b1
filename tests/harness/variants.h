// SPDX-License-Identifier: MIT
// The tables under test: each instruction set, with each way of storing.
#pragma once
#include "frame/dispatch.h"

#include <ostream>
#include <string>
#include <vector>

namespace harness {

// A table under test. `apply`, if any, runs before its calls, to choose among the ways it can store.
struct Variant {
    std::string name;
    const vsurf::Kernels* kernels;
    void (*apply)() = nullptr;
};

inline void PrintTo(const Variant& table, std::ostream* out) { *out << table.name; }

// Every table that this machine runs, with the library's own choice of stores and with streaming ones wherever they
// are possible. The AVX-512 kernels run translated to AVX2 where the processor lacks AVX-512. Tests that are linked
// with the shared library have one table, the exported functions.
const std::vector<Variant>& variants();

// The exported functions themselves, as a table.
const vsurf::Kernels& exported();

} // namespace harness
