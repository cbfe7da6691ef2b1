#include "tools/stats.h"
#include <algorithm>
#include <cstdio>
#include <numeric>

namespace player {

std::string Stats::summary() const
{
    if (samples_.empty()) return "no pictures";
    std::vector<double> sorted = samples_;
    std::sort(sorted.begin(), sorted.end());
    const std::size_t count = sorted.size();
    const double median = (sorted[(count - 1) / 2] + sorted[count / 2]) / 2;
    const double mean = std::accumulate(sorted.begin(), sorted.end(), 0.0) / static_cast<double>(count);
    char text[128];
    std::snprintf(text, sizeof text, "%zu %s, ms per picture: min %.3f, median %.3f, mean %.3f", count,
                  count == 1 ? "picture" : "pictures", sorted.front(), median, mean);
    return text;
}

} // namespace player
