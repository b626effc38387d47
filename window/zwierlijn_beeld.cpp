// The view menu's zoom, detail and display toggles.
#include "window/zwierlijn.h"

#include <cstring>

#include "platform/numeric.h"
#include "spline/blossom_functie.h"

namespace zw {

namespace {

// The view before a zoom step, with its width and height taken whole as the classic program did.
struct Zicht {
    double L, T, W, H, f;
};

Zicht huidigZicht(Surface& doek, std::int32_t schaal) {
    doek.cls();
    return {doek.scaleLeft(), doek.scaleTop(), static_cast<double>(toLong(doek.scaleWidth())),
            static_cast<double>(toLong(doek.scaleHeight())), static_cast<double>(schaal)};
}

}  // namespace

// The central 1/f of the view in each direction. Zooming in and out again returns exactly only
// for f = 2.
void Zwierlijn::mntBeeldZoomInzoemen_Click() {
    const Zicht b = huidigZicht(doek_, Schaal);
    doek_.scale(b.L + divide(b.W, 2.0 * b.f), b.T + divide(b.H, 2.0 * b.f),
                b.L + divide((b.f + 1.0) * b.W, 2.0 * b.f),
                b.T + divide((b.f + 1.0) * b.H, 2.0 * b.f));
    // Discs keep their size on the screen.
    ControleStraal = toLong(ControleStraal / 2.0);
    doek_.refresh();
}

void Zwierlijn::mntBeeldZoomUitzoemen_Click() {
    const Zicht b = huidigZicht(doek_, Schaal);
    doek_.scale(b.L - divide(b.W, b.f), b.T - divide(b.H, b.f),
                b.L + divide((b.f + 1.0) * b.W, b.f), b.T + divide((b.f + 1.0) * b.H, b.f));
    ControleStraal = toLong(2.0 * ControleStraal);
    doek_.refresh();
}

// One canvas unit is one window unit again, and the discs have the radius of the settings.
void Zwierlijn::mntBeeldZoomNormaal_Click() {
    doek_.cls();
    doek_.scale(0, 0, scaleWidth(), scaleHeight());
    ControleStraal = instelling(6);
    doek_.refresh();
}

void Zwierlijn::zetDetail(const char* item, float stap) {
    for (const char* naam : {"mntBeeldDetailLow", "mntBeeldDetailNormaal", "mntBeeldDetailHigh"}) {
        menus_.zetVinkje(naam, std::strcmp(naam, item) == 0);
    }
    evaluator_->stap = stap;
    doek_.refresh();
}

void Zwierlijn::mntBeeldDetailLow_Click() {
    zetDetail("mntBeeldDetailLow", 0.2f);
}

void Zwierlijn::mntBeeldDetailNormaal_Click() {
    zetDetail("mntBeeldDetailNormaal", 0.1f);
}

void Zwierlijn::mntBeeldDetailHigh_Click() {
    zetDetail("mntBeeldDetailHigh", 0.05f);
}

// The redraw places the pane (or leaves it hidden when there is no curve).
void Zwierlijn::mntBeeldKnopenVector_Click() {
    if (!knopen_zichtbaar) {
        knopen_zichtbaar = true;
        menus_.zetVinkje("mntBeeldKnopenVector", true);
    } else {
        knopen_zichtbaar = false;
        knopen_.move(0, 0, 0, 0);
        menus_.zetVinkje("mntBeeldKnopenVector", false);
    }
    doek_.refresh();
}

void Zwierlijn::mntBeeldKnooppunten_Click() {
    knooppunten = !knooppunten;
    menus_.zetVinkje("mntBeeldKnooppunten", knooppunten);
    doek_.refresh();
}

void Zwierlijn::mntBeeldBezier_Click() {
    bezier = !bezier;
    menus_.zetVinkje("mntBeeldBezier", bezier);
    doek_.refresh();
}

// Turning a mode on waits for the first click to colour anything; turning it off redraws the
// canvas without the colouring.
void Zwierlijn::wisselKiesmodus(bool& modus, const char* item, bool& andere,
                                const char* andereItem) {
    if (!modus) {
        modus = true;
        andere = false;
        menus_.zetVinkje(item, true);
        menus_.zetVinkje(andereItem, false);
    } else {
        menus_.zetVinkje(item, false);
        modus = false;
        doek_.refresh();
    }
}

void Zwierlijn::mntBeeldSegmentperControl_Click() {
    wisselKiesmodus(segmenten_per_controlepunt, "mntBeeldSegmentperControl",
                    controlepunten_per_segment, "mntBeeldControlperSegment");
}

void Zwierlijn::mntBeeldControlperSegment_Click() {
    wisselKiesmodus(controlepunten_per_segment, "mntBeeldControlperSegment",
                    segmenten_per_controlepunt, "mntBeeldSegmentperControl");
}

void Zwierlijn::mntbeeldsleepdetail_Click() {
    sleep_detail = !sleep_detail;
    menus_.zetVinkje("mntbeeldsleepdetail", sleep_detail);
}

// From the next redraw on the canvas draws its points in their colours, matching the handles.
void Zwierlijn::mntBeeldGewichten_Click() {
    toonGewichten();
    gewichtstat = true;
}

}  // namespace zw
