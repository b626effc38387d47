// Figures of the canvas for lecture notes: what the canvas shows, at its zoom and its size in
// pixels, as an SVG or PDF file of real lines and circles, or as a PNG image at twice its pixel
// size. The blending pane comes along in its corner; the knot pane lies outside the canvas and
// does not. The editor's "Exporteren..." and the renderer share this one way of drawing.
#pragma once

#include <string>

#include <QImage>

namespace zw {

class Zwierlijn;

enum class Afbeeldingsoort { kSvg, kPdf, kPng };

// The kind a file name asks for by its extension (".svg", ".pdf", ".png", in any case); error 52
// for any other name.
Afbeeldingsoort afbeeldingsoort(const std::string& bestand);

// Draws the canvas once more, as its own refresh would, into the figure only, and writes it to
// the file. The curve, the history, the view (the screen's picture too) and every mark stay as
// they were. A canvas without pixels raises
// error 5; a file that cannot be written, its classic error (75, 76, or 61 when it is cut short).
void exporteerAfbeelding(Zwierlijn& venster, const std::string& bestand);

// The picture a PNG export holds, at twice the canvas' pixels (or at another pixel ratio),
// without a file.
QImage afbeeldingAlsBeeld(Zwierlijn& venster, double verhouding = 2.0);

}  // namespace zw
