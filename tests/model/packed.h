// SPDX-License-Identifier: MIT
// The loaders of packed YUY2 pictures, written from their contract. The picture is read from `planes.y`.
#pragma once
#include "model/call.h"

namespace model {

void LoadYUY2_YUY2(Planes& planes, const Call& call);
void LoadYUY2_YUY2_adjust(Planes& planes, const Call& call);
void LoadYUY2_RGB32(Planes& planes, const Call& call);
void LoadYUY2_RGB24(Planes& planes, const Call& call);
void LoadYUY2_RGB16(Planes& planes, const Call& call);
void LoadYUY2_RGB32_adjust(Planes& planes, const Call& call);
void LoadYUY2_RGB24_adjust(Planes& planes, const Call& call);
void LoadYUY2_RGB16_adjust(Planes& planes, const Call& call);

} // namespace model
