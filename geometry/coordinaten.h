// The control polygon of the one curve being edited, with the curve's order.
#pragma once

#include <cstdint>
#include <memory>

#include "geometry/punt.h"
#include "platform/array.h"
#include "platform/main_window.h"

namespace zw {

// Slots that may be empty, as an array of object references.
using PuntArray = Array<std::unique_ptr<Punt>>;

// A curve drawn by hand has tens of points; one of more than 65536 comes only from a damaged file
// and is refused with error 7 before anything is allocated.
constexpr float kMaxPunten = 65536.0f;

class coordinaten {
  public:
    explicit coordinaten(MainWindow& window);

    // Order k of the curve (degree + 1); -1 when empty.
    float orde = -1.0f;
    // Index of the last control point; -1 when empty.
    float graad = -1.0f;
    // Bezier mode: the order was fixed to the number of points.
    bool orde_gezet = false;

    // Takes over the points of a polygon with one point more (knot insertion computed them).
    void splits(const PuntArray& nieuw);
    // Empties the polygon to `aantal` empty slots (and one spare) before it is filled by zet_punt.
    void dimensioneer_punten(float aantal);
    // Every point as a disc in its own colour, drawn `keer` times over itself (Surface::circle).
    void teken_controlepunten_in_kleur(std::uint32_t keer = 1);
    // The index of the nearest point, the lowest on a tie; there is no search radius.
    float zoek_punt(float x, float y) const;
    void zet_punt(float index, const Punt& p);
    void toevoegen(const Punt& p);
    // The demonstration polygon: four points of a cubic Bezier curve.
    void test();
    // Bezier mode: the order becomes the number of points.
    void zet_orde();
    // The stored point itself, not a copy; an empty slot raises error 91.
    Punt& punten(float index) {
        return const_cast<Punt&>(static_cast<const coordinaten&>(*this).punten(index));
    }
    const Punt& punten(float index) const {
        const std::unique_ptr<Punt>& slot = p_(index);
        if (!slot) {
            raise(kErrObjectNotSet);
        }
        return *slot;
    }
    // One rational curve point from the blending coefficients of the points begin, begin + 1, ...:
    // weighted by the weights window and rounded to whole canvas units.
    Punt zoek_coord(const Array<double>& tabel, float begin) const;
    bool orde_kleiner_dan_8() const;
    void restart();

  private:
    // Sizes the array to indexes 0 .. upperBound, refusing polygons beyond reason.
    static void begrens(float upperBound);

    MainWindow& window_;
    PuntArray p_;
};

}  // namespace zw
