#include "ui/gewichten_venster.h"

#include <QCloseEvent>
#include <QScreen>
#include <algorithm>
#include <cmath>

#include "platform/numeric.h"
#include "ui/surface_widget.h"
#include "weights/gewichten_form.h"

namespace zw {

namespace {

Vensterplek inTwips(const QRect& r) {
    return {static_cast<float>(r.x() * kTwipsPerPixel), static_cast<float>(r.y() * kTwipsPerPixel),
            static_cast<float>(r.width() * kTwipsPerPixel),
            static_cast<float>(r.height() * kTwipsPerPixel)};
}

}  // namespace

// A window of the main window's, so that it stays above it and goes with it.
GewichtenVenster::GewichtenVenster(GewichtenForm& form, EventGuard& guard, QWidget& hoofdvenster)
    : QWidget(&hoofdvenster, Qt::Window), form_(form), guard_(guard), hoofdvenster_(hoofdvenster) {
    setObjectName(QStringLiteral("GewichtenForm"));
    setWindowTitle(QStringLiteral("Gewichten"));
    form_.Doek().setDevicePixelRatio(devicePixelRatioF());
    doekWidget_ = new SurfaceWidget(form_.Doek(), guard_, this);
    doekWidget_->setObjectName(QStringLiteral("Doek"));
    resize(static_cast<int>(std::lround(form_.ScaleWidth() / kTwipsPerPixel)),
           static_cast<int>(std::lround(form_.ScaleHeight() / kTwipsPerPixel)));
}

GewichtenVenster::~GewichtenVenster() = default;

void GewichtenVenster::zetBinnenmaat() {
    form_.zetBinnenmaat(static_cast<float>(width() * kTwipsPerPixel),
                        static_cast<float>(height() * kTwipsPerPixel));
}

// Loaded the first time after an unload, and fitted to the window every time it appears.
void GewichtenVenster::showEvent(QShowEvent* event) {
    zetBinnenmaat();
    guard_.run([this] { form_.toon(); });
    QWidget::showEvent(event);
}

// While the window is hidden the form hears of its size when it appears.
void GewichtenVenster::resizeEvent(QResizeEvent* event) {
    zetBinnenmaat();
    if (form_.geladen()) {
        guard_.run([this] { form_.Form_Resize(); });
    }
    QWidget::resizeEvent(event);
}

void GewichtenVenster::closeEvent(QCloseEvent* event) {
    guard_.run([this] { form_.Unload(); });
    event->accept();
}

void GewichtenVenster::changeEvent(QEvent* event) {
    if (event->type() == QEvent::ActivationChange && isActiveWindow()) {
        guard_.run([this] { Form_Activate(); });
    }
    QWidget::changeEvent(event);
}

// The place the form asks for, kept on the main window's screen.
void GewichtenVenster::Form_Activate() {
    const QRect eigen = frameGeometry();
    const std::optional<Vensterplek> plek = form_.Form_Activate(
        inTwips(hoofdvenster_.frameGeometry()), hoofdvenster_.isMaximized(), inTwips(eigen));
    if (!plek) {
        return;
    }
    QPoint naar(toLong(plek->Left / kTwipsPerPixel), toLong(plek->Top / kTwipsPerPixel));
    if (const QScreen* scherm = hoofdvenster_.screen()) {
        const QRect vlak = scherm->availableGeometry();
        naar.setX(std::clamp(naar.x(), vlak.left(),
                             std::max(vlak.left(), vlak.right() + 1 - eigen.width())));
        naar.setY(std::clamp(naar.y(), vlak.top(),
                             std::max(vlak.top(), vlak.bottom() + 1 - eigen.height())));
    }
    if (naar != pos()) {
        move(naar);
    }
}

}  // namespace zw
