#include "platform/scripted_dialogs.h"

namespace zw {

void ScriptedDialogs::message(const std::string& text, const std::string& title) {
    messages_.push_back({text, title});
}

std::string ScriptedDialogs::nextFileName() {
    if (fileNames_.empty()) {
        return {};
    }
    std::string name = std::move(fileNames_.front());
    fileNames_.pop_front();
    return name;
}

std::string ScriptedDialogs::openFileName(const FileDialogRequest& request) {
    fileRequests_.push_back({false, request});
    return nextFileName();
}

std::string ScriptedDialogs::saveFileName(const FileDialogRequest& request) {
    fileRequests_.push_back({true, request});
    return nextFileName();
}

std::optional<Colour> ScriptedDialogs::chooseColour(Colour /*initial*/) {
    ++colourRequests_;
    if (colours_.empty()) {
        return std::nullopt;
    }
    const std::optional<Colour> colour = colours_.front();
    colours_.pop_front();
    return colour;
}

std::optional<Keuze> ScriptedDialogs::kies(const KeuzeVraag& /*vraag*/) {
    if (keuzes_.empty()) {
        return std::nullopt;
    }
    const std::optional<Keuze> keuze = keuzes_.front();
    keuzes_.pop_front();
    return keuze;
}

void ScriptedDialogs::show(ShowableWindow& window, bool modal) {
    shown_.push_back({window.windowName(), modal});
    if (modal && modalAction_) {
        modalAction_(window);
    }
}

}  // namespace zw
