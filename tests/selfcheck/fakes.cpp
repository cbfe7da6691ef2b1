// SPDX-License-Identifier: MIT
#include "selfcheck/fakes.h"

#include "harness/job_record.h"
#include "model/band.h"
#include "model/colorkey.h"
#include "model/enlarged.h"
#include "model/packed.h"
#include "model/planar.h"
#include "model/planes.h"

#include <limits>

namespace selfcheck {

ajust_contrast_info known_adjustment;
Spoil spoil;
SpoiltJob spoilt_job;

model::Plane unlimited(void* origin)
{
    constexpr int64_t kFar = std::numeric_limits<int64_t>::max() / 2;
    return {static_cast<uint8_t*>(origin), -kFar, kFar};
}

namespace {

// What a call could reach apart from its planes.
struct Around {
    uint8_t *y, *u, *dst;
    ajust_contrast_info* info;
    tagVideoFrame* frame;
};

void do_spoil(model::Planes& planes, const Around& a)
{
    uint8_t* to = a.dst;
    auto* luma = static_cast<volatile uint8_t*>(a.y);
    switch (spoil) {
    case Spoil::kWrongByte: to[(planes.dst.low() + planes.dst.high()) / 2] ^= 1; break;
    case Spoil::kUnwrittenByte: to[planes.dst.high() - 1] ^= 0x55; break;
    case Spoil::kByteTooMany: to[planes.dst.high()] ^= 1; break;
    case Spoil::kByteTooFew: to[planes.dst.low() - 1] ^= 1; break;
    case Spoil::kReadsTooFar: static_cast<void>(luma[planes.y.high()]); break;
    case Spoil::kReadsTooEarly: static_cast<void>(luma[planes.y.low() - 1]); break;
    case Spoil::kChangesSource: luma[planes.y.low()] = static_cast<uint8_t>(luma[planes.y.low()] ^ 1); break;
    case Spoil::kChangesRecord: a.info->reserved ^= 1; break;
    case Spoil::kReadsIgnoredRecord: to[planes.dst.low()] ^= static_cast<uint8_t>(a.info->reserved | 1); break;
    case Spoil::kReadsIgnoredPlane: static_cast<void>(*static_cast<volatile uint8_t*>(a.u)); break;
    case Spoil::kChangesFrame: a.frame->pitch ^= 1; break;
    case Spoil::kReadsBeyondFrame: static_cast<void>(*reinterpret_cast<volatile uint8_t*>(a.frame + 1)); break;
    case Spoil::kNothing: break;
    }
}

// A model called as its export would be, one form for each list of parameters.
class Imitation {
public:
    explicit Imitation(void (*model)(model::Planes&, const model::Call&)) : model_(model) {}

    void operator()(void* y, void* u, void* v, void* dst, int width, int height, int y_pitch, int dst_pitch,
                    ajust_contrast_info* info) const
    {
        run({width, height, y_pitch, dst_pitch, info, {}}, y, u, v, dst, info);
    }

    void operator()(unsigned char* src, unsigned char* dst, int width, int height, int src_pitch, int dst_pitch,
                    ajust_contrast_info* info = nullptr, int plane = 0) const
    {
        run({width, height, src_pitch, dst_pitch, info, {}, plane}, src, nullptr, nullptr, dst, info);
    }

    void operator()(tagVideoFrame* frame, int start, int lines, unsigned char* dst, int dst_pitch,
                    ajust_contrast_info* info) const
    {
        const model::Call call = {frame->pitch, lines, frame->pitch, dst_pitch, info,
                                  {},           0,     start,        lines,     frame->field_mode};
        run(call, frame->plane_y, frame->plane_u, frame->plane_v, dst, info, frame);
    }

    void operator()(void* src, void* u, void* v, void* dst, int line_bytes, int height, int dst_pitch,
                    ajust_contrast_info* info = nullptr) const
    {
        run({line_bytes / 2, height, 0, dst_pitch, info, {}}, src, u, v, dst, info);
    }

private:
    void run(model::Call call, void* y, void* u, void* v, void* dst, ajust_contrast_info* info,
             tagVideoFrame* frame = nullptr) const
    {
        call.state = model::state_from(known_adjustment);
        model::Planes planes = {unlimited(y), unlimited(u), unlimited(v), unlimited(dst)};
        model_(planes, call);
        do_spoil(planes, {static_cast<uint8_t*>(y), static_cast<uint8_t*>(u), static_cast<uint8_t*>(dst), info, frame});
    }

    void (*model_)(model::Planes&, const model::Call&);
};

void do_spoil(model::JobPlanes& planes, const MIX_INFO& before, MIX_INFO& job)
{
    const harness::PlaneField& field = harness::kPlaneFields[spoilt_job.which];
    const model::Plane& plane = planes.*field.plane;
    volatile uint8_t* at = before.*field.pointer;
    switch (spoilt_job.how) {
    case JobSpoil::kWrongByte: at[(plane.low() + plane.high()) / 2] = at[(plane.low() + plane.high()) / 2] ^ 1; break;
    case JobSpoil::kByteTooMany: at[plane.high()] = at[plane.high()] ^ 1; break;
    case JobSpoil::kByteTooFew: at[plane.low() - 1] = at[plane.low() - 1] ^ 1; break;
    case JobSpoil::kReadsTooFar: static_cast<void>(at[plane.high()]); break;
    case JobSpoil::kReadsTooEarly: static_cast<void>(at[plane.low() - 1]); break;
    case JobSpoil::kReadsUnused: static_cast<void>(*at); break;
    case JobSpoil::kMovesPointer: ++(job.*field.pointer); break;
    case JobSpoil::kLeavesPointer: job.*field.pointer = before.*field.pointer; break;
    case JobSpoil::kChangesNumber: job.*harness::kNumberFields[spoilt_job.which].number ^= 1; break;
    case JobSpoil::kChangesKey: job.color_key ^= 1; break;
    case JobSpoil::kChangesInfoPointer: ++job.contrast_info; break;
    case JobSpoil::kChangesInfo: job.contrast_info->reserved ^= 1; break;
    case JobSpoil::kReadsUnusedInfo: job.reserved1 = job.contrast_info->reserved; break;
    case JobSpoil::kNothing: break;
    }
}

model::JobPlanes planes_of(const MIX_INFO& job)
{
    model::JobPlanes planes;
    for (const harness::PlaneField& each : harness::kPlaneFields) planes.*each.plane = unlimited(job.*each.pointer);
    return planes;
}

struct JobImitation {
    void (*model)(model::JobPlanes&, model::Job&);

    void operator()(MIX_INFO* record) const
    {
        const MIX_INFO before = *record;
        model::JobPlanes planes = planes_of(before);
        model::Job job = {
            before.picture_pitch, before.subpicture_pitch, before.surface_pitch, before.width,
            before.height,        before.color_key,        before.contrast_info, model::state_from(known_adjustment)};
        model(planes, job);
        record->width = job.width;
        record->height = job.height;
        for (const harness::PlaneField& each : harness::kPlaneFields) {
            if (each.moved != nullptr) record->*each.pointer += job.moved.*each.moved;
        }
        do_spoil(planes, before, *record);
    }
};

// What has no record is spoilt as if it had one.
struct FillImitation {
    void (*model)(model::Plane&, const model::Fill&);

    void operator()(unsigned colour, void* surface, int width, int height, int, int pitch) const
    {
        MIX_INFO job = {};
        job.surface = static_cast<unsigned char*>(surface);
        model::JobPlanes planes = planes_of(job);
        model(planes.surface, {colour, width, height, pitch});
        do_spoil(planes, job, job);
    }
};

struct MaskImitation {
    void (*model)(model::Plane&, model::Plane&, const model::Replacement&);

    void operator()(unsigned char* dst, unsigned char* mask, unsigned match, unsigned key, int width, int pitch,
                    int height) const
    {
        MIX_INFO job = {};
        job.surface = dst;
        job.picture_y = mask;
        model::JobPlanes planes = planes_of(job);
        model(planes.surface, planes.picture_y, {match, key, width, pitch, height});
        do_spoil(planes, job, job);
    }
};

Imitation imitation(void (*model)(model::Planes&, const model::Call&)) { return Imitation(model); }
JobImitation imitation(void (*model)(model::JobPlanes&, model::Job&)) { return {model}; }
FillImitation imitation(void (*model)(model::Plane&, const model::Fill&)) { return {model}; }
MaskImitation imitation(void (*model)(model::Plane&, model::Plane&, const model::Replacement&)) { return {model}; }

// A function of an export's type that imitates it by its model.
template <auto kModel, class Function> struct Fake;
template <auto kModel, class... Parameters> struct Fake<kModel, void(Parameters...)> {
    static void call(Parameters... arguments) { imitation(kModel)(arguments...); }
};

} // namespace

const vsurf::Kernels fakes = {
#define EXPORT(name, record) Fake<&model::name, decltype(::name)>::call,
#include "frame/exports.inc"
#undef EXPORT
};

} // namespace selfcheck
