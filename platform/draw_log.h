// The primitives a surface was asked for, as they were asked: in the scale units in force, each
// with the pen and fill of the moment, in order. What a drawing routine produced can so be
// checked as geometry rather than as pixels. The log is the tests' instrument and off unless they
// switch it on: the blending pane alone asks for over a million lines per redraw.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "platform/colour.h"
#include "platform/sink.h"

namespace zw {

constexpr int kFillSolid = 0;
constexpr int kFillTransparent = 1;

enum class DrawKind { kLine, kCircle, kText };

// The pen and fill in force when a primitive is asked for.
struct Pen {
    int width = 1;
    int fillStyle = kFillTransparent;
    Colour fillColour = kBlack;
};

struct DrawRecord {
    DrawKind kind = DrawKind::kLine;
    // A line runs from (x1, y1) to (x2, y2); a circle has its centre, a text its point, at
    // (x1, y1).
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
    // Texts only.
    std::string text{};
    double points = 0.0;
    TextAnchor anchor = TextAnchor::kLeft;
};

class DrawLog {
  public:
    // Switching it off empties it.
    void setOn(bool on) {
        on_ = on;
        if (!on) {
            std::vector<DrawRecord>().swap(records_);
        }
    }
    bool on() const { return on_; }
    void clear() { records_.clear(); }
    const std::vector<DrawRecord>& records() const { return records_; }
    void add(DrawRecord record) {
        if (on_) {
            records_.push_back(std::move(record));
        }
    }
    // A line or circle with the pen and fill of the moment.
    void add(DrawKind kind, double x1, double y1, double x2, double y2, double radius,
             Colour colour, const Pen& pen, std::uint32_t times = 1) {
        if (on_) {
            records_.push_back({kind, x1, y1, x2, y2, radius, colour, pen.width, pen.fillStyle,
                                pen.fillColour, times});
        }
    }

  private:
    bool on_ = false;
    std::vector<DrawRecord> records_;
};

}  // namespace zw
