// The settings a first start of the editor finds beside the program: a light canvas with clearly
// distinct colours for the curve, its knot points, the control points and the polygon, discs of
// 60 units and a blending pane of 3000.
#pragma once

#include <cstdint>
#include <string>

#include "platform/colour.h"
#include "platform/files.h"
#include "platform/record_file.h"

namespace zw {

// Writes the settings file unless one exists: that one holds the user's own settings.
inline void writeDefaultSettings(const std::string& path) {
    struct Record {
        int number;
        std::int32_t value;
    };
    // Record numbers as the settings dialog keeps them; record 9 (the zoom factor) is read at
    // start and then replaced by the fixed factor 2, so it only carries that value for
    // completeness.
    static const Record kDefaults[] = {
        {1, rgb(230, 126, 34)},    // knot points on the curve: orange
        {2, rgb(33, 97, 196)},     // the curve: deep blue
        {3, rgb(192, 57, 43)},     // control points: brick red
        {4, rgb(251, 251, 248)},   // canvas: warm white
        {5, rgb(150, 156, 166)},   // legs of the control polygon: slate grey
        {6, 60},                   // radius of a control-point disc
        {7, 3000},                 // side of the blending pane
        {8, rgb(39, 174, 96)},     // coloured segments: green
        {9, 2},                    // zoom factor
        {10, rgb(142, 68, 173)},   // Bezier notation: purple
        {11, rgb(33, 97, 196)},    // real knots: the curve's blue
        {12, rgb(170, 178, 192)},  // virtual knots: pale grey-blue
    };
    if (FileExists(path)) {
        return;
    }
    RecordFile file(path);
    for (const Record& r : kDefaults) {
        file.putLong(r.number, r.value);
    }
    file.close();
}

}  // namespace zw
