// SPDX-License-Identifier: MIT
// Copies of lines, streamed or not, at any alignment.
#pragma once
#include "frame/walk.h"

namespace vsurf::VSURF_ISA {

template <int size> ALWAYS_INLINE void copy_piece(uint8_t*& dst, const uint8_t*& from, ptrdiff_t wanted)
{
    if (!(wanted & size)) return;
    __builtin_memcpy(dst, from, size);
    dst += size, from += size;
}

// Fewer than 64 bytes, by the bits of their count.
ALWAYS_INLINE void copy_rest(uint8_t*& dst, const uint8_t*& from, ptrdiff_t count)
{
    copy_piece<1>(dst, from, count);
    copy_piece<2>(dst, from, count);
    copy_piece<4>(dst, from, count);
    copy_piece<8>(dst, from, count);
    copy_piece<16>(dst, from, count);
    copy_piece<32>(dst, from, count);
}

template <Stores S> ALWAYS_INLINE void copy_cache_lines(uint8_t* dst, const uint8_t* from, ptrdiff_t count)
{
    for (ptrdiff_t i = 0; i < count; i += kRegister) put(to<S>(dst + i), load<kRegister>(from + i));
}

ALWAYS_INLINE void copy_bytes(uint8_t* dst, const uint8_t* from, ptrdiff_t count, bool streamed)
{
    const auto before = static_cast<ptrdiff_t>(-reinterpret_cast<uintptr_t>(dst) % kCacheLine);
    if (streamed && count >= before + kCacheLine) {
        copy_rest(dst, from, before);
        count -= before;
        copy_cache_lines<Stores::streaming>(dst, from, count & -kCacheLine);
    } else {
        copy_cache_lines<Stores::cached>(dst, from, count & -kCacheLine);
    }
    dst += count & -kCacheLine, from += count & -kCacheLine;
    copy_rest(dst, from, count & (kCacheLine - 1));
}

} // namespace vsurf::VSURF_ISA
