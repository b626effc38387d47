// Lines collected in pixels before they are painted: a run of line() calls that continue each
// other in one colour and width, or a fan of lines that all advance together (the blending
// pane's graphs). Each is thinned (platform/thin_polyline.h) and handed to a sink as polylines
// when something else is drawn, the scale changes, or the picture is read. Every line asked for
// is charged to the work meter and written to the log as it was asked.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/colour.h"
#include "platform/draw_log.h"
#include "platform/scale_mapper.h"
#include "platform/sink.h"
#include "platform/thin_polyline.h"
#include "platform/work_meter.h"

namespace zw {

class LineBatch {
  public:
    LineBatch(const WorkMeter& meter, DrawLog& log) : meter_(meter), log_(log) {}

    // Where the collected lines are painted, thinned to `tolerance` logical pixels; none (a
    // surface without pixels) keeps nothing. What is open is painted where it was going first.
    void setSink(Sink* sink, double tolerance);
    // True when a new run or fan was opened: there is something new to show.
    bool line(const ScaleMapper& map, const Pen& pen, double x1, double y1, double x2, double y2,
              Colour colour);
    // See Surface::lineFan.
    bool lineFan(const ScaleMapper& map, const Pen& pen, double x1, const float* y1, double x2,
                 const float* y2, std::size_t count, const Colour* colours,
                 std::size_t colourCount, std::size_t movedFrom, std::size_t movedTo);
    // Paints what is open.
    void flush();
    // Forgets what is open: it is about to be cleared anyway.
    void discard() { kind_ = Kind::kNone; }

  private:
    enum class Kind { kNone, kStroke, kFan };
    struct FanLine {
        ThinPolyline line;
        double fedX = 0.0;  // pixel x of the last point given to the polyline
    };
    // A line of the fan whose value moved, with its ends in pixels.
    struct Change {
        std::size_t i;
        double py1;
        double py2;
        std::uint32_t bits2;
    };

    bool continueStroke(const Pen& pen, double x1, double y1, double x2, double y2, Colour colour);
    bool continuesFan(int width, double x1, std::size_t count, const Colour* colours,
                      std::size_t colourCount) const;
    void chargeFan(const Pen& pen, double x1, const float* y1, double x2, const float* y2,
                   std::size_t count, const Colour* colours, std::size_t colourCount,
                   double across);
    void checkFanPromise(const float* y1, const float* y2, std::size_t count, std::size_t movedFrom,
                         std::size_t movedTo) const;
    bool mapFan(const ScaleMapper& map, int width, const float* y1, const float* y2,
                std::size_t from, std::size_t to, bool continues);
    void startFan(int width, double x2, double px1, double px2, std::size_t count,
                  const Colour* colours, std::size_t colourCount);
    void extendFan(double x2, double px1, double px2);
    void logLine(const Pen& pen, double x1, double y1, double x2, double y2, Colour colour);
    void paint(Colour colour);

    const WorkMeter& meter_;
    DrawLog& log_;
    Sink* sink_ = nullptr;
    double tolerance_ = 0.125;

    Kind kind_ = Kind::kNone;
    int width_ = 1;
    // The scale of the open run or fan: a new scale paints what is open first.
    ScaleMapper map_;
    // The run of lines: its colour, where its last line ended (scale units), its points.
    Colour colour_ = 0;
    double endX_ = 0.0;
    double endY_ = 0.0;
    ThinPolyline stroke_;
    // The fan: its colours, its x (scale units and pixels), each line's value as bits and its
    // polyline. A line whose value stays the same is given no points: it runs level from its
    // last point to the fan's x.
    std::vector<Colour> palette_;
    double fanX_ = 0.0;
    double fanPx_ = 0.0;
    std::vector<std::uint32_t> ends_;
    std::vector<FanLine> lines_;
    std::size_t kept_ = 0;

    // The changes of the last fan: the first changeCount_ entries. The storage only grows.
    std::vector<Change> changes_;
    std::size_t changeCount_ = 0;
    std::uint64_t movedCost_ = 0;  // the work of the changes' strokes
    std::vector<PixelPoint> points_;
};

}  // namespace zw
