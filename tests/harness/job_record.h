// SPDX-License-Identifier: MIT
// The fields of a job's record, to go through them.
#pragma once
#include "harness/job_exports.h"

#include <iterator>

namespace harness {

// A plane to the model, in the record, and how far the model moves its pointer, if it ever does.
struct PlaneField {
    const char* name;
    model::Plane model::JobPlanes::*plane;
    unsigned char* MIX_INFO::*pointer;
    int64_t model::Job::Moved::*moved = nullptr;
};

inline constexpr PlaneField kPlaneFields[kJobPlanes] = {
    {"picture_y", &model::JobPlanes::picture_y, &MIX_INFO::picture_y},
    {"picture_u", &model::JobPlanes::picture_u, &MIX_INFO::picture_u, &model::Job::Moved::picture_u},
    {"picture_v", &model::JobPlanes::picture_v, &MIX_INFO::picture_v, &model::Job::Moved::picture_v},
    {"subpic_alpha", &model::JobPlanes::alpha, &MIX_INFO::subpic_alpha, &model::Job::Moved::alpha},
    {"subpic_y", &model::JobPlanes::y, &MIX_INFO::subpic_y, &model::Job::Moved::y},
    {"subpic_u", &model::JobPlanes::u, &MIX_INFO::subpic_u, &model::Job::Moved::u},
    {"subpic_v", &model::JobPlanes::v, &MIX_INFO::subpic_v, &model::Job::Moved::v},
    {"surface", &model::JobPlanes::surface, &MIX_INFO::surface},
    {"surface_u", &model::JobPlanes::surface_u, &MIX_INFO::surface_u},
    {"surface_v", &model::JobPlanes::surface_v, &MIX_INFO::surface_v},
};

// The record's other fields are the key and the pointer to the adjustments.
struct NumberField {
    const char* name;
    int32_t MIX_INFO::*number;
};

inline constexpr NumberField kNumberFields[] = {
    {"picture_pitch", &MIX_INFO::picture_pitch},
    {"subpicture_pitch", &MIX_INFO::subpicture_pitch},
    {"surface_pitch", &MIX_INFO::surface_pitch},
    {"width", &MIX_INFO::width},
    {"height", &MIX_INFO::height},
    {"reserved1", &MIX_INFO::reserved1},
    {"reserved2", &MIX_INFO::reserved2},
};

static_assert(std::size(kPlaneFields) + std::size(kNumberFields) + 2 == 19);

} // namespace harness
