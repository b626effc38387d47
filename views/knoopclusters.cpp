#include "views/knoopclusters.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "knots/knoop_vector.h"
#include "platform/runtime_error.h"
#include "platform/werk.h"
#include "views/constructie.h"

namespace zw {

namespace {

// What a knot costs, as measured on the longest vector with every knot a cluster of its own: its
// comparison with the previous one, its share of the mean and the cluster it may close.
constexpr std::uint64_t kWerkKnoop = 12;

}  // namespace

std::vector<KnoopCluster> knoopclusters(const std::vector<double>& knopen, int orde) {
    const std::size_t L = knopen.size();
    // The editor's vector is no longer; a bound also keeps every index within an int.
    if (L > static_cast<std::size_t>(kMaxKnopen)) {
        raise(kErrOutOfMemory);
    }
    werk(kWerkKnoop * L);
    const std::int64_t k = orde;
    const std::int64_t n = static_cast<std::int64_t>(L);
    // The real range runs from knot k - 1 to knot L - k; it exists when the curve has a segment.
    const bool heeft_bereik = k >= 1 && n >= 2 * k;
    std::vector<KnoopCluster> clusters;
    // At most one cluster a knot: no copying as the list grows.
    clusters.reserve(L);
    std::size_t eerste = 0;
    for (std::size_t i = 1; i <= L; ++i) {
        // Both directions count, for a damaged file's vector out of order; a NaN joins nothing.
        if (i < L && std::abs(knopen[i] - knopen[i - 1]) < kClusterMarge) {
            continue;
        }
        KnoopCluster c;
        c.eerste = static_cast<int>(eerste);
        c.laatste = static_cast<int>(i - 1);
        c.multipliciteit = c.laatste - c.eerste + 1;
        // The mean as the first knot plus the mean of the (small) distances to it: no sum of
        // large values that could overflow, and an infinite knot stays itself.
        double afstand = 0.0;
        for (std::size_t j = eerste + 1; j < i; ++j) {
            afstand += knopen[j] - knopen[eerste];
        }
        c.waarde = knopen[eerste] + afstand / c.multipliciteit;
        // By index: knots within the margin of knot k - 1 (or L - k) are in its cluster, so this
        // compares the values with the margin, and holds for a vector out of order too.
        c.reeel = heeft_bereik && c.eerste <= n - k && c.laatste >= k - 1;
        c.inwendig = heeft_bereik && c.eerste > k - 1 && c.laatste < n - k;
        c.continuiteit = static_cast<int>(std::max<std::int64_t>(k - 1 - c.multipliciteit, -1));
        clusters.push_back(c);
        eerste = i;
    }
    return clusters;
}

std::string continuiteit_tekst(int c) {
    return "C" + std::to_string(std::max(c, -1));
}

std::string cluster_tekst(const KnoopCluster& cluster) {
    const std::string waarde = kort_getal(cluster.waarde);
    if (cluster.multipliciteit > 1) {
        return std::to_string(cluster.multipliciteit) + "x " + waarde;
    }
    return waarde;
}

}  // namespace zw
