#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <random>
#include <vector>

#include "geometry/mat.h"
#include "headless_window.h"

namespace zw {
namespace {

// The blossom recursion written out literally: every sub-list evaluated anew, 2^(k-1) terminal
// lists. The evaluator must return exactly these vectors, bit for bit.
Array<double> literalBlossom(HeadlessWindow& w, const Array<double>& args, float sigma) {
    const float k = w.polygoon().orde;
    const KnoopVector& vec = w.vec();
    Array<double> c(k);
    float q = k - 1;
    const float r = vec.vergelijk_vector(q, args);
    const bool settled = q > 0 && args(q - 1) >= vec.knoop(vec.knopenlengte - 1);
    if (settled || args(0) <= vec.knoop(0)) {
        return c;
    }
    if (q < k - 1) {
        // The knots A after the run and B before it each take a place in the list, which the last
        // argument u leaves: the blossom is affine in u between the two.
        const double A = vec.knoop(r);
        const double B = vec.knoop(r - q - 1);
        const double u = args(k - 2);
        Array<double> a1(k - 1);
        Array<double> a2(k - 1);
        for (float i = 0; i <= k - 2; ++i) {
            a1(i) = i == 0 ? B : args(i - 1);
            a2(i) = i < q ? args(i) : i == q ? A : args(i - 1);
        }
        const Array<double> c1 = literalBlossom(w, a1, sigma);
        const Array<double> c2 = literalBlossom(w, a2, sigma);
        const double w1 = (A - u) / (A - B);
        const double w2 = (u - B) / (A - B);
        for (float i = 0; i <= k - 1; ++i) {
            c(i) = c2(i) * w2 + c1(i) * w1;
        }
        return c;
    }
    float j = 0;
    while (j < k && !(j + sigma > 0 && args(0) == vec.knoop(j + sigma))) {
        ++j;
    }
    if (sigma < 0) {
        --j;
    }
    c(j) = 1.0;
    return c;
}

bool sameBits(const Array<double>& a, const Array<double>& b) {
    return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size() * sizeof(double)) == 0;
}

// The argument lists the editor hands to the evaluator, with their segment numbers.
std::vector<std::pair<std::vector<double>, float>> listsOf(HeadlessWindow& w, std::mt19937& rng) {
    const int k = static_cast<int>(w.polygoon().orde);
    const int L = static_cast<int>(w.vec().knopenlengte);
    const auto knot = [&](int i) { return w.vec().knoop(static_cast<float>(i)); };
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    std::vector<std::pair<std::vector<double>, float>> lists;
    for (int s = 1; s <= w.segments(); ++s) {
        const double a = knot(k + s - 2);
        const double b = knot(k + s - 1);
        // Curve points inside and at both ends of the segment.
        for (const double t : {a, a + (b - a) * unit(rng), a + (b - a) * unit(rng), b}) {
            lists.push_back({std::vector<double>(k, t), static_cast<float>(s)});
        }
        // Bezier points: a repeated k - 1 - j times, then b.
        for (int j = 0; j < k; ++j) {
            std::vector<double> bezier(k, b);
            std::fill(bezier.begin(), bezier.begin() + (k - 1 - j), a);
            lists.push_back({bezier, static_cast<float>(s)});
        }
        // Knot insertion: k - 2 knots, then the new value.
        std::vector<double> insertion(k, a + (b - a) * unit(rng));
        for (int m = 0; m + 2 < k; ++m) {
            insertion[m] = knot(s + 1 + m);
        }
        lists.push_back({insertion, static_cast<float>(s)});
    }
    // Control points: their own k - 1 knots, on every segment, also those they do not act on,
    // and on the virtual ones.
    for (int i = 0; i + k < L; ++i) {
        std::vector<double> control(k, 0.0);
        for (int m = 0; m + 1 < k; ++m) {
            control[m] = knot(i + 1 + m);
        }
        for (int s = 1 - k; s <= w.segments(); ++s) {
            lists.push_back({control, static_cast<float>(s)});
        }
    }
    // Lists outside the knots: the first argument at the first knot or below it, a run into the
    // last knot.
    for (const double first : {knot(0), knot(0) - 1, knot(L - 1)}) {
        lists.push_back({std::vector<double>(k, first), 1.0f});
    }
    // The left virtual range, with its negative segment numbers.
    for (int j = 1; j < k; ++j) {
        const double t = knot(j - 1) + (knot(j) - knot(j - 1)) * unit(rng);
        lists.push_back({std::vector<double>(k, t), static_cast<float>(j - k)});
    }
    return lists;
}

// Uniform, open-uniform and irregular knots, for every order the editor offers.
TEST(Blossom, EqualsTheLiteralRecursionBitForBit) {
    std::mt19937 rng(20261121);
    std::uniform_real_distribution<double> gap(0.05, 2.0);
    for (int k = 1; k <= 8; ++k) {
        for (const char form : {'u', 'o', 'i'}) {
            for (int extra = 0; extra <= 4; extra += 2) {
                HeadlessWindow w;
                w.setRandomCurve(rng, k, k + extra, form == 'o');
                double knot = -3.0;
                for (float i = 0; form == 'i' && i < w.vec().knopenlengte; ++i) {
                    w.vec().zet_knoop(i, knot);
                    knot += gap(rng);
                }
                for (const auto& [values, sigma] : listsOf(w, rng)) {
                    const Array<double> args = arrayOf(values);
                    const Array<double> expected = literalBlossom(w, args, sigma);
                    const Array<double> actual = w.evaluator().blossom(args, sigma);
                    ASSERT_TRUE(sameBits(expected, actual))
                        << "k " << k << " knots " << form << " sigma " << sigma
                        << " first argument " << values[0];
                }
            }
        }
    }
}

TEST(Blossom, BadOrdersAndListsRaiseRunTimeErrors) {
    HeadlessWindow w;
    w.setCurve(4, {{1000, 1000}, {1000, 5000}, {7000, 5000}, {7000, 1000}});
    EXPECT_EQ(errorOf([&] { w.evaluator().blossom(Array<double>(1.0), 1); }), kErrSubscript);
    for (const auto& [orde, error] :
         {std::pair{3.5f, kErrInvalidCall}, std::pair{-1.0f, kErrSubscript},
          std::pair{5000.0f, kErrOutOfMemory}}) {
        w.polygoon().orde = orde;
        EXPECT_EQ(errorOf([&] { w.evaluator().blossom(equalArgs(4, 0.5), 1); }), error) << orde;
    }
}

// Knot vectors that only a damaged file holds: falling, repeated, huge or not numbers at all.
// Whatever they do to the recursion, the call ends, with a vector or a run-time error.
TEST(Blossom, AnyKnotVectorEndsWithAVectorOrARunTimeError) {
    std::mt19937 rng(7);
    std::uniform_int_distribution<int> pick(0, 5);
    const double specials[] = {0.0, 1.0, -1.0, 1e308, -1e308, std::nan("")};
    int errors = 0;
    for (int round = 0; round < 400; ++round) {
        HeadlessWindow w;
        const int k = 2 + round % 7;
        w.setRandomCurve(rng, k, k + 3);
        std::uniform_real_distribution<double> value(-4.0, 4.0);
        for (float i = 0; i <= w.vec().knopenlengte; ++i) {
            w.vec().zet_knoop(i, pick(rng) == 0 ? specials[pick(rng)] : std::round(value(rng)));
        }
        std::vector<double> list(k);
        for (double& v : list) {
            v = std::round(value(rng));
        }
        errors += errorOf([&] { w.evaluator().blossom(arrayOf(list), 1 + pick(rng)); }) != 0;
    }
    EXPECT_GT(errors, 0);
}

double denseBest(HeadlessWindow& w, const Punt& q, int perSegment) {
    const float k = w.polygoon().orde;
    double best = HUGE_VAL;
    for (float s = 1; s <= w.segments(); ++s) {
        const double a = w.vec().knoop(k + s - 2);
        const double b = w.vec().knoop(k + s - 1);
        for (int i = 0; i <= perSegment; ++i) {
            const double t = a + (b - a) * i / perSegment;
            best = std::min(best, Mat().bereken_afstand(w.drawnPoint(t), q));
        }
    }
    return best;
}

// A curve without segments leaves the parameter alone.
TEST(ParameterSearch, FindsTheNearestDrawnPointOnAnyCurve) {
    HeadlessWindow none;
    none.setCurve(4, {{0, 0}, {100, 100}});
    double alone = 12.5;
    none.evaluator().zoek_twaarde(Punt(50, 50), alone);
    EXPECT_EQ(alone, 12.5);
    std::mt19937 rng(42);
    std::uniform_real_distribution<float> coordinate(0.0f, 10000.0f);
    std::uniform_real_distribution<double> exponent(-3.0, 3.0);
    for (int k = 2; k <= 8; ++k) {
        for (const bool openUniform : {false, true}) {
            HeadlessWindow w;
            w.setRandomCurve(rng, k, k + 3, openUniform);
            for (float i = 0; i <= w.polygoon().graad; ++i) {
                w.gewichten().zet_gewichten(i, std::exp2(exponent(rng)));
            }
            const double first = w.vec().knoop(k - 1.0f);
            const double last = w.vec().knoop(w.vec().knopenlengte - k);
            std::uniform_real_distribution<double> along(first, last);
            std::uniform_real_distribution<float> offset(-300.0f, 300.0f);
            for (int query = 0; query < 4; ++query) {
                // Anywhere on the canvas, or just beside the curve, where minima compete.
                Punt q(coordinate(rng), coordinate(rng));
                if (query % 2 == 1) {
                    const Punt on = w.drawnPoint(along(rng));
                    q = Punt(on.X + offset(rng), on.Y + offset(rng));
                }
                double t = -1e9;
                w.evaluator().zoek_twaarde(q, t);
                ASSERT_GE(t, first);
                ASSERT_LE(t, last);
                EXPECT_LE(Mat().bereken_afstand(w.drawnPoint(t), q), denseBest(w, q, 600) + 0.5)
                    << "k " << k << " open " << openUniform << " query " << q.X << "," << q.Y;
            }
        }
    }
}

}  // namespace
}  // namespace zw
