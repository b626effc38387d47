#include "platform/scale_mapper.h"

#include <cmath>

namespace zw {

ScaleMapper::ScaleMapper(double left, double top, double width, double height, double pixelWidth,
                         double pixelHeight)
    : left_(left),
      top_(top),
      width_(width),
      height_(height),
      pixelWidth_(pixelWidth),
      pixelHeight_(pixelHeight),
      xFactor_(stretch(1.0, pixelWidth, width)),
      yFactor_(stretch(1.0, pixelHeight, height)) {}

double ScaleMapper::toScaleX(double px) const {
    return left_ + stretch(px, width_, pixelWidth_);
}

double ScaleMapper::toScaleY(double py) const {
    return top_ + stretch(py, height_, pixelHeight_);
}

double ScaleMapper::widthToPixels(double length) const {
    return std::fabs(stretch(length, pixelWidth_, width_));
}

double ScaleMapper::heightToPixels(double length) const {
    return std::fabs(stretch(length, pixelHeight_, height_));
}

}  // namespace zw
