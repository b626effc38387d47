// A surface's events in the manner of the classic picture box: a paint event, and mouse events
// in scale units with the classic codes. The widget that shows a surface forwards its mouse
// events here and hears when there is something new to show.
#pragma once

#include <functional>
#include <utility>

#include "platform/scale_mapper.h"

namespace zw {

// What the widget showing a surface needs to hear about.
class SurfaceObserver {
  public:
    virtual ~SurfaceObserver() = default;
    // The image has new content: show it.
    virtual void imageChanged() = 0;
    // move() gave the surface a new place or size within its container.
    virtual void geometryChanged() = 0;
};

// Mouse handlers get the classic codes: button 1 left, 2 right, 4 middle (for a move, the
// buttons held, added up); shift 1 Shift, 2 Ctrl, 4 Alt; x and y in scale units.
using MouseHandler = std::function<void(int button, int shift, float x, float y)>;

class SurfaceEvents {
  public:
    void setPaintHandler(std::function<void()> handler) { paintHandler_ = std::move(handler); }
    void setMouseDownHandler(MouseHandler handler) { mouseDown_ = std::move(handler); }
    void setMouseMoveHandler(MouseHandler handler) { mouseMove_ = std::move(handler); }
    void setMouseUpHandler(MouseHandler handler) { mouseUp_ = std::move(handler); }
    void setMouseLeaveHandler(std::function<void()> handler) { mouseLeave_ = std::move(handler); }
    // Raises the paint event now, then has the view show the result.
    void refresh();
    // The view delivers mouse events in logical pixels of the surface.
    void deliverMouseDown(int button, int shift, double pixelX, double pixelY);
    void deliverMouseMove(int buttons, int shift, double pixelX, double pixelY);
    void deliverMouseUp(int button, int shift, double pixelX, double pixelY);
    // The pointer left the surface.
    void deliverMouseLeave();
    // The view of this surface, or none. It must deregister before it goes.
    void setObserver(SurfaceObserver* observer) { observer_ = observer; }

  protected:
    SurfaceEvents() = default;
    virtual ~SurfaceEvents() = default;
    SurfaceEvents(const SurfaceEvents&) = delete;
    SurfaceEvents& operator=(const SurfaceEvents&) = delete;

    SurfaceObserver* observer() const { return observer_; }
    // How the mouse's pixels become scale units.
    virtual const ScaleMapper& eventMapper() const = 0;
    void notifyImageChanged() {
        if (observer_ != nullptr) {
            observer_->imageChanged();
        }
    }
    void notifyGeometryChanged() {
        if (observer_ != nullptr) {
            observer_->geometryChanged();
        }
    }

  private:
    void deliverMouse(const MouseHandler& handler, int button, int shift, double px, double py);

    std::function<void()> paintHandler_;
    MouseHandler mouseDown_;
    MouseHandler mouseMove_;
    MouseHandler mouseUp_;
    std::function<void()> mouseLeave_;
    SurfaceObserver* observer_ = nullptr;
};

}  // namespace zw
