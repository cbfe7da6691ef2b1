// Planar pictures to RGB surfaces, plain and adjusted.
#include "model/pixels.h"
#include "model/planar.h"

namespace model {
namespace {

struct Job {
    PixelFormat format;
    bool adjusted;
    State state;
};

Terms8 block_terms(const Pointer& u, const Pointer& v, const Job& job)
{
    Terms8 terms;
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

void convert_line(const Pointer& y, const Pointer& dst, const Terms8& terms, const Job& job)
{
    Luma16 luma;
    for (int i = 0; i < 16; ++i) {
        uint8_t sample = y[i];
        if (job.adjusted) sample = adjust(sample, job.state.luma_gain, job.state.luma_offset);
        luma[static_cast<size_t>(i)] = sample;
    }
    store_pixels(dst, luma, terms, job.format);
}

void load_rgb(Planes& planes, const Call& call, Format format, bool adjusted)
{
    Job job{{format, 0}, adjusted, call.state};
    if (format == Format::kRgb16) {
        job.format.layout = static_cast<uint32_t>(call.info->rgb16_layout);
        if (job.format.layout > 3) return;
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
