#include "ui/application.h"

namespace zw {

Application::Application(std::string programDirectory, std::unique_ptr<Dialogs> dialogs)
    : programDirectory_(std::move(programDirectory)),
      dialogs_(std::move(dialogs)),
      guard_(*dialogs_),
      mainWindow_(std::make_unique<ZwierlijnVenster>(programDirectory_, *dialogs_, guard_)) {}

Application::~Application() = default;

void Application::show() {
    mainWindow_->show();
}

}  // namespace zw
