// SPDX-License-Identifier: MIT
#include "tools/stats.h"
#include <algorithm>
#include <cstdio>
#include <numeric>

namespace player {

static std::string summary(std::vector<double> samples)
{
    std::sort(samples.begin(), samples.end());
    const std::size_t count = samples.size();
    const double median = (samples[(count - 1) / 2] + samples[count / 2]) / 2;
    const double mean = std::accumulate(samples.begin(), samples.end(), 0.0) / static_cast<double>(count);
    char text[128];
    std::snprintf(text, sizeof text, "%zu %s, ms per picture: min %.3f, median %.3f, mean %.3f", count,
                  count == 1 ? "picture" : "pictures", samples.front(), median, mean);
    return text;
}

double Stats::mean(const std::string& name) const
{
    const auto found = samples_.find(name);
    if (found == samples_.end()) return 0;
    const std::vector<double>& samples = found->second;
    return std::accumulate(samples.begin(), samples.end(), 0.0) / static_cast<double>(samples.size());
}

std::vector<std::string> Stats::lines() const
{
    if (samples_.empty()) return {"no pictures"};
    std::vector<std::string> lines;
    for (const auto& [name, samples] : samples_) lines.push_back(name + ": " + summary(samples));
    return lines;
}

} // namespace player
