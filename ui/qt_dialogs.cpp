#include "ui/qt_dialogs.h"

#include <algorithm>

#include <QApplication>
#include <QColorDialog>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QPushButton>
#include <QSpinBox>
#include <QEvent>
#include <QEventLoop>
#include <QFileDialog>
#include <QHeaderView>
#include <QLibraryInfo>
#include <QMessageBox>
#include <QRegularExpression>
#include <QScreen>
#include <QStringList>
#include <QTimer>
#include <QTranslator>
#include <QTreeView>

#include "platform/qimage_sink.h"
#include "platform/runtime_error.h"

namespace zw {

namespace {

const char kProgramTitle[] = "Zwierlijn";

// "*.bmp;*.jpg" -> "*.bmp *.jpg"
QString qtPatterns(const QString& classic) {
    QStringList patterns;
    for (const QString& part : classic.split(QLatin1Char(';'))) {
        const QString pattern = part.trimmed();
        if (!pattern.isEmpty()) {
            patterns << pattern;
        }
    }
    return patterns.join(QLatin1Char(' '));
}

// The description with Qt's pattern list in parentheses at its end. Descriptions usually show
// their pattern already; then only its separators change.
QString describedFilter(const QString& description, const QString& classicPattern,
                        const QString& patterns) {
    const QString shown = QLatin1Char('(') + classicPattern + QLatin1Char(')');
    if (description.endsWith(shown)) {
        return description.chopped(shown.size()) + QLatin1Char('(') + patterns + QLatin1Char(')');
    }
    return description + QLatin1String(" (") + patterns + QLatin1Char(')');
}

// The default suffix as Qt wants it: without the dot.
QString qtSuffix(const std::string& extension) {
    QString suffix = QString::fromStdString(extension).trimmed();
    while (suffix.startsWith(QLatin1Char('.'))) {
        suffix.remove(0, 1);
    }
    return suffix;
}

// The extension a filter of one plain pattern stands for: "PNG-afbeelding (*.png)" -> "png";
// none for "*.*" or for several patterns.
QString filterSuffix(const QString& filter) {
    static const QRegularExpression eenPatroon(QStringLiteral("\\(\\*\\.(\\w+)\\)$"));
    const QRegularExpressionMatch m = eenPatroon.match(filter);
    return m.hasMatch() ? m.captured(1) : QString();
}

// Ends a modal show's event loop once the window is hidden for good (not merely minimised).
class HideWatcher : public QObject {
  public:
    explicit HideWatcher(QEventLoop& loop) : loop_(loop) {}

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Hide && static_cast<QWidget*>(watched)->isHidden()) {
            loop_.quit();
        }
        return false;
    }

  private:
    QEventLoop& loop_;
};

// The dialog grown by `meer` pixels in width, as far as the screen allows.
void verbreed(QFileDialog& dialog, int meer) {
    QSize grootte(dialog.width() + meer, dialog.height());
    if (const QScreen* scherm = dialog.screen()) {
        grootte = grootte.boundedTo(scherm->availableSize() * 0.9);
    }
    dialog.resize(grootte.expandedTo(dialog.size()));
}

// Every column of the list as wide as what it shows (never narrower than it is), and the dialog
// wider by what they then lack, as far as the screen allows. The last column, which Qt stretches
// over what is left, is measured like the others.
void pasKolommen(QFileDialog& dialog, QTreeView& lijst) {
    QHeaderView* kop = lijst.header();
    kop->setStretchLastSection(false);
    for (int kolom = 0; kolom < kop->count(); ++kolom) {
        const int was = kop->sectionSize(kolom);
        lijst.resizeColumnToContents(kolom);
        kop->resizeSection(kolom, std::max(was, kop->sectionSize(kolom)));
    }
    const int tekort = kop->length() - lijst.viewport()->width();
    if (tekort > 0) {
        verbreed(dialog, tekort);
    }
    kop->setStretchLastSection(true);
}

// Qt's own file dialog gives its list's columns (name, size, type, date) fixed widths that cut
// off what they show ("56....KiB"). Whenever files come into the list, the columns are fitted to
// them once the list has settled; the user can still drag them. A desktop's native dialog has no
// such list and keeps its own ways.
void toonKolommenHeel(QFileDialog& dialog) {
    auto* lijst = dialog.findChild<QTreeView*>(QStringLiteral("treeView"));
    if (lijst == nullptr || lijst->model() == nullptr) {
        return;
    }
    const QFontMetrics maat = dialog.fontMetrics();
    dialog.resize(QSize(maat.averageCharWidth() * 100, maat.lineSpacing() * 30)
                      .expandedTo(dialog.sizeHint()));
    const auto later = [&dialog, lijst] {
        QTimer::singleShot(0, lijst, [&dialog, lijst] { pasKolommen(dialog, *lijst); });
    };
    QObject::connect(lijst->model(), &QAbstractItemModel::rowsInserted, lijst, later);
    QObject::connect(lijst->model(), &QAbstractItemModel::layoutChanged, lijst, later);
}

}  // namespace

QString toQtFileFilter(const std::string& classic) {
    const QStringList parts = QString::fromStdString(classic).split(QLatin1Char('|'));
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString classicPattern = parts[i + 1].trimmed();
        const QString patterns = qtPatterns(classicPattern);
        if (patterns.isEmpty()) {
            continue;
        }
        const QString description = parts[i].trimmed();
        filters << describedFilter(description.isEmpty() ? patterns : description, classicPattern,
                                   patterns);
    }
    return filters.join(QLatin1String(";;"));
}

bool useQtDutchTexts(QCoreApplication& app) {
    auto* translator = new QTranslator(&app);
    if (!translator->load(QStringLiteral("qtbase_nl"),
                          QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        delete translator;
        return false;
    }
    return QCoreApplication::installTranslator(translator);
}

QWidget* QtDialogs::dialogParent() const {
    return parent_ ? parent_.data() : QApplication::activeWindow();
}

void QtDialogs::message(const std::string& text, const std::string& title) {
    const QString caption =
        title.empty() ? QString::fromLatin1(kProgramTitle) : QString::fromStdString(title);
    QMessageBox box(QMessageBox::NoIcon, caption, QString::fromStdString(text), QMessageBox::Ok,
                    dialogParent());
    box.exec();
}

std::string QtDialogs::openFileName(const FileDialogRequest& request) {
    return fileName(request, false);
}

std::string QtDialogs::saveFileName(const FileDialogRequest& request) {
    return fileName(request, true);
}

std::string QtDialogs::fileName(const FileDialogRequest& request, bool save) {
    QFileDialog dialog(dialogParent(), QString::fromStdString(request.title),
                       QString::fromStdString(request.directory), toQtFileFilter(request.filter));
    toonKolommenHeel(dialog);
    dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog.setDefaultSuffix(qtSuffix(request.defaultExtension));
    // A name typed without extension gets the one of the kind the user chose, if it has one.
    const QString standaard = qtSuffix(request.defaultExtension);
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog,
                     [&dialog, standaard](const QString& filter) {
                         const QString suffix = filterSuffix(filter);
                         dialog.setDefaultSuffix(suffix.isEmpty() ? standaard : suffix);
                     });
    if (dialog.exec() != QDialog::Accepted) {
        return {};
    }
    const QStringList files = dialog.selectedFiles();
    return files.isEmpty() ? std::string() : files.front().toStdString();
}

std::optional<Colour> QtDialogs::chooseColour(Colour initial) {
    QColorDialog dialog(toQColor(initial), dialogParent());
    if (dialog.exec() != QDialog::Accepted) {
        return std::nullopt;
    }
    return fromQColor(dialog.selectedColor());
}

std::optional<Keuze> QtDialogs::kies(const KeuzeVraag& vraag) {
    QDialog dialog(dialogParent());
    dialog.setWindowTitle(QString::fromStdString(vraag.title));
    auto* getal = new QSpinBox(&dialog);
    getal->setRange(vraag.minimum, vraag.maximum);
    getal->setValue(vraag.getal);
    auto* keuze = new QComboBox(&dialog);
    for (const std::string& k : vraag.keuzes) {
        keuze->addItem(QString::fromStdString(k));
    }
    keuze->setCurrentIndex(vraag.keuze);
    auto* knoppen = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialog);
    knoppen->button(QDialogButtonBox::Ok)->setText(QStringLiteral("OK"));
    knoppen->button(QDialogButtonBox::Cancel)->setText(QStringLiteral("Annuleren"));
    QObject::connect(knoppen, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(knoppen, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    auto* vorm = new QFormLayout(&dialog);
    vorm->addRow(QString::fromStdString(vraag.getalLabel), getal);
    vorm->addRow(QString::fromStdString(vraag.keuzeLabel), keuze);
    vorm->addRow(knoppen);
    if (dialog.exec() != QDialog::Accepted) {
        return std::nullopt;
    }
    return Keuze{getal->value(), keuze->currentIndex()};
}

void QtDialogs::show(ShowableWindow& window, bool modal) {
    QWidget* widget = dynamic_cast<QWidget*>(&window);
    if (widget == nullptr) {
        raise(kErrInternal);
    }
    if (!modal) {
        if (widget->isHidden()) {
            widget->setWindowModality(Qt::NonModal);
        }
        widget->show();
        widget->raise();
        widget->activateWindow();
        return;
    }
    // Modality only takes effect when a window is shown, so an open window is shown afresh.
    widget->hide();
    widget->setWindowModality(Qt::ApplicationModal);
    QPointer<QWidget> alive(widget);
    QEventLoop loop;
    HideWatcher watcher(loop);
    widget->installEventFilter(&watcher);
    QObject::connect(widget, &QObject::destroyed, &loop, &QEventLoop::quit);
    widget->show();
    widget->raise();
    widget->activateWindow();
    if (alive && !alive->isHidden()) {
        loop.exec();
    }
    if (alive) {
        alive->removeEventFilter(&watcher);
    }
}

}  // namespace zw
