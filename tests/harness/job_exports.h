// SPDX-License-Identifier: MIT
// What the tests know of the exports for subpictures and colour keys.
#pragma once
#include "frame/dispatch.h"
#include "model/job.h"

#include <ostream>
#include <string>
#include <vector>

namespace harness {

struct JobCase;

// The planes of a job. A mask is where the picture's luma is.
enum JobPlane : size_t {
    kPictureY,
    kPictureU,
    kPictureV,
    kAlpha,
    kSubpictureY,
    kSubpictureU,
    kSubpictureV,
    kSurface,
    kSurfaceU,
    kSurfaceV,
    kJobPlanes
};

enum class JobKind {
    kConversion,  // a drawing into the subpicture's colours
    kRestore,     // a drawing into its alpha
    kAlphaDrawer, // alpha onto a surface
    kDrawer,      // the subpicture onto a surface: its line length is picture_pitch
    kMixer,       // onto a packed surface
    kPlanarMixer, // onto three planes
    kFill,
    kMask,
};

struct JobSizes {
    int least_width = 0, least_height = -2;
    bool signed_picture = true; // whether picture_pitch may be negative
    bool signed_width = false;
};

struct JobExport {
    const char* name;
    // A fill or mask takes its numbers from the case and its addresses from the record.
    void (*call)(const vsurf::Kernels&, const JobCase&, MIX_INFO*);
    void (*model)(model::JobPlanes&, model::Job&, const JobCase&);
    JobKind kind;
    int pixel_bytes; // at the surface, for a pixel of the subpicture
    JobSizes sizes = {};
    bool reads_layout = false;

    std::vector<JobPlane> destinations() const;
    bool works_in_place() const; // the surface may be the picture, or the mask
};

// In the order of the index, which lists them after those of `exports`.
const std::vector<JobExport>& job_exports();

inline void PrintTo(const JobExport& tested, std::ostream* out) { *out << tested.name; }

} // namespace harness
