// SPDX-License-Identifier: MIT
#include "bench/conditions.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstring>
#include <stdexcept>

#include "bench/check.h"
#include "bench/content.h"
#include "bench/covers.h"
#include "bench/machine.h"
#include "bench/shows.h"

namespace bench {
namespace {

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

} // namespace

Session::Session(Options options)
    : options_(std::move(options)), filter_(benchmark::GetBenchmarkFilter()),
      wanted_(filter_.empty() || filter_ == "all" ? "." : filter_), ring_(ring_bytes())
{
    if (!options_.json.empty()) json_.open(options_.json);
    if (!options_.json.empty() && !json_) throw std::runtime_error("cannot write " + options_.json);
    describe_machine(ring_);
    describe_contents(ring_);
    set_adjustment();
}

bool Session::run()
{
    if (options_.check) return check(ring_, wanted_);
    for (const Family& family : all_families()) {
        for (const Size size : options_.stores.empty() ? family.sizes : family.store_sizes) {
            for (const Group& group : family.groups) run_group(family, group, size);
        }
    }
    if (!any_) throw std::invalid_argument("no benchmark's name matches " + filter_);
    if (json_.is_open()) summary_.write_json(json_);
    return true;
}

std::string Session::prefix(const std::string& regime, const Place& place) const
{
    return (options_.stores.empty() ? "" : "stores/") + regime + "/" + name_of(place.placement) + "/" +
           std::to_string(place.size.width) + "x" + std::to_string(place.size.height) + "/";
}

Session::List Session::wanted(const std::string& prefix, List list) const
{
    std::erase_if(list, [&](const Contender& c) { return !std::regex_search(prefix + c.name, wanted_); });
    return list;
}

Session::List Session::list_of(const Family& family, const Group& group, const Place& place) const
{
    return options_.stores.empty() ? contenders(family, group, place)
                                   : store_contenders(family, group, place, options_.stores);
}

// Pictures are painted once for all cells of a size: what depends on the surface's placement comes behind them.
void Session::run_group(const Family& family, const Group& group, Size size)
{
    struct Cell {
        std::string prefix, regime;
        List list;
    };
    std::vector<Cell> cells;
    size_t slot = 0;
    const std::vector<const char*> regimes =
        options_.stores.empty() ? std::vector{"hot", "cold"} : std::vector{"hot", "readback", "cold"};
    for (const Placement placement : kPlacements) {
        const bool every_tier = placement == Placement::aligned && (size.width == 720 || size.width == 1920);
        const Place place{size, placement, every_tier};
        const List all = list_of(family, group, place);
        for (const char* regime : regimes) {
            List list = wanted(prefix(regime, place), all);
            for (const Contender& contender : list) slot = std::max(slot, slot_bytes(contender.layout));
            if (!list.empty()) cells.push_back({prefix(regime, place), regime, std::move(list)});
        }
    }
    if (cells.empty()) return;
    any_ = true;
    ring_.cut(slot);
    const Layout layout = layout_of(group.exports.front().access, size);
    const bool covered = layout.access.cover != Cover::none;
    ring_.paint(layout, group.content, ring_.slots());
    if (covered) ring_.cover(layout, group.content, ring_.slots());
    const auto before = ring_.digest_of_covers(layout);
    for (const Cell& cell : cells) run_cell(group, cell.prefix, cell.regime, cell.list);
    if (ring_.digest_of_covers(layout) != before)
        throw std::runtime_error("the covers of " + group.exports.front().name + " were written over");
}

void Session::run_cell(const Group& group, const std::string& prefix, const std::string& regime, const List& list)
{
    run_interleaved(prefix, regime, list);
    if (!options_.stores.empty()) {
        summary_.print_stores(prefix, list);
    } else if (options_.brief) {
        summary_.print_line(prefix, group);
    } else {
        summary_.print_table(prefix, list);
    }
}

void Session::run_interleaved(const std::string& prefix, const std::string& regime, const List& list)
{
    for (const Contender& contender : list) {
        benchmark::RegisterBenchmark((prefix + contender.name).c_str(), measure, contender, std::ref(ring_), regime)
            ->UseRealTime()
            ->Unit(benchmark::kMicrosecond);
    }
    benchmark::RunSpecifiedBenchmarks(&summary_, nullptr, "all");
    benchmark::ClearRegisteredBenchmarks();
}

} // namespace bench
