// The model's main window without widgets: owns the model objects in the window's order and
// records no versions. Tests, benchmarks and fuzz targets drive the real
// model through it; the helpers of test_support.h come along. The curve helpers take any main
// window, the editor's too.
#pragma once

#include <algorithm>
#include <random>
#include <utility>
#include <vector>

#include "geometry/coordinaten.h"
#include "knots/knoop_vector.h"
#include "platform/main_window.h"
#include "platform/surface.h"
#include "spline/blossom_functie.h"
#include "test_support.h"
#include "weights/gewichten_form.h"

namespace zw {

// A curve of order k through the given points with a uniform (or open-uniform) knot vector,
// every weight 1, as the editor would have it after the points were placed.
inline void setCurve(MainWindow& w, int k, const std::vector<std::pair<float, float>>& points,
                     bool openUniform = false) {
    coordinaten& polygon = w.polygoon();
    polygon.dimensioneer_punten(static_cast<float>(points.size()));
    w.gewichten().dimensioneer_gewichten(static_cast<float>(points.size()));
    float i = 0.0f;
    for (const auto& [x, y] : points) {
        polygon.zet_punt(i, Punt(x, y));
        i += 1.0f;
    }
    polygon.orde = static_cast<float>(k);
    w.vec().dimensioneer_knopenvector(polygon.graad + polygon.orde + 1.0f);
    if (openUniform) {
        w.vec().zet_open_uniform();
    } else {
        w.vec().zet_uniform();
    }
}

// The segments of the real range, knot k - 1 to knot L - k.
inline int segments(MainWindow& w) {
    return static_cast<int>(w.vec().knopenlengte - 2 * w.polygoon().orde + 1);
}

// The curve point the editor draws at t: weighted and rounded, on the segment holding t; the
// range's end belongs to no segment and is drawn on the last.
inline Punt drawnPoint(MainWindow& w, double t) {
    const float s = std::min(w.vec().geef_segment(t), static_cast<float>(segments(w)));
    return w.polygoon().zoek_coord(w.evaluator().blossom(equalArgs(w.polygoon().orde, t), s),
                                   s - 1);
}

class HeadlessWindow : public MainWindow {
  public:
    // The tests read what was drawn: every surface keeps its log.
    HeadlessWindow() {
        for (Surface* s : {&doek_, &knopen_, &meng_, &gewichten_.Doek()}) {
            s->setLogging(true);
        }
    }

    coordinaten& polygoon() override { return polygon_; }
    KnoopVector& vec() override { return vec_; }
    BlossomFunctie& evaluator() override { return evaluator_; }
    GewichtenForm& gewichten() override { return gewichten_; }
    void save() override {}
    Surface& Doek() override { return doek_; }
    Surface& Knopen() override { return knopen_; }
    Surface& meng() override { return meng_; }
    Colour kleur(double i) override { return rgb(static_cast<int>(i) % 8, 0, 0); }

    void setCurve(int k, const std::vector<std::pair<float, float>>& points,
                  bool openUniform = false) {
        zw::setCurve(*this, k, points, openUniform);
    }

    // Whole coordinates up to 10000: exact in a Single, so every rounding seen is the model's.
    void setRandomCurve(std::mt19937& rng, int k, int count, bool openUniform = false) {
        std::uniform_int_distribution<int> coordinate(0, 10000);
        std::vector<std::pair<float, float>> points;
        for (int i = 0; i < count; ++i) {
            const auto x = static_cast<float>(coordinate(rng));
            points.emplace_back(x, static_cast<float>(coordinate(rng)));
        }
        setCurve(k, points, openUniform);
    }

    std::vector<double> knots() { return knotsOf(*this); }
    static std::vector<double> knotsOf(MainWindow& w) {
        std::vector<double> v;
        for (float i = 0; i < w.vec().knopenlengte; ++i) {
            v.push_back(w.vec().knoop(i));
        }
        return v;
    }

    int segments() { return zw::segments(*this); }
    Punt drawnPoint(double t) { return zw::drawnPoint(*this, t); }

  private:
    // Surfaces first: the model objects draw on them.
    Surface doek_;
    Surface knopen_;
    Surface meng_;
    coordinaten polygon_{*this};
    BlossomFunctie evaluator_{*this};
    KnoopVector vec_{*this};
    GewichtenForm gewichten_{*this};
};

}  // namespace zw
