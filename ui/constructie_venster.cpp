#include "ui/constructie_venster.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QSlider>
#include <QTimer>
#include <QVBoxLayout>
#include <cmath>
#include <optional>

#include "window/constructie_beeld.h"

namespace zw {

namespace {

constexpr int kSchuifStappen = 1000;
// Once across the range in about four seconds.
constexpr int kSpeelStappen = 100;
constexpr int kSpeelMs = 40;

}  // namespace

ConstructieVenster::ConstructieVenster(ConstructieBeeld& beeld, EventGuard& guard,
                                       std::function<void()> uit, QWidget& hoofdvenster)
    : QWidget(&hoofdvenster, Qt::Tool),
      beeld_(beeld),
      guard_(guard),
      uit_(std::move(uit)),
      hoofdvenster_(hoofdvenster) {
    setObjectName(QStringLiteral("Constructie"));
    setWindowTitle(QStringLiteral("Constructie"));
    bouw();
    klok_ = new QTimer(this);
    klok_->setInterval(kSpeelMs);
    connect(klok_, &QTimer::timeout, this, [this] { speel(); });
    // Beside the editor, at its top right.
    const QRect r = hoofdvenster.frameGeometry();
    move(r.right() + 8, r.top());
}

ConstructieVenster::~ConstructieVenster() = default;

void ConstructieVenster::bouw() {
    naam_ = new QLabel(this);
    schuif_ = new QSlider(Qt::Horizontal, this);
    schuif_->setRange(0, kSchuifStappen);
    // Left and Right: a hundredth of the range.
    schuif_->setSingleStep(kSchuifStappen / 100);
    schuif_->setPageStep(kSchuifStappen / 10);
    getal_ = new QDoubleSpinBox(this);
    getal_->setDecimals(3);
    getal_->setKeyboardTracking(false);
    segment_ = new QLabel(this);
    vorige_ = new QPushButton(QStringLiteral("Vorige stap"), this);
    volgende_ = new QPushButton(QStringLiteral("Volgende stap"), this);
    niveau_ = new QLabel(this);
    afspelen_ = new QPushButton(QStringLiteral("Afspelen"), this);
    labels_ = new QCheckBox(QStringLiteral("Labels"), this);
    raaklijn_ = new QCheckBox(QStringLiteral("Raaklijn"), this);
    invoegen_ = new QPushButton(QStringLiteral("Invoegen"), this);

    auto* raster = new QGridLayout(this);
    raster->addWidget(naam_, 0, 0, 1, 3);
    raster->addWidget(new QLabel(QStringLiteral("t"), this), 1, 0);
    raster->addWidget(schuif_, 1, 1);
    raster->addWidget(getal_, 1, 2);
    raster->addWidget(segment_, 2, 1, 1, 2);
    raster->addWidget(vorige_, 3, 0, 1, 2);
    raster->addWidget(volgende_, 3, 2);
    raster->addWidget(niveau_, 4, 0, 1, 3);
    raster->addWidget(afspelen_, 5, 0, 1, 2);
    raster->addWidget(invoegen_, 5, 2);
    raster->addWidget(labels_, 6, 0, 1, 2);
    raster->addWidget(raaklijn_, 6, 2);

    connect(schuif_, &QSlider::valueChanged, this, [this](int waarde) {
        doe([&] {
            if (const std::optional<Bereik> b = beeld_.bereik()) {
                beeld_.zetT(b->begin + (b->eind - b->begin) * waarde / kSchuifStappen);
            }
        });
    });
    connect(getal_, qOverload<double>(&QDoubleSpinBox::valueChanged), this,
            [this](double t) { doe([&] { beeld_.zetT(t); }); });
    connect(vorige_, &QPushButton::clicked, this,
            [this] { doe([&] { beeld_.zetNiveau(beeld_.niveau() - 1); }); });
    connect(volgende_, &QPushButton::clicked, this,
            [this] { doe([&] { beeld_.zetNiveau(beeld_.niveau() + 1); }); });
    connect(labels_, &QCheckBox::toggled, this,
            [this](bool aan) { doe([&] { beeld_.zetLabels(aan); }); });
    connect(raaklijn_, &QCheckBox::toggled, this,
            [this](bool aan) { doe([&] { beeld_.zetRaaklijn(aan); }); });
    connect(invoegen_, &QPushButton::clicked, this, [this] { doe([&] { beeld_.invoegen(); }); });
    connect(afspelen_, &QPushButton::clicked, this, [this] {
        if (klok_->isActive()) {
            stop();
        } else {
            afgespeeld_ = 0;
            klok_->start();
            afspelen_->setText(QStringLiteral("Stoppen"));
        }
    });
}

// Each change is an action of its own; the widgets then show what the view holds.
void ConstructieVenster::doe(const std::function<void()>& actie) {
    if (bijwerkend_) {
        return;
    }
    if (!guard_.run(actie)) {
        stop();
    }
    bijwerken();
}

// One step of the run across the range: an action of its own, and an error ends the run.
void ConstructieVenster::speel() {
    const bool goed = guard_.run([this] {
        if (const std::optional<Bereik> b = beeld_.bereik()) {
            beeld_.zetT(b->begin + (b->eind - b->begin) * afgespeeld_ / kSpeelStappen);
        }
    });
    if (!goed || ++afgespeeld_ > kSpeelStappen || !beeld_.aan()) {
        stop();
    }
    bijwerken();
}

void ConstructieVenster::stop() {
    klok_->stop();
    afspelen_->setText(QStringLiteral("Afspelen"));
}

void ConstructieVenster::bijwerken() {
    bijwerkend_ = true;
    const std::optional<Bereik> b = beeld_.aan() ? beeld_.bereik() : std::nullopt;
    if (b) {
        naam_->setText(QString::fromStdString(beeld_.naam()));
        getal_->setRange(b->begin, b->eind);
        getal_->setSingleStep((b->eind - b->begin) / 100);
        getal_->setValue(beeld_.t());
        const double deel = b->eind > b->begin ? (beeld_.t() - b->begin) / (b->eind - b->begin) : 0;
        schuif_->setValue(static_cast<int>(std::lround(deel * kSchuifStappen)));
        segment_->setText(QStringLiteral("Segment %1").arg(beeld_.segment()));
        niveau_->setText(
            QStringLiteral("Niveau %1 van %2").arg(beeld_.niveau()).arg(beeld_.hoogsteNiveau()));
        vorige_->setEnabled(beeld_.niveau() > 0);
        volgende_->setEnabled(beeld_.niveau() < beeld_.hoogsteNiveau());
    }
    labels_->setChecked(beeld_.labels());
    raaklijn_->setChecked(beeld_.raaklijn());
    bijwerkend_ = false;
}

void ConstructieVenster::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Left || event->key() == Qt::Key_Right) {
        const int richting = event->key() == Qt::Key_Left ? -1 : 1;
        doe([&] { beeld_.stap(richting); });
        return;
    }
    QWidget::keyPressEvent(event);
}

void ConstructieVenster::closeEvent(QCloseEvent* event) {
    stop();
    if (beeld_.aan()) {
        guard_.run(uit_);
    }
    QWidget::closeEvent(event);
}

}  // namespace zw
