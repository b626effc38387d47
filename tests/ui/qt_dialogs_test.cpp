#include "ui/qt_dialogs.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QFile>
#include <QFileDialog>
#include <QHeaderView>
#include <QLabel>
#include <QStyle>
#include <QTemporaryDir>
#include <QTimer>
#include <QTreeView>
#include <algorithm>
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

}  // namespace
}  // namespace zw
