// SPDX-License-Identifier: MIT
#include "tools/renderer.h"

namespace player {

// A subpicture without the picture is drawn onto RGB at its own size: onto the surface, or onto the screen above it.
static View possible(View view, bool subtitles)
{
    view.alone = view.alone && subtitles;
    if (!view.alone) return view;
    view.scaling = Scaling::none;
    if (!view.overlay) view.surface = rgb_for(view.surface);
    return view;
}

void Renderer::render(const AVFrame& frame, const Moment& moment, const View& wanted, Subtitles* subtitles)
{
    colours_ = colours_of(frame);
    const AVFrame& known = converter_.to_known(frame);
    const View view = possible(wanted, subtitles);
    const SubtitleImages images = draw(frame, moment, view, subtitles);
    const Layer layer = !subtitles || view.alone ? Layer::none : images.first ? Layer::drawn : Layer::empty;
    const bool packed = known.format == AV_PIX_FMT_YUYV422 && Shower::is_of_exports(known, true);
    Geometry geometry = plan(known.width, known.height, view.surface, view.scaling, packed, layer);
    const bool exports = Shower::is_of_exports(known, geometry.packed);
    const bool as_it_is = (!exports || shower_.has_bands()) && view.scaling == Scaling::none &&
                          view.controls.neutral() && !subtitles && !view.overlay;
    if (as_it_is) geometry = plan_as_it_is(known.width, known.height, view.surface);
    surface_.shape(geometry.surface, geometry.surface_width, geometry.surface_height, geometry.shown_width,
                   geometry.shown_height, geometry.tight_surface);
    if (subtitles)
        subpicture_.update(images, {frame.width, frame.height, geometry.picture_width, geometry.picture_height},
                           stats_);
    if (view.alone && !view.overlay) draw_alone(surface_, Mixer::magenta(surface_.format()), view);
    else if (as_it_is) stats_.time([&] { return shower_.show(known, colours_of(known), surface_); });
    else load(exports ? known : planes_of(known), geometry, view);
    screen_ = view.overlay;
    if (screen_) paint_screen(moment, view);
}

const AVFrame& Renderer::planes_of(const AVFrame& known)
{
    const AVFrame* planes = nullptr;
    stats_.time([&] {
        planes = &shower_.to_planes(known, colours_of(known));
        return shower_.has_bands() ? "vsurf_show_band" : "vsurf_show";
    });
    return *planes;
}

// What is hidden has changed for the subpicture, though not for libass.
SubtitleImages Renderer::draw(const AVFrame& frame, const Moment& moment, const View& view, Subtitles* subtitles)
{
    const bool before = drawn_;
    drawn_ = subtitles && view.subtitles;
    SubtitleImages images;
    if (drawn_) images = subtitles->draw(moment.time, frame.width, frame.height, moment.sample_aspect);
    images.changed = images.changed || drawn_ != before;
    return images;
}

void Renderer::load(const AVFrame& frame, const Geometry& geometry, const View& view)
{
    const Picture picture = picture_.take(frame, geometry);
    if (geometry.mixed) {
        mix(picture, geometry, view);
        return;
    }
    stats_.time([&] { return loader_.load(picture, geometry.packed, surface_, view.controls, view.scaling); });
}

void Renderer::mix(const Picture& picture, const Geometry& geometry, const View& view)
{
    auto onto = [&](Surface& surface, const Controls& controls, Scaling scaling) {
        stats_.time([&] { return mixer_.mix(picture, subpicture_, surface, controls, scaling); });
    };
    if (Mixer::reaches(geometry.surface, view.scaling, view.controls)) {
        onto(surface_, view.controls, view.scaling);
        return;
    }
    planes_.shape(SurfaceFormat::yv12, picture.width, picture.height, picture.width, picture.height, true);
    onto(planes_, {}, geometry.field ? Scaling::field : Scaling::none);
    const Picture mixed{planes_.bytes(), planes_.u_plane(), planes_.v_plane(),
                        planes_.width(), planes_.height(),  planes_.pitch()};
    stats_.time([&] {
        return loader_.load(mixed, false, surface_, view.controls, geometry.field ? Scaling::none : view.scaling);
    });
}

void Renderer::draw_alone(Surface& surface, uint32_t key, const View& view)
{
    stats_.time([&] { return mixer_.draw_alone(subpicture_, key, surface, view.controls); });
}

void Renderer::paint_screen(const Moment& moment, const View& view)
{
    Surface& area = overlay_.area(surface_);
    overlay_.paint_key(stats_);
    if (view.alone) draw_alone(area, Overlay::kKeyByte * 0x010101, view);
    overlay_.paint_bar(moment.played, stats_);
}

const RgbImage& Renderer::image()
{
    const RgbImage& video = rgb_.convert(surface_);
    return screen_ ? overlay_.over(video) : video;
}

} // namespace player
