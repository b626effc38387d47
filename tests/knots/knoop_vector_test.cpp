#include <gtest/gtest.h>

#include <tuple>
#include <vector>

#include "headless_window.h"

namespace zw {
namespace {

// A knot vector with the given values (and the spare slot at 0) for a polygon of order k with
// n + 1 points.
struct Knots : HeadlessWindow {
    Knots(float k, float n, const std::vector<double>& values) {
        polygoon().orde = k;
        polygoon().graad = n;
        vec().dimensioneer_knopenvector(static_cast<double>(values.size()));
        for (std::size_t i = 0; i < values.size(); ++i) {
            vec().zet_knoop(static_cast<float>(i), values[i]);
        }
    }
};

TEST(KnoopVector, UniformAndOpenUniformKnots) {
    const double a = -2 + 2e-6;
    const double b = 5 - 4e-6;
    const double step = (b - a) / 3;
    const std::tuple<float, float, bool, std::vector<double>> cases[] = {
        {4, 3, false, {-3, -2, -1, 0, 1, 2, 3, 4}},
        // The clamps are no mirror images: the start steps up by 1e-6, the end down from 3e-6.
        {3, 4, true, {-2, -2 + 1e-6, a, a + step, a + 2 * step, b, 5 - 3e-6, 5}},
        // A Bezier curve: no interior knots.
        {4, 3, true, {-3, -3 + 1e-6, -3 + 2e-6, -3 + 3e-6, 4 - 5e-6, 4 - 4e-6, 4 - 3e-6, 4}},
    };
    for (const auto& [k, n, open, expected] : cases) {
        Knots w(k, n, std::vector<double>(8, 9.0));
        if (open) {
            w.vec().zet_open_uniform();
        } else {
            w.vec().zet_uniform();
        }
        EXPECT_EQ(w.knots(), expected) << k << " " << open;
        EXPECT_EQ(w.vec().openuniform, open);
    }
}

TEST(KnoopVector, OpenUniformFailsOnVectorsTooShortForTheOrder) {
    // Too short to hold knot h + k - 1: the size check raises the subscript error.
    Knots tooShort(4, 0, std::vector<double>(4, 0.0));
    EXPECT_EQ(errorOf([&] { tooShort.vec().zet_open_uniform(); }), kErrSubscript);
    // L = 2k - 1 leaves -1 interior knots: both clamps end on knot k - 1 and the step is 0 / 0.
    Knots noRange(4, 2, std::vector<double>(7, 0.0));
    EXPECT_EQ(errorOf([&] { noRange.vec().zet_open_uniform(); }), kErrOverflow);
}

TEST(KnoopVector, InsertionKeepsTheVectorStrictlyIncreasing) {
    const std::tuple<double, std::vector<double>, double> cases[] = {
        {1.0, {0, 1, 1.000001, 2, 3}, 1.000001}, {1.5, {0, 1, 1.5, 2, 3}, 1.5},
        {3.5, {0, 1, 2, 3, 3.5}, 3.5},           {-1.0, {-1, 0, 1, 2, 3}, -1.0},
        {3.0, {0, 1, 2, 3, 3.000001}, 3.000001},
    };
    for (const auto& [value, expected, stored] : cases) {
        Knots w(2, 1, {0, 1, 2, 3});
        double t = value;
        w.vec().voeg_knooppunt_toe(t);
        EXPECT_EQ(w.knots(), expected) << value;
        EXPECT_EQ(t, stored) << value;
    }
}

TEST(KnoopVector, GeefSegmentPassesTheEnd) {
    Knots w(4, 3, std::vector<double>(8, 0.0));
    w.vec().zet_uniform();  // -3 .. 4, range [0, 1]
    const std::pair<double, float> cases[] = {
        {0.0, 1}, {0.5, 1}, {1.0, 2}, {-0.5, 1}, {3.5, 4}, {4.0, 4}, {99.0, 4},
    };
    for (const auto& [t, segment] : cases) {
        EXPECT_EQ(w.vec().geef_segment(t), segment) << t;
    }
}

TEST(KnoopVector, VergelijkVectorFindsTheRunOfKnots) {
    const std::tuple<std::vector<double>, float, float, float> cases[] = {
        {{1, 2, 5}, 3, 3, 2},    // run of two, then a gap
        {{1, 2, 3}, 3, 4, 3},    // the whole list
        {{1, 2, 3}, 1, 2, 1},    // the count bounds the run
        {{1.5, 2, 3}, 3, 2, 0},  // not a knot: the first knot above it
        {{0, 2, 3}, 3, 1, 1},    // a run of one
        {{-1, 0, 1}, 3, 0, 0},   // before every knot
        {{2, 3, 4}, 3, 4, 2},    // the run stops at the spare slot
    };
    for (const auto& [vector, countBefore, result, countAfter] : cases) {
        Knots w(3, 0, {0, 1, 2, 3});
        float count = countBefore;
        EXPECT_EQ(w.vec().vergelijk_vector(count, arrayOf(vector)), result) << vector[0];
        EXPECT_EQ(count, countAfter) << vector[0];
    }
}

TEST(KnoopVector, BadIndexesRaiseTheSubscriptError) {
    Knots w(2, 1, {0, 1, 2, 3});
    EXPECT_EQ(w.vec().knoop(4.0f), 0.0);  // the spare slot exists
    EXPECT_EQ(errorOf([&] { w.vec().knoop(5.0f); }), kErrSubscript);
    EXPECT_EQ(errorOf([&] { w.vec().knoop(-1.0f); }), kErrSubscript);
    EXPECT_EQ(errorOf([&] { w.vec().zet_knoop(6.0f, 1.0); }), kErrSubscript);
    // A value beyond every knot is compared with the spare slot and its run read past it.
    float count = 3.0f;
    EXPECT_EQ(errorOf([&] { w.vec().vergelijk_vector(count, arrayOf({7, 0, 0})); }), kErrSubscript);
    EXPECT_EQ(errorOf([&] { w.vec().dimensioneer_knopenvector(-2.0); }), kErrSubscript);
    EXPECT_EQ(errorOf([&] { w.vec().dimensioneer_knopenvector(1e12); }), kErrOutOfMemory);
    EXPECT_EQ(errorOf([&] { w.vec().dimensioneer_knopenvector(1e39); }), kErrOverflow);
    // geef_segment reads knots up to k + graad: a polygon longer than its knot vector.
    w.polygoon().graad = 10;
    EXPECT_EQ(errorOf([&] { w.vec().geef_segment(9.0); }), kErrSubscript);
}

}  // namespace
}  // namespace zw
