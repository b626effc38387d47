// The evaluator: blossoming on coefficient vectors, knot insertion and the parameter search.
//
// Every operation reads the main window's current control polygon and knot vector afresh, so one
// evaluator serves whatever curve is being edited.
#pragma once

#include <array>
#include <memory>

#include "geometry/coordinaten.h"
#include "geometry/punt.h"
#include "platform/array.h"
#include "platform/main_window.h"

namespace zw {

class BlossomEngine;
struct KnotOrder;

class BlossomFunctie {
  public:
    explicit BlossomFunctie(MainWindow& window);

    // Step in the parameter between drawn samples; the window sets it from its detail setting.
    float stap = 0.2f;

    // The weights (entries 0 .. k-1) of control points segment - 1 .. segment + k - 2 in the
    // polar form of the k - 1 arguments; entry k is a spare that takes the 1.0 of a knot run that
    // names no control point of the segment.
    Array<double> blossom(const Array<double>& argumentenlijst, float segment) const;
    // The same into `c`, whose storage is reused when it has the size: the drawing loops call it
    // for every sample, with what they know of the knots they do not change (KnotOrder,
    // spline/point_blossom.h).
    void blossom(const Array<double>& argumentenlijst, float segment, KnotOrder& knopen,
                 Array<double>& c) const;
    // The index after the knot equal to t, searched from knot 1; 0 when no knot equals t.
    float zoek_controlepunt(double t) const;
    // Pairs blossom and bereken_punt with one and the same number. Nothing calls it.
    Punt zoek_punt(const Array<double>& argumentenlijst) const;
    // The polynomial point: control points begin, begin + 1, ... weighted by the coefficients.
    Punt bereken_punt(const Array<double>& coefficienten, float begin) const;
    // Inserts the knot t and replaces the polygon by the one of the refined knot vector.
    void maak_spline(double& t);
    // The parameter, within the real range, of the drawn curve point nearest to `punt`.
    void zoek_twaarde(const Punt& punt, double& t) const;
    // Splits every segment at the middle of its parameter interval.
    void splits_in_helft();

    // --- Drawing on the window's canvas ---------------------------------------------------------
    // The whole curve in `krommekleur`, three times as wide as the canvas line width, with its
    // knot points marked; with the blending view on, also the blending functions of the real
    // range into `meng`.
    void teken_spline();
    // Segments beginsegment .. eindsegment - 1 (counted from 0) in `segmentkleur`.
    void teken_spline_in_kleur(float beginsegment, float eindsegment);
    // The blending functions over the virtual ranges into `meng`: from the first knot to the
    // start of the real range (dimensioning the working arrays anew), and from the end of the
    // real range to the last knot (continuing from where teken_spline left them).
    void teken_linker_virtuele_mengfuncties();
    void teken_rechter_virtuele_mengfuncties();

    // The blending output's working state, shared by the drawers of the real and virtual ranges:
    // values (times 100) per control point of the current and the previous sample, and their x
    // positions in `meng`.
    Array<float> mengwaarden;
    Array<float> vorige_mengwaarden;
    float vorige_mengx = 0.0f;
    float mengx = 0.0f;

  private:
    // The x position of t in `meng`, whose scale runs over the whole knot range from 0 to 1e6.
    float mengpositie(double t) const;
    // The same with the first and last knot read once, for the samples of one drawing.
    struct Mengschaal {
        double eerste;
        double laatste;
        float positie(double t) const;
    };
    Mengschaal mengschaal() const;
    // The real range's values of segment s (counted from 0) into mengwaarden(s .. s + k - 1).
    void echte_mengwaarden(float s, float k, const Array<double>& c);
    // The colours of control points 0 .. 7, repeated for every further eight.
    std::array<Colour, 8> mengkleuren() const;
    // One sample of every blending function: the lines from the previous values to the current
    // ones, and the current ones become the previous. Only entries van .. tot - 1 were written
    // since the last sample; the first sample of each drawer takes them all.
    void trek_menglijnen(const std::array<Colour, 8>& kleuren, float van, float tot);
    // A virtual range of k - 1 knot intervals, sampled from t on: interval j (1 .. k - 1) ends
    // at knot `eindknoop` + j and has the segment number `segment` + j; coefficient i weighs
    // control point segment number + `punt` + i, drawn only from `onder` to `boven`.
    struct VirtueelBereik {
        float eindknoop;
        float segment;
        float punt;
        float onder;
        float boven;
    };
    void teken_virtueel_bereik(double t, const VirtueelBereik& bereik);

    MainWindow& window_;
    // The next sample is a drawer's first: the working arrays may differ anywhere.
    bool menglijnen_volledig_ = true;
    // The drawer's number of lines, and whether its arrays hold fewer than graad + 1 values.
    std::size_t menglijnen_ = 0;
    bool menglijnen_te_weinig_ = false;
    // The parameter search divides every segment into steps of this fraction of its length.
    float zoekfractie;
    // The parameter search subdivides at most this many intervals.
    float zoekgrens;
};

// The blossoms of several argument lists on one segment, each as BlossomFunctie::blossom gives
// it. While the knots stay as they are, the vector of a sub-list of the recursion depends on
// nothing but its entries: a sub-list common to several lists (the Bezier points of a segment
// share most of theirs) is evaluated once. The knots must not change while it lives. Blossoms of
// several segments in a row may share `geordend` (BlossomEngine), which starts negative.
class SegmentBlossom {
  public:
    SegmentBlossom(MainWindow& window, float segment, std::int32_t* geordend = nullptr);
    ~SegmentBlossom();
    SegmentBlossom(const SegmentBlossom&) = delete;
    SegmentBlossom& operator=(const SegmentBlossom&) = delete;

    // Into `c`, whose storage is reused when it has the size.
    void blossom(const Array<double>& argumentenlijst, Array<double>& c);

  private:
    std::int32_t k_;
    std::unique_ptr<BlossomEngine> engine_;
};

// The whole order k of the polygon. An order that is no whole number, which only a damaged file
// holds, raises error 5: it gives no curve.
std::int32_t wholeOrder(float orde);

}  // namespace zw
