// SPDX-License-Identifier: MIT
// Usage: stream_from BYTES: the library streams from that size on, as the build was configured.
#include "frame/streaming.h"

#include <cstdio>
#include <string>

int main(int argc, char** argv)
{
    const std::string found = std::to_string(vsurf::streaming_threshold);
    std::printf("destinations are streamed from %s bytes on\n", found.c_str());
    return argc == 2 && argv[1] == found ? 0 : 1;
}
