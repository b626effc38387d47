// Which renderer paints the canvas: the same thinned runs and discs of one redraw with every view
// on (the blending pane, the Bezier notation, a control point's segments in colour, the knot
// pane), painted into images of the surfaces' sizes once by the raster sink's hand-written
// rasteriser (Wu lines, bands with square caps, disc sprites) and once by QPainter (a
// cosmetic pen for lines one pixel wide; wide runs with drawPolyline or, in the third column,
// drawLines; drawEllipse for discs, drawn over itself as often as the disc asks, up to the
// surface's bound of 16).
#include <benchmark/benchmark.h>

#include <QImage>
#include <QPainter>
#include <algorithm>
#include <map>
#include <memory>
#include <vector>

#include "bench_editor.h"
#include "platform/figure_sink.h"
#include "platform/qimage_sink.h"
#include "window/headless_editor.h"

namespace {

struct Plaat {
    QSize grootte;
    zw::FigureSink doel;
};

// The primitives of one redraw with every view on, per surface, in logical pixels.
std::vector<Plaat>& opname(int segmenten, int orde) {
    static std::map<std::pair<int, int>, std::vector<Plaat>> opnamen;
    std::vector<Plaat>& platen = opnamen[{segmenten, orde}];
    if (!platen.empty()) {
        return platen;
    }
    BenchEditor e(segmenten, orde);
    e.allesAan();
    zw::HeadlessEditor& w = e.w;
    std::vector<zw::Surface*> surfaces{&w.Doek(), &w.meng(), &w.Knopen()};
    platen.resize(surfaces.size());
    for (std::size_t i = 0; i < surfaces.size(); ++i) {
        platen[i].grootte = QSize(surfaces[i]->pixelWidth(), surfaces[i]->pixelHeight());
        surfaces[i]->setFigure(&platen[i].doel);
    }
    w.Doek().refresh();
    for (zw::Surface* s : surfaces) {
        s->setFigure(nullptr);
    }
    return platen;
}

using Item = zw::FigureSink::Item;
using Kind = zw::FigureSink::Kind;

void metQPainter(const std::vector<Item>& items, QImage& beeld, bool losseLijnen,
                 std::vector<QLineF>& lijnen, std::vector<QPointF>& punten) {
    QPainter p(&beeld);
    p.setRenderHint(QPainter::Antialiasing);
    for (const Item& item : items) {
        if (item.kind == Kind::kBackground) {
            p.fillRect(beeld.rect(), zw::toQColor(item.colour));
        } else if (item.kind == Kind::kPolyline) {
            QPen pen(zw::toQColor(item.colour), item.width, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin);
            pen.setCosmetic(item.width == 1);
            p.setPen(pen);
            p.setBrush(Qt::NoBrush);
            punten.clear();
            for (const zw::PixelPoint& q : item.points) {
                punten.emplace_back(q.x, q.y);
            }
            const auto n = static_cast<int>(punten.size());
            if (n == 1) {
                p.drawLine(punten[0], punten[0]);
            } else if (losseLijnen && item.width > 1) {
                lijnen.clear();
                for (int i = 1; i < n; ++i) {
                    lijnen.emplace_back(punten[i - 1], punten[i]);
                }
                p.drawLines(lijnen.data(), static_cast<int>(lijnen.size()));
            } else {
                p.drawPolyline(punten.data(), n);
            }
        } else {
            const zw::DiscStyle& d = item.disc;
            p.setPen(QPen(zw::toQColor(d.pen), d.width));
            p.setBrush(d.filled ? QBrush(zw::toQColor(d.fill)) : QBrush(Qt::NoBrush));
            const QPointF centre(item.points[0].x, item.points[0].y);
            for (std::uint32_t k = std::min<std::uint32_t>(d.times, 16); k > 0; --k) {
                p.drawEllipse(centre, item.radius, item.radius);
            }
        }
    }
}

// Argument 2: 0 the hand-written rasteriser, 1 QPainter with polylines, 2 QPainter with lines.
void BM_Renderer(benchmark::State& state) {
    const std::vector<Plaat>& platen =
        opname(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    std::vector<QImage> beelden;
    std::vector<std::unique_ptr<zw::QImageSink>> rasters;
    for (const Plaat& plaat : platen) {
        beelden.emplace_back(plaat.grootte, QImage::Format_ARGB32_Premultiplied);
        rasters.push_back(std::make_unique<zw::QImageSink>());
        rasters.back()->resize(plaat.grootte.width(), plaat.grootte.height(), 1.0);
    }
    std::vector<QLineF> lijnen;
    std::vector<QPointF> punten;
    for (auto _ : state) {
        for (std::size_t i = 0; i < platen.size(); ++i) {
            if (state.range(2) == 0) {
                platen[i].doel.replay(*rasters[i]);
                benchmark::DoNotOptimize(rasters[i]->image().constBits());
            } else {
                metQPainter(platen[i].doel.items(), beelden[i], state.range(2) == 2, lijnen,
                            punten);
                benchmark::DoNotOptimize(beelden[i].constBits());
            }
        }
    }
}

BENCHMARK(BM_Renderer)
    ->ArgsProduct({{64, 16}, {2, 4, 8}, {0, 1, 2}})
    ->Unit(benchmark::kMillisecond);

}  // namespace
