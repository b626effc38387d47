#include <QApplication>

#include "platform/files.h"
#include "ui/application.h"
#include "ui/qt_dialogs.h"

int main(int argc, char** argv) {
    QApplication qtApp(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Zwierlijn"));
    zw::Application app(zw::executableDirectory(), std::make_unique<zw::QtDialogs>());
    app.show();
    return QApplication::exec();
}
