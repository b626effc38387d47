#include <QDir>
#include <QFile>
#include <QMenuBar>
#include <QProcess>
#include <sstream>

#include "editor_fixture.h"

namespace zw {
namespace {

QByteArray inhoud(const QString& bestand) {
    QFile file(bestand);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Everything an export could disturb: every menu item and button, the window's view and state,
// the canvas' scale, the curve, and the versions in the undo directory.
std::string stand(ZwierlijnVenster& w, const std::string& map) {
    std::ostringstream s;
    for (const QAction* a : w.findChildren<QAction*>()) {
        s << a->objectName().toStdString() << a->isEnabled() << a->isChecked() << ' ';
    }
    s << w.knooppunten << w.bezier << w.mengstat << w.segment << w.gewichtstat << w.knopen_zichtbaar
      << w.sleep_detail << w.segmenten_per_controlepunt << w.controlepunten_per_segment << ' '
      << w.ControleStraal << ' ' << w.ops().versie << ' ' << w.ops().maxversie << ' '
      << w.evaluator().stap << ' ' << w.Doek().scaleLeft() << ' ' << w.Doek().scaleTop() << ' '
      << w.Doek().scaleWidth() << ' ' << w.Doek().scaleHeight();
    for (float i = 0; i <= w.polygoon().graad; ++i) {
        s << ' ' << w.polygoon().punten(i).X << ',' << w.polygoon().punten(i).Y;
    }
    for (const double t : HeadlessWindow::knotsOf(w)) {
        s << ' ' << t;
    }
    const QDir undo(QString::fromStdString(map + "/undoredo"));
    for (const QFileInfo& f : undo.entryInfoList(QDir::Files, QDir::Name)) {
        s << ' ' << f.fileName().toStdString() << inhoud(f.filePath()).toHex().toStdString();
    }
    return s.str();
}

// In each format, from a menu of its own after the classic three. The export draws the canvas
// as it is, asks nothing but the file, and leaves the drawing, its history and its view alone;
// a file that cannot be written ends the action with its run-time error.
TEST_F(EditorTest, ExportLeavesTheDrawingItsHistoryAndItsViewAsTheyWere) {
    QStringList titels;
    for (const QAction* menu : w->menuBar()->actions()) {
        titels << menu->text();
    }
    EXPECT_EQ(titels.join(u' '), QStringLiteral("&Bestand Be&werken &Beeld E&xtra"));
    testCurve();
    for (const char* item : {"mntBeeldBezier", "mntBeeldMengFuncties", "mntBeeldZoomInzoemen"}) {
        w->menu(QString::fromLatin1(item))->trigger();
    }
    const std::string voor = stand(*w, dir.path());
    const QImage doek = w->Doek().image().copy();
    for (const char* naam : {"f.svg", "f.pdf", "f.png", "nee/f.svg"}) {
        dialogs.queueFileName(dir.file(naam));
        w->menu(QStringLiteral("mntExtraExporteren"))->trigger();
        EXPECT_EQ(QFile::exists(QString::fromStdString(dir.file(naam))),
                  dialogs.messages().empty());
    }
    ASSERT_EQ(dialogs.messages().size(), 1u);
    EXPECT_EQ(dialogs.messages()[0].text, errorMessage(RuntimeError(kErrPathNotFound)));
    EXPECT_EQ(
        dialogs.fileRequests().back().request.filter,
        "SVG-afbeelding (*.svg)|*.svg|PDF-document (*.pdf)|*.pdf|PNG-afbeelding (*.png)|*.png");
    EXPECT_TRUE(dialogs.fileRequests().back().save);
    EXPECT_EQ(stand(*w, dir.path()), voor);
    EXPECT_EQ(w->Doek().image(), doek);
}

// The same curve, views, settings and size give the renderer's file byte for byte.
TEST_F(EditorTest, TheEditorsExportIsTheRenderersFigure) {
    testCurve();
    w->menu(QStringLiteral("mntBeeldBezier"))->trigger();
    w->ops().opslaan(dir.file("k.zwl"));
    const QString grootte =
        QStringLiteral("%1x%2").arg(w->Doek().pixelWidth()).arg(w->Doek().pixelHeight());
    for (const char* soort : {"svg", "png"}) {
        const QString editor = QString::fromStdString(dir.file("editor.")) + QLatin1String(soort);
        const QString render = QString::fromStdString(dir.file("render.")) + QLatin1String(soort);
        dialogs.queueFileName(editor.toStdString());
        w->menu(QStringLiteral("mntExtraExporteren"))->trigger();
        QProcess p;
        p.start(QStringLiteral(ZW_RENDER),
                {QString::fromStdString(dir.file("k.zwl")), render, QStringLiteral("--grootte"),
                 grootte, QStringLiteral("--bezier"), QStringLiteral("--instellingen"),
                 QString::fromStdString(dir.file("zwierlijn"))});
        ASSERT_TRUE(p.waitForFinished(60000));
        EXPECT_EQ(p.exitCode(), 0) << p.readAllStandardError().toStdString();
        EXPECT_FALSE(inhoud(editor).isEmpty());
        EXPECT_TRUE(inhoud(editor) == inhoud(render)) << soort;
    }
}

}  // namespace
}  // namespace zw
