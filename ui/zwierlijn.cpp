#include "ui/zwierlijn.h"

#include <QAction>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QKeySequence>
#include <QLabel>
#include <QLayout>
#include <QMenuBar>
#include <QResizeEvent>
#include <QScreen>
#include <QStatusBar>
#include <QToolBar>
#include <algorithm>

#include "geometry/coordinaten.h"
#include "knots/knoop_vector.h"
#include "platform/files.h"
#include "platform/numeric.h"
#include "spline/blossom_functie.h"
#include "storage/opslag.h"
#include "ui/kleurtjes.h"
#include "ui/menus.h"
#include "ui/surface_widget.h"
#include "ui/werkbalk.h"
#include "views/beeld.h"
#include "wavelet/wavelet.h"
#include "weights/gewichten_form.h"

namespace zw {

namespace {

// A comfortable first size: large enough for a curve and the knot pane, never larger than most
// of the screen.
constexpr int kFirstWidth = 1200;
constexpr int kFirstHeight = 820;
constexpr double kMostOfTheScreen = 0.9;

}  // namespace

Zwierlijn::Zwierlijn(std::string programDirectory, Dialogs& dialogs, EventGuard& guard)
    : programDirectory_(std::move(programDirectory)), dialogs_(dialogs), guard_(guard) {
    bouwVenster();
    // A start-up that fails (a settings file that cannot be made, say) shows its error; the
    // window still works with what was made.
    guard_.run([this] { Form_Initialize(); });
    guard_.run([this] { Form_Load(); });
    // From now on every new size of the client area is the form's resize.
    formulier_->installEventFilter(this);
}

// The widgets show the surfaces and the settings dialog reads this window: both go before the
// members they point into.
Zwierlijn::~Zwierlijn() {
    kleurtjes_.reset();
    delete formulier_;
}

void Zwierlijn::bouwVenster() {
    setObjectName(QStringLiteral("Zwierlijn"));
    setWindowTitle(QStringLiteral("Zwierlijn"));

    menus_ = std::make_unique<Menus>(*menuBar(), guard_);
    tb_ = addToolBar(QStringLiteral("Tb"));
    tb_->setObjectName(QStringLiteral("Tb"));
    tb_->setMovable(false);
    tb_->setIconSize(QSize(24, 24));
    tb_->setToolButtonStyle(Qt::ToolButtonIconOnly);
    werkbalk_ = std::make_unique<Werkbalk>(*tb_, guard_,
                                           [this](const QString& key) { Tb_ButtonClick(key); });
    coordLabel_ = new QLabel(QStringLiteral("Vanalles en nog wa"), this);
    coordLabel_->setObjectName(QStringLiteral("CoordLabel"));
    statusBar()->addWidget(coordLabel_);

    // The client area is the classic form: its children are placed in twips.
    formulier_ = new QWidget(this);
    formulier_->setObjectName(QStringLiteral("formulier"));
    setCentralWidget(formulier_);

    // The knot pane keeps the light grey of a classic picture box.
    const Colour paneel = fromQColor(palette().color(QPalette::Window));
    knopen_.setBackColour(paneel);
    meng_.setContainer(&doek_);
    for (Surface* s : {&doek_, &knopen_, &meng_}) {
        s->setDevicePixelRatio(devicePixelRatioF());
    }
    doekWidget_ = new SurfaceWidget(doek_, guard_, formulier_);
    doekWidget_->setObjectName(QStringLiteral("Doek"));
    knopenWidget_ = new SurfaceWidget(knopen_, guard_, formulier_);
    knopenWidget_->setObjectName(QStringLiteral("Knopen"));
    knopenWidget_->raise();
    mengWidget_ = new SurfaceWidget(meng_, guard_, doekWidget_);
    mengWidget_->setObjectName(QStringLiteral("meng"));
    meng_.move(0, 0, 0, 0);
    verbindPanelen();
    verbindMenus();
    zetSneltoetsen();

    QSize size(kFirstWidth, kFirstHeight);
    if (const QScreen* screen = QGuiApplication::primaryScreen()) {
        size = size.boundedTo(screen->availableSize() * kMostOfTheScreen);
    }
    resize(size);
    // The start-up lays out its panes in the client area before the window is shown.
    layout()->activate();
}

void Zwierlijn::verbindPanelen() {
    doek_.setPaintHandler([this] { Doek_Paint(); });
    doek_.setMouseDownHandler(
        [this](int b, int s, float x, float y) { Doek_MouseDown(b, s, x, y); });
    doek_.setMouseMoveHandler(
        [this](int b, int s, float x, float y) { Doek_MouseMove(b, s, x, y); });
    doek_.setMouseUpHandler([this](int b, int s, float x, float y) { Doek_MouseUp(b, s, x, y); });
    // The pane's image is made anew for a new size or another screen's pixel ratio: draw it again.
    knopen_.setPaintHandler([this] {
        if (vec_ && knopen_.width() > 0.0 && vec_->knopenlengte > 0.0f) {
            vec_->teken_lijn();
            vec_->teken_vector();
        }
    });
    knopen_.setMouseDownHandler(
        [this](int b, int s, float x, float y) { Knopen_MouseDown(b, s, x, y); });
    knopen_.setMouseMoveHandler(
        [this](int b, int s, float x, float y) { Knopen_MouseMove(b, s, x, y); });
    knopen_.setMouseUpHandler(
        [this](int b, int s, float x, float y) { Knopen_MouseUp(b, s, x, y); });
}

void Zwierlijn::verbindMenus() {
    const std::pair<const char*, void (Zwierlijn::*)()> handlers[] = {
        {"mntBeeldZoomInzoemen", &Zwierlijn::mntBeeldZoomInzoemen_Click},
        {"mntBeeldZoomUitzoemen", &Zwierlijn::mntBeeldZoomUitzoemen_Click},
        {"mntBeeldZoomNormaal", &Zwierlijn::mntBeeldZoomNormaal_Click},
        {"mntBeeldDetailLow", &Zwierlijn::mntBeeldDetailLow_Click},
        {"mntBeeldDetailNormaal", &Zwierlijn::mntBeeldDetailNormaal_Click},
        {"mntBeeldDetailHigh", &Zwierlijn::mntBeeldDetailHigh_Click},
        {"mntBeeldKnopenVector", &Zwierlijn::mntBeeldKnopenVector_Click},
        {"mntBeeldKnooppunten", &Zwierlijn::mntBeeldKnooppunten_Click},
        {"mntbeeldsleepdetail", &Zwierlijn::mntbeeldsleepdetail_Click},
        {"mntBeeldKleuren", &Zwierlijn::mntBeeldKleuren_Click},
        {"mntBestandNieuw", &Zwierlijn::mntBestandNieuw_Click},
        {"mntBestandOpenen", &Zwierlijn::mntBestandOpenen_Click},
        {"mntBestandOpslaan", &Zwierlijn::mntBestandOpslaan_Click},
        {"mntBestandExit", &Zwierlijn::mntBestandExit_Click},
        {"mntBewerkenSplinePunt", &Zwierlijn::mntBewerkenSplinePunt_Click},
        {"mntBewerkenSplineHelft", &Zwierlijn::mntBewerkenSplineHelft_Click},
        {"mntBewerkenKnopenZetOrde", &Zwierlijn::mntBewerkenKnopenZetOrde_Click},
        {"mntBewerkenKnopenOpenUniform", &Zwierlijn::mntBewerkenKnopenOpenUniform_Click},
        {"mntBewerkenKnopenZetuniform", &Zwierlijn::mntBewerkenKnopenZetuniform_Click},
        {"mntBewerkenWavelet", &Zwierlijn::mntBewerkenWavelet_Click},
        {"mntBewerkenUndo", &Zwierlijn::mntBewerkenUndo_Click},
        {"mntBewerkenRedo", &Zwierlijn::mntBewerkenRedo_Click},
    };
    for (const auto& [name, handler] : handlers) {
        menus_->onClick(QString::fromLatin1(name), [this, h = handler] { (this->*h)(); });
    }
}

// The shortcuts of a desktop editor, on top of the access keys of the captions.
void Zwierlijn::zetSneltoetsen() {
    const std::pair<const char*, QList<QKeySequence>> sneltoetsen[] = {
        {"mntBestandNieuw", {QKeySequence::New}},
        {"mntBestandOpenen", {QKeySequence::Open}},
        {"mntBestandOpslaan", {QKeySequence::Save}},
        {"mntBewerkenUndo", {QKeySequence(Qt::CTRL | Qt::Key_Z)}},
        {"mntBewerkenRedo",
         {QKeySequence(Qt::CTRL | Qt::Key_Y), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z)}},
        {"mntBeeldZoomInzoemen",
         {QKeySequence(Qt::CTRL | Qt::Key_Plus), QKeySequence(Qt::CTRL | Qt::Key_Equal)}},
        {"mntBeeldZoomUitzoemen", {QKeySequence(Qt::CTRL | Qt::Key_Minus)}},
        {"mntBeeldZoomNormaal", {QKeySequence(Qt::CTRL | Qt::Key_0)}},
    };
    for (const auto& [naam, toetsen] : sneltoetsen) {
        menu(QString::fromLatin1(naam))->setShortcuts(toetsen);
    }
}

QAction* Zwierlijn::knop(const QString& key) const {
    QAction* action = werkbalk_->knop(key);
    if (action == nullptr) {
        zw::raise(kErrInternal);
    }
    return action;
}

QAction* Zwierlijn::menu(const QString& name) const {
    QAction* action = menus_->item(name);
    if (action == nullptr) {
        zw::raise(kErrInternal);
    }
    return action;
}

float Zwierlijn::scaleWidth() const {
    return static_cast<float>(formulier_->width() * kTwipsPerPixel);
}

float Zwierlijn::scaleHeight() const {
    return static_cast<float>(formulier_->height() * kTwipsPerPixel);
}

Kleurtjes& Zwierlijn::kleurtjes() {
    if (!kleurtjes_) {
        kleurtjes_ = std::make_unique<Kleurtjes>(*this, dialogs_, guard_, programDirectory_, this);
    }
    return *kleurtjes_;
}

GewichtenForm& Zwierlijn::gewichten() {
    if (!gewichten_) {
        gewichten_ = std::make_unique<GewichtenForm>(*this);
    }
    return *gewichten_;
}

void Zwierlijn::save() {
    ops_->save();
}

Colour Zwierlijn::kleur(double i) {
    return kleuren_(toLong(i) % 8);
}

// --- Start-up --------------------------------------------------------------------------------

void Zwierlijn::Form_Initialize() {
    polygon_ = std::make_unique<coordinaten>(*this);
    evaluator_ = std::make_unique<BlossomFunctie>(*this);
    vec_ = std::make_unique<KnoopVector>(*this);
    be_ = std::make_unique<Beeld>(*this);
    wavelet_ = std::make_unique<Wavelet>(*this, dialogs_, programDirectory_);
    ops_ = std::make_unique<Opslag>(*this, dialogs_, programDirectory_);
    kleuren_.redim(8);
    lees_instellingen();
    vul_kleurentabel();
    breedtestap = 2000.0f;
    vectorlengte = toSingle(knopen_.scaleWidth() - breedtestap);
    hoogte = 500.0f;
    segment = false;
    bezier = false;
    mengstat = false;
    segmenten_per_controlepunt = false;
    controlepunten_per_segment = false;
    plaats_knopenvenster();
    Schaal = 2;
    BollenStraal = 60;
    vec_->openuniform = false;
    knopen_zichtbaar = false;
    knopen_.move(0, 0, 0, 0);
    menu(QStringLiteral("mntBeeldKnopenVector"))->setChecked(true);
    sleep_detail = true;
    knooppunten = true;
    menu(QStringLiteral("mntBeeldKnooppunten"))->setChecked(true);
    bestandsdialoog_.defaultExtension = ".zwl";
    bestandsdialoog_.filter = "zwierlijnbestanden (*.zwl) |*.zwl|alle bestanden (*.*)|*.*";
    gewichtstat = false;
}

// Records are read in this order; record 9 is read into `Schaal` and overwritten later.
void Zwierlijn::lees_instellingen() {
    const RecordFile& f = kleurtjes().instellingen();
    Datakleur = f.getLong(1);
    controlkleur = f.getLong(3);
    lijnkleur = f.getLong(5);
    krommekleur = f.getLong(2);
    doekkleur = f.getLong(4);
    berngrootte = f.getLong(7);
    ControleStraal = f.getLong(6);
    segmentkleur = f.getLong(8);
    Schaal = f.getLong(9);
    Bezierkleur = f.getLong(10);
    Reeel = f.getLong(11);
    virtueel = f.getLong(12);
}

void Zwierlijn::vul_kleurentabel() {
    kleuren_(0.0) = rgb(225, 225, 225);
    const int palet[] = {10, 13, 14, 11, 8, 9, 4};
    double i = 1.0;
    for (int nummer : palet) {
        kleuren_(i) = qbColour(nummer);
        i += 1.0;
    }
}

void Zwierlijn::Form_Load() {
    knopen_.move(0, 0, knopen_.width(), knopen_.height());
    doek_.move(0, 0, scaleWidth(), scaleHeight());
    mntBeeldKnopenVector_Click();
    maak_undo_map();
    ops_->save();
    mntBeeldZoomNormaal_Click();
    mntBeeldDetailHigh_Click();
    if (!kleurtjes().file_bestaat) {
        dialogs_.show(kleurtjes(), true);
    }
}

void Zwierlijn::maak_undo_map() {
    const std::string map = programDirectory_ + "\\undoredo";
    if (!map_bestaat(map)) {
        makeDirectory(map);
    }
}

bool Zwierlijn::map_bestaat(const std::string& map) const {
    return directoryExists(map + "\\.");
}

void Zwierlijn::Form_Resize() {
    doek_.move(0, 0, scaleWidth(), scaleHeight());
    vectorlengte = toSingle(static_cast<double>(scaleWidth()) - breedtestap);
    if (knopen_zichtbaar) {
        knopen_zichtbaar = false;
        mntBeeldKnopenVector_Click();
    }
}

void Zwierlijn::plaats_knopenvenster() {
    if (knopen_zichtbaar && polygon_->orde > 0.0f) {
        const float paneel = multiplySingle(1.5f, hoogte);
        knopen_.move(0, addSingle(scaleHeight(), -paneel), scaleWidth(), paneel);
        vec_->teken_lijn();
        vec_->teken_vector();
    } else {
        knopen_.move(0, 0, 0, 0);
    }
}

void Zwierlijn::herstart() {
    Form_Initialize();
    polygon_->restart();
    vec_->restart();
    ops_->restart();
    Form_Load();
    doek_.refresh();
}

void Zwierlijn::sluit_af() {
    kleurtjes_.reset();
    if (!sluitend_) {
        sluitend_ = true;
        close();
    }
}

void Zwierlijn::closeEvent(QCloseEvent* event) {
    if (!sluitend_) {
        sluitend_ = true;
        guard_.run([this] { sluit_af(); });
    }
    event->accept();
}

bool Zwierlijn::eventFilter(QObject* watched, QEvent* event) {
    if (watched == formulier_ && event->type() == QEvent::Resize) {
        guard_.run([this] { Form_Resize(); });
    }
    return QMainWindow::eventFilter(watched, event);
}

}  // namespace zw
