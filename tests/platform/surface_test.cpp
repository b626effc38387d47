#include "platform/surface.h"

#include <cmath>
#include <functional>
#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/runtime_error.h"

namespace zw {
namespace {

int errorOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const RuntimeError& error) {
        return error.number();
    }
    return 0;
}

// The colour at a point in logical pixels, read from the device pixels underneath.
QColor colourAt(const Surface& surface, double x, double y) {
    const double ratio = surface.devicePixelRatio();
    return surface.image().pixelColor(static_cast<int>(x * ratio), static_cast<int>(y * ratio));
}

// Antialiasing blends edges; the middle of a stroke or a fill is the colour or very near it.
void expectNear(const QColor& actual, Colour expected) {
    const QColor want = toQColor(expected);
    EXPECT_NEAR(actual.red(), want.red(), 24) << actual.name().toStdString();
    EXPECT_NEAR(actual.green(), want.green(), 24) << actual.name().toStdString();
    EXPECT_NEAR(actual.blue(), want.blue(), 24) << actual.name().toStdString();
}

class CountingObserver : public SurfaceObserver {
  public:
    void imageChanged() override { ++images; }
    void geometryChanged() override { ++geometries; }
    int images = 0;
    int geometries = 0;
};

TEST(ScaleMapperTest, MapsBothWaysWithEitherDirectionOfAxes) {
    struct Case {
        const char* name;
        ScaleMapper map;
        double x, y, px, py;
    };
    const Case cases[] = {
        {"twips", ScaleMapper(0, 0, 1500, 750, 100, 50), 150, 300, 10, 20},
        {"y up", ScaleMapper(-1, 1, 2, -2, 200, 100), 0.5, -0.5, 150, 75},
        {"offset", ScaleMapper(10, 20, 5, 5, 50, 50), 12, 21, 20, 10},
        {"x left", ScaleMapper(4, 0, -4, 1, 80, 10), 1, 0.5, 60, 5},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_DOUBLE_EQ(c.map.toPixelX(c.x), c.px);
        EXPECT_DOUBLE_EQ(c.map.toPixelY(c.y), c.py);
        EXPECT_DOUBLE_EQ(c.map.toScaleX(c.px), c.x);
        EXPECT_DOUBLE_EQ(c.map.toScaleY(c.py), c.y);
    }
}

TEST(ScaleMapperTest, LengthsHaveNoDirectionAndDegenerateRangesDoNotDivide) {
    const ScaleMapper yUp(0, 10, 20, -10, 200, 100);
    EXPECT_DOUBLE_EQ(yUp.widthToPixels(2), 20);
    EXPECT_DOUBLE_EQ(yUp.heightToPixels(2), 20);
    EXPECT_DOUBLE_EQ(ScaleMapper(0, 0, -20, 10, 200, 100).widthToPixels(2), 20);

    const ScaleMapper noScale(3, 4, 0, 0, 100, 100);
    EXPECT_EQ(noScale.toPixelX(7), 0);
    EXPECT_EQ(noScale.toPixelY(7), 0);
    EXPECT_EQ(noScale.widthToPixels(7), 0);
    const ScaleMapper noPixels(3, 4, 10, 10, 0, 0);
    EXPECT_EQ(noPixels.toScaleX(7), 3);
    EXPECT_EQ(noPixels.toScaleY(7), 4);
}

TEST(SurfaceScaleTest, DefaultsToTwipsThatFollowTheSize) {
    Surface surface;
    surface.setPixelSize(100, 50);
    EXPECT_FALSE(surface.hasUserScale());
    EXPECT_EQ(surface.scaleLeft(), 0);
    EXPECT_EQ(surface.scaleTop(), 0);
    EXPECT_EQ(surface.scaleWidth(), 1500);
    EXPECT_EQ(surface.scaleHeight(), 750);
    surface.setPixelSize(200, 80);
    EXPECT_EQ(surface.scaleWidth(), 3000);
    EXPECT_EQ(surface.scaleHeight(), 1200);
}

TEST(SurfaceScaleTest, UserScaleKeepsItsRectangleUntilScaleDefault) {
    Surface surface;
    surface.setPixelSize(200, 100);
    surface.scale(-1, 1, 1, -1);
    EXPECT_TRUE(surface.hasUserScale());
    EXPECT_EQ(surface.scaleHeight(), -2);
    EXPECT_DOUBLE_EQ(surface.mapper().toPixelX(0.5), 150);
    EXPECT_DOUBLE_EQ(surface.mapper().toPixelY(0.5), 25);

    surface.setPixelSize(400, 50);  // the mapping stretches
    EXPECT_EQ(surface.scaleLeft(), -1);
    EXPECT_EQ(surface.scaleWidth(), 2);
    EXPECT_DOUBLE_EQ(surface.mapper().toPixelX(0.5), 300);
    EXPECT_DOUBLE_EQ(surface.mapper().toPixelY(-1), 50);

    surface.scaleDefault();
    EXPECT_FALSE(surface.hasUserScale());
    EXPECT_EQ(surface.scaleLeft(), 0);
    EXPECT_EQ(surface.scaleWidth(), 6000);
}

TEST(SurfaceScaleTest, EachPropertySwitchesToUserScaleAndKeepsTheOthers) {
    Surface surface;
    surface.setPixelSize(100, 50);
    surface.setScaleLeft(10);
    surface.setScaleTop(-5);
    EXPECT_TRUE(surface.hasUserScale());
    EXPECT_EQ(surface.scaleWidth(), 1500);  // the twips it had
    surface.setScaleWidth(20);
    surface.setScaleHeight(-10);
    EXPECT_EQ(surface.scaleLeft(), 10);
    EXPECT_EQ(surface.scaleTop(), -5);
    surface.setPixelSize(50, 50);
    EXPECT_EQ(surface.scaleWidth(), 20);
    EXPECT_DOUBLE_EQ(surface.mapper().toPixelX(20), 25);
    EXPECT_DOUBLE_EQ(surface.mapper().toPixelY(-10), 25);
}

TEST(SurfaceScaleTest, ScaleLeftCanBeSetOnASurfaceWithoutSize) {
    Surface surface;  // 0 x 0: its twips are 0 wide
    surface.setScaleLeft(3);
    surface.setPixelSize(10, 10);
    EXPECT_EQ(surface.scaleLeft(), 3);
    EXPECT_EQ(surface.scaleWidth(), 0);
}

TEST(SurfaceErrorTest, InvalidValuesRaiseTheClassicErrors) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    struct Case {
        const char* name;
        std::function<void(Surface&)> action;
        int error;
    };
    const std::vector<Case> cases = {
        {"scale width 0", [](Surface& s) { s.setScaleWidth(0); }, kErrInvalidProperty},
        {"scale height 0", [](Surface& s) { s.setScaleHeight(0); }, kErrInvalidProperty},
        {"scale width NaN", [nan](Surface& s) { s.setScaleWidth(nan); }, kErrInvalidProperty},
        {"scale left inf", [](Surface& s) { s.setScaleLeft(HUGE_VAL); }, kErrInvalidProperty},
        {"flat corners", [](Surface& s) { s.scale(1, 1, 1, 2); }, kErrInvalidProperty},
        {"draw width 0", [](Surface& s) { s.setDrawWidth(0); }, kErrInvalidProperty},
        {"draw width big", [](Surface& s) { s.setDrawWidth(32768); }, kErrInvalidProperty},
        {"fill style -1", [](Surface& s) { s.setFillStyle(-1); }, kErrInvalidProperty},
        {"fill style 8", [](Surface& s) { s.setFillStyle(8); }, kErrInvalidProperty},
        {"negative size", [](Surface& s) { s.setPixelSize(-1, 5); }, kErrInvalidProperty},
        {"size too big", [](Surface& s) { s.setPixelSize(40000, 5); }, kErrInvalidProperty},
        {"image too big", [](Surface& s) { s.setPixelSize(30000, 30000); }, kErrOutOfMemory},
        {"move negative", [](Surface& s) { s.move(0, 0, -15, 15); }, kErrInvalidProperty},
        {"move huge", [](Surface& s) { s.move(0, 0, 1e300, 15); }, kErrOverflow},
        {"move NaN", [nan](Surface& s) { s.move(nan, 0, 15, 15); }, kErrOverflow},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        Surface surface;
        surface.setPixelSize(100, 50);
        surface.setDrawWidth(3);
        surface.line(0, 0, 10, 10, kBlack);
        EXPECT_EQ(errorOf([&] { c.action(surface); }), c.error);
        // A refused value changes nothing.
        EXPECT_EQ(surface.pixelWidth(), 100);
        EXPECT_EQ(surface.scaleWidth(), 1500);
        EXPECT_EQ(surface.drawWidth(), 3);
        EXPECT_EQ(surface.fillStyle(), kFillTransparent);
        EXPECT_EQ(surface.log().size(), 1u);
    }
}

TEST(SurfaceLogTest, RecordsPrimitivesInScaleUnitsWithTheStateOfTheMoment) {
    Surface surface;
    surface.setPixelSize(100, 100);
    surface.scale(0, 10, 10, 0);
    surface.setDrawWidth(2);
    surface.line(1, 2, 3, 4, rgb(255, 0, 0));
    surface.setFillStyle(kFillSolid);
    surface.setFillColour(rgb(0, 0, 255));
    surface.setDrawWidth(5);
    surface.circle(5, 6, 1.5, rgb(0, 255, 0));

    ASSERT_EQ(surface.log().size(), 2u);
    const DrawRecord& line = surface.log()[0];
    EXPECT_EQ(line.kind, DrawKind::kLine);
    EXPECT_EQ(line.x1, 1);
    EXPECT_EQ(line.y1, 2);
    EXPECT_EQ(line.x2, 3);
    EXPECT_EQ(line.y2, 4);
    EXPECT_EQ(line.colour, rgb(255, 0, 0));
    EXPECT_EQ(line.drawWidth, 2);
    EXPECT_EQ(line.fillStyle, kFillTransparent);

    const DrawRecord& circle = surface.log()[1];
    EXPECT_EQ(circle.kind, DrawKind::kCircle);
    EXPECT_EQ(circle.x1, 5);
    EXPECT_EQ(circle.y1, 6);
    EXPECT_EQ(circle.radius, 1.5);
    EXPECT_EQ(circle.colour, rgb(0, 255, 0));
    EXPECT_EQ(circle.drawWidth, 5);
    EXPECT_EQ(circle.fillStyle, kFillSolid);
    EXPECT_EQ(circle.fillColour, rgb(0, 0, 255));
}

TEST(SurfaceLogTest, ClearedByClsBackgroundAndResizeOnly) {
    struct Case {
        const char* name;
        std::function<void(Surface&)> action;
        bool clears;
    };
    const std::vector<Case> cases = {
        {"cls", [](Surface& s) { s.cls(); }, true},
        {"background", [](Surface& s) { s.setBackColour(kBlack); }, true},
        {"resize", [](Surface& s) { s.setPixelSize(60, 40); }, true},
        {"pixel ratio", [](Surface& s) { s.setDevicePixelRatio(2); }, true},
        {"move to new size", [](Surface& s) { s.move(0, 0, 900, 600); }, true},
        {"same size", [](Surface& s) { s.setPixelSize(50, 40); }, false},
        {"move, same size", [](Surface& s) { s.move(150, 150, 750, 600); }, false},
        {"scale", [](Surface& s) { s.scale(0, 0, 1, 1); }, false},
        {"draw width", [](Surface& s) { s.setDrawWidth(4); }, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        Surface surface;
        surface.setPixelSize(50, 40);
        surface.setDrawWidth(4);
        surface.line(0, 0, 300, 300, rgb(255, 0, 0));
        c.action(surface);
        EXPECT_EQ(surface.log().empty(), c.clears);
        const QColor onTheLine = colourAt(surface, 10, 10);
        expectNear(onTheLine, c.clears ? surface.backColour() : rgb(255, 0, 0));
    }
}

TEST(SurfaceEventTest, RefreshRunsThePaintHandlerAndTellsTheView) {
    Surface surface;
    CountingObserver view;
    surface.setObserver(&view);
    int paints = 0;
    surface.setPaintHandler([&] {
        ++paints;
        EXPECT_EQ(view.images, 0);  // the view hears only after the handler has drawn
    });
    surface.refresh();
    EXPECT_EQ(paints, 1);
    EXPECT_EQ(view.images, 1);
}

TEST(SurfaceEventTest, MouseEventsArriveInScaleUnitsWithTheirCodes) {
    Surface surface;
    surface.setPixelSize(200, 100);
    surface.scale(-10, 5, 10, -5);
    std::vector<std::string> calls;
    auto record = [&](const char* what) {
        return [&calls, what](int button, int shift, float x, float y) {
            calls.push_back(std::string(what) + " " + std::to_string(button) + " " +
                            std::to_string(shift) + " " + std::to_string(x) + " " +
                            std::to_string(y));
        };
    };
    surface.setMouseDownHandler(record("down"));
    surface.setMouseMoveHandler(record("move"));
    surface.setMouseUpHandler(record("up"));
    surface.deliverMouseDown(1, 2, 150, 25);
    surface.deliverMouseMove(1 | 4, 0, 100, 50);
    surface.deliverMouseUp(2, 1 | 4, 0, 100);
    const std::vector<std::string> expected = {
        "down 1 2 5.000000 2.500000",
        "move 5 0 0.000000 0.000000",
        "up 2 5 -10.000000 -5.000000",
    };
    EXPECT_EQ(calls, expected);
}

TEST(SurfaceEventTest, FarOffPointsSaturateAndMissingHandlersAreNoFault) {
    Surface surface;
    surface.deliverMouseDown(1, 0, 5, 5);  // no handler
    surface.refresh();
    surface.setPixelSize(10, 10);
    surface.setScaleWidth(1e300);
    float seenX = 0;
    surface.setMouseMoveHandler([&](int, int, float x, float) { seenX = x; });
    surface.deliverMouseMove(0, 0, 1e6, 0);
    EXPECT_EQ(seenX, std::numeric_limits<float>::max());
}

TEST(SurfacePlacementTest, MoveConvertsContainerUnitsWithHalvesToEven) {
    Surface canvas;
    canvas.setPixelSize(400, 200);
    canvas.scale(0, 10, 20, 0);  // 20 px per unit, y up
    Surface scaled;
    scaled.setPixelSize(100, 100);
    scaled.scale(0, 0, 8, 8);  // 12.5 px per unit
    struct Case {
        const char* name;
        const Surface* container;
        double left, top, width, height;
        int pixelLeft, pixelTop, pixelWidth, pixelHeight;
    };
    const Case cases[] = {
        {"twips", nullptr, 150, 300, 1500, 1005, 10, 20, 100, 67},
        {"twips, halves", nullptr, 337.5, 562.5, 562.5, 337.5, 22, 38, 38, 22},
        {"y up", &canvas, 2, 8, 5, 2.5, 40, 40, 100, 50},
        {"halves", &scaled, 0.2, 0.6, 1, 3, 2, 8, 12, 38},
        {"hidden", nullptr, 15, 15, 0, 15, 1, 1, 0, 1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        Surface pane;
        CountingObserver view;
        pane.setObserver(&view);
        pane.setContainer(c.container);
        pane.move(c.left, c.top, c.width, c.height);
        EXPECT_EQ(pane.pixelLeft(), c.pixelLeft);
        EXPECT_EQ(pane.pixelTop(), c.pixelTop);
        EXPECT_EQ(pane.pixelWidth(), c.pixelWidth);
        EXPECT_EQ(pane.pixelHeight(), c.pixelHeight);
        EXPECT_EQ(pane.left(), c.left);
        EXPECT_EQ(pane.top(), c.top);
        EXPECT_EQ(pane.width(), c.width);
        EXPECT_EQ(pane.height(), c.height);
        EXPECT_EQ(view.geometries, 1);
        // Its own default scale follows the new size.
        EXPECT_EQ(pane.scaleWidth(), c.pixelWidth * kTwipsPerPixel);
    }
}

TEST(SurfacePlacementTest, AResizeFromTheViewUpdatesTheSizeInContainerUnits) {
    Surface canvas;
    canvas.setPixelSize(400, 200);
    canvas.scale(0, 10, 20, 0);
    Surface pane;
    pane.setContainer(&canvas);
    pane.move(1, 9, 3, 2);
    pane.setPixelSize(60, 60);
    EXPECT_DOUBLE_EQ(pane.width(), 3);
    EXPECT_DOUBLE_EQ(pane.height(), 3);
    EXPECT_EQ(pane.left(), 1);
}

TEST(SurfaceRasterTest, LinesAndSolidCirclesReachThePixelsAtAnyPixelRatio) {
    for (const double ratio : {1.0, 2.0}) {
        SCOPED_TRACE(ratio);
        Surface surface;
        surface.setDevicePixelRatio(ratio);
        surface.setPixelSize(200, 100);
        EXPECT_EQ(surface.image().width(), 200 * ratio);
        EXPECT_EQ(surface.image().height(), 100 * ratio);
        surface.scale(0, 10, 20, 0);
        surface.setDrawWidth(3);
        surface.line(1, 8, 9, 8, rgb(255, 0, 0));  // pixel row 20, x 10..90
        surface.setFillStyle(kFillSolid);
        surface.setFillColour(rgb(0, 0, 255));
        surface.circle(15, 5, 2, rgb(0, 128, 0));  // centre (150, 50), radius 20 px
        surface.setFillStyle(kFillTransparent);
        surface.circle(5, 3, 1, rgb(0, 128, 0));  // centre (50, 70), radius 10 px

        expectNear(colourAt(surface, 50, 20), rgb(255, 0, 0));
        expectNear(colourAt(surface, 50, 26), kWhite);  // beyond the stroke
        expectNear(colourAt(surface, 150, 50), rgb(0, 0, 255));
        expectNear(colourAt(surface, 160, 40), rgb(0, 0, 255));
        expectNear(colourAt(surface, 170, 50), rgb(0, 128, 0));  // on the outline
        expectNear(colourAt(surface, 50, 70), kWhite);           // transparent inside
        expectNear(colourAt(surface, 60, 70), rgb(0, 128, 0));
    }
}

TEST(SurfaceRasterTest, ColoursUseTheirLow24Bits) {
    Surface surface;
    surface.setPixelSize(20, 20);
    surface.setBackColour(static_cast<Colour>(0x80000000u) | rgb(0, 255, 0));
    expectNear(colourAt(surface, 2, 2), rgb(0, 255, 0));
    surface.setDrawWidth(6);
    surface.line(0, 150, 300, 150, static_cast<Colour>(0xFF000000u) | rgb(0, 0, 255));
    expectNear(colourAt(surface, 10, 10), rgb(0, 0, 255));
}

TEST(SurfaceRasterTest, NothingToPaintOnIsNoFault) {
    Surface surface;  // 0 x 0
    surface.line(0, 0, 100, 100, kBlack);
    surface.circle(0, 0, 100, kBlack);
    surface.cls();
    EXPECT_TRUE(surface.image().isNull());
    surface.setPixelSize(10, 10);
    const double nan = std::numeric_limits<double>::quiet_NaN();
    surface.line(nan, 0, HUGE_VAL, 1, kBlack);
    surface.circle(5, 5, nan, kBlack);
    surface.setDrawWidth(3);
    surface.line(-1e12, 75, 1e12, 75, rgb(255, 0, 0));
    EXPECT_EQ(surface.log().size(), 3u);
    expectNear(colourAt(surface, 5, 5), rgb(255, 0, 0));
}

}  // namespace
}  // namespace zw
