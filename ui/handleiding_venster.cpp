#include "ui/handleiding_venster.h"

#include <QFile>
#include <QSignalBlocker>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRegularExpression>
#include <QSplitter>
#include <QTextBrowser>
#include <QTextDocument>
#include <QUrl>
#include <QVBoxLayout>
#include <algorithm>

namespace zw {

namespace {

QString lees(const QString& pagina) {
    QFile bestand(HandleidingVenster::kMap + pagina);
    return bestand.open(QIODevice::ReadOnly) ? QString::fromUtf8(bestand.readAll()) : QString();
}

// The title of a page: its first heading.
QString titel(const QString& html) {
    const QRegularExpressionMatch m =
        QRegularExpression(QStringLiteral("<h1[^>]*>(.*?)</h1>"),
                           QRegularExpression::DotMatchesEverythingOption)
            .match(html);
    QTextDocument tekst;
    tekst.setHtml(m.hasMatch() ? m.captured(1) : html.left(80));
    return tekst.toPlainText().trimmed();
}

}  // namespace

const QString HandleidingVenster::kMap = QStringLiteral(":/handleiding/");

HandleidingVenster::HandleidingVenster(QWidget& hoofdvenster)
    : QWidget(&hoofdvenster, Qt::Window) {
    setObjectName(QStringLiteral("Handleiding"));
    setWindowTitle(QStringLiteral("Handleiding"));
    // The contents in the order the index links its pages, the index first.
    paginas_ << QStringLiteral("index.html");
    const QString index = lees(QStringLiteral("index.html"));
    QRegularExpressionMatchIterator links =
        QRegularExpression(QStringLiteral("href=\"([^\"#]+\\.html)")).globalMatch(index);
    while (links.hasNext()) {
        const QString p = links.next().captured(1);
        if (!paginas_.contains(p)) {
            paginas_ << p;
        }
    }

    auto* terug = new QPushButton(QStringLiteral("Terug"), this);
    auto* vooruit = new QPushButton(QStringLiteral("Vooruit"), this);
    auto* naarInhoud = new QPushButton(QStringLiteral("Inhoud"), this);
    zoekveld_ = new QLineEdit(this);
    zoekveld_->setPlaceholderText(QStringLiteral("Zoeken in de handleiding"));
    melding_ = new QLabel(this);
    auto* balk = new QHBoxLayout;
    for (QWidget* w : {static_cast<QWidget*>(terug), static_cast<QWidget*>(vooruit),
                       static_cast<QWidget*>(naarInhoud)}) {
        balk->addWidget(w);
    }
    balk->addWidget(zoekveld_, 1);
    balk->addWidget(melding_);

    inhoud_ = new QListWidget(this);
    for (const QString& p : paginas_) {
        inhoud_->addItem(titel(lees(p)));
    }
    browser_ = new QTextBrowser(this);
    browser_->setOpenLinks(true);
    auto* splitser = new QSplitter(this);
    splitser->addWidget(inhoud_);
    splitser->addWidget(browser_);
    splitser->setStretchFactor(1, 1);
    auto* kolom = new QVBoxLayout(this);
    kolom->addLayout(balk);
    kolom->addWidget(splitser, 1);

    connect(terug, &QPushButton::clicked, browser_, &QTextBrowser::backward);
    connect(vooruit, &QPushButton::clicked, browser_, &QTextBrowser::forward);
    connect(browser_, &QTextBrowser::backwardAvailable, terug, &QWidget::setEnabled);
    connect(browser_, &QTextBrowser::forwardAvailable, vooruit, &QWidget::setEnabled);
    connect(naarInhoud, &QPushButton::clicked, this, [this] { open(QStringLiteral("index.html")); });
    connect(inhoud_, &QListWidget::currentRowChanged, this, [this](int rij) {
        if (rij >= 0 && rij < paginas_.size()) {
            open(paginas_[rij]);
        }
    });
    connect(browser_, &QTextBrowser::sourceChanged, this, [this] { volgInhoud(); });
    connect(zoekveld_, &QLineEdit::returnPressed, this, [this] { zoek(); });
    terug->setEnabled(false);
    vooruit->setEnabled(false);
    resize(820, 620);
}

HandleidingVenster::~HandleidingVenster() = default;

void HandleidingVenster::open(const QString& pagina) {
    const QUrl bron(QStringLiteral("qrc") + kMap + pagina);
    if (browser_->source() != bron) {
        browser_->setSource(bron);
    }
}

void HandleidingVenster::volgInhoud() {
    const int rij = paginas_.indexOf(browser_->source().fileName());
    const QSignalBlocker stil(inhoud_);
    inhoud_->setCurrentRow(rij);
}

// The next place in this page, else the first page after it (round the manual) that has it.
void HandleidingVenster::zoek() {
    const QString tekst = zoekveld_->text().trimmed();
    melding_->clear();
    if (tekst.isEmpty() || browser_->find(tekst)) {
        return;
    }
    const int hier = std::max(0, static_cast<int>(paginas_.indexOf(browser_->source().fileName())));
    for (int stap = 1; stap <= paginas_.size(); ++stap) {
        const QString p = paginas_[(hier + stap) % paginas_.size()];
        QTextDocument inhoud;
        inhoud.setHtml(lees(p));
        if (inhoud.toPlainText().contains(tekst, Qt::CaseInsensitive)) {
            open(p);
            browser_->moveCursor(QTextCursor::Start);
            browser_->find(tekst);
            return;
        }
    }
    melding_->setText(QStringLiteral("Niet gevonden"));
}

}  // namespace zw
