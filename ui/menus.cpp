#include "ui/menus.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <utility>
#include <vector>

namespace zw {

namespace {

struct MenuEntry {
    const char* name;
    // "-" is a separator.
    const char* caption;
    int level;
    // The item shows a check mark when it is on.
    bool checkable;
};

// Level 0 items open a menu of the bar; an item followed by deeper ones opens a submenu.
const MenuEntry kTree[] = {
    {"mntBestand", "&Bestand", 0, false},
    {"mntBestandNieuw", "&Nieuw", 1, false},
    {"mntBestandOpenen", "&Openen", 1, false},
    {"mntBestandOpslaan", "Op&slaan", 1, false},
    {"mntbestandlijn", "-", 1, false},
    {"mntBestandExit", "E&xit", 1, false},
    {"mntBewerken", "Be&werken", 0, false},
    {"mntBewerkenSpline", "&Spline", 1, false},
    {"mntBewerkenSplinePunt", "&Punt", 2, false},
    {"mntBewerkenSplineHelft", "&Helft", 2, false},
    {"mntBewerkenKnopen", "Knopenvector", 1, false},
    {"mntBewerkenKnopenZetOrde", "ZetOrde", 2, false},
    {"mntBewerkenKnopenOpenUniform", "ZetOpenUniform", 2, false},
    {"mntBewerkenKnopenZetuniform", "ZetUniform", 2, false},
    {"mntBewerkenLine2", "-", 1, false},
    {"mntBewerkenWavelet", "WaveletTransformatie", 1, false},
    {"mntBewerkenLijn4", "-", 1, false},
    {"mntBewerkenUndo", "&Undo", 1, false},
    {"mntBewerkenRedo", "&Redo", 1, false},
    {"mntBeeld", "&Beeld", 0, false},
    {"mntBeeldZoom", "&Zoom", 1, false},
    {"mntBeeldZoomInzoemen", "&Inzoemen", 2, false},
    {"mntBeeldZoomNormaal", "&Normaal", 2, false},
    {"mntBeeldZoomUitzoemen", "&Uitzoemen", 2, false},
    {"mntBeeldLijn4", "-", 1, false},
    {"mntBeeldGewichten", "&Gewichten", 1, false},
    {"mntBeeldKnopenVector", "&KnopenVector", 1, true},
    {"mntBeeldLijn2", "-", 1, false},
    {"mntBeeldBezier", "&Bezier", 1, true},
    {"mntBeeldKnooppunten", "&Knoopppunten", 1, true},
    {"mntBeeldMengFuncties", "&Mengfuncties", 1, true},
    {"mntBeeldLijn1", "-", 1, false},
    {"mntBeeldControlperSegment", "&Controlepunten perSegment", 1, true},
    {"mntBeeldSegmentperControl", "&Segmenten per Controlepunt", 1, true},
    {"mntnogenkeln", "-", 1, false},
    {"mntBeeldDetail", "&Detail", 1, false},
    {"mntBeeldDetailLow", "&Low", 2, true},
    {"mntBeeldDetailNormaal", "&Normaal", 2, true},
    {"mntBeeldDetailHigh", "&High", 2, true},
    {"mntbeeldsleepdetail", "Gedetaileerd slepen", 1, true},
    {"mntbeeldli", "-", 1, false},
    {"mntBeeldKleuren", "&Kleuren", 1, false},
    // Beyond the classic tree, after it so that its menus keep their places and keys.
    {"mntExtra", "E&xtra", 0, false},
    {"mntExtraExporteren", "&Exporteren...", 1, false},
    {"mntExtraConstructie", "&Constructie", 1, true},
    {"mntExtraVerbanden", "&Verbanden", 1, true},
    {"mntExtraNummers", "&Nummers", 1, true},
    {"mntExtraOrdeLijn", "-", 1, false},
    {"mntExtraOrdeKiezen", "O&rde kiezen...", 1, false},
    {"mntExtraGraadVerhogen", "&Graad verhogen", 1, false},
    {"mntExtraLijn", "-", 1, false},
    {"mntExtraHandleiding", "&Handleiding", 1, false},
    {"mntExtraOver", "&Over Zwierlijn", 1, false},
};

}  // namespace

Menus::Menus(QMenuBar& bar, EventGuard& guard, std::function<void(const QString&)> klik) {
    // The menu that takes the items of each level.
    std::vector<QMenu*> open;
    const int count = static_cast<int>(std::size(kTree));
    for (int i = 0; i < count; ++i) {
        const MenuEntry& e = kTree[i];
        const QString name = QString::fromLatin1(e.name);
        const QString caption = QString::fromUtf8(e.caption);
        const bool opensMenu = i + 1 < count && kTree[i + 1].level > e.level;
        open.resize(static_cast<std::size_t>(e.level));
        QAction* action = nullptr;
        if (caption == QLatin1String("-")) {
            action = open.back()->addSeparator();
        } else if (opensMenu) {
            QMenu* menu = e.level == 0 ? bar.addMenu(caption) : open.back()->addMenu(caption);
            menu->setObjectName(name);
            action = menu->menuAction();
            open.push_back(menu);
        } else {
            action = open.back()->addAction(caption);
            action->setCheckable(e.checkable);
            QObject::connect(action, &QAction::triggered, action, [&guard, klik, name, action] {
                if (action->isCheckable()) {
                    action->setChecked(!action->isChecked());
                }
                guard.run([&] { klik(name); });
            });
        }
        action->setObjectName(name);
        items_.insert(name, action);
    }
}

}  // namespace zw
