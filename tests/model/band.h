// SPDX-License-Identifier: MIT
// The band enlarger, written from its contract. The frame's pitch is `call.y_pitch`.
#pragma once
#include "model/call.h"

namespace model {

void strech_opt_yuy2_ajust(Planes& planes, const Call& call);

} // namespace model
