// SPDX-License-Identifier: MIT
// What the roof's inner loops are given. Free of the standard library, because these loops are
// compiled once per instruction set.
#pragma once
#include <stdint.h>

namespace bench {

enum class Stores {
    ordinary,
    streaming, // non-temporal ones, whole cache lines only
};

// What else is read with every line of the surface; nothing where `bytes` is 0.
struct Stream {
    const uint8_t* from = nullptr;
    int pitch = 0, bytes = 0;
};

// Lines of a surface or a plane, with the samples that they are made of.
struct Band {
    const uint8_t *luma = nullptr, *u = nullptr, *v = nullptr;
    uint8_t* to = nullptr;
    int lines = 0, luma_pitch = 0, chroma_pitch = 0, to_pitch = 0;
    int luma_bytes = 0, chroma_bytes = 0; // in a line of the source
    int luma_every = 0, chroma_every = 0; // with which lines a new one is read: 1 is every line, 2 every second, 0 none
    int written_for_two = 0; // bytes of a line for two luma bytes of its source: 1 (half size) to 8 (RGB32)
    bool gaps = false;       // in every second line, of every 32 bytes the first 8 are not written
    // Up to two of as many bytes as of luma and, after these, two of half as many. Where no luma is read, only the
    // first, of any length.
    Stream also[4] = {};
    int luma_times = 1; // of which multiple of `luma_bytes` the source's line consists, where nothing else is read
};

} // namespace bench
