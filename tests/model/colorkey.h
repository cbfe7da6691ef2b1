// SPDX-License-Identifier: MIT
// Colour-key fills and the replacement by a mask.
#pragma once
#include "model/memory.h"

namespace model {

struct Fill {
    uint32_t colour;
    int32_t width, height, pitch;
};
void LoadColorKeyRgb32(Plane& surface, const Fill& fill);
void LoadColorKeyRgb24(Plane& surface, const Fill& fill);
void LoadColorKeyRgb16(Plane& surface, const Fill& fill);

struct Replacement {
    uint32_t match, key;
    int32_t width, pitch, height;
};
void RelaceMaskWithColorKey(Plane& dst, Plane& mask, const Replacement& replacement);

} // namespace model
