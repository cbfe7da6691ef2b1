// SPDX-License-Identifier: MIT
#include "bench/covers.h"

#include <cstring>
#include <random>

namespace bench {
namespace {

struct Colour {
    int blue, green, red;
};

void put_pixel(uint8_t* to, Source source, Colour c)
{
    if (source == Source::rgb565) {
        const int word = (c.red & 0xF8) << 8 | (c.green & 0xFC) << 3 | c.blue >> 3;
        to[0] = static_cast<uint8_t>(word);
        to[1] = static_cast<uint8_t>(word >> 8);
        return;
    }
    to[0] = static_cast<uint8_t>(c.blue);
    to[1] = static_cast<uint8_t>(c.green);
    to[2] = static_cast<uint8_t>(c.red);
    if (source == Source::rgb32) to[3] = 0;
}

void put_key(uint8_t* to, Source source)
{
    for (int i = 0; i < bytes_per_pixel(source); i++) to[i] = static_cast<uint8_t>(kColorKey >> 8 * i);
}

// How a cover changes one pixel: `put(to, x, y, opacity)` for those that are in a picture of `pitch`.
template <class Put> void each_pixel(uint8_t* plane, int pitch, int bytes, Size size, Put put)
{
    for (int y = 0; y < size.height; y++) {
        for (int x = 0; x < size.width; x++) put(plane + ptrdiff_t{pitch} * y + x * bytes, x, y);
    }
}

void make_drawing(const Layout& layout, uint8_t* plane, Content content)
{
    const Source source = layout.access.source;
    const Size size = layout.size;
    std::minstd_rand noise(1);
    std::vector<uint8_t> text;
    if (layout.access.cover == Cover::subtitle) text = subtitle_alpha(size);
    each_pixel(plane, layout.y_pitch, bytes_per_pixel(source), size, [&](uint8_t* to, int x, int y) {
        const int letter =
            text.empty() ? 0 : text[static_cast<size_t>(y) * static_cast<size_t>(size.width) + static_cast<size_t>(x)];
        if (layout.access.cover != Cover::whole && letter == 0) return put_key(to, source);
        if (letter != 0) return put_pixel(to, source, {40 + 13 * letter, 40 + 13 * letter, 40 + 13 * letter});
        if (content == Content::natural)
            return put_pixel(to, source, {60 + 150 * x / size.width, 80 + 90 * y / size.height, 200});
        const auto random = static_cast<int>(noise());
        put_pixel(to, source, {random & 255, random >> 8 & 255, random >> 16 & 255});
    });
}

int alpha_at(int x, int y, Size size) { return (16 * x / size.width + 16 * y / size.height) / 2; }

void make_alpha(const Layout& layout, const Picture& picture, Content content)
{
    const Size size = layout.region();
    if (layout.access.cover == Cover::clear) {
        std::memset(picture.alpha, 0, layout.overlay_bytes);
    } else if (layout.access.cover == Cover::subtitle) {
        const std::vector<uint8_t> text = subtitle_alpha(size);
        auto from = text.begin();
        each_pixel(picture.alpha, layout.y_pitch, 1, size, [&](uint8_t* to, int, int) { *to = *from++; });
    } else {
        std::minstd_rand noise(1);
        each_pixel(picture.alpha, layout.y_pitch, 1, size, [&](uint8_t* to, int x, int y) {
            const int alpha = content == Content::natural ? alpha_at(x, y, size) : static_cast<int>(noise() % 17);
            *to = static_cast<uint8_t>(alpha);
            picture.peers_alpha[to - picture.alpha] = static_cast<uint8_t>((alpha * 255 + 8) / 16);
        });
    }
}

} // namespace

void make_cover(const Layout& layout, const Picture& picture, Content content)
{
    if (layout.access.converts()) {
        make_drawing(layout, picture.y, content);
    } else {
        make_alpha(layout, picture, content);
    }
}

} // namespace bench
