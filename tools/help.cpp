#include "tools/options.h"

namespace player {

const char* key_text()
{
    return "space pause | . next picture | 1 2 brightness | 3 4 contrast | 5 6 saturation | 0 reset | s surface | "
           "w half width | left right seek | f full screen | h keys | q quit";
}

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
           "  --brightness N     added to luma, -255 to 255 (default 0)\n"
           "  --contrast X       gain around mid-grey, 0 to 3.98 (default 1)\n"
           "  --saturation X     gain of the colours, 0 to 3.98 (default 1)\n"
           "\n"
           "Playing:\n"
           "  --loop             start again at the end\n"
           "  --frames N         stop after N pictures\n"
           "  --dump DIR         write DIR/picture-000001.png and so on, as fast as possible and without a window\n"
           "  --window           with --dump: show a window as well\n"
           "  --size WxH         size of the test pattern (default 1280x720)\n"
           "  --seconds S        length of the test pattern (default 10)\n"
           "  --isa NAME         use this instruction set instead of the best\n"
           "  --stats            print the time per picture that vsurf took, and its instruction set\n"
           "  --quiet            no progress on the terminal\n"
           "  -h, --help         this text\n"
           "  -V, --version      the version\n"
           "\n"
           "Keys: " +
           std::string(key_text()) +
           "\n"
           "\n"
           "Exit status: 0, or 2 after one line on standard error: wrong usage or input, or what had to be skipped in "
           "a\n"
           "damaged stream that was played as far as possible.\n";
}

std::string version_text() { return "vsurf-play " VSURF_VERSION "\n"; }

} // namespace player
