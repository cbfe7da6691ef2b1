// SPDX-License-Identifier: MIT
// Streamed lines: their heads, bodies and tails. The code exists once for all kernels of an instruction set.
#include "frame/writer.h"
#include "frame/streaming.h"

namespace vsurf::VSURF_ISA {

constexpr int kMostBytes = 4;          // bytes of the largest unit
constexpr ptrdiff_t kWord = 4;         // bytes: heads and tails are streamed by words
constexpr size_t kUnalignedFactor = 4; // streaming gains less there, and costs more where the surface is in a cache

// 16 units from x on: of their bytes `count` from `from` on are streamed.
static void stream_of_block(const AnyLine& line, ptrdiff_t x, ptrdiff_t from, ptrdiff_t count)
{
    alignas(16) uint8_t block[kBlock * kMostBytes];
    line.store_blocks(line.exact, block - x * line.bytes, {x, x + kBlock}, x + kBlock);
    stream_few(line.to + x * line.bytes + from, block + from, count);
}
static ptrdiff_t addresses(const Target& t)
{
    return static_cast<ptrdiff_t>(reinterpret_cast<uintptr_t>(t.first)) | t.to_lower | t.to_next_pair;
}
static bool begins_cache_lines(const Target& t) { return addresses(t) % kCacheLine == 0; }

static bool streams(const Target& t)
{
    const size_t from = __atomic_load_n(&streaming_threshold, __ATOMIC_RELAXED);
    return kStoresPastCaches && t.pairs > 0 && t.lines_apart() && (addresses(t) | t.line_bytes) % kWord == 0 &&
           t.bytes() >= from * (begins_cache_lines(t) ? 1 : kUnalignedFactor);
}

Writer::Writer(const Target& target)
    : streamed_whole_(begins_cache_lines(target) && streams(target)),
      streamed_parts_(!begins_cache_lines(target) && streams(target))
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
    for (; count > 0; r.from += kBlock, count -= size) stream_of_block(line, r.from, 0, count < size ? count : size);
    return {from, from + ((r.end - from) & -ptrdiff_t{widest})};
}

// Units that do not fill a block are the last of one that ends with the line.
void Writer::stream_rest(const AnyLine& line, Range r)
{
    for (; r.end - r.from >= kBlock; r.from += kBlock) stream_of_block(line, r.from, 0, kBlock * line.bytes);
    const ptrdiff_t left = r.end - r.from;
    if (left > 0) stream_of_block(line, r.end - kBlock, (kBlock - left) * line.bytes, left * line.bytes);
}

} // namespace vsurf::VSURF_ISA
