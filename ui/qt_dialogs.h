// The dialogs service on Qt: message boxes, file and colour dialogs, and showing the program's
// windows.
#pragma once

#include <string>

#include <QCoreApplication>
#include <QPointer>
#include <QString>
#include <QWidget>

#include "platform/dialogs.h"

namespace zw {

// Qt's name filters for a classic filter ("description|pattern|description|pattern"). Several
// patterns in one pair ("*.bmp;*.jpg") become Qt's space-separated list; a pair without a pattern
// and a lone trailing description are left out.
QString toQtFileFilter(const std::string& classic);

// Qt's own texts in its dialogs (file and colour dialogs, buttons, the overwrite question) in
// Dutch, whatever the machine's language, as every other text of the editor. False when Qt's Dutch
// catalogue is not installed; the dialogs then keep Qt's English.
bool useQtDutchTexts(QCoreApplication& app);

class QtDialogs : public Dialogs {
  public:
    // Dialogs are centred on the given window, or on the active one when there is none.
    explicit QtDialogs(QWidget* parent = nullptr) : parent_(parent) {}
    void setParentWindow(QWidget* parent) { parent_ = parent; }

    void message(const std::string& text, const std::string& title = {}) override;
    std::string openFileName(const FileDialogRequest& request) override;
    std::string saveFileName(const FileDialogRequest& request) override;
    std::optional<Colour> chooseColour(Colour initial) override;
    std::optional<Keuze> kies(const KeuzeVraag& vraag) override;
    // The window must be a QWidget. A modal show makes it application modal and returns once it
    // has been hidden, closed or destroyed.
    void show(ShowableWindow& window, bool modal) override;

  private:
    QWidget* dialogParent() const;
    std::string fileName(const FileDialogRequest& request, bool save);

    QPointer<QWidget> parent_;
};

}  // namespace zw
