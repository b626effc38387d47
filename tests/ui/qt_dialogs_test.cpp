#include "ui/qt_dialogs.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QFile>
#include <QFileDialog>
#include <QHeaderView>
#include <QLabel>
#include <QMouseEvent>
#include <QStyle>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QTreeView>
#include <algorithm>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "platform/qimage_sink.h"
#include "platform/runtime_error.h"
#include "platform/scripted_dialogs.h"
#include "platform/surface.h"
#include "ui/surface_widget.h"

namespace zw {
namespace {

TEST(QtConversionTest, ClassicFiltersAndColours) {
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
    // Colours both ways, by their low 24 bits.
    EXPECT_EQ(toQColor(static_cast<Colour>(0x80000000u) | rgb(1, 2, 3)), QColor(1, 2, 3));
    for (const Colour c : {kBlack, kWhite, rgb(255, 0, 0), rgb(0, 255, 0), rgb(0, 0, 255)}) {
        EXPECT_EQ(fromQColor(toQColor(c)), c);
    }
}

// Qt's dialogs would speak the machine's language, English on a school's fresh installation.
// They open in the folder asked for, every column of their list as wide as what it shows.
TEST(QtDialogsTest, FileDialogsSpeakDutchWhereAskedWithTheirColumnsWhole) {
    QTemporaryDir map;
    QFile bestand(map.filePath(
        QStringLiteral("een kromme met een lange naam, zoals een student die geeft.zwl")));
    ASSERT_TRUE(bestand.open(QIODevice::WriteOnly));
    QtDialogs dialogs;
    QString lookIn, geopend;
    QStringList afgekapt;
    QTimer::singleShot(0, [&] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr) {
            return;
        }
        auto* label = dialog->findChild<QLabel*>(QStringLiteral("lookInLabel"));
        lookIn = label ? label->text() : QString();
        geopend = dialog->directory().absolutePath();
        auto* lijst = dialog->findChild<QTreeView*>(QStringLiteral("treeView"));
        // The folder is read in the background; the columns are fitted once it is in.
        const QDeadlineTimer tot(5000);
        while (lijst && lijst->model()->rowCount(lijst->rootIndex()) == 0 && !tot.hasExpired()) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
        }
        QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
        for (int kolom = 0; lijst != nullptr && kolom < lijst->header()->count(); ++kolom) {
            const QString tekst =
                lijst->model()->index(0, kolom, lijst->rootIndex()).data().toString();
            // The text, its margins and, in the first column, the file's icon.
            const int marge = 2 * (lijst->style()->pixelMetric(QStyle::PM_FocusFrameHMargin) + 1);
            const int icoon = kolom == 0 ? lijst->iconSize().width() : 0;
            if (lijst->columnWidth(kolom) <
                lijst->fontMetrics().horizontalAdvance(tekst) + marge + std::max(0, icoon)) {
                afgekapt << tekst;
            }
        }
        dialog->reject();
    });
    EXPECT_EQ(
        dialogs.openFileName({"Zwl (*.zwl)|*.zwl", ".zwl", "Openen", map.path().toStdString()}),
        "");
    EXPECT_EQ(lookIn, QStringLiteral("Zoeken in:"));
    EXPECT_EQ(geopend, map.path());
    EXPECT_TRUE(afgekapt.isEmpty()) << afgekapt.join(QStringLiteral(", ")).toStdString();
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

using Call = std::tuple<char, int, int, float, float>;

class SurfaceWidgetTest : public ::testing::Test {
  protected:
    SurfaceWidgetTest() : guard_(dialogs_), widget_(surface_, guard_) {
        auto recorder = [this](char what) -> MouseHandler {
            return [this, what](int b, int s, float x, float y) {
                calls_.emplace_back(what, b, s, x, y);
            };
        };
        surface_.setMouseDownHandler(recorder('d'));
        surface_.setMouseMoveHandler(recorder('m'));
        surface_.setMouseUpHandler(recorder('u'));
        surface_.setPaintHandler([this] { ++paints_; });
        widget_.resize(200, 100);
        widget_.show();
        QCoreApplication::processEvents();
        surface_.scale(-5, 2.5, 5, -2.5);  // 20 px per unit, y up
        paints_ = 0;
    }

    ScriptedDialogs dialogs_;
    EventGuard guard_;
    Surface surface_;
    SurfaceWidget widget_;
    std::vector<Call> calls_;
    int paints_ = 0;
};

TEST_F(SurfaceWidgetTest, MouseEventsReachTheHandlersInScaleUnitsWithClassicCodes) {
    QTest::mousePress(&widget_, Qt::LeftButton, Qt::ShiftModifier, QPoint(50, 25));
    const QPointF at(100, 50);
    QMouseEvent move(QEvent::MouseMove, at, widget_.mapToGlobal(at), Qt::NoButton,
                     Qt::LeftButton | Qt::MiddleButton, Qt::ControlModifier | Qt::AltModifier);
    QCoreApplication::sendEvent(&widget_, &move);
    QTest::mouseRelease(&widget_, Qt::LeftButton, Qt::NoModifier, QPoint(150, 75));
    QTest::mousePress(&widget_, Qt::RightButton, Qt::ControlModifier, QPoint(10, 5));
    // The second press of a double click is no mouse down.
    QMouseEvent dbl(QEvent::MouseButtonDblClick, at, widget_.mapToGlobal(at), Qt::LeftButton,
                    Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget_, &dbl);
    QTest::mouseRelease(&widget_, Qt::LeftButton, Qt::NoModifier, QPoint(100, 50));
    const std::vector<Call> expected = {Call('d', 1, 1, -2.5f, 1.25f), Call('m', 5, 6, 0.0f, 0.0f),
                                        Call('u', 1, 0, 2.5f, -1.25f),
                                        Call('d', 2, 2, -4.5f, 2.25f), Call('u', 1, 0, 0.0f, 0.0f)};
    EXPECT_EQ(calls_, expected);
}

TEST_F(SurfaceWidgetTest, ARunTimeErrorInAHandlerIsShownOnceAndLaterEventsStillArrive) {
    int downs = 0;
    surface_.setMouseDownHandler([&](int, int, float, float) {
        if (++downs == 1) {
            throw RuntimeError(kErrSubscript);
        }
    });
    QTest::mouseClick(&widget_, Qt::LeftButton, Qt::NoModifier, QPoint(10, 10));
    QTest::mouseClick(&widget_, Qt::LeftButton, Qt::NoModifier, QPoint(10, 10));
    EXPECT_EQ(downs, 2);
    EXPECT_EQ(calls_.size(), 2u);  // both ups
    ASSERT_EQ(dialogs_.messages().size(), 1u);
    EXPECT_NE(dialogs_.messages()[0].text.find(standardErrorText(kErrSubscript)),
              std::string::npos);
}

TEST_F(SurfaceWidgetTest, ResizesComeToOnePaintOnceTheEventLoopRuns) {
    widget_.resize(300, 150);
    widget_.resize(320, 160);
    EXPECT_EQ(surface_.pixelWidth(), 320);
    EXPECT_EQ(paints_, 0);
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    EXPECT_EQ(paints_, 1);
}

}  // namespace
}  // namespace zw
