// SPDX-License-Identifier: MIT
// The library's pixel exports beside a streaming roof and beside other libraries, on pictures that stay in the caches
// ("hot") and on pictures that do not ("cold"). Groups of contenders run interleaved; the fastest repetition counts.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <regex>
#include <stdexcept>

#include "bench/check.h"
#include "bench/content.h"
#include "bench/covers.h"
#include "bench/groups.h"
#include "bench/machine.h"
#include "bench/summary.h"

namespace {

using namespace bench;

constexpr char kOptions[] = "vsurf_bench [--brief]    one line a group instead of a table\n"
                            "            [--stores]   ordinary against non-temporal stores\n"
                            "            [--check]    whether peers and roofs do their work, unmeasured\n"
                            "and, with --benchmark_out always in JSON:\n";

struct Options {
    bool brief = false;  // one line a group instead of a table
    bool stores = false; // ordinary against non-temporal stores instead of everything against its peers
    bool check = false;  // nothing measured, but results compared
    std::string json;    // where the measurements go
};

// Takes this program's own options out of the argument list. The JSON file is one of them, because Google Benchmark
// would begin it anew with every group.
Options take_options(int& argc, char** argv)
{
    Options options;
    int kept = 1;
    for (int i = 1; i < argc; i++) {
        const std::string argument = argv[i];
        const std::string out = "--benchmark_out=", format = "--benchmark_out_format=";
        if (argument == "--help") std::fputs(kOptions, stdout); // Google Benchmark adds its own and ends the program
        if (argument == "--brief") {
            options.brief = true;
        } else if (argument == "--stores") {
            options.stores = true;
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

void describe_machine(const Ring& ring)
{
    benchmark::AddCustomContext("processor", processor_name());
    benchmark::AddCustomContext("compiler", VSURF_BENCH_COMPILER);
    benchmark::AddCustomContext("compiler_flags", VSURF_BENCH_FLAGS);
    benchmark::AddCustomContext("vsurf_isa", vsurf::active_isa().name);
    benchmark::AddCustomContext("roof_isa", best_roof().name);
    benchmark::AddCustomContext("last_level_cache_bytes", std::to_string(last_level_cache_bytes()));
    benchmark::AddCustomContext("ring_bytes", std::to_string(ring.bytes()));
}

void describe_contents(Ring& ring)
{
    constexpr Size kSize{720, 576};
    const Coverage subtitle = coverage_of(subtitle_alpha(kSize));
    benchmark::AddCustomContext("subtitle_pixels", std::to_string(subtitle.pixels));
    benchmark::AddCustomContext("subtitle_blocks", std::to_string(subtitle.blocks));
    const Layout layout = layout_of(band_access(), kSize);
    ring.cut(slot_bytes(layout));
    benchmark::AddCustomContext("band_edges_share", std::to_string(edge_share(layout, ring.first(layout))));
    ring.paint(layout, Content::natural, 1);
    benchmark::AddCustomContext("band_natural_share", std::to_string(edge_share(layout, ring.first(layout))));
    ring.paint(layout, Content::noise, 1);
}

// What a player that composes its picture in the surface would do next.
void read_back(const Contender& contender, const Picture& picture)
{
    uint64_t sum = 0;
    for (size_t i = 0; i + sizeof sum <= contender.layout.surface_bytes; i += sizeof sum) {
        uint64_t word;
        std::memcpy(&word, picture.surface + i, sizeof word);
        sum += word;
    }
    benchmark::DoNotOptimize(sum);
}

void measure(benchmark::State& state, const Contender& contender, Ring& ring, const std::string& regime)
{
    const bool cold = regime == "cold", reading = regime == "readback";
    contender.prepare();
    if (!cold) contender.load(ring.first(contender.layout)); // brings the buffers back after the previous contender
    for (auto _ : state) {
        const Picture picture = cold ? ring.next(contender.layout) : ring.first(contender.layout);
        contender.load(picture);
        if (reading) read_back(contender, picture);
    }
    state.counters["bytes_read"] = static_cast<double>(contender.traffic.read);
    state.counters["bytes_written"] = static_cast<double>(contender.traffic.written);
    state.SetLabel(contender.family + "/" + contender.plain);
}

class Session {
public:
    explicit Session(Options options)
        : options_(std::move(options)), filter_(benchmark::GetBenchmarkFilter()),
          wanted_(filter_.empty() || filter_ == "all" ? "." : filter_), ring_(ring_bytes())
    {
        if (!options_.json.empty()) json_.open(options_.json);
        if (!options_.json.empty() && !json_) throw std::runtime_error("cannot write " + options_.json);
        describe_machine(ring_);
        describe_contents(ring_);
        set_adjustment();
    }

    // Whether all went well; only a check can find otherwise.
    bool run()
    {
        if (options_.check) return check(ring_, wanted_);
        const std::vector<const char*> regimes =
            options_.stores ? std::vector{"hot", "readback", "cold"} : std::vector{"hot", "cold"};
        for (const char* regime : regimes) {
            for (const Family& family : families()) run_family(regime, family);
        }
        if (!any_) throw std::invalid_argument("no benchmark's name matches " + filter_);
        if (json_.is_open()) summary_.write_json(json_);
        return true;
    }

private:
    void run_family(const std::string& regime, const Family& family)
    {
        for (const Size size : options_.stores ? family.store_sizes : family.sizes) {
            const std::string prefix = (options_.stores ? "stores/" : "") + regime + "/" + std::to_string(size.width) +
                                       "x" + std::to_string(size.height) + "/";
            for (const Group& group : family.groups) {
                const auto list = options_.stores ? store_contenders : contenders;
                run_group(prefix, regime, group, size, list(family, group, size));
            }
        }
    }

    void run_group(const std::string& prefix, const std::string& regime, const Group& group, Size size,
                   std::vector<Contender> list)
    {
        std::erase_if(list, [&](const Contender& c) { return !std::regex_search(prefix + c.name, wanted_); });
        if (list.empty()) return;
        any_ = true;
        size_t slot = slot_bytes(layout_of(group.exports.front().access, size));
        for (const Contender& contender : list) slot = std::max(slot, slot_bytes(contender.layout));
        ring_.cut(slot);
        const size_t used = regime == "cold" ? ring_.slots() : 1;
        const Layout layout = layout_of(group.exports.front().access, size);
        const bool covered = layout.access.cover != Cover::none;
        if (group.content != Content::noise) ring_.paint(layout, group.content, used);
        if (covered) ring_.cover(layout, group.content, used);
        const auto before = ring_.digest_of_covers(layout);
        run_interleaved(prefix, regime, list);
        if (ring_.digest_of_covers(layout) != before)
            throw std::runtime_error("the covers of " + prefix + group.exports.front().name + " were written over");
        if (group.content != Content::noise) ring_.paint(layout, Content::noise, used);
        if (covered) ring_.uncover(layout, used);
        if (options_.stores) {
            summary_.print_stores(prefix, list);
        } else if (options_.brief) {
            summary_.print_line(prefix, group);
        } else {
            summary_.print_table(prefix, list);
        }
    }

    void run_interleaved(const std::string& prefix, const std::string& regime, const std::vector<Contender>& list)
    {
        for (const Contender& contender : list) {
            benchmark::RegisterBenchmark((prefix + contender.name).c_str(), measure, contender, std::ref(ring_), regime)
                ->UseRealTime()
                ->Unit(benchmark::kMicrosecond);
        }
        benchmark::RunSpecifiedBenchmarks(&summary_, nullptr, "all");
        benchmark::ClearRegisteredBenchmarks();
    }

    Options options_;
    std::string filter_;
    std::regex wanted_;
    std::ofstream json_;
    Ring ring_;
    Summary summary_;
    bool any_ = false;
};

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
