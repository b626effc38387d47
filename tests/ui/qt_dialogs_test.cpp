#include "ui/qt_dialogs.h"

#include <QCoreApplication>
#include <QTimer>
#include <string>

#include <gtest/gtest.h>

#include "platform/runtime_error.h"
#include "platform/surface.h"

namespace zw {
namespace {

TEST(QtFileFilterTest, ConvertsClassicFilters) {
    struct Case {
        const char* classic;
        const char* qt;
    };
    const Case cases[] = {
        {"zwierlijnbestanden (*.zwl) |*.zwl|alle bestanden (*.*)|*.*",
         "zwierlijnbestanden (*.zwl);;alle bestanden (*.*)"},
        {"Tekst|*.txt", "Tekst (*.txt)"},
        {"  Tekst  | *.txt ", "Tekst (*.txt)"},
        {"", ""},
        {"zwierlijnbestanden (*.zwl)|*.zwl|", "zwierlijnbestanden (*.zwl)"},
        {"Tekst|*.txt|Alles", "Tekst (*.txt)"},
        {"Afbeeldingen (*.bmp;*.jpg)|*.bmp;*.jpg", "Afbeeldingen (*.bmp *.jpg)"},
        {"Afbeeldingen|*.bmp; *.jpg", "Afbeeldingen (*.bmp *.jpg)"},
        {"Leeg||Tekst|*.txt", "Tekst (*.txt)"},
        {"|*.zwl", "*.zwl (*.zwl)"},
        {"Wavelet (*.wav)|*.zwl", "Wavelet (*.wav) (*.zwl)"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(toQtFileFilter(c.classic).toStdString(), c.qt) << "classic: " << c.classic;
    }
}

TEST(QtColourTest, ConvertsBothWaysUsingTheLow24Bits) {
    EXPECT_EQ(toQColor(rgb(10, 20, 30)), QColor(10, 20, 30));
    EXPECT_EQ(toQColor(static_cast<Colour>(0x80000000u) | rgb(1, 2, 3)), QColor(1, 2, 3));
    EXPECT_EQ(fromQColor(QColor(200, 100, 50)), rgb(200, 100, 50));
    for (const Colour c : {kBlack, kWhite, rgb(255, 0, 0), rgb(0, 255, 0), rgb(0, 0, 255)}) {
        EXPECT_EQ(fromQColor(toQColor(c)), c);
    }
}

class TestWindow : public QWidget, public ShowableWindow {
  public:
    std::string windowName() const override { return "test"; }
};

class NotAWidget : public ShowableWindow {
  public:
    std::string windowName() const override { return "nothing"; }
};

TEST(QtDialogsShowTest, ModelessShowReturnsWithTheWindowOpen) {
    QtDialogs dialogs;
    TestWindow window;
    dialogs.show(window, false);
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(window.windowModality(), Qt::NonModal);
}

TEST(QtDialogsShowTest, ModalShowWaitsUntilTheWindowIsClosed) {
    QtDialogs dialogs;
    TestWindow window;
    bool modalWhileOpen = false;
    QTimer::singleShot(0, &window, [&] {
        modalWhileOpen = window.isVisible() && window.isModal();
        window.close();
    });
    dialogs.show(window, true);
    EXPECT_TRUE(modalWhileOpen);
    EXPECT_FALSE(window.isVisible());
}

TEST(QtDialogsShowTest, ModalShowEndsWhenTheWindowIsDestroyed) {
    QtDialogs dialogs;
    auto* window = new TestWindow;
    QTimer::singleShot(0, window, [window] { delete window; });
    dialogs.show(*window, true);
    SUCCEED();
}

TEST(QtDialogsShowTest, AWindowThatIsNoWidgetIsAnInternalError) {
    QtDialogs dialogs;
    NotAWidget window;
    try {
        dialogs.show(window, false);
        FAIL() << "no error";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number(), kErrInternal);
    }
}

}  // namespace
}  // namespace zw
