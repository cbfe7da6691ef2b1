// SPDX-License-Identifier: MIT
// The tables under test: each instruction set, with each way of storing.
#pragma once
#include "frame/dispatch.h"
#include "show/vsurf_show.h"

#include <functional>
#include <ostream>
#include <string>
#include <vector>

namespace harness {

// A table under test. `apply`, if any, runs before its calls, to choose among the ways it can store.
struct Variant {
    std::string name;
    const vsurf::Kernels* kernels;
    void (*apply)() = nullptr;
    std::function<vsurf_status(const vsurf_job* job, int band, int bands)> show = {}; // in tables of vsurf_show
};

inline void PrintTo(const Variant& table, std::ostream* out) { *out << table.name; }

// Every table that this machine runs, with the library's own choice of stores and with streaming ones wherever they
// are possible. The AVX-512 kernels run translated to AVX2 where the processor lacks AVX-512. Tests that are linked
// with the shared library have one table, the exported functions.
const std::vector<Variant>& variants();

// Likewise of vsurf_show: these tables have no kernels of exports.
const std::vector<Variant>& show_variants();

// The exported functions themselves, as a table.
const vsurf::Kernels& exported();

} // namespace harness
