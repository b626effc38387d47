#include "window/afbeelding.h"

#include <QBuffer>
#include <QByteArray>
#include <QFile>
#include <QFont>
#include <QImage>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <algorithm>
#include <cctype>
#include <filesystem>

#include "platform/files.h"
#include "platform/runtime_error.h"
#include "platform/figure_painter.h"
#include "platform/figure_sink.h"
#include "platform/qimage_sink.h"
#include "window/zwierlijn.h"

namespace zw {

namespace {

// Figures go into documents by their physical size: one pixel of the canvas is one pixel of a
// screen of 96 dots to the inch.
constexpr int kSchermDpi = 96;
constexpr double kPuntenPerPixel = 72.0 / kSchermDpi;
constexpr double kPngVerhouding = 2.0;
constexpr double kInchesPerMeter = 1.0 / 0.0254;
// As much as the surfaces allow themselves (256 MB).
constexpr qint64 kMaxPngPixels = 64 * 1024 * 1024;

constexpr int kPuntgrootte = 10;

const char kTitel[] = "Zwierlijn";
const char kBeschrijving[] = "Een B-spline-kromme, getekend met Zwierlijn";

// The canvas' drawing and, when shown, the blending pane's, each in its own pixels.
struct Tekening {
    QSize grootte;
    FigureSink doek;
    FigureSink meng;
    QRect mengvak;
};

// Attached for one redraw, and detached however the redraw ends.
class Aansluiting {
  public:
    Aansluiting(Surface& surface, FigureSink& doel) : surface_(surface) {
        surface_.setFigure(&doel);
    }
    ~Aansluiting() { surface_.setFigure(nullptr); }
    Aansluiting(const Aansluiting&) = delete;
    Aansluiting& operator=(const Aansluiting&) = delete;

  private:
    Surface& surface_;
};

void teken(Zwierlijn& w, Tekening& t) {
    Surface& doek = w.Doek();
    t.grootte = QSize(doek.pixelWidth(), doek.pixelHeight());
    if (t.grootte.isEmpty()) {
        raise(kErrInvalidCall);
    }
    {
        Aansluiting a(doek, t.doek);
        Aansluiting b(w.meng(), t.meng);
        doek.refresh();
    }
    const Surface& meng = w.meng();
    if (w.mengstat) {
        t.mengvak = QRect(meng.pixelLeft(), meng.pixelTop(), meng.pixelWidth(), meng.pixelHeight());
    }
}

// The pane lies over the canvas, as its widget does on the screen, and shows no more than its
// own rectangle.
void schilder(const Tekening& t, QPainter& p) {
    p.setRenderHint(QPainter::Antialiasing);
    // Nothing is written, but an SVG names the painter's font: one fixed font makes the file the
    // same whether a program has a desktop's fonts or none.
    p.setFont(QFont(QStringLiteral("sans-serif"), kPuntgrootte));
    paintFigure(p, t.doek, QRectF(QPointF(0, 0), QSizeF(t.grootte)));
    if (t.mengvak.isEmpty() || t.meng.empty()) {
        return;
    }
    p.save();
    p.setClipRect(t.mengvak);
    paintFigure(p, t.meng, QRectF(t.mengvak));
    p.restore();
}

QByteArray alsSvg(const Tekening& t) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QSvgGenerator svg;
    svg.setOutputDevice(&buffer);
    svg.setSize(t.grootte);
    svg.setViewBox(QRect(QPoint(0, 0), t.grootte));
    svg.setResolution(kSchermDpi);
    svg.setTitle(QString::fromUtf8(kTitel));
    svg.setDescription(QString::fromUtf8(kBeschrijving));
    QPainter p(&svg);
    schilder(t, p);
    p.end();
    return buffer.data();
}

QByteArray alsPdf(const Tekening& t) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter pdf(&buffer);
    pdf.setCreator(QString::fromUtf8(kTitel));
    pdf.setTitle(QString::fromUtf8(kBeschrijving));
    pdf.setPageSize(QPageSize(QSizeF(t.grootte) * kPuntenPerPixel, QPageSize::Point));
    pdf.setPageMargins(QMarginsF(0, 0, 0, 0));
    pdf.setResolution(kSchermDpi);
    QPainter p(&pdf);
    // The page is the canvas to within a point's rounding: the drawing is fitted to it.
    p.scale(pdf.width() / static_cast<double>(t.grootte.width()),
            pdf.height() / static_cast<double>(t.grootte.height()));
    schilder(t, p);
    p.end();
    return buffer.data();
}

// Painted by the screen's own raster sink, so that the figure at the screen's pixel ratio is the
// screen's picture, pixel for pixel; the pane is copied over its corner, as its widget lies there.
QImage alsBeeld(const Tekening& t, double verhouding) {
    const double pixels = t.grootte.width() * verhouding * t.grootte.height() * verhouding;
    if (!(pixels <= kMaxPngPixels)) {
        raise(kErrOutOfMemory);
    }
    QImageSink doek;
    doek.resize(t.grootte.width(), t.grootte.height(), verhouding);
    doek.clear(kWhite);
    t.doek.replay(doek);
    QImage beeld = doek.image();
    if (!t.mengvak.isEmpty() && !t.meng.empty()) {
        QImageSink meng;
        meng.resize(t.mengvak.width(), t.mengvak.height(), verhouding);
        meng.clear(kWhite);
        t.meng.replay(meng);
        QPainter p(&beeld);
        p.drawImage(QPointF(t.mengvak.topLeft()), meng.image());
    }
    // A document that places the image by its resolution shows it at the canvas' size.
    const int dpm = qRound(kSchermDpi * verhouding * kInchesPerMeter);
    beeld.setDotsPerMeterX(dpm);
    beeld.setDotsPerMeterY(dpm);
    return beeld;
}

QByteArray alsPng(const Tekening& t) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    alsBeeld(t, kPngVerhouding).save(&buffer, "PNG");
    return buffer.data();
}

void schrijf(const std::string& bestand, const QByteArray& inhoud) {
    const std::filesystem::path pad(nativePath(bestand));
    std::error_code ec;
    if (pad.has_parent_path() && !std::filesystem::is_directory(pad.parent_path(), ec)) {
        raise(kErrPathNotFound);
    }
    QFile file(QString::fromStdString(pad.string()));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        raise(kErrPathFileAccess);
    }
    if (file.write(inhoud) != inhoud.size() || !file.flush()) {
        raise(kErrDiskFull);
    }
}

}  // namespace

Afbeeldingsoort afbeeldingsoort(const std::string& bestand) {
    const std::string naam = std::filesystem::path(nativePath(bestand)).filename().string();
    const std::size_t punt = naam.rfind('.');
    std::string extensie = punt == std::string::npos ? std::string() : naam.substr(punt + 1);
    std::transform(extensie.begin(), extensie.end(), extensie.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    if (extensie == "svg") {
        return Afbeeldingsoort::kSvg;
    }
    if (extensie == "pdf") {
        return Afbeeldingsoort::kPdf;
    }
    if (extensie == "png") {
        return Afbeeldingsoort::kPng;
    }
    raise(kErrBadFileName);
}

void exporteerAfbeelding(Zwierlijn& venster, const std::string& bestand) {
    const Afbeeldingsoort soort = afbeeldingsoort(bestand);
    Tekening t;
    teken(venster, t);
    switch (soort) {
        case Afbeeldingsoort::kSvg:
            schrijf(bestand, alsSvg(t));
            break;
        case Afbeeldingsoort::kPdf:
            schrijf(bestand, alsPdf(t));
            break;
        case Afbeeldingsoort::kPng:
            schrijf(bestand, alsPng(t));
            break;
    }
}

QImage afbeeldingAlsBeeld(Zwierlijn& venster, double verhouding) {
    Tekening t;
    teken(venster, t);
    return alsBeeld(t, verhouding);
}

}  // namespace zw
