#include "platform/surface_events.h"

#include <algorithm>
#include <cfloat>
#include <cmath>

namespace zw {

namespace {

// Scale coordinates reach the handlers as Singles; a far-off point saturates rather than
// overflowing the conversion.
float toHandlerSingle(double value) {
    if (std::isnan(value)) {
        return 0.0f;
    }
    return static_cast<float>(std::clamp(value, -double{FLT_MAX}, double{FLT_MAX}));
}

}  // namespace

void SurfaceEvents::refresh() {
    // A copy, so that a handler that replaces itself does not pull the rug from under its own
    // call.
    const std::function<void()> handler = paintHandler_;
    if (handler) {
        handler();
    }
    notifyImageChanged();
}

void SurfaceEvents::deliverMouseDown(int button, int shift, double pixelX, double pixelY) {
    deliverMouse(mouseDown_, button, shift, pixelX, pixelY);
}

void SurfaceEvents::deliverMouseMove(int buttons, int shift, double pixelX, double pixelY) {
    deliverMouse(mouseMove_, buttons, shift, pixelX, pixelY);
}

void SurfaceEvents::deliverMouseUp(int button, int shift, double pixelX, double pixelY) {
    deliverMouse(mouseUp_, button, shift, pixelX, pixelY);
}

void SurfaceEvents::deliverMouseLeave() {
    const std::function<void()> call = mouseLeave_;
    if (call) {
        call();
    }
}

void SurfaceEvents::deliverMouse(const MouseHandler& handler, int button, int shift, double px,
                                 double py) {
    const MouseHandler call = handler;  // the handler may replace itself
    if (!call) {
        return;
    }
    const ScaleMapper& map = eventMapper();
    call(button, shift, toHandlerSingle(map.toScaleX(px)), toHandlerSingle(map.toScaleY(py)));
}

}  // namespace zw
