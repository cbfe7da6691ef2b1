#include "harness/checker.h"

#include "harness/crash.h"

#include <algorithm>
#include <cstring>
#include <sstream>

namespace harness {
namespace {

constexpr int64_t kMargin = 256;  // bytes beyond the touched ones that are compared too, where there is memory
constexpr uint64_t kShift = 8192; // a plane shows the content from any of so many bytes on

std::vector<uint8_t> pristine(size_t size)
{
    Random random(2);
    std::vector<uint8_t> bytes(size);
    for (uint8_t& byte : bytes) byte = static_cast<uint8_t>(random.next());
    return bytes;
}

int64_t size_of(const model::Plane& plane) { return plane.high() - plane.low(); }

// Where a record lies in its arena: flush against the guard page behind it.
template <class Record> Record* place(const Arena& arena) { return reinterpret_cast<Record*>(arena.end()) - 1; }

template <class Record> Record* put(const Arena& arena, const Record& record)
{
    std::memcpy(place<Record>(arena), &record, sizeof record);
    return place<Record>(arena);
}

template <class Record> bool intact(const Arena& arena, const Record& record)
{
    return std::memcmp(place<Record>(arena), &record, sizeof record) == 0;
}

} // namespace

Checker::Checker(size_t reach)
    : reach_(static_cast<int64_t>(reach)), pristine_(pristine(2 * reach)), image_(pristine_), y_(2 * reach),
      u_(2 * reach), v_(2 * reach), dst_(2 * reach), records_(sizeof(ajust_contrast_info)),
      frames_(sizeof(tagVideoFrame)), adjustments_(sizeof(ajust_contrast_info))
{
}

std::vector<uint8_t>& Checker::shown(Content content)
{
    std::vector<uint8_t>& bytes = contents_[content];
    if (bytes.empty()) bytes = bytes_of(content, static_cast<size_t>(2 * reach_) + kShift);
    return bytes;
}

std::optional<std::string> Checker::run(const Case& c, const std::vector<Placement>& placements,
                                        const std::vector<Variant>& tables)
{
    std::optional<std::string> wrong = run_model(c);
    for (size_t p = 0; p < placements.size() && !wrong; ++p) {
        if (!place_sources(placements[p])) wrong = "the touched bytes do not fit the memory set aside";
        for (size_t t = 0; t < tables.size() && !wrong; ++t) {
            wrong = run_table(c, placements[p], tables[t]);
            if (!wrong && !inputs_intact(c)) wrong = "a source plane or a record was changed";
            if (wrong) *wrong += "\n  on " + tables[t].name + ", " + describe(placements[p]);
        }
    }
    forget_model();
    if (wrong) *wrong = describe(c) + "\n  " + *wrong;
    return wrong;
}

std::optional<std::string> Checker::run_model(const Case& c)
{
    std::vector<uint8_t>& content = shown(c.content);
    auto show = [&](int plane) { return content.data() + reach_ + (c.seed >> (16 * plane)) % kShift; };
    planes_ = {{show(0), -reach_, reach_},
               {show(1), -reach_, reach_},
               {show(2), -reach_, reach_},
               {image_.data() + reach_, -reach_, reach_}};
    sources_[0] = {&planes_.y, show(0), &y_, nullptr};
    sources_[1] = {&planes_.u, show(1), &u_, nullptr};
    sources_[2] = {&planes_.v, show(2), &v_, nullptr};
    const model::Call call = {c.width, c.height, c.y_pitch, c.dst_pitch, &c.info, model::state_from(c.adjustment),
                              c.plane, c.start,  c.height,  c.field_mode};
    c.tested->model(planes_, call);
    reads_record_ = call.info.was_read();
    for (const model::Plane* plane : {&planes_.y, &planes_.u, &planes_.v, &planes_.dst}) {
        if (plane->escaped()) return "the case touches memory beyond the reach of this test";
    }
    return std::nullopt;
}

bool Checker::place_sources(const Placement& placement)
{
    int turn = 0;
    for (Source& source : sources_) {
        const model::Plane& plane = *source.plane;
        source.placed = source.arena->forbidden();
        if (!plane.touched()) continue;
        Placement own = placement;
        own.alignment = (placement.alignment * 5 + 13 * turn++) % 64; // the planes differ in alignment
        source.placed = source.arena->place(plane.low(), plane.high(), own);
        if (source.placed == nullptr) return false;
        std::memcpy(source.placed + plane.low(), source.content + plane.low(), static_cast<size_t>(size_of(plane)));
    }
    return true;
}

bool Checker::inputs_intact(const Case& c) const
{
    if (!intact(records_, c.info) || !intact(frames_, frame_) || !intact(adjustments_, c.adjustment)) return false;
    return std::all_of(std::begin(sources_), std::end(sources_), [](const Source& source) {
        const model::Plane& plane = *source.plane;
        return !plane.touched() || std::memcmp(source.placed + plane.low(), source.content + plane.low(),
                                               static_cast<size_t>(size_of(plane))) == 0;
    });
}

std::optional<std::string> Checker::run_table(const Case& c, const Placement& placement, const Variant& table)
{
    const InCall in_call(c, placement, table);
    if (!planes_.dst.touched()) {
        call(c, table, dst_.forbidden());
        return std::nullopt;
    }
    uint8_t* dst = dst_.place(planes_.dst.low(), planes_.dst.high(), placement);
    if (dst == nullptr) return "the destination does not fit the memory set aside";
    const int64_t first = std::max({planes_.dst.low() - kMargin, -reach_, static_cast<int64_t>(dst_.begin() - dst)});
    const int64_t end = std::min({planes_.dst.high() + kMargin, reach_, static_cast<int64_t>(dst_.end() - dst)});
    std::memcpy(dst + first, pristine_.data() + reach_ + first, static_cast<size_t>(end - first));
    call(c, table, dst);
    return compare(dst, first, end);
}

// What a call must not look at gets an address that faults, or none: its record, its frame, planes.
void Checker::call(const Case& c, const Variant& table, uint8_t* dst)
{
    Arguments a = {sources_[0].placed, sources_[1].placed, sources_[2].placed, dst, nullptr, nullptr};
    std::memset(&frame_, 0, sizeof frame_);
    frame_.field_mode = c.field_mode;
    frame_.plane_y = a.y;
    frame_.plane_u = a.u;
    frame_.plane_v = a.v;
    frame_.pitch = c.y_pitch;
    a.info = put(records_, c.info);
    a.frame = put(frames_, frame_);
    const bool null = c.seed % 2 == 0;
    if (!reads_record_) a.info = null ? nullptr : reinterpret_cast<ajust_contrast_info*>(records_.forbidden());
    if (!planes_.dst.touched()) a.frame = null ? nullptr : reinterpret_cast<tagVideoFrame*>(frames_.forbidden());
    get_contrast_data(put(adjustments_, c.adjustment));
    if (table.apply != nullptr) table.apply();
    c.tested->call(*table.kernels, c, a);
}

std::optional<std::string> Checker::compare(const uint8_t* dst, int64_t first, int64_t end) const
{
    const uint8_t* expected = image_.data() + reach_;
    const uint8_t* before = pristine_.data() + reach_;
    if (std::memcmp(dst + first, expected + first, static_cast<size_t>(end - first)) == 0) return std::nullopt;
    int64_t differing = 0, at = end;
    for (int64_t i = end - 1; i >= first; --i) {
        if (dst[i] == expected[i]) continue;
        ++differing;
        at = i;
    }
    std::ostringstream out;
    out << differing << " bytes differ, the first at " << at << " of a destination touched from " << planes_.dst.low()
        << " to " << planes_.dst.high() << ": " << int{dst[at]} << " instead of " << int{expected[at]}
        << ", before the call " << int{before[at]};
    return out.str();
}

void Checker::forget_model()
{
    const model::Plane& dst = planes_.dst;
    if (!dst.touched()) return;
    const size_t from = static_cast<size_t>(reach_ + dst.low());
    std::copy_n(pristine_.data() + from, size_of(dst), image_.data() + from);
}

std::vector<Placement> flush() { return {{Placement::Kind::kAtStart, 0}, {Placement::Kind::kAtEnd, 0}}; }

std::vector<Placement> flush_and_aligned(int alignment)
{
    return {{Placement::Kind::kAtStart, 0}, {Placement::Kind::kAtEnd, 0}, {Placement::Kind::kInside, alignment}};
}

} // namespace harness
