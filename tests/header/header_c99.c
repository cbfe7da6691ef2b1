// SPDX-License-Identifier: MIT
// The public header from C: as the first include, twice, every declaration, and one call that must reach the library.
#include <vsurf.h>

#include <vsurf.h>

#include "signatures.h"

#define EXPECTED(on32, on64) (sizeof(void*) == 8 ? (on64) : (on32))
#define CHECK_FIELD(record, type, field, on32, on64)                                                 \
    typedef char record##_##field##_place[offsetof(record, field) == EXPECTED(on32, on64) ? 1 : -1]; \
    typedef char record##_##field##_width[sizeof(((record*)0)->field) == sizeof(type) ? 1 : -1];
#define CHECK_SIZE(record, on32, on64) typedef char record##_size[sizeof(record) == EXPECTED(on32, on64) ? 1 : -1];
#include "layout.h"

int main(void)
{
    unsigned char y[32], u[8], v[8], surface[2 * 64];
    int i;
    for (i = 0; i < 32; i++) y[i] = 235;
    for (i = 0; i < 8; i++) u[i] = v[i] = 128;
    loadimage_rgb32(y, u, v, surface, 16, 2, 16, 64, NULL);
    for (i = 0; i < 2 * 64; i++)
        if (surface[i] != (i % 4 == 3 ? 0 : 254)) return 1;
    return 0;
}
