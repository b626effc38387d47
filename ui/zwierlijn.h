// The main window: the canvas `Doek`, the knot pane `Knopen` along the bottom, the blending pane
// `meng` in the canvas' top-right corner, the toolbar `Tb`, the menus and the label `CoordLabel`.
// It owns the model objects for the whole run, holds the view state, and carries the event
// handlers of the canvas, the knot pane and the view menu. The model reads it through the
// MainWindow interface.
#pragma once

#include <QMainWindow>
#include <memory>
#include <string>

#include "platform/array.h"
#include "platform/dialogs.h"
#include "platform/event_guard.h"
#include "platform/main_window.h"
#include "platform/surface.h"

class QAction;
class QLabel;
class QToolBar;

namespace zw {

class Beeld;
class Kleurtjes;
class Menus;
class Werkbalk;
class Opslag;
class Punt;
class SurfaceWidget;
class Wavelet;

class Zwierlijn : public QMainWindow, public MainWindow {
  public:
    // Starts the program in the program directory: Form_Initialize, then Form_Load (which shows
    // the settings dialog modally on a first start). The window is not shown yet.
    Zwierlijn(std::string programDirectory, Dialogs& dialogs, EventGuard& guard);
    ~Zwierlijn() override;

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
    // The settings dialog; made (and its settings file opened) on first use.
    Kleurtjes& kleurtjes();

    // --- Drawing on the canvas -------------------------------------------------------------------
    void teken_lijn(const Punt& P1, const Punt& P2, Colour kleur);
    void teken_punt(float index, bool gemarkeerd);

    // --- Event handlers --------------------------------------------------------------------------
    void Doek_MouseDown(int Button, int Shift, float X, float Y);
    void Doek_MouseMove(int Button, int Shift, float X, float Y);
    void Doek_MouseUp(int Button, int Shift, float X, float Y);
    void Doek_Paint();
    void Knopen_MouseDown(int Button, int Shift, float X, float Y);
    void Knopen_MouseMove(int Button, int Shift, float X, float Y);
    void Knopen_MouseUp(int Button, int Shift, float X, float Y);

    void mntBeeldZoomInzoemen_Click();
    void mntBeeldZoomUitzoemen_Click();
    void mntBeeldZoomNormaal_Click();
    void mntBeeldDetailLow_Click();
    void mntBeeldDetailNormaal_Click();
    void mntBeeldDetailHigh_Click();
    void mntBeeldKnopenVector_Click();
    void mntBeeldKnooppunten_Click();
    void mntbeeldsleepdetail_Click();
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
    // The toolbar's click, by the clicked button's key.
    void Tb_ButtonClick(const QString& key);

    // The enabling and check marks of the menus and the toolbar, after every redraw.
    void zet_menus();
    void zet_knoppen();

    // Lays the knot pane along the bottom edge and draws it, or hides it.
    void plaats_knopenvenster();
    // A new drawing: the start-up again on fresh model objects.
    void herstart();
    // Closes the settings dialog, the weights window and this window; nothing is saved.
    void sluit_af();

    // --- View state
    // -------------------------------------------------------------------------------- Detailed
    // redraw while a control point is dragged.
    bool sleep_detail = true;
    bool knopen_zichtbaar = false;
    bool bezier = false;
    bool segmenten_per_controlepunt = false;
    bool controlepunten_per_segment = false;
    std::int32_t gekozen_index = 0;
    double gekozen_twaarde = 0.0;
    // The control point or knot being dragged.
    std::int32_t index = 0;
    // The evaluator's step before the drag started.
    double oude_stap = 0.2;

    // --- Widgets
    // -----------------------------------------------------------------------------------
    QAction* menu(const QString& name) const;
    SurfaceWidget& doekWidget() const { return *doekWidget_; }
    SurfaceWidget& knopenWidget() const { return *knopenWidget_; }
    SurfaceWidget& mengWidget() const { return *mengWidget_; }
    QToolBar& Tb() const { return *tb_; }
    // A toolbar button by its key.
    QAction* knop(const QString& key) const;
    QLabel& CoordLabel() const { return *coordLabel_; }
    const FileDialogRequest& bestandsdialoog() const { return bestandsdialoog_; }
    // The window's client area in its scale units (twips).
    float scaleWidth() const;
    float scaleHeight() const;

  protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void bouwVenster();
    void verbindPanelen();
    void verbindMenus();
    void zetSneltoetsen();
    void Form_Initialize();
    void Form_Load();
    void Form_Resize();
    void lees_instellingen();
    void vul_kleurentabel();
    void maak_undo_map();
    bool map_bestaat(const std::string& map) const;
    void zetDetail(const char* item, float stap);
    void sleepPunt(float X, float Y);

    std::string programDirectory_;
    Dialogs& dialogs_;
    EventGuard& guard_;

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
    std::unique_ptr<Kleurtjes> kleurtjes_;

    Array<Colour> kleuren_;
    FileDialogRequest bestandsdialoog_;
    bool sluitend_ = false;

    QWidget* formulier_ = nullptr;
    SurfaceWidget* doekWidget_ = nullptr;
    SurfaceWidget* knopenWidget_ = nullptr;
    SurfaceWidget* mengWidget_ = nullptr;
    QToolBar* tb_ = nullptr;
    QLabel* coordLabel_ = nullptr;
    std::unique_ptr<Menus> menus_;
    std::unique_ptr<Werkbalk> werkbalk_;
};

}  // namespace zw
