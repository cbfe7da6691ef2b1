// SPDX-License-Identifier: MIT
// What the tests know of each export: its model, how it is called, and what its cases may vary.
#pragma once
#include "frame/dispatch.h"
#include "model/call.h"

#include <ostream>
#include <string>
#include <vector>

namespace harness {

struct Case;

// Where a case's memory is. What a call must not touch has an address that faults.
struct Arguments {
    uint8_t *y, *u, *v, *dst; // a packed picture and a single plane are at `y`
    ajust_contrast_info* info;
    tagVideoFrame* frame;
};

using LoaderFunction = void (*)(void*, void*, void*, void*, int, int, int, int, ajust_contrast_info*);

enum class Family {
    kLoader,        // any width and height in whole blocks; lines may overlap
    kPlane,         // a single plane; lines may overlap
    kPicture,       // three planes
    kEnlarger,      // a planar picture, its source pitch even
    kPackedPicture, // a picture whose lines follow each other without gaps
    kBand,          // lines of a frame: their length is the frame's pitch
};

// What its widths and heights may be. Heights below a guard are legal too: nothing is touched.
struct Sizes {
    int width_step = 1, least_width = 0;
    int height_step = 1, least_height = 0; // the step counts from the least height
    bool guarded = false;
    int least_line = 0; // bytes of a surface's line, however narrow
};

struct Export {
    const char* name;
    void (*call)(const vsurf::Kernels&, const Case&, const Arguments&);
    void (*model)(model::Planes&, const model::Call&);
    LoaderFunction vsurf::Kernels::*entry; // null where the parameters are not a loader's
    Family family;
    int block_bytes; // at the destination, for 16 pixels of the source
    Sizes sizes;
    bool reads_layout = false;   // 16-bit pixels
    bool reads_geometry = false; // the surface's height and the picture's place in it
    bool signed_pitches = true;  // whether lines may run upwards
};

// Every pixel export, in the order of the index, and those of some families.
const std::vector<Export>& exports();
std::vector<Export> loaders();
std::vector<Export> enlargers();
const Export& export_named(const std::string& name);

inline void PrintTo(const Export& tested, std::ostream* out) { *out << tested.name; }

} // namespace harness
