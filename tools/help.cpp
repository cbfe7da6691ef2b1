// SPDX-License-Identifier: MIT
#include "tools/options.h"

namespace player {

std::string help_text()
{
    return "Usage: vsurf-play [OPTION]... [FILE]\n"
           "Plays the video in FILE ('-' for standard input) through vsurf. Without FILE it plays a test pattern.\n"
           "\n"
           "Picture:\n"
           "  --surface FORMAT   what vsurf writes: " +
           format_names() +
           "\n"
           "                     (default rgb32; rgb16-555 has its zero bit at the bottom)\n"
           "  --half             half width; surfaces other than yuy2 and yv12 become yuy2\n"
           "  --zoom 1x2         twice the height\n"
           "  --zoom 2x2         twice the width and height; surfaces other than yuy2 and yv12 become yuy2\n"
           "  --field            take the picture for one field: its lines 0, 2, 4, ... are doubled along edges; the\n"
           "                     surface becomes yuy2 (--half, --zoom and --field exclude each other)\n"
           "  --brightness N     added to luma, -255 to 255 (default 0)\n"
           "  --contrast X       gain around mid-grey, 0 to 3.98 (default 1)\n"
           "  --saturation X     gain of the colours, 0 to 3.98 (default 1)\n"
           "  --overlay          paint the window in a colour key and show the video where the key is; a black bar on\n"
           "                     top of it is open to the video as far as that has been played\n"
           "\n"
           "Subtitles:\n"
           "  --subtitles FILE   draw those in FILE: ASS, SubRip, WebVTT, ... or a video with a text track\n"
           "  --subtitle-track N\n"
           "                     draw track N of the video, or of the FILE with --subtitles, counted from 1. "
           "'default'\n"
           "                     is the text track that is marked so, else the first. Bitmaps cannot be drawn.\n"
           "  --subpicture-alone\n"
           "                     nothing but the subtitles, on the colour key; surfaces other than RGB become rgb32.\n"
           "                     With --overlay the key shows the video.\n"
           "  Subtitles are drawn at the size of the video, then scaled with it. With them --field leaves the surface\n"
           "  what it is, and averages lines: on yuy2 while there is one to be seen, elsewhere always.\n"
           "\n"
           "File without a header:\n"
           "  --format NAME      what FFmpeg calls its kind, such as rawvideo\n"
           "  --pixel-format NAME\n"
           "                     what FFmpeg calls its pixels, such as yuyv422 for YUY2; also for the test pattern\n"
           "  --video-size WxH   size of its pictures\n"
           "\n"
           "Playing:\n"
           "  --loop             start again at the end\n"
           "  --frames N         stop after N pictures\n"
           "  --dump DIR         write DIR/picture-000001.png and so on, as fast as possible and without a window\n"
           "  --window           with --dump: show a window as well\n"
           "  --size WxH         size of the test pattern (default 1280x720)\n"
           "  --seconds S        length of the test pattern (default 10)\n"
           "  --isa NAME         use this instruction set instead of the best\n"
           "  --stats            print which exports of vsurf ran, on which instruction set, and their time per "
           "picture\n"
           "  --quiet            no progress on the terminal\n"
           "  -h, --help         this text\n"
           "  -V, --version      the version\n"
           "\n"
           "Keys: " +
           key_line() +
           "\n"
           "\n"
           "Exit status: 0, or 2 after one line on standard error: wrong usage or input, or what had to be skipped in "
           "a\n"
           "damaged stream that was played as far as possible.\n";
}

std::string version_text() { return "vsurf-play " VSURF_VERSION "\n"; }

} // namespace player
