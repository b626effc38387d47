#include <gtest/gtest.h>

#include <QFile>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QXmlStreamReader>
#include <algorithm>
#include <cmath>
#include <fstream>
#include <limits>
#include <set>

#include "headless_window.h"
#include "platform/scripted_dialogs.h"
#include "storage/opslag.h"
#include "window/afbeelding.h"
#include "window/headless_editor.h"

namespace zw {
namespace {

// The polylines and circles of an SVG figure, each in the colour of its group.
struct Svg {
    struct Lijn {
        QString kleur;
        std::vector<QPointF> punten;
    };
    std::vector<Lijn> lijnen;
    std::vector<QPointF> cirkels;
    bool bitmap = false;
};

Svg leesSvg(const std::string& bestand) {
    QFile file(QString::fromStdString(bestand));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    QXmlStreamReader xml(&file);
    Svg svg;
    std::vector<QString> kleuren{QString()};
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isEndElement() && xml.name() == u"g") {
            kleuren.pop_back();
        }
        if (!xml.isStartElement()) {
            continue;
        }
        const QXmlStreamAttributes a = xml.attributes();
        if (xml.name() == u"g") {
            kleuren.push_back(a.hasAttribute(QLatin1String("stroke"))
                                  ? a.value(QLatin1String("stroke")).toString()
                                  : kleuren.back());
        } else if (xml.name() == u"polyline") {
            Svg::Lijn lijn{kleuren.back(), {}};
            for (const QString& p :
                 a.value(QLatin1String("points")).toString().split(u' ', Qt::SkipEmptyParts)) {
                lijn.punten.emplace_back(p.section(u',', 0, 0).toDouble(),
                                         p.section(u',', 1, 1).toDouble());
            }
            svg.lijnen.push_back(lijn);
        } else if (xml.name() == u"circle") {
            svg.cirkels.emplace_back(a.value(QLatin1String("cx")).toDouble(),
                                     a.value(QLatin1String("cy")).toDouble());
        }
        svg.bitmap = svg.bitmap || xml.name() == u"image";
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    return svg;
}

double afstand(QPointF p, QPointF a, QPointF b) {
    const QPointF d = b - a;
    const double l2 = QPointF::dotProduct(d, d);
    const double s = l2 == 0 ? 0 : std::clamp(QPointF::dotProduct(p - a, d) / l2, 0.0, 1.0);
    const QPointF v = p - (a + s * d);
    return std::hypot(v.x(), v.y());
}

struct Figuur {
    Figuur() {
        w.start();
        setCurve(w, 4, {{1500, 7000}, {3000, 1500}, {6000, 2000}, {8000, 7500}, {11000, 6000}});
        w.Doek().refresh();
    }
    // Where the canvas puts a point of the curve, in its pixels.
    QPointF pixel(const Punt& p) {
        const ScaleMapper& m = w.Doek().mapper();
        return {m.toPixelX(p.X), m.toPixelY(p.Y)};
    }
    TestDir dir;
    ScriptedDialogs dialogs;
    HeadlessEditor w{dir.path(), dialogs, 900, 600};
};

// The curve passes its knot points and the control points are discs where the canvas has them,
// at the zoom of the canvas; the blending pane's functions lie in its corner.
TEST(Afbeelding, SvgHoldsTheCurveAndThePointsWhereTheCanvasDrawsThem) {
    for (const char* item : {"", "mntBeeldZoomInzoemen", "mntBeeldMengFuncties"}) {
        SCOPED_TRACE(item);
        Figuur f;
        f.w.klik(item);
        exporteerAfbeelding(f.w, f.dir.file("f.SVG"));
        const Svg svg = leesSvg(f.dir.file("f.SVG"));
        EXPECT_FALSE(svg.bitmap);
        const QString kromme = toQColor(f.w.krommekleur).name();
        for (float i = 3; i <= 5; ++i) {
            const QPointF p = f.pixel(drawnPoint(f.w, f.w.vec().knoop(i)));
            double naast = std::numeric_limits<double>::infinity();
            for (const Svg::Lijn& l : svg.lijnen) {
                for (std::size_t j = 1; j < l.punten.size() && l.kleur == kromme; ++j) {
                    naast = std::min(naast, afstand(p, l.punten[j - 1], l.punten[j]));
                }
            }
            EXPECT_LT(naast, 0.75) << i;
        }
        for (float i = 0; i <= f.w.polygoon().graad; ++i) {
            const QPointF p = f.pixel(f.w.polygoon().punten(i));
            EXPECT_TRUE(std::any_of(svg.cirkels.begin(), svg.cirkels.end(), [&](QPointF c) {
                return std::hypot(c.x() - p.x(), c.y() - p.y()) < 0.01;
            })) << i;
        }
        const Surface& m = f.w.meng();
        const QRectF vak(m.pixelLeft(), m.pixelTop(), m.pixelWidth(), m.pixelHeight());
        std::set<QString> inVak;
        for (const Svg::Lijn& l : svg.lijnen) {
            if (std::all_of(l.punten.begin(), l.punten.end(),
                            [&](QPointF p) { return vak.adjusted(-1, -1, 1, 1).contains(p); })) {
                inVak.insert(l.kleur);
            }
        }
        EXPECT_EQ(inVak.size() >= 5, f.w.mengstat) << inVak.size();
    }
}

// A PDF of one page in the canvas' proportions, of paths only; a PNG of twice the pixels with the
// curve's colour on the curve and the background's in the corner.
TEST(Afbeelding, PdfIsOnePageOfTheCanvasAndPngHasTwiceItsPixels) {
    Figuur f;
    exporteerAfbeelding(f.w, f.dir.file("f.pdf"));
    QFile pdf(QString::fromStdString(f.dir.file("f.pdf")));
    ASSERT_TRUE(pdf.open(QIODevice::ReadOnly));
    const QString inhoud = QString::fromLatin1(pdf.readAll());
    EXPECT_EQ(inhoud.count(QRegularExpression(QStringLiteral("/Type\\s*/Page\\b(?!s)"))), 1);
    EXPECT_FALSE(inhoud.contains(QRegularExpression(QStringLiteral("/Subtype\\s*/Image"))));
    const QRegularExpressionMatch box =
        QRegularExpression(QStringLiteral("/MediaBox\\s*\\[\\s*0\\s+0\\s+([\\d.]+)\\s+([\\d.]+)"))
            .match(inhoud);
    ASSERT_TRUE(box.hasMatch());
    EXPECT_NEAR(box.captured(1).toDouble() / box.captured(2).toDouble(), 900.0 / 600.0, 0.005);

    exporteerAfbeelding(f.w, f.dir.file("f.png"));
    const QImage png(QString::fromStdString(f.dir.file("f.png")));
    ASSERT_EQ(png.size(), QSize(1800, 1200));
    const QPointF p = f.pixel(drawnPoint(f.w, (f.w.vec().knoop(3) + f.w.vec().knoop(4)) / 2)) * 2;
    EXPECT_EQ(png.pixelColor(p.toPoint()), toQColor(f.w.krommekleur));
    EXPECT_EQ(png.pixelColor(0, 0), toQColor(f.w.doekkleur));
    EXPECT_EQ(errorOf([&] { exporteerAfbeelding(f.w, f.dir.file("f.jpg")); }), kErrBadFileName);
    EXPECT_EQ(errorOf([&] { exporteerAfbeelding(f.w, f.dir.file("nee/f.svg")); }),
              kErrPathNotFound);
}

// The renderer's exit status: 0 with a figure written, 1 with the run-time error's text for a
// file whose drawing fails, 2 with a one-line message for bad arguments and unreadable files.
TEST(Afbeelding, TheRenderersExitStatus) {
    Figuur f;
    Opslag(f.w, f.dialogs, f.dir.path()).opslaan(f.dir.file("k.zwl"));
    const float reuzen = 1e9f;  // a polygon of a billion points
    std::ofstream(f.dir.file("kapot.zwl"), std::ios::binary)
        .write(reinterpret_cast<const char*>(&reuzen), sizeof reuzen);
    const std::string k = f.dir.file("k.zwl"), uit = f.dir.file("r.png");
    const struct {
        std::vector<std::string> args;
        int status;
        const char* melding;
    } gevallen[] = {
        {{k, uit, "--grootte", "300x200", "--bezier", "--segmenten", "2"}, 0, ""},
        {{"--help"}, 0, ""},
        {{f.dir.file("weg.zwl"), uit}, 2, "kan de kromme"},
        {{f.dir.file("kapot.zwl"), uit}, 1, "Fout 7 tijdens uitvoering: "},
        {{k, uit, "--detail", "hoog"}, 2, "--detail"},
        {{k, f.dir.file("r.gif")}, 2, ".svg, .pdf of .png"},
        {{k, uit, "--segmenten", "5"}, 2, "0 tot en met 4"},
        {{k}, 2, "uitvoerbestand"},
    };
    for (const auto& g : gevallen) {
        QStringList args;
        for (const std::string& a : g.args) {
            args << QString::fromStdString(a);
        }
        SCOPED_TRACE(args.join(u' ').toStdString());
        QProcess render;
        render.start(QStringLiteral(ZW_RENDER), args);
        ASSERT_TRUE(render.waitForFinished(60000));
        const QString fout = QString::fromLocal8Bit(render.readAllStandardError());
        EXPECT_EQ(render.exitCode(), g.status) << fout.toStdString();
        EXPECT_TRUE(fout.contains(QString::fromUtf8(g.melding)) && fout.count(u'\n') <= 1);
    }
    EXPECT_EQ(QImage(QString::fromStdString(uit)).size(), QSize(600, 400));
}

}  // namespace
}  // namespace zw
