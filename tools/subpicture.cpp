// SPDX-License-Identifier: MIT
#include "tools/subpicture.h"

namespace player {

void Subpicture::update(const SubtitleImages& images, const Canvas& canvas, Stats& stats)
{
    if (canvas == canvas_ && !images.changed) return;
    if (canvas != canvas_) {
        canvas_ = canvas;
        planes_ = allocate_aligned(3 * static_cast<std::size_t>(canvas.padded_width) *
                                   static_cast<std::size_t>(canvas.padded_height));
    }
    drawing_.compose(images.first, canvas);
    auto prepare = [&](const char* name, void (*run)(MIX_INFO*), const Surface& drawing) {
        MIX_INFO job = this->job();
        job.surface = drawing.bytes();
        job.surface_pitch = drawing.pitch();
        job.color_key = Drawing::kKey;
        stats.time([&] {
            run(&job);
            return name;
        });
    };
    prepare("Convert_RGB32_To_AYUY2", Convert_RGB32_To_AYUY2, drawing_.colours());
    prepare("Restore_RGB32_To_Alpha", Restore_RGB32_To_Alpha, drawing_.opacities());
}

MIX_INFO Subpicture::job() const
{
    const std::ptrdiff_t size = static_cast<std::ptrdiff_t>(canvas_.padded_width) * canvas_.padded_height;
    MIX_INFO job{};
    job.picture_pitch = job.subpicture_pitch = job.width = canvas_.padded_width;
    job.height = canvas_.padded_height;
    job.subpic_alpha = planes_.get();
    job.subpic_y = planes_.get() + size;
    job.subpic_v = planes_.get() + 2 * size;
    job.subpic_u = job.subpic_v + size / 2;
    return job;
}

} // namespace player
