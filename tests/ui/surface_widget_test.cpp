#include "ui/surface_widget.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QTest>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/runtime_error.h"
#include "platform/scripted_dialogs.h"

namespace zw {
namespace {

struct MouseCall {
    std::string what;
    int button;
    int shift;
    float x;
    float y;

    bool operator==(const MouseCall& other) const {
        return what == other.what && button == other.button && shift == other.shift &&
               x == other.x && y == other.y;
    }
};

void PrintTo(const MouseCall& call, std::ostream* out) {
    *out << call.what << " " << call.button << " " << call.shift << " " << call.x << " " << call.y;
}

class SurfaceWidgetTest : public ::testing::Test {
  protected:
    SurfaceWidgetTest() : guard_(dialogs_), widget_(surface_, guard_) {
        surface_.setMouseDownHandler(recorder("down"));
        surface_.setMouseMoveHandler(recorder("move"));
        surface_.setMouseUpHandler(recorder("up"));
        surface_.setPaintHandler([this] { ++paints_; });
        widget_.resize(200, 100);
        widget_.show();
        QCoreApplication::processEvents();
        // 10 units across, y up from -2.5 to 2.5.
        surface_.scale(-5, 2.5, 5, -2.5);
        paints_ = 0;
    }

    MouseHandler recorder(const char* what) {
        return [this, what](int button, int shift, float x, float y) {
            calls_.push_back({what, button, shift, x, y});
        };
    }

    void sendMove(Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers, QPointF at) {
        QMouseEvent event(QEvent::MouseMove, at, widget_.mapToGlobal(at), Qt::NoButton, buttons,
                          modifiers);
        QCoreApplication::sendEvent(&widget_, &event);
    }

    ScriptedDialogs dialogs_;
    EventGuard guard_;
    Surface surface_;
    SurfaceWidget widget_;
    std::vector<MouseCall> calls_;
    int paints_ = 0;
};

TEST_F(SurfaceWidgetTest, MouseEventsReachTheHandlersInScaleUnitsWithClassicCodes) {
    QTest::mousePress(&widget_, Qt::LeftButton, Qt::ShiftModifier, QPoint(50, 25));
    sendMove(Qt::LeftButton | Qt::MiddleButton, Qt::ControlModifier | Qt::AltModifier,
             QPointF(100, 50));
    QTest::mouseRelease(&widget_, Qt::LeftButton, Qt::NoModifier, QPoint(150, 75));
    // (QTest takes a null point for the centre.)
    QTest::mousePress(&widget_, Qt::RightButton, Qt::ControlModifier, QPoint(10, 5));
    QTest::mouseRelease(&widget_, Qt::RightButton, Qt::ControlModifier, QPoint(10, 5));
    QTest::mousePress(&widget_, Qt::MiddleButton, Qt::AltModifier, QPoint(200, 100));
    sendMove(Qt::NoButton, Qt::NoModifier, QPointF(20, 10));
    const std::vector<MouseCall> expected = {
        {"down", 1, 1, -2.5f, 1.25f}, {"move", 5, 6, 0.0f, 0.0f}, {"up", 1, 0, 2.5f, -1.25f},
        {"down", 2, 2, -4.5f, 2.25f}, {"up", 2, 2, -4.5f, 2.25f}, {"down", 4, 4, 5.0f, -2.5f},
        {"move", 0, 0, -4.0f, 2.0f},
    };
    EXPECT_EQ(calls_, expected);
}

TEST_F(SurfaceWidgetTest, ARunTimeErrorInAHandlerIsShownAndLaterEventsStillArrive) {
    int downs = 0;
    surface_.setMouseDownHandler([&](int, int, float, float) {
        if (++downs == 1) {
            throw RuntimeError(kErrSubscript);
        }
    });
    QTest::mouseClick(&widget_, Qt::LeftButton, Qt::NoModifier, QPoint(10, 10));
    ASSERT_EQ(dialogs_.messages().size(), 1u);
    EXPECT_NE(dialogs_.messages()[0].text.find(standardErrorText(kErrSubscript)),
              std::string::npos);
    QTest::mouseClick(&widget_, Qt::LeftButton, Qt::NoModifier, QPoint(10, 10));
    EXPECT_EQ(downs, 2);
    EXPECT_EQ(calls_.size(), 2u);  // both ups
    EXPECT_EQ(dialogs_.messages().size(), 1u);
}

TEST_F(SurfaceWidgetTest, ResizesComeToOnePaintOnceTheEventLoopRuns) {
    widget_.resize(300, 150);
    widget_.resize(320, 160);
    EXPECT_EQ(surface_.pixelWidth(), 320);  // the size follows at once
    EXPECT_EQ(surface_.pixelHeight(), 160);
    EXPECT_EQ(surface_.scaleWidth(), 10);  // the user scale stretches
    EXPECT_EQ(paints_, 0);
    QCoreApplication::processEvents();
    EXPECT_EQ(paints_, 1);
    QCoreApplication::processEvents();
    EXPECT_EQ(paints_, 1);
}

TEST_F(SurfaceWidgetTest, ShowsTheSurfaceImage) {
    surface_.setDrawWidth(5);
    surface_.line(-5, 0, 5, 0, rgb(255, 0, 0));
    const QImage shown = widget_.grab().toImage();
    const QColor middle = shown.pixelColor(shown.width() / 2, shown.height() / 2);
    EXPECT_EQ(middle, QColor(255, 0, 0));
    EXPECT_EQ(shown.pixelColor(5, 5), QColor(255, 255, 255));
}

TEST(SurfaceWidgetPlacementTest, FollowsTheSurfaceInsideItsContainer) {
    ScriptedDialogs dialogs;
    EventGuard guard(dialogs);
    Surface canvas;
    Surface pane;
    QWidget window;
    SurfaceWidget canvasWidget(canvas, guard, &window);
    canvasWidget.setGeometry(0, 0, 400, 200);
    canvas.scale(0, 10, 20, 0);
    SurfaceWidget paneWidget(pane, guard, &canvasWidget);
    pane.setContainer(&canvas);
    window.show();
    QCoreApplication::processEvents();

    pane.move(2, 8, 5, 2.5);
    EXPECT_EQ(paneWidget.geometry(), QRect(40, 40, 100, 50));
    pane.move(0, 10, 1, 1);
    EXPECT_EQ(paneWidget.geometry(), QRect(0, 0, 20, 20));
    EXPECT_EQ(pane.pixelWidth(), 20);  // the widget's resize agrees with the surface
    EXPECT_EQ(pane.width(), 1);
}

TEST(SurfaceWidgetCodesTest, ButtonsAndModifiersAddUp) {
    EXPECT_EQ(SurfaceWidget::buttonCode(Qt::NoButton), 0);
    EXPECT_EQ(SurfaceWidget::buttonCode(Qt::LeftButton | Qt::RightButton | Qt::MiddleButton), 7);
    EXPECT_EQ(SurfaceWidget::buttonCode(Qt::BackButton), 0);
    EXPECT_EQ(SurfaceWidget::shiftCode(Qt::ShiftModifier | Qt::AltModifier), 5);
    EXPECT_EQ(SurfaceWidget::shiftCode(Qt::ControlModifier | Qt::KeypadModifier), 2);
}

}  // namespace
}  // namespace zw
