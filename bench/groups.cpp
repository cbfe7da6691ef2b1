// SPDX-License-Identifier: MIT
#include "bench/groups.h"

#include <algorithm>

#include "frame/streaming.h"

namespace bench {
namespace {

Contender contender(const Family& family, const Group& group, const Export& e, const Layout& layout)
{
    return {e.name, group.exports.front().name, family.name, layout, traffic_of(layout), true};
}

void add_roofs(std::vector<Contender>& to, const Contender& like)
{
    const std::pair<const char*, Stores> kinds[] = {{"/roof:stores", Stores::ordinary},
                                                    {"/roof:nontemporal", Stores::streaming}};
    for (const auto& [suffix, stores] : kinds) {
        Contender roof = like;
        roof.name += suffix;
        roof.load = [stores = stores, layout = like.layout](const Picture& picture) {
            run_roof(best_roof(), stores, layout, picture);
        };
        to.push_back(roof);
    }
}

// Peers write every byte of the surface once, also those that the export does not write or writes twice.
Traffic whole_traffic(Layout layout)
{
    layout.access.oddity = Oddity::none;
    return traffic_of(layout);
}

void add_peers(std::vector<Contender>& to, const Contender& like, const Export& e, std::vector<Peer> peers)
{
    for (Peer& peer : peers) {
        Contender contender = like;
        contender.traffic = whole_traffic(like.layout);
        contender.own_traffic = e.access.oddity == Oddity::none;
        contender.same_picture = e.access.oddity != Oddity::overlap && e.rgb16_layout < 2;
        contender.name += "/peer:" + peer.name;
        contender.prepare = std::move(peer.prepare);
        contender.load = std::move(peer.load);
        to.push_back(contender);
    }
}

// Subpictures take long enough where the library is at its best: the other covers are only compared there, and the last
// instruction set, the scalar code, goes without the largest size.
bool is_worth_it(const vsurf::Isa& isa, const Contender& like)
{
    const Cover cover = like.layout.access.cover;
    if (cover == Cover::none || &isa == &vsurf::active_isa()) return true;
    constexpr int kLarge = 1920;
    return like.name == like.plain && (&isa != &vsurf::isas[vsurf::isa_count - 1] || like.layout.size.width <= kLarge);
}

void add_library(std::vector<Contender>& to, const Contender& like, const Export& e, bool every_tier)
{
    for (int i = 0; i < vsurf::isa_count; i++) {
        const vsurf::Isa& isa = vsurf::isas[i];
        if (!isa.runs_here() || !is_worth_it(isa, like) || (!every_tier && &isa != &vsurf::active_isa())) continue;
        Contender contender = like;
        contender.name += std::string("/vsurf:") + isa.name;
        contender.load = load_with(isa, e, like.layout);
        to.push_back(contender);
    }
}

// It keeps the mixer's places of planes and surface: where its own surface would be, the mixer has its alpha.
void add_loader(std::vector<Contender>& to, const Contender& like, const Export& loader, const Place& place)
{
    const Layout layout = layout_of(loader.access, place.size, place.placement);
    Contender contender = like;
    contender.name += "/loader:" + loader.name;
    contender.traffic = traffic_of(layout);
    contender.own_traffic = false;
    contender.load = load_with(vsurf::active_isa(), loader, layout);
    to.push_back(contender);
}

// Whether both have the same roof: what a subpicture covers only counts where it covers everything.
bool same_walk(Access a, const Access& b)
{
    if (a.cover != Cover::whole && b.cover != Cover::whole) a.cover = b.cover;
    return a == b;
}

template <class Same> bool is_first(const Group& group, const Export& e, Same same)
{
    const auto same_as_e = [&](const Export& other) { return same(other.access, e.access); };
    return &*std::find_if(group.exports.begin(), group.exports.end(), same_as_e) == &e;
}

bool needs_roof(const Group& group, const Export& e) { return !group.own_peers && is_first(group, e, same_walk); }

bool needs_peers(const Group& group, const Export& e)
{
    if (!group.own_peers) return group.peers && &e == &group.exports.front();
    return group.peers && is_first(group, e, std::equal_to<>());
}

bool is_whole(Size size) { return size.width % 16 == 0 && size.height % 2 == 0; }

} // namespace

std::vector<Contender> contenders(const Family& family, const Group& group, const Place& place)
{
    if (!place.every_tier && !group.everywhere) return {};

    std::vector<Contender> all;
    const Export& plain = group.exports.front();
    const bool every_tier = place.every_tier && !group.own_peers;
    for (const Export& e : group.exports) {
        const Contender common = contender(family, group, e, layout_of(e.access, place.size, place.placement));
        if (needs_roof(group, e)) add_roofs(all, common);
        add_library(all, common, e, every_tier);
        if (&e == &plain && group.loader && is_whole(place.size)) add_loader(all, common, *group.loader, place);
        if (!needs_peers(group, e)) continue;
        add_peers(all, common, e, libyuv_peers(common.layout, every_tier));
        add_peers(all, common, e, swscale_peers(common.layout, every_tier));
        add_peers(all, common, e, memory_peers(common.layout));
    }
    return all;
}

std::vector<Threshold> kinds_of_stores()
{
    static const size_t chosen = vsurf::streaming_threshold;
    return {{"ordinary", SIZE_MAX}, {"nontemporal", 0}, {"chosen", chosen}};
}

std::vector<Contender> store_contenders(const Family& family, const Group& group, const Place& place,
                                        const std::vector<Threshold>& thresholds)
{
    std::vector<Contender> all;
    for (const Export& e : group.exports) {
        for (const auto& [name, bytes] : thresholds) {
            Contender one = contender(family, group, e, layout_of(e.access, place.size, place.placement));
            one.name += "/stores:" + name;
            one.prepare = [threshold = bytes] { vsurf::streaming_threshold = threshold; };
            one.load = load_with(vsurf::active_isa(), e, one.layout);
            all.push_back(one);
        }
    }
    return all;
}

void set_adjustment()
{
    ajust_contrast_info info = adjustment();
    get_contrast_data(&info);
}

void set_neutral_adjustment()
{
    ajust_contrast_info info{};
    info.y_gain = info.uv_gain = 64;
    get_contrast_data(&info);
}

} // namespace bench
