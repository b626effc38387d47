// zwierlijn-render: a saved curve as a figure, drawn by the editor's own window without a screen.
// The curve is opened, the views are switched on through the same menu commands a person would
// choose, and the canvas is exported as "Extra > Exporteren..." exports it.
//
// Exit status: 0 done, 1 a run-time error of the drawing (its text on stderr), 2 bad arguments or
// a file that cannot be read.
#include <QGuiApplication>
#include <QImage>
#include <QTemporaryDir>
#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "geometry/coordinaten.h"
#include "knots/knoop_vector.h"
#include "platform/event_guard.h"
#include "platform/files.h"
#include "platform/numeric.h"
#include "platform/scripted_dialogs.h"
#include "window/afbeelding.h"
#include "window/constructie_beeld.h"
#include "window/headless_editor.h"

namespace {

const char kGebruik[] =
    "Gebruik: zwierlijn-render KROMME.zwl UIT.svg|UIT.pdf|UIT.png [opties]\n"
    "Tekent een opgeslagen kromme zoals het doek van de editor haar toont.\n"
    "\n"
    "  --grootte BxH           het doek in pixels (standaard 1200x800); een PNG wordt twee\n"
    "                          keer zo groot\n"
    "  --detail NIVEAU         low, normaal of high (standaard high)\n"
    "  --knooppunten aan|uit   de knooppunten op de kromme (standaard aan)\n"
    "  --bezier                de Bezier-notatie van elk segment\n"
    "  --mengfuncties          de mengfuncties in de rechterbovenhoek van het doek\n"
    "  --segmenten N           de segmenten van controlepunt N (het eerste is 0) in kleur\n"
    "  --controlepunten T      de controlepunten van het segment van parameter T in kleur\n"
    "  --constructie T         de constructie van het krommepunt bij parameter T\n"
    "  --niveau R              alleen de niveaus 0 tot en met R van de constructie\n"
    "  --labels                elk punt van de constructie met zijn blossom\n"
    "  --raaklijn              de raaklijn in het krommepunt\n"
    "  --nummers               de nummers van de controlepunten\n"
    "  --passend               ingezoomd op de controlepunten, de kromme en de constructie,\n"
    "                          met een rand eromheen\n"
    "  --instellingen BESTAND  kleuren en straal uit dit instellingenbestand; zonder deze optie\n"
    "                          uit het bestand \"zwierlijn\" naast het programma, anders de\n"
    "                          standaardinstellingen\n"
    "  --miniatuur N           een miniatuur voor bestandsbeheerders: de PNG verkleind tot\n"
    "                          hoogstens NxN pixels, altijd als PNG, hoe UIT ook heet\n"
    "  --help                  deze tekst\n"
    "\n"
    "Afsluitcode: 0 gelukt, 1 fout tijdens het tekenen, 2 verkeerde argumenten of een bestand\n"
    "dat niet te lezen is.\n";

constexpr int kFoutTekenen = 1;
constexpr int kFoutGebruik = 2;
constexpr int kMaxZijde = 8192;

// A wrong argument or an unreadable file: its one-line message goes to stderr.
struct Gebruiksfout {
    std::string tekst;
};

struct Opties {
    std::string kromme;
    std::string uit;
    std::string instellingen;
    int breedte = 1200;
    int hoogte = 800;
    const char* detail = "mntBeeldDetailHigh";
    bool knooppunten = true;
    bool bezier = false;
    bool mengfuncties = false;
    std::optional<long> segmentenVan;
    std::optional<double> twaarde;
    std::optional<int> miniatuur;
    std::optional<double> constructie;
    std::optional<long> niveau;
    bool labels = false;
    bool raaklijn = false;
    bool passend = false;
    bool nummers = false;
};

long geheel(const std::string& tekst, const std::string& optie) {
    errno = 0;
    char* eind = nullptr;
    const long waarde = std::strtol(tekst.c_str(), &eind, 10);
    if (tekst.empty() || *eind != '\0' || errno != 0) {
        throw Gebruiksfout{optie + " verwacht een geheel getal, niet \"" + tekst + "\""};
    }
    return waarde;
}

double getal(const std::string& tekst, const std::string& optie) {
    char* eind = nullptr;
    const double waarde = std::strtod(tekst.c_str(), &eind);
    if (tekst.empty() || *eind != '\0' || !std::isfinite(waarde)) {
        throw Gebruiksfout{optie + " verwacht een getal, niet \"" + tekst + "\""};
    }
    return waarde;
}

void leesGrootte(const std::string& tekst, Opties& o) {
    const std::size_t x = tekst.find('x');
    const std::string fout = "--grootte verwacht BREEDTExHOOGTE in pixels, van 1 tot " +
                             std::to_string(kMaxZijde) + ", niet \"" + tekst + "\"";
    if (x == std::string::npos) {
        throw Gebruiksfout{fout};
    }
    const long b = geheel(tekst.substr(0, x), "--grootte");
    const long h = geheel(tekst.substr(x + 1), "--grootte");
    if (b < 1 || h < 1 || b > kMaxZijde || h > kMaxZijde) {
        throw Gebruiksfout{fout};
    }
    o.breedte = static_cast<int>(b);
    o.hoogte = static_cast<int>(h);
}

const char* detailItem(const std::string& niveau) {
    if (niveau == "low") {
        return "mntBeeldDetailLow";
    }
    if (niveau == "normaal") {
        return "mntBeeldDetailNormaal";
    }
    if (niveau == "high") {
        return "mntBeeldDetailHigh";
    }
    throw Gebruiksfout{"--detail verwacht low, normaal of high, niet \"" + niveau + "\""};
}

bool aanUit(const std::string& tekst) {
    if (tekst == "aan" || tekst == "uit") {
        return tekst == "aan";
    }
    throw Gebruiksfout{"--knooppunten verwacht aan of uit, niet \"" + tekst + "\""};
}

// The option's value, the argument after it.
std::string waarde(const std::vector<std::string>& args, std::size_t& i) {
    if (i + 1 >= args.size()) {
        throw Gebruiksfout{args[i] + " verwacht een waarde"};
    }
    return args[++i];
}

void leesOptie(const std::vector<std::string>& args, std::size_t& i, Opties& o) {
    const std::string& a = args[i];
    if (a == "--grootte") {
        leesGrootte(waarde(args, i), o);
    } else if (a == "--detail") {
        o.detail = detailItem(waarde(args, i));
    } else if (a == "--knooppunten") {
        o.knooppunten = aanUit(waarde(args, i));
    } else if (a == "--bezier") {
        o.bezier = true;
    } else if (a == "--mengfuncties") {
        o.mengfuncties = true;
    } else if (a == "--segmenten") {
        o.segmentenVan = geheel(waarde(args, i), a);
    } else if (a == "--controlepunten") {
        o.twaarde = getal(waarde(args, i), a);
    } else if (a == "--constructie") {
        o.constructie = getal(waarde(args, i), a);
    } else if (a == "--niveau") {
        o.niveau = geheel(waarde(args, i), a);
    } else if (a == "--labels") {
        o.labels = true;
    } else if (a == "--raaklijn") {
        o.raaklijn = true;
    } else if (a == "--passend") {
        o.passend = true;
    } else if (a == "--nummers") {
        o.nummers = true;
    } else if (a == "--instellingen") {
        o.instellingen = waarde(args, i);
    } else if (a == "--miniatuur") {
        const long n = geheel(waarde(args, i), a);
        if (n < 1 || n > kMaxZijde) {
            throw Gebruiksfout{"--miniatuur verwacht een aantal pixels van 1 tot " +
                               std::to_string(kMaxZijde)};
        }
        o.miniatuur = static_cast<int>(n);
    } else {
        throw Gebruiksfout{"onbekende optie " + a + " (zie --help)"};
    }
}

Opties leesOpties(const std::vector<std::string>& args) {
    Opties o;
    std::vector<std::string> bestanden;
    for (std::size_t i = 0; i < args.size(); ++i) {
        if (args[i].rfind("--", 0) == 0) {
            leesOptie(args, i, o);
        } else {
            bestanden.push_back(args[i]);
        }
    }
    if (bestanden.size() != 2) {
        throw Gebruiksfout{"verwacht een kromme en een uitvoerbestand (zie --help)"};
    }
    if (o.segmentenVan && o.twaarde) {
        throw Gebruiksfout{"--segmenten en --controlepunten gaan niet samen"};
    }
    if (!o.constructie && (o.niveau || o.labels || o.raaklijn)) {
        throw Gebruiksfout{"--niveau, --labels en --raaklijn horen bij --constructie"};
    }
    o.kromme = bestanden[0];
    o.uit = bestanden[1];
    return o;
}

bool leesbaar(const std::string& bestand) {
    std::error_code ec;
    return std::filesystem::is_regular_file(bestand, ec) &&
           std::ifstream(bestand, std::ios::binary).good();
}

void controleerBestanden(const Opties& o) {
    if (!leesbaar(o.kromme)) {
        throw Gebruiksfout{"kan de kromme " + o.kromme + " niet lezen"};
    }
    if (!o.instellingen.empty() && !leesbaar(o.instellingen)) {
        throw Gebruiksfout{"kan het instellingenbestand " + o.instellingen + " niet lezen"};
    }
    try {
        if (!o.miniatuur) {
            zw::afbeeldingsoort(o.uit);
        }
    } catch (const zw::RuntimeError&) {
        throw Gebruiksfout{"het uitvoerbestand " + o.uit + " eindigt niet op .svg, .pdf of .png"};
    }
    const std::filesystem::path map = std::filesystem::path(o.uit).parent_path();
    std::error_code ec;
    if (!map.empty() && !std::filesystem::is_directory(map, ec)) {
        throw Gebruiksfout{"de map " + map.string() + " bestaat niet"};
    }
}

// The picks refer to the opened curve: a control point it has, a parameter in its range.
void controleerKeuzes(const Opties& o, zw::HeadlessEditor& w) {
    const float n = w.polygoon().graad;
    if (o.segmentenVan && (*o.segmentenVan < 0 || static_cast<double>(*o.segmentenVan) > n)) {
        throw Gebruiksfout{"--segmenten: de kromme heeft de controlepunten 0 tot en met " +
                           std::to_string(zw::toLong(n))};
    }
    const float k = w.polygoon().orde;
    if (!o.twaarde || k <= 0.0f) {
        return;
    }
    const float L = w.vec().knopenlengte;
    const double van = w.vec().knoop(zw::addSingle(k, -1.0f));
    const double tot = w.vec().knoop(zw::addSingle(L, -k));
    if (*o.twaarde < van || *o.twaarde > tot) {
        std::ostringstream bereik;
        bereik << "--controlepunten: de parameter ligt van " << van << " tot " << tot;
        throw Gebruiksfout{bereik.str()};
    }
}

// The construction's parameter lies in the curve's range, its level below the order.
void controleerConstructie(const Opties& o, zw::HeadlessEditor& w) {
    if (!o.constructie) {
        return;
    }
    const std::optional<zw::Bereik> b = w.constructie().bereik();
    if (!b) {
        throw Gebruiksfout{"--constructie: de kromme heeft geen segment"};
    }
    if (*o.constructie < b->begin || *o.constructie > b->eind) {
        std::ostringstream bereik;
        bereik << "--constructie: de parameter ligt van " << b->begin << " tot " << b->eind;
        throw Gebruiksfout{bereik.str()};
    }
    const long hoogste = w.constructie().hoogsteNiveau();
    if (o.niveau && (*o.niveau < 0 || *o.niveau > hoogste)) {
        throw Gebruiksfout{"--niveau: de constructie heeft de niveaus 0 tot en met " +
                           std::to_string(hoogste)};
    }
}

// The run-time error's message box text on one line.
std::string alsRegel(std::string tekst) {
    for (std::size_t p; (p = tekst.find("\n\n")) != std::string::npos;) {
        tekst.replace(p, 2, " ");
    }
    for (char& c : tekst) {
        c = c == '\n' ? ' ' : c;
    }
    return tekst;
}

class Renderer {
  public:
    explicit Renderer(const Opties& o) : o_(o) {}

    int run() {
        if (!map_.isValid()) {
            throw Gebruiksfout{"kan geen tijdelijke map maken"};
        }
        // A copy: the history goes to a temporary directory, never beside the program, and the
        // curve is read even where it cannot be written.
        const std::string kopie = map_.filePath(QStringLiteral("kromme.zwl")).toStdString();
        std::error_code ec;
        if (!std::filesystem::copy_file(o_.kromme, kopie, ec)) {
            throw Gebruiksfout{"kan de kromme " + o_.kromme + " niet lezen"};
        }
        const bool gelukt = stap([&] {
            w_ = std::make_unique<zw::HeadlessEditor>(map_.path().toStdString(), dialogs_,
                                                      o_.breedte, o_.hoogte, instellingen());
            w_->start();
            dialogs_.queueFileName(kopie);
            w_->klik("mntBestandOpenen");
        });
        if (!gelukt) {
            return kFoutTekenen;
        }
        controleerKeuzes(o_, *w_);
        controleerConstructie(o_, *w_);
        if (!zetBeeld()) {
            return kFoutTekenen;
        }
        if (o_.miniatuur) {
            QImage beeld;
            return stap([&] { beeld = zw::afbeeldingAlsBeeld(*w_); }) ? verklein(beeld)
                                                                      : kFoutTekenen;
        }
        return stap([&] { zw::exporteerAfbeelding(*w_, o_.uit); }) ? 0 : kFoutTekenen;
    }

  private:
    // File managers hand a thumbnailer a temporary name of their own choosing and want a PNG of
    // at most the size they ask, however large the canvas it shows.
    int verklein(const QImage& beeld) const {
        const int n = *o_.miniatuur;
        if (!beeld.scaled(n, n, Qt::KeepAspectRatio, Qt::SmoothTransformation)
                 .save(QString::fromStdString(o_.uit), "PNG")) {
            std::fprintf(stderr, "zwierlijn-render: kan de miniatuur %s niet schrijven\n",
                         o_.uit.c_str());
            return kFoutTekenen;
        }
        return 0;
    }

    std::string instellingen() const {
        return o_.instellingen.empty() ? zw::executableDirectory() + "/zwierlijn" : o_.instellingen;
    }

    // The views, as the menu commands set them; the picks as a click would have made them.
    bool zetBeeld() {
        std::vector<const char*> items;
        if (o_.detail != std::string("mntBeeldDetailHigh")) {
            items.push_back(o_.detail);
        }
        if (!o_.knooppunten) {
            items.push_back("mntBeeldKnooppunten");
        }
        if (o_.bezier) {
            items.push_back("mntBeeldBezier");
        }
        if (o_.mengfuncties) {
            items.push_back("mntBeeldMengFuncties");
        }
        if (o_.nummers) {
            items.push_back("mntExtraNummers");
        }
        if (o_.segmentenVan) {
            items.push_back("mntBeeldSegmentperControl");
            w_->gekozen_index = static_cast<std::int32_t>(*o_.segmentenVan);
        }
        if (o_.twaarde) {
            items.push_back("mntBeeldControlperSegment");
            w_->gekozen_twaarde = *o_.twaarde;
        }
        for (const char* item : items) {
            if (!stap([&] { w_->klik(item); })) {
                return false;
            }
        }
        return (!o_.passend || stap([&] { pasIn(); })) &&
               (!o_.constructie || stap([&] { zetConstructie(); }));
    }

    // The polygon's box fills the canvas but for a margin: the curve and its construction lie
    // in the polygon's convex hull, its points' labels in the margin. Discs keep their size in
    // pixels, as the editor's zoom keeps them.
    void pasIn() {
        zw::coordinaten& p = w_->polygoon();
        if (p.graad < 0.0f) {
            return;
        }
        double x1 = 1e300, y1 = 1e300, x2 = -1e300, y2 = -1e300;
        for (float i = 0.0f; i <= p.graad; i += 1.0f) {
            const zw::Punt q = p.punten(i);
            x1 = std::min(x1, double{q.X});
            x2 = std::max(x2, double{q.X});
            y1 = std::min(y1, double{q.Y});
            y2 = std::max(y2, double{q.Y});
        }
        zw::Surface& doek = w_->Doek();
        constexpr double kRand = 0.12, kKleinste = 1000.0;
        const double per = std::max({(x2 - x1) / (doek.pixelWidth() * (1 - 2 * kRand)),
                                     (y2 - y1) / (doek.pixelHeight() * (1 - 2 * kRand)),
                                     kKleinste / std::max(1, doek.pixelWidth())});
        const double oud = doek.scaleWidth() / std::max(1, doek.pixelWidth());
        const double cx = (x1 + x2) / 2, cy = (y1 + y2) / 2;
        const double hw = doek.pixelWidth() * per / 2, hh = doek.pixelHeight() * per / 2;
        doek.scale(cx - hw, cy - hh, cx + hw, cy + hh);
        w_->ControleStraal = zw::toLong(w_->ControleStraal * per / oud);
        doek.refresh();
    }

    void zetConstructie() {
        w_->klik("mntExtraConstructie");
        zw::ConstructieBeeld& c = w_->constructie();
        c.zetT(*o_.constructie);
        c.zetNiveau(o_.niveau ? static_cast<int>(*o_.niveau) : c.hoogsteNiveau());
        c.zetLabels(o_.labels);
        c.zetRaaklijn(o_.raaklijn);
    }

    // One action, as the editor runs it; its error is reported on stderr.
    template <typename F>
    bool stap(F&& actie) {
        if (guard_.run(actie)) {
            return true;
        }
        const std::string tekst =
            dialogs_.messages().empty() ? "onbekende fout" : dialogs_.messages().back().text;
        std::fprintf(stderr, "zwierlijn-render: %s\n", alsRegel(tekst).c_str());
        return false;
    }

    const Opties& o_;
    QTemporaryDir map_;
    zw::ScriptedDialogs dialogs_;
    zw::EventGuard guard_{dialogs_};
    std::unique_ptr<zw::HeadlessEditor> w_;
};

}  // namespace

int main(int argc, char** argv) {
    // Labels need the fonts of a GUI application; the renderer shows nothing on a screen.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Its own messages are its one line on stderr; Qt's notes about the session are noise.
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& tekst) {
        if (type == QtCriticalMsg || type == QtFatalMsg) {
            std::fprintf(stderr, "%s\n", tekst.toLocal8Bit().constData());
        }
    });
    QGuiApplication app(argc, argv);
    const std::vector<std::string> args(argv + 1, argv + argc);
    for (const std::string& a : args) {
        if (a == "--help" || a == "-h") {
            std::fputs(kGebruik, stdout);
            return 0;
        }
    }
    try {
        const Opties o = leesOpties(args);
        controleerBestanden(o);
        return Renderer(o).run();
    } catch (const Gebruiksfout& fout) {
        std::fprintf(stderr, "zwierlijn-render: %s\n", fout.tekst.c_str());
        return kFoutGebruik;
    }
}
