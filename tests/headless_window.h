// The model's main window without widgets: owns the model objects in the window's order and
// counts the versions it is asked to record. Tests, benchmarks and fuzz targets drive the real
// model through it; the helpers of test_support.h come along.
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

class HeadlessWindow : public MainWindow {
  public:
    HeadlessWindow() = default;

    coordinaten& polygoon() override { return polygon_; }
    KnoopVector& vec() override { return vec_; }
    BlossomFunctie& evaluator() override { return evaluator_; }
    GewichtenForm& gewichten() override { return gewichten_; }
    void save() override { ++saves; }
    Surface& Doek() override { return doek_; }
    Surface& Knopen() override { return knopen_; }
    Surface& meng() override { return meng_; }
    Colour kleur(double i) override { return rgb(static_cast<int>(i) % 8, 0, 0); }

    // A curve of order k through the given points with a uniform (or open-uniform) knot vector,
    // every weight 1, as the editor would have it after the points were placed.
    void setCurve(int k, const std::vector<std::pair<float, float>>& points,
                  bool openUniform = false) {
        polygon_.dimensioneer_punten(static_cast<float>(points.size()));
        gewichten_.dimensioneer_gewichten(static_cast<float>(points.size()));
        float i = 0.0f;
        for (const auto& [x, y] : points) {
            polygon_.zet_punt(i, Punt(x, y));
            i += 1.0f;
        }
        polygon_.orde = static_cast<float>(k);
        vec_.dimensioneer_knopenvector(polygon_.graad + polygon_.orde + 1.0f);
        if (openUniform) {
            vec_.zet_open_uniform();
        } else {
            vec_.zet_uniform();
        }
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

    std::vector<double> knots() const {
        std::vector<double> v;
        for (float i = 0; i < vec_.knopenlengte; ++i) {
            v.push_back(vec_.knoop(i));
        }
        return v;
    }

    // The segments of the real range, knot k - 1 to knot L - k.
    int segments() const { return static_cast<int>(vec_.knopenlengte - 2 * polygon_.orde + 1); }

    // The curve point the editor draws at t: weighted and rounded, on the segment holding t; the
    // range's end belongs to no segment and is drawn on the last.
    Punt drawnPoint(double t) {
        const float s = std::min(vec_.geef_segment(t), static_cast<float>(segments()));
        return polygon_.zoek_coord(evaluator_.blossom(equalArgs(polygon_.orde, t), s), s - 1);
    }

    int saves = 0;

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
