#include "ui/werkbalk.h"

#include <QAction>
#include <QToolBar>
#include <utility>

#include "ui/werkbalk_iconen.h"

namespace zw {

namespace {

struct Knop {
    const char* key;
    const char* tooltip;
    // Shown where the toolbar has no room for the image (its overflow menu); the first
    // button's own, the tooltip for the others.
    const char* tekst;
    // Shown pressed or released by the program.
    bool drukbaar;
};

const Knop kKnoppen[] = {
    {"Nieuw", "Nieuwe kromme tekenen", "Niewe kromme", false},
    {"Openen", "Openen", nullptr, false},
    {"Opslaan", "Kromme opslaan", nullptr, false},
    {"Exit", "Exit", nullptr, false},
    {"sep1", nullptr, nullptr, false},
    {"Undo", "Ongedaan maken", nullptr, false},
    {"Redo", "Herdoen", nullptr, false},
    {"Mengfuncties", "Mengfuncties tonen", nullptr, true},
    {"ZetOrde", "Zet Orde", nullptr, false},
    {"Gewicht", "Gewicht", nullptr, false},
    {"OpenUniform", "Open Uniform", nullptr, false},
    {"Uniform", "Uniform", nullptr, false},
    {"Helft", "Alle splines in helft splitsen", nullptr, true},
    {"Spline", "Spline aanklikken", nullptr, true},
    {"Inzoemen", "Inzoemen", nullptr, false},
    {"Uitzoemen", "Uitzoemen", nullptr, false},
    {"Normaal", "Normaal", nullptr, false},
};

}  // namespace

Werkbalk::Werkbalk(QToolBar& tb, EventGuard& guard, std::function<void(const QString&)> klik) {
    for (const Knop& k : kKnoppen) {
        const QString key = QString::fromLatin1(k.key);
        sleutels_.append(key);
        QAction* action = nullptr;
        if (k.tooltip == nullptr) {
            action = tb.addSeparator();
        } else {
            const QString tooltip = QString::fromUtf8(k.tooltip);
            action = tb.addAction(werkbalkIcoon(key),
                                  k.tekst != nullptr ? QString::fromUtf8(k.tekst) : tooltip);
            action->setToolTip(tooltip);
            action->setCheckable(k.drukbaar);
            // Qt's own toggle of a pressed button is undone: the program decides what shows.
            QObject::connect(action, &QAction::triggered, action, [&guard, klik, key, action] {
                if (action->isCheckable()) {
                    action->setChecked(!action->isChecked());
                }
                guard.run([&] { klik(key); });
            });
        }
        action->setObjectName(key);
        knoppen_.insert(key, action);
    }
}

}  // namespace zw
