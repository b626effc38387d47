#include <QApplication>

#include "platform/files.h"
#include "ui/application.h"
#include "ui/qt_dialogs.h"

int main(int argc, char** argv) {
    QApplication qtApp(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Zwierlijn"));
    zw::useQtDutchTexts(qtApp);
    auto dialogs = std::make_unique<zw::QtDialogs>();
    zw::QtDialogs& qtDialogs = *dialogs;
    zw::Application app(zw::executableDirectory(), std::move(dialogs));
    qtDialogs.setParentWindow(&app.mainWindow());
    app.show();
    return QApplication::exec();
}
