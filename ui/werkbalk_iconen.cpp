#include "ui/werkbalk_iconen.h"

#include <QHash>
#include <QIconEngine>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

namespace zw {

namespace {

// Every icon is drawn on a 24 x 24 grid with the same ink, line weight and accents, and rendered
// afresh at whatever size and pixel ratio it is shown: sharp at 1x and 2x alike.
const QColor kInkt(55, 71, 79);
const QColor kKromme(33, 97, 196);
const QColor kPunt(230, 126, 34);
const QColor kVlak(232, 238, 245);
constexpr qreal kLijn = 1.6;

using Tekening = void (*)(QPainter&);

void pen(QPainter& p, const QColor& kleur, qreal breedte = kLijn) {
    p.setPen(QPen(kleur, breedte, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(Qt::NoBrush);
}

void stip(QPainter& p, qreal x, qreal y, const QColor& kleur = kPunt, qreal r = 1.9) {
    p.setPen(Qt::NoPen);
    p.setBrush(kleur);
    p.drawEllipse(QPointF(x, y), r, r);
}

void pijlpunt(QPainter& p, QPointF punt, QPointF a, QPointF b) {
    p.drawPolyline(QPolygonF({a, punt, b}));
}

void nieuw(QPainter& p) {
    pen(p, kInkt);
    p.setBrush(Qt::white);
    p.drawPolygon(QPolygonF({{5, 3}, {14, 3}, {19, 8}, {19, 21}, {5, 21}}));
    p.drawPolyline(QPolygonF({{14, 3}, {14, 8}, {19, 8}}));
    QPainterPath kromme(QPointF(8, 17));
    kromme.cubicTo(9, 10, 13, 17, 16, 11);
    pen(p, kKromme);
    p.drawPath(kromme);
}

void openen(QPainter& p) {
    pen(p, kInkt);
    p.setBrush(kVlak);
    p.drawPolygon(QPolygonF({{3, 5}, {9, 5}, {11, 7}, {20, 7}, {20, 19}, {3, 19}}));
    p.setBrush(Qt::white);
    p.drawPolygon(QPolygonF({{3, 19}, {6, 11}, {22, 11}, {20, 19}}));
}

void opslaan(QPainter& p) {
    pen(p, kInkt);
    p.setBrush(kVlak);
    p.drawRoundedRect(QRectF(4, 4, 16, 16), 2, 2);
    p.setBrush(Qt::white);
    p.drawRect(QRectF(8, 4, 8, 5));
    p.drawRect(QRectF(7, 13, 10, 7));
    pen(p, kKromme, 1.2);
    p.drawLine(QPointF(9, 16), QPointF(15, 16));
}

void sluiten(QPainter& p) {
    pen(p, kInkt);
    p.drawPolyline(QPolygonF({{13, 7}, {13, 3}, {4, 3}, {4, 21}, {13, 21}, {13, 17}}));
    pen(p, kKromme);
    p.drawLine(QPointF(9, 12), QPointF(21, 12));
    pijlpunt(p, {21, 12}, {17, 8}, {17, 16});
}

void ongedaan(QPainter& p) {
    pen(p, kInkt);
    QPainterPath boog(QPointF(19, 19));
    boog.cubicTo(20, 11, 14, 8, 6, 9);
    p.drawPath(boog);
    pijlpunt(p, {6, 9}, {10, 5}, {10, 13});
}

void herdoen(QPainter& p) {
    p.translate(24, 0);
    p.scale(-1, 1);
    ongedaan(p);
}

void mengfuncties(QPainter& p) {
    pen(p, kInkt, 1.2);
    p.drawLine(QPointF(2, 20), QPointF(22, 20));
    const QColor kleuren[] = {kPunt, kKromme, QColor(39, 174, 96)};
    for (int i = 0; i < 3; ++i) {
        const qreal x = 2 + 5 * i;
        QPainterPath bult(QPointF(x, 20));
        bult.cubicTo(x + 3, 20, x + 3.5, 5, x + 5, 5);
        bult.cubicTo(x + 6.5, 5, x + 7, 20, x + 10, 20);
        pen(p, kleuren[i]);
        p.drawPath(bult);
    }
}

// A cubic Bezier curve with its control polygon: the order follows the points.
void zetOrde(QPainter& p) {
    const QPointF punten[] = {{4, 19}, {7, 5}, {17, 5}, {20, 19}};
    pen(p, QColor(150, 156, 166), 1.0);
    p.drawPolyline(punten, 4);
    QPainterPath kromme(punten[0]);
    kromme.cubicTo(punten[1], punten[2], punten[3]);
    pen(p, kKromme);
    p.drawPath(kromme);
    for (const QPointF& q : punten) {
        stip(p, q.x(), q.y());
    }
}

void gewicht(QPainter& p) {
    pen(p, kInkt);
    p.drawArc(QRectF(8, 3, 8, 8), 0, 180 * 16);
    p.setBrush(kVlak);
    p.drawPolygon(QPolygonF({{7, 8}, {17, 8}, {20, 21}, {4, 21}}));
    stip(p, 12, 14.5, kKromme, 2.2);
}

// A knot line; the open-uniform form stacks k knots at each end.
void knopenlijn(QPainter& p) {
    pen(p, kInkt);
    p.drawLine(QPointF(3, 17), QPointF(21, 17));
}

void openUniform(QPainter& p) {
    knopenlijn(p);
    for (qreal y : {17.0, 12.5, 8.0}) {
        stip(p, 4, y, kKromme);
        stip(p, 20, y, kKromme);
    }
    stip(p, 9.3, 17, kKromme);
    stip(p, 14.7, 17, kKromme);
}

void uniform(QPainter& p) {
    knopenlijn(p);
    for (qreal x : {4.0, 8.0, 12.0, 16.0, 20.0}) {
        stip(p, x, 17, kKromme);
    }
}

void helft(QPainter& p) {
    QPainterPath kromme(QPointF(3, 17));
    kromme.quadTo(12, 3, 21, 17);
    pen(p, kKromme);
    p.drawPath(kromme);
    pen(p, kInkt, 1.0);
    p.setPen(QPen(kInkt, 1.0, Qt::DashLine));
    p.drawLine(QPointF(12, 3), QPointF(12, 21));
    stip(p, 3, 17, kKromme);
    stip(p, 21, 17, kKromme);
    stip(p, 12, 10, kPunt, 2.3);
}

void splinePunt(QPainter& p) {
    QPainterPath kromme(QPointF(3, 19));
    kromme.cubicTo(7, 5, 15, 3, 21, 15);
    pen(p, kKromme);
    p.drawPath(kromme);
    p.setPen(QPen(Qt::white, 1.0));
    p.setBrush(kPunt);
    p.drawEllipse(QPointF(12, 7.6), 4, 4);
    pen(p, Qt::white, 1.4);
    p.drawLine(QPointF(12, 5.4), QPointF(12, 9.8));
    p.drawLine(QPointF(9.8, 7.6), QPointF(14.2, 7.6));
}

void loep(QPainter& p) {
    pen(p, kInkt);
    p.setBrush(Qt::white);
    p.drawEllipse(QPointF(10, 10), 6.5, 6.5);
    pen(p, kInkt, 3.0);
    p.drawLine(QPointF(15, 15), QPointF(20.5, 20.5));
    pen(p, kKromme);
}

void inzoemen(QPainter& p) {
    loep(p);
    p.drawLine(QPointF(7, 10), QPointF(13, 10));
    p.drawLine(QPointF(10, 7), QPointF(10, 13));
}

void uitzoemen(QPainter& p) {
    loep(p);
    p.drawLine(QPointF(7, 10), QPointF(13, 10));
}

void normaal(QPainter& p) {
    loep(p);
    p.drawRect(QRectF(7.5, 7.5, 5, 5));
}

class TekenIcoon : public QIconEngine {
  public:
    explicit TekenIcoon(Tekening tekening) : tekening_(tekening) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(rect.topLeft());
        painter->scale(rect.width() / 24.0, rect.height() / 24.0);
        if (mode == QIcon::Disabled) {
            painter->setOpacity(0.35);
        }
        tekening_(*painter);
        painter->restore();
    }

    // Qt asks for the size in device pixels and marks the pixel ratio itself.
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QImage image(size, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        {
            QPainter painter(&image);
            paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        }
        return QPixmap::fromImage(image);
    }

    QIconEngine* clone() const override { return new TekenIcoon(tekening_); }

  private:
    Tekening tekening_;
};

}  // namespace

QIcon werkbalkIcoon(const QString& sleutel) {
    static const QHash<QString, Tekening> tekeningen = {
        {QStringLiteral("Nieuw"), nieuw},
        {QStringLiteral("Openen"), openen},
        {QStringLiteral("Opslaan"), opslaan},
        {QStringLiteral("Exit"), sluiten},
        {QStringLiteral("Undo"), ongedaan},
        {QStringLiteral("Redo"), herdoen},
        {QStringLiteral("Mengfuncties"), mengfuncties},
        {QStringLiteral("ZetOrde"), zetOrde},
        {QStringLiteral("Gewicht"), gewicht},
        {QStringLiteral("OpenUniform"), openUniform},
        {QStringLiteral("Uniform"), uniform},
        {QStringLiteral("Helft"), helft},
        {QStringLiteral("Spline"), splinePunt},
        {QStringLiteral("Inzoemen"), inzoemen},
        {QStringLiteral("Uitzoemen"), uitzoemen},
        {QStringLiteral("Normaal"), normaal},
    };
    const Tekening tekening = tekeningen.value(sleutel, nullptr);
    return tekening != nullptr ? QIcon(new TekenIcoon(tekening)) : QIcon();
}

}  // namespace zw
