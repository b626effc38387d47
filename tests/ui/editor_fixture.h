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

#include "geometry/coordinaten.h"
#include "platform/record_file.h"
#include "platform/scripted_dialogs.h"
#include "storage/opslag.h"
#include "test_support.h"
#include "ui/surface_widget.h"
#include "ui/zwierlijn.h"
#include "weights/gewichten_form.h"

namespace zw {

// Every setting distinct, so that a record read into the wrong field shows.
inline constexpr std::int32_t kSettings[13] = {0,
                                               rgb(1, 0, 0),    // 1 Datakleur
                                               rgb(2, 0, 0),    // 2 krommekleur
                                               rgb(3, 0, 0),    // 3 controlkleur
                                               rgb(4, 0, 0),    // 4 doekkleur
                                               rgb(5, 0, 0),    // 5 lijnkleur
                                               60,              // 6 ControleStraal
                                               3000,            // 7 berngrootte
                                               rgb(8, 0, 0),    // 8 segmentkleur
                                               7,               // 9 zoom factor, never used
                                               rgb(10, 0, 0),   // 10 Bezierkleur
                                               rgb(11, 0, 0),   // 11 Reeel
                                               rgb(12, 0, 0)};  // 12 virtueel

class EditorTest : public ::testing::Test {
  protected:
    explicit EditorTest(bool withSettings = true) {
        if (withSettings) {
            RecordFile settings(dir.file("zwierlijn"));
            for (int r = 1; r <= 12; ++r) {
                settings.putLong(r, kSettings[r]);
            }
        }
        w = std::make_unique<Zwierlijn>(dir.path(), dialogs, guard);
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
    std::unique_ptr<Zwierlijn> w;
};

}  // namespace zw
