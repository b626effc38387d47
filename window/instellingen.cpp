#include "window/instellingen.h"

#include <QFile>
#include <cstring>

#include "platform/colour.h"
#include "platform/files.h"
#include "platform/record_file.h"
#include "platform/runtime_error.h"

namespace zw {

const Instellingen& standaardInstellingen() {
    static const Instellingen kStandaard = {
        rgb(230, 126, 34),   // 1 knot points on the curve: orange
        rgb(33, 97, 196),    // 2 the curve: deep blue
        rgb(192, 57, 43),    // 3 control points: brick red
        rgb(251, 251, 248),  // 4 canvas: warm white
        rgb(150, 156, 166),  // 5 legs of the control polygon: slate grey
        60,                  // 6 radius of a control-point disc
        3000,                // 7 side of the blending pane
        rgb(39, 174, 96),    // 8 coloured segments: green
        2,                   // 9 zoom factor
        rgb(142, 68, 173),   // 10 Bezier notation: purple
        rgb(33, 97, 196),    // 11 real knots: the curve's blue
        rgb(170, 178, 192),  // 12 virtual knots: pale grey-blue
    };
    return kStandaard;
}

void schrijfStandaardInstellingen(const std::string& bestand) {
    if (FileExists(bestand)) {
        return;
    }
    RecordFile file(bestand);
    for (int r = 1; r <= kInstellingen; ++r) {
        file.putLong(r, standaardInstellingen()[r - 1]);
    }
    file.close();
}

// Read only: the file may lie in an installation directory that the user cannot write.
Instellingen leesInstellingen(const std::string& bestand) {
    if (!FileExists(bestand)) {
        raise(kErrFileNotFound);
    }
    QFile file(QString::fromStdString(nativePath(bestand)));
    if (!file.open(QIODevice::ReadOnly)) {
        raise(kErrPathFileAccess);
    }
    const QByteArray bytes = file.read(4 * kInstellingen);
    Instellingen waarden{};
    std::memcpy(waarden.data(), bytes.constData(), static_cast<std::size_t>(bytes.size()));
    return waarden;
}

}  // namespace zw
