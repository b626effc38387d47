// The settings a first start finds beside the program, and reading a settings file without the
// settings dialog (for the windows that have none).
//
// Records (4-byte Longs): 1 Datakleur, 2 krommekleur, 3 controlkleur, 4 doekkleur, 5 lijnkleur,
// 6 ControleStraal, 7 berngrootte, 8 segmentkleur, 9 the zoom factor (read at start, then
// replaced by the fixed factor 2), 10 Bezierkleur, 11 Reeel, 12 virtueel.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace zw {

constexpr int kInstellingen = 12;
using Instellingen = std::array<std::int32_t, kInstellingen>;

// A light canvas with clearly distinct colours for the curve, its knot points, the control
// points and the polygon, discs of 60 units and a blending pane of 3000.
const Instellingen& standaardInstellingen();

// Writes the default settings file unless one exists: that one holds the user's own settings.
void schrijfStandaardInstellingen(const std::string& bestand);

// The records of a settings file. A record the file does not hold reads as 0, as it would in
// the settings dialog; a file that cannot be read raises its run-time error.
Instellingen leesInstellingen(const std::string& bestand);

}  // namespace zw
