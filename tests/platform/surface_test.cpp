#include "platform/surface.h"

#include <array>
#include <functional>
#include <limits>
#include <tuple>
#include <utility>
#include <vector>

#include <QBuffer>
#include <QPainter>
#include <QSvgGenerator>
#include <QRect>
#include <algorithm>
#include <cmath>

#include <gtest/gtest.h>

#include "platform/figure_painter.h"
#include "platform/figure_sink.h"
#include "platform/qimage_sink.h"
#include "platform/thin_polyline.h"
#include "test_support.h"

namespace zw {
namespace {

const Colour kRed = rgb(255, 0, 0);
const Colour kGreen = rgb(0, 128, 0);
const Colour kBlue = rgb(0, 0, 255);

// The largest difference of one channel.
int difference(const QColor& a, const QColor& b) {
    return std::max({std::abs(a.red() - b.red()), std::abs(a.green() - b.green()),
                     std::abs(a.blue() - b.blue())});
}

TEST(SurfaceScaleTest, TwipsFollowTheSizeWhileAUserScaleKeepsItsRectangle) {
    Surface surface;
    surface.setPixelSize(100, 50);
    EXPECT_EQ(surface.scaleWidth(), 1500);
    surface.setPixelSize(200, 100);
    EXPECT_EQ(surface.scaleHeight(), 1500);

    surface.scale(-1, 1, 1, -1);  // y up
    EXPECT_DOUBLE_EQ(surface.mapper().toPixelY(0.5), 25);
    surface.setPixelSize(400, 50);
    EXPECT_DOUBLE_EQ(surface.mapper().toPixelX(0.5), 300);
    EXPECT_DOUBLE_EQ(surface.mapper().toPixelY(-1), 50);
}

// Nothing to paint on is no fault.
TEST(SurfaceErrorTest, RefusedValuesRaiseTheClassicErrorAndChangeNothing) {
    Surface empty;
    empty.line(0, 0, 100, 100, kBlack);
    empty.circle(0, 0, 100, kBlack);
    empty.cls();
    EXPECT_TRUE(imageOf(empty).isNull());
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const std::vector<std::pair<std::function<void(Surface&)>, int>> cases = {
        {[](Surface& s) { s.setDrawWidth(0); }, kErrInvalidProperty},
        {[](Surface& s) { s.move(0, 0, -15, 15); }, kErrInvalidProperty},
        {[nan](Surface& s) { s.move(nan, 0, 15, 15); }, kErrOverflow},
        {[](Surface& s) { s.setPixelSize(30000, 30000); }, kErrOutOfMemory},
    };
    for (size_t i = 0; i < cases.size(); ++i) {
        SCOPED_TRACE(i);
        Surface surface;
        surface.setPixelSize(100, 50);
        EXPECT_EQ(errorOf([&] { cases[i].first(surface); }), cases[i].second);
        EXPECT_EQ(surface.scaleWidth(), 1500);  // nothing changed
        EXPECT_EQ(surface.drawWidth(), 1);
    }
}

// Only tests keep a log: primitives in scale units with the state of the moment. A fan is its
// lines, in order. Lines promised level and unmoved are checked while the log is on.
TEST(SurfaceLogTest, RecordsPrimitivesAndFansWithTheStateOfTheMoment) {
    Surface fan, lines;
    for (Surface* s : {&fan, &lines}) {
        s->setPixelSize(100, 100);
        s->line(1, 2, 3, 4, kRed);
        EXPECT_TRUE(s->log().empty());
        s->setLogging(true);
    }
    const float a[] = {1, 2, 3}, b[] = {1, 5, 3}, c[] = {1, 5, 4};
    const Colour colours[] = {kRed, kGreen};
    fan.setDrawWidth(2);
    lines.setDrawWidth(2);
    fan.lineFan(0, a, 10, b, 3, colours, 2, 1, 2);
    fan.lineFan(10, b, 20, c, 3, colours, 2, 2, 3);
    for (const auto& [x1, y1, x2, y2] :
         {std::make_tuple(0, a, 10, b), std::make_tuple(10, b, 20, c)}) {
        for (int i = 0; i < 3; ++i) {
            lines.line(x1, y1[i], x2, y2[i], colours[i % 2]);
        }
    }
    ASSERT_EQ(fan.log().size(), 6u);
    EXPECT_EQ(fieldsOf(fan.log()), fieldsOf(lines.log()));
    EXPECT_EQ(fieldsOf(lines.log()[5]), std::make_tuple(DrawKind::kLine, 10.0, 3.0, 20.0, 4.0, 0.0,
                                                        kRed, 2, kFillTransparent, kBlack));
    EXPECT_EQ(errorOf([&] { fan.lineFan(20, c, 30, a, 3, colours, 2, 0, 1); }), kErrInternal);
    fan.setFillStyle(kFillSolid);
    fan.setFillColour(kBlue);
    fan.setDrawWidth(5);
    fan.circle(5, 6, 1.5, kGreen);
    EXPECT_EQ(fieldsOf(fan.log().back()), std::make_tuple(DrawKind::kCircle, 5.0, 6.0, 0.0, 0.0,
                                                          1.5, kGreen, 5, kFillSolid, kBlue));
}

TEST(SurfaceLogTest, ClsBackgroundAndResizeClearLogAndImage) {
    const std::vector<std::pair<std::function<void(Surface&)>, bool>> cases = {
        {[](Surface& s) { s.cls(); }, true},
        {[](Surface& s) { s.setBackColour(kBlack); }, true},
        {[](Surface& s) { s.setPixelSize(60, 40); }, true},
        {[](Surface& s) { s.setPixelSize(50, 40); }, false},
    };
    for (size_t i = 0; i < cases.size(); ++i) {
        SCOPED_TRACE(i);
        Surface surface;
        surface.setLogging(true);
        surface.setPixelSize(50, 40);
        surface.setDrawWidth(4);
        surface.line(0, 0, 300, 300, kRed);
        cases[i].first(surface);
        EXPECT_EQ(surface.log().empty(), cases[i].second);
        // Antialiasing blends edges; the middle of a stroke is the colour or very near it.
        const Colour want = cases[i].second ? surface.backColour() : kRed;
        EXPECT_LE(difference(imageOf(surface).pixelColor(10, 10), toQColor(want)), 24);
    }
}

// Refresh runs the paint handler before it tells the view. The widget tests follow clicks from Qt
// through the handlers; a position beyond a Single saturates on the way rather than overflowing.
TEST(SurfaceEventTest, RefreshPaintsBeforeTellingTheViewAndPositionsSaturate) {
    struct View : SurfaceObserver {
        void imageChanged() override { ++images; }
        void geometryChanged() override {}
        int images = 0;
    } view;
    Surface surface;
    surface.setObserver(&view);
    int imagesWhilePainting = -1;
    surface.setPaintHandler([&] { imagesWhilePainting = view.images; });
    surface.refresh();
    EXPECT_EQ(imagesWhilePainting, 0);
    EXPECT_EQ(view.images, 1);

    surface.setPixelSize(200, 100);
    surface.scale(-10, 5, 10, -5);
    surface.setScaleWidth(1e300);
    std::pair<float, float> at;
    surface.setMouseMoveHandler([&](int, int, float x, float y) { at = {x, y}; });
    surface.deliverMouseMove(0, 0, 1e6, 0);
    EXPECT_EQ(at, std::make_pair(std::numeric_limits<float>::max(), 5.0f));
}

TEST(SurfacePlacementTest, MoveConvertsContainerUnitsWithHalvesToEven) {
    Surface canvas;
    canvas.setPixelSize(400, 200);
    canvas.scale(0, 80, 160, 0);  // 2.5 px per unit, y up
    const std::tuple<const Surface*, std::array<double, 4>, QRect> cases[] = {
        {nullptr, {337.5, 562.5, 1500, 1005}, QRect(22, 38, 100, 67)},
        {&canvas, {1, 77, 5, 15}, QRect(2, 8, 12, 38)},
    };
    for (const auto& [container, at, pixels] : cases) {
        Surface pane;
        pane.setContainer(container);
        pane.move(at[0], at[1], at[2], at[3]);
        EXPECT_EQ(QRect(pane.pixelLeft(), pane.pixelTop(), pane.pixelWidth(), pane.pixelHeight()),
                  pixels);
    }
}

// Every point given lies within the tolerance of the thinned polyline, which keeps both ends:
// along a smooth curve, a zigzag finer than the tolerance and a path that turns back on itself.
TEST(SurfaceRasterTest, AThinnedPolylinePassesWithinTheToleranceOfEveryPoint) {
    const std::function<QPointF(int)> paths[] = {
        [](int i) { return QPointF(i * 0.05, 40 * std::sin(i * 0.002)); },
        [](int i) { return QPointF(i * 0.3, (i % 2) * 0.1); },
        [](int i) { return QPointF(i < 500 ? i * 0.1 : 100 - i * 0.1, i * 0.001); },
    };
    const double tolerance = 0.125;
    for (const auto& path : paths) {
        const auto at = [&](int i) { return PixelPoint{path(i).x(), path(i).y()}; };
        ThinPolyline line;
        line.start(at(0), tolerance, 64);
        for (int i = 1; i < 1000; ++i) {
            line.add(at(i));
        }
        std::vector<PixelPoint> points;
        line.appendTo(points);
        std::vector<QPointF> kept;
        for (const PixelPoint& q : points) {
            kept.emplace_back(q.x, q.y);
        }
        EXPECT_EQ(std::make_pair(kept.front(), kept.back()), std::make_pair(path(0), path(999)));
        for (int i = 0; i < 1000; ++i) {
            double nearest = 1e9;
            for (std::size_t j = 1; j < kept.size(); ++j) {
                const QLineF s(kept[j - 1], kept[j]);
                const double along = std::clamp(
                    QPointF::dotProduct(path(i) - s.p1(), s.p2() - s.p1()) /
                        std::max(1e-12, QPointF::dotProduct(s.p2() - s.p1(), s.p2() - s.p1())),
                    0.0, 1.0);
                nearest = std::min(nearest, QLineF(path(i), s.pointAt(along)).length());
            }
            ASSERT_LE(nearest, tolerance + 1e-9) << i;
        }
    }
}

// Collected lines, a lone line and copied or painted discs give the pixels of the strokes and
// circles they stand for, in a user scale at any pixel ratio.
TEST(SurfaceRasterTest, LinesAndDiscsPaintWhatTheyStandFor) {
    for (const double ratio : {1.0, 2.0}) {
        SCOPED_TRACE(ratio);
        Surface surface;
        surface.setDevicePixelRatio(ratio);
        surface.setPixelSize(200, 100);
        surface.scale(0, 10, 20, 0);  // 10 px per unit, y up
        surface.setDrawWidth(3);
        const auto u = [](int i) { return 1 + 0.05 * i; };
        const auto v = [](int i) { return 8 - 0.02 * i; };
        for (int i = 0; i < 400; ++i) {  // a run of lines of a fortieth of a pixel
            surface.line(u(i), v(i), u(i + 1), v(i + 1), kBlue);
        }
        surface.line(1, 2, 9, 2, kRed);
        surface.setFillStyle(kFillSolid);
        surface.setFillColour(kBlue);
        surface.circle(15, 5, 2, kGreen);  // copied at ratio 1, too large to copy at 2
        // The painter outlives each primitive: a solid brush must not leak into this circle.
        surface.setFillStyle(kFillTransparent);
        surface.circle(5, 5, 1, kGreen);
        surface.setDrawWidth(1);
        surface.setFillStyle(kFillSolid);
        surface.setFillColour(kGreen);
        surface.circle(16.08, 2.62, 0.4667, kRed);
        QImage expected(imageOf(surface).size(), QImage::Format_ARGB32_Premultiplied);
        expected.setDevicePixelRatio(ratio);
        expected.fill(Qt::white);
        QPainter p(&expected);
        p.setRenderHint(QPainter::Antialiasing);
        p.setPen(QPen(toQColor(kBlue), 3, Qt::SolidLine, Qt::SquareCap));
        p.drawLine(QPointF(10, 20), QPointF(210, 100));
        p.setPen(QPen(toQColor(kRed), 3, Qt::SolidLine, Qt::SquareCap));
        p.drawLine(QPointF(10, 80), QPointF(90, 80));
        p.setPen(QPen(toQColor(kGreen), 3));
        p.setBrush(toQColor(kBlue));
        p.drawEllipse(QPointF(150, 50), 20, 20);
        p.setBrush(Qt::NoBrush);
        p.drawEllipse(QPointF(50, 50), 10, 10);
        p.setPen(QPen(toQColor(kRed), 1));
        p.setBrush(toQColor(kGreen));
        p.drawEllipse(QPointF(160.8, 73.8), 4.667, 4.667);
        p.end();
        int worst = 0;
        for (int y = 0; y < expected.height(); ++y) {
            for (int x = 0; x < expected.width(); ++x) {
                worst = std::max(
                    worst, difference(expected.pixelColor(x, y), imageOf(surface).pixelColor(x, y)));
            }
        }
        EXPECT_LE(worst, 64);  // edges moved by an eighth of a pixel at most: a disc is placed to
                               // the nearest quarter pixel
    }
}

// A text is logged as asked, painted into the raster at a size that does not follow the zoom,
// anchored along it and centred across, and kept by a figure, whose SVG holds it as text.
TEST(SurfaceTextTest, ATextIsLoggedPaintedAtItsPointSizeAndKeptAsTextByAFigure) {
    const auto inkt = [](const QImage& image) {  // the bounding box of the red pixels
        QRect box;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QColor c = image.pixelColor(x, y);
                box = c.red() > 200 && c.green() < 150 ? box.united(QRect(x, y, 1, 1)) : box;
            }
        }
        return box;
    };
    QRect vorige;
    for (const auto& [zoom, anchor] : {std::make_pair(1.0, TextAnchor::kCentre),
                                        std::make_pair(2.0, TextAnchor::kCentre),
                                        std::make_pair(1.0, TextAnchor::kRight)}) {
        Surface surface;
        surface.setPixelSize(200, 60);
        surface.scale(0, 0, 20 * zoom, 6 * zoom);
        surface.setLogging(true);
        surface.text(10 * zoom, 3 * zoom, "Knoop 3", kRed, 12, anchor);
        ASSERT_EQ(surface.log().size(), 1u);
        EXPECT_EQ(std::make_tuple(surface.log()[0].kind, surface.log()[0].text,
                                  surface.log()[0].points, surface.log()[0].anchor),
                  std::make_tuple(DrawKind::kText, std::string("Knoop 3"), 12.0, anchor));
        const QRect box = inkt(imageOf(surface));
        const double along = anchor == TextAnchor::kRight ? box.right() + 1 : box.center().x();
        EXPECT_NEAR(along, 100, 3);
        EXPECT_NEAR(box.center().y(), 30, 3);
        EXPECT_GT(box.width(), 40);
        if (anchor == TextAnchor::kCentre && !vorige.isNull()) {
            EXPECT_EQ(box.size(), vorige.size());
        }
        vorige = box;
    }
    EXPECT_EQ(errorOf([] { Surface().text(0, 0, "x", kRed, 0); }), kErrInvalidProperty);

    Surface surface;
    surface.setPixelSize(200, 60);
    FigureSink figure;
    surface.setFigure(&figure);
    surface.text(1500, 450, "C2", kRed, 9);
    ASSERT_EQ(figure.items().size(), 1u);
    EXPECT_EQ(figure.items()[0].text, "C2");
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QSvgGenerator svg;
    svg.setOutputDevice(&buffer);
    svg.setSize(QSize(200, 60));
    svg.setResolution(96);
    {
        QPainter p(&svg);
        paintFigure(p, figure, QRectF(0, 0, 200, 60));
    }
    EXPECT_TRUE(buffer.data().contains(">C2</text>")) << buffer.data().toStdString();
}

}  // namespace
}  // namespace zw
