// SPDX-License-Identifier: MIT
#include "bench/machine.h"

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>

namespace bench {

size_t last_level_cache_bytes()
{
    // The kernel's figure is what this processor's cores share; the C library's may count the whole package.
    long largest = 0;
    for (const auto& cache : benchmark::CPUInfo::Get().caches) largest = std::max<long>(largest, cache.size);
    if (largest == 0) largest = std::max(sysconf(_SC_LEVEL2_CACHE_SIZE), sysconf(_SC_LEVEL3_CACHE_SIZE));
    constexpr long kUnknown = 32L << 20;
    return static_cast<size_t>(largest > 0 ? largest : kUnknown);
}

size_t ring_bytes()
{
    const auto free = static_cast<size_t>(sysconf(_SC_AVPHYS_PAGES)) * static_cast<size_t>(sysconf(_SC_PAGESIZE));
    constexpr size_t kLeast = size_t{256} << 20; // several slots of the largest group
    return std::min(std::max(8 * last_level_cache_bytes(), kLeast), free / 4);
}

std::string processor_name()
{
    std::ifstream info("/proc/cpuinfo");
    for (std::string line; std::getline(info, line);) {
        const size_t colon = line.find(": ");
        if (line.starts_with("model name") && colon != std::string::npos) return line.substr(colon + 2);
    }
    return "unknown";
}

} // namespace bench
