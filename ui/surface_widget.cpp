#include "ui/surface_widget.h"

#include <QMetaObject>
#include <QMouseEvent>
#include <QPainter>

#include "platform/qimage_sink.h"

namespace zw {

SurfaceWidget::SurfaceWidget(Surface& surface, EventGuard& guard, QWidget* parent)
    : QWidget(parent), surface_(surface), guard_(guard) {
    // Mouse moves without a button held are events too.
    setMouseTracking(true);
    surface_.setObserver(this);
    // A surface already placed keeps its place; a fresh one is left to the layout.
    if (surface_.pixelWidth() > 0 || surface_.pixelHeight() > 0) {
        geometryChanged();
    }
}

SurfaceWidget::~SurfaceWidget() {
    surface_.setObserver(nullptr);
}

int SurfaceWidget::buttonCode(Qt::MouseButtons buttons) {
    int code = 0;
    if (buttons & Qt::LeftButton) {
        code |= 1;
    }
    if (buttons & Qt::RightButton) {
        code |= 2;
    }
    if (buttons & Qt::MiddleButton) {
        code |= 4;
    }
    return code;
}

int SurfaceWidget::shiftCode(Qt::KeyboardModifiers modifiers) {
    int code = 0;
    if (modifiers & Qt::ShiftModifier) {
        code |= 1;
    }
    if (modifiers & Qt::ControlModifier) {
        code |= 2;
    }
    if (modifiers & Qt::AltModifier) {
        code |= 4;
    }
    return code;
}

void SurfaceWidget::paintEvent(QPaintEvent*) {
    // Moved to a screen of another pixel ratio: the image must be made again.
    if (devicePixelRatioF() != surface_.devicePixelRatio()) {
        schedulePaint();
    }
    QPainter painter(this);
    painter.drawImage(QPointF(0.0, 0.0), imageOf(surface_));
    if (const Surface* overlay = surface_.overlayIfAny()) {
        painter.drawImage(QPointF(0.0, 0.0), imageOf(*overlay));
    }
}

void SurfaceWidget::resizeEvent(QResizeEvent*) {
    syncSize();
    schedulePaint();
}

void SurfaceWidget::mousePressEvent(QMouseEvent* event) {
    const int button = buttonCode(event->button());
    if (button == 0) {
        return;
    }
    const int shift = shiftCode(event->modifiers());
    const QPointF at = event->position();
    guard_.run([&] { surface_.deliverMouseDown(button, shift, at.x(), at.y()); });
}

// As in the classic event model, the second press of a double click is no MouseDown (its release
// still arrives): a double click on the canvas must not put two control points on one spot.
void SurfaceWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    event->accept();
}

void SurfaceWidget::mouseMoveEvent(QMouseEvent* event) {
    const int buttons = buttonCode(event->buttons());
    const int shift = shiftCode(event->modifiers());
    const QPointF at = event->position();
    guard_.run([&] { surface_.deliverMouseMove(buttons, shift, at.x(), at.y()); });
}

void SurfaceWidget::mouseReleaseEvent(QMouseEvent* event) {
    const int button = buttonCode(event->button());
    if (button == 0) {
        return;
    }
    const int shift = shiftCode(event->modifiers());
    const QPointF at = event->position();
    guard_.run([&] { surface_.deliverMouseUp(button, shift, at.x(), at.y()); });
}

void SurfaceWidget::leaveEvent(QEvent* event) {
    guard_.run([&] { surface_.deliverMouseLeave(); });
    QWidget::leaveEvent(event);
}

void SurfaceWidget::imageChanged() {
    update();
}

void SurfaceWidget::geometryChanged() {
    setGeometry(surface_.pixelLeft(), surface_.pixelTop(), surface_.pixelWidth(),
                surface_.pixelHeight());
}

void SurfaceWidget::syncSize() {
    guard_.run([this] {
        surface_.setDevicePixelRatio(devicePixelRatioF());
        surface_.setPixelSize(width(), height());
    });
}

// Like the classic paint message, a paint request waits for the event loop and any number of
// requests before then come to one paint.
void SurfaceWidget::schedulePaint() {
    if (paintPending_) {
        return;
    }
    paintPending_ = true;
    QMetaObject::invokeMethod(
        this, [this] { runScheduledPaint(); }, Qt::QueuedConnection);
}

void SurfaceWidget::runScheduledPaint() {
    paintPending_ = false;
    syncSize();
    guard_.run([this] { surface_.refresh(); });
}

}  // namespace zw
