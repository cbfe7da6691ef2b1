#include "bench/groups.h"

#include "frame/streaming.h"

namespace bench {
namespace {

using vsurf::Kernels;

const Group kGroups[] = {
    {Target::rgb32,
     {{"loadimage_rgb32", &Kernels::loadimage_rgb32, Access::rgb32},
      {"loadimage_rgb32_ajust", &Kernels::loadimage_rgb32_ajust, Access::rgb32}}},
    {Target::rgb24,
     {{"loadimage_rgb24", &Kernels::loadimage_rgb24, Access::rgb24},
      {"loadimage_rgb24_ajust", &Kernels::loadimage_rgb24_ajust, Access::rgb24}}},
    {Target::rgb565,
     {{"loadimage_rgb16-565", &Kernels::loadimage_rgb16, Access::rgb16, 0},
      {"loadimage_rgb16_ajust-565", &Kernels::loadimage_rgb16_ajust, Access::rgb16, 0}}},
    {Target::rgb555,
     {{"loadimage_rgb16-555", &Kernels::loadimage_rgb16, Access::rgb16, 1},
      {"loadimage_rgb16_ajust-555", &Kernels::loadimage_rgb16_ajust, Access::rgb16, 1}}},
    // No peer writes these two; the nearest is the other layout that fills all 16 bits.
    {Target::rgb565,
     {{"loadimage_rgb16-664", &Kernels::loadimage_rgb16, Access::rgb16, 2},
      {"loadimage_rgb16_ajust-664", &Kernels::loadimage_rgb16_ajust, Access::rgb16, 2}}},
    {Target::rgb565,
     {{"loadimage_rgb16-655", &Kernels::loadimage_rgb16, Access::rgb16, 3},
      {"loadimage_rgb16_ajust-655", &Kernels::loadimage_rgb16_ajust, Access::rgb16, 3}}},
    {Target::yuy2,
     {{"loadimage_yuy2", &Kernels::loadimage_yuy2, Access::yuy2},
      {"loadimage_yuy2_ajust", &Kernels::loadimage_yuy2_ajust, Access::yuy2_whole},
      {"loadimage_yuy2_mono_ajust", &Kernels::loadimage_yuy2_mono_ajust, Access::yuy2_grey}}},
    {Target::yv12,
     {{"loadimage_yv12", &Kernels::loadimage_yv12, Access::yv12},
      {"loadimage_yv12_ajust", &Kernels::loadimage_yv12_ajust, Access::yv12_row_by_row}}},
    {Target::half_yuy2, {{"loadimage_half_yuy2_ajust", &Kernels::loadimage_half_yuy2_ajust, Access::half_yuy2}}},
    {Target::half_yv12, {{"loadimage_half_yv12_ajust", &Kernels::loadimage_half_yv12_ajust, Access::half_yv12}}},
};

ajust_contrast_info record_for(const Export& e, Size size)
{
    ajust_contrast_info info{};
    info.rgb16_layout = e.rgb16_layout;
    info.surface_height = size.height;
    info.lines_to_bottom = size.height; // the picture starts at the top of the surface
    return info;
}

void add_roofs(std::vector<Contender>& to, const Contender& like, const Export& e)
{
    const std::pair<const char*, Stores> kinds[] = {{"/roof:stores", Stores::ordinary},
                                                    {"/roof:prefetchw", Stores::prefetched},
                                                    {"/roof:nontemporal", Stores::streaming}};
    for (const auto& [suffix, stores] : kinds) {
        Contender roof = like;
        roof.name = e.name + std::string(suffix);
        roof.load = [stores = stores, access = e.access, layout = like.layout](const Picture& picture) {
            run_roof(best_roof(), stores, access, layout, picture);
        };
        to.push_back(roof);
    }
}

// Peers write every byte of the surface once, whatever the loader leaves alone or writes twice.
Access whole(Access access)
{
    if (access == Access::yuy2) return Access::yuy2_whole;
    return access == Access::yv12 ? Access::yv12_row_by_row : access;
}

void add_peers(std::vector<Contender>& to, const Contender& like, const Export& e, std::vector<Peer> peers)
{
    for (Peer& peer : peers) {
        Contender contender = like;
        contender.traffic = traffic_of(whole(e.access), like.layout);
        contender.own_traffic = whole(e.access) == e.access;
        contender.name = std::string(e.name) + "/peer:" + peer.name;
        contender.prepare = std::move(peer.prepare);
        contender.load = std::move(peer.load);
        to.push_back(contender);
    }
}

std::function<void(const Picture&)> call(const vsurf::Isa& isa, const Export& e, const Layout& l)
{
    return [l, info = record_for(e, l.size), loader = isa.kernels->*e.loader](const Picture& p) mutable {
        loader(p.y, p.u, p.v, p.surface, l.size.width, l.size.height, l.y_pitch, l.dst_pitch, &info);
    };
}

void add_library(std::vector<Contender>& to, const Contender& like, const Export& e)
{
    for (int i = 0; i < vsurf::isa_count; i++) {
        const vsurf::Isa& isa = vsurf::isas[i];
        if (!isa.runs_here()) continue;
        Contender contender = like;
        contender.name = std::string(e.name) + "/vsurf:" + isa.name;
        contender.load = call(isa, e, like.layout);
        to.push_back(contender);
    }
}

} // namespace

std::span<const Group> groups() { return kGroups; }

std::vector<Contender> contenders(const Group& group, Size size)
{
    std::vector<Contender> all;
    const Export& plain = group.exports.front();
    for (const Export& e : group.exports) {
        const Layout layout = layout_of(e.access, size);
        const Contender common{"", plain.name, layout, traffic_of(e.access, layout), true, [] {}, {}};
        if (&e == &plain || e.access != plain.access) add_roofs(all, common, e);
        add_library(all, common, e);
        if (&e != &plain) continue;
        add_peers(all, common, e, libyuv_peers(group.target, layout));
        add_peers(all, common, e, swscale_peers(group.target, layout));
    }
    return all;
}

std::vector<Contender> store_contenders(const Group& group, Size size)
{
    static const size_t chosen = vsurf::streaming_threshold;
    const std::pair<const char*, size_t> kinds[] = {{"ordinary", SIZE_MAX}, {"nontemporal", 0}, {"chosen", chosen}};
    std::vector<Contender> all;
    for (const Export& e : group.exports) {
        const Layout layout = layout_of(e.access, size);
        for (const auto& [kind, threshold] : kinds) {
            Contender contender{e.name + std::string("/stores:") + kind,
                                group.exports.front().name,
                                layout,
                                traffic_of(e.access, layout),
                                true,
                                {},
                                call(vsurf::active_isa(), e, layout)};
            contender.prepare = [threshold = threshold] { vsurf::streaming_threshold = threshold; };
            all.push_back(contender);
        }
    }
    return all;
}

void set_adjustment()
{
    ajust_contrast_info info{};
    info.y_gain = 74;
    info.uv_gain = 80;
    info.y_offset_a = -9;
    info.u_offset_a = 3;
    info.v_offset_a = -4;
    get_contrast_data(&info);
}

} // namespace bench
