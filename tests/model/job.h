// SPDX-License-Identifier: MIT
// Subpicture jobs as the models see them: the memory behind the record's pointers, its numbers, and how far each
// pointer has moved. A model works on the job as the contract says the record is worked on: where a function lowers
// `height` in the record, it lowers `height` here.
#pragma once
#include "model/call.h"

namespace model {

struct JobPlanes {
    Plane picture_y, picture_u, picture_v;
    Plane alpha, y, u, v; // the subpicture
    Plane surface, surface_u, surface_v;
};

struct Job {
    int32_t picture_pitch, subpicture_pitch, surface_pitch, width, height;
    uint32_t color_key;
    Record contrast_info;
    State state;

    // How far the record's pointers have moved; the others never do.
    struct Moved {
        int64_t picture_u = 0, picture_v = 0;
        int64_t alpha = 0, y = 0, u = 0, v = 0;
    } moved = {};
};

#define VSURF_MODEL_JOB(name) void name(JobPlanes& planes, Job& job)
VSURF_MODEL_JOB(Convert_RGB32_To_AYUY2);
VSURF_MODEL_JOB(Convert_RGB24_To_AYUY2);
VSURF_MODEL_JOB(Convert_RGB16_565_To_AYUY2);
VSURF_MODEL_JOB(Restore_RGB32_To_Alpha);
VSURF_MODEL_JOB(Restore_RGB24_To_Alpha);
VSURF_MODEL_JOB(Restore_RGB16_565_To_Alpha);
VSURF_MODEL_JOB(load_subpicture_alpha_rgb32);
VSURF_MODEL_JOB(load_subpicture_alpha_rgb24);
VSURF_MODEL_JOB(load_subpicture_alpha_rgb16_565);
VSURF_MODEL_JOB(load_subpicture_yuy2_rgb32);
VSURF_MODEL_JOB(load_subpicture_yuy2_rgb24);
VSURF_MODEL_JOB(load_subpicture_yuy2_rgb16);
VSURF_MODEL_JOB(load_subpicture_yuy2_rgb32_ajust);
VSURF_MODEL_JOB(load_subpicture_yuy2_rgb24_ajust);
VSURF_MODEL_JOB(load_subpicture_yuy2_rgb16_ajust);
VSURF_MODEL_JOB(mix_ayuy2_yuy2_p_ajust);
VSURF_MODEL_JOB(mix_ayuy2_half_yuy2_p_ajust);
VSURF_MODEL_JOB(mix_ayuy2_yuy2_i_ajust);
VSURF_MODEL_JOB(mix_ayuy2_rgb32_p_ajust);
VSURF_MODEL_JOB(mix_ayuy2_rgb24_p_ajust);
VSURF_MODEL_JOB(mix_ayuy2_rgb16_p_ajust);
VSURF_MODEL_JOB(mix_ayuy2_rgb32_i_ajust);
VSURF_MODEL_JOB(mix_ayuy2_rgb24_i_ajust);
VSURF_MODEL_JOB(mix_ayuy2_rgb16_i_ajust);
VSURF_MODEL_JOB(mix_ayv12_yv12_p);
VSURF_MODEL_JOB(mix_ayv12_yv12_p_ajust);
VSURF_MODEL_JOB(mix_ayv12_yv12_i);
#undef VSURF_MODEL_JOB

} // namespace model
