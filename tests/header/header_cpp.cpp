// SPDX-License-Identifier: MIT
// The public header from C++11: as the first include, twice, every declaration, and one call that must reach the
// library.
#include <vsurf.h>

#include <vsurf.h>

#include "signatures.h"

#include <type_traits>

#define CHECK_FIELD(record, type, field, on32, on64)                                       \
    static_assert(std::is_same<decltype(record::field), type>::value, #record "." #field); \
    static_assert(offsetof(record, field) == (sizeof(void*) == 8 ? on64 : on32), #record "." #field);
#define CHECK_SIZE(record, on32, on64) static_assert(sizeof(record) == (sizeof(void*) == 8 ? on64 : on32), #record);
#include "layout.h"

static_assert(std::is_standard_layout<MIX_INFO>::value && std::is_trivial<MIX_INFO>::value, "a plain C record");

int main()
{
    unsigned char y[32], u[8], v[8], surface[2 * 64];
    for (auto& sample : y) sample = 16;
    for (auto& sample : u) sample = 128;
    for (auto& sample : v) sample = 128;
    for (auto& byte : surface) byte = 0xAA;
    loadimage_rgb32(y, u, v, surface, 16, 2, 16, 64, nullptr);
    for (unsigned char byte : surface)
        if (byte != 0) return 1;
    return 0;
}
