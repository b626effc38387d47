// A surface's size in logical pixels and its coordinate system, in the manner of the classic
// picture box: twips by default, which follow the size, or a user scale given by its corners,
// which keeps its rectangle when the surface is resized.
#pragma once

#include "platform/scale_mapper.h"

namespace zw {

// The screen's twips: 1440 to the inch at 96 logical pixels to the inch.
constexpr double kTwipsPerPixel = 15.0;

class ScaleBox {
  public:
    int pixelWidth() const { return pixelWidth_; }
    int pixelHeight() const { return pixelHeight_; }
    double devicePixelRatio() const { return devicePixelRatio_; }

    // Corners (x1, y1) top left and (x2, y2) bottom right; switches to a user scale.
    void scale(double x1, double y1, double x2, double y2);
    // Back to twips, which follow the size.
    void scaleDefault();
    // The other's coordinate system, exactly.
    void copyScale(const ScaleBox& other);
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

  protected:
    ScaleBox();
    virtual ~ScaleBox() = default;
    ScaleBox(const ScaleBox&) = delete;
    ScaleBox& operator=(const ScaleBox&) = delete;

    void setPixels(int width, int height, double ratio);
    // The mapping is about to change: what was placed by the old one must be finished.
    virtual void rescaling() {}

  private:
    void setUserScale(double left, double top, double width, double height);
    void followSize();
    ScaleMapper makeMapper() const;

    int pixelWidth_ = 0;
    int pixelHeight_ = 0;
    double devicePixelRatio_ = 1.0;
    ScaleMapper map_;
    bool userScale_ = false;
    double scaleLeft_ = 0.0;
    double scaleTop_ = 0.0;
    double scaleWidth_ = 0.0;
    double scaleHeight_ = 0.0;
};

}  // namespace zw
