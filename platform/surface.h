// A drawing surface in the manner of the classic picture box: a user coordinate system and a size
// (platform/scale_box.h), a paint event and mouse events in scale units
// (platform/surface_events.h), a pen and fill, a place within its container, and the drawing
// primitives. Everything the program draws goes through a Surface, which hands it on in pixels:
// lines collected and thinned (platform/line_batch.h), circles and texts as they come, to its
// raster (what a widget shows: imageOf in platform/qimage_sink.h) or, while one is attached, to
// a figure. The primitives as they were asked for go to the log the tests read
// (platform/draw_log.h), and their work to the action's meter (platform/work_meter.h).
//
// Plain C++: the platform's sinks are the only part that knows its painter.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/colour.h"
#include "platform/draw_log.h"
#include "platform/line_batch.h"
#include "platform/scale_box.h"
#include "platform/sink.h"
#include "platform/surface_events.h"
#include "platform/werk.h"
#include "platform/work_meter.h"

namespace zw {

class Surface : public ScaleBox, public SurfaceEvents {
  public:
    Surface();
    ~Surface() override;

    // --- Size of the drawing area in logical pixels (0..32767) -------------------------------
    // A new size or pixel ratio loses the image: it is cleared to the background colour.
    void setPixelSize(int width, int height);
    void setDevicePixelRatio(double ratio);

    // --- Drawing (coordinates in scale units) --------------------------------------------------
    void cls();
    // Setting the background clears the surface.
    void setBackColour(Colour colour);
    Colour backColour() const { return backColour_; }
    void line(double x1, double y1, double x2, double y2, Colour colour);
    // For i = 0 .. count - 1 a line from (x1, y1[i]) to (x2, y2[i]) in colours[i % colourCount]:
    // what `count` calls of line() draw, in that order. A fan that starts where the open one
    // ended continues its lines, and the caller may promise that those outside [movedFrom,
    // movedTo) start where the open fan left them and stay level: such a fan costs only its
    // moving lines. With the log on the promise is checked, and a broken one raises error 51.
    // colourCount must not be 0.
    void lineFan(double x1, const float* y1, double x2, const float* y2, std::size_t count,
                 const Colour* colours, std::size_t colourCount, std::size_t movedFrom,
                 std::size_t movedTo);
    // The radius is in horizontal scale units; the circle is round in pixels. Drawn `times` times
    // over itself at the cost of once: what is opaque stays so, and the antialiased rim builds up
    // as repeated drawing builds it. Zero times draws nothing.
    void circle(double x, double y, double radius, Colour colour, std::uint32_t times = 1);
    // A short text (UTF-8) at (x, y), `points` large however the scale zooms (1 .. 400, else
    // error 380), anchored there along the text and centred on it across.
    void text(double x, double y, const std::string& utf8, Colour colour, double points,
              TextAnchor anchor = TextAnchor::kLeft);
    void setDrawWidth(int pixels);  // 1..32767, else error 380
    int drawWidth() const { return pen_.width; }
    void setFillStyle(int style);  // 0..7, else error 380; only 0 (solid) fills
    int fillStyle() const { return pen_.fillStyle; }
    void setFillColour(Colour colour) { pen_.fillColour = colour; }
    Colour fillColour() const { return pen_.fillColour; }

    // --- Where it goes -------------------------------------------------------------------------
    // The log, kept only while logging is on; switching it off empties it.
    void setLogging(bool on) { log_.setOn(on); }
    bool logging() const { return log_.on(); }
    const std::vector<DrawRecord>& log() const { return log_.records(); }
    // While a figure is attached, every background, line run, circle and text goes to it instead
    // of the raster: a drawing can be taken without touching what the screen shows. None
    // detaches it. The figure must outlive its attachment.
    void setFigure(Sink* figure);
    // The raster the surface shows; finish() first paints the lines it has collected.
    const RasterSink& raster() const { return *raster_; }
    void finish() const { batch_.flush(); }
    // A transparent layer over this surface, made on first use, of its pixels and scale (taken
    // again at every call), shown over it by its widget and drawn after it into a figure: what
    // changes often (a view that follows the mouse) is drawn there, over a picture kept below.
    Surface& overlay();
    const Surface* overlayIfAny() const { return overlay_.get(); }

    // --- Placement within the container --------------------------------------------------------
    // The surface this one lies on, whose scale units move() uses; none means twips. The
    // container must outlive this surface.
    void setContainer(const Surface* container) { container_ = container; }
    const Surface* container() const { return container_; }
    // Place and size in the container's units at the time of the call. A width or height of 0
    // leaves nothing to see; a negative one raises error 380.
    void move(double left, double top, double width, double height);
    double left() const { return left_; }
    double top() const { return top_; }
    double width() const { return width_; }
    double height() const { return height_; }
    int pixelLeft() const { return pixelLeft_; }
    int pixelTop() const { return pixelTop_; }

  private:
    bool resizeImage(int width, int height, double ratio);
    double containerWidthOf(int pixels) const;
    double containerHeightOf(int pixels) const;
    void rescaling() override { batch_.flush(); }
    const ScaleMapper& eventMapper() const override { return mapper(); }
    // Where primitives go now: the figure, the raster, or nowhere without pixels.
    Sink* sink() const;
    void aimBatch();
    DiscStyle discStyle(Colour colour, std::uint32_t times) const;

    bool transparent_ = false;  // an overlay: cleared to nothing
    std::unique_ptr<Surface> overlay_;
    WorkMeter meter_;
    DrawLog log_;
    std::unique_ptr<RasterSink> raster_;
    Sink* figure_ = nullptr;
    bool drawable_ = false;  // the surface has pixels
    mutable LineBatch batch_{meter_, log_};

    Colour backColour_ = kWhite;
    Pen pen_;

    const Surface* container_ = nullptr;
    double left_ = 0.0;
    double top_ = 0.0;
    double width_ = 0.0;
    double height_ = 0.0;
    int pixelLeft_ = 0;
    int pixelTop_ = 0;
};

}  // namespace zw
