// The weights window: one rational weight per control point, shown as a handle on a logarithmic
// scale from 1/32 to 32. This class holds the weights and the scale geometry; the editor shows
// its surface `Doek` in a window of its own.
#pragma once

#include "platform/array.h"
#include "platform/main_window.h"
#include "platform/surface.h"

namespace zw {

class GewichtenForm {
  public:
    explicit GewichtenForm(MainWindow& window);

    double gewicht(float index) const;
    double get_grootste_gewicht() const { return grootste_; }
    // The largest weight of the polygon's points; the first of equal maxima wins.
    void zoek_grootste_gewicht();
    void zet_gewichten(float index, double gewicht);
    // Resizes to `aantal` weights (and a spare slot), keeping the old ones; new ones are 1.
    void dimensioneer_gewichten(float aantal);
    // Every weight 1: the polynomial curve.
    void zet_niet_rationeel();
    // Taken as it is, without looking at the weights.
    void zet_grootste_gewicht(double gewicht) { grootste_ = gewicht; }
    // Fits the scales to the surface again.
    void herschaal();

    float aantal_gew() const { return aantal_gew_; }
    Surface& Doek() { return doek_; }

  private:
    void bereken_schaal();

    MainWindow& window_;
    Surface doek_;
    Array<double> gewichten_;
    float aantal_gew_ = 0.0f;
    double grootste_ = 1.0;
    // Scale geometry in the surface's units.
    float breedte_ = 0.0f;
    float hoogte_ = 0.0f;
    float marge_ = 0.0f;
    float eenheid_ = 0.0f;
    float kolom_ = 0.0f;
};

}  // namespace zw
