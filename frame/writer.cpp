// SPDX-License-Identifier: MIT
// Streamed lines: their heads, bodies and tails. The code exists once for all kernels of an instruction set.
#include "frame/writer.h"
#include "frame/streaming.h"

namespace vsurf::VSURF_ISA {

constexpr int kMostBytes = 4;          // bytes of the largest unit
constexpr ptrdiff_t kWord = 4;         // bytes: heads and tails are streamed by words
constexpr size_t kUnalignedFactor = 4; // streaming gains less there, and costs more where the surface is in a cache

template <int size> ALWAYS_INLINE void copy_piece(ptrdiff_t count, uint8_t*& to, const uint8_t*& from)
{
    if (!(count & size)) return;
    __builtin_memcpy(to, from, size);
    to += size, from += size;
}

// At most a block. No piece that is read lies in two of the stores of 16 bytes that have just made the block: it would
// wait for them.
static void copy_few(uint8_t* to, const uint8_t* from, ptrdiff_t count)
{
    for (; count >= 16; count -= 16, to += 16, from += 16) put(to, load<16>(from));
    copy_piece<8>(count, to, from);
    copy_piece<4>(count, to, from);
    copy_piece<2>(count, to, from);
    copy_piece<1>(count, to, from);
}

// 16 units from x on: of their bytes `count` from `from` on are stored.
static void store_of_block(const AnyLine& line, ptrdiff_t x, ptrdiff_t from, ptrdiff_t count, bool streamed)
{
    alignas(16) uint8_t block[kBlock * kMostBytes];
    uint8_t* const made = block;
    line.store_blocks(line.exact, made - x * line.bytes, {x, x + kBlock}, x + kBlock);
    uint8_t* to = line.to + x * line.bytes + from;
    if (streamed) stream_few(to, made + from, count);
    else copy_few(to, made + from, count);
}

static ptrdiff_t addresses(const Target& t)
{
    return static_cast<ptrdiff_t>(reinterpret_cast<uintptr_t>(t.first)) | t.to_lower | t.to_next_pair;
}
static bool begins_cache_lines(const Target& t) { return addresses(t) % kCacheLine == 0; }

static bool may_be_streamed(const Target& t)
{
    const bool whole = begins_cache_lines(t);
    return kStoresPastCaches && t.pairs > 0 && t.lines_apart() && (t.to_lower | t.to_next_pair) % t.multiple == 0 &&
           (whole || (addresses(t) | t.line_bytes) % kWord == 0) &&
           t.bytes() >= __atomic_load_n(&streaming_threshold, __ATOMIC_RELAXED) * (whole ? 1 : kUnalignedFactor);
}

Writer::Writer(const Target& target)
    : streamed_whole_(begins_cache_lines(target) && may_be_streamed(target)),
      streamed_parts_(!begins_cache_lines(target) && may_be_streamed(target))
{
}

Writer::~Writer()
{
    if (streamed_whole_ || streamed_parts_) fence_streaming();
}

// From `to` on, how many units it is to a cache line that begins with one.
static ptrdiff_t units_to_cache_line(const uint8_t* to, ptrdiff_t bytes)
{
    const auto left = static_cast<ptrdiff_t>(-reinterpret_cast<uintptr_t>(to) % kCacheLine);
    return bytes == 3 ? left * 43 % kCacheLine : left / bytes; // 3 * 43 = 1 mod 64
}

Range Writer::stream_head(const AnyLine& line, Range r, int widest)
{
    const ptrdiff_t head = units_to_cache_line(line.to + r.from * line.bytes, line.bytes);
    if (r.end - r.from - head < widest) return {r.from, r.from};
    const ptrdiff_t size = kBlock * line.bytes, from = r.from + head;
    ptrdiff_t count = head * line.bytes;
    for (; count > 0; r.from += kBlock, count -= size)
        store_of_block(line, r.from, 0, count < size ? count : size, true);
    return {from, from + ((r.end - from) & -ptrdiff_t{widest})};
}

// Units that do not fill a block are the last of one that ends with the line. No unit is stored twice.
void Writer::store_rest(const AnyLine& line, Range r, bool streamed)
{
    const ptrdiff_t left = (r.end - r.from) & (kBlock - 1), whole = r.end - left;
    if (streamed)
        for (; r.from < whole; r.from += kBlock) store_of_block(line, r.from, 0, kBlock * line.bytes, true);
    else if (r.from < whole) line.store_blocks(line.exact, line.to, {r.from, whole}, whole);
    if (left > 0) store_of_block(line, r.end - kBlock, (kBlock - left) * line.bytes, left * line.bytes, streamed);
}

void Writer::store_units_of_block(const AnyLine& line, int count) const
{
    store_of_block(line, 0, 0, count * line.bytes, streamed_parts_);
}

} // namespace vsurf::VSURF_ISA
