// The program's conversations with the user: message boxes, file and colour dialogs, and the
// showing of its windows. The Qt implementation lives with the widgets; tests use
// ScriptedDialogs, which answers from a script and keeps what it was asked.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/colour.h"

namespace zw {

// A window of the program that the dialogs service can show (the weights window, the settings
// dialog). The Qt implementation of Dialogs expects it to be a QWidget as well.
class ShowableWindow {
  public:
    virtual ~ShowableWindow() = default;
    virtual std::string windowName() const = 0;
};

struct FileDialogRequest {
    // Classic filter: pairs of description and pattern separated by "|".
    std::string filter;
    // Appended when the user types a name without extension, e.g. ".zwl".
    std::string defaultExtension;
    std::string title;
    // The folder the dialog opens in; empty leaves it to the dialog.
    std::string directory;
};

// A whole number in a range and one of a few options, as a small form asks for them.
struct KeuzeVraag {
    std::string title;
    std::string getalLabel;
    int minimum = 0;
    int maximum = 0;
    int getal = 0;
    std::string keuzeLabel;
    std::vector<std::string> keuzes;
    int keuze = 0;
};
struct Keuze {
    int getal = 0;
    int keuze = 0;
};

class Dialogs {
  public:
    virtual ~Dialogs() = default;

    // A plain message box with an OK button. An empty title means the program's own.
    virtual void message(const std::string& text, const std::string& title = {}) = 0;
    // The chosen file's path, or "" when the user cancels.
    virtual std::string openFileName(const FileDialogRequest& request) = 0;
    virtual std::string saveFileName(const FileDialogRequest& request) = 0;
    // The chosen colour, or nothing when the user cancels.
    virtual std::optional<Colour> chooseColour(Colour initial) = 0;
    // The number and the option chosen, or nothing when the user cancels.
    virtual std::optional<Keuze> kies(const KeuzeVraag& vraag) = 0;
    // Shows a window; a modal show returns only when the window has been closed.
    virtual void show(ShowableWindow& window, bool modal) = 0;
};

}  // namespace zw
