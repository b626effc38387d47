// The file and edit commands, the toolbar's dispatch, and the enabling that follows every redraw.
#include "window/zwierlijn.h"

#include <cmath>
#include <cstring>
#include <utility>

#include "geometry/coordinaten.h"
#include "knots/knoop_vector.h"
#include "platform/files.h"
#include "platform/numeric.h"
#include "spline/blossom_functie.h"
#include "storage/opslag.h"
#include "wavelet/wavelet.h"
#include "weights/gewichten_form.h"
#include "window/afbeelding.h"

namespace zw {

// --- Bestand -----------------------------------------------------------------------------------

void Zwierlijn::mntBestandNieuw_Click() {
    laatsteBestand_.clear();
    herstart();
    vec_->openuniform = false;
    knopen_.move(0, 0, 0, 0);
    meng_.move(0, 0, 0, 0);
    ontlaadGewichten();
    zetInstellingenBestonden();
}

// The opened curve starts the history again.
void Zwierlijn::mntBestandOpenen_Click() {
    FileDialogRequest vraag = bestandsdialoog_;
    vraag.title = "Openen";
    const std::string bestand = dialogs_.openFileName(waarBegint(vraag));
    if (bestand.empty()) {
        return;
    }
    onthoudMap(bestand);
    ops_->openen(bestand);
    laatsteBestand_ = bestand;
    ops_->versie = 1.0f;
    ops_->maxversie = 1.0f;
    ops_->save();
    doek_.refresh();
}

void Zwierlijn::mntBestandOpslaan_Click() {
    FileDialogRequest vraag = bestandsdialoog_;
    vraag.title = "Kromme opslaan";
    const std::string bestand = dialogs_.saveFileName(waarBegint(vraag));
    if (!bestand.empty()) {
        onthoudMap(bestand);
        ops_->opslaan(bestand);
        laatsteBestand_ = bestand;
    }
}

// The program directory of an installed editor is hidden in the user's home: a curve saved there
// is lost to its maker. The dialogs start where the user last took or put a file, else at home.
FileDialogRequest& Zwierlijn::waarBegint(FileDialogRequest& vraag) const {
    vraag.directory = laatsteMap_.empty() ? homeDirectory() : laatsteMap_;
    return vraag;
}

// Chosen, the folder is the user's, whether or not the file then opens.
void Zwierlijn::onthoudMap(const std::string& bestand) {
    laatsteMap_ = directoryOf(bestand);
}

void Zwierlijn::mntExtraHandleiding_Click() {
    toonHandleiding();
}

void Zwierlijn::mntExtraOver_Click() {
    dialogs_.message(overTekst(), "Over Zwierlijn");
}

// Installed, the launcher gives each user a program directory of their own, in their home; the
// settings file lies in it.
std::string Zwierlijn::overTekst() const {
    return std::string("Zwierlijn ") + ZW_VERSIE +
           "\nEen editor voor vlakke B-spline-krommen, voor het onderwijs.\n\n"
           "Licentie: alle rechten voorbehouden, De ontwikkelaars van Zwierlijn.\n\n"
           "Programmamap: " + programDirectory_ + "\nInstellingenbestand: " +
           programDirectory_ + "/zwierlijn";
}

void Zwierlijn::mntBestandExit_Click() {
    sluit_af();
}

// --- Extra -------------------------------------------------------------------------------------

// Records no version: a figure changes nothing of the drawing.
void Zwierlijn::mntExtraExporteren_Click() {
    FileDialogRequest vraag;
    vraag.filter =
        "SVG-afbeelding (*.svg)|*.svg|PDF-document (*.pdf)|*.pdf|PNG-afbeelding (*.png)|*.png";
    vraag.defaultExtension = ".svg";
    vraag.title = "Afbeelding exporteren";
    const std::string bestand = dialogs_.saveFileName(waarBegint(vraag));
    if (!bestand.empty()) {
        onthoudMap(bestand);
        exporteerAfbeelding(*this, bestand);
    }
}

// --- Bewerken ----------------------------------------------------------------------------------

// The mode shows in how the next click acts, not in the menu.
void Zwierlijn::mntBewerkenSplinePunt_Click() {
    segment = !segment;
}

void Zwierlijn::mntBewerkenSplineHelft_Click() {
    evaluator_->splits_in_helft();
    // The split shows its new knots on the curve; the item's mark says so.
    menus_.zetVinkje("mntBeeldKnooppunten", knooppunten);
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
    toonKleurtjes(false);
}

// --- Menus -------------------------------------------------------------------------------------

bool Zwierlijn::klik(const std::string& naam) {
    using Handler = void (Zwierlijn::*)();
    static const std::pair<const char*, Handler> handlers[] = {
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
        {"mntBeeldZoomInzoemen", &Zwierlijn::mntBeeldZoomInzoemen_Click},
        {"mntBeeldZoomUitzoemen", &Zwierlijn::mntBeeldZoomUitzoemen_Click},
        {"mntBeeldZoomNormaal", &Zwierlijn::mntBeeldZoomNormaal_Click},
        {"mntBeeldKnopenVector", &Zwierlijn::mntBeeldKnopenVector_Click},
        {"mntBeeldKnooppunten", &Zwierlijn::mntBeeldKnooppunten_Click},
        {"mntBeeldMengFuncties", &Zwierlijn::mntBeeldMengFuncties_Click},
        {"mntBeeldBezier", &Zwierlijn::mntBeeldBezier_Click},
        {"mntBeeldSegmentperControl", &Zwierlijn::mntBeeldSegmentperControl_Click},
        {"mntBeeldControlperSegment", &Zwierlijn::mntBeeldControlperSegment_Click},
        {"mntBeeldDetailLow", &Zwierlijn::mntBeeldDetailLow_Click},
        {"mntBeeldDetailNormaal", &Zwierlijn::mntBeeldDetailNormaal_Click},
        {"mntBeeldDetailHigh", &Zwierlijn::mntBeeldDetailHigh_Click},
        {"mntbeeldsleepdetail", &Zwierlijn::mntbeeldsleepdetail_Click},
        {"mntBeeldGewichten", &Zwierlijn::mntBeeldGewichten_Click},
        {"mntBeeldKleuren", &Zwierlijn::mntBeeldKleuren_Click},
        {"mntExtraExporteren", &Zwierlijn::mntExtraExporteren_Click},
        {"mntExtraConstructie", &Zwierlijn::mntExtraConstructie_Click},
        {"mntExtraVerbanden", &Zwierlijn::mntExtraVerbanden_Click},
        {"mntExtraNummers", &Zwierlijn::mntExtraNummers_Click},
        {"mntExtraHandleiding", &Zwierlijn::mntExtraHandleiding_Click},
        {"mntExtraOver", &Zwierlijn::mntExtraOver_Click},
        {"mntExtraOrdeKiezen", &Zwierlijn::mntExtraOrdeKiezen_Click},
        {"mntExtraGraadVerhogen", &Zwierlijn::mntExtraGraadVerhogen_Click},
    };
    for (const auto& [item, handler] : handlers) {
        if (naam == item) {
            (this->*handler)();
            meldStatus();
            return true;
        }
    }
    return false;
}

// --- Toolbar -----------------------------------------------------------------------------------

// The keys are compared in this order and the first that matches acts. "Spline" and "Helft" are
// shown pressed by every click and never released.
void Zwierlijn::Tb_ButtonClick(const std::string& key) {
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
        {"Mengfuncties", &Zwierlijn::mntBeeldMengFuncties_Click, false},
        {"Inzoemen", &Zwierlijn::mntBeeldZoomInzoemen_Click, false},
        {"Uitzoemen", &Zwierlijn::mntBeeldZoomUitzoemen_Click, false},
        {"Normaal", &Zwierlijn::mntBeeldZoomNormaal_Click, false},
        {"Exit", &Zwierlijn::mntBestandExit_Click, false},
        {"ZetOrde", &Zwierlijn::mntBewerkenKnopenZetOrde_Click, false},
        {"OpenUniform", &Zwierlijn::mntBewerkenKnopenOpenUniform_Click, false},
        {"Uniform", &Zwierlijn::mntBewerkenKnopenZetuniform_Click, false},
        {"Gewicht", &Zwierlijn::mntBeeldGewichten_Click, false},
    };
    for (const Regel& r : regels) {
        if (key != r.key) {
            continue;
        }
        if (r.indrukken) {
            knoppen_.zetVinkje(key, true);
        }
        if (r.handler != nullptr) {
            (this->*r.handler)();
        }
        if (key == "Mengfuncties") {
            knoppen_.zetVinkje(key, mengstat);
        }
        meldStatus();
        return;
    }
}

// --- Enabling ----------------------------------------------------------------------------------

void Zwierlijn::zet_knoppen() {
    const float v = ops_->versie;
    const float m = ops_->maxversie;
    const float n = polygon_->graad;
    const float k = polygon_->orde;
    knoppen_.zetAan("Undo", v > 1.0f);
    knoppen_.zetAan("Redo", v != m);
    knoppen_.zetAan("ZetOrde", n > 0.0f && n <= 6.0f);
    for (const char* key : {"Uniform", "OpenUniform", "Spline", "Helft", "Mengfuncties"}) {
        knoppen_.zetAan(key, k > 0.0f);
    }
}

// Each step may override an earlier one; the order is part of the rules.
void Zwierlijn::zet_menus() {
    const float v = ops_->versie;
    const float m = ops_->maxversie;
    const float n = polygon_->graad;
    const float k = polygon_->orde;
    const char* wavelet = "mntBewerkenWavelet";
    menus_.zetVinkje("mntbeeldsleepdetail", sleep_detail);
    if (vec_->openuniform) {
        if (wavelet_->segmenten_macht_van_2()) {
            menus_.zetAan(wavelet, true);
        }
    } else {
        menus_.zetAan(wavelet, false);
    }
    menus_.zetAan("mntBewerkenUndo", v > 1.0f);
    if (n > 6.0f) {
        menus_.zetAan("mntBewerkenKnopenZetOrde", false);
    }
    menus_.zetAan("mntBewerkenRedo", v != m);
    // The construction needs a segment: an order, and at least as many points.
    menus_.zetAan("mntExtraConstructie", k > 0.0f && addSingle(n, 1.0f) >= k);
    menus_.zetAan("mntExtraOrdeKiezen", n >= 1.0f);
    menus_.zetAan("mntExtraGraadVerhogen", k > 0.0f && k < 16.0f && addSingle(n, 1.0f) >= k);
    // The segment count must be 2 ... 64 exactly: log2 of it compared as computed.
    const double s = divide(logarithm(addSingle(addSingle(n, 2.0f), -k)), std::log(2.0));
    menus_.zetAan(wavelet, s == 1.0 || s == 2.0 || s == 3.0 || s == 4.0 || s == 5.0 || s == 6.0);

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
            menus_.zetAan(naam, true);
        }
        return;
    }
    menus_.zetAan("mntBeeldBezier", false);
    if (n <= 0.0f) {
        menus_.zetAan("mntBewerkenKnopen", false);
    } else {
        for (const char* naam : {"mntBewerken", "mntBewerkenKnopen", "mntBewerkenKnopenZetOrde"}) {
            menus_.zetAan(naam, true);
        }
    }
    for (const char* naam : volgtOrde) {
        if (std::strcmp(naam, "mntBeeldBezier") != 0) {
            menus_.zetAan(naam, false);
        }
    }
}

}  // namespace zw
