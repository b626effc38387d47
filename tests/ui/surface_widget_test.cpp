#include "ui/surface_widget.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QTest>
#include <string>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

#include "platform/runtime_error.h"
#include "platform/scripted_dialogs.h"

namespace zw {
namespace {

using Call = std::tuple<char, int, int, float, float>;

class SurfaceWidgetTest : public ::testing::Test {
  protected:
    SurfaceWidgetTest() : guard_(dialogs_), widget_(surface_, guard_) {
        auto recorder = [this](char what) -> MouseHandler {
            return [this, what](int b, int s, float x, float y) {
                calls_.emplace_back(what, b, s, x, y);
            };
        };
        surface_.setMouseDownHandler(recorder('d'));
        surface_.setMouseMoveHandler(recorder('m'));
        surface_.setMouseUpHandler(recorder('u'));
        surface_.setPaintHandler([this] { ++paints_; });
        widget_.resize(200, 100);
        widget_.show();
        QCoreApplication::processEvents();
        surface_.scale(-5, 2.5, 5, -2.5);  // 20 px per unit, y up
        paints_ = 0;
    }

    ScriptedDialogs dialogs_;
    EventGuard guard_;
    Surface surface_;
    SurfaceWidget widget_;
    std::vector<Call> calls_;
    int paints_ = 0;
};

TEST_F(SurfaceWidgetTest, MouseEventsReachTheHandlersInScaleUnitsWithClassicCodes) {
    QTest::mousePress(&widget_, Qt::LeftButton, Qt::ShiftModifier, QPoint(50, 25));
    const QPointF at(100, 50);
    QMouseEvent move(QEvent::MouseMove, at, widget_.mapToGlobal(at), Qt::NoButton,
                     Qt::LeftButton | Qt::MiddleButton, Qt::ControlModifier | Qt::AltModifier);
    QCoreApplication::sendEvent(&widget_, &move);
    QTest::mouseRelease(&widget_, Qt::LeftButton, Qt::NoModifier, QPoint(150, 75));
    QTest::mousePress(&widget_, Qt::RightButton, Qt::ControlModifier, QPoint(10, 5));
    // The second press of a double click is no mouse down.
    QMouseEvent dbl(QEvent::MouseButtonDblClick, at, widget_.mapToGlobal(at), Qt::LeftButton,
                    Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget_, &dbl);
    QTest::mouseRelease(&widget_, Qt::LeftButton, Qt::NoModifier, QPoint(100, 50));
    const std::vector<Call> expected = {Call('d', 1, 1, -2.5f, 1.25f), Call('m', 5, 6, 0.0f, 0.0f),
                                        Call('u', 1, 0, 2.5f, -1.25f),
                                        Call('d', 2, 2, -4.5f, 2.25f), Call('u', 1, 0, 0.0f, 0.0f)};
    EXPECT_EQ(calls_, expected);
}

TEST_F(SurfaceWidgetTest, ARunTimeErrorInAHandlerIsShownOnceAndLaterEventsStillArrive) {
    int downs = 0;
    surface_.setMouseDownHandler([&](int, int, float, float) {
        if (++downs == 1) {
            throw RuntimeError(kErrSubscript);
        }
    });
    QTest::mouseClick(&widget_, Qt::LeftButton, Qt::NoModifier, QPoint(10, 10));
    QTest::mouseClick(&widget_, Qt::LeftButton, Qt::NoModifier, QPoint(10, 10));
    EXPECT_EQ(downs, 2);
    EXPECT_EQ(calls_.size(), 2u);  // both ups
    ASSERT_EQ(dialogs_.messages().size(), 1u);
    EXPECT_NE(dialogs_.messages()[0].text.find(standardErrorText(kErrSubscript)),
              std::string::npos);
}

TEST_F(SurfaceWidgetTest, ResizesComeToOnePaintOnceTheEventLoopRuns) {
    widget_.resize(300, 150);
    widget_.resize(320, 160);
    EXPECT_EQ(surface_.pixelWidth(), 320);
    EXPECT_EQ(paints_, 0);
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    EXPECT_EQ(paints_, 1);
}

}  // namespace
}  // namespace zw
