// The wavelet step: replaces an open-uniform curve of 2^e segments by its least-squares
// approximation with half as many segments, from decomposition tables kept in "Wavelet" beside
// the program.
//
// The table for order k and 2^e segments is the text file "Wavelet/a.<e>.<k>": row i holds the
// shares of the fine control points 0 .. k + 2^e - 2 in coarse control point i. The program only
// reads the tables; the build writes them (tools/wavelet_tables).
#pragma once

#include <string>

#include "platform/array.h"
#include "platform/dialogs.h"
#include "platform/main_window.h"

namespace zw {

class Wavelet {
  public:
    // The largest table: 135 fine control points (order 8, 128 segments) and 71 coarse ones.
    static constexpr float kKolommen = 135.0f;
    static constexpr float kRijen = 71.0f;

    // One coarse control point before it is rounded, with its weight.
    struct GrofPunt {
        double x = 0.0;
        double y = 0.0;
        double gewicht = 0.0;
    };

    Wavelet(MainWindow& window, Dialogs& dialogs, std::string programDirectory);

    // tabel(i)(j): the share of fine control point j in coarse point i. Rows 0 .. 70, columns
    // 0 .. 134; an index past them raises error 9.
    Array<Array<double>> tabel;
    // The coarse control points and weights of the last step, rows 0 .. 70.
    Array<GrofPunt> resultaat;
    // Control points of the current curve (orde + segments - 1), also the row length of the table.
    float aantal_fijn = 0.0f;
    // Control points of the coarse curve (segments / 2 + orde - 1).
    float aantal_grof = 0.0f;

    // Replaces the curve of the main window (order `orde`, `aantal_segmenten` segments) by the
    // coarse one with an open-uniform knot vector. Without the table it shows "de directory ...
    // \Wavelet bestaat niet" and changes nothing.
    void geef_coordinaten(float orde, float aantal_segmenten);
    // Whether the curve's segment count is 2, 4, ..., 128: log2 of it compared exactly with the
    // whole numbers 1 .. 7. A count below 1 raises error 5, as the logarithm of it does.
    bool segmenten_macht_van_2() const;

  private:
    // Fills tabel from the file of this order and segment count; false when there is none.
    bool lees_tabel(float orde, float aantal_segmenten);
    // Sets the counts, reads the table and fills resultaat; false when the table is missing.
    bool bereken_grof(float orde, float aantal_segmenten);

    MainWindow& window_;
    Dialogs& dialogs_;
    std::string programDirectory_;
};

}  // namespace zw
