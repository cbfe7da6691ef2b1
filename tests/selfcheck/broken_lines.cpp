// SPDX-License-Identifier: MIT
#include "selfcheck/broken_lines.h"

#include "harness/job_case.h"
#include "harness/job_record.h"
#include "selfcheck/fakes.h"

#include <algorithm>

namespace selfcheck {

BrokenLine broken_line;

namespace {

// The touched bytes around an address, as offsets from it.
struct Range {
    int64_t low = 0, high = 0;
    int64_t size() const { return high - low; }
};

Range touched_of(const model::Plane& plane) { return plane.touched() ? Range{plane.low(), plane.high()} : Range{}; }

// A destination before and after a call.
class Destination {
public:
    Destination(uint8_t* at, Range touched, int64_t pitch)
        : at_(at), touched_(touched), pitch_(pitch), before_(at + touched.low, at + touched.high)
    {
    }

    void break_line()
    {
        if (broken_line.phase && phase(0) != *broken_line.phase) return;
        find_line();
        const int64_t border = pitch_; // where the second line begins
        switch (broken_line.how) {
        case Break::kWrongByte: return spoil({line_.low, line_.low + 1});
        case Break::kWrongHead: return spoil({line_.low, std::min(line_.high, next_cache_line(line_.low))});
        case Break::kLostTail: return lose({std::max(line_.low, line_.high - phase(line_.high)), line_.high});
        case Break::kByteBehind: return spoil({line_.high, line_.high + 1});
        case Break::kUpperLost: return lose({border - phase(border), border});
        case Break::kLowerLost: return lose({border, next_cache_line(border)});
        case Break::kNothing: return;
        }
    }

private:
    int phase(int64_t offset) const { return static_cast<int>(reinterpret_cast<uintptr_t>(at_ + offset) % 64); }

    int64_t next_cache_line(int64_t offset) const { return offset + (64 - phase(offset)) % 64; }

    bool changed(int64_t offset) const { return at_[offset] != before_[static_cast<size_t>(offset - touched_.low)]; }

    // A stretch of changed bytes in the middle: one line, or several end to end. Single bytes may have come out as they
    // went in.
    void find_line()
    {
        int64_t start = touched_.low + touched_.size() / 2;
        while (start < touched_.high && !changed(start)) ++start;
        line_ = {start, start};
        while (line_.low > touched_.low && changed_near(line_.low - 1, -1)) --line_.low;
        while (line_.high < touched_.high && changed_near(line_.high, 1)) ++line_.high;
    }

    bool changed_near(int64_t offset, int step) const
    {
        for (int i = 0; i < 2; ++i, offset += step) {
            if (offset >= touched_.low && offset < touched_.high && changed(offset)) return true;
        }
        return false;
    }

    template <class Change> void each(Range range, const Change& change)
    {
        for (int64_t i = std::max(range.low, touched_.low); i < std::min(range.high, touched_.high); ++i) change(i);
    }

    void spoil(Range range)
    {
        each(range, [&](int64_t i) { at_[i] ^= 1; });
    }

    void lose(Range range)
    {
        each(range, [&](int64_t i) { at_[i] = before_[static_cast<size_t>(i - touched_.low)]; });
    }

    uint8_t* at_;
    Range touched_;
    int64_t pitch_;
    std::vector<uint8_t> before_;
    Range line_;
};

bool applies(int width) { return !broken_line.remainder || (width & 63) == *broken_line.remainder; }

const harness::Export* real_export;
const harness::JobExport* real_job;
Range touched;

void imitate(model::Planes& planes, const model::Call& call)
{
    real_export->model(planes, call);
    touched = touched_of(planes.dst);
}

void call(const vsurf::Kernels&, const harness::Case& c, const harness::Arguments& a)
{
    known_adjustment = c.adjustment;
    Destination destination(a.dst, touched, c.dst_pitch);
    real_export->call(fakes, c, a);
    if (applies(c.width) && touched.size() > 0) destination.break_line();
}

const harness::PlaneField& broken_plane()
{
    const std::vector<harness::JobPlane> all = real_job->destinations();
    return harness::kPlaneFields[all[broken_line.destination % all.size()]];
}

void imitate_job(model::JobPlanes& planes, model::Job& job, const harness::JobCase& c)
{
    real_job->model(planes, job, c);
    touched = touched_of(planes.*broken_plane().plane);
}

void call_job(const vsurf::Kernels&, const harness::JobCase& c, MIX_INFO* job)
{
    known_adjustment = c.adjustment;
    const bool to_subpicture = real_job->kind == harness::JobKind::kConversion;
    const int pitch = to_subpicture ? c.subpicture_pitch : c.surface_pitch;
    Destination destination(job->*broken_plane().pointer, touched, broken_line.destination == 0 ? pitch : pitch >> 1);
    real_job->call(fakes, c, job);
    const int width = real_job->kind == harness::JobKind::kDrawer ? c.picture_pitch : c.width;
    if (applies(width) && touched.size() > 0) destination.break_line();
}

} // namespace

harness::Export breaking(const harness::Export& real)
{
    real_export = &real;
    harness::Export fake = real;
    fake.model = imitate;
    fake.call = call;
    return fake;
}

harness::JobExport breaking(const harness::JobExport& real)
{
    real_job = &real;
    harness::JobExport fake = real;
    fake.model = imitate_job;
    fake.call = call_job;
    return fake;
}

} // namespace selfcheck
