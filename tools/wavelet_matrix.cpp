#include "tools/wavelet_matrix.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <fstream>
#include <stdexcept>
#include <system_error>

namespace zw {

namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr std::size_t kVeldBreedte = 16;

// The k B-splines of order k that do not vanish on [knots[span], knots[span + 1]), at t inside
// it: entry r belongs to B-spline span - k + 1 + r. The triangular scheme of Cox and de Boor.
std::vector<double> basisAt(const std::vector<double>& knots, int k, int span, double t) {
    const auto u = [&](int i) { return knots.at(static_cast<std::size_t>(i)); };
    std::vector<double> n(static_cast<std::size_t>(k), 0.0);
    std::vector<double> left(static_cast<std::size_t>(k), 0.0);
    std::vector<double> right(static_cast<std::size_t>(k), 0.0);
    n[0] = 1.0;
    for (int j = 1; j < k; ++j) {
        left[j] = t - u(span + 1 - j);
        right[j] = u(span + j) - t;
        double saved = 0.0;
        for (int r = 0; r < j; ++r) {
            const double temp = n[r] / (right[r + 1] + left[j - r]);
            n[r] = saved + right[r + 1] * temp;
            saved = left[j - r] * temp;
        }
        n[j] = saved;
    }
    return n;
}

// The significant digits of |x| rounded to `precision` of them, without trailing zeros, and the
// decimal exponent of the first: |x| ~ d0.d1d2... * 10^exponent.
struct Digits {
    std::array<char, 24> digits{};
    int count = 0;
    int exponent = 0;
};

Digits roundedDigits(double magnitude, int precision) {
    std::array<char, 40> buffer{};
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude,
                                      std::chars_format::scientific, precision - 1);
    if (result.ec != std::errc()) {
        throw std::runtime_error("number does not fit its buffer");
    }
    // buffer holds "d.ddde-05", or "de+00" for one digit.
    Digits d;
    const char* p = buffer.data();
    for (; *p != 'e'; ++p) {
        if (*p != '.') {
            d.digits[static_cast<std::size_t>(d.count++)] = *p;
        }
    }
    std::from_chars(p + (p[1] == '+' ? 2 : 1), result.ptr, d.exponent);
    while (d.count > 1 && d.digits[static_cast<std::size_t>(d.count - 1)] == '0') {
        --d.count;
    }
    return d;
}

int decimalLength(int exponent) {
    return static_cast<int>(std::to_string(exponent).size());
}

// Fixed notation; a magnitude below 1 goes without the zero before the point (".25").
int fixedLength(const Digits& d) {
    const int before = d.exponent + 1;
    if (before <= 0) {
        return 1 - before + d.count;
    }
    return before >= d.count ? before : d.count + 1;
}

std::string fixedForm(const Digits& d) {
    const std::string digits(d.digits.data(), static_cast<std::size_t>(d.count));
    const int before = d.exponent + 1;
    if (before <= 0) {
        return "." + std::string(static_cast<std::size_t>(-before), '0') + digits;
    }
    if (before >= d.count) {
        return digits + std::string(static_cast<std::size_t>(before - d.count), '0');
    }
    const auto split = static_cast<std::size_t>(before);
    return digits.substr(0, split) + "." + digits.substr(split);
}

// E notation with the shortest exponent ("1.25E-7"); Val reads any number of exponent digits.
int scientificLength(const Digits& d) {
    return d.count + (d.count > 1 ? 1 : 0) + 1 + decimalLength(d.exponent);
}

std::string scientificForm(const Digits& d) {
    std::string text(1, d.digits[0]);
    if (d.count > 1) {
        text += "." + std::string(d.digits.data() + 1, static_cast<std::size_t>(d.count - 1));
    }
    return text + "E" + std::to_string(d.exponent);
}

}  // namespace

std::vector<double> clampedKnots(int k, int segmenten) {
    std::vector<double> knots(static_cast<std::size_t>(k), 0.0);
    for (int i = 1; i < segmenten; ++i) {
        knots.push_back(static_cast<double>(i) / segmenten);
    }
    knots.insert(knots.end(), static_cast<std::size_t>(k), 1.0);
    return knots;
}

Quadrature gaussLegendre(int n) {
    Quadrature q;
    // The nodes are the roots of the Legendre polynomial P_n, found by Newton's method from
    // Tricomi's estimates; P_n and its derivative come from the three-term recurrence.
    for (int i = 0; i < n; ++i) {
        double x = std::cos(kPi * (i + 0.75) / (n + 0.5));
        double derivative = 1.0;
        for (int iteration = 0; iteration < 100; ++iteration) {
            double p = 1.0;
            double previous = 0.0;
            for (int j = 1; j <= n; ++j) {
                const double older = previous;
                previous = p;
                p = ((2.0 * j - 1.0) * x * previous - (j - 1.0) * older) / j;
            }
            derivative = n * (x * p - previous) / (x * x - 1.0);
            const double step = p / derivative;
            x -= step;
            if (std::fabs(step) < 1e-16) {
                break;
            }
        }
        q.nodes.push_back(x);
        q.weights.push_back(2.0 / ((1.0 - x * x) * derivative * derivative));
    }
    return q;
}

Eigen::MatrixXd waveletDecomposition(int k, int e) {
    const int fijn = 1 << e;
    const int grof = fijn / 2;
    const std::vector<double> fineKnots = clampedKnots(k, fijn);
    const std::vector<double> coarseKnots = clampedKnots(k, grof);
    Eigen::MatrixXd gram = Eigen::MatrixXd::Zero(grof + k - 1, grof + k - 1);
    Eigen::MatrixXd mixed = Eigen::MatrixXd::Zero(grof + k - 1, fijn + k - 1);
    // On each fine knot interval every product of two B-splines of order k is one polynomial of
    // degree 2k - 2 (a coarse interval holds two fine ones whole), so k Gauss-Legendre points
    // integrate it exactly.
    const Quadrature q = gaussLegendre(k);
    for (int s = 0; s < fijn; ++s) {
        const double a = static_cast<double>(s) / fijn;
        const double b = static_cast<double>(s + 1) / fijn;
        const int fineSpan = k - 1 + s;
        const int coarseSpan = k - 1 + s / 2;
        for (std::size_t p = 0; p < q.nodes.size(); ++p) {
            const double t = 0.5 * (a + b) + 0.5 * (b - a) * q.nodes[p];
            const double w = 0.5 * (b - a) * q.weights[p];
            const std::vector<double> fine = basisAt(fineKnots, k, fineSpan, t);
            const std::vector<double> coarse = basisAt(coarseKnots, k, coarseSpan, t);
            for (int r = 0; r < k; ++r) {
                const int i = coarseSpan - k + 1 + r;
                for (int c = 0; c < k; ++c) {
                    gram(i, coarseSpan - k + 1 + c) += w * coarse[r] * coarse[c];
                    mixed(i, fineSpan - k + 1 + c) += w * coarse[r] * fine[c];
                }
            }
        }
    }
    // The Gram matrix of a basis is symmetric positive definite.
    const Eigen::LLT<Eigen::MatrixXd> cholesky(gram);
    if (cholesky.info() != Eigen::Success) {
        throw std::runtime_error("Gram matrix not positive definite");
    }
    return cholesky.solve(mixed);
}

std::string waveletField(double x) {
    if (!std::isfinite(x)) {
        throw std::domain_error("a table entry must be finite");
    }
    if (x == 0.0) {
        return "0";
    }
    const int sign = x < 0.0 ? 1 : 0;
    // Seventeen significant digits need more than 16 characters in either notation; take the
    // most that fit. One digit always does: "-1E-308" is the longest.
    for (int precision = 16;; --precision) {
        const Digits d = roundedDigits(std::fabs(x), precision);
        const int fixed = fixedLength(d);
        const int scientific = scientificLength(d);
        if (sign + std::min(fixed, scientific) <= static_cast<int>(kVeldBreedte) ||
            precision == 1) {
            return (sign ? "-" : "") + (fixed <= scientific ? fixedForm(d) : scientificForm(d));
        }
    }
}

std::string waveletTableText(const Eigen::MatrixXd& a) {
    std::string text;
    for (Eigen::Index i = 0; i < a.rows(); ++i) {
        for (Eigen::Index j = 0; j < a.cols(); ++j) {
            std::string field = waveletField(a(i, j));
            field.resize(kVeldBreedte, ' ');
            text += field;
            text += j + 1 < a.cols() ? ' ' : '\n';
        }
    }
    return text;
}

std::string waveletTableName(int k, int e) {
    return "a." + std::to_string(e) + "." + std::to_string(k);
}

void writeWaveletTable(const std::string& directory, int k, int e) {
    const std::string path = directory + "/" + waveletTableName(k, e);
    const std::string text = waveletTableText(waveletDecomposition(k, e));
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out << text;
    out.close();
    if (!out) {
        throw std::runtime_error("cannot write " + path);
    }
}

}  // namespace zw
