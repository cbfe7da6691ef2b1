// SPDX-License-Identifier: MIT
// Copies of lines, streamed or not, at any alignment.
#pragma once
#include "frame/walk.h"

namespace vsurf::VSURF_ISA {

template <int size> OP void copy_piece(uint8_t*& to, const uint8_t*& from, ptrdiff_t wanted)
{
    if (!(wanted & size)) return;
    __builtin_memcpy(to, from, size);
    to += size, from += size;
}

// Fewer than 64 bytes, by the bits of their count.
OP void copy_rest(uint8_t*& to, const uint8_t*& from, ptrdiff_t count)
{
    copy_piece<1>(to, from, count);
    copy_piece<2>(to, from, count);
    copy_piece<4>(to, from, count);
    copy_piece<8>(to, from, count);
    copy_piece<16>(to, from, count);
    copy_piece<32>(to, from, count);
}

template <Stores S> OP void copy_cache_lines(uint8_t* to, const uint8_t* from, ptrdiff_t count)
{
    for (ptrdiff_t i = 0; i < count; i += kLanes) put<S>(to + i, load<kLanes>(from + i));
}

OP void copy_bytes(uint8_t* to, const uint8_t* from, ptrdiff_t count, bool streamed)
{
    const auto before = static_cast<ptrdiff_t>(-reinterpret_cast<uintptr_t>(to) % kCacheLine);
    if (streamed && count >= before + kCacheLine) {
        copy_rest(to, from, before);
        count -= before;
        copy_cache_lines<Stores::streaming>(to, from, count & -kCacheLine);
    } else {
        copy_cache_lines<Stores::cached>(to, from, count & -kCacheLine);
    }
    to += count & -kCacheLine, from += count & -kCacheLine;
    copy_rest(to, from, count & (kCacheLine - 1));
}

} // namespace vsurf::VSURF_ISA
