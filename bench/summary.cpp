// SPDX-License-Identifier: MIT
#include "bench/summary.h"

#include <algorithm>
#include <cstdio>
#include <string_view>

namespace bench {
namespace {

std::string export_of(const std::string& name) { return name.substr(0, name.find('/')); }

std::string join(std::initializer_list<std::string_view> parts)
{
    std::string all;
    for (const std::string_view part : parts) all += part;
    return all;
}

// The part of an export's name that differs from that of its group's first.
std::string difference(const std::string& first, const std::string& name)
{
    const auto common = std::mismatch(name.begin(), name.end(), first.begin(), first.end()).first - name.begin();
    const size_t from = name.find_last_of("-_", static_cast<size_t>(common));
    return name.substr(from == std::string::npos ? 0 : from + 1);
}

void print_title(const std::string& title, const Traffic& traffic)
{
    std::printf("\n%s: a picture reads %.2f MB and writes %.2f MB\n", title.c_str(),
                static_cast<double>(traffic.read) / 1e6, static_cast<double>(traffic.written) / 1e6);
    std::printf("%-24s %10s %7s %14s %14s %14s\n", "", "ms/picture", "GB/s", "speed/roof", "speed/peer", "time/twin");
}

void print_ratio(double ratio, const char* format)
{
    char text[32] = "-";
    if (ratio > 0) std::snprintf(text, sizeof text, format, ratio);
    std::printf(" %14s", text);
}

} // namespace

void Summary::ReportRuns(const std::vector<Run>& runs)
{
    for (const Run& run : runs) {
        if (run.run_type != Run::RT_Iteration || run.error_occurred || run.iterations == 0) continue;
        runs_.push_back(run);
        const double seconds = run.real_accumulated_time / static_cast<double>(run.iterations);
        const auto [at, added] = seconds_.try_emplace(run.run_name.function_name, seconds);
        if (!added) at->second = std::min(at->second, seconds);
    }
}

double Summary::seconds(const std::string& name) const
{
    const auto at = seconds_.find(name);
    return at == seconds_.end() ? 0 : at->second;
}

double Summary::fastest(const std::string& beginning, std::string* which) const
{
    double best = 0;
    for (auto at = seconds_.lower_bound(beginning); at != seconds_.end() && at->first.starts_with(beginning); ++at) {
        if (best > 0 && at->second >= best) continue;
        best = at->second;
        if (which) *which = at->first.substr(beginning.size());
    }
    return best;
}

double Summary::peer_of(const std::string& prefix, const std::string& name, const std::string& plain) const
{
    const double own = fastest(join({prefix, name, "/peer:"}));
    return own > 0 ? own : fastest(join({prefix, plain, "/peer:"}));
}

double Summary::roof(const std::string& prefix, const Contender& of, const std::vector<Contender>& contenders) const
{
    double best = 0;
    for (const Contender& c : contenders) {
        if (c.name.find("/roof:") == std::string::npos || c.plain != of.plain || c.traffic != of.traffic) continue;
        const double time = seconds(prefix + c.name);
        if (time > 0 && (best <= 0 || time < best)) best = time;
    }
    return best;
}

void Summary::print_table(const std::string& prefix, const std::vector<Contender>& contenders) const
{
    std::string shown;
    for (const Contender& c : contenders) {
        const double time = seconds(prefix + c.name);
        if (time <= 0) continue;
        if (const std::string title = export_of(c.name); title != shown) {
            shown = title;
            print_title(prefix + title, c.traffic);
        }
        const std::string member = c.name.substr(c.name.find('/') + 1);
        const bool peer = member.starts_with("peer:"), adjusted = shown != c.plain;
        std::printf("%-24s %10.4f %7.1f", member.c_str(), time * 1e3,
                    static_cast<double>(c.traffic.read + c.traffic.written) / time / 1e9);
        // A peer that moves other bytes than the loader has another roof.
        const bool same_roof = !peer || c.own_traffic;
        print_ratio(same_roof ? 100 * roof(prefix, c, contenders) / time : 0, "%.0f%%");
        print_ratio(peer_of(prefix, shown, c.plain) / time, "%.2fx");
        const double loader = fastest(prefix + c.plain + "/loader:");
        const double twin = loader > 0 ? loader : adjusted ? seconds(join({prefix, c.plain, "/", member})) : 0;
        print_ratio(twin > 0 && member.starts_with("vsurf:") ? time / twin : 0, "%.2fx");
        std::printf("\n");
    }
    std::fflush(stdout);
}

void Summary::print_line(const std::string& prefix, const Group& group) const
{
    const std::string plain = group.exports.front().name;
    const std::string library = std::string("/vsurf:") + vsurf::active_isa().name;
    std::string peer;
    const double time = seconds(prefix + plain + library);
    if (time <= 0) return;
    std::printf("%-56s %8.3f ms (%s)", (prefix + plain).c_str(), time * 1e3, vsurf::active_isa().name);
    if (const double best = fastest(prefix + plain + "/roof:"); best > 0)
        std::printf(", %.0f%% of roof", 100 * best / time);
    if (const double best = fastest(prefix + plain + "/peer:", &peer); best > 0) {
        std::printf(", %.2fx %s", best / time, peer.c_str());
    }
    const double loader = fastest(prefix + plain + "/loader:");
    for (const Export& e : group.exports) {
        const double other = seconds(join({prefix, e.name, library}));
        const bool first = &e == &group.exports.front(), with_loader = loader > 0 && (first || !group.own_peers);
        if (other <= 0 || (first && !with_loader)) continue;
        std::printf(", %s %.2fx time", difference(plain, e.name).c_str(), other / (with_loader ? loader : time));
        if (const double best = fastest(join({prefix, e.name, "/peer:"}), &peer); !first && best > 0)
            std::printf(" (%.2fx %s)", best / other, peer.c_str());
    }
    std::printf("\n");
    std::fflush(stdout);
}

void Summary::print_stores(const std::string& prefix, const std::vector<Contender>& contenders) const
{
    std::string shown;
    for (const Contender& c : contenders) {
        const std::string name = export_of(c.name);
        if (name != shown) {
            std::printf("%s%-60s %8.3f MB, us:", shown.empty() ? "" : "\n", (prefix + name).c_str(),
                        static_cast<double>(c.traffic.written) / 1e6);
        }
        shown = name;
        std::printf("  %s %9.2f", c.name.substr(c.name.find(':') + 1).c_str(), seconds(prefix + c.name) * 1e6);
    }
    std::printf("\n");
    std::fflush(stdout);
}

void Summary::write_json(std::ostream& to) const
{
    benchmark::JSONReporter json;
    json.SetOutputStream(&to);
    json.SetErrorStream(&to);
    json.ReportContext(Context());
    json.ReportRuns(runs_);
    json.Finalize();
}

} // namespace bench
