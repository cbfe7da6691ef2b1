/* SPDX-License-Identifier: MIT */
#include "header_use.h"

int main(void) { return all_is_well() ? 0 : 1; }
