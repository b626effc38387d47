// Dialogs for tests and headless runs: answers come from a script queued in advance, and every
// request is kept so that tests can read the messages the program showed.
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/dialogs.h"

namespace zw {

class ScriptedDialogs : public Dialogs {
  public:
    struct Message {
        std::string text;
        std::string title;
    };
    struct FileRequest {
        bool save;
        FileDialogRequest request;
    };
    struct Shown {
        std::string window;
        bool modal;
    };

    // Answers, used in order; with none left a file dialog is cancelled ("") and so is the
    // colour dialog.
    void queueFileName(std::string name) { fileNames_.push_back(std::move(name)); }
    void queueColour(std::optional<Colour> colour) { colours_.push_back(colour); }
    // Nothing queued cancels.
    void queueKeuze(std::optional<Keuze> keuze) { keuzes_.push_back(keuze); }
    // Called while a window is shown modally, standing in for what the user does there before
    // closing it.
    void onModal(std::function<void(ShowableWindow&)> action) { modalAction_ = std::move(action); }

    const std::vector<Message>& messages() const { return messages_; }
    const std::vector<FileRequest>& fileRequests() const { return fileRequests_; }
    const std::vector<Shown>& shown() const { return shown_; }
    int colourRequests() const { return colourRequests_; }

    void message(const std::string& text, const std::string& title) override;
    std::string openFileName(const FileDialogRequest& request) override;
    std::string saveFileName(const FileDialogRequest& request) override;
    std::optional<Colour> chooseColour(Colour initial) override;
    std::optional<Keuze> kies(const KeuzeVraag& vraag) override;
    void show(ShowableWindow& window, bool modal) override;

  private:
    std::string nextFileName();

    std::deque<std::string> fileNames_;
    std::deque<std::optional<Colour>> colours_;
    std::deque<std::optional<Keuze>> keuzes_;
    std::function<void(ShowableWindow&)> modalAction_;
    std::vector<Message> messages_;
    std::vector<FileRequest> fileRequests_;
    std::vector<Shown> shown_;
    int colourRequests_ = 0;
};

}  // namespace zw
