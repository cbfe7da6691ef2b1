// SPDX-License-Identifier: MIT
// The values of options.
#pragma once
#include <CLI/CLI.hpp>
#include <string>

namespace player {

inline constexpr int kMaxSide = 16000; // pictures of this square are within FFmpeg's limits

// CLI11's own range lets through what is no number.
template <class T> CLI::Validator between(T least, T most, const char* limits)
{
    return {[=](const std::string& text) {
                T value{};
                const bool number = CLI::detail::lexical_cast(text, value);
                return number && value >= least && value <= most ? std::string()
                                                                 : text + ": not a number from " + limits;
            },
            ""};
}

CLI::Validator not_empty(const std::string& problem);

struct Size {
    int width, height;
};
Size size(const std::string& text); // throws CLI::ValidationError

} // namespace player
