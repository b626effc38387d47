#include "ui/kleurtjes.h"

#include <QApplication>
#include <QEvent>
#include <QFocusEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "platform/files.h"
#include "platform/numeric.h"
#include "platform/surface.h"
#include "platform/text.h"

namespace zw {

namespace {

struct ColourButton {
    const char* name;
    const char* caption;
    Colour MainWindow::*variabele;
    int record;
};

// The pairs are fixed, including the two whose caption and variable differ.
const ColourButton kColourButtons[] = {
    {"Datakleur", "Segmentpunten", &MainWindow::Datakleur, 1},
    {"Kromme", "Kromme", &MainWindow::krommekleur, 2},
    {"Control", "ControlePunten", &MainWindow::controlkleur, 3},
    {"DKKleur", "AchterGrond ", &MainWindow::doekkleur, 4},
    {"Lijn", "Lijn", &MainWindow::lijnkleur, 5},
    {"beeldkleur", "Beeldkleur", &MainWindow::segmentkleur, 8},
    {"Bezierkleur", "B\u00e9ziernotatie", &MainWindow::Bezierkleur, 10},
    {"Reeel", "Re\u00ebel KP", &MainWindow::Reeel, 11},
    {"virtueel", "Virtueel KP", &MainWindow::virtueel, 12},
};

}  // namespace

Kleurtjes::Kleurtjes(MainWindow& window, Dialogs& dialogs, EventGuard& guard,
                     const std::string& programDirectory, QWidget* parent)
    : QWidget(parent, Qt::Dialog), window_(window), dialogs_(dialogs), guard_(guard) {
    bestand_ = programDirectory + "\\zwierlijn";
    file_bestaat = FileExists(bestand_);
    if (!file_bestaat) {
        dialogs_.message("File: " + bestand_ +
                         " wordt aangemaakt nu. Vergeet het instellingen formulier niet te "
                         "initialiseren...");
    }
    file_ = std::make_unique<RecordFile>(bestand_);
    aantal_records_ = toLong(static_cast<double>(file_->length()) / 4.0);
    bouw();
}

Kleurtjes::~Kleurtjes() = default;

void Kleurtjes::bouw() {
    setObjectName(QStringLiteral("Kleurtjes"));
    setWindowTitle(QStringLiteral("Kleurtjes"));
    auto* grid = new QGridLayout(this);
    grid->addWidget(new QLabel(QStringLiteral("Kleuren Instellen:"), this), 0, 0, 1, 3);
    int i = 0;
    for (const ColourButton& b : kColourButtons) {
        auto* button = new QPushButton(QString::fromUtf8(b.caption), this);
        button->setObjectName(QString::fromLatin1(b.name));
        grid->addWidget(button, 1 + i / 3, i % 3);
        const ColourButton* pair = &b;
        connect(button, &QPushButton::clicked, this, [this, pair] {
            guard_.run([&] {
                kiesKleur(window_.*(pair->variabele), pair->record,
                          pair->variabele == &MainWindow::doekkleur);
            });
        });
        ++i;
    }
    grid->addWidget(new QLabel(QStringLiteral("Straal Instellen:"), this), 4, 0, 1, 3);
    grid->addWidget(new QLabel(QStringLiteral("Straal:"), this), 5, 0);
    straal_ = new QLineEdit(this);
    straal_->setObjectName(QStringLiteral("Straal"));
    grid->addWidget(straal_, 5, 1);
    grid->addWidget(
        new QLabel(QStringLiteral("Grootte Mengfuncties               Instellen:"), this), 6, 0, 1,
        3);
    grid->addWidget(new QLabel(QStringLiteral("Grootte"), this), 7, 0);
    bern_ = new QLineEdit(this);
    bern_->setObjectName(QStringLiteral("bern"));
    grid->addWidget(bern_, 7, 1);
    auto* exit = new QPushButton(QStringLiteral("Exit"), this);
    exit->setObjectName(QStringLiteral("Exit"));
    grid->addWidget(exit, 8, 2);
    connect(exit, &QPushButton::clicked, this, [this] { guard_.run([this] { Exit_Click(); }); });
    straal_->installEventFilter(this);
    bern_->installEventFilter(this);
}

QPushButton* Kleurtjes::knop(const QString& name) const {
    return findChild<QPushButton*>(name);
}

void Kleurtjes::showEvent(QShowEvent* event) {
    // Form_Load: the text boxes show the current values.
    guard_.run([this] { toonWaarden(); });
    QWidget::showEvent(event);
}

bool Kleurtjes::event(QEvent* event) {
    if (event->type() == QEvent::WindowActivate) {
        guard_.run([this] { Form_Activate(); });
    }
    return QWidget::event(event);
}

// Back in the dialog after a zoom, say: the boxes show the radius and size in force now.
void Kleurtjes::Form_Activate() {
    toonWaarden();
}

// A classic form validates a box when the focus moves on to another of its own controls. A
// switch to another window leaves the box as it is: its text may be older than the value (a zoom
// halves the radius), and validating it then would silently undo that.
bool Kleurtjes::naarAnderVeld(const QEvent* event) const {
    const auto reason = static_cast<const QFocusEvent*>(event)->reason();
    if (reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason) {
        return false;
    }
    const QWidget* nieuw = QApplication::focusWidget();
    return nieuw != nullptr && isAncestorOf(nieuw);
}

// Enter in a text box is its KeyPress with key code 13; moving on to another control is its
// Validate.
bool Kleurtjes::eventFilter(QObject* watched, QEvent* event) {
    const bool enter = event->type() == QEvent::KeyPress &&
                       (static_cast<QKeyEvent*>(event)->key() == Qt::Key_Return ||
                        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Enter);
    const bool valideer = event->type() == QEvent::FocusOut && naarAnderVeld(event);
    if (watched == straal_ && (enter || valideer)) {
        guard_.run([this] { Straal_Validate(); });
    } else if (watched == bern_ && enter) {
        guard_.run([this] { bern_KeyPress_Enter(); });
    } else if (watched == bern_ && valideer) {
        guard_.run([this] { bern_Validate(); });
    }
    return QWidget::eventFilter(watched, event);
}

void Kleurtjes::toonWaarden() {
    straal_->setText(QString::fromStdString(doubleToText(window_.ControleStraal)));
    bern_->setText(QString::fromStdString(doubleToText(window_.berngrootte)));
}

void Kleurtjes::ververs() {
    window_.Doek().refresh();
}

// A cancelled colour dialog changes nothing.
void Kleurtjes::kiesKleur(Colour& variabele, int record, bool achtergrond) {
    const std::optional<Colour> gekozen = dialogs_.chooseColour(variabele);
    if (!gekozen) {
        return;
    }
    variabele = *gekozen;
    if (achtergrond) {
        window_.Doek().setBackColour(variabele);
    }
    ververs();
    file_->putLong(record, variabele);
}

void Kleurtjes::Straal_Validate() {
    window_.ControleStraal = toLong(val(straal_->text().toStdString()));
    ververs();
    waarde_ = window_.ControleStraal;
    file_->putLong(6, waarde_);
}

void Kleurtjes::bern_Validate() {
    waarde_ = toLong(val(bern_->text().toStdString()));
    window_.berngrootte = waarde_;
    ververs();
    file_->putLong(7, waarde_);
}

// Applies the last validated value; the text is not read again.
void Kleurtjes::bern_KeyPress_Enter() {
    window_.berngrootte = waarde_;
    ververs();
}

void Kleurtjes::Exit_Click() {
    window_.ControleStraal = toLong(val(straal_->text().toStdString()));
    window_.berngrootte = toLong(val(bern_->text().toStdString()));
    close();
}

}  // namespace zw
