// SPDX-License-Identifier: MIT
// Two builds of the shared library against each other: every export, on every size and placement of a surface, hot and
// cold, calls of the old and the new one in turns.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <functional>
#include <map>
#include <regex>
#include <stdexcept>

#include "bench/content.h"
#include "bench/duel.h"
#include "bench/exports.h"
#include "bench/library.h"

namespace {

using namespace bench;

constexpr char kUsage[] = R"(vsurf_compare [options] OLD.so NEW.so [REGEX...]
  Measures the cells whose names, EXPORT/SIZE/KIND/HEAT, match every expression, such as
      vsurf_compare old.so new.so rgb32 720x576 natural
      vsurf_compare old.so new.so '^loadimage_yv12/' '/64/cold$'
  KIND is 64 (base and pitch multiples of 64), natural (the pitch is a line, or 16 bytes more where that is a multiple
  of 64), base8 (base 8 bytes past a multiple of 64), pixel (base one pixel past it). HEAT is hot or cold.
  new/old is the ratio of the shortest times of hot cells, of the medians of cold ones.
  --seconds S   for a cell (0.06)
  --ring MIB    the memory that cold cells walk through (128)
  --all         also exports whose code others share: 555, 664 and 655, and the covers 'clear' and 'transparent'
  Exit status 1 where the two libraries write different bytes.
)";

struct Options {
    double seconds = 0.06;
    size_t ring_mib = 128;
    bool all = false;
    std::vector<std::string> files;
    std::vector<std::regex> filters;
};

Options options_of(int argc, char** argv)
{
    Options options;
    for (int i = 1; i < argc; i++) {
        const std::string argument = argv[i];
        const auto value = [&] { return ++i < argc ? std::string(argv[i]) : throw std::invalid_argument(kUsage); };
        if (argument == "--seconds") {
            options.seconds = std::stod(value());
        } else if (argument == "--ring") {
            options.ring_mib = std::stoul(value());
        } else if (argument == "--all") {
            options.all = true;
        } else if (argument.starts_with("--")) {
            throw std::invalid_argument(kUsage);
        } else if (options.files.size() < 2) {
            options.files.push_back(argument);
        } else {
            options.filters.emplace_back(argument);
        }
    }
    if (options.files.size() < 2) throw std::invalid_argument(kUsage);
    return options;
}

// What all cells add up to.
class Tally {
public:
    void add(const std::string& cell, const std::string& kind, double ratio)
    {
        if (ratio > kSlower) slower_.emplace(ratio, cell);
        for (const std::string& key : {kind, std::string("all")}) {
            means_[key].first += std::log(ratio);
            means_[key].second++;
        }
    }
    void differ(const std::string& cell) { different_.push_back(cell); }

    bool print() const
    {
        std::printf("\n%zu cells more than 5 %% slower\n", slower_.size());
        for (const auto& [ratio, cell] : slower_) std::printf("  %.3f  %s\n", ratio, cell.c_str());
        std::printf("geometric mean of new/old:\n");
        for (const auto& [key, mean] : means_)
            std::printf("  %.3f  %s (%d)\n", std::exp(mean.first / mean.second), key.c_str(), mean.second);
        for (const std::string& cell : different_) std::printf("!!! DIFFERENT BYTES: %s\n", cell.c_str());
        return different_.empty();
    }

    static constexpr double kSlower = 1.05;

private:
    std::multimap<double, std::string, std::greater<>> slower_; // the slowest first
    std::map<std::string, std::pair<double, int>> means_;
    std::vector<std::string> different_;
};

class Comparison {
public:
    explicit Comparison(Options options)
        : options_(std::move(options)), old_(options_.files[0]), new_(options_.files[1]), ring_(options_.ring_mib << 20)
    {
        old_.adjust(adjustment());
        new_.adjust(adjustment());
    }

    bool run()
    {
        std::printf("%67s %10s %10s %10s %10s %8s\n", "", "old us", "new us", "old median", "new median", "new/old");
        for (const Family& family : families()) {
            for (const Group& group : family.groups) {
                for (const Size size : family.sizes) run_group(group, size);
            }
        }
        return tally_.print();
    }

private:
    void run_group(const Group& group, Size size)
    {
        slot_ = 0;
        for (const Placement placement : kPlacements)
            slot_ = std::max(slot_, slot_bytes(layout_of(group.exports.front().access, size, placement)));
        painted_ = 0;
        for (const Placement placement : kPlacements) {
            for (const Export& e : group.exports) {
                for (const bool cold : {false, true}) run_cell(group, e, size, placement, cold);
            }
        }
    }

    bool is_wanted(const std::string& cell) const
    {
        static const std::regex shared("-555|-664|-655|-clear|-transparent");
        if (!options_.all && std::regex_search(cell, shared)) return false;
        return std::all_of(options_.filters.begin(), options_.filters.end(),
                           [&](const std::regex& filter) { return std::regex_search(cell, filter); });
    }

    // Pictures stay as they are over the placements, where these do not move them.
    void paint(const Group& group, const Layout& layout)
    {
        if (painted_ == layout.luma_bytes + 1) return;
        painted_ = layout.luma_bytes + 1;
        ring_.cut(slot_);
        ring_.paint(layout, group.content, ring_.slots());
        if (layout.access.cover != Cover::none) ring_.cover(layout, group.content, ring_.slots());
    }

    void run_cell(const Group& group, const Export& e, Size size, Placement placement, bool cold)
    {
        const std::string pixels = std::to_string(size.width) + "x" + std::to_string(size.height);
        const std::string kind = name_of(placement), heat = cold ? "cold" : "hot";
        const std::string cell = e.name + "/" + pixels + "/" + kind + "/" + heat;
        if (!is_wanted(cell)) return;
        const Layout layout = layout_of(e.access, size, placement);
        paint(group, layout);
        Duel duel(load_with(old_.isa(), e, layout), load_with(new_.isa(), e, layout));
        const bool same = duel.agree(ring_, layout);
        duel.run(ring_, layout, cold, options_.seconds);
        // What looks slower is looked at for longer: both sides get more turns.
        if (ratio(duel, cold) > Tally::kSlower) duel.run(ring_, layout, cold, 3 * options_.seconds);
        tally_.add(cell, kind + " " + heat, ratio(duel, cold));
        if (!same) tally_.differ(cell);
        std::printf("%-42s %-10s %-8s %-5s", e.name.c_str(), pixels.c_str(), kind.c_str(), heat.c_str());
        const Times &old_times = duel.first(), &new_times = duel.second();
        for (const double time : {old_times.least(), new_times.least(), old_times.median(), new_times.median()})
            std::printf(" %10.2f", time * 1e6);
        std::printf(" %8.3f%s%s\n", ratio(duel, cold), ratio(duel, cold) > Tally::kSlower ? "  slower" : "",
                    same ? "" : "  !!! DIFFERENT BYTES");
        std::fflush(stdout);
    }

    // Hot, the quietest turn is the truest. Cold, it is the luckiest: part of its slot was still in a cache.
    static double ratio(const Duel& duel, bool cold)
    {
        return cold ? duel.second().median() / duel.first().median() : duel.second().least() / duel.first().least();
    }

    Options options_;
    Library old_, new_;
    Ring ring_;
    Tally tally_;
    size_t slot_ = 0, painted_ = 0;
};

} // namespace

int main(int argc, char** argv)
{
    try {
        return Comparison(options_of(argc, argv)).run() ? 0 : 1;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 2;
    }
}
