#include <gtest/gtest.h>
#include <sisl.h>

#include <Eigen/Dense>
#include <cmath>
#include <fstream>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "headless_window.h"
#include "platform/files.h"
#include "platform/scripted_dialogs.h"
#include "platform/text.h"
#include "tools/wavelet_matrix.h"
#include "wavelet/wavelet.h"

namespace zw {
namespace {

static_assert(Wavelet::kKolommen == kWaveletMaxFijn && Wavelet::kRijen == kWaveletMaxGrof);

using Basis = std::unique_ptr<SISLCurve, void (*)(SISLCurve*)>;

// Every clamped B-spline of order k on `segments` segments as one SISL curve with the identity as
// coefficients: its value at t is the vector of all B-splines at t, and inserting knots turns the
// identity into the refinement matrix. SISL keeps both independent of the generator.
Basis basis(int k, int segments) {
    std::vector<double> u = clampedKnots(k, segments);
    const int n = segments + k - 1;
    Eigen::MatrixXd identity = Eigen::MatrixXd::Identity(n, n);
    return {newCurve(n, k, u.data(), identity.data(), 1, n, 1), freeCurve};
}

Eigen::VectorXd bsplines(SISLCurve* basis, double t) {
    Eigen::VectorXd v(basis->idim);
    int left = 0;
    int stat = 0;
    s1221(basis, 0, t, &left, v.data(), &stat);
    EXPECT_GE(stat, 0);
    return v;
}

// Every coarse segment split in half: row j gives fine control point j in coarse ones.
Eigen::MatrixXd refinement(int k, int e) {
    std::vector<double> middles;
    for (int s = 0; s < (1 << (e - 1)); ++s) {
        middles.push_back((2.0 * s + 1.0) / (1 << e));
    }
    SISLCurve* fine = nullptr;
    int stat = 0;
    s1018(basis(k, 1 << (e - 1)).get(), middles.data(), static_cast<int>(middles.size()), &fine,
          &stat);
    EXPECT_GE(stat, 0);
    const Basis owner(fine, freeCurve);
    return Eigen::Map<Eigen::MatrixXd>(fine->ecoef, fine->idim, fine->in).transpose();
}

// A directory with "Wavelet" and a curve of order k with the given segment count.
struct Step {
    Step(int k, int segments) {
        makeDirectory(dir.file("Wavelet"));
        std::mt19937 rng(static_cast<unsigned>(k * 100 + segments));
        w.setRandomCurve(rng, k, segments + k - 1, true);
    }
    void writeFile(const std::string& name, const std::string& text) const {
        std::ofstream(dir.file("Wavelet/" + name), std::ios::binary) << text;
    }
    TestDir dir;
    HeadlessWindow w;
    ScriptedDialogs dialogs;
    Wavelet wavelet{w, dialogs, dir.path()};
};

// Decomposing a refined curve gives the coarse one back, and the coarse curve is the L2 best
// approximation: the difference to the fine curve is orthogonal to every coarse B-spline. Every
// field of the generated table comes back through the editor's reader as the value of its text,
// and that text keeps the matrix to nearly full Double precision.
TEST(WaveletMatrix, UndoesRefinementIsTheBestApproximationAndReadsBackExactly) {
    std::mt19937 rng(7);
    std::uniform_real_distribution<double> x(-1.0, 1.0);
    for (int k = 1; k <= kWaveletMaxOrde; ++k) {
        for (int e = 1; e <= kWaveletMaxNiveau; ++e) {
            SCOPED_TRACE(waveletTableName(k, e));
            const Eigen::MatrixXd a = waveletDecomposition(k, e);
            const Eigen::MatrixXd r = refinement(k, e);
            ASSERT_EQ(a.cols(), r.rows());
            EXPECT_LT((a * r - Eigen::MatrixXd::Identity(a.rows(), a.rows())).cwiseAbs().maxCoeff(),
                      1e-9);

            const Eigen::VectorXd c =
                Eigen::VectorXd::NullaryExpr(a.cols(), [&] { return x(rng); });
            const Eigen::VectorXd p = a * c;
            Eigen::VectorXd inner = Eigen::VectorXd::Zero(a.rows());
            const Quadrature q = gaussLegendre(k + 1);  // one point more than the generator
            const double h = 1.0 / (1 << e);
            const Basis coarse = basis(k, 1 << (e - 1));
            const Basis fine = basis(k, 1 << e);
            for (int s = 0; s < (1 << e); ++s) {
                for (std::size_t n = 0; n < q.nodes.size(); ++n) {
                    const double t = h * (s + 0.5 + 0.5 * q.nodes[n]);
                    const Eigen::VectorXd b = bsplines(coarse.get(), t);
                    const double residual = bsplines(fine.get(), t).dot(c) - b.dot(p);
                    inner += 0.5 * h * q.weights[n] * residual * b;
                }
            }
            EXPECT_LT(inner.cwiseAbs().maxCoeff(), 1e-12);

            Step s(k, 1 << e);
            writeWaveletTable(s.dir.file("Wavelet"), k, e);
            s.wavelet.geef_coordinaten(static_cast<float>(k), static_cast<float>(1 << e));
            std::ifstream in(s.dir.file("Wavelet/" + waveletTableName(k, e)));
            std::string token;
            for (Eigen::Index i = 0; i < a.rows(); ++i) {
                for (Eigen::Index j = 0; j < a.cols(); ++j) {
                    ASSERT_TRUE(in >> token);
                    const double read = s.wavelet.tabel(i)(j);
                    ASSERT_EQ(read, val(token)) << token;
                    ASSERT_NEAR(read, a(i, j), 1e-13);
                }
            }
            EXPECT_FALSE(in >> token);
        }
    }
}

std::string field(const std::string& text) {
    return text + std::string(16 - text.size(), ' ');
}

// Order 2, two segments: rows of three. Fields are read from a character with code 44 to 58
// on, 16 characters at a time, whatever lies between them; a short file leaves the rest.
TEST(WaveletReader, SkipsSeparatorsReadsSixteenCharactersAndStopsAtTheEnd) {
    const struct {
        const char* name;
        std::string text;
        std::vector<double> fields;
    } cases[] = {
        {"letters, controls, other bytes",
         "Tabel\t" + field("0.5") + "\r\n;+<?@Z[`{~\xc3\xa9" + field("-.25E1") + "x" + field("9"),
         {0.5, -2.5, 9}},
        {"'+' and ';' skipped, ',' '/' ':' start a field",
         "+" + field("7") + ";" + field(",5") + field("/5") + field(":5"),
         {7, 0, 0, 0}},
        {"the 16th character belongs to the field, the 17th not; a cut-off last field",
         "1" + std::string(14, ' ') + "2" + field("3") + field("4") + "-1.5",
         {12, 3, 4, -1.5}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Step s(2, 2);
        s.writeFile("a.1.2", c.text);
        for (int n = 0; n < 6; ++n) {
            s.wavelet.tabel(n / 3)(n % 3) = 99.0;
        }
        s.wavelet.geef_coordinaten(2, 2);
        for (std::size_t n = 0; n < 6; ++n) {
            EXPECT_EQ(s.wavelet.tabel(n / 3)(n % 3), n < c.fields.size() ? c.fields[n] : 99.0) << n;
        }
    }
}

// The control points and weights, to see that a failed step changes nothing.
std::vector<double> stateOf(HeadlessWindow& w) {
    std::vector<double> state = w.knots();
    for (float i = 0; i <= w.polygoon().graad; ++i) {
        state.insert(state.end(), {w.polygoon().punten(i).X, w.polygoon().punten(i).Y,
                                   w.gewichten().gewicht(i)});
    }
    return state;
}

// Without the table, or with one that runs past the bounds, the curve stays as it was. A curve
// made by halving every segment of a coarse one (whole coordinates, any weights) comes back to the
// coarse curve: 8 segments of order 4 need a.3.4 and give 4 segments, 7 points, an open-uniform
// vector, and weights transformed with the same rows.
TEST(WaveletStep, ARefinedCurveGoesBackToItsCoarseOneAndABadTableChangesNothing) {
    Step s(4, 8);
    const std::vector<double> before = stateOf(s.w);
    s.wavelet.geef_coordinaten(4, 8);
    ASSERT_EQ(s.dialogs.messages().size(), 1u);
    EXPECT_EQ(s.dialogs.messages()[0].text,
              "de directory " + s.dir.path() + " \\Wavelet bestaat niet");
    EXPECT_EQ(stateOf(s.w), before);

    writeWaveletTable(s.dir.file("Wavelet"), 4, 3);
    HeadlessWindow coarse;
    std::mt19937 rng(3);
    coarse.setRandomCurve(rng, 4, 7, true);
    Eigen::MatrixXd c(7, 3);
    for (int i = 0; i < 7; ++i) {
        const Punt& p = coarse.polygoon().punten(static_cast<float>(i));
        c.row(i) << p.X, p.Y, std::exp2(i - 3.5);
    }
    const Eigen::MatrixXd f = refinement(4, 3) * c;
    for (int j = 0; j < 11; ++j) {
        s.w.polygoon().zet_punt(static_cast<float>(j),
                                Punt(static_cast<float>(f(j, 0)), static_cast<float>(f(j, 1))));
        s.w.gewichten().zet_gewichten(static_cast<float>(j), f(j, 2));
    }
    s.wavelet.geef_coordinaten(4, 8);
    EXPECT_EQ(s.w.segments(), 4);
    EXPECT_EQ(s.w.polygoon().graad, 6.0f);
    EXPECT_TRUE(s.w.vec().openuniform);
    EXPECT_EQ(s.w.knots(), coarse.knots());
    for (int i = 0; i < 7; ++i) {
        const Punt& p = s.w.polygoon().punten(static_cast<float>(i));
        EXPECT_EQ(p.X, c(i, 0)) << i;
        EXPECT_EQ(p.Y, c(i, 1)) << i;
        EXPECT_NEAR(s.w.gewichten().gewicht(static_cast<float>(i)), c(i, 2), 1e-9) << i;
    }

    Step t(1, 2);  // rows of two: the 145th field lies in row 72
    std::string text;
    for (int n = 0; n < 145; ++n) {
        text += field("0.5");
    }
    t.writeFile("a.1.1", text);
    const std::vector<double> tBefore = stateOf(t.w);
    EXPECT_EQ(errorOf([&] { t.wavelet.geef_coordinaten(1, 2); }), kErrSubscript);
    EXPECT_EQ(stateOf(t.w), tBefore);
}

}  // namespace
}  // namespace zw
