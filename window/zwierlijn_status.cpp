// Where am I: one line for the status bar's right end that says what the editor holds and what a
// click will do, followed after every redraw as the menus are.
#include <cmath>
#include <filesystem>
#include <string>

#include "geometry/coordinaten.h"
#include "knots/knoop_vector.h"
#include "platform/files.h"
#include "platform/werk.h"
#include "window/zwierlijn.h"

namespace zw {

namespace {

// Knots closer than this count as one (the editor keeps equal knots a millionth apart).
constexpr double kSamen = 1e-5;

std::string aantal(long n, const char* een, const char* meer) {
    return std::to_string(n) + " " + (n == 1 ? een : meer);
}

bool gelijkVerdeeld(const KnoopVector& v, float van, float tot) {
    const double stap = v.knoop(van + 1.0f) - v.knoop(van);
    for (float i = van + 1.0f; i < tot; i += 1.0f) {
        werk(10);
        if (std::fabs(v.knoop(i + 1.0f) - v.knoop(i) - stap) > kSamen * std::max(1.0, stap)) {
            return false;
        }
    }
    return stap > kSamen;
}

bool samen(const KnoopVector& v, float van, float tot) {
    return std::fabs(v.knoop(tot) - v.knoop(van)) < kSamen * (tot - van + 1.0f);
}

}  // namespace

// "uniform", "open uniform", or "vrij" once a knot was dragged or inserted: read from the knots
// themselves, so that Undo, Openen and the wavelet step tell the truth too.
std::string Zwierlijn::knopenvorm() const {
    const float L = vec_->knopenlengte, k = polygon_->orde;
    if (gelijkVerdeeld(*vec_, 0.0f, L - 1.0f)) {
        return "uniform";
    }
    if (L >= 2.0f * k && samen(*vec_, 0.0f, k - 1.0f) && samen(*vec_, L - k, L - 1.0f) &&
        (L - k - (k - 1.0f) < 1.0f || gelijkVerdeeld(*vec_, k - 1.0f, L - k))) {
        return "open uniform";
    }
    return "vrij";
}

std::string Zwierlijn::waarBenIk() const {
    const double k = polygon_->orde, n = polygon_->graad + 1.0;
    const bool getallen = k <= 1e8 && n >= 0.0 && n <= 1e8;
    if (!getallen) {
        return "";
    }
    const bool kromme = k >= 1.0 && n >= k &&
                        static_cast<double>(vec_->knopenlengte) == n + k;
    std::string regel = k >= 1.0 ? "orde " + std::to_string(static_cast<long>(k)) : "geen orde";
    regel += " · " + aantal(static_cast<long>(n), "punt", "punten");
    if (kromme) {
        // Pieces of the curve: knot intervals of the real range that have a length.
        long stukken = 0;
        for (float i = static_cast<float>(k) - 1.0f; i + 1.0f <= static_cast<float>(n); i += 1.0f) {
            werk(10);
            stukken += vec_->knoop(i + 1.0f) - vec_->knoop(i) >= kSamen ? 1 : 0;
        }
        regel += " · " + aantal(stukken, "segment", "segmenten");
        regel += " · " + knopenvorm();
    }
    if (segment) {
        regel += " · Spline Punt";
    }
    if (segmenten_per_controlepunt) {
        regel += " · Segmenten per Controlepunt";
    } else if (controlepunten_per_segment) {
        regel += " · Controlepunten perSegment";
    }
    if (!laatsteBestand_.empty()) {
        regel += " · " + std::filesystem::path(nativePath(laatsteBestand_)).filename().string();
    }
    return regel;
}

}  // namespace zw
