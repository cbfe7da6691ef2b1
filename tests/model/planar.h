// SPDX-License-Identifier: MIT
// The planar loaders, written from their contract: block by block, pointer by pointer, store by store.
#pragma once
#include "model/call.h"

namespace model {

#define VSURF_MODEL_LOADER(name) void name(Planes& planes, const Call& call)
VSURF_MODEL_LOADER(loadimage_yuy2);
VSURF_MODEL_LOADER(loadimage_yv12);
VSURF_MODEL_LOADER(loadimage_rgb32);
VSURF_MODEL_LOADER(loadimage_rgb24);
VSURF_MODEL_LOADER(loadimage_rgb16);
VSURF_MODEL_LOADER(loadimage_rgb32_ajust);
VSURF_MODEL_LOADER(loadimage_rgb24_ajust);
VSURF_MODEL_LOADER(loadimage_rgb16_ajust);
VSURF_MODEL_LOADER(loadimage_yuy2_ajust);
VSURF_MODEL_LOADER(loadimage_yuy2_mono_ajust);
VSURF_MODEL_LOADER(loadimage_yv12_ajust);
VSURF_MODEL_LOADER(loadimage_half_yuy2_ajust);
VSURF_MODEL_LOADER(loadimage_half_yv12_ajust);
#undef VSURF_MODEL_LOADER

} // namespace model
