// SPDX-License-Identifier: MIT
// The library's pixel exports compared with a streaming roof and with other libraries, on pictures that stay in the
// caches ("hot") and on pictures that do not ("cold"). Groups of contenders run interleaved; the fastest repetition
// counts.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <stdexcept>

#include "bench/conditions.h"

namespace {

using namespace bench;

constexpr char kOptions[] =
    "vsurf_bench [--brief]           one line a group instead of a table\n"
    "            [--stores]          ordinary against non-temporal stores\n"
    "            [--thresholds=LIST] the library with each of these streaming thresholds, in bytes, divided by commas\n"
    "            [--check]           whether peers and roofs do their work, unmeasured\n"
    "A name is HEAT/KIND/SIZE/EXPORT/CONTENDER, with --stores and --thresholds after stores/. KIND is 64 (base and\n"
    "pitch multiples of 64), natural (the pitch is a line, or 16 bytes more where that is a multiple of 64), base8 "
    "(base\n"
    "8 bytes past a multiple of 64) or pixel (base one pixel past it).\n"
    "And, with --benchmark_out always in JSON:\n";

std::vector<Threshold> thresholds_of(const std::string& list)
{
    std::vector<Threshold> thresholds;
    std::istringstream stream(list);
    for (std::string item; std::getline(stream, item, ',');) thresholds.push_back({item, std::stoul(item)});
    if (thresholds.empty()) throw std::invalid_argument("--thresholds needs a list of bytes");
    return thresholds;
}

// Takes this program's own options out of the argument list. The JSON file is one of them, because Google Benchmark
// would begin it again with every group.
Options take_options(int& argc, char** argv)
{
    Options options;
    int kept = 1;
    for (int i = 1; i < argc; i++) {
        const std::string argument = argv[i];
        const std::string out = "--benchmark_out=", format = "--benchmark_out_format=", thresholds = "--thresholds=";
        if (argument == "--help") std::fputs(kOptions, stdout); // Google Benchmark adds its own and ends the program
        if (argument == "--brief") {
            options.brief = true;
        } else if (argument == "--stores") {
            options.stores = kinds_of_stores();
        } else if (argument.starts_with(thresholds)) {
            options.stores = thresholds_of(argument.substr(thresholds.size()));
        } else if (argument == "--check") {
            options.check = true;
        } else if (argument.starts_with(out)) {
            options.json = argument.substr(out.size());
        } else if (argument.starts_with(format)) {
            if (argument != format + "json") throw std::invalid_argument("--benchmark_out_format can only be json");
        } else {
            argv[kept++] = argv[i];
        }
    }
    argc = kept;
    argv[argc] = nullptr;
    return options;
}

void initialize(int argc, char** argv)
{
    // Many short repetitions find the quiet moments of a busy machine better than a few long ones.
    static char repetitions[] = "--benchmark_repetitions=15", time[] = "--benchmark_min_time=0.004";
    static char interleave[] = "--benchmark_enable_random_interleaving=true";
    std::vector<char*> arguments = {argv[0], repetitions, time, interleave};
    arguments.insert(arguments.end(), argv + 1, argv + argc);
    arguments.push_back(nullptr);
    int count = static_cast<int>(arguments.size()) - 1;
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) std::exit(2);
}

} // namespace

int main(int argc, char** argv)
{
    try {
        Options options = take_options(argc, argv);
        initialize(argc, argv);
        const bool good = Session(std::move(options)).run();
        benchmark::Shutdown();
        return good ? 0 : 1;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "vsurf_bench: %s\n", error.what());
        return 2;
    }
}
