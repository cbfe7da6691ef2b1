// SPDX-License-Identifier: MIT
#include "model/mix.h"

namespace model {
namespace {

template <class From, size_t n> void read(std::array<uint8_t, n>& samples, const From& from)
{
    for (size_t i = 0; i < n; ++i) samples[i] = from[static_cast<int>(i)];
}

} // namespace

void MixPicture::advance(int32_t luma, int32_t chroma)
{
    y.advance(luma);
    u.advance(chroma);
    v.advance(chroma);
}

void MixSubpicture::advance(int32_t luma, int32_t chroma)
{
    alpha.advance(luma);
    y.advance(luma);
    u.advance(chroma);
    v.advance(chroma);
}

PictureLine field_line(const MixPicture& at, int line, bool last, int32_t luma_step, int32_t chroma_step)
{
    const bool lower = line >= 2, odd = line % 2 == 1;
    const bool own_luma = !odd || (last && lower), own_chroma = !lower || last;
    auto chroma = [&](const Pointer& plane) { return own_chroma ? PlaneLine(plane) : PlaneLine(plane, chroma_step); };
    return {own_luma ? PlaneLine(at.y) : PlaneLine(at.y, luma_step), chroma(at.u), chroma(at.v)};
}

MixBlock read_block(const PictureLine& picture, const MixSubpicture& subpicture)
{
    MixBlock block;
    read(block.picture_y, picture.y);
    read(block.picture_u, picture.u);
    read(block.picture_v, picture.v);
    read(block.alpha, subpicture.alpha);
    read(block.y, subpicture.y);
    read(block.u, subpicture.u);
    read(block.v, subpicture.v);
    return block;
}

uint8_t mixed_luma(const MixBlock& block, size_t i, const State& state)
{
    return adjust(blend(block.picture_y[i], block.y[i], block.alpha[i]), state.luma_gain, state.luma_offset);
}

uint8_t mixed_u(const MixBlock& block, size_t k, uint8_t alpha, const State& state)
{
    return adjust(blend(block.picture_u[k], block.u[k], alpha), state.chroma_gain, state.u_offset);
}

uint8_t mixed_v(const MixBlock& block, size_t k, uint8_t alpha, const State& state)
{
    return adjust(blend(block.picture_v[k], block.v[k], alpha), state.chroma_gain, state.v_offset);
}

void leave_pointers(Job& job, const MixPicture& picture, const MixSubpicture& subpicture)
{
    job.moved.picture_u = picture.u.at();
    job.moved.picture_v = picture.v.at();
    job.moved.alpha = subpicture.alpha.at();
    job.moved.y = subpicture.y.at();
    job.moved.u = subpicture.u.at();
    job.moved.v = subpicture.v.at();
}

void mix_progressive(JobPlanes& planes, Job& job, const Progression& progression, const StoreBlock& store)
{
    MixPicture picture(planes);
    MixSubpicture subpicture(planes);
    Pointer surface(planes.surface);
    const int32_t lower_subpicture = even_below(job.subpicture_pitch);
    const int32_t lower_chroma = shift_arithmetic(job.subpicture_pitch, 1);
    const int32_t half_width = shift_arithmetic(job.width, 1);
    bool more = false;
    do {
        Counter columns(job.width);
        do {
            store(surface, read_block({picture.y, picture.u, picture.v}, subpicture));
            MixSubpicture lower = subpicture;
            lower.advance(lower_subpicture, lower_chroma);
            store(surface.plus(job.surface_pitch),
                  read_block({picture.y.plus(progression.lower_luma), picture.u, picture.v}, lower));
            picture.advance(16, 8);
            subpicture.advance(16, 8);
            surface.advance(16 * progression.pixel_bytes);
        } while (columns.more_after(16));
        picture.advance(wrap(2 * int64_t{job.picture_pitch} - job.width), progression.chroma_step - half_width);
        subpicture.advance(wrap(2 * int64_t{job.subpicture_pitch} - job.width), job.subpicture_pitch - half_width);
        surface.advance(wrap(2 * int64_t{job.surface_pitch} - int64_t{job.width} * progression.pixel_bytes));
        more = job.height > 2;
        job.height = wrap(int64_t{job.height} - 2);
    } while (more);
    leave_pointers(job, picture, subpicture);
}

} // namespace model
