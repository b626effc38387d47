#include "window/zwierlijn.h"

#include "geometry/coordinaten.h"
#include "knots/knoop_vector.h"
#include "platform/files.h"
#include "platform/numeric.h"
#include "spline/blossom_functie.h"
#include "storage/opslag.h"
#include "views/beeld.h"
#include "window/constructie_beeld.h"
#include "window/verbanden.h"
#include "wavelet/wavelet.h"
#include "weights/gewichten_form.h"

namespace zw {

Zwierlijn::Zwierlijn(std::string programDirectory, Dialogs& dialogs)
    : programDirectory_(std::move(programDirectory)), dialogs_(dialogs) {
    meng_.setContainer(&doek_);
    meng_.move(0, 0, 0, 0);
    constructie_ = std::make_unique<ConstructieBeeld>(*this);
    verbanden_ = std::make_unique<Verbanden>(*this);
    verbindPanelen();
}

Zwierlijn::~Zwierlijn() = default;

void Zwierlijn::verbindPanelen() {
    doek_.setPaintHandler([this] { Doek_Paint(); });
    // A pointer at rest (no button) is the links' business alone; a button ends their light.
    doek_.setMouseDownHandler([this](int b, int s, float x, float y) {
        verbanden_->weg();
        Doek_MouseDown(b, s, x, y);
    });
    doek_.setMouseMoveHandler([this](int b, int s, float x, float y) {
        if (b == 0) {
            verbanden_->opDoek(x, y);
        }
        Doek_MouseMove(b, s, x, y);
    });
    doek_.setMouseUpHandler([this](int b, int s, float x, float y) { Doek_MouseUp(b, s, x, y); });
    // The pane's image is made anew for a new size or another screen's pixel ratio: draw it again.
    knopen_.setPaintHandler([this] {
        if (vec_ && knopen_.width() > 0.0 && vec_->knopenlengte > 0.0f) {
            vec_->teken_lijn();
            vec_->teken_vector();
        }
    });
    knopen_.setMouseDownHandler([this](int b, int s, float x, float y) {
        verbanden_->weg();
        Knopen_MouseDown(b, s, x, y);
    });
    knopen_.setMouseMoveHandler([this](int b, int s, float x, float y) {
        if (b == 0) {
            verbanden_->opKnopen(x, y);
        }
        Knopen_MouseMove(b, s, x, y);
    });
    knopen_.setMouseUpHandler(
        [this](int b, int s, float x, float y) { Knopen_MouseUp(b, s, x, y); });
    meng_.setPaintHandler([this] { meng_Paint(); });
    // The pane's left button has no task of its own: with the construction on, it moves t.
    const MouseHandler mengT = [this](int b, int, float x, float y) {
        if (b == 0) {
            verbanden_->opMeng(x, y);
            return;
        }
        verbanden_->weg();
        if (b == 1 && constructie_->aan()) {
            constructie_->zetTUitMeng(x);
            meldConstructie();
        }
    };
    meng_.setMouseDownHandler(mengT);
    meng_.setMouseMoveHandler(mengT);
    for (Surface* s : {&doek_, &meng_, &knopen_}) {
        s->setMouseLeaveHandler([this] { verbanden_->weg(); });
    }
}

void Zwierlijn::volgConstructie() {
    constructie_->volg();
    tekenLagen();
    meldConstructie();
}

void Zwierlijn::mntExtraVerbanden_Click() {
    verbanden_->zetAan(!verbanden_->aan());
    menus_.zetVinkje("mntExtraVerbanden", verbanden_->aan());
}

void Zwierlijn::mntExtraNummers_Click() {
    nummers = !nummers;
    menus_.zetVinkje("mntExtraNummers", nummers);
    tekenLagen();
}

// The mark, and the window: shown while the view is on, with what it holds now.
void Zwierlijn::meldConstructie() {
    const bool aan = constructie_->aan();
    menus_.zetVinkje("mntExtraConstructie", aan);
    if (aan || constructieGetoond_) {
        toonConstructie(aan);
    }
    constructieGetoond_ = aan;
}

void Zwierlijn::meldStatus() {
    if (polygon_ && vec_) {
        toonStatus(waarBenIk());
    }
}

void Zwierlijn::mntExtraConstructie_Click() {
    constructie_->zetAan(!constructie_->aan());
    volgConstructie();
}

// A window whose canvas keeps a log of what it draws (a test's) keeps one of its weights too.
GewichtenForm& Zwierlijn::gewichten() {
    if (!gewichten_) {
        gewichten_ = std::make_unique<GewichtenForm>(*this);
        gewichten_->Doek().setLogging(doek_.logging());
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
    // A new start ("Nieuw") clears the marks of the views it turns off.
    for (const char* item : {"mntBeeldBezier", "mntBeeldMengFuncties", "mntBeeldSegmentperControl",
                             "mntBeeldControlperSegment"}) {
        menus_.zetVinkje(item, false);
    }
    knoppen_.zetVinkje("Mengfuncties", false);
    plaats_knopenvenster();
    Schaal = 2;
    BollenStraal = 60;
    vec_->openuniform = false;
    knopen_zichtbaar = false;
    knopen_.move(0, 0, 0, 0);
    menus_.zetVinkje("mntBeeldKnopenVector", true);
    sleep_detail = true;
    knooppunten = true;
    menus_.zetVinkje("mntBeeldKnooppunten", true);
    bestandsdialoog_.defaultExtension = ".zwl";
    bestandsdialoog_.filter = "zwierlijnbestanden (*.zwl) |*.zwl|alle bestanden (*.*)|*.*";
    gewichtstat = false;
}

// Records are read in this order; record 9 is read into `Schaal` and overwritten later.
void Zwierlijn::lees_instellingen() {
    Datakleur = instelling(1);
    controlkleur = instelling(3);
    lijnkleur = instelling(5);
    krommekleur = instelling(2);
    doekkleur = instelling(4);
    berngrootte = instelling(7);
    ControleStraal = instelling(6);
    segmentkleur = instelling(8);
    Schaal = instelling(9);
    Bezierkleur = instelling(10);
    Reeel = instelling(11);
    virtueel = instelling(12);
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
    if (!instellingenBestonden()) {
        toonKleurtjes(true);
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
    constructie_->zetAan(false);
    Form_Initialize();
    polygon_->restart();
    vec_->restart();
    ops_->restart();
    Form_Load();
    doek_.refresh();
}

void Zwierlijn::sluit_af() {
    sluitKleurtjes();
    ontlaadGewichten();
    sluitVenster();
}

void Zwierlijn::toonGewichten() {
    gewichten().toon();
}

// A form that was never made has no window to close.
void Zwierlijn::ontlaadGewichten() {
    if (gewichten_) {
        gewichten_->Unload();
        sluitGewichten();
    }
}

}  // namespace zw
