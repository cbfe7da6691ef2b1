// SPDX-License-Identifier: MIT
// The plane enlargers, written from their contract. A single plane is read from `planes.y`; `call.plane` is the
// argument of that name, 1 to 3.
#pragma once
#include "model/call.h"

namespace model {

void strech_pic_2X2(Planes& planes, const Call& call);
void strech_pic_2X2_adjust(Planes& planes, const Call& call);
void strech_pic_1X2_adjust(Planes& planes, const Call& call);
void strech_picture_2X2_yv12_ajust(Planes& planes, const Call& call);
void strech_picture_1X2_yv12_ajust(Planes& planes, const Call& call);

} // namespace model
