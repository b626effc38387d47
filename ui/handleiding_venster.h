// The manual: Dutch pages in the program's resources (ui/handleiding/), shown by a text browser
// with a table of contents, back and forward, and a search through every page. Pictures of the
// canvas are made by the renderer when the program is built; those of windows and menus are the
// screenshots `./zw screenshot` takes.
#pragma once

#include <QString>
#include <QStringList>
#include <QWidget>
#include <string>

#include "platform/dialogs.h"

class QLabel;
class QLineEdit;
class QListWidget;
class QTextBrowser;

namespace zw {

class HandleidingVenster : public QWidget, public ShowableWindow {
  public:
    // The folder of the pages in the resources.
    static const QString kMap;

    explicit HandleidingVenster(QWidget& hoofdvenster);
    ~HandleidingVenster() override;

    std::string windowName() const override { return "Handleiding"; }
    // Opens a page of the manual, by its file name ("eerste-kromme.html").
    void open(const QString& pagina);
    QTextBrowser& browser() const { return *browser_; }
    // The pages in the order of the table of contents.
    const QStringList& paginas() const { return paginas_; }

  private:
    void zoek();
    void volgInhoud();

    QTextBrowser* browser_ = nullptr;
    QListWidget* inhoud_ = nullptr;
    QLineEdit* zoekveld_ = nullptr;
    QLabel* melding_ = nullptr;
    QStringList paginas_;
};

}  // namespace zw
