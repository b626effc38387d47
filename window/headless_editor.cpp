#include "window/headless_editor.h"

#include "platform/files.h"
#include "platform/runtime_error.h"
#include "platform/surface.h"

namespace zw {

HeadlessEditor::HeadlessEditor(std::string programDirectory, Dialogs& dialogs, int breedte,
                               int hoogte, const std::string& instellingenBestand)
    : Zwierlijn(std::move(programDirectory), dialogs),
      instellingen_(standaardInstellingen()) {
    const std::string bestand =
        instellingenBestand.empty() ? this->programDirectory() + "\\zwierlijn" : instellingenBestand;
    if (FileExists(bestand)) {
        instellingen_ = leesInstellingen(bestand);
    }
    scaleWidth_ = static_cast<float>(breedte * kTwipsPerPixel);
    scaleHeight_ = static_cast<float>(hoogte * kTwipsPerPixel);
}

void HeadlessEditor::start() {
    Form_Initialize();
    Form_Load();
}

void HeadlessEditor::resize(int breedte, int hoogte) {
    scaleWidth_ = static_cast<float>(breedte * kTwipsPerPixel);
    scaleHeight_ = static_cast<float>(hoogte * kTwipsPerPixel);
    Form_Resize();
}

std::int32_t HeadlessEditor::instelling(int record) {
    if (record < 1 || record > kInstellingen) {
        raise(kErrBadRecordNumber);
    }
    return instellingen_[static_cast<std::size_t>(record - 1)];
}

}  // namespace zw
