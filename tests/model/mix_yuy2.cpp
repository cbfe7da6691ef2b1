// SPDX-License-Identifier: MIT
// Mixers onto YUY2 surfaces.
#include "model/mix.h"

namespace model {
namespace {

void store_pair(Pointer surface, const std::array<uint8_t, 4>& bytes)
{
    for (int i = 0; i < 4; ++i) surface.store(i, bytes[static_cast<size_t>(i)]);
}

void store_yuy2(const Pointer& surface, const MixBlock& block, const State& s)
{
    for (size_t k = 0; k < 8; ++k) {
        const uint8_t alpha = block.alpha[2 * k + 1];
        store_pair(surface.plus(static_cast<int32_t>(4 * k)),
                   {mixed_luma(block, 2 * k, s), mixed_u(block, k, alpha, s), mixed_luma(block, 2 * k + 1, s),
                    mixed_v(block, k, alpha, s)});
    }
}

// Every other sample of each plane.
void store_half_yuy2(const Pointer& surface, const MixBlock& block, const State& s)
{
    for (size_t k = 0; k < 4; ++k) {
        const uint8_t alpha = block.alpha[4 * k + 3];
        store_pair(surface.plus(static_cast<int32_t>(4 * k)),
                   {mixed_luma(block, 4 * k + 1, s), mixed_u(block, 2 * k + 1, alpha, s),
                    mixed_luma(block, 4 * k + 3, s), mixed_v(block, 2 * k + 1, alpha, s)});
    }
}

void mix_line(MixField& at, const Job& job, int line, bool last)
{
    const int32_t half_width = shift_logical(job.width, 1);
    const int32_t to_chroma_below = shift_logical(job.picture_pitch, 1);
    Counter columns(half_width);
    do {
        const PictureLine picture = field_line(at.picture, line, last, job.picture_pitch, to_chroma_below);
        store_yuy2(at.surface, read_block(picture, at.subpicture), job.state);
        at.picture.advance(16, 8);
        at.subpicture.advance(16, 8);
        at.surface.advance(32);
    } while (columns.more_after(8));
    at.picture.advance(wrap(-int64_t{job.width}), -half_width);
    at.subpicture.advance(wrap(int64_t{job.subpicture_pitch} - job.width),
                          shift_arithmetic(job.subpicture_pitch, 1) - half_width);
    at.surface.advance(wrap(int64_t{job.surface_pitch} - 2 * int64_t{job.width}));
}

void mix_group(MixField& at, const Job& job, bool last)
{
    for (int line = 0; line < 4; ++line) {
        mix_line(at, job, line, last);
        if (line % 2 == 1) at.picture.y.advance(job.picture_pitch);
    }
    at.picture.advance(0, shift_arithmetic(job.picture_pitch, 1));
}

} // namespace

void mix_ayuy2_yuy2_p_ajust(JobPlanes& planes, Job& job)
{
    const Progression progression{2, even_below(job.picture_pitch), shift_arithmetic(job.picture_pitch, 1)};
    mix_progressive(planes, job, progression,
                    [&job](const Pointer& surface, const MixBlock& block) { store_yuy2(surface, block, job.state); });
}

void mix_ayuy2_half_yuy2_p_ajust(JobPlanes& planes, Job& job)
{
    const Progression progression{1, even_below(job.subpicture_pitch), shift_arithmetic(job.subpicture_pitch, 1)};
    mix_progressive(planes, job, progression, [&job](const Pointer& surface, const MixBlock& block) {
        store_half_yuy2(surface, block, job.state);
    });
}

void mix_ayuy2_yuy2_i_ajust(JobPlanes& planes, Job& job)
{
    if (job.height < 4) return;
    MixField at(planes);
    if (job.height >= 8) {
        Counter lines(job.height - 4);
        do mix_group(at, job, false);
        while (lines.more_after(4));
    }
    mix_group(at, job, true);
    job.height = 0;
    leave_pointers(job, at.picture, at.subpicture);
}

} // namespace model
