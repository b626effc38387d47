// Clusters of knots and the continuity of the curve at them. The editor keeps knots apart (1e-6,
// a few millionths at the clamped ends of the open-uniform form), so what the mathematics calls a
// knot of multiplicity m is here a run of m knots closer than kClusterMarge to each other. A
// curve of order k is C^(k-1-m) at such a knot (every B-spline is), and may break when m >= k.
//
// Plain values, so that the knot pane's labels can be checked without a window.
#pragma once

#include <string>
#include <vector>

namespace zw {

// Successive knots closer than this are one knot: ten times the editor's gap and above every step
// of its open-uniform ends, far below any distance a person reads off the knot pane.
constexpr double kClusterMarge = 1e-5;

struct KnoopCluster {
    // Its first and last knot index.
    int eerste = 0;
    int laatste = 0;
    // The mean of its knots: the value of the one knot they stand for, whichever side of it the
    // editor moved them to.
    double waarde = 0.0;
    // The number of its knots.
    int multipliciteit = 0;
    // It holds a knot of index k - 1 .. L - k: it lies in the real range.
    bool reeel = false;
    // It lies strictly inside the real range, where two pieces of the curve meet: neither
    // knot k - 1 nor knot L - k is in it.
    bool inwendig = false;
    // k - 1 - m, or -1 (a break may occur) when m >= k; it says something of the curve only
    // where the cluster is inwendig.
    int continuiteit = -1;
};

// The clusters of a knot vector, in the vector's order. A vector with fewer than 2 k knots has no
// real range: no cluster is reeel or inwendig. More than kMaxKnopen knots raise error 7.
std::vector<KnoopCluster> knoopclusters(const std::vector<double>& knopen, int orde);

// "C2", "C1", "C0"; every c below 0 is "C-1".
std::string continuiteit_tekst(int c);

// The value as a label ("3", "2.5"), after the multiplicity when it exceeds 1 ("2x 3").
std::string cluster_tekst(const KnoopCluster& cluster);

}  // namespace zw
