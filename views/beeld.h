// The derived views of the curve: its Bezier notation and the two colouring views (the segments
// a control point acts on, the control points acting on a segment).
#pragma once

#include "platform/main_window.h"

namespace zw {

class Beeld {
  public:
    explicit Beeld(MainWindow& window) : window_(window) {}

  private:
    [[maybe_unused]] MainWindow& window_;
};

}  // namespace zw
