// SPDX-License-Identifier: MIT
// The measured exports: what each reads and writes, and what is compared with what.
#pragma once
#include <optional>
#include <span>
#include <string>
#include <variant>
#include <vector>

#include "bench/peers.h"
#include "frame/dispatch.h"

namespace bench {

// One function type for each parameter list of frame/dispatch.h; planar and packed loaders share theirs.
using Loader = void (*)(void*, void*, void*, void*, int, int, int, int, ajust_contrast_info*);
using PlaneEnlarger = void (*)(unsigned char*, unsigned char*, int, int, int, int);
using AdjustedPlaneEnlarger = void (*)(unsigned char*, unsigned char*, int, int, int, int, ajust_contrast_info*, int);
using BandEnlarger = void (*)(tagVideoFrame*, int, int, unsigned char*, int, ajust_contrast_info*);
using PackedEnlarger = void (*)(void*, void*, void*, void*, int, int, int);
using AdjustedPackedEnlarger = void (*)(void*, void*, void*, void*, int, int, int, ajust_contrast_info*);
using Job = void (*)(MIX_INFO*);
using Fill = void (*)(unsigned int, void*, int, int, int, int);
using Mask = void (*)(unsigned char*, unsigned char*, unsigned int, unsigned int, int, int, int);

// Makes the load itself, of another library that has the same instruction sets.
using Make = Load (*)(const vsurf::Isa& isa, const Layout& layout);

using Kernel = std::variant<Loader vsurf::Kernels::*, PlaneEnlarger vsurf::Kernels::*,
                            AdjustedPlaneEnlarger vsurf::Kernels::*, BandEnlarger vsurf::Kernels::*,
                            PackedEnlarger vsurf::Kernels::*, AdjustedPackedEnlarger vsurf::Kernels::*,
                            Job vsurf::Kernels::*, Fill vsurf::Kernels::*, Mask vsurf::Kernels::*, Make>;

struct Export {
    std::string name;
    Kernel kernel;
    Access access;
    int rgb16_layout = 0;
};

struct Group {
    std::vector<Export> exports; // the plain one first, then what is compared with it
    Content content = Content::noise;
    bool peers = true;
    bool everywhere = true; // false: only where all instruction sets are measured; another group runs the same code
    // What takes the place of all of them where there is no subpicture, or of the first where both do the same. It is
    // only measured at sizes of whole blocks.
    std::optional<Export> loader = {};
    // Each access has peers of its own. Then only the best instruction sets are measured, and no roof.
    bool own_peers = false;
};

struct Family {
    const char* name;
    std::span<const Size> sizes, store_sizes;
    std::vector<Group> groups;
};
std::span<const Family> families(); // of the exports
const Access& band_access();        // of the export that interpolates along edges

ajust_contrast_info adjustment(); // one that changes every sample

Load load_with(const vsurf::Isa& isa, const Export& e, const Layout& layout);

} // namespace bench
