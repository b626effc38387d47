#include "ui/qt_dialogs.h"

#include <QApplication>
#include <QFileDialog>
#include <QLabel>
#include <QTimer>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "platform/surface.h"

namespace zw {
namespace {

TEST(QtFileFilterTest, ConvertsClassicFilters) {
    const std::pair<const char*, const char*> cases[] = {
        {"Zwl (*.zwl) |*.zwl|Alle (*.*)|*.*", "Zwl (*.zwl);;Alle (*.*)"},
        {"  Tekst  | *.txt |Alles", "Tekst (*.txt)"},
        {"", ""},
        {"Afb (*.bmp;*.jpg)|*.bmp;*.jpg", "Afb (*.bmp *.jpg)"},
        {"Leeg||Tekst|*.txt", "Tekst (*.txt)"},
        {"|*.zwl", "*.zwl (*.zwl)"},
        {"Wav (*.wav)|*.zwl", "Wav (*.wav) (*.zwl)"},
    };
    for (const auto& [classic, qt] : cases) {
        EXPECT_EQ(toQtFileFilter(classic).toStdString(), qt) << classic;
    }
}

TEST(QtColourTest, ConvertsBothWaysUsingTheLow24Bits) {
    EXPECT_EQ(toQColor(static_cast<Colour>(0x80000000u) | rgb(1, 2, 3)), QColor(1, 2, 3));
    for (const Colour c : {kBlack, kWhite, rgb(255, 0, 0), rgb(0, 255, 0), rgb(0, 0, 255)}) {
        EXPECT_EQ(fromQColor(toQColor(c)), c);
    }
}

// Qt's dialogs would speak the machine's language, English on a school's fresh installation.
TEST(QtDialogsTest, FileDialogsSpeakDutch) {
    QtDialogs dialogs;
    QString lookIn;
    QTimer::singleShot(0, [&] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        auto* label =
            dialog ? dialog->findChild<QLabel*>(QStringLiteral("lookInLabel")) : nullptr;
        lookIn = label ? label->text() : QString();
        if (dialog) {
            dialog->reject();
        }
    });
    EXPECT_EQ(dialogs.saveFileName({"Zwl (*.zwl)|*.zwl", ".zwl", "Kromme opslaan"}), "");
    EXPECT_EQ(lookIn, QStringLiteral("Zoeken in:"));
}

class TestWindow : public QWidget, public ShowableWindow {
  public:
    std::string windowName() const override { return "test"; }
};

// A modal show runs its own event loop; it must end however the window goes, or the program
// hangs (or touches a dead window).
TEST(QtDialogsShowTest, ModalShowEndsWhenTheWindowIsClosedOrDestroyed) {
    QtDialogs dialogs;
    TestWindow window;
    bool modalWhileOpen = false;
    QTimer::singleShot(0, &window, [&] {
        modalWhileOpen = window.isModal();
        window.close();
    });
    dialogs.show(window, true);
    EXPECT_TRUE(modalWhileOpen);
    EXPECT_FALSE(window.isVisible());
    auto* doomed = new TestWindow;
    QTimer::singleShot(0, doomed, [doomed] { delete doomed; });
    dialogs.show(*doomed, true);
}

}  // namespace
}  // namespace zw
