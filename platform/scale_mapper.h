// The mapping between a surface's user coordinates (its ScaleLeft, ScaleTop, ScaleWidth and
// ScaleHeight) and logical pixels.
#pragma once

namespace zw {

class ScaleMapper {
  public:
    // A mapper that sends everything to pixel 0 (no scale, no pixels).
    ScaleMapper() = default;
    // Widths and heights may be negative: a negative height makes y point up.
    ScaleMapper(double left, double top, double width, double height, double pixelWidth,
                double pixelHeight);

    // Scale units to pixels. A zero scale width or height maps everything to 0. Inline: every
    // drawn point passes here.
    // The factor is worked out once: a pixel position is off by at most a rounding, far below
    // anything a rasteriser shows.
    double toPixelX(double x) const { return xFactor_ == 0.0 ? 0.0 : (x - left_) * xFactor_; }
    double toPixelY(double y) const { return yFactor_ == 0.0 ? 0.0 : (y - top_) * yFactor_; }
    // Pixels to scale units. A zero pixel width or height maps everything to left or top.
    double toScaleX(double px) const;
    double toScaleY(double py) const;

    // The pixel length of a horizontal or vertical distance in scale units (a circle's radius is
    // horizontal). Lengths have no direction, so these are never negative.
    double widthToPixels(double length) const;
    double heightToPixels(double length) const;

  private:
    // offset * to / from, with a degenerate range (from == 0) mapping everything to 0 rather than
    // dividing by zero.
    static double stretch(double offset, double to, double from) {
        return from == 0.0 ? 0.0 : offset * to / from;
    }

    double left_ = 0.0;
    double top_ = 0.0;
    double width_ = 0.0;
    double height_ = 0.0;
    double pixelWidth_ = 0.0;
    double pixelHeight_ = 0.0;
    double xFactor_ = 0.0;  // pixels per scale unit
    double yFactor_ = 0.0;
};

}  // namespace zw
