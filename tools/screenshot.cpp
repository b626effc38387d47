// Takes the README's pictures of the editor: a fresh program directory with the default settings,
// an open-uniform cubic curve of eight control points, the window shown and grabbed; when a third
// file is named, the blending functions of the uniform vector shown from the toolbar, grabbed,
// and off again; when a fourth and a fifth are named, the Bezier notation, and the segments of
// one control point picked with a click in "Segmenten per Controlepunt", each grabbed and off
// again; then, when a second file is named, the weights window opened beside it, two weights
// dragged, and the screen grabbed with both windows.
//
// Usage: screenshot <editor.png> [<weights.png> [<blending.png> [<bezier.png> <colouring.png>]]]
// (needs a screen; ./zw screenshot runs it under Xvfb)
#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QPixmap>
#include <QScreen>
#include <QTemporaryDir>
#include <cmath>
#include <cstdio>
#include <memory>

#include "geometry/coordinaten.h"
#include "knots/knoop_vector.h"
#include "platform/scripted_dialogs.h"
#include "ui/application.h"
#include "ui/gewichten_venster.h"
#include "weights/gewichten_form.h"
#include "window/instellingen.h"

namespace {

// A wave across the canvas, in twips of a 1200 x 820 window.
const float kPoints[][2] = {{1800, 8200},  {3200, 2400},  {6200, 1800},  {7600, 6400},
                            {10400, 8600}, {12400, 4200}, {14000, 1600}, {16200, 5200}};

void drawCurve(zw::ZwierlijnVenster& w) {
    const float count = static_cast<float>(std::size(kPoints));
    w.polygoon().dimensioneer_punten(count);
    w.gewichten().dimensioneer_gewichten(count);
    float i = 0.0f;
    for (const auto& p : kPoints) {
        w.polygoon().zet_punt(i, zw::Punt(p[0], p[1]));
        i += 1.0f;
    }
    w.polygoon().orde = 4.0f;
    w.vec().dimensioneer_knopenvector(w.polygoon().graad + w.polygoon().orde + 1.0f);
    w.vec().zet_open_uniform();
    w.save();
    w.Doek().refresh();
}

// A right drag of handle `index` to the height of `gewicht` on its scale, through the form's own
// mouse handlers.
void sleepGewicht(zw::GewichtenForm& form, float index, double gewicht) {
    const float kolom = form.ScaleWidth() / (form.aantal_gew() + 1.0f);
    const float marge = form.ScaleHeight() / 10.0f;
    const float eenheid = (form.ScaleHeight() - 2.0f * marge) / 10.0f;
    const float x = (index + 1.0f) * kolom;
    const auto y = static_cast<float>((5.0 - std::log2(gewicht)) * eenheid + marge);
    form.Doek_MouseDown(2, 0, x, form.ScaleHeight() / 2.0f);
    form.Doek_MouseMove(2, 0, x, y);
    form.Doek_MouseUp(2, 0, x, y);
}

bool neemGewichten(zw::ZwierlijnVenster& w, const char* bestand) {
    // The scripted dialogs only note the request: the window is shown as the dialogs would show
    // it, and once it is active it has placed itself beside the editor.
    w.klik("mntBeeldGewichten");
    zw::GewichtenVenster& venster = w.gewichtenVenster();
    venster.resize(venster.width(), w.frameGeometry().height());
    venster.show();
    venster.activateWindow();
    QElapsedTimer wacht;
    wacht.start();
    while (!venster.isActiveWindow() && wacht.elapsed() < 2000) {
        QApplication::processEvents(QEventLoop::AllEvents, 50);
    }
    QApplication::processEvents();
    sleepGewicht(w.gewichten(), 2.0f, 8.0);
    sleepGewicht(w.gewichten(), 5.0f, 0.25);
    QApplication::processEvents();
    const QRect beide = w.frameGeometry().united(venster.frameGeometry());
    return QGuiApplication::primaryScreen()
        ->grabWindow(0, beide.x(), beide.y(), beide.width(), beide.height())
        .save(QString::fromLocal8Bit(bestand));
}

// The pane in the canvas' top-right corner, as the toolbar button shows it, for the uniform knot
// vector, whose virtual ranges carry the first and last functions' other pieces; then the pane
// off and the knots open uniform again.
bool neemMengfuncties(zw::ZwierlijnVenster& w, const char* bestand) {
    w.knop(QStringLiteral("Uniform"))->trigger();
    w.knop(QStringLiteral("Mengfuncties"))->trigger();
    QApplication::processEvents();
    const bool genomen = w.grab().save(QString::fromLocal8Bit(bestand));
    w.knop(QStringLiteral("Mengfuncties"))->trigger();
    w.knop(QStringLiteral("OpenUniform"))->trigger();
    QApplication::processEvents();
    return genomen;
}

// The views from the menu, as the user turns them on; the colouring's segment picked by a left
// click at the fifth control point, which finds the curve's nearest point.
bool neemBeelden(zw::ZwierlijnVenster& w, const char* bezier, const char* kleuring) {
    w.menu(QStringLiteral("mntBeeldBezier"))->trigger();
    QApplication::processEvents();
    bool genomen = w.grab().save(QString::fromLocal8Bit(bezier));
    w.menu(QStringLiteral("mntBeeldBezier"))->trigger();
    w.menu(QStringLiteral("mntBeeldControlperSegment"))->trigger();
    const zw::ScaleMapper schaal = w.Doek().mapper();
    w.Doek().deliverMouseDown(1, 0, schaal.toPixelX(kPoints[4][0]), schaal.toPixelY(kPoints[4][1]));
    QApplication::processEvents();
    genomen = w.grab().save(QString::fromLocal8Bit(kleuring)) && genomen;
    w.menu(QStringLiteral("mntBeeldControlperSegment"))->trigger();
    QApplication::processEvents();
    return genomen;
}

// The numbers and the links on and the pointer resting on the knot pane's fourth knot
// cluster: its segments tinted, its parameter in the blending pane.
bool neemVerbanden(zw::ZwierlijnVenster& w, const char* bestand) {
    for (const char* item : {"mntExtraNummers", "mntExtraVerbanden"}) {
        w.menu(QString::fromLatin1(item))->trigger();
    }
    w.knop(QStringLiteral("Mengfuncties"))->trigger();
    QApplication::processEvents();
    const zw::ScaleMapper schaal = w.Knopen().mapper();
    w.Knopen().deliverMouseMove(0, 0, schaal.toPixelX(w.vec().paneelX(w.vec().knoop(5.0f))),
                                schaal.toPixelY(w.hoogte));
    QApplication::processEvents();
    return w.grab().save(QString::fromLocal8Bit(bestand));
}

}  // namespace

int main(int argc, char** argv) {
    QApplication qtApp(argc, argv);
    if (argc < 2 || argc > 7 || argc == 5) {
        std::fprintf(stderr,
                     "usage: screenshot <editor.png> [<weights.png> [<blending.png> "
                     "[<bezier.png> <colouring.png> [<links.png>]]]]\n");
        return 2;
    }
    QTemporaryDir dir;
    zw::schrijfStandaardInstellingen(dir.path().toStdString() + "/zwierlijn");
    zw::Application app(dir.path().toStdString(), std::make_unique<zw::ScriptedDialogs>());
    zw::ZwierlijnVenster& w = app.mainWindow();
    app.show();
    QApplication::processEvents();
    drawCurve(w);
    QApplication::processEvents();
    if (!w.grab().save(QString::fromLocal8Bit(argv[1]))) {
        std::fprintf(stderr, "screenshot: cannot write %s\n", argv[1]);
        return 1;
    }
    if (argc >= 4 && !neemMengfuncties(w, argv[3])) {
        std::fprintf(stderr, "screenshot: cannot write %s\n", argv[3]);
        return 1;
    }
    if (argc >= 6 && !neemBeelden(w, argv[4], argv[5])) {
        std::fprintf(stderr, "screenshot: cannot write %s or %s\n", argv[4], argv[5]);
        return 1;
    }
    if (argc >= 3 && !neemGewichten(w, argv[2])) {
        std::fprintf(stderr, "screenshot: cannot write %s\n", argv[2]);
        return 1;
    }
    if (argc == 7 && !neemVerbanden(w, argv[6])) {
        std::fprintf(stderr, "screenshot: cannot write %s\n", argv[6]);
        return 1;
    }
    return 0;
}
