// SPDX-License-Identifier: MIT
// libass's objects with owners.
#pragma once
#include "tools/ffmpeg.h"
#include <ass/ass.h>
#include <new>

namespace player {

using AssLibraryPtr = std::unique_ptr<ASS_Library, Release<ass_library_done>>;
using AssRendererPtr = std::unique_ptr<ASS_Renderer, Release<ass_renderer_done>>;
using AssTrackPtr = std::unique_ptr<ASS_Track, Release<ass_free_track>>;

inline constexpr const char* kFontFamily = "sans-serif"; // where a style's own font is missing

template <class T> T* checked(T* object)
{
    if (!object) throw std::bad_alloc();
    return object;
}

} // namespace player
