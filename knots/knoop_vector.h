// The knot vector of the curve: non-decreasing values, kept 1e-6 apart where they would coincide.
#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/array.h"
#include "platform/main_window.h"

namespace zw {

// The search of vergelijk_vector on plain storage, for the evaluator's inner loop: `knots` holds
// `knotCount` values of which the first `L` count, `vector` holds `vectorSize`. Every index is
// checked (error 9). A caller that knows the first `sortedPrefix` knots to be in order (none
// below its predecessor) lets the search bisect them; the result is the scan's from knot 0.
std::int32_t vergelijkRun(const double* knots, std::size_t knotCount, float L,
                          const double* vector, std::size_t vectorSize, float& count,
                          std::int32_t sortedPrefix = 0);

// Knots for the largest polygon of any order the editor evaluates; a longer vector comes only
// from a damaged file and is refused with error 7.
constexpr float kMaxKnopen = 131072.0f;

class KnoopVector {
  public:
    explicit KnoopVector(MainWindow& window);

    // Number of knots L; the array has one spare slot at index L.
    float knopenlengte = 0.0f;
    // The open-uniform form was applied last.
    bool openuniform = false;

    void zet_knoop(float index, double waarde);
    // Clamped ends, interior knots spread evenly over the range of the uniform vector.
    void zet_open_uniform();
    // Finds where vector(0) stands among the knots and how many leading entries of the vector
    // equal consecutive knots: on return `count` is that run's length (0 when vector(0) is no
    // knot) and the result the index just after the run.
    float vergelijk_vector(float& count, const Array<double>& vector) const;
    // The 1-based number of the segment that contains t.
    float geef_segment(double t) const;
    // 0 when t lies above the first knot, -1 otherwise. Nothing calls it.
    float zoekindex(double t) const;
    double knoop(float index) const;
    // The knot pane's x of the value u, on the number line of the whole knot range; the line's
    // start when the range has no length.
    double paneelX(double u) const;
    void dimensioneer_knopenvector(double lengte);
    // Inserts t in sorted place; a value equal to a knot goes 1e-6 above it, and so does t.
    void voeg_knooppunt_toe(double& t);
    // knot(i) = i - k + 1: the range of the curve starts at 0 with unit steps.
    void zet_uniform();
    void restart();

    // --- The knot pane (the window's `Knopen`) -----------------------------------------------------
    // Redraws the pane: the number line, a disc per knot (real or virtual colour) and a tick per
    // control point at its knot average.
    void teken_vector();
    // The index of the knot nearest to pane position x.
    float zoek_knooppunt(float x) const;
    // Moves interior knot `index` to the value under x, kept between its neighbours.
    void plaats_knooppunt(float x, float index);
    // Clears the pane and draws the number line.
    void teken_lijn();

    // All knots and the spare slot.
    const Array<double>& knopen() const { return knots_; }

  private:
    MainWindow& window_;
    Array<double> knots_;
};

}  // namespace zw
