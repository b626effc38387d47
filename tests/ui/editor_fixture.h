// The editor window in a temporary program directory with known settings, and the mouse as
// the user moves it.
#pragma once

#include <QCoreApplication>
#include <QMouseEvent>
#include <QTest>
#include <cmath>
#include <memory>
#include <vector>

#include <gtest/gtest.h>

#include "headless_window.h"
#include "platform/record_file.h"
#include "platform/scripted_dialogs.h"
#include "storage/opslag.h"
#include "ui/surface_widget.h"
#include "ui/zwierlijn_venster.h"

namespace zw {

// Every setting distinct, so that a record read into the wrong field shows: colour records r
// hold rgb(r, 0, 0); record 9, the zoom factor, is never used.
constexpr std::int32_t setting(int record) {
    return record == 6 ? 60 : record == 7 ? 3000 : record == 9 ? 7 : rgb(record, 0, 0);
}

// The settings file's colour records: the settings dialog's button and the window's variable.
struct ColourSetting {
    const char* button;
    Colour MainWindow::*variable;
    int record;
};
inline const ColourSetting kColourSettings[] = {
    {"Datakleur", &MainWindow::Datakleur, 1},      {"Kromme", &MainWindow::krommekleur, 2},
    {"Control", &MainWindow::controlkleur, 3},     {"DKKleur", &MainWindow::doekkleur, 4},
    {"Lijn", &MainWindow::lijnkleur, 5},           {"beeldkleur", &MainWindow::segmentkleur, 8},
    {"Bezierkleur", &MainWindow::Bezierkleur, 10}, {"Reeel", &MainWindow::Reeel, 11},
    {"virtueel", &MainWindow::virtueel, 12},
};

class EditorTest : public ::testing::Test {
  protected:
    explicit EditorTest(bool withSettings = true) {
        if (withSettings) {
            RecordFile settings(dir.file("zwierlijn"));
            for (int r = 1; r <= 12; ++r) {
                settings.putLong(r, setting(r));
            }
        }
        w = std::make_unique<ZwierlijnVenster>(dir.path(), dialogs, guard);
        for (Surface* s : {&w->Doek(), &w->Knopen(), &w->meng(), &w->gewichten().Doek()}) {
            s->setLogging(true);
        }
        w->show();
        QCoreApplication::processEvents();
    }

    // The demonstration polygon: four points, order 4, uniform knots -3 .. 4. It records a
    // version, and its weights must be there first.
    void testCurve() {
        w->gewichten().dimensioneer_gewichten(4.0f);
        w->polygoon().test();
        w->Doek().refresh();
    }

    static QPoint pixel(const Surface& s, double x, double y) {
        const ScaleMapper m = s.mapper();
        return QPoint(static_cast<int>(std::lround(m.toPixelX(x))),
                      static_cast<int>(std::lround(m.toPixelY(y))));
    }
    void moveWith(QWidget& widget, Qt::MouseButtons held, QPoint at) {
        QMouseEvent e(QEvent::MouseMove, at, widget.mapToGlobal(QPointF(at)), Qt::NoButton, held,
                      Qt::NoModifier);
        QCoreApplication::sendEvent(&widget, &e);
    }
    // A press, one move and a release with one button, in scale units of the widget's surface.
    void drag(SurfaceWidget& widget, Qt::MouseButton button, double x0, double y0, double x1,
              double y1) {
        QTest::mousePress(&widget, button, Qt::NoModifier, pixel(widget.surface(), x0, y0));
        moveWith(widget, button, pixel(widget.surface(), x1, y1));
        QTest::mouseRelease(&widget, button, Qt::NoModifier, pixel(widget.surface(), x1, y1));
    }
    // A left click at canvas coordinates.
    void click(double x, double y) {
        QTest::mouseClick(&w->doekWidget(), Qt::LeftButton, Qt::NoModifier, pixel(w->Doek(), x, y));
    }
    float version() { return w->ops().versie; }
    std::vector<DrawRecord> doekLog() { return w->Doek().log(); }

    TestDir dir;
    ScriptedDialogs dialogs;
    EventGuard guard{dialogs};
    std::unique_ptr<ZwierlijnVenster> w;
};

}  // namespace zw
