// The weights window on the screen: a top-level window beside the editor whose client area is
// filled by the form's surface `Doek`. The form (GewichtenForm) does everything; this window
// tells it its size and raises its events.
#pragma once

#include <QWidget>
#include <string>

#include "platform/dialogs.h"
#include "platform/event_guard.h"

namespace zw {

class GewichtenForm;
class SurfaceWidget;

class GewichtenVenster : public QWidget, public ShowableWindow {
  public:
    // The form must outlive the window; `hoofdvenster` is the main window, beside which the
    // window places itself and above which it stays.
    GewichtenVenster(GewichtenForm& form, EventGuard& guard, QWidget& hoofdvenster);
    ~GewichtenVenster() override;

    std::string windowName() const override { return "GewichtenForm"; }
    SurfaceWidget& doekWidget() const { return *doekWidget_; }

  protected:
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    void zetBinnenmaat();
    void Form_Activate();

    GewichtenForm& form_;
    EventGuard& guard_;
    QWidget& hoofdvenster_;
    SurfaceWidget* doekWidget_ = nullptr;
};

}  // namespace zw
