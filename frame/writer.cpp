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
static void store_block(const AnyLine& line, ptrdiff_t x, ptrdiff_t from, ptrdiff_t count, bool streamed)
{
    alignas(16) uint8_t block[kBlock * kMostBytes];
    line.kind->store_blocks(line.line, block - x * line.kind->bytes, {x, x + kBlock}, x + kBlock);
    uint8_t* to = line.to + x * line.kind->bytes + from;
    if (streamed) stream_few(to, block + from, count);
    else copy_few(to, block + from, count);
}
// The first `count` bytes of a line from x on.
static void stream_head(const AnyLine& line, ptrdiff_t x, ptrdiff_t count)
{
    const ptrdiff_t size = kBlock * line.kind->bytes;
    for (; count > 0; x += kBlock, count -= size) store_block(line, x, 0, count < size ? count : size, true);
}
// The last `count` bytes of a line before x.
static void stream_tail(const AnyLine& line, ptrdiff_t x, ptrdiff_t count)
{
    const ptrdiff_t size = kBlock * line.kind->bytes;
    ptrdiff_t left = count;
    for (; left > 0; left -= size) x -= kBlock;
    for (; count > 0; x += kBlock, count -= size + left, left = 0) store_block(line, x, -left, size + left, true);
}

static ptrdiff_t addresses(const Target& t)
{
    return static_cast<ptrdiff_t>(reinterpret_cast<uintptr_t>(t.first)) | t.to_lower | t.to_next_pair;
}

Writer::Writer(const Target& target)
    : to_next_(target.to_next_pair), aligned_(addresses(target) % kCacheLine == 0),
      streamed_(kStoresPastCaches && target.pairs > 0 && target.lines_apart() &&
                (addresses(target) | (aligned_ ? 0 : target.line_bytes)) % kWord == 0 &&
                target.bytes() >=
                    __atomic_load_n(&streaming_threshold, __ATOMIC_RELAXED) * (aligned_ ? 1 : kUnalignedFactor))
{
}

Writer::~Writer()
{
    if (streamed_) fence_streaming();
}

static ptrdiff_t past_cache_line(const uint8_t* p)
{
    return static_cast<ptrdiff_t>(reinterpret_cast<uintptr_t>(p) % kCacheLine);
}

// From `to` on, how many units it is to a cache line that begins with one; some number where none does.
static ptrdiff_t units_to_cache_line(const uint8_t* to, ptrdiff_t bytes)
{
    const ptrdiff_t left = -past_cache_line(to) & (kCacheLine - 1);
    return bytes == 1   ? left
           : bytes == 2 ? left / 2
           : bytes == 4 ? left / 4
                        : left * 43 % kCacheLine; // 3 * 43 = 1 mod 64
}

// The widest steps of a line from where a cache line begins; none where no unit begins with a cache line. Where nothing
// is shared with the next line they end with a cache line or with the range.
static Range body_of(const AnyLine& line, Range r, bool aligned)
{
    const ptrdiff_t bytes = line.kind->bytes, widest = line.kind->widest;
    const uint8_t* first = line.to + r.from * bytes;
    const ptrdiff_t before = units_to_cache_line(first, bytes), from = r.from + before;
    const bool begins = past_cache_line(first + before * bytes) == 0 && (before & (line.kind->grain - 1)) == 0;
    const ptrdiff_t filling = kCacheLine / (bytes & -bytes);
    const bool trimmed = aligned && filling > widest && ((r.end - from) & (widest - 1)) != 0;
    const ptrdiff_t step = trimmed ? filling : widest;
    if (!begins || r.end - from < step) return {r.end, r.end};
    return {from, from + ((r.end - from) & -step)};
}

// A pair's chroma for a strip of 4096 units: a step of 32 of them keeps at most 96 bytes.
constexpr ptrdiff_t kStrip = 4096, kKeptBytes = 12 << 10;

// What comes after the body. It is streamed only if the next line may share its last cache line.
static void store_rest(const AnyLine& line, Range r, Range body, bool aligned)
{
    const ptrdiff_t bytes = line.kind->bytes;
    if (!aligned) return stream_tail(line, r.end, (r.end - body.end) * bytes);
    const ptrdiff_t rest = (r.end - body.end) & (kBlock - 1), whole = r.end - rest;
    if (body.end < whole) line.kind->store_blocks(line.line, line.to, {body.end, whole}, whole);
    if (rest != 0) store_block(line, r.end - kBlock, (kBlock - rest) * bytes, rest * bytes, false);
}

void Writer::stream_block(const AnyLine& line, ptrdiff_t x) const
{
    const ptrdiff_t size = kBlock * line.kind->bytes;
    const bool streamed = !aligned_ || (past_cache_line(line.to + x * line.kind->bytes) == 0 && size % kCacheLine == 0);
    store_block(line, x, 0, size, streamed);
}

void Writer::store_units_of_block(const AnyLine& line, ptrdiff_t x, int first, int count) const
{
    const int bytes = line.kind->bytes;
    store_block(line, x, first * bytes, count * bytes, streamed_ && !aligned_);
}

// An ordinary store that waits for memory holds up all stores after it: what is left of a line is fetched ahead of
// time.
static void fetch_rest(const AnyLine& line, Range r, Range body, ptrdiff_t ahead)
{
    if (body.end == r.end) return;
    __builtin_prefetch(line.to + body.end * line.kind->bytes + ahead, 1);
    __builtin_prefetch(line.to + r.end * line.kind->bytes - 1 + ahead, 1);
}

bool Writer::stream(const AnyLine& line, Range r) const
{
    const Range body = body_of(line, r, aligned_);
    if (body.from == body.end) return false;
    if (aligned_) fetch_rest(line, r, body, 0), fetch_rest(line, r, body, to_next_);
    alignas(kRegister) uint8_t unused[4 * kRegister];
    stream_head(line, r.from, (body.from - r.from) * line.kind->bytes);
    line.kind->stream(line.line, line.to, body, unused, 0);
    store_rest(line, r, body, aligned_);
    return true;
}

// Streamed lines go out one after the other: two at a time get in each other's way in the write-combining buffers.
// Where the bodies of both agree, the upper line leaves what it made of the chroma to the lower one, a strip at a time.
bool Writer::stream_pair(const AnyLine& upper, const AnyLine& lower, Range r) const
{
    const Range whole = body_of(upper, r, aligned_), below = body_of(lower, r, aligned_);
    if (whole.from == whole.end || below.from == below.end) return false;
    if (whole.from != below.from) return stream(upper, r) && stream(lower, r);
    if (aligned_) {
        fetch_rest(upper, r, whole, 0), fetch_rest(lower, r, below, 0);
        fetch_rest(upper, r, whole, to_next_), fetch_rest(lower, r, below, to_next_);
    }
    alignas(kRegister) uint8_t kept[kKeptBytes];
    for (Range part = whole; part.from < whole.end; part.from = part.end) {
        const bool last = whole.end - part.from <= kStrip;
        part.end = last ? whole.end : part.from + kStrip;
        const Range strip{r.from, last ? r.end : part.end};
        const ptrdiff_t head = (part.from - r.from) * upper.kind->bytes;
        stream_head(upper, r.from, head);
        upper.kind->stream(upper.line, upper.to, part, kept, 1);
        if (!aligned_) store_rest(upper, strip, part, false);
        stream_head(lower, r.from, head);
        lower.kind->stream_with_kept(lower.line, lower.to, part, kept);
        if (aligned_) store_rest(upper, strip, part, true);
        store_rest(lower, strip, part, aligned_);
        r.from = strip.end;
    }
    return true;
}

} // namespace vsurf::VSURF_ISA
