// What the roof's inner loops are given. Free of the standard library, because these loops are
// compiled once per instruction set.
#pragma once
#include <stdint.h>

namespace bench {

enum class Stores {
    ordinary,
    prefetched, // ordinary ones, the line fetched for writing some way ahead
    streaming,  // non-temporal ones, whole cache lines only
};

// Lines of a surface or a plane, with the samples that they are made of.
struct Band {
    const uint8_t *luma, *u, *v;
    uint8_t* to;
    int lines, luma_pitch, chroma_pitch, to_pitch;
    int luma_bytes, chroma_bytes; // in a line of the source
    int luma_every, chroma_every; // with which lines a new one is read: 1 is every line, 2 every second one
    int written_for_two;          // bytes of a line for two luma bytes of its source: 1 (half size) to 8 (RGB32)
    bool gaps;                    // in every second line, of every 32 bytes the first 8 are left alone
};

} // namespace bench
