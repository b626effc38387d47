// The program's conversations with the user: message boxes, file and colour dialogs, and the
// showing of its windows. The Qt implementation lives with the widgets; tests use
// ScriptedDialogs, which answers from a script and keeps what it was asked.
#pragma once

#include <optional>
#include <string>

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
    // Shows a window; a modal show returns only when the window has been closed.
    virtual void show(ShowableWindow& window, bool modal) = 0;
};

}  // namespace zw
