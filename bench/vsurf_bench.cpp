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

#include "bench/groups.h"
#include "bench/summary.h"

namespace {

using namespace bench;

constexpr Size kSizes[] = {{720, 576}, {1920, 1080}, {3840, 2160}};
// Surfaces from well within the second-level cache to well beyond the last one.
constexpr Size kStoreSizes[] = {{176, 144},  {352, 288},   {512, 384},  {720, 576},
                                {1280, 720}, {1920, 1080}, {3840, 2160}};

constexpr char kOptions[] = "vsurf_bench [--brief]    one line a group instead of a table\n"
                            "            [--stores]   ordinary against non-temporal stores\n"
                            "and, with --benchmark_out always in JSON:\n";

struct Options {
    bool brief = false;  // one line a group instead of a table
    bool stores = false; // ordinary against non-temporal stores instead of everything against its peers
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
    state.SetLabel(contender.plain);
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
        set_adjustment();
    }

    void run()
    {
        if (options_.stores) {
            for (const char* regime : {"hot", "readback", "cold"}) run_regime(regime, kStoreSizes, store_contenders);
        } else {
            for (const char* regime : {"hot", "cold"}) run_regime(regime, kSizes, contenders);
        }
        if (!any_) throw std::invalid_argument("no benchmark's name matches " + filter_);
        if (json_.is_open()) summary_.write_json(json_);
    }

private:
    using List = std::vector<Contender> (*)(const Group&, Size);

    void run_regime(const std::string& regime, std::span<const Size> sizes, List list)
    {
        for (const Size size : sizes) {
            const std::string prefix = (options_.stores ? "stores/" : "") + regime + "/" + std::to_string(size.width) +
                                       "x" + std::to_string(size.height) + "/";
            for (const Group& group : groups()) run_group(prefix, regime, group, list(group, size));
        }
    }

    void run_group(const std::string& prefix, const std::string& regime, const Group& group,
                   std::vector<Contender> list)
    {
        std::erase_if(list, [&](const Contender& c) { return !std::regex_search(prefix + c.name, wanted_); });
        if (list.empty()) return;
        any_ = true;
        size_t slot = 0;
        for (const Contender& contender : list) slot = std::max(slot, slot_bytes(contender.layout));
        ring_.cut(slot);
        for (const Contender& contender : list) {
            benchmark::RegisterBenchmark((prefix + contender.name).c_str(), measure, contender, std::ref(ring_), regime)
                ->UseRealTime()
                ->Unit(benchmark::kMicrosecond);
        }
        benchmark::RunSpecifiedBenchmarks(&summary_, nullptr, "all");
        benchmark::ClearRegisteredBenchmarks();
        if (options_.stores) {
            summary_.print_stores(prefix, list);
        } else if (options_.brief) {
            summary_.print_line(prefix, group);
        } else {
            summary_.print_table(prefix, list);
        }
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
        Session(std::move(options)).run();
        benchmark::Shutdown();
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "vsurf_bench: %s\n", error.what());
        return 2;
    }
}
