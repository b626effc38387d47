#include "weights/gewichten_form.h"

#include <cmath>

#include "geometry/coordinaten.h"
#include "platform/numeric.h"

namespace zw {

namespace {

constexpr int kRechts = 2;
// The size the form was designed at, in twips.
constexpr float kOntwerpBreedte = 5400.0f;
constexpr float kOntwerpHoogte = 4500.0f;
// The ends of the scale: 2^5 and 2^-5.
constexpr double kHoogste = 32.0;
constexpr double kLaagste = 1.0 / 32.0;

}  // namespace

GewichtenForm::GewichtenForm(MainWindow& window)
    : window_(window), scaleWidth_(kOntwerpBreedte), scaleHeight_(kOntwerpHoogte) {
    // The handles are filled discs.
    doek_.setFillStyle(kFillSolid);
    doek_.setPaintHandler([this] { Doek_Paint(); });
    doek_.setMouseDownHandler(
        [this](int b, int s, float x, float y) { Doek_MouseDown(b, s, x, y); });
    doek_.setMouseMoveHandler(
        [this](int b, int s, float x, float y) { Doek_MouseMove(b, s, x, y); });
    doek_.setMouseUpHandler([this](int b, int s, float x, float y) { Doek_MouseUp(b, s, x, y); });
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
    doek_.move(0, 0, scaleWidth_, scaleHeight_);
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

// --- Drawing -----------------------------------------------------------------------------------

// The picture box is erased before its paint event, as the screen erases a window it repaints.
void GewichtenForm::Doek_Paint() {
    doek_.cls();
    teken_assen();
    teken_gewichten();
}

// The level of weight 1 in red; one scale per weight with a tick at every power of two.
void GewichtenForm::teken_assen() {
    doek_.setDrawWidth(1);
    const float midden = divideSingle(hoogte_, 2.0f);
    doek_.line(0, midden, breedte_, midden, rgb(225, 0, 0));
    doek_.setDrawWidth(4);
    const float onder = addSingle(divideSingle(multiplySingle(hoogte_, 4.0f), 5.0f), marge_);
    forSingle(1.0f, aantal_gew_, 1.0f, [&](float i) {
        const float x = multiplySingle(i, kolom_);
        doek_.line(x, marge_, x, onder, kBlack);
        for (int j = 0; j <= 10; ++j) {
            const float y = addSingle(multiplySingle(static_cast<float>(j), eenheid_), marge_);
            doek_.line(addSingle(x, -50.0f), y, addSingle(x, 50.0f), y, kBlack);
        }
    });
}

// Each handle in the colour of its control point on the canvas.
void GewichtenForm::teken_gewichten() {
    doek_.setFillColour(window_.Bezierkleur);
    forSingle(0.0f, addSingle(aantal_gew_, -1.0f), 1.0f, [&](float k) {
        const Punt P = gewicht_naar_punt(k);
        doek_.circle(P.X, P.Y, window_.BollenStraal, window_.kleur(k));
    });
}

// The absolute value mirrors a weight above 32, which only a file can give, below the top.
Punt GewichtenForm::gewicht_naar_punt(float index) const {
    const float X = multiplySingle(addSingle(index, 1.0f), kolom_);
    const double macht = divide(logarithm(gewichten_(index)), std::log(2.0));
    const double Y = checkedDouble(std::fabs(macht - 5.0) * eenheid_ + marge_);
    return Punt(X, toInteger(Y));
}

float GewichtenForm::zoek_gewicht(const Punt& P) const {
    float best = 0.0f;
    forSingle(1.0f, addSingle(aantal_gew_, -1.0f), 1.0f, [&](float i) {
        if (mat_.bereken_afstand(P, gewicht_naar_punt(i)) <
            mat_.bereken_afstand(P, gewicht_naar_punt(best))) {
            best = i;
        }
    });
    return best;
}

double GewichtenForm::hoogte_naar_gewicht(float& Y) const {
    Y = addSingle(Y, -marge_);
    const double vierVijfde = 4.0 / 5.0;
    const double e =
        5.0 - divide(multiplySingle(10.0f, Y), checkedDouble(hoogte_ * vierVijfde));
    return checkedDouble(std::pow(2.0, e));
}

// --- Mouse -------------------------------------------------------------------------------------

void GewichtenForm::Doek_MouseDown(int Button, int, float X, float Y) {
    if (Button != kRechts) {
        zet_niet_rationeel();
        window_.Doek().refresh();
        return;
    }
    geselecteerd_ = zoek_gewicht(Punt(X, Y));
}

void GewichtenForm::Doek_MouseMove(int Button, int, float, float Y) {
    if (Button == kRechts) {
        zet_geselecteerd(Y);
    }
}

void GewichtenForm::Doek_MouseUp(int Button, int, float, float Y) {
    if (Button != kRechts) {
        return;
    }
    zet_geselecteerd(Y);
    zoek_grootste_gewicht();
    doek_.refresh();
    window_.Doek().refresh();
    window_.save();
}

void GewichtenForm::zet_geselecteerd(float Y) {
    double gewicht = 0.0;
    if (Y < marge_) {
        gewicht = kHoogste;
    } else if (Y > addSingle(hoogte_, -marge_)) {
        gewicht = kLaagste;
    } else {
        gewicht = hoogte_naar_gewicht(Y);
    }
    gewichten_(geselecteerd_) = gewicht;
    doek_.refresh();
}

// --- The form as a window ----------------------------------------------------------------------

void GewichtenForm::zetBinnenmaat(float ScaleWidth, float ScaleHeight) {
    scaleWidth_ = ScaleWidth;
    scaleHeight_ = ScaleHeight;
}

void GewichtenForm::toon() {
    if (!geladen_) {
        geladen_ = true;
        Form_Load();
    }
    Form_Resize();
}

void GewichtenForm::Unload() {
    if (geladen_) {
        Form_QueryUnload();
        geladen_ = false;
    }
}

void GewichtenForm::Form_Load() {
    doek_.move(0, 0, scaleWidth_, scaleHeight_);
}

void GewichtenForm::Form_Resize() {
    herschaal();
}

std::optional<Vensterplek> GewichtenForm::Form_Activate(const Vensterplek& hoofdvenster,
                                                        bool gemaximaliseerd,
                                                        Vensterplek form) const {
    if (!window_.gewichtstat || gemaximaliseerd) {
        return std::nullopt;
    }
    form.Left = addSingle(addSingle(hoofdvenster.Left, hoofdvenster.Width), 50.0f);
    form.Top = hoofdvenster.Top;
    return form;
}

void GewichtenForm::Form_QueryUnload() {
    window_.gewichtstat = false;
}

}  // namespace zw
