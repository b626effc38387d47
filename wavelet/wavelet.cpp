#include "wavelet/wavelet.h"

#include <fstream>
#include <string>
#include <utility>
#include <vector>

#include "geometry/coordinaten.h"
#include "knots/knoop_vector.h"
#include "platform/files.h"
#include "platform/numeric.h"
#include "platform/text.h"
#include "weights/gewichten_form.h"

namespace zw {

namespace {

// A field starts at a character from ',' (44) to ':' (58): the sign, the point and the digits
// among them. Everything else between fields is skipped.
bool begintVeld(int c) {
    return c >= 44 && c <= 58;
}

// A field is the starting character and the 15 after it.
constexpr int kVeldBreedte = 16;

// Trim: blanks only, at both ends.
std::string zonderBlanks(const std::string& s) {
    const std::size_t first = s.find_first_not_of(' ');
    if (first == std::string::npos) {
        return {};
    }
    return s.substr(first, s.find_last_not_of(' ') - first + 1);
}

// log2 of a count, as the text of the table names and the power-of-two test compute it.
double log2Van(float aantal) {
    return logarithm(aantal) / logarithm(2.0);
}

}  // namespace

Wavelet::Wavelet(MainWindow& window, Dialogs& dialogs, std::string programDirectory)
    : tabel(kRijen - 1.0f),
      resultaat(kRijen - 1.0f),
      window_(window),
      dialogs_(dialogs),
      programDirectory_(std::move(programDirectory)) {
    forSingle(0.0f, kRijen - 1.0f, 1.0f, [&](float i) { tabel(i).redim(kKolommen - 1.0f); });
}

bool Wavelet::segmenten_macht_van_2() const {
    const float S = addSingle(
        addSingle(window_.vec().knopenlengte, -multiplySingle(2.0f, window_.polygoon().orde)),
        1.0f);
    const double e = log2Van(S);
    return e == 1.0 || e == 2.0 || e == 3.0 || e == 4.0 || e == 5.0 || e == 6.0 || e == 7.0;
}

bool Wavelet::lees_tabel(float orde, float aantal_segmenten) {
    const std::string bestand = programDirectory_ + "\\\\Wavelet\\\\a." +
                                doubleToText(log2Van(aantal_segmenten)) + "." + singleToText(orde);
    if (!zw::FileExists(bestand)) {
        return false;
    }
    std::ifstream in(nativePath(bestand), std::ios::binary);
    if (!in) {
        raise(kErrPathFileAccess);
    }
    float i = 0.0f;
    float j = 0.0f;
    const float laatsteKolom = addSingle(aantal_fijn, -1.0f);
    for (int c = in.get(); c != std::char_traits<char>::eof(); c = in.get()) {
        if (!begintVeld(c)) {
            continue;
        }
        std::string veld(1, static_cast<char>(c));
        // A file that ends inside a field gives the characters it has.
        for (int n = 1; n < kVeldBreedte && (c = in.get()) != std::char_traits<char>::eof(); ++n) {
            veld += static_cast<char>(c);
        }
        tabel(i)(j) = val(zonderBlanks(veld));
        j = addSingle(j, 1.0f);
        if (j > laatsteKolom) {
            j = 0.0f;
            i = addSingle(i, 1.0f);
        }
    }
    if (in.bad()) {
        raise(kErrDeviceIo);
    }
    return true;
}

bool Wavelet::bereken_grof(float orde, float aantal_segmenten) {
    aantal_fijn = addSingle(addSingle(orde, aantal_segmenten), -1.0f);
    aantal_grof = addSingle(addSingle(divideSingle(aantal_segmenten, 2.0f), orde), -1.0f);
    if (!lees_tabel(orde, aantal_segmenten)) {
        return false;
    }
    const coordinaten& polygon = window_.polygoon();
    const GewichtenForm& gewichten = window_.gewichten();
    forSingle(0.0f, addSingle(aantal_grof, -1.0f), 1.0f, [&](float i) {
        GrofPunt& grof = resultaat(i);
        grof = GrofPunt{};
        const Array<double>& rij = tabel(i);
        forSingle(0.0f, addSingle(aantal_fijn, -1.0f), 1.0f, [&](float j) {
            const Punt& fijn = polygon.punten(j);
            grof.x = checkedDouble(grof.x + rij(j) * fijn.X);
            grof.y = checkedDouble(grof.y + rij(j) * fijn.Y);
            grof.gewicht = checkedDouble(grof.gewicht + rij(j) * gewichten.gewicht(j));
        });
    });
    return true;
}

void Wavelet::geef_coordinaten(float orde, float aantal_segmenten) {
    if (!bereken_grof(orde, aantal_segmenten)) {
        dialogs_.message("de directory " + programDirectory_ + " \\Wavelet bestaat niet");
        return;
    }
    // Rounded before anything changes: a coordinate beyond a Single then leaves the curve whole.
    std::vector<Punt> punten;
    forSingle(0.0f, addSingle(aantal_grof, -1.0f), 1.0f, [&](float i) {
        const GrofPunt& grof = resultaat(i);
        Punt p;
        p.vulpunt(toSingle(roundHalfEven(grof.x)), toSingle(roundHalfEven(grof.y)));
        punten.push_back(p);
    });

    coordinaten& polygon = window_.polygoon();
    GewichtenForm& gewichten = window_.gewichten();
    KnoopVector& vec = window_.vec();
    polygon.dimensioneer_punten(aantal_grof);
    gewichten.dimensioneer_gewichten(aantal_grof);
    vec.dimensioneer_knopenvector(addSingle(addSingle(polygon.graad, polygon.orde), 1.0f));
    vec.zet_open_uniform();
    std::size_t n = 0;
    forSingle(0.0f, addSingle(aantal_grof, -1.0f), 1.0f, [&](float i) {
        polygon.zet_punt(i, punten[n++]);
        gewichten.zet_gewichten(i, resultaat(i).gewicht);
    });
}

}  // namespace zw
