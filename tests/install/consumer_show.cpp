// SPDX-License-Identifier: MIT
// The same program as C++.
#include "consumer_show.c"
