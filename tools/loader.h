// The one place that calls the library: planes onto a surface.
#pragma once
#include "frame/dispatch.h"
#include "tools/controls.h"
#include "tools/picture.h"
#include "tools/surface.h"

namespace player {

class Loader {
public:
    explicit Loader(const vsurf::Isa& isa) : isa_(isa) {}

    const char* isa_name() const { return isa_.name; }
    void load(const Planes& picture, Surface& surface, const Controls& controls, bool half) const;

private:
    const vsurf::Isa& isa_;
};

} // namespace player
