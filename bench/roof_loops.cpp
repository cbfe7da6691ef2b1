// The roof's inner loops, compiled once per instruction set.
#include "bench/roof_band.h"
#if defined __SSE2__
#include <immintrin.h>
#elif defined __aarch64__
#include <arm_neon.h>
#endif

namespace bench::ROOF_ISA {
namespace {

// A register of `bytes` bytes: load, ordinary store, streaming store. `keep` makes the compiler load what nobody uses.
template <int bytes> struct Register {
    using Value = uint64_t;
    static Value load(const uint8_t* from)
    {
        Value value = 0;
        __builtin_memcpy(&value, from, bytes);
        return value;
    }
    static void store(uint8_t* to, Value value) { __builtin_memcpy(to, &value, bytes); }
    static void stream(uint8_t* to, Value value) { store(to, value); }
    static void keep(Value value) { asm volatile("" ::"r"(value)); }
};

#if defined __SSE2__
constexpr int kWidest = sizeof(
#if defined __AVX512F__
    __m512i
#elif defined __AVX2__
    __m256i
#else
    __m128i
#endif
);

template <> struct Register<16> {
    struct Value {
        __m128i bits;
    };
    static Value load(const uint8_t* from) { return {_mm_loadu_si128(reinterpret_cast<const __m128i*>(from))}; }
    static void store(uint8_t* to, Value value) { _mm_storeu_si128(reinterpret_cast<__m128i*>(to), value.bits); }
    static void stream(uint8_t* to, Value value) { _mm_stream_si128(reinterpret_cast<__m128i*>(to), value.bits); }
    static void keep(Value value) { asm volatile("" ::"x"(value.bits)); }
};
#if defined __AVX2__ || defined __AVX512F__
template <> struct Register<32> {
    struct Value {
        __m256i bits;
    };
    static Value load(const uint8_t* from) { return {_mm256_loadu_si256(reinterpret_cast<const __m256i*>(from))}; }
    static void store(uint8_t* to, Value value) { _mm256_storeu_si256(reinterpret_cast<__m256i*>(to), value.bits); }
    static void stream(uint8_t* to, Value value) { _mm256_stream_si256(reinterpret_cast<__m256i*>(to), value.bits); }
    static void keep(Value value) { asm volatile("" ::"x"(value.bits)); }
};
#endif
#if defined __AVX512F__
template <> struct Register<64> {
    struct Value {
        __m512i bits;
    };
    static Value load(const uint8_t* from) { return {_mm512_loadu_si512(from)}; }
    static void store(uint8_t* to, Value value) { _mm512_storeu_si512(to, value.bits); }
    static void stream(uint8_t* to, Value value) { _mm512_stream_si512(reinterpret_cast<__m512i*>(to), value.bits); }
    static void keep(Value value) { asm volatile("" ::"v"(value.bits)); }
};
#endif
#elif defined __aarch64__
constexpr int kWidest = 16;
template <> struct Register<16> {
    struct Value {
        uint8x16_t bits;
    };
    static Value load(const uint8_t* from) { return {vld1q_u8(from)}; }
    static void store(uint8_t* to, Value value) { vst1q_u8(to, value.bits); }
    static void stream(uint8_t* to, Value value)
    {
        asm volatile("stnp %d0, %d1, [%2]" ::"w"(vget_low_u8(value.bits)), "w"(vget_high_u8(value.bits)), "r"(to)
                     : "memory");
    }
    static void keep(Value value) { asm volatile("" ::"w"(value.bits)); }
};
#else
constexpr int kWidest = 8;
#endif

constexpr int narrower(int a, int b) { return a < b ? a : b; }
constexpr int common_divisor(int a, int b) { return b == 0 ? a : common_divisor(b, a % b); }

template <int bytes> void read(const uint8_t* from)
{
    using R = Register<narrower(bytes, kWidest)>;
    for (int i = 0; i < bytes; i += narrower(bytes, kWidest)) R::keep(R::load(from + i));
}

// Reads `in` bytes and writes `out` bytes, which repeat or drop what was read.
template <int in, int out, Stores stores> void move(const uint8_t* from, uint8_t* to)
{
    constexpr int kStep = narrower(common_divisor(in, out), kWidest);
    using R = Register<kStep>;
    typename R::Value seen[in / kStep];
    for (int i = 0; i < in / kStep; i++) R::keep(seen[i] = R::load(from + i * kStep));
    for (int i = 0; i < out / kStep; i++) {
        uint8_t* at = to + i * kStep;
        constexpr int kAhead = 2048;
        if (stores == Stores::prefetched && i * kStep % 64 == 0) __builtin_prefetch(at + kAhead, 1);
        if (stores == Stores::streaming) {
            R::stream(at, seen[i % (in / kStep)]);
        } else {
            R::store(at, seen[i % (in / kStep)]);
        }
    }
}

// 16 luma bytes, 32 surface bytes of which the first 8 are left alone.
template <Stores stores> void move_with_gap(const uint8_t* from, uint8_t* to)
{
    if (stores == Stores::prefetched) __builtin_prefetch(to + 2048, 1);
    constexpr int kStep = narrower(16, kWidest);
    const auto low = Register<8>::load(from);
    Register<8>::store(to + 8, low);
    for (int i = 0; i < 16; i += kStep) Register<kStep>::store(to + 16 + i, Register<kStep>::load(from + i));
}

struct Cursor {
    const uint8_t *luma, *u, *v;
    uint8_t* to;
    int left;
    bool fresh; // false: the line is made of what was read before; the source's first bytes stand for it
    bool chroma;

    // Steps over the line in units of `unit` luma bytes, as long as whole units are left.
    template <int unit, int written_for_two, Stores stores, bool gaps> void run()
    {
        constexpr int kOut = unit * written_for_two / 2;
        const int advance = fresh ? unit : 0;
        for (; left >= unit; left -= unit) {
            if (chroma) {
                read<unit / 2>(u);
                read<unit / 2>(v);
                u += unit / 2;
                v += unit / 2;
            }
            if constexpr (gaps) {
                for (int i = 0; i < unit; i += 16) move_with_gap<stores>(luma + i, to + 2 * i);
            } else {
                move<unit, kOut, stores>(luma, to);
            }
            luma += advance;
            to += kOut;
        }
    }

    // Planes need not start at a cache line: ordinary stores up to the first one.
    template <int written_for_two> void head(int count)
    {
        const int behind = left - count;
        left = count;
        rest<written_for_two, Stores::ordinary, false>();
        left = behind;
    }

    // What is left of a line, in ever smaller pieces.
    template <int written_for_two, Stores stores, bool gaps> void rest()
    {
        run<16, written_for_two, stores, gaps>();
        if constexpr (!gaps) run<8, written_for_two, stores, false>();
        if constexpr (written_for_two == 2) {
            run<4, 2, stores, false>();
            run<2, 2, stores, false>();
        }
        if constexpr (written_for_two <= 2) single_bytes(left, written_for_two == 1 ? 2 : 1);
    }

    void single_bytes(int count, int step)
    {
        for (; count > 0; count -= step, left -= step, luma += fresh ? step : 0) *to++ = *luma;
    }
};

template <int written_for_two, Stores stores, bool gaps> void copy_line(Cursor cursor)
{
    if constexpr (stores == Stores::streaming && (written_for_two == 2 || written_for_two == 4)) {
        const auto misaligned = static_cast<int>(reinterpret_cast<uintptr_t>(cursor.to) % 64);
        if (misaligned != 0) cursor.head<written_for_two>((64 - misaligned) * 2 / written_for_two);
    }
    constexpr int kUnit = written_for_two % 2 == 1 ? 128 : 64;
    cursor.run<kUnit, written_for_two, stores, gaps>();
    // Below a whole cache line streaming stores would cost more than they save; 16 pixels of RGB32 are one.
    constexpr Stores kTail = stores == Stores::streaming && written_for_two < 8 ? Stores::ordinary : stores;
    if constexpr (!gaps && kUnit > 64) cursor.run<64, written_for_two, kTail, false>();
    if constexpr (!gaps) cursor.run<32, written_for_two, kTail, false>();
    cursor.rest<written_for_two, kTail, gaps>();
}

template <int written_for_two, Stores stores, bool gaps> void copy(const Band& band)
{
    Cursor cursor{band.luma, band.u, band.v, band.to, band.luma_bytes, true, false};
    for (int line = 0; line < band.lines; line++) {
        cursor.fresh = line % band.luma_every == 0;
        cursor.chroma = band.chroma_bytes != 0 && line % band.chroma_every == 0;
        if (line % 2 == 0) {
            copy_line<written_for_two, stores, false>(cursor);
        } else {
            copy_line<written_for_two, stores, gaps>(cursor);
        }
        if ((line + 1) % band.luma_every == 0) cursor.luma += band.luma_pitch;
        if (band.chroma_bytes != 0 && (line + 1) % band.chroma_every == 0) {
            cursor.u += band.chroma_pitch;
            cursor.v += band.chroma_pitch;
        }
        cursor.to += band.to_pitch;
    }
}

template <Stores stores> void copy_as(const Band& band)
{
    switch (band.written_for_two) {
    case 1: return copy<1, stores, false>(band);
    case 2: return copy<2, stores, false>(band);
    case 3: return copy<3, stores, false>(band);
    case 4: return band.gaps ? copy<4, stores, true>(band) : copy<4, stores, false>(band);
    case 6: return copy<6, stores, false>(band);
    case 8: return copy<8, stores, false>(band);
    default: __builtin_unreachable();
    }
}

} // namespace

void copy_band(const Band& band, Stores stores);
void finish(Stores stores);

void copy_band(const Band& band, Stores stores)
{
    switch (stores) {
    case Stores::ordinary: return copy_as<Stores::ordinary>(band);
    case Stores::prefetched: return copy_as<Stores::prefetched>(band);
    case Stores::streaming: return copy_as<Stores::streaming>(band);
    }
}

void finish(Stores stores)
{
#if defined __SSE2__
    if (stores == Stores::streaming) _mm_sfence();
#else
    static_cast<void>(stores);
#endif
}

} // namespace bench::ROOF_ISA
