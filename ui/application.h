// The editor as a whole: the program directory it works in (settings file "zwierlijn",
// "undoredo" and "Wavelet" beside the program), the dialogs service and the main window.
#pragma once

#include <memory>
#include <string>

#include "platform/dialogs.h"
#include "platform/event_guard.h"
#include "ui/zwierlijn_venster.h"

namespace zw {

class Application {
  public:
    // The program directory is given, not looked up, so that tests can run the editor in a
    // temporary directory.
    Application(std::string programDirectory, std::unique_ptr<Dialogs> dialogs);
    ~Application();

    const std::string& programDirectory() const { return programDirectory_; }
    Dialogs& dialogs() { return *dialogs_; }
    EventGuard& guard() { return guard_; }
    ZwierlijnVenster& mainWindow() { return *mainWindow_; }

    void show();

  private:
    std::string programDirectory_;
    std::unique_ptr<Dialogs> dialogs_;
    EventGuard guard_;
    std::unique_ptr<ZwierlijnVenster> mainWindow_;
};

}  // namespace zw
