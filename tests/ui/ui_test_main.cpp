#include <gtest/gtest.h>
#include <QApplication>

#include "ui/qt_dialogs.h"

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    zw::useQtDutchTexts(app);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
