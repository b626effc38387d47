// The widget that shows a Surface and hands it the user's mouse: nothing else happens here.
#pragma once

#include <QWidget>

#include "platform/event_guard.h"
#include "platform/surface.h"

namespace zw {

class SurfaceWidget : public QWidget, private SurfaceObserver {
  public:
    // The surface and the guard must outlive the widget. The widget takes the surface's place
    // when it has a size already, and follows its move() calls from then on.
    SurfaceWidget(Surface& surface, EventGuard& guard, QWidget* parent = nullptr);
    ~SurfaceWidget() override;

    Surface& surface() const { return surface_; }

    // The classic codes for Qt's mouse buttons and keyboard modifiers.
    static int buttonCode(Qt::MouseButtons buttons);
    static int shiftCode(Qt::KeyboardModifiers modifiers);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;

  private:
    void imageChanged() override;
    void geometryChanged() override;
    void syncSize();
    void schedulePaint();
    void runScheduledPaint();

    Surface& surface_;
    EventGuard& guard_;
    bool paintPending_ = false;
};

}  // namespace zw
