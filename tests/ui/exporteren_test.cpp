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

// What an export could disturb beyond the canvas' picture: every menu item and button, the
// flags without one, the history and its versions in the undo directory.
std::string stand(ZwierlijnVenster& w, const std::string& map) {
    std::ostringstream s;
    for (const QAction* a : w.findChildren<QAction*>()) {
        s << a->objectName().toStdString() << a->isEnabled() << a->isChecked() << ' ';
    }
    s << w.segment << w.gewichtstat << w.ops().versie << w.ops().maxversie;
    const QDir undo(QString::fromStdString(map + "/undoredo"));
    for (const QFileInfo& f : undo.entryInfoList(QDir::Files, QDir::Name)) {
        s << ' ' << f.fileName().toStdString() << inhoud(f.filePath()).toHex().toStdString();
    }
    return s.str();
}

// In each format, from a menu of its own after the classic three: the export asks for nothing
// but the file, gives the renderer's figure byte for byte for the same curve, views, settings and
// size, and leaves the drawing, its history and its view alone. A file that cannot be written
// ends the action with its run-time error.
TEST_F(EditorTest, ExportIsTheRenderersFigureAndLeavesEverythingAsItWas) {
    const QList<QAction*> menus = w->menuBar()->actions();
    EXPECT_TRUE(menus.size() == 4 && menus[2]->text() == "&Beeld" && menus[3]->text() == "E&xtra");
    testCurve();
    w->menu(QStringLiteral("mntBeeldBezier"))->trigger();
    w->menu(QStringLiteral("mntBeeldMengFuncties"))->trigger();
    w->ops().opslaan(dir.file("k.zwl"));
    const std::string voor = stand(*w, dir.path());
    const QImage doek = w->Doek().image().copy();
    const auto pad = [&](const char* naam) { return QString::fromStdString(dir.file(naam)); };
    for (const char* soort : {"svg", "png", "pdf", "nee/f.svg"}) {
        const QString editor = pad("editor.") + QLatin1String(soort);
        dialogs.queueFileName(editor.toStdString());
        w->menu(QStringLiteral("mntExtraExporteren"))->trigger();
        const QString render = pad("render.") + QLatin1String(soort);
        QProcess p;
        p.start(QStringLiteral(ZW_RENDER),
                {pad("k.zwl"), render, QStringLiteral("--grootte"),
                 QStringLiteral("%1x%2").arg(w->Doek().pixelWidth()).arg(w->Doek().pixelHeight()),
                 "--bezier", "--mengfuncties", "--instellingen", pad("zwierlijn")});
        ASSERT_TRUE(p.waitForFinished(60000));
        // A PDF carries the time it was made.
        EXPECT_TRUE(soort[1] == 'd' || inhoud(editor) == inhoud(render)) << soort;
        EXPECT_EQ(QFile::exists(editor), dialogs.messages().empty());
    }
    ASSERT_EQ(dialogs.messages().size(), 1u);
    EXPECT_EQ(dialogs.messages()[0].text, errorMessage(RuntimeError(kErrPathNotFound)));
    EXPECT_EQ(
        dialogs.fileRequests().back().request.filter,
        "SVG-afbeelding (*.svg)|*.svg|PDF-document (*.pdf)|*.pdf|PNG-afbeelding (*.png)|*.png");
    EXPECT_EQ(stand(*w, dir.path()), voor);
    EXPECT_EQ(w->Doek().image(), doek);
}

}  // namespace
}  // namespace zw
