#include "platform/scale_box.h"

#include <cmath>

#include "platform/runtime_error.h"

namespace zw {

namespace {

void requireFinite(double value) {
    if (!std::isfinite(value)) {
        raise(kErrInvalidProperty);
    }
}

void requireExtent(double value) {
    if (!std::isfinite(value) || value == 0.0) {
        raise(kErrInvalidProperty);
    }
}

}  // namespace

ScaleBox::ScaleBox() {
    followSize();
}

void ScaleBox::scale(double x1, double y1, double x2, double y2) {
    requireFinite(x1);
    requireFinite(y1);
    requireExtent(x2 - x1);
    requireExtent(y2 - y1);
    setUserScale(x1, y1, x2 - x1, y2 - y1);
}

void ScaleBox::scaleDefault() {
    userScale_ = false;
    followSize();
}

void ScaleBox::copyScale(const ScaleBox& other) {
    if (!other.userScale_) {
        scaleDefault();
    } else if (!userScale_ || scaleLeft_ != other.scaleLeft_ || scaleTop_ != other.scaleTop_ ||
               scaleWidth_ != other.scaleWidth_ || scaleHeight_ != other.scaleHeight_) {
        setUserScale(other.scaleLeft_, other.scaleTop_, other.scaleWidth_, other.scaleHeight_);
    }
}

void ScaleBox::setScaleLeft(double value) {
    requireFinite(value);
    setUserScale(value, scaleTop_, scaleWidth_, scaleHeight_);
}

void ScaleBox::setScaleTop(double value) {
    requireFinite(value);
    setUserScale(scaleLeft_, value, scaleWidth_, scaleHeight_);
}

void ScaleBox::setScaleWidth(double value) {
    requireExtent(value);
    setUserScale(scaleLeft_, scaleTop_, value, scaleHeight_);
}

void ScaleBox::setScaleHeight(double value) {
    requireExtent(value);
    setUserScale(scaleLeft_, scaleTop_, scaleWidth_, value);
}

void ScaleBox::setPixels(int width, int height, double ratio) {
    pixelWidth_ = width;
    pixelHeight_ = height;
    devicePixelRatio_ = ratio;
    if (!userScale_) {
        followSize();
    }
    map_ = makeMapper();
}

void ScaleBox::setUserScale(double left, double top, double width, double height) {
    rescaling();
    userScale_ = true;
    scaleLeft_ = left;
    scaleTop_ = top;
    scaleWidth_ = width;
    scaleHeight_ = height;
    map_ = makeMapper();
}

void ScaleBox::followSize() {
    rescaling();
    scaleLeft_ = 0.0;
    scaleTop_ = 0.0;
    scaleWidth_ = pixelWidth_ * kTwipsPerPixel;
    scaleHeight_ = pixelHeight_ * kTwipsPerPixel;
    map_ = makeMapper();
}

ScaleMapper ScaleBox::makeMapper() const {
    return ScaleMapper(scaleLeft_, scaleTop_, scaleWidth_, scaleHeight_, pixelWidth_, pixelHeight_);
}

}  // namespace zw
