// SPDX-License-Identifier: MIT
#include "bench/check.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <vector>

#include "bench/groups.h"
#include "bench/shows.h"

namespace bench {
namespace {

using Bytes = std::vector<uint8_t>;

// What a load leaves of a surface that was filled with `fill`.
Bytes result_of(const Contender& contender, const Picture& picture, uint8_t fill)
{
    std::memset(picture.surface, fill, contender.layout.surface_bytes);
    contender.prepare();
    contender.load(picture);
    return {picture.surface, picture.surface + contender.layout.surface_bytes};
}

struct Outcome {
    Bytes surface;
    std::vector<bool> written; // the bytes that do not depend on what the surface held
    size_t count = 0;
};

Outcome outcome_of(const Contender& contender, const Picture& picture)
{
    Outcome outcome{result_of(contender, picture, 0), {}};
    const Bytes other = result_of(contender, picture, 0xFF);
    for (size_t i = 0; i < other.size(); i++) outcome.written.push_back(outcome.surface[i] == other[i]);
    for (const bool byte : outcome.written) outcome.count += byte;
    return outcome;
}

// The difference of two 16-bit pixels in the mean of their three components. The library's R5G5B5 leaves bit 0 free,
// the peers' bit 15.
double difference16(unsigned ours, unsigned theirs, bool rgb555)
{
    const auto part = [](unsigned word, int shift, int bits) {
        return static_cast<int>(word >> shift) & ((1 << bits) - 1);
    };
    if (rgb555) ours >>= 1;
    const int green = rgb555 ? 5 : 6;
    const int red = std::abs(part(ours, 5 + green, 5) - part(theirs, 5 + green, 5)) * 8;
    const int blue = std::abs(part(ours, 0, 5) - part(theirs, 0, 5)) * 8;
    return (red + blue + std::abs(part(ours, 5, green) - part(theirs, 5, green)) * (1 << (8 - green))) / 3.0;
}

unsigned word_at(const Bytes& bytes, size_t at) { return bytes[at] | unsigned{bytes[at + 1]} << 8; }

// The mean difference of the samples that the library writes.
double difference(const Outcome& ours, const Bytes& theirs, Surface surface)
{
    const bool words = surface == Surface::rgb565 || surface == Surface::rgb555;
    double sum = 0;
    size_t samples = 0;
    for (size_t i = 0; i + 1 < theirs.size(); i += words ? 2 : 1) {
        // The fourth byte of RGB32 is 0 here and opacity elsewhere.
        if (!ours.written[i] || (surface == Surface::rgb32 && i % 4 == 3)) continue;
        samples++;
        sum += words ? difference16(word_at(ours.surface, i), word_at(theirs, i), surface == Surface::rgb555)
                     : std::abs(int{ours.surface[i]} - int{theirs[i]});
    }
    return samples == 0 ? 255 : sum / static_cast<double>(samples);
}

bool print(const std::string& name, double figure, const char* unit, bool good)
{
    std::printf("%-66s %7.2f %-14s %s\n", name.c_str(), figure, unit, good ? "" : "WRONG");
    return good;
}

// Other libraries round, filter and dither in their own ways; a picture that lacks a plane or has two of them exchanged
// is off by 15 and more.
bool check_peer(const Contender& peer, const Outcome& ours, const Picture& picture)
{
    constexpr double kTolerance = 4;
    const double off = difference(ours, result_of(peer, picture, 0), peer.layout.access.surface);
    return print(peer.name, off, "mean off", off <= kTolerance);
}

// The planes that drift by contract end up with a few bytes less.
bool check_bytes(const std::string& name, size_t written, size_t expected)
{
    if (expected == 0) return print(name, static_cast<double>(written), "bytes", written == 0);
    const double share = 100.0 * static_cast<double>(written) / static_cast<double>(expected);
    return print(name, share, "% of its bytes", share > 98.5 && share < 101.5);
}

// A drawing with two lines of text counts as all key.
bool check_text(const std::string& name, size_t written, size_t all)
{
    const double share = 100.0 * static_cast<double>(written) / static_cast<double>(all);
    return print(name, share, "% of the planes", share > 0 && share < 20);
}

bool check_traffic(const Contender& c, const Outcome& outcome)
{
    const Access& access = c.layout.access;
    if (access.converts() && access.cover == Cover::subtitle && c.name.find("/roof:") == std::string::npos)
        return check_text(c.name, outcome.count, c.layout.surface_bytes);
    return check_bytes(c.name, outcome.count, c.traffic.written);
}

Picture painted(Ring& ring, const Contender& contender)
{
    ring.paint(contender.layout, Content::natural, 1);
    if (contender.layout.access.cover != Cover::none) ring.cover(contender.layout, Content::natural, 1);
    return ring.first(contender.layout);
}

std::string export_of(const Contender& c) { return c.name.substr(0, c.name.find('/')); }

bool has_peers(const std::vector<Contender>& list, const std::string& name)
{
    return std::any_of(list.begin(), list.end(),
                       [&](const Contender& c) { return c.name.starts_with(name + "/peer:"); });
}

bool check_group(const std::vector<Contender>& list, Ring& ring, const std::regex& wanted)
{
    const auto is_wanted = [&](const Contender& c) { return std::regex_search("check/" + c.name, wanted); };
    if (std::none_of(list.begin(), list.end(), is_wanted)) return true;
    size_t slot = 0;
    for (const Contender& c : list) slot = std::max(slot, slot_bytes(c.layout));
    ring.cut(slot);
    const std::string library = std::string("/vsurf:") + vsurf::active_isa().name;
    bool good = true;
    std::map<std::string, Outcome> ours; // by export, of those that peers are compared with
    for (const Contender& c : list) {
        if (!c.name.ends_with(library)) continue;
        const Outcome outcome = outcome_of(c, painted(ring, c));
        good &= check_traffic(c, outcome);
        if (has_peers(list, export_of(c))) ours[export_of(c)] = outcome;
    }
    for (const Contender& c : list) {
        const Picture picture = painted(ring, c);
        if (c.name.find("/roof:") != std::string::npos) {
            good &= check_traffic(c, outcome_of(c, picture));
        } else if (c.name.find("/peer:") != std::string::npos && c.same_picture) {
            good &= check_peer(c, ours[export_of(c)], picture);
        }
    }
    return good;
}

} // namespace

bool check(Ring& ring, const std::regex& wanted)
{
    constexpr Size kSize{352, 288};
    set_neutral_adjustment();
    bool good = true;
    for (const Family& family : all_families()) {
        for (const Group& group : family.groups) {
            for (const Placement placement : kPlacements)
                good &= check_group(contenders(family, group, {kSize, placement, placement == Placement::aligned}),
                                    ring, wanted);
        }
    }
    std::fflush(stdout);
    return good;
}

} // namespace bench
