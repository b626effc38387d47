// The main window's widgets: the canvas and the two panes as surface widgets in the client area,
// the menu bar, the toolbar `Tb` and the label `CoordLabel`, around the window's own state and
// handlers (Zwierlijn). Menus and toolbar show what the window's handlers set; the settings
// dialog `Kleurtjes` is made here and keeps the settings file open, and so is the window that
// shows the weights form.
#pragma once

#include <QMainWindow>
#include <memory>
#include <string>

#include "platform/dialogs.h"
#include "platform/event_guard.h"
#include "window/zwierlijn.h"

class QAction;
class QLabel;
class QToolBar;

namespace zw {

class ConstructieVenster;
class GewichtenVenster;
class HandleidingVenster;
class Kleurtjes;
class Menus;
class SurfaceWidget;
class Werkbalk;

class ZwierlijnVenster : public QMainWindow, public Zwierlijn {
  public:
    // Starts the program in the program directory: Form_Initialize, then Form_Load (which shows
    // the settings dialog modally on a first start). The window is not shown yet.
    ZwierlijnVenster(std::string programDirectory, Dialogs& dialogs, EventGuard& guard);
    ~ZwierlijnVenster() override;

    // The settings dialog; made (and its settings file opened) on first use.
    Kleurtjes& kleurtjes();
    // The weights window; made on first use and then kept, shown or not.
    GewichtenVenster& gewichtenVenster();

    QAction* menu(const QString& name) const;
    // A toolbar button by its key.
    QAction* knop(const QString& key) const;
    SurfaceWidget& doekWidget() const { return *doekWidget_; }
    SurfaceWidget& knopenWidget() const { return *knopenWidget_; }
    SurfaceWidget& mengWidget() const { return *mengWidget_; }
    QToolBar& Tb() const { return *tb_; }
    QLabel& CoordLabel() const { return *coordLabel_; }

    float scaleWidth() const override;
    float scaleHeight() const override;

  protected:
    std::int32_t instelling(int record) override;
    bool instellingenBestonden() override;
    void zetInstellingenBestonden() override;
    void toonKleurtjes(bool modal) override;
    void sluitKleurtjes() override;
    void toonGewichten() override;
    void sluitGewichten() override;
    void toonConstructie(bool aan) override;
    void toonStatus(const std::string& regel) override;
    void toonTip(const std::string& tekst) override;
    void toonHandleiding() override;
    void sluitVenster() override;

    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void bouwVenster();
    void volgBedieningen();
    void zetSneltoetsen();

    EventGuard& guard_;
    std::unique_ptr<Kleurtjes> kleurtjes_;
    std::unique_ptr<GewichtenVenster> gewichtenVenster_;
    std::unique_ptr<ConstructieVenster> constructieVenster_;
    std::unique_ptr<HandleidingVenster> handleiding_;
    bool sluitend_ = false;

    QWidget* formulier_ = nullptr;
    SurfaceWidget* doekWidget_ = nullptr;
    SurfaceWidget* knopenWidget_ = nullptr;
    SurfaceWidget* mengWidget_ = nullptr;
    QToolBar* tb_ = nullptr;
    QLabel* coordLabel_ = nullptr;
    QLabel* statusLabel_ = nullptr;
    std::unique_ptr<Menus> menus_;
    std::unique_ptr<Werkbalk> werkbalk_;
};

}  // namespace zw
