// The weights window: one rational weight per control point, shown as a handle on a logarithmic
// scale from 1/32 to 32 and dragged with the right mouse button. This class is the whole form:
// its weights, the drawing on its surface `Doek`, its mouse handlers and its life as a window.
// What is left to the window that shows it is the screen: it tells the form its size and raises
// the form's events.
#pragma once

#include <optional>

#include "geometry/mat.h"
#include "geometry/punt.h"
#include "platform/array.h"
#include "platform/main_window.h"
#include "platform/surface.h"

namespace zw {

// A window's outer rectangle on the screen, in twips.
struct Vensterplek {
    float Left = 0.0f;
    float Top = 0.0f;
    float Width = 0.0f;
    float Height = 0.0f;
};

class GewichtenForm {
  public:
    // Form_Initialize: as many weights as the polygon has points, every one 1.
    explicit GewichtenForm(MainWindow& window);

    double gewicht(float index) const;
    // All weights, for loops that check their indexes against the size themselves.
    const Array<double>& gewichten() const { return gewichten_; }
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
    // Fits `Doek` and the scales to the form again and redraws them.
    void herschaal();

    float aantal_gew() const { return aantal_gew_; }
    Surface& Doek() { return doek_; }

    // --- Events of `Doek` ------------------------------------------------------------------------
    void Doek_Paint();
    // The right button picks the nearest handle; any other resets every weight to 1.
    void Doek_MouseDown(int Button, int Shift, float X, float Y);
    void Doek_MouseMove(int Button, int Shift, float X, float Y);
    // The end of a right drag: the largest weight again, both canvases, one undo version.
    void Doek_MouseUp(int Button, int Shift, float X, float Y);

    // --- The form as a window --------------------------------------------------------------------
    // The client area in twips, as the window showing the form has it; until it says otherwise,
    // the size the form was designed at.
    void zetBinnenmaat(float ScaleWidth, float ScaleHeight);
    float ScaleWidth() const { return scaleWidth_; }
    float ScaleHeight() const { return scaleHeight_; }
    // What appearing on the screen does to the form: Form_Load unless it is loaded, then
    // Form_Resize.
    void toon();
    // Unload: Form_QueryUnload, and the form is no longer loaded. Its variables, the weights
    // among them, stay; the next time it is shown only Form_Load runs again.
    void Unload();
    bool geladen() const { return geladen_; }

    void Form_Load();
    void Form_Resize();
    // The form's rectangle when it becomes the active window: moved beside the main window, 50
    // twips to the right of it at the same height, once the main window has opened it. Nothing
    // when the main window is maximised: there is no room beside it.
    std::optional<Vensterplek> Form_Activate(const Vensterplek& hoofdvenster, bool gemaximaliseerd,
                                             Vensterplek form) const;
    // The main window draws its points plainly again.
    void Form_QueryUnload();
    // Where the handle of weight `index` sits on its scale.
    Punt gewicht_naar_punt(float index) const;

  private:
    void bereken_schaal();
    void teken_assen();
    void teken_gewichten();
    // The handle nearest to P; of equal distances the lower index.
    float zoek_gewicht(const Punt& P) const;
    // The weight at height Y of the scales. Y is reduced by the margin on the way, the caller's
    // too.
    double hoogte_naar_gewicht(float& Y) const;
    // The dragged weight from the pointer's height, pinned at the ends of the scale.
    void zet_geselecteerd(float Y);

    MainWindow& window_;
    Surface doek_;
    Mat mat_;
    Array<double> gewichten_;
    float aantal_gew_ = 0.0f;
    double grootste_ = 1.0;
    float geselecteerd_ = 0.0f;
    bool geladen_ = false;
    float scaleWidth_;
    float scaleHeight_;
    // Scale geometry in the surface's units.
    float breedte_ = 0.0f;
    float hoogte_ = 0.0f;
    float marge_ = 0.0f;
    float eenheid_ = 0.0f;
    float kolom_ = 0.0f;
};

}  // namespace zw
