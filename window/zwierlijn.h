// The main window without its widgets: the canvas `Doek`, the knot pane `Knopen` along the bottom
// and the blending pane `meng` in the canvas' top-right corner as surfaces, the model objects it
// owns for the whole run, the view state, the start-up, and every event handler of the canvas,
// the panes, the menus and the toolbar. The model reads it through the MainWindow interface.
//
// What needs widgets is left to a host that derives from this class: the size of the client
// area, the settings dialog (which owns the settings file) and the weights window, and showing
// the menus and toolbar as `menus()` and `knoppen()` have them. The editor's Qt window is one
// host; HeadlessEditor, for the renderer, the fuzz targets and the benchmarks, is another.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/array.h"
#include "platform/dialogs.h"
#include "platform/main_window.h"
#include "platform/surface.h"
#include "window/bedieningen.h"

namespace zw {

class Beeld;
class ConstructieBeeld;
class Verbanden;
class Opslag;
class Punt;
class Wavelet;

class Zwierlijn : public MainWindow {
  public:
    Zwierlijn(std::string programDirectory, Dialogs& dialogs);
    ~Zwierlijn() override;
    Zwierlijn(const Zwierlijn&) = delete;
    Zwierlijn& operator=(const Zwierlijn&) = delete;

    // Form_Initialize, then Form_Load (which shows the settings dialog modally on a first
    // start). The host calls it once it can answer for its widgets.
    void Form_Initialize();
    void Form_Load();

    // --- What the model reads ------------------------------------------------------------------
    coordinaten& polygoon() override { return *polygon_; }
    KnoopVector& vec() override { return *vec_; }
    BlossomFunctie& evaluator() override { return *evaluator_; }
    // The weights window; made on first use, and from then on kept.
    GewichtenForm& gewichten() override;
    void save() override;
    Surface& Doek() override { return doek_; }
    Surface& Knopen() override { return knopen_; }
    Surface& meng() override { return meng_; }
    Colour kleur(double i) override;

    Beeld& be() { return *be_; }
    Wavelet& wavelet() { return *wavelet_; }
    Opslag& ops() { return *ops_; }
    ConstructieBeeld& constructie() { return *constructie_; }
    Verbanden& verbanden() { return *verbanden_; }
    // The overlays drawn again: the construction, the numbers, what the pointer lights up.
    void tekenLagen();
    // A tooltip at the pointer, or none for an empty text; a host without a screen has none.
    virtual void toonTip(const std::string& tekst) { (void)tekst; }
    // Shows the manual; a host without a screen has none.
    virtual void toonHandleiding() {}
    const std::string& programDirectory() const { return programDirectory_; }

    // The menu items by name ("mntBeeldBezier") and the toolbar buttons by key ("Mengfuncties"):
    // enabled, and checked or pressed.
    Bedieningen& menus() { return menus_; }
    Bedieningen& knoppen() { return knoppen_; }

    // --- Drawing on the canvas -------------------------------------------------------------------
    void teken_lijn(const Punt& P1, const Punt& P2, Colour kleur);
    void teken_punt(float index, bool gemarkeerd);
    void teken_been(float i);

    // --- Event handlers --------------------------------------------------------------------------
    void Doek_MouseDown(int Button, int Shift, float X, float Y);
    void Doek_MouseMove(int Button, int Shift, float X, float Y);
    void Doek_MouseUp(int Button, int Shift, float X, float Y);
    void Doek_Paint();
    void Knopen_MouseDown(int Button, int Shift, float X, float Y);
    void Knopen_MouseMove(int Button, int Shift, float X, float Y);
    void Knopen_MouseUp(int Button, int Shift, float X, float Y);
    // The blending pane: hidden while `mengstat` is off, else the knot marks, the blending
    // functions over the whole knot range (and with them the curve on the canvas), the frame.
    void meng_Paint();
    void Form_Resize();

    void mntBeeldZoomInzoemen_Click();
    void mntBeeldZoomUitzoemen_Click();
    void mntBeeldZoomNormaal_Click();
    void mntBeeldDetailLow_Click();
    void mntBeeldDetailNormaal_Click();
    void mntBeeldDetailHigh_Click();
    void mntBeeldKnopenVector_Click();
    void mntBeeldKnooppunten_Click();
    void mntBeeldMengFuncties_Click();
    void mntBeeldBezier_Click();
    void mntBeeldSegmentperControl_Click();
    void mntBeeldControlperSegment_Click();
    void mntbeeldsleepdetail_Click();
    void mntBeeldGewichten_Click();
    void mntBeeldKleuren_Click();

    void mntBestandNieuw_Click();
    void mntBestandOpenen_Click();
    void mntBestandOpslaan_Click();
    void mntBestandExit_Click();
    void mntBewerkenSplinePunt_Click();
    void mntBewerkenSplineHelft_Click();
    void mntBewerkenKnopenZetOrde_Click();
    void mntBewerkenKnopenOpenUniform_Click();
    void mntBewerkenKnopenZetuniform_Click();
    void mntBewerkenWavelet_Click();
    void mntBewerkenUndo_Click();
    void mntBewerkenRedo_Click();
    // A figure of what the canvas shows now, as SVG, PDF or PNG (window/afbeelding.h).
    void mntExtraExporteren_Click();
    // The construction of a curve point over the canvas, with its window (window/constructie_beeld.h).
    void mntExtraConstructie_Click();
    // What the pointer rests on lights up in every pane (window/verbanden.h).
    void mntExtraVerbanden_Click();
    // The control points' numbers, the knots' values and the continuity at them.
    void mntExtraNummers_Click();
    // The manual, in a window of its own (F1).
    void mntExtraHandleiding_Click();
    // The version, the licence, and where the program directory and the settings file are.
    void mntExtraOver_Click();
    // A small form: the polygon's order and its knots' form (window/zwierlijn_orde.cpp).
    void mntExtraOrdeKiezen_Click();
    void zetOrde(int k, bool openUniform);
    // Order k to k + 1, the same curve.
    void mntExtraGraadVerhogen_Click();
    std::string overTekst() const;
    // The menu item of a name, as a click on it; false for a name that has no handler.
    bool klik(const std::string& naam);
    // The toolbar's click, by the clicked button's key.
    void Tb_ButtonClick(const std::string& key);

    // Where am I, for the status bar: the order, the points and segments, the knot vector's
    // form, the mode of a click and the file (window/zwierlijn_status.cpp).
    std::string waarBenIk() const;
    std::string knopenvorm() const;

    // The enabling and check marks of the menus and the toolbar, after every redraw.
    void zet_menus();
    void zet_knoppen();

    // The two picking modes of the canvas: the control point nearest to (X, Y), whose segments
    // are coloured, and the curve parameter t, whose segment's control points are.
    void kies_segment(float X, float Y);
    void kies_twaarde(double t);

    // The blending pane's knot marks below its axis and its frame.
    void teken_knoopmerken();
    void teken_mengkader();

    // Lays the knot pane along the bottom edge and draws it, or hides it.
    void plaats_knopenvenster();
    // A new drawing: the start-up again on fresh model objects.
    void herstart();
    // Closes the settings dialog, the weights window and this window; nothing is saved.
    void sluit_af();

    // --- View state ------------------------------------------------------------------------------
    // Detailed redraw while a control point is dragged.
    bool sleep_detail = true;
    // Numbers on: a way of looking, which "Nieuw" leaves as it is.
    bool nummers = false;
    bool knopen_zichtbaar = false;
    bool bezier = false;
    // The picking modes of a left click on the canvas, of which at most one is on.
    bool segmenten_per_controlepunt = false;
    bool controlepunten_per_segment = false;
    // What the picking modes picked last: a control point and a curve parameter. A pick the
    // curve no longer has is forgotten: the index becomes kGeenKeuze, the parameter NaN.
    static constexpr std::int32_t kGeenKeuze = -1;
    std::int32_t gekozen_index = 0;
    double gekozen_twaarde = 0.0;
    // The control point or knot being dragged.
    std::int32_t index = 0;
    // The evaluator's step before the drag started.
    double oude_stap = 0.2;

    // --- What the host answers for ---------------------------------------------------------------
    // The window's client area in its scale units (twips).
    virtual float scaleWidth() const = 0;
    virtual float scaleHeight() const = 0;

  protected:
    // Record r (1 .. 12) of the settings file, which the settings dialog keeps open.
    virtual std::int32_t instelling(int record) = 0;
    // Whether the settings file existed when the dialog opened it; "Nieuw" sets it, so that the
    // dialog is not shown again at the new start.
    virtual bool instellingenBestonden() = 0;
    virtual void zetInstellingenBestonden() = 0;
    virtual void toonKleurtjes(bool modal) = 0;
    virtual void sluitKleurtjes() = 0;
    // Shows the weights window without blocking. A host without a screen has no window to
    // show: the form is only told that it appeared, at the size it has.
    virtual void toonGewichten();
    // The status bar's line of where the user is; a host without a screen has none.
    virtual void toonStatus(const std::string& regel) { (void)regel; }
    // Shows or closes the construction's window; a host without a screen has none.
    virtual void toonConstructie(bool aan) { (void)aan; }
    // Closes the weights window, once the form has been unloaded.
    virtual void sluitGewichten() = 0;
    // The last step of sluit_af: the window itself goes.
    virtual void sluitVenster() = 0;

    Dialogs& dialogs() { return dialogs_; }

  private:
    void lees_instellingen();
    void vul_kleurentabel();
    void maak_undo_map();
    bool map_bestaat(const std::string& map) const;
    void zetDetail(const char* item, float stap);
    // A picking mode's item: on, it turns the other mode off; off, it clears the colouring.
    void wisselKiesmodus(bool& modus, const char* item, bool& andere, const char* andereItem);
    // The polygon with its points in their colours, while the blending pane or the weights
    // window is on.
    void tekenPolygoonInKleur();
    // The Bezier notation and the colourings over the curve.
    void tekenAfgeleid();
    void vergeetVerlopenKeuzes();
    // Whether t lies in the curve's real range.
    bool opDeKromme(double t) const;
    void sleepPunt(float X, float Y);
    // Where a file dialog opens, and the folder of a file the user chose in one.
    FileDialogRequest& waarBegint(FileDialogRequest& vraag) const;
    void onthoudMap(const std::string& bestand);
    // What a left click on the canvas does, by the modes: pick, append a point or insert a knot.
    void linkerklik(float X, float Y);
    // Unload of the weights window: the form's variables, the weights among them, stay.
    void ontlaadGewichten();
    void verbindPanelen();
    // The construction follows a redraw; its window with it.
    void volgConstructie();
    void meldConstructie();
    void meldStatus();
    void tekenNummers();

    std::string programDirectory_;
    Dialogs& dialogs_;

    // Surfaces first: the model objects draw on them.
    Surface doek_;
    Surface knopen_;
    Surface meng_;

    std::unique_ptr<coordinaten> polygon_;
    std::unique_ptr<BlossomFunctie> evaluator_;
    std::unique_ptr<KnoopVector> vec_;
    std::unique_ptr<Beeld> be_;
    std::unique_ptr<Wavelet> wavelet_;
    std::unique_ptr<Opslag> ops_;
    std::unique_ptr<GewichtenForm> gewichten_;
    std::unique_ptr<ConstructieBeeld> constructie_;
    std::unique_ptr<Verbanden> verbanden_;
    bool constructieGetoond_ = false;

    Array<Colour> kleuren_;
    FileDialogRequest bestandsdialoog_;
    // The folder of the last file opened or saved, figures included; kept across "Nieuw".
    std::string laatsteMap_;
    // The file last opened or saved; a new drawing has none.
    std::string laatsteBestand_;
    Bedieningen menus_;
    Bedieningen knoppen_;
};

}  // namespace zw
