#include "spline/graadverhoging.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cmath>
#include <cstddef>

#include "platform/runtime_error.h"
#include "platform/werk.h"

namespace zw {

namespace {

constexpr double kSamen = 1e-5;
constexpr int kHoogsteOrde = 16;

using Homogeen = std::array<double, 3>;  // (x w, y w, w)

// The editor keeps knots that would coincide a millionth apart (its blossom tells runs of equal
// knots apart by their values).
constexpr double kAfstand = 1e-6;

// The real range's knots, each cluster (successive knots closer than kSamen) with one more knot of
// its value; the virtual knots as they were. The first cluster's new knot goes before it and the
// others' after them, and knots that would coincide are moved a millionth apart, outwards from
// the range's ends, so that the range keeps its ends exactly.
std::vector<double> nieuweKnopen(const std::vector<double>& u, std::size_t k) {
    const std::size_t a = k - 1, b = u.size() - k;
    std::vector<double> v(u.begin(), u.begin() + static_cast<std::ptrdiff_t>(a));
    v.push_back(u[a]);  // the first cluster's new knot, before it
    bool eerste = true;  // still in the first cluster, which has its new knot
    for (std::size_t i = a; i <= b; ++i) {
        eerste = eerste && (i == a || std::fabs(u[i] - u[i - 1]) < kSamen);
        v.push_back(u[i]);
        if (!eerste && (i == b || !(std::fabs(u[i + 1] - u[i]) < kSamen))) {
            v.push_back(u[i]);
        }
    }
    v.insert(v.end(), u.begin() + static_cast<std::ptrdiff_t>(b + 1), u.end());
    // From the range's start (index k in the new vector) down, and from there up.
    for (std::size_t i = k; i > 0; --i) {
        v[i - 1] = std::min(v[i - 1], v[i] - kAfstand);
    }
    for (std::size_t i = k + 1; i < v.size(); ++i) {
        v[i] = std::max(v[i], v[i - 1] + kAfstand);
    }
    return v;
}

// The blossom of the old piece over span l at the k - 1 arguments: de Boor's triangle with the
// arguments one per level.
Homogeen blossom(const std::vector<double>& u, const std::vector<Homogeen>& p, std::size_t k,
                 std::size_t l, const std::vector<double>& argumenten) {
    std::vector<Homogeen> d(p.begin() + static_cast<std::ptrdiff_t>(l + 1 - k),
                            p.begin() + static_cast<std::ptrdiff_t>(l + 1));
    for (std::size_t r = 1; r < k; ++r) {
        for (std::size_t j = k - 1; j >= r; --j) {
            const std::size_t i = l + 1 - k + j;
            const double noemer = u[i + k - r] - u[i];
            const double a = noemer > 0.0 ? (argumenten[r - 1] - u[i]) / noemer : 0.0;
            for (std::size_t c = 0; c < 3; ++c) {
                d[j][c] = (1.0 - a) * d[j - 1][c] + a * d[j][c];
            }
        }
    }
    return d[k - 1];
}

}  // namespace

std::optional<Verhoogd> verhoog_graad(const std::vector<double>& knopen,
                                      const std::vector<Punt>& punten,
                                      const std::vector<double>& gewichten, int orde) {
    if (orde < 1 || orde >= kHoogsteOrde || punten.size() < static_cast<std::size_t>(orde)) {
        return std::nullopt;
    }
    const auto k = static_cast<std::size_t>(orde);
    if (knopen.size() != punten.size() + k ||
        (!gewichten.empty() && gewichten.size() != punten.size())) {
        raise(kErrSubscript);
    }
    std::vector<Homogeen> p;
    for (std::size_t i = 0; i < punten.size(); ++i) {
        const double w = gewichten.empty() ? 1.0 : gewichten[i];
        p.push_back({punten[i].X * w, punten[i].Y * w, w});
    }
    Verhoogd uit;
    uit.orde = orde + 1;
    uit.knopen = nieuweKnopen(knopen, k);
    const std::vector<double>& v = uit.knopen;
    const std::size_t K = k + 1, n = v.size() - K;
    werk(static_cast<std::uint64_t>(n) * k * k * k * 10);
    std::vector<double> argumenten(k - 1);
    for (std::size_t i = 0; i < n; ++i) {
        // The widest piece of the real range inside the new point's support (the best
        // conditioned), and the old span that holds it.
        std::size_t m = std::max(i, K - 1);
        for (std::size_t q = m; q <= std::min(i + k, n - 1); ++q) {
            m = v[q + 1] - v[q] > v[m + 1] - v[m] ? q : m;
        }
        std::size_t l = k - 1;
        while (l + 1 < knopen.size() - k && knopen[l + 1] <= v[m]) {
            ++l;
        }
        Homogeen som{0.0, 0.0, 0.0};
        for (std::size_t j = 0; j < k; ++j) {
            for (std::size_t q = 0, a = 0; q < k; ++q) {
                if (q != j) {
                    argumenten[a++] = v[i + 1 + q];
                }
            }
            const Homogeen f = blossom(knopen, p, k, l, argumenten);
            for (std::size_t c = 0; c < 3; ++c) {
                som[c] += f[c] / static_cast<double>(k);
            }
        }
        const double w = som[2];
        uit.x.push_back(w != 0.0 ? som[0] / w : 0.0);
        uit.y.push_back(w != 0.0 ? som[1] / w : 0.0);
        uit.punten.emplace_back(static_cast<float>(uit.x.back()), static_cast<float>(uit.y.back()));
        uit.gewichten.push_back(w);
    }
    return uit;
}

}  // namespace zw
