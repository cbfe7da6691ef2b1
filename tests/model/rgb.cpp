// Planar pictures to RGB surfaces, plain and adjusted.
#include "model/planar.h"

#include <array>

namespace model {
namespace {

enum class Format { kRgb32, kRgb24, kRgb16 };

int bytes_per_pixel(Format format) { return format == Format::kRgb32 ? 4 : format == Format::kRgb24 ? 3 : 2; }

void store_pixel(Pointer to, int index, const Rgb& pixel, Format format, uint32_t layout)
{
    const int at = index * bytes_per_pixel(format);
    if (format == Format::kRgb16) {
        const uint16_t word = rgb16(pixel, layout);
        to.store(at, static_cast<uint8_t>(word & 0xFF));
        to.store(at + 1, static_cast<uint8_t>(word >> 8));
        return;
    }
    to.store(at, pixel.b);
    to.store(at + 1, pixel.g);
    to.store(at + 2, pixel.r);
    if (format == Format::kRgb32) to.store(at + 3, 0);
}

struct Job {
    Format format;
    uint32_t layout;
    bool adjusted;
    State state;
};

std::array<ChromaTerms, 8> block_terms(const Pointer& u, const Pointer& v, const Job& job)
{
    std::array<ChromaTerms, 8> terms;
    for (int k = 0; k < 8; ++k) {
        uint8_t su = u[k], sv = v[k];
        if (job.adjusted) {
            su = adjust(su, job.state.chroma_gain, job.state.u_offset);
            sv = adjust(sv, job.state.chroma_gain, job.state.v_offset);
        }
        terms[static_cast<size_t>(k)] = chroma_terms(su, sv);
    }
    return terms;
}

void convert_line(const Pointer& y, Pointer dst, const std::array<ChromaTerms, 8>& terms, const Job& job)
{
    for (int i = 0; i < 16; ++i) {
        uint8_t luma = y[i];
        if (job.adjusted) luma = adjust(luma, job.state.luma_gain, job.state.luma_offset);
        store_pixel(dst, i, to_rgb(luma, terms[static_cast<size_t>(i / 2)]), job.format, job.layout);
    }
}

void load_rgb(Planes& planes, const Call& call, Format format, bool adjusted)
{
    Job job{format, 0, adjusted, call.state};
    if (format == Format::kRgb16) {
        job.layout = static_cast<uint32_t>(call.info->rgb16_layout);
        if (job.layout > 3) return;
    }
    const int pixel = bytes_per_pixel(format);
    Pointer y(planes.y), u(planes.u), v(planes.v), dst(planes.dst);
    Counter lines(call.height);
    do {
        Counter columns(call.width);
        do {
            const auto terms = block_terms(u, v, job);
            convert_line(y, dst, terms, job);
            convert_line(y.plus(call.y_pitch), dst.plus(call.dst_pitch), terms, job);
            y.advance(16);
            u.advance(8);
            v.advance(8);
            dst.advance(16 * pixel);
        } while (columns.more_after(16));
        const int32_t chroma_step = shift_arithmetic(wrap(int64_t{call.y_pitch} - call.width), 1);
        y.advance(wrap(2 * int64_t{call.y_pitch} - call.width));
        u.advance(chroma_step);
        v.advance(chroma_step);
        dst.advance(wrap(2 * int64_t{call.dst_pitch} - int64_t{call.width} * pixel));
    } while (lines.more_after(2));
}

} // namespace

void loadimage_rgb32(Planes& planes, const Call& call) { load_rgb(planes, call, Format::kRgb32, false); }
void loadimage_rgb24(Planes& planes, const Call& call) { load_rgb(planes, call, Format::kRgb24, false); }
void loadimage_rgb16(Planes& planes, const Call& call) { load_rgb(planes, call, Format::kRgb16, false); }
void loadimage_rgb32_ajust(Planes& planes, const Call& call) { load_rgb(planes, call, Format::kRgb32, true); }
void loadimage_rgb24_ajust(Planes& planes, const Call& call) { load_rgb(planes, call, Format::kRgb24, true); }
void loadimage_rgb16_ajust(Planes& planes, const Call& call) { load_rgb(planes, call, Format::kRgb16, true); }

} // namespace model
