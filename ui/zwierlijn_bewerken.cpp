// The file and edit commands, the toolbar's dispatch, and the enabling that follows every redraw.
#include <QAction>
#include <cmath>

#include "geometry/coordinaten.h"
#include "knots/knoop_vector.h"
#include "platform/numeric.h"
#include "spline/blossom_functie.h"
#include "storage/opslag.h"
#include "ui/kleurtjes.h"
#include "ui/werkbalk.h"
#include "ui/zwierlijn.h"
#include "wavelet/wavelet.h"
#include "weights/gewichten_form.h"

namespace zw {

namespace {

void zetAan(QAction* item, bool aan) {
    item->setEnabled(aan);
}

}  // namespace

// --- Bestand -----------------------------------------------------------------------------------

void Zwierlijn::mntBestandNieuw_Click() {
    herstart();
    vec_->openuniform = false;
    knopen_.move(0, 0, 0, 0);
    meng_.move(0, 0, 0, 0);
    // A closed weights window starts afresh when it is opened again.
    gewichten_.reset();
    kleurtjes().file_bestaat = true;
}

// The opened curve starts the history again.
void Zwierlijn::mntBestandOpenen_Click() {
    FileDialogRequest vraag = bestandsdialoog_;
    vraag.title = "Openen";
    const std::string bestand = dialogs_.openFileName(vraag);
    if (bestand.empty()) {
        return;
    }
    ops_->openen(bestand);
    ops_->versie = 1.0f;
    ops_->maxversie = 1.0f;
    ops_->save();
    doek_.refresh();
}

void Zwierlijn::mntBestandOpslaan_Click() {
    FileDialogRequest vraag = bestandsdialoog_;
    vraag.title = "Kromme opslaan";
    const std::string bestand = dialogs_.saveFileName(vraag);
    if (!bestand.empty()) {
        ops_->opslaan(bestand);
    }
}

void Zwierlijn::mntBestandExit_Click() {
    sluit_af();
}

// --- Bewerken ----------------------------------------------------------------------------------

// The mode shows in how the next click acts, not in the menu.
void Zwierlijn::mntBewerkenSplinePunt_Click() {
    segment = !segment;
}

void Zwierlijn::mntBewerkenSplineHelft_Click() {
    evaluator_->splits_in_helft();
    doek_.refresh();
    plaats_knopenvenster();
    ops_->save();
}

// Bezier mode. The knot pane is switched off and the knot points flipped, as the editor has
// always done here.
void Zwierlijn::mntBewerkenKnopenZetOrde_Click() {
    vectorlengte = toSingle(doek_.scaleWidth() - breedtestap);
    polygon_->zet_orde();
    knopen_zichtbaar = true;
    mntBeeldKnopenVector_Click();
    mntBeeldKnooppunten_Click();
    doek_.refresh();
}

void Zwierlijn::mntBewerkenKnopenOpenUniform_Click() {
    vec_->zet_open_uniform();
    plaats_knopenvenster();
    doek_.refresh();
    ops_->save();
}

void Zwierlijn::mntBewerkenKnopenZetuniform_Click() {
    vec_->zet_uniform();
    plaats_knopenvenster();
    doek_.refresh();
    ops_->save();
}

void Zwierlijn::mntBewerkenWavelet_Click() {
    const float k = polygon_->orde;
    const float n = polygon_->graad;
    wavelet_->geef_coordinaten(k, addSingle(addSingle(n, 2.0f), -k));
    doek_.refresh();
    plaats_knopenvenster();
    ops_->save();
}

void Zwierlijn::mntBewerkenUndo_Click() {
    ops_->undo();
    doek_.refresh();
    plaats_knopenvenster();
}

void Zwierlijn::mntBewerkenRedo_Click() {
    ops_->redo();
    doek_.refresh();
    plaats_knopenvenster();
}

void Zwierlijn::mntBeeldKleuren_Click() {
    dialogs_.show(kleurtjes(), false);
}

// --- Toolbar -----------------------------------------------------------------------------------

// The keys are compared in this order and the first that matches acts. "Spline" and "Helft" are
// shown pressed by every click and never released.
void Zwierlijn::Tb_ButtonClick(const QString& key) {
    using Handler = void (Zwierlijn::*)();
    struct Regel {
        const char* key;
        Handler handler;
        bool indrukken;
    };
    static const Regel regels[] = {
        {"Openen", &Zwierlijn::mntBestandOpenen_Click, false},
        {"Nieuw", &Zwierlijn::mntBestandNieuw_Click, false},
        {"Opslaan", &Zwierlijn::mntBestandOpslaan_Click, false},
        {"Undo", &Zwierlijn::mntBewerkenUndo_Click, false},
        {"Redo", &Zwierlijn::mntBewerkenRedo_Click, false},
        {"Spline", &Zwierlijn::mntBewerkenSplinePunt_Click, true},
        {"Helft", &Zwierlijn::mntBewerkenSplineHelft_Click, true},
        {"Mengfuncties", nullptr, false},
        {"Inzoemen", &Zwierlijn::mntBeeldZoomInzoemen_Click, false},
        {"Uitzoemen", &Zwierlijn::mntBeeldZoomUitzoemen_Click, false},
        {"Normaal", &Zwierlijn::mntBeeldZoomNormaal_Click, false},
        {"Exit", &Zwierlijn::mntBestandExit_Click, false},
        {"ZetOrde", &Zwierlijn::mntBewerkenKnopenZetOrde_Click, false},
        {"OpenUniform", &Zwierlijn::mntBewerkenKnopenOpenUniform_Click, false},
        {"Uniform", &Zwierlijn::mntBewerkenKnopenZetuniform_Click, false},
        {"Gewicht", nullptr, false},
    };
    for (const Regel& r : regels) {
        if (key != QLatin1String(r.key)) {
            continue;
        }
        if (r.indrukken) {
            knop(key)->setChecked(true);
        }
        if (r.handler != nullptr) {
            (this->*r.handler)();
        }
        if (key == QLatin1String("Mengfuncties")) {
            knop(key)->setChecked(mengstat);
        }
        return;
    }
}

// --- Enabling ----------------------------------------------------------------------------------

void Zwierlijn::zet_knoppen() {
    const float v = ops_->versie;
    const float m = ops_->maxversie;
    const float n = polygon_->graad;
    const float k = polygon_->orde;
    zetAan(knop(QStringLiteral("Undo")), v > 1.0f);
    zetAan(knop(QStringLiteral("Redo")), v != m);
    zetAan(knop(QStringLiteral("ZetOrde")), n > 0.0f && n <= 6.0f);
    for (const char* key : {"Uniform", "OpenUniform", "Spline", "Helft", "Mengfuncties"}) {
        zetAan(knop(QString::fromLatin1(key)), k > 0.0f);
    }
}

// Each step may override an earlier one; the order is part of the rules.
void Zwierlijn::zet_menus() {
    const float v = ops_->versie;
    const float m = ops_->maxversie;
    const float n = polygon_->graad;
    const float k = polygon_->orde;
    QAction* wavelet = menu(QStringLiteral("mntBewerkenWavelet"));
    menu(QStringLiteral("mntbeeldsleepdetail"))->setChecked(sleep_detail);
    if (vec_->openuniform) {
        if (wavelet_->segmenten_macht_van_2()) {
            zetAan(wavelet, true);
        }
    } else {
        zetAan(wavelet, false);
    }
    zetAan(menu(QStringLiteral("mntBewerkenUndo")), v > 1.0f);
    if (n > 6.0f) {
        zetAan(menu(QStringLiteral("mntBewerkenKnopenZetOrde")), false);
    }
    zetAan(menu(QStringLiteral("mntBewerkenRedo")), v != m);
    // The segment count must be 2 ... 64 exactly: log2 of it compared as computed.
    const double s = divide(logarithm(addSingle(addSingle(n, 2.0f), -k)), std::log(2.0));
    zetAan(wavelet, s == 1.0 || s == 2.0 || s == 3.0 || s == 4.0 || s == 5.0 || s == 6.0);

    const char* volgtOrde[] = {"mntBewerkenSpline",
                               "mntBewerkenKnopenZetuniform",
                               "mntBewerkenKnopenOpenUniform",
                               "mntBeeldMengFuncties",
                               "mntBeeldControlperSegment",
                               "mntBeeldSegmentperControl",
                               "mntBeeldKnopenVector",
                               "mntBeeldBezier"};
    if (k > 0.0f) {
        for (const char* naam : volgtOrde) {
            zetAan(menu(QString::fromLatin1(naam)), true);
        }
        return;
    }
    zetAan(menu(QStringLiteral("mntBeeldBezier")), false);
    if (n <= 0.0f) {
        zetAan(menu(QStringLiteral("mntBewerkenKnopen")), false);
    } else {
        for (const char* naam : {"mntBewerken", "mntBewerkenKnopen", "mntBewerkenKnopenZetOrde"}) {
            zetAan(menu(QString::fromLatin1(naam)), true);
        }
    }
    for (const char* naam : volgtOrde) {
        if (qstrcmp(naam, "mntBeeldBezier") != 0) {
            zetAan(menu(QString::fromLatin1(naam)), false);
        }
    }
}

}  // namespace zw
