// The argument list that all loaders share.
#pragma once
#include "frame/dispatch.h"
#include "frame/walk.h"

#define LOADER_EXPORT(name)                                                                            \
    void name(void* y, void* u, void* v, void* dst, int width, int height, int y_pitch, int dst_pitch, \
              [[maybe_unused]] ajust_contrast_info* info)
#define PICTURE (::vsurf::VSURF_ISA::picture(y, u, v, dst, width, height, y_pitch, dst_pitch))

namespace vsurf::VSURF_ISA {

OP Picture picture(void* y, void* u, void* v, void* dst, int width, int height, int y_pitch, int dst_pitch)
{
    auto samples = [](void* p) { return static_cast<const uint8_t*>(p); };
    return {{samples(y), samples(u), samples(v), static_cast<uint8_t*>(dst)}, width, height, y_pitch, dst_pitch};
}

} // namespace vsurf::VSURF_ISA
