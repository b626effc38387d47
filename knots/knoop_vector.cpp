#include "knots/knoop_vector.h"

#include <algorithm>
#include <utility>

#include "geometry/coordinaten.h"
#include "platform/numeric.h"

namespace zw {

namespace {
constexpr double kKnotGap = 1e-6;
}

KnoopVector::KnoopVector(MainWindow& window) : window_(window) {
    restart();
}

void KnoopVector::zet_knoop(float index, double waarde) {
    knots_(index) = waarde;
}

void KnoopVector::zet_open_uniform() {
    zet_uniform();
    const float k = window_.polygoon().orde;
    const float L = knopenlengte;
    // The only check of the vector's size: both knots must exist.
    const std::int16_t h = toInteger(L / 2.0f);
    knoop(addSingle(h, -k));
    knoop(addSingle(addSingle(h, k), -1.0f));

    // The two clamps are deliberately not mirror images: the start steps up by 1e-6, 2e-6, ...
    // from the first knot, the end steps down by 3e-6, 4e-6, ... below the last one.
    forSingle(1.0f, addSingle(k, -1.0f), 1.0f, [&](float i) {
        zet_knoop(i, checkedDouble(knoop(0.0f) + i * kKnotGap));
    });
    forSingle(addSingle(L, -2.0f), addSingle(L, -k), -1.0f, [&](float j) {
        const float offset = addSingle(addSingle(L, -j), 1.0f);
        zet_knoop(j, checkedDouble(knoop(addSingle(L, -1.0f)) - offset * kKnotGap));
    });

    const float m = addSingle(L, -multiplySingle(2.0f, k));
    const double first = knoop(addSingle(k, -1.0f));
    const double stap = divide(checkedDouble(knoop(addSingle(L, -k)) - first), addSingle(m, 1.0f));
    if (m > 0.0f) {
        forSingle(0.0f, addSingle(m, -1.0f), 1.0f, [&](float i) {
            zet_knoop(addSingle(k, i), checkedDouble(first + addSingle(i, 1.0f) * stap));
        });
    }
    openuniform = true;
}

std::int32_t vergelijkRun(const double* knots, std::size_t knotCount, float L,
                          const double* vector, std::size_t vectorSize, float& count,
                          std::int32_t sortedPrefix) {
    const auto knot = [&](std::int64_t i) {
        if (i < 0 || static_cast<std::size_t>(i) >= knotCount) {
            raise(kErrSubscript);
        }
        return knots[i];
    };
    if (vectorSize == 0) {
        raise(kErrSubscript);
    }
    const double v0 = vector[0];
    std::int32_t i = 0;
    if (sortedPrefix > 0 && !(v0 > knots[sortedPrefix - 1])) {
        i = static_cast<std::int32_t>(std::lower_bound(knots, knots + sortedPrefix, v0) - knots);
    } else {
        i = std::max(0, sortedPrefix - 1);  // every knot before it lies below v0
        while (static_cast<float>(i) < L && knot(i) < v0) {
            ++i;
        }
        werk(static_cast<std::uint64_t>(i));
    }
    if (v0 < knot(i)) {
        count = 0.0f;
        return i;
    }
    // vector(0) is knot i (or lies beyond every knot and is compared with the spare slot).
    std::int32_t j = 1;
    while (static_cast<float>(j) < count) {
        if (static_cast<std::size_t>(j) >= vectorSize) {
            raise(kErrSubscript);
        }
        if (knot(std::int64_t{i} + j) != vector[j]) {
            break;
        }
        ++j;
    }
    count = static_cast<float>(j);
    return i + j;
}

float KnoopVector::vergelijk_vector(float& count, const Array<double>& vector) const {
    return static_cast<float>(
        vergelijkRun(knots_.data(), knots_.size(), knopenlengte, vector.data(), vector.size(), count));
}

float KnoopVector::geef_segment(double t) const {
    const coordinaten& polygon = window_.polygoon();
    const float k = polygon.orde;
    float i = 0.0f;
    bool going = true;
    while (i <= polygon.graad && going) {
        if (knots_(addSingle(k, i)) > t) {
            going = false;
        }
        i = addSingle(i, 1.0f);
    }
    return i;
}

float KnoopVector::zoekindex(double t) const {
    float i = 0.0f;
    while (t <= knots_(i) && i < knopenlengte) {
        i = addSingle(i, 1.0f);
    }
    return i == knopenlengte ? -1.0f : i;
}

double KnoopVector::knoop(float index) const {
    return knots_(index);
}

void KnoopVector::dimensioneer_knopenvector(double lengte) {
    const float length = toSingle(lengte);
    if (length > kMaxKnopen) {
        raise(kErrOutOfMemory);
    }
    knopenlengte = length;
    knots_.redim(knopenlengte);
}

void KnoopVector::voeg_knooppunt_toe(double& t) {
    if (addSingle(knopenlengte, 1.0f) > kMaxKnopen) {
        raise(kErrOutOfMemory);
    }
    knopenlengte = addSingle(knopenlengte, 1.0f);
    knots_.redimPreserve(knopenlengte);
    double carry = t;
    // One pass of insertion over the old knots: every knot above t moves one place up, carried
    // along in `carry`. The old spare slot is left out of the pass: it holds no knot, and a
    // parameter below its 0.0 (open-uniform curves start at 1 - k) would otherwise take the
    // place of the last knot.
    forSingle(0.0f, addSingle(knopenlengte, -2.0f), 1.0f, [&](float i) {
        double& knot = knots_(i);
        if (knot == t) {
            t = checkedDouble(t + kKnotGap);
            carry = t;
        }
        if (knot > t) {
            std::swap(knot, carry);
        }
    });
    knots_(addSingle(knopenlengte, -1.0f)) = carry;
}

void KnoopVector::zet_uniform() {
    const float k = window_.polygoon().orde;
    forSingle(0.0f, addSingle(knopenlengte, -1.0f), 1.0f, [&](float i) {
        zet_knoop(i, addSingle(addSingle(i, -k), 1.0f));
    });
    openuniform = false;
}

void KnoopVector::restart() {
    knopenlengte = 0.0f;
}

}  // namespace zw
