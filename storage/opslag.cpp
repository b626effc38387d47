#include "storage/opslag.h"

#include <cstdio>
#include <utility>

#include "geometry/coordinaten.h"
#include "knots/knoop_vector.h"
#include "platform/files.h"
#include "platform/numeric.h"
#include "platform/record_file.h"
#include "platform/text.h"
#include "weights/gewichten_form.h"

namespace zw {

namespace {

const char* const kNothingMore = "Er is niets anders meer opgeslagen...";

// Record 3i + 1 (or + 2, + 3) of point i, in the Single arithmetic of the classic loop.
float pointRecord(float i, float offset) {
    return addSingle(multiplySingle(3.0f, i), offset);
}

}  // namespace

Opslag::Opslag(MainWindow& window, Dialogs& dialogs, std::string programDirectory)
    : window_(window), dialogs_(dialogs), programDirectory_(std::move(programDirectory)) {}

bool Opslag::FileExists(const std::string& sFileName) const {
    return zw::FileExists(sFileName);
}

void Opslag::opslaan(const std::string& sFileName) {
    const std::string temporary = sFileName + ".~nieuw";
    if (zw::FileExists(temporary)) {
        deleteFile(temporary);
    }
    try {
        schrijf(temporary);
    } catch (...) {
        if (zw::FileExists(temporary)) {
            deleteFile(temporary);
        }
        throw;
    }
    replaceFile(temporary, sFileName);
}

void Opslag::schrijf(const std::string& fileName) {
    const coordinaten& polygon = window_.polygoon();
    const KnoopVector& vec = window_.vec();
    const GewichtenForm& gewichten = window_.gewichten();
    RecordFile file(fileName);
    file.putSingle(1, polygon.graad);
    float i = 1.0f;
    for (; i <= addSingle(polygon.graad, 1.0f); i = addSingle(i, 1.0f)) {
        const Punt& p = polygon.punten(addSingle(i, -1.0f));
        file.putSingle(pointRecord(i, 1.0f), p.X);
        file.putSingle(pointRecord(i, 2.0f), p.Y);
        file.putSingle(pointRecord(i, 3.0f), toSingle(gewichten.gewicht(addSingle(i, -1.0f))));
    }
    float r = pointRecord(i, 1.0f);
    file.putSingle(r, polygon.orde);
    r = addSingle(r, 1.0f);
    if (polygon.orde > 0.0f) {
        const float L = vec.knopenlengte;
        file.putSingle(r, L);
        r = addSingle(r, 1.0f);
        forSingle(0.0f, L, 1.0f,
                  [&](float j) { file.putSingle(addSingle(r, j), toSingle(vec.knoop(j))); });
        r = addSingle(addSingle(r, L), 1.0f);
    }
    file.putSingle(addSingle(r, 3.0f), window_.segment ? 1.0f : 0.0f);
    file.putSingle(addSingle(r, 4.0f), toSingle(gewichten.get_grootste_gewicht()));
    file.close();
}

void Opslag::openen(const std::string& file) {
    // Opening for random access would create a missing file; the callers name existing ones,
    // so a missing one is reported instead.
    fileLength(file);
    RecordFile records(file);
    coordinaten& polygon = window_.polygoon();
    KnoopVector& vec = window_.vec();
    GewichtenForm& gewichten = window_.gewichten();

    const float n = records.getSingle(1);
    polygon.dimensioneer_punten(addSingle(n, 1.0f));
    gewichten.dimensioneer_gewichten(addSingle(n, 1.0f));
    Punt punt;
    const float G = polygon.graad;
    float i = 1.0f;
    for (; i <= addSingle(G, 1.0f); i = addSingle(i, 1.0f)) {
        punt.vulpunt(records.getSingle(pointRecord(i, 1.0f)),
                     records.getSingle(pointRecord(i, 2.0f)));
        polygon.zet_punt(addSingle(i, -1.0f), punt);
        gewichten.zet_gewichten(addSingle(i, -1.0f), records.getSingle(pointRecord(i, 3.0f)));
    }
    float r = pointRecord(i, 1.0f);
    polygon.orde = records.getSingle(r);
    r = addSingle(r, 1.0f);
    if (polygon.orde > 0.0f) {
        polygon.orde_gezet = true;
        vec.dimensioneer_knopenvector(records.getSingle(r));
        r = addSingle(r, 1.0f);
        const float L = vec.knopenlengte;
        forSingle(0.0f, L, 1.0f,
                  [&](float j) { vec.zet_knoop(j, records.getSingle(addSingle(r, j))); });
        r = addSingle(addSingle(r, L), 1.0f);
    } else {
        polygon.orde_gezet = false;
    }
    window_.segment = records.getSingle(addSingle(r, 3.0f)) == 1.0f;
    gewichten.zet_grootste_gewicht(records.getSingle(addSingle(r, 4.0f)));
    records.close();
    if (window_.gewichtstat) {
        gewichten.herschaal();
    }
}

std::string Opslag::versieBestand(float v) const {
    std::string number = singleToStr(v);
    if (!number.empty() && number.front() == ' ') {
        number.erase(0, 1);
    }
    return programDirectory_ + "\\\\undoredo\\\\" + number + ".zwl";
}

void Opslag::save() {
    versie = addSingle(versie, 1.0f);
    maxversie = versie;
    opslaan(versieBestand(versie));
}

void Opslag::undo() {
    if (versie <= 1.0f) {
        dialogs_.message(kNothingMore);
        return;
    }
    versie = addSingle(versie, -1.0f);
    openen(versieBestand(versie));
}

void Opslag::redo() {
    if (versie < maxversie) {
        versie = addSingle(versie, 1.0f);
        openen(versieBestand(versie));
    } else {
        dialogs_.message(kNothingMore);
    }
}

void Opslag::volgende_versie() {
    versie = addSingle(versie, 1.0f);
    maxversie = versie;
}

void Opslag::restart() {
    versie = 0.0f;
    maxversie = 0.0f;
}

}  // namespace zw
