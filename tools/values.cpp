// SPDX-License-Identifier: MIT
#include "tools/values.h"
#include <cstdio>

namespace player {

CLI::Validator not_empty(const std::string& problem)
{
    return {[=](const std::string& text) { return text.empty() ? problem : std::string(); }, ""};
}

Size size(const std::string& text)
{
    Size size{};
    int end = 0;
    const auto length = static_cast<int>(text.size());
    if (std::sscanf(text.c_str(), "%5dx%5d%n", &size.width, &size.height, &end) != 2 || end != length)
        throw CLI::ValidationError(text + ": not of the form WIDTHxHEIGHT");
    for (const int side : {size.width, size.height})
        if (side < 1 || side > kMaxSide)
            throw CLI::ValidationError(text + ": not from 1x1 to " + std::to_string(kMaxSide) + "x" +
                                       std::to_string(kMaxSide));
    return size;
}

} // namespace player
