// SPDX-License-Identifier: MIT
// The loaders that enlarge, written from their contract. A packed picture is read from `planes.y`; its `call.width`
// is in pixels.
#pragma once
#include "model/call.h"

namespace model {

void strech_picture_1X2_yuy2(Planes& planes, const Call& call);
void strech_picture_1X2_yuy2_ajust(Planes& planes, const Call& call);
void strech_picture_2X2_yuy2(Planes& planes, const Call& call);
void strech_picture_2X2_yuy2_ajust(Planes& planes, const Call& call);
void strech_picture_1X2_yuy2_ajust_rgb32(Planes& planes, const Call& call);
void strech_picture_1X2_yuy2_ajust_rgb24(Planes& planes, const Call& call);
void strech_picture_1X2_yuy2_ajust_rgb16(Planes& planes, const Call& call);
void yuy2_strech_picture_2X2_yuy2(Planes& planes, const Call& call);
void yuy2_strech_picture_2X2_yuy2_ajust(Planes& planes, const Call& call);

} // namespace model
