#include "weights/gewichten_form.h"

#include "geometry/coordinaten.h"
#include "platform/numeric.h"

namespace zw {

GewichtenForm::GewichtenForm(MainWindow& window) : window_(window) {
    dimensioneer_gewichten(addSingle(window_.polygoon().graad, 1.0f));
    grootste_ = 1.0;
    bereken_schaal();
}

double GewichtenForm::gewicht(float index) const {
    return gewichten_(index);
}

void GewichtenForm::zoek_grootste_gewicht() {
    grootste_ = gewichten_(0.0);
    forSingle(1.0f, window_.polygoon().graad, 1.0f, [&](float i) {
        if (grootste_ < gewichten_(i)) {
            grootste_ = gewichten_(i);
        }
    });
}

void GewichtenForm::zet_gewichten(float index, double gewicht) {
    gewichten_(index) = gewicht;
}

void GewichtenForm::dimensioneer_gewichten(float aantal) {
    gewichten_.redimPreserve(aantal);
    if (aantal_gew_ < aantal) {
        forSingle(aantal_gew_, addSingle(aantal, -1.0f), 1.0f,
                  [&](float i) { gewichten_(i) = 1.0; });
    }
    aantal_gew_ = aantal;
}

void GewichtenForm::zet_niet_rationeel() {
    forSingle(0.0f, addSingle(aantal_gew_, -1.0f), 1.0f, [&](float i) { gewichten_(i) = 1.0; });
    grootste_ = 1.0;
    doek_.refresh();
}

void GewichtenForm::herschaal() {
    doek_.cls();
    bereken_schaal();
    doek_.refresh();
}

void GewichtenForm::bereken_schaal() {
    hoogte_ = toSingle(doek_.scaleHeight());
    breedte_ = toSingle(doek_.scaleWidth());
    marge_ = divideSingle(hoogte_, 10.0f);
    kolom_ = divideSingle(breedte_, addSingle(aantal_gew_, 1.0f));
    eenheid_ = divideSingle(addSingle(hoogte_, -multiplySingle(2.0f, marge_)), 10.0f);
}

}  // namespace zw
