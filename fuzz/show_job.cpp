// SPDX-License-Identifier: MIT
// vsurf_show with members of any value: refused with the status that the model names and nothing written, or done
// exactly.
#include "frame/streaming.h"
#include "fuzz/drawn_job.h"
#include "model/show_status.h"
#include "show/dispatch.h"

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

void require(bool holds, const char* what, const vsurf_job* job)
{
    if (holds) return;
    char text[400];
    vsurf_explain(job, text, sizeof text);
    std::fprintf(stderr, "%s: %s\n", what, text);
    std::abort();
}

const vsurf::ShowKernels& any_kernels(FuzzedDataProvider& input)
{
    int number = input.ConsumeIntegralInRange(0, vsurf::show_isa_count - 1);
    while (!vsurf::show_isas[number].runs_here()) ++number;
    return *vsurf::show_isas[number].kernels;
}

bool is_bad_band(int band, int bands) { return bands < 1 || band < 0 || band >= bands; }

// In any room the text is cut, its length is not.
void explain(FuzzedDataProvider& input, const vsurf_job* job)
{
    const size_t length = vsurf_explain(job, nullptr, 0);
    const size_t room = input.ConsumeIntegralInRange<size_t>(1, length + 2);
    std::string text(room, '#');
    require(vsurf_explain(job, text.data(), room) == length, "another length", job);
    require(text.find('\0') == std::min(room - 1, length), "the text does not end where it should", job);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const size_t chosen_threshold = vsurf::streaming_threshold;
    FuzzedDataProvider input(data, size);
    const vsurf::ShowKernels& kernels = any_kernels(input);
    vsurf::streaming_threshold = input.ConsumeBool() ? 0 : chosen_threshold;
    fuzz::DrawnJob job(input);
    vsurf_status expected = model::mistake(job.get());
    if (expected == VSURF_OK && !job.allocate(input)) return 0; // good, and too large
    const bool may_overlap = expected == VSURF_OK && model::may_overlap(*job.get());
    if (expected == VSURF_OK && is_bad_band(job.band(), job.bands())) expected = VSURF_BAD_BAND;
    explain(input, job.get());

    const std::vector<fuzz::Block> before = job.memory();
    const std::vector<fuzz::Block> shown = expected == VSURF_OK ? job.memory_after_the_model() : before;
    const vsurf_status status = vsurf::show_band_with(kernels, job.get(), job.band(), job.bands());
    if (may_overlap && status == VSURF_OVERLAP) expected = status;
    require(status == expected, vsurf_status_text(status), job.get());
    require(job.memory() == (status == VSURF_OK ? shown : before), "memory differs", job.get());
    return 0;
}
