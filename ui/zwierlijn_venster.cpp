#include "ui/zwierlijn_venster.h"

#include <QAction>
#include <QCloseEvent>
#include <QCursor>
#include <QToolTip>
#include <QGuiApplication>
#include <QKeySequence>
#include <QLabel>
#include <QLayout>
#include <QMenuBar>
#include <QScreen>
#include <QStatusBar>
#include <QToolBar>

#include "platform/record_file.h"
#include "platform/qimage_sink.h"
#include "platform/runtime_error.h"
#include "ui/constructie_venster.h"
#include "ui/gewichten_venster.h"
#include "ui/handleiding_venster.h"
#include "ui/kleurtjes.h"
#include "ui/menus.h"
#include "ui/surface_widget.h"
#include "ui/werkbalk.h"

namespace zw {

namespace {

// A comfortable first size: large enough for a curve and the knot pane, never larger than most
// of the screen.
constexpr int kFirstWidth = 1200;
constexpr int kFirstHeight = 820;
constexpr double kMostOfTheScreen = 0.9;

}  // namespace

ZwierlijnVenster::ZwierlijnVenster(std::string programDirectory, Dialogs& dialogs,
                                   EventGuard& guard)
    : Zwierlijn(std::move(programDirectory), dialogs), guard_(guard) {
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
ZwierlijnVenster::~ZwierlijnVenster() {
    kleurtjes_.reset();
    gewichtenVenster_.reset();
    delete formulier_;
}

void ZwierlijnVenster::bouwVenster() {
    setObjectName(QStringLiteral("Zwierlijn"));
    setWindowTitle(QStringLiteral("Zwierlijn"));

    menus_ = std::make_unique<Menus>(*menuBar(), guard_,
                                     [this](const QString& naam) { klik(naam.toStdString()); });
    tb_ = addToolBar(QStringLiteral("Tb"));
    tb_->setObjectName(QStringLiteral("Tb"));
    tb_->setMovable(false);
    tb_->setIconSize(QSize(24, 24));
    tb_->setToolButtonStyle(Qt::ToolButtonIconOnly);
    werkbalk_ = std::make_unique<Werkbalk>(
        *tb_, guard_, [this](const QString& key) { Tb_ButtonClick(key.toStdString()); });
    volgBedieningen();
    coordLabel_ = new QLabel(QStringLiteral("Vanalles en nog wa"), this);
    coordLabel_->setObjectName(QStringLiteral("CoordLabel"));
    statusBar()->addWidget(coordLabel_);
    // Where the user is, at the bar's right end.
    statusLabel_ = new QLabel(this);
    statusLabel_->setObjectName(QStringLiteral("Status"));
    statusBar()->addPermanentWidget(statusLabel_);

    // The client area is the classic form: its children are placed in twips.
    formulier_ = new QWidget(this);
    formulier_->setObjectName(QStringLiteral("formulier"));
    setCentralWidget(formulier_);

    // The knot pane keeps the light grey of a classic picture box.
    Knopen().setBackColour(fromQColor(palette().color(QPalette::Window)));
    for (Surface* s : {&Doek(), &Knopen(), &meng()}) {
        s->setDevicePixelRatio(devicePixelRatioF());
    }
    doekWidget_ = new SurfaceWidget(Doek(), guard_, formulier_);
    doekWidget_->setObjectName(QStringLiteral("Doek"));
    knopenWidget_ = new SurfaceWidget(Knopen(), guard_, formulier_);
    knopenWidget_->setObjectName(QStringLiteral("Knopen"));
    knopenWidget_->raise();
    mengWidget_ = new SurfaceWidget(meng(), guard_, doekWidget_);
    mengWidget_->setObjectName(QStringLiteral("meng"));
    zetSneltoetsen();

    QSize size(kFirstWidth, kFirstHeight);
    if (const QScreen* screen = QGuiApplication::primaryScreen()) {
        size = size.boundedTo(screen->availableSize() * kMostOfTheScreen);
    }
    resize(size);
    // The start-up lays out its panes in the client area before the window is shown.
    layout()->activate();
}

// Menu items and toolbar buttons show what the window's handlers have set, and nothing else.
void ZwierlijnVenster::volgBedieningen() {
    menus().setObserver([this](const std::string& naam) {
        if (QAction* item = menus_->item(QString::fromStdString(naam))) {
            item->setEnabled(menus().aan(naam));
            item->setChecked(menus().vinkje(naam));
        }
    });
    knoppen().setObserver([this](const std::string& key) {
        if (QAction* knop = werkbalk_->knop(QString::fromStdString(key))) {
            knop->setEnabled(knoppen().aan(key));
            knop->setChecked(knoppen().vinkje(key));
        }
    });
}

// The shortcuts of a desktop editor, on top of the access keys of the captions.
void ZwierlijnVenster::zetSneltoetsen() {
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
        {"mntExtraConstructie", {QKeySequence(Qt::CTRL | Qt::Key_T)}},
        {"mntExtraHandleiding", {QKeySequence(Qt::Key_F1)}},
    };
    for (const auto& [naam, toetsen] : sneltoetsen) {
        menu(QString::fromLatin1(naam))->setShortcuts(toetsen);
    }
}

QAction* ZwierlijnVenster::knop(const QString& key) const {
    QAction* action = werkbalk_->knop(key);
    if (action == nullptr) {
        zw::raise(kErrInternal);
    }
    return action;
}

QAction* ZwierlijnVenster::menu(const QString& name) const {
    QAction* action = menus_->item(name);
    if (action == nullptr) {
        zw::raise(kErrInternal);
    }
    return action;
}

float ZwierlijnVenster::scaleWidth() const {
    return static_cast<float>(formulier_->width() * kTwipsPerPixel);
}

float ZwierlijnVenster::scaleHeight() const {
    return static_cast<float>(formulier_->height() * kTwipsPerPixel);
}

// --- The settings dialog -----------------------------------------------------------------------

Kleurtjes& ZwierlijnVenster::kleurtjes() {
    if (!kleurtjes_) {
        kleurtjes_ =
            std::make_unique<Kleurtjes>(*this, dialogs(), guard_, programDirectory(), this);
    }
    return *kleurtjes_;
}

std::int32_t ZwierlijnVenster::instelling(int record) {
    return kleurtjes().instellingen().getLong(record);
}

bool ZwierlijnVenster::instellingenBestonden() {
    return kleurtjes().file_bestaat;
}

void ZwierlijnVenster::zetInstellingenBestonden() {
    kleurtjes().file_bestaat = true;
}

void ZwierlijnVenster::toonKleurtjes(bool modal) {
    dialogs().show(kleurtjes(), modal);
}

void ZwierlijnVenster::sluitKleurtjes() {
    kleurtjes_.reset();
}

// --- The weights window ------------------------------------------------------------------------

GewichtenVenster& ZwierlijnVenster::gewichtenVenster() {
    if (!gewichtenVenster_) {
        gewichtenVenster_ = std::make_unique<GewichtenVenster>(gewichten(), guard_, *this);
    }
    return *gewichtenVenster_;
}

void ZwierlijnVenster::toonGewichten() {
    dialogs().show(gewichtenVenster(), false);
}

void ZwierlijnVenster::sluitGewichten() {
    if (gewichtenVenster_) {
        gewichtenVenster_->close();
    }
}

// A manual that was closed opens again on its first page.
void ZwierlijnVenster::toonHandleiding() {
    if (!handleiding_) {
        handleiding_ = std::make_unique<HandleidingVenster>(*this);
    }
    if (handleiding_->isHidden()) {
        handleiding_->open(QStringLiteral("eerste-kromme.html"));
    }
    dialogs().show(*handleiding_, false);
}

void ZwierlijnVenster::toonTip(const std::string& tekst) {
    if (tekst.empty()) {
        QToolTip::hideText();
    } else {
        QToolTip::showText(QCursor::pos(), QString::fromStdString(tekst), this);
    }
}

void ZwierlijnVenster::toonStatus(const std::string& regel) {
    if (statusLabel_ != nullptr) {
        statusLabel_->setText(QString::fromStdString(regel));
    }
}

// --- The construction's window -----------------------------------------------------------------

void ZwierlijnVenster::toonConstructie(bool aan) {
    if (aan) {
        if (!constructieVenster_) {
            constructieVenster_ = std::make_unique<ConstructieVenster>(
                constructie(), guard_, [this] { mntExtraConstructie_Click(); }, *this);
        }
        constructieVenster_->bijwerken();
        if (constructieVenster_->isHidden()) {
            dialogs().show(*constructieVenster_, false);
        }
    } else if (constructieVenster_) {
        constructieVenster_->stop();
        constructieVenster_->hide();
    }
}

// --- Closing -----------------------------------------------------------------------------------

void ZwierlijnVenster::sluitVenster() {
    if (!sluitend_) {
        sluitend_ = true;
        close();
    }
}

void ZwierlijnVenster::closeEvent(QCloseEvent* event) {
    if (!sluitend_) {
        sluitend_ = true;
        guard_.run([this] { sluit_af(); });
    }
    event->accept();
}

bool ZwierlijnVenster::eventFilter(QObject* watched, QEvent* event) {
    if (watched == formulier_ && event->type() == QEvent::Resize) {
        guard_.run([this] { Form_Resize(); });
    }
    return QMainWindow::eventFilter(watched, event);
}

}  // namespace zw
