// What the tests know of each loader: its model, its place in the tables, and what its cases may vary.
#pragma once
#include "frame/dispatch.h"
#include "model/planar.h"

#include <ostream>
#include <string>
#include <vector>

namespace harness {

using LoaderFunction = void (*)(void*, void*, void*, void*, int, int, int, int, ajust_contrast_info*);

struct Loader {
    const char* name;
    LoaderFunction vsurf::Kernels::*entry;
    void (*model)(model::Planes&, const model::Call&);
    int block_bytes;     // at the destination, for 16 pixels of the source
    bool reads_layout;   // 16-bit pixels
    bool reads_geometry; // the surface's height and the picture's place in it
    bool signed_pitches; // whether lines may run upwards
};

const std::vector<Loader>& loaders();

inline void PrintTo(const Loader& loader, std::ostream* out) { *out << loader.name; }

// A table under test. `apply`, if any, runs before its calls, to choose among the ways it can store.
struct Variant {
    std::string name;
    const vsurf::Kernels* kernels;
    void (*apply)() = nullptr;
};

inline void PrintTo(const Variant& table, std::ostream* out) { *out << table.name; }

// Every table that this machine runs, with the library's own choice of stores and with streaming ones wherever they
// are possible. The AVX-512 kernels run translated to AVX2 where the processor lacks AVX-512.
const std::vector<Variant>& variants();

// The exported functions themselves, as a table.
const vsurf::Kernels& exported();

} // namespace harness
