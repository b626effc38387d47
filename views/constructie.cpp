#include "views/constructie.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <system_error>
#include <utility>

#include "geometry/coordinaten.h"
#include "knots/knoop_vector.h"
#include "platform/numeric.h"
#include "platform/runtime_error.h"
#include "platform/text.h"
#include "platform/werk.h"
#include "spline/blossom_functie.h"
#include "weights/gewichten_form.h"

namespace zw {

namespace {

// Knots closer than this are one knot when the algorithm is named: the editor keeps coincident
// knots a few millionths apart, so the clamped ends of an open-uniform vector lie within it.
constexpr double kZelfdeKnoop = 1e-5;

// What a construction costs, as measured: the call, each of the about k * k / 2 points of the
// triangle (its blend, projection and label) and each argument of a label. Every label has k - 1
// arguments, so the labels grow with the cube of the order.
constexpr std::uint64_t kWerkAanroep = 300;
constexpr std::uint64_t kWerkPunt = 80;
constexpr std::uint64_t kWerkArgument = 25;
// An order beyond any polygon the editor holds: its charge could no longer be counted.
constexpr std::int64_t kMaxOrde = std::int64_t{1} << 16;

// Entry i of a vector, error 9 outside it.
template <typename Vector>
decltype(auto) bij(Vector& v, std::int64_t i) {
    if (i < 0 || static_cast<std::uint64_t>(i) >= v.size()) {
        raise(kErrSubscript);
    }
    return v[static_cast<std::size_t>(i)];
}

// A control point times its weight, with the weight: the curve is polynomial in these.
using Gewogen = std::array<double, 3>;

bool rationeel(const ConstructieKromme& kromme) {
    return std::any_of(kromme.gewichten.begin(), kromme.gewichten.end(),
                       [](double w) { return w != 1.0; });
}

Gewogen gewogen(const ConstructieKromme& kromme, std::int64_t i) {
    const Punt& p = bij(kromme.punten, i);
    const double w = kromme.gewichten.empty() ? 1.0 : bij(kromme.gewichten, i);
    return {checkedDouble(p.X * w), checkedDouble(p.Y * w), w};
}

// A polynomial curve is left undivided: its points are de Boor's exactly.
Punt geprojecteerd(const Gewogen& p, bool rationeel) {
    if (!rationeel) {
        return Punt(toSingle(p[0]), toSingle(p[1]));
    }
    return Punt(toSingle(divide(p[0], p[2])), toSingle(divide(p[1], p[2])));
}

// (1 - a) p + a q, coordinate by coordinate, weights included.
Gewogen meng(const Gewogen& p, const Gewogen& q, double a) {
    Gewogen r{};
    for (std::size_t d = 0; d < r.size(); ++d) {
        r[d] = checkedDouble((1.0 - a) * p[d] + a * q[d]);
    }
    return r;
}

// The ratio in which t divides the knot interval [u, v]. An interval without length (equal knots
// at the end of the range, after a drag) holds t, so u = v = t: both ends of the leg, f(u, ...)
// and f(..., v), already are the blend f(..., t), and the left one is taken.
double verhouding(double t, double u, double v) {
    const double lengte = v - u;
    if (!(lengte > 0.0)) {
        return 0.0;
    }
    return checkedDouble(checkedDouble(t - u) / lengte);
}

// The order of a curve that has a segment, after checking that the sizes agree.
std::int64_t orde_van(const ConstructieKromme& kromme) {
    const std::int64_t k = kromme.orde;
    if (k > kMaxOrde) {
        raise(kErrOutOfMemory);
    }
    const std::size_t n = kromme.punten.size();
    if (kromme.knopen.size() != n + static_cast<std::size_t>(k) ||
        !(kromme.gewichten.empty() || kromme.gewichten.size() == n)) {
        raise(kErrSubscript);
    }
    return k;
}

bool heeft_segment(const ConstructieKromme& kromme) {
    return kromme.orde >= 1 && kromme.punten.size() >= static_cast<std::size_t>(kromme.orde);
}

// De Boor's span l of t: knoop(l) <= t < knoop(l + 1), kept within k - 1 .. L - k - 1, so that
// the end of the range lies in the last segment. Bisection ends on one span whatever the values.
std::int64_t span(const std::vector<double>& knopen, std::int64_t k, double t) {
    std::int64_t onder = k - 1;
    std::int64_t boven = static_cast<std::int64_t>(knopen.size()) - k;
    if (!(t < bij(knopen, boven))) {
        return boven - 1;
    }
    while (boven - onder > 1) {
        const std::int64_t midden = onder + (boven - onder) / 2;
        if (bij(knopen, midden) <= t) {
            onder = midden;
        } else {
            boven = midden;
        }
    }
    return onder;
}

// The blossom of point i of level r: f(knoop(i + 1), ..., knoop(i + k - 1 - r), t, ..., t) with
// t r times (Ramshaw's polar form). `getallen` holds the knots from index `eerste` on as text.
std::string label(const std::vector<std::string>& getallen, std::int64_t eerste, std::int64_t i,
                  std::int64_t k, std::int64_t r) {
    std::string tekst = "f(";
    for (std::int64_t j = 1; j < k; ++j) {
        tekst += j > 1 ? ", " : "";
        tekst += j < k - r ? bij(getallen, i + j - eerste) : std::string("t");
    }
    return tekst + ")";
}

// De Boor's triangle in span l: point i of level r divides the leg from point i - 1 to point i of
// level r - 1 as t divides [knoop(i), knoop(i + k - r)]. Level r is also the stretch that inserting
// t r times puts into the polygon (Boehm), and its last point, at level k - 1, the curve point.
std::vector<ConstructieNiveau> driehoek(const ConstructieKromme& kromme, double t, std::int64_t l) {
    const std::int64_t k = kromme.orde;
    const std::int64_t eerste = l - k + 1;
    const bool gewogen_kromme = rationeel(kromme);
    // Every label names knots l - k + 2 .. l + k - 1: each is written once.
    std::vector<std::string> getallen;
    for (std::int64_t i = eerste + 1; i <= l + k - 1; ++i) {
        getallen.push_back(kort_getal(bij(kromme.knopen, i)));
    }
    std::vector<Gewogen> p;
    for (std::int64_t j = 0; j < k; ++j) {
        p.push_back(gewogen(kromme, eerste + j));
    }
    // Level r keeps entries r .. k - 1 of p, written from the right so that entry j - 1 still
    // holds level r - 1.
    std::vector<ConstructieNiveau> niveaus;
    for (std::int64_t r = 0; r < k; ++r) {
        ConstructieNiveau niveau;
        for (std::int64_t j = k - 1; r > 0 && j >= r; --j) {
            const std::int64_t i = eerste + j;
            const double a = verhouding(t, bij(kromme.knopen, i), bij(kromme.knopen, i + k - r));
            bij(p, j) = meng(bij(p, j - 1), bij(p, j), a);
        }
        for (std::int64_t j = r; j < k; ++j) {
            niveau.punten.push_back(geprojecteerd(bij(p, j), gewogen_kromme));
            niveau.labels.push_back(label(getallen, eerste + 1, eerste + j, k, r));
        }
        niveaus.push_back(std::move(niveau));
    }
    return niveaus;
}

}  // namespace

ConstructieKromme kromme_van(MainWindow& window) {
    const coordinaten& polygon = window.polygoon();
    const KnoopVector& vec = window.vec();
    const GewichtenForm& gewichten = window.gewichten();
    ConstructieKromme kromme;
    kromme.orde = wholeOrder(polygon.orde);
    forSingle(0.0f, addSingle(vec.knopenlengte, -1.0f), 1.0f,
              [&](float i) { kromme.knopen.push_back(vec.knoop(i)); });
    forSingle(0.0f, polygon.graad, 1.0f, [&](float i) {
        kromme.punten.push_back(polygon.punten(i));
        kromme.gewichten.push_back(gewichten.gewicht(i));
    });
    return kromme;
}

double Bereik::klem(double t) const {
    if (!(t > begin)) {
        return begin;
    }
    return t > eind ? eind : t;
}

std::optional<Bereik> echt_bereik(const ConstructieKromme& kromme) {
    if (!heeft_segment(kromme)) {
        return std::nullopt;
    }
    const std::int64_t k = orde_van(kromme);
    const std::int64_t L = static_cast<std::int64_t>(kromme.knopen.size());
    return Bereik{bij(kromme.knopen, k - 1), bij(kromme.knopen, L - k)};
}

std::optional<Constructie> bouw_constructie(const ConstructieKromme& kromme, double t) {
    const std::optional<Bereik> bereik = echt_bereik(kromme);
    if (!bereik) {
        return std::nullopt;
    }
    const std::int64_t k = kromme.orde;
    const auto punten = static_cast<std::uint64_t>(k * k / 2);
    werk(kWerkAanroep + punten * (kWerkPunt + kWerkArgument * static_cast<std::uint64_t>(k)));
    t = bereik->klem(t);
    const std::int64_t l = span(kromme.knopen, k, t);
    Constructie c;
    c.segment = static_cast<int>(l - k + 2);
    c.eersteIndex = static_cast<int>(l - k + 1);
    c.niveaus = driehoek(kromme, t, l);
    c.krommepunt = bij(bij(c.niveaus, k - 1).punten, 0);
    // The derivative at t is a positive multiple of the last step's leg (de Boor's derivative
    // formula; for weights, the projected curve point lies on the projected leg).
    c.heeftRaaklijn = k >= 2;
    if (c.heeftRaaklijn) {
        const ConstructieNiveau& been = bij(c.niveaus, k - 2);
        c.raakA = bij(been.punten, 0);
        c.raakB = bij(been.punten, 1);
    }
    return c;
}

std::string algoritme_naam(const ConstructieKromme& kromme) {
    const std::int64_t k = kromme.orde;
    const std::vector<double>& knopen = kromme.knopen;
    const auto samen = [&](std::int64_t van) {
        const auto begin = knopen.begin() + van;
        const auto [laagste, hoogste] = std::minmax_element(begin, begin + k);
        return *hoogste - *laagste <= kZelfdeKnoop;
    };
    const bool een_segment = k >= 1 && knopen.size() == 2 * static_cast<std::size_t>(k);
    return een_segment && samen(0) && samen(k) ? "de Casteljau" : "de Boor";
}

std::string kort_getal(double x) {
    // to_chars ignores the process's locale: the point is always '.', as in platform/text.h.
    char buffer[400];
    const auto [einde, fout] =
        std::to_chars(buffer, buffer + sizeof buffer, x, std::chars_format::fixed, 3);
    if (fout != std::errc()) {
        return doubleToText(x);
    }
    std::string tekst(buffer, einde);
    if (tekst.find('.') != std::string::npos) {
        tekst.erase(tekst.find_last_not_of('0') + 1);
        if (tekst.back() == '.') {
            tekst.pop_back();
        }
    }
    return tekst == "-0" ? "0" : tekst;
}

// de Boor's recurrence: each order's functions from the one below, as in the triangle of the
// points.
std::vector<double> basiswaarden(const ConstructieKromme& kromme, int eersteIndex, double t) {
    const auto k = static_cast<std::size_t>(kromme.orde);
    const auto l = static_cast<std::size_t>(eersteIndex) + k - 1;
    const std::vector<double>& u = kromme.knopen;
    std::vector<double> n(k, 0.0), links(k, 0.0), rechts(k, 0.0);
    if (k == 0 || l + k > u.size()) {
        return n;
    }
    werk(static_cast<std::uint64_t>(k) * k * 4);
    n[0] = 1.0;
    for (std::size_t j = 1; j < k; ++j) {
        links[j] = t - u[l + 1 - j];
        rechts[j] = u[l + j] - t;
        double bewaard = 0.0;
        for (std::size_t r = 0; r < j; ++r) {
            const double noemer = rechts[r + 1] + links[j - r];
            const double deel = noemer != 0.0 ? n[r] / noemer : 0.0;
            n[r] = bewaard + rechts[r + 1] * deel;
            bewaard = links[j - r] * deel;
        }
        n[j] = bewaard;
    }
    if (kromme.gewichten.size() == kromme.punten.size() && !kromme.gewichten.empty()) {
        double som = 0.0;
        for (std::size_t j = 0; j < k; ++j) {
            n[j] *= kromme.gewichten[static_cast<std::size_t>(eersteIndex) + j];
            som += n[j];
        }
        for (double& v : n) {
            v = som != 0.0 ? v / som : 0.0;
        }
    }
    return n;
}

}  // namespace zw
