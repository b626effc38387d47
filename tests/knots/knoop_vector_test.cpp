#include <gtest/gtest.h>

#include <vector>

#include "headless_window.h"
#include "test_support.h"

namespace zw {
namespace {

// A knot vector with the given values (and the spare slot at 0) for a polygon of order k with
// n + 1 points.
struct Knots {
    Knots(float k, float n, const std::vector<double>& values) {
        w.polygoon().orde = k;
        w.polygoon().graad = n;
        w.vec().dimensioneer_knopenvector(static_cast<double>(values.size()));
        for (std::size_t i = 0; i < values.size(); ++i) {
            w.vec().zet_knoop(static_cast<float>(i), values[i]);
        }
    }
    std::vector<double> all() {
        std::vector<double> v;
        for (float i = 0; i < w.vec().knopenlengte; ++i) {
            v.push_back(w.vec().knoop(i));
        }
        return v;
    }
    HeadlessWindow w;
};

TEST(KnoopVector, UniformStartsTheRangeAtZero) {
    Knots knots(4, 3, std::vector<double>(8, 9.0));
    knots.w.vec().zet_uniform();
    EXPECT_EQ(knots.all(), (std::vector<double>{-3, -2, -1, 0, 1, 2, 3, 4}));
    EXPECT_FALSE(knots.w.vec().openuniform);
}

TEST(KnoopVector, OpenUniformClampsTheEndsUnevenly) {
    Knots knots(3, 4, std::vector<double>(8, 0.0));
    knots.w.vec().zet_open_uniform();
    const std::vector<double> v = knots.all();
    const double step = (v[5] - v[2]) / 3;
    EXPECT_EQ(v[0], -2.0);
    EXPECT_EQ(v[1], -2.0 + 1e-6);
    EXPECT_EQ(v[2], -2.0 + 2e-6);
    EXPECT_EQ(v[3], v[2] + 1 * step);
    EXPECT_EQ(v[4], v[2] + 2 * step);
    EXPECT_EQ(v[5], 5.0 - 4e-6);
    EXPECT_EQ(v[6], 5.0 - 3e-6);
    EXPECT_EQ(v[7], 5.0);
    EXPECT_TRUE(knots.w.vec().openuniform);
}

TEST(KnoopVector, OpenUniformOfABezierCurveHasNoInteriorKnots) {
    Knots knots(4, 3, std::vector<double>(8, 0.0));
    knots.w.vec().zet_open_uniform();
    const std::vector<double> v = knots.all();
    EXPECT_EQ(v[3], -3.0 + 3e-6);
    EXPECT_EQ(v[4], 4.0 - 5e-6);
}

TEST(KnoopVector, OpenUniformFailsOnVectorsTooShortForTheOrder) {
    // Too short to hold knot h + k - 1: the size check raises the subscript error.
    Knots tooShort(4, 0, std::vector<double>(4, 0.0));
    EXPECT_EQ(errorOf([&] { tooShort.w.vec().zet_open_uniform(); }), kErrSubscript);
    // L = 2k - 1 leaves -1 interior knots: both clamps end on knot k - 1 and the step is 0 / 0.
    Knots noRange(4, 2, std::vector<double>(7, 0.0));
    EXPECT_EQ(errorOf([&] { noRange.w.vec().zet_open_uniform(); }), kErrOverflow);
}

TEST(KnoopVector, InsertionKeepsTheVectorStrictlyIncreasing) {
    struct Case {
        double t;
        std::vector<double> expected;
        double tAfter;
    };
    const Case cases[] = {
        {1.0, {0, 1, 1.000001, 2, 3}, 1.000001},
        {1.5, {0, 1, 1.5, 2, 3}, 1.5},
        {3.5, {0, 1, 2, 3, 3.5}, 3.5},
        {-1.0, {-1, 0, 1, 2, 3}, -1.0},
        {3.0, {0, 1, 2, 3, 3.000001}, 3.000001},
    };
    for (const Case& c : cases) {
        Knots knots(2, 1, {0, 1, 2, 3});
        double t = c.t;
        knots.w.vec().voeg_knooppunt_toe(t);
        EXPECT_EQ(knots.all(), c.expected) << c.t;
        EXPECT_EQ(t, c.tAfter) << c.t;
        EXPECT_EQ(knots.w.vec().knopenlengte, 5.0f);
    }
}

TEST(KnoopVector, GeefSegmentCountsFromOneAndPassesTheEnd) {
    Knots knots(4, 3, std::vector<double>(8, 0.0));
    knots.w.vec().zet_uniform();  // -3 .. 4, range [0, 1]
    const std::pair<double, float> cases[] = {
        {0.0, 1}, {0.5, 1}, {1.0, 2}, {-0.5, 1}, {3.5, 4}, {4.0, 4}, {99.0, 4},
    };
    for (const auto& [t, segment] : cases) {
        EXPECT_EQ(knots.w.vec().geef_segment(t), segment) << t;
    }
}

TEST(KnoopVector, VergelijkVectorFindsTheRunOfKnots) {
    struct Case {
        std::vector<double> vector;
        float count;
        float result;
        float countAfter;
    };
    const Case cases[] = {
        {{1, 2, 5}, 3, 3, 2},    // run of two, then a gap
        {{1, 2, 3}, 3, 4, 3},    // the whole list
        {{1, 2, 3}, 1, 2, 1},    // the count bounds the run
        {{1.5, 2, 3}, 3, 2, 0},  // not a knot: the first knot above it
        {{0, 2, 3}, 3, 1, 1},    // a run of one
        {{-1, 0, 1}, 3, 0, 0},   // before every knot
        {{2, 3, 4}, 3, 4, 2},    // the run stops at the spare slot
    };
    for (const Case& c : cases) {
        Knots knots(3, 0, {0, 1, 2, 3});
        Array<double> vector(static_cast<double>(c.vector.size()) - 1);
        for (std::size_t i = 0; i < c.vector.size(); ++i) {
            vector(static_cast<double>(i)) = c.vector[i];
        }
        float count = c.count;
        EXPECT_EQ(knots.w.vec().vergelijk_vector(count, vector), c.result) << c.vector[0];
        EXPECT_EQ(count, c.countAfter) << c.vector[0];
    }
}

TEST(KnoopVector, ZoekindexOnlyTellsAboveOrBelowTheFirstKnot) {
    Knots knots(2, 1, {0, 1, 2, 3});
    EXPECT_EQ(knots.w.vec().zoekindex(2.5), 0.0f);
    EXPECT_EQ(knots.w.vec().zoekindex(0.0), -1.0f);
    EXPECT_EQ(knots.w.vec().zoekindex(-5.0), -1.0f);
}

TEST(KnoopVector, BadIndexesRaiseTheSubscriptError) {
    Knots knots(2, 1, {0, 1, 2, 3});
    EXPECT_EQ(knots.w.vec().knoop(4.0f), 0.0);  // the spare slot exists
    EXPECT_EQ(errorOf([&] { knots.w.vec().knoop(5.0f); }), kErrSubscript);
    EXPECT_EQ(errorOf([&] { knots.w.vec().knoop(-1.0f); }), kErrSubscript);
    EXPECT_EQ(errorOf([&] { knots.w.vec().zet_knoop(6.0f, 1.0); }), kErrSubscript);
    // A value beyond every knot is compared with the spare slot and its run read past it.
    Array<double> beyond(2.0);
    beyond(0.0) = 7.0;
    float count = 3.0f;
    EXPECT_EQ(errorOf([&] { knots.w.vec().vergelijk_vector(count, beyond); }), kErrSubscript);
    EXPECT_EQ(errorOf([&] { knots.w.vec().dimensioneer_knopenvector(-2.0); }), kErrSubscript);
    EXPECT_EQ(errorOf([&] { knots.w.vec().dimensioneer_knopenvector(1e12); }), kErrOutOfMemory);
    EXPECT_EQ(errorOf([&] { knots.w.vec().dimensioneer_knopenvector(1e39); }), kErrOverflow);
    // geef_segment reads knots up to k + graad: a polygon longer than its knot vector.
    knots.w.polygoon().graad = 10;
    EXPECT_EQ(errorOf([&] { knots.w.vec().geef_segment(9.0); }), kErrSubscript);
}

}  // namespace
}  // namespace zw
