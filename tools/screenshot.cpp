// Takes the README's picture of the editor: a fresh program directory with the default settings,
// an open-uniform cubic curve of eight control points, the window shown and grabbed.
//
// Usage: screenshot <output.png>   (needs a screen; ./zw screenshot runs it under Xvfb)
#include <QApplication>
#include <QPixmap>
#include <QTemporaryDir>
#include <cstdio>
#include <memory>

#include "geometry/coordinaten.h"
#include "knots/knoop_vector.h"
#include "platform/scripted_dialogs.h"
#include "window/instellingen.h"
#include "ui/application.h"
#include "weights/gewichten_form.h"

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

}  // namespace

int main(int argc, char** argv) {
    QApplication qtApp(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: screenshot <output.png>\n");
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
    return 0;
}
