// The decomposition matrices of the wavelet step and the text form the editor reads them in.
//
// One step of a semi-orthogonal B-spline wavelet analysis: a clamped uniform curve of order k
// with 2^e segments is replaced by its L2 projection on the clamped uniform splines with
// 2^(e-1) segments. With N the fine and C the coarse B-splines, the coarse control points are
// A times the fine ones, A = Gc^-1 M, where Gc(i, l) = <C_i, C_l> is the coarse Gram matrix and
// M(i, j) = <C_i, N_j> the mixed inner products.
#pragma once

#include <Eigen/Dense>
#include <string>
#include <vector>

namespace zw {

// The editor's table bounds: 135 fine control points (order 8, 128 segments), 71 coarse ones.
constexpr int kWaveletMaxFijn = 135;
constexpr int kWaveletMaxGrof = 71;
constexpr int kWaveletMaxOrde = 8;
constexpr int kWaveletMaxNiveau = 7;

// Clamped knots on [0, 1] for order k and `segmenten` uniform segments: k zeros, the interior
// knots i / segmenten, k ones. The editor's open-uniform vector is an affine image of it, and
// B-spline curves and L2 projections do not change under an affine change of parameter.
std::vector<double> clampedKnots(int k, int segmenten);

// Gauss-Legendre rule with n points on [-1, 1]: exact for polynomials of degree 2n - 1.
struct Quadrature {
    std::vector<double> nodes;
    std::vector<double> weights;
};
Quadrature gaussLegendre(int n);

// A for order k and level e: (2^(e-1) + k - 1) rows, (2^e + k - 1) columns.
Eigen::MatrixXd waveletDecomposition(int k, int e);

// A number as the editor's reader takes it: a field starts at a sign, point or digit and spans
// 16 characters, of which the run time's Val reads as much as forms a number, skipping blanks.
// The text has at most 16 characters and as many significant digits as fit, in fixed or E
// notation, whichever gives more.
std::string waveletField(double x);

// The table text: a row per line, every field padded with blanks to 16 characters and followed
// by one blank (a line feed after the last of the row), so that no field's 16 characters reach
// into the next number.
std::string waveletTableText(const Eigen::MatrixXd& a);

// "a.<e>.<k>".
std::string waveletTableName(int k, int e);

// Writes the table of order k and level e into `directory` (which must exist); throws
// std::runtime_error when the file cannot be written.
void writeWaveletTable(const std::string& directory, int k, int e);

}  // namespace zw
