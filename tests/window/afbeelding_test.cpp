// Figures of the canvas: SVG, PDF and PNG as the export writes them, and the renderer.
#include <gtest/gtest.h>

#include <QFile>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QPen>
#include <QProcess>
#include <QRegularExpression>
#include <QXmlStreamReader>
#include <algorithm>
#include <fstream>
#include <string>
#include <vector>

#include "headless_window.h"
#include "platform/qimage_sink.h"
#include "storage/opslag.h"
#include "window/afbeelding.h"
#include "window/editor_fixture.h"

namespace zw {
namespace {

// The polylines of an SVG figure, each in the stroke of its group (one a primitive), and the
// centres of its circles; whether it holds an image.
struct Svg {
    std::vector<std::pair<QString, QPolygonF>> lijnen;
    QPolygonF cirkels;
    bool bitmap = false;
};

Svg leesSvg(const std::string& bestand) {
    QFile file(QString::fromStdString(bestand));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    QXmlStreamReader xml(&file);
    Svg svg;
    QString kleur;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement) {
            continue;
        }
        const auto a = [&](const char* naam) {
            return xml.attributes().value(QLatin1String(naam));
        };
        kleur = xml.name() == u"g" ? a("stroke").toString() : kleur;
        QPolygonF punten;
        for (const QString& p : a("points").toString().split(u' ', Qt::SkipEmptyParts)) {
            punten << QPointF(p.section(u',', 0, 0).toDouble(), p.section(u',', 1).toDouble());
        }
        if (xml.name() == u"polyline") {
            svg.lijnen.emplace_back(kleur, punten);
        } else if (xml.name() == u"circle") {
            svg.cirkels << QPointF(a("cx").toDouble(), a("cy").toDouble());
        }
        svg.bitmap = svg.bitmap || xml.name() == u"image";
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    return svg;
}

struct Figuur : Editor {
    Figuur() : Editor(900, 600) {
        setCurve(w, 4, {{1500, 7000}, {3000, 1500}, {6000, 2000}, {8000, 7500}, {11000, 6000}});
    }
    // Where the canvas puts a point of the curve, in its pixels.
    QPointF pixel(const Punt& p) {
        const ScaleMapper& m = w.Doek().mapper();
        return {m.toPixelX(p.X), m.toPixelY(p.Y)};
    }
};

// The curve passes its knot points and the control points are discs where the canvas has them,
// at the zoom of the canvas.
TEST(Afbeelding, SvgHoldsTheCurveAndThePointsWhereTheCanvasDrawsThem) {
    for (const char* item : {"", "mntBeeldZoomInzoemen"}) {
        SCOPED_TRACE(item);
        Figuur f;
        f.w.klik(item);
        exporteerAfbeelding(f.w, f.dir.file("f.SVG"));
        const Svg svg = leesSvg(f.dir.file("f.SVG"));
        EXPECT_FALSE(svg.bitmap);
        QPainterPath kromme;
        for (const auto& [kleur, l] : svg.lijnen) {
            kromme.addPolygon(kleur == toQColor(f.w.krommekleur).name() ? l : QPolygonF());
        }
        const QPainterPath rand = QPainterPathStroker(QPen(Qt::black, 1.5)).createStroke(kromme);
        for (float i = 3; i <= 5; ++i) {
            EXPECT_TRUE(rand.contains(f.pixel(drawnPoint(f.w, f.w.vec().knoop(i))))) << i;
        }
        for (float i = 0; i <= f.w.polygoon().graad; ++i) {
            const QPointF p = f.pixel(f.w.polygoon().punten(i));
            EXPECT_TRUE(std::any_of(svg.cirkels.begin(), svg.cirkels.end(),
                                    [&](QPointF c) { return QLineF(c, p).length() < 0.01; }));
        }
    }
}

// A PDF of one page in the canvas' proportions, of paths only; a PNG of twice the pixels with the
// curve's colour on the curve and the background's in the corner.
TEST(Afbeelding, PdfIsOnePageOfTheCanvasAndPngHasTwiceItsPixels) {
    Figuur f;
    exporteerAfbeelding(f.w, f.dir.file("f.pdf"));
    QFile pdf(QString::fromStdString(f.dir.file("f.pdf")));
    const QString inhoud = pdf.open(QIODevice::ReadOnly) ? QString::fromLatin1(pdf.readAll()) : "";
    EXPECT_EQ(inhoud.count(QRegularExpression("/Type\\s*/Page\\b(?!s)")), 1);
    EXPECT_FALSE(inhoud.contains(QRegularExpression("/Subtype\\s*/Image")));
    const auto box = QRegularExpression("/MediaBox\\s*\\[0 0 ([\\d.]+) ([\\d.]+)").match(inhoud);
    EXPECT_NEAR(box.captured(1).toDouble() / box.captured(2).toDouble(), 900.0 / 600.0, 0.005);

    exporteerAfbeelding(f.w, f.dir.file("f.png"));
    const QImage png(QString::fromStdString(f.dir.file("f.png")));
    ASSERT_EQ(png.size(), QSize(1800, 1200));
    const QPointF p = f.pixel(drawnPoint(f.w, (f.w.vec().knoop(3) + f.w.vec().knoop(4)) / 2)) * 2;
    EXPECT_EQ(png.pixelColor(p.toPoint()), toQColor(f.w.krommekleur));
    EXPECT_EQ(png.pixelColor(0, 0), toQColor(f.w.doekkleur));
}

// One raster picture has one renderer: at the screen's pixel ratio the PNG's picture is what the
// screen shows, pixel for pixel, the blending pane over its corner of the canvas.
TEST(Afbeelding, APngAtTheScreensRatioIsTheScreensPicture) {
    Figuur f;
    for (const char* item : {"mntBeeldMengFuncties", "mntBeeldBezier", "mntBeeldGewichten"}) {
        f.w.klik(item);
    }
    const QImage figuur = afbeeldingAlsBeeld(f.w, 1.0);
    QImage scherm = imageOf(f.w.Doek()).copy();
    {
        QPainter p(&scherm);
        p.drawImage(QPoint(f.w.meng().pixelLeft(), f.w.meng().pixelTop()), imageOf(f.w.meng()));
    }
    ASSERT_EQ(figuur.size(), scherm.size());
    EXPECT_TRUE(figuur.convertToFormat(scherm.format()) == scherm);
}

// The renderer's exit status: 0 with a figure written, 1 with the run-time error's text for a
// file whose drawing fails, 2 with a one-line message for bad arguments and unreadable files.
TEST(Afbeelding, TheRenderersExitStatus) {
    Figuur f;
    Opslag(f.w, f.dialogs, f.dir.path()).opslaan(f.dir.file("k.zwl"));
    const float reuzen = 1e9f;  // a polygon of a billion points
    std::ofstream(f.dir.file("kapot.zwl"), std::ios::binary)
        .write(reinterpret_cast<const char*>(&reuzen), sizeof reuzen);
    const auto pad = [&](const char* naam) { return QString::fromStdString(f.dir.file(naam)); };
    const QString k = pad("k.zwl"), uit = pad("r.png");
    const struct {
        QStringList args;
        int status;
        const char* melding;
    } gevallen[] = {
        {{k, uit, "--grootte", "300x200", "--bezier", "--segmenten", "2", "--constructie", "1",
          "--labels", "--raaklijn", "--passend"},
         0,
         ""},
        {{k, uit, "--constructie", "99"}, 2, "--constructie: de parameter ligt van"},
        {{k, uit, "--constructie", "1", "--niveau", "4"}, 2, "niveaus 0 tot en met 3"},
        {{k, uit, "--labels"}, 2, "horen bij --constructie"},
        {{pad("weg.zwl"), uit}, 2, "kan de kromme"},
        {{pad("kapot.zwl"), uit}, 1, "Fout 7 tijdens uitvoering: "},
        {{k, uit, "--detail", "hoog"}, 2, "--detail"},
        {{k, pad("r.gif")}, 2, ".svg, .pdf of .png"},
        {{k, uit, "--segmenten", "5"}, 2, "0 tot en met 4"},
    };
    for (const auto& g : gevallen) {
        SCOPED_TRACE(g.args.join(u' ').toStdString());
        QProcess render;
        render.start(QStringLiteral(ZW_RENDER), g.args);
        ASSERT_TRUE(render.waitForFinished(60000));
        const QString fout = QString::fromLocal8Bit(render.readAllStandardError());
        EXPECT_EQ(render.exitCode(), g.status) << fout.toStdString();
        EXPECT_TRUE(fout.contains(QString::fromUtf8(g.melding)) && fout.count(u'\n') <= 1);
    }
    EXPECT_EQ(QImage(uit).size(), QSize(600, 400));
}

}  // namespace
}  // namespace zw
