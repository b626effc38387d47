// The README's and the manual's curves of one polygon at several orders: writes
// ordes-2.zwl, ordes-3.zwl and ordes-4.zwl (open uniform, as "Orde kiezen..." makes them) and
// ordes-4-verhoogd.zwl (the cubic raised once) into the folder it is given; the renderer draws
// them (./zw screenshot).
#include <QCoreApplication>
#include <QTemporaryDir>
#include <cstdio>
#include <string>
#include <utility>

#include "platform/event_guard.h"
#include "platform/scripted_dialogs.h"
#include "storage/opslag.h"
#include "window/headless_editor.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: ordevoorbeelden <folder>\n");
        return 2;
    }
    const std::string map = argv[1];
    const std::pair<float, float> punten[] = {{1500, 8000}, {2500, 2500}, {5500, 1500},
                                              {7000, 6500}, {9500, 8500}, {12000, 3000},
                                              {15000, 2000}};
    bool gelukt = true;
    for (const int k : {2, 3, 4, 5}) {
        QTemporaryDir dir;
        zw::ScriptedDialogs dialogs;
        zw::EventGuard guard(dialogs);
        zw::HeadlessEditor w(dir.path().toStdString(), dialogs, 1100, 700);
        const int orde = k == 5 ? 4 : k;
        gelukt = guard.run([&] {
            w.start();
            for (const auto& [x, y] : punten) {
                w.Doek_MouseDown(1, 0, x, y);
            }
            dialogs.queueKeuze(zw::Keuze{orde, 1});
            w.klik("mntExtraOrdeKiezen");
            if (k == 5) {
                w.klik("mntExtraGraadVerhogen");
            }
            const std::string naam = k == 5 ? "ordes-4-verhoogd" : "ordes-" + std::to_string(k);
            w.ops().opslaan(map + "/" + naam + ".zwl");
        }) && gelukt;
    }
    return gelukt ? 0 : 1;
}
