// SPDX-License-Identifier: MIT
#include "tools/pattern.h"
#include <cstdio>

namespace player {
namespace {

// A still card with what FFmpeg's pattern lacks: a star of spokes, which has edges in every direction, and a zone
// plate, which has every frequency. 192x96, one picture of it.
constexpr const char* kCard = "nullsrc=size=192x96:rate=25:duration=0.04,format=yuv444p,"
                              "geq=lum='if(lt(X,96),126+100*STAR,126+100*ZONE)':"
                              "cb='if(lt(X,96),128-60*STAR,128)':cr='if(lt(X,96),128+30*STAR,128)'";
constexpr const char* kStar = "lt(hypot(X-47.5,Y-47.5),46)*"
                              "clip(sin(10*atan2(Y-47.5,X-47.5))*hypot(X-47.5,Y-47.5)/10,-1,1)";
constexpr const char* kZone = "lt(hypot(X-143.5,Y-47.5),46)*cos(0.022*(pow(X-143.5,2)+pow(Y-47.5,2)))";
constexpr int kLeastWidth = 320, kLeastHeight = 240; // of a pattern that has room for the card

void replace_all(std::string& text, const std::string& what, const std::string& by)
{
    for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += by.size())
        text.replace(at, what.size(), by);
}

std::string card()
{
    std::string text = kCard;
    replace_all(text, "STAR", kStar);
    replace_all(text, "ZONE", kZone);
    return text;
}

} // namespace

// FFmpeg's pattern is drawn in whole chroma samples: an odd size needs chroma of full resolution to begin with.
std::string pattern(const Source& source)
{
    const bool odd = source.width % 2 || source.height % 2, full = odd || !source.pixel_format.empty();
    char moving[160];
    std::snprintf(moving, sizeof moving, "testsrc2=size=%dx%d:rate=%d:duration=%.3f%s", source.width, source.height,
                  Source::kPatternRate, source.seconds, full ? ",format=yuv444p" : "");
    const std::string end =
        std::string(",format=").append(source.pixel_format.empty() ? "yuv420p" : source.pixel_format);
    if (source.width < kLeastWidth || source.height < kLeastHeight) return moving + end;
    return moving + std::string("[moving];") + card() +
           "[card];[moving][card]overlay=16:H-h-16:format=" + (full ? "yuv444" : "yuv420") + end;
}

} // namespace player
