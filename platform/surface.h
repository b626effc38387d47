// A drawing surface in the manner of the classic picture box: a user coordinate system (twips by
// default), lines and circles drawn antialiased into an image, a paint event and mouse events in
// scale units. Widgets only show a Surface and forward events to it; everything the program draws
// goes through here.
//
// Besides the raster the surface can keep a log of the primitives drawn since it was last
// cleared, so that what a drawing routine produced can be checked as geometry rather than as
// pixels. The log is the tests' instrument and off unless they switch it on: the blending pane
// alone asks for over a million lines per redraw.
//
// Lines that continue each other are painted together (platform/strokes.h), when something else
// is drawn or the image is asked for.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include <QColor>
#include <QImage>
#include <QPointF>

#include "platform/colour.h"
#include "platform/scale_mapper.h"
#include "platform/werk.h"

class QPainter;

namespace zw {

class VectorTarget;

// The screen's twips: 1440 to the inch at 96 logical pixels to the inch.
constexpr double kTwipsPerPixel = 15.0;

constexpr int kFillSolid = 0;
constexpr int kFillTransparent = 1;

// A classic colour as Qt's; only the low 24 bits count.
inline QColor toQColor(Colour c) {
    return QColor(redOf(c), greenOf(c), blueOf(c));
}
inline Colour fromQColor(const QColor& c) {
    return rgb(c.red(), c.green(), c.blue());
}

enum class DrawKind { kLine, kCircle };

// One primitive as it was asked for, in the scale units in force when it was drawn.
struct DrawRecord {
    DrawKind kind = DrawKind::kLine;
    // A line runs from (x1, y1) to (x2, y2); a circle has its centre at (x1, y1).
    double x1 = 0.0;
    double y1 = 0.0;
    double x2 = 0.0;
    double y2 = 0.0;
    double radius = 0.0;  // circles only, in horizontal scale units
    Colour colour = kBlack;
    int drawWidth = 1;
    int fillStyle = kFillTransparent;
    Colour fillColour = kBlack;
    // Circles only: how many times it was drawn over itself in one call.
    std::uint32_t times = 1;
};

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

class Surface {
  public:
    Surface();
    ~Surface();
    Surface(const Surface&) = delete;
    Surface& operator=(const Surface&) = delete;

    // --- Size of the drawing area in logical pixels (0..32767) -------------------------------
    // A new size or pixel ratio loses the image: it is cleared to the background colour.
    void setPixelSize(int width, int height);
    int pixelWidth() const { return pixelWidth_; }
    int pixelHeight() const { return pixelHeight_; }
    void setDevicePixelRatio(qreal ratio);
    qreal devicePixelRatio() const { return devicePixelRatio_; }

    // --- Coordinate system ---------------------------------------------------------------------
    // Corners (x1, y1) top left and (x2, y2) bottom right; switches to a user scale, which keeps
    // its rectangle when the surface is resized.
    void scale(double x1, double y1, double x2, double y2);
    // Back to twips, which follow the size.
    void scaleDefault();
    void setScaleLeft(double value);
    void setScaleTop(double value);
    void setScaleWidth(double value);   // 0 raises error 380
    void setScaleHeight(double value);  // 0 raises error 380
    double scaleLeft() const { return scaleLeft_; }
    double scaleTop() const { return scaleTop_; }
    double scaleWidth() const { return scaleWidth_; }
    double scaleHeight() const { return scaleHeight_; }
    bool hasUserScale() const { return userScale_; }
    // Made again whenever the scale or the size changes: every primitive asks for it.
    const ScaleMapper& mapper() const { return map_; }

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
    // as repeated drawing builds it, a pixel's coverage a becoming 1 - (1 - a)^times. Zero times
    // draws nothing.
    void circle(double x, double y, double radius, Colour colour, std::uint32_t times = 1);
    void setDrawWidth(int pixels);  // 1..32767, else error 380
    int drawWidth() const { return drawWidth_; }
    void setFillStyle(int style);  // 0..7, else error 380; only 0 (solid) fills
    int fillStyle() const { return fillStyle_; }
    void setFillColour(Colour colour) { fillColour_ = colour; }
    Colour fillColour() const { return fillColour_; }

    // The log, kept only while logging is on; switching it off empties it.
    void setLogging(bool on);
    bool logging() const { return logging_; }
    const std::vector<DrawRecord>& log() const { return log_; }
    // While a target is attached, every background, line run and circle goes to it, in logical
    // pixels, instead of into the image: a drawing can be taken without touching what the
    // screen shows. None detaches it. The target must outlive its attachment.
    void setVectorTarget(VectorTarget* target);

    // The raster so far. Drawing keeps one painter open across primitives; asking for the image
    // finishes it.
    const QImage& image() const;

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

    // --- Events --------------------------------------------------------------------------------
    void setPaintHandler(std::function<void()> handler) { paintHandler_ = std::move(handler); }
    void setMouseDownHandler(MouseHandler handler) { mouseDown_ = std::move(handler); }
    void setMouseMoveHandler(MouseHandler handler) { mouseMove_ = std::move(handler); }
    void setMouseUpHandler(MouseHandler handler) { mouseUp_ = std::move(handler); }
    // Raises the paint event now, then has the view show the result.
    void refresh();
    // The view delivers mouse events in logical pixels of the surface.
    void deliverMouseDown(int button, int shift, double pixelX, double pixelY);
    void deliverMouseMove(int buttons, int shift, double pixelX, double pixelY);
    void deliverMouseUp(int button, int shift, double pixelX, double pixelY);

    // The view of this surface, or none. It must deregister before it goes.
    void setObserver(SurfaceObserver* observer) { observer_ = observer; }

  private:
    bool resizeImage(int width, int height, qreal ratio);
    double containerWidthOf(int pixels) const;
    double containerHeightOf(int pixels) const;
    void followSize();
    ScaleMapper makeMapper() const;
    void setUserScale(double left, double top, double width, double height);
    // Rasterising costs by the pixels a primitive covers, and nothing beyond the image's
    // diagonal is drawn.
    std::uint64_t bedekt(double pixels) const {
        const double covered = pixels < 0.0 ? -pixels : pixels;
        if (covered < diagonal_) {
            return static_cast<std::uint64_t>(covered);
        }
        return covered == covered ? static_cast<std::uint64_t>(diagonal_) : 0;  // NaN covers none
    }
    // A line's work per pixel of its length: a wide line covers its width in pixels at each.
    std::uint64_t perPixel() const {
        return kWerkPerPixel * static_cast<std::uint64_t>(drawWidth_);
    }
    void logPrimitive(DrawKind kind, double x1, double y1, double x2, double y2, double radius,
                      Colour colour, std::uint32_t times = 1);
    void paint(const std::function<void(QPainter&)>& draw);
    QPainter& painter() const;
    // Paints the lines collected so far, or drops them when the image is cleared anyway.
    void flush() const;
    void paintRun(const std::vector<QPointF>& points, const QColor& colour, int width) const;
    void discard() const;
    bool continuesFan(double x1, std::size_t count, const Colour* colours,
                      std::size_t colourCount) const;
    bool continueStroke(double x1, double y1, double x2, double y2, Colour colour);
    void chargeFan(double x1, const float* y1, double x2, const float* y2, std::size_t count,
                   const Colour* colours, std::size_t colourCount, double across);
    void checkFanPromise(const float* y1, const float* y2, std::size_t count, std::size_t movedFrom,
                         std::size_t movedTo) const;
    bool mapFan(const ScaleMapper& map, const float* y1, const float* y2, std::size_t from,
                std::size_t to, bool continues) const;
    void startFan(double x2, double px1, double px2, std::size_t count, const Colour* colours,
                  std::size_t colourCount);
    void extendFan(double x2, double px1, double px2);
    void finishPainting() const;
    void deliverMouse(const MouseHandler& handler, int button, int shift, double px, double py);
    void notifyImageChanged();

    int pixelWidth_ = 0;
    int pixelHeight_ = 0;
    double diagonal_ = 0.0;  // in pixels: no primitive covers more
    ScaleMapper map_;
    qreal devicePixelRatio_ = 1.0;
    // Pending lines are painted into the image when it is asked for.
    mutable QImage image_;
    mutable std::unique_ptr<QPainter> painter_;

    bool userScale_ = false;
    double scaleLeft_ = 0.0;
    double scaleTop_ = 0.0;
    double scaleWidth_ = 0.0;
    double scaleHeight_ = 0.0;

    Colour backColour_ = kWhite;
    int drawWidth_ = 1;
    int fillStyle_ = kFillTransparent;
    Colour fillColour_ = kBlack;
    bool logging_ = false;
    std::vector<DrawRecord> log_;
    VectorTarget* target_ = nullptr;
    // Lines collected and not yet painted, and the disc images; see surface.cpp.
    struct Batch;
    std::unique_ptr<Batch> batch_;

    const Surface* container_ = nullptr;
    double left_ = 0.0;
    double top_ = 0.0;
    double width_ = 0.0;
    double height_ = 0.0;
    int pixelLeft_ = 0;
    int pixelTop_ = 0;

    std::function<void()> paintHandler_;
    MouseHandler mouseDown_;
    MouseHandler mouseMove_;
    MouseHandler mouseUp_;
    SurfaceObserver* observer_ = nullptr;
};

}  // namespace zw
